#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace command {

/// Comma-separated values (RFC 4180): a field that begins with a quotation mark goes to the next
/// single one, over delimiters and line ends; marks inside other fields are ordinary characters.
struct Csv {
  char delimiter = ',';

  /// Where the record that begins at `begin` ends, behind its line end; npos when it is not
  /// complete. A quoted field that never ends makes a record incomplete to the end of the text.
  [[nodiscard]] std::size_t record_end(std::string_view text, std::size_t begin) const;

  /// Fields of a record, as they stand there.
  void split(std::string_view record, std::vector<std::string_view>& fields) const;

  /// A text as a field: quoted where it has to be.
  [[nodiscard]] std::string field(std::string_view text) const;

 private:
  [[nodiscard]] std::size_t field_end(std::string_view text, std::size_t begin) const;
};

/// The line end of a record: "\r\n", "\n", or nothing at the end of a file.
std::string_view line_end_of(std::string_view record);

/// The content of a field: without blanks around it and without quotation marks, of which a
/// doubled one stands for one.
/// @param buffer  holds it where marks were doubled
std::string_view content(std::string_view field, std::string& buffer);

}  // namespace command
