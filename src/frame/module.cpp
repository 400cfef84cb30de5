#include "frame/module.hpp"

#include <dlfcn.h>
#include <link.h>

#include <new>

#include "api/vek.h"

namespace {

TModule* VekModule = nullptr;

/// The handle by which the dynamic linker knows the image that holds this code.
void* own_handle() {
  Dl_info info;
  link_map* map = nullptr;
  dladdr1(reinterpret_cast<void*>(&GetVekModule), &info, reinterpret_cast<void**>(&map),
          RTLD_DL_LINKMAP);
  return map;
}

[[gnu::constructor]] void on_load() { classic::module_entry(own_handle(), 1, nullptr); }

}  // namespace

int classic::module_entry(void* instance, unsigned long /*reason*/, void* /*reserved*/) {
  // Each call makes a further object and none is ever destroyed: intended.
  VekModule = new (std::nothrow) TModule{"VEK.DLL", instance};
  return 1;
}

extern "C" TModule* GetVekModule() { return VekModule; }
