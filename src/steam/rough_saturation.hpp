#pragma once

#include "steam/saturation_line.hpp"

namespace steam {

/// A property of saturated liquid and saturated vapour.
struct Ends {
  double liquid, vapour;
  [[nodiscard]] double mixed(double x) const { return liquid + x * (vapour - liquid); }
  /// Not a number where the two are one and the value is another.
  [[nodiscard]] double quality(double value) const {
    return value == liquid ? 0 : (value - liquid) / (vapour - liquid);
  }
};

struct SlopedEnds {
  Ends value, over_t;  // the slope follows the saturation line
};

/// Saturated states from the table, to about 1e-5: for first steps, plain decisions, and slopes.
class RoughSaturation {
 public:
  explicit RoughSaturation(double t) : t_(t) {
    const double r = std::sqrt(std::max(t_critical - t, least));
    const double i = r * saturated_table.scale;
    cell_ = std::min(static_cast<int>(i), saturated_table.cells - 1);
    z_ = 2 * (i - cell_) - 1;
    over_t_ = -saturated_table.scale / r;  // ∂z/∂t
  }

  template <Quantity Q>
  [[nodiscard]] SlopedEnds ends() const {
    if constexpr (Q == Quantity::v) {
      const Cubic v1 = cubic(0);
      const Cubic density2 = cubic(1);
      const double v2 = 1 / density2.value;
      return {{v1.value, v2}, {v1.over_t, -density2.over_t * v2 * v2}};
    } else if constexpr (Q == Quantity::h) {
      return pair(cubic(2), cubic(3));
    } else if constexpr (Q == Quantity::s) {
      return pair(cubic(4), cubic(5));
    } else {
      const SlopedEnds h = ends<Quantity::h>();
      const SlopedEnds v = ends<Quantity::v>();
      const auto [p, p_over_t] = pressure();
      const auto u = [p = p](double h_end, double v_end) { return h_end - 100 * p * v_end; };
      return {{u(h.value.liquid, v.value.liquid), u(h.value.vapour, v.value.vapour)},
              {u(h.over_t.liquid, v.over_t.liquid) - 100 * p_over_t * v.value.liquid,
               u(h.over_t.vapour, v.over_t.vapour) - 100 * p_over_t * v.value.vapour}};
    }
  }

 private:
  static constexpr double least = 1e-6;
  struct Cubic {
    double value, over_t;
  };
  [[nodiscard]] Cubic cubic(std::size_t n) const {
    const auto& c = saturated_table.coefficients[cell_][n];
    return {((c[3] * z_ + c[2]) * z_ + c[1]) * z_ + c[0],
            ((3 * c[3] * z_ + 2 * c[2]) * z_ + c[1]) * over_t_};
  }
  static SlopedEnds pair(Cubic liquid, Cubic vapour) {
    return {{liquid.value, vapour.value}, {liquid.over_t, vapour.over_t}};
  }
  [[nodiscard]] SaturationPressure pressure() const {
    constexpr double step = 0.5;
    const auto p = [](double t) {
      const double root = saturation_root_p(t);
      return root * root * (root * root);
    };
    return {p(t_), (p(t_ + step) - p(t_ - step)) / (2 * step)};
  }

  double t_, z_, over_t_;
  int cell_;
};

}  // namespace steam
