// Writes src/steam/tables.cpp: the tables from which the engine's iterations start and its region
// decisions begin. They are fitted to the equations of the formulation and to nothing else. Run it
// after a change of a chart's layout:  build/release/tools/starting_tables >src/steam/tables.cpp

#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <numbers>
#include <string>
#include <utility>

#include "formulation/saturation.hpp"
#include "polynomials.hpp"
#include "samples.hpp"
#include "steam/charts.hpp"
#include "steam/domain.hpp"
#include "steam/slopes.hpp"

namespace {

using steam::Pair;
using steam::Quantity;
using steam::Region;
using steam::Spread;

double quantity_of(const Sample& s, Quantity q) {
  const std::array<double, 6> all{s.p, s.t, s.v, s.h, s.s, s.u};
  return all[static_cast<std::size_t>(q)];
}

// ---- Charts -----------------------------------------------------------------------------------

struct Range {
  Spread how;
  double low, high;
};

/// Spread and range of a quantity, a little wider than its values.
Range range_of(Quantity q) {
  switch (q) {
    case Quantity::p:
      return {Spread::fourth_root, 0.0061, 1000.1};
    case Quantity::t:
      return {Spread::even, 0, 800.1};
    case Quantity::v:
      return {Spread::inverse_fourth_root, 815, 0.00094};
    case Quantity::h:
      return {Spread::even, -5, 4165};
    case Quantity::s:
      return {Spread::even, -0.02, 11.95};
    default:
      return {Spread::even, -5, 3670};
  }
}

struct Layout {
  Pair pair;
  int cells;
};

constexpr std::array layouts{
    Layout{Pair::pt, 32}, Layout{Pair::pv, 20}, Layout{Pair::ph, 20}, Layout{Pair::ps, 20},
    Layout{Pair::pu, 20}, Layout{Pair::tv, 20}, Layout{Pair::th, 32}, Layout{Pair::tu, 32},
    Layout{Pair::ts, 32}, Layout{Pair::hs, 24}, Layout{Pair::us, 24}, Layout{Pair::vh, 24},
    Layout{Pair::vs, 24}, Layout{Pair::vu, 24},
};

steam::Axis axis(Range range, int cells) {
  const double low = steam::spread(range.how, range.low);
  const double high = steam::spread(range.how, range.high);
  return {range.how, low, cells / (high - low)};
}

/// What the polynomials of a region are to give, in the order of `steam::unknowns`.
std::vector<double> targets(Pair pair, Region region, const Sample& s) {
  const steam::Known& k = steam::known_of(pair);
  const int count = steam::unknowns(pair, region);
  if (count == 0) {
    return {};
  }
  if (count == 1 && (steam::is_wet(region) || (k.first == Quantity::p && pair != Pair::pt))) {
    return {s.t};
  }
  const double z = steam::is_3(region)                                        ? 1 / s.v
                   : region == Region::water || !steam::gives_root_of_p(pair) ? s.p
                                                                              : std::pow(s.p, 0.25);
  return count == 1 ? std::vector{z} : std::vector{z, s.t};
}

/// Water states that are not the preferred ones of their pair would bend the polynomials.
bool is_preferred(Pair pair, Region region, const Sample& s) {
  if (region != Region::water) {
    return true;
  }
  const auto terms = steam::Water::terms(s.p, s.t);
  switch (pair) {
    case Pair::pv:
      return formulation::volume_slopes(terms).over_t > 0;
    case Pair::th:
      return steam::sloped<steam::Water, Quantity::h>(terms, s.p, s.t).over_1 < 0;
    case Pair::tu:
      return steam::sloped<steam::Water, Quantity::u>(terms, s.p, s.t).over_1 < 0;
    case Pair::ts:
      return steam::sloped<steam::Water, Quantity::s>(terms, s.p, s.t).over_1 < 0;
    default:
      return true;
  }
}

/// The points of one region in one cell, by target.
struct Cell {
  std::vector<std::vector<FitPoint>> points;
  std::size_t inside = 0;  // without those from the margin
};

/// Cells take in points a little beyond their sides, so that no thin part of a region is missed.
constexpr double margin = 0.08;

using Cells = std::map<std::pair<int, Region>, Cell>;

void add_sample(Cells& cells, const Layout& layout, Region region, double i, double j,
                const std::vector<double>& values) {
  const int row_low = static_cast<int>(std::floor(j - margin));
  const int row_high = static_cast<int>(std::floor(j + margin));
  for (int row = std::max(row_low, 0); row <= std::min(row_high, layout.cells - 1); ++row) {
    const int low = static_cast<int>(std::floor(i - margin));
    const int high = static_cast<int>(std::floor(i + margin));
    for (int column = std::max(low, 0); column <= std::min(high, layout.cells - 1); ++column) {
      Cell& cell = cells[{row * layout.cells + column, region}];
      cell.points.resize(values.size());
      for (std::size_t n = 0; n < values.size(); ++n) {
        cell.points[n].push_back({2 * (i - column) - 1, 2 * (j - row) - 1, values[n]});
      }
      cell.inside += column == static_cast<int>(i) && row == static_cast<int>(j) ? 1 : 0;
    }
  }
}

Cells cells_of(const Layout& layout, const steam::Axis& first, const steam::Axis& second,
               const std::map<Region, std::vector<Sample>>& samples) {
  const steam::Known& k = steam::known_of(layout.pair);
  Cells cells;
  for (const auto& [region, states] : samples) {
    // (v, t) and (p, t) know the sides of subregion 3; elsewhere it is one.
    const bool sides = layout.pair == Pair::pt;
    const Region as = region == Region::hot_water && !sides ? Region::dense_steam : region;
    if (layout.pair == Pair::pt && !steam::is_3(region)) {
      continue;
    }
    for (const Sample& s : states) {
      if (is_preferred(layout.pair, region, s)) {
        add_sample(cells, layout, as, first(quantity_of(s, k.first)),
                   second(quantity_of(s, k.second)), targets(layout.pair, region, s));
      }
    }
  }
  return cells;
}

const char* name_of(Region region) {
  constexpr std::array names{"none",      "water",         "steam", "dense_steam",
                             "hot_water", "wet_above_350", "wet"};
  return names[static_cast<std::size_t>(region)];
}

void write_axis(const steam::Axis& a) {
  constexpr std::array names{"even", "fourth_root", "inverse_fourth_root"};
  std::printf("{Spread::%s, %.17g, %.17g}", names[static_cast<std::size_t>(a.how)], a.origin,
              a.scale);
}

/// The regions that reach into a cell, the one of most points first.
std::multimap<std::size_t, Region, std::greater<>> regions_in(const Cells& cells, int cell) {
  std::multimap<std::size_t, Region, std::greater<>> regions;
  for (auto it = cells.lower_bound({cell, Region::none});
       it != cells.end() && it->first.first == cell; ++it) {
    regions.emplace(it->second.inside, it->first.second);
  }
  return regions;
}

/// Coefficients as single-precision literals.
template <class Coefficients>
std::string written(const Coefficients& coefficients) {
  std::string line;
  for (const double c : coefficients) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.7gF,", c);
    std::string number = text.data();
    if (number.find_first_of(".e") == std::string::npos) {
      number.insert(number.size() - 2, ".0");
    }
    line += number;
  }
  return line;
}

void write_chart(const Layout& layout, const steam::Axis& first, const steam::Axis& second,
                 const Cells& cells) {
  const std::string pair = steam::known_of(layout.pair).letters;
  std::string ends, patches, coefficients;
  int patch_count = 0, polynomial_count = 0;
  for (int cell = 0; cell < layout.cells * layout.cells; ++cell) {
    for (const auto& [inside, region] : regions_in(cells, cell)) {
      patches +=
          "{R::" + std::string(name_of(region)) + ", " + std::to_string(polynomial_count) + "},\n";
      ++patch_count;
      for (const auto& points : cells.at({cell, region}).points) {
        ++polynomial_count;
        coefficients += written(fitted(points)) + '\n';
      }
    }
    ends += std::to_string(patch_count) + (cell % layout.cells == layout.cells - 1 ? ",\n" : ",");
  }
  std::printf("constexpr std::uint16_t %s_ends[] = {\n%s};\n", pair.c_str(), ends.c_str());
  std::printf("constexpr Patch %s_patches[] = {\n%s};\n", pair.c_str(), patches.c_str());
  if (coefficients.empty()) {
    coefficients = "0.0F\n";
  }
  std::printf("constexpr float %s_coefficients[] = {\n%s};\n", pair.c_str(), coefficients.c_str());
  std::printf("constexpr Chart %s_chart{%d, ", pair.c_str(), layout.cells);
  write_axis(first);
  std::printf(", ");
  write_axis(second);
  std::printf(", %s_ends, %s_patches, %s_coefficients};\n\n", pair.c_str(), pair.c_str(),
              pair.c_str());
  std::fprintf(stderr, "%s: %d patches, %d polynomials\n", pair.c_str(), patch_count,
               polynomial_count);
}

void write_charts() {
  std::map<Region, std::vector<Sample>> samples;
  for (const Region region : {Region::water, Region::steam, Region::dense_steam, Region::hot_water,
                              Region::wet_above_350, Region::wet}) {
    samples[region] = samples_of(region, 420);
  }
  for (const Layout& layout : layouts) {
    const steam::Known& k = steam::known_of(layout.pair);
    const bool dense_only = layout.pair == Pair::pt;
    const Range a = dense_only ? Range{Spread::even, 165.3, 1000.1} : range_of(k.first);
    const Range b = dense_only ? Range{Spread::even, 350, 590.1} : range_of(k.second);
    const steam::Axis first = axis(a, layout.cells);
    const steam::Axis second = axis(b, layout.cells);
    write_chart(layout, first, second, cells_of(layout, first, second, samples));
  }
  std::printf("}  // namespace\n\nconst std::array<Chart, pair_count> charts{{\n");
  for (const steam::Known& k : steam::known) {
    const bool has_chart = k.second != Quantity::x;
    std::printf("    %s,\n", has_chart ? (std::string(k.letters) + "_chart").c_str() : "Chart{}");
  }
  std::printf("}};\n\n");
}

// ---- Splines ----------------------------------------------------------------------------------

/// The Chebyshev points of a cell, from -1 to 1.
template <std::size_t N>
std::array<double, N> chebyshev_points() {
  std::array<double, N> points{};
  for (std::size_t i = 0; i < N; ++i) {
    points[i] = std::cos((2 * static_cast<double>(i) + 1) * std::numbers::pi / (2.0 * N));
  }
  return points;
}

/// The polynomial through values at the Chebyshev points of a cell, in powers of the place.
template <std::size_t N>
std::array<double, N> interpolated(const std::array<double, N>& at_points) {
  const std::array<double, N> points = chebyshev_points<N>();
  std::array<long double, N> values{}, c{};
  std::copy(at_points.begin(), at_points.end(), values.begin());
  for (std::size_t order = 1; order < N; ++order) {  // divided differences
    for (std::size_t i = N - 1; i >= order; --i) {
      values[i] =
          (values[i] - values[i - 1]) / (static_cast<long double>(points[i]) - points[i - order]);
    }
  }
  c[0] = values[N - 1];
  for (std::size_t i = N - 1; i-- > 0;) {  // from Newton's form to powers
    for (std::size_t k = N - 1; k > 0; --k) {
      c[k] = c[k - 1] - points[i] * c[k];
    }
    c[0] = values[i] - points[i] * c[0];
  }
  std::array<double, N> result{};
  for (std::size_t i = 0; i < N; ++i) {
    result[i] = static_cast<double>(c[i]);
  }
  return result;
}

template <std::size_t N>
std::array<double, N> fitted_to(const std::function<double(double)>& f, double low, double width) {
  std::array<double, N> values = chebyshev_points<N>();
  for (double& value : values) {
    value = f(low + (value + 1) / 2 * width);
  }
  return interpolated<N>(values);
}

template <std::size_t N>
void write_numbers(const std::array<double, N>& numbers) {
  std::printf("{");
  for (const double number : numbers) {
    std::printf("%.17g,", number);
  }
  std::printf("},\n");
}

template <std::size_t N>
void write_spline(const char* name, const std::function<double(double)>& f, double low, double high,
                  int cells) {
  const double width = (high - low) / cells;
  std::printf("namespace {\nconstexpr std::array<double, %zu> %s_cells[] = {\n", N, name);
  for (int i = 0; i < cells; ++i) {
    write_numbers(fitted_to<N>(f, low + i * width, width));
  }
  std::printf("};\n}  // namespace\nconst Spline<%zu> %s{%.17g, %.17g, %d, %s_cells};\n\n", N, name,
              low, 1 / width, cells, name);
}

double saturation(double t) {
  return formulation::saturation_pressure<steam::Math>(formulation::saturation_terms(t));
}

double saturation_temperature_by_halving(double p) {
  double low = -1, high = steam::t_critical + 1;
  for (int i = 0; i < 100; ++i) {
    const double middle = (low + high) / 2;
    (saturation(middle) < p ? low : high) = middle;
  }
  return (low + high) / 2;
}

/// Liquid and vapour of v, h, s and u.
using SaturatedState = std::array<std::array<double, 2>, 4>;

template <class Equation>
std::array<double, 4> phase_state(double z, double v, double t) {
  const auto terms = Equation::terms(z, t);
  const double h = formulation::enthalpy(terms);
  return {v, h, steam::entropy_of(terms), h - steam::kj_per_bar_m3 * saturation(t) * v};
}

SaturatedState saturated_state(double t, bool above_350) {
  std::array<double, 4> liquid{}, vapour{};
  if (above_350) {
    const Volumes v = saturated_volumes_by_scan(t);
    liquid = phase_state<steam::Dense>(v.liquid, v.liquid, t);
    vapour = phase_state<steam::Dense>(v.vapour, v.vapour, t);
  } else {
    const double p = saturation(t);
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

void write_saturated_states() {
  const double r_350 = std::sqrt(steam::t_critical - steam::t_350);
  const double r_lowest = std::sqrt(steam::t_critical - steam::t_lowest);
  constexpr int cells = 48;
  write_band({"saturated_above_350", 0, r_350, cells, true});
  write_band({"saturated_to_350", r_350, r_lowest, cells, false});
}

void write_splines() {
  write_spline<8>(
      "saturation_t", [](double q) { return saturation_temperature_by_halving(std::pow(q, 4)); },
      std::pow(0.0061, 0.25), std::pow(221.21, 0.25), 96);
  write_spline<4>(
      "saturation_root_p", [](double t) { return std::pow(saturation(t), 0.25); }, 0,
      steam::t_critical, 128);
  write_saturated_states();
}

}  // namespace

int main() {
  std::printf(
      "// Written by tools/starting_tables.cpp. Not edited by hand.\n"
      "// clang-format off\n"
      "#include \"steam/charts.hpp\"\n\n"
      "namespace steam {\n"
      "namespace {\n\nusing R = Region;\n\n");
  write_charts();
  write_splines();
  std::printf("}  // namespace steam\n");
}
