#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "vek/steam.h"

/// Properties of water and steam on the 1967 industrial formulation (IFC-67), from any two known
/// properties: C++17 over the C interface of steam.h. Units: bar, °C, m³/kg, kJ/kg, kJ/(kg K), m/s,
/// Pa·s, W/(m K), N/m; quality is the mass fraction of vapour. Range: 0.006112444 to 1000 bar, 0.01
/// to 800 °C. Every function may be called from any number of threads. Misuse, such as an
/// enumerator that does not exist, throws std::invalid_argument.
namespace steam {
inline namespace v1 {

/// What is known: p pressure, t temperature, v specific volume, h enthalpy, s entropy, u internal
/// energy, x quality.
enum class Pair : std::uint8_t {
  pt = VEK_STEAM_PT,
  px = VEK_STEAM_PX,
  tx = VEK_STEAM_TX,
  pv = VEK_STEAM_PV,
  ph = VEK_STEAM_PH,
  ps = VEK_STEAM_PS,
  pu = VEK_STEAM_PU,
  tv = VEK_STEAM_TV,
  th = VEK_STEAM_TH,
  tu = VEK_STEAM_TU,
  ts = VEK_STEAM_TS,
  sx = VEK_STEAM_SX,
  hs = VEK_STEAM_HS,
  us = VEK_STEAM_US,
  vh = VEK_STEAM_VH,
  vs = VEK_STEAM_VS,
  vu = VEK_STEAM_VU,
  vx = VEK_STEAM_VX,
  hx = VEK_STEAM_HX,
  ux = VEK_STEAM_UX,
  hu = VEK_STEAM_HU
};
constexpr std::size_t pair_count = 21;

/// Where a state lies; the numbers are the region codes of the formulation's users.
enum class Region : std::uint8_t {
  none = VEK_STEAM_NONE,
  water = VEK_STEAM_WATER,  ///< to 350 °C, at or above the saturation pressure (subregion 1)
  steam = VEK_STEAM_STEAM,  ///< below saturation or, above 350 °C, below the boundary line
                            ///< (subregion 2)
  dense_steam = VEK_STEAM_DENSE_STEAM,  ///< subregion 3 beside the vapour, and above the
                                        ///< critical temperature
  hot_water = VEK_STEAM_HOT_WATER,      ///< subregion 3 beside the liquid, 350 °C to the critical
                                        ///< temperature
  wet_above_350 = VEK_STEAM_WET_ABOVE_350,  ///< liquid and vapour, both of subregion 3
  wet = VEK_STEAM_WET                       ///< liquid and vapour to 350 °C
};

/// Why there is no state.
enum class Reason : std::uint8_t {
  none = VEK_STEAM_OK,                    ///< there is one
  not_a_number = VEK_STEAM_NOT_A_NUMBER,  ///< a given value is not a number
  pressure = VEK_STEAM_PRESSURE,          ///< outside 0.006112444 to 1000 bar; with a quality, to
                                          ///< 221.2 bar
  temperature = VEK_STEAM_TEMPERATURE,  ///< outside 0.01 to 800 °C; with a quality, to 374.15 °C
  quality = VEK_STEAM_QUALITY,          ///< outside 0 to 1
  value = VEK_STEAM_VALUE,              ///< volume or caloric value beyond all states
  no_state = VEK_STEAM_NO_STATE,        ///< both values are possible, but no state has them
                                        ///< together
  not_reached = VEK_STEAM_NOT_REACHED   ///< a row of a batch that was stopped before
};

/// A reason with the value that is to blame and what would be accepted.
struct Refusal {
  Reason reason = Reason::none;
  char quantity = ' ';  ///< letter of the offending value, ' ' when it is the pair
  double value = 0;
  double lowest = 0, highest = 0;  ///< accepted range
};

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

/// Properties of one phase. Those that do not exist for a state are NaN; a wet state of quality 0
/// or 1 has those of its one phase.
struct Phase {
  double p = missing;                    ///< pressure, bar
  double t = missing;                    ///< temperature, °C
  double v = missing;                    ///< specific volume, m³/kg
  double h = missing;                    ///< enthalpy, kJ/kg
  double s = missing;                    ///< entropy, kJ/(kg K)
  double u = missing;                    ///< internal energy, kJ/kg
  double density = missing;              ///< kg/m³
  double cp = missing;                   ///< isobaric heat capacity, kJ/(kg K); not in wet states
  double cv = missing;                   ///< isochoric heat capacity, kJ/(kg K); not in wet states
  double speed_of_sound = missing;       ///< m/s; not in wet states
  double isentropic_exponent = missing;  ///< -(v/p) (∂p/∂v)s; not in wet states
  double viscosity = missing;            ///< dynamic, Pa·s; not in wet states
  double conductivity = missing;         ///< thermal, W/(m K); not in wet states
  double prandtl = missing;              ///< Prandtl number; not in wet states
};

/// A state: in wet states v, h, s, u and density are those of the mixture.
struct State : Phase {
  Region region = Region::none;
  double x = missing;                ///< quality; wet states only
  double surface_tension = missing;  ///< N/m; wet states only
  bool several = false;              ///< other states have this pair too; `states` gives them all
  bool approximate = false;  ///< the pair falls between two subregions, which do not quite meet:
                             ///< this is the nearer state of their boundary
  Phase saturated_liquid, saturated_vapour;  ///< wet states only

  /// The phase in words: "water", "steam", "wet steam", "supercritical fluid".
  [[nodiscard]] const char* phase() const {
    return vek_steam_phase_name(static_cast<int>(region), p, t);
  }
};

/// A state or the reason why there is none.
class Result {
 public:
  explicit Result(const State& state) : state_(state) {}
  explicit Result(const Refusal& refusal) : refusal_(refusal) {}
  explicit operator bool() const { return refusal_.reason == Reason::none; }
  [[nodiscard]] const State& operator*() const { return state_; }
  [[nodiscard]] const State* operator->() const { return &state_; }
  [[nodiscard]] const Refusal& refusal() const { return refusal_; }

 private:
  State state_;
  Refusal refusal_;
};

/// A short list without allocation.
template <class T, std::size_t N>
class FixedList {
 public:
  static constexpr std::size_t capacity = N;
  /// What does not fit is left out.
  void add(const T& item) {
    if (count_ < N) {
      items_[count_++] = item;
    }
  }
  [[nodiscard]] std::size_t size() const { return count_; }
  [[nodiscard]] bool empty() const { return count_ == 0; }
  [[nodiscard]] const T& operator[](std::size_t i) const { return items_[i]; }
  [[nodiscard]] T& operator[](std::size_t i) { return items_[i]; }
  [[nodiscard]] const T* begin() const { return items_.data(); }
  [[nodiscard]] const T* end() const { return items_.data() + count_; }
  [[nodiscard]] T* begin() { return items_.data(); }
  [[nodiscard]] T* end() { return items_.data() + count_; }

 private:
  std::array<T, N> items_{};
  std::size_t count_ = 0;
};

/// All states of a pair, the one that `state` returns first.
using Results = FixedList<State, 8>;

/// One property, for `values` and `evaluate`; vek/steam.h says what each is. Those that a state
/// does not have are NaN.
enum class Property : std::uint8_t {
  p = VEK_STEAM_P,
  t = VEK_STEAM_T,
  v = VEK_STEAM_V,
  h = VEK_STEAM_H,
  s = VEK_STEAM_S,
  u = VEK_STEAM_U,
  x = VEK_STEAM_X,
  density = VEK_STEAM_DENSITY,
  cp = VEK_STEAM_CP,
  cv = VEK_STEAM_CV,
  speed_of_sound = VEK_STEAM_SPEED_OF_SOUND,
  isentropic_exponent = VEK_STEAM_ISENTROPIC_EXPONENT,
  viscosity = VEK_STEAM_VISCOSITY,
  conductivity = VEK_STEAM_CONDUCTIVITY,
  prandtl = VEK_STEAM_PRANDTL,
  surface_tension = VEK_STEAM_SURFACE_TENSION,
  region = VEK_STEAM_REGION,
  isothermal_compressibility = VEK_STEAM_ISOTHERMAL_COMPRESSIBILITY,
  isobaric_expansion = VEK_STEAM_ISOBARIC_EXPANSION,
  joule_thomson = VEK_STEAM_JOULE_THOMSON,
  p_over_v = VEK_STEAM_P_OVER_V,
  p_over_t = VEK_STEAM_P_OVER_T,
  saturation_slope = VEK_STEAM_SATURATION_SLOPE,
  heat_of_evaporation = VEK_STEAM_HEAT_OF_EVAPORATION,
  wet_speed_of_sound = VEK_STEAM_WET_SPEED_OF_SOUND,
  kinematic_viscosity = VEK_STEAM_KINEMATIC_VISCOSITY,
  thermal_diffusivity = VEK_STEAM_THERMAL_DIFFUSIVITY,
  gibbs_energy = VEK_STEAM_GIBBS_ENERGY,
  helmholtz_energy = VEK_STEAM_HELMHOLTZ_ENERGY,
  superheat = VEK_STEAM_SUPERHEAT,
  several = VEK_STEAM_SEVERAL,
  approximate = VEK_STEAM_APPROXIMATE
};
constexpr std::size_t property_count = 32;

namespace detail {

constexpr Property of_phase(Property property, int phase) {
  if (static_cast<std::size_t>(property) >= property_count) {
    throw std::invalid_argument("steam: a property of a phase of a phase");
  }
  return static_cast<Property>(static_cast<int>(property) + phase);
}

/// What T has to be so that a range of it stands where a range of `Wanted` is taken.
template <class Range, class Wanted>
using IfRange = std::enable_if_t<std::is_convertible_v<
    std::remove_pointer_t<decltype(std::data(std::declval<Range&>()))> (*)[], Wanted (*)[]>>;

}  // namespace detail

/// The property of the saturated liquid or vapour of a wet state, as one more property.
/// @param property  one of those above
/// @outside         missing in one phase; throws std::invalid_argument for any other number, such
///                  as that of a property of a phase
constexpr Property of_liquid(Property property) {
  return detail::of_phase(property, VEK_STEAM_OF_LIQUID);
}
constexpr Property of_vapour(Property property) {
  return detail::of_phase(property, VEK_STEAM_OF_VAPOUR);
}

/// Neighbouring values in memory. Containers, arrays and the standard's span convert to it, and for
/// the time of a call a list, as in `evaluate(pair, p, h, {Property::t, Property::s}, ...)`.
template <class T>
class Span {
 public:
  constexpr Span() = default;
  constexpr Span(T* data, std::size_t size) : data_(data), size_(size) {}
  template <class Range, class = detail::IfRange<Range, T>>
  constexpr Span(Range&& range)  // NOLINT(*-explicit-*, *-forwarding-*, *-missing-std-forward)
      : data_(std::data(range)), size_(std::size(range)) {}
  template <class Item = T, class = std::enable_if_t<std::is_const_v<Item>>>
  constexpr Span(std::initializer_list<std::remove_const_t<Item>> list)
      : data_(std::data(list)), size_(list.size()) {}
  [[nodiscard]] constexpr T* data() const { return data_; }
  [[nodiscard]] constexpr std::size_t size() const { return size_; }

 private:
  T* data_ = nullptr;
  std::size_t size_ = 0;
};

/// One column of a batch: values `stride` bytes apart. What converts to Span converts to it; slices
/// of arrays and fields of records name their stride, which may be zero (one value for every row),
/// negative, and no multiple of the alignment.
template <class T>
class Column {
 public:
  constexpr Column() = default;
  constexpr Column(T* data, std::size_t rows, std::ptrdiff_t stride = sizeof(T))
      : data_(data), rows_(rows), stride_(stride) {}
  template <class Range, class = detail::IfRange<Range, T>>
  constexpr Column(Range&& range)  // NOLINT(*-explicit-*, *-forwarding-*, *-missing-std-forward)
      : data_(std::data(range)), rows_(std::size(range)) {}
  [[nodiscard]] constexpr T* data() const { return data_; }
  [[nodiscard]] constexpr std::size_t rows() const { return rows_; }
  [[nodiscard]] constexpr std::ptrdiff_t stride() const { return stride_; }

 private:
  T* data_ = nullptr;
  std::size_t rows_ = 0;
  std::ptrdiff_t stride_ = sizeof(T);
};

/// The columns that a batch fills: any range of what converts to a column, or a list of them.
class Columns {
 public:
  template <class Range, class = std::enable_if_t<std::is_convertible_v<
                             decltype(*std::begin(std::declval<const Range&>())), Column<double>>>>
  Columns(const Range& range)  // NOLINT(*-explicit-*)
      : columns_(std::begin(range), std::end(range)) {}
  Columns(std::initializer_list<Column<double>> list) : columns_(list) {}
  [[nodiscard]] std::size_t size() const { return columns_.size(); }
  [[nodiscard]] auto begin() const { return columns_.begin(); }
  [[nodiscard]] auto end() const { return columns_.end(); }

 private:
  std::vector<Column<double>> columns_;
};

/// Threads for many batches; any number of threads may evaluate on one pool at a time.
class Pool {
 public:
  /// @param threads  that work on a batch, the calling one among them; 0: one for each core
  explicit Pool(unsigned threads = 0) : pool_(vek_steam_pool_create(threads)) {
    if (!pool_) {
      throw std::bad_alloc();
    }
  }
  [[nodiscard]] vek_steam_pool* get() const { return pool_.get(); }

 private:
  struct Destroy {
    void operator()(vek_steam_pool* pool) const { vek_steam_pool_destroy(pool); }
  };
  std::unique_ptr<vek_steam_pool, Destroy> pool_;
};

/// How `evaluate` works through its rows.
struct Options {
  unsigned threads = 0;                      ///< 0: one for each core
  std::size_t chunk = 512;                   ///< rows that a thread takes at a time
  const std::atomic<int>* cancel = nullptr;  ///< another value than 0 ends the evaluation after the
                                             ///< chunks under way
  /// Called after each chunk with the rows done so far and all rows; calls do not overlap.
  std::function<void(std::size_t, std::size_t)> progress{};
  const Pool* pool = nullptr;  ///< works on its threads instead
};

/// What tables and messages say of a property or a pair.
struct PropertyInfo {
  const char *name, *letter, *unit;  ///< such as "enthalpy", "h", "kJ/kg"
  bool in_one_phase, in_wet_states;  ///< whether such states have it
};
struct PairInfo {
  const char* letters;  ///< such as "ph"
  Property first, second;
  double first_lowest, first_highest, second_lowest, second_highest;  ///< each by itself
};
using Limits = vek_steam_limits;

/// Diagrams, named as usual: the quantity upwards first.
enum class Diagram : std::uint8_t {
  hs = VEK_STEAM_DIAGRAM_HS,
  ts = VEK_STEAM_DIAGRAM_TS,
  ph = VEK_STEAM_DIAGRAM_PH,
  pv = VEK_STEAM_DIAGRAM_PV
};
constexpr std::size_t diagram_count = 4;

/// A diagram, with the ranges that show it as printed charts do; its lines go beyond.
struct DiagramInfo {
  const char* letters;                ///< such as "hs"
  Property x, y;                      ///< across and upwards
  bool x_logarithmic, y_logarithmic;  ///< whether the scale is
  double x_lowest, x_highest, y_lowest, y_highest;
};

/// A line of a diagram: states that have a property in common.
struct Line {
  Property property;         ///< p an isobar, t an isotherm, v an isochore, h an isenthalp, s an
                             ///< isentrope, x a quality
  double value;              ///< of it; the qualities 0 and 1 are saturated liquid and vapour
  std::vector<double> x, y;  ///< points, across and upwards
};

namespace detail {

inline Refusal refusal_of(const vek_steam_refusal& r) {
  return {static_cast<Reason>(r.code), static_cast<char>(r.quantity), r.value, r.lowest, r.highest};
}

inline std::string text(const vek_steam_refusal& refusal) {
  std::string line(vek_steam_text(&refusal, sizeof refusal, nullptr, 0), ' ');
  vek_steam_text(&refusal, sizeof refusal, line.data(), line.size() + 1);
  return line;
}

/// Throws where a call was wrong.
inline void check(int code) {
  if (code == VEK_STEAM_NO_MEMORY) {
    throw std::bad_alloc();
  }
  if (code < 0) {
    throw std::invalid_argument("steam: " + text({code, ' ', 0, 0, 0}));
  }
}

/// The properties of a phase, which a state has in the same names.
template <class Record>
Phase phase_of(const Record& from) {
  return {from.p,
          from.t,
          from.v,
          from.h,
          from.s,
          from.u,
          from.density,
          from.cp,
          from.cv,
          from.speed_of_sound,
          from.isentropic_exponent,
          from.viscosity,
          from.conductivity,
          from.prandtl};
}

inline State state_of(const vek_steam_state& from, const vek_steam_phase& liquid,
                      const vek_steam_phase& vapour) {
  State state;
  static_cast<Phase&>(state) = phase_of(from);
  state.region = static_cast<Region>(from.region);
  state.x = from.x;
  state.surface_tension = from.surface_tension;
  state.several = from.several != 0;
  state.approximate = from.approximate != 0;
  state.saturated_liquid = phase_of(liquid);
  state.saturated_vapour = phase_of(vapour);
  return state;
}

/// The numbers of properties; a few of them without allocation.
class Numbers {
 public:
  explicit Numbers(Span<const Property> properties) {
    if (properties.size() > few_.size()) {
      many_.resize(properties.size());
    }
    for (std::size_t i = 0; i < properties.size(); ++i) {
      data()[i] = static_cast<int>(properties.data()[i]);
    }
  }
  [[nodiscard]] int* data() { return many_.empty() ? few_.data() : many_.data(); }

 private:
  std::array<int, 16> few_;
  std::vector<int> many_;
};

/// Calls a progress function from C; what it throws waits here.
struct Progress {
  const std::function<void(std::size_t, std::size_t)>& function;
  std::exception_ptr thrown{};
  static int call(void* self, std::size_t done, std::size_t rows) {
    auto& progress = *static_cast<Progress*>(self);
    try {
      progress.function(done, rows);
      return 0;
    } catch (...) {
      progress.thrown = std::current_exception();
      return 1;
    }
  }
};

}  // namespace detail

/// One line of text, such as "pressure 2000 is outside 0.006112444 to 1000 bar".
inline std::string text(const Refusal& r) {
  return detail::text({static_cast<int>(r.reason), r.quantity, r.value, r.lowest, r.highest});
}

/// Name, letter and unit of a property.
inline PropertyInfo info(Property property) {
  vek_steam_property_info from;
  detail::check(vek_steam_property_info_of(static_cast<int>(property), &from, sizeof from));
  return {from.name, from.letter, from.unit, from.in_one_phase != 0, from.in_wet_states != 0};
}

/// Letters, properties and ranges of a pair.
inline PairInfo info(Pair pair) {
  vek_steam_pair_info from;
  detail::check(vek_steam_pair_info_of(static_cast<int>(pair), &from, sizeof from));
  return {from.letters,
          static_cast<Property>(from.first),
          static_cast<Property>(from.second),
          from.first_lowest,
          from.first_highest,
          from.second_lowest,
          from.second_highest};
}

/// Limits of the formulation and its critical point.
inline Limits limits() {
  Limits limits;
  detail::check(vek_steam_limits_of(&limits, sizeof limits));
  return limits;
}

/// Properties and ranges of a diagram.
inline DiagramInfo info(Diagram diagram) {
  vek_steam_diagram_info from;
  detail::check(vek_steam_diagram_info_of(static_cast<int>(diagram), &from, sizeof from));
  return {from.letters,
          static_cast<Property>(from.x),
          static_cast<Property>(from.y),
          from.x_logarithmic != 0,
          from.y_logarithmic != 0,
          from.x_lowest,
          from.x_highest,
          from.y_lowest,
          from.y_highest};
}

namespace detail {

/// Takes lines over from C.
inline std::vector<Line> taken(vek_steam_lines* created) {
  const std::unique_ptr<vek_steam_lines, decltype(&vek_steam_lines_destroy)> owner(
      created, vek_steam_lines_destroy);
  std::vector<Line> all;
  for (std::size_t i = 0; i < vek_steam_lines_count(created); ++i) {
    vek_steam_line from;
    check(vek_steam_lines_line(created, i, &from, sizeof from));
    all.push_back({static_cast<Property>(from.property),
                   from.value,
                   {from.x, from.x + from.count},
                   {from.y, from.y + from.count}});
  }
  return all;
}

}  // namespace detail

/// The lines of a diagram at the values that printed charts have, each over the whole range of the
/// formulation; on the h-s diagram isotherms only in steam, since in wet steam they are the
/// isobars.
/// @param tolerance  how far the states between two points may be from the chord, as a share of the
///                   width and height of the diagram's ranges [1e-6, 0.1]; no bend shows at 1e-4
/// @outside          throws std::invalid_argument
inline std::vector<Line> lines(Diagram diagram, double tolerance = 1e-4) {
  vek_steam_lines* created = nullptr;
  detail::check(vek_steam_lines_create(static_cast<int>(diagram), tolerance, &created));
  return detail::taken(created);
}

/// The lines of some values of a property, in their order: p, t, v, h, s or x. Those of values that
/// no state has, have no points.
inline std::vector<Line> lines(Diagram diagram, Property property, Span<const double> values,
                               double tolerance = 1e-4) {
  vek_steam_lines* created = nullptr;
  detail::check(vek_steam_lines_of(static_cast<int>(diagram), tolerance, static_cast<int>(property),
                                   values.size(), values.data(), &created));
  return detail::taken(created);
}

/// The state that has the two properties.
/// @param pair    which two are given, in this order
/// @param first   first value
/// @param second  second value
/// @return        the state, or the reason why there is none
/// @outside       throws std::invalid_argument when the pair does not exist
/// @note          Some pairs belong to several states; `several` is set then. With a temperature
///                the one of the lowest pressure is returned, else the one of the highest
///                temperature. The given values come back bit for bit; of an `approximate` state
///                the second is that of the boundary (the first with entropy second).
/// @accuracy      the state has the given pair to 1e-12 of its scale; see docs/engine.md
inline Result state(Pair pair, double first, double second) {
  vek_steam_state state;
  vek_steam_phase liquid, vapour;
  const int number = static_cast<int>(pair);
  const int code = vek_steam_state_of(number, first, second, &state, sizeof state, &liquid, &vapour,
                                      sizeof liquid);
  if (code == VEK_STEAM_OK) {
    return Result(detail::state_of(state, liquid, vapour));
  }
  detail::check(code);
  vek_steam_refusal refusal;
  detail::check(vek_steam_refusal_of(code, number, first, second, &refusal, sizeof refusal));
  return Result(detail::refusal_of(refusal));
}

/// All states that have the two properties.
inline Results states(Pair pair, double first, double second) {
  std::array<vek_steam_state, Results::capacity> states;
  std::array<vek_steam_phase, Results::capacity> liquids, vapours;
  std::size_t count = 0;
  detail::check(vek_steam_states_of(static_cast<int>(pair), first, second, states.data(),
                                    sizeof(vek_steam_state), liquids.data(), vapours.data(),
                                    sizeof(vek_steam_phase), states.size(), &count));
  Results results;
  for (std::size_t i = 0; i < count; ++i) {
    results.add(detail::state_of(states[i], liquids[i], vapours[i]));
  }
  return results;
}

/// Wet state at a pressure, bar [0.006112444, 221.2], or temperature, °C [0.01, 374.15], and
/// quality.
inline Result saturation_by_pressure(double p, double x = 0) { return state(Pair::px, p, x); }
inline Result saturation_by_temperature(double t, double x = 0) { return state(Pair::tx, t, x); }

/// Some properties of one state; computes only what they need.
/// @param wanted  the properties
/// @param out     takes their values in this order; NaN when there is no state
/// @return        `Reason::none`, or why there is no state
/// @outside       throws std::invalid_argument when `out` is shorter than `wanted`
inline Reason values(Pair pair, double first, double second, Span<const Property> wanted,
                     Span<double> out) {
  if (out.size() < wanted.size()) {
    throw std::invalid_argument("steam::values: fewer places than wanted properties");
  }
  const int code = vek_steam_values(static_cast<int>(pair), first, second, wanted.size(),
                                    detail::Numbers(wanted).data(), out.data());
  detail::check(code);
  return static_cast<Reason>(code);
}

/// Some properties of all states that have the two properties, as `states` orders them.
/// @return  for each state the values in the order of `wanted`; none when there is no state
inline std::vector<std::vector<double>> values_of_states(Pair pair, double first, double second,
                                                         Span<const Property> wanted) {
  detail::Numbers numbers(wanted);
  std::vector<double> out(Results::capacity * wanted.size());
  std::size_t count = 0;
  detail::check(vek_steam_values_of_states(static_cast<int>(pair), first, second, wanted.size(),
                                           numbers.data(), out.data(), Results::capacity, &count));
  std::vector<std::vector<double>> states;
  for (std::size_t i = 0; i < count; ++i) {
    const double* const row = out.data() + i * wanted.size();
    states.emplace_back(row, row + wanted.size());
  }
  return states;
}

/// One property of a state, NaN when there is none.
inline double value(Pair pair, double first, double second, Property wanted) {
  double out = missing;
  const int property = static_cast<int>(wanted);
  detail::check(vek_steam_values(static_cast<int>(pair), first, second, 1, &property, &out));
  return out;
}

/// The engine beside the classic module; calls must not overlap, as those of the module.
/// @param module  VEK_STEAM_MODULE, in a program that includes vek/vek.h
/// @param number  the engine's state, from 1, as `states` orders them; 0: the one that the module
///                has, where it is among them, else the first
/// @return        what both say, in the engine's units; NaN where either says nothing
/// @outside       throws std::invalid_argument when the module has no finder for the pair
using Comparison = vek_steam_comparison;
inline Comparison compare(const vek_steam_module& module, Pair pair, double first, double second,
                          std::size_t number = 0) {
  Comparison comparison;
  detail::check(vek_steam_compare(&module, sizeof module, static_cast<int>(pair), first, second,
                                  number, &comparison, sizeof comparison));
  return comparison;
}

/// Properties of many states. Row i of the outputs belongs to row i of the inputs, and has the same
/// bits whatever the threads and chunks are, and the same as from `values`.
/// @param wanted   the properties
/// @param outputs  one column for each of them, as long as the inputs; NaN in rows without a state.
///                 One may be an input, with the same data and stride
/// @param status   reason of each row; may be empty
/// @return         rows done: all of them unless stopped; the others are `not_reached` and NaN
/// @outside        throws std::invalid_argument when the columns do not fit together, their places
///                 overlap or an enumerator does not exist, and what `progress` throws
inline std::size_t evaluate(Pair pair, Column<const double> first, Column<const double> second,
                            Span<const Property> wanted, const Columns& outputs,
                            Column<Reason> status = {}, const Options& options = {}) {
  static_assert(sizeof(std::atomic<int>) == sizeof(int) && sizeof(Reason) == 1);
  bool fits = second.rows() == first.rows() && outputs.size() == wanted.size() &&
              (status.rows() == 0 || status.rows() == first.rows());
  std::vector<vek_steam_output> out;
  for (const Column<double>& column : outputs) {
    fits = fits && column.rows() == first.rows();
    out.push_back({column.data(), column.stride()});
  }
  if (!fits) {
    throw std::invalid_argument("steam::evaluate: columns of different lengths");
  }
  detail::Numbers numbers(wanted);
  const vek_steam_output codes{status.data(), status.stride()};
  detail::Progress progress{options.progress};
  vek_steam_options how{};
  how.chunk = options.chunk > 0 ? options.chunk : 1;
  how.cancel = reinterpret_cast<const int*>(options.cancel);
  how.progress = options.progress ? detail::Progress::call : nullptr;
  how.user = &progress;
  how.pool = options.pool ? options.pool->get() : nullptr;
  how.threads = options.threads;
  std::size_t done = 0;
  const int code =
      vek_steam_evaluate(static_cast<int>(pair), first.rows(), {first.data(), first.stride()},
                         {second.data(), second.stride()}, wanted.size(), numbers.data(),
                         out.data(), status.rows() > 0 ? &codes : nullptr, &how, sizeof how, &done);
  if (progress.thrown) {
    std::rethrow_exception(progress.thrown);
  }
  detail::check(code);
  return done;
}

}  // namespace v1
}  // namespace steam
