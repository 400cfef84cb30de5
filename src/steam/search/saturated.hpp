#pragma once

#include "steam/equations/slopes.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/tables/tabulated_saturation.hpp"

namespace steam {

/// The saturated states of one temperature, to 350 °C.
template <class Num>
class LowSaturationOf {
 public:
  LowSaturationOf(Num t, Num p)
      : p_(p), t_(t), water_(Water::terms(p, t)), steam_(Steam::terms(p, t)) {}
  template <Quantity Q>
  [[nodiscard]] EndsOf<Num> ends() const {
    return {value_of<Water, Q>(water_, p_, t_), value_of<Steam, Q>(steam_, p_, t_)};
  }
  /// @param p_over_t  slope of the saturation line, bar/K
  template <Quantity Q>
  [[nodiscard]] SlopedEndsOf<Num> sloped_ends(Num p_over_t) const {
    const SlopedOf<Num> l = sloped<Water, Q>(water_, p_, t_);
    const SlopedOf<Num> v = sloped<Steam, Q>(steam_, p_, t_);
    return {{l.value, v.value}, {l.over_1 * p_over_t + l.over_t, v.over_1 * p_over_t + v.over_t}};
  }

 private:
  Num p_, t_;
  Terms1Of<Num> water_;
  Terms2Of<Num> steam_;
};
using LowSaturation = LowSaturationOf<double>;

/// The same above 350 °C, on the equation of subregion 3.
class HighSaturation {
 public:
  HighSaturation(double t, double p) : HighSaturation(t, saturated_volumes(t, p)) {}
  /// Of a quality that is 0 or 1 that phase alone, which stands for both.
  HighSaturation(double t, double p, double x)
      : HighSaturation(t, x == 0 || x == 1 ? alone(saturated_volume(x == 1, t, p))
                                           : saturated_volumes(t, p)) {}
  template <Quantity Q>
  [[nodiscard]] Ends ends() const {
    return {value_of<Dense, Q>(liquid_, volumes_.liquid, t_),
            value_of<Dense, Q>(vapour_, volumes_.vapour, t_)};
  }
  template <Quantity Q>
  [[nodiscard]] SlopedEnds sloped_ends(double p_over_t) const {
    const Sloped l = sloped<Dense, Q>(liquid_, volumes_.liquid, t_);
    const Sloped v = sloped<Dense, Q>(vapour_, volumes_.vapour, t_);
    return {{l.value, v.value},
            {l.over_1 * v_over_t(liquid_, p_over_t) + l.over_t,
             v.over_1 * v_over_t(vapour_, p_over_t) + v.over_t}};
  }

 private:
  HighSaturation(double t, SaturatedVolumes volumes)
      : t_(t),
        volumes_(volumes),
        liquid_(Dense::terms(volumes.liquid, t)),
        vapour_(volumes.vapour == volumes.liquid ? liquid_ : Dense::terms(volumes.vapour, t)) {}
  static SaturatedVolumes alone(double v) { return {v, v}; }
  static double v_over_t(const Terms3& s, double p_over_t) {
    return (p_over_t - pressure3_over_t(s)) / pressure3_over_v(s);
  }
  double t_;
  SaturatedVolumes volumes_;
  Terms3 liquid_, vapour_;
};

/// A quantity of the saturated states at t, any quantity but p, t and x.
Ends saturated_ends(Quantity q, double t, double p);

/// Two quantities with the slopes along the saturation line, any but x.
std::array<SlopedEnds, 2> sloped_saturated_ends(Quantity first, Quantity second, double t,
                                                const SaturationPressure& line);

/// A wet site whose quality was left to follow from its quantity, with the quality.
Site with_quality(Site site);

}  // namespace steam
