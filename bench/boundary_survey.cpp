#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

#include "round_trips.hpp"
#include "survey/boundary_states.hpp"

// States on every boundary and beside it, each pair of their properties asked back: a table of the
// faults, and on the error stream the first states of each fault in hexadecimal.
//   boundary_survey [states of each pair] [pair]

namespace {

using namespace boundary_states;
using steam::Pair;

struct Row {
  long states = 0;
  std::array<long, answers::fault_count> faults{};
  double deviation = 0;
};

constexpr int shown = 3;  // of each fault, boundary and pair
std::map<std::string, int> offenders;

void show(Pair pair, const Boundary& boundary, const Origin& origin, const steam::State& original,
          const answers::Answer& answer) {
  for (std::size_t f = 0; f < answer.faults.size(); ++f) {
    const std::string kind =
        std::string(round_trips::name(pair)) + boundary.name + answers::fault_names[f];
    if (answer.faults[f] && offenders[kind]++ < shown) {
      const auto [first, second] = round_trips::given(pair, original);
      std::fprintf(stderr, "%s: %s; beside %s, from %s(%a, %a) = (%.9g, %.9g), region %d\n",
                   answers::fault_names[f], answer.described(pair, first, second).c_str(),
                   boundary.name, round_trips::name(origin.pair), origin.first, origin.second,
                   origin.first, origin.second, static_cast<int>(original.region));
    }
  }
}

void survey(Pair pair, const Boundary& boundary, long count, Row& row) {
  std::mt19937_64 random(1967);
  for (long n = 0; n < count;) {
    const Origin origin = boundary.beside(random);
    const steam::Result original = steam::state(origin.pair, origin.first, origin.second);
    if (!original) {
      continue;  // beyond the range
    }
    ++n;
    const answers::Answer answer = asked_back(pair, *original);
    show(pair, boundary, origin, *original, answer);
    for (std::size_t f = 0; f < row.faults.size(); ++f) {
      row.faults[f] += answer.faults[f] ? 1 : 0;
    }
    row.deviation = std::fmax(row.deviation, answer.deviation);
  }
  row.states += count;
}

Row survey(Pair pair, long count) {
  long parts = 0;
  for (const Boundary& b : boundaries()) {
    parts += applies(pair, b) ? 1 : 0;
  }
  Row row;
  for (const Boundary& b : boundaries()) {
    if (applies(pair, b)) {
      survey(pair, b, count / parts + 1, row);
    }
  }
  return row;
}

void print(Pair pair, const Row& row) {
  std::printf("| %s | %ld |", round_trips::name(pair), row.states);
  for (const long faults : row.faults) {
    std::printf(" %ld |", faults);
  }
  std::printf(" %.1e |\n", row.deviation);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const long count = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 1'000'000;
  std::map<Pair, Row> rows;
  for (std::size_t i = 0; i < steam::pair_count; ++i) {
    const auto pair = static_cast<Pair>(i);
    if (argc < 3 || std::strcmp(argv[2], round_trips::name(pair)) == 0) {
      rows[pair] = survey(pair, count);
    }
  }
  std::printf(
      "\n# Accuracy of the engine\n\n"
      "States of every region, on every boundary and at the ends of the range, and one unit in the "
      "last place, 1e-12, 1e-9 and 1e-6 beside, forwards and every pair of their properties back. "
      "**ways**: `state`, `states` and `values` differ. **given**: a given value comes back with "
      "other bits. **misses**: a state has the pair to more than rounding only. **lost**: the "
      "state "
      "is not among those found; **approximate**: the answer is near it. **deviation**: largest of "
      "the states from the equations, as a share of size (of at least 40 kJ/kg, 0.1 kJ/(kg K), "
      "1 °C).\n\n| pair | states |");
  for (const char* name : answers::fault_names) {
    std::printf(" %s |", name);
  }
  std::printf(" deviation |\n|---|---|---|---|---|---|---|---|---|---|---|\n");
  for (const auto& [pair, row] : rows) {
    print(pair, row);
  }
  return offenders.empty() ? 0 : 1;
}
