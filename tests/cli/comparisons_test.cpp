#include "comparisons.hpp"

#include <gtest/gtest.h>

// `--compare` names every state that the module misplaces, and no other.

TEST(Comparisons, NameWhatTheModuleMisplaces) {
  for (const survey::Finder& finder : survey::finders()) {
    const int count = finder.name == "sx" ? 4 : 25;  // its search may be long
    for (const survey::Band& band : survey::bands()) {
      if (finder.applies_to(band)) {
        const comparisons::Counts counts = comparisons::compare(finder, band, count);
        EXPECT_EQ(counts.unnoticed + counts.reported, 0)
            << finder.name << ", " << band.name << ": " << counts.first << ' ' << counts.second;
      }
    }
  }
}
