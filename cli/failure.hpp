#pragma once

#include <stdexcept>
#include <string>

namespace command {

/// Exit statuses. An interrupted run ends by its signal.
enum Status {
  success = 0,
  no_answer = 1,    ///< no such state, a row that failed, or a difference that was looked for
  wrong_usage = 2,  ///< what was typed makes no sense
  unusable = 3      ///< a file or standard output cannot be read or written
};

/// Ends the command with one line on standard error.
class Failure : public std::runtime_error {
 public:
  Failure(Status status, const std::string& line) : std::runtime_error(line), status_(status) {}
  [[nodiscard]] Status status() const { return status_; }

 private:
  Status status_;
};

}  // namespace command
