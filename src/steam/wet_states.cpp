#include <algorithm>
#include <cmath>

#include "steam/quantity.hpp"
#include "steam/root.hpp"
#include "steam/wet_search.hpp"

namespace steam {
namespace {

// At a fixed quality volume and entropy may turn twice along the saturation line. The sides of the
// table's cells tell which cells may hold a solution; only there the equations are asked. The
// variable is r = √(374.15 °C - t), in which saturated states are smooth up to the critical point.

const double r_lowest = std::sqrt(t_critical - t_lowest);

double side(int i) { return i / saturated_table.scale; }

double temperature_at(double r) { return t_critical - r * r; }

/// Value and slope of the mixed quantity, less the wanted value.
struct Target {
  Quantity q;
  double value, x;

  [[nodiscard]] double at_node(int i) const {
    const SaturatedNode& node = saturated_nodes[static_cast<std::size_t>(i)];
    return (q == Quantity::s ? node.s1 + x * (node.s2 - node.s1)
                             : node.v1 + x * (node.v2 - node.v1)) -
           value;
  }
  [[nodiscard]] Slope rough(double t) const {
    const RoughSaturation saturation(t);
    const SlopedEnds ends =
        q == Quantity::s ? saturation.ends<Quantity::s>() : saturation.ends<Quantity::v>();
    return {ends.value.mixed(x) - value, ends.over_t.mixed(x)};
  }
  template <class Saturation>
  [[nodiscard]] double exact(double t) const {
    const Saturation saturation(t, saturation_pressure(t));
    return (q == Quantity::s ? saturation.template ends<Quantity::s>()
                             : saturation.template ends<Quantity::v>())
               .mixed(x) -
           value;
  }
  /// The equations' slope too.
  template <class Saturation>
  [[nodiscard]] Slope sloped(double t) const {
    const SaturationPressure line = sloped_saturation_pressure(t);
    const Saturation saturation(t, line.p);
    const SlopedEnds ends = q == Quantity::s
                                ? saturation.template sloped_ends<Quantity::s>(line.over_t)
                                : saturation.template sloped_ends<Quantity::v>(line.over_t);
    return {ends.value.mixed(x) - value, ends.over_t.mixed(x)};
  }
};

/// Cells at whose sides differences say little: next to the critical point, where the quantity may
/// turn twice in one, and beside 350 °C, where it jumps.
constexpr bool is_at_350(int i) {
  return i == saturated_cells_above_350 - 1 || i == saturated_cells_above_350;
}
constexpr bool is_special(int i) { return i < 2 || is_at_350(i); }

class Scan {
 public:
  Scan(Target target, int most, WetStates& states)
      : target_(target), most_(most), states_(states) {}

  void run() {
    double f_before = target_.at_node(0);
    double f_left = f_before;
    double f_right = target_.at_node(1);
    for (int i = 0; i < saturated_table.cells && states_.count < most_; ++i) {
      const double f_after = target_.at_node(std::min(i + 2, saturated_table.cells));
      // Beside an extremum the value may lie a little beyond the sides.
      const double rise = f_right - f_left;
      const double smaller = std::min(std::abs(f_left), std::abs(f_right));
      const double reach =
          std::abs(f_left - f_before) + std::abs(rise) + std::abs(f_after - f_right);
      const bool turns = is_special(i) || (f_left - f_before) * rise <= 0 ||
                         (f_after - f_right) * rise <= 0 || (smaller <= reach && slopes_differ(i));
      if (f_left * f_right <= 0 || smaller <= node_error() ||
          (turns && smaller <= reach + (is_at_350(i) ? misfit() : 0))) {
        i < saturated_cells_above_350 ? cell<HighSaturation>(i, turns)
                                      : cell<LowSaturation>(i, turns);
      }
      f_before = f_left;
      f_left = f_right;
      f_right = f_after;
    }
    if (states_.count == 0) {
      close_gap();
    }
  }

 private:
  [[nodiscard]] double node_error() const { return 1e-9 * (std::abs(target_.value) + 1e-3); }

  /// Whether the quantity rises at one side of a cell and falls at the other.
  [[nodiscard]] bool slopes_differ(int i) const {
    constexpr double inside = 1e-3;
    const auto slope = [this](double place) {
      const double r = place / saturated_table.scale;
      return target_.rough(temperature_at(r)).derivative;
    };
    return slope(i + inside) * slope(i + 1 - inside) < 0;
  }

  template <class Saturation>
  void cell(int i, bool turns) {
    const bool low = i >= saturated_cells_above_350;
    const double t_high = low && i == saturated_cells_above_350 ? t_350 : temperature_at(side(i));
    const double t_low = std::max(temperature_at(std::min(side(i + 1), r_lowest)), t_lowest);
    if (turns || !approach<Saturation>(t_low, t_high)) {
      const auto f = [&](double t) { return target_.sloped<Saturation>(t); };
      solve(f, t_low, t_high);
    }
  }

  /// From the table's root with the table's slope.
  template <class Saturation>
  bool approach(double t_low, double t_high) {
    const auto rough = [&](double t) { return target_.rough(t); };
    const double f_high = rough(t_high).value;
    if (!(f_high * rough(t_low).value < 0)) {
      return false;
    }
    double t = bracketed_root(rough, t_high, t_low, f_high, 1e-7);
    const double slope = rough(t).derivative;
    constexpr int most_steps = 6;
    for (int n = 0; n < most_steps; ++n) {
      const double step = -target_.exact<Saturation>(t) / slope;
      t += step;
      if (!(t >= t_low && t <= t_high)) {
        return false;
      }
      constexpr double small_step = 2e-9;
      if (std::abs(step) <= small_step) {
        add(t);
        return true;
      }
    }
    return false;
  }

  /// All solutions in a cell, by the equations and brackets.
  template <class F>
  void solve(const F& f, double t_low, double t_high) {
    for (const double end : {t_high, t_low}) {
      if (std::abs(f(end).value) <= rounding()) {
        add(end);
      }
    }
    constexpr int parts = 5;
    all_roots(
        f, t_high, t_low, [this](double t) { add(t); }, parts);
  }

  /// By how much the subregions may miss each other at 350 °C.
  [[nodiscard]] double misfit() const {
    return target_.q == Quantity::s ? 1e-3 : 2e-3 * target_.value;
  }

  [[nodiscard]] double rounding() const {
    return target_.q == Quantity::s ? 1e-12 : 1e-14 * target_.value;
  }

  /// A value that neither side of 350 °C reaches: the states there miss each other slightly.
  void close_gap() {
    if (std::abs(target_.at_node(saturated_cells_above_350)) < misfit()) {
      add(t_350);
      states_.sites[0].approximate = states_.count > 0;
    }
  }

  /// Where the two saturated volumes merge the sum jumps, and a bracket may close on the jump.
  [[nodiscard]] bool is_jump(double t) const {
    constexpr double t_merging = t_critical - 2e-3;
    constexpr double miss = 1e-9;
    return t > t_merging &&
           std::abs(target_.exact<HighSaturation>(t)) > miss * std::abs(target_.value);
  }

  void add(double t) {
    const Site site{.region = t <= t_350 ? Region::wet : Region::wet_above_350,
                    .p = saturation_pressure(t),
                    .t = t,
                    .x = target_.x,
                    .approximate = is_jump(t)};
    if (states_.count > 0) {
      Site& last = states_.sites[states_.count - 1];
      constexpr double overlap = 0.5, same = 1e-7;
      const bool both_sides = last.t > t_350 && t <= t_350 && last.t - t < overlap;
      if (both_sides || std::abs(last.t - t) < same) {
        last = site;
        return;
      }
    }
    if (states_.count < WetStates::capacity) {
      states_.sites[states_.count++] = site;
    }
  }

  Target target_;
  int most_;
  WetStates& states_;
};

}  // namespace

WetStates wet_states(Quantity q, double value, double x, int most) {
  WetStates states;
  Scan({q, value, x}, most, states).run();
  return states;
}

}  // namespace steam
