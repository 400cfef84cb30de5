#include "survey.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

// Round trips through all finders: how each does in each part of the range is compared with a
// recorded survey (`script/accuracy` records it). The bounds are so tight that one wrong start
// value, margin or constant shows in the shares, the errors or the number of evaluations.

namespace {

constexpr int states_per_band = 200;  // as recorded

struct Recorded {
  std::string finder, band;
  survey::Result result;
};

std::vector<Recorded> recorded() {
  std::ifstream file(VEK_SURVEY);
  std::vector<Recorded> all;
  for (std::string line; std::getline(file, line);) {
    std::istringstream fields(line);
    std::array<std::string, 8> f;
    for (std::string& field : f) {
      std::getline(fields, field, ';');
    }
    const auto number = [&f](std::size_t i) { return std::stod(f[i]); };  // "nan" is one
    all.push_back({f[0], f[1], {number(2), number(3), number(4), number(5), number(6), number(7)}});
  }
  return all;
}

/// One state may end its iteration elsewhere: the largest error may double, or stay at round-off.
bool as_small(double error, double recorded_error) {
  return std::isnan(recorded_error) ? std::isnan(error) : error <= 2 * recorded_error + 1e-12;
}

/// The median hardly notices one state.
bool as_usual(double error, double recorded_error) {
  return std::isnan(recorded_error)
             ? std::isnan(error)
             : std::abs(error - recorded_error) <= 0.01 * recorded_error + 1e-13;
}

class Survey : public testing::TestWithParam<survey::Finder> {};

TEST_P(Survey, IsAsRecorded) {
  // Shares may differ by one state, evaluations by what last bits of elementary functions do.
  constexpr double one_state = 1.01 / states_per_band;
  int bands = 0;
  for (const Recorded& row : recorded()) {
    if (row.finder != GetParam().name) {
      continue;
    }
    SCOPED_TRACE(row.band);
    const auto band = std::find_if(survey::bands().begin(), survey::bands().end(),
                                   [&row](const survey::Band& b) { return b.name == row.band; });
    const auto now = survey::place_all(GetParam(), *band, states_per_band);
    EXPECT_NEAR(now.placed_right, row.result.placed_right, one_state);
    EXPECT_NEAR(now.flagged, row.result.flagged, one_state);
    EXPECT_NEAR(now.unconverged, row.result.unconverged, one_state);
    EXPECT_NEAR(now.evaluations, row.result.evaluations, 0.002 * row.result.evaluations);
    EXPECT_PRED2(as_usual, now.median_error, row.result.median_error);
    EXPECT_PRED2(as_small, now.largest_error, row.result.largest_error);
    ++bands;
  }
  EXPECT_GE(bands, 3);
}

INSTANTIATE_TEST_SUITE_P(Finders, Survey, testing::ValuesIn(survey::finders()),
                         [](const auto& finder) { return finder.param.name; });

}  // namespace
