#include "steam/equations/domain.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/search/lines.hpp"
#include "steam/search/plane_lines.hpp"
#include "steam/search/saturated.hpp"
#include "steam/search/wet_states.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {
namespace {

/// Where a line meets the border of a subregion.
struct Crossing {
  double coordinate;
  Border border;
};
using Crossings = FixedList<Crossing, 12>;

struct Values {
  double lowest, highest;
};

/// Values of all states of a subregion, with some room: without crossings elsewhere.
bool may_reach(Region region, Quantity own, double value) {
  struct Row {
    Values v, h, s;
  };
  constexpr std::array<Row, 7> by_region{{
      {},
      {{9.5e-4, 0.00176}, {-1, 1700}, {-0.01, 3.8}},  // water
      {{0.0025, 820}, {2400, 4170}, {5.0, 12}},       // steam
      {{0.0013, 0.0089}, {1500, 3000}, {3.3, 5.3}},   // dense steam
      {{0.0013, 0.0089}, {1500, 3000}, {3.3, 5.3}},   // hot water, with which it is one here
      {{0.0017, 0.0089}, {1600, 2600}, {3.7, 5.3}},   // wet above 350 °C
      {{9.5e-4, 820}, {-1, 2810}, {-0.01, 9.2}},      // wet
  }};
  const Row& row = by_region[static_cast<std::size_t>(region)];
  const Values& values = own == Quantity::v ? row.v : own == Quantity::h ? row.h : row.s;
  return value > values.lowest && value < values.highest;
}

/// Whether a state lies in the subregion whose equation gave it, but for rounding.
bool belongs(Region region, const Site& site) {
  constexpr double more = 1 + 1e-12;
  if (is_wet(region)) {
    return site.x >= 0 && site.x <= 1;
  }
  if (!(site.p >= p_lowest / more && site.p <= p_highest * more && site.t >= t_lowest &&
        site.t <= t_highest)) {
    return false;
  }
  const double p_line = site.t > t_350 && site.t <= t_line_end ? line_pressure(site.t) : p_highest;
  if (region == Region::water) {
    return site.p * more >= saturation_pressure(site.t);
  }
  if (region == Region::steam) {
    return site.p <= more * (site.t <= t_350 ? saturation_pressure(site.t) : p_line);
  }
  if (site.t > t_line_end || site.t < t_350 || site.p * more < p_line) {
    return false;
  }
  if (site.t >= t_jump) {
    return true;
  }
  const SaturatedVolumes v = saturated_volumes(site.t, saturation_pressure(site.t));
  return site.v <= v.liquid * more || site.v * more >= v.vapour;
}

/// The borders of the subregions, crossed with a line of constant volume or entropy.
template <class Line>
class Borders {
 public:
  explicit Borders(Line& line) : line_(line), saturated_{saturated(0), saturated(1)} {}

  Pieces pieces() {
    wet();
    water();
    steam();
    dense();
    return pieces_;
  }

 private:
  [[nodiscard]] Solutions saturated(double x) const {
    return wet_states(Line::own, line_.value(), x).all;
  }

  void add(Region region, const Site& site, Border border) {
    Site here = site;
    here.region = region;
    crossings_.add({Line::coordinate(here), border});
  }

  /// Saturated liquid (0) or vapour (1), to 350 °C or above.
  void cross_saturation(Region region, std::size_t x, bool low) {
    for (const Site& site : saturated_[x].sites) {
      if ((site.t <= t_350) == low) {
        Site here = site;
        if (is_3(region)) {
          const SaturatedVolumes v = saturated_volumes(site.t, site.p);
          here.v = x == 0 ? v.liquid : v.vapour;
        }
        add(region, here, Border::shared);
      }
    }
  }

  /// Another line, a part of the subregion's border.
  template <class Other>
  void cross(Region region, Other other, double from, double to, Border border) {
    const Piece piece{region, from, to, Border::range, Border::range};
    for (const Site& site : along(other, only(piece), {Line::own, line_.value()}).sites) {
      add(region, site, border);
    }
  }
  static Pieces only(const Piece& piece) {
    Pieces one;
    one.add(piece);
    return one;
  }

  void wet() {
    for (const bool low : {true, false}) {
      const Region region = low ? Region::wet : Region::wet_above_350;
      if (!may_reach(region, Line::own, line_.value())) {
        continue;
      }
      cross_saturation(region, 0, low);
      cross_saturation(region, 1, low);
      const double above_350 = std::nextafter(t_350, t_highest);
      cross_wet(low ? t_lowest : above_350, low ? Border::range : Border::shared);
      cross_wet(low ? t_350 : below_jump, Border::shared);
      collect(region);
    }
  }
  void cross_wet(double t, Border border) {
    const Ends ends = saturated_ends(Line::own, t, saturation_pressure(t));
    const double x = ends.quality(line_.value());
    if (x >= 0 && x <= (t == below_jump ? x_at_jump : 1)) {
      crossings_.add({t, border});
    }
  }

  void water() {
    if (!may_reach(Region::water, Line::own, line_.value())) {
      return;
    }
    cross_saturation(Region::water, 0, true);
    cross(Region::water, Isobar(p_highest), t_350, t_lowest, Border::range);
    cross(Region::water, IsothermLine(t_350), p_350, p_highest, Border::shared);
    cross(Region::water, IsothermLine(t_lowest), saturation_pressure(t_lowest), p_highest,
          Border::range);
    collect(Region::water);
  }

  void steam() {
    if (!may_reach(Region::steam, Line::own, line_.value())) {
      return;
    }
    cross_saturation(Region::steam, 1, true);
    cross(Region::steam, Isobar(p_lowest), t_highest, t_lowest, Border::range);
    cross(Region::steam, Isobar(p_highest), t_highest, line_temperature(p_highest), Border::range);
    cross(Region::steam, IsothermLine(t_highest), p_lowest, p_highest, Border::range);
    // The lowest pressure is a little below the saturation pressure of the lowest temperature.
    cross(Region::steam, IsothermLine(t_lowest), p_lowest, saturation_pressure(t_lowest),
          Border::range);
    cross_boundary_line(Region::steam);
    if constexpr (Line::own == Quantity::h) {
      // The energy turns at most once on each side of this pressure.
      constexpr double p_between = 60;
      cross(Region::steam, Isobar(p_between), t_highest, saturation_temperature(p_between),
            Border::range);
    }
    collect(Region::steam);
  }

  void dense() {
    constexpr Region region = Region::hot_water;
    if (!may_reach(region, Line::own, line_.value())) {
      return;
    }
    cross_saturation(region, 0, false);
    cross_saturation(region, 1, false);
    const double v_350 = dense_volume(region, p_350, t_350);
    const double v_least = dense_volume(region, p_highest, t_350);
    cross(region, IsothermLine(t_350), v_350, v_least, Border::shared);
    const double t_line = line_temperature(p_highest);
    cross(region, Isobar(p_highest), dense_volume(Region::dense_steam, p_highest, t_line), v_least,
          Border::range);
    cross_boundary_line(region);
    cross_jump();
    collect(region);
  }
  void cross_boundary_line(Region region) {
    // Along it the volume turns once, at 350.7 °C, the entropy at 370 and 505 °C, the enthalpy at
    // 393 and 454 °C.
    constexpr double t_between = Line::own == Quantity::s   ? 440
                                 : Line::own == Quantity::h ? 420
                                                            : t_line_end;
    const double t_begin = is_3(region) ? std::nextafter(t_350, t_highest) : t_350;
    cross(region, BoundaryLine{}, t_begin, t_between, Border::shared);
    if (t_between < t_line_end) {
      cross(region, BoundaryLine{}, t_between, t_line_end, Border::shared);
    }
  }
  /// Where the two phases fall together with a jump, a line leaves the wet states through it.
  void cross_jump() {
    const Ends ends = saturated_ends(Line::own, below_jump, saturation_pressure(below_jump));
    const double x = ends.quality(line_.value());
    if (x > 0 && x < x_at_jump) {
      const auto excess = [&](double v) {
        const Sloped y = sloped_quantity(Region::hot_water, Line::own, {v, t_jump});
        return Slope{y.value - line_.value(), y.over_1};
      };
      const double v = root(excess, 0.003, 0.0034, v_critical, true).x;
      add(Region::hot_water, at_volume(Region::hot_water, p_critical, v, t_jump), Border::shared);
    }
  }

  /// The parts between neighbouring crossings that lie in the subregion, and crossings that only
  /// touch it.
  void collect(Region region) {
    sort_short(crossings_,
               [](const Crossing& a, const Crossing& b) { return a.coordinate < b.coordinate; });
    bool attached = false;
    for (std::size_t i = 0; i < crossings_.size(); ++i) {
      const Crossing& here = crossings_[i];
      const bool is_last = i + 1 == crossings_.size();
      const bool joined = !is_last && is_inside(region, here, crossings_[i + 1]);
      if (joined) {
        const Crossing& next = crossings_[i + 1];
        pieces_.add({region, here.coordinate, next.coordinate, here.border, next.border});
      } else if (!attached) {
        pieces_.add({region, here.coordinate, here.coordinate, here.border, here.border});
      }
      attached = joined;
    }
    crossings_ = {};
  }
  bool is_inside(Region region, const Crossing& a, const Crossing& b) {
    const double middle = (a.coordinate + b.coordinate) / 2;
    return middle > a.coordinate && middle < b.coordinate &&
           belongs(region, line_.at({.region = region}, middle, Line::own).site);
  }

  static constexpr double below_jump = t_jump - 1e-8;
  /// The vapour's volume falls so steeply to that of the jump that part of it lies above this
  /// temperature.
  static constexpr double x_at_jump = 1.05;
  Line& line_;
  std::array<Solutions, 2> saturated_;
  Crossings crossings_{};
  Pieces pieces_{};
};

}  // namespace

template <class Line>
Pieces pieces_of(Line& line) {
  return Borders<Line>(line).pieces();
}
template Pieces pieces_of(Isochore&);
template Pieces pieces_of(Isentrope&);
template Pieces pieces_of(Isenthalp&);

}  // namespace steam
