#pragma once

#include <span>
#include <stdexcept>

#include "vek/steam.hpp"

namespace steam {

/// Throws where an enumerator does not exist.
inline void refuse_unknown(Pair pair, std::span<const Property> wanted = {}) {
  if (static_cast<std::size_t>(pair) >= pair_count) {
    throw std::invalid_argument("steam: no such pair");
  }
  for (const Property property : wanted) {
    if (static_cast<std::size_t>(property) >= property_count) {
      throw std::invalid_argument("steam: no such property");
    }
  }
}

}  // namespace steam
