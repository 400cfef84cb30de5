#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

#include "module.hpp"

namespace host {

Module::Module(const char* file) : handle_(dlopen(file, RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    std::exit(2);
  }
}

void* Module::address(const char* name) const {
  void* found = dlsym(handle_, name);
  if (found == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    std::exit(2);
  }
  return found;
}

void Module::close() { dlclose(handle_); }

}  // namespace host
