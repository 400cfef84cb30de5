#include "unit_costs.hpp"

#include <cmath>
#include <vector>

#include "least_time.hpp"
#include "steam/equations/slopes.hpp"

namespace {

volatile double sink;

/// Least time of one call over a table of arguments, of many passes.
template <class F>
double cost(const std::vector<double>& arguments, F f) {
  const double all = least_time([&] {
    double sum = 0;
    for (const double x : arguments) {
      sum += f(x);
    }
    sink = sum;
  });
  return all / static_cast<double>(arguments.size());
}

std::vector<double> between(double a, double b) {
  constexpr int count = 2000, stride = 617;  // out of order
  std::vector<double> all(count);
  for (int i = 0; i < count; ++i) {
    all[static_cast<std::size_t>(i)] = a + (b - a) * (i * stride % count) / count;
  }
  return all;
}

}  // namespace

UnitCosts unit_costs() {
  using namespace steam;
  return {
      .pow = cost(between(0.3, 1.3), [](double x) { return std::pow(x, -5.0 / 17); }),
      .exp = cost(between(-3, 1), [](double x) { return std::exp(x); }),
      .water = cost(
          between(1, 340),
          [](double t) { return value_of<Water, Quantity::h>(Water::terms(300.0, t), 300.0, t); }),
      .steam = cost(
          between(400, 790),
          [](double t) { return value_of<Steam, Quantity::h>(Steam::terms(50.0, t), 50.0, t); }),
      .dense = cost(
          between(380, 580),
          [](double t) { return value_of<Dense, Quantity::h>(Dense::terms(0.004, t), 0.004, t); }),
  };
}
