#include "saturated_states.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "chebyshev.hpp"
#include "samples.hpp"
#include "steam/equations/slopes.hpp"
#include "steam/tables/tabulated_saturation.hpp"

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
  steam::Interval r;
  bool above_350;
  [[nodiscard]] double width() const { return steam::saturated_width(r); }
  [[nodiscard]] SaturatedState at(double root) const {
    return saturated_state(steam::t_critical - root * root, above_350);
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
    states[i] = band.at(band.r.low + (cell + (z + 1) / 2) * band.width());
  }
  return {polynomial(states, 0, low), polynomial(states, 1, low), polynomial(states, 2, low),
          polynomial(states, 3, low)};
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

/// With nine digits: the turning is not known to more.
double rounded(double x) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.9g", x);
  return std::strtod(text.data(), nullptr);
}

void add_turning(steam::SaturatedProfile& profile, int cell, const Turning& turning) {
  profile.least_turning[cell] = rounded(turning.least);
  profile.most_turning[cell] = rounded(turning.most);
}

steam::SaturatedTable table_of(const Band& band) {
  steam::SaturatedTable table{};
  const std::array profiles{&table.v, &table.h, &table.s, &table.u};
  for (int i = 0; i < steam::saturated_cells; ++i) {
    table.cells[i] = saturated_cell(band, i);
    const steam::SaturatedCell& cell = table.cells[i];
    const std::array polynomials{&cell.v, &cell.h, &cell.s, &cell.u};
    for (std::size_t q = 0; q < profiles.size(); ++q) {
      add_turning(*profiles[q], i, turning(*polynomials[q]));
    }
  }
  for (int i = 0; i <= steam::saturated_cells; ++i) {
    const double r = i == steam::saturated_cells
                         ? band.r.high
                         : std::fmax(band.r.low + i * band.width(), steam::r_merging);
    const SaturatedState state = band.at(r);
    for (std::size_t q = 0; q < profiles.size(); ++q) {
      profiles[q]->liquid[i] = state[q][0];
      profiles[q]->vapour[i] = state[q][1];
    }
  }
  return table;
}

/// What a polynomial gives for liquid and for vapour.
void add_values(Groups& all, const steam::SaturatedPolynomial& c) {
  for (std::size_t phase = 0; phase < 2; ++phase) {
    std::array<double, terms> own{};
    for (std::size_t k = 0; k < terms; ++k) {
      own[k] = c[k][phase];
    }
    auto& group = all.emplace_back();
    for (const double place : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
      group.add(steam::SharedDivisions<>::polynomial(own, place));
    }
  }
}

Groups values(const std::string& bytes) {
  const auto tables = ::table_of<steam::SaturatedTables>(bytes);
  Groups all;
  for (const auto* table : {&tables.above_350, &tables.to_350}) {
    for (const steam::SaturatedCell& cell : table->cells) {
      for (const auto* polynomial : {&cell.v, &cell.h, &cell.s, &cell.u}) {
        add_values(all, *polynomial);
      }
    }
    for (const auto* profile : {&table->v, &table->h, &table->s, &table->u}) {
      for (int i = 0; i <= steam::saturated_cells; ++i) {
        all.emplace_back().add(profile->liquid[i]);
        all.emplace_back().add(profile->vapour[i]);
      }
      for (int i = 0; i < steam::saturated_cells; ++i) {
        all.emplace_back().add(profile->least_turning[i]);
        all.emplace_back().add(profile->most_turning[i]);
      }
    }
  }
  return all;
}

}  // namespace

TableFile saturated_states_file() {
  const steam::SaturatedTables tables{table_of(Band{{0, steam::r_350}, true}),
                                      table_of(Band{{steam::r_350, steam::r_lowest}, false})};
  // Towards the critical point volumes hang on the last digit of the pressure by its root.
  return {"saturated_states", bytes_of(tables), 0, values, 1e-9};
}
