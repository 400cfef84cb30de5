#pragma once

#include "units.hpp"
#include "vek/steam.hpp"

namespace command {

/// Two known properties, in the pair's order and the engine's units.
struct Given {
  steam::Pair pair;
  double first, second;
};

std::vector<steam::Pair> all_pairs();

/// The state, or a Failure with the reason in the user's units.
steam::State state_or_failure(const Given& given, const Units& units);

/// What is asked about: a state, or a saturated phase of a wet one.
enum class Side { whole, liquid, vapour };

/// Any properties of each state of a pair, in the order of `steam::states`.
std::vector<std::vector<double>> values_of_states(const Given& given, Side side,
                                                  const std::vector<steam::Property>& wanted);

}  // namespace command
