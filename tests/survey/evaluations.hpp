#pragma once

/// Evaluations in programs whose engine is compiled so that its calls are counted.
namespace evaluations {

/// Of the common terms of subregions 1, 2 and 3 so far.
long count();

/// Those, and of an isotherm of subregion 3 and of the saturation line.
long count_all();

}  // namespace evaluations
