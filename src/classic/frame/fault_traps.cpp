#include "classic/frame/fault_traps.hpp"

#include "classic/frame/floating_point_unit.hpp"

namespace classic {
namespace {

Exceptions held_traps = 0;    // of the host; 0 outside a request, and in one of a host without any
Exceptions hosts_exceptions;  // raised before the request

}  // namespace

void hold_traps() {
  held_traps = traps_on();
  hosts_exceptions = raised_exceptions();
  if (held_traps != 0) {
    write_exceptions(0, 0);
  }
}

void hold_new_traps() {
  const Exceptions on = traps_on();
  if (on == 0) {
    return;
  }
  // What was raised while a new trap was off is no fault, and must not trap at the end.
  const Exceptions added = on & ~held_traps;
  write_exceptions(0, raised_exceptions() & ~added);
  hosts_exceptions &= ~added;
  held_traps |= added;
}

void forget_faults() {
  if (held_traps != 0) {
    write_exceptions(traps_on(), 0);
  }
}

bool has_faulted() { return (raised_exceptions() & held_traps) != 0; }

void release_traps() {
  hold_new_traps();
  if (held_traps != 0) {
    write_exceptions(held_traps, hosts_exceptions);
    held_traps = 0;
  }
}

}  // namespace classic
