// The table of engine.c from C++17 or later.

#include <array>
#include <cstddef>
#include <cstdio>
#include <vector>
#include <vek/steam.hpp>
#if __cplusplus >= 202002L
#include <span>
using Pressures = std::span<const double>;
#else
using Pressures = const std::vector<double>&;
#endif

namespace {

using steam::Pair;
using steam::Property;

constexpr double p_inlet = 160;
constexpr double turbine = 0.87;

void print(double p, double h_inlet, double h_ideal) {
  const double h_outlet = h_inlet - turbine * (h_inlet - h_ideal);
  const steam::State condensate = *steam::saturation_by_pressure(p);
  const double h_feed = steam::value(Pair::ps, p_inlet, condensate.s, Property::h);
  const double work = h_inlet - h_outlet - (h_feed - condensate.h);
  std::printf("%5.2f bar: quality %.6f, efficiency %.6f\n", p,
              steam::state(Pair::ph, p, h_outlet)->x, work / (h_inlet - h_feed));
}

void print_all(Pressures p) {
  const steam::Result inlet = steam::state(Pair::pt, p_inlet, 540);
  const std::vector<double> s(p.size(), inlet->s);
  std::vector<double> h_ideal(p.size());
  steam::evaluate(Pair::ps, p, s, std::array{Property::h}, {h_ideal});
  for (std::size_t i = 0; i < p.size(); ++i) {
    print(p[i], inlet->h, h_ideal[i]);
  }
}

}  // namespace

int main() { print_all(std::vector<double>{0.03, 0.05, 0.07, 0.1}); }
