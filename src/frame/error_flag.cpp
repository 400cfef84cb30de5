#include "frame/error_flag.hpp"

#include "api/vek.h"
#include "frame/fault_traps.hpp"

namespace classic {

int LibraryErrorFlag = 0;

void set_error_flag(int value) {
  forget_faults();
  LibraryErrorFlag = value;
}

}  // namespace classic

extern "C" int VEKHasError() { return classic::LibraryErrorFlag; }
