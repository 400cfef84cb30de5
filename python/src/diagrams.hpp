#pragma once

#include <nanobind/nanobind.h>

namespace python {

/// Adds what the charts are drawn from: `diagrams` and the `lines` of one.
void add_diagrams(nanobind::module_& module);

}  // namespace python
