#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "survey.hpp"

namespace survey {

/// How a finder's answer compares with the state that it was given the pair of.
enum class Kind : std::uint8_t {
  within,     // the region, and a state that has the pair within the finder's tolerance
  off,        // the region, but a state further off
  elsewhere,  // another region
  refused     // a code that is no region, or a value that is no number or infinite
};
constexpr std::size_t kinds = 4;

/// One state and what the finder made of its pair.
struct Example {
  State state;
  Answer answer;
  double deviation;  // of the answer's own pair from the given one, relative
};

/// How a finder does in a band.
struct Differences {
  std::array<double, kinds> share{};                // by kind
  std::array<std::optional<Example>, kinds> worst;  // by kind, the one of the largest deviation
  double largest_error = -1;                        // as in Result; negative when none is right
};
Differences compare(const Finder& finder, const Band& band, int count);

}  // namespace survey
