// The cycle of rankine.c from a C++ host, with a small wrapper of the kind that such hosts write.

#include <vek/vek.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

template <class... Item>
auto state(VekFinder finder, double x, double y, Item... items) {
  const std::string list = (std::string() + ... + (std::string(items) + ","));
  std::array<double, sizeof...(items)> result{};
  vek(finder, &x, &y, list.c_str(), result.data());
  if (VEKHasError() != 0) {
    std::puts("the module reports an error");
    std::exit(1);
  }
  return result;
}

void print(const char* name, double value) { std::printf("%-24s%16.9f\n", name, value); }

}  // namespace

int main() {
  constexpr double p_inlet = 160;
  constexpr double p_condenser = 0.05;

  const auto [h_inlet, s_inlet] = state(vekrpt_, p_inlet, 540, "H", "S");
  const auto [h_ideal, x_ideal] = state(vekrps_, p_condenser, s_inlet, "H", "X");
  const double h_outlet = h_inlet - 0.87 * (h_inlet - h_ideal);
  const auto [t_outlet, x_outlet, s_outlet] = state(vekrph_, p_condenser, h_outlet, "T", "X", "S");
  const auto [h_condensate, s_condensate] = state(vekrpx_, p_condenser, 0, "H", "S");
  const auto [h_feed, t_feed] = state(vekrps_, p_inlet, s_condensate, "H", "T");
  const double heat = h_inlet - h_feed;
  const double pump = h_feed - h_condensate;

  print("inlet enthalpy", h_inlet);
  print("inlet entropy", s_inlet);
  print("ideal outlet enthalpy", h_ideal);
  print("ideal outlet quality", x_ideal);
  print("outlet temperature", t_outlet);
  print("outlet quality", x_outlet);
  print("outlet entropy", s_outlet);
  print("condensate enthalpy", h_condensate);
  print("feed enthalpy", h_feed);
  print("feed temperature", t_feed);
  print("ideal efficiency", (h_inlet - h_ideal - pump) / heat);
  print("efficiency", (h_inlet - h_outlet - pump) / heat);
}
