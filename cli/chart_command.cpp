#include "chart_command.hpp"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <optional>

#include "chart_script.hpp"
#include "failure.hpp"
#include "gnuplot.hpp"
#include "output.hpp"

namespace command {
namespace {

struct ChartOptions {
  std::string diagram, output, process;
  std::vector<std::string> marks;
};

constexpr std::array diagrams{steam::Diagram::hs, steam::Diagram::ts, steam::Diagram::ph,
                              steam::Diagram::pv};

std::vector<std::string> diagram_names() {
  std::vector<std::string> names;
  names.reserve(diagrams.size());
  for (const steam::Diagram diagram : diagrams) {
    names.emplace_back(steam::info(diagram).letters);
  }
  return names;
}

steam::Diagram diagram_named(const std::string& name) {
  return *std::find_if(diagrams.begin(), diagrams.end(), [&](steam::Diagram diagram) {
    return steam::info(diagram).letters == name;
  });
}

/// By the end of the file's name; SVG for standard output.
std::string format_of(const std::string& path) {
  if (path.empty() || path == "-") {
    return "svg";
  }
  const std::vector<std::string> formats = chart_formats();
  const auto found = std::find_if(formats.begin(), formats.end(), [&](const std::string& format) {
    return path.size() > format.size() && path.ends_with("." + format);
  });
  if (found == formats.end()) {
    throw Failure(wrong_usage, fmt::format("{}: the name of a chart ends in .{}", path,
                                           fmt::join(formats, ", .")));
  }
  return *found;
}

int show(const ChartOptions& options) {
  const std::string format = format_of(options.output);
  std::vector<Mark> marks;
  for (const std::string& text : options.marks) {
    marks.push_back(parse_mark(text));
  }
  const std::vector<Mark> process =
      options.process.empty() ? std::vector<Mark>{} : read_process(options.process);
  const Chart chart = chart_of(diagram_named(options.diagram), process, marks);
  const std::string picture = drawn_by_gnuplot(script_of(chart, format));
  Output output(options.output);
  output.write(picture);
  output.finish();
  return success;
}

}  // namespace

void define_chart(CLI::App& app, Run& run) {
  const auto options = std::make_shared<ChartOptions>();
  CLI::App& sub = *app.add_subcommand("chart", "a Mollier or other diagram as SVG, PNG or PDF");
  sub.group("Commands");
  sub.add_option("DIAGRAM", options->diagram, "quantity upwards, then across: hs, ts, ph, pv")
      ->required()
      ->transform(CLI::IsMember(diagram_names(), CLI::ignore_case))
      ->type_name("");
  sub.add_option("-o,--output", options->output, "file .svg, .png or .pdf; none: SVG to stdout")
      ->type_name("FILE");
  sub.add_option("--mark", options->marks, "mark a state: ph:100,3000 or ph:100,3000=text")
      ->type_name("STATE")
      ->allow_extra_args(false);
  sub.add_option("--path", options->process, "draw a process from a file, see below")
      ->type_name("FILE");
  sub.footer(
      "--mark may be repeated; values may carry a unit. The file of --path has a first\n"
      "row with letters of properties and 'point', such as point,p,t,s,x, and then a\n"
      "state in each row: its name, and values of two properties. What neighbours have\n"
      "in common, such as the pressure, is the line along which the process is drawn.\n"
      "gnuplot draws the charts.");
  sub.callback([&run, options] { run = [options] { return show(*options); }; });
}

}  // namespace command
