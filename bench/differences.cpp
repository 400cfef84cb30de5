#include "differences.hpp"

#include <algorithm>
#include <cmath>

namespace survey {
namespace {

bool is_region(int code) { return code >= 1 && code <= 6; }

bool has_values(const Answer& answer) {
  return is_region(answer.region) && std::isfinite(answer.first) && std::isfinite(answer.t);
}

double deviation(double found, double given) {
  constexpr double least = 1e-3;  // of u, s and x, which begin at 0
  return std::abs(found - given) / std::max(std::abs(given), least);
}

/// Largest deviation of the two given values; infinite where the answer is no state.
double deviation(const Finder& finder, const State& state, const Answer& answer) {
  if (!has_values(answer)) {
    return HUGE_VAL;
  }
  const State found = state_at(answer.region, answer.first, answer.t);
  const double first = deviation(found.*finder.first, state.*finder.first);
  const double second = deviation(found.*finder.second, state.*finder.second);
  const double larger = std::max(first, second);
  return std::isnan(first) || std::isnan(second) ? HUGE_VAL : larger;
}

Kind kind_of(const Example& example) {
  if (!has_values(example.answer)) {
    return Kind::refused;
  }
  if (example.answer.region != example.state.region) {
    return Kind::elsewhere;
  }
  // The solvers end by the values or by the variable.
  const bool within = example.deviation <= finder_tolerance ||
                      error_of(example.state, example.answer) <= finder_tolerance;
  return within ? Kind::within : Kind::off;
}

}  // namespace

Differences compare(const Finder& finder, const Band& band, int count) {
  Differences result;
  for (int k = 0; k < count; ++k) {
    const State state = state_in(band, k);
    const Answer answer = ask(finder, state);
    const Example example{state, answer, deviation(finder, state, answer)};
    const auto kind = static_cast<std::size_t>(kind_of(example));
    result.share[kind] += 1.0 / count;
    auto& worst = result.worst[kind];
    if (!worst || example.deviation > worst->deviation) {
      worst = example;
    }
    if (answer.region == state.region) {
      result.largest_error = std::max(result.largest_error, error_of(state, answer));
    }
  }
  return result;
}

}  // namespace survey
