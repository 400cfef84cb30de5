#include <algorithm>
#include <array>
#include <cstring>
#include <ostream>

#include "classic/equations/properties.hpp"
#include "classic/equations/routines.hpp"
#include "classic/frame/diagnostics.hpp"
#include "classic/frame/error_flag.hpp"
#include "classic/frame/fault_traps.hpp"
#include "classic/frame/guards.hpp"
#include "classic/regions/region.hpp"
#include "classic/solve/saturated_volumes.hpp"
#include "vek/vek.h"

namespace classic {
namespace {

double tolerance = 1e-8;  // relative; finders and solvers get its address

int IREG;                    // region code of the state, 0 once a list item had four characters
double saturation_pressure;  // of the last wet state, in whatever call; 0 after load

/// A caloric property by subregion.
struct Caloric {
  double (*of_water)(const double* p, const double* t);
  double (*of_steam)(const double* p, const double* t);
  double (*in_3)(const double* v, const double* t);
};
constexpr Caloric enthalpies{ENTHA1, ENTHA2, ENTHA3};
constexpr Caloric entropies{ENTRO1, ENTRO2, ENTRO3};
constexpr Caloric heat_capacities{HTCAP1, HTCAP2, HTCAP3};

/// The state of one request, and what its items share.
class Request {
 public:
  Request(double x, double y) : a_(x), b_(y) {}

  void find_region(VekFinder finder);
  bool has_region() const { return IREG >= 1 && IREG <= 6; }
  void resolve_wet_state();

  // The items of a list, for the region as it stands.
  double pressure();
  double temperature() const { return b_; }
  double specific_volume();
  double caloric(const Caloric& y);
  double quality() const;
  double heat_capacity();
  using Transport = double (*)(const double* v, const double* t);
  void transport(Transport property, double scale, double& slot);
  bool refused_wet_item() const { return refused_wet_item_; }

 private:
  void resolve_above_350();
  void resolve_to_350();

  bool is_wet() const { return IREG != water && IREG != steam && !is_subregion_3(); }
  static bool is_subregion_3() { return IREG == steam_side_3 || IREG == water_side_3; }

  double a_, b_;  // evaluation pair of the region
  double v_liquid_ = 0, v_vapour_ = 0;
  double v_transport_ = 0;
  bool transport_volume_known_ = false;
  bool refused_wet_item_ = false;
};

void Request::find_region(VekFinder finder) {
  IREG = finder(&a_, &b_, &tolerance);
  hold_new_traps();  // of a host's own finder
}

void Request::resolve_wet_state() {
  if (IREG == wet_above_350 || IREG == wet) {
    saturation_pressure = VEKQPT(&b_);
  }
  if (IREG == wet_above_350) {
    resolve_above_350();
  } else if (IREG == wet) {
    resolve_to_350();
  }
}

constexpr double liquid_quality = 1e-06;     // at most this is saturated liquid
constexpr double vapour_quality = 0.999999;  // at least this is saturated vapour

void Request::resolve_above_350() {
  v_vapour_ = vapour_volume3(&b_, &saturation_pressure, &tolerance);  // vapour first: intended
  v_liquid_ = liquid_volume3(&b_, &saturation_pressure, &tolerance);
  if (a_ <= liquid_quality) {
    IREG = water_side_3;
    a_ = v_liquid_;
  } else if (a_ >= vapour_quality) {
    IREG = steam_side_3;
    a_ = v_vapour_;
  }
}

void Request::resolve_to_350() {
  if (a_ <= liquid_quality) {
    IREG = water;
    a_ = saturation_pressure;
  } else if (a_ >= vapour_quality) {
    IREG = steam;
    a_ = saturation_pressure;
  }
}

// In the following, region code 0 takes the branches of the wet state to 350 °C, with whatever the
// saturation pressure and `a_` hold: intended.

double Request::pressure() {
  if (is_subregion_3()) {
    return PRESS3(&a_, &b_);
  }
  return is_wet() ? saturation_pressure : a_;
}

double Request::specific_volume() {
  switch (IREG) {
    case water:
      return SPVOL1(&a_, &b_);
    case steam:
      return SPVOL2(&a_, &b_);
    case steam_side_3:
    case water_side_3:
      return a_;
    case wet_above_350:
      return mixed(v_liquid_, a_, v_vapour_);
    default: {
      const double liquid = SPVOL1(&saturation_pressure, &b_);
      return mixed(liquid, a_, SPVOL2(&saturation_pressure, &b_));
    }
  }
}

double Request::caloric(const Caloric& y) {
  switch (IREG) {
    case water:
      return y.of_water(&a_, &b_);
    case steam:
      return y.of_steam(&a_, &b_);
    case steam_side_3:
    case water_side_3:
      return y.in_3(&a_, &b_);
    case wet_above_350: {
      const double liquid = y.in_3(&v_liquid_, &b_);
      return mixed(liquid, a_, y.in_3(&v_vapour_, &b_));
    }
    default: {
      const double liquid = y.of_water(&saturation_pressure, &b_);
      return mixed(liquid, a_, y.of_steam(&saturation_pressure, &b_));
    }
  }
}

double Request::quality() const {
  if (is_wet()) {
    return a_;
  }
  return IREG == steam || IREG == steam_side_3 ? 1.0 : 0.0;
}

double Request::heat_capacity() {
  if (is_wet()) {
    refused_wet_item_ = true;
    return 0.0;
  }
  return caloric(heat_capacities);
}

void Request::transport(Transport property, double scale, double& slot) {
  if (is_subregion_3()) {
    return;  // intended: neither viscosity nor conductivity there, and the slot is left as it is
  }
  if (is_wet()) {
    refused_wet_item_ = true;
    slot = 0.0;
    return;
  }
  if (!transport_volume_known_) {
    v_transport_ = specific_volume();
  }
  slot = scale * property(&v_transport_, &b_);
  transport_volume_known_ = true;
}

/// One property: how a list names it, and what puts its value into a result slot.
struct Property {
  const char* name;  // the beginning of an item that asks for it
  bool whole;        // and all of it
  void (*evaluate)(Request& request, double& slot);

  bool is_meant_by(const char* item) const {
    return whole ? std::strcmp(item, name) == 0 : std::strncmp(item, name, std::strlen(name)) == 0;
  }
};

/// In the order in which an item is tested.
constexpr std::array<Property, 9> properties{{
    {"P", false, [](Request& r, double& slot) { slot = r.pressure(); }},
    {"T", true, [](Request& r, double& slot) { slot = r.temperature(); }},
    {"V", false, [](Request& r, double& slot) { slot = r.specific_volume(); }},
    {"H", false, [](Request& r, double& slot) { slot = r.caloric(enthalpies); }},
    {"S", false, [](Request& r, double& slot) { slot = r.caloric(entropies); }},
    {"X", false, [](Request& r, double& slot) { slot = r.quality(); }},
    {"CP", false, [](Request& r, double& slot) { slot = r.heat_capacity(); }},
    {"DV", false, [](Request& r, double& slot) { r.transport(VISCOS, 1.0, slot); }},
    {"TC", false, [](Request& r, double& slot) { r.transport(THCOND, 0.001, slot); }},
}};

void evaluate_item(Request& request, const char* item, double& slot) {
  const auto meant = std::find_if(properties.begin(), properties.end(),
                                  [item](const Property& p) { return p.is_meant_by(item); });
  if (meant != properties.end()) {
    meant->evaluate(request, slot);
    return;
  }
  WriteDiagnostic(ErrorStream, "*** VEKFTN-ERROR: illegal dependend property: ")
      << item << " ***" << std::endl;
}

/// Reads a property list item by item.
class ListScanner {
 public:
  explicit ListScanner(const char* list) : list_(list) {}

  bool at_end() const { return std::strlen(list_) <= position_; }

  /// Takes characters up to a separator, four at the most; the NUL that ends the list is no
  /// separator, so an unseparated last item is filled up with NULs. A fourth character clears the
  /// region code for good: intended, its terminator falls on that code.
  const char* next() {
    std::size_t length = 0;
    token_[0] = '\0';
    while (length < max_length && !is_separator(current())) {
      token_[length] = current();
      ++length;
      ++position_;
      token_[length] = '\0';
    }
    if (length == max_length) {
      IREG = no_region;
    }
    ++position_;  // over the separator, or over the fifth character of a long name
    return token_.data();
  }

 private:
  static constexpr std::size_t max_length = 4;
  static bool is_separator(char c) { return c == '.' || c == ',' || c == ' '; }
  char current() const { return at_end() ? '\0' : list_[position_]; }

  const char* list_;
  std::size_t position_ = 0;
  std::array<char, max_length + 1> token_{};
};

void evaluate_list(Request& request, const char* list, double* result) {
  ListScanner scanner(list);
  for (std::size_t k = 0; !scanner.at_end(); ++k) {
    const char* item = scanner.next();
    evaluate_item(request, item, result[k]);
  }
  if (request.refused_wet_item()) {
    WriteDiagnostic(ErrorStream,
                    "*** VEKFTN-ERROR: CP, DV, TC cannot be calculated In wet region ***")
        << std::endl;
  }
}

}  // namespace
}  // namespace classic

using namespace classic;

int vek(VekFinder finder, const double* x, const double* y, const char* list, double* result) {
  FpeGuard guard;
  set_error_flag(0);
  Request request(*x, *y);
  request.find_region(finder);
  if (request.has_region()) {
    request.resolve_wet_state();
    set_error_flag(0);  // intended: whatever placing the state has flagged is no longer visible
    evaluate_list(request, list, result);
  } else {
    WriteDiagnostic(ErrorStream, "*** VEKFTN-ERROR: illegal region calculated: IREG = ")
        << IREG << " ***" << std::endl;
  }
  return guard.release();
}
