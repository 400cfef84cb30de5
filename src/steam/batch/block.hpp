#pragma once

#include <array>
#include <cstring>

#include "steam/answer.hpp"

namespace steam {

/// Where a column has a row.
template <class Column>
auto* place_in(const Column& column, std::size_t row) {
  using Byte = std::conditional_t<std::is_same_v<Column, vek_steam_input>, const char, char>;
  return static_cast<Byte*>(column.data) + static_cast<std::ptrdiff_t>(row) * column.stride;
}

/// The columns of a batch as the caller passes them.
struct Rows {
  std::size_t count;
  vek_steam_input first, second;
  const vek_steam_output* outputs;  ///< one a wanted property
  const vek_steam_output* status;   ///< may be null

  void write(std::size_t row, std::size_t column, double value) const {
    std::memcpy(place_in(outputs[column], row), &value, sizeof value);
  }
  void write_status(std::size_t row, Reason reason) const {
    if (status) {
      *place_in(*status, row) = static_cast<char>(reason);
    }
  }
};

/// Some rows of a batch that are answered together: their values, read before anything is written.
class Block {
 public:
  static constexpr std::size_t most = 512;
  Block(Pair its_pair, const Wanted& what, const Rows& all, std::size_t from, std::size_t number)
      : pair(its_pair), wanted(what), rows(all), begin(from), count(number) {
    read(all.first, first);
    read(all.second, second);
  }

  const Pair pair;
  const Wanted& wanted;
  const Rows& rows;
  const std::size_t begin, count;
  std::array<double, most> first, second;  ///< the last one again up to the next multiple of 8

 private:
  void read(const vek_steam_input& column, std::array<double, most>& values) const {
    if (column.stride == sizeof(double)) {
      std::memcpy(values.data(), place_in(column, begin), count * sizeof(double));
    } else {
      for (std::size_t row = 0; row < count; ++row) {
        std::memcpy(&values[row], place_in(column, begin + row), sizeof values[row]);
      }
    }
    for (std::size_t row = count; row % 8 != 0; ++row) {
      values[row] = values[count - 1];
    }
  }
};

/// Rows of a block by their number in it.
struct RowList {
  std::array<std::uint16_t, Block::most + 1> row;  // one more for `add_lanes`
  std::size_t count = 0;
  void add(std::size_t number) { row[count++] = static_cast<std::uint16_t>(number); }
  /// Adds those of `width` rows from `first` on whose bit is set.
  template <std::size_t width>
  void add_lanes(std::size_t first, unsigned lanes) {
    for (std::size_t lane = 0; lane < width; ++lane) {
      row[count] = static_cast<std::uint16_t>(first + lane);
      count += lanes >> lane & 1;
    }
  }
  void add_all(std::size_t numbers) {
    for (std::size_t number = 0; number < numbers; ++number) {
      add(number);
    }
  }
};

/// Answers the rows of a block that are clear of all boundaries, several at once.
/// @param left  receives those that are not
using AnswerBlock = void (*)(const Block&, RowList& left);

}  // namespace steam
