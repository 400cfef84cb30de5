#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "module.hpp"

namespace host {

Module::Module(const char* file) : handle_(LoadLibraryA(file)) {
  // As a host runs whose runtime is Microsoft's: with the x87 in double precision.
  const unsigned short control = 0x27f;
  asm volatile("fldcw %0" : : "m"(control));
  if (handle_ == nullptr) {
    std::fprintf(stderr, "cannot load %s: error %lu\n", file, GetLastError());
    std::exit(2);
  }
}

void* Module::address(const char* name) const {
  const FARPROC found = GetProcAddress(static_cast<HMODULE>(handle_), name);
  if (found == nullptr) {
    std::fprintf(stderr, "no %s: error %lu\n", name, GetLastError());
    std::exit(2);
  }
  return reinterpret_cast<void*>(found);
}

void Module::close() { FreeLibrary(static_cast<HMODULE>(handle_)); }

}  // namespace host
