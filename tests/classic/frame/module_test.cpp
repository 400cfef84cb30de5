#include "classic/frame/module.hpp"

#include <gtest/gtest.h>

#include <array>

#include "vek/vek.h"

TEST(ModuleObject, IsMadeAnewByEachEntryWhateverTheReason) {
  // Each stays reachable, as the module itself keeps only the newest.
  static std::array<const TModule*, 4> all{GetVekModule()};
  auto newest = all.begin();
  int instance = 0;
  for (const unsigned long reason : {0UL, 1UL, 3UL}) {
    EXPECT_EQ(classic::module_entry(&instance, reason, nullptr), 1);
    EXPECT_NE(GetVekModule(), *newest);
    EXPECT_EQ(GetVekModule()->instance, &instance);
    *++newest = GetVekModule();
  }
  EXPECT_STREQ(all.front()->name, "VEK.DLL") << "the objects before it live on";
}
