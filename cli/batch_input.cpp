#include "batch_input.hpp"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "failure.hpp"

namespace command {
namespace {

constexpr std::size_t block = std::size_t{1} << 18;
/// A record longer than this has a quoted field that was never ended: its first line is taken for
/// a record, and is a row that fails.
constexpr std::size_t longest_record = std::size_t{1} << 20;

/// Behind the last whole record; 0 when there is none.
std::size_t whole_records(const Csv& csv, std::string_view text) {
  if (text.find('"') == std::string_view::npos) {
    return text.rfind('\n') + 1;  // npos + 1 is 0
  }
  std::size_t end = 0;
  for (std::size_t next = 0; next < text.size() && next != std::string_view::npos;) {
    end = next;
    next = csv.record_end(text, end);
    end = next == text.size() ? next : end;
  }
  return end;
}

}  // namespace

BatchInput::BatchInput(const std::string& path) : path_(path == "-" ? "" : path) {
  if (!path_.empty()) {
    file_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
  }
  struct stat facts {};
  if (file_ < 0 || fstat(file_, &facts) != 0) {
    throw Failure(unusable, fmt::format("cannot read {}: {}", path_, std::strerror(errno)));
  }
  size_ = S_ISREG(facts.st_mode) ? static_cast<std::size_t>(facts.st_size) : 0;
}

BatchInput::~BatchInput() {
  if (!path_.empty()) {
    close(file_);
  }
}

/// Reads one block more.
/// @return  false at the end of the file
bool BatchInput::fill(std::string& text) {
  const std::size_t before = text.size();
  text.resize(before + block);
  std::size_t count = 0;
  while (count < block) {
    const ssize_t got = read(file_, text.data() + before + count, block - count);
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      throw Failure(unusable,
                    fmt::format("cannot read {}: {}", path_.empty() ? "standard input" : path_,
                                std::strerror(errno)));
    }
    if (got == 0) {
      break;
    }
    count += static_cast<std::size_t>(got);
  }
  text.resize(before + count);
  bytes_ += count;
  return count == block;
}

std::size_t BatchInput::next(const Csv& csv, std::string& text) {
  text.swap(rest_);
  rest_.clear();
  std::size_t end = 0;
  while (end == 0) {
    if (!at_end_) {
      at_end_ = !fill(text);
    }
    end = whole_records(csv, text);
    if (end == 0 && (at_end_ || text.size() > longest_record)) {
      const std::size_t line = text.find('\n');
      end = line == std::string::npos ? text.size() : line + 1;
      break;
    }
  }
  if (at_end_ && text.find('\n', end) == std::string::npos) {
    end = text.size();  // the last line has no end
  }
  rest_.assign(text, end);
  text.resize(end);
  const std::size_t first = line_;
  line_ += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  return text.empty() ? 0 : first;
}

}  // namespace command
