#include "steam/lines.hpp"

#include <algorithm>
#include <cmath>

#include "steam/quantity.hpp"
#include "steam/root.hpp"

namespace steam {
namespace {

/// A part of a line inside one region. The coordinate is t on isobars, p or (subregion 3) v on
/// isotherms, and x in wet regions.
struct Piece {
  Region region;
  double from, to;
};

struct Pieces {
  std::array<Piece, 5> pieces;
  std::size_t count = 0;
  void add(Region region, double from, double to) { pieces[count++] = {region, from, to}; }
  [[nodiscard]] const Piece* begin() const { return pieces.data(); }
  [[nodiscard]] const Piece* end() const { return pieces.data() + count; }
};

/// From the highest temperature down.
Pieces pieces_of_isobar(double p, double t_floor) {
  Pieces line;
  if (p < p_350) {
    const double t = saturation_temperature(p);
    line.add(Region::steam, t_highest, t);
    line.add(Region::wet, 1, 0);
    line.add(Region::water, t, t_floor);
    return line;
  }
  const double t_line = std::min(line_temperature(p), t_line_end);
  line.add(Region::steam, t_highest, t_line);
  if (p < p_critical) {
    const double t = saturation_temperature(p);
    line.add(Region::dense_steam, t_line, t);
    line.add(Region::wet_above_350, 1, 0);
    line.add(Region::hot_water, t, t_350);
  } else {
    line.add(Region::dense_steam, t_line, t_critical);
    line.add(Region::hot_water, t_critical, t_350);
  }
  line.add(Region::water, t_350, t_floor);
  return line;
}

/// From the lowest pressure up.
Pieces pieces_of_isotherm(double t) {
  Pieces line;
  if (t <= t_350) {
    const double p = saturation_pressure(t);
    line.add(Region::steam, p_lowest, p);
    line.add(Region::wet, 1, 0);
    line.add(Region::water, p, p_highest);
    return line;
  }
  if (t > t_line_end) {
    line.add(Region::steam, p_lowest, p_highest);
    return line;
  }
  const double p_line = std::min(line_pressure(t), p_highest);
  line.add(Region::steam, p_lowest, p_line);
  const double v_line = dense_volume(Region::dense_steam, p_line, t);
  if (t < t_critical) {
    const SaturatedVolumes v = saturated_volumes(t, saturation_pressure(t));
    line.add(Region::dense_steam, v_line, v.vapour);
    line.add(Region::wet_above_350, 1, 0);
    line.add(Region::hot_water, v.liquid, dense_volume(Region::hot_water, p_highest, t));
  } else {
    line.add(Region::dense_steam, v_line, dense_volume(Region::dense_steam, p_highest, t));
  }
  return line;
}

/// The given p or t of a line.
struct Isobar {
  double p;
  [[nodiscard]] Site site(const Piece& piece, double c) const {
    if (is_wet(piece.region)) {
      return {.region = piece.region, .p = p, .t = saturation_temperature(p), .x = c};
    }
    const double v = is_3(piece.region) ? dense_volume(piece.region, p, c) : missing;
    return {.region = piece.region, .p = p, .t = c, .v = v};
  }
  static double slope(const Site& site, const Sloped& y) {
    if (!is_3(site.region)) {
      return y.over_t;
    }
    const Terms3 terms = Dense::terms(site.v, site.t);
    return y.over_t - y.over_1 * pressure3_over_t(terms) / pressure3_over_v(terms);
  }
};

struct Isotherm3OrLess {
  double t;
  [[nodiscard]] Site site(const Piece& piece, double c) const {
    if (is_wet(piece.region)) {
      return {.region = piece.region, .p = saturation_pressure(t), .t = t, .x = c};
    }
    if (is_3(piece.region)) {
      return {.region = piece.region, .p = pressure3(Dense::terms(c, t)), .t = t, .v = c};
    }
    return {.region = piece.region, .p = c, .t = t};
  }
  static double slope(const Site&, const Sloped& y) { return y.over_1; }
};

/// Rounding of a quantity's evaluation.
double rounding(Quantity q, double value) {
  constexpr double relative = 2e-12;
  const double absolute = q == Quantity::v ? 0 : q == Quantity::s ? 1e-11 : 1e-9;
  return relative * std::abs(value) + absolute;
}

/// Whether two states from neighbouring subregions are one: their equations differ so little that
/// the same pair lies in both only within this distance of the boundary.
bool are_one(const Site& a, const Site& b) {
  if (a.region == b.region) {
    return false;
  }
  const bool mixed = is_wet(a.region) || is_wet(b.region);
  const double share = mixed ? 1e-8 : 5e-3;
  const double kelvins = mixed ? 1e-6 : 0.5;
  const bool saturated =
      !mixed || (a.x <= 1e-9 || a.x >= 1 - 1e-9) || (b.x <= 1e-9 || b.x >= 1 - 1e-9);
  return saturated && std::abs(a.t - b.t) < kelvins && std::abs(a.p - b.p) < share * a.p;
}

void add_or_merge(Solutions& solutions, const Site& site) {
  if (solutions.count > 0) {
    Site& last = solutions.sites[solutions.count - 1];
    if (are_one(last, site)) {
      last = site.region < last.region ? site : last;
      return;
    }
  }
  solutions.add(site);
}

template <class Line>
class Search {
 public:
  Search(const Line& line, const Pieces& pieces, Quantity q, double value)
      : line_(line), pieces_(pieces), q_(q), value_(value) {}

  Solutions run() {
    Solutions solutions;
    for (const Piece& piece : pieces_) {
      collect(piece, solutions);
    }
    if (solutions.count == 0) {
      close_gaps(solutions);
    }
    return solutions;
  }

 private:
  void collect(const Piece& piece, Solutions& solutions) const {
    if (is_wet(piece.region)) {
      const Site liquid = line_.site(piece, 0);
      const double x = saturated_ends(q_, liquid.t, liquid.p).quality(value_);
      if (x >= 0 && x <= 1) {
        add_or_merge(solutions, line_.site(piece, x));
      }
      return;
    }
    const auto excess = [&](double c) {
      const Site site = line_.site(piece, c);
      const Sloped y = sloped_quantity(site.region, q_, variables(site));
      return Slope{y.value - value_, Line::slope(site, y)};
    };
    all_roots(excess, piece.from, piece.to,
              [&](double c) { add_or_merge(solutions, line_.site(piece, c)); });
  }

  /// Between two pieces that do not quite meet: the nearer end. Beyond the whole line: its end, if
  /// only rounding separates them.
  void close_gaps(Solutions& solutions) const {
    double lowest = HUGE_VAL, highest = -HUGE_VAL, least = HUGE_VAL;
    Site nearest;
    for (const Piece& piece : pieces_) {
      for (const double c : {piece.from, piece.to}) {
        const Site site = line_.site(piece, c);
        const double y = quantity(site, q_);
        lowest = std::min(lowest, y);
        highest = std::max(highest, y);
        if (std::abs(y - value_) < least) {
          least = std::abs(y - value_);
          nearest = site;
        }
      }
    }
    const double slack = rounding(q_, value_);
    solutions.side = value_ < lowest ? -1 : value_ > highest ? 1 : 0;
    if (value_ < lowest - slack || value_ > highest + slack) {
      return;
    }
    nearest.approximate = least > slack;
    solutions.add(nearest);
  }

  Line line_;
  Pieces pieces_;
  Quantity q_;
  double value_;
};

}  // namespace

Solutions along_isobar(double p, Quantity q, double value, double t_floor) {
  return Search(Isobar{p}, pieces_of_isobar(p, t_floor), q, value).run();
}

Solutions along_isotherm(double t, Quantity q, double value) {
  return Search(Isotherm3OrLess{t}, pieces_of_isotherm(t), q, value).run();
}

Site at_pressure_temperature(double p, double t) {
  if (t <= t_350) {
    const Region region = above_saturation(p, t) ? Region::water : Region::steam;
    return {.region = region, .p = p, .t = t};
  }
  if (t > t_line_end || p < line_pressure(t)) {
    return {.region = Region::steam, .p = p, .t = t};
  }
  const bool liquid = t < t_critical && above_saturation(p, t);
  const Region region = liquid ? Region::hot_water : Region::dense_steam;
  return {.region = region, .p = p, .t = t, .v = dense_volume(region, p, t)};
}

}  // namespace steam
