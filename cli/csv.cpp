#include "csv.hpp"

#include <algorithm>
#include <cstring>

namespace command {
namespace {

constexpr char mark = '"';

/// Behind the field that begins with a quotation mark; npos when it does not end.
std::size_t quoted_end(std::string_view text, std::size_t begin) {
  for (std::size_t at = begin + 1; (at = text.find(mark, at)) != std::string_view::npos; at += 2) {
    if (at + 1 == text.size() || text[at + 1] != mark) {
      return at + 1;
    }
  }
  return std::string_view::npos;
}

}  // namespace

/// Where the delimiter or line end behind a field stands; the end of the text when there is none.
std::size_t Csv::field_end(std::string_view text, std::size_t begin) const {
  std::size_t at = begin;
  if (at < text.size() && text[at] == mark) {
    at = quoted_end(text, at);
  }
  while (at < text.size() && text[at] != delimiter && text[at] != '\n') {
    ++at;
  }
  return std::min(at, text.size());
}

std::size_t Csv::record_end(std::string_view text, std::size_t begin) const {
  const std::size_t line = text.find('\n', begin);
  const std::size_t length = (line == std::string_view::npos ? text.size() : line) - begin;
  if (std::memchr(text.data() + begin, mark, length) == nullptr) {
    return line == std::string_view::npos ? line : line + 1;
  }
  for (std::size_t at = begin;; ++at) {
    at = field_end(text, at);
    if (at == text.size()) {
      return std::string_view::npos;
    }
    if (text[at] == '\n') {
      return at + 1;
    }
  }
}

void Csv::split(std::string_view record, std::vector<std::string_view>& fields) const {
  fields.clear();
  for (std::size_t begin = 0;; ++begin) {
    const std::size_t end = field_end(record, begin);
    fields.push_back(record.substr(begin, end - begin));
    if (end == record.size()) {
      return;
    }
    begin = end;
  }
}

std::string Csv::field(std::string_view text) const {
  const char special[] = {delimiter, mark, '\n', '\r', 0};
  if (text.find_first_of(special) == std::string_view::npos) {
    return std::string(text);
  }
  std::string quoted(1, mark);
  for (const char c : text) {
    quoted.append(c == mark ? 2 : 1, c);
  }
  return quoted + mark;
}

std::string_view line_end_of(std::string_view record) {
  if (record.empty() || record.back() != '\n') {
    return {};
  }
  const bool two = record.size() > 1 && record[record.size() - 2] == '\r';
  return record.substr(record.size() - (two ? 2 : 1));
}

std::string_view content(std::string_view field, std::string& buffer) {
  const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!field.empty() && is_blank(field.front())) {
    field.remove_prefix(1);
  }
  while (!field.empty() && is_blank(field.back())) {
    field.remove_suffix(1);
  }
  if (field.size() < 2 || field.front() != mark || field.back() != mark) {
    return field;
  }
  field = field.substr(1, field.size() - 2);
  if (field.find(mark) == std::string_view::npos) {
    return field;
  }
  buffer.clear();
  for (std::size_t i = 0; i < field.size(); ++i) {
    buffer += field[i];
    i += field[i] == mark && i + 1 < field.size() && field[i + 1] == mark ? 1 : 0;
  }
  return buffer;
}

}  // namespace command
