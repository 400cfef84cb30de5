#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <span>
#include <stop_token>
#include <string>

/// Properties of water and steam on the 1967 industrial formulation (IFC-67), from any two known
/// properties. Units: bar, °C, m³/kg, kJ/kg, kJ/(kg K), m/s, Pa·s, W/(m K), N/m; quality is the
/// mass fraction of vapour. Range: 0.006112444 to 1000 bar, 0.01 to 800 °C. Every function may be
/// called from any number of threads.
namespace steam {

/// What is known: p pressure, t temperature, v specific volume, h enthalpy, s entropy, u internal
/// energy, x quality.
enum class Pair : std::uint8_t {
  pt,
  px,
  tx,
  pv,
  ph,
  ps,
  pu,
  tv,
  th,
  tu,
  ts,
  sx,
  hs,
  us,
  vh,
  vs,
  vu,
  vx
};
constexpr std::size_t pair_count = 18;

/// Where a state lies; the numbers are the region codes of the formulation's users.
enum class Region : std::uint8_t {
  none = 0,
  water = 1,          ///< to 350 °C, at or above the saturation pressure (subregion 1)
  steam = 2,          ///< below saturation or, above 350 °C, below the boundary line (subregion 2)
  dense_steam = 3,    ///< subregion 3 beside the vapour, and above the critical temperature
  hot_water = 4,      ///< subregion 3 beside the liquid, 350 °C to the critical temperature
  wet_above_350 = 5,  ///< liquid and vapour, both of subregion 3
  wet = 6             ///< liquid and vapour to 350 °C
};

/// Why there is no state.
enum class Reason : std::uint8_t {
  none,          ///< there is one
  not_a_number,  ///< a given value is not a number
  pressure,      ///< outside 0.006112444 to 1000 bar; with a quality, to 221.2 bar
  temperature,   ///< outside 0.01 to 800 °C; with a quality, to 374.15 °C
  quality,       ///< outside 0 to 1
  value,         ///< volume or caloric value beyond all states
  no_state,      ///< both values are possible, but no state has them together
  not_reached    ///< a row of a batch that was stopped before
};

/// A reason with the value that is to blame and what would be accepted.
struct Refusal {
  Reason reason = Reason::none;
  char quantity = ' ';  ///< letter of the offending value, ' ' when it is the pair
  double value = 0;
  double lowest = 0, highest = 0;  ///< accepted range
};

/// One line of text, such as "pressure 2000 is outside 0.006112444 to 1000 bar".
std::string text(const Refusal& refusal);

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

/// Properties of one phase. Those that do not exist for a state are NaN.
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
  [[nodiscard]] const char* phase() const;
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
Result state(Pair pair, double first, double second);

/// All states that have the two properties.
Results states(Pair pair, double first, double second);

/// Wet state at a pressure, bar [0.006112444, 221.2], or temperature, °C [0.01, 374.15], and
/// quality.
Result saturation_by_pressure(double p, double x = 0);
Result saturation_by_temperature(double t, double x = 0);

/// One property, for `values` and `evaluate`.
enum class Property : std::uint8_t {
  p,
  t,
  v,
  h,
  s,
  u,
  x,
  density,
  cp,
  cv,
  speed_of_sound,
  isentropic_exponent,
  viscosity,
  conductivity,
  prandtl,
  surface_tension,
  region
};
constexpr std::size_t property_count = 17;

/// Some properties of one state; computes only what they need.
/// @param wanted  the properties
/// @param out     takes their values in this order; NaN when there is no state
/// @return        `Reason::none`, or why there is no state
/// @outside       throws std::invalid_argument when `out` is shorter than `wanted`
Reason values(Pair pair, double first, double second, std::span<const Property> wanted,
              std::span<double> out);

/// One property of a state, NaN when there is none.
double value(Pair pair, double first, double second, Property wanted);

/// How `evaluate` works through its rows.
struct Options {
  unsigned threads = 0;     ///< 0: one for each core
  std::size_t chunk = 512;  ///< rows that a thread takes at a time
  std::stop_token stop{};   ///< ends the evaluation after the chunks under way
  /// Called after each chunk with the rows done so far and all rows; calls do not overlap.
  std::function<void(std::size_t, std::size_t)> progress{};
};

/// Properties of many states. Row i of the outputs belongs to row i of the inputs, and has the same
/// bits whatever the threads and chunks are, and the same as from `values`.
/// @param wanted   the properties
/// @param outputs  one span for each of them, as long as the inputs; NaN in rows without a state
/// @param status   reason of each row; may be empty
/// @return         rows done: all of them unless stopped; the others are `not_reached` and NaN
/// @outside        throws std::invalid_argument when the spans do not fit together or an enumerator
///                 does not exist, and what `progress` throws
std::size_t evaluate(Pair pair, std::span<const double> first, std::span<const double> second,
                     std::span<const Property> wanted, std::span<const std::span<double>> outputs,
                     std::span<Reason> status, const Options& options = {});

}  // namespace steam
