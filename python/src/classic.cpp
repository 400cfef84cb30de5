#include "classic.hpp"

#include <nanobind/stl/string.h>
#include <nanobind/stl/vector.h>

#include <mutex>

#include "comparison/classic_answer.hpp"

namespace nb = nanobind;

namespace python {
namespace {

/// The module's state is one for the process.
std::mutex one_at_a_time;

VekFinder finder_of(int pair) {
  const auto number = static_cast<steam::Pair>(pair);
  if (const VekFinder finder = comparison::finder_of(number)) {
    return finder;
  }
  throw nb::value_error(
      (std::string("the classic module has no finder for ") + steam::info(number).letters).c_str());
}

nb::tuple request(int pair, double first, double second, const std::string& list,
                  std::size_t items) {
  const VekFinder finder = finder_of(pair);
  const std::lock_guard lock(one_at_a_time);
  const auto reply = comparison::request(finder, first, second, list, items);
  return nb::make_tuple(reply.values, reply.flag, reply.diagnostics);
}

/// The engine's first state, the module's, and their difference, each in the properties compared.
nb::tuple compare(int pair, double first, double second) {
  finder_of(pair);
  const std::lock_guard lock(one_at_a_time);
  const auto both = comparison::compare(static_cast<steam::Pair>(pair), first, second, 1);
  const auto values = [](const double* of) {
    return std::vector<double>(of, of + VEK_STEAM_COMPARED);
  };
  return nb::make_tuple(values(both.engine), values(both.module), values(both.difference),
                        both.flag, both.diagnostics);
}

std::vector<int> properties() {
  std::vector<int> numbers;
  for (const steam::Property property : comparison::classic_properties()) {
    numbers.push_back(static_cast<int>(property));
  }
  return numbers;
}

}  // namespace

void add_classic(nb::module_& module) {
  module.def("classic_request", request);
  module.def("classic_compare", compare);
  module.def("classic_properties", properties);
}

}  // namespace python
