#pragma once

#include <atomic>
#include <mutex>

#include "steam/batch/block.hpp"

namespace steam {

/// A batch in chunks, which threads take one after the other. No row depends on another.
class Batch {
 public:
  Batch(Pair pair, const Rows& rows, const Wanted& wanted, const vek_steam_options& options);

  [[nodiscard]] std::size_t chunks() const;

  /// Takes chunks until there are none left or the batch is ended.
  void work();

  /// Chunks are taken in order, and what is taken is done: the rows behind are those not reached.
  void mark_rest();

  [[nodiscard]] std::size_t done() const { return done_; }

 private:
  [[nodiscard]] bool is_ended() const;
  void evaluate_rows(std::size_t begin, std::size_t end) const;
  void evaluate_block(std::size_t begin, std::size_t end) const;
  void evaluate_alone(const Block& block, std::size_t row) const;
  void report(std::size_t rows);

  Pair pair_;
  Rows rows_;
  Wanted wanted_;
  vek_steam_options options_;
  std::size_t chunk_;
  std::atomic<std::size_t> next_{0};
  std::atomic<bool> ended_{false};
  std::mutex progress_;
  std::size_t done_ = 0;
};

}  // namespace steam
