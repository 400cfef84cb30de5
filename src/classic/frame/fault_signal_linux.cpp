#include <signal.h>

#include "classic/frame/fault_signal.hpp"
#include "classic/frame/guards.hpp"

namespace classic {
namespace {

struct sigaction host_action;

/// @param replaced  takes the action in force before; may be null
void register_handler(struct sigaction* replaced) {
  struct sigaction action = {};
  action.sa_handler = FpeHandler;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(SIGFPE, &action, replaced);
}

}  // namespace

void take_signal() { register_handler(&host_action); }

void register_handler() { register_handler(nullptr); }

int give_signal_back() { return sigaction(SIGFPE, &host_action, nullptr); }

}  // namespace classic
