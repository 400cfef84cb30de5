#include "cells.hpp"

#include <algorithm>
#include <cmath>

namespace {

using steam::Region;

Fitted fitted(const Patches& patches) {
  Fitted result{patches, {}};
  for (const auto& [region, patch] : patches) {
    auto& polynomials = result.polynomials[region];
    if (!patch.values.empty()) {
      const LeastSquares fit(patch.points);
      for (const auto& values : patch.values) {
        polynomials.push_back(fit.fitted_to(values));
      }
    }
  }
  return result;
}

/// The polynomials of a part: those of the whole cell and what they leave there, so that a part
/// with few states has those of the cell.
Fitted fitted_part(const Fitted& whole, const Part& part) {
  Fitted result{part_of(whole.patches, part), {}};
  const Point middle = part.in_cell({0, 0});
  for (const auto& [region, patch] : result.patches) {
    auto& polynomials = result.polynomials[region];
    for (std::size_t n = 0; n < patch.values.size(); ++n) {
      const Polynomial of_cell =
          substituted(whole.polynomials.at(region)[n], part.parts, middle.x, middle.y);
      std::vector<double> rest = patch.values[n];
      for (std::size_t i = 0; i < rest.size(); ++i) {
        rest[i] -= value_at(of_cell, patch.points[i]);
      }
      Polynomial& sum = polynomials.emplace_back(LeastSquares(patch.points).fitted_to(rest));
      for (std::size_t i = 0; i < sum.size(); ++i) {
        sum[i] += of_cell[i];
      }
    }
  }
  return result;
}

/// How far the starts of one region are off, in differences that are small.
std::vector<double> misses(const Patch& patch, const std::vector<Polynomial>& polynomials) {
  std::vector<double> all;
  for (std::size_t i = 0; i < patch.points.size(); ++i) {
    const Point& point = patch.points[i];
    if (std::abs(point.x) <= 1 && std::abs(point.y) <= 1) {
      double sum = 0;
      for (std::size_t n = 0; n < polynomials.size(); ++n) {
        sum += std::abs(value_at(polynomials[n], point) - patch.values[n][i]) / patch.small[n][i];
      }
      all.push_back(sum);
    }
  }
  return all;
}

/// How far those of an undivided cell or of all parts are.
void add_misses(std::vector<double>& all, const Cell& cell, Region region) {
  for (const Cell& part : cell.parts) {
    add_misses(all, part, region);
  }
  if (cell.parts.empty() && cell.fit.patches.contains(region)) {
    const auto own = misses(cell.fit.patches.at(region), cell.fit.polynomials.at(region));
    all.insert(all.end(), own.begin(), own.end());
  }
}

/// What most starts of a region are within.
double most_miss(const Cell& cell, Region region) {
  std::vector<double> all;
  add_misses(all, cell, region);
  if (all.empty()) {
    return 0;
  }
  constexpr double most = 0.95;
  const auto place =
      all.begin() + static_cast<std::ptrdiff_t>(most * static_cast<double>(all.size() - 1));
  std::nth_element(all.begin(), place, all.end());
  return *place;
}

/// Divisions that bring the starts of a region to what is small, as far as the degree of the
/// polynomials tells, and as far as there are states enough for the parts.
int divisions_for(const Cell& cell, Region region) {
  constexpr int most_divisions = 8;
  constexpr std::size_t least_states = 30;  // in a part
  const double miss = most_miss(cell, region);
  int divisions = 1;
  while (divisions < most_divisions && miss > std::pow(divisions, steam::chart_degree + 1) &&
         cell.fit.patches.at(region).inside >= least_states * 4 * divisions * divisions) {
    divisions *= 2;
  }
  return divisions;
}

/// Whether parts bring the starts of a region much nearer; where a quantity turns they do not.
bool gains(const Cell& divided, const Cell& whole, Region region) {
  return divisions_for(whole, region) > 1 &&
         most_miss(divided, region) * divided.divisions < most_miss(whole, region);
}

/// A cell divided, and its parts again, where that brings any region nearer.
/// @param times  at most
Cell divided(const Cell& whole, int times) {
  Cell cell = whole;
  for (const auto& [region, patch] : whole.fit.patches) {
    cell.divisions = std::max(cell.divisions, divisions_for(whole, region));
  }
  for (int i = 0; cell.divisions > 1 && i < cell.divisions * cell.divisions; ++i) {
    const Part part{cell.divisions, i % cell.divisions, i / cell.divisions};
    const Cell undivided{fitted_part(whole.fit, part), 1, {}};
    cell.parts.push_back(times > 1 ? divided(undivided, times - 1) : undivided);
  }
  const bool is_better =
      std::any_of(whole.fit.patches.begin(), whole.fit.patches.end(),
                  [&](const auto& patch) { return gains(cell, whole, patch.first); });
  return is_better ? cell : whole;
}

}  // namespace

Cell cell_of(const Patches& patches) { return divided({fitted(patches), 1, {}}, 2); }
