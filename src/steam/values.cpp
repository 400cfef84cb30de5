#include <stdexcept>

#include "steam/answer.hpp"
#include "steam/host_environment.hpp"
#include "steam/misuse.hpp"

namespace steam {

Reason values(Pair pair, double first, double second, std::span<const Property> wanted,
              std::span<double> out) {
  if (out.size() < wanted.size()) {
    throw std::invalid_argument("steam::values: fewer places than wanted properties");
  }
  refuse_unknown(pair, wanted);
  const HostEnvironment host;
  Basis basis;
  const Reason reason = answer(pair, first, second, needs_of(wanted), basis);
  const bool wet = is_wet(basis.region);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    out[i] = reason == Reason::none ? value_of(row_of(wanted[i]), basis, wet) : missing;
  }
  return reason;
}

double value(Pair pair, double first, double second, Property wanted) {
  double out = missing;
  values(pair, first, second, {&wanted, 1}, {&out, 1});
  return out;
}

}  // namespace steam
