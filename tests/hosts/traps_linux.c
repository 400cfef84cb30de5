#include <fenv.h>

#include "traps.h"

int enable_traps(void) { return feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW) != -1; }

unsigned traps(void) { return (unsigned)fegetexcept(); }

void divide_by_zero(void) {
  volatile double zero = 0;
  zero = 1 / zero;
}
