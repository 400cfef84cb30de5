#include <algorithm>
#include <atomic>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include "steam/values.hpp"

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
        options_(options) {
    for (const Property p : properties) {
      wanted_.add(p);
    }
  }

  /// Takes chunks until there are none left or the batch is stopped.
  void work() {
    const std::size_t chunk = std::max<std::size_t>(options_.chunk, 1);
    while (!options_.stop.stop_requested()) {
      const std::size_t begin = next_.fetch_add(chunk, std::memory_order_relaxed);
      if (begin >= first_.size()) {
        return;
      }
      const std::size_t end = std::min(begin + chunk, first_.size());
      for (std::size_t row = begin; row < end; ++row) {
        evaluate_row(row);
      }
      report(end - begin);
    }
  }

  [[nodiscard]] std::size_t done() const { return done_; }

 private:
  void evaluate_row(std::size_t row) {
    Values values;
    const Reason reason = values_of(pair_, first_[row], second_[row], wanted_, values);
    for (std::size_t i = 0; i < properties_.size(); ++i) {
      outputs_[i][row] = values[static_cast<std::size_t>(properties_[i])];
    }
    if (!status_.empty()) {
      status_[row] = reason;
    }
  }

  void report(std::size_t rows) {
    const std::lock_guard lock(progress_);
    done_ += rows;
    if (options_.progress) {
      options_.progress(done_, first_.size());
    }
  }

  Pair pair_;
  std::span<const double> first_, second_;
  std::span<const Property> properties_;
  std::span<const std::span<double>> outputs_;
  std::span<Reason> status_;
  const Options& options_;
  Wanted wanted_;
  // Apart from what every row reads.
  alignas(64) std::atomic<std::size_t> next_{0};
  std::mutex progress_;
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
  check_sizes(first, second, wanted, outputs, status);
  Batch batch(pair, first, second, wanted, outputs, status, options);
  const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
  const std::size_t chunks = first.size() / std::max<std::size_t>(options.chunk, 1) + 1;
  const std::size_t threads =
      std::min<std::size_t>(options.threads > 0 ? options.threads : cores, chunks);
  std::vector<std::jthread> others;
  for (std::size_t i = 1; i < threads; ++i) {
    others.emplace_back([&batch] { batch.work(); });
  }
  batch.work();
  others.clear();  // joins
  return batch.done();
}

}  // namespace steam
