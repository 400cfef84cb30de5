#pragma once

#include "formulation/transport.hpp"
#include "steam/arithmetic.hpp"
#include "steam/properties.hpp"

namespace steam {

/// The transport properties that are wanted, from v and, for the Prandtl number, cp in `out`.
inline void transport(double t, Wanted wanted, Values& out) {
  const bool all = wanted.has(Property::prandtl);
  if (all || wanted.has(Property::viscosity)) {
    at(out, Property::viscosity) = formulation::viscosity<SharedDivisions>(at(out, Property::v), t);
  }
  if (all || wanted.has(Property::conductivity)) {
    at(out, Property::conductivity) =
        formulation::conductivity<SharedDivisions>(at(out, Property::v), t);
  }
  if (all) {
    constexpr double joule = 1000;  // per kJ
    at(out, Property::prandtl) = at(out, Property::viscosity) * at(out, Property::cp) * joule /
                                 at(out, Property::conductivity);
  }
}

}  // namespace steam
