#include "steam/search/wet_states.hpp"

#include <algorithm>
#include <cmath>

#include "steam/search/all_roots.hpp"
#include "steam/search/quantity.hpp"
#include "steam/search/saturated.hpp"
#include "steam/search/tolerances.hpp"
#include "steam/search/wet_search.hpp"

namespace steam {
namespace {

// At a fixed quality a quantity may turn along the saturation line. A cell of the table may
// hold a solution if the values at its sides enclose the wanted one, or if the quantity turns in
// it. There the roots of one polynomial are all solutions; the equations correct each by a step.
// Only where the table cannot tell whether there is one, at a turn or next to the critical point,
// are the equations searched.

/// The mixed quantity less the wanted value: in one cell, over the place from -1 to 1.
struct CellPolynomial {
  std::array<double, saturated_terms> c;

  [[nodiscard]] Slope operator()(double z) const {
    double value = c.back(), slope = 0;
    for (std::size_t k = saturated_terms - 1; k-- > 0;) {
      slope = slope * z + value;
      value = value * z + c[k];
    }
    return {value, slope};
  }
  [[nodiscard]] CellPolynomial derivative() const {
    CellPolynomial d{};
    for (std::size_t k = 1; k < saturated_terms; ++k) {
      d.c[k - 1] = static_cast<double>(k) * c[k];
    }
    return d;
  }
  /// Whether it surely is farther from zero than `doubt` in the whole cell.
  [[nodiscard]] bool is_beyond(double doubt) const {
    double others = 0;
    for (std::size_t k = 1; k < saturated_terms; ++k) {
      others += std::abs(c[k]);
    }
    constexpr double margin = 1.1;
    return std::abs(c[0]) > margin * others + doubt;
  }
  /// Whether it surely has no turn in the cell.
  [[nodiscard]] bool is_monotone() const {
    double others = 0;
    for (std::size_t k = 2; k < saturated_terms; ++k) {
      others += static_cast<double>(k) * std::abs(c[k]);
    }
    return std::abs(c[1]) > others;
  }
};

/// What is known of a quantity of saturated states.
struct Figures {
  /// Differences that the table cannot tell, as a share of the value and this.
  double size;
  /// By which share it may leave its values at the sides of the part that the table has not.
  double room;
  double rounding, relative_rounding;
  SaturatedPolynomial SaturatedCell::*polynomial;
};
const Figures& figures_of(Quantity q) {
  using Cell = SaturatedCell;
  static constexpr std::array<Figures, 4> all{{{1e-3, 2e-3, 0, 1e-14, &Cell::v},
                                               {1, 1e-3, 4e-11, 0, &Cell::h},
                                               {1e-3, 5e-4, 1e-12, 0, &Cell::s},
                                               {1, 1e-3, 4e-11, 0, &Cell::u}}};
  return all[static_cast<std::size_t>(q) - static_cast<std::size_t>(Quantity::v)];
}

const SaturatedProfile& profile_of(const SaturatedBand& band, Quantity q) {
  switch (q) {
    case Quantity::v:
      return band.v;
    case Quantity::h:
      return band.h;
    case Quantity::s:
      return band.s;
    default:
      return band.u;
  }
}

struct Quality {
  Quantity q;
  double value, x;

  [[nodiscard]] const SaturatedProfile& profile(const SaturatedBand& band) const {
    return profile_of(band, q);
  }
  [[nodiscard]] double at_side(const SaturatedProfile& profile, int i) const {
    return Ends{profile.liquid[i], profile.vapour[i]}.mixed(x) - value;
  }
  [[nodiscard]] CellPolynomial polynomial(const SaturatedCell& cell) const {
    const SaturatedPolynomial& ends = cell.*figures_of(q).polynomial;
    CellPolynomial mixed{};
    for (std::size_t k = 0; k < saturated_terms; ++k) {
      mixed.c[k] = ends[k][0] + x * (ends[k][1] - ends[k][0]);
    }
    mixed.c[0] -= value;
    return mixed;
  }
  template <class Saturation>
  [[nodiscard]] double exact(double t) const {
    const Saturation saturation(t, saturation_pressure(t));
    return with_quantity(q, [&]<Quantity Q>() { return saturation.template ends<Q>(); }).mixed(x) -
           value;
  }
  /// The equations' slope too, over the temperature.
  template <class Saturation>
  [[nodiscard]] Slope sloped(double t) const {
    const SaturationPressure line = sloped_saturation_pressure(t);
    const Saturation saturation(t, line.p);
    const SlopedEnds ends = with_quantity(
        q, [&]<Quantity Q>() { return saturation.template sloped_ends<Q>(line.over_t); });
    return {ends.value.mixed(x) - value, ends.slope.mixed(x)};
  }
  /// Differences that the table cannot tell.
  [[nodiscard]] double doubt() const { return 1e-8 * (std::abs(value) + figures_of(q).size); }
};

/// One cell of the table and its temperatures.
struct Cell {
  const SaturatedBand* band;
  int number;
  [[nodiscard]] double root(double z) const {
    return band->origin + (number + (z + 1) / 2) / band->scale;
  }
  [[nodiscard]] bool is_first() const { return number == 0; }
  [[nodiscard]] bool is_last() const { return number == band->cells - 1; }
  [[nodiscard]] bool is_critical() const { return band->origin == 0 && number == 0; }
  /// Where the table begins in the cell.
  [[nodiscard]] double z_least() const {
    return is_critical() ? 2 * r_merging * band->scale - 1 : -1;
  }
  [[nodiscard]] double t_high() const {
    return is_first() && !is_critical() ? t_350 : temperature_of(root(z_least()));
  }
  [[nodiscard]] double t_low() const {
    return !is_last() ? temperature_of(root(1)) : band->origin == 0 ? t_350 : t_lowest;
  }
};

class Scan {
 public:
  Scan(Quality target, bool only_first) : target_(target), only_first_(only_first) {}

  void run() {
    if (reaches_above_350()) {
      beside_critical_point();
      band<HighSaturation>(saturated_above_350);
    }
    band<LowSaturation>(saturated_to_350);
  }

  [[nodiscard]] const Solutions& states() const { return states_; }
  [[nodiscard]] double closed_on_jump() const { return closed_on_jump_; }

 private:
  /// Liquid and vapour are farthest apart at 350 °C.
  [[nodiscard]] bool reaches_above_350() const {
    const SaturatedProfile& profile = target_.profile(saturated_above_350);
    const int last = saturated_above_350.cells;
    return target_.value >= profile.liquid[last] && target_.value <= profile.vapour[last];
  }

  template <class Saturation>
  void band(const SaturatedBand& band) {
    const SaturatedProfile& profile = target_.profile(band);
    const double x = target_.x, doubt = target_.doubt();
    double left = target_.at_side(profile, 0);
    for (int i = 0; i < band.cells && wants_more(); ++i) {
      const double right = target_.at_side(profile, i + 1);
      const bool enclosed = std::min(left, right) <= doubt && std::max(left, right) >= -doubt;
      if (enclosed || (x >= profile.least_turning[i] && x <= profile.most_turning[i])) {
        cell<Saturation>({&band, i});
      }
      left = right;
    }
  }

  /// A state just above 350 °C gives way to one below.
  [[nodiscard]] bool wants_more() const {
    if (!only_first_ || states_.sites.empty()) {
      return true;
    }
    constexpr double overlap = 0.5;  // K
    const double t = states_.sites[states_.sites.size() - 1].t;
    return t > t_350 && t < t_350 + overlap;
  }

  template <class Saturation>
  void cell(const Cell& cell) {
    const CellPolynomial f = target_.polynomial(cell.band->polynomials[cell.number]);
    if (f.is_beyond(target_.doubt())) {
      return;
    }
    const Solutions before = states_;
    if (!by_table<Saturation>(cell, f)) {
      states_ = before;
      by_equations<Saturation>(cell.t_high(), cell.t_low(), [&](double t) { add_in(cell, t); });
    }
  }

  /// All solutions in a cell from the roots of its polynomial.
  /// @return  whether the table could tell
  template <class Saturation>
  bool by_table(const Cell& cell, const CellPolynomial& f) {
    double left = cell.z_least();
    bool sure = true;
    const auto piece = [&](double right) {
      sure = sure && in_monotone_piece<Saturation>(cell, f, left, right);
      left = right;
    };
    if (!f.is_monotone()) {
      all_roots(f.derivative(), left, 1.0, [&](double turn) {
        sure = sure && std::abs(f(turn).value) > target_.doubt();
        piece(turn);
      });
    }
    piece(1);
    return sure;
  }

  template <class Saturation>
  bool in_monotone_piece(const Cell& cell, const CellPolynomial& f, double left, double right) {
    const double f_left = f(left).value, f_right = f(right).value;
    if (f_left * f_right < 0) {
      constexpr double enough = 1e-7;  // the last step is as exact as the table
      return approach<Saturation>(
          cell, f, root(f, left, right, HUGE_VAL, f_left < 0, {.step = enough, .noise = 0}).x);
    }
    // The sides of neighbouring cells do not quite meet, and those at the end of a band may have a
    // solution just at the end.
    if (left == cell.z_least() && std::abs(f_left) <= target_.doubt()) {
      approach<Saturation>(cell, f, left);
    }
    if (right == 1 && std::abs(f_right) <= target_.doubt()) {
      approach<Saturation>(cell, f, right);
    }
    return true;
  }

  /// From a root of the polynomial with its slope.
  template <class Saturation>
  bool approach(const Cell& cell, const CellPolynomial& f, double z) {
    const double r = cell.root(z);
    const double slope = -f(z).derivative * cell.band->scale / r;  // over t
    double t = temperature_of(r);
    constexpr int most_steps = 6;
    for (int n = 0; n < most_steps; ++n) {
      const double step = -target_.exact<Saturation>(t) / slope;
      t += step;
      constexpr double widest_step = 1e-2;
      if (!(std::abs(step) <= widest_step)) {
        return false;
      }
      constexpr double straight = 1e-8;  // K: so far the slope of the table is good enough
      if (std::abs(step) <= std::min(wet::small_step(t), straight)) {
        return add_in(cell, t);
      }
    }
    return false;
  }

  /// A solution may be a little beyond the side of its cell, but not beyond its band.
  bool add_in(const Cell& cell, double t) {
    constexpr double boundary_slack = 1e-9;
    const double high = cell.t_high() + (cell.is_first() ? boundary_slack : 1e-6);
    const double low = cell.t_low() - (cell.is_last() ? boundary_slack : 1e-6);
    if (!(t >= low && t <= high)) {
      return false;
    }
    if (cell.band == &saturated_to_350) {
      add(std::clamp(t, t_lowest, t_350));
    } else {
      add(std::max(t, std::nextafter(t_350, t_highest)));
    }
    return true;
  }

  /// All solutions between two temperatures, by the equations and brackets.
  template <class Saturation, class Found>
  void by_equations(double t_high, double t_low, const Found& found, int parts = 5) {
    // Next to the critical point the rounding of the volumes moves the temperature by as much.
    const bool merging = t_low >= t_jump - r_merging * r_merging;
    const Enough enough{.step = merging ? 1e-12 : 3e-16,
                        .noise = merging ? 3e-10 * target_.value : rounding()};
    all_roots([&](double t) { return target_.sloped<Saturation>(t); }, t_high, t_low, found, parts,
              enough);
  }

  [[nodiscard]] Ends tabulated_at(double t) const {
    const TabulatedSaturation saturation(t);
    return with_quantity(target_.q, [&]<Quantity Q>() { return saturation.ends<Q>(); });
  }

  /// Where the table does not tell all: above and below the jump.
  void beside_critical_point() {
    const double t_low = temperature_of(r_merging);
    const Ends at_jump = tabulated_at(below_jump);
    const Ends at_low = tabulated_at(t_low);
    // A bracket may close on a jump.
    const double miss = 3e-8 * target_.value;  // the rounding of the volumes
    const auto found = [this, miss](double t) {
      if (std::abs(target_.exact<HighSaturation>(t)) <= miss) {
        add(t);
      } else {
        closed_on_jump_ = t;
      }
    };
    const double room = figures_of(target_.q).room;
    const auto is_between = [&](double least, double most) {
      return target_.value > least * (1 - room) && target_.value < most * (1 + room);
    };
    if (is_between(at_jump.liquid, at_low.vapour)) {
      by_equations<HighSaturation>(t_critical, above_jump, found, 1);
      if (states_.sites.empty() && std::abs(target_.exact<HighSaturation>(t_critical)) <= miss) {
        add(t_critical);
      }
    }
    if (is_between(Ends{at_low.liquid, at_jump.vapour}.mixed(target_.x),
                   Ends{at_jump.liquid, at_low.vapour}.mixed(target_.x))) {
      by_equations<HighSaturation>(below_jump, t_low, found, 2);
    }
  }

  [[nodiscard]] double rounding() const {
    const Figures& figures = figures_of(target_.q);
    return figures.rounding + figures.relative_rounding * target_.value;
  }

  void add(double t) { states_.sites.empty() || !is_last(t) ? add_new(t) : void(); }
  /// Neighbouring cells may find the same solution.
  [[nodiscard]] bool is_last(double t) const {
    constexpr double same = 1e-7;
    const Site& last = states_.sites[states_.sites.size() - 1];
    return std::abs(last.t - t) < same && (last.t <= t_350) == (t <= t_350);
  }
  void add_new(double t) { states_.sites.add(at_quality(saturation_pressure(t), t, target_.x)); }

  static constexpr double above_jump = t_jump + 1e-8, below_jump = t_jump - 1e-8;
  Quality target_;
  bool only_first_;
  Solutions states_;
  double closed_on_jump_ = 0;  // °C, if it has happened
};

}  // namespace

WetStates wet_states(Quantity q, double value, double x, bool only_first) {
  const Quality target{q, value, x};
  Scan scan(target, only_first);
  scan.run();
  WetStates found{scan.states(), {}};
  if (!found.all.sites.empty()) {
    return found;
  }
  // A value that neither side of 350 °C or of a jump reaches.
  const auto at = [&](double t) {
    found.nearest = at_quality(saturation_pressure(t), t, x);
    found.nearest.approximate = true;
  };
  constexpr double above = t_jump + 1e-8, below = t_jump - 1e-8;
  if (std::abs(target.at_side(target.profile(saturated_to_350), 0)) < misfit(q, value)) {
    at(t_350);
  } else if (scan.closed_on_jump() > 0) {
    at(scan.closed_on_jump());
  } else if (target.exact<HighSaturation>(above) * target.exact<HighSaturation>(below) < 0) {
    at(below);
  }
  return found;
}

}  // namespace steam
