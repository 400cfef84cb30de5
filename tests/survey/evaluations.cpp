#include "evaluations.hpp"

#include "steam/equations/slopes.hpp"
#include "steam/search/dense_volume.hpp"
#include "steam/tables/saturation_line.hpp"

namespace {

long of_subregions = 0, of_others = 0;

void* const subregions[]{
    reinterpret_cast<void*>(&formulation::terms1<steam::SharedDivisions<>>),
    reinterpret_cast<void*>(&formulation::moments2<steam::SharedDivisions<>>),
    reinterpret_cast<void*>(&formulation::derivatives3<steam::SharedDivisions<>>)};

using Pressure = formulation::PressureSlope<double> (*)(const steam::Isotherm&, double);
void* const others[]{reinterpret_cast<void*>(static_cast<Pressure>(&formulation::pressure<double>)),
                     reinterpret_cast<void*>(&formulation::saturation_terms<double>)};

}  // namespace

// This file is compiled like the engine, since the linker may take its copy of an equation.
[[gnu::no_instrument_function]] long evaluations::count() { return of_subregions; }
[[gnu::no_instrument_function]] long evaluations::count_all() { return of_subregions + of_others; }

// NOLINTBEGIN(bugprone-reserved-identifier): the compiler calls these
extern "C" [[gnu::no_instrument_function]] void __cyg_profile_func_enter(void* function,
                                                                         void* /*caller*/) {
  for (const void* counts : subregions) {
    of_subregions += counts == function ? 1 : 0;
  }
  for (const void* counts : others) {
    of_others += counts == function ? 1 : 0;
  }
}
extern "C" [[gnu::no_instrument_function]] void __cyg_profile_func_exit(void* /*function*/,
                                                                        void* /*caller*/) {}
// NOLINTEND(bugprone-reserved-identifier)
