#include "steam/batch.hpp"

#include <algorithm>
#include <cstring>

#include "steam/host_environment.hpp"

namespace steam {
namespace {

/// The host's flag, which any of its threads may set.
bool is_set(const int* flag) { return flag && __atomic_load_n(flag, __ATOMIC_RELAXED) != 0; }

/// Where a column has a row.
template <class Column>
auto* place(const Column& column, std::size_t row) {
  using Byte = std::conditional_t<std::is_same_v<Column, vek_steam_input>, const char, char>;
  return static_cast<Byte*>(column.data) + static_cast<std::ptrdiff_t>(row) * column.stride;
}

double value_at(const vek_steam_input& column, std::size_t row) {
  double value;
  std::memcpy(&value, place(column, row), sizeof value);
  return value;
}

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
      write(row, i, missing);
    }
    write_status(row, Reason::not_reached);
  }
}

void Batch::evaluate_rows(std::size_t begin, std::size_t end) const {
  const HostEnvironment host;
  for (std::size_t row = begin; row < end; ++row) {
    const double first = value_at(rows_.first, row), second = value_at(rows_.second, row);
    const Reason reason =
        answer(pair_, first, second, wanted_,
               [&](std::size_t column, double value) { write(row, column, value); });
    write_status(row, reason);
  }
}

void Batch::write(std::size_t row, std::size_t column, double value) const {
  std::memcpy(place(rows_.outputs[column], row), &value, sizeof value);
}

void Batch::write_status(std::size_t row, Reason reason) const {
  if (rows_.status) {
    *place(*rows_.status, row) = static_cast<char>(reason);
  }
}

void Batch::report(std::size_t rows) {
  const std::lock_guard lock(progress_);
  done_ += rows;
  if (options_.progress && !ended_ && options_.progress(options_.user, done_, rows_.count) != 0) {
    ended_ = true;
  }
}

}  // namespace steam
