// Calls MathErrorNotice with the system's message box replaced by one that keeps what it is given.

#include "classic/frame/math_error_notice.hpp"

#include <windows.h>

#include <cstdio>
#include <string>

#include "vek/vek.h"

namespace {

bool is_as_meant = false;

int WINAPI keep(HWND owner, const char* text, const char* caption, unsigned style) {
  is_as_meant = owner == nullptr && style == 0 && std::string(caption) == "Math error" &&
                std::string(text) ==
                    "If you get this message please call us,\n"
                    "because we would like to get it, but couldn`t";
  return 1;
}

}  // namespace

// The slot of the import table through which MessageBoxA is called.
#ifdef _WIN64
#define IMPORT_SLOT "__imp_MessageBoxA"
#else
#define IMPORT_SLOT "__imp__MessageBoxA@16"
#endif
extern "C" decltype(&keep) message_box_import asm(IMPORT_SLOT);
decltype(&keep) message_box_import = keep;

int main() {
  const bool returns_1 = classic::MathErrorNotice() == 1;
  std::printf("box %d, result %d, flag %d\n", is_as_meant, returns_1, VEKHasError());
  return is_as_meant && returns_1 && VEKHasError() == 1 ? 0 : 1;
}
