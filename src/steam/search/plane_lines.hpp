#pragma once

#include "numbers/logarithm.hpp"
#include "steam/search/line_search.hpp"
#include "steam/search/quantity.hpp"

namespace steam {

// Lines of one volume, entropy or enthalpy, for pairs that give neither pressure nor temperature.
// In a piece the coordinate and the line's own value leave one variable of the equation open; it is
// searched for at each point.

/// The states of one volume. The coordinate is t.
class Isochore {
 public:
  explicit Isochore(double v) : value_(v) {}
  static constexpr Quantity own = Quantity::v;
  [[nodiscard]] double value() const { return value_; }
  [[nodiscard]] LinePoint at(const Piece& piece, double c, Quantity q);
  static double coordinate(const Site& site) { return site.t; }
  static double slack(Quantity q, double value) { return 5 * steam::slack(q, value); }
  /// Where a line ends, its own value's rounding moves the end along the limit: in cold water by
  /// far more than the other value's rounding.
  static double end_slack(Quantity q, double value) { return 250 * steam::slack(q, value); }

 private:
  double value_;
  double p_start_ = missing;
};

/// The states of one entropy or enthalpy. The coordinate is ln p, in subregion 3 v, in wet states
/// t.
template <Quantity Own>
class CaloricLine {
 public:
  explicit CaloricLine(double value) : value_(value) {}
  static constexpr Quantity own = Own;
  [[nodiscard]] double value() const { return value_; }
  [[nodiscard]] LinePoint at(const Piece& piece, double c, Quantity q);
  static double coordinate(const Site& site) {
    return is_wet(site.region) ? site.t : is_3(site.region) ? site.v : numbers::log(site.p);
  }
  static double slack(Quantity q, double value);
  static double end_slack(Quantity q, double value);

 private:
  double value_;
  double t_start_ = missing;
};
using Isentrope = CaloricLine<Quantity::s>;
using Isenthalp = CaloricLine<Quantity::h>;

template <>
inline double Isentrope::slack(Quantity q, double value) {
  return 5 * steam::slack(q, value);
}
/// Where a line ends, its own value's rounding moves the end along the limit: in cold water by
/// far more than the other value's rounding.
template <>
inline double Isentrope::end_slack(Quantity q, double value) {
  return 250 * steam::slack(q, value);
}
/// Along an isenthalp of thin steam the energy hardly changes: only its rounding counts.
template <>
inline double Isenthalp::slack(Quantity q, double value) {
  return 70 * steam::rounding(q, value);
}
template <>
inline double Isenthalp::end_slack(Quantity q, double value) {
  return 100 * steam::rounding(q, value);
}
extern template class CaloricLine<Quantity::s>;
extern template class CaloricLine<Quantity::h>;

/// The pieces of such a line: it is crossed with the borders of every subregion.
template <class Line>
Pieces pieces_of(Line& line);
extern template Pieces pieces_of(Isochore&);
extern template Pieces pieces_of(Isentrope&);
extern template Pieces pieces_of(Isenthalp&);

}  // namespace steam
