#pragma once

#include "steam/batch/lanes_answering.hpp"
#include "steam/refusal.hpp"
#include "steam/search/quick_one_phase.hpp"
#include "steam/search/quick_wet.hpp"
#include "steam/search/starts.hpp"

namespace steam {

// The quick search for many rows: those that begin in the same subregion go through its equation
// together, a row in each lane. A row goes on as it would alone, patch by patch of its cell; where
// that is more than one iteration and a look at the margins, it is left to be answered alone.

/// A pair with a chart.
template <Pair P, class Num>
class InCells : Answering<P, Num> {
  using Base = Answering<P, Num>;
  using Base::block_;
  static constexpr std::size_t width = Group<Num>::width;
  static constexpr const Chart& chart = charts[static_cast<std::size_t>(P)];

 public:
  InCells(const Block& block, RowList& left) : Base(block, left) {}

  void answer() {
    for (std::size_t row = 0; row < block_.count; row += width) {
      begin(row, std::min(width, block_.count - row));
    }
    bool are_open = true;
    while (are_open) {
      are_open = turn(Region::water,
                      [this](const Group<Num>& group) { one_phase<Water>(Region::water, group); });
      are_open |= turn(Region::steam,
                       [this](const Group<Num>& group) { one_phase<Steam>(Region::steam, group); });
      are_open |= turn(Region::dense_steam, [this](const Group<Num>& group) {
        one_phase<Dense>(Region::dense_steam, group);
      });
      are_open |= turn(Region::wet, [this](const Group<Num>& group) { wet(group); });
      are_open |=
          turn(Region::wet_above_350, [this](const Group<Num>& group) { wet_above_350(group); });
    }
  }

 private:
  /// Some rows that follow each other.
  void begin(std::size_t first, std::size_t count) {
    const Num a = loaded<Num>(block_.first, first), b = loaded<Num>(block_.second, first);
    const unsigned in_range = numbers::lanes_of(steam::in_range(P, a, b)) & ((1U << count) - 1);
    unsigned charted = in_range;
    if constexpr (P == Pair::pt) {
      // Only the volume in subregion 3 is open.
      const ClearRegion<Num> clear = clear_region(a, b);
      const unsigned water = numbers::lanes_of(clear.water) & in_range;
      const unsigned steam = numbers::lanes_of(clear.steam) & in_range;
      waiting(Region::water).template add_lanes<width>(first, water);
      waiting(Region::steam).template add_lanes<width>(first, steam);
      charted = numbers::lanes_of(clear.dense) & in_range;
      this->leave_rows(first, ((1U << count) - 1) & ~water & ~steam & ~charted);
    } else {
      this->leave_rows(first, ((1U << count) - 1) & ~in_range);
    }
    if (charted != 0) {
      begin_in_cells(first, charted, a, b);
    }
  }

  void begin_in_cells(std::size_t first, unsigned lanes, Num a, Num b) {
    const CellOf<Num> cell = cell_of(chart.axes, a, b);
    const unsigned on = numbers::lanes_of(cell.is_on);
    store(x_, first, cell.x);
    store(y_, first, cell.y);
    each_lane_of(lanes, [&](std::size_t lane) {
      const std::size_t row = first + lane;
      const bool is_on = (on >> lane & 1) != 0;
      cell_[row] = is_on ? chart.word(numbers::lane_of(cell.number, lane)) : 0;
      if (is_divided(cell_[row])) {
        const PartOf part = chart.part_of(cell_[row], x_[row], y_[row]);
        cell_[row] = part.word;
        x_[row] = part.x;
        y_[row] = part.y;
      }
      turn_[row] = 0;
      go_on(row);
    });
  }

  [[nodiscard]] Patches patches(std::size_t row) const { return {cell_[row], chart.unknowns}; }

  /// To the next patch of its cell.
  void go_on(std::size_t row) {
    const std::size_t number = turn_[row]++;
    if (number >= patches(row).size()) {
      this->left_.add(row);
      return;
    }
    const Patch patch = patches(row)[number];
    polynomials_[row] = chart.polynomials() + chart_stride * patch.polynomials;
    waiting(patch.region).add(row);
  }

  /// Rows that are next tried in a region.
  [[nodiscard]] RowList& waiting(Region region) {
    return waiting_[static_cast<std::size_t>(is_3(region) ? Region::dense_steam : region)];
  }

  /// @return  whether there were rows
  template <class F>
  bool turn(Region region, const F& f) {
    RowList& list = waiting(region);
    if (list.count == 0) {
      return false;
    }
    now_ = list;
    list.count = 0;
    each_group<Num>(now_, f);
    return true;
  }

  [[nodiscard]] VariablesOf<Num> start(Region region, const Group<Num>& group) const {
    const Num x = group.of(x_), y = group.of(y_);
    return start_in<P, Num>(region, [&](std::size_t polynomial) {
      numbers::Rows<Num, float> coefficients;
      for (std::size_t lane = 0; lane < width; ++lane) {
        coefficients.of[lane] = polynomials_[group.row[lane]] + chart_stride * polynomial;
      }
      return chart_value(coefficients, x, y);
    });
  }

  /// Lanes whose start is believed: where there is no other subregion, or it looks right.
  [[nodiscard]] MaskOf<Num> is_believed(Region region, const Group<Num>& group,
                                        VariablesOf<Num> start, Num a, Num b) const {
    MaskOf<Num> alone = false;
    for (std::size_t lane = 0; lane < width; ++lane) {
      alone.v[lane] = patches(group.row[lane]).size() == 1 ? -1 : 0;
    }
    return numbers::all(alone) ? alone : alone | is_plausible<P>(region, start, a, b);
  }

  template <class Equation>
  void one_phase(Region region, const Group<Num>& group) {
    if constexpr (P == Pair::pt && Equation::by_pressure) {
      const auto site = at_pressure(region, group.of(block_.first), group.of(block_.second));
      this->template write_one_phase<Equation>(group, group.lanes, site, nothing);
    } else {
      search<Equation>(region, group);
    }
  }

  template <class Equation>
  ConvergedOf<Num> converged_with(bool parts, Num a, Num b, VariablesOf<Num> first) {
    if constexpr (Equation::by_pressure) {
      if (parts) {
        return converged<P, Equation, first_order>(a, b, first, this->one_phase_);
      }
    }
    return converged<P, Equation, nothing>(a, b, first, this->one_phase_);
  }

  template <class Equation>
  void search(Region region, const Group<Num>& group) {
    const Num a = group.of(block_.first), b = group.of(block_.second);
    const VariablesOf<Num> first = start(region, group);
    const MaskOf<Num> believed = is_believed(region, group, first, a, b);
    // In 1 and 2 with what is wanted, so that the equation need not be evaluated once more. In 3
    // the steps need far less of it than that, and a row in a lane often takes one more than it
    // needs.
    const Parts& wanted = block_.wanted.needs.parts;
    const bool at_once = Equation::by_pressure && (wanted.v || wanted.h || wanted.s);
    const auto end = converged_with<Equation>(at_once, a, b, first);
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
      this->template write_one_phase<Equation>(group, found, site,
                                               with_own<Equation>(at_once ? first_order : nothing));
    }
  }

  void wet(const Group<Num>& group) {
    if constexpr (P == Pair::pt) {
      this->leave(group, group.lanes);
    } else if constexpr (is_line(P)) {
      wet_on_line(Region::wet, group);
    } else {
      wet_in_plane(group);
    }
  }

  void wet_on_line(Region region, const Group<Num>& group) {
    const Num b = group.of(block_.second);
    const auto [p, t, is_clear] =
        clear_saturation<known_of(P).first == Quantity::p>(group.of(block_.first));
    const auto [x, is_sure, is_first] = steam::on_wet_line<P>(t, b);
    const MaskOf<Num> here = is_clear & (region == Region::wet ? t <= t_350 : t > t_350);
    const unsigned found = settle(group, {here & is_first, here & !is_first});
    if (found != 0) {
      this->write_wet(group, found, site_on_wet_line<P>(region, p, t, b));
    }
  }

  void wet_in_plane(const Group<Num>& group) {
    constexpr Known k = known_of(P);
    const auto end = wet_search<k.first, k.second, LowSaturationOf<Num>>(
        saturated_to_350, group.of(block_.first), group.of(block_.second),
        start(Region::wet, group).t);
    const MaskOf<Num> here = end.is_found & (end.t <= t_350);
    const MaskOf<Num> clear = here & margins::is_clear_wet(end.t, end.x, overlap_of(P));
    const unsigned found = settle(group, {clear, !here});
    if (found != 0) {
      this->write_wet(group, found, {.region = Region::wet, .p = end.p, .t = end.t, .x = end.x});
    }
  }

  /// Phases above 350 °C are found alone; but on a line the table may do without them, and of two
  /// values that are neither pressure nor temperature it may tell that there is no such state.
  void wet_above_350(const Group<Num>& group) {
    if constexpr (P == Pair::pt) {
      this->leave(group, group.lanes);
    } else if constexpr (is_line(P)) {
      if (completion::needs_phases(known_of(P).second, block_.wanted.needs)) {
        this->leave(group, group.lanes);
      } else {
        wet_on_line(Region::wet_above_350, group);
      }
    } else {
      constexpr Known k = known_of(P);
      const MaskOf<Num> may_be = wet::tabulated<k.first, k.second>(
                                     saturated_above_350, group.of(block_.first),
                                     group.of(block_.second), start(Region::wet_above_350, group).t)
                                     .promising;
      settle(group, {MaskOf<Num>(false), !may_be});
    }
  }

  /// Sends rows on or leaves them.
  /// @return  lanes in which the state is found
  unsigned settle(const Group<Num>& group, const Fate<Num>& fate) {
    const unsigned found = numbers::lanes_of(fate.found) & group.lanes;
    const unsigned next = numbers::lanes_of(fate.next) & group.lanes;
    each_lane_of(next, [&](std::size_t lane) { go_on(group.row[lane]); });
    this->leave(group, group.lanes & ~found & ~next);
    return found;
  }

  std::array<RowList, 1 + static_cast<std::size_t>(Region::wet)> waiting_;
  RowList now_;
  // By row: the word of its cell, the place in it, the number of the patch that is tried next and
  // the polynomials of the one before.
  std::array<std::uint32_t, Block::most> cell_;
  std::array<double, Block::most> x_, y_;
  std::array<std::uint8_t, Block::most> turn_;
  std::array<const float*, Block::most> polynomials_;
};

}  // namespace steam
