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

[[noreturn]] void refuse(std::string_view text) {
  std::string point(text);
  const std::size_t comma = point.find(',');
  if (comma != std::string::npos && point.find(',', comma + 1) == std::string::npos) {
    point[comma] = '.';
    throw Failure(wrong_usage,
                  fmt::format("'{}' has a comma; write a decimal point: {}", text, point));
  }
  throw Failure(wrong_usage, fmt::format("'{}' is not a number", text));
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
