#include <cmath>

#include "steam/locate.hpp"
#include "steam/quantity.hpp"

namespace steam {
namespace {

// At a fixed volume u, h and s rise with the temperature, at a fixed entropy h and u rise with the
// pressure: everywhere, through all regions. So one bracket around one variable finds any state.
// For the other the line of fixed volume or entropy is crossed with an isotherm or an isobar.

/// A point of the line: its state and how much its other quantity is above the wanted one. Without
/// a state, which way the line has left the range.
struct Probe {
  Site site;
  double excess;
};

struct Isochore {
  double v;
  Quantity other;
  double value;
  static constexpr double lowest = t_lowest, highest = t_highest;
  [[nodiscard]] Probe operator()(double t) const {
    const Site site = locate(Pair::tv, t, v);
    if (site) {
      return {site, quantity(site, other) - value};
    }
    // Too large a volume belongs to higher temperatures.
    return {{}, along_isotherm(t, Quantity::v, v).side > 0 ? -HUGE_VAL : HUGE_VAL};
  }
};

/// Over the logarithm of the pressure. Cold isentropes may pass through temperatures below 0.01 °C,
/// where the equation goes on smoothly.
struct Isentrope {
  double s;
  Quantity other;
  double value;
  double lowest = std::log(p_lowest), highest = std::log(p_highest);
  [[nodiscard]] Probe operator()(double log_p) const {
    const double p = std::fmin(std::fmax(std::exp(log_p), p_lowest), p_highest);
    Site site = locate(Pair::ps, p, s);
    int side = 0;
    if (!site) {
      constexpr double t_continued = -12;
      const Solutions continued = along_isobar(p, Quantity::s, s, t_continued);
      side = continued.side;
      site = continued.sites[0];
    }
    if (site) {
      return {site, quantity(site, other) - value};
    }
    return {{}, side > 0 ? HUGE_VAL : -HUGE_VAL};
  }
};

/// The end of the bracket that is nearer to the wanted value.
struct Bracket {
  double low, high;
  Probe at_low, at_high;
};

double next_point(const Bracket& b, int n) {
  const bool finite = std::isfinite(b.at_low.excess) && std::isfinite(b.at_high.excess);
  const double middle = (b.low + b.high) / 2;
  if (!finite || n % 3 == 2) {
    return middle;
  }
  const double share = b.at_low.excess / (b.at_low.excess - b.at_high.excess);
  const double x = b.low + share * (b.high - b.low);
  return x > b.low && x < b.high ? x : middle;
}

template <class Line>
Bracket narrowed(const Line& line) {
  Bracket b{line.lowest, line.highest, line(line.lowest), line(line.highest)};
  constexpr int most_steps = 200;
  for (int n = 0; n < most_steps && b.at_low.excess < 0 && b.at_high.excess > 0; ++n) {
    const double x = next_point(b, n);
    if (x <= b.low || x >= b.high) {
      break;
    }
    const Probe probe = line(x);
    if (probe.excess < 0) {
      b.low = x;
      b.at_low = probe;
    } else {
      b.high = x;
      b.at_high = probe;
    }
  }
  return b;
}

/// By how much the formulation's subregions miss each other, at most.
double mismatch(Quantity q) { return q == Quantity::s ? 1e-3 : 0.5; }

double rounding(Quantity q, double value) {
  constexpr double relative = 4e-12;
  return relative * std::abs(value) + (q == Quantity::s ? 1e-11 : 2e-9);
}

template <class Line>
Site search(const Line& line) {
  const Bracket b = narrowed(line);
  const bool low_is_nearer = std::abs(b.at_low.excess) < std::abs(b.at_high.excess);
  const Probe& nearest = low_is_nearer ? b.at_low : b.at_high;
  Site site = nearest.site;
  if (!site || site.t < t_lowest - 1e-9) {
    return {};
  }
  const double miss = std::abs(nearest.excess);
  if (miss <= rounding(line.other, line.value)) {
    return site;
  }
  // A jump inside the range is a gap between subregions.
  const bool is_gap = b.at_low.site && b.at_high.site && b.at_low.excess < 0 &&
                      b.at_high.excess > 0 && miss < mismatch(line.other);
  site.approximate = true;
  return is_gap ? site : Site{};
}

}  // namespace

Site nested_search(Pair pair, double first, double second) {
  const Known& k = known_of(pair);
  if (k.first == Quantity::v) {
    return search(Isochore{first, k.second, second});
  }
  return search(Isentrope{second, k.first, first});
}

}  // namespace steam
