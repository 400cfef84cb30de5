#include <algorithm>
#include <cmath>

#include "steam/quantity.hpp"
#include "steam/root.hpp"
#include "steam/wet_search.hpp"

namespace steam {
namespace {

// The search runs over r = √(374.15 °C - t), in which saturated states are smooth up to the
// critical point. Intervals of the tables that may hold a root are told by the tables alone; the
// equations are asked only there.

constexpr double r_350 = 4.914264950122243;      // √24.15
constexpr double r_lowest = 19.342698880973153;  // √374.14

double temperature_at(double r) { return t_critical - r * r; }

/// The mixed quantity from the tables, in the scale of its equation.
double rough(Quantity q, double x, double r) {
  if (q == Quantity::s) {
    return (1 - x) * saturated_s1(r) + x * saturated_s2(r);
  }
  return (1 - x) * saturated_v1(r) + x / saturated_density2(r);
}

/// Excess of the mixed quantity over the value, and its derivative over r.
struct Excess {
  Quantity q;
  double value, x;
  bool above_350;
  Slope operator()(double r) const {
    const double t = temperature_at(r);
    const SaturationPressure line = sloped_saturation_pressure(t);
    const SlopedEnds ends = with_quantity(q, [&]<Quantity Q>() {
      if constexpr (Q == Quantity::v || Q == Quantity::s) {
        return above_350 ? HighSaturation(t, line.p).sloped_ends<Q>(line.over_t)
                         : LowSaturation(t, line.p).sloped_ends<Q>(line.over_t);
      } else {
        return SlopedEnds{};
      }
    });
    return {ends.value.mixed(x) - value, -2 * r * ends.over_t.mixed(x)};
  }
};

/// Steps of the scan: the tables' own cells, about 12 K wide at 0 °C and less above.
constexpr int steps_above = 24, steps_below = 71;

class Scan {
 public:
  Scan(Quantity q, double value, double x, int most, WetStates& states)
      : q_(q), value_(value), x_(x), most_(most), states_(states) {}

  void run() {
    part(0.02, r_350, steps_above, true);
    if (states_.count < most_) {
      part(r_350, r_lowest, steps_below, false);
    }
  }

 private:
  /// Widest error of the tables, with room.
  [[nodiscard]] double doubt() const { return q_ == Quantity::s ? 1e-4 : 2e-4 * value_; }

  void part(double from, double to, int steps, bool above_350) {
    const double width = (to - from) / steps;
    double left = from;
    double f_left = rough(q_, x_, left) - value_;
    double f_before = f_left;
    for (int i = 1; i <= steps && states_.count < most_; ++i) {
      const double right = i == steps ? to : from + i * width;
      const double f_right = rough(q_, x_, right) - value_;
      const double f_after = i == steps ? f_right : rough(q_, x_, right + width) - value_;
      // An extremum in or beside the interval may touch the value without a change of sign.
      const bool turns = (f_left - f_before) * (f_right - f_left) <= 0 ||
                         (f_right - f_left) * (f_after - f_right) <= 0;
      const double reach = doubt() + (turns ? 2 * std::abs(f_right - f_left) : 0);
      if (f_left * f_right <= 0 || std::min(std::abs(f_left), std::abs(f_right)) <= reach) {
        solve(left, right, above_350);
      }
      left = right;
      f_before = f_left;
      f_left = f_right;
    }
  }

  void solve(double left, double right, bool above_350) {
    const Excess f{q_, value_, x_, above_350};
    const Slope at_left = f(left);
    const Slope at_right = f(right);
    if (at_left.value == 0) {
      add(left, above_350);
    }
    if (at_left.value * at_right.value < 0) {
      add(bracketed_root(f, left, right, at_left.value), above_350);
    } else if (at_left.derivative * at_right.derivative < 0 && at_left.value != 0 &&
               at_right.value != 0) {
      const auto derivative = [&f](double r) { return Slope{f(r).derivative, 0}; };
      const double top = bracketed_root(derivative, left, right, at_left.derivative);
      const double f_top = f(top).value;
      if (f_top * at_left.value < 0) {
        add(bracketed_root(f, left, top, at_left.value), above_350);
        add(bracketed_root(f, top, right, f_top), above_350);
      }
    } else if (at_right.value == 0 && right == r_lowest) {
      add(right, above_350);
    }
  }

  void add(double r, bool above_350) {
    if (states_.count == WetStates::capacity) {
      return;
    }
    double t = std::max(temperature_at(r), t_lowest);
    t = above_350 ? t : std::min(t, t_350);
    states_.sites[states_.count++] = {
        .region = above_350 && t > t_350 ? Region::wet_above_350 : Region::wet,
        .p = saturation_pressure(t),
        .t = t,
        .x = x_};
  }

  Quantity q_;
  double value_, x_;
  int most_;
  WetStates& states_;
};

}  // namespace

WetStates wet_states(Quantity q, double value, double x, int most) {
  WetStates states;
  Scan(q, value, x, most, states).run();
  return states;
}

}  // namespace steam
