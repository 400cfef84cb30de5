#include "steam/search/quantity.hpp"

namespace steam {

Sloped sloped_quantity(Region region, Quantity q, Variables x) {
  return with_equation(region, [&]<class Equation>() {
    return with_quantity(
        q, [&]<Quantity Q>() { return sloped<Equation, Q>(Equation::terms(x.z, x.t), x.z, x.t); });
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
