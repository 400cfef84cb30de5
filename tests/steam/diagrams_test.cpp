#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "answers.hpp"

// The lines of the diagrams hold what they say: states of one value, all of them, closed at the
// critical point.

namespace {

using steam::Diagram;
using steam::Line;
using steam::Pair;
using steam::Property;
using steam::State;

constexpr double tolerance = 1e-4;
constexpr std::array diagrams{Diagram::hs, Diagram::ts, Diagram::ph, Diagram::pv};

Pair pair_of(Diagram diagram) {
  constexpr std::array pairs{Pair::hs, Pair::ts, Pair::ph, Pair::pv};
  return pairs[static_cast<std::size_t>(diagram)];
}

double share(double value, double lowest, double highest, bool logarithmic) {
  return logarithmic ? std::log(value / lowest) / std::log(highest / lowest)
                     : (value - lowest) / (highest - lowest);
}

std::array<double, 2> place(const steam::DiagramInfo& d, double x, double y) {
  return {share(x, d.x_lowest, d.x_highest, d.x_logarithmic),
          share(y, d.y_lowest, d.y_highest, d.y_logarithmic)};
}

double distance(const std::array<double, 2>& p, const std::array<double, 2>& a,
                const std::array<double, 2>& b) {
  const double dx = b[0] - a[0], dy = b[1] - a[1], length2 = dx * dx + dy * dy;
  const double along = ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / length2;
  const double s = length2 > 0 ? std::clamp(along, 0., 1.) : 0;
  return std::hypot(p[0] - a[0] - s * dx, p[1] - a[1] - s * dy);
}

/// Distance of a point from a line, as a share of the diagram.
double distance(const steam::DiagramInfo& d, const Line& line, double x, double y) {
  double least = 1;
  for (std::size_t i = 1; i < line.x.size(); ++i) {
    least = std::min(least, distance(place(d, x, y), place(d, line.x[i - 1], line.y[i - 1]),
                                     place(d, line.x[i], line.y[i])));
  }
  return least;
}

class Draw {
 public:
  double between(double low, double high) {
    return std::uniform_real_distribution(low, high)(random_);
  }
  double pressure() { return 0.006112444 * std::pow(1000 / 0.006112444, between(0, 1)); }

  /// Some state on a line, or none.
  steam::Result state_on(const Line& line, bool wet_too) {
    const double t_saturated = between(0.01, 374.15), part = between(0, 1);
    const bool wet = wet_too && between(0, 1) < 0.3;
    switch (line.property) {
      case Property::p:
        return wet && line.value < 221.2 ? state(Pair::px, line.value, part)
                                         : state(Pair::pt, line.value, between(0.01, 800));
      case Property::t:
        return wet && line.value < 374.15 ? state(Pair::tx, line.value, part)
                                          : state(Pair::pt, pressure(), line.value);
      case Property::v:
        return state(Pair::pv, pressure(), line.value);
      case Property::h:
        return state(Pair::ph, pressure(), line.value);
      case Property::s:
        return state(Pair::ps, pressure(), line.value);
      default:
        return state(Pair::tx, t_saturated, line.value);
    }
  }

 private:
  std::mt19937 random_{20};
};

/// States that the h-s diagram shows as an isobar or not at all.
bool is_left_out(Diagram diagram, const Line& line, const State& state) {
  return diagram == Diagram::hs && line.property == Property::t && state.t < 374.15 &&
         state.region != steam::Region::steam && state.region != steam::Region::dense_steam;
}

TEST(Diagrams, LinesHaveAllStatesOfTheirValue) {
  Draw draw;
  for (const Diagram diagram : diagrams) {
    const steam::DiagramInfo d = info(diagram);
    for (const Line& line : lines(diagram, tolerance)) {
      ASSERT_GE(line.x.size(), 2U) << d.letters << ' ' << info(line.property).letter << line.value;
      int drawn = 0;
      for (int i = 0; i < 400; ++i) {
        const steam::Result r = draw.state_on(line, diagram != Diagram::hs);
        if (!r || is_left_out(diagram, line, *r)) {
          continue;
        }
        ++drawn;
        ASSERT_LE(distance(d, line, answers::property(*r, d.x), answers::property(*r, d.y)),
                  tolerance)
            << d.letters << ' ' << info(line.property).letter << line.value << " at " << r->p
            << " bar, " << r->t << " °C";
      }
      EXPECT_GT(drawn, 15) << d.letters << ' ' << info(line.property).letter << line.value;
    }
  }
}

TEST(Diagrams, PointsHaveTheValueOfTheirLine) {
  constexpr double rounding = 5e-4;  // of volumes of cold wet steam, which h and s hardly tell
  std::mt19937 random(3);
  for (const Diagram diagram : diagrams) {
    for (const Line& line : lines(diagram, tolerance)) {
      const bool saturated = line.property == Property::x && (line.value == 0 || line.value == 1);
      for (int k = 0; k < 20 && !saturated; ++k) {
        const std::size_t i = 1 + random() % (line.x.size() - 2);
        double least = 1;
        for (const State& s : states(pair_of(diagram), line.y[i], line.x[i])) {
          least = std::min(least, std::abs(answers::property(s, line.property) / line.value - 1));
        }
        EXPECT_LE(least, rounding) << info(diagram).letters << ' ' << info(line.property).letter
                                   << line.value << " at " << line.x[i] << ' ' << line.y[i];
      }
    }
  }
}

TEST(Diagrams, DomeClosesAtTheCriticalPoint) {
  const State critical = *steam::state(Pair::tx, 374.15, 0);
  for (const Diagram diagram : diagrams) {
    const steam::DiagramInfo d = info(diagram);
    int qualities = 0;
    for (const Line& line : lines(diagram)) {
      if (line.property != Property::x) {
        continue;
      }
      ++qualities;
      const State first = *steam::state(Pair::tx, 0.01, line.value);
      EXPECT_EQ(line.x.front(), answers::property(first, d.x)) << d.letters << line.value;
      EXPECT_EQ(line.y.front(), answers::property(first, d.y)) << d.letters << line.value;
      EXPECT_EQ(line.x.back(), answers::property(critical, d.x)) << d.letters << line.value;
      EXPECT_EQ(line.y.back(), answers::property(critical, d.y)) << d.letters << line.value;
    }
    EXPECT_GE(qualities, 10) << d.letters;
  }
}

TEST(Diagrams, LinesOfAnyValuesEndWhereTheFormulationDoes) {
  const std::array volumes{0.0009, 0.00098, 500.0, 900.0};
  const std::vector<Line> lines = steam::lines(Diagram::ph, Property::v, volumes);
  EXPECT_TRUE(lines[0].x.empty() && lines[3].x.empty());
  EXPECT_EQ(lines[1].y.front(), steam::value(Pair::tv, 0.01, volumes[1], Property::p));
  EXPECT_NEAR(lines[1].y.back(), 1000, 1e-6);
  EXPECT_NEAR(lines[2].y.front(), 0.006112444, 1e-12);
  EXPECT_EQ(lines[2].y.back(), steam::value(Pair::tv, 800, volumes[2], Property::p));
  EXPECT_THROW(steam::lines(Diagram::ph, Property::cp, volumes), std::invalid_argument);
}

TEST(Diagrams, MisuseIsACode) {
  vek_steam_lines* lines = nullptr;
  vek_steam_line line;
  vek_steam_diagram_info of;
  EXPECT_EQ(vek_steam_diagram_info_of(4, &of, sizeof of), VEK_STEAM_NO_SUCH_DIAGRAM);
  EXPECT_EQ(vek_steam_diagram_info_of(0, &of, sizeof of - 1), VEK_STEAM_SHORT);
  EXPECT_EQ(vek_steam_lines_create(-1, 1e-4, &lines), VEK_STEAM_NO_SUCH_DIAGRAM);
  EXPECT_EQ(vek_steam_lines_create(0, 1e-4, nullptr), VEK_STEAM_NULL);
  for (const double wrong : {0., 1e-7, 1., std::nan("")}) {
    EXPECT_EQ(vek_steam_lines_create(0, wrong, &lines), VEK_STEAM_TOLERANCE) << wrong;
  }
  EXPECT_EQ(lines, nullptr);
  ASSERT_EQ(vek_steam_lines_create(0, 1e-2, &lines), VEK_STEAM_OK);
  EXPECT_EQ(vek_steam_lines_line(lines, vek_steam_lines_count(lines), &line, sizeof line),
            VEK_STEAM_NO_SUCH_LINE);
  EXPECT_EQ(vek_steam_lines_line(lines, 0, &line, sizeof line - 1), VEK_STEAM_SHORT);
  EXPECT_EQ(vek_steam_lines_line(nullptr, 0, &line, sizeof line), VEK_STEAM_NULL);
  EXPECT_EQ(vek_steam_lines_count(nullptr), 0U);
  vek_steam_lines_destroy(lines);
  vek_steam_lines_destroy(nullptr);
  EXPECT_THROW(steam::lines(Diagram::hs, 0), std::invalid_argument);
}

}  // namespace
