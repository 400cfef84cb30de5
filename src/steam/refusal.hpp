#pragma once

#include "steam/equations/domain.hpp"
#include "steam/equations/site.hpp"

namespace steam {

/// Range of a quantity over all states of the formulation; with a quality, over all wet ones.
struct Range {
  double lowest, highest;
  template <class Num>
  [[nodiscard]] constexpr auto has(Num value) const {
    return numbers::both(value >= lowest, value <= highest);
  }
};

/// By `Quantity`.
constexpr std::array<Range, 7> ranges{{{p_lowest, p_highest},
                                       {t_lowest, t_highest},
                                       {9.5646e-4, 810.264},
                                       {6.113e-4, 4158.746},
                                       {-6.55e-3, 11.9183},
                                       {-1e-8, 3663.477},
                                       {0, 1}}};

constexpr Range range_of(Quantity q, bool saturated) {
  const Range range = ranges[static_cast<std::size_t>(q)];
  if (saturated && q == Quantity::p) {
    return {range.lowest, p_critical};
  }
  return saturated && q == Quantity::t ? Range{range.lowest, t_critical} : range;
}

/// By pair, of the first and the second value.
struct PairRange {
  Range first, second;
};
constexpr std::array<PairRange, pair_count> pair_ranges = [] {
  std::array<PairRange, pair_count> all{};
  for (std::size_t i = 0; i < pair_count; ++i) {
    const bool saturated = known[i].second == Quantity::x;
    all[i] = {range_of(known[i].first, saturated), range_of(known[i].second, saturated)};
  }
  return all;
}();

/// Whether each of the two values by itself may belong to a state.
template <class Num>
numbers::MaskOf<Num> in_range(Pair pair, Num first, Num second) {
  const PairRange& range = pair_ranges[static_cast<std::size_t>(pair)];
  return numbers::both(range.first.has(first), range.second.has(second));
}

/// What to say when they are not in range.
Refusal refusal(Pair pair, double first, double second);

/// One line about it, in the manner of std::snprintf.
int write_text(const vek_steam_refusal& refusal, char* buffer, std::size_t size);

}  // namespace steam
