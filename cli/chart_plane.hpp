#pragma once

#include <array>
#include <string>
#include <vector>

#include "vek/steam.hpp"

namespace command {

/// A place on the sheet, in hundredths of an inch from its lower left corner.
struct Spot {
  double x, y;
};
constexpr Spot operator+(Spot a, Spot b) { return {a.x + b.x, a.y + b.y}; }
constexpr Spot operator-(Spot a, Spot b) { return {a.x - b.x, a.y - b.y}; }
constexpr Spot operator*(double f, Spot a) { return {f * a.x, f * a.y}; }
double length(Spot a);

using Trace = std::vector<Spot>;

constexpr double sheet_width = 1000, sheet_height = 707;  // as A4

/// The part of the sheet on which a diagram is drawn, and the quantities along its edges.
class Plane {
 public:
  explicit Plane(const steam::DiagramInfo& diagram);

  static constexpr Spot lower_left{72, 84}, upper_right{986, 690};

  /// Along an edge.
  struct Axis {
    double lowest, highest;
    bool logarithmic;
    [[nodiscard]] double share(double value) const;
    [[nodiscard]] double value(double share) const;
    /// Goes on to where a value is well inside.
    void extend(double value);
  };
  [[nodiscard]] const Axis& x() const { return x_; }
  [[nodiscard]] const Axis& y() const { return y_; }

  /// Shows more than the diagram usually does, if needed.
  void include(double x, double y);

  [[nodiscard]] Spot spot(double x, double y) const;
  [[nodiscard]] std::array<double, 2> values(Spot spot) const;
  /// Where a share of the width and height is.
  [[nodiscard]] static Spot at(Spot share);
  [[nodiscard]] static bool has(Spot spot);

  /// The parts of a line that are on the plane.
  [[nodiscard]] std::vector<Trace> shown(const steam::Line& line) const;

 private:
  Axis x_, y_;
};

}  // namespace command
