#include "ranges.hpp"

#include <fmt/core.h>

#include <array>
#include <cmath>

#include "amount.hpp"
#include "failure.hpp"

namespace command {
namespace {

constexpr std::size_t most_values = 10000;

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t end = 0; end != std::string_view::npos;) {
    end = text.find(separator);
    parts.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return parts;
}

double number(std::string_view text) {
  const Amount amount = parse_amount(text);
  if (!amount.unit.empty()) {
    throw Failure(wrong_usage, fmt::format("'{}': ranges have no units", text));
  }
  return amount.number;
}

/// In the user's unit.
std::vector<double> values_between(double from, double to, double step) {
  const double count = std::floor((to - from) / step * (1 + 1e-12) + 1e-9);
  if (!(step > 0) || !std::isfinite(step) || !(count >= 0) || count > most_values) {
    throw Failure(wrong_usage, fmt::format("{}:{}:{} is no range FROM:TO:STEP of at most {} values",
                                           from, to, step, most_values));
  }
  const double multiple = std::round(from / step) * step;
  const double base = std::abs(from - multiple) < 0.01 * step ? multiple : from;
  std::vector<double> values{from};
  for (double i = 1; i <= count + 1 && base + i * step <= to + 1e-9 * step; ++i) {
    values.push_back(base + i * step);
  }
  return values;
}

}  // namespace

std::vector<double> parse_ranges(std::string_view list, steam::Property property,
                                 const Units& units) {
  std::vector<double> values;
  for (const std::string_view part : split(list, ',')) {
    const std::vector<std::string_view> ends = split(part, ':');
    if (ends.size() == 1) {
      values.push_back(units.read(property, part));
    } else if (ends.size() == 3) {
      for (const double value : values_between(number(ends[0]), number(ends[1]), number(ends[2]))) {
        values.push_back(units.of(property).to_base(value));
      }
    } else {
      throw Failure(wrong_usage, fmt::format("'{}' is no range FROM:TO:STEP", part));
    }
  }
  return values;
}

}  // namespace command
