#pragma once

#include <utility>

#include "steam/batch/lanes_cells.hpp"

namespace steam {

/// A pressure or a temperature and a quality.
template <Pair P, class Num>
class AtQuality : Answering<P, Num> {
  using Base = Answering<P, Num>;

 public:
  AtQuality(const Block& block, RowList& left) : Base(block, left) {}

  void answer() {
    const Block& block = this->block_;
    RowList rows;
    for (std::size_t row = 0; row < block.count; ++row) {
      // States of one phase alone have more to them.
      const double x = block.second[row];
      const bool is_clear = in_range(P, block.first[row], x) && x > 0 && x < 1;
      (is_clear ? rows : this->left_).add(row);
    }
    each_group<Num>(rows, [&](const Group<Num>& group) {
      const auto [p, t, is_clear] =
          clear_saturation<known_of(P).first == Quantity::p>(group.of(block.first));
      const unsigned found = numbers::lanes_of(is_clear & (t <= t_350)) & group.lanes;
      this->leave(group, group.lanes & ~found);
      const SiteOf<Num> site{.region = Region::wet, .p = p, .t = t, .x = group.of(block.second)};
      this->write_wet(group, found, site);
    });
  }
};

/// The rows of one pair.
template <std::size_t pair, class Num>
void answer_pair(const Block& block, RowList& left) {
  constexpr auto P = static_cast<Pair>(pair);
  if constexpr (known_of(P).second != Quantity::x && P != Pair::hu) {
    InCells<P, Num>(block, left).answer();
  } else if constexpr (P == Pair::px || P == Pair::tx) {
    AtQuality<P, Num>(block, left).answer();
  } else {
    left.add_all(block.count);
  }
}

template <class Num, std::size_t... pair>
constexpr std::array<AnswerBlock, pair_count> answers_of(std::index_sequence<pair...>) {
  return {&answer_pair<pair, Num>...};
}
template <class Num>
constexpr std::array<AnswerBlock, pair_count> answers =
    answers_of<Num>(std::make_index_sequence<pair_count>{});

}  // namespace steam
