#include "steam/answer.hpp"

#include "steam/refusal.hpp"
#include "steam/search/solve.hpp"

namespace steam {
namespace {

/// Where a basis keeps a quantity.
constexpr std::array<double Basis::*, 7> place_of{&Basis::p, &Basis::t, &Basis::v, &Basis::h,
                                                  &Basis::s, &Basis::u, &Basis::x};
double& at(Basis& basis, Quantity q) { return basis.*place_of[static_cast<std::size_t>(q)]; }

}  // namespace

void complete_for_pair(Basis& basis, Pair pair, double first, double second, const Site& site,
                       const Needs& needs, Parts has) {
  complete(basis, site, needs, has);
  const Known& k = known_of(pair);
  // Of two values that are neither p nor t, an approximate state has the one whose line was
  // followed.
  const bool follows_second = k.second == Quantity::s && k.first != Quantity::p &&
                              k.first != Quantity::t && k.first != Quantity::v;
  if (!site.approximate || !follows_second) {
    at(basis, k.first) = first;
  }
  if (!site.approximate || follows_second) {
    at(basis, k.second) = second;
  }
  const bool gives_u = k.first == Quantity::u || k.second == Quantity::u;
  if (!gives_u || (site.approximate && !(k.first == Quantity::u && !follows_second))) {
    basis.u = basis.h - kj_per_bar_m3 * site.p * basis.v;
  }
  if (needs.viscosity || needs.conductivity) {
    complete_transport(basis, needs);
  }
}

Wanted::Wanted(std::size_t number, const int* numbers) : count(number), properties(numbers) {
  for (std::size_t i = 0; i < count; ++i) {
    needs |= row_of(static_cast<Property>(properties[i])).needs;
  }
}

Reason basis_of_pair(Pair pair, double first, double second, const Needs& needs, Basis& basis) {
  if (!in_range(pair, first, second)) {
    return refusal(pair, first, second).reason;
  }
  const Quick found = solve(pair, first, second, needs.parts, basis);
  if (!found.site) {
    return Reason::no_state;
  }
  complete_for_pair(basis, pair, first, second, found.site, needs, found.has);
  return Reason::none;
}

}  // namespace steam
