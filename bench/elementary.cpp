// What the engine's elementary functions cost, ns a number, alone and a lane of each vector that
// this processor has; beside them those of the platform's library and the deterministic ones of
// SLEEF.

#include <array>
#include <cmath>
#include <cstdio>

#include "elementary_lanes.hpp"
#include "least_time.hpp"

namespace {

constexpr std::size_t count = 2048;
using Numbers = std::array<double, count>;

Numbers between(double a, double b) {
  Numbers x{};
  for (std::size_t i = 0; i < count; ++i) {
    x[i] = a + (b - a) * static_cast<double>(i * 617 % count) / count;  // out of order
  }
  return x;
}

double cost(const Numbers& x, Fill fill) {
  static Numbers out;
  return least_time([&] { fill(x.data(), out.data(), count); }) / count;
}

void print(const char* name, const std::array<Fill, 4>& fills) {
  static const Numbers exponents = between(-3, 1), bases = between(0.3, 1.3);
  std::printf("%-22s", name);
  for (std::size_t i = 0; i < fills.size(); ++i) {
    if (fills[i]) {
      std::printf("%9.1f", cost(i == 0 ? exponents : bases, fills[i]));
    }
  }
  std::printf("\n");
}

template <double f(double)>
constexpr Fill each = [](const double* x, double* out, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) {
    out[i] = f(x[i]);
  }
};
double power(double x) { return std::pow(x, -5.0 / 17); }

void print(const char* ours, const char* library, const ElementaryLanes& f) {
  print(ours, {f.exp, f.log, f.power, f.power_m5_17});
  print(library, {f.library_exp, f.library_log, f.library_power, nullptr});
}

}  // namespace

int main() {
  std::printf("%-22s%9s%9s%9s%9s\n", "ns", "exp", "log", "x^-5/17", "its own");
  print("std", {each<std::exp>, each<std::log>, each<power>, nullptr});
  print("alone", "SLEEF", elementary_lanes<1>());
  print("2 lanes (SSE2)", "SLEEF", elementary_lanes<2>());
  if (__builtin_cpu_supports("avx2")) {
    print("4 lanes (AVX2)", "SLEEF", elementary_lanes<4>());
  }
  if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq")) {
    print("8 lanes (AVX-512)", "SLEEF", elementary_lanes<8>());
  }
}
