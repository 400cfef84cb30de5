#include "frame/module.hpp"

#include <gtest/gtest.h>

#include "api/vek.h"

TEST(ModuleObject, IsThereFromLoadOn) {
  const TModule* module = GetVekModule();
  ASSERT_NE(module, nullptr);
  EXPECT_STREQ(module->name, "VEK.DLL");
  EXPECT_EQ(GetVekModule(), module);
}

TEST(ModuleObject, IsMadeAnewByEachEntryWhateverTheReason) {
  const TModule* first = GetVekModule();
  int instance = 0;
  for (const unsigned long reason : {0UL, 1UL, 3UL}) {
    EXPECT_EQ(classic::module_entry(&instance, reason, nullptr), 1);
    EXPECT_NE(GetVekModule(), first);
    EXPECT_EQ(GetVekModule()->instance, &instance);
  }
  EXPECT_STREQ(first->name, "VEK.DLL") << "the objects before it live on";
}
