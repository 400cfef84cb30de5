/* A host that runs with floating-point traps and a SIGFPE handler of its own. A faulting request
 * raises the flag, and the host has its traps and its handler back afterwards. */

#include "traps.h"

#include <setjmp.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <vek/vek.h>

static jmp_buf after_fault;

static void on_fault(int number) {
  (void)number;
  longjmp(after_fault, 1);
}

/* A finder of the host's own, with a faulting request within the request. */
static int asks_first(double* p, double* t, double* tol) {
  const double no_pressure = 0;
  double volume;
  vek(vekrpt_, &no_pressure, t, "V ", &volume);
  return VEKHasError() == 1 ? vekrpt_(p, t, tol) : 7;
}

struct Request {
  const char* what;
  VekFinder finder;
  double p, t;
  const char* list;
  int flag;
};

static const struct Request requests[] = {
    {"no fault", vekrpt_, 10, 100, "P,T,V,H,S,X,CP,DV,TC ", 0},
    {"overflow and invalid operation", vekrpt_, 1e-310, 300, "V ", 1},
    {"division by zero", vekrpt_, 0, 300, "V ", 1},
    {"division by zero with the terms known", vekrpt_, 0, 300, "V ", 1},
    {"overflow", vekrpt_, 1e305, 20, "H ", 1},
    {"a fault, then a diagnostic line", vekrpt_, 0, 300, "V,Q ", 2},
    {"a diagnostic line, then a fault", vekrpt_, 0, 300, "Q,V ", 1},
    {"no fault of its own", vekrpt_, 0, 300, "T ", 0},
    {"a fault in a request within a request", asks_first, 10, 100, "H,S ", 0},
    {"no fault after faults", vekrpt_, 10, 100, "H,S ", 0},
};

int main(void) {
  if (!enable_traps()) {
    puts("there are no traps on this machine");
    return 77;
  }
  const unsigned host_traps = traps();
  signal(SIGFPE, on_fault);

  int failures = 0;
  for (size_t i = 0; i < sizeof requests / sizeof *requests; ++i) {
    const struct Request* r = &requests[i];
    double result[9];
    vek(r->finder, &r->p, &r->t, r->list, result);
    if (VEKHasError() != r->flag || traps() != host_traps) {
      printf("%s: flag %d, traps %x\n", r->what, VEKHasError(), traps());
      ++failures;
    }
  }
  if (signal(SIGFPE, on_fault) != on_fault) {
    puts("the host's handler is not back");
    ++failures;
  }
  if (setjmp(after_fault) == 0) {
    divide_by_zero();
    puts("the host's own fault is not delivered");
    ++failures;
  }
  return failures;
}
