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

auto along_saturation(double from, double to) {
  return [=](Random& random) {
    const double t = between(from, to, random);
    return along(steam::saturation_by_temperature(t)->p, t, random);
  };
}

Origin along_boundary_line(Random& random) {
  const double t = between(350, 590, random);
  return along(canonical::boundary_line(t), t, random);
}

auto isotherm(double t, double p_low) {
  return [=](Random& random) {
    const double p = p_low > p_lowest ? between(p_low, p_highest, random) : any_pressure(random);
    return Origin{Pair::pt, p, beside(t, random)};
  };
}

auto isobar(double p) {
  return [=](Random& random) {
    return Origin{Pair::pt, beside(p, random), any_temperature(random)};
  };
}

/// Both ends of the quality, and anything between them.
double any_quality(Random& random) {
  const double small = std::abs(beside(1, random) - 1);  // 0 in one of nine cases
  const auto choice = random() % 3;
  return choice == 0 ? small : choice == 1 ? 1 - small : between(0, 1, random);
}

auto wet_between(double from, double to) {
  return [=](Random& random) {
    const double t = between(from, to, random), x = any_quality(random);
    return random() % 2 == 0 ? Origin{Pair::tx, t, x}
                             : Origin{Pair::px, steam::saturation_by_temperature(t)->p, x};
  };
}

double near_critical(double value, Random& random) {
  const double off = by_magnitude(1e-13, 1e-3, random);
  return random() % 2 == 0 ? beside(value, random)
                           : value * (random() % 2 == 0 ? 1 - off : 1 + off);
}

Origin critical_point(Random& random) {
  const double p = near_critical(p_critical, random);
  return {Pair::pt, p, near_critical(t_critical, random)};
}

auto wet_at(Pair pair, double value, double (*close)(double, Random&) = beside) {
  return [=](Random& random) {
    const double first = close(value, random);
    return Origin{pair, first, any_quality(random)};
  };
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

const std::vector<Boundary>& boundaries() {
  static const std::vector<Boundary> all{
      {"water", false, anywhere<Region::water>},
      {"steam", false, anywhere<Region::steam>},
      {"dense steam", false, anywhere<Region::dense_steam>},
      {"hot water", false, anywhere<Region::hot_water>},
      {"wet steam", true, anywhere<Region::wet>},
      {"wet steam above 350 °C", true, anywhere<Region::wet_above_350>},
      {"saturation line", false, along_saturation(t_lowest, 350)},
      {"saturation of cold water", false, along_saturation(t_lowest, 12)},
      {"saturation above 350 °C", false, along_saturation(350, t_critical)},
      {"350 °C", false, isotherm(350, p_lowest)},
      {"boundary line", false, along_boundary_line},
      {"590 °C", false, isotherm(590, p_lowest)},
      {"critical point", false, critical_point},
      {"critical isotherm", false, isotherm(t_critical, 200)},
      {"critical isobar", false, isobar(p_critical)},
      {"165.35 bar", false, isobar(p_350)},
      {"ends of the range", false, at_an_end},
      {"wet, to 350 °C", true, wet_between(t_lowest, 350)},
      {"wet, cold", true, wet_between(t_lowest, 12)},
      {"wet, above 350 °C", true, wet_between(350, t_critical)},
      {"wet, 350 °C", true, wet_at(Pair::tx, 350)},
      {"wet, 165.35 bar", true, wet_at(Pair::px, p_350)},
      {"wet, critical point", true, wet_at(Pair::tx, t_critical, near_critical)},
      {"wet, critical pressure", true, wet_at(Pair::px, p_critical, near_critical)},
      {"wet, lowest temperature", true, wet_at(Pair::tx, t_lowest)},
      {"wet, lowest pressure", true, wet_at(Pair::px, p_lowest)},
  };
  return all;
}

bool applies(Pair pair, const Boundary& boundary) {
  return pair == Pair::pt ? !boundary.is_wet : boundary.is_wet || round_trips::name(pair)[1] != 'x';
}

Rows rows(Pair pair, int count) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  Rows all{{steam::missing, 1, -1, infinity, 0, 5e-324},
           {1, steam::missing, -1, 1, -infinity, 5e-324}};
  for (const Boundary& boundary : boundaries()) {
    Random random(67);
    for (int i = 0; i < count && applies(pair, boundary); ++i) {
      const auto [from, a, b] = boundary.beside(random);
      if (const auto state = steam::state(from, a, b)) {
        const auto [first, second] = round_trips::given(pair, *state);
        all.first.push_back(first);
        all.second.push_back(second);
      }
    }
  }
  return all;
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
