#include <xmmintrin.h>

#include "traps.h"

/* The masks of invalid, division by zero and overflow: in both units in the same order. */
enum { masks = 0x0d, mxcsr_shift = 7, mxcsr_control = 0xffc0 };
/* The control word of Microsoft's runtime, which has the x87 in double precision. */
enum { usual_control = 0x27f };

static unsigned short x87_control(void) {
  unsigned short control;
  __asm__ volatile("fnstcw %0" : "=m"(control));
  return control;
}

int enable_traps(void) {
  const unsigned short control = (unsigned short)(usual_control & ~masks);
  __asm__ volatile("fnclex; fldcw %0" : : "m"(control));
  _mm_setcsr(_mm_getcsr() & ~(unsigned)(masks << mxcsr_shift));
  return 1;
}

unsigned traps(void) { return x87_control() | (_mm_getcsr() & mxcsr_control) << 16; }

void divide_by_zero(void) {
  __asm__ volatile("fld1; fldz; fdivrp; fwait; fstp %%st(0)" : : : "st");
}
