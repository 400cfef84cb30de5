#pragma once

#include <string>
#include <vector>

#include "vek/steam.hpp"

/// The work that the engine is measured by.
namespace work {

/// A kind of request: a pair and what is wanted.
struct Task {
  const char* name;
  steam::Pair pair;
  std::vector<steam::Property> wanted;
};
const std::vector<Task>& tasks();

/// Pairs of values of random states of a region, always the same ones.
struct Rows {
  std::vector<double> first, second;
};
Rows rows(const Task& task, steam::Region region, std::size_t count);

/// Whether the region can be asked for in this way.
bool applies(const Task& task, steam::Region region);

/// Letters of the region for names of measurements.
const char* name(steam::Region region);

}  // namespace work
