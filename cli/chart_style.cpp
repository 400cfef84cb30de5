#include "chart_style.hpp"

#include <algorithm>
#include <span>

namespace command {
namespace {

using steam::Property;

// The look of a family, the same on all diagrams.
constexpr LineStyle isobars{Property::p, "isobars p, bar", "#1f4e9e", "1", 0.9, 1, {}};
constexpr LineStyle isotherms{Property::t, "isotherms t, °C", "#b3261e", "1", 0.9, 1, {}};
constexpr LineStyle isochores{Property::v, "isochores v, m³/kg", "#2e7d32", "(12,5)", 0.8, 1, {}};
constexpr LineStyle isenthalps{Property::h, "isenthalps h, kJ/kg", "#8d6e1f", "(16,4,3,4)", 0.8, 1,
                               {}};
constexpr LineStyle isentropes{
    Property::s, "isentropes s, kJ/(kg K)", "#6a3d9a", "(16,4,3,4)", 0.8, 1, {}};
constexpr LineStyle qualities{Property::x, "quality x", "#555555", "1", 0.7, 1, {}};
constexpr LineStyle saturation{Property::x, "saturation", "#000000", "1", 2, 2, {}};

constexpr LineStyle at(LineStyle style, Guide guide) {
  style.guide = guide;
  return style;
}

// The saturation line comes last of each.
constexpr std::array hs{at(isochores, {{0.30, 0.42}, {0.98, 0.62}}),
                        at(isotherms, {{0.90, 0.2}, {0.90, 1}}),
                        at(isobars, {{0.05, 0.80}, {0.98, 0.80}}),
                        at(qualities, {{0.30, 0.0}, {0.45, 0.45}}), saturation};
constexpr std::array ts{
    at(isenthalps, {{0.3, 0.1}, {0.97, 0.5}}), at(isochores, {{0.5, 0.6}, {0.98, 0.3}}),
    at(isobars, {{0.4, 0.92}, {0.98, 0.92}}), at(qualities, {{0.0, 0.1}, {0.95, 0.1}}), saturation};
constexpr std::array ph{at(isentropes, {{0.5, 0.75}, {0.97, 0.45}}),
                        at(isochores, {{0.68, 0.1}, {0.72, 0.95}}),
                        at(isotherms, {{0.05, 0.93}, {0.8, 0.05}}),
                        at(qualities, {{0.0, 0.08}, {0.6, 0.08}}), saturation};
constexpr std::array pv{at(isentropes, {{0.2, 0.8}, {0.9, 0.2}}),
                        at(isotherms, {{0.2, 0.9}, {0.98, 0.3}}),
                        at(qualities, {{0.1, 0.2}, {0.9, 0.2}}), saturation};
constexpr std::array<std::span<const LineStyle>, steam::diagram_count> styles{hs, ts, ph, pv};

}  // namespace

const LineStyle& style_of(steam::Diagram diagram, const steam::Line& line) {
  const std::span<const LineStyle> all = styles[static_cast<std::size_t>(diagram)];
  const bool saturated = line.property == Property::x && (line.value == 0 || line.value == 1);
  return saturated ? all.back()
                   : *std::find_if(all.begin(), all.end(), [&](const LineStyle& style) {
                       return style.property == line.property;
                     });
}

std::vector<const LineStyle*> styles_of(steam::Diagram diagram) {
  std::vector<const LineStyle*> all;
  for (const LineStyle& style : styles[static_cast<std::size_t>(diagram)]) {
    all.push_back(&style);
  }
  return all;
}

}  // namespace command
