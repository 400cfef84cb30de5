#pragma once

#include <cstddef>

/// Fills `out` with a function of each of the numbers.
using Fill = void (*)(const double* x, double* out, std::size_t count);

/// The engine's elementary functions in lanes of one width, and the deterministic ones of a library
/// of vector functions for the same processor.
struct ElementaryLanes {
  Fill exp, log, power, power_m5_17;
  Fill library_exp, library_log, library_power;
};
template <int width>
ElementaryLanes elementary_lanes();
