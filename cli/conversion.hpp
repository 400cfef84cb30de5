#pragma once

#include <string>

namespace command {

/// From one unit to another.
struct Linear {
  double slope = 1, offset = 0;
  double operator()(double value) const { return slope * value + offset; }
  [[nodiscard]] Linear inverse() const { return {1 / slope, -offset / slope}; }
};

/// Whether a unit exists and measures the same as another. Thread-safe, as all here.
bool is_convertible(const std::string& from, const std::string& to);

/// @param from, to  units as UDUNITS-2 spells them, such as "°C" or "Btu/(lb °F)", besides lbm, cP
///                  and dyn; "C", "F" and "R" are degrees where temperatures are wanted, and
///                  "kg/cm2" is a pressure where one is
/// @outside         throws Failure, which says what is wrong with `from`
Linear conversion(const std::string& from, const std::string& to);

}  // namespace command
