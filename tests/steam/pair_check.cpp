#include "pair_check.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "round_trips.hpp"

namespace pair_check {
namespace {

using round_trips::Given;

/// A hundred times what random states show: where the pair hardly changes with the state, such as
/// the energy of cold water with its pressure, rounding adds up.
constexpr double tolerance = 1e-9;
/// By how much the formulation's subregions miss each other in the quantities of a pair.
constexpr double misfit = 3e-3;

double error(steam::Pair pair, Given g, const steam::State& state) {
  const Given back = round_trips::given(pair, state);
  const char* letters = round_trips::name(pair);
  return std::fmax(std::abs(back.first - g.first) / round_trips::scale(letters[0], g.first),
                   std::abs(back.second - g.second) / round_trips::scale(letters[1], g.second));
}

std::string described(steam::Pair pair, Given g, const char* what, double number) {
  char line[160];
  std::snprintf(line, sizeof line, "%s %.17g %.17g: %s %g", round_trips::name(pair), g.first,
                g.second, what, number);
  return line;
}

struct Column {
  steam::Property property;
  double steam::State::*member;
};
constexpr std::array columns{Column{steam::Property::t, &steam::State::t},
                             Column{steam::Property::h, &steam::State::h},
                             Column{steam::Property::s, &steam::State::s},
                             Column{steam::Property::v, &steam::State::v},
                             Column{steam::Property::u, &steam::State::u},
                             Column{steam::Property::p, &steam::State::p},
                             Column{steam::Property::viscosity, &steam::State::viscosity}};

/// What is wrong with properties that are asked for without the rest of the state: each alone, then
/// each with all before it.
std::string fault_of_values(steam::Pair pair, Given g, const steam::State& state) {
  std::vector<steam::Property> together;
  std::array<double, columns.size()> out{};
  for (const Column& column : columns) {
    const double expected = state.*column.member;
    together.push_back(column.property);
    steam::values(pair, g.first, g.second, together, out);
    for (const double found :
         {steam::value(pair, g.first, g.second, column.property), out[together.size() - 1]}) {
      const bool same = std::isnan(expected)
                            ? std::isnan(found)
                            : std::abs(found - expected) <= tolerance * std::abs(expected) + 1e-10;
      if (!same) {
        return described(pair, g, "another value when asked for without the rest", found);
      }
    }
  }
  return "";
}

bool in_range(const steam::State& s) {
  constexpr double slack = 1e-7;
  return s.p >= 0.006112444 * (1 - slack) && s.p <= 1000 * (1 + slack) && s.t >= 0.01 - slack &&
         s.t <= 800 + slack;
}

}  // namespace

std::string fault(steam::Pair pair, double first, double second) {
  const Given g{first, second};
  const steam::Result result = steam::state(pair, first, second);
  if (!result) {
    const bool said = steam::text(result.refusal()).size() > 10;
    return said ? "" : described(pair, g, "no reason", 0);
  }
  if (!in_range(*result)) {
    return described(pair, g, "outside the range, p", result->p);
  }
  const double e = error(pair, g, *result);
  if (!(e <= (result->approximate ? misfit : tolerance))) {
    return described(pair, g, "not reproduced, error", e);
  }
  return fault_of_values(pair, g, *result);
}

}  // namespace pair_check
