#include <new>

#include "steam/arguments.hpp"
#include "steam/diagrams/sampling.hpp"
#include "steam/host_environment.hpp"

// The lines of the diagrams, through the C interface.

namespace steam::diagrams {
namespace {

constexpr double finest = 1e-6, coarsest = 0.1;  // tolerances

bool is_diagram(int number) { return number >= 0 && number < static_cast<int>(diagram_count); }

/// A property that lines have in common.
bool is_of_lines(int property) {
  return property >= VEK_STEAM_P && property <= VEK_STEAM_X && property != VEK_STEAM_U;
}

/// What is wrong with the arguments that all lines need.
int check(int diagram, double tolerance, vek_steam_lines** lines) {
  return first_wrong(
      {is_diagram(diagram) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_DIAGRAM,
       tolerance >= finest && tolerance <= coarsest ? VEK_STEAM_OK : VEK_STEAM_TOLERANCE,
       lines ? VEK_STEAM_OK : VEK_STEAM_NULL});
}

}  // namespace
}  // namespace steam::diagrams

using namespace steam;
using namespace steam::diagrams;

struct vek_steam_lines {
  std::vector<Line> lines;
};

namespace {

/// Lines of families, for the caller.
int create(const DiagramRow& diagram, double tolerance, std::span<const Family> families,
           vek_steam_lines** created) {
  try {
    auto lines = std::make_unique<vek_steam_lines>();
    for (const Family& family : families) {
      for (const double value : family.values) {
        lines->lines.push_back(sampled(diagram, family.property, value, tolerance));
      }
    }
    *created = lines.release();
    return VEK_STEAM_OK;
  } catch (const std::bad_alloc&) {
    return VEK_STEAM_NO_MEMORY;
  }
}

}  // namespace

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
  const HostEnvironment host;
  const int wrong = check(diagram, tolerance, lines);
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  const DiagramRow& row = diagram_rows[static_cast<std::size_t>(diagram)];
  return create(row, tolerance, row.families, lines);
}

int vek_steam_lines_of(int diagram, double tolerance, int property, size_t count,
                       const double* values, vek_steam_lines** lines) {
  const HostEnvironment host;
  const int wrong = first_wrong({check(diagram, tolerance, lines),
                                 is_of_lines(property) ? VEK_STEAM_OK : VEK_STEAM_NO_SUCH_PROPERTY,
                                 count == 0 || values ? VEK_STEAM_OK : VEK_STEAM_NULL});
  if (wrong != VEK_STEAM_OK) {
    return wrong;
  }
  const Family family{static_cast<Property>(property), {values, count}};
  return create(diagram_rows[static_cast<std::size_t>(diagram)], tolerance, {&family, 1}, lines);
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
