#include "steam/diagrams/run.hpp"

#include <algorithm>

#include "numbers/logarithm.hpp"

namespace steam::diagrams {
namespace {

FixedList<double, 4> list(std::initializer_list<double> values) {
  FixedList<double, 4> stations;
  for (const double value : values) {
    stations.add(value);
  }
  return stations;
}

/// Over enthalpies, which tell wet states from those of one phase.
Run isobar(double p) {
  const auto h = [p](Pair pair, double second) { return value(pair, p, second, Property::h); };
  const double h_lowest = h(Pair::pt, t_lowest), h_highest = h(Pair::pt, t_highest);
  return {Pair::ph, true, p, false,
          p < p_critical ? list({h_lowest, h(Pair::px, 0), h(Pair::px, 1), h_highest})
                         : list({h_lowest, h_highest})};
}

/// Over volumes. On the h-s diagram wet states of one temperature are on the isobar, and compressed
/// water lies beside the saturated: there the isotherm is that of the steam.
Run isotherm(const DiagramRow& diagram, double t) {
  const double v_dense = value(Pair::pt, p_highest, t, Property::v);
  const double v_thin = value(Pair::pt, p_lowest, t, Property::v);
  if (t >= t_critical) {
    return {Pair::tv, true, t, true, list({v_dense, v_thin})};
  }
  const double v_water = value(Pair::tx, t, 0, Property::v);
  const double v_steam = value(Pair::tx, t, 1, Property::v);
  return {Pair::tv, true, t, true,
          diagram.y.property == Property::h ? list({v_steam, v_thin})
                                            : list({v_dense, v_water, v_steam, v_thin})};
}

Run over_pressures(Pair pair, double held) {
  return {pair, false, held, true, list({p_lowest, p_highest})};
}

Run over_temperatures(Pair pair, double held, double t_last) {
  return {pair, false, held, false, list({t_lowest, t_last})};
}

}  // namespace

std::array<double, 2> Run::at(double way) const {
  const int piece = std::min(static_cast<int>(way), pieces() - 1);
  const double from = stations[static_cast<std::size_t>(piece)];
  const double to = stations[static_cast<std::size_t>(piece) + 1];
  const double share = way - piece;
  const double running = share >= 1    ? to
                         : logarithmic ? from * numbers::exp(share * numbers::log(to / from))
                                       : from + (to - from) * share;
  return holds_first ? std::array{held, running} : std::array{running, held};
}

Run run_of(const DiagramRow& diagram, Property property, double value) {
  switch (property) {
    case Property::p:
      return isobar(value);
    case Property::t:
      return isotherm(diagram, value);
    case Property::v:
      return over_temperatures(Pair::tv, value, t_highest);
    case Property::h:
      return over_pressures(Pair::ph, value);
    case Property::s:
      return over_pressures(Pair::ps, value);
    default:
      return over_temperatures(Pair::tx, value, t_critical);
  }
}

}  // namespace steam::diagrams
