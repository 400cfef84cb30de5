#pragma once

#include <chrono>
#include <cstddef>

namespace command {

/// A bar on standard error, while that is a terminal.
class Progress {
 public:
  /// @param whole  bytes of the input; 0 where that is not known: only rows are shown
  explicit Progress(std::size_t whole);
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Not more often than the eye can follow.
  void show(std::size_t bytes, std::size_t rows);
  /// Leaves an empty line.
  void clear();

 private:
  bool visible_, drawn_ = false;
  std::size_t whole_;
  std::chrono::steady_clock::time_point next_{};
};

}  // namespace command
