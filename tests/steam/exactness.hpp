#pragma once

#include <string>

#include "vek/steam.hpp"

/// States against the canonical functions, the correlations of transport and of surface tension.
namespace exactness {

/// Largest deviation of p, v, h, s and u from what they should be by the state's own p and t in
/// subregions 1 and 2, v and t in subregion 3, t and x in wet states: as a share of their sizes.
double deviation(const steam::State& state);

/// Which property of the state or of its saturated phases is wrong; empty when none is.
std::string fault(const steam::State& state);

}  // namespace exactness
