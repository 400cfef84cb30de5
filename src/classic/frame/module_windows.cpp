#include <windows.h>

#include "classic/frame/module.hpp"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
  return classic::module_entry(instance, reason, reserved);
}
