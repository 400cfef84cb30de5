#pragma once

#include "steam/equations/site.hpp"
#include "steam/tables/saturation_line.hpp"

namespace steam {

/// A property of saturated liquid and saturated vapour.
template <class Num>
struct EndsOf {
  Num liquid, vapour;
  [[nodiscard]] Num mixed(Num x) const { return liquid + x * (vapour - liquid); }
  /// Not a number where the two are one and the value is another.
  [[nodiscard]] Num quality(Num value) const {
    return numbers::select(value == liquid, Num(0), (value - liquid) / (vapour - liquid));
  }
};
using Ends = EndsOf<double>;

/// With the slope along the saturation line.
template <class Num>
struct SlopedEndsOf {
  EndsOf<Num> value, slope;
};
using SlopedEnds = SlopedEndsOf<double>;

/// The variable of the table of saturated states; the square root has a slope up to `least`.
template <class Num>
Num root_of(Num t) {
  constexpr double least = 1e-6;
  return numbers::sqrt(numbers::larger(t_critical - t, Num(least)));
}
template <class Num>
Num temperature_of(Num r) {
  return t_critical - r * r;
}

/// Saturated states from the table.
/// @accuracy  1e-11 (volume of cold steam 2e-9), in the last 0.15 K below the critical
///            temperature 1e-7, in the last 0.001 K 1e-3
template <class Num>
class TabulatedSaturationOf {
 public:
  /// In the band to which the temperature belongs.
  explicit TabulatedSaturationOf(Num t) : TabulatedSaturationOf(bands_of(t), root_of(t)) {}

  /// In one band, at a root that may be a little beyond it.
  TabulatedSaturationOf(const SaturatedBand& band, Num r)
      : TabulatedSaturationOf(everywhere(band), r) {}

  template <Quantity Q>
  [[nodiscard]] EndsOf<Num> ends() const {
    const Coefficients c(*this, of<Q>);
    const Num z2 = z_ * z_;
    // Even and odd powers apart: two short chains in place of a long one.
    Both even = c[saturated_terms - 2], odd = c[saturated_terms - 1];
    for (std::size_t k = saturated_terms - 2; k > 0; k -= 2) {
      even = nested(even, z2, c[k - 2]);
      odd = nested(odd, z2, c[k - 1]);
    }
    return nested(odd, z_, even);
  }

  /// The slope is over r.
  template <Quantity Q>
  [[nodiscard]] SlopedEndsOf<Num> sloped_ends() const {
    const Coefficients c(*this, of<Q>);
    const Num z2 = z_ * z_;
    Both even = c[saturated_terms - 2], odd = c[saturated_terms - 1];
    Both even_slope{0, 0}, odd_slope{0, 0};  // over z²
    for (std::size_t k = saturated_terms - 2; k > 0; k -= 2) {
      even_slope = nested(even_slope, z2, even);
      odd_slope = nested(odd_slope, z2, odd);
      even = nested(even, z2, c[k - 2]);
      odd = nested(odd, z2, c[k - 1]);
    }
    const Both slope = nested(nested(odd_slope, z_, even_slope), 2 * z_, odd);
    return {nested(odd, z_, even), {slope.liquid * over_r_, slope.vapour * over_r_}};
  }

 private:
  using Both = EndsOf<Num>;

  /// The band of each lane.
  struct Bands {
    Num origin, scale;
    std::array<const SaturatedCell*, static_cast<std::size_t>(numbers::width_of<Num>)> cells;
  };
  /// A quantity's coefficients in the cell of each lane.
  class Coefficients {
   public:
    template <class Of>
    [[gnu::always_inline]] Coefficients(const TabulatedSaturationOf& table, Of of) {
      for (std::size_t lane = 0; lane < rows_.of.size(); ++lane) {
        rows_.of[lane] = of(*table.cells_[lane]).front().data();
      }
    }
    [[gnu::always_inline]] Both operator[](std::size_t k) const {
      return {rows_[2 * k], rows_[2 * k + 1]};
    }

   private:
    numbers::Rows<Num, double> rows_;
  };

  TabulatedSaturationOf(const Bands& bands, Num r) : cells_(bands.cells) {
    const auto [cell, place] = in_cells((r - bands.origin) * bands.scale, saturated_cells);
    for (std::size_t lane = 0; lane < cells_.size(); ++lane) {
      cells_[lane] += numbers::lane_of(cell, lane);
    }
    z_ = place;
    over_r_ = 2 * bands.scale;
  }

  static Bands everywhere(const SaturatedBand& band) {
    Bands bands{band.origin, band.scale, {}};
    bands.cells.fill(band.polynomials);
    return bands;
  }
  static Bands bands_of(Num t) {
    constexpr const SaturatedBand &low = saturated_to_350, &high = saturated_above_350;
    const auto is_low = t <= t_350;
    Bands bands{numbers::select(is_low, Num(low.origin), Num(high.origin)),
                numbers::select(is_low, Num(low.scale), Num(high.scale)),
                {}};
    for (std::size_t lane = 0; lane < bands.cells.size(); ++lane) {
      bands.cells[lane] = (numbers::lane_of(t, lane) <= t_350 ? low : high).polynomials;
    }
    return bands;
  }

  [[gnu::always_inline]] static Both nested(const Both& outer, Num z, const Both& inner) {
    return {outer.liquid * z + inner.liquid, outer.vapour * z + inner.vapour};
  }

  template <Quantity Q>
  static const SaturatedPolynomial& of(const SaturatedCell& cell) {
    if constexpr (Q == Quantity::v) {
      return cell.v;
    } else if constexpr (Q == Quantity::h) {
      return cell.h;
    } else if constexpr (Q == Quantity::s) {
      return cell.s;
    } else {
      return cell.u;
    }
  }

  std::array<const SaturatedCell*, static_cast<std::size_t>(numbers::width_of<Num>)> cells_;
  Num z_, over_r_;
};
using TabulatedSaturation = TabulatedSaturationOf<double>;

}  // namespace steam
