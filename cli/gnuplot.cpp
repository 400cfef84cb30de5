#include "gnuplot.hpp"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "failure.hpp"

namespace command {
namespace {

/// A file that nobody else sees, so that no pipe can block or break.
class Scratch {
 public:
  Scratch() : file_(std::tmpfile()) {
    if (!file_) {
      fail();
    }
  }
  [[nodiscard]] int number() const { return fileno(file_.get()); }
  void write(const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size() ||
        std::fflush(file_.get()) != 0) {
      fail();
    }
    std::rewind(file_.get());
  }
  std::string read() {
    std::rewind(file_.get());
    std::string all;
    std::array<char, 65536> some;
    for (std::size_t count; (count = std::fread(some.data(), 1, some.size(), file_.get())) > 0;) {
      all.append(some.data(), count);
    }
    return all;
  }

 private:
  [[noreturn]] static void fail() {
    throw Failure(unusable, std::string("no scratch file: ") + std::strerror(errno));
  }
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, Close> file_;
};

/// Without the user's own settings of gnuplot.
pid_t start(const Scratch& input, const Scratch& output, const Scratch& errors) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, input.number(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, output.number(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&files, errors.number(), STDERR_FILENO);
  std::string name = "gnuplot", option = "-d";
  const std::array<char*, 3> arguments{name.data(), option.data(), nullptr};
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, name.c_str(), &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) {
    throw Failure(unusable, error == ENOENT
                                ? "charts are drawn by gnuplot, which is not installed; on Debian "
                                  "it is in the package gnuplot-nox"
                                : std::string("cannot start gnuplot: ") + std::strerror(error));
  }
  return process;
}

/// Its first line that says something.
std::string complaint(const std::string& errors) {
  const std::size_t begin = errors.find_first_not_of("\n ^");
  return begin == std::string::npos ? "no reason given"
                                    : errors.substr(begin, errors.find('\n', begin) - begin);
}

}  // namespace

std::string drawn_by_gnuplot(const std::string& script) {
  Scratch input, output, errors;
  input.write(script);
  const pid_t process = start(input, output, errors);
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  std::string picture = output.read();
  if (status != 0 || picture.empty()) {
    throw Failure(unusable, "gnuplot cannot draw the chart: " + complaint(errors.read()));
  }
  return picture;
}

}  // namespace command
