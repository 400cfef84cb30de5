#pragma once

#include <string_view>

/// What a finder of the classic module is good for, as docs/accuracy.md says it.
struct Verdict {
  std::string_view pair;
  const char* verdict;  ///< in one line
  const char* instead;  ///< what to use where it fails
  const char* remark;   ///< more, or nothing
};

const Verdict& verdict_on(std::string_view pair);
