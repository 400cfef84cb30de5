#include "chart_process.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <optional>

#include "csv.hpp"
#include "failure.hpp"
#include "given.hpp"
#include "properties.hpp"

namespace command {
namespace {

using steam::Property;

double property_of(const steam::State& state, Property property) {
  const std::array values{state.p, state.t, state.v, state.h, state.s, state.u, state.x};
  return values[static_cast<std::size_t>(property)];
}

/// A property with its value as it was written.
struct Known {
  Property property;
  std::string text;
};

/// The two of them, in the order of their pair.
std::optional<Given> given_by(const Known& a, const Known& b) {
  const Units units;
  for (const steam::Pair pair : all_pairs()) {
    const steam::PairInfo info = steam::info(pair);
    if (info.first == a.property && info.second == b.property) {
      return Given{pair, units.read(a.property, a.text), units.read(b.property, b.text)};
    }
    if (info.first == b.property && info.second == a.property) {
      return Given{pair, units.read(b.property, b.text), units.read(a.property, a.text)};
    }
  }
  return std::nullopt;
}

std::string with_unit(Property property, double value) {
  const std::string unit = steam::info(property).unit;
  return unit.empty() ? fmt::format("{} {:.6g}", steam::info(property).letter, value)
                      : fmt::format("{:.6g} {}", value, unit);
}

Mark mark_at(const Given& given, std::string text) {
  const steam::PairInfo info = steam::info(given.pair);
  if (text.empty()) {
    text = with_unit(info.first, given.first) + ", " + with_unit(info.second, given.second);
  }
  return {state_or_failure(given, Units()), std::move(text)};
}

std::vector<std::string> fields_of(const std::string& line) {
  std::vector<std::string_view> parts;
  Csv{}.split(line, parts);
  std::vector<std::string> fields;
  fields.reserve(parts.size());
  std::string buffer;
  for (const std::string_view part : parts) {
    fields.emplace_back(content(part, buffer));
  }
  return fields;
}

/// A column of a process: a property, or none for the texts of the marks.
using Column = std::optional<Property>;

std::vector<Column> columns_of(const std::string& line) {
  std::vector<Column> columns;
  for (const std::string& name : fields_of(line)) {
    const Column property = name == "point" ? Column{} : property_named(name);
    if (name != "point" && !property) {
      throw Failure(wrong_usage, fmt::format("'{}' is neither a property nor 'point'", name));
    }
    columns.push_back(property);
  }
  return columns;
}

Mark mark_of(const std::vector<Column>& columns, const std::string& line) {
  const std::vector<std::string> fields = fields_of(line);
  std::vector<Known> known;
  std::string text;
  for (std::size_t i = 0; i < std::min(fields.size(), columns.size()); ++i) {
    if (!columns[i]) {
      text = fields[i];
    } else if (!fields[i].empty()) {
      known.push_back({*columns[i], fields[i]});
    }
  }
  const std::optional<Given> given =
      known.size() == 2 ? given_by(known[0], known[1]) : std::nullopt;
  if (!given) {
    throw Failure(wrong_usage, "a state needs two properties that make a pair");
  }
  return mark_at(*given, text);
}

bool is_common(Property property, double a, double b) {
  const double tolerance = property == Property::s   ? 5e-4
                           : property == Property::h ? 0.05
                           : property == Property::t ? 0.005
                                                     : 1e-4 * std::abs(a);
  return std::abs(a - b) <= tolerance;
}

/// What two states have in common.
std::optional<Property> common(const steam::State& a, const steam::State& b) {
  for (const Property property :
       {Property::p, Property::s, Property::h, Property::v, Property::t, Property::x}) {
    if (is_common(property, property_of(a, property), property_of(b, property))) {
      return property;
    }
  }
  return std::nullopt;
}

/// Where a trace is nearest to a spot, in segments from its begin.
double nearest(const Trace& trace, Spot spot) {
  double least = 1e9, where = 0;
  for (std::size_t i = 1; i < trace.size(); ++i) {
    const Spot step = trace[i] - trace[i - 1], d = spot - trace[i - 1];
    const double length2 = step.x * step.x + step.y * step.y;
    const double share =
        length2 > 0 ? std::clamp((d.x * step.x + d.y * step.y) / length2, 0., 1.) : 0;
    if (length(d - share * step) < least) {
      least = length(d - share * step);
      where = static_cast<double>(i - 1) + share;
    }
  }
  return where;
}

/// The part of a trace between two spots on it.
Trace between(const Trace& trace, Spot from, Spot to) {
  const double a = nearest(trace, from), b = nearest(trace, to);
  Trace part{from};
  for (auto i = static_cast<std::size_t>(std::min(a, b)) + 1;
       static_cast<double>(i) < std::max(a, b); ++i) {
    part.push_back(trace[i]);
  }
  if (a > b) {
    std::reverse(part.begin() + 1, part.end());
  }
  part.push_back(to);
  return part;
}

}  // namespace

Mark parse_mark(const std::string& text) {
  const std::size_t colon = text.find(':'), comma = text.find(',', colon),
                    equals = text.find('=', comma);
  if (colon != 2 || comma == std::string::npos) {
    throw Failure(wrong_usage, fmt::format("--mark {}: write it as ph:100,3000", text));
  }
  const auto first = property_named(text.substr(0, 1)), second = property_named(text.substr(1, 1));
  const std::size_t end = std::min(equals, text.size());
  const std::optional<Given> given =
      first && second ? given_by({*first, text.substr(colon + 1, comma - colon - 1)},
                                 {*second, text.substr(comma + 1, end - comma - 1)})
                      : std::nullopt;
  if (!given) {
    throw Failure(wrong_usage,
                  fmt::format("--mark {}: '{}' is no pair of properties", text, text.substr(0, 2)));
  }
  return mark_at(*given, equals == std::string::npos ? "" : text.substr(equals + 1));
}

std::vector<Mark> read_process(const std::string& path) {
  std::ifstream file(path);
  if (!file) {
    throw Failure(unusable, fmt::format("cannot read {}", path));
  }
  std::vector<Column> columns;
  std::vector<Mark> marks;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    line.erase(line.find_last_not_of('\r') + 1);
    if (line.empty() || line[0] == '#') {
      continue;
    }
    try {
      if (columns.empty()) {
        columns = columns_of(line);
      } else {
        marks.push_back(mark_of(columns, line));
      }
    } catch (const Failure& failure) {
      throw Failure(failure.status(), fmt::format("{}:{}: {}", path, number, failure.what()));
    }
  }
  return marks;
}

Spot spot_of(steam::Diagram diagram, const Plane& plane, const steam::State& state) {
  const steam::DiagramInfo info = steam::info(diagram);
  return plane.spot(property_of(state, info.x), property_of(state, info.y));
}

Way way_between(steam::Diagram diagram, const Plane& plane, const steam::State& from,
                const steam::State& to) {
  const Spot begin = spot_of(diagram, plane, from), end = spot_of(diagram, plane, to);
  const std::optional<Property> property = common(from, to);
  if (!property) {
    return {true, {begin, end}};
  }
  const std::array value{property_of(from, *property)};
  const steam::Line line = steam::lines(diagram, *property, value)[0];
  Trace whole;
  for (std::size_t i = 0; i < line.x.size(); ++i) {
    whole.push_back(plane.spot(line.x[i], line.y[i]));
  }
  return {false, between(whole, begin, end)};
}

}  // namespace command
