#pragma once

#include <string>
#include <string_view>

namespace command {

/// Where a result goes: standard output, or a file, which gets its name when it is complete. Until
/// then it has another name beside it, and is removed when the command fails or is interrupted.
/// Devices and pipes are written as they come.
class Output {
 public:
  /// @param path  of the file; empty or "-": standard output
  explicit Output(const std::string& path = {});
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// @outside  throws Failure when not all of it can be written
  void write(std::string_view text);

  /// Nothing follows.
  /// @outside  throws Failure when it cannot be stored under its name
  void finish();

 private:
  void open_beside();
  [[noreturn]] void fail() const;

  int file_ = 1;
  std::string path_;    ///< empty: standard output
  std::string beside_;  ///< name until it is complete; empty: written directly
};

/// Writes a whole result to standard output.
void print(std::string_view text);

/// Writes a text to standard error, where nobody may be listening.
void tell(std::string_view text);

/// Whether texts for a person may be coloured there.
bool is_coloured(int file);

/// Standard streams that are closed count as not writable, instead of being the next file that is
/// opened. A closed pipe ends the command, whatever the caller did with that signal.
void prepare_streams();

}  // namespace command
