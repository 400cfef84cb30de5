#include "charts.hpp"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <utility>

#include "least_squares.hpp"
#include "steam/equations/slopes.hpp"
#include "steam/tables/charts.hpp"

namespace {

using steam::Axes;
using steam::Pair;
using steam::Quantity;
using steam::Region;

double quantity_of(const Sample& s, Quantity q) {
  const std::array<double, 6> all{s.p, s.t, s.v, s.h, s.s, s.u};
  return all[static_cast<std::size_t>(q)];
}

/// What the polynomials of a region are to give, in the order of `steam::unknowns`.
std::vector<double> targets(Pair pair, Region region, const Sample& s) {
  const steam::Known& k = steam::known_of(pair);
  const int count = steam::unknowns(pair, region);
  if (count == 0) {
    return {};
  }
  const bool knows_t = k.first == Quantity::t || pair == Pair::pt;
  if (count == 1 && !knows_t) {
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

/// What is known of one region in one cell: places in the cell, and there the value of each target.
struct Patch {
  std::vector<Point> points;
  std::vector<std::vector<double>> values;
  std::size_t inside = 0;  // points without those from the margin
};

/// Cells take in points a little beyond their sides, so that no thin part of a region is missed.
constexpr double margin = 0.08;

/// The places that a value has in the cell that it is in and in those next to it.
std::vector<steam::Coordinate> places(const steam::Axis& axis, double value) {
  std::vector<steam::Coordinate> all;
  const auto middle = static_cast<int>(axis(value).cell);
  for (int cell = middle - 1; cell <= middle + 1; ++cell) {
    const double low = axis.lower_side(cell), high = axis.lower_side(cell + 1);
    const double place = 2 * (value - low) / (high - low) - 1;
    if (cell >= 0 && cell < axis.cells && std::abs(place) < 1 + 2 * margin) {
      all.push_back({cell, place});
    }
  }
  return all;
}

/// By number of the cell, row by row.
using PatchesByCell = std::vector<std::map<Region, Patch>>;

void add_sample(PatchesByCell& cells, const Axes& axes, Region region, double first, double second,
                const std::vector<double>& values) {
  for (const auto& y : places(axes.second, second)) {
    for (const auto& x : places(axes.first, first)) {
      const auto number = static_cast<std::size_t>(y.cell * axes.first.cells + x.cell);
      Patch& patch = cells[number][region];
      patch.points.push_back({x.place, y.place});
      patch.values.resize(values.size());
      for (std::size_t n = 0; n < values.size(); ++n) {
        patch.values[n].push_back(values[n]);
      }
      patch.inside += std::abs(x.place) <= 1 && std::abs(y.place) <= 1 ? 1 : 0;
    }
  }
}

PatchesByCell patches_of(Pair pair, const Axes& axes, const Samples& samples) {
  const steam::Known& k = steam::known_of(pair);
  const int count = axes.first.cells * axes.second.cells;
  PatchesByCell cells(static_cast<std::size_t>(count));
  for (const auto& [region, states] : samples) {
    if (pair == Pair::pt && !steam::is_3(region)) {
      continue;
    }
    // (p, t) knows the sides of subregion 3; elsewhere it is one.
    const Region as =
        region == Region::hot_water && pair != Pair::pt ? Region::dense_steam : region;
    for (const Sample& s : states) {
      if (is_preferred(pair, region, s)) {
        add_sample(cells, axes, as, quantity_of(s, k.first), quantity_of(s, k.second),
                   targets(pair, region, s));
      }
    }
  }
  return cells;
}

/// A number with so many decimals, in single precision.
float rounded(double number, int decimals) {
  std::array<char, 60> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, number);
  return std::strtof(text.data(), nullptr) + 0;  // no negative zeros
}

using Words = std::vector<std::uint32_t>;

/// Polynomials, and for comparisons some places of each where states are.
struct Polynomials {
  Words words;
  std::vector<std::vector<Point>> places;
  [[nodiscard]] std::size_t count() const { return places.size(); }
  void add(const Polynomial& coefficients, const std::vector<Point>& points);
};

/// Appends coefficients to what single precision knows of the largest: what the last digits of a
/// machine's elementary functions make of the others mostly vanishes.
void Polynomials::add(const Polynomial& coefficients, const std::vector<Point>& points) {
  double largest = 1e-30;
  for (const double c : coefficients) {
    largest = std::fmax(largest, std::abs(c));
  }
  const int decimals = std::max(0, 7 - static_cast<int>(std::floor(std::log10(largest))));
  const auto append = [&](float c) { words.push_back(std::bit_cast<std::uint32_t>(c)); };
  const auto first = static_cast<double>(static_cast<float>(coefficients[0]));
  append(rounded(coefficients[0] - first, decimals + 2));
  append(rounded(first, decimals + 2));
  for (std::size_t i = 1; i < coefficients.size(); ++i) {
    append(rounded(coefficients[i], decimals + 1));
  }
  constexpr std::size_t about = 50;
  auto& own = places.emplace_back();
  for (std::size_t i = 0; i < points.size(); i += 1 + points.size() / about) {
    own.push_back(points[i]);
  }
}

/// The regions of a cell in the order in which they are to be tried: the one of most states first.
/// Of (h,s) and (u,s) wet states come before one phase: a table tells those at once, while steam
/// and subregion 3 beside them look much like them; but water, which does not, before all.
std::vector<Region> in_turn(Pair pair, const std::map<Region, Patch>& patches) {
  const bool is_any = pair != Pair::hs && pair != Pair::us;
  const bool is_below_3 = !patches.contains(Region::dense_steam);
  const auto rank = [&](Region region) {
    const bool is_first = region == Region::water && is_below_3;
    return is_any || is_first ? 0 : steam::is_wet(region) ? 1 : 2;
  };
  std::multimap<std::pair<int, std::ptrdiff_t>, Region> by_turn;
  for (const auto& [region, patch] : patches) {
    by_turn.emplace(std::pair(rank(region), -static_cast<std::ptrdiff_t>(patch.inside)), region);
  }
  std::vector<Region> all;
  for (const auto& [turn, region] : by_turn) {
    all.push_back(region);
  }
  return all;
}

/// The word of a cell, after which its polynomials are appended.
std::uint32_t add_cell(Polynomials& polynomials, Pair pair,
                       const std::map<Region, Patch>& patches) {
  if (patches.size() > steam::Patches::most || polynomials.count() > 0xffff) {
    std::fprintf(stderr, "a cell has too many regions, or the chart too many polynomials\n");
    std::exit(2);
  }
  auto word = static_cast<std::uint32_t>(polynomials.count());
  int shift = 16;
  for (const Region region : in_turn(pair, patches)) {
    word |= static_cast<std::uint32_t>(region) << shift;
    shift += 4;
    const Patch& patch = patches.at(region);
    if (!patch.values.empty()) {
      const LeastSquares fit(patch.points);
      for (const auto& values : patch.values) {
        polynomials.add(fit.fitted_to(values), patch.points);
      }
    }
  }
  return word;
}

/// What each polynomial gives at places of its own.
Groups polynomial_values(const std::string& bytes, std::size_t begin,
                         const std::vector<std::vector<Point>>& places) {
  std::vector<float> coefficients((bytes.size() - begin) / sizeof(float));
  std::memcpy(coefficients.data(), bytes.data() + begin, coefficients.size() * sizeof(float));
  Groups all(places.size());
  for (std::size_t number = 0; number < all.size(); ++number) {
    // What cancels between the coefficients is rounded with them.
    const float* own = coefficients.data() + number * steam::chart_stride;
    for (std::size_t i = 0; i < steam::chart_stride; ++i) {
      all[number].largest = std::fmax(all[number].largest, std::abs(static_cast<double>(own[i])));
    }
    for (const Point& point : places[number]) {
      const steam::Place place{{}, own, point.x, point.y};
      all[number].add(place({Region::none, 0}, 0));
    }
  }
  return all;
}

}  // namespace

TableFile chart_file(const steam::ChartLayout& layout, const Samples& samples) {
  Words words;
  Polynomials polynomials;
  for (const auto& patches : patches_of(layout.pair, steam::chart_axes(layout), samples)) {
    words.push_back(add_cell(polynomials, layout.pair, patches));
  }
  const std::size_t begin = words.size() * sizeof(std::uint32_t);
  words.insert(words.end(), polynomials.words.begin(), polynomials.words.end());
  return {steam::known_of(layout.pair).letters,
          {reinterpret_cast<const char*>(words.data()), words.size() * sizeof(std::uint32_t)},
          begin,
          [begin, places = std::move(polynomials.places)](const std::string& bytes) {
            return polynomial_values(bytes, begin, places);
          },
          // Some units of single precision. Only where there are states: beside them a polynomial
          // may be open, and differ by 1e-4 with the machine's extended precision.
          1e-6};
}
