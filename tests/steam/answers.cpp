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

using Member = double Phase::*;
/// The properties of a phase; those of a state beside them have no member.
constexpr std::array<Member, steam::property_count> members{&Phase::p,
                                                            &Phase::t,
                                                            &Phase::v,
                                                            &Phase::h,
                                                            &Phase::s,
                                                            &Phase::u,
                                                            nullptr,
                                                            &Phase::density,
                                                            &Phase::cp,
                                                            &Phase::cv,
                                                            &Phase::speed_of_sound,
                                                            &Phase::isentropic_exponent,
                                                            &Phase::viscosity,
                                                            &Phase::conductivity,
                                                            &Phase::prandtl};

/// The numbers of all properties of a state and of its two saturated phases.
constexpr std::array<Property, 3 * steam::property_count> numbers_of_properties = [] {
  std::array<Property, 3 * steam::property_count> all{};
  for (std::size_t i = 0; i < steam::property_count; ++i) {
    all[i] = static_cast<Property>(i);
    all[steam::property_count + i] = steam::of_liquid(all[i]);
    all[2 * steam::property_count + i] = steam::of_vapour(all[i]);
  }
  return all;
}();

bool same_known(const Values& a, const Values& b) { return first_difference(a, b) == a.size(); }

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
  double ignored = 0;
  if (steam::values(pair, first, second, {&all_properties[0], 1}, {&ignored, 1}) !=
      state.refusal().reason) {
    return "values() has another reason";
  }
  Values expected{};
  expected.fill(steam::missing);
  const std::size_t i =
      first_difference(asked_for(pair, first, second), state ? held_by(*state) : expected);
  return i < expected.size() ? numbered("values() of all, property ", all_properties[i]) : "";
}

/// What a batch of one row says.
Values evaluated(Pair pair, double first, double second) {
  std::array<double, 3 * steam::property_count> row{};
  std::array<std::span<double>, row.size()> outputs;
  for (std::size_t i = 0; i < row.size(); ++i) {
    outputs[i] = {&row[i], 1};
  }
  steam::evaluate(pair, {&first, 1}, {&second, 1}, all_properties, outputs, {}, {.threads = 1});
  Values values{};
  std::copy(row.begin(), row.end(), values.begin());
  return values;
}

/// How far a state may be off its equations. At the lowest pressure saturated water is colder than
/// the lowest temperature by 4e-9 K, which it then has.
double rounding(const State& s, Pair pair) {
  const std::string letters = round_trips::name(pair);
  if (s.p < 0.0061124441) {
    return 3e-10;
  }
  if (letters[1] == 'x' && pair > Pair::tx) {
    return s.t > 374.149 ? 4e-8 : 1e-9;
  }
  if (pair == Pair::hs || pair == Pair::us) {
    return 2e-11;
  }
  const bool along_line = pair <= Pair::tv || pair == Pair::th;
  return along_line && s.region != Region::wet_above_350 ? 3e-12 : 1e-11;
}

/// Of an approximate state: the regions miss each other by this.
constexpr double misfit = 3e-3;

/// A value that comes back, not a number included, against the given one: a share of its size.
double error(char letter, double back, double given) {
  const double off = std::abs(back - given) / round_trips::scale(letter, given);
  return same_bits(back, given) ? 0 : std::isnan(off) ? 1 : off;
}

bool is_in_range(const State& s) {
  constexpr double slack = 1e-9;
  return s.p >= 0.006112444 * (1 - slack) && s.p <= 1000 * (1 + slack) && s.t >= 0.01 - slack &&
         s.t <= 800 + slack && !(s.x < 0 || s.x > 1);
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
const std::array<Property, 3 * steam::property_count> all_properties = numbers_of_properties;

const std::array<const char*, fault_count> fault_names{"refused", "ways",  "given", "misses",
                                                       "order",   "range", "lost",  "approximate"};

bool same_bits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

bool same_bits(const State& a, const State& b) { return same_known(held_by(a), held_by(b)); }

std::size_t first_difference(const Values& a, const Values& b) {
  std::size_t i = 0;
  while (i < a.size() && (!a[i] || !b[i] || same_bits(*a[i], *b[i]))) {
    ++i;
  }
  return i;
}

Values held_by(const State& state) {
  Values values{};
  const std::array phases{static_cast<const Phase*>(&state), &state.saturated_liquid,
                          &state.saturated_vapour};
  for (std::size_t i = 0; i < steam::property_count; ++i) {
    for (std::size_t k = 0; k < phases.size() && members[i] != nullptr; ++k) {
      values[k * steam::property_count + i] = phases[k]->*members[i];
    }
  }
  const auto at = [&](Property p) -> auto& { return values[static_cast<std::size_t>(p)]; };
  at(Property::x) = state.x;
  at(Property::surface_tension) = state.surface_tension;
  at(Property::region) = static_cast<double>(state.region);
  at(Property::several) = static_cast<double>(state.several);
  at(Property::approximate) = static_cast<double>(state.approximate);
  return values;
}

double property(const State& state, Property which) {
  return held_by(state)[static_cast<std::size_t>(which)].value_or(steam::missing);
}

Values asked_for(Pair pair, double first, double second) {
  std::array<double, 3 * steam::property_count> together{};
  steam::values(pair, first, second, all_properties, together);
  Values values{};
  std::copy(together.begin(), together.end(), values.begin());
  return values;
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
  const Values together = asked_for(pair, first, second);
  for (std::size_t i = 0; i < together.size(); ++i) {
    const Property p = all_properties[i];
    if (!same_bits(steam::value(pair, first, second, p), *together[i])) {
      return numbered("value() of property ", p);
    }
  }
  const std::size_t i = first_difference(together, evaluated(pair, first, second));
  return i < together.size() ? numbered("evaluate() of property ", all_properties[i]) : "";
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
