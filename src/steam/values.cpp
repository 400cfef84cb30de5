#include "steam/values.hpp"

#include <stdexcept>

#include "steam/direct.hpp"
#include "steam/locate.hpp"
#include "steam/refusal.hpp"

namespace steam {

Reason values_of(Pair pair, double first, double second, Wanted wanted, Values& out) {
  Reason reason = Reason::no_state;
  if (in_range(pair, first, second)) {
    if (pair == Pair::pt) {
      properties(at_pressure_temperature(first, second), wanted, out);
      return Reason::none;
    }
    if (direct_values(pair, first, second, wanted, out)) {
      return Reason::none;
    }
    const Site site = locate(pair, first, second);
    if (site) {
      properties(site, wanted, out);
      return Reason::none;
    }
  } else {
    reason = refusal(pair, first, second).reason;
  }
  out.fill(missing);
  return reason;
}

Reason values(Pair pair, double first, double second, std::span<const Property> wanted,
              std::span<double> out) {
  if (out.size() < wanted.size()) {
    throw std::invalid_argument("steam::values: fewer places than wanted properties");
  }
  Wanted set;
  for (const Property p : wanted) {
    set.add(p);
  }
  Values all;
  const Reason reason = values_of(pair, first, second, set, all);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    out[i] = all[static_cast<std::size_t>(wanted[i])];
  }
  return reason;
}

double value(Pair pair, double first, double second, Property wanted) {
  Values all;
  values_of(pair, first, second, {wanted}, all);
  return all[static_cast<std::size_t>(wanted)];
}

}  // namespace steam
