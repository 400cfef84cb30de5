#include "round_trips.hpp"

#include <cmath>

namespace round_trips {
namespace {

using steam::Pair;
using steam::Region;
using steam::State;

constexpr std::array<const char*, steam::pair_count> names{"pt", "px", "tx", "pv", "ph", "ps",
                                                           "pu", "tv", "th", "tu", "ts", "sx",
                                                           "hs", "us", "vh", "vs", "vu", "vx"};

double quantity(const State& s, char letter) {
  switch (letter) {
    case 'p':
      return s.p;
    case 't':
      return s.t;
    case 'v':
      return s.v;
    case 'h':
      return s.h;
    case 's':
      return s.s;
    case 'u':
      return s.u;
    default:
      return s.x;
  }
}

double between(double a, double b, std::mt19937_64& random) {
  return std::uniform_real_distribution(a, b)(random);
}

constexpr double p_lowest = 0.006112444, p_highest = 1000;

double line_pressure(double t) {
  const double theta = (t + 273.15) / 647.3;
  return ((19.31380707 * theta - 34.17061978) * theta + 15.74373327) * 221.2;
}

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

/// Two states of one pair, on the two sides of a boundary at which the subregions overlap.
bool are_in_overlap(const State& a, const State& b) {
  const bool at_350 = (a.t <= 350) != (b.t <= 350) && std::abs(a.t - b.t) < 4;
  const bool at_line = a.t > 350 && b.t > 350 &&
                       (a.region == Region::steam) != (b.region == Region::steam) &&
                       std::abs(a.p / b.p - 1) < 0.06;
  // A wet state of hardly any vapour, or nothing else, and a single phase.
  const bool at_saturation = std::isnan(a.x) != std::isnan(b.x) && std::abs(a.t - b.t) < 0.05;
  return !a.approximate && (at_350 || at_line || at_saturation);
}

}  // namespace

namespace {

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

Trip round_trip(Pair pair, const State& original) {
  const Given g = given(pair, original);
  const steam::Result result = steam::state(pair, g.first, g.second);
  const auto is_original = [&](const State& s) {
    const bool same =
        std::abs(s.t - original.t) < 1e-3 && std::abs(s.p - original.p) < 1e-2 + 1e-3 * s.p;
    return same || are_in_overlap(s, original);
  };
  Trip trip;
  State found;
  if (result) {
    found = *result;
    trip.found = trip.preferred = is_original(found);
  }
  if (!trip.found) {
    for (const State& s : steam::states(pair, g.first, g.second)) {
      if (is_original(s)) {
        found = s;
        trip.found = true;
      }
    }
  }
  if (!trip.found) {
    return trip;
  }
  const Given back = given(pair, found);
  const char* letters = name(pair);
  trip.pair_error = std::fmax(std::abs(back.first - g.first) / scale(letters[0], g.first),
                              std::abs(back.second - g.second) / scale(letters[1], g.second));
  trip.same = !are_in_overlap(found, original);
  trip.t_error = std::abs(found.t - original.t);
  trip.p_error = std::abs(found.p / original.p - 1);
  return trip;
}

}  // namespace round_trips
