#include "conversion.hpp"

#include <fmt/core.h>
#include <udunits2.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <memory>
#include <mutex>
#include <set>
#include <string_view>

#include "failure.hpp"

namespace command {
namespace {

struct Free {
  void operator()(ut_unit* unit) const { ut_free(unit); }
  void operator()(cv_converter* converter) const { cv_free(converter); }
};
using Unit = std::unique_ptr<ut_unit, Free>;
using Converter = std::unique_ptr<cv_converter, Free>;

/// Names that engineers use and the database lacks.
struct Name {
  const char *name, *meaning;
};
constexpr std::array more_names{Name{"cP", "mPa s"}, Name{"dyn", "1e-5 N"}, Name{"lbm", "lb"}};

ut_system* read_database() {
  ut_set_error_message_handler(ut_ignore);
  ut_system* system = ut_read_xml(nullptr);
  if (!system) {
    throw Failure(unusable, "cannot read the database of units of UDUNITS-2");
  }
  for (const Name& more : more_names) {
    const Unit unit(ut_parse(system, more.meaning, UT_UTF8));
    ut_map_name_to_unit(more.name, UT_UTF8, unit.get());
  }
  return system;
}

/// Read when the first unit is converted, which takes longer than all the rest.
ut_system* database() {
  static ut_system* const system = read_database();
  return system;
}

std::mutex one_at_a_time;  // the library is not made for threads

/// What the library's parser has refused. It loses memory each time, which adds up where every row
/// of a file has the same wrong unit.
bool is_refused(const std::string& text, bool refused_now) {
  constexpr std::size_t most = 1000;
  static std::set<std::string> refused;
  if (refused_now && refused.size() < most) {
    refused.insert(text);
  }
  return refused_now || refused.count(text) > 0;
}

/// Control characters are not for the library's parser, which prints what it cannot read.
Unit unit_of(const std::string& text) {
  const bool printable =
      std::none_of(text.begin(), text.end(), [](unsigned char c) { return c < ' '; });
  if (!printable || is_refused(text, false)) {
    return nullptr;
  }
  Unit unit(ut_parse(database(), text.empty() ? "1" : text.c_str(), UT_UTF8));
  (void)is_refused(text, !unit);
  return unit;
}

bool is_letter(unsigned char c) { return std::isalpha(c) || c >= 0x80; }

/// Degrees as people write them: the letters by themselves are coulomb, farad and röntgen.
std::string with_degrees(const std::string& unit) {
  std::string out;
  for (std::size_t i = 0; i < unit.size(); ++i) {
    const bool by_itself =
        (i == 0 || !is_letter(static_cast<unsigned char>(unit[i - 1]))) &&
        (i + 1 == unit.size() || !is_letter(static_cast<unsigned char>(unit[i + 1])));
    out += by_itself && std::strchr("CFR", unit[i]) ? "°" : "";
    out += unit[i];
  }
  return out;
}

/// What is written where another unit is wanted, as the library knows it.
std::string spelled(const std::string& unit, const std::string& wanted) {
  if (wanted == "bar" && (unit == "kg/cm2" || unit == "kg/cm²")) {
    return "kgf/cm2";
  }
  const bool of_temperature = wanted == "°C" || wanted.find('K') != std::string::npos;
  return of_temperature ? with_degrees(unit) : unit;
}

Converter converter(const std::string& from, const std::string& to) {
  const Unit a = unit_of(spelled(from, to)), b = unit_of(to);
  return Converter(a && b ? ut_get_converter(a.get(), b.get()) : nullptr);
}

}  // namespace

bool is_convertible(const std::string& from, const std::string& to) {
  const std::lock_guard lock(one_at_a_time);
  return converter(from, to) != nullptr;
}

Linear conversion(const std::string& from, const std::string& to) {
  if (from == to) {
    return {};
  }
  const std::lock_guard lock(one_at_a_time);
  const Converter found = converter(from, to);
  if (!found) {
    throw Failure(wrong_usage, unit_of(spelled(from, to))
                                   ? fmt::format("'{}' is no unit of what has {}", from,
                                                 to.empty() ? "none" : to)
                                   : fmt::format("'{}' is no unit", from));
  }
  const double offset = cv_convert_double(found.get(), 0);
  // Over a long way: a difference of nearby values would lose the slope's last digits.
  constexpr double far_away = 1 << 30;
  const double slope = (cv_convert_double(found.get(), far_away) - offset) / far_away;
  // What is a difference of temperatures has no zero to convert.
  return {slope, to == "K" ? 0 : offset};
}

}  // namespace command
