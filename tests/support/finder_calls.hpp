#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <span>

#include "support/diagnostic_lines.hpp"
#include "vek/vek.h"

inline bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

/// One call of a finder: the values that it gets, its code, and the values that it leaves.
struct Call {
  double a, b;
  int code;
  double a_after, b_after;
  const char* text = "";
};

inline void expect_calls(VekFinder finder, double* tol, std::span<const Call> calls) {
  for (const Call& call : calls) {
    SCOPED_TRACE(testing::Message() << call.a << ' ' << call.b);
    DiagnosticLines lines;
    double a = call.a;
    double b = call.b;
    EXPECT_EQ(finder(&a, &b, tol), call.code);
    EXPECT_TRUE(same(a, call.a_after)) << a;
    EXPECT_TRUE(same(b, call.b_after)) << b;
    EXPECT_EQ(lines.take(), call.text);
  }
}

/// A call that leaves its values as they are.
constexpr Call kept(double a, double b, int code, const char* text = "") {
  return {a, b, code, a, b, text};
}
