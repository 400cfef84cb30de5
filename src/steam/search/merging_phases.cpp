#include "steam/search/merging_phases.hpp"

namespace steam {
namespace {

Ends tabulated_at(double t, Quantity q) {
  const TabulatedSaturation saturation(t);
  return with_quantity(q, [&]<Quantity Q>() { return saturation.ends<Q>(); });
}

bool has(const MixedQuantity& target, double t) {
  constexpr double rounding = 3e-8;  // of the volumes
  return std::abs(target.exact<HighSaturation>(t)) <= rounding * target.value;
}

}  // namespace

double where_phases_merge(const MixedQuantity& target, WetList& states) {
  const double t_low = temperature_of(r_merging);
  const Ends at_jump = tabulated_at(below_jump, target.q), at_low = tabulated_at(t_low, target.q);
  double closed_on_jump = 0;
  const auto found = [&](double t) { has(target, t) ? states.add(t) : void(closed_on_jump = t); };
  const double room = figures_of(target.q).room;
  const auto is_between = [&](double least, double most) {
    return target.value > least * (1 - room) && target.value < most * (1 + room);
  };
  if (is_between(at_jump.liquid, at_low.vapour)) {
    by_equations<HighSaturation>(target, t_critical, above_jump, found, 1);
    if (states.all().sites.empty() && has(target, t_critical)) {
      states.add(t_critical);
    }
  }
  if (is_between(Ends{at_low.liquid, at_jump.vapour}.mixed(target.x),
                 Ends{at_jump.liquid, at_low.vapour}.mixed(target.x))) {
    by_equations<HighSaturation>(target, below_jump, t_low, found, 2);
  }
  return closed_on_jump;
}

}  // namespace steam
