#include "samples.hpp"

#include <cmath>
#include <functional>
#include <numbers>

#include "formulation/saturation.hpp"
#include "steam/equations/slopes.hpp"

namespace {

using steam::Region;

double saturation(double t) {
  return formulation::saturation_pressure<steam::SharedDivisions<>>(
      formulation::saturation_terms(t));
}

/// Point i of n from a to b, close together at both ends.
double spaced(double a, double b, double i, int n) {
  return a + (b - a) * (1 - std::cos(std::numbers::pi * i / (n - 1))) / 2;
}

/// Point i of n moved on towards the next, by another share for each j, so that points of rows do
/// not stand in columns. The ends stay.
double moved(int i, int n, int j) {
  constexpr double golden = 0.6180339887498949;
  const bool is_end = i == 0 || i == n - 1;
  return is_end ? i : i + j * golden - std::floor(j * golden);
}

/// The same for a pressure: every other point by its logarithm, so that no decade is left out.
double spaced_pressure(double a, double b, int i, int n) {
  return i % 2 == 0 ? spaced(a, b, i, n) : std::exp(spaced(std::log(a), std::log(b), i, n));
}

double halved(const std::function<double(double)>& f, double a, double b) {
  const bool rising = f(b) > f(a);
  for (int i = 0; i < 100; ++i) {
    const double middle = (a + b) / 2;
    ((f(middle) > 0) == rising ? b : a) = middle;
  }
  return (a + b) / 2;
}

double p3(double v, double t) { return formulation::pressure(steam::Dense::terms(v, t)); }

template <class Terms>
Sample sample(const Terms& s, double p, double t) {
  const double v = formulation::volume(s);
  const double h = formulation::enthalpy(s);
  return {p, t, v, h, formulation::entropy(s), h - steam::kj_per_bar_m3 * p * v};
}

Sample sample3(double v, double t) {
  const auto s = steam::Dense::terms(v, t);
  const double p = formulation::pressure(s);
  const double h = formulation::enthalpy(s);
  return {p, t, v, h, formulation::entropy(s), h - steam::kj_per_bar_m3 * p * v};
}

Sample mixed(const Sample& a, const Sample& b, double x) {
  const auto mix = [x](double l, double v) { return l + x * (v - l); };
  return {a.p, a.t, mix(a.v, b.v), mix(a.h, b.h), mix(a.s, b.s), mix(a.u, b.u)};
}

std::vector<Sample> water(int n) {
  std::vector<Sample> all;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const double t = spaced(steam::t_lowest, steam::t_350, moved(i, n, j), n);
      const double p = spaced_pressure(saturation(t), steam::p_highest, j, n);
      all.push_back(sample(steam::Water::terms(p, t), p, t));
    }
  }
  return all;
}

double steam_limit(double t) {
  return t <= steam::t_350        ? saturation(t)
         : t <= steam::t_line_end ? std::fmin(steam::line_pressure(t), steam::p_highest)
                                  : steam::p_highest;
}

std::vector<Sample> steam_states(int n) {
  std::vector<Sample> all;
  for (int i = 0; i < 2 * n; ++i) {
    for (int j = 0; j < n; ++j) {
      const double t = i < n ? spaced(steam::t_lowest, steam::t_line_end, moved(i, n, j), n)
                             : spaced(steam::t_line_end, steam::t_highest, moved(i - n, n, j), n);
      const double p = spaced_pressure(steam::p_lowest, steam_limit(t), j, n);
      all.push_back(sample(steam::Steam::terms(p, t), p, t));
    }
  }
  return all;
}

/// Between two volumes at one temperature, evenly in density.
/// @param row  number of the isotherm
void add_isotherm(std::vector<Sample>& all, double t, double v_low, double v_high, int row, int n) {
  for (int j = 0; j < n; ++j) {
    all.push_back(sample3(1 / spaced(1 / v_high, 1 / v_low, moved(j, n, row), n), t));
  }
}

constexpr double v_least = 0.00125, v_most = 0.0105;

double volume_at(double p, double t, double low, double high) {
  return halved([=](double v) { return p3(v, t) - p; }, low, high);
}

std::vector<Sample> dense(int n, bool liquid_side) {
  std::vector<Sample> all;
  for (int i = 0; i < n; ++i) {
    const double t = spaced(steam::t_350 + 1e-9, steam::t_critical - 2e-3, i, n);
    const Volumes v = saturated_volumes_by_scan(t);
    if (liquid_side) {
      add_isotherm(all, t, volume_at(steam::p_highest, t, v_least, v.liquid), v.liquid, i, n);
    } else {
      add_isotherm(all, t, v.vapour, volume_at(steam::line_pressure(t), t, v.vapour, v_most), i, n);
    }
  }
  for (int i = 0; i < 2 * n && !liquid_side; ++i) {
    const double t = spaced(steam::t_critical, steam::t_line_end, i, 2 * n);
    add_isotherm(
        all, t, volume_at(steam::p_highest, t, v_least, v_most),
        volume_at(std::fmin(steam::line_pressure(t), steam::p_highest), t, v_least, v_most), i, n);
  }
  return all;
}

std::vector<Sample> wet(int n, bool above_350) {
  std::vector<Sample> all;
  for (int i = 0; i < n; ++i) {
    const double t = above_350 ? spaced(steam::t_350 + 1e-9, steam::t_critical - 2e-3, i, n)
                               : spaced(steam::t_lowest, steam::t_350, i, n);
    const double p = saturation(t);
    const Volumes v = above_350 ? saturated_volumes_by_scan(t) : Volumes{};
    const Sample liquid =
        above_350 ? sample3(v.liquid, t) : sample(steam::Water::terms(p, t), p, t);
    const Sample vapour =
        above_350 ? sample3(v.vapour, t) : sample(steam::Steam::terms(p, t), p, t);
    for (int j = 0; j < n; ++j) {
      // In volume the quality spans decades.
      const double even = spaced(0, 1, moved(j, n, i), n);
      all.push_back(mixed(liquid, vapour, even));
      all.push_back(mixed(liquid, vapour, even * even * even * even));
    }
  }
  return all;
}

}  // namespace

Volumes saturated_volumes_by_scan(double t) {
  const double p = saturation(t);
  constexpr int steps = 40000;
  const double width = (v_most - v_least) / steps;
  double liquid = v_least;
  while (p3(liquid + width, t) > p) {
    liquid += width;
  }
  double vapour = v_most;
  while (vapour - width > liquid + width && p3(vapour - width, t) < p) {
    vapour -= width;
  }
  const auto excess = [=](double v) { return p3(v, t) - p; };
  const double v_liquid = halved(excess, liquid, liquid + width);
  // Next to the critical point there is one root only.
  return {v_liquid, excess(vapour) * excess(vapour - width) < 0 && vapour - width > liquid + width
                        ? halved(excess, vapour - width, vapour)
                        : v_liquid};
}

std::vector<Sample> samples_of(Region region, int n) {
  switch (region) {
    case Region::water:
      return water(n);
    case Region::steam:
      return steam_states(n);
    case Region::dense_steam:
      return dense(n, false);
    case Region::hot_water:
      return dense(n, true);
    case Region::wet_above_350:
      return wet(n, true);
    default:
      return wet(n, false);
  }
}
