#pragma once

#include "steam/batch/block.hpp"

namespace steam {

// The code for several rows at once, compiled for each kind of processor and chosen at run time.
// All give the same bits as one row alone.

using Answers = std::array<AnswerBlock, pair_count>;
const Answers& answers_in_2_lanes();
const Answers& answers_in_4_lanes();  // processors with AVX2
const Answers& answers_in_8_lanes();  // with AVX-512

/// Most lanes that the processor has.
int most_lanes();
/// Answers with other lanes from now on: 1 (one row at a time), 2, 4 or 8, but not with more than
/// there are. For tests and measurements.
void use_lanes(int lanes);

/// Whether lanes have all that is wanted; else every row is left.
bool is_for_lanes(const Wanted& wanted);

/// Answers the rows of a block that are clear of all boundaries; the others are left.
void answer_block(const Block& block, RowList& left);

}  // namespace steam
