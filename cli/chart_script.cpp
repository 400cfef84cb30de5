#include "chart_script.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace command {
namespace {

struct Format {
  const char* name;
  const char* terminal;
};
/// The sheet in the units of each, its letters and lines as large.
constexpr std::array formats{
    Format{"svg", "svg size 1000,707 font 'Helvetica,12' background 'white'"},
    Format{"png", "pngcairo size 2000,1414 fontscale 2 linewidth 2 pointscale 2 font 'Sans,9'"},
    Format{"pdf",
           "pdfcairo size 29.7cm,21cm fontscale 1 linewidth 1.7 pointscale 0.8 font 'Sans,7.8'"},
};

std::string title_of(steam::Property property) {
  const steam::PropertyInfo info = steam::info(property);
  return fmt::format("{} {}, {}", info.name, info.letter, info.unit);
}

std::string axis(char name, const Plane::Axis& axis) {
  return fmt::format("set {0}range [{1:.10g}:{2:.10g}]\n{3}", name, axis.lowest, axis.highest,
                     axis.logarithmic ? fmt::format("set logscale {}\n", name) : "");
}

/// A place on the sheet, for gnuplot.
std::string on_sheet(Spot spot) {
  return fmt::format("screen {:.6f},{:.6f}", spot.x / sheet_width, spot.y / sheet_height);
}

std::string titles(const steam::DiagramInfo& info) {
  const Spot middle = Plane::at({0.5, 0.5});
  return fmt::format("set label '{}' at {} center\nset label '{}' at {} center rotate\n",
                     title_of(info.x), on_sheet({middle.x, 44}), title_of(info.y),
                     on_sheet({16, middle.y}));
}

std::string frame(const Chart& chart) {
  const steam::DiagramInfo info = steam::info(chart.diagram);
  return fmt::format(
      "set lmargin at screen {:.6f}\nset rmargin at screen {:.6f}\n"
      "set bmargin at screen {:.6f}\nset tmargin at screen {:.6f}\n"
      "set border lc rgb '#444444'\nset tics out nomirror tc rgb '#000000'\n"
      "set mxtics\nset mytics\nset format '%g'\n"
      "set grid xtics ytics lc rgb '#e0e0e0' lw 0.8 dt 1\n"
      "unset key\n{}{}{}",
      Plane::lower_left.x / sheet_width, Plane::upper_right.x / sheet_width,
      Plane::lower_left.y / sheet_height, Plane::upper_right.y / sheet_height,
      axis('x', chart.plane.x()), axis('y', chart.plane.y()), titles(info));
}

std::string values_at(const Plane& plane, Spot spot) {
  const std::array<double, 2> values = plane.values(spot);
  return fmt::format("{:.7g} {:.7g}\n", values[0], values[1]);
}

/// The data and the plot command.
class Curves {
 public:
  explicit Curves(const Plane& plane) : plane_(plane) {}
  void add(const std::vector<Trace>& traces, const std::string& look) {
    data_ += fmt::format("$curve{} << END\n", count_);
    bool any = false;
    for (const Trace& trace : traces) {
      for (const Spot spot : trace) {
        data_ += values_at(plane_, spot);
        any = true;
      }
      data_ += '\n';
    }
    data_ += "END\n";
    if (any) {
      plot_ += fmt::format("{} $curve{} with {}", plot_.empty() ? "plot" : ",", count_, look);
    }
    ++count_;
  }
  [[nodiscard]] std::string plot() const { return data_ + plot_ + '\n'; }

 private:
  const Plane& plane_;
  int count_ = 0;
  std::string data_, plot_;
};

std::vector<Trace> traces_of(const Chart& chart, const LineStyle* style) {
  std::vector<Trace> traces;
  for (const Stroke& stroke : chart.strokes) {
    if (stroke.style == style) {
      traces.insert(traces.end(), stroke.parts.begin(), stroke.parts.end());
    }
  }
  return traces;
}

std::string quoted(std::string text) {
  for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 2) {
    text.insert(at, 1, '\'');
  }
  return '\'' + text + '\'';
}

std::string label(const Plane& plane, const Label& label) {
  const Spot d = label.box.direction;
  const std::array<double, 2> at = plane.values(label.box.centre);
  return fmt::format(
      "set label {} at {:.7g},{:.7g} center rotate by {:.2f} tc rgb '{}' noenhanced front\n",
      quoted(label.text), at[0], at[1], std::atan2(d.y, d.x) * 180 / std::numbers::pi,
      label.colour);
}

std::string line_look(const LineStyle& style) {
  return fmt::format("lines lc rgb '{}' lw {} dt {}", style.colour, style.width, style.dashes);
}

/// What the lines are, in one row below the diagram.
std::string legend(const std::vector<const LineStyle*>& styles) {
  constexpr double sample = 34, gap = 26, height = 18;
  const auto text_width = [](const LineStyle* style) { return 2 * half_size(style->name).x; };
  double width = -gap;
  for (const LineStyle* style : styles) {
    width += sample + text_width(style) + gap;
  }
  std::string script;
  Spot at{(sheet_width - width) / 2, height};
  for (const LineStyle* style : styles) {
    script +=
        fmt::format("set arrow from {} to {} nohead lc rgb '{}' lw {} dt {}\n", on_sheet(at),
                    on_sheet(at + Spot{sample - 4, 0}), style->colour, style->width, style->dashes);
    at = at + Spot{sample, 0};
    script += fmt::format("set label {} at {} left\n", quoted(style->name), on_sheet(at));
    at = at + Spot{text_width(style) + gap, 0};
  }
  return script;
}

}  // namespace

std::vector<std::string> chart_formats() {
  std::vector<std::string> names;
  names.reserve(formats.size());
  for (const Format& format : formats) {
    names.emplace_back(format.name);
  }
  return names;
}

std::string script_of(const Chart& chart, const std::string& format) {
  const auto* const terminal = std::find_if(formats.begin(), formats.end(),
                                            [&](const Format& f) { return f.name == format; });
  const std::vector<const LineStyle*> styles = styles_of(chart.diagram);
  std::string script = fmt::format("set encoding utf8\nset terminal {}\n{}{}", terminal->terminal,
                                   frame(chart), legend(styles));
  for (const Label& l : chart.labels) {
    script += label(chart.plane, l);
  }
  Curves curves(chart.plane);
  for (const LineStyle* style : styles) {
    curves.add(traces_of(chart, style), line_look(*style));
  }
  const std::string colour = fmt::format("lc rgb '{}'", process_colour);
  curves.add(chart.process, "lines lw 2 " + colour);
  curves.add(chart.straight, "lines lw 2 dt (8,4) " + colour);
  curves.add({chart.points}, "points pt 7 ps 0.7 " + colour);
  return script + curves.plot();
}

}  // namespace command
