/* The efficiency of a turbine cycle, 160 bar and 540 degC, over the pressure of its condenser, from
 * C. Every program here that is named engine prints the same table. */

#include <stdio.h>
#include <vek/steam.h>

enum { rows = 4 };

static const double p_inlet = 160;
static const double turbine = 0.87;

static void print(double p, double h_inlet, double h_ideal) {
  const double h_outlet = h_inlet - turbine * (h_inlet - h_ideal);
  vek_steam_phase condensate;
  vek_steam_saturation(VEK_STEAM_P, p, &condensate, NULL, sizeof condensate);
  const double h_feed = vek_steam_value(VEK_STEAM_PS, p_inlet, condensate.s, VEK_STEAM_H);
  const double work = h_inlet - h_outlet - (h_feed - condensate.h);
  printf("%5.2f bar: quality %.6f, efficiency %.6f\n", p,
         vek_steam_value(VEK_STEAM_PH, p, h_outlet, VEK_STEAM_X), work / (h_inlet - h_feed));
}

int main(void) {
  const double p[rows] = {0.03, 0.05, 0.07, 0.1};
  const double h_inlet = vek_steam_value(VEK_STEAM_PT, p_inlet, 540, VEK_STEAM_H);
  const double s_inlet = vek_steam_value(VEK_STEAM_PT, p_inlet, 540, VEK_STEAM_S);

  /* The same entropy in every row: a stride of 0. */
  double h_ideal[rows];
  const int wanted = VEK_STEAM_H;
  const vek_steam_input pressures = {p, sizeof *p};
  const vek_steam_input entropy = {&s_inlet, 0};
  const vek_steam_output enthalpies = {h_ideal, sizeof *h_ideal};
  if (vek_steam_evaluate(VEK_STEAM_PS, rows, pressures, entropy, 1, &wanted, &enthalpies, NULL,
                         NULL, 0, NULL) != VEK_STEAM_OK) {
    return 1;
  }
  for (int i = 0; i < rows; ++i) {
    print(p[i], h_inlet, h_ideal[i]);
  }
  return 0;
}
