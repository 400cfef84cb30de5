#include <csignal>
#include <cstdint>

#include "classic/frame/fault_signal.hpp"
#include "classic/frame/guards.hpp"

namespace classic {
namespace {

using Handler = void (*)(int);
Handler host_handler = SIG_DFL;

}  // namespace

void take_signal() { host_handler = std::signal(SIGFPE, FpeHandler); }

void register_handler() { std::signal(SIGFPE, FpeHandler); }

int give_signal_back() {
  // A request ends with the handler value -1. Some runtimes refuse it and would keep `FpeHandler`,
  // some would call it: the host's own handler follows at once.
  const Handler answer = std::signal(SIGFPE, reinterpret_cast<Handler>(-1));
  std::signal(SIGFPE, host_handler);
  return static_cast<int>(reinterpret_cast<std::intptr_t>(answer));
}

}  // namespace classic
