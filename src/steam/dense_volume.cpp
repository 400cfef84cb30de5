#include "steam/dense_volume.hpp"

#include <algorithm>
#include <cmath>

#include "steam/tabulated_saturation.hpp"

namespace steam {
namespace {

struct Bracket {
  double low, high;
};

/// Volumes of subregion 3 with some room on both sides.
constexpr Bracket whole{0.00125, 0.0105};
/// So close to the critical point the two phases cannot be told apart by the table.
constexpr double t_merging = 374.1485;
constexpr double table_doubt = 1.5e-3;

Bracket bracket_of(Region branch, const SaturatedVolumes& saturated, double t) {
  if (t > t_merging) {
    return whole;
  }
  return branch == Region::hot_water
             ? Bracket{whole.low, std::min(saturated.liquid * (1 + table_doubt), v_critical)}
             : Bracket{saturated.vapour * (1 - table_doubt), whole.high};
}

double volume_in(Bracket bracket, const Isotherm& isotherm, double p, double start) {
  auto [low, high] = bracket;
  double v = start > low && start < high ? start : (low + high) / 2;
  constexpr int most_steps = 80;
  // After a step this small the next one would be below the rounding.
  constexpr double small_step = 1e-10;
  for (int n = 0; n < most_steps; ++n) {
    const auto [p_here, slope] = formulation::pressure(isotherm, v);
    const double excess = p_here - p;
    (excess > 0 ? low : high) = v;
    const double step = -excess / slope;
    const double next = v + step;
    if (std::abs(step) <= small_step * v && slope < 0) {
      return next;
    }
    v = next > low && next < high ? next : (low + high) / 2;
    if (high - low <= 2e-16 * v) {
      break;
    }
  }
  return v;
}

}  // namespace

SaturatedVolumes rough_saturated_volumes(double t) {
  const Ends v = TabulatedSaturation(t).ends<Quantity::v>();
  return {v.liquid, t < t_jump ? v.vapour : v.liquid};
}

double dense_volume(const Isotherm& isotherm, Region branch, double p, double t, double start) {
  return volume_in(bracket_of(branch, rough_saturated_volumes(t), t), isotherm, p, start);
}

double dense_volume(Region branch, double p, double t) {
  double start = v_critical;
  const Place here = place(charts[static_cast<std::size_t>(Pair::pt)], p, t);
  for (const Patch& patch : here.patches) {
    if (patch.region == branch) {
      start = 1 / here(patch, 0);
    }
  }
  return dense_volume(formulation::isotherm3<formulation::Elementary>(t), branch, p, t, start);
}

SaturatedVolumes saturated_volumes(double t, double p_saturation) {
  const SaturatedVolumes start = rough_saturated_volumes(t);
  const auto isotherm = formulation::isotherm3<formulation::Elementary>(t);
  const auto volume = [&](Region branch, double first) {
    return volume_in(bracket_of(branch, start, t), isotherm, p_saturation, first);
  };
  const double liquid = volume(Region::hot_water, start.liquid);
  return {liquid, std::max(liquid, volume(Region::dense_steam, start.vapour))};
}

}  // namespace steam
