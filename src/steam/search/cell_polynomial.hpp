#pragma once

#include <array>
#include <cmath>

#include "steam/search/root.hpp"
#include "steam/tables/saturation_tables.hpp"

namespace steam {

/// The mixed quantity less the wanted value: in one cell, over the place from -1 to 1.
struct CellPolynomial {
  std::array<double, saturated_terms> c;

  [[nodiscard]] Slope operator()(double z) const {
    double value = c.back(), slope = 0;
    for (std::size_t k = saturated_terms - 1; k-- > 0;) {
      slope = slope * z + value;
      value = value * z + c[k];
    }
    return {value, slope};
  }
  [[nodiscard]] CellPolynomial derivative() const {
    CellPolynomial d{};
    for (std::size_t k = 1; k < saturated_terms; ++k) {
      d.c[k - 1] = static_cast<double>(k) * c[k];
    }
    return d;
  }
  /// Whether it surely is farther from zero than `doubt` in the whole cell.
  [[nodiscard]] bool is_beyond(double doubt) const {
    double others = 0;
    for (std::size_t k = 1; k < saturated_terms; ++k) {
      others += std::abs(c[k]);
    }
    constexpr double margin = 1.1;
    return std::abs(c[0]) > margin * others + doubt;
  }
  /// Whether it surely has no turn in the cell.
  [[nodiscard]] bool is_monotone() const {
    double others = 0;
    for (std::size_t k = 2; k < saturated_terms; ++k) {
      others += static_cast<double>(k) * std::abs(c[k]);
    }
    return std::abs(c[1]) > others;
  }
};

}  // namespace steam
