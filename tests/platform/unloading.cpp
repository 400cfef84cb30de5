// Closes the engine's library while a pool's threads wait in it, and goes on with both.

#include <cstdio>
#include <vector>

#include "module.hpp"
#include "vek/steam.h"

namespace {

bool fills(const host::Module& library, vek_steam_pool* pool) {
  const std::vector<double> p(5000, 10), h(5000, 1000);
  std::vector<double> t(5000);
  const int wanted = VEK_STEAM_T;
  const vek_steam_output output{t.data(), sizeof(double)};
  vek_steam_options options{};
  options.pool = pool;
  library.function<decltype(vek_steam_evaluate)>("vek_steam_evaluate")(
      VEK_STEAM_PH, p.size(), {p.data(), 8}, {h.data(), 8}, 1, &wanted, &output, nullptr, &options,
      sizeof options, nullptr);
  return t.front() > 179 && t.back() == t.front();
}

}  // namespace

int main(int /*argc*/, char** argv) {
  host::Module first(argv[1]);
  auto* const pool = first.function<decltype(vek_steam_pool_create)>("vek_steam_pool_create")(4);
  if (!fills(first, pool)) {
    return 1;
  }
  first.close();
  const host::Module library(argv[1]);
  if (!fills(library, pool)) {
    std::puts("the pool does not outlive the library's closing");
    return 1;
  }
  library.function<decltype(vek_steam_pool_destroy)>("vek_steam_pool_destroy")(pool);
  return 0;
}
