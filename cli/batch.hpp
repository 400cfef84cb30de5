#pragma once

#include <optional>
#include <string>

#include "batch_block.hpp"

namespace command {

/// What `vek batch PAIR [FILE]` was asked.
struct BatchOptions {
  BatchColumns columns{};
  UnitOptions units{};
  std::string input, output;  ///< paths; empty: standard streams
  std::optional<int> digits{};
  unsigned threads = 0;  ///< 0: one for each core
};

/// Answers all rows, on all threads, in memory that does not grow with the file; the output has
/// the input's order.
/// @outside  throws Failure when the file is unusable
BatchCounts run_batch(const BatchOptions& options);

}  // namespace command
