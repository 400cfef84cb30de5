#include "steam/batch/lanes_block.hpp"
#include "steam/batch/targets.hpp"

const steam::Answers& steam::answers_in_4_lanes() { return answers<numbers::Lanes<double, 4>>; }
