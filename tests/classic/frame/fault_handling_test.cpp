// What a request does about floating-point faults: with the signal raised by hand, and with a host
// that has its traps really on. The hosts in tests/hosts do more of it.

#include <fenv.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <array>
#include <cstdint>
#ifdef __SSE2__
#include <xmmintrin.h>
#endif

#include "classic/frame/error_flag.hpp"
#include "classic/frame/guards.hpp"
#include "support/diagnostic_lines.hpp"
#include "vek/vek.h"

using namespace classic;

namespace {

void hosts_handler(int /*signal*/, siginfo_t* /*info*/, void* /*context*/) {}

struct sigaction installed_handler() {
  struct sigaction now = {};
  sigaction(SIGFPE, nullptr, &now);
  return now;
}

/// A host with a signal handler of its own.
class Host : public testing::Test {
 protected:
  void SetUp() override {
    struct sigaction action = {};
    action.sa_sigaction = hosts_handler;
    action.sa_flags = SA_SIGINFO | SA_NODEFER;
    sigemptyset(&action.sa_mask);
    sigaddset(&action.sa_mask, SIGUSR1);
    sigaction(SIGFPE, &action, &before_);
  }
  void TearDown() override {
    feclearexcept(FE_ALL_EXCEPT);
    fedisableexcept(FE_ALL_EXCEPT);
    sigaction(SIGFPE, &before_, nullptr);
  }

  static constexpr int traps = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;

  static void expect_own_handler() {
    const struct sigaction now = installed_handler();
    EXPECT_EQ(now.sa_sigaction, hosts_handler);
    EXPECT_EQ(now.sa_flags & (SA_SIGINFO | SA_NODEFER | static_cast<int>(SA_RESETHAND)),
              SA_SIGINFO | SA_NODEFER);
    EXPECT_EQ(sigismember(&now.sa_mask, SIGUSR1), 1);
    EXPECT_EQ(FpeGuardActive, 0);
  }

  /// @return the flag after a request for the items, from values a finder does not change
  static int flag_after(VekFinder finder, double a, const char* items) {
    const double t = 200;
    vek(finder, &a, &t, items, results.data());
    return VEKHasError();
  }

  static inline std::array<double, 9> results{};

 private:
  struct sigaction before_ = {};
};

/// A host with floating-point traps on, too.
class HostWithTraps : public Host {
 protected:
  void SetUp() override {
    Host::SetUp();
    feclearexcept(FE_ALL_EXCEPT);
    if (feenableexcept(traps) == -1) {
      GTEST_SKIP() << "there are no traps on this machine";
    }
  }
};

int raises_twice(double* /*a*/, double* /*b*/, double* /*tol*/) {
  EXPECT_EQ(FpeGuardActive, 1);
  EXPECT_EQ(VEKHasError(), 0);
  raise(SIGFPE);
  set_error_flag(0);
  raise(SIGFPE);
  EXPECT_EQ(VEKHasError(), 1);
  return 2;
}

void divide_by_zero() {
  volatile double zero = 0;
  zero = 1 / zero;
}

int flag_in_finder = 0;

/// A host's own finder that asks for the flag after a fault of its own.
template <void Fault()>
int faults(double* /*a*/, double* /*b*/, double* /*tol*/) {
  Fault();
  flag_in_finder = VEKHasError();
  return 2;
}

int throws(double* /*a*/, double* /*b*/, double* /*tol*/) { throw 1967; }

/// Requests with another finder within the request, and then faults.
template <VekFinder Inner>
int nests(double* a, double* b, double* tol) {
  double inner = 0;
  try {
    vek(Inner, a, b, "T ", &inner);
  } catch (int) {
    inner = *b;
  }
  EXPECT_EQ(inner, *b);
  EXPECT_EQ(FpeGuardActive, 1);
  EXPECT_NE(installed_handler().sa_sigaction, hosts_handler);
  return faults<divide_by_zero>(a, b, tol);
}

int switches_a_trap_on(double* /*a*/, double* /*b*/, double* /*tol*/) {
  feenableexcept(FE_DIVBYZERO);
  return 2;
}

}  // namespace

TEST_F(Host, KeepsItsHandlerAndTheModuleHandlesSignalsDuringARequest) {
  EXPECT_EQ(flag_after(raises_twice, 1, "T "), 0) << "cleared once the state is placed";
  EXPECT_EQ(results[0], 200);
  expect_own_handler();
  set_error_flag(2);
  FpeHandler(SIGFPE);
  EXPECT_EQ(VEKHasError(), 1) << "outside a request too";
  expect_own_handler();
}

TEST_F(HostWithTraps, GetsItsOwnBackHoweverItsFinderEnds) {
  fesetround(FE_UPWARD);
  const auto expect_own = [] {
    EXPECT_EQ(fegetround(), FE_UPWARD);
    EXPECT_EQ(fetestexcept(traps), 0) << "no fault is left pending";
    EXPECT_EQ(fegetexcept(), traps);
    expect_own_handler();
  };
  for (const VekFinder finder : {faults<divide_by_zero>, nests<vekrpt_>, nests<throws>}) {
    flag_in_finder = 0;
    EXPECT_EQ(flag_after(finder, 10, "T "), 0) << "cleared once the state is placed";
    EXPECT_EQ(flag_in_finder, 1);
    expect_own();
  }
  EXPECT_THROW(flag_after(throws, 10, "T "), int);
  expect_own();
  fesetround(FE_TONEAREST);
}

TEST_F(HostWithTraps, KeepsATrapThatItsFinderSwitchesOn) {
  DiagnosticLines lines;
  for (const int before : {FE_INVALID, 0}) {
    fedisableexcept(FE_ALL_EXCEPT);
    feenableexcept(before);
    EXPECT_EQ(flag_after(switches_a_trap_on, 0, "V "), 1) << "steam without pressure divides by 0";
    EXPECT_EQ(fegetexcept(), before | FE_DIVBYZERO);
  }
}

#ifdef __SSE2__

namespace {

constexpr unsigned invalid = 1, denormal = 2, by_zero = 4, overflow = 8, all = 0x3f;
constexpr int mxcsr_masks = 7;

/// The traps that are on, of each unit.
struct Units {
  unsigned sse, x87;
  bool operator==(const Units&) const = default;
};

Units units_with_traps() {
  std::uint16_t control;
  asm volatile("fnstcw %0" : "=m"(control));
  return {~(_mm_getcsr() >> mxcsr_masks) & all, ~unsigned{control} & all};
}

void set_traps(const Units& on) {
  const auto control = static_cast<std::uint16_t>(0x37f & ~on.x87);
  asm volatile("fnclex; fldcw %0" : : "m"(control));
  _mm_setcsr(0x1f80 & ~(on.sse << mxcsr_masks));
}

void divide_by_zero_extended() {
  volatile long double zero = 0;
  zero = 1 / zero;
}

void multiply_denormal() {
  volatile double x = 5e-324;
  x = x * 3;
}

}  // namespace

TEST_F(Host, GetsAFaultOfTheUnitWhoseTrapIsOnAndNoTrapFires) {
  struct Row {
    Units on;
    VekFinder finder;
    int flag;
  };
  const VekFinder in_sse = faults<divide_by_zero>;
  const VekFinder in_x87 = faults<divide_by_zero_extended>;
  const VekFinder of_denormal = faults<multiply_denormal>;
  const Row rows[] = {
      {{0, by_zero}, in_sse, 0},
      {{0, by_zero}, in_x87, 1},
      {{by_zero, 0}, in_sse, 1},
      {{by_zero, 0}, in_x87, 0},
      {{0, 0}, in_sse, 0},
      {{invalid, overflow}, in_sse, 0},
      {{by_zero, by_zero}, in_x87, 1},
      {{denormal, 0}, of_denormal, 1},
      {{by_zero, denormal}, of_denormal, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "row " << &row - rows);
    set_traps(row.on);
    const int flag = flag_after(row.finder, 10, "T ");
    const Units after = units_with_traps();
    set_traps({0, 0});
    EXPECT_EQ(flag_in_finder, row.flag);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(after, row.on);
  }
}

#endif
