#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "survey.hpp"
#include "vek/steam.hpp"

// Where the finders of the classic module that fail in large parts of the range do so: lines of a
// finder, entropy and width, temperature and height of a cell, for docs/pictures.

namespace {

constexpr std::array shown{"th", "tu", "us", "sx", "vu", "vx"};
constexpr double s_step = 0.06, t_step = 6;

survey::State state_of(const steam::State& s) {
  return {static_cast<int>(s.region), s.p, s.t, s.v, s.h, s.s, s.u, s.x};
}

/// Coarser than the finders' tolerance by far: a state that nobody would take for the one meant.
bool finds(const survey::Finder& finder, const survey::State& state) {
  constexpr double about_right = 1e-3;
  const survey::Answer answer = survey::ask(finder, state);
  return answer.region == state.region && survey::error_of(state, answer) < about_right;
}

bool is_shown(std::string_view name) {
  return std::find(shown.begin(), shown.end(), name) != shown.end();
}

void write_failures(const survey::Finder& finder) {
  const bool wet_only = finder.name.find('x') != std::string::npos;
  for (double t = t_step / 2; t < 800; t += t_step) {
    for (double s = s_step / 2; s < 10; s += s_step) {
      const steam::Result result = steam::state(steam::Pair::ts, t, s);
      const bool applies = result && (!wet_only || result->region >= steam::Region::wet_above_350);
      if (applies && !finds(finder, state_of(*result))) {
        std::printf("%s %.3f %.3f %.3f %.3f\n", finder.name.c_str(), s, s_step, t, t_step);
      }
    }
  }
}

}  // namespace

int main() {
  for (const survey::Finder& finder : survey::finders()) {
    if (is_shown(finder.name)) {
      write_failures(finder);
    }
  }
}
