#include "survey/boundary_states.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "round_trips.hpp"
#include "support/canonical.hpp"

namespace boundary_states {
namespace {

using steam::Pair;
using steam::Region;
using steam::State;
using Random = std::mt19937_64;

constexpr double p_lowest = 0.006112444, p_highest = 1000, p_350 = 165.3512406, p_critical = 221.2;
constexpr double t_lowest = 0.01, t_highest = 800, t_critical = 374.15;

double between(double low, double high, Random& random) {
  return std::uniform_real_distribution(low, high)(random);
}

double by_magnitude(double low, double high, Random& random) {
  return std::exp(between(std::log(low), std::log(high), random));
}

/// The value itself or one beside it.
double beside(double value, Random& random) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  constexpr std::array shares{1e-12, 1e-9, 1e-6};
  const auto choice = random() % 9;
  const double sign = choice % 2 == 0 ? 1 : -1;
  return choice == 8  ? value
         : choice < 2 ? std::nextafter(value, sign * infinity)
                      : value * (1 + sign * shares[static_cast<std::size_t>(choice / 2 - 1)]);
}

double any_pressure(Random& random) {
  return random() % 2 == 0 ? between(p_lowest, p_highest, random)
                           : std::min(by_magnitude(p_lowest, p_highest, random), p_highest);
}

double any_temperature(Random& random) { return between(t_lowest, t_highest, random); }

/// A point of a line, with one of its values moved aside.
Origin along(double p, double t, Random& random) {
  return random() % 2 == 0 ? Origin{Pair::pt, beside(p, random), t}
                           : Origin{Pair::pt, p, beside(t, random)};
}

Origin along_saturation(double from, double to, Random& random) {
  const double t = between(from, to, random);
  return along(steam::saturation_by_temperature(t)->p, t, random);
}

/// Both ends of the quality, and anything between them.
double any_quality(Random& random) {
  const double small = std::abs(beside(1, random) - 1);  // 0 in one of nine cases
  const auto choice = random() % 3;
  return choice == 0 ? small : choice == 1 ? 1 - small : between(0, 1, random);
}

Origin wet_between(double from, double to, Random& random) {
  const double t = between(from, to, random);
  const double x = any_quality(random);
  return random() % 2 == 0 ? Origin{Pair::tx, t, x}
                           : Origin{Pair::px, steam::saturation_by_temperature(t)->p, x};
}

double near_critical(double value, Random& random) {
  const double off = by_magnitude(1e-13, 1e-3, random);
  return random() % 2 == 0 ? beside(value, random)
                           : value * (random() % 2 == 0 ? 1 - off : 1 + off);
}

Origin at_an_end(Random& random) {
  constexpr std::array p_ends{p_lowest, p_highest}, t_ends{t_lowest, t_highest};
  const double p = beside(p_ends[random() % 2], random), t = beside(t_ends[random() % 2], random);
  const auto choice = random() % 5;
  return {Pair::pt, choice < 2 ? any_pressure(random) : p,
          choice > 2 ? any_temperature(random) : t};
}

template <Region region>
Origin anywhere(Random& random) {
  const State s = round_trips::random_state(region, random);
  return std::isnan(s.x) ? Origin{Pair::pt, s.p, s.t} : Origin{Pair::tx, s.t, s.x};
}

/// The same state, which beside the saturation line may count as one of two regions.
bool is_original(const State& s, const State& original) {
  const bool dense = s.t > 350 && original.t > 350 && s.region != Region::steam &&
                     original.region != Region::steam;
  const bool same_side = s.region == original.region || dense ||
                         answers::is_wet(s.region) != answers::is_wet(original.region);
  return same_side && std::abs(s.t - original.t) < 1e-3 &&
         std::abs(s.p - original.p) < 1e-2 + 1e-3 * s.p;
}

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
const std::vector<Boundary>& boundaries() {
  static const std::vector<Boundary> all{
      {"water", false, anywhere<Region::water>},
      {"steam", false, anywhere<Region::steam>},
      {"dense steam", false, anywhere<Region::dense_steam>},
      {"hot water", false, anywhere<Region::hot_water>},
      {"wet steam", true, anywhere<Region::wet>},
      {"wet steam above 350 °C", true, anywhere<Region::wet_above_350>},
      {"saturation line", false, [](Random& r) { return along_saturation(t_lowest, 350, r); }},
      {"saturation of cold water", false,
       [](Random& r) { return along_saturation(t_lowest, 12, r); }},
      {"saturation above 350 °C", false,
       [](Random& r) { return along_saturation(350, t_critical, r); }},
      {"350 °C", false,
       [](Random& r) {
         return Origin{Pair::pt, any_pressure(r), beside(350, r)};
       }},
      {"boundary line", false,
       [](Random& r) {
         const double t = between(350, 590, r);
         return along(canonical::boundary_line(t), t, r);
       }},
      {"590 °C", false,
       [](Random& r) {
         return Origin{Pair::pt, any_pressure(r), beside(590, r)};
       }},
      {"critical point", false,
       [](Random& r) {
         return Origin{Pair::pt, near_critical(p_critical, r), near_critical(t_critical, r)};
       }},
      {"critical isotherm", false,
       [](Random& r) {
         return Origin{Pair::pt, between(200, 1000, r), beside(t_critical, r)};
       }},
      {"critical isobar", false,
       [](Random& r) {
         return Origin{Pair::pt, beside(p_critical, r), any_temperature(r)};
       }},
      {"165.35 bar", false,
       [](Random& r) {
         return Origin{Pair::pt, beside(p_350, r), any_temperature(r)};
       }},
      {"ends of the range", false, at_an_end},
      {"wet, to 350 °C", true, [](Random& r) { return wet_between(t_lowest, 350, r); }},
      {"wet, cold", true, [](Random& r) { return wet_between(t_lowest, 12, r); }},
      {"wet, above 350 °C", true, [](Random& r) { return wet_between(350, t_critical, r); }},
      {"wet, 350 °C", true,
       [](Random& r) {
         return Origin{Pair::tx, beside(350, r), any_quality(r)};
       }},
      {"wet, 165.35 bar", true,
       [](Random& r) {
         return Origin{Pair::px, beside(p_350, r), any_quality(r)};
       }},
      {"wet, critical point", true,
       [](Random& r) {
         return Origin{Pair::tx, near_critical(t_critical, r), any_quality(r)};
       }},
      {"wet, critical pressure", true,
       [](Random& r) {
         return Origin{Pair::px, near_critical(p_critical, r), any_quality(r)};
       }},
      {"wet, lowest temperature", true,
       [](Random& r) {
         return Origin{Pair::tx, beside(t_lowest, r), any_quality(r)};
       }},
      {"wet, lowest pressure", true,
       [](Random& r) {
         return Origin{Pair::px, beside(p_lowest, r), any_quality(r)};
       }},
  };
  return all;
}

bool applies(Pair pair, const Boundary& boundary) {
  return pair == Pair::pt ? !boundary.is_wet : boundary.is_wet || round_trips::name(pair)[1] != 'x';
}

answers::Answer asked_back(Pair pair, const State& original) {
  const auto [first, second] = round_trips::given(pair, original);
  answers::Answer answer = answers::asked(pair, first, second);
  const auto& all = answer.states;
  const bool listed =
      std::any_of(all.begin(), all.end(), [&](const State& s) { return is_original(s, original); });
  answer.faults[answers::approximate] = !all.empty() && all[0].approximate;
  answer.faults[answers::lost] = !listed && !all.empty() && !all[0].approximate;
  return answer;
}

}  // namespace boundary_states
