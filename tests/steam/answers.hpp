#pragma once

#include <array>
#include <optional>
#include <string>

#include "vek/steam.hpp"

/// What the engine answers to one pair, asked for in every way.
namespace answers {

/// All of them, in the order of their numbers: properties of the state, of its saturated liquid and
/// of its saturated vapour.
extern const std::array<steam::Pair, steam::pair_count> all_pairs;
extern const std::array<steam::Property, 3 * steam::property_count> all_properties;

/// Their values in that order; nothing where they are not known.
using Values = std::array<std::optional<double>, 3 * steam::property_count>;
/// What is in a state.
Values held_by(const steam::State& state);
double property(const steam::State& state, steam::Property which);
/// What `values` says of a pair.
Values asked_for(steam::Pair pair, double first, double second);
/// Where both are known and have other bits; the number of values if nowhere.
std::size_t first_difference(const Values& a, const Values& b);

/// Whether two numbers have the same bits, or are both not a number.
bool same_bits(double a, double b);
/// Whether all that is in two states has.
bool same_bits(const steam::State& a, const steam::State& b);

bool is_wet(steam::Region region);

/// What may be wrong with an answer.
enum Fault : std::size_t {
  refused,      ///< there is no state
  ways,         ///< `state`, `states` and `values` differ
  given,        ///< a given value does not come back as it was
  misses,       ///< a state does not have the pair by the equations
  order,        ///< `states` lists them in another order than documented
  range,        ///< a state is not one of the formulation
  lost,         ///< the state that the pair was computed from is not listed
  approximate,  ///< and the answer is only near the pair
  fault_count
};

struct Answer {
  std::array<bool, fault_count> faults{};
  std::string difference;  ///< between the ways
  double deviation = 0;    ///< largest of the states listed, from the equations
  steam::Results states;

  /// The pair in hexadecimal with the names of the faults that count; empty when there are none.
  [[nodiscard]] std::string described(steam::Pair pair, double first, double second,
                                      std::initializer_list<Fault> ignored = {}) const;
};

Answer asked(steam::Pair pair, double first, double second);

/// How the answers to each property alone differ from those to all, by `value` and by `evaluate`.
std::string difference_alone(steam::Pair pair, double first, double second);

/// What is wrong with the answer to two arbitrary doubles; empty when nothing is: a state that has
/// them, or one on a boundary that nearly has, or a reason.
std::string fault_of_any(steam::Pair pair, double first, double second);

extern const std::array<const char*, fault_count> fault_names;

}  // namespace answers
