#pragma once

#include <nanobind/nanobind.h>

namespace python {

/// Adds what asks the classic module: classic_request, classic_compare, classic_properties.
void add_classic(nanobind::module_& module);

}  // namespace python
