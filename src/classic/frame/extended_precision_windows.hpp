#pragma once

#include <cstdint>

namespace classic {

/// Has the x87 in extended precision while it lives, for a host whose runtime keeps it in double
/// precision, as Microsoft's does: the extended-precision exponential and the steps with extended
/// constants would lose digits.
class ExtendedPrecision {
 public:
  ExtendedPrecision() : of_host_(static_cast<std::uint16_t>(control() & precision)) {
    set(precision);
  }
  ExtendedPrecision(const ExtendedPrecision&) = delete;
  ExtendedPrecision& operator=(const ExtendedPrecision&) = delete;
  ~ExtendedPrecision() { set(of_host_); }

 private:
  static constexpr unsigned precision = 0x300;  // both bits set are extended precision

  static std::uint16_t control() {
    std::uint16_t control;
    asm volatile("fnstcw %0" : "=m"(control));
    return control;
  }
  static void set(unsigned bits) {
    const auto changed = static_cast<std::uint16_t>((control() & ~precision) | bits);
    asm volatile("fldcw %0" : : "m"(changed));
  }

  std::uint16_t of_host_;
};

}  // namespace classic
