#pragma once

#include <string>
#include <vector>

#include "given.hpp"

namespace command {

/// A property counts as the same where it differs by no more than this share of its size, or of 100
/// °C, 100 kJ/kg, 1 kJ/(kg K) and a quality of 1 where it is smaller.
constexpr double same_to = 1e-6;

/// The module's own tolerance, of the given values. What it makes of a property is no difference.
constexpr double module_tolerance = 1e-8;

/// The engine's answer beside the classic module's, in `classic_properties`.
struct EngineAnswer {
  std::vector<double> values{};    ///< missing where the engine finds no state
  std::vector<bool> differs{};     ///< by more than `same_to` and what the module's tolerance makes
  bool within_tolerance = false;   ///< some by more than `same_to`
  std::size_t number = 0, of = 0;  ///< which of the states of the pair it is, from 1
};

/// Of several states that of the module, where it is among them, else the first.
EngineAnswer engine_beside(const Given& given, const std::vector<double>& module);

}  // namespace command
