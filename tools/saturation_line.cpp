#include "saturation_line.hpp"

#include <cmath>
#include <functional>

#include "chebyshev.hpp"
#include "steam/equations/slopes.hpp"
#include "steam/tables/saturation_line.hpp"

namespace {

using Table = steam::SaturationLineTable;

double saturation(double t) {
  return formulation::saturation_pressure<steam::SharedDivisions<>>(
      formulation::saturation_terms(t));
}

double saturation_temperature_by_halving(double p) {
  double low = -1, high = steam::t_critical + 1;
  for (int i = 0; i < 100; ++i) {
    const double middle = (low + high) / 2;
    (saturation(middle) < p ? low : high) = middle;
  }
  return (low + high) / 2;
}

template <std::size_t N>
std::array<double, N> fitted_to(const std::function<double(double)>& f, double low, double width) {
  std::array<double, N> values = chebyshev_points<N>();
  for (double& value : values) {
    value = f(low + (value + 1) / 2 * width);
  }
  return interpolated<N>(values);
}

Groups values(const std::string& bytes) {
  const auto table = table_of<Table>(bytes);
  Groups all;
  const auto add = [&](const auto& c) {
    auto& own = all.emplace_back();
    for (const double place : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
      own.add(steam::SharedDivisions<>::polynomial(c, place));
    }
  };
  for (const auto& c : table.temperature) {
    add(c);
  }
  for (const auto& c : table.root_of_p) {
    add(c);
  }
  return all;
}

}  // namespace

TableFile saturation_line_file() {
  Table table{};
  for (int i = 0; i < Table::p.cells; ++i) {
    const double low = Table::p.lower_side(i);
    table.temperature[i] =
        fitted_to<10>(saturation_temperature_by_halving, low, Table::p.lower_side(i + 1) - low);
  }
  const auto root_of_p = [](double t) { return std::pow(saturation(t), 0.25); };
  constexpr double width = steam::t_critical / Table::t.cells;
  for (int i = 0; i < Table::t.cells; ++i) {
    table.root_of_p[i] = fitted_to<4>(root_of_p, i * width, width);
  }
  // Some ten units of the last digit.
  return {"saturation_line", bytes_of(table), 0, values, 1e-14};
}
