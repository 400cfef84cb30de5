#include "answers.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <span>

#include "exactness.hpp"
#include "round_trips.hpp"

namespace answers {
namespace {

using steam::Pair;
using steam::Phase;
using steam::Property;
using steam::Region;
using steam::Result;
using steam::State;

template <class Enumeration, std::size_t N>
std::array<Enumeration, N> numbers() {
  std::array<Enumeration, N> all{};
  for (std::size_t i = 0; i < N; ++i) {
    all[i] = static_cast<Enumeration>(i);
  }
  return all;
}

/// Those that a state has beside its phase are handed over.
Properties properties(const Phase& f, double x, double tension, double region) {
  return listed(f.p, f.t, f.v, f.h, f.s, f.u, x, f.density, f.cp, f.cv, f.speed_of_sound,
                f.isentropic_exponent, f.viscosity, f.conductivity, f.prandtl, tension, region);
}

bool same_phase(const Phase& a, const Phase& b) {
  const auto all = properties(a, 0, 0, 0), others = properties(b, 0, 0, 0);
  return std::equal(all.begin(), all.end(), others.begin(),
                    [](double x, double y) { return same_bits(x, y); });
}

std::string numbered(const char* what, Property p) {
  return what + std::to_string(static_cast<int>(p));
}

std::string difference_of_states(const Result& state, const steam::Results& states) {
  if (states.empty() == static_cast<bool>(state)) {
    return state ? "states() has none" : "states() has some, state() none";
  }
  if (state && !same_bits(*state, states[0])) {
    return "states()[0] is not state()";
  }
  const bool several_is_right = std::all_of(states.begin(), states.end(), [&](const State& s) {
    return s.several == (states.size() > 1);
  });
  return several_is_right ? "" : "several is not size() > 1";
}

std::string difference_of_values(Pair pair, double first, double second, const Result& state) {
  std::array<double, steam::property_count> together{};
  if (steam::values(pair, first, second, all_properties, together) != state.refusal().reason) {
    return "values() has another reason";
  }
  for (const Property p : all_properties) {
    if (!same_bits(together[static_cast<std::size_t>(p)],
                   state ? property(*state, p) : steam::missing)) {
      return numbered("values() of all, property ", p);
    }
  }
  return "";
}

/// How far a state may be off its equations. At the lowest pressure saturated water is colder than
/// the lowest temperature by 4e-9 K, which it then has.
double rounding(const State& s, Pair pair) {
  const bool line = pair <= Pair::tv || pair == Pair::th;
  return s.p < 0.0061124441                           ? 3e-10
         : pair == Pair::sx || pair == Pair::vx       ? (s.t > 374.149 ? 1e-8 : 1e-9)
         : pair == Pair::hs || pair == Pair::us       ? 4e-11
         : !line || s.region == Region::wet_above_350 ? 1e-11
                                                      : 3e-12;
}

/// Of an approximate state: the regions miss each other by this.
constexpr double misfit = 3e-3;

/// A value that comes back, not a number included, against the given one: a share of its size.
double error(char letter, double back, double given) {
  const double off = std::abs(back - given) / round_trips::scale(letter, given);
  return same_bits(back, given) ? 0 : std::isnan(off) ? 1 : off;
}

bool is_in_range(const State& s) {
  constexpr double slack = 1e-9, of_x = 1e-7;  // x has few digits beside the critical point
  return s.p >= 0.006112444 * (1 - slack) && s.p <= 1000 * (1 + slack) && s.t >= 0.01 - slack &&
         s.t <= 800 + slack && !(s.x < -of_x || s.x > 1 + of_x);
}

void check(const State& s, Pair pair, double first, double second, Answer& answer) {
  answer.faults[range] |= !is_in_range(s);
  const auto back = round_trips::given(pair, s);
  const char* letters = round_trips::name(pair);
  const double off =
      std::fmax(error(letters[0], back.first, first), error(letters[1], back.second, second));
  if (s.approximate) {
    answer.faults[misses] |= !(off <= misfit);
    return;
  }
  answer.faults[given] |= !same_bits(back.first, first) || !same_bits(back.second, second);
  const double deviation = std::fmax(off, exactness::deviation(s));
  answer.deviation = std::fmax(answer.deviation, deviation);
  answer.faults[misses] |= !(deviation <= rounding(s, pair));
}

}  // namespace

const std::array<Pair, steam::pair_count> all_pairs = numbers<Pair, steam::pair_count>();
const std::array<Property, steam::property_count> all_properties =
    numbers<Property, steam::property_count>();

const std::array<const char*, fault_count> fault_names{"refused", "ways",  "given", "misses",
                                                       "order",   "range", "lost",  "approximate"};

double property(const State& s, Property which) {
  const auto all = properties(s, s.x, s.surface_tension, static_cast<double>(s.region));
  return all[static_cast<std::size_t>(which)];
}

bool same_bits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

bool same_bits(const State& a, const State& b) {
  return same_phase(a, b) && same_phase(a.saturated_liquid, b.saturated_liquid) &&
         same_phase(a.saturated_vapour, b.saturated_vapour) && same_bits(a.x, b.x) &&
         same_bits(a.surface_tension, b.surface_tension) && a.region == b.region &&
         a.several == b.several && a.approximate == b.approximate;
}

bool is_wet(Region region) { return region == Region::wet || region == Region::wet_above_350; }

Answer asked(Pair pair, double first, double second) {
  Answer answer;
  const Result state = steam::state(pair, first, second);
  answer.states = steam::states(pair, first, second);
  answer.difference = difference_of_states(state, answer.states);
  if (answer.difference.empty()) {
    answer.difference = difference_of_values(pair, first, second, state);
  }
  answer.faults[ways] = !answer.difference.empty();
  answer.faults[refused] = !state;
  const bool by_t = round_trips::name(pair)[0] == 't';
  for (std::size_t i = 0; i < answer.states.size(); ++i) {
    const State& s = answer.states[i];
    check(s, pair, first, second, answer);
    const State& before = answer.states[i > 0 ? i - 1 : 0];
    // Of two on the two sides of a boundary another rule may say which is first.
    const bool by_rule = i == 0 || (i == 1 && before.region != s.region);
    answer.faults[order] |= !by_rule && !(by_t ? before.p < s.p : before.t > s.t);
  }
  return answer;
}

std::string Answer::described(Pair pair, double first, double second,
                              std::initializer_list<Fault> ignored) const {
  std::string names;
  for (std::size_t f = 0; f < faults.size(); ++f) {
    const bool counts = std::find(ignored.begin(), ignored.end(), f) == ignored.end();
    names += faults[f] && counts ? std::string(" ") + fault_names[f] : "";
  }
  char text[120];
  std::snprintf(text, sizeof text, "%s(%a, %a), deviation %.1e:", round_trips::name(pair), first,
                second, deviation);
  return names.empty() ? "" : text + names + " " + difference;
}

std::string difference_alone(Pair pair, double first, double second) {
  const Result state = steam::state(pair, first, second);
  for (const Property p : all_properties) {
    const double expected = state ? property(*state, p) : steam::missing;
    if (!same_bits(steam::value(pair, first, second, p), expected)) {
      return numbered("value() of property ", p);
    }
    double out = 0;
    const std::span<double> outputs[]{{&out, 1}};
    steam::evaluate(pair, {&first, 1}, {&second, 1}, {&p, 1}, outputs, {}, {.threads = 1});
    if (!same_bits(out, expected)) {
      return numbered("evaluate() of property ", p);
    }
  }
  return "";
}

std::string fault_of_any(Pair pair, double first, double second) {
  const Result state = steam::state(pair, first, second);
  if (!state && steam::text(state.refusal()).size() < 10) {
    return "no reason";
  }
  const std::string fault = asked(pair, first, second).described(pair, first, second, {refused});
  return fault.empty() ? difference_alone(pair, first, second) : fault;
}

}  // namespace answers
