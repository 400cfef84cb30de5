#include "steam/batch/lanes_block.hpp"
#include "steam/batch/targets.hpp"

const steam::Answers& steam::answers_in_2_lanes() { return answers<numbers::Lanes<double, 2>>; }
