#include "units.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "amount.hpp"
#include "failure.hpp"
#include "properties.hpp"

namespace command {
namespace {

/// Units of the sets, by the engine's unit. What is not here has the engine's unit in every set.
struct Row {
  std::string_view base;
  const char *si, *us;
};
constexpr std::array rows{
    Row{"bar", "Pa", "psi"},
    Row{"°C", "K", "°F"},
    Row{"K", "K", "°F"},
    Row{"m³/kg", "m³/kg", "ft³/lb"},
    Row{"kg/m³", "kg/m³", "lb/ft³"},
    Row{"kJ/kg", "J/kg", "Btu/lb"},
    Row{"kJ/(kg K)", "J/(kg K)", "Btu/(lb °F)"},
    Row{"m/s", "m/s", "ft/s"},
    Row{"Pa·s", "Pa·s", "lb/(ft s)"},
    Row{"W/(m K)", "W/(m K)", "Btu/(h ft °F)"},
    Row{"N/m", "N/m", "lbf/ft"},
    Row{"m²/s", "m²/s", "ft²/s"},
    Row{"1/bar", "1/Pa", "1/psi"},
    Row{"1/K", "1/K", "1/°F"},
    Row{"K/bar", "K/Pa", "°F/psi"},
    Row{"bar/K", "Pa/K", "psi/°F"},
    Row{"bar kg/m³", "Pa kg/m³", "psi lb/ft³"},
};

std::string name_in_set(const std::string& set, const char* base) {
  const auto* const row =
      std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return r.base == base; });
  if (row == rows.end() || set == "bar") {
    return base;
  }
  return set == "SI" ? row->si : row->us;
}

bool is_pressure(steam::Property property) {
  return std::string_view(steam::info(property).unit) == "bar";
}

/// What a pressure counts from.
enum class Zero { as_chosen, vacuum, ambient };

/// A unit of pressure and its ending: "psig", "bara", "kPa (g)".
struct PressureUnit {
  std::string unit;
  Zero zero;
};

struct Ending {
  std::string_view text;
  Zero zero;
};
constexpr std::array endings{Ending{"(g)", Zero::ambient},   Ending{"g", Zero::ambient},
                             Ending{"gauge", Zero::ambient}, Ending{"(a)", Zero::vacuum},
                             Ending{"a", Zero::vacuum},      Ending{"abs", Zero::vacuum}};

PressureUnit pressure_unit(const std::string& name) {
  const std::string_view view = name;
  for (const auto& [text, zero] : endings) {
    if (view.size() > text.size() && view.substr(view.size() - text.size()) == text) {
      const std::size_t end = view.find_last_not_of(' ', view.size() - text.size() - 1);
      const std::string unit(view.substr(0, end + 1));
      if (is_convertible(unit, "bar") && !is_convertible(name, "bar")) {
        return {unit, zero};
      }
    }
  }
  return {name, Zero::as_chosen};
}

double ambient_pressure(const std::string& text) {
  const Amount amount = parse_amount(text);
  const double ambient =
      conversion(amount.unit.empty() ? "bar" : amount.unit, "bar")(amount.number);
  if (!(ambient >= 0 && ambient <= steam::limits().p_highest)) {
    throw Failure(wrong_usage,
                  fmt::format("--ambient {} is no pressure of the surroundings", text));
  }
  return ambient;
}

steam::Property property_or_failure(const std::string& name, const std::string& assignment) {
  const auto property = property_named(name);
  if (!property) {
    throw Failure(wrong_usage, fmt::format("--unit {}: '{}' is no property", assignment, name));
  }
  return *property;
}

}  // namespace

std::vector<std::string> unit_sets() { return {"bar", "SI", "US"}; }

Units::Units(const UnitOptions& options) : set_(options.set), gauge_(options.gauge) {
  ambient_ = ambient_pressure(options.ambient);
  for (const std::string& assignment : options.single) {
    const std::size_t sign = assignment.find('=');
    if (sign == std::string::npos) {
      throw Failure(wrong_usage, fmt::format("--unit {}: write it as p=psi", assignment));
    }
    assign(property_or_failure(assignment.substr(0, sign), assignment),
           assignment.substr(sign + 1));
  }
}

std::string Units::unit_name(steam::Property property) const {
  for (const Single& single : single_) {
    if (single.property == property) {
      return single.unit;
    }
  }
  return name_in_set(set_, steam::info(property).unit);
}

Unit Units::named(steam::Property property, const std::string& name) const {
  const char* const base = steam::info(property).unit;
  const auto [plain, zero] = is_pressure(property) && name != base
                                 ? pressure_unit(name)
                                 : PressureUnit{name, Zero::as_chosen};
  Unit unit{name, conversion(plain, base)};
  if (is_pressure(property) && zero == Zero::as_chosen && gauge_) {
    unit.name += " gauge";
  }
  if (zero == Zero::ambient || (is_pressure(property) && zero == Zero::as_chosen && gauge_)) {
    unit.to_base.offset += ambient_;
  }
  unit.from_base = unit.to_base.inverse();
  return unit;
}

Unit Units::of(steam::Property property) const { return named(property, unit_name(property)); }

bool Units::has(steam::Property property, const std::string& unit) {
  return is_convertible(is_pressure(property) ? pressure_unit(unit).unit : unit,
                        steam::info(property).unit);
}

void Units::assign(steam::Property property, const std::string& unit) {
  single_.insert(single_.begin(), {property, unit});
  (void)of(property);  // so that a wrong unit is refused at once
}

double Units::read(steam::Property property, std::string_view text) const {
  const Amount amount = parse_amount(text);
  const Unit unit = amount.unit.empty() ? of(property) : named(property, amount.unit);
  return unit.to_base(amount.number);
}

std::string text(const steam::Refusal& refusal, const Units& units) {
  const auto property = property_named(std::string_view(&refusal.quantity, 1));
  if (!property || refusal.reason == steam::Reason::not_a_number) {
    return steam::text(refusal);
  }
  const auto [name, to_base, from_base] = units.of(*property);
  if (name == steam::info(*property).unit) {
    return steam::text(refusal);
  }
  return fmt::format("{} {:.10g} is outside {:.7g} to {:.7g} {}", steam::info(*property).name,
                     from_base(refusal.value), from_base(refusal.lowest),
                     from_base(refusal.highest), name);
}

}  // namespace command
