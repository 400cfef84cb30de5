#pragma once

#include <array>
#include <span>

#include "steam/equations/slopes.hpp"
#include "steam/search/saturated.hpp"

namespace steam {

/// Calls f.template operator()<Equation>() with the equation of a single-phase region.
template <class F>
decltype(auto) with_equation(Region region, F&& f) {
  switch (region) {
    case Region::water:
      return f.template operator()<Water>();
    case Region::steam:
      return f.template operator()<Steam>();
    default:
      return f.template operator()<Dense>();
  }
}

/// Calls f.template operator()<Q>() with a quantity; x does not occur.
template <class F>
decltype(auto) with_quantity(Quantity q, F&& f) {
  switch (q) {
    case Quantity::p:
      return f.template operator()<Quantity::p>();
    case Quantity::t:
      return f.template operator()<Quantity::t>();
    case Quantity::v:
      return f.template operator()<Quantity::v>();
    case Quantity::h:
      return f.template operator()<Quantity::h>();
    case Quantity::s:
      return f.template operator()<Quantity::s>();
    default:
      return f.template operator()<Quantity::u>();
  }
}

/// Quantities and their slopes from one evaluation, where the region and the quantities are known
/// only at run time.
void sloped_quantities(Region region, Variables x, std::span<const Quantity> wanted,
                       std::span<Sloped> out);

template <std::size_t count>
std::array<Sloped, count> sloped_quantities(Region region, Variables x,
                                            const Quantity (&wanted)[count]) {
  std::array<Sloped, count> out{};
  sloped_quantities(region, x, wanted, out);
  return out;
}
/// One alone, without the terms that only others need.
Sloped sloped_quantity(Region region, Quantity q, Variables x);

/// A quantity of any state.
double quantity(const Site& site, Quantity q);

}  // namespace steam
