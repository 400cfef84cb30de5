#include "survey.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <sstream>

#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/frame/error_flag.hpp"

namespace {

long evaluated = 0;

const std::array<void*, 4> equations{
    reinterpret_cast<void*>(&classic::COMT1), reinterpret_cast<void*>(&classic::COMT2),
    reinterpret_cast<void*>(&classic::COMT3), reinterpret_cast<void*>(&classic::VEKQPT)};

}  // namespace

// The module is compiled for the survey with a call of this at the entry of each of its functions.
// NOLINTBEGIN(bugprone-reserved-identifier): the compiler chose these names
extern "C" void __cyg_profile_func_enter(void* function, void* /*caller*/) {
  evaluated += std::count(equations.begin(), equations.end(), function);
}
extern "C" void __cyg_profile_func_exit(void* /*function*/, void* /*caller*/) {}
// NOLINTEND(bugprone-reserved-identifier)

namespace survey {
namespace {

double relative(double found, double value, double scale) {
  return std::abs(found - value) / std::abs(scale);
}

}  // namespace

bool Finder::applies_to(const Band& band) const {
  const bool is_wet = band.region >= 5;
  const bool takes_quality = name.find('x') != std::string::npos;
  return is_wet ? name != "pt" : !takes_quality;
}

const std::vector<Finder>& finders() {
  static const std::vector<Finder> all{
      {"pt", vekrpt_, &State::p, &State::t}, {"px", vekrpx_, &State::p, &State::x},
      {"tx", vekrtx_, &State::t, &State::x}, {"pv", vekrpv_, &State::p, &State::v},
      {"ph", vekrph_, &State::p, &State::h}, {"ps", vekrps_, &State::p, &State::s},
      {"pu", vekrpu_, &State::p, &State::u}, {"tv", vekrtv_, &State::t, &State::v},
      {"th", vekrth_, &State::t, &State::h}, {"tu", vekrtu_, &State::t, &State::u},
      {"ts", vekrts_, &State::t, &State::s}, {"sx", vekrsx_, &State::s, &State::x},
      {"hs", vekrhs_, &State::h, &State::s}, {"us", vekrus_, &State::u, &State::s},
      {"vh", vekrvh_, &State::v, &State::h}, {"vs", vekrvs_, &State::v, &State::s},
      {"vu", vekrvu_, &State::v, &State::u}, {"vx", vekrvx_, &State::v, &State::x},
  };
  return all;
}

long evaluations() { return evaluated; }

Answer ask(const Finder& finder, const State& state) {
  std::stringbuf lines;
  static_cast<std::ios&>(classic::ErrorStream).rdbuf(&lines);
  classic::ErrorCount = 0;  // so that lines go on being written
  classic::set_error_flag(0);
  double a = state.*finder.first;
  double b = state.*finder.second;
  double tolerance = finder_tolerance;
  const int region = finder.find(&a, &b, &tolerance);
  static_cast<std::ios&>(classic::ErrorStream).rdbuf(nullptr);
  const bool unconverged = lines.str().find("iterations exceeded") != std::string::npos;
  return {region, a, b, VEKHasError() != 0, unconverged};
}

double error_of(const State& state, const Answer& answer) {
  const auto [region, first, t, flagged, unconverged] = answer;
  if (std::isnan(first) || std::isnan(t)) {
    return HUGE_VAL;
  }
  const double of_first = state.region <= 2   ? relative(first, state.p, state.p)
                          : state.region <= 4 ? relative(first, state.v, state.v)
                                              : relative(first, state.x, 1);
  return std::max(of_first, relative(t, state.t, state.t + 273.15));
}

Result place_all(const Finder& finder, const Band& band, int count) {
  std::vector<double> errors;
  int flagged = 0, unconverged = 0;
  const long before = evaluations();
  for (int k = 0; k < count; ++k) {
    const State state = state_in(band, k);
    const Answer answer = ask(finder, state);
    flagged += answer.flagged ? 1 : 0;
    unconverged += answer.unconverged ? 1 : 0;
    if (answer.region == state.region) {
      errors.push_back(error_of(state, answer));
    }
  }
  const double evaluated_here = static_cast<double>(evaluations() - before);
  std::sort(errors.begin(), errors.end());
  const double none = std::numeric_limits<double>::quiet_NaN();
  return {
      static_cast<double>(errors.size()) / count, errors.empty() ? none : errors[errors.size() / 2],
      errors.empty() ? none : errors.back(),      static_cast<double>(flagged) / count,
      static_cast<double>(unconverged) / count,   evaluated_here / count};
}

}  // namespace survey
