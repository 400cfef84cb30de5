#include "ufunc.hpp"

// The order of these matters to NumPy.
#include <numpy/ndarraytypes.h>
#include <numpy/ufuncobject.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "known.hpp"
#include "threads.hpp"

namespace python {
namespace {

/// A ufunc's texts and types, and what it hands to its loop; these have to last as long as it.
struct Loop {
  Computation what;
  std::string name, doc;
  std::vector<char> types;
  PyUFuncGenericFunction function;
  void* data;
  Conversion first, second;
  std::vector<Conversion> outputs;
};

/// The columns of one call of a loop.
struct Columns {
  std::size_t rows;
  vek_steam_input first, second;
  std::vector<vek_steam_output> outputs;  // the status last
};

template <class Column>
auto* place(const Column& column, std::size_t row) {
  using Byte = std::conditional_t<std::is_same_v<Column, vek_steam_input>, const char, char>;
  return static_cast<Byte*>(column.data) + static_cast<std::ptrdiff_t>(row) * column.stride;
}

double value_at(const vek_steam_input& column, std::size_t row) {
  double value;
  std::memcpy(&value, place(column, row), sizeof value);
  return value;
}

void put(const vek_steam_output& column, std::size_t row, double value) {
  std::memcpy(place(column, row), &value, sizeof value);
}

/// For columns that the engine takes for overlapping or has no memory for.
void evaluate_one_by_one(const Loop& loop, const Columns& columns) {
  const std::size_t count = loop.what.properties.size();
  for (std::size_t row = 0; row < columns.rows; ++row) {
    const double first = value_at(columns.first, row), second = value_at(columns.second, row);
    for (std::size_t i = 0; i < count; ++i) {
      double value;
      const int code =
          vek_steam_values(loop.what.pair, first, second, 1, &loop.what.properties[i], &value);
      put(columns.outputs[i], row, value);
      if (loop.what.status && i + 1 == count) {
        *place(columns.outputs[count], row) = static_cast<char>(code);
      }
    }
  }
}

void evaluate(const Loop& loop, const Columns& columns) {
  const std::size_t count = loop.what.properties.size();
  vek_steam_options how{};
  how.pool = pool_for(columns.rows);
  how.threads = 1;
  const int code = vek_steam_evaluate(loop.what.pair, columns.rows, columns.first, columns.second,
                                      count, loop.what.properties.data(), columns.outputs.data(),
                                      loop.what.status ? &columns.outputs[count] : nullptr, &how,
                                      sizeof how, nullptr);
  if (code != VEK_STEAM_OK) {
    evaluate_one_by_one(loop, columns);
  }
}

/// Some rows of a column.
template <class Column>
Column part(const Column& column, std::size_t row) {
  return {place(column, row), column.stride};
}

void evaluate_si(const Loop& loop, const Columns& columns) {
  constexpr std::size_t block = 65536;
  const std::size_t most = std::min(block, columns.rows);
  std::vector<double> first(most), second(most);
  for (std::size_t begin = 0; begin < columns.rows; begin += block) {
    Columns some{std::min(block, columns.rows - begin),
                 {first.data(), sizeof(double)},
                 {second.data(), sizeof(double)},
                 {}};
    for (std::size_t row = 0; row < some.rows; ++row) {
      first[row] = loop.first.from_si(value_at(columns.first, begin + row));
      second[row] = loop.second.from_si(value_at(columns.second, begin + row));
    }
    for (const vek_steam_output& output : columns.outputs) {
      some.outputs.push_back(part(output, begin));
    }
    evaluate(loop, some);
    for (std::size_t i = 0; i < loop.outputs.size(); ++i) {
      const vek_steam_input written{some.outputs[i].data, some.outputs[i].stride};
      for (std::size_t row = 0; row < some.rows; ++row) {
        put(some.outputs[i], row, loop.outputs[i].to_si(value_at(written, row)));
      }
    }
  }
}

/// What NumPy calls, without the interpreter's lock.
void run(char** arguments, const npy_intp* dimensions, const npy_intp* strides, void* data) noexcept
    try {
  const auto& loop = *static_cast<const Loop*>(data);
  Columns columns{static_cast<std::size_t>(dimensions[0]),
                  {arguments[0], strides[0]},
                  {arguments[1], strides[1]},
                  {}};
  const std::size_t outputs = loop.what.properties.size() + (loop.what.status ? 1 : 0);
  for (std::size_t i = 2; i < 2 + outputs; ++i) {
    columns.outputs.push_back({arguments[i], strides[i]});
  }
  loop.what.si ? evaluate_si(loop, columns) : evaluate(loop, columns);
} catch (const std::bad_alloc&) {
  const PyGILState_STATE state = PyGILState_Ensure();
  PyErr_NoMemory();
  PyGILState_Release(state);
}

bool has_numpy() {
  static bool here = false;
  if (!here && (_import_array() < 0 || _import_umath() < 0)) {
    return false;
  }
  here = true;
  return true;
}

}  // namespace

PyObject* make_ufunc(const Computation& what, const std::string& name, const std::string& doc) {
  if (!has_numpy()) {
    return nullptr;
  }
  auto loop = std::make_unique<Loop>(Loop{what, name, doc, {}, run, nullptr, {}, {}, {}});
  const steam::PairInfo pair = steam::info(static_cast<steam::Pair>(what.pair));
  loop->first = conversion_of(static_cast<int>(pair.first));
  loop->second = conversion_of(static_cast<int>(pair.second));
  for (const int property : what.properties) {
    loop->outputs.push_back(conversion_of(property));
  }
  loop->types.assign(2 + what.properties.size(), NPY_DOUBLE);
  if (what.status) {
    loop->types.push_back(NPY_UBYTE);
  }
  loop->data = loop.get();
  PyObject* const made =
      PyUFunc_FromFuncAndData(&loop->function, &loop->data, loop->types.data(), 1, 2,
                              static_cast<int>(loop->types.size()) - 2, PyUFunc_None,
                              loop->name.c_str(), loop->doc.c_str(), 0);
  if (made) {
    static_cast<void>(loop.release());
  }
  return made;
}

}  // namespace python
