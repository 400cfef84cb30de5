#pragma once

/// What elementary steps cost on this machine at this moment, ns per call in a row of calls.
struct UnitCosts {
  double pow;                  // std::pow(x, -5.0 / 17): the unit of the comparison
  double exp;                  // std::exp(x)
  double water, steam, dense;  // enthalpy from the equation of subregion 1, 2, 3
};

UnitCosts unit_costs();
