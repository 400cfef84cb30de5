#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <span>
#include <string>
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

/// Control bits and sticky flags.
struct Environment {
  int rounding = std::fegetround(), flags = std::fetestexcept(FE_ALL_EXCEPT), traps = fegetexcept();
#if defined(__x86_64__) || defined(__i386__)
  unsigned short x87 = x87_control();
  unsigned sse = _mm_getcsr() & ~0x3FU;

  static unsigned short x87_control() {
    unsigned short control = 0;
    asm volatile("fnstcw %0" : "=m"(control));
    return control;
  }
  static void set_precision(int bits) {
    const auto control = static_cast<unsigned short>((x87_control() & ~0x300) | bits);
    asm volatile("fldcw %0" : : "m"(control));
  }
#endif
  bool operator==(const Environment&) const = default;
};

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
      {"flush_to_zero", [] { _mm_setcsr(_mm_getcsr() | 0x8040); }},  // and denormals are zero
      {"single_precision", [] { Environment::set_precision(0x000); }},
      {"double_precision", [] { Environment::set_precision(0x200); }},
#endif
};

/// All that the engine has to say about the rows.
struct Told {
  std::vector<double> numbers;
  std::vector<Environment> in_callbacks;

  void add(const steam::State& state) {
    for (const auto& number : answers::held_by(state)) {
      numbers.push_back(number.value_or(0));
    }
  }
};

Told told(Pair pair, const boundary_states::Rows& rows, unsigned threads) {
  Told all;
  for (std::size_t i = 0; i < rows.first.size(); ++i) {
    if (const auto one = steam::state(pair, rows.first[i], rows.second[i])) {
      all.add(*one);
    } else {
      const std::string words = steam::text(one.refusal());
      all.numbers.insert(all.numbers.end(), words.begin(), words.end());
    }
    for (const auto& state : steam::states(pair, rows.first[i], rows.second[i])) {
      all.add(state);
    }
    for (const auto property : answers::all_properties) {
      all.numbers.push_back(steam::value(pair, rows.first[i], rows.second[i], property));
    }
  }
  const std::size_t size = rows.first.size();
  std::vector<double> columns(size * answers::all_properties.size());
  std::vector<std::span<double>> outputs;
  for (std::size_t c = 0; c < answers::all_properties.size(); ++c) {
    outputs.push_back(std::span(columns).subspan(c * size, size));
  }
  const steam::Options options{.threads = threads, .chunk = 50, .progress = [&](auto, auto) {
                                 all.in_callbacks.push_back(Environment());
                               }};
  steam::evaluate(pair, rows.first, rows.second, answers::all_properties, outputs, {}, options);
  all.numbers.insert(all.numbers.end(), columns.begin(), columns.end());
  return all;
}

class InHost : public testing::TestWithParam<Host> {};

void check(const Host& host, Pair pair, unsigned threads) {
  SCOPED_TRACE(testing::Message() << round_trips::name(pair) << ", threads " << threads);
  const auto rows = boundary_states::rows(pair, 12);
  const Told usual = told(pair, rows, threads);
  std::fenv_t own;
  std::fegetenv(&own);
  std::feclearexcept(FE_ALL_EXCEPT);
  host.enter();
  const Environment before = Environment();
  const Told here = told(pair, rows, threads);
  const Environment after = Environment();
  std::fesetenv(&own);
  EXPECT_TRUE(std::equal(usual.numbers.begin(), usual.numbers.end(), here.numbers.begin(),
                         here.numbers.end(),
                         [](double a, double b) { return answers::same_bits(a, b); }));
  EXPECT_TRUE(before == after);
  for (Environment in_callback : here.in_callbacks) {
    in_callback.flags = before.flags;
    EXPECT_TRUE(in_callback == before);
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
