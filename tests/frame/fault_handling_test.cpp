// What a request does about floating-point faults: with the signal raised by hand, and with a host
// that has its traps really on.

#include <fenv.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <array>

#include "api/vek.h"
#include "frame/error_flag.hpp"
#include "frame/guards.hpp"
#include "support/diagnostic_lines.hpp"

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
  }

  /// @return the flag after a request for the items, from values a finder does not change
  static int flag_after(VekFinder finder, double a, double b, const char* items) {
    vek(finder, &a, &b, items, results.data());
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

int steam_as_given(double* /*p*/, double* /*t*/, double* /*tol*/) { return 2; }

int raises_twice(double* /*a*/, double* /*b*/, double* /*tol*/) {
  EXPECT_EQ(FpeGuardActive, 1);
  EXPECT_EQ(VEKHasError(), 0);
  raise(SIGFPE);
  set_error_flag(0);
  raise(SIGFPE);
  EXPECT_EQ(VEKHasError(), 1);
  return 2;
}

volatile double zero = 0;  // volatile: divided by at run time

int divides_by_zero(double* /*a*/, double* /*b*/, double* /*tol*/) {
  volatile double quotient = 1 / zero;
  static_cast<void>(quotient);
  return 9;
}

constexpr double no_pressure = 0;  // steam without pressure divides by zero, and is out of range

}  // namespace

TEST_F(Host, KeepsItsHandlerAndTheModuleHandlesSignalsDuringARequest) {
  EXPECT_EQ(flag_after(raises_twice, 1, 200, "T "), 0) << "cleared once the state is placed";
  EXPECT_EQ(results[0], 200);
  EXPECT_EQ(FpeGuardActive, 0);
  expect_own_handler();
}

TEST_F(Host, HandlerOfTheModuleOutsideARequestSetsTheFlagAndStaysOut) {
  set_error_flag(2);
  FpeHandler(SIGFPE);
  EXPECT_EQ(VEKHasError(), 1);
  expect_own_handler();
}

TEST_F(Host, WithoutTrapsSeesNoFault) {
  DiagnosticLines lines;
  flag_after(steam_as_given, no_pressure, 200, "V ");
  EXPECT_EQ(flag_after(steam_as_given, no_pressure, 200, "V,T "), 0) << "the terms are cached";
  EXPECT_EQ(results[1], 200);
}

TEST_F(HostWithTraps, GetsFlag1ForAFaultAndTheRequestGoesOn) {
  DiagnosticLines lines;
  EXPECT_EQ(flag_after(steam_as_given, no_pressure, 250, "V,T "), 1)
      << "the fault comes after the range report";
  EXPECT_EQ(results[1], 250);
  EXPECT_EQ(lines.take(), "** VEK-ERROR: 1  OUT OF RANGE IN COMT2,P= 0,T= 250\n");
  results.fill(0);
  EXPECT_EQ(flag_after(steam_as_given, no_pressure, 250, "V,T "), 1) << "the terms are cached";
  EXPECT_EQ(results[1], 250);
  EXPECT_EQ(fegetexcept(), traps);
  expect_own_handler();
}

TEST_F(HostWithTraps, SeesTheLastOfFaultsAndDiagnostics) {
  DiagnosticLines lines;
  EXPECT_EQ(flag_after(steam_as_given, no_pressure, 200, "V,? "), 2);
  EXPECT_EQ(flag_after(steam_as_given, no_pressure, 200, "?,V "), 1);
  EXPECT_EQ(flag_after(steam_as_given, no_pressure, 200, "T "), 0);
  EXPECT_EQ(flag_after(vekrpt_, 100, 200, "P,T,V,H,S,X,CP,DV,TC "), 0) << lines.take();
}

TEST_F(HostWithTraps, SeesNothingOfAFaultInAFinder) {
  DiagnosticLines lines;
  EXPECT_EQ(flag_after(divides_by_zero, 1, 1, "T "), 2) << "the refused region comes after it";
  EXPECT_EQ(fegetexcept(), traps);
  expect_own_handler();
}

TEST_F(HostWithTraps, KeepsTheStateOfItsFloatingPointUnit) {
  DiagnosticLines lines;
  fesetround(FE_UPWARD);
  flag_after(steam_as_given, no_pressure, 200, "V ");
  EXPECT_EQ(fegetround(), FE_UPWARD);
  fesetround(FE_TONEAREST);
  EXPECT_EQ(fetestexcept(traps), 0) << "no fault is left pending";
}
