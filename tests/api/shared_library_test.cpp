// The library as a host loads it at run time.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>

#include "api/vek.h"
#include "frame/module.hpp"

TEST(SharedLibrary, CreatesItsModuleObjectWithItsOwnHandle) {
  void* handle = dlopen(VEK_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(handle, nullptr) << dlerror();
  const auto module = reinterpret_cast<TModule* (*)()>(dlsym(handle, "GetVekModule"));
  ASSERT_NE(module, nullptr);
  ASSERT_NE(module(), nullptr);
  EXPECT_STREQ(module()->name, "VEK.DLL");
  EXPECT_EQ(module()->instance, handle);
  EXPECT_NE(module(), GetVekModule()) << "the tests have a module of their own";

  const auto request = reinterpret_cast<decltype(&vek)>(dlsym(handle, "vek"));
  const auto finder = reinterpret_cast<VekFinder>(dlsym(handle, "vekrtx_"));
  const double t = 100;
  const double x = 0;
  std::array<double, 1> result{};
  request(finder, &t, &x, "P ", result.data());
  EXPECT_NEAR(result[0], 1.01325262, 5e-9);
}
