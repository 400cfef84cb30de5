#include "steam/refusal.hpp"

#include <cmath>
#include <cstdio>

#include "steam/domain.hpp"

namespace steam {
namespace {

struct Accepted {
  char letter;
  const char* name;
  const char* unit;
  double lowest, highest;
  Reason reason;
};

/// Ranges over all states of the formulation, by `Quantity`.
constexpr std::array<Accepted, 7> accepted{{
    {'p', "pressure", "bar", p_lowest, p_highest, Reason::pressure},
    {'t', "temperature", "°C", t_lowest, t_highest, Reason::temperature},
    {'v', "volume", "m³/kg", 9.5646e-4, 810.264, Reason::value},
    {'h', "enthalpy", "kJ/kg", 6.113e-4, 4158.746, Reason::value},
    {'s', "entropy", "kJ/(kg K)", -6.55e-3, 11.9183, Reason::value},
    {'u', "internal energy", "kJ/kg", -1e-8, 3663.477, Reason::value},
    {'x', "quality", "", 0, 1, Reason::quality},
}};

Refusal check(Quantity q, double value, bool saturated) {
  Accepted a = accepted[static_cast<std::size_t>(q)];
  if (saturated && q == Quantity::p) {
    a.highest = p_critical;
  }
  if (saturated && q == Quantity::t) {
    a.highest = t_critical;
  }
  if (value >= a.lowest && value <= a.highest) {
    return {};
  }
  return {std::isnan(value) ? Reason::not_a_number : a.reason, a.letter, value, a.lowest,
          a.highest};
}

}  // namespace

Refusal refusal(Pair pair, double first, double second) {
  const Known& k = known_of(pair);
  const bool saturated = k.second == Quantity::x;
  const Refusal of_first = check(k.first, first, saturated);
  return of_first.reason != Reason::none ? of_first : check(k.second, second, saturated);
}

Refusal no_state() { return {.reason = Reason::no_state}; }

std::string text(const Refusal& refusal) {
  if (refusal.reason == Reason::none) {
    return "there is a state";
  }
  for (const Accepted& a : accepted) {
    if (a.letter != refusal.quantity) {
      continue;
    }
    char line[160];
    if (refusal.reason == Reason::not_a_number) {
      std::snprintf(line, sizeof line, "%s is not a number", a.name);
    } else {
      std::snprintf(line, sizeof line, "%s %.10g %s is outside %.10g to %.10g", a.name,
                    refusal.value, a.unit, refusal.lowest, refusal.highest);
    }
    return line;
  }
  return "no state of the formulation has both values";
}

}  // namespace steam
