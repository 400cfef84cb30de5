#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "answers.hpp"

/// Input: a byte for the pair and two doubles.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double values[2];
  if (size < 1 + sizeof values) {
    return 0;
  }
  std::memcpy(values, data + 1, sizeof values);
  const auto pair = static_cast<steam::Pair>(data[0] % steam::pair_count);
  const std::string fault = answers::fault_of_any(pair, values[0], values[1]);
  if (!fault.empty()) {
    std::fprintf(stderr, "%s\n", fault.c_str());
    std::abort();
  }
  return 0;
}
