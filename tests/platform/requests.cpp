// requests MODULE OUTPUT: loads a module and prints what it answers to a table of requests: every
// finder on every state, called directly and through vek, in hexadecimal floating point.

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "hexadecimal.hpp"
#include "module.hpp"
#include "states.hpp"

namespace {

constexpr std::array pairs{"pt", "ph", "ps", "pu", "pv", "px", "th", "ts", "tu",
                           "tv", "tx", "hs", "us", "sx", "vh", "vs", "vu", "vx"};
constexpr const char* list = "P,T,V,H,S,X,CP,DV,TC ";
constexpr std::size_t items = 9;
constexpr double untouched = -999;

double quantity(const host::State& state, char letter) { return state[host::letters.find(letter)]; }

void print(double x) { std::printf(" %s", host::hexadecimal(x).c_str()); }

/// The region code and the evaluation pair that the finder leaves.
void find(VekFinder finder, double a, double b) {
  double tolerance = 1e-8;
  std::printf(" %d", finder(&a, &b, &tolerance));
  print(a);
  print(b);
}

/// The error flag and the properties.
void request(const host::Module& module, VekFinder finder, double a, double b) {
  std::array<double, items> result;
  result.fill(untouched);
  module.function<decltype(vek)>("vek")(finder, &a, &b, list, result.data());
  std::printf(" %d", module.function<decltype(VEKHasError)>("VEKHasError")());
  for (const double x : result) {
    print(x);
  }
}

void run(const host::Module& module, const char* pair) {
  const auto name = std::string("vekr") + pair + "_";
  auto* const finder = module.function<decltype(vekrpt_)>(name.c_str());
  for (std::size_t i = 0; i < host::states.size(); ++i) {
    const double a = quantity(host::states[i], pair[0]);
    const double b = quantity(host::states[i], pair[1]);
    if (!std::isnan(a) && !std::isnan(b)) {
      std::printf("%s %zu", pair, i);
      find(finder, a, b);
      request(module, finder, a, b);
      std::printf("\n");
    }
  }
}

}  // namespace

int main(int /*argc*/, char** argv) {
  if (std::freopen(argv[2], "wb", stdout) == nullptr) {
    return 2;
  }
  const host::Module module(argv[1]);
  for (const char* pair : pairs) {
    run(module, pair);
  }
}
