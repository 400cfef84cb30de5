#pragma once

#include <algorithm>
#include <array>

#include "formulation/boundary_line.hpp"
#include "formulation/elementary.hpp"
#include "formulation/reduced.hpp"
#include "formulation/unrolled.hpp"

namespace formulation {

/// Steam up to 800 °C: coefficients of the reduced Gibbs function ζ2(β, θ).
/// @source IFC-67 (1967), subregion 2
namespace subregion2 {
constexpr double B0 = 1.683599274e1;
/// B01 … B05 at index 1 … 5.
constexpr std::array<double, 6> B0v{
    0, 2.856067796e1, -5.438923329e1, 4.330662834e-1, -6.547711697e-1, 8.565182058e-2};
constexpr double b = 7.633333333e-1;

/// A term -B βⁿ X^z.
struct Term {
  unsigned n, z;
  double B;
};
/// B11 … B53.
constexpr std::array<Term, 12> terms{{
    {1, 13, 6.670375918e-2},
    {1, 3, 1.388983801},
    {2, 18, 8.390104328e-2},
    {2, 2, 2.614670893e-2},
    {2, 1, -3.373439453e-2},
    {3, 18, 4.520918904e-1},
    {3, 10, 1.069036614e-1},
    {4, 25, -5.975336707e-1},
    {4, 14, -8.847535804e-2},
    {5, 32, 5.958051609e-1},
    {5, 28, -5.159303373e-1},
    {5, 24, 2.075021122e-1},
}};
constexpr unsigned groups = terms.back().n;

/// A factor B X^z.
struct Power {
  unsigned z;
  double B;
};
/// A term -(N1 + N2) / (β⁻ⁿ + b1 X^y + b2 X²ʸ).
struct Fraction {
  unsigned n;
  Power N1, N2;
  unsigned y;
  double b1, b2 = 0;
};
/// B61 … B82 with b61 … b82; published, b81 belongs to X⁵⁴ and b82 to X²⁷.
constexpr std::array<Fraction, 3> fractions{{
    {4, {12, 1.190610271e-1}, {11, -9.867174132e-2}, 14, 4.006073948e-1},
    {5, {24, 1.683998803e-1}, {18, -5.809438001e-2}, 19, 8.636081627e-2},
    {6, {24, 6.552390126e-3}, {14, 5.710218649e-4}, 27, 3.460208861e-1, -8.532322921e-1},
}};

/// B90 … B96.
constexpr std::array<double, 7> B9{1.936587558e2, -1.388522425e3, 4.126607219e3, -6.508211677e3,
                                   5.745984054e3, -2.693088365e3, 5.235718623e2};

/// X^z at index z, for those z that the terms have.
template <class Num>
using PowersOfX = std::array<Num, 55>;

/// f(n, terms in βⁿ) for each n.
template <class F>
[[gnu::always_inline]] constexpr void each_group(const F& f) {
  unrolled<groups>([&](auto i) __attribute__((always_inline)) {
    constexpr unsigned n = i + 1;
    constexpr auto in_group = [](const Term& term) { return term.n == n; };
    constexpr auto size = std::count_if(terms.begin(), terms.end(), in_group);
    constexpr auto first = std::find_if(terms.begin(), terms.end(), in_group) - terms.begin();
    [&]<long... k>(std::integer_sequence<long, k...>) __attribute__((always_inline)) {
      f(n, terms[first + k]...);
    }
    (std::make_integer_sequence<long, size>{});
  });
}
}  // namespace subregion2

/// The sub-expressions that the properties of subregion 2 share.
template <class Math>
struct Terms2 {
  using Num = typename Math::Number;
  Num theta, one_over_theta;  // reduced temperature
  Num theta2, theta3, theta4;
  subregion2::PowersOfX<Num> X;  // of X = exp(b (1 - θ))
  std::array<Num, 8> beta;       // β⁰ … β⁷ of the reduced pressure
  // Of each fraction: N1 over the power of X in N2, the denominator, X ∂/∂X of its logarithm.
  std::array<Num, 3> N1_X, D, dD;
  Num beta_L, dbeta_L;  // boundary line, and ten times the θ-derivative of its logarithm
  Num r, r10;           // β/βL and its tenth power
};

/// @param p  pressure, bar
/// @param t  temperature, °C
template <class Math>
// NOLINTNEXTLINE(readability-function-size): straight formulas
Terms2<Math> terms2(typename Math::Number p, typename Math::Number t) {
  using namespace subregion2;
  Terms2<Math> s{};
  auto& beta = s.beta;
  beta[0] = 1;
  beta[1] = p / reducing_pressure;
  s.theta = reduced_temperature(t);
  s.one_over_theta = 1 / s.theta;
  s.theta2 = s.theta * s.theta;
  s.theta3 = s.theta * s.theta2;
  s.theta4 = s.theta2 * s.theta2;
  auto& X = s.X;
  X[1] = Math::exp((1 - s.theta) * b);
  X[2] = X[1] * X[1];
  X[3] = X[1] * X[2];
  X[4] = X[2] * X[2];
  X[6] = X[3] * X[3];
  X[8] = X[4] * X[4];
  X[10] = X[4] * X[6];
  X[11] = X[1] * X[10];
  X[12] = X[6] * X[6];
  X[13] = X[2] * X[11];
  X[14] = X[6] * X[8];
  X[17] = X[6] * X[11];
  X[18] = X[8] * X[10];
  X[19] = X[8] * X[11];
  X[24] = X[11] * X[13];
  X[25] = X[11] * X[14];
  X[27] = X[13] * X[14];
  X[28] = X[14] * X[14];
  X[32] = X[4] * X[28];
  beta[2] = beta[1] * beta[1];
  beta[3] = beta[1] * beta[2];
  beta[4] = beta[2] * beta[2];
  beta[5] = beta[2] * beta[3];
  beta[6] = beta[3] * beta[3];
  beta[7] = beta[3] * beta[4];
  for (std::size_t i = 0; i < fractions.size(); ++i) {
    const auto& [n, N1, N2, y, b1, b2] = fractions[i];
    s.N1_X[i] = N1.B * X[N1.z - N2.z];
    if (b2 == 0) {
      s.D[i] = 1 / beta[n] + b1 * X[y];
      s.dD[i] = b1 * y * X[y] / s.D[i];
    } else {
      s.D[i] = (b2 * X[y] + b1) * X[y] + 1 / beta[n];
      s.dD[i] = y * X[y] * (2 * b2 * X[y] + b1) / s.D[i];
    }
  }
  s.beta_L = boundary_line(s.theta);
  s.dbeta_L = boundary_line.slope(s.theta) * 10 / s.beta_L;
  s.r = beta[1] / s.beta_L;
  const auto r2 = s.r * s.r;
  const auto r4 = r2 * r2;
  s.r10 = r4 * r4 * r2;
  return s;
}

/// Σ weight(v) B9v X^v.
template <class Math, class Weight>
auto sum9(const Terms2<Math>& s, const Weight& weight) {
  auto sum = typename Math::Number(0);
  for (auto v = subregion2::B9.size(); v-- > 0;) {
    sum = sum * s.X[1] + weight(static_cast<double>(v)) * subregion2::B9[v];
  }
  return sum;
}

/// Specific volume of steam, m³/kg: ∂ζ2/∂β.
template <class Math>
auto volume(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  Num chi = ideal_gas_constant * s.theta / s.beta[1];
  each_group(
      [&](auto n, auto... of) { chi = chi - n * s.beta[n - 1] * (... + (of.B * s.X[of.z])); });
  for (std::size_t i = 0; i < fractions.size(); ++i) {
    const auto& [n, N1, N2, y, b1, b2] = fractions[i];
    chi = chi - n * (s.N1_X[i] + N2.B) * s.X[N2.z] / (s.beta[n + 1] * s.D[i] * s.D[i]);
  }
  return (chi + 11 * s.r10 * horner(B9, s.X[1])) * reducing_volume;
}

/// Enthalpy of steam, kJ/kg: ζ2 - θ ∂ζ2/∂θ.
template <class Math>
auto enthalpy(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  const Num bt = b * s.theta;
  // B0 θ - Σ (v - 2) B0v θ^(v-1), v = 1 … 5
  constexpr std::array<double, 5> polynomial{B0v[1], B0, -B0v[3], -2 * B0v[4], -3 * B0v[5]};
  Num epsilon = horner(polynomial, s.theta);
  each_group([&](auto n, auto... of) {
    epsilon = epsilon - s.beta[n] * (... + (of.B * s.X[of.z] * (1 + of.z * bt)));
  });
  for (std::size_t i = 0; i < fractions.size(); ++i) {
    const auto& [n, N1, N2, y, b1, b2] = fractions[i];
    const Num first = s.N1_X[i] * (1 + (N1.z - s.dD[i]) * bt);
    const Num second = N2.B * (1 + (N2.z - s.dD[i]) * bt);
    epsilon = epsilon - s.X[N2.z] * (first + second) / s.D[i];
  }
  const Num last = sum9(s, [&](double v) { return 1 + (s.dbeta_L * s.theta + v * bt); });
  return (epsilon + s.beta[1] * s.r10 * last + enthalpy_origin) * enthalpy_scale;
}

/// Entropy of steam, kJ/(kg K): -∂ζ2/∂θ.
template <class Math>
auto entropy(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  // -Σ (v - 1) B0v θ^(v-2), v = 2 … 5
  constexpr std::array<double, 4> polynomial{-B0v[2], -2 * B0v[3], -3 * B0v[4], -4 * B0v[5]};
  Num series = Num(0);
  each_group(
      [&](auto n, auto... of) { series = series + s.beta[n] * (... + (of.z * of.B * s.X[of.z])); });
  for (std::size_t i = 0; i < fractions.size(); ++i) {
    const auto& [n, N1, N2, y, b1, b2] = fractions[i];
    const Num numerator = s.N1_X[i] * (N1.z - s.dD[i]) + N2.B * (N2.z - s.dD[i]);
    series = series + s.X[N2.z] * numerator / s.D[i];
  }
  const Num last = sum9(s, [&](double v) { return s.dbeta_L + v * b; });
  const Num sigma = B0 * Math::log(s.theta) - ideal_gas_constant * Math::log(s.beta[1]) +
                    horner(polynomial, s.theta) - b * series + s.beta[1] * s.r10 * last;
  return (sigma - entropy_origin) * entropy_scale;
}

/// (X ∂/∂X)² of one of the fractions.
template <class Math>
auto second_log_derivative(const Terms2<Math>& s, std::size_t i) {
  using Num = typename Math::Number;
  const auto& [n, N1, N2, y, b1, b2] = subregion2::fractions[i];
  const Num X_y = s.X[y], D = s.D[i], dD = s.dD[i];
  const Num ddD = b2 == 0 ? y * dD : y * y * X_y * (4 * b2 * X_y + b1) / D;  // (X ∂/∂X)² D over D
  const Num rest = 2 * dD * dD - ddD;
  const Num first = s.N1_X[i] * s.X[N2.z] * (N1.z * N1.z - 2 * N1.z * dD + rest);
  const Num second = N2.B * s.X[N2.z] * (N2.z * N2.z - 2 * N2.z * dD + rest);
  return (first + second) / D;
}

/// Isobaric heat capacity of steam, kJ/(kg K): -θ ∂²ζ2/∂θ².
template <class Math>
auto heat_capacity(const Terms2<Math>& s) {
  using namespace subregion2;
  using Num = typename Math::Number;
  // -Σ (v - 1)(v - 2) B0v θ^(v-3), v = 3 … 5
  constexpr std::array<double, 3> polynomial{-2 * B0v[3], -6 * B0v[4], -12 * B0v[5]};
  Num series = Num(0);
  each_group([&](auto n, auto... of) {
    series = series + s.beta[n] * (... + (of.z * of.z * of.B * s.X[of.z]));
  });
  for (std::size_t i = 0; i < fractions.size(); ++i) {
    series = series + second_log_derivative(s, i);
  }
  // With S = Σ B9v X^v and l = βL'/βL: (10 l' - 100 l²) S - 20 l b δS - b² δ²S, δ = X ∂/∂X
  const Num l = s.dbeta_L / 10;
  const Num of_S = 10 * boundary_line.curvature() / s.beta_L - 110 * l * l;
  const Num last = sum9(s, [&](double v) { return of_S - v * b * (20 * l + v * b); });
  const Num dsigma =
      B0 / s.theta + horner(polynomial, s.theta) + b * b * series + s.beta[1] * s.r10 * last;
  return s.theta * dsigma * entropy_scale;
}

}  // namespace formulation
