#include "round_trips.hpp"

#include <cmath>

#include "formulation/boundary_line.hpp"

namespace round_trips {
namespace {

using formulation::line_pressure;
using steam::Pair;
using steam::Region;
using steam::State;

constexpr std::array names{"pt", "px", "tx", "pv", "ph", "ps", "pu", "tv", "th", "tu", "ts",
                           "sx", "hs", "us", "vh", "vs", "vu", "vx", "hx", "ux", "hu"};
static_assert(names.size() == steam::pair_count);

double quantity(const State& s, char letter) {
  return letter == 'p'   ? s.p
         : letter == 't' ? s.t
         : letter == 'v' ? s.v
         : letter == 'h' ? s.h
         : letter == 's' ? s.s
         : letter == 'u' ? s.u
                         : s.x;
}

double between(double a, double b, std::mt19937_64& random) {
  return std::uniform_real_distribution(a, b)(random);
}

constexpr double p_lowest = 0.006112444, p_highest = 1000;

double saturation(double t) { return steam::saturation_by_temperature(t)->p; }

/// Pressures evenly by logarithm, in one half of the cases, and by value.
double pressure_between(double low, double high, std::mt19937_64& random) {
  return random() % 2 == 0 ? between(low, high, random)
                           : std::exp(between(std::log(low), std::log(high), random));
}

State random_steam(std::mt19937_64& random) {
  const double t = between(0.01, 800, random);
  const double limit = t <= 350 ? saturation(t) : t <= 590 ? line_pressure(t) : p_highest;
  return *steam::state(Pair::pt, pressure_between(p_lowest, limit, random), t);
}

State random_wet(Region region, std::mt19937_64& random) {
  const double t = region == Region::wet ? between(0.01, 350, random) : between(350, 374.1, random);
  const double x = between(0, 1, random);
  return *steam::state(Pair::tx, t, random() % 3 == 0 ? x * x * x : x);
}

State random_water(std::mt19937_64& random) {
  const double t = between(0.01, 350, random);
  return *steam::state(Pair::pt, pressure_between(saturation(t), p_highest, random), t);
}

/// Of subregion 3, many below the critical temperature.
State random_dense(Region region, std::mt19937_64& random) {
  const bool cool = region == Region::hot_water || random() % 4 == 0;
  const double t = between(350, cool ? 374.15 : 590, random);
  // Half of the vapours in the narrow part between the boundary line and the saturation line.
  const bool narrow = region == Region::dense_steam && t < 374.15 && random() % 2 == 0;
  const double p = between(line_pressure(t), narrow ? saturation(t) : p_highest, random);
  return *steam::state(Pair::pt, p, t);
}

}  // namespace

State random_state(Region region, std::mt19937_64& random) {
  if (region == Region::wet || region == Region::wet_above_350) {
    return random_wet(region, random);
  }
  State s;
  while (s.region != region) {
    s = region == Region::water   ? random_water(random)
        : region == Region::steam ? random_steam(random)
                                  : random_dense(region, random);
  }
  return s;
}

Given given(Pair pair, const State& state) {
  const char* letters = name(pair);
  return {quantity(state, letters[0]), quantity(state, letters[1])};
}

const char* name(Pair pair) { return names[static_cast<std::size_t>(pair)]; }

double scale(char letter, double value) {
  const double least = letter == 'h' || letter == 'u' ? 40
                       : letter == 's'                ? 0.1
                       : letter == 't'                ? 1
                                                      : 0;
  return std::fmax(std::abs(value), least);
}

}  // namespace round_trips
