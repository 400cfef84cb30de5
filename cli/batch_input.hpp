#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>

#include "csv.hpp"

namespace command {

/// A file or standard input in blocks of whole records.
class BatchInput {
 public:
  /// @param path  empty or "-": standard input
  /// @outside     throws Failure when it cannot be opened
  explicit BatchInput(const std::string& path);
  ~BatchInput();
  BatchInput(const BatchInput&) = delete;
  BatchInput& operator=(const BatchInput&) = delete;

  /// @param text  takes the next whole records
  /// @return      number of their first line; 0 at the end
  /// @outside     throws Failure when the file cannot be read
  std::size_t next(const Csv& csv, std::string& text);

  [[nodiscard]] std::size_t bytes_read() const { return bytes_; }
  /// Of a file; 0 where that is not known.
  [[nodiscard]] std::size_t size() const { return size_; }

 private:
  bool fill(std::string& text);

  std::string path_;
  int file_ = 0;
  std::string rest_;  ///< of a record that is not complete
  std::size_t line_ = 1, size_ = 0;
  std::atomic<std::size_t> bytes_{0};  // which the progress bar reads meanwhile
  bool at_end_ = false;
};

}  // namespace command
