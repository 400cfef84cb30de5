#include "pdf.hpp"

#include <fmt/core.h>

#include <array>

namespace command {
namespace {

/// From UTF-8 to the encoding of the fonts.
std::string encoded(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if ((c == 0xC2 || c == 0xC3) && i + 1 < text.size()) {
      ++i;
      out += static_cast<char>(static_cast<unsigned char>(text[i]) + (c == 0xC3 ? 0x40 : 0));
    } else {
      out += text[i];
    }
  }
  return out;
}

/// Thousandths of the size that a character of Helvetica is wide.
int width_of(char c) {
  constexpr std::string_view narrow = " .,:;/'!|()[]-", slim = "iljtfrI";
  constexpr std::array narrow_widths{278, 278, 278, 278, 278, 278, 191,
                                     278, 260, 333, 333, 278, 278, 333};
  constexpr std::array slim_widths{222, 222, 222, 278, 278, 333, 278};
  if (const std::size_t i = narrow.find(c); i != std::string_view::npos) {
    return narrow_widths[i];
  }
  if (const std::size_t i = slim.find(c); i != std::string_view::npos) {
    return slim_widths[i];
  }
  constexpr std::string_view others = "KPBJkcsvxyz\"\xB0\xB2\xB3";
  constexpr std::array other_widths{667, 667, 667, 500, 500, 500, 500, 500,
                                    500, 500, 500, 355, 400, 333, 333};
  const std::size_t i = others.find(c);
  return i == std::string_view::npos ? 556 : other_widths[i];
}

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '(' || c == ')' || c == '\\') {
      out += '\\';
    }
    out += c;
  }
  return out;
}

/// Numbers each object of the file, and notes where it begins.
class Objects {
 public:
  void add(std::string_view content) {
    starts_.push_back(file_.size());
    file_ += fmt::format("{} 0 obj\n{}\nendobj\n", starts_.size(), content);
  }
  void add_stream(std::string_view content) {
    add(fmt::format("<< /Length {} >>\nstream\n{}endstream", content.size(), content));
  }
  /// With the table of objects, of which the first is the catalogue and the last the title.
  std::string finished() {
    const std::size_t table = file_.size();
    file_ += fmt::format("xref\n0 {}\n0000000000 65535 f \n", starts_.size() + 1);
    for (const std::size_t start : starts_) {
      file_ += fmt::format("{:010} 00000 n \n", start);
    }
    file_ += fmt::format("trailer\n<< /Size {} /Root 1 0 R /Info {} 0 R >>\nstartxref\n{}\n%%EOF\n",
                         starts_.size() + 1, starts_.size(), table);
    return file_;
  }

 private:
  std::string file_ = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
  std::vector<std::size_t> starts_;
};

std::string font(const char* name) {
  return fmt::format("<< /Type /Font /Subtype /Type1 /BaseFont /{} /Encoding /WinAnsiEncoding >>",
                     name);
}

}  // namespace

void Pdf::text(double x, double y, double size, std::string_view text, bool bold) {
  pages_.back() += fmt::format("BT /{} {} Tf {:.2f} {:.2f} Td ({}) Tj ET\n", bold ? "B" : "R", size,
                               x, y, escaped(encoded(text)));
}

void Pdf::text_before(double x, double y, double size, std::string_view text, bool bold) {
  double wide = 0;
  for (const char c : encoded(text)) {
    wide += width_of(c) * size / 1000;
  }
  this->text(x - wide, y, size, text, bold);
}

void Pdf::rule(double from_x, double to_x, double y) {
  pages_.back() += fmt::format("0.5 w {:.2f} {:.2f} m {:.2f} {:.2f} l S\n", from_x, y, to_x, y);
}

std::string Pdf::file(std::string_view title) const {
  // Objects: catalogue, pages, two fonts, then two for each page: itself and what stands on it.
  constexpr std::size_t first_page = 5;
  std::string kids;
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    kids += fmt::format("{} 0 R ", first_page + 2 * i);
  }
  Objects objects;
  objects.add("<< /Type /Catalog /Pages 2 0 R >>");
  objects.add(
      fmt::format("<< /Type /Pages /Kids [ {}] /Count {} /MediaBox [0 0 {} {}]\n"
                  "/Resources << /Font << /R 3 0 R /B 4 0 R >> >> >>",
                  kids, pages_.size(), width, height));
  objects.add(font("Helvetica"));
  objects.add(font("Helvetica-Bold"));
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    objects.add(
        fmt::format("<< /Type /Page /Parent 2 0 R /Contents {} 0 R >>", first_page + 2 * i + 1));
    objects.add_stream(pages_[i]);
  }
  objects.add(fmt::format("<< /Title ({}) >>", escaped(encoded(title))));
  return objects.finished();
}

}  // namespace command
