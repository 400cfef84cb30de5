// digest COUNT RECORD: a digest of the bits of about COUNT results of each way to ask, over all
// pairs and properties, for random states, states on boundaries and hostile values. They must be
// the same in every way and those of the record, whatever the platform. A record of "-" only
// prints.

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "steam/batch/targets.hpp"
#include "vek/steam.hpp"

namespace {

using steam::Pair, steam::Property;
using Numbers = std::vector<double>;

const std::vector<Property>& properties() {
  static const std::vector<Property> all = [] {
    std::vector<Property> list;
    for (int i = 0; i < vek_steam_property_count(); ++i) {
      list.push_back(static_cast<Property>(i));
    }
    for (const Property p :
         {Property::v, Property::s, Property::speed_of_sound, Property::prandtl}) {
      list.insert(list.end(), {steam::of_liquid(p), steam::of_vapour(p)});
    }
    return list;
  }();
  return all;
}

/// Inputs of a pair. Of the library's distributions and powers no two platforms have the same:
/// these take products of random shares.
class Inputs {
 public:
  Inputs(Pair pair, std::size_t rows)
      : pair_(pair), random_(1967 + static_cast<unsigned>(pair)), first(rows), second(rows) {
    for (std::size_t row = 0; row < rows; ++row) {
      const auto [a, b] = next(random_() % 16);
      first[row] = a;
      second[row] = b;
    }
  }

 private:
  Pair pair_;
  std::mt19937_64 random_;

 public:
  Numbers first, second;

 private:
  struct Values {
    double first, second;
  };

  double share() { return static_cast<double>(random_() >> 11) * 0x1p-53; }
  double between(double a, double b) { return a + (b - a) * share(); }
  template <std::size_t N>
  double one_of(const std::array<double, N>& values) {
    return values[static_cast<std::size_t>(random_() % N)];
  }
  /// Next to a number, or the number itself.
  double beside(double x) {
    const std::uint64_t away = random_() % 4;
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(x) + (away == 3 ? ~0ULL : away % 2));
  }

  Values next(std::uint64_t kind) {
    static constexpr std::array corners_p{0.006112444, 1.0,      165.3512406, 200.0,
                                          221.2,       221.2001, 1000.0,      22.0};
    static constexpr std::array corners_t{0.01, 100.0, 350.0, 360.0, 374.15, 400.0, 590.0, 800.0};
    const double s = share(), s2 = s * s, s4 = s2 * s2;
    switch (kind) {
      case 0:
        return {hostile(), hostile()};
      case 1:
        return {anywhere(letter(0)), anywhere(letter(1))};
      case 2:
        return beside(of(Pair::pt, {one_of(corners_p), one_of(corners_t)}));
      case 3:
        return beside(of(Pair::tx, {one_of(corners_t), random_() % 2 == 0 ? 0.0 : 1.0}));
      case 4:
        return of(Pair::pt, {between(160, 320), between(345, 460)});
      case 5:
      case 6:
      case 7:
        return of(Pair::tx, {between(0.01, 374.15), share()});
      case 8:
        return of(Pair::tx, {between(345, 374.15), share()});
      case 9:
      case 10:
        return of(Pair::pt, {0.0062 + 221 * s4 * s4, between(100, 800)});
      default:
        return of(Pair::pt, {0.0062 + 999 * s2, between(0.01, 800)});
    }
  }

  [[nodiscard]] char letter(int place) const { return steam::info(pair_).letters[place]; }

  /// The values of the pair that a state of another has; hostile ones where it has none.
  Values of(Pair known, Values state) {
    const auto value = [&](int place) {
      constexpr std::string_view letters = "ptvhsux";
      const auto property = static_cast<Property>(letters.find(letter(place)));
      return steam::info(known).letters[0] == letter(place) ? state.first
             : steam::info(known).letters[1] == letter(place)
                 ? state.second
                 : steam::value(known, state.first, state.second, property);
    };
    return {value(0), value(1)};
  }
  Values beside(Values at) { return {beside(at.first), beside(at.second)}; }

  double anywhere(char of) {
    const double s = share();
    return of == 'p'   ? 1001 * s * s * s * s
           : of == 't' ? 801 * s
           : of == 'v' ? 9.5e-4 + 811 * s * s * s * s * s * s
           : of == 's' ? 11.93 * s - 0.01
           : of == 'x' ? s
                       : 4160 * s;
  }

  double hostile() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    static constexpr std::array ends{0.0,  -0.0,    infinity, -infinity, 5e-324, 1e308,
                                     -1.0, 0.00317, 350.0,    374.15,    221.2,  1000.0};
    return random_() % 2 == 0 ? beside(one_of(ends)) : std::bit_cast<double>(random_());
  }
};

/// What a pair answers: of each row the values of all properties and the reason.
struct Answers {
  explicit Answers(std::size_t rows)
      : values(properties().size(), Numbers(rows)), reasons(rows, steam::Reason::none) {}

  [[nodiscard]] std::uint64_t digest() const {
    std::uint64_t sum = 0xcbf29ce484222325;
    const auto add = [&](std::uint64_t bits) {
      sum = (sum ^ bits) * 0x9e3779b97f4a7c15;
      sum ^= sum >> 29;
    };
    for (std::size_t row = 0; row < reasons.size(); ++row) {
      add(static_cast<std::uint64_t>(reasons[row]));
      for (const Numbers& column : values) {
        add(std::bit_cast<std::uint64_t>(column[row]));
      }
    }
    return sum;
  }

  std::vector<Numbers> values;
  std::vector<steam::Reason> reasons;
};

Answers one_by_one(Pair pair, const Inputs& inputs) {
  Answers all(inputs.first.size());
  Numbers values(properties().size());
  for (std::size_t row = 0; row < inputs.first.size(); ++row) {
    all.reasons[row] =
        steam::values(pair, inputs.first[row], inputs.second[row], properties(), values);
    for (std::size_t i = 0; i < values.size(); ++i) {
      all.values[i][row] = values[i];
    }
  }
  return all;
}

bool in_lanes(Property property) {
  const int number = static_cast<int>(property);
  return steam::is_for_lanes(steam::Wanted(1, &number));
}

/// Those of wet states' phases and the like are wanted apart, since rows with them are answered one
/// by one; so are a few that need little.
Answers in_batch(Pair pair, const Inputs& inputs, int lanes, unsigned threads) {
  steam::use_lanes(lanes);
  Answers all(inputs.first.size());
  std::array<std::vector<Property>, 3> wanted;
  std::array<std::vector<steam::Column<double>>, 3> columns;
  for (std::size_t i = 0; i < properties().size(); ++i) {
    const Property property = properties()[i];
    const std::size_t group = !in_lanes(property) ? 2 : i % 5 == 4 ? 1 : 0;
    wanted[group].push_back(property);
    columns[group].emplace_back(all.values[i]);
  }
  for (std::size_t group = 0; group < wanted.size(); ++group) {
    steam::evaluate(pair, inputs.first, inputs.second, wanted[group], columns[group], all.reasons,
                    {.threads = threads, .chunk = threads > 1 ? 64U : 1000U});
  }
  return all;
}

/// Whether every way gives the same digest; it is added to the text.
bool add(Pair pair, std::size_t rows, const std::string& count, std::string& text) {
  const Inputs inputs(pair, rows);
  const std::uint64_t digest = one_by_one(pair, inputs).digest();
  bool same = true;
  for (const int lanes : {1, 2, 4, 8}) {
    if (lanes > steam::most_lanes()) {
      continue;
    }
    for (const unsigned threads : {1U, 8U}) {
      if (in_batch(pair, inputs, lanes, threads).digest() != digest) {
        std::printf("%s: another digest with %d rows at once on %u threads\n",
                    steam::info(pair).letters, lanes, threads);
        same = false;
      }
    }
  }
  std::array<char, 60> line{};
  std::snprintf(line.data(), line.size(), "%s %s %016llx\n", count.c_str(),
                steam::info(pair).letters, static_cast<unsigned long long>(digest));
  text += line.data();
  return same;
}

/// The lines of a record that begin with a count.
std::string recorded(const char* path, const std::string& count) {
  std::ifstream file(path);
  std::string text;
  for (std::string line; std::getline(file, line);) {
    text += line.starts_with(count + ' ') ? line + '\n' : "";
  }
  return text;
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int /*argc*/, char** argv) {
  const std::string count = argv[1];
  const std::size_t rows = std::strtoul(argv[1], nullptr, 10) /
                           (properties().size() * static_cast<std::size_t>(vek_steam_pair_count()));
  bool good = true;
  std::string text;
  for (int pair = 0; pair < vek_steam_pair_count(); ++pair) {
    good = add(static_cast<Pair>(pair), rows, count, text) && good;
  }
  if (argv[2] == std::string("-")) {
    std::printf("%s", text.c_str());
  } else if (text != recorded(argv[2], count)) {
    std::printf("%sis not what is recorded\n", text.c_str());
    good = false;
  }
  return good ? 0 : 1;
}
