#include "classic/frame/guards.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "classic/frame/error_flag.hpp"
#include "support/edges.hpp"
#include "vek/vek.h"

using namespace classic;

TEST(GuardedFunctions, ReplaceABadArgumentAndRaiseTheFlag) {
  struct Row {
    const char* name;
    double (*function)(double);
    double x, value;
    int flag;
  };
  const Row rows[] = {
      {"log", SafeLog, 10, std::log(10.0), 0},
      {"log", SafeLog, 5e-324, std::log(5e-324), 0},
      {"log", SafeLog, 0, -HUGE_VAL, 1},
      {"log", SafeLog, not_a_number, -HUGE_VAL, 1},
      {"log", SafeLog, -5e-324, 1, 1},
      {"sqrt", SafeSqrt, 2, std::sqrt(2.0), 0},
      {"sqrt", SafeSqrt, -0.0, 0, 0},
      {"sqrt", SafeSqrt, -1e-300, 1, 1},
      {"sqrt", SafeSqrt, not_a_number, 1, 1},
      {"exp", SafeExp, 1, std::exp(1.0), 0},
      {"exp", SafeExp, -inf, 0, 0},
      {"exp", SafeExp, down(11357), inf, 0},
      {"exp", SafeExp, 11357, 0, 1},
      {"exp", SafeExp, not_a_number, not_a_number, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.name << ' ' << row.x);
    set_error_flag(0);
    const double value = row.function(row.x);
    EXPECT_TRUE(same(value, row.value)) << value;
    EXPECT_EQ(VEKHasError(), row.flag);
  }
  set_error_flag(2);
  SafeLog(-1);
  EXPECT_EQ(VEKHasError(), 1) << "over a diagnostic";
}
