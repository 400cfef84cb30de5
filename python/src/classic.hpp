#pragma once

#include <nanobind/nanobind.h>

namespace python {

/// Adds what asks the classic module: classic_request, classic_answer, classic_properties.
void add_classic(nanobind::module_& module);

}  // namespace python
