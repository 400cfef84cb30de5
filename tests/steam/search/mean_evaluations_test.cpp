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
      {"pt", {1.000, 1.000, 3.296, 3.503, 0, 0}},
      {"px", {0, 0, 0, 0, 4.000, 4.000}},
      {"tx", {0, 0, 0, 0, 4.000, 4.000}},
      {"pv", {5.092, 3.421, 3.197, 3.984, 4.275, 4.014}},
      {"ph", {3.032, 3.143, 4.054, 4.270, 4.204, 4.012}},
      {"ps", {3.082, 3.385, 4.075, 4.509, 4.204, 4.013}},
      {"pu", {3.029, 3.184, 4.144, 4.090, 4.208, 4.012}},
      {"tv", {4.034, 3.732, 2.032, 2.000, 4.056, 4.014}},
      {"th", {18.516, 3.597, 3.976, 4.768, 4.056, 6.621}},
      {"tu", {4.377, 3.660, 3.781, 4.011, 4.058, 4.253}},
      {"ts", {4.461, 3.518, 3.942, 4.012, 4.062, 4.229}},
      {"sx", {0, 0, 0, 0, 6.657, 6.333}},
      {"hs", {4.856, 3.653, 5.642, 5.349, 8.587, 6.546}},
      {"us", {8.518, 3.645, 10.238, 13.344, 10.952, 7.329}},
      {"vh", {5.366, 3.861, 4.194, 4.394, 7.181, 6.094}},
      {"vs", {5.318, 3.997, 4.419, 4.905, 7.155, 6.277}},
      {"vu", {5.007, 3.867, 4.321, 5.011, 7.242, 6.157}},
      {"vx", {0, 0, 0, 0, 7.185, 6.286}},
      {"hx", {0, 0, 0, 0, 7.316, 6.652}},
      {"ux", {0, 0, 0, 0, 7.100, 6.581}},
      {"hu", {87.231, 208.334, 236.357, 249.146, 175.991, 169.986}}};
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
