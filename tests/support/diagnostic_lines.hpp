#pragma once

#include <ios>
#include <sstream>
#include <string>

#include "classic/frame/diagnostics.hpp"

/// Catches the diagnostic lines of the module while it lives; reports are numbered from 1 again.
class DiagnosticLines {
 public:
  DiagnosticLines() : before_(stream().rdbuf(&buffer_)) { classic::ErrorCount = 0; }
  DiagnosticLines(const DiagnosticLines&) = delete;
  DiagnosticLines& operator=(const DiagnosticLines&) = delete;
  ~DiagnosticLines() { stream().rdbuf(before_); }

  /// The text since the last call.
  std::string take() {
    std::string text = buffer_.str();
    buffer_.str("");
    return text;
  }

 private:
  static std::ios& stream() { return static_cast<std::ios&>(classic::ErrorStream); }

  std::stringbuf buffer_;
  std::streambuf* before_;
};
