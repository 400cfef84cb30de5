#include <array>

#include "classic/frame/floating_point_unit.hpp"

namespace classic {
namespace {

// SSE, which computes with doubles, and the x87, which computes in extended precision and so takes
// part in exponentials and some products. Each has six exceptions, the denormal operand among them,
// in the same order: here those of SSE are the lower six bits, those of the x87 the next six.
constexpr Exceptions each_unit = 0x3f;
constexpr int x87_shift = 6;
constexpr int mxcsr_masks = 7;  // shift of the mask bits in MXCSR

/// The x87 environment as the processor stores it.
struct X87Environment {
  std::uint16_t control, unused1, status, unused2;
  std::array<std::uint32_t, 5> rest;
};
static_assert(sizeof(X87Environment) == 28);
constexpr unsigned x87_summary = 0x80c0;  // busy, and that a trap or a stack fault is pending

std::uint32_t read_mxcsr() {
  std::uint32_t mxcsr;
  asm volatile("stmxcsr %0" : "=m"(mxcsr));
  return mxcsr;
}

void write_mxcsr(std::uint32_t mxcsr) { asm volatile("ldmxcsr %0" : : "m"(mxcsr)); }

std::uint16_t x87_control() {
  std::uint16_t control;
  asm volatile("fnstcw %0" : "=m"(control));
  return control;
}

std::uint16_t x87_status() {
  std::uint16_t status;
  asm volatile("fnstsw %0" : "=m"(status));
  return status;
}

std::uint32_t with_bits(std::uint32_t word, std::uint32_t mask, std::uint32_t bits) {
  return (word & ~mask) | (bits & mask);
}

}  // namespace

Exceptions traps_on() {
  const Exceptions sse = ~(read_mxcsr() >> mxcsr_masks) & each_unit;
  const Exceptions x87 = ~Exceptions{x87_control()} & each_unit;
  return sse | x87 << x87_shift;
}

Exceptions raised_exceptions() {
  return (read_mxcsr() & each_unit) | (x87_status() & each_unit) << x87_shift;
}

void write_exceptions(Exceptions traps, Exceptions raised) {
  const std::uint32_t mxcsr =
      with_bits(read_mxcsr(), each_unit << mxcsr_masks, ~traps << mxcsr_masks);
  write_mxcsr(with_bits(mxcsr, each_unit, raised));

  // As a whole environment: other ways to write the control word deliver what is pending.
  X87Environment x87;
  asm volatile("fnstenv %0" : "=m"(x87));
  x87.control =
      static_cast<std::uint16_t>(with_bits(x87.control, each_unit, ~(traps >> x87_shift)));
  x87.status = static_cast<std::uint16_t>(
      with_bits(x87.status, each_unit | x87_summary, (raised >> x87_shift) & each_unit));
  asm volatile("fldenv %0" : : "m"(x87));
}

}  // namespace classic
