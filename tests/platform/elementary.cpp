// Prints, in hexadecimal floating point, what the module's elementary functions give on this
// platform for fixed arguments over the ranges in which the equations call them.

#include <array>
#include <cstdio>
#include <random>

#include "classic/frame/guards.hpp"
#include "hexadecimal.hpp"

namespace {

using classic::Guarded;

struct Survey {
  const char* name;
  double low, high;
  double (*function)(double);
};

constexpr std::array surveys{
    Survey{"exp", -30, 5, Guarded::exp},
    Survey{"log", 1e-3, 4, Guarded::log},
    Survey{"sqrt", 0, 10, Guarded::sqrt},
    Survey{"pow_-5/17", 0.1, 2, Guarded::power_m5_17},
    Survey{"pow_5", 0.3, 3, Guarded::whole_power<5>},
    Survey{"pow_22", 0.8, 1.1, Guarded::whole_power<22>},
    Survey{"pow_30", 0.8, 1.1, Guarded::whole_power<30>},
};
constexpr int arguments = 4000;

}  // namespace

int main(int /*argc*/, char** argv) {
  if (std::freopen(argv[1], "wb", stdout) == nullptr) {
    return 2;
  }
  std::mt19937_64 random(1967);
  for (const Survey& s : surveys) {
    for (int i = 0; i < arguments; ++i) {
      const double x = s.low + (s.high - s.low) * (static_cast<double>(random() >> 11U) * 0x1p-53);
      std::printf("%s %d %s\n", s.name, i, host::hexadecimal(s.function(x)).c_str());
    }
  }
}
