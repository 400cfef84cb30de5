#pragma once

#include <utility>

#include "steam/batch/block.hpp"
#include "steam/completion.hpp"
#include "steam/refusal.hpp"
#include "steam/search/quick.hpp"
#include "steam/search/quick_one_phase.hpp"
#include "steam/search/quick_wet.hpp"
#include "steam/search/starts.hpp"

namespace steam {

// The quick search for many rows: those that begin in the same subregion go through its equation
// together, a row in each lane. A row goes on as it would alone, patch by patch of its cell; where
// that is more than one iteration and a look at the margins, it is left to be answered alone.

/// Rows of a block that begin in one subregion.
template <class Num>
struct Group {
  static constexpr int width = numbers::width_of<Num>;
  std::array<std::uint16_t, static_cast<std::size_t>(width)> row;
  unsigned lanes;  ///< those that hold a row of their own, as bits

  [[nodiscard]] Num of(const std::array<double, Block::most>& values) const {
    Num all;
    for (int lane = 0; lane < width; ++lane) {
      all.set(lane, values[row[static_cast<std::size_t>(lane)]]);
    }
    return all;
  }
};

/// Calls f(group) with all rows of a list; the last group repeats its last row in lanes that have
/// none.
template <class Num, class F>
void each_group(const RowList& list, const F& f) {
  constexpr auto width = static_cast<std::size_t>(Group<Num>::width);
  for (std::size_t begin = 0; begin < list.count; begin += width) {
    Group<Num> group;
    const std::size_t own = std::min(width, list.count - begin);
    for (std::size_t lane = 0; lane < width; ++lane) {
      group.row[lane] = list.row[begin + std::min(lane, own - 1)];
    }
    group.lanes = (1U << own) - 1;
    f(group);
  }
}

/// What becomes of the lanes of a group.
template <class Num>
struct Fate {
  MaskOf<Num> found;  ///< the state that counts
  MaskOf<Num> next;   ///< surely not in this subregion: the next patch of the cell is tried
};

/// What the ways to answer a block have in common.
template <Pair P, class Num>
class Answering {
 protected:
  Answering(const Block& block, RowList& left) : block_(block), left_(left) {}

  /// Writes what is wanted of one phase.
  template <class Equation>
  void write_one_phase(const Group<Num>& group, unsigned found, const SiteOf<Num>& site,
                       const Parts& has, BasisOf<Num>& basis) const {
    completion::take_place(basis, site);
    completion::one_phase<Equation>(site.at, variables(site), block_.wanted.needs.parts, has,
                                    basis);
    write(group, found, site, basis, Exists{in_answers | in_one_phase});
  }

  /// Writes what is wanted of wet states up to 350 °C.
  void write_wet(const Group<Num>& group, unsigned found, const SiteOf<Num>& site) const {
    BasisOf<Num> basis;
    completion::take_place(basis, site);
    completion::mixture(site, block_.wanted.needs, basis, [&site](const Parts& wanted) {
      return completion::low_phases(site.p, site.t, wanted);
    });
    write(group, found, site, basis, Exists{in_answers | in_wet_states});
  }

  void leave(const Group<Num>& group, unsigned lanes) const {
    each_lane_of(lanes, [&](std::size_t lane) { left_.add(group.row[lane]); });
  }

  template <class F>
  static void each_lane_of(unsigned lanes, const F& f) {
    for (; lanes != 0; lanes &= lanes - 1) {
      f(static_cast<std::size_t>(std::countr_zero(lanes)));
    }
  }

  const Block& block_;
  RowList& left_;

 private:
  void write(const Group<Num>& group, unsigned found, const SiteOf<Num>& site, BasisOf<Num>& basis,
             Exists kind) const {
    const Wanted& wanted = block_.wanted;
    completion::for_pair(basis, P, group.of(block_.first), group.of(block_.second), site,
                         wanted.needs);
    for (std::size_t i = 0; i < wanted.count; ++i) {
      const auto& row = property_rows_of<Num>[static_cast<std::size_t>(wanted.properties[i])];
      const Num value = value_of(row, basis, kind);
      each_lane_of(found, [&](std::size_t lane) {
        block_.rows.write(block_.begin + group.row[lane], i, numbers::lane_of(value, lane));
      });
    }
    each_lane_of(found, [&](std::size_t lane) {
      block_.rows.write_status(block_.begin + group.row[lane], Reason::none);
    });
  }
};

/// A pair with a chart.
template <Pair P, class Num>
class InCells : Answering<P, Num> {
  using Base = Answering<P, Num>;
  using Base::block_;

 public:
  InCells(const Block& block, RowList& left) : Base(block, left) {}

  void answer() {
    for (std::size_t row = 0; row < block_.count; ++row) {
      begin(row);
    }
    while (water_.count + steam_.count + dense_.count + wet_.count > 0) {
      turn(water_, [this](const Group<Num>& group) { one_phase<Water>(Region::water, group); });
      turn(steam_, [this](const Group<Num>& group) { one_phase<Steam>(Region::steam, group); });
      turn(dense_,
           [this](const Group<Num>& group) { one_phase<Dense>(Region::dense_steam, group); });
      turn(wet_, [this](const Group<Num>& group) { look_up_wet(group); });
    }
  }

 private:
  void begin(std::size_t row) {
    const double a = block_.first[row], b = block_.second[row];
    turn_[row] = 0;
    if (!in_range(P, a, b)) {
      this->left_.add(row);
    } else if constexpr (P == Pair::pt) {
      begin_in_region(row, a, b);
    } else {
      begin_in_cell(row, a, b);
    }
  }

  void begin_in_cell(std::size_t row, double a, double b) {
    place_[row] = place(charts[static_cast<std::size_t>(P)], a, b);
    x_[row] = place_[row].x;
    y_[row] = place_[row].y;
    go_on(row);
  }

  /// Of a pressure and a temperature only the volume in subregion 3 is open.
  void begin_in_region(std::size_t row, double p, double t) {
    const Region region = clear_region(p, t);
    if (region == Region::water || region == Region::steam) {
      (region == Region::water ? water_ : steam_).add(row);
    } else if (region == Region::dense_steam) {
      begin_in_cell(row, p, t);
    } else {
      this->left_.add(row);
    }
  }

  /// To the next patch of its cell.
  void go_on(std::size_t row) {
    const Patches& patches = place_[row].patches;
    const std::size_t number = turn_[row]++;
    if (number >= patches.size()) {
      this->left_.add(row);
      return;
    }
    patch_[row] = in_turn<P>(patches, number);
    switch (patch_[row].region) {
      case Region::water:
        return water_.add(row);
      case Region::steam:
        return steam_.add(row);
      case Region::wet:
      case Region::wet_above_350:
        return is_line(P) ? on_line(row) : in_plane(row);
      default:
        return dense_.add(row);
    }
  }

  void on_line(std::size_t row) {
    (patch_[row].region == Region::wet ? wet_ : this->left_).add(row);
  }

  /// A wet state is found alone; but where one phase is near the table may tell that there is none.
  void in_plane(std::size_t row) {
    const Place& here = place_[row];
    if (here.patches.size() == 1 ||
        may_be_wet(P, here, patch_[row], block_.first[row], block_.second[row])) {
      this->left_.add(row);
    } else {
      go_on(row);
    }
  }

  template <class F>
  void turn(RowList& list, const F& f) {
    const RowList now = list;
    list.count = 0;
    each_group<Num>(now, f);
  }

  [[nodiscard]] VariablesOf<Num> start(Region region, const Group<Num>& group) const {
    const Num x = group.of(x_), y = group.of(y_);
    return start_in<P, Num>(region, [&](std::size_t polynomial) {
      numbers::Rows<Num, float> coefficients;
      for (std::size_t lane = 0; lane < group.row.size(); ++lane) {
        const std::size_t row = group.row[lane];
        coefficients.of[lane] = place_[row].polynomial(patch_[row], polynomial);
      }
      return chart_value(coefficients, x, y);
    });
  }

  /// Lanes whose start is believed: where there is no other subregion, or it looks right.
  [[nodiscard]] MaskOf<Num> is_believed(Region region, const Group<Num>& group,
                                        VariablesOf<Num> start, Num a, Num b) const {
    MaskOf<Num> alone = false;
    for (std::size_t lane = 0; lane < group.row.size(); ++lane) {
      alone.v[lane] = place_[group.row[lane]].patches.size() == 1 ? -1 : 0;
    }
    return numbers::all(alone) ? alone : alone | is_plausible<P>(region, start, a, b);
  }

  template <class Equation>
  void one_phase(Region region, const Group<Num>& group) {
    if constexpr (P == Pair::pt && Equation::by_pressure) {
      BasisOf<Num> basis;
      const auto site = at_pressure(region, group.of(block_.first), group.of(block_.second));
      this->template write_one_phase<Equation>(group, group.lanes, site, nothing, basis);
    } else {
      search<Equation>(region, group);
    }
  }

  template <class Equation>
  void search(Region region, const Group<Num>& group) {
    const Num a = group.of(block_.first), b = group.of(block_.second);
    const VariablesOf<Num> first = start(region, group);
    const MaskOf<Num> believed = is_believed(region, group, first, a, b);
    BasisOf<Num> basis;
    const auto end = converged<P, Equation, nothing>(a, b, first, basis);
    const auto depth =
        margins::depth_of<Equation>(region, end.p, end.end.z, end.end.t, overlap_of(P));
    const MaskOf<Num> here = believed & end.ended & depth.inside;
    const MaskOf<Num> clear = here & depth.alone;
    const MaskOf<Num> first_of_all = comes_first<P>(region, end.end.t, Num(0), end.falls_with_p);
    const unsigned found = settle(group, {clear & first_of_all, (!here) | (clear & !first_of_all)});
    if (found != 0) {
      SiteOf<Num> site = Equation::by_pressure ? at_pressure(region, end.end.z, end.end.t)
                                               : at_volume(region, end.p, end.end.z, end.end.t);
      site.at = end.at;
      this->template write_one_phase<Equation>(group, found, site, with_own<Equation>(nothing),
                                               basis);
    }
  }

  void look_up_wet(const Group<Num>& group) {
    if constexpr (is_line(P) && P != Pair::pt) {
      const Num a = group.of(block_.first), b = group.of(block_.second);
      const auto [p, t, is_low] = saturated(a);
      const auto [x, is_sure, is_first] = on_wet_line<P>(t, b);
      const unsigned found = settle(group, {is_low & is_first, is_low & !is_first});
      if (found != 0) {
        this->write_wet(group, found, site_on_wet_line<P>(Region::wet, p, t, b));
      }
    } else {
      this->leave(group, group.lanes);
    }
  }

  /// Sends rows on or leaves them.
  /// @return  lanes in which the state is found
  unsigned settle(const Group<Num>& group, const Fate<Num>& fate) {
    const unsigned found = numbers::lanes_of(fate.found) & group.lanes;
    const unsigned next = numbers::lanes_of(fate.next) & group.lanes;
    Base::each_lane_of(next, [&](std::size_t lane) { go_on(group.row[lane]); });
    this->leave(group, group.lanes & ~found & ~next);
    return found;
  }

  static auto saturated(Num given) {
    return clear_saturation<known_of(P).first == Quantity::p>(given);
  }

  RowList water_, steam_, dense_, wet_;
  std::array<Place, Block::most> place_;
  std::array<Patch, Block::most> patch_;
  std::array<std::uint8_t, Block::most> turn_;
  std::array<double, Block::most> x_, y_;
};

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
      const auto [p, t, is_low] =
          clear_saturation<known_of(P).first == Quantity::p>(group.of(block.first));
      const unsigned found = numbers::lanes_of(is_low) & group.lanes;
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
