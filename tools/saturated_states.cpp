#include "saturated_states.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "chebyshev.hpp"
#include "samples.hpp"
#include "steam/saturation_line.hpp"
#include "steam/slopes.hpp"

namespace {

/// Liquid and vapour of v, h, s and u.
using SaturatedState = std::array<std::array<double, 2>, 4>;

template <class Equation>
std::array<double, 4> phase_state(double z, double v, double t) {
  const auto terms = Equation::terms(z, t);
  const double h = formulation::enthalpy(terms);
  return {v, h, formulation::entropy(terms),
          h - steam::kj_per_bar_m3 * steam::saturation_pressure(t) * v};
}

SaturatedState saturated_state(double t, bool above_350) {
  std::array<double, 4> liquid{}, vapour{};
  if (above_350) {
    const Volumes v = saturated_volumes_by_scan(t);
    liquid = phase_state<steam::Dense>(v.liquid, v.liquid, t);
    vapour = phase_state<steam::Dense>(v.vapour, v.vapour, t);
  } else {
    const double p = steam::saturation_pressure(t);
    liquid = phase_state<steam::Water>(p, formulation::volume(steam::Water::terms(p, t)), t);
    vapour = phase_state<steam::Steam>(p, formulation::volume(steam::Steam::terms(p, t)), t);
  }
  SaturatedState state;
  for (std::size_t q = 0; q < state.size(); ++q) {
    state[q] = {liquid[q], vapour[q]};
  }
  return state;
}

/// A band of equal cells over the square root r of the distance from the critical temperature.
struct Band {
  const char* name;
  double r_low, r_high;
  int cells;
  bool above_350;
  [[nodiscard]] double width() const { return (r_high - r_low) / cells; }
  [[nodiscard]] SaturatedState at(double r) const {
    return saturated_state(steam::t_critical - r * r, above_350);
  }
};

constexpr std::size_t terms = steam::saturated_terms;

/// A polynomial of the place in a part of a cell, from `low` to 1, as one of the place in the cell.
std::array<double, terms> continued(const std::array<double, terms>& part, double low) {
  const double scale = 2 / (1 - low), shift = 1 - scale;
  std::array<double, terms> whole{};
  for (std::size_t k = terms; k-- > 0;) {
    for (std::size_t n = terms; n-- > 0;) {
      whole[n] = shift * whole[n] + (n > 0 ? scale * whole[n - 1] : part[k]);
    }
  }
  return whole;
}

steam::SaturatedPolynomial polynomial(const std::array<SaturatedState, terms>& states,
                                      std::size_t quantity, double low) {
  steam::SaturatedPolynomial c{};
  for (std::size_t phase = 0; phase < 2; ++phase) {
    std::array<double, terms> values{};
    for (std::size_t i = 0; i < terms; ++i) {
      values[i] = states[i][quantity][phase];
    }
    const std::array<double, terms> powers = continued(interpolated<terms>(values), low);
    for (std::size_t k = 0; k < terms; ++k) {
      c[k][phase] = powers[k];
    }
  }
  return c;
}

/// The cell of the critical point is fitted where there are two phases, and continued from there.
steam::SaturatedCell saturated_cell(const Band& band, int cell) {
  const double low = cell == 0 && band.above_350 ? 2 * steam::r_merging / band.width() - 1 : -1;
  std::array<SaturatedState, terms> states;
  const std::array<double, terms> points = chebyshev_points<terms>();
  for (std::size_t i = 0; i < terms; ++i) {
    const double z = 1 - (1 - points[i]) / 2 * (1 - low);
    states[i] = band.at(band.r_low + (cell + (z + 1) / 2) * band.width());
  }
  return {polynomial(states, 0, low), polynomial(states, 1, low), polynomial(states, 2, low),
          polynomial(states, 3, low)};
}

void write_polynomial(const steam::SaturatedPolynomial& c) {
  std::printf("{{");
  for (const auto& [liquid, vapour] : c) {
    std::printf("{%.17g,%.17g},", liquid, vapour);
  }
  std::printf("}},\n");
}

/// The qualities with which a mixed quantity may turn in a cell, with some room.
struct Turning {
  double least = 2, most = -2;
};

Turning turning(const steam::SaturatedPolynomial& c) {
  Turning turning;
  constexpr int points = 400;
  for (int i = -points; i <= points; ++i) {
    const double z = static_cast<double>(i) / points;
    std::array<double, 2> slope{};
    for (std::size_t k = terms; k-- > 1;) {
      for (std::size_t phase = 0; phase < 2; ++phase) {
        slope[phase] = slope[phase] * z + static_cast<double>(k) * c[k][phase];
      }
    }
    if (slope[0] * slope[1] <= 0) {
      const double x = slope[0] / (slope[0] - slope[1]);
      turning = {std::fmin(turning.least, x), std::fmax(turning.most, x)};
    }
  }
  const double room = 1e-6 + 0.02 * (turning.most - turning.least);
  return turning.least > 1 ? turning : Turning{turning.least - room, turning.most + room};
}

void write_sides(const Band& band, const char* quantity, std::size_t q) {
  for (std::size_t phase = 0; phase < 2; ++phase) {
    std::printf("constexpr double %s_%s%zu[] = {", band.name, quantity, phase + 1);
    for (int i = 0; i <= band.cells; ++i) {
      const double r = i == band.cells ? band.r_high
                                       : std::fmax(band.r_low + i * band.width(), steam::r_merging);
      std::printf("%.17g,", band.at(r)[q][phase]);
    }
    std::printf("};\n");
  }
}

void write_turning(const Band& band, const char* quantity, const std::vector<Turning>& cells) {
  std::printf("constexpr double %s_%s_least[] = {", band.name, quantity);
  for (const Turning& cell : cells) {
    std::printf("%.9g,", cell.least);
  }
  std::printf("};\nconstexpr double %s_%s_most[] = {", band.name, quantity);
  for (const Turning& cell : cells) {
    std::printf("%.9g,", cell.most);
  }
  std::printf("};\n");
}

void write_band(const Band& band) {
  const char* name = band.name;
  std::vector<Turning> v, s;
  std::printf("namespace {\nconstexpr SaturatedCell %s_cells[] = {\n", name);
  for (int i = 0; i < band.cells; ++i) {
    const steam::SaturatedCell cell = saturated_cell(band, i);
    std::printf("{");
    for (const auto* polynomial : {&cell.v, &cell.h, &cell.s, &cell.u}) {
      write_polynomial(*polynomial);
    }
    std::printf("},\n");
    v.push_back(turning(cell.v));
    s.push_back(turning(cell.s));
  }
  std::printf("};\n");
  write_sides(band, "v", 0);
  write_turning(band, "v", v);
  write_sides(band, "s", 2);
  write_turning(band, "s", s);
  std::printf("}  // namespace\nconst SaturatedBand %s{%.17g, %.17g, %d, %s_cells,", name,
              band.r_low, 1 / band.width(), band.cells, name);
  for (const char* quantity : {"v", "s"}) {
    std::printf(" {%s_%s1, %s_%s2, %s_%s_least, %s_%s_most},", name, quantity, name, quantity, name,
                quantity, name, quantity);
  }
  std::printf("};\n\n");
}

}  // namespace

void write_saturated_states() {
  const double r_350 = std::sqrt(steam::t_critical - steam::t_350);
  const double r_lowest = std::sqrt(steam::t_critical - steam::t_lowest);
  constexpr int cells = 48;
  write_band({"saturated_above_350", 0, r_350, cells, true});
  write_band({"saturated_to_350", r_350, r_lowest, cells, false});
}
