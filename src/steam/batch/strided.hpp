#pragma once

#include <cstddef>
#include <cstdint>

namespace steam {

/// Places in memory, `stride` bytes apart, one a row.
struct Places {
  std::uintptr_t begin;
  std::ptrdiff_t stride;
  std::size_t size;  ///< bytes of one

  [[nodiscard]] bool operator==(const Places&) const = default;
};

/// Whether rows have places of their own.
bool are_apart(const Places& places, std::size_t rows);

/// Whether a place of one row of `a` shares a byte with that of any row of `b`. With two different
/// strides it may say so of columns that merely interlock.
bool may_overlap(const Places& a, const Places& b, std::size_t rows);

}  // namespace steam
