// Loads the module several times from one file, each in a namespace of its own, and checks that an
// unloaded module is really gone.

#include <dlfcn.h>

#include <array>
#include <cstdio>

#include "classic/frame/module.hpp"
#include "vek/vek.h"

namespace {

template <class Function>
Function* function(void* handle, const char* name) {
  return reinterpret_cast<Function*>(dlsym(handle, name));
}

void raise_flag(void* handle) {
  double p = 10;
  double t = 100;
  double result = 0;
  function<decltype(vek)>(handle, "vek")(function<decltype(vekrpt_)>(handle, "vekrpt_"), &p, &t,
                                         "Q ", &result);
}

int flag(void* handle) { return function<decltype(VEKHasError)>(handle, "VEKHasError")(); }

TModule* object(void* handle) { return function<decltype(GetVekModule)>(handle, "GetVekModule")(); }

bool stays_loaded(const char* file) {
  dlclose(dlopen(file, RTLD_NOW | RTLD_LOCAL));
  return dlopen(file, RTLD_NOW | RTLD_NOLOAD) != nullptr;
}

}  // namespace

int main(int /*argc*/, char** argv) {
  if (stays_loaded(argv[1])) {
    std::puts("dlclose does not unload the module");
    return 1;
  }
  std::array<void*, 3> handles{};
  for (void*& handle : handles) {
    handle = dlmopen(LM_ID_NEWLM, argv[1], RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr || flag(handle) != 0 || object(handle)->instance != handle) {
      std::printf("no fresh module: %s\n", dlerror());
      return 1;
    }
    raise_flag(handle);
  }
  for (void* handle : handles) {
    if (flag(handle) != 2) {
      std::puts("modules share their state");
      return 1;
    }
    dlclose(handle);
  }
}
