#include "steam/answer.hpp"
#include "steam/arguments.hpp"
#include "steam/host_environment.hpp"

using namespace steam;

int vek_steam_values(int pair, double first, double second, size_t count, const int* properties,
                     double* out) {
  if (!is_pair(pair)) {
    return VEK_STEAM_NO_SUCH_PAIR;
  }
  const int wrong = check_properties(count, properties);
  if (wrong != VEK_STEAM_OK || (count > 0 && !out)) {
    return wrong != VEK_STEAM_OK ? wrong : VEK_STEAM_NULL;
  }
  const HostEnvironment host;
  const Reason reason = answer(static_cast<Pair>(pair), first, second, Wanted(count, properties),
                               [out](std::size_t i, double value) { out[i] = value; });
  return static_cast<int>(reason);
}

double vek_steam_value(int pair, double first, double second, int property) {
  double out = missing;
  vek_steam_values(pair, first, second, 1, &property, &out);
  return out;
}
