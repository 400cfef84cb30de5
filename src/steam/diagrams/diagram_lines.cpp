#include <new>

#include "steam/arguments.hpp"
#include "steam/diagrams/sampling.hpp"
#include "steam/host_environment.hpp"

// The lines of the diagrams, through the C interface.

namespace steam::diagrams {
namespace {

constexpr double finest = 1e-6, coarsest = 0.1;  // tolerances

bool is_diagram(int number) { return number >= 0 && number < static_cast<int>(diagram_count); }

std::vector<Line> lines_of(const DiagramRow& diagram, double tolerance) {
  std::vector<Line> lines;
  for (const Family& family : diagram.families) {
    for (const double value : family.values) {
      lines.push_back(sampled(diagram, family.property, value, tolerance));
    }
  }
  return lines;
}

}  // namespace
}  // namespace steam::diagrams

using namespace steam;
using namespace steam::diagrams;

struct vek_steam_lines {
  std::vector<Line> lines;
};

int vek_steam_diagram_info_of(int diagram, vek_steam_diagram_info* info, size_t info_size) {
  const int wrong = first_wrong({is_diagram(diagram) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_DIAGRAM,
                                 check_record(info, info_size)});
  if (wrong == VEK_STEAM_OK) {
    const DiagramRow& row = diagram_rows[static_cast<std::size_t>(diagram)];
    *info = {row.letters,
             static_cast<int>(row.x.property),
             static_cast<int>(row.y.property),
             row.x.logarithmic,
             row.y.logarithmic,
             row.x.lowest,
             row.x.highest,
             row.y.lowest,
             row.y.highest};
  }
  return wrong;
}

int vek_steam_lines_create(int diagram, double tolerance, vek_steam_lines** lines) {
  const int wrong = first_wrong({is_diagram(diagram) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_DIAGRAM,
                                 lines ? VEK_STEAM_OK : VEK_STEAM_NULL});
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  const HostEnvironment host;
  if (!(tolerance >= finest && tolerance <= coarsest)) {
    return VEK_STEAM_TOLERANCE;
  }
  try {
    const DiagramRow& row = diagram_rows[static_cast<std::size_t>(diagram)];
    *lines = new vek_steam_lines{lines_of(row, tolerance)};
    return VEK_STEAM_OK;
  } catch (const std::bad_alloc&) {
    return VEK_STEAM_NO_MEMORY;
  }
}

size_t vek_steam_lines_count(const vek_steam_lines* lines) {
  return lines ? lines->lines.size() : 0;
}

int vek_steam_lines_line(const vek_steam_lines* lines, size_t i, vek_steam_line* line,
                         size_t line_size) {
  if (!lines) {
    return VEK_STEAM_NULL;
  }
  const int wrong = first_wrong({i < lines->lines.size() ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_LINE,
                                 check_record(line, line_size)});
  if (wrong == VEK_STEAM_OK) {
    const Line& from = lines->lines[i];
    *line = {static_cast<int>(from.property),
             0,
             from.value,
             from.x.size(),
             from.x.data(),
             from.y.data()};
  }
  return wrong;
}

void vek_steam_lines_destroy(vek_steam_lines* lines) { delete lines; }
