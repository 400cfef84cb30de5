#pragma once

#include <algorithm>
#include <chrono>

/// Nanoseconds of a piece of work, the least of many passes.
template <class F>
double least_time(const F& work) {
  using Clock = std::chrono::steady_clock;
  double best = 1e300;
  for (int pass = 0; pass < 200; ++pass) {
    const auto start = Clock::now();
    work();
    best = std::min(best, std::chrono::duration<double, std::nano>(Clock::now() - start).count());
  }
  return best;
}
