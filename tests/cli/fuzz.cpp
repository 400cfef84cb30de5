#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "amount.hpp"
#include "batch_block.hpp"
#include "failure.hpp"
#include "properties.hpp"
#include "ranges.hpp"

// What a user types or feeds: a first byte chooses between a file and an argument. Whatever the
// rest is, it gives an answer or a Failure, and a file comes back with nothing but its appended
// columns.

using namespace command;

namespace {

void require(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "%s\n", what);
    std::abort();
  }
}

/// Records of the text, one after the other.
std::vector<std::string_view> records(const Csv& csv, std::string_view text) {
  std::vector<std::string_view> all;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(csv.record_end(text, begin), text.size());
    require(end > begin, "a record is empty");
    all.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return all;
}

/// Every record is in the output, in order, with its line end behind what is appended.
void check_output(const std::vector<std::string_view>& in, std::string_view output) {
  for (const std::string_view record : in) {
    const std::string_view line_end = line_end_of(record);
    const std::string_view content = record.substr(0, record.size() - line_end.size());
    require(output.substr(0, content.size()) == content, "a record has changed");
    output.remove_prefix(content.size());
    if (!is_passed_on(record)) {
      // Fields that are appended have no line end but in quotation marks.
      const std::size_t end = line_end.empty() ? output.size() : output.find(line_end);
      require(end != std::string_view::npos, "a line end is lost");
      output.remove_prefix(end);
    }
    require(output.substr(0, line_end.size()) == line_end, "a line end has changed");
    output.remove_prefix(line_end.size());
  }
  require(output.empty(), "something was added");
}

void answer_file(std::string_view text) {
  BatchColumns columns;
  columns.pair = steam::Pair::ph;
  columns.first = {steam::Property::p, {}, 0};
  columns.second = {steam::Property::h, {}, 1};
  columns.wanted = {steam::Property::t};
  const std::vector<std::string_view> all = records(columns.csv, text);
  const auto first = std::find_if_not(all.begin(), all.end(), is_passed_on);
  if (first == all.end()) {
    return;
  }
  Units units;
  find_columns(columns, *first, units);
  BatchBlock block(columns, units, {});
  block.work(text, 1);
  check_output(all, block.output());
}

void read_argument(std::uint8_t kind, std::string_view text) {
  const Units units;
  switch (kind % 4) {
    case 0:
      (void)units.read(steam::Property::p, text);
      break;
    case 1:
      (void)parse_ranges(text, steam::Property::t, units);
      break;
    case 2:
      (void)parse_list(text);
      break;
    default:
      UnitOptions options;
      options.single = {std::string(text)};
      (void)Units(options);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  try {
    if (data[0] < 0x80) {
      answer_file(text);
    } else {
      read_argument(data[0], text);
    }
  } catch (const Failure&) {  // what is refused is refused in words
  }
  return 0;
}
