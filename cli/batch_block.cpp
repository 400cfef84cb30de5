#include "batch_block.hpp"

#include <fast_float/fast_float.h>
#include <fmt/compile.h>
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "failure.hpp"

namespace command {

bool is_passed_on(std::string_view record) {
  return record.front() == '#' || record.size() == line_end_of(record).size();
}

namespace {

std::string with_points(std::string_view text) {
  std::string number(text);
  std::replace(number.begin(), number.end(), ',', '.');
  return number;
}

}  // namespace

void BatchBlock::work(std::string_view text, std::size_t line) {
  counts_ = {};
  read(text, line);
  evaluate();
  write();
}

void BatchBlock::read(std::string_view text, std::size_t line) {
  rows_.clear();
  first_.clear();
  second_.clear();
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(columns_.csv.record_end(text, begin), text.size());
    const std::string_view record = text.substr(begin, end - begin);
    if (is_passed_on(record)) {
      rows_.push_back({record, line, 0});
      first_.push_back(steam::missing);
      second_.push_back(steam::missing);
    } else {
      read_row(record, line);
    }
    line += static_cast<std::size_t>(std::count(record.begin(), record.end(), '\n'));
    begin = end;
  }
}

void BatchBlock::read_row(std::string_view record, std::size_t line) {
  columns_.csv.split(record.substr(0, record.size() - line_end_of(record).size()), fields_);
  rows_.push_back({record, line, fields_.size()});
  double first = steam::missing, second = steam::missing;
  try {
    if (fields_.size() != columns_.count) {
      throw Failure(no_answer,
                    fmt::format("{} fields instead of {}", fields_.size(), columns_.count));
    }
    first = value_of(columns_.first, fields_[columns_.first.place]);
    second = value_of(columns_.second, fields_[columns_.second.place]);
  } catch (const Failure& failure) {
    rows_.back().reason = failure.what();
  }
  first_.push_back(first);
  second_.push_back(second);
}

double BatchBlock::value_of(const KnownColumn& column, std::string_view field) {
  double value = 0;
  const char* const end = field.data() + field.size();
  const auto [stop, error] = fast_float::from_chars(field.data(), end, value);
  if (error == std::errc() && stop == end) {
    return column.unit.to_base(value);
  }
  const std::string_view text = content(field, buffer_);
  const char* const name = steam::info(column.property).name;
  if (text.empty()) {
    throw Failure(no_answer, fmt::format("{} is missing", name));
  }
  try {
    return units_.read(column.property, columns_.decimal == '.' ? text : with_points(text));
  } catch (const Failure& failure) {
    throw Failure(no_answer, fmt::format("{}: {}", name, failure.what()));
  }
}

void BatchBlock::evaluate() {
  std::vector<steam::Column<double>> outputs;
  for (std::vector<double>& values : values_) {
    values.resize(rows_.size());
    outputs.emplace_back(values);
  }
  status_.resize(rows_.size());
  steam::Options options;
  options.threads = 1;  // the blocks are spread over the threads
  steam::evaluate(columns_.pair, first_, second_, columns_.wanted, outputs, status_, options);
}

void BatchBlock::write() {
  output_.clear();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].fields == 0) {
      output_ += rows_[i].record;
    } else {
      write_row(rows_[i], i);
    }
  }
}

void BatchBlock::write_row(const Row& row, std::size_t index) {
  const std::string_view line_end = line_end_of(row.record);
  output_ += row.record.substr(0, row.record.size() - line_end.size());
  ++counts_.rows;
  if (row.reason.empty() && status_[index] == steam::Reason::none) {
    write_values(index);
    output_ += columns_.csv.delimiter;
    output_ += "ok";
  } else {
    const std::string reason = reason_of(row, index);
    const std::size_t lacking = columns_.count > row.fields ? columns_.count - row.fields : 0;
    output_.append(lacking + columns_.wanted.size() + 1, columns_.csv.delimiter);
    output_ += columns_.csv.field(reason);
    if (counts_.failed++ == 0) {
      counts_.first_failed_line = row.line;
      counts_.first_reason = reason;
    }
  }
  output_ += line_end;
}

void BatchBlock::write_values(std::size_t index) {
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const double value = columns_.wanted_units[i].from_base(values_[i][index]);
    std::array<char, 32> text;
    char* end = text.data();
    *end++ = columns_.csv.delimiter;
    if (!std::isnan(value)) {  // what a state does not have is left empty
      end = digits_ ? fmt::format_to(end, FMT_COMPILE("{:.{}g}"), value, *digits_)
                    : fmt::format_to(end, FMT_COMPILE("{}"), value);
      std::replace(text.data(), end, '.', columns_.decimal);
    }
    output_.append(text.data(), end);
  }
}

std::string BatchBlock::reason_of(const Row& row, std::size_t index) const {
  if (!row.reason.empty()) {
    return row.reason;
  }
  const steam::Result result = steam::state(columns_.pair, first_[index], second_[index]);
  return text(result.refusal(), units_);
}

}  // namespace command
