#include "amount.hpp"

#include <fast_float/fast_float.h>
#include <fmt/core.h>

#include <cctype>

#include "failure.hpp"

namespace command {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr const char* blanks = " \t";
  const std::size_t begin = text.find_first_not_of(blanks);
  return begin == std::string_view::npos
             ? std::string_view{}
             : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

/// A number with commas as it is to be written: of comma and point the last one is decimal.
std::string with_point(std::string_view text) {
  const std::size_t last = text.find_last_of(",.");
  std::string number;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_mark = text[i] == ',' || text[i] == '.';
    number += i == last ? "." : is_mark ? "" : std::string(1, text[i]);
  }
  return number;
}

[[noreturn]] void refuse(std::string_view text) {
  const bool has_comma = text.find(',') != std::string_view::npos;
  throw Failure(wrong_usage, has_comma ? fmt::format("'{}' has a comma; write a decimal point: {}",
                                                     text, with_point(text))
                                       : fmt::format("'{}' is not a number", text));
}

}  // namespace

Amount parse_amount(std::string_view text) {
  std::string_view rest = trimmed(text);
  if (rest.size() > 1 && rest[0] == '+' && rest[1] != '-') {
    rest.remove_prefix(1);
  }
  Amount amount{};
  const char* const end = rest.data() + rest.size();
  const auto [stop, error] = fast_float::from_chars(rest.data(), end, amount.number);
  if (error != std::errc() || (stop != end && *stop == ',')) {
    refuse(text);
  }
  amount.unit = trimmed({stop, static_cast<std::size_t>(end - stop)});
  return amount;
}

}  // namespace command
