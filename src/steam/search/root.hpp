#pragma once

#include <cmath>

namespace steam {

/// Value of a function of one variable and its derivative.
struct Slope {
  double value, derivative;
};

/// When an iteration ends.
struct Enough {
  /// After a step of this size, as a part of the variable, the next is below the rounding.
  double step = 3e-16;
  /// A value no larger than this is the rounding of the function.
  double noise = 0;
};

/// Two steps in a row of so many times the last one are the rounding of the function.
constexpr double rounding_steps = 20;
/// Where the bracket cannot get smaller than its relative size, at a root at zero, the end.
constexpr int most_evaluations = 240;

struct Root {
  double x;
  int evaluations;
  bool found;  ///< false: the function does not change its sign in the bracket
};

/// Where a root is.
struct RootBracket {
  double low, high;
  RootBracket(double a, double b) : low(a < b ? a : b), high(a < b ? b : a) {}
  [[nodiscard]] double middle() const { return (low + high) / 2; }
  [[nodiscard]] bool has(double x) const { return x >= low && x <= high; }
  void narrow(double x, bool root_is_above) { (root_is_above ? low : high) = x; }
  [[nodiscard]] double nearest(double x) const { return x < low ? low : x > high ? high : x; }
  /// The point to go on with: the proposed one, unless it leaves the bracket or converges slowly.
  [[nodiscard]] double next(double proposed, double x, double last_step) const {
    const bool good =
        proposed > low && proposed < high && !(std::abs(proposed - x) > 0.5 * last_step);
    return good ? proposed : middle();
  }
};

/// Where the next step leads: along the slope, or where none is known along the secant through the
/// point before.
class Tangent {
 public:
  [[nodiscard]] double crossing(double x, Slope y) const {
    const double secant = (y.value - last_value_) / (x - last_x_);
    return x - y.value / (std::isnan(y.derivative) ? secant : y.derivative);
  }
  /// Whether a step of the wanted size is the last. A secant's is only from one as small as that
  /// leaves its square.
  [[nodiscard]] bool is_last(double x, Slope y, double share) const {
    return !std::isnan(y.derivative) || std::abs(x - last_x_) <= std::sqrt(share) * std::abs(x);
  }
  void move(double x, Slope y) {
    last_x_ = x;
    last_value_ = y.value;
  }

 private:
  double last_x_ = HUGE_VAL, last_value_ = 0;
};

/// Whether the step to `next` ends the iteration: it is as small as is wanted, or the second in a
/// row that is rounding.
inline bool is_last_step(const Tangent& tangent, double x, Slope y, double next, double last_step,
                         Enough enough) {
  const double share = std::abs((next - x) / x);
  const double rounding = rounding_steps * enough.step;
  return (share <= enough.step && tangent.is_last(x, y, enough.step)) ||
         (share <= rounding && last_step <= rounding * std::abs(x));
}

/// The engine's only iteration within a bracket: Newton steps from a start, halvings of the bracket
/// where a step leaves it or is not much shorter than the one before. A few iterations have none:
/// those of the quick search, of wet states and of the saturation line begin at a table's value,
/// which one or two plain steps bring to the rounding. A bracket would cost them evaluations at its
/// ends, and a pair for which they do not end soon is left to a search that comes here.
/// @param f      gives a Slope; where its derivative is not a number secants take its place
/// @param a, b   bracket, in either order; f need not be known at its ends
/// @param start  where to begin; the middle if it is outside the bracket
/// @param rises  whether f rises from the lower end of the bracket to the upper one
/// @note         at most 12 evaluations, and three for each halving of the bracket
template <class F>
[[nodiscard]] Root root(F&& f, double a, double b, double start, bool rises, Enough enough = {}) {
  const RootBracket whole(a, b);
  RootBracket bracket = whole;
  Tangent tangent;
  double x = whole.has(start) ? start : whole.middle();
  double last_step = whole.high - whole.low;
  int allowed = 12;
  for (int n = 1; n <= most_evaluations; ++n) {
    const Slope y = f(x);
    if (std::abs(y.value) <= enough.noise) {
      return {x, n, true};
    }
    bracket.narrow(x, (y.value < 0) == rises);
    const double newton = tangent.crossing(x, y);
    if (is_last_step(tangent, x, y, newton, last_step, enough)) {
      return {whole.nearest(newton), n, true};
    }
    tangent.move(x, y);
    const double next = n < allowed ? bracket.next(newton, x, last_step) : bracket.middle();
    allowed += next == newton ? 0 : 3;
    last_step = std::abs(next - x);
    x = next;
    if (last_step <= enough.step * std::abs(x)) {
      return {x, n, bracket.low != whole.low || bracket.high != whole.high};
    }
  }
  return {x, most_evaluations, false};
}

}  // namespace steam
