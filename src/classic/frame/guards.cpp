#include "classic/frame/guards.hpp"

#include "classic/frame/error_flag.hpp"
#include "classic/frame/fault_signal.hpp"
#include "classic/frame/fault_traps.hpp"

namespace classic {

double SafeLog(double x) {
  if (x > 0) {
    return std::log(x);
  }
  set_error_flag(1);
  return x < 0 ? 1.0 : -HUGE_VAL;  // not a number takes the branch of zero
}

double SafeSqrt(double x) {
  if (!(x >= 0)) {  // not a number is refused too
    set_error_flag(1);
    return 1.0;
  }
  return std::sqrt(x);
}

double SafeExp(double x) {
  // Just above the logarithm of the largest extended-precision number.
  if (x >= 11357.0) {
    set_error_flag(1);
    return 0.0;  // intended: zero, not a huge value
  }
  return static_cast<double>(std::exp(static_cast<long double>(x)));
}

int FpeGuardActive = 0;

void FpeHandler(int /*signal*/) {
  LibraryErrorFlag = 1;
  if (FpeGuardActive != 0) {
    register_handler();
  }
}

FpeGuard::FpeGuard() : holds_(FpeGuardActive == 0) {
  if (!holds_) {
    hold_new_traps();
    return;
  }
  FpeGuardActive = 1;
  take_signal();
  hold_traps();
}

int FpeGuard::release() {
  notice_faults();
  if (!holds_) {
    return 0;
  }
  holds_ = false;
  release_traps();
  FpeGuardActive = 0;
  return give_signal_back();
}

}  // namespace classic
