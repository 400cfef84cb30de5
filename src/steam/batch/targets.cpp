#include "steam/batch/targets.hpp"

#include <algorithm>
#include <atomic>

namespace steam {
namespace {

/// Null for one row at a time.
const Answers* answers_in(int lanes) {
#if defined(__x86_64__)
  if (lanes >= 8) {
    return &answers_in_8_lanes();
  }
  if (lanes >= 4) {
    return &answers_in_4_lanes();
  }
#endif
  return lanes >= 2 ? &answers_in_2_lanes() : nullptr;
}

std::atomic<const Answers*>& chosen() {
  static std::atomic<const Answers*> answers{answers_in(most_lanes())};
  return answers;
}

}  // namespace

int most_lanes() {
#if defined(__x86_64__)
  return __builtin_cpu_supports("avx512f") ? 8 : __builtin_cpu_supports("avx2") ? 4 : 2;
#else
  return 2;
#endif
}

void use_lanes(int lanes) { chosen() = answers_in(std::min(lanes, most_lanes())); }

bool is_for_lanes(const Wanted& wanted) {
  const Needs& needs = wanted.needs;
  return !needs.several && !needs.saturation && !wanted.of_liquid.any && !wanted.of_vapour.any;
}

void answer_block(const Block& block, RowList& left) {
  const Answers* answers = chosen();
  if (answers && is_for_lanes(block.wanted)) {
    (*answers)[static_cast<std::size_t>(block.pair)](block, left);
    return;
  }
  left.add_all(block.count);
}

}  // namespace steam
