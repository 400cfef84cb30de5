#include "given.hpp"

#include <cmath>

#include "failure.hpp"

namespace command {
namespace {

bool is_first(const steam::State& state, const Given& given) {
  const steam::Result first = steam::state(given.pair, given.first, given.second);
  return first && first->t == state.t && first->p == state.p && first->v == state.v;
}

}  // namespace

std::vector<steam::Pair> all_pairs() {
  std::vector<steam::Pair> pairs;
  pairs.reserve(steam::pair_count);
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    pairs.push_back(static_cast<steam::Pair>(i));
  }
  return pairs;
}

steam::State state_or_failure(const Given& given, const Units& units) {
  const steam::Result result = steam::state(given.pair, given.first, given.second);
  if (!result) {
    throw Failure(no_answer, text(result.refusal(), units));
  }
  return *result;
}

Given location(const steam::State& state, const Given& given) {
  if (std::isnan(state.x)) {
    return {steam::Pair::pt, state.p, state.t};
  }
  return steam::info(given.pair).first == steam::Property::p
             ? Given{steam::Pair::px, state.p, state.x}
             : Given{steam::Pair::tx, state.t, state.x};
}

std::vector<double> values_of(const steam::State& state, const Given& given,
                              const std::vector<steam::Property>& wanted) {
  const Given from = is_first(state, given) ? given : location(state, given);
  std::vector<double> values(wanted.size());
  steam::values(from.pair, from.first, from.second, wanted, values);
  const steam::PairInfo info = steam::info(given.pair);
  for (std::size_t i = 0; i < wanted.size() && !state.approximate; ++i) {
    values[i] = wanted[i] == info.first    ? given.first
                : wanted[i] == info.second ? given.second
                                           : values[i];
  }
  return values;
}

}  // namespace command
