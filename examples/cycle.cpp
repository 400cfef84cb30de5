// The power plant of cycle.sh on the engine.
//   c++ -std=c++17 cycle.cpp $(pkg-config --cflags --libs vek-steam)
#include <cstdio>
#include <stdexcept>
#include <vek/steam.hpp>

namespace {

using steam::Pair;

steam::State state_of(Pair pair, double first, double second) {
  const steam::Result result = steam::state(pair, first, second);
  if (!result) {
    throw std::runtime_error(steam::text(result.refusal()));
  }
  return *result;
}

/// From one state to a pressure without loss.
steam::State isentropic(double p, const steam::State& from) {
  return state_of(Pair::ps, p, from.s);
}

void row(const char* name, double value, const char* unit = "") {
  std::printf("%-28s%16.8f %s\n", name, value, unit);
}

void cycle() {
  const double p_boiler = 80, p_closed = 20, p_reheat = 7, p_open = 3, p_condenser = 0.08;
  const double power = 100000;

  const steam::State live = state_of(Pair::pt, p_boiler, 480);
  const steam::State closed = isentropic(p_closed, live);
  const steam::State cold = isentropic(p_reheat, live);
  const steam::State hot = state_of(Pair::pt, p_reheat, 440);
  const steam::State open = isentropic(p_open, hot);
  const steam::State exhaust = isentropic(p_condenser, hot);
  const steam::State condensate = state_of(Pair::px, p_condenser, 0);
  const steam::State pumped = isentropic(p_open, condensate);
  const steam::State heated = state_of(Pair::px, p_open, 0);
  const steam::State fed = isentropic(p_boiler, heated);
  const steam::State feedwater = state_of(Pair::pt, p_boiler, 205);
  const steam::State drain = state_of(Pair::px, p_closed, 0);

  const double y = (feedwater.h - fed.h) / (closed.h - drain.h);
  const double z = ((1 - y) * pumped.h + y * drain.h - heated.h) / (pumped.h - open.h);
  const double high = live.h - closed.h + (1 - y) * (closed.h - cold.h);
  const double low = (1 - y) * (hot.h - open.h) + (1 - y - z) * (open.h - exhaust.h);
  const double pumps = (1 - y - z) * (pumped.h - condensate.h) + fed.h - heated.h;
  const double heat = live.h - feedwater.h + (1 - y) * (hot.h - cold.h);

  row("live steam enthalpy", live.h, "kJ/kg");
  row("feedwater enthalpy", feedwater.h, "kJ/kg");
  row("exhaust quality", exhaust.x);
  row("share to the closed heater", y);
  row("share to the open heater", z);
  row("work of the first turbine", high, "kJ/kg");
  row("work of the second turbine", low, "kJ/kg");
  row("work of the pumps", pumps, "kJ/kg");
  row("heat of boiler and reheater", heat, "kJ/kg");
  row("thermal efficiency", (high + low - pumps) / heat);
  row("live steam flow", power / (high + low - pumps), "kg/s");
}

}  // namespace

int main() {
  try {
    cycle();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
