#include <nanobind/nanobind.h>
#include <nanobind/stl/string.h>
#include <nanobind/stl/tuple.h>
#include <nanobind/stl/vector.h>

#include <algorithm>

#include "classic.hpp"
#include "diagrams.hpp"
#include "known.hpp"
#include "property_functions.hpp"
#include "threads.hpp"
#include "ufunc.hpp"

namespace nb = nanobind;
using namespace nb::literals;

namespace {

/// Number, identifier, name, letter, unit, SI unit, whether it is in one phase and in wet states.
nb::list properties() {
  nb::list all;
  for (int number = 0; number < vek_steam_property_count(); ++number) {
    const steam::PropertyInfo info = steam::info(static_cast<steam::Property>(number));
    all.append(nb::make_tuple(number, python::identifier(number), info.name, info.letter, info.unit,
                              python::si_unit(info.unit), info.in_one_phase, info.in_wet_states));
  }
  return all;
}

/// Letters and, of each of the two properties, its number and what can be asked of it.
nb::list pairs() {
  nb::list all;
  for (int number = 0; number < vek_steam_pair_count(); ++number) {
    const steam::PairInfo info = steam::info(static_cast<steam::Pair>(number));
    all.append(nb::make_tuple(
        number, info.letters,
        nb::make_tuple(static_cast<int>(info.first), info.first_lowest, info.first_highest),
        nb::make_tuple(static_cast<int>(info.second), info.second_lowest, info.second_highest)));
  }
  return all;
}

/// The properties and the phase in words of the states of a pair, at most some of them, with the
/// code that says why there is none.
nb::tuple states(int pair, double first, double second, const std::vector<int>& wanted, bool si,
                 std::size_t most) {
  if (si) {
    python::from_si(pair, first, second);
  }
  std::vector<int> numbers{VEK_STEAM_REGION, VEK_STEAM_P, VEK_STEAM_T};
  const std::size_t ours = numbers.size();
  numbers.insert(numbers.end(), wanted.begin(), wanted.end());
  most = std::min(most, steam::Results::capacity);
  std::vector<double> out(numbers.size() * most);
  std::size_t count = 0;
  const int code = vek_steam_values_of_states(pair, first, second, numbers.size(), numbers.data(),
                                              out.data(), most, &count);
  steam::detail::check(code);
  nb::list all;
  for (std::size_t i = 0; i < std::min(count, most); ++i) {
    const double* const row = out.data() + i * numbers.size();
    std::vector<double> values(row + ours, row + numbers.size());
    for (std::size_t k = 0; si && k < values.size(); ++k) {
      values[k] = python::conversion_of(wanted[k]).to_si(values[k]);
    }
    all.append(
        nb::make_tuple(values, vek_steam_phase_name(static_cast<int>(row[0]), row[1], row[2])));
  }
  return nb::make_tuple(code, all);
}

/// What a code above 0 says of a pair's values, in the engine's units.
std::string refusal(int code, int pair, double first, double second, bool si) {
  if (si) {
    python::from_si(pair, first, second);
  }
  vek_steam_refusal refusal;
  steam::detail::check(vek_steam_refusal_of(code, pair, first, second, &refusal, sizeof refusal));
  return steam::detail::text(refusal);
}

/// What a code says.
std::string reason(int code) { return steam::detail::text({code, ' ', 0, 0, 0}); }

nb::object ufunc(int pair, const std::vector<int>& wanted, bool status, bool si,
                 const std::string& name, const std::string& doc) {
  PyObject* const made = python::make_ufunc({pair, wanted, status, si}, name, doc);
  if (!made) {
    throw nb::python_error();
  }
  return nb::steal(made);
}

}  // namespace

NB_MODULE(_core, m) {
  m.attr("of_liquid") = static_cast<int>(VEK_STEAM_OF_LIQUID);
  m.attr("of_vapour") = static_cast<int>(VEK_STEAM_OF_VAPOUR);
  m.attr("not_reached") = static_cast<int>(VEK_STEAM_NOT_REACHED);
  m.attr("most_states") = steam::Results::capacity;
  m.attr("version") = vek_steam_version();
  m.def("properties", properties);
  m.def("pairs", pairs);
  m.def("states", states);
  m.def("reason", reason);
  m.def("refusal", refusal);
  m.def("ufunc", ufunc);
  m.def("phase_name", vek_steam_phase_name);
  m.def("set_threads", python::set_threads);
  m.def("threads", python::threads);
  m.def("add_property_functions", python::add_property_functions);
  python::add_classic(m);
  python::add_diagrams(m);
}
