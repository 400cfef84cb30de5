#include <gtest/gtest.h>

#include <map>

#include "round_trips.hpp"
#include "survey/evaluations.hpp"

// What a state costs: charts, tables and slopes that lead astray show here, and hardly elsewhere.

namespace {

using steam::Region;

bool has_pair(Region region, const std::string& pair) {
  const bool is_wet = region == Region::wet || region == Region::wet_above_350;
  return pair == "pt" ? !is_wet : is_wet || pair[1] != 'x';
}

double mean_evaluations(steam::Pair pair, Region region) {
  constexpr int states = 1000;
  std::mt19937_64 random(1967);
  long sum = 0;
  for (int k = 0; k < states; ++k) {
    const auto [first, second] =
        round_trips::given(pair, round_trips::random_state(region, random));
    const long before = evaluations::count();
    static_cast<void>(steam::state(pair, first, second));
    sum += evaluations::count() - before;
  }
  return static_cast<double>(sum) / states;
}

TEST(Evaluations, AreFewForAState) {
  // As measured, by region: water, steam, dense steam, hot water, wet above 350 °C, wet.
  std::map<std::string, std::array<double, 6>> measured{
      {"pt", {1.000, 1.000, 2.648, 3.017, 0, 0}},
      {"px", {0, 0, 0, 0, 4.000, 4.000}},
      {"tx", {0, 0, 0, 0, 4.000, 4.000}},
      {"pv", {5.929, 3.510, 4.648, 5.362, 8.233, 4.349}},
      {"ph", {3.032, 3.231, 6.004, 4.994, 5.975, 4.072}},
      {"ps", {3.082, 3.473, 5.906, 5.151, 5.977, 4.073}},
      {"pu", {3.029, 3.272, 6.865, 5.290, 5.975, 4.072}},
      {"tv", {4.044, 3.736, 2.264, 2.324, 4.432, 4.084}},
      {"th", {26.295, 3.600, 4.168, 5.215, 4.436, 8.135}},
      {"tu", {4.727, 3.662, 4.017, 4.445, 4.440, 4.589}},
      {"ts", {4.831, 3.520, 4.178, 4.438, 4.449, 4.587}},
      {"sx", {0, 0, 0, 0, 7.076, 6.470}},
      {"hs", {6.281, 4.574, 39.227, 25.509, 25.850, 9.244}},
      {"us", {18.379, 5.001, 51.141, 56.665, 52.418, 12.209}},
      {"vh", {5.621, 4.116, 9.228, 8.465, 17.602, 7.251}},
      {"vs", {5.468, 4.252, 9.444, 8.836, 16.815, 7.434}},
      {"vu", {5.295, 4.122, 9.359, 8.864, 17.262, 7.314}},
      {"vx", {0, 0, 0, 0, 7.768, 6.328}},
      {"hx", {0, 0, 0, 0, 7.820, 6.804}},
      {"ux", {0, 0, 0, 0, 7.408, 6.622}},
      {"hu", {92.645, 221.597, 293.721, 383.761, 262.919, 222.110}}};
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    const auto pair = static_cast<steam::Pair>(i);
    const std::string name = round_trips::name(pair);
    for (std::size_t r = 0; r < round_trips::regions.size(); ++r) {
      if (has_pair(round_trips::regions[r], name)) {
        EXPECT_LE(mean_evaluations(pair, round_trips::regions[r]), 1.02 * measured[name][r])
            << name << " in region " << r;
      }
    }
  }
}

}  // namespace
