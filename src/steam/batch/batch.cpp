#include "steam/batch/batch.hpp"

#include <algorithm>
#include <cstring>

#include "steam/batch/targets.hpp"
#include "steam/host_environment.hpp"

namespace steam {
namespace {

/// The host's flag, which any of its threads may set.
bool is_set(const int* flag) { return flag && __atomic_load_n(flag, __ATOMIC_RELAXED) != 0; }

}  // namespace

Batch::Batch(Pair pair, const Rows& rows, const Wanted& wanted, const vek_steam_options& options)
    : pair_(pair),
      rows_(rows),
      wanted_(wanted),
      options_(options),
      chunk_(std::clamp<std::size_t>(options.chunk, 1, std::max<std::size_t>(rows.count, 1))) {}

std::size_t Batch::chunks() const { return (rows_.count + chunk_ - 1) / chunk_; }

bool Batch::is_ended() const { return ended_ || is_set(options_.cancel); }

void Batch::work() {
  while (!is_ended()) {
    const std::size_t begin = next_.fetch_add(chunk_, std::memory_order_relaxed);
    if (begin >= rows_.count) {
      return;
    }
    const std::size_t end = std::min(begin + chunk_, rows_.count);
    evaluate_rows(begin, end);
    report(end - begin);
  }
}

void Batch::mark_rest() {
  for (std::size_t row = std::min(next_.load(), rows_.count); row < rows_.count; ++row) {
    for (std::size_t i = 0; i < wanted_.count; ++i) {
      rows_.write(row, i, missing);
    }
    rows_.write_status(row, Reason::not_reached);
  }
}

void Batch::evaluate_rows(std::size_t begin, std::size_t end) const {
  const HostEnvironment host;
  for (; begin < end; begin += Block::most) {
    evaluate_block(begin, std::min(begin + Block::most, end));
  }
}

void Batch::evaluate_block(std::size_t begin, std::size_t end) const {
  const Block block(pair_, wanted_, rows_, begin, end - begin);
  RowList left;
  answer_block(block, left);
  for (std::size_t i = 0; i < left.count; ++i) {
    evaluate_alone(block, left.row[i]);
  }
}

void Batch::evaluate_alone(const Block& block, std::size_t row) const {
  const Reason reason = answer(
      pair_, block.first[row], block.second[row], wanted_,
      [&](std::size_t column, double value) { rows_.write(block.begin + row, column, value); });
  rows_.write_status(block.begin + row, reason);
}

void Batch::report(std::size_t rows) {
  const std::lock_guard lock(progress_);
  done_ += rows;
  if (options_.progress && !ended_ && options_.progress(options_.user, done_, rows_.count) != 0) {
    ended_ = true;
  }
}

}  // namespace steam
