#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

#include "formulation/saturation.hpp"
#include "formulation/subregion1.hpp"
#include "formulation/subregion2_moments.hpp"
#include "formulation/subregion3_isotherm.hpp"
#include "steam/equations/arithmetic.hpp"

// The engine's arrangement of the equations against the published grouping in extended precision.

namespace {

using namespace formulation;
using Engine = steam::SharedDivisions;
using X = long double;

struct Exact {
  using Number = X;
  using Divisor = X;
  template <class Table>
  static X polynomial(const Table& c, X x) {
    return horner(c, x);
  }
  template <std::size_t N>
  static X polynomial(const Centred<N>& c, X x) {
    return horner(c.published, x);
  }
  static X power_m5_17(X z) { return std::pow(z, -5.0L / 17); }
  static X exp(X x) { return std::exp(x); }
  static X log(X x) { return std::log(x); }
  static X sqrt(X x) { return std::sqrt(x); }
  template <int N>
  static X whole_power(X x) {
    return std::pow(x, N);
  }
};

constexpr double p_lowest = 0.006112444, p_highest = 1000;

double saturation(double t) { return saturation_pressure<Elementary>(saturation_terms(t)); }

X pressure3(const Terms3<Exact>& at) {
  return pressure(at, leaves_conditional_out(at) ? 0 : conditional_pressure(at));
}

// Properties of either arrangement.
constexpr auto v = [](const auto& at) { return volume(at); };
constexpr auto h = [](const auto& at) { return enthalpy(at); };
constexpr auto s = [](const auto& at) { return entropy(at); };
constexpr auto cp = [](const auto& at) { return heat_capacity(at); };
constexpr auto one_over_cp = [](const auto& at) { return 1 / heat_capacity(at); };
constexpr auto v_over_p = [](const auto& at) { return volume_slopes(at).over_p; };
constexpr auto v_over_t = [](const auto& at) { return volume_slopes(at).over_t; };

/// Differences of the fourth order.
template <class F>
X slope(const F& f, X step) {
  return (8 * (f(step) - f(-step)) - (f(2 * step) - f(-2 * step))) / (12 * step);
}

struct State {
  double z, t;  // z: p, or v in subregion 3
};

using RandomState = std::function<State(std::mt19937_64&)>;

double between(double low, double high, std::mt19937_64& random) {
  return std::uniform_real_distribution(low, high)(random);
}

/// One property in both arrangements.
void compare(const char* name, const RandomState& random_state, double share, double absolute,
             const std::function<double(double, double)>& ours,
             const std::function<X(X, X)>& exact) {
  std::mt19937_64 random(1967);
  for (int i = 0; i < 20000; ++i) {
    const auto [z, t] = random_state(random);
    const X x = exact(z, t);
    ASSERT_LE(std::abs(ours(z, t) - x), share * std::abs(x) + absolute)
        << name << ' ' << z << ' ' << t;
  }
}

/// Subregion 1 or 2. Tolerances, here and below, are about five times the largest error.
template <auto ours, auto exact>
struct Gibbs {
  RandomState state;
  void check(const char* name, auto property, double share, double absolute) const {
    compare(
        name, state, share, absolute, [=](double p, double t) { return property(ours(p, t)); },
        [=](X p, X t) { return property(exact(p, t)); });
  }
  /// @param p_floor  the differences take steps of 1e-4 of the pressure and this, bar
  /// @param t_step   and of this, K
  void check_slopes(double share_over_p, double share_over_t, double absolute, X p_floor,
                    X t_step) const {
    compare(
        "v over p", state, share_over_p, 0, [](double p, double t) { return v_over_p(ours(p, t)); },
        [=](X p, X t) {
          return slope([=](X d) { return v(exact(p + d, t)); }, (p + p_floor) * 1e-4L);
        });
    compare(
        "v over t", state, share_over_t, absolute,
        [](double p, double t) { return v_over_t(ours(p, t)); },
        [=](X p, X t) { return slope([=](X d) { return v(exact(p, t + d)); }, t_step); });
  }
};

TEST(EngineArithmetic, OfSubregion1) {
  const Gibbs<terms1<Engine>, terms1<Exact>> water{[](std::mt19937_64& random) {
    const double t = between(0.01, 350, random);
    return State{between(saturation(t), p_highest, random), t};
  }};
  water.check("v", v, 5e-15, 0);
  water.check("h", h, 0, 1e-11);
  water.check("s", s, 0, 1e-12);
  water.check("cp", cp, 4e-13, 0);
  water.check_slopes(1e-11, 0, 2e-18, 10, 2e-3L);
}

TEST(EngineArithmetic, OfSubregion2) {
  const Gibbs<moments2<Engine>, terms2<Exact>> steam{[](std::mt19937_64& random) {
    const double t = between(0.01, 800, random);
    const double p = t <= 350 ? saturation(t) : t <= 590 ? line_pressure(t) : p_highest;
    return State{std::exp(between(std::log(p_lowest), std::log(p), random)), t};
  }};
  steam.check("v", v, 1e-14, 0);
  steam.check("h", h, 0, 2e-11);
  steam.check("s", s, 0, 5e-13);
  steam.check("cp", cp, 8e-12, 0);
  steam.check_slopes(4e-12, 1e-10, 0, 0, 1e-2L);
}

/// From the boundary line to 1000 bar; between the phases too, where the equation goes on. At the
/// critical temperature its second derivatives have a kink.
State random_dense(std::mt19937_64& random) {
  State at{};
  X p = 0;
  do {
    at = {between(0.0013, 0.0089, random), between(350, 590, random)};
    p = pressure3(terms3<Exact>(at.z, at.t));
  } while (p < line_pressure(at.t) || p > p_highest ||
           std::abs(at.t - critical_temperature) < 0.01);
  return at;
}

/// In the vapour χ⁶ magnifies what the sum over C6 loses to cancellation, a part in 10⁷ of its
/// terms.
TEST(EngineArithmetic, OfTheSixthPowerInSubregion3) {
  const auto random_vapour = [](std::mt19937_64& random) {
    State at{};
    do {
      at = random_dense(random);
    } while (at.z < reducing_volume);
    return at;
  };
  compare(
      "p", random_vapour, 5e-14, 0,
      [](double z, double t) { return pressure(derivatives3<Engine>(z, t)); },
      [](X z, X t) { return pressure3(terms3<Exact>(z, t)); });
}

TEST(EngineArithmetic, OfSubregion3) {
  constexpr auto ours = derivatives3<Engine>;
  constexpr auto exact = terms3<Exact>;
  const auto check = [](const char* name, auto property, auto exact_property, double share,
                        double absolute) {
    compare(
        name, random_dense, share, absolute,
        [=](double z, double t) { return property(ours(z, t)); },
        [=](X z, X t) { return exact_property(exact(z, t)); });
  };
  const auto check_slope = [](const char* name, auto property, double absolute, auto exact_slope) {
    compare(
        name, random_dense, 0, absolute, [=](double z, double t) { return property(ours(z, t)); },
        exact_slope);
  };
  check(
      "p", [](const auto& at) { return pressure(at); }, pressure3, 1e-12, 0);
  check("h", h, h, 0, 2e-10);
  check("s", s, s, 0, 2e-13);
  check("1/cp", one_over_cp, one_over_cp, 0, 2e-11);  // cp has a pole at the critical point
  const auto p_over_v = [](X z, X t) {
    return slope([=](X d) { return pressure3(exact(z + d, t)); }, 1e-4L * z) * -reducing_volume /
           reducing_pressure;
  };
  check_slope(
      "p over v", [](const auto& at) { return at.chi_2; }, 5e-11, p_over_v);
  compare(
      "p on the isotherm", random_dense, 1e-12, 0,
      [](double z, double t) { return pressure(isotherm3<Engine>(t), z).p; },
      [](X z, X t) { return pressure3(exact(z, t)); });
  compare(
      "p over v on the isotherm", random_dense, 0, 5e-11,
      [](double z, double t) {
        return pressure(isotherm3<Engine>(t), z).over_v * -reducing_volume / reducing_pressure;
      },
      p_over_v);
  check_slope(
      "p over t", [](const auto& at) { return at.chi_1_theta_1; }, 5e-11,
      [](X z, X t) {
        return slope([=](X d) { return pressure3(exact(z, t + d)); }, 2e-3L) *
               -reducing_temperature / reducing_pressure;
      });
  check_slope(
      "s over t", [](const auto& at) { return at.theta_2; }, 5e-10,
      [](X z, X t) {
        return slope([=](X d) { return entropy(exact(z, t + d)); }, 2e-3L) * -reducing_temperature /
               entropy_scale;
      });
}

}  // namespace
