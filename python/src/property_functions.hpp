#pragma once

#include <nanobind/nanobind.h>

namespace python {

/// Gives a Python module a function for each property, such as vek.h(p=10, t=100).
/// @param si        of SI units
/// @param otherwise called with (number of the property, keywords) where not just two numbers of a
///                  pair are given
/// @param describe  called with the number of a property, gives its function's docstring
void add_property_functions(nanobind::module_ module, bool si, const nanobind::object& otherwise,
                            const nanobind::callable& describe);

}  // namespace python
