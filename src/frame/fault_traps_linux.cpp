#include <cfenv>

#include "frame/fault_traps.hpp"

namespace classic {
namespace {

int held_traps = 0;  // the exceptions whose traps the host has on; 0 outside a request
std::fenv_t host_environment;

}  // namespace

void hold_traps() {
  held_traps = fegetexcept();
  if (held_traps != 0) {
    std::feholdexcept(&host_environment);
  }
}

void forget_faults() {
  if (held_traps != 0) {
    std::feclearexcept(held_traps);
  }
}

bool release_traps() {
  if (held_traps == 0) {
    return false;
  }
  const bool faulted = std::fetestexcept(held_traps) != 0;
  held_traps = 0;
  std::fesetenv(&host_environment);
  return faulted;
}

}  // namespace classic
