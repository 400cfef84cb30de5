#include "steam/search/saturated.hpp"

namespace steam {
namespace {

template <class Saturation>
Ends ends_of(const Saturation& s, Quantity q) {
  switch (q) {
    case Quantity::v:
      return s.template ends<Quantity::v>();
    case Quantity::h:
      return s.template ends<Quantity::h>();
    case Quantity::s:
      return s.template ends<Quantity::s>();
    default:
      return s.template ends<Quantity::u>();
  }
}

template <class Saturation>
SlopedEnds sloped_ends_of(const Saturation& s, Quantity q, double p_over_t) {
  switch (q) {
    case Quantity::v:
      return s.template sloped_ends<Quantity::v>(p_over_t);
    case Quantity::h:
      return s.template sloped_ends<Quantity::h>(p_over_t);
    case Quantity::s:
      return s.template sloped_ends<Quantity::s>(p_over_t);
    default:
      return s.template sloped_ends<Quantity::u>(p_over_t);
  }
}

}  // namespace

std::array<SlopedEnds, 2> sloped_saturated_ends(Quantity first, Quantity second, double t,
                                                const SaturationPressure& line) {
  const auto both = [&](const auto& saturation) {
    return std::array{sloped_ends_of(saturation, first, line.over_t),
                      sloped_ends_of(saturation, second, line.over_t)};
  };
  return t <= t_350 ? both(LowSaturation(t, line.p)) : both(HighSaturation(t, line.p));
}

Ends saturated_ends(Quantity q, double t, double p) {
  return t <= t_350 ? ends_of(LowSaturation(t, p), q) : ends_of(HighSaturation(t, p), q);
}

Site with_quality(Site site) {
  if (site.given != Quantity::x) {
    site.x = saturated_ends(site.given, site.t, site.p).quality(site.value);
    site.given = Quantity::x;
  }
  return site;
}

}  // namespace steam
