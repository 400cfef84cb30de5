#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "steam/equations/domain.hpp"
#include "steam/search/root.hpp"
#include "steam/search/solutions.hpp"
#include "steam/search/tolerances.hpp"

namespace steam {

// Searches along a line of states that have one quantity: sure and complete. The line is cut into
// the pieces that lie in one subregion each; in a piece the other quantity is smooth and turns at
// most once, which the slopes at its two ends tell.

/// What lies beyond the end of a piece: nothing, or another subregion, whose equation differs a
/// little.
enum class Border : std::uint8_t { range, shared };

/// A part of a line inside one subregion, by the line's coordinate there. Both parts of subregion 3
/// count as hot_water where they are one.
struct Piece {
  Region region = Region::none;
  double from = missing, to = missing;
  Border at_from = Border::shared, at_to = Border::shared;
};
using Pieces = FixedList<Piece, 12>;

/// A state of a line, and how the wanted quantity changes along the line there.
struct LinePoint {
  double coordinate;
  Site site;
  Slope y;
};

/// The wanted value, and a solution that is known already.
struct Target {
  Quantity q;
  double value;
  const Site* known = nullptr;
};

namespace line_search {

/// An end of a piece and its distance from the wanted value.
struct End {
  Site site;
  double excess;
  Border border;
};

/// The solutions in one piece.
template <class Line>
class PieceSearch {
 public:
  PieceSearch(Line& line, const Piece& piece, Target target, Solutions& solutions)
      : line_(line), piece_(piece), target_(target), solutions_(solutions) {}

  /// @param ends  takes the ends of the piece
  template <class List>
  void run(List& ends) {
    const LinePoint from = at(piece_.from), to = at(piece_.to);
    for (const auto& [point, border] : {std::pair{&from, piece_.at_from}, {&to, piece_.at_to}}) {
      ends.add(End{point->site, excess(*point), border});
    }
    if (from.y.derivative * to.y.derivative < 0) {
      around_turn(from, to);
    } else {
      between(from, to);
    }
  }

 private:
  LinePoint at(double coordinate) { return line_.at(piece_, coordinate, target_.q); }
  [[nodiscard]] double excess(const LinePoint& point) const {
    return point.y.value - target_.value;
  }
  [[nodiscard]] double enough() const { return line_.slack(target_.q, target_.value); }
  [[nodiscard]] bool is_end(const LinePoint& point) const {
    return std::abs(excess(point)) <= enough();
  }

  /// Between two points with a turn between them: none, one or two solutions.
  void around_turn(const LinePoint& a, const LinePoint& b) {
    if (target_.known != nullptr && is_between(*target_.known, a, b)) {
      beside_known(a, b);
      return;
    }
    const bool at_an_end = is_end(a) || is_end(b);
    const bool one = excess(a) * excess(b) < 0;
    const bool turns_away = excess(a) * a.y.derivative * (b.coordinate - a.coordinate) > 0;
    if (!at_an_end && (one || turns_away)) {
      between(a, b);
      return;
    }
    const LinePoint turn = at(turn_between(a, b));
    between(a, turn);
    between(turn, b);
  }

  /// The known solution and the one on the other side of the turn, if there is one.
  void beside_known(const LinePoint& a, const LinePoint& b) {
    solutions_.add(*target_.known);
    LinePoint known = at(line_.coordinate(*target_.known));
    const LinePoint& end = known.y.derivative * a.y.derivative > 0 ? b : a;
    const double beyond = known.y.derivative * (end.coordinate - known.coordinate);
    if (is_end(end)) {
      solutions_.add(end.site);
    } else if (beyond * excess(end) < 0) {
      known.y.value = target_.value;
      solutions_.add(solved(known, end));
    }
  }

  /// Where the quantity turns, or any point where it has passed the wanted value.
  double turn_between(const LinePoint& a, const LinePoint& b) {
    const double side = excess(is_end(a) ? b : a);
    const auto slope = [&](double c) {
      const LinePoint point = at(c);
      const bool passed = excess(point) * side < 0 && !is_end(point);
      return Slope{passed ? 0 : point.y.derivative, std::numeric_limits<double>::quiet_NaN()};
    };
    const double at_a = a.y.derivative, at_b = b.y.derivative;
    const double start = a.coordinate + (b.coordinate - a.coordinate) * (at_a / (at_a - at_b));
    const bool rises = (at_b > 0) == (b.coordinate > a.coordinate);
    constexpr Enough enough{.step = 1e-9, .noise = 0};
    return root(slope, a.coordinate, b.coordinate, start, rises, enough).x;
  }

  /// The one solution between two points, if there is one: between them the quantity does not turn.
  void between(const LinePoint& a, const LinePoint& b) {
    const double at_a = excess(a), at_b = excess(b);
    if (const Site* known = target_.known; known != nullptr && is_between(*known, a, b)) {
      solutions_.add(*known);
    } else if (is_end(a) || is_end(b)) {
      solutions_.add(std::abs(at_a) <= std::abs(at_b) ? a.site : b.site);
    } else if (at_a * at_b < 0) {
      solutions_.add(solved(a, b));
    } else if (const LinePoint& end = std::abs(at_a) <= std::abs(at_b) ? a : b; is_blurred(end)) {
      solutions_.add(end.site);
    }
  }
  /// Where a line runs along the boundary line, its rounding moves the place where they cross.
  [[nodiscard]] bool is_blurred(const LinePoint& end) const {
    constexpr double room = 20;
    return end.site.t > t_critical && std::abs(excess(end)) <= room * enough();
  }

  [[nodiscard]] bool is_between(const Site& known, const LinePoint& a, const LinePoint& b) const {
    if (!is_same_equation(known.region, piece_.region)) {
      return false;
    }
    const double c = line_.coordinate(known);
    return (c - a.coordinate) * (c - b.coordinate) <= 0;
  }
  static bool is_same_equation(Region a, Region b) { return a == b || (is_3(a) && is_3(b)); }

  /// @param a  may be a solution itself, beyond which another is wanted
  Site solved(const LinePoint& a, const LinePoint& b) {
    const double at_a = excess(a), at_b = excess(b);
    const double share = at_a == 0 ? 1 : at_a / (at_a - at_b);
    const double start = a.coordinate + (b.coordinate - a.coordinate) * share;
    const auto f = [&](double c) {
      const LinePoint point = at(c);
      return Slope{excess(point), point.y.derivative};
    };
    const bool rises = (at_b > 0) == (b.coordinate > a.coordinate);
    const Enough enough{.step = 3e-16,
                        .noise = rounding_in(piece_.region, target_.q, target_.value)};
    return at(root(f, a.coordinate, b.coordinate, start, rises, enough).x).site;
  }

  Line& line_;
  const Piece& piece_;
  Target target_;
  Solutions& solutions_;
};

/// Between two subregions that do not quite meet: the nearer end.
/// @param rounding  by which an end may be off where its boundary runs along the line
template <class List>
void close_gap(const List& ends, Target target, double rounding, Solutions& solutions) {
  const End* below = nullptr;
  const End* above = nullptr;
  for (const End& end : ends) {
    // Above the jump of the saturated volumes wet states have no quality.
    if (end.border == Border::range || std::isnan(end.excess)) {
      continue;
    }
    const End*& side = end.excess < 0 ? below : above;
    if (side == nullptr || std::abs(end.excess) < std::abs(side->excess)) {
      side = &end;
    }
  }
  if (below == nullptr || above == nullptr) {
    return;
  }
  const End& nearer = -below->excess < above->excess ? *below : *above;
  if (above->excess - below->excess <= misfit(target.q, target.value)) {
    solutions.add(nearer.site);
    solutions.sites[0].approximate = std::abs(nearer.excess) > rounding;
  }
}

/// Beyond the range: its end, if only rounding separates them.
template <class List>
void close_range(const List& ends, double rounding, Solutions& solutions) {
  const End* nearest = nullptr;
  for (const End& end : ends) {
    if (end.border == Border::range &&
        (nearest == nullptr || std::abs(end.excess) < std::abs(nearest->excess))) {
      nearest = &end;
    }
  }
  if (nearest != nullptr && std::abs(nearest->excess) <= rounding) {
    solutions.add(nearest->site);
  }
}

}  // namespace line_search

/// All states of a line that have q = value, in the order of its pieces.
template <class Line>
Solutions along(Line& line, const Pieces& pieces, Target target) {
  Solutions solutions;
  FixedList<line_search::End, 2 * Pieces::capacity> ends;
  for (const Piece& piece : pieces) {
    line_search::PieceSearch(line, piece, target, solutions).run(ends);
  }
  if (solutions.sites.empty()) {
    const double rounding = 4 * line.slack(target.q, target.value);
    line_search::close_gap(ends, target, rounding, solutions);
  }
  if (solutions.sites.empty()) {
    line_search::close_range(ends, line.end_slack(target.q, target.value), solutions);
  }
  return solutions;
}

}  // namespace steam
