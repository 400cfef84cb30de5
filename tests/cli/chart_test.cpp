#include "chart.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "failure.hpp"

// What a reader of a chart relies on: nothing runs through a label, labels are on their lines, and
// points and processes are where they belong.

namespace {

using namespace command;
using steam::Diagram;
using steam::Property;

constexpr std::array diagrams{Diagram::hs, Diagram::ts, Diagram::ph, Diagram::pv};

/// A cycle with irreversible steps, in the file that it is read from.
std::vector<Mark> cycle() {
  const std::string path = testing::TempDir() + "cycle.csv";
  std::ofstream(path)
      << "# a comment\r\npoint,t,\"P\",s,x\r\ncold,,0.05,,0\r\nfed,35,180,,\n"
         "\"live, steam\",540,18MPa,,\nout,,40,6.45,\nhot,540,40,,\nend,,0.05,,0.9\n"
         "cold,,0.05,,0\n";
  return read_process(path);
}

Chart chart(Diagram diagram) {
  return chart_of(diagram, cycle(), {parse_mark("ph:100,3000"), parse_mark("tp:212F,2bar=water")});
}

TEST(Chart, NothingRunsThroughLabels) {
  for (const Diagram diagram : diagrams) {
    const Chart c = chart(diagram);
    for (std::size_t i = 0; i < c.labels.size(); ++i) {
      Box box = c.labels[i].box;
      SCOPED_TRACE(c.labels[i].text);
      for (std::size_t k = 0; k < i; ++k) {
        EXPECT_FALSE(overlap(box, c.labels[k].box)) << c.labels[k].text;
      }
      box.half = 0.99 * box.half;
      for (const Spot corner : box.corners()) {
        EXPECT_TRUE(Plane::has(corner));
      }
      std::vector<Trace> drawn = c.process;
      drawn.insert(drawn.end(), c.straight.begin(), c.straight.end());
      for (const Stroke& stroke : c.strokes) {
        drawn.insert(drawn.end(), stroke.parts.begin(), stroke.parts.end());
      }
      EXPECT_TRUE(std::none_of(drawn.begin(), drawn.end(),
                               [&](const Trace& trace) { return crosses(trace, box); }));
    }
  }
}

/// The property's value at a place of a chart, of the state that is nearest to the expected one;
/// just inside where the place is on the limit of the range.
double nearest_value(Diagram diagram, const Plane& plane, Spot spot, Property property,
                     double expected) {
  constexpr std::array pairs{steam::Pair::hs, steam::Pair::ts, steam::Pair::ph, steam::Pair::pv};
  const std::size_t pair = static_cast<std::size_t>(diagram);
  std::array<double, 2> at = plane.values(spot);
  if (states(pairs[pair], at[1], at[0]).empty()) {
    at = plane.values(spot + Spot{0.5, -0.5});
  }
  double nearest = steam::missing;
  for (const steam::State& s : states(pairs[pair], at[1], at[0])) {
    const double value =
        std::array{s.p, s.t, s.v, s.h, s.s, s.u, s.x}[static_cast<std::size_t>(property)];
    nearest = std::abs(nearest - expected) < std::abs(value - expected) ? nearest : value;
  }
  return nearest;
}

TEST(Chart, LinesHaveLabelsWithTheirValue) {
  for (const Diagram diagram : diagrams) {
    const Chart c = chart_of(diagram, {}, {});
    std::size_t lines = 0;
    for (const Stroke& stroke : c.strokes) {
      lines += !stroke.text.empty() && !stroke.parts.empty();
    }
    EXPECT_GE(c.labels.size(), lines * 4 / 5) << steam::info(diagram).letters;
    for (const Label& label : c.labels) {
      const auto stroke = std::find_if(c.strokes.begin(), c.strokes.end(), [&](const Stroke& s) {
        return s.text == label.text && s.style->colour == label.colour;
      });
      const double expected = std::stod(label.text);
      EXPECT_NEAR(
          nearest_value(diagram, c.plane, label.box.centre, stroke->style->property, expected),
          expected, 0.03 * expected)
          << steam::info(diagram).letters << ' ' << stroke->style->name;
    }
  }
}

TEST(Chart, PointsAndProcessesAreWhereTheyBelong) {
  const Chart c = chart(Diagram::hs);
  ASSERT_EQ(c.points.size(), 9U);
  const steam::State live = *steam::state(steam::Pair::pt, 180, 540);
  const std::array<double, 2> at = c.plane.values(c.points[2]);
  EXPECT_NEAR(at[0], live.s, 1e-9);
  EXPECT_NEAR(at[1], live.h, 1e-6);
  EXPECT_TRUE(std::all_of(c.points.begin(), c.points.end(), Plane::has));
  EXPECT_EQ(c.straight.size(), 3U);  // pump and both turbines
  ASSERT_EQ(c.process.size(), 3U);   // boiler, reheater, condenser
  const Trace& boiler = c.process[0];
  for (const Spot spot : boiler) {
    EXPECT_NEAR(nearest_value(Diagram::hs, c.plane, spot, Property::p, 180), 180, 0.3);
  }
  EXPECT_GT(boiler.size(), 20U);
}

TEST(Chart, FilesOfProcessesAreExplained) {
  const std::string path = testing::TempDir() + "wrong.csv";
  for (const auto& [text, line] :
       {std::pair{"p,y\n", ":1: 'y' is neither a property nor 'point'"},
        {"p,t\n10,100\n10\n", ":3: a state needs two properties that make a pair"},
        {"h,t,v\n1,,2\n", ":2: no state of the formulation has both values"},
        {"p,t\n10,1000\n", ":2: temperature 1000 is outside 0.01 to 800 °C"}}) {
    std::ofstream(path) << text;
    try {
      read_process(path);
      FAIL() << text;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.what(), path + line);
    }
  }
}

}  // namespace
