#pragma once

#include <array>
#include <cstddef>

#include "steam/site.hpp"

namespace steam {

// Searches along an isobar or an isotherm: sure, complete, and not quick. The line is cut into the
// pieces that lie in one region each; in a piece the quantity is smooth and turns at most once.

/// Solutions in the order in which they are preferred.
struct Solutions {
  static constexpr std::size_t capacity = 6;
  std::array<Site, capacity> sites;
  std::size_t count = 0;
  /// How far outside the range of the line the value lies, when there is no solution: -1 below all
  /// its values, 1 above them.
  int side = 0;
  void add(const Site& site) {
    if (count < capacity) {
      sites[count++] = site;
    }
  }
};

/// States of a pressure that have q = value, from the highest temperature down.
/// @param t_floor  begin of the isobar, °C: below `t_lowest` it runs through continued water
Solutions along_isobar(double p, Quantity q, double value, double t_floor);

/// States of a temperature that have q = value, from the lowest pressure up.
Solutions along_isotherm(double t, Quantity q, double value);

/// State of a pressure and a temperature, both in range.
Site at_pressure_temperature(double p, double t);

}  // namespace steam
