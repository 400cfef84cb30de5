#include "given.hpp"

#include "failure.hpp"

namespace command {
namespace {

using steam::Property;

/// A property of a phase as one of the whole state.
Property asked_for(Side side, Property property) {
  return side == Side::liquid   ? steam::of_liquid(property)
         : side == Side::vapour ? steam::of_vapour(property)
                                : property;
}

}  // namespace

std::vector<steam::Pair> all_pairs() {
  std::vector<steam::Pair> pairs;
  pairs.reserve(steam::pair_count);
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    pairs.push_back(static_cast<steam::Pair>(i));
  }
  return pairs;
}

steam::State state_or_failure(const Given& given, const Units& units) {
  const steam::Result result = steam::state(given.pair, given.first, given.second);
  if (!result) {
    throw Failure(no_answer, text(result.refusal(), units));
  }
  return *result;
}

std::vector<std::vector<double>> values_of_states(const Given& given, Side side,
                                                  const std::vector<Property>& wanted) {
  std::vector<Property> asked;
  asked.reserve(wanted.size());
  for (const Property property : wanted) {
    asked.push_back(asked_for(side, property));
  }
  return steam::values_of_states(given.pair, given.first, given.second, asked);
}

}  // namespace command
