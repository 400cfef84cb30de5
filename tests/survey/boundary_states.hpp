#pragma once

#include <functional>
#include <random>
#include <vector>

#include "steam/answers.hpp"
#include "vek/steam.hpp"

/// States on the boundaries between regions and at the ends of the range, and beside them by one
/// unit in the last place, 1e-12, 1e-9 and 1e-6.
namespace boundary_states {

/// A state by the pair that it is computed from: (p,t), (p,x) or (t,x).
struct Origin {
  steam::Pair pair;
  double first, second;
};

struct Boundary {
  const char* name;
  bool is_wet;
  std::function<Origin(std::mt19937_64& random)> beside;
};
const std::vector<Boundary>& boundaries();

/// A state's pair given to the engine in every way; `lost` and `approximate` count here too.
answers::Answer asked_back(steam::Pair pair, const steam::State& original);

/// Columns of a pair's values: so many states of each boundary, and values that none has.
struct Rows {
  std::vector<double> first, second;
};
Rows rows(steam::Pair pair, int count);

/// Whether states of that boundary have the pair.
bool applies(steam::Pair pair, const Boundary& boundary);

}  // namespace boundary_states
