#pragma once

#include "formulation/subregion3.hpp"
#include "formulation/unrolled.hpp"
#include "numbers/lanes.hpp"

namespace formulation {

// Subregion 3 arranged for several properties of one state. At one temperature the groups C0 … C3,
// the term C41 and the conditional group are one series in w = 1/χ, so that every derivative of ψ3
// takes one sum, whatever the number of groups. The results differ from those of the published
// grouping in the last digits only.

namespace subregion3 {

/// An index for the last coefficient of a group, which belongs to ln χ.
constexpr std::size_t of_log = 99;

/// Coefficient v of a group, or 0 beyond those of powers.
template <class Group>
constexpr double coefficient(const Group& C, std::size_t v) {
  return v == of_log ? C.back() : v + 1 < C.size() ? C[v] : 0;
}

/// A coefficient at one temperature, with its first two θ-derivatives.
template <class Num>
struct OverTheta {
  Num value, first, second;
  [[gnu::always_inline]] OverTheta& operator+=(const OverTheta& more) {
    value += more.value;
    first += more.first;
    second += more.second;
    return *this;
  }
  [[gnu::always_inline]] friend OverTheta operator*(double factor, const OverTheta& c) {
    return {factor * c.value, factor * c.first, factor * c.second};
  }
};

/// C0 + C1 τ + C2 τ² + C3 τ³ for coefficient v of the groups; the longest of them is C0.
template <std::size_t v, class Num>
[[gnu::always_inline]] inline OverTheta<Num> grouped(Num tau) {
  constexpr double c0 = coefficient(C0, v), c1 = coefficient(C1, v), c2 = coefficient(C2, v);
  constexpr double c3 = coefficient(C3, v);
  if constexpr (c1 == 0 && c2 == 0 && c3 == 0) {
    return {Num(0) + c0, Num(0), Num(0)};
  }
  return {((c3 * tau + c2) * tau + c1) * tau + c0, (3 * c3 * tau + 2 * c2) * tau + c1,
          6 * c3 * tau + 2 * c2};
}

/// A reciprocal reduced temperature amid those of the vapour next to the boundary line, where χ⁶
/// weighs most.
constexpr double C6_centre = 0.95;

/// Σ C6v x^v of the reciprocal temperature x, with the factors of χ⁶ x² and of its θ-derivatives,
/// which are χ⁶ x³ and χ⁶ x⁴.
constexpr Centred<5> C6_0{C6,
                          C6_centre,
                          {3.07397198340935e-07, -3.2700916649209854e-06, -0.0005303551960499101,
                           -0.00017424050599996847, 0.06828087013}};
constexpr Centred<5> C6_1{{-2 * C6[0], -3 * C6[1], -4 * C6[2], -5 * C6[3], -6 * C6[4]},
                          C6_centre,
                          {2.4917926850458178e-06, 0.0010174851474896475, 0.0026180062262995503,
                           -0.2585961039640002, -0.40968522078}};
constexpr Centred<5> C6_2{{6 * C6[0], 12 * C6[1], 20 * C6[2], 30 * C6[3], 42 * C6[4]},
                          C6_centre,
                          {-0.0009740862681700399, -0.009044152419926914, 0.7239088651659034,
                           3.108380462748001, 2.86779654546}};

/// (τ + 1) times the τ-derivative of Σ C7v τ^(v+1), less that sum, in powers of τ.
constexpr auto C7_h = [] {
  std::array<double, 10> c{};
  for (std::size_t i = 0; i < C7.size(); ++i) {
    const auto n = static_cast<double>(i);
    c[i] += (n + 1) * C7[i];
    c[i + 1] += n * C7[i];
  }
  return c;
}();

}  // namespace subregion3

/// ψ3 at one temperature but for what depends on that alone: coefficients of functions of χ.
template <class Math>
struct Series3 {
  using Coefficient = subregion3::OverTheta<typename Math::Number>;
  std::array<Coefficient, 10> w;  // of w, w², …
  Coefficient one, chi, log_chi, chi6;
  Coefficient R;  // of D50 + D51 χ + D52 χ²

  /// Σ factor(k) c_k w^k of the values or of one of the derivatives.
  template <class Num, class Factor>
  [[gnu::always_inline]] Num sum(Num Coefficient::*which, Num w_here, Factor factor) const {
    std::array<Num, 10> weighted{};
    for (std::size_t i = 0; i < weighted.size(); ++i) {
      weighted[i] = factor(static_cast<double>(i + 1)) * (w[i].*which);
    }
    return Math::polynomial(weighted, w_here) * w_here;
  }
};

/// Without the conditional group. A caller that takes no θ-derivatives has none computed.
template <class Math>
[[gnu::always_inline]] inline Series3<Math> series3(typename Math::Number theta) {
  using namespace subregion3;
  using Num = typename Math::Number;
  using Divisor = typename Math::Divisor;
  const Num tau = theta - 1;
  const Num x = 1 / Divisor(theta), x2 = x * x;
  const Num x23 = Math::template whole_power<23>(x);
  Series3<Math> s;
  unrolled<10>([&](auto i) __attribute__((always_inline)) { s.w[i] = grouped<i + 2>(tau); });
  s.chi = grouped<1>(tau);
  s.log_chi = grouped<of_log>(tau);
  const OverTheta<Num> of_C4{tau * x23, (23 - 22 * theta) * x23 * x,
                             (506 * theta - 552) * x23 * x2};
  s.w[4] += C41 * of_C4;
  s.one = C40 * of_C4;
  s.one.value += C0[0];
  s.chi6 = {Math::polynomial(C6_0, x) * x2, Math::polynomial(C6_1, x) * x2 * x,
            Math::polynomial(C6_2, x) * x2 * x2};
  s.R = {Num(0), Num(0), Num(0)};
  return s;
}

/// Adds the conditional group where it stands: below the critical temperature and volume.
template <class Math>
[[gnu::always_inline]] inline void add_conditional(Series3<Math>& s, typename Math::Number theta,
                                                   numbers::MaskOf<typename Math::Number> stands) {
  using namespace subregion3;
  using Num = typename Math::Number;
  constexpr double dy = -1 / one_minus_theta_350;
  const Num y = numbers::select(stands, (theta - 1) * dy, Num(0)), y2 = y * y,
            y30 = Math::template whole_power<15>(y2);
  const auto add = [&](auto& to, std::size_t v) __attribute__((always_inline)) {
    to += OverTheta<Num>{y2 * y * (D3[v] + y * D4[v]), dy * y2 * (3 * D3[v] + 4 * y * D4[v]),
                         dy * dy * 6 * y * (D3[v] + 2 * y * D4[v])};
  };
  add(s.one, 0);
  for (std::size_t v = 1; v < D3.size(); ++v) {
    add(s.w[v - 1], v);
  }
  s.R = {y30 * y2, 32 * dy * y30 * y, 992 * dy * dy * y30};
}

/// ψ3's derivatives over χ and θ, as far as they are asked for.
template <class Math>
struct Derivatives3 {
  using Num = typename Math::Number;
  Num chi, theta;
  Num chi_1, theta_1;                 // ∂ψ3/∂χ, ∂ψ3/∂θ
  Num legendre;                       // ψ3 - θ ∂ψ3/∂θ - χ ∂ψ3/∂χ
  Num chi_2, chi_1_theta_1, theta_2;  // the second ones
};

/// @param v  specific volume, m³/kg
/// @param t  temperature, °C
template <class Math>
// NOLINTNEXTLINE(readability-function-size): straight formulas
[[gnu::always_inline]] inline Derivatives3<Math> derivatives3(typename Math::Number v,
                                                              typename Math::Number t) {
  using namespace subregion3;
  using Num = typename Math::Number;
  using Divisor = typename Math::Divisor;
  using Coefficient = OverTheta<Num>;
  const Num chi = v / Divisor(reducing_volume);
  const Num theta = reduced_temperature<Divisor>(t), tau = theta - 1;
  const Num w = reducing_volume / Divisor(v);
  const Num chi2 = chi * chi, chi4 = chi2 * chi2, chi5 = chi4 * chi, chi6 = chi5 * chi;
  const Num log_chi = Math::log(chi);
  auto c = series3<Math>(theta);
  const auto stands = (theta < 1) & (chi < 1);
  if (numbers::any(stands)) {
    add_conditional<Math>(c, theta, stands);
  }
  const Num R = Math::polynomial(D5, chi), R_1 = Math::polynomial(R0d, chi);

  const auto once = [](double) { return 1.0; };
  const auto by_power = [](double n) { return n; };
  const Num sum_0 = c.sum(&Coefficient::value, w, once);
  const Num sum_1 = c.sum(&Coefficient::value, w, by_power);
  const Num sum_2 = c.sum(&Coefficient::value, w, [](double n) { return n * (n + 1); });
  const Num sum_0_theta = c.sum(&Coefficient::first, w, once);
  const Num sum_1_theta = c.sum(&Coefficient::first, w, by_power);
  const Num sum_0_theta_theta = c.sum(&Coefficient::second, w, once);
  const Num theta_1_of_both = sum_0_theta + c.chi.first * chi + c.log_chi.first * log_chi +
                              c.one.first + chi6 * c.chi6.first + c.R.first * R;
  constexpr std::array<double, 9> C7_1{C7[0],     2 * C7[1], 3 * C7[2], 4 * C7[3], 5 * C7[4],
                                       6 * C7[5], 7 * C7[6], 8 * C7[7], 9 * C7[8]};
  constexpr std::array<double, 8> C7_2{2 * C7[1],  6 * C7[2],  12 * C7[3], 20 * C7[4],
                                       30 * C7[5], 42 * C7[6], 56 * C7[7], 72 * C7[8]};

  Derivatives3<Math> s;
  s.chi = chi;
  s.theta = theta;
  s.chi_1 = (c.log_chi.value - sum_1) * w + c.chi.value + 6 * chi5 * c.chi6.value + c.R.value * R_1;
  s.theta_1 = theta_1_of_both + C50 * (1 + Math::log(theta)) + Math::polynomial(C7_1, tau);
  s.legendre = sum_0 + sum_1 + c.log_chi.value * (log_chi - 1) + c.one.value -
               5 * chi6 * c.chi6.value + c.R.value * (R - chi * R_1) - theta * theta_1_of_both -
               C50 * theta - Math::polynomial(C7_h, tau);
  s.chi_2 = (sum_2 - c.log_chi.value) * w * w + 30 * chi4 * c.chi6.value + c.R.value * R0d[1];
  s.chi_1_theta_1 =
      (c.log_chi.first - sum_1_theta) * w + c.chi.first + 6 * chi5 * c.chi6.first + c.R.first * R_1;
  s.theta_2 = sum_0_theta_theta + c.chi.second * chi + c.log_chi.second * log_chi + c.one.second +
              chi6 * c.chi6.second + c.R.second * R + C50 / Divisor(theta) +
              Math::polynomial(C7_2, tau);
  return s;
}

/// Pressure, bar.
template <class Math>
[[gnu::always_inline]] inline auto pressure(const Derivatives3<Math>& s) {
  return -s.chi_1 * reducing_pressure;
}

/// Enthalpy, kJ/kg.
template <class Math>
[[gnu::always_inline]] inline auto enthalpy(const Derivatives3<Math>& s) {
  return (s.legendre + enthalpy_origin) * enthalpy_scale;
}

/// Entropy, kJ/(kg K).
template <class Math>
[[gnu::always_inline]] inline auto entropy(const Derivatives3<Math>& s) {
  return (-s.theta_1 - entropy_origin) * entropy_scale;
}

/// Isobaric heat capacity, kJ/(kg K).
template <class Math>
[[gnu::always_inline]] inline auto heat_capacity(const Derivatives3<Math>& s) {
  return s.theta * (s.chi_1_theta_1 * s.chi_1_theta_1 / s.chi_2 - s.theta_2) * entropy_scale;
}

}  // namespace formulation
