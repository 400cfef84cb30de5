#include "charts.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "cells.hpp"
#include "steam/tables/charts.hpp"

namespace {

using steam::Pair;
using steam::Region;

/// A number with so many decimals, in single precision.
float rounded(double number, int decimals) {
  std::array<char, 60> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, number);
  return std::strtof(text.data(), nullptr) + 0;  // no negative zeros
}

using Words = std::vector<std::uint32_t>;

/// What cells point to, in slots of one polynomial: polynomials, and for comparisons some places of
/// each where states are; and the words of the parts of a cell, which have none.
struct Slots {
  Words words;
  std::vector<std::vector<Point>> places;

  /// The number of the next slot.
  [[nodiscard]] std::uint32_t next() const;
  void add(const Polynomial& coefficients, const std::vector<Point>& points);
  /// Places of so many words, in slots of their own.
  std::size_t room_for(std::size_t count);
};

std::uint32_t Slots::next() const {
  if (places.size() > 0xffff) {
    std::fprintf(stderr, "a chart has too many polynomials\n");
    std::exit(2);
  }
  return static_cast<std::uint32_t>(places.size());
}

/// Appends coefficients to what single precision knows of the largest: what the last digits of a
/// machine's elementary functions make of the others mostly vanishes.
void Slots::add(const Polynomial& coefficients, const std::vector<Point>& points) {
  double largest = 1e-30;
  for (const double c : coefficients) {
    largest = std::fmax(largest, std::abs(c));
  }
  const int decimals = std::max(0, 7 - static_cast<int>(std::floor(std::log10(largest))));
  const auto append = [&](float c) { words.push_back(std::bit_cast<std::uint32_t>(c)); };
  const auto first = static_cast<double>(static_cast<float>(coefficients[0]));
  append(rounded(coefficients[0] - first, decimals + 2));
  append(rounded(first, decimals + 2));
  for (std::size_t i = 1; i < coefficients.size(); ++i) {
    append(rounded(coefficients[i], decimals + 1));
  }
  constexpr std::size_t about = 50;
  auto& own = places.emplace_back();
  for (std::size_t i = 0; i < points.size(); i += 1 + points.size() / about) {
    own.push_back(points[i]);
  }
}

std::size_t Slots::room_for(std::size_t count) {
  const std::size_t begin = words.size();
  for (std::size_t room = 0; room < count; room += steam::chart_stride) {
    places.emplace_back();
    words.resize(words.size() + steam::chart_stride);
  }
  return begin;
}

/// The regions of a cell in the order in which they are to be tried: the one of most states first.
/// Of (h,s) and (u,s) wet states come before one phase: a table tells those at once, while steam
/// and subregion 3 beside them look much like them; but water, which does not, before all.
std::vector<Region> in_turn(Pair pair, const Patches& patches) {
  const bool is_any = pair != Pair::hs && pair != Pair::us;
  const bool is_below_3 = !patches.contains(Region::dense_steam);
  const auto rank = [&](Region region) {
    const bool is_first = region == Region::water && is_below_3;
    return is_any || is_first ? 0 : steam::is_wet(region) ? 1 : 2;
  };
  std::multimap<std::pair<int, std::ptrdiff_t>, Region> by_turn;
  for (const auto& [region, patch] : patches) {
    by_turn.emplace(std::pair(rank(region), -static_cast<std::ptrdiff_t>(patch.inside)), region);
  }
  std::vector<Region> all;
  for (const auto& [turn, region] : by_turn) {
    all.push_back(region);
  }
  return all;
}

/// The word of what is not divided, after its polynomials are appended.
std::uint32_t word_of(Slots& slots, Pair pair, const Fitted& cell) {
  if (cell.patches.size() > steam::Patches::most) {
    std::fprintf(stderr, "a cell has too many regions\n");
    std::exit(2);
  }
  std::uint32_t word = slots.next();
  int shift = 16;
  for (const Region region : in_turn(pair, cell.patches)) {
    word |= static_cast<std::uint32_t>(region) << shift;
    shift += 4;
    for (const Polynomial& polynomial : cell.polynomials.at(region)) {
      slots.add(polynomial, cell.patches.at(region).points);
    }
  }
  return word;
}

std::uint32_t word_of(Slots& slots, Pair pair, const Cell& cell) {
  if (cell.parts.empty()) {
    return word_of(slots, pair, cell.fit);
  }
  const std::uint32_t word = steam::divided_cell(slots.next(), cell.divisions);
  const std::size_t begin = slots.room_for(cell.parts.size());
  for (std::size_t i = 0; i < cell.parts.size(); ++i) {
    slots.words[begin + i] = word_of(slots, pair, cell.parts[i]);
  }
  return word;
}

/// What each polynomial gives at places of its own; words are compared as they are.
Groups slot_values(const std::string& bytes, std::size_t begin,
                   const std::vector<std::vector<Point>>& places) {
  Words words((bytes.size() - begin) / sizeof(std::uint32_t));
  std::memcpy(words.data(), bytes.data() + begin, bytes.size() - begin);
  Groups all(places.size());
  for (std::size_t number = 0; number < all.size(); ++number) {
    std::array<float, steam::chart_stride> own;
    for (std::size_t i = 0; i < own.size(); ++i) {
      const std::uint32_t word = words[number * own.size() + i];
      own[i] = std::bit_cast<float>(word);
      if (places[number].empty()) {
        all[number].values.push_back(word);
        all[number].largest = 1;
      } else {
        // What cancels between the coefficients is rounded with them.
        all[number].largest = std::fmax(all[number].largest, std::abs(static_cast<double>(own[i])));
      }
    }
    for (const Point& point : places[number]) {
      all[number].add(steam::chart_value<double>({{own.data()}}, point.x, point.y));
    }
  }
  return all;
}

}  // namespace

TableFile chart_file(const steam::ChartLayout& layout, const Samples& samples) {
  Words words;
  Slots slots;
  for (const auto& patches : patches_of(layout.pair, steam::chart_axes(layout), samples)) {
    words.push_back(word_of(slots, layout.pair, cell_of(patches)));
  }
  const std::size_t begin = words.size() * sizeof(std::uint32_t);
  words.insert(words.end(), slots.words.begin(), slots.words.end());
  return {steam::known_of(layout.pair).letters,
          {reinterpret_cast<const char*>(words.data()), words.size() * sizeof(std::uint32_t)},
          begin,
          [begin, places = std::move(slots.places)](const std::string& bytes) {
            return slot_values(bytes, begin, places);
          },
          // Some units of single precision. Only where there are states: beside them a polynomial
          // may be open, and differ by 1e-4 with the machine's extended precision.
          1e-6};
}
