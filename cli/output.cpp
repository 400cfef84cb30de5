#include "output.hpp"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "failure.hpp"

namespace command {
namespace {

// What a signal has to remove.
char unfinished[PATH_MAX];

extern "C" void remove_unfinished(int signal) {
  if (unfinished[0] != 0) {
    unlink(unfinished);
  }
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void remember_unfinished(const std::string& path) {
  std::strncpy(unfinished, path.c_str(), sizeof unfinished - 1);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
    struct sigaction now {};
    sigaction(signal, nullptr, &now);
    if (now.sa_handler != SIG_IGN) {  // as nohup has it
      std::signal(signal, remove_unfinished);
    }
  }
}

/// Name of the file itself where `path` is a link to it.
std::string resolved(const std::string& path) {
  char* real = realpath(path.c_str(), nullptr);
  std::string name = real ? real : path;
  std::free(real);
  return name;
}

/// The mode of a file that is replaced or, for a new one, what the user wants of new files.
mode_t mode_of(const std::string& path) {
  struct stat old {};
  if (stat(path.c_str(), &old) == 0) {
    return old.st_mode & 0777;
  }
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

bool is_regular_or_new(const std::string& path) {
  struct stat old {};
  return stat(path.c_str(), &old) != 0 || S_ISREG(old.st_mode);
}

}  // namespace

Output::Output(const std::string& path) : path_(path == "-" ? "" : path) {
  if (path_.empty()) {
    return;
  }
  if (is_regular_or_new(path_)) {
    path_ = resolved(path_);
    open_beside();
  } else {
    file_ = open(path_.c_str(), O_WRONLY | O_CLOEXEC);
  }
  if (file_ < 0) {
    fail();
  }
}

void Output::open_beside() {
  beside_ = path_ + ".XXXXXX";
  file_ = mkostemp(beside_.data(), O_CLOEXEC);
  if (file_ < 0) {
    beside_.clear();
    fail();
  }
  remember_unfinished(beside_);
  fchmod(file_, mode_of(path_));
}

Output::~Output() {
  if (!beside_.empty()) {
    unlink(beside_.c_str());
    unfinished[0] = 0;
  }
  if (!path_.empty() && file_ >= 0) {
    close(file_);
  }
}

void Output::write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(file_, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      fail();
    }
  }
}

void Output::finish() {
  if (path_.empty()) {
    return;
  }
  const int file = std::exchange(file_, -1);
  if (close(file) != 0 || (!beside_.empty() && rename(beside_.c_str(), path_.c_str()) != 0)) {
    fail();
  }
  beside_.clear();
  unfinished[0] = 0;
}

void Output::fail() const {
  const char* reason = std::strerror(errno);
  throw Failure(unusable, fmt::format("cannot write {}: {}",
                                      path_.empty() ? "standard output" : path_, reason));
}

void print(std::string_view text) {
  Output output;
  output.write(text);
}

void tell(std::string_view text) { (void)!::write(STDERR_FILENO, text.data(), text.size()); }

bool is_coloured(int file) {
  const char* no_colour = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  const bool wanted = !no_colour || *no_colour == 0;
  return wanted && isatty(file) == 1 && terminal && std::strcmp(terminal, "dumb") != 0;
}

void prepare_streams() {
  for (const int file : {0, 1, 2}) {
    if (fcntl(file, F_GETFD) == -1) {
      // For the other direction, so that using it fails.
      (void)!open("/dev/null", file == 0 ? O_WRONLY : O_RDONLY);
    }
  }
  std::signal(SIGPIPE, SIG_DFL);
}

}  // namespace command
