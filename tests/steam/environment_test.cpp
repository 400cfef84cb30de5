#include <gtest/gtest.h>

#include <cfenv>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "answers.hpp"
#include "round_trips.hpp"
#include "survey/boundary_states.hpp"
#if defined(__x86_64__) || defined(__i386__)
#include <xmmintrin.h>
#endif

// The host's floating-point environment: traps, rounding, underflow, precision. The engine's bits
// do not depend on it, no trap fires, and the host gets it back.

namespace {

using steam::Pair;

#if defined(__x86_64__) || defined(__i386__)
/// Both units of x86: control bits and sticky flags.
struct Environment {
  std::uint16_t x87 = 0, x87_flags = 0;
  unsigned sse = 0;
  static Environment now() {
    Environment e;
    asm volatile("fnstcw %0" : "=m"(e.x87));
    asm volatile("fnstsw %0" : "=m"(e.x87_flags));
    e.x87_flags &= FE_ALL_EXCEPT;
    e.sse = _mm_getcsr();
    return e;
  }
  [[nodiscard]] Environment without_flags() const { return {x87, 0, sse & ~0x3FU}; }
  bool operator==(const Environment&) const = default;
};

void flush_to_zero() { _mm_setcsr(_mm_getcsr() | 0x8040); }  // and denormals are zero

void set_precision(unsigned bits) {
  std::uint16_t control = 0;
  asm volatile("fnstcw %0" : "=m"(control));
  control = static_cast<std::uint16_t>((control & ~0x300U) | bits);
  asm volatile("fldcw %0" : : "m"(control));
}
#else
struct Environment {
  int rounding = 0, flags = 0, traps = 0;
  static Environment now() {
    return {std::fegetround(), std::fetestexcept(FE_ALL_EXCEPT), fegetexcept()};
  }
  [[nodiscard]] Environment without_flags() const { return {rounding, 0, traps}; }
  bool operator==(const Environment&) const = default;
};
#endif

struct Host {
  const char* name;
  void (*enter)();
};
const Host hosts[] {
  {"traps", [] { feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW); }},
      {"upward", [] { std::fesetround(FE_UPWARD); }},
      {"downward", [] { std::fesetround(FE_DOWNWARD); }},
      {"toward_zero", [] { std::fesetround(FE_TOWARDZERO); }},
      {"flags_raised", [] { std::feraiseexcept(FE_ALL_EXCEPT); }},
#if defined(__x86_64__) || defined(__i386__)
      {"all_traps", [] { _mm_setcsr(_mm_getcsr() & ~(_MM_MASK_MASK & ~_MM_MASK_INEXACT)); }},
      {"flush_to_zero", flush_to_zero}, {"single_precision", [] { set_precision(0x000); }},
      {"double_precision", [] { set_precision(0x200); }},
#endif
};

struct Rows {
  std::vector<double> first, second;
};

/// States of every boundary, and values that are none.
Rows rows_of(Pair pair) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  Rows rows{{steam::missing, 1, -1, inf, 0, 5e-324}, {1, steam::missing, -1, 1, -inf, 5e-324}};
  for (const auto& boundary : boundary_states::boundaries()) {
    std::mt19937_64 random(67);
    for (int i = 0; i < 12 && boundary_states::applies(pair, boundary); ++i) {
      const auto origin = boundary.beside(random);
      if (const auto state = steam::state(origin.pair, origin.first, origin.second)) {
        const auto [first, second] = round_trips::given(pair, *state);
        rows.first.push_back(first);
        rows.second.push_back(second);
      }
    }
  }
  return rows;
}

/// All that the engine has to say about the rows.
struct Told {
  std::vector<steam::State> states;
  std::vector<std::vector<double>> columns;
  std::vector<Environment> in_callbacks;
};

Told told_before(const Rows& rows) {  // with all its memory
  Told told{{}, {2 * steam::property_count, std::vector<double>(rows.first.size())}, {}};
  told.states.reserve(10 * rows.first.size());
  told.in_callbacks.reserve(rows.first.size());
  return told;
}

void ask(Pair pair, const Rows& rows, unsigned threads, Told& told) {
  for (std::size_t i = 0; i < rows.first.size(); ++i) {
    if (const auto one = steam::state(pair, rows.first[i], rows.second[i])) {
      told.states.push_back(*one);
    }
    for (const auto& state : steam::states(pair, rows.first[i], rows.second[i])) {
      told.states.push_back(state);
    }
    for (const auto property : answers::all_properties) {
      told.columns[steam::property_count + static_cast<std::size_t>(property)][i] =
          steam::value(pair, rows.first[i], rows.second[i], property);
    }
  }
  std::vector<std::span<double>> outputs(told.columns.begin(),
                                         told.columns.begin() + steam::property_count);
  const steam::Options options{.threads = threads, .chunk = 50, .progress = [&told](auto, auto) {
                                 told.in_callbacks.push_back(Environment::now());
                               }};
  steam::evaluate(pair, rows.first, rows.second, answers::all_properties, outputs, {}, options);
}

bool same(const Told& a, const Told& b) {
  bool is_same = a.states.size() == b.states.size();
  for (std::size_t i = 0; is_same && i < a.states.size(); ++i) {
    is_same = answers::same_bits(a.states[i], b.states[i]);
  }
  for (std::size_t c = 0; c < a.columns.size(); ++c) {
    for (std::size_t i = 0; is_same && i < a.columns[c].size(); ++i) {
      is_same = answers::same_bits(a.columns[c][i], b.columns[c][i]);
    }
  }
  return is_same;
}

class InHost : public testing::TestWithParam<Host> {};

void check(const Host& host, Pair pair, unsigned threads) {
  SCOPED_TRACE(testing::Message() << round_trips::name(pair) << ", threads " << threads);
  const Rows rows = rows_of(pair);
  Told usual = told_before(rows), told = told_before(rows);
  ask(pair, rows, threads, usual);
  std::fenv_t own;
  std::fegetenv(&own);
  std::feclearexcept(FE_ALL_EXCEPT);
  host.enter();
  const Environment before = Environment::now();
  ask(pair, rows, threads, told);
  const Environment after = Environment::now();
  std::fesetenv(&own);
  EXPECT_TRUE(same(usual, told));
  EXPECT_TRUE(before == after);
  for (const Environment& in_callback : told.in_callbacks) {
    EXPECT_TRUE(in_callback.without_flags() == before.without_flags());
  }
}

TEST_P(InHost, TheEngineComputesTheSameAndLeavesNoTrace) {
  for (const Pair pair : answers::all_pairs) {
    check(GetParam(), pair, 1);
  }
  check(GetParam(), Pair::ph, 3);
}

INSTANTIATE_TEST_SUITE_P(All, InHost, testing::ValuesIn(hosts),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
