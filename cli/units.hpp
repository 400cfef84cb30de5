#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "conversion.hpp"
#include "vek/steam.hpp"

namespace command {

/// What --units, --unit, --gauge and --ambient say.
struct UnitOptions {
  std::string set = "bar";
  std::vector<std::string> single;  ///< such as "p=psi"
  bool gauge = false;
  std::string ambient = "1.01325bar";
};

/// The unit in which a property is given and shown.
struct Unit {
  std::string name;  ///< for people
  Linear to_base{}, from_base{};
};

/// The units of all properties.
class Units {
 public:
  /// @outside  throws Failure when there is no such unit or property
  explicit Units(const UnitOptions& options = {});
  [[nodiscard]] Unit of(steam::Property property) const;

  /// Whether the property may be given in it.
  static bool has(steam::Property property, const std::string& unit);

  /// From now on the unit of the property.
  void assign(steam::Property property, const std::string& unit);

  /// @param text  a number, with a unit or in that of the property: "145psi"; a pressure's may say
  ///              what it counts from: "130psig", "80mbara", "6 kg/cm2(g)"
  /// @return      in the property's base unit
  /// @outside     throws Failure
  [[nodiscard]] double read(steam::Property property, std::string_view text) const;

 private:
  /// Another unit than that of the set.
  struct Single {
    steam::Property property;
    std::string unit;
  };
  [[nodiscard]] Unit named(steam::Property property, const std::string& name) const;
  [[nodiscard]] std::string unit_name(steam::Property property) const;

  std::string set_;
  std::vector<Single> single_;
  bool gauge_;
  double ambient_ = 0;  // bar
};

/// The names of the sets.
std::vector<std::string> unit_sets();

/// Why there is no state, in the units of the user.
std::string text(const steam::Refusal& refusal, const Units& units);

}  // namespace command
