#pragma once

#include <string>

#include "answers.hpp"

/// States against the canonical functions, the correlations of transport and of surface tension.
namespace exactness {

/// Largest deviation of p, v, h, s and u from what they should be by the state's own p and t in
/// subregions 1 and 2, v and t in subregion 3, t and x in wet states: as a share of their sizes.
double deviation(const steam::State& state);

/// Which of the known properties of a state or of its saturated phases is wrong; empty when none
/// is.
std::string fault(const steam::State& state, const answers::Values& values);

}  // namespace exactness
