// Loads the module under two file names, unloads it and loads it again, as hosts do.

#include <cstdio>

#include "classic/frame/module.hpp"
#include "module.hpp"

namespace {

int failures = 0;

void expect(bool holds, const char* what) {
  if (!holds) {
    std::printf("not so: %s\n", what);
    ++failures;
  }
}

/// One loaded module with what these checks call.
struct Loaded {
  explicit Loaded(const char* file) : module(file) {}

  int flag() const { return module.function<decltype(VEKHasError)>("VEKHasError")(); }
  TModule* object() const { return module.function<decltype(GetVekModule)>("GetVekModule")(); }

  /// A request of one item.
  double request(const char* finder, double a, double b, const char* list) const {
    double result = -999;
    module.function<decltype(vek)>("vek")(module.function<decltype(vekrpt_)>(finder), &a, &b, list,
                                          &result);
    return result;
  }

  host::Module module;
};

void check_fresh(const Loaded& m) {
  expect(m.object()->instance == m.module.handle(), "the module object tells the module");
  expect(m.flag() == 0, "the error flag is 0 after load");
  // Four characters: the pressure comes from the slot of the last wet state, 0 after load.
  expect(m.request("vekrpt_", 10, 100, "PRES") == 0, "nothing of an earlier load is left");
}

void leave_traces(const Loaded& m) {
  const double ps = m.request("vekrtx_", 100, 0.5, "P ");
  expect(m.request("vekrpt_", 10, 100, "PRES") == ps && ps > 1, "the slot keeps the wet state");
  m.request("vekrpt_", 10, 100, "Q ");
  expect(m.flag() == 2, "an unknown item raises the flag");
}

}  // namespace

int main(int /*argc*/, char** argv) {
  Loaded first(argv[1]);
  check_fresh(first);
  leave_traces(first);

  Loaded second(argv[2]);  // a copy of the file under another name
  check_fresh(second);
  expect(second.object() != first.object(), "each copy has a module object of its own");
  expect(first.flag() == 2, "one copy does not touch the other");

  first.module.close();
  Loaded again(argv[1]);
  check_fresh(again);
  leave_traces(second);
  expect(again.flag() == 0, "the copy loaded again is separate, too");
  return failures;
}
