#include <vek/vek.h>

int main(void) {
  const double p = 10;
  const double t = 100;
  double h = 0;
  vek(vekrpt_, &p, &t, "H ", &h);
  return VEKHasError() != 0 || h < 419.7 || h > 419.8;
}
