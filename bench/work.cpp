#include "work.hpp"

#include "round_trips.hpp"

namespace work {

using steam::Pair;
using steam::Property;
using steam::Region;

const std::vector<Task>& tasks() {
  using P = Property;
  static const std::vector<Task> all{
      {"pt_h", Pair::pt, {P::h}},
      {"pt_vhscp", Pair::pt, {P::v, P::h, P::s, P::cp}},
      {"pt_transport", Pair::pt, {P::viscosity, P::conductivity}},
      {"px_t", Pair::px, {P::t}},
      {"tx_vhs", Pair::tx, {P::v, P::h, P::s}},
      {"ph_t", Pair::ph, {P::t}},
      {"ph_tsv", Pair::ph, {P::t, P::s, P::v}},
      {"ps_h", Pair::ps, {P::h}},
      {"pv_t", Pair::pv, {P::t}},
      {"pu_t", Pair::pu, {P::t}},
      {"tv_p", Pair::tv, {P::p}},
      {"th_p", Pair::th, {P::p}},
      {"ts_p", Pair::ts, {P::p}},
      {"tu_p", Pair::tu, {P::p}},
      {"hs_pt", Pair::hs, {P::p, P::t}},
      {"vh_pt", Pair::vh, {P::p, P::t}},
      {"vs_pt", Pair::vs, {P::p, P::t}},
      {"vu_pt", Pair::vu, {P::p, P::t}},
      {"us_pt", Pair::us, {P::p, P::t}},
      {"sx_pt", Pair::sx, {P::p, P::t}},
      {"vx_pt", Pair::vx, {P::p, P::t}},
      {"hx_pt", Pair::hx, {P::p, P::t}},
      {"ux_pt", Pair::ux, {P::p, P::t}},
      {"hu_pt", Pair::hu, {P::p, P::t}},
  };
  return all;
}

namespace {

bool is_wet(Region region) { return region == Region::wet || region == Region::wet_above_350; }

/// Evenly in temperature and quality, where the surveys prefer the boundaries.
steam::State wet_state(Region region, std::mt19937_64& random) {
  constexpr double t_350 = 350, t_last = 374.1;
  const bool low = region == Region::wet;
  std::uniform_real_distribution t(low ? 0.01 : t_350, low ? t_350 : t_last), x(0.0, 1.0);
  const double its_t = t(random);
  return *steam::state(Pair::tx, its_t, x(random));
}

}  // namespace

bool applies(const Task& task, Region region) {
  const bool with_x = round_trips::name(task.pair)[1] == 'x';
  return with_x ? is_wet(region) : !(task.pair == Pair::pt && is_wet(region));
}

Rows rows(const Task& task, Region region, std::size_t count) {
  std::mt19937_64 random(7);
  Rows all;
  while (all.first.size() < count) {
    const steam::State state =
        is_wet(region) ? wet_state(region, random) : round_trips::random_state(region, random);
    const auto g = round_trips::given(task.pair, state);
    // Of several states of a pair only the preferred one is searched; of (h,u) that is mostly in
    // another region.
    if (task.pair == Pair::hu || steam::value(task.pair, g.first, g.second, Property::region) ==
                                     static_cast<double>(region)) {
      all.first.push_back(g.first);
      all.second.push_back(g.second);
    }
  }
  return all;
}

const char* name(Region region) {
  switch (region) {
    case Region::water:
      return "1";
    case Region::steam:
      return "2";
    case Region::dense_steam:
      return "3";
    case Region::hot_water:
      return "4";
    case Region::wet_above_350:
      return "wet_above_350";
    default:
      return "wet";
  }
}

}  // namespace work
