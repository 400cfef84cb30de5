#pragma once

#include <string>

#include "vek/steam.hpp"

namespace pair_check {

/// What is wrong with the engine's answer to two arbitrary doubles; empty when nothing is: it has a
/// state that has the pair, or one on a boundary that the pair nearly has, or a reason.
std::string fault(steam::Pair pair, double first, double second);

}  // namespace pair_check
