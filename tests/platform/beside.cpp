// A host that is linked with the module and loads a copy of it: the copy calls its own functions.

#include <dlfcn.h>
#include <vek/vek.h>

#include <cstdio>

int main(int /*argc*/, char** argv) {
  void* copy = dlopen(argv[1], RTLD_NOW);
  if (copy == nullptr) {
    std::printf("%s\n", dlerror());
    return 1;
  }
  const auto vek_of_copy = reinterpret_cast<decltype(&vek)>(dlsym(copy, "vek"));
  const auto flag_of_copy = reinterpret_cast<decltype(&VEKHasError)>(dlsym(copy, "VEKHasError"));
  const auto finder = reinterpret_cast<VekFinder>(dlsym(copy, "vekrvh_"));
  // Water this dense has a start pressure out of range, which vekrpv_ reports within the search.
  const double v = 0.00095;
  const double h = 100;
  double result = 0;
  vek_of_copy(finder, &v, &h, "Q ", &result);
  const bool separate = flag_of_copy() == 2 && VEKHasError() == 0;
  std::printf("flags: copy %d, own %d\n", flag_of_copy(), VEKHasError());
  return separate ? 0 : 1;
}
