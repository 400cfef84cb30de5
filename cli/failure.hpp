#pragma once

#include <stdexcept>
#include <string>
#include <utility>

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
  Failure(Status status, std::string line)
      : std::runtime_error(in_one_line(std::move(line))), status_(status) {}
  [[nodiscard]] Status status() const { return status_; }

 private:
  /// What was typed or read may have anything in it.
  static std::string in_one_line(std::string text) {
    for (char& c : text) {
      c = static_cast<unsigned char>(c) < ' ' || c == '\x7F' ? '?' : c;
    }
    return text;
  }
  Status status_;
};

}  // namespace command
