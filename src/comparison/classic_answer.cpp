#include "comparison/classic_answer.hpp"

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>
#include <utility>

#include "classic/frame/diagnostics.hpp"

namespace comparison {
namespace {

/// The diagnostic lines of the module go into a text while this lives.
class Diagnostics {
 public:
  Diagnostics() { stream().rdbuf(text_.rdbuf()); }
  ~Diagnostics() { stream().rdbuf(nullptr); }
  Diagnostics(const Diagnostics&) = delete;
  Diagnostics& operator=(const Diagnostics&) = delete;
  [[nodiscard]] std::string text() const { return text_.str(); }

 private:
  static std::ios& stream() { return static_cast<std::ios&>(classic::ErrorStream); }
  std::ostringstream text_;
};

/// The module leaves slots without a value as they are: a slot that still holds this has none.
constexpr double untouched = -std::numeric_limits<double>::max();

constexpr vek_steam_module module = VEK_STEAM_MODULE;

std::string last_diagnostics;

int request_with_diagnostics(VekFinder finder, const double* x, const double* y, const char* list,
                             double* result) {
  const Diagnostics diagnostics;
  const int unused = vek(finder, x, y, list, result);
  last_diagnostics = diagnostics.text();
  return unused;
}

}  // namespace

VekFinder finder_of(steam::Pair pair) {
  const auto number = static_cast<std::size_t>(pair);
  return number < std::size(module.finders) ? module.finders[number] : nullptr;
}

Reply request(VekFinder finder, double first, double second, const std::string& list,
              std::size_t items) {
  std::vector<double> values(items, untouched);
  request_with_diagnostics(finder, &first, &second, list.c_str(), values.data());
  std::replace(values.begin(), values.end(), untouched, steam::missing);
  return {std::move(values), VEKHasError(), last_diagnostics};
}

Answer compare(steam::Pair pair, double first, double second, std::size_t number) {
  vek_steam_module with_diagnostics = module;
  with_diagnostics.request = request_with_diagnostics;
  return {steam::compare(with_diagnostics, pair, first, second, number), last_diagnostics};
}

std::vector<steam::Property> classic_properties() {
  using P = steam::Property;
  return {P::p, P::t, P::v, P::h, P::s, P::x, P::cp, P::viscosity, P::conductivity};
}

}  // namespace comparison
