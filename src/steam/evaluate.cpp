#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include "steam/answer.hpp"
#include "steam/host_environment.hpp"
#include "steam/misuse.hpp"

namespace steam {
namespace {

/// A batch in chunks, which threads take one after the other. No row depends on another.
class Batch {
 public:
  Batch(Pair pair, std::span<const double> first, std::span<const double> second,
        std::span<const Property> properties, std::span<const std::span<double>> outputs,
        std::span<Reason> status, const Options& options)
      : pair_(pair),
        first_(first),
        second_(second),
        properties_(properties),
        outputs_(outputs),
        status_(status),
        options_(options),
        chunk_(std::clamp<std::size_t>(options.chunk, 1, std::max<std::size_t>(first.size(), 1))),
        needs_(needs_of(properties)) {}

  /// Takes chunks until there are none left or the batch is stopped.
  void work() {
    while (!options_.stop.stop_requested() && !failed_) {
      const std::size_t begin = next_.fetch_add(chunk_, std::memory_order_relaxed);
      if (begin >= first_.size()) {
        return;
      }
      const std::size_t end = std::min(begin + chunk_, first_.size());
      evaluate_rows(begin, end);
      report(end - begin);
    }
  }

  /// Chunks are taken in order, and what is taken is done: the rows behind are those not reached.
  void mark_rest() {
    for (std::size_t row = std::min(next_.load(), first_.size()); row < first_.size(); ++row) {
      for (const std::span<double>& output : outputs_) {
        output[row] = missing;
      }
      if (!status_.empty()) {
        status_[row] = Reason::not_reached;
      }
    }
  }

  /// What the callback has thrown, if it has.
  [[nodiscard]] std::exception_ptr thrown() const { return thrown_; }
  [[nodiscard]] std::size_t done() const { return done_; }

 private:
  void evaluate_rows(std::size_t begin, std::size_t end) {
    const HostEnvironment host;
    for (std::size_t row = begin; row < end; ++row) {
      evaluate_row(row);
    }
  }

  void evaluate_row(std::size_t row) {
    Basis basis;
    const Reason reason = answer(pair_, first_[row], second_[row], needs_, basis);
    const bool wet = is_wet(basis.region);
    for (std::size_t i = 0; i < properties_.size(); ++i) {
      outputs_[i][row] =
          reason == Reason::none ? value_of(row_of(properties_[i]), basis, wet) : missing;
    }
    if (!status_.empty()) {
      status_[row] = reason;
    }
  }

  void report(std::size_t rows) {
    const std::lock_guard lock(progress_);
    done_ += rows;
    if (!options_.progress || failed_) {
      return;
    }
    try {
      options_.progress(done_, first_.size());
    } catch (...) {
      thrown_ = std::current_exception();
      failed_ = true;
    }
  }

  Pair pair_;
  std::span<const double> first_, second_;
  std::span<const Property> properties_;
  std::span<const std::span<double>> outputs_;
  std::span<Reason> status_;
  const Options& options_;
  std::size_t chunk_;
  Needs needs_;
  std::atomic<std::size_t> next_{0};
  std::atomic<bool> failed_{false};
  std::mutex progress_;
  std::exception_ptr thrown_;
  std::size_t done_ = 0;
};

void check_sizes(std::span<const double> first, std::span<const double> second,
                 std::span<const Property> wanted, std::span<const std::span<double>> outputs,
                 std::span<Reason> status) {
  const bool fits = second.size() == first.size() && outputs.size() == wanted.size() &&
                    (status.empty() || status.size() == first.size()) &&
                    std::all_of(outputs.begin(), outputs.end(),
                                [&](const auto& out) { return out.size() == first.size(); });
  if (!fits) {
    throw std::invalid_argument("steam::evaluate: spans of different lengths");
  }
}

}  // namespace

std::size_t evaluate(Pair pair, std::span<const double> first, std::span<const double> second,
                     std::span<const Property> wanted, std::span<const std::span<double>> outputs,
                     std::span<Reason> status, const Options& options) {
  refuse_unknown(pair, wanted);
  check_sizes(first, second, wanted, outputs, status);
  Batch batch(pair, first, second, wanted, outputs, status, options);
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  const std::size_t chunks = first.size() / std::max<std::size_t>(options.chunk, 1) + 1;
  const std::size_t threads =
      std::min<std::size_t>(options.threads > 0 ? options.threads : cores, chunks);
  std::vector<std::jthread> others;
  others.reserve(threads);
  for (std::size_t i = 1; i < threads; ++i) {
    others.emplace_back([&batch] { batch.work(); });
  }
  batch.work();
  others.clear();  // joins
  batch.mark_rest();
  if (batch.thrown()) {
    std::rethrow_exception(batch.thrown());
  }
  return batch.done();
}

}  // namespace steam
