#include "property_functions.hpp"

#include <nanobind/stl/string.h>

#include <utility>

#include "known.hpp"

namespace nb = nanobind;

namespace python {
namespace {

/// The names of what can be given, interned, so that a keyword is mostly the same object.
std::array<PyObject*, quantity_count> keywords;

/// What calls go to that are not just two numbers, without SI units and with them.
std::array<PyObject*, 2> others;

/// @return  the property that a keyword names; quantity_count when it names none
int quantity_of(PyObject* keyword) {
  int quantity = 0;
  while (quantity < quantity_count && keywords[static_cast<std::size_t>(quantity)] != keyword) {
    ++quantity;
  }
  return quantity;
}

/// @return  whether an argument is a Python number, which `value` then is
bool is_number(PyObject* argument, double& value) {
  if (PyFloat_Check(argument)) {
    value = PyFloat_AS_DOUBLE(argument);
    return true;
  }
  if (!PyLong_Check(argument)) {
    return false;
  }
  value = PyLong_AsDouble(argument);
  if (value == -1 && PyErr_Occurred()) {
    PyErr_Clear();  // too large for a number of ours: NumPy says so
    return false;
  }
  return true;
}

/// One state's property, where two numbers of a pair are given and nothing else.
template <bool si>
bool evaluate(int property, PyObject* const* arguments, PyObject* names, double& result) {
  const int q0 = quantity_of(PyTuple_GET_ITEM(names, 0));
  const int q1 = quantity_of(PyTuple_GET_ITEM(names, 1));
  if (q0 == quantity_count || q1 == quantity_count) {
    return false;
  }
  const Known known = known_of(q0, q1);
  double first, second;
  if (known.pair < 0 || !is_number(arguments[0], first) || !is_number(arguments[1], second)) {
    return false;
  }
  if constexpr (si) {
    first = conversion_of(q0).from_si(first);
    second = conversion_of(q1).from_si(second);
  }
  if (known.swapped) {
    std::swap(first, second);
  }
  result = vek_steam_value(known.pair, first, second, property);
  if constexpr (si) {
    result = conversion_of(property).to_si(result);
  }
  return true;
}

PyObject* call_other(int property, bool si, PyObject* const* arguments, Py_ssize_t count,
                     PyObject* names) {
  if (count > 0) {
    PyErr_SetString(PyExc_TypeError,
                    "known properties are given by their names, as in p=10, t=100");
    return nullptr;
  }
  const nb::object keywords_given = nb::steal(PyDict_New());
  const Py_ssize_t given = names ? PyTuple_GET_SIZE(names) : 0;
  for (Py_ssize_t i = 0; i < given; ++i) {
    if (PyDict_SetItem(keywords_given.ptr(), PyTuple_GET_ITEM(names, i), arguments[i]) < 0) {
      return nullptr;
    }
  }
  const nb::object number = nb::steal(PyLong_FromLong(property));
  return PyObject_CallFunctionObjArgs(others[si ? 1 : 0], number.ptr(), keywords_given.ptr(),
                                      nullptr);
}

/// The function of a property. Each is one of C's, so that nothing has to be looked up.
template <int property, bool si>
PyObject* call(PyObject*, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
  double result;
  if (count == 0 && names && PyTuple_GET_SIZE(names) == 2 &&
      evaluate<si>(property, arguments, names, result)) {
    return PyFloat_FromDouble(result);
  }
  return call_other(property, si, arguments, count, names);
}

using Function = PyObject* (*)(PyObject*, PyObject* const*, Py_ssize_t, PyObject*);

template <bool si, int... property>
constexpr std::array<Function, sizeof...(property)> functions(
    std::integer_sequence<int, property...>) {
  return {call<property, si>...};
}

/// Python's description of a function, with the texts that it points to; lasts as long as Python.
struct Definition {
  std::string name, doc;
  PyMethodDef method;
};

void add_function(nb::module_& module, Function function, std::string name, std::string doc) {
  auto* const definition = new Definition{std::move(name), std::move(doc), {}};
  definition->method = {definition->name.c_str(),
                        reinterpret_cast<PyCFunction>(reinterpret_cast<void*>(function)),
                        METH_FASTCALL | METH_KEYWORDS, definition->doc.c_str()};
  module.attr(definition->name.c_str()) = nb::steal(PyCFunction_NewEx(
      &definition->method, module.ptr(), nb::object(module.attr("__name__")).ptr()));
}

}  // namespace

void add_property_functions(nb::module_ module, bool si, const nb::object& otherwise,
                            const nb::callable& describe) {
  constexpr auto numbers = std::make_integer_sequence<int, steam::property_count>();
  constexpr std::array all{functions<false>(numbers), functions<true>(numbers)};
  for (int quantity = 0; quantity < quantity_count; ++quantity) {
    keywords[static_cast<std::size_t>(quantity)] =
        PyUnicode_InternFromString(identifier(quantity).c_str());
  }
  others[si ? 1 : 0] = nb::object(otherwise).release().ptr();
  for (int property = 0; property < static_cast<int>(steam::property_count); ++property) {
    add_function(module, all[si ? 1 : 0][static_cast<std::size_t>(property)], identifier(property),
                 nb::cast<std::string>(describe(property)));
  }
}

}  // namespace python
