#include "classic/frame/error_flag.hpp"

#include "classic/frame/fault_traps.hpp"
#include "vek/vek.h"

namespace classic {

int LibraryErrorFlag = 0;

void set_error_flag(int value) {
  forget_faults();
  LibraryErrorFlag = value;
}

void notice_faults() {
  if (has_faulted()) {
    LibraryErrorFlag = 1;
  }
}

}  // namespace classic

// A host's own finder may ask during a request.
extern "C" int VEKHasError() {
  classic::notice_faults();
  return classic::LibraryErrorFlag;
}
