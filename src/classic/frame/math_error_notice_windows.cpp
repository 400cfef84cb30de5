#include <windows.h>

#include "classic/frame/error_flag.hpp"
#include "classic/frame/math_error_notice.hpp"

namespace classic {

int MathErrorNotice() {
  MessageBoxA(nullptr,
              "If you get this message please call us,\nbecause we would like to get it, but "
              "couldn`t",
              "Math error", 0);
  set_error_flag(1);
  return 1;
}

}  // namespace classic
