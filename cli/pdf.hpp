#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace command {

/// Pages of A4 with text and rules: as much of PDF as printed tables need. Lengths in points from
/// the lower left corner.
class Pdf {
 public:
  static constexpr double width = 595.276, height = 841.89;

  void add_page() { pages_.emplace_back(); }
  /// On the last page. Latin letters, °, ², ³ and · can be shown.
  void text(double x, double y, double size, std::string_view text, bool bold = false);
  /// The same, ending at x.
  void text_before(double x, double y, double size, std::string_view text, bool bold = false);
  void rule(double from_x, double to_x, double y);

  /// The file.
  [[nodiscard]] std::string file(std::string_view title) const;

 private:
  std::vector<std::string> pages_;
};

}  // namespace command
