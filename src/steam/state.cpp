#include "steam/answer.hpp"
#include "steam/arguments.hpp"
#include "steam/host_environment.hpp"
#include "steam/refusal.hpp"
#include "steam/search/solve.hpp"

namespace steam {
namespace {

constexpr Needs needs_of_phase = [] {
  Needs all;
  for (std::size_t i = 0; i <= VEK_STEAM_PRANDTL; ++i) {
    all |= property_rows[i].needs;
  }
  return all;
}();

/// Which phase properties a record has, in its order.
template <class Record>
void write_phase(const Basis& basis, Exists kind, Record& out) {
  const auto of = [&](std::size_t p) { return value_of(property_rows[p], basis, kind); };
  out.p = of(VEK_STEAM_P);
  out.t = of(VEK_STEAM_T);
  out.v = of(VEK_STEAM_V);
  out.h = of(VEK_STEAM_H);
  out.s = of(VEK_STEAM_S);
  out.u = of(VEK_STEAM_U);
  out.density = of(VEK_STEAM_DENSITY);
  out.cp = of(VEK_STEAM_CP);
  out.cv = of(VEK_STEAM_CV);
  out.speed_of_sound = of(VEK_STEAM_SPEED_OF_SOUND);
  out.isentropic_exponent = of(VEK_STEAM_ISENTROPIC_EXPONENT);
  out.viscosity = of(VEK_STEAM_VISCOSITY);
  out.conductivity = of(VEK_STEAM_CONDUCTIVITY);
  out.prandtl = of(VEK_STEAM_PRANDTL);
}

/// A pair as it is given.
struct Given {
  Pair pair;
  double first, second;
};

/// Where the saturated phases of a state go, unless they are left out.
struct Saturated {
  vek_steam_phase *liquid, *vapour;
};

/// Writes a saturated phase, missing values in one phase; a wet state of quality 0 or 1 takes what
/// its only phase has.
void write_saturated(const Site& site, bool vapour, Basis& state, vek_steam_phase* out) {
  const bool is_only = is_wet(site.region) && state.x == (vapour ? 1 : 0);
  if (!out && !is_only) {
    return;
  }
  const bool wet = is_wet(site.region);
  const Basis phase = wet ? saturated_phase(site, vapour, needs_of_phase) : Basis{};
  if (is_only) {
    take_one_phase(state, phase);
  }
  if (out) {
    write_phase(phase, wet ? in_one_phase : nowhere, *out);
  }
}

/// All of a state that has a pair.
void write_state(const Given& given, const Site& site, bool several, vek_steam_state& out,
                 Saturated saturated) {
  constexpr Needs of_mixture{.parts = first_order, .quality = true};
  const bool wet = is_wet(site.region);
  Basis basis;
  complete_for_pair(basis, given.pair, given.first, given.second, site,
                    wet ? of_mixture : needs_of_phase, nothing);
  write_saturated(site, false, basis, saturated.liquid);
  write_saturated(site, true, basis, saturated.vapour);
  const Exists kind = kind_of(basis);
  write_phase(basis, kind, out);
  out.x = value_of(row_of(Property::x), basis, kind);
  out.surface_tension = value_of(row_of(Property::surface_tension), basis, kind);
  out.region = static_cast<int>(site.region);
  out.several = several;
  out.approximate = site.approximate;
  out.reserved = 0;
}

/// The saturated phases may be left out.
int check_phases(const vek_steam_phase* liquid, const vek_steam_phase* vapour, std::size_t size) {
  return (liquid || vapour) && size < sizeof(vek_steam_phase) ? VEK_STEAM_SHORT : VEK_STEAM_OK;
}

}  // namespace
}  // namespace steam

using namespace steam;

int vek_steam_state_of(int pair, double first, double second, vek_steam_state* state,
                       size_t state_size, vek_steam_phase* liquid, vek_steam_phase* vapour,
                       size_t phase_size) {
  std::size_t count = 0;
  return vek_steam_states_of(pair, first, second, state, state_size, liquid, vapour, phase_size, 1,
                             &count);
}

int vek_steam_states_of(int pair, double first, double second, vek_steam_state* states,
                        size_t state_size, vek_steam_phase* liquids, vek_steam_phase* vapours,
                        size_t phase_size, size_t capacity, size_t* count) {
  const int wrong = first_wrong({is_pair(pair) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_PAIR,
                                 capacity > 0 ? check_record(states, state_size) : VEK_STEAM_OK,
                                 check_phases(liquids, vapours, phase_size),
                                 count ? VEK_STEAM_OK : VEK_STEAM_NULL});
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  *count = 0;
  const Given given{static_cast<Pair>(pair), first, second};
  const HostEnvironment host;
  if (!in_range(given.pair, first, second)) {
    return static_cast<int>(refusal(given.pair, first, second).reason);
  }
  const Solutions all = solve_all(given.pair, first, second);
  *count = all.sites.size();
  for (std::size_t i = 0; i < std::min(capacity, *count); ++i) {
    write_state(given, all.sites[i], *count > 1, *element(states, state_size, i),
                {element(liquids, phase_size, i), element(vapours, phase_size, i)});
  }
  return *count > 0 ? VEK_STEAM_OK : VEK_STEAM_NO_STATE;
}

int vek_steam_saturation(int given, double value, vek_steam_phase* liquid, vek_steam_phase* vapour,
                         size_t phase_size) {
  if (given != VEK_STEAM_P && given != VEK_STEAM_T) {
    return VEK_STEAM_NO_SUCH_PROPERTY;
  }
  vek_steam_state state;
  return vek_steam_state_of(given == VEK_STEAM_P ? VEK_STEAM_PX : VEK_STEAM_TX, value, 0, &state,
                            sizeof state, liquid, vapour, phase_size);
}
