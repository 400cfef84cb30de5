#pragma once

#include <Python.h>

#include <string>
#include <vector>

namespace python {

/// What a NumPy ufunc computes: properties of the states that have a pair.
struct Computation {
  int pair;
  std::vector<int> properties;
  bool status;  ///< the code of each row is the last output
  bool si;      ///< inputs and outputs are in SI units
};

/// A ufunc of the pair's two values, in its order. It and what it stands for are never given back.
/// @return  a new reference; null with a Python exception, as where NumPy is not there
PyObject* make_ufunc(const Computation& computation, const std::string& name,
                     const std::string& doc);

}  // namespace python
