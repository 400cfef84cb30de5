#pragma once

#include "steam/search/line_search.hpp"
#include "steam/search/quantity.hpp"

namespace steam {

/// Region of a state of subregion 3, which lies in a piece of that region.
Region region_of_dense(Region piece, double p, double v, double t);

/// The states of one pressure. The coordinate is t, in subregion 3 v, in wet states x.
class Isobar {
 public:
  explicit Isobar(double p) : p_(p) {}
  [[nodiscard]] Pieces pieces() const;
  [[nodiscard]] LinePoint at(const Piece& piece, double c, Quantity q);
  [[nodiscard]] double coordinate(const Site& site) const;
  static double slack(Quantity q, double value) { return steam::slack(q, value); }
  static double end_slack(Quantity q, double value) { return steam::slack(q, value); }

 private:
  double p_;
  double t_start_ = missing;  // of the last search for the temperature of a volume
};

/// The states of one temperature. The coordinate is p, in subregion 3 v, in wet states x.
class IsothermLine {
 public:
  explicit IsothermLine(double t) : t_(t) {}
  [[nodiscard]] Pieces pieces() const;
  [[nodiscard]] LinePoint at(const Piece& piece, double c, Quantity q) const;
  [[nodiscard]] double coordinate(const Site& site) const;
  static double slack(Quantity q, double value) { return steam::slack(q, value); }
  static double end_slack(Quantity q, double value) { return steam::slack(q, value); }

 private:
  double t_;
};

/// The boundary line between subregions 2 and 3, seen from either side. The coordinate is t.
class BoundaryLine {
 public:
  [[nodiscard]] LinePoint at(const Piece& piece, double c, Quantity q) const;
  static double coordinate(const Site& site) { return site.t; }
  static double slack(Quantity q, double value) { return steam::slack(q, value); }
  static double end_slack(Quantity q, double value) { return steam::slack(q, value); }
};

/// Temperature in subregion 3 of a volume and a pressure or an entropy, which rises with it
/// everywhere.
double dense_temperature(Quantity q, double value, double v, double start);

/// State of a pressure and a temperature, both in range.
Site at_pressure_temperature(double p, double t);

}  // namespace steam
