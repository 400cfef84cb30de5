#include "steam/answer.hpp"

#include "steam/completion.hpp"
#include "steam/refusal.hpp"
#include "steam/search/solve.hpp"

namespace steam {
namespace {

/// The state that counts, and whether there are others.
Quick first_of_all(Pair pair, double first, double second, bool& several) {
  const Solutions all = solve_all(pair, first, second);
  several = all.sites.size() > 1;
  return {.site = all.sites.empty() ? Site{} : all.sites[0]};
}

}  // namespace

void complete_for_pair(Basis& basis, Pair pair, double first, double second, const Site& site,
                       const Needs& needs, const Parts& has) {
  complete(basis, site, needs, has);
  completion::for_pair(basis, pair, first, second, site, needs);
}

Wanted::Wanted(std::size_t number, const int* numbers) : count(number), properties(numbers) {
  Needs of_state;
  for (std::size_t i = 0; i < count; ++i) {
    const auto property = static_cast<Property>(properties[i]);
    if (number_of(property) < liquid_numbers) {
      of_state |= row_of(property).needs;
    } else {
      add_of_phase(property);
    }
  }
  needs = of_state;
}

void Wanted::add_of_phase(Property property) {
  Needs& of_phase = number_of(property) < vapour_numbers ? of_liquid : of_vapour;
  of_phase |= row_of(property).needs;
  of_phase.any = true;
}

Answer::Answer(Pair pair, double first, double second, const Wanted& wanted) {
  if (!in_range(pair, first, second)) {
    reason_ = refusal(pair, first, second).reason;
    return;
  }
  const Needs& needs = wanted.needs;
  const Quick found = needs.several ? first_of_all(pair, first, second, basis_.several)
                                    : solve(pair, first, second, needs.parts, basis_);
  if (!found.site) {
    reason_ = Reason::no_state;
    return;
  }
  complete_at(found.site, pair, first, second, wanted, found.has);
}

Answer::Answer(const Site& site, bool several, Pair pair, double first, double second,
               const Wanted& wanted) {
  basis_.several = several;
  complete_at(site, pair, first, second, wanted, nothing);
}

inline void Answer::complete_at(const Site& site, Pair pair, double first, double second,
                                const Wanted& wanted, const Parts& has) {
  complete_for_pair(basis_, pair, first, second, site, wanted.needs, has);
  kind_ = kind_of(basis_);
  if ((wanted.of_liquid.any || wanted.of_vapour.any) && is_wet(site.region)) {
    add_phases(site, wanted);
  }
}

void Answer::add_phases(const Site& site, const Wanted& wanted) {
  if (wanted.of_liquid.any) {
    liquid_ = saturated_phase(site, false, wanted.of_liquid);
  }
  if (wanted.of_vapour.any) {
    vapour_ = saturated_phase(site, true, wanted.of_vapour);
  }
}

double Answer::of_phase(Property property) const {
  const auto& phase = number_of(property) < vapour_numbers ? liquid_ : vapour_;
  return phase ? value_of(row_of(property), *phase, in_one_phase) : missing;
}

}  // namespace steam
