#include <cfenv>

#include "steam/arguments.hpp"
#include "steam/host_environment.hpp"
#include "steam/property_table.hpp"
#include "steam/refusal.hpp"
#include "vek/version.h"

// What the C interface says about itself: refusals, properties, pairs, limits, version.

using namespace steam;

int vek_steam_refusal_of(int code, int pair, double first, double second, vek_steam_refusal* out,
                         size_t refusal_size) {
  const int wrong = first_wrong(
      {is_pair(pair) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_PAIR, check_record(out, refusal_size)});
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  const HostEnvironment host;
  *out = {code, ' ', 0, 0, 0};
  if (code > VEK_STEAM_OK && code < VEK_STEAM_NO_STATE) {
    const Refusal r = refusal(static_cast<Pair>(pair), first, second);
    *out = {code, r.quantity, r.value, r.lowest, r.highest};
  }
  return VEK_STEAM_OK;
}

size_t vek_steam_text(const vek_steam_refusal* refusal, size_t refusal_size, char* buffer,
                      size_t size) {
  if (check_record(refusal, refusal_size) != VEK_STEAM_OK) {
    return 0;
  }
  const HostEnvironment host;
  // Printing rounds as the x87 unit does, which else has no part in the engine.
  const int rounding = std::fegetround();
  std::fesetround(FE_TONEAREST);
  const int length = write_text(*refusal, buffer, buffer ? size : 0);
  std::fesetround(rounding);
  return static_cast<size_t>(length);
}

int vek_steam_property_count(void) { return static_cast<int>(property_count); }

int vek_steam_property_info_of(int property, vek_steam_property_info* info, size_t info_size) {
  const int wrong = first_wrong({is_property(property) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_PROPERTY,
                                 check_record(info, info_size)});
  if (wrong == VEK_STEAM_OK) {
    const PropertyRow& row = row_of(static_cast<Property>(property));
    *info = {row.name, row.letter, row.unit, row.exists != in_wet_states,
             row.exists != in_one_phase};
  }
  return wrong;
}

int vek_steam_pair_count(void) { return static_cast<int>(pair_count); }

int vek_steam_pair_info_of(int pair, vek_steam_pair_info* info, size_t info_size) {
  const int wrong = first_wrong(
      {is_pair(pair) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_PAIR, check_record(info, info_size)});
  if (wrong == VEK_STEAM_OK) {
    // The quantities that can be given stand first among the properties, in the same order.
    static_assert(static_cast<int>(Quantity::x) == VEK_STEAM_X);
    const Known& k = known_of(static_cast<Pair>(pair));
    const PairRange& range = pair_ranges[static_cast<std::size_t>(pair)];
    *info = {k.letters,           static_cast<int>(k.first), static_cast<int>(k.second),
             range.first.lowest,  range.first.highest,       range.second.lowest,
             range.second.highest};
  }
  return wrong;
}

int vek_steam_limits_of(vek_steam_limits* limits, size_t limits_size) {
  const int wrong = check_record(limits, limits_size);
  if (wrong == VEK_STEAM_OK) {
    *limits = {p_lowest, p_highest, t_lowest, t_highest, p_critical, t_critical, v_critical};
  }
  return wrong;
}

const char* vek_steam_phase_name(int region, double p, double t) {
  const HostEnvironment host;
  switch (region) {
    case VEK_STEAM_WATER:
    case VEK_STEAM_HOT_WATER:
      return "water";
    case VEK_STEAM_STEAM:
      return t > t_critical && p > p_critical ? "supercritical fluid" : "steam";
    case VEK_STEAM_DENSE_STEAM:
      return t >= t_critical && p > p_critical ? "supercritical fluid" : "steam";
    case VEK_STEAM_WET:
    case VEK_STEAM_WET_ABOVE_350:
      return "wet steam";
    default:
      return "none";
  }
}

const char* vek_steam_version(void) { return VEK_VERSION; }
