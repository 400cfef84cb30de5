#include "steam/search/wet_states.hpp"

#include <algorithm>
#include <cmath>

#include "steam/search/merging_phases.hpp"
#include "steam/search/mixed_quantity.hpp"
#include "steam/search/tolerances.hpp"
#include "steam/search/wet_search.hpp"

namespace steam {
namespace {

// At a fixed quality a quantity may turn along the saturation line. A cell of the table may
// hold a solution if the values at its sides enclose the wanted one, or if the quantity turns in
// it. There the roots of one polynomial are all solutions; the equations correct each by a step.
// Only where the table cannot tell whether there is one, at a turn or next to the critical point,
// are the equations searched.

/// One cell of the table and its temperatures.
struct Cell {
  const SaturatedBand* band;
  int number;
  [[nodiscard]] double root(double z) const {
    return band->origin + (number + (z + 1) / 2) / band->scale;
  }
  [[nodiscard]] bool is_first() const { return number == 0; }
  [[nodiscard]] bool is_last() const { return number == band->cells - 1; }
  [[nodiscard]] bool is_critical() const { return band->origin == 0 && number == 0; }
  /// Where the table begins in the cell.
  [[nodiscard]] double z_least() const {
    return is_critical() ? 2 * r_merging * band->scale - 1 : -1;
  }
  [[nodiscard]] double t_high() const {
    return is_first() && !is_critical() ? t_350 : temperature_of(root(z_least()));
  }
  [[nodiscard]] double t_low() const {
    return !is_last() ? temperature_of(root(1)) : band->origin == 0 ? t_350 : t_lowest;
  }
};

/// All cells of the table, from the critical point down.
class Scan {
 public:
  Scan(const MixedQuantity& target, bool only_first)
      : target_(target), only_first_(only_first), states_(target.x) {}

  void run() {
    if (reaches_above_350()) {
      closed_on_jump_ = where_phases_merge(target_, states_);
      band<HighSaturation>(saturated_above_350);
    }
    band<LowSaturation>(saturated_to_350);
  }

  [[nodiscard]] const Solutions& states() const { return states_.all(); }
  [[nodiscard]] double closed_on_jump() const { return closed_on_jump_; }

 private:
  /// Liquid and vapour are farthest apart at 350 °C.
  [[nodiscard]] bool reaches_above_350() const {
    const SaturatedProfile& profile = target_.profile(saturated_above_350);
    const int last = saturated_above_350.cells;
    return target_.value >= profile.liquid[last] && target_.value <= profile.vapour[last];
  }

  template <class Saturation>
  void band(const SaturatedBand& band) {
    const SaturatedProfile& profile = target_.profile(band);
    const double x = target_.x, doubt = target_.doubt();
    double left = target_.at_side(profile, 0);
    for (int i = 0; i < band.cells && wants_more(); ++i) {
      const double right = target_.at_side(profile, i + 1);
      const bool enclosed = std::min(left, right) <= doubt && std::max(left, right) >= -doubt;
      if (enclosed || (x >= profile.least_turning[i] && x <= profile.most_turning[i])) {
        cell<Saturation>({&band, i});
      }
      left = right;
    }
  }

  /// A state just above 350 °C gives way to one below.
  [[nodiscard]] bool wants_more() const {
    const auto& found = states_.all().sites;
    if (!only_first_ || found.empty()) {
      return true;
    }
    constexpr double overlap = 0.5;  // K
    const double t = found[found.size() - 1].t;
    return t > t_350 && t < t_350 + overlap;
  }

  template <class Saturation>
  void cell(const Cell& cell) {
    const CellPolynomial f = target_.polynomial(cell.band->polynomials[cell.number]);
    if (f.is_beyond(target_.doubt())) {
      return;
    }
    const WetList before = states_;
    if (!by_table<Saturation>(cell, f)) {
      states_ = before;
      by_equations<Saturation>(target_, cell.t_high(), cell.t_low(),
                               [&](double t) { add_in(cell, t); });
    }
  }

  /// All solutions in a cell from the roots of its polynomial.
  /// @return  whether the table could tell
  template <class Saturation>
  bool by_table(const Cell& cell, const CellPolynomial& f) {
    double left = cell.z_least();
    bool sure = true;
    const auto piece = [&](double right) {
      sure = sure && in_monotone_piece<Saturation>(cell, f, left, right);
      left = right;
    };
    if (!f.is_monotone()) {
      all_roots(f.derivative(), left, 1.0, [&](double turn) {
        sure = sure && std::abs(f(turn).value) > target_.doubt();
        piece(turn);
      });
    }
    piece(1);
    return sure;
  }

  template <class Saturation>
  bool in_monotone_piece(const Cell& cell, const CellPolynomial& f, double left, double right) {
    const double f_left = f(left).value, f_right = f(right).value;
    if (f_left * f_right < 0) {
      constexpr double enough = 1e-7;  // the last step is as exact as the table
      const Enough last{.step = enough, .noise = 0};
      return add_in(
          cell, approach<Saturation>(cell, f, root(f, left, right, HUGE_VAL, f_left < 0, last).x));
    }
    // The sides of neighbouring cells do not quite meet: what is beyond the side is found in the
    // neighbour. At the end of a band, where the quantity may turn too, the equations tell.
    const auto at_side = [&](double z, bool ends_band) {
      const double t = approach<Saturation>(cell, f, z);
      return add_in(cell, t) || (!ends_band && !std::isnan(t));
    };
    bool sure = true;
    if (left == cell.z_least() && std::abs(f_left) <= target_.doubt()) {
      sure = at_side(left, cell.is_first());
    }
    if (right == 1 && std::abs(f_right) <= target_.doubt()) {
      sure = at_side(right, cell.is_last()) && sure;
    }
    return sure;
  }

  /// From a root of the polynomial with its slope.
  /// @return  the temperature; not a number where that does not lead to one
  template <class Saturation>
  double approach(const Cell& cell, const CellPolynomial& f, double z) {
    const double r = cell.root(z);
    const double slope = -f(z).derivative * cell.band->scale / r;  // over t
    double t = temperature_of(r);
    constexpr int most_steps = 6;
    for (int n = 0; n < most_steps; ++n) {
      const double step = -target_.exact<Saturation>(t) / slope;
      t += step;
      constexpr double widest_step = 1e-2;
      if (!(std::abs(step) <= widest_step)) {
        return missing;
      }
      constexpr double straight = 1e-8;  // K: so far the slope of the table is good enough
      if (std::abs(step) <= std::min(wet::small_step(t), straight)) {
        return t;
      }
    }
    return missing;
  }

  /// A solution may be a little beyond the side of its cell, but not beyond its band.
  bool add_in(const Cell& cell, double t) {
    constexpr double boundary_slack = 1e-9;
    const double high = cell.t_high() + (cell.is_first() ? boundary_slack : 1e-6);
    const double low = cell.t_low() - (cell.is_last() ? boundary_slack : 1e-6);
    if (!(t >= low && t <= high)) {
      return false;
    }
    if (cell.band == &saturated_to_350) {
      states_.add(std::clamp(t, t_lowest, t_350));
    } else {
      states_.add(std::max(t, std::nextafter(t_350, t_highest)));
    }
    return true;
  }

  MixedQuantity target_;
  bool only_first_;
  WetList states_;
  double closed_on_jump_ = 0;  // °C, if it has happened
};

}  // namespace

void WetList::add(double t) {
  constexpr double same = 1e-7;  // K
  auto& sites = all_.sites;
  const bool is_last = !sites.empty() && std::abs(sites[sites.size() - 1].t - t) < same &&
                       (sites[sites.size() - 1].t <= t_350) == (t <= t_350);
  if (!is_last) {
    sites.add(at_quality(saturation_pressure(t), t, x_));
  }
}

WetStates wet_states(Quantity q, double value, double x, bool only_first) {
  const MixedQuantity target{q, value, x};
  Scan scan(target, only_first);
  scan.run();
  WetStates found{scan.states(), {}};
  if (!found.all.sites.empty()) {
    return found;
  }
  // A value that neither side of 350 °C or of a jump reaches.
  const auto at = [&](double t) {
    found.nearest = at_quality(saturation_pressure(t), t, x);
    found.nearest.approximate = true;
  };
  if (std::abs(target.at_side(target.profile(saturated_to_350), 0)) < misfit(q, value)) {
    at(t_350);
  } else if (scan.closed_on_jump() > 0) {
    at(scan.closed_on_jump());
  } else if (target.exact<HighSaturation>(above_jump) * target.exact<HighSaturation>(below_jump) <
             0) {
    at(below_jump);
  }
  return found;
}

}  // namespace steam
