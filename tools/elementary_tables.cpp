// Writes the tables of the elementary functions, src/numbers/*_table.hpp: each number the nearest
// double to what it stands for, as computed with many more digits.
//   elementary_tables DIRECTORY           writes them
//   elementary_tables --check DIRECTORY   compares them with those that are there

#include <mpfr.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// A number with as many digits as anything here needs.
class Real {
 public:
  explicit Real(double x) {
    mpfr_init2(x_, precision);
    mpfr_set_d(x_, x, MPFR_RNDN);
  }
  Real(const Real&) = delete;
  Real& operator=(const Real&) = delete;
  ~Real() { mpfr_clear(x_); }
  operator mpfr_ptr() { return x_; }  // NOLINT(google-explicit-constructor)
  double nearest() { return mpfr_get_d(x_, MPFR_RNDN); }
  /// What is left when a double is taken away.
  double beyond(double part) {
    mpfr_sub_d(x_, x_, part, MPFR_RNDN);
    return nearest();
  }

 private:
  static constexpr int precision = 200;
  mpfr_t x_;
};

double from_bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }
std::uint64_t bits_of(double x) { return std::bit_cast<std::uint64_t>(x); }

/// A header with one table.
template <std::size_t columns>
struct Table {
  std::string name, what;
  std::vector<std::array<double, columns>> rows{};

  [[nodiscard]] std::string text() const {
    std::string text =
        "#pragma once\n\n// Written by script/tables.\n\n#include <array>\n\n"
        "namespace numbers {\n\n" +
        what + "\nconstexpr std::array<std::array<double, " + std::to_string(columns) + ">, " +
        std::to_string(rows.size()) + "> " + name + "{{\n";
    for (const auto& row : rows) {
      const char* before = "    {";
      for (const double x : row) {
        std::array<char, 40> number{};
        std::snprintf(number.data(), number.size(), "%s%a", before, x);
        text += number.data();
        before = ", ";
      }
      text += "},\n";
    }
    return text + "}};\n\n}  // namespace numbers\n";
  }
};

/// 2^(i/128).
Table<2> powers_of_2() {
  constexpr int count = 128;
  Table<2> table{"powers_of_2",
                 "/// 2^(i/128): the nearest double, and what is left, relative to it."};
  for (int i = 0; i < count; ++i) {
    Real power(static_cast<double>(i) / count);
    mpfr_exp2(power, power, MPFR_RNDN);
    const double value = power.nearest();
    mpfr_div_d(power, power, value, MPFR_RNDN);
    table.rows.push_back({value, power.beyond(1)});
  }
  return table;
}

/// Logarithms in the middles of cells of the bits of a double, of which one has 1 in its middle.
Table<3> logarithms() {
  constexpr int count = 128;
  constexpr std::uint64_t cell = std::uint64_t{1} << 45;
  const std::uint64_t lowest = bits_of(0.6875) + cell / 2;
  Table<3> table{
      "logarithms",
      "/// A number of twelve digits near to the reciprocal of the middle of a cell; the\n"
      "/// logarithm of its reciprocal, as a multiple of 2^-42, and what is left."};
  for (int i = 0; i < count; ++i) {
    const double middle = from_bits(lowest + cell * static_cast<std::uint64_t>(i) + cell / 2);
    const double inverse = std::nearbyint(0x1p11 / middle) * 0x1p-11;
    Real logarithm(inverse);
    mpfr_log(logarithm, logarithm, MPFR_RNDN);
    mpfr_neg(logarithm, logarithm, MPFR_RNDN);
    const double value = std::nearbyint(logarithm.nearest() * 0x1p42) * 0x1p-42 + 0.0;
    table.rows.push_back({inverse, value, logarithm.beyond(value) + 0.0});
  }
  return table;
}

/// Numbers from 1/8 to 4, next to the middles of cells, whose power is a double but for a
/// thousandth of its last digit: so the table adds no rounding of its own.
Table<3> powers_m5_17() {
  constexpr std::uint64_t cell = std::uint64_t{1} << 46;
  Table<3> table{"powers_m5_17",
                 "/// A number whose power of -5/17 is a double but for a thousandth of the last\n"
                 "/// digit; its reciprocal, and that power."};
  Real exponent(-5);
  mpfr_div_ui(exponent, exponent, 17, MPFR_RNDN);
  for (std::uint64_t first = bits_of(0.125); first < bits_of(4); first += cell) {
    double z = from_bits(first + cell / 2), value = 0, rest = 1;
    while (std::abs(rest) > 0x1p-10 * (std::nextafter(value, HUGE_VAL) - value)) {
      z = std::nextafter(z, HUGE_VAL);
      Real power(z);
      mpfr_pow(power, power, exponent, MPFR_RNDN);
      value = power.nearest();
      rest = power.beyond(value);
    }
    table.rows.push_back({z, 1 / z, value});
  }
  return table;
}

bool is_written(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  return static_cast<bool>(file.flush());
}

bool holds(const std::string& path, const std::string& text) {
  std::ifstream file(path, std::ios::binary);
  const bool same = std::string(std::istreambuf_iterator<char>(file), {}) == text;
  if (!same) {
    std::fprintf(stderr, "%s: differs\n", path.c_str());
  }
  return same;
}

}  // namespace

int main(int count, char** arguments) {
  const bool check = count == 3 && std::string_view(arguments[1]) == "--check";
  if (count != 2 && !check) {
    std::fprintf(stderr, "usage: elementary_tables [--check] DIRECTORY\n");
    return 2;
  }
  const std::string directory = arguments[count - 1];
  const auto is_good = [&](const auto& table) {
    return (check ? holds : is_written)(directory + '/' + table.name + "_table.hpp", table.text());
  };
  const std::array good{is_good(powers_of_2()), is_good(logarithms()), is_good(powers_m5_17())};
  return good[0] && good[1] && good[2] ? 0 : 1;
}
