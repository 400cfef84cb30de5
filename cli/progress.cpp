#include "progress.hpp"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>

#include "output.hpp"

namespace command {

Progress::Progress(std::size_t whole) : visible_(isatty(STDERR_FILENO) == 1), whole_(whole) {}

void Progress::show(std::size_t bytes, std::size_t rows) {
  const auto now = std::chrono::steady_clock::now();
  if (!visible_ || now < next_) {
    return;
  }
  next_ = now + std::chrono::milliseconds(100);
  drawn_ = true;
  if (whole_ == 0) {
    tell(fmt::format("\r{} rows", rows));
    return;
  }
  constexpr std::size_t width = 40;
  const std::size_t done = std::min(bytes, whole_) * width / whole_;
  tell(fmt::format("\r[{:#<{}}{: <{}}] {:3} %  {} rows", "", done, "", width - done,
                   std::min(bytes, whole_) * 100 / whole_, rows));
}

void Progress::clear() {
  if (drawn_) {
    tell("\r\033[K");
    drawn_ = false;
  }
}

}  // namespace command
