/* Asks both libraries for the enthalpy of one state. */
#include <math.h>
#include <vek/steam.h>
#include <vek/vek.h>

int main(void) {
  const double p = 10;
  const double t = 100;
  double h = 0;
  vek(vekrpt_, &p, &t, "H ", &h);
  return !(fabs(h - 419.738642) < 1e-6 &&
           fabs(h - vek_steam_value(VEK_STEAM_PT, p, t, VEK_STEAM_H)) < 1e-6);
}
