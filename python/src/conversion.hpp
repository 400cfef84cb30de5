#pragma once

#include <string>

namespace python {

/// How a property is measured in SI units, from the unit that the engine gives it.
/// SI value = engine's value * factor + offset.
struct Conversion {
  double factor = 1, offset = 0;
  [[nodiscard]] double to_si(double value) const { return value * factor + offset; }
  [[nodiscard]] double from_si(double value) const { return (value - offset) / factor; }
};

/// The unit in SI, such as "J/(kg K)" of "kJ/(kg K)".
std::string si_unit(std::string unit);

/// @param unit  as the engine names it
Conversion si_conversion(const std::string& unit);

}  // namespace python
