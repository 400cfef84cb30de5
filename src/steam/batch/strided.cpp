#include "steam/batch/strided.hpp"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace steam {
namespace {

/// From the first byte to the one behind the last.
struct Extent {
  std::uintptr_t begin, end;
};

Extent extent(const Places& a, std::size_t rows) {
  const auto length = static_cast<std::uintptr_t>(a.stride) * (rows - 1);  // wraps as it should
  const std::uintptr_t last = a.begin + length;
  return {std::min(a.begin, last), std::max(a.begin, last) + a.size};
}

}  // namespace

bool are_apart(const Places& places, std::size_t rows) {
  return rows < 2 || static_cast<std::size_t>(std::abs(places.stride)) >= places.size;
}

bool may_overlap(const Places& a, const Places& b, std::size_t rows) {
  if (rows == 0) {
    return false;
  }
  const Extent of_a = extent(a, rows), of_b = extent(b, rows);
  if (of_a.end <= of_b.begin || of_b.end <= of_a.begin) {
    return false;
  }
  // All distances between a place of a and one of b are this one plus multiples of the period.
  const auto period = static_cast<std::uintptr_t>(std::gcd(a.stride, b.stride));
  if (period == 0) {
    return true;
  }
  const std::uintptr_t distance =
      (b.begin >= a.begin ? b.begin - a.begin : period - (a.begin - b.begin) % period) % period;
  return distance < a.size || period - distance < b.size;
}

}  // namespace steam
