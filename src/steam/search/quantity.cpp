#include "steam/search/quantity.hpp"

namespace steam {

Sloped sloped_quantity(Region region, Quantity q, Variables x) {
  return with_equation(region, [&]<class Equation>() {
    return with_quantity(
        q, [&]<Quantity Q>() { return sloped<Equation, Q>(Equation::terms(x.z, x.t), x.z, x.t); });
  });
}

void sloped_quantities(Region region, Variables x, std::span<const Quantity> wanted,
                       std::span<Sloped> out) {
  with_equation(region, [&]<class Equation>() {
    const auto terms = Equation::terms(x.z, x.t);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      out[i] = with_quantity(wanted[i],
                             [&]<Quantity Q>() { return sloped<Equation, Q>(terms, x.z, x.t); });
    }
  });
}

double quantity(const Site& site, Quantity q) {
  switch (q) {
    case Quantity::p:
      return site.p;
    case Quantity::t:
      return site.t;
    case Quantity::x:
      return with_quality(site).x;
    default:
      return is_wet(site.region) ? saturated_ends(q, site.t, site.p).mixed(with_quality(site).x)
                                 : sloped_quantity(site.region, q, variables(site)).value;
  }
}

}  // namespace steam
