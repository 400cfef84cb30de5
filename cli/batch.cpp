#include "batch.hpp"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "batch_input.hpp"
#include "failure.hpp"
#include "output.hpp"
#include "progress.hpp"

namespace command {
namespace {

std::size_t lines_of(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

/// Where the first record behind comments and empty lines begins. A byte-order mark is none of it.
std::size_t first_record(const Csv& csv, std::string_view text) {
  constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
  std::size_t begin = text.substr(0, 3) == byte_order_mark ? 3 : 0;
  while (begin < text.size()) {
    const std::size_t end = std::min(csv.record_end(text, begin), text.size());
    if (!is_passed_on(text.substr(begin, end - begin))) {
      break;
    }
    begin = end;
  }
  return begin;
}

/// Each thread takes the next block, answers it, waits for its turn and writes it.
class Line {
 public:
  explicit Line(const BatchOptions& options)
      : options_(options),
        columns_(options.columns),
        units_(options.units),
        input_(options.input),
        output_(options.output),
        progress_(input_.size()) {}

  BatchCounts run() {
    begin();
    std::vector<std::jthread> threads;
    const unsigned cores = std::max(std::thread::hardware_concurrency(), 1U);
    for (unsigned i = 1; i < (options_.threads > 0 ? options_.threads : cores); ++i) {
      threads.emplace_back([this] { work(); });
    }
    work();
    threads.clear();  // joins them
    if (thrown_) {
      std::rethrow_exception(thrown_);
    }
    output_.finish();
    return counts_;
  }

 private:
  struct Block {
    std::string text{};
    std::size_t line = 0, number = 0;  ///< line 0: there is none
  };

  void begin();
  void write_header(std::string_view record);
  Block take();
  void give(const Block& block, const BatchBlock& answered);
  void work();

  const BatchOptions& options_;
  BatchColumns columns_;
  Units units_;
  BatchInput input_;
  Output output_;
  Progress progress_;
  BatchCounts counts_;
  std::mutex reading_, writing_;
  std::condition_variable turn_;
  Block first_;  ///< read already, to find the columns
  std::size_t taken_ = 0, written_ = 0;
  std::exception_ptr thrown_;  // by the first thread that fails; the others stop
};

/// Finds the columns by the first record and writes all to the header, which leaves the rows.
void Line::begin() {
  while ((first_.line = input_.next(columns_.csv, first_.text)) != 0) {
    const std::string_view text = first_.text;
    const std::size_t begin = first_record(columns_.csv, text);
    output_.write(text.substr(0, begin));
    if (begin < text.size()) {
      const std::size_t end = std::min(columns_.csv.record_end(text, begin), text.size());
      const std::string_view record = text.substr(begin, end - begin);
      find_columns(columns_, record, units_);
      const std::size_t rows = columns_.has_header ? end : begin;
      if (columns_.has_header) {
        write_header(record);
      }
      first_.line += lines_of(text.substr(0, rows));
      first_.text.erase(0, rows);
      return;
    }
  }
}

void Line::write_header(std::string_view record) {
  const std::string_view line_end = line_end_of(record);
  output_.write(record.substr(0, record.size() - line_end.size()));
  output_.write(appended_names(columns_));
  output_.write(line_end);
}

Line::Block Line::take() {
  const std::lock_guard lock(reading_);
  Block block;
  if (taken_ == 0) {
    block = std::move(first_);
  } else {
    block.line = input_.next(columns_.csv, block.text);
  }
  block.number = taken_++;
  return block;
}

void Line::give(const Block& block, const BatchBlock& answered) {
  std::unique_lock lock(writing_);
  turn_.wait(lock, [&] { return written_ == block.number || thrown_; });
  if (thrown_) {
    return;
  }
  output_.write(answered.output());
  const BatchCounts& counts = answered.counts();
  if (counts_.failed == 0) {
    counts_.first_failed_line = counts.first_failed_line;
    counts_.first_reason = counts.first_reason;
  }
  counts_.rows += counts.rows;
  counts_.failed += counts.failed;
  progress_.show(input_.bytes_read(), counts_.rows);
  ++written_;
  turn_.notify_all();
}

void Line::work() {
  try {
    BatchBlock answers(columns_, units_, options_.digits);
    for (Block block = take(); block.line != 0; block = take()) {
      answers.work(block.text, block.line);
      give(block, answers);
    }
  } catch (...) {
    const std::lock_guard lock(writing_);
    thrown_ = thrown_ ? thrown_ : std::current_exception();
    turn_.notify_all();
  }
}

}  // namespace

BatchCounts run_batch(const BatchOptions& options) { return Line(options).run(); }

}  // namespace command
