#include <gtest/gtest.h>
#include <mpfr.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <span>
#include <vector>

#include "numbers/power_5_17.hpp"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// What a function is, with many digits.
using Exact = void (*)(mpfr_t result, mpfr_t x);

template <int numerator, int denominator>
void exact_power(mpfr_t result, mpfr_t x) {
  mpfr_t exponent;
  mpfr_init2(exponent, mpfr_get_prec(x));
  mpfr_set_si(exponent, numerator, MPFR_RNDN);
  mpfr_div_si(exponent, exponent, denominator, MPFR_RNDN);
  mpfr_pow(result, x, exponent, MPFR_RNDN);
  mpfr_clear(exponent);
}
template <int numerator, int denominator, class Num>
Num power(Num x) {
  return numbers::power(x, static_cast<double>(numerator) / denominator);
}

/// A function over the number types. The exponents are doubles; -5/17 is none, and what its
/// rounding makes of the power far away from 1 is not counted.
struct Function {
  const char* name;
  Exact exact;
  double (*alone)(double);
  numbers::Lanes<double, 2> (*two)(numbers::Lanes<double, 2>);
  numbers::Lanes<double, 8> (*eight)(numbers::Lanes<double, 8>);
};
#define OVER_NUMBERS(f)                                                            \
  [](double x) { return f(x); }, [](numbers::Lanes<double, 2> x) { return f(x); }, \
      [](numbers::Lanes<double, 8> x) { return f(x); }
const std::array functions{
    Function{"exp", [](mpfr_t y, mpfr_t x) { mpfr_exp(y, x, MPFR_RNDN); },
             OVER_NUMBERS(numbers::exp)},
    Function{"log", [](mpfr_t y, mpfr_t x) { mpfr_log(y, x, MPFR_RNDN); },
             OVER_NUMBERS(numbers::log)},
    Function{"power 5/16", exact_power<5, 16>, OVER_NUMBERS((power<5, 16>))},
    Function{"power 19.5", exact_power<39, 2>, OVER_NUMBERS((power<39, 2>))},
    Function{"power -19.5", exact_power<-39, 2>, OVER_NUMBERS((power<-39, 2>))},
    Function{"power -5/17", exact_power<-5, 17>, OVER_NUMBERS(numbers::to_minus_5_17)},
};

/// In units of the last place of the result.
double error(Exact f, double x, double value) {
  mpfr_t argument, exact;
  mpfr_inits2(120, argument, exact, nullptr);
  mpfr_set_d(argument, x, MPFR_RNDN);
  f(exact, argument);
  const double nearest = mpfr_get_d(exact, MPFR_RNDN);
  double units = value == nearest || (std::isnan(value) && std::isnan(nearest)) ? 0 : infinity;
  if (std::isfinite(nearest) && std::isfinite(value)) {
    const double size = std::fmax(std::abs(nearest), std::numeric_limits<double>::min());
    mpfr_sub_d(exact, exact, value, MPFR_RNDN);
    mpfr_div_d(exact, exact, std::ldexp(1, std::ilogb(size) - 52), MPFR_RNDN);
    units = std::abs(mpfr_get_d(exact, MPFR_RNDN));
  }
  mpfr_clears(argument, exact, nullptr);
  return units;
}

/// Of every binade and both signs, the sides of the tables' cells, and next to 1.
const std::vector<double>& arguments() {
  static const std::vector<double> all = [] {
    std::mt19937_64 random(1967);
    std::vector<double> x;
    for (int binade = -1074; binade < 1024; ++binade) {
      for (int i = 0; i < 16; ++i) {
        x.push_back(std::ldexp(1 + std::uniform_real_distribution()(random), binade) *
                    (i < 14 ? 1 : -1));
      }
    }
    for (int cell = -640; cell < 640; ++cell) {
      const double side = std::ldexp(1 + (cell & 127) / 128.0, cell >> 7);
      const double middle = side + std::ldexp(1.0 / 256, cell >> 7);
      for (const double at : {side, middle}) {
        x.insert(x.end(), {at, std::nextafter(at, 0), -at});
      }
    }
    for (int i = 0; i < 10000; ++i) {
      const double share = std::uniform_real_distribution(-1.0, 1.0)(random);
      x.insert(x.end(), {1 + std::ldexp(share, -i % 53), 720 * share, 4 * share});
    }
    x.resize(x.size() / 8 * 8);
    return x;
  }();
  return all;
}

TEST(ElementaryFunctions, AreExactToLittleMoreThanHalfAUnit) {
  for (const Function& f : functions) {
    double worst = 0, worst_small = 0;  // among subnormal results, which are rounded twice
    for (const double x : arguments()) {
      if (f.exact == exact_power<-5, 17> && !numbers::power_5_17::is_tabulated(x)) {
        continue;
      }
      const double value = f.alone(x);
      const bool small = std::abs(value) < std::numeric_limits<double>::min();
      double& most = small ? worst_small : worst;
      most = std::fmax(most, error(f.exact, x, value));
    }
    EXPECT_LT(worst, 0.52) << f.name;
    EXPECT_LT(worst_small, 0.76) << f.name;
  }
}

bool same_bits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

template <int n, class F>
void expect_same_in_lanes(const Function& f, const std::vector<double>& x, F in_lanes) {
  for (std::size_t i = 0; i < x.size(); i += n) {
    numbers::Lanes<double, n> lanes;
    for (int lane = 0; lane < n; ++lane) {
      lanes.set(lane, x[i + static_cast<std::size_t>(lane)]);
    }
    const auto values = in_lanes(lanes);
    for (int lane = 0; lane < n; ++lane) {
      ASSERT_TRUE(same_bits(values[lane], f.alone(lanes[lane]))) << f.name << ' ' << lanes[lane];
    }
  }
}

/// In lanes of their kind and next to those of any other.
TEST(ElementaryFunctions, HaveTheSameBitsInEveryLane) {
  std::vector<double> x = arguments();
  for (const Function& f : functions) {
    expect_same_in_lanes<2>(f, x, f.two);
    expect_same_in_lanes<8>(f, x, f.eight);
  }
  std::shuffle(x.begin(), x.end(), std::mt19937_64(5));
  for (const Function& f : functions) {
    expect_same_in_lanes<8>(f, x, f.eight);
  }
}

TEST(ElementaryFunctions, TakeThePowerWhereNothingIsTabulated) {
  for (const double z : arguments()) {
    if (!numbers::power_5_17::is_tabulated(z)) {
      ASSERT_TRUE(same_bits(numbers::to_minus_5_17(z), numbers::power(z, -5.0 / 17))) << z;
    }
  }
}

TEST(ElementaryFunctions, KeepToTheirEnds) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double least = std::numeric_limits<double>::denorm_min();
  for (const Function& f : std::span(functions).first<5>()) {
    for (const double x : {0.0, infinity, nan, least, 709.7827128933841, 709.782712893384}) {
      EXPECT_LT(error(f.exact, x, f.alone(x)), 0.76) << f.name << ' ' << x;
    }
  }
  for (const double x : {-0.0, -infinity, -745.1332191019411, -745.1332191019412}) {
    EXPECT_LT(error(functions[0].exact, x, numbers::exp(x)), 0.76) << x;
  }
  EXPECT_EQ(numbers::log(-0.0), -infinity);
  EXPECT_EQ(numbers::power(-0.0, -0.5), infinity);
  for (const double below : {-least, -1.0, -infinity}) {
    EXPECT_TRUE(std::isnan(numbers::log(below)) && std::isnan(numbers::power(below, 0.5))) << below;
  }
}

}  // namespace
