#include <array>
#include <cstdint>

#include "frame/extended_precision_windows.hpp"
#include "frame/fault_traps.hpp"

namespace classic {
namespace {

// Both units of a 32-bit host: MXCSR of SSE, control and status word of the x87. Exceptions have
// the same six bits in both.
constexpr std::uint32_t all_exceptions = 0x3f;
constexpr int mxcsr_masks = 7;  // shift of the mask bits in MXCSR

/// The x87 environment as the processor stores it.
struct X87Environment {
  std::uint16_t control, unused1, status, unused2;
  std::array<std::uint32_t, 5> rest;
};
static_assert(sizeof(X87Environment) == 28);

std::uint32_t read_mxcsr() {
  std::uint32_t mxcsr;
  asm volatile("stmxcsr %0" : "=m"(mxcsr));
  return mxcsr;
}

void write_mxcsr(std::uint32_t mxcsr) { asm volatile("ldmxcsr %0" : : "m"(mxcsr)); }

std::uint16_t x87_status() {
  std::uint16_t status;
  asm volatile("fnstsw %0" : "=m"(status));
  return status;
}

std::uint32_t held_traps = 0;  // the exceptions whose traps the host has on; 0 outside a request
std::uint32_t host_mxcsr;
X87Environment host_x87;

}  // namespace

void hold_traps() {
  host_mxcsr = read_mxcsr();
  asm volatile("fnstenv %0" : "=m"(host_x87));  // masks the traps of the x87, too
  held_traps = (~(host_mxcsr >> mxcsr_masks) | ~host_x87.control) & all_exceptions;
  write_mxcsr((host_mxcsr | (all_exceptions << mxcsr_masks)) & ~all_exceptions);
  const auto control =
      static_cast<std::uint16_t>(host_x87.control | all_exceptions | x87_extended_precision);
  asm volatile("fnclex; fldcw %0" : : "m"(control));
}

void forget_faults() {
  if (held_traps != 0) {
    write_mxcsr(read_mxcsr() & ~all_exceptions);
    asm volatile("fnclex");
  }
}

bool release_traps() {
  const bool faulted = ((read_mxcsr() | x87_status()) & held_traps) != 0;
  held_traps = 0;
  write_mxcsr(host_mxcsr);
  asm volatile("fldenv %0" : : "m"(host_x87));
  return faulted;
}

}  // namespace classic
