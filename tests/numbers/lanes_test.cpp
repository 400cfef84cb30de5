#include "numbers/lanes.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "numbers/rows.hpp"

// What a vector of rows does must be what each row does alone, also where a comparison is with what
// is no number.

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr std::array<double, 8> some{0.25, -0.0, nan, 1e308, -3, 5e-324, -1e-300, 7};
constexpr std::array<double, 8> others{0.5, 0, 2, nan, -3, 0, 1e-300, -7};

template <int n>
numbers::Lanes<double, n> in_lanes(const std::array<double, 8>& values, std::size_t begin) {
  numbers::Lanes<double, n> all;
  for (int lane = 0; lane < n; ++lane) {
    all.set(lane, values[begin + static_cast<std::size_t>(lane)]);
  }
  return all;
}

/// That f gives the same bits for doubles and for lanes of them.
template <int n, class F>
void expect_same(const F& f) {
  for (std::size_t begin = 0; begin < some.size(); begin += n) {
    const auto together = f(in_lanes<n>(some, begin), in_lanes<n>(others, begin));
    for (std::size_t lane = 0; lane < n; ++lane) {
      const double alone = f(some[begin + lane], others[begin + lane]);
      EXPECT_EQ(numbers::bits_of(numbers::lane_of(together, lane)), numbers::bits_of(alone))
          << n << " lanes, " << some[begin + lane] << " and " << others[begin + lane];
    }
  }
}

template <class F>
void expect_same_in_all_widths(const F& f) {
  expect_same<2>(f);
  expect_same<4>(f);
  expect_same<8>(f);
}

TEST(Lanes, DoWhatOneNumberDoes) {
  expect_same_in_all_widths([](auto a, auto b) { return numbers::larger(a, b); });
  expect_same_in_all_widths([](auto a, auto b) { return numbers::smaller(a, b); });
  expect_same_in_all_widths([](auto a, auto b) { return numbers::abs(a - 2 * b); });
  expect_same_in_all_widths(
      [](auto a, auto b) { return numbers::sqrt(numbers::abs(a)) / (b + 1.5) - a * b; });
  expect_same_in_all_widths(
      [](auto a, auto b) { return numbers::select((a < b) | (a == b), a, -b); });
  expect_same_in_all_widths([](auto a, auto b) {
    return numbers::each_lane(a, b, [](double x, double y) { return x > y ? 1.0 : y; });
  });
}

TEST(Lanes, KeepTheSignOfAZeroThatFillsThem) {
  const numbers::Lanes<double, 4> zero = -0.0;
  EXPECT_TRUE(std::signbit(zero[3]));
}

TEST(Lanes, TellInWhichAConditionHolds) {
  const auto a = in_lanes<8>(some, 0);
  const auto positive = a > 0;
  EXPECT_EQ(numbers::lanes_of(positive), 0b10101001U);
  EXPECT_TRUE(numbers::any(positive));
  EXPECT_FALSE(numbers::all(positive));
  EXPECT_TRUE(numbers::all(positive | !positive));
  EXPECT_FALSE(numbers::any(positive & !positive));
  EXPECT_EQ(numbers::lanes_of(numbers::Mask<4>(true)), 0b1111U);
}

TEST(Rows, HaveTheElementsOfEachLanesRow) {
  static constexpr float table[3][2]{{1, 2}, {3, 4}, {5, 6}};
  numbers::Lanes<double, 2> place;
  place.set(0, 2);
  place.set(1, 1.9);
  const auto rows = numbers::rows_of<float, numbers::Lanes<double, 2>>(
      numbers::whole_below(place), [](auto number) { return table[number]; });
  const auto [first, second] = rows.first<2>();
  EXPECT_EQ(first[0], 5);
  EXPECT_EQ(first[1], 3);
  EXPECT_EQ(second[0], 6);
  EXPECT_EQ(second[1], 4);
}

}  // namespace
