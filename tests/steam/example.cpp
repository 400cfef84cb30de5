#include <cstdio>
#include <vector>

#include "vek/steam.hpp"

int main() {  // NOLINT(bugprone-exception-escape)
  using steam::Pair;
  using steam::Property;

  const steam::Result result = steam::state(Pair::ph, 100, 2500);  // bar, kJ/kg
  if (!result) {
    std::printf("%s\n", steam::text(result.refusal()).c_str());
    return 1;
  }
  std::printf("%s at %.4f °C, x = %.6f\n", result->phase(), result->t, result->x);

  const steam::Result too_much = steam::state(Pair::pt, 2000, 500);
  std::printf("%s\n", steam::text(too_much.refusal()).c_str());

  // Water has its density maximum near 4.7 °C: two states with one pressure and volume.
  for (const steam::State& s : steam::states(Pair::pv, 1, 0.0010001)) {
    std::printf("%.4f °C\n", s.t);
  }

  const std::vector<double> p{10, 50, 100}, h{3000, 3000, 3000};
  std::vector<double> t(3), s(3);
  std::vector<steam::Reason> status(3);
  steam::evaluate(Pair::ph, p, h, {Property::t, Property::s}, {t, s}, status);
  for (std::size_t i = 0; i < p.size(); ++i) {
    std::printf("%5.0f bar: %.4f °C, %.6f kJ/(kg K)\n", p[i], t[i], s[i]);
  }
}
