// Writes src/steam/tables.cpp: the tables from which the engine's iterations start and its region
// decisions begin. They are fitted to the equations of the formulation and to nothing else. Run it
// after a change of a chart's layout:  build/release/tools/starting_tables >src/steam/tables.cpp

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <numbers>
#include <string>
#include <utility>

#include "chebyshev.hpp"
#include "formulation/saturation.hpp"
#include "polynomials.hpp"
#include "samples.hpp"
#include "saturated_states.hpp"
#include "steam/charts.hpp"
#include "steam/domain.hpp"
#include "steam/slopes.hpp"

namespace {

using steam::Pair;
using steam::Quantity;
using steam::Region;

double quantity_of(const Sample& s, Quantity q) {
  const std::array<double, 6> all{s.p, s.t, s.v, s.h, s.s, s.u};
  return all[static_cast<std::size_t>(q)];
}

// ---- Charts -----------------------------------------------------------------------------------

struct Range {
  double low, high;
};

/// A little wider than a quantity's values.
Range range_of(Quantity q) {
  switch (q) {
    case Quantity::p:
      return {0.0061, 1000.1};
    case Quantity::t:
      return {0, 800.1};
    case Quantity::v:
      return {0.00094, 815};
    case Quantity::h:
      return {-5, 4165};
    case Quantity::s:
      return {-0.02, 11.95};
    default:
      return {-5, 3670};
  }
}

/// Resolution of the first and the second axis: cells, or a power of two of cells per octave.
struct Layout {
  Pair pair;
  int first, second;
};

constexpr std::array layouts{
    Layout{Pair::pt, 24, 24}, Layout{Pair::pv, 1, 3},   Layout{Pair::ph, 1, 24},
    Layout{Pair::ps, 1, 28},  Layout{Pair::pu, 1, 24},  Layout{Pair::tv, 20, 1},
    Layout{Pair::th, 32, 32}, Layout{Pair::tu, 32, 32}, Layout{Pair::ts, 24, 24},
    Layout{Pair::hs, 24, 24}, Layout{Pair::us, 24, 24}, Layout{Pair::vh, 1, 18},
    Layout{Pair::vs, 1, 18},  Layout{Pair::vu, 1, 18},
};

steam::Axis equal_cells(Range range, int cells) {
  return {cells, 0, 0, range.low, cells / (range.high - range.low)};
}

/// @param power  of two: the number of cells per octave
steam::Axis octaves(Range range, int power) {
  const int shift = 52 - power;
  const auto cell = [shift](double value) { return std::bit_cast<std::int64_t>(value) >> shift; };
  const std::int64_t first = cell(range.low);
  return {static_cast<int>(cell(range.high) - first) + 1, shift, first, 0, 0};
}

steam::Axis axis_of(Quantity q, int resolution) {
  const bool many_decades = q == Quantity::p || q == Quantity::v;
  return many_decades ? octaves(range_of(q), resolution) : equal_cells(range_of(q), resolution);
}

/// A chart's axes.
struct Axes {
  steam::Axis first, second;
};
Axes axes_of(const Layout& layout) {
  if (layout.pair == Pair::pt) {  // subregion 3 alone
    return {equal_cells({165.3, 1000.1}, layout.first), equal_cells({350, 590.1}, layout.second)};
  }
  const steam::Known& k = steam::known_of(layout.pair);
  return {axis_of(k.first, layout.first), axis_of(k.second, layout.second)};
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

/// The places that a value has in the cell that it is in and in those next to it.
std::vector<steam::Coordinate> places(const steam::Axis& axis, double value) {
  std::vector<steam::Coordinate> all;
  const int middle = axis(value).cell;
  for (int cell = middle - 1; cell <= middle + 1; ++cell) {
    const double low = axis.lower_side(cell), high = axis.lower_side(cell + 1);
    const double place = 2 * (value - low) / (high - low) - 1;
    if (cell >= 0 && cell < axis.cells && std::abs(place) < 1 + 2 * margin) {
      all.push_back({cell, place});
    }
  }
  return all;
}

using Cells = std::map<std::pair<int, Region>, Cell>;

void add_sample(Cells& cells, const Axes& axes, Region region, double first, double second,
                const std::vector<double>& values) {
  for (const auto& y : places(axes.second, second)) {
    for (const auto& x : places(axes.first, first)) {
      Cell& cell = cells[{y.cell * axes.first.cells + x.cell, region}];
      cell.points.resize(values.size());
      for (std::size_t n = 0; n < values.size(); ++n) {
        cell.points[n].push_back({x.place, y.place, values[n]});
      }
      cell.inside += std::abs(x.place) <= 1 && std::abs(y.place) <= 1 ? 1 : 0;
    }
  }
}

Cells cells_of(const Layout& layout, const Axes& axes,
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
        add_sample(cells, axes, as, quantity_of(s, k.first), quantity_of(s, k.second),
                   targets(layout.pair, region, s));
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
  std::printf("{%d, %d, %lld, %.17g, %.17g}", a.cells, a.shift, static_cast<long long>(a.first),
              a.origin, a.scale);
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

/// A number with so many decimals, without needless zeros, in single precision.
std::string literal(double number, int decimals) {
  std::array<char, 60> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, number);
  std::string digits = text.data();
  if (digits.find('.') == std::string::npos) {
    return digits + ".F,";
  }
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits == "-0." ? "0.F," : digits + "F,";
}

/// Coefficients to what single precision knows of the largest.
std::string written(const Polynomial& coefficients) {
  double largest = 1e-30;
  for (const double c : coefficients) {
    largest = std::fmax(largest, std::abs(c));
  }
  const int decimals = std::max(0, 7 - static_cast<int>(std::floor(std::log10(largest))));
  const double rest = coefficients[0] - static_cast<double>(static_cast<float>(coefficients[0]));
  std::string line = literal(rest, decimals + 2);
  line += literal(static_cast<double>(static_cast<float>(coefficients[0])), decimals + 2);
  for (std::size_t i = 1; i < coefficients.size(); ++i) {
    line += literal(coefficients[i], decimals + 1);
  }
  return line;
}

void write_chart(const Layout& layout, const Axes& axes, const Cells& cells) {
  const std::string pair = steam::known_of(layout.pair).letters;
  std::string ends, patches, coefficients;
  int patch_count = 0, polynomial_count = 0;
  for (int cell = 0; cell < axes.first.cells * axes.second.cells; ++cell) {
    for (const auto& [inside, region] : regions_in(cells, cell)) {
      patches +=
          "{R::" + std::string(name_of(region)) + ", " + std::to_string(polynomial_count) + "},\n";
      ++patch_count;
      for (const auto& points : cells.at({cell, region}).points) {
        ++polynomial_count;
        coefficients += written(fitted(points)) + '\n';
      }
    }
    ends += std::to_string(patch_count) + (cell % 32 == 31 ? ",\n" : ",");
  }
  std::printf("constexpr std::uint16_t %s_ends[] = {\n%s};\n", pair.c_str(), ends.c_str());
  std::printf("constexpr Patch %s_patches[] = {\n%s};\n", pair.c_str(), patches.c_str());
  if (coefficients.empty()) {
    coefficients = "0.0F\n";
  }
  std::printf("constexpr float %s_coefficients[] = {\n%s};\n", pair.c_str(), coefficients.c_str());
  std::printf("constexpr Chart %s_chart{", pair.c_str());
  write_axis(axes.first);
  std::printf(", ");
  write_axis(axes.second);
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
    const Axes axes = axes_of(layout);
    write_chart(layout, axes, cells_of(layout, axes, samples));
  }
  std::printf("}  // namespace\n\nconst std::array<Chart, pair_count> charts{{\n");
  for (const steam::Known& k : steam::known) {
    const bool has_chart = k.second != Quantity::x;
    std::printf("    %s,\n", has_chart ? (std::string(k.letters) + "_chart").c_str() : "Chart{}");
  }
  std::printf("}};\n\n");
}

// ---- Splines ----------------------------------------------------------------------------------

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

void write_saturation_temperature() {
  const steam::Axis axis = octaves({0.0061, 221.21}, 3);
  std::printf("namespace {\nconstexpr std::array<double, 10> saturation_t_cells[] = {\n");
  for (int i = 0; i < axis.cells; ++i) {
    const double low = axis.lower_side(i);
    write_numbers(
        fitted_to<10>(saturation_temperature_by_halving, low, axis.lower_side(i + 1) - low));
  }
  std::printf("};\n}  // namespace\nconst SaturationTemperatureTable saturation_t_table{");
  write_axis(axis);
  std::printf(", saturation_t_cells};\n\n");
}

void write_splines() {
  write_saturation_temperature();
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
