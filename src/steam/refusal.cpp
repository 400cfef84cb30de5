#include "steam/refusal.hpp"

#include <cmath>
#include <cstdio>

namespace steam {
namespace {

struct Words {
  char letter;
  const char* name;
  const char* unit;  // with a blank before it
  Reason reason;
};

/// By `Quantity`.
constexpr std::array<Words, 7> words{{
    {'p', "pressure", " bar", Reason::pressure},
    {'t', "temperature", " °C", Reason::temperature},
    {'v', "volume", " m³/kg", Reason::value},
    {'h', "enthalpy", " kJ/kg", Reason::value},
    {'s', "entropy", " kJ/(kg K)", Reason::value},
    {'u', "internal energy", " kJ/kg", Reason::value},
    {'x', "quality", "", Reason::quality},
}};

Refusal check(Quantity q, double value, bool saturated) {
  const Range range = range_of(q, saturated);
  if (range.has(value)) {
    return {};
  }
  const Words& w = words[static_cast<std::size_t>(q)];
  return {std::isnan(value) ? Reason::not_a_number : w.reason, w.letter, value, range.lowest,
          range.highest};
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
  for (const Words& a : words) {
    if (a.letter != refusal.quantity) {
      continue;
    }
    char line[160];
    if (refusal.reason == Reason::not_a_number) {
      std::snprintf(line, sizeof line, "%s is not a number", a.name);
    } else {
      std::snprintf(line, sizeof line, "%s %.10g is outside %.10g to %.10g%s", a.name,
                    refusal.value, refusal.lowest, refusal.highest, a.unit);
    }
    return line;
  }
  return "no state of the formulation has both values";
}

}  // namespace steam
