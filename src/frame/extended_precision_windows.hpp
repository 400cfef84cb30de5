#pragma once

#include <cstdint>

#include "api/vek.h"

namespace classic {

/// Precision control of the x87: both bits set are extended precision.
constexpr std::uint16_t x87_extended_precision = 0x300;

/// Calls a finder for a host whose runtime keeps the x87 in double precision, as Microsoft's does:
/// the extended-precision exponential and the steps with extended constants would lose digits.
inline int in_extended_precision(VekFinder finder, double* a, double* b, double* tol) {
  std::uint16_t host_control;
  asm volatile("fnstcw %0" : "=m"(host_control));
  const auto control = static_cast<std::uint16_t>(host_control | x87_extended_precision);
  asm volatile("fldcw %0" : : "m"(control));
  const int region = finder(a, b, tol);
  asm volatile("fldcw %0" : : "m"(host_control));
  return region;
}

}  // namespace classic
