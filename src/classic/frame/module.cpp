#include "classic/frame/module.hpp"

#include <new>

#include "vek/vek.h"

namespace {

TModule* VekModule = nullptr;

}  // namespace

int classic::module_entry(void* instance, unsigned long /*reason*/, void* /*reserved*/) {
  // Each call makes a further object and none is ever destroyed: intended.
  VekModule = new (std::nothrow) TModule{"VEK.DLL", instance};
  return 1;
}

extern "C" TModule* GetVekModule() { return VekModule; }
