#include "steam/diagrams/sampling.hpp"

#include <algorithm>
#include <cmath>

#include "numbers/logarithm.hpp"

namespace steam::diagrams {
namespace {

/// A point of a line: how far it is on the run, in the diagram's quantities, and as shares of its
/// width and height.
struct Point {
  double way = 0;
  double x = 0, y = 0;
  double across = 0, up = 0;
  bool exists = false;
};

double place(const Scale& scale, double value) {
  const auto on_scale = [&](double a) { return scale.logarithmic ? numbers::log(a) : a; };
  const double lowest = on_scale(scale.lowest);
  return (on_scale(value) - lowest) / (on_scale(scale.highest) - lowest);
}

/// Distance of a point from the chord between two others.
double distance(const Point& p, const Point& a, const Point& b) {
  const double dx = b.across - a.across, dy = b.up - a.up;
  const double length2 = dx * dx + dy * dy;
  const double along = (p.across - a.across) * dx + (p.up - a.up) * dy;
  const double share = length2 > 0 ? std::clamp(along / length2, 0., 1.) : 0;
  const double away_x = p.across - a.across - share * dx, away_y = p.up - a.up - share * dy;
  return std::sqrt(away_x * away_x + away_y * away_y);
}

class Sampler {
 public:
  Sampler(const DiagramRow& diagram, const Run& run, double tolerance)
      : diagram_(diagram), run_(run), tolerance_(tolerance) {}

  void fill(Line& line) {
    const Ends ends = find_ends();
    if (ends.first.exists) {
      add(ends.first, line);
      follow(ends, line);
    }
  }

 private:
  static constexpr int first_chords = 8;  // of a piece
  /// Halvings of a chord: enough for every bend, an end to the jump where two subregions do not
  /// quite meet.
  static constexpr int halvings = 24;

  [[nodiscard]] Point at(double way) const {
    const std::array<double, 2> pair = run_.at(way);
    const std::array wanted{diagram_.x.property, diagram_.y.property};
    std::array<double, 2> out{};
    const Reason reason = steam::values(run_.pair, pair[0], pair[1], wanted, out);
    if (reason != Reason::none) {
      return {};
    }
    return {way, out[0], out[1], place(diagram_.x, out[0]), place(diagram_.y, out[1]), true};
  }

  static void add(const Point& p, Line& line) {
    line.x.push_back(p.x);
    line.y.push_back(p.y);
  }

  /// Where the range of the formulation ends the line; the states between are all there.
  struct Ends {
    Point first, last;
  };
  [[nodiscard]] Ends find_ends() const {
    constexpr int places = 64;
    Ends ends;
    for (int i = 0; i <= places; ++i) {
      const Point p = at(static_cast<double>(run_.pieces()) * i / places);
      if (ends.last.exists && !p.exists) {
        break;
      }
      ends.first = ends.first.exists ? ends.first : p;
      ends.last = p;
    }
    const double place = static_cast<double>(run_.pieces()) / places;
    return {end_between(ends.first, std::max(ends.first.way - place, 0.)),
            end_between(ends.last, std::min(ends.last.way + place, 1. * run_.pieces()))};
  }

  /// The last state on the way from one to where there may be none.
  [[nodiscard]] Point end_between(Point state, double beyond) const {
    for (int i = 0; i < 60 && state.exists && state.way != beyond; ++i) {
      const double half = (state.way + beyond) / 2;
      const Point middle = at(half);
      state = middle.exists ? middle : state;
      beyond = middle.exists ? beyond : half;
    }
    return state;
  }

  void follow(const Ends& ends, Line& line) const {
    const int chords = first_chords * run_.pieces();
    const double length = ends.last.way - ends.first.way;
    Point from = ends.first;
    for (int i = 1; i <= chords; ++i) {
      const Point to = i == chords ? ends.last : at(ends.first.way + length * i / chords);
      refine(from, to, halvings, line);
      from = to;
    }
  }

  /// Adds the points after `from` up to `to`.
  void refine(const Point& from, const Point& to, int more, Line& line) const {
    const Point middle = at((from.way + to.way) / 2);
    if (more > 0 && middle.exists && strays(from, to, middle)) {
      refine(from, middle, more - 1, line);
      refine(middle, to, more - 1, line);
    } else if (to.exists) {
      add(to, line);
    }
  }

  /// Whether a line leaves its chord. It may cross it in the middle, and behind a corner bend back,
  /// so that several points are looked at, with half of the tolerance for what is between them.
  [[nodiscard]] bool strays(const Point& from, const Point& to, const Point& middle) const {
    const auto is_off = [&](const Point& p) {
      return p.exists && distance(p, from, to) > tolerance_ / 2;
    };
    bool off = is_off(middle);
    for (int eighth = 1; eighth < 8 && !off; ++eighth) {
      off = is_off(at(from.way + (to.way - from.way) * eighth / 8));
    }
    return off;
  }

  const DiagramRow& diagram_;
  Run run_;
  double tolerance_;
};

}  // namespace

Line sampled(const DiagramRow& diagram, Property property, double value, double tolerance) {
  Line line{property, value, {}, {}};
  Sampler(diagram, run_of(diagram, property, value), tolerance).fill(line);
  return line;
}

}  // namespace steam::diagrams
