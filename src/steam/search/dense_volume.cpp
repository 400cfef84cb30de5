#include "steam/search/dense_volume.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "steam/search/root.hpp"
#include "steam/tables/charts.hpp"

namespace steam {
namespace {

struct Bracket {
  double low, high;
};

/// Volumes of subregion 3 with some room on both sides.
constexpr Bracket whole{0.00125, 0.0105};
/// Amid the loop that the isotherms next to the critical one have.
constexpr double v_between = 0.0031707;
/// From here up to `t_single` the table cannot tell the two phases apart by their volumes.
constexpr double t_merging = 374.1485, t_single = 374.2;
/// By which share a bracket goes beyond the table's saturated volume, which is good to 2e-7 up to
/// `t_merging`, measured at 1e5 states.
constexpr double bracket_room = 1.5e-3;

/// The volume of the highest pressure that the vapour of such an isotherm has.
double summit(const Isotherm& isotherm) {
  constexpr Bracket summits{0.003182, 0.003191};
  const auto slope = [&](double v) {
    return Slope{formulation::pressure(isotherm, v).over_v,
                 std::numeric_limits<double>::quiet_NaN()};
  };
  return root(slope, summits.low, summits.high, HUGE_VAL, false, {.step = 1e-9, .noise = 0}).x;
}

/// Where the volume of a phase is.
Bracket bracket_of(Region branch, const Isotherm& isotherm, double p, double t) {
  if (t > t_single) {
    return whole;
  }
  if (t >= t_jump) {  // one volume for each pressure
    return formulation::pressure(isotherm, v_between).p <= p ? Bracket{whole.low, v_between}
                                                             : Bracket{v_between, whole.high};
  }
  const bool liquid = branch == Region::hot_water;
  if (t > t_merging) {
    return liquid ? Bracket{whole.low, v_between} : Bracket{summit(isotherm), whole.high};
  }
  const SaturatedVolumes saturated = rough_saturated_volumes(t);
  return liquid ? Bracket{whole.low, std::min(saturated.liquid * (1 + bracket_room), v_critical)}
                : Bracket{saturated.vapour * (1 - bracket_room), whole.high};
}

double volume_in(Bracket bracket, const Isotherm& isotherm, double p, double start) {
  const auto excess = [&](double v) {
    const auto [p_here, slope] = formulation::pressure(isotherm, v);
    return Slope{p_here - p, slope};
  };
  constexpr Enough enough{.step = 1e-10, .noise = 0};
  return root(excess, bracket.low, bracket.high, start, false, enough).x;
}

/// Saturated volumes next to the critical point, where the table hardly knows them and a wide
/// bracket costs steps: above `t_merging`, and where both phases have the same one.
constexpr Bracket merging{0.0031, 0.0033}, merged{0.003145, 0.003176};

double saturated_in(Region branch, const Isotherm& isotherm, double p, double t, double start) {
  Bracket bracket = bracket_of(branch, isotherm, p, t);
  if (t > t_merging) {
    const Bracket& near_critical = t < t_jump ? merging : merged;
    bracket = {std::max(bracket.low, near_critical.low),
               std::min(bracket.high, near_critical.high)};
  }
  return volume_in(bracket, isotherm, p, start);
}

}  // namespace

double dense_volume(Region branch, double p, double t) {
  double start = v_critical;
  const Place here = place(charts[static_cast<std::size_t>(Pair::pt)], p, t);
  for (const Patch& patch : here.patches) {
    if (patch.region == branch) {
      start = 1 / here(patch, 0);
    }
  }
  const auto isotherm = formulation::isotherm3<SharedDivisions<>>(t);
  return volume_in(bracket_of(branch, isotherm, p, t), isotherm, p, start);
}

double saturated_volume(bool is_vapour, double t, double p_saturation) {
  const SaturatedVolumes start = rough_saturated_volumes(t);
  const Isotherm isotherm = formulation::isotherm3<SharedDivisions<>>(t);
  return is_vapour && t < t_jump
             ? saturated_in(Region::dense_steam, isotherm, p_saturation, t, start.vapour)
             : saturated_in(Region::hot_water, isotherm, p_saturation, t, start.liquid);
}

SaturatedVolumes saturated_volumes(double t, double p_saturation) {
  const SaturatedVolumes start = rough_saturated_volumes(t);
  const Isotherm isotherm = formulation::isotherm3<SharedDivisions<>>(t);
  const double liquid = saturated_in(Region::hot_water, isotherm, p_saturation, t, start.liquid);
  const double vapour =
      t < t_jump ? saturated_in(Region::dense_steam, isotherm, p_saturation, t, start.vapour)
                 : liquid;
  return {liquid, std::max(liquid, vapour)};
}

}  // namespace steam
