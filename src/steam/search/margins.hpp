#pragma once

#include <cmath>

#include "steam/equations/domain.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/search/solutions.hpp"
#include "steam/tables/saturation_line.hpp"
#include "steam/tables/tabulated_saturation.hpp"

namespace steam {

// How far inside its subregion a state must be for the quick search to be sure of it. Beside a
// boundary another state may have the pair, since the equations of neighbouring subregions do not
// quite meet; the neighbour is then asked too.

/// How far on the other side of a boundary a state of the same pair may be: at 350 °C, K; at the
/// boundary line, as a share of the pressure; beside saturated liquid, in quality. And the share of
/// the saturation pressure at 350 °C above it up to which three subregions may have a pair there.
struct Overlap {
  double kelvins, share, quality, corner;
};

/// With two values that are neither p nor t, whose lines run nearly along each other, overlaps are
/// wider, above all with u and s. No isotherm crosses 350 °C.
constexpr Overlap overlap_of(Pair pair) {
  switch (pair) {
    case Pair::pt:
      return {0, 0, 0, 0};
    case Pair::us:
      return {2.5, 0.012, 3e-4, 0.15};
    case Pair::hs:
      return {1, 0.008, 3e-4, 0.05};
    case Pair::pv:
      return {0.5, 1.5e-3, 0, 0.02};
    default:
      return {known_of(pair).first == Quantity::p   ? 0.2
              : known_of(pair).first == Quantity::t ? 0
                                                    : 0.5,
              1.5e-3, 0, 0.02};
  }
}

/// Certainty of a state that lies inside its subregion: that it counts before all others, and that
/// there is no other, both but for those of the neighbour across a boundary, if that is near.
struct Sure {
  bool first = false, only = false;
  Region across = Region::none;
};

namespace margins {

using numbers::all, numbers::any;

/// Measured at 1e5 to 1e6 states, the tables know saturation pressures to 6e-6; saturated volumes
/// of subregion 3 to 2e-12 but for the last 0.3 K, where they are not asked; the quality of a wet
/// state there to 8e-12; up to 350 °C to 2e-9 by v, to 1e-13 by h, s or u.
constexpr double saturation_doubt = 1e-4, volume_doubt = 1e-6, quality_doubt = 1e-8;
constexpr double t_doubtful = t_critical - 0.3;
/// Rounding of a computed pressure or temperature.
constexpr double p_doubt = 1e-8, t_doubt = 1e-6;

template <class Num>
MaskOf<Num> is_in_range(Num p, Num t) {
  return (p > p_lowest * (1 + p_doubt)) & (p < p_highest * (1 - p_doubt)) &
         (t > t_lowest + t_doubt) & (t < t_highest - t_doubt);
}

/// Where a state of one phase is by its equation: surely inside the subregion, and so far inside
/// that no boundary matters.
template <class Num>
struct Depth {
  MaskOf<Num> inside, alone;
};

/// @param p, t  a given value may be just a limit
template <class Num>
Depth<Num> depth_of_water(Num p, Num t, Overlap overlap) {
  constexpr double beside_liquid = 1e-2;
  const Num p_saturated = tabulated_saturation_pressure(t);
  const double beside = overlap.quality == 0 ? saturation_doubt : beside_liquid;
  const MaskOf<Num> inside = (t < t_350 - t_doubt) & (p > p_saturated * (1 + saturation_doubt));
  const MaskOf<Num> alone = (t < t_350 - overlap.kelvins) & (p > p_saturated * (1 + beside));
  return {inside, MaskOf<Num>(inside & alone)};
}

template <class Num>
Depth<Num> depth_of_steam(Num p, Num t, Overlap overlap) {
  Depth<Num> depth;
  depth.inside = depth.alone = t > t_line_end + t_doubt;
  if (all(depth.inside)) {
    return depth;
  }
  const auto cool = t <= t_350;
  if (any(cool)) {
    const MaskOf<Num> unsaturated =
        cool & (p < tabulated_saturation_pressure(t) * (1 - saturation_doubt));
    depth.inside |= unsaturated;
    depth.alone |= unsaturated;
  }
  const MaskOf<Num> warm = (!cool) & (t < t_line_end);
  if (any(warm)) {
    const Num p_line = line_pressure<SharedDivisions<Num>>(t);
    const MaskOf<Num> below = warm & (p < p_line * (1 - p_doubt));
    depth.inside |= below;
    depth.alone |= below & (p < p_line * (1 - overlap.share));
  }
  return depth;
}

/// Whether a state of subregion 3 is surely outside the wet states.
template <class Num>
MaskOf<Num> is_unsaturated(Num v, Num t) {
  const auto beyond = t > t_critical + t_doubt;
  if (all(beyond)) {
    return beyond;
  }
  const SaturatedVolumesOf<Num> saturated =
      rough_saturated_volumes(numbers::smaller(t, Num(t_doubtful)));
  const auto liquid = v < v_critical;
  return beyond | (liquid & (v < saturated.liquid * (1 - volume_doubt))) |
         ((!liquid) & (v > saturated.vapour * (1 + volume_doubt)));
}

/// Subregion 3 is densest at 1000 bar and 350 °C, 0.00131472 m³/kg: its equation has the pressures
/// of the range once more at smaller volumes, where there are no states.
constexpr double v_densest = 0.0013147;

template <class Num>
Depth<Num> depth_of_dense(Num p, Num v, Num t, Overlap overlap) {
  const Num p_line = line_pressure<SharedDivisions<Num>>(t);
  const MaskOf<Num> inside = (t > t_350 + (overlap.kelvins > 0 ? t_doubt : 0)) &
                             (t < t_line_end - t_doubt) & (p > p_line * (1 + p_doubt)) &
                             (v > v_densest) & is_unsaturated(v, t);
  const MaskOf<Num> alone = (t >= t_350 + overlap.kelvins) & (p >= p_line * (1 + overlap.share));
  return {inside, MaskOf<Num>(inside & alone)};
}

/// Of a state in the subregion of an equation.
template <class Equation, class Num>
[[gnu::always_inline]] inline Depth<Num> depth_of(Region region, Num p, Num v, Num t,
                                                  Overlap overlap) {
  Depth<Num> depth;
  if constexpr (!Equation::by_pressure) {
    depth = depth_of_dense(p, v, t, overlap);
  } else {
    depth = region == Region::water ? depth_of_water(p, t, overlap) : depth_of_steam(p, t, overlap);
  }
  const MaskOf<Num> in_range = is_in_range(p, t);
  depth.inside &= in_range;
  depth.alone &= in_range;
  return depth;
}

/// Beside a boundary: sure but for the neighbour.
constexpr Sure but_for(Region neighbour) { return {true, true, neighbour}; }
constexpr Sure all_sure{true, true}, only_first{true, false}, unsure{};

/// Beside the end of the saturation line at 350 °C more than two subregions may have a pair.
inline bool is_at_corner(double p, Overlap overlap) { return p < p_350 * (1 + overlap.corner); }

/// Of states inside their subregions, but beside a boundary.
inline Sure beside_water(const Site& site, Overlap overlap) {
  const bool at_350 = site.t >= t_350 - overlap.kelvins;
  return at_350 && !is_at_corner(site.p, overlap) ? but_for(Region::hot_water) : only_first;
}
inline Sure beside_steam(const Site& site, Overlap overlap) {
  return site.t < t_350 + overlap.kelvins ? only_first : but_for(Region::dense_steam);
}
inline Sure beside_dense(const Site& site, Overlap overlap) {
  if (site.t >= t_350 + overlap.kelvins) {
    return but_for(Region::steam);
  }
  return is_at_corner(site.p, overlap) ? unsure : but_for(Region::water);
}

/// The certainty of a state of one phase by its equation.
template <class Equation>
Sure of(const Site& site, Overlap overlap) {
  const auto [inside, alone] = depth_of<Equation>(site.region, site.p, site.v, site.t, overlap);
  if (alone || !inside) {
    return alone ? all_sure : unsure;
  }
  if constexpr (!Equation::by_pressure) {
    return beside_dense(site, overlap);
  } else {
    return site.region == Region::water ? beside_water(site, overlap) : beside_steam(site, overlap);
  }
}

/// Qualities that no state of one phase can look like, whatever the equations miss each other by.
template <class Num>
MaskOf<Num> is_amid(Num x) {
  constexpr double beside = 0.03;
  return (x > beside) & (x < 1 - beside);
}

/// Inside the wet states, whatever is beyond 350 °C.
/// @param x  the quality, as good as the table
template <class Num>
MaskOf<Num> is_wet_inside(Num t, Num x, Overlap overlap) {
  // Where the saturation line misses Clapeyron's equation by more than a pressure of water tells.
  constexpr double t_cold = 40;
  // So close to the critical point the two phases are told apart amid them only.
  constexpr double t_merging = t_critical - 0.02;
  const Num least =
      numbers::select(t < t_cold, Num(overlap.quality + quality_doubt), Num(quality_doubt));
  const MaskOf<Num> inside = (x > least) & (x < 1 - quality_doubt);
  const MaskOf<Num> clear = t < t_doubtful;
  return (t > t_lowest + t_doubt) & ((clear & inside) | ((!clear) & (t < t_merging) & is_amid(x)));
}

/// Of a state up to 350 °C of two values that are neither pressure nor temperature, whether no
/// other can count before it.
template <class Num>
MaskOf<Num> is_clear_wet(Num t, Num x, Overlap overlap) {
  return is_wet_inside(t, x, overlap) & (t < t_350 - overlap.kelvins);
}

/// A wet state of two values that are neither pressure nor temperature.
inline Sure of_wet(double t, double x, Overlap overlap) {
  if (!is_wet_inside(t, x, overlap)) {
    return unsure;
  }
  const double past_350 = t - t_350;
  if (std::abs(past_350) > overlap.kelvins) {
    return all_sure;
  }
  if (is_amid(x) && std::abs(past_350) > t_doubt) {
    return but_for(past_350 < 0 ? Region::wet_above_350 : Region::wet);
  }
  return past_350 < -t_doubt ? only_first : unsure;
}

/// Whether one of a pressure or a temperature surely is: its line does not cross 350 °C amid wet
/// states.
template <class Num>
MaskOf<Num> is_wet_on_line(Num t, Num x, Overlap overlap) {
  const MaskOf<Num> beside_350 =
      (numbers::abs(t - t_350) < t_doubt) | ((t > t_350) & (t < t_350 + overlap.kelvins));
  return is_wet_inside(t, x, overlap) & ((!beside_350) | is_amid(x));
}

/// Whether a neighbour has a state of a pair.
enum class Presence : std::uint8_t { absent, present, doubtful };

/// By what the neighbour's equation has, within its subregion or not.
/// @param inside  whether that surely is inside the neighbour
inline Presence presence(Region neighbour, const Site& site, bool inside) {
  if (inside) {
    return Presence::present;
  }
  const double past_line =
      (site.p / line_pressure(site.t) - 1) * (neighbour == Region::steam ? 1 : -1);
  const double past_350 = (site.t - t_350) * (rank(neighbour) < rank(Region::hot_water) ? 1 : -1);
  // Farther beyond 350 °C the equation of subregion 3 has states of its own making.
  constexpr double farthest = 0.25;  // K
  const bool at_line = neighbour == Region::steam || neighbour == Region::dense_steam;
  const bool absent =
      at_line ? site.t < t_line_end && past_line > p_doubt
              : past_350 > t_doubt && (neighbour == Region::water || past_350 < farthest);
  return absent ? Presence::absent : Presence::doubtful;
}

}  // namespace margins

}  // namespace steam
