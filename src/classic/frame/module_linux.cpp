#include <dlfcn.h>
#include <link.h>

#include "classic/frame/module.hpp"
#include "vek/vek.h"

namespace {

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
