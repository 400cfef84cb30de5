#pragma once

#include <array>
#include <span>

#include "steam/equations/domain.hpp"
#include "vek/steam.hpp"

namespace steam::diagrams {

/// A quantity along an edge of a diagram, from edge to edge.
struct Scale {
  Property property;
  double lowest, highest;
  bool logarithmic;
};

/// Values of a property, each of which has a line of its own.
struct Family {
  Property property;
  std::span<const double> values;
};

/// What a diagram shows: the name has the quantity upwards first.
struct DiagramRow {
  const char* letters;
  Scale x, y;
  std::span<const Family> families;  ///< in the order in which they are drawn
};

namespace printed {
constexpr std::array isobars{0.01, 0.02, 0.03, 0.05, 0.1,   0.2,   0.3,   0.5,   1.0,
                             2.0,  3.0,  5.0,  10.0, 20.0,  30.0,  50.0,  100.0, 150.0,
                             200., 250., 300., 400., 500.0, 600.0, 800.0, 1000.0};
constexpr std::array isotherms{50.0,  100.0, 150.0, 200.0, 250.0, 300.0, 350.0, 400.0,
                               450.0, 500.0, 550.0, 600.0, 650.0, 700.0, 750.0, 800.0};
constexpr std::array isochores{0.0015, 0.002, 0.003, 0.005, 0.01, 0.02, 0.05, 0.1,  0.2,
                               0.5,    1.0,   2.0,   5.0,   10.0, 20.0, 50.0, 100.0};
constexpr std::array isenthalps{400.0,  800.0,  1200.0, 1600.0, 2000.0, 2400.0, 2600.0,
                                2800.0, 3000.0, 3200.0, 3400.0, 3600.0, 3800.0, 4000.0};
constexpr std::array isentropes{0.5, 1.0, 1.5, 2.0, 2.5, 3.0, 3.5, 4.0, 4.5,  5.0,  5.5,
                                6.0, 6.5, 7.0, 7.5, 8.0, 8.5, 9.0, 9.5, 10.0, 10.5, 11.0};
constexpr std::array tenths{0.0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1.0};
constexpr std::array twentieths{0.0, 0.1,  0.2, 0.3,  0.4, 0.5,  0.6, 0.65,
                                0.7, 0.75, 0.8, 0.85, 0.9, 0.95, 1.0};
// Against the logarithm of the volume steam is crowded, and small qualities are far apart.
constexpr std::array few_isotherms{50.0,  100.0, 150.0, 200.0, 250.0, 300.0,
                                   350.0, 400.0, 500.0, 600.0, 800.0};
constexpr std::array few_isentropes{0.5, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0, 10.0};
constexpr std::array small_qualities{0.0, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1.0};
}  // namespace printed

constexpr std::array of_hs{
    Family{Property::v, printed::isochores}, Family{Property::t, printed::isotherms},
    Family{Property::p, printed::isobars}, Family{Property::x, printed::twentieths}};
constexpr std::array of_ts{
    Family{Property::h, printed::isenthalps}, Family{Property::v, printed::isochores},
    Family{Property::p, printed::isobars}, Family{Property::x, printed::tenths}};
constexpr std::array of_ph{
    Family{Property::s, printed::isentropes}, Family{Property::v, printed::isochores},
    Family{Property::t, printed::isotherms}, Family{Property::x, printed::tenths}};
constexpr std::array of_pv{Family{Property::s, printed::few_isentropes},
                           Family{Property::t, printed::few_isotherms},
                           Family{Property::x, printed::small_qualities}};

/// By `Diagram`.
constexpr std::array<DiagramRow, diagram_count> diagram_rows{{
    {"hs", {Property::s, 4.5, 9.5, false}, {Property::h, 1800, 4200, false}, of_hs},
    {"ts", {Property::s, 0, 10, false}, {Property::t, 0, t_highest, false}, of_ts},
    {"ph", {Property::h, 0, 4200, false}, {Property::p, 0.005, p_highest, true}, of_ph},
    {"pv", {Property::v, 0.0007, 500, true}, {Property::p, 0.005, p_highest, true}, of_pv},
}};

}  // namespace steam::diagrams
