/* A Rankine cycle from a C99 host: turbine inlet 160 bar and 540 degC, expansion to 0.05 bar, ideal
 * and with a turbine efficiency of 0.87. Every host here prints the same table. */

#include <stdio.h>
#include <vek/vek.h>

static double result[3];

static void request(VekFinder finder, double x, double y, const char* list) {
  vek(finder, &x, &y, list, result);
  if (VEKHasError() != 0) {
    puts("the module reports an error");
  }
}

static void print(const char* name, double value) { printf("%-28s%16.9f\n", name, value); }

int main(void) {
  const double p_inlet = 160;
  const double t_inlet = 540;
  const double p_condenser = 0.05;
  const double turbine = 0.87;

  request(vekrpt_, p_inlet, t_inlet, "H,S ");
  const double h_inlet = result[0];
  print("inlet enthalpy", h_inlet);
  print("inlet entropy", result[1]);

  request(vekrps_, p_condenser, result[1], "H,X ");
  print("ideal outlet quality", result[1]);

  const double h_outlet = h_inlet - turbine * (h_inlet - result[0]);
  request(vekrph_, p_condenser, h_outlet, "T,X,S ");
  print("outlet temperature", result[0]);
  print("outlet quality", result[1]);
  print("outlet entropy", result[2]);

  request(vekrpx_, p_condenser, 0, "S ");
  request(vekrps_, p_inlet, result[0], "H,T ");
  print("feed temperature", result[1]);
  print("turbine's share of the heat", (h_inlet - h_outlet) / (h_inlet - result[0]));
  return 0;
}
