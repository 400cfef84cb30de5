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

/// Of a code without a value.
const char* sentence(int code) {
  switch (code) {
    case VEK_STEAM_OK:
      return "there is a state";
    case VEK_STEAM_NOT_A_NUMBER:
      return "a given value is not a number";
    case VEK_STEAM_PRESSURE:
      return "the pressure is outside its range";
    case VEK_STEAM_TEMPERATURE:
      return "the temperature is outside its range";
    case VEK_STEAM_QUALITY:
      return "the quality is outside 0 to 1";
    case VEK_STEAM_VALUE:
      return "a volume or caloric value is beyond all states";
    case VEK_STEAM_NOT_REACHED:
      return "the evaluation was ended before this row";
    case VEK_STEAM_NO_SUCH_PAIR:
      return "no such pair";
    case VEK_STEAM_NO_SUCH_PROPERTY:
      return "no such property";
    case VEK_STEAM_NULL:
      return "a pointer that is needed is null";
    case VEK_STEAM_SHORT:
      return "the size of a structure is below that of its first version";
    case VEK_STEAM_OVERLAP:
      return "places of an output overlap with each other or with other data";
    case VEK_STEAM_NO_MEMORY:
      return "no memory or no thread left";
    case VEK_STEAM_NO_SUCH_DIAGRAM:
      return "no such diagram";
    case VEK_STEAM_NO_SUCH_LINE:
      return "no such line";
    case VEK_STEAM_TOLERANCE:
      return "a tolerance is outside 1e-06 to 0.1";
    default:
      return "no state of the formulation has both values";
  }
}

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

int write_text(const vek_steam_refusal& refusal, char* buffer, std::size_t size) {
  const bool of_value = refusal.code > VEK_STEAM_OK && refusal.code < VEK_STEAM_NO_STATE;
  for (const Words& a : words) {
    if (!of_value || a.letter != refusal.quantity) {
      continue;
    }
    return refusal.code == VEK_STEAM_NOT_A_NUMBER
               ? std::snprintf(buffer, size, "%s is not a number", a.name)
               : std::snprintf(buffer, size, "%s %.10g is outside %.10g to %.10g%s", a.name,
                               refusal.value, refusal.lowest, refusal.highest, a.unit);
  }
  return std::snprintf(buffer, size, "%s", sentence(refusal.code));
}

}  // namespace steam
