// Compiled for each width with what its processors have.

#include "elementary_lanes.hpp"

#include <sleef.h>

#include <cstring>

#include "numbers/power_5_17.hpp"

namespace {

constexpr int width = VEK_WIDTH;
using Num = std::conditional_t<width == 1, double, numbers::Lanes<double, width>>;
constexpr double exponent = -5.0 / 17;

template <class F>
constexpr Fill fill = [](const double* x, double* out, std::size_t count) {
  for (std::size_t i = 0; i < count; i += width) {
    Num lanes;
    std::memcpy(&lanes, x + i, sizeof lanes);
    lanes = F()(lanes);
    std::memcpy(out + i, &lanes, sizeof lanes);
  }
};
template <class F>
constexpr Fill filled(F) {
  return fill<F>;
}

#define VEK_JOIN(function, vector) Sleef_cinz_##function##vector
#define VEK_LIBRARY(function, vector) VEK_JOIN(function, vector)
[[maybe_unused]] double bare(double x) { return x; }
template <int n>
auto bare(numbers::Lanes<double, n> x) {
  return x.v;
}

}  // namespace

template <>
ElementaryLanes elementary_lanes<width>() {
  return {.exp = filled([](Num x) { return numbers::exp(x); }),
          .log = filled([](Num x) { return numbers::log(x); }),
          .power = filled([](Num x) { return numbers::power(x, exponent); }),
          .power_m5_17 = filled([](Num x) { return numbers::to_minus_5_17(x); }),
          .library_exp = filled([](Num x) { return Num(VEK_LIBRARY(expd, VEK_VECTOR)(bare(x))); }),
          .library_log = filled([](Num x) { return Num(VEK_LIBRARY(logd, VEK_VECTOR)(bare(x))); }),
          .library_power = filled([](Num x) {
            return Num(VEK_LIBRARY(powd, VEK_VECTOR)(bare(x), bare(Num(exponent))));
          })};
}
