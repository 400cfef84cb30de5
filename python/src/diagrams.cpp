#include "diagrams.hpp"

#include <nanobind/ndarray.h>
#include <nanobind/stl/vector.h>

#include "vek/steam.hpp"

namespace nb = nanobind;

namespace python {
namespace {

using Coordinates = nb::ndarray<nb::numpy, double, nb::ndim<1>>;

/// Letters; of the quantities across and upwards number, whether the scale is logarithmic, range.
nb::list diagrams() {
  nb::list all;
  for (std::size_t i = 0; i < steam::diagram_count; ++i) {
    const steam::DiagramInfo info = steam::info(static_cast<steam::Diagram>(i));
    all.append(nb::make_tuple(
        info.letters,
        nb::make_tuple(static_cast<int>(info.x), info.x_logarithmic, info.x_lowest, info.x_highest),
        nb::make_tuple(static_cast<int>(info.y), info.y_logarithmic, info.y_lowest,
                       info.y_highest)));
  }
  return all;
}

/// Takes the values over, so that an array shows them without a copy.
Coordinates array_of(std::vector<double>&& values) {
  auto* const kept = new std::vector<double>(std::move(values));
  const nb::capsule owner(kept,
                          [](void* p) noexcept { delete static_cast<std::vector<double>*>(p); });
  return {kept->data(), {kept->size()}, owner};
}

/// Property, value, and the coordinates of each line.
nb::list listed(std::vector<steam::Line>&& lines) {
  nb::list all;
  for (steam::Line& line : lines) {
    all.append(nb::make_tuple(static_cast<int>(line.property), line.value,
                              array_of(std::move(line.x)), array_of(std::move(line.y))));
  }
  return all;
}

/// Those of printed charts.
nb::list lines(int diagram) { return listed(steam::lines(static_cast<steam::Diagram>(diagram))); }

nb::list lines_of(int diagram, int property, const std::vector<double>& values) {
  return listed(steam::lines(static_cast<steam::Diagram>(diagram),
                             static_cast<steam::Property>(property), values));
}

}  // namespace

void add_diagrams(nb::module_& module) {
  module.def("diagrams", diagrams);
  module.def("lines", lines);
  module.def("lines_of", lines_of);
}

}  // namespace python
