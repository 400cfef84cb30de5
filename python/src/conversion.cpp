#include "conversion.hpp"

#include <array>

namespace python {
namespace {

/// The parts of the engine's units that are not of the SI.
struct Part {
  const char *name, *si;
  double factor;
};
constexpr std::array parts{Part{"bar", "Pa", 1e5}, Part{"kJ", "J", 1e3}};
constexpr const char* celsius = "°C";

}  // namespace

std::string si_unit(std::string unit) {
  if (unit == celsius) {
    return "K";
  }
  for (const Part& part : parts) {
    const std::string name = part.name;
    if (const std::size_t at = unit.find(name); at != std::string::npos) {
      unit.replace(at, name.size(), part.si);
    }
  }
  return unit;
}

Conversion si_conversion(const std::string& unit) {
  Conversion conversion;
  if (unit == celsius) {
    conversion.offset = 273.15;
  }
  for (const Part& part : parts) {
    if (const std::size_t at = unit.find(part.name); at != std::string::npos) {
      conversion.factor *= unit.find('/') < at ? 1 / part.factor : part.factor;
    }
  }
  return conversion;
}

}  // namespace python
