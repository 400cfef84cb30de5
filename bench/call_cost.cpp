#include <algorithm>
#include <chrono>
#include <cstdio>

#include "vek/steam.hpp"

// The time of short calls into the library, linked with the static one (call_cost_static) or with
// the shared one (call_cost_shared): least time of a group, free of what else the machine does.

namespace {

using Clock = std::chrono::steady_clock;

constexpr int group = 100, passes = 50000;
volatile double sink;

template <class Call>
double nanoseconds(Call call) {
  double least = 1;
  for (int pass = 0; pass < passes; ++pass) {
    const auto start = Clock::now();
    for (int i = 0; i < group; ++i) {
      sink = call(i);
    }
    least = std::min(least, std::chrono::duration<double>(Clock::now() - start).count());
  }
  return least * 1e9 / group;
}

}  // namespace

int main() {
  const double refused = nanoseconds(
      [](int i) { return steam::value(steam::Pair::pt, 2000 + i, 100, steam::Property::h); });
  const double saturation = nanoseconds(
      [](int i) { return steam::value(steam::Pair::px, 1 + i, 0, steam::Property::t); });
  const double enthalpy = nanoseconds(
      [](int i) { return steam::value(steam::Pair::pt, 1 + i, 100, steam::Property::h); });
  std::printf("refusal %.2f ns, saturation temperature %.2f ns, enthalpy of water %.2f ns\n",
              refused, saturation, enthalpy);
}
