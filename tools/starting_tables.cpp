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
