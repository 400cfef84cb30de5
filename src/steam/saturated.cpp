#include "steam/saturated.hpp"

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

}  // namespace

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
