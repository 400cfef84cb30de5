#pragma once

#include <cstdint>

#include "numbers/lanes.hpp"
#include "steam/equations/domain.hpp"
#include "vek/steam.hpp"

namespace steam {

using numbers::MaskOf;

/// The quantities that can be given or solved for.
enum class Quantity : std::uint8_t { p, t, v, h, s, u, x };

struct Known {
  Quantity first, second;
  char letters[3];
};

/// By pair, in the order of `Pair`.
constexpr std::array<Known, pair_count> known{{
    {Quantity::p, Quantity::t, "pt"}, {Quantity::p, Quantity::x, "px"},
    {Quantity::t, Quantity::x, "tx"}, {Quantity::p, Quantity::v, "pv"},
    {Quantity::p, Quantity::h, "ph"}, {Quantity::p, Quantity::s, "ps"},
    {Quantity::p, Quantity::u, "pu"}, {Quantity::t, Quantity::v, "tv"},
    {Quantity::t, Quantity::h, "th"}, {Quantity::t, Quantity::u, "tu"},
    {Quantity::t, Quantity::s, "ts"}, {Quantity::s, Quantity::x, "sx"},
    {Quantity::h, Quantity::s, "hs"}, {Quantity::u, Quantity::s, "us"},
    {Quantity::v, Quantity::h, "vh"}, {Quantity::v, Quantity::s, "vs"},
    {Quantity::v, Quantity::u, "vu"}, {Quantity::v, Quantity::x, "vx"},
    {Quantity::h, Quantity::x, "hx"}, {Quantity::u, Quantity::x, "ux"},
    {Quantity::h, Quantity::u, "hu"},
}};

constexpr const Known& known_of(Pair pair) { return known[static_cast<std::size_t>(pair)]; }

/// The variables of a subregion's equation: p and t in 1 and 2, v and t in 3 and 4.
template <class Num>
struct VariablesOf {
  Num z = missing, t = missing;
};
using Variables = VariablesOf<double>;

/// A state by the values that its subregion's equation takes: p and t in 1 and 2, v and t (and the
/// p that goes with them) in 3 and 4, t and x (and the saturation pressure) in 5 and 6. A wet site
/// may hold another quantity in place of x, so that x is computed only where it is wanted.
template <class Num>
struct SiteOf {
  Region region = Region::none;
  bool approximate = false;
  /// In wet states that are known by another quantity than x: that one, in place of x.
  Quantity given = Quantity::x;
  Num p = missing, t = missing, v = missing, x = missing;
  /// In one phase: where the equation was evaluated last. From there a last step, so small that
  /// v, h and s follow it in a straight line, leads to the state.
  VariablesOf<Num> at{};
  /// Of the quantity in place of x.
  Num value = missing;
  explicit operator bool() const { return region != Region::none; }
};
using Site = SiteOf<double>;

constexpr bool is_wet(Region r) { return r == Region::wet || r == Region::wet_above_350; }
constexpr bool is_3(Region r) { return r == Region::dense_steam || r == Region::hot_water; }

/// Region of a state of subregion 3 outside the wet states.
constexpr Region region_in_3(double v, double t) {
  return t < t_critical && v < v_critical ? Region::hot_water : Region::dense_steam;
}

/// The variables of the region's equation at a state of one phase.
template <class Num>
VariablesOf<Num> variables(const SiteOf<Num>& site) {
  return {is_3(site.region) ? site.v : site.p, site.t};
}

/// A state of subregion 1 or 2.
template <class Num>
SiteOf<Num> at_pressure(Region region, Num p, Num t) {
  return {.region = region, .p = p, .t = t, .at = {p, t}};
}
/// A state of subregion 3.
template <class Num>
SiteOf<Num> at_volume(Region region, Num p, Num v, Num t) {
  return {.region = region, .p = p, .t = t, .v = v, .at = {v, t}};
}
inline Site at_quality(double p, double t, double x) {
  return {.region = t <= 350 ? Region::wet : Region::wet_above_350, .p = p, .t = t, .x = x};
}

}  // namespace steam
