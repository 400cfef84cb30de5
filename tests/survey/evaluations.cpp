#include "evaluations.hpp"

#include "steam/equations/slopes.hpp"

namespace {

long counted = 0;

void* const core[]{reinterpret_cast<void*>(&formulation::terms1<steam::Math>),
                   reinterpret_cast<void*>(&formulation::moments2<steam::Math>),
                   reinterpret_cast<void*>(&formulation::derivatives3<steam::Math>)};

}  // namespace

long evaluations::count() { return counted; }

// NOLINTBEGIN(bugprone-reserved-identifier): the compiler calls these
extern "C" [[gnu::no_instrument_function]] void __cyg_profile_func_enter(void* function,
                                                                         void* /*caller*/) {
  for (const void* counts : core) {
    counted += counts == function ? 1 : 0;
  }
}
extern "C" [[gnu::no_instrument_function]] void __cyg_profile_func_exit(void* /*function*/,
                                                                        void* /*caller*/) {}
// NOLINTEND(bugprone-reserved-identifier)
