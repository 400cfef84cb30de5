#include <cstdio>

#include "comparisons.hpp"

// What `vek --compare` says of the survey's states, for docs/survey.md.

namespace {

constexpr int count = 300;

void print(const survey::Finder& finder, const survey::Band& band,
           const comparisons::Counts& counts) {
  const double share = 100.0 / counts.states;
  std::printf("| %s | %s | %.1f %% | %.1f %% |\n", finder.name.c_str(), band.name.c_str(),
              share * counts.misplaced, share * counts.differ);
}

}  // namespace

int main() {
  std::printf(
      "\n# What `vek --compare` says\n\n"
      "Of %d states of each part of the range: the share that the module **misplaces**, in another "
      "region or by more than 1 %%, and that with a **difference** reported, which is one of more "
      "than 1e-6 and more than the module's tolerance of 1e-8 of the given values makes. Parts "
      "without either are left out.\n\n"
      "| pair | states | misplaced | difference |\n|---|---|---|---|\n",
      count);
  int unnoticed = 0, reported = 0;
  for (const survey::Finder& finder : survey::finders()) {
    for (const survey::Band& band : survey::bands()) {
      if (finder.applies_to(band)) {
        const comparisons::Counts counts = comparisons::compare(finder, band, count);
        unnoticed += counts.unnoticed;
        reported += counts.reported;
        if (counts.misplaced + counts.differ > 0) {
          print(finder, band, counts);
        }
      }
    }
  }
  std::printf(
      "\nMisplaced without a difference: %d, but for other states of the same pair. A difference "
      "though the module's state is right to 1e-7: %d.\n",
      unnoticed, reported);
}
