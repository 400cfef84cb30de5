#include <algorithm>

#include "steam/answer.hpp"
#include "steam/arguments.hpp"
#include "steam/host_environment.hpp"
#include "steam/refusal.hpp"
#include "steam/search/solve.hpp"

using namespace steam;

namespace {

/// What is wrong with a call, VEK_STEAM_OK when nothing is.
int check(int pair, std::size_t count, const int* properties) {
  return is_pair(pair) ? check_properties(count, properties) : VEK_STEAM_NO_SUCH_PAIR;
}

}  // namespace

int vek_steam_values(int pair, double first, double second, size_t count, const int* properties,
                     double* out) {
  const int wrong = check(pair, count, properties);
  if (wrong != VEK_STEAM_OK || (count > 0 && !out)) {
    return wrong != VEK_STEAM_OK ? wrong : VEK_STEAM_NULL;
  }
  const HostEnvironment host;
  const Reason reason = answer(static_cast<Pair>(pair), first, second, Wanted(count, properties),
                               [out](std::size_t i, double value) { out[i] = value; });
  return static_cast<int>(reason);
}

int vek_steam_values_of_states(int pair, double first, double second, size_t count,
                               const int* properties, double* out, size_t capacity,
                               size_t* states) {
  const int wrong = check(pair, count, properties);
  const bool null = !states || (count > 0 && capacity > 0 && !out);
  if (wrong != VEK_STEAM_OK || null) {
    return wrong != VEK_STEAM_OK ? wrong : VEK_STEAM_NULL;
  }
  *states = 0;
  const HostEnvironment host;
  const auto asked = static_cast<Pair>(pair);
  if (!in_range(asked, first, second)) {
    return static_cast<int>(refusal(asked, first, second).reason);
  }
  const Solutions all = solve_all(asked, first, second);
  *states = all.sites.size();
  const Wanted wanted(count, properties);
  for (std::size_t i = 0; i < std::min(capacity, *states); ++i) {
    const Answer state(all.sites[i], *states > 1, asked, first, second, wanted);
    for (std::size_t k = 0; k < count; ++k) {
      out[i * count + k] = state[static_cast<Property>(properties[k])];
    }
  }
  return *states > 0 ? VEK_STEAM_OK : VEK_STEAM_NO_STATE;
}

double vek_steam_value(int pair, double first, double second, int property) {
  double out = missing;
  vek_steam_values(pair, first, second, 1, &property, &out);
  return out;
}
