#include "classic/frame/floating_point_unit.hpp"

namespace classic {
namespace {

// The bits of an exception are the same in the status register and, shifted, for its trap in the
// control register. Many processors have no traps: theirs read as off.
constexpr std::uint64_t exceptions = 0x9f;  // the seventh is the denormal operand
constexpr int trap_shift = 8;

std::uint64_t read_control() {
  std::uint64_t control;
  asm volatile("mrs %0, fpcr" : "=r"(control));
  return control;
}

std::uint64_t read_status() {
  std::uint64_t status;
  asm volatile("mrs %0, fpsr" : "=r"(status));
  return status;
}

}  // namespace

Exceptions traps_on() { return (read_control() >> trap_shift) & exceptions; }

Exceptions raised_exceptions() { return read_status() & exceptions; }

void write_exceptions(Exceptions traps, Exceptions raised) {
  const std::uint64_t control =
      (read_control() & ~(exceptions << trap_shift)) | (std::uint64_t{traps} << trap_shift);
  asm volatile("msr fpcr, %0" : : "r"(control));
  const std::uint64_t status = (read_status() & ~exceptions) | raised;
  asm volatile("msr fpsr, %0" : : "r"(status));
}

}  // namespace classic
