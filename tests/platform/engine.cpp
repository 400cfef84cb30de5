// engine OUTPUT: prints what the engine answers to every pair of every state, in hexadecimal
// floating point; a batch of the same must have the same bits.

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "hexadecimal.hpp"
#include "states.hpp"
#include "vek/steam.hpp"

namespace {

std::vector<steam::Property> all_properties() {
  std::vector<steam::Property> all;
  for (int i = 0; i < vek_steam_property_count(); ++i) {
    all.push_back(static_cast<steam::Property>(i));
  }
  return all;
}

/// The states that have both quantities of a pair.
struct Inputs {
  explicit Inputs(steam::Pair pair) {
    const char* known = steam::info(pair).letters;
    for (const host::State& state : host::states) {
      const double a = state[host::letters.find(known[0])];
      const double b = state[host::letters.find(known[1])];
      if (!std::isnan(a) && !std::isnan(b)) {
        first.push_back(a);
        second.push_back(b);
      }
    }
  }
  std::vector<double> first, second;
};

/// Whether the batch has the bits of the single states.
bool print(steam::Pair pair, const std::vector<steam::Property>& properties) {
  const Inputs inputs(pair);
  std::vector<std::vector<double>> batch(properties.size(), inputs.first);
  const std::vector<steam::Column<double>> columns(batch.begin(), batch.end());
  steam::evaluate(pair, inputs.first, inputs.second, properties, columns);
  bool same = true;
  std::vector<double> values(properties.size());
  for (std::size_t row = 0; row < inputs.first.size(); ++row) {
    const steam::Reason reason =
        steam::values(pair, inputs.first[row], inputs.second[row], properties, values);
    std::printf("%s %zu %d", steam::info(pair).letters, row, static_cast<int>(reason));
    for (std::size_t i = 0; i < properties.size(); ++i) {
      const std::string value = host::hexadecimal(values[i]);
      std::printf(" %s", value.c_str());
      same = same && value == host::hexadecimal(batch[i][row]);
    }
    std::printf("\n");
  }
  return same;
}

}  // namespace

int main(int /*argc*/, char** argv) {
  if (std::freopen(argv[1], "wb", stdout) == nullptr) {
    return 2;
  }
  const std::vector<steam::Property> properties = all_properties();
  bool same = true;
  for (int pair = 0; pair < vek_steam_pair_count(); ++pair) {
    same = print(static_cast<steam::Pair>(pair), properties) && same;
  }
  return same ? 0 : 1;
}
