#pragma once

#include "steam/batch/lanes_group.hpp"
#include "steam/completion.hpp"

namespace steam {

/// What the ways to answer a block have in common.
template <Pair P, class Num>
class Answering {
 protected:
  Answering(const Block& block, RowList& left) : block_(block), left_(left) {}

  /// Writes what is wanted of one phase.
  template <class Equation>
  void write_one_phase(const Group<Num>& group, unsigned found, const SiteOf<Num>& site,
                       const Parts& has) {
    completion::take_place(one_phase_, site);
    completion::one_phase<Equation>(site.at, variables(site), block_.wanted.needs.parts, has,
                                    one_phase_);
    write(group, found, site, one_phase_, Exists{in_answers | in_one_phase});
  }

  /// Writes what is wanted of wet states; above 350 °C where no phase is needed.
  void write_wet(const Group<Num>& group, unsigned found, const SiteOf<Num>& site) {
    completion::take_place(wet_, site);
    completion::mixture(site, block_.wanted.needs, wet_, [&site](const Parts& wanted) {
      return completion::low_phases(site.p, site.t, wanted);
    });
    write(group, found, site, wet_, Exists{in_answers | in_wet_states});
  }

  void leave(const Group<Num>& group, unsigned lanes) const {
    each_lane_of(lanes, [&](std::size_t lane) { left_.add(group.row[lane]); });
  }
  /// Of rows that follow each other.
  void leave_rows(std::size_t first, unsigned lanes) const {
    each_lane_of(lanes, [&](std::size_t lane) { left_.add(first + lane); });
  }

  const Block& block_;
  RowList& left_;
  // One for all groups: what is wanted is written anew, the rest stays missing.
  BasisOf<Num> one_phase_, wet_;

 private:
  void write(const Group<Num>& group, unsigned found, const SiteOf<Num>& site, BasisOf<Num>& basis,
             Exists kind) const {
    const Wanted& wanted = block_.wanted;
    completion::for_pair(basis, P, group.of(block_.first), group.of(block_.second), site,
                         wanted.needs);
    for (std::size_t i = 0; i < wanted.count; ++i) {
      const auto& row = property_rows_of<Num>[static_cast<std::size_t>(wanted.properties[i])];
      write_column(group, found, i, value_of(row, basis, kind));
    }
    write_status(group, found);
  }

  /// Whether the rows can be written as one piece to a column.
  static bool is_piece(const Group<Num>& group, unsigned found, const vek_steam_output& column,
                       std::ptrdiff_t size) {
    return group.are_next && found == group.lanes && column.stride == size;
  }

  void write_column(const Group<Num>& group, unsigned found, std::size_t column, Num value) const {
    const vek_steam_output& to = block_.rows.outputs[column];
    if (is_piece(group, found, to, sizeof(double))) {
      std::memcpy(place_in(to, block_.begin + group.row[0]), &value, sizeof value);
      return;
    }
    each_lane_of(found, [&](std::size_t lane) {
      block_.rows.write(block_.begin + group.row[lane], column, numbers::lane_of(value, lane));
    });
  }

  void write_status(const Group<Num>& group, unsigned found) const {
    const vek_steam_output* to = block_.rows.status;
    if (to && is_piece(group, found, *to, 1)) {
      std::memset(place_in(*to, block_.begin + group.row[0]), static_cast<int>(Reason::none),
                  Group<Num>::width);
      return;
    }
    each_lane_of(found, [&](std::size_t lane) {
      block_.rows.write_status(block_.begin + group.row[lane], Reason::none);
    });
  }
};

}  // namespace steam
