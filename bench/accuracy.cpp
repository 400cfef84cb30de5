#include <fmt/core.h>

#include <map>
#include <string>

#include "survey.hpp"

// Writes how well each finder of the classic module places the states of each band: as Markdown
// for docs/accuracy.md, or with --csv as the table that the tests compare with.

namespace {

using survey::Band;
using survey::Finder;
using survey::Result;

/// Whether the figures depend on the last bits of the elementary functions, which differ between
/// machines, so that no test can hold them: the one iteration without a limit wanders, and volumes
/// of cold water have solvers that do not converge.
bool depends_on_last_bits(const Finder& finder, const Band& band, const Result& r) {
  const bool wanders = finder.name == "sx" && r.evaluations > 200;
  return wanders || (finder.name[0] == 'v' && band.name == "water, to 10 °C");
}

/// What the numbers of a finder mean to its user.
const std::map<std::string, const char*> remarks{
    {"pt",
     "Near the boundary line between subregions 2 and 3 it takes some near-critical steam for "
     "steam: by its own digits the line lies some 0.7 bar too high. The properties there differ by "
     "no more than the two equations do. A few states within a hair of the saturation line above "
     "372 °C come back with the volume of the other side. On the saturation line, within the "
     "tolerance, it answers "
     "with a wet code and leaves the pressure where the quality belongs: `vek` then takes a "
     "pressure of 1 bar or more for saturated steam, a lower one for the quality. Ask for "
     "saturated states with `vekrpx_` or `vekrtx_`."},
    {"px", ""},
    {"tx", ""},
    {"pv",
     "Water below 10 °C has two temperatures for one volume around its density maximum; the "
     "finder returns one of them. Use `vekrph_` or `vekrps_` there."},
    {"ph", ""},
    {"ps", ""},
    {"pu", ""},
    {"tv",
     "Steam below 0.0611 bar: its lower start pressure is ten times too high, so the solver does "
     "not enclose the root, and the pressure it returns is often wrong. Treat such steam as an "
     "ideal gas for the pressure, p = 0.00461526 (t + 273.15) / v, and use `vekrpt_`."},
    {"th",
     "**Refuses every state up to 350 °C whose enthalpy is at most 1400 kJ/kg**: most compressed "
     "water and much wet steam, with code 7 and its message. In water enthalpy hardly depends on "
     "pressure, so what is placed in subregion 1 has a pressure of few digits. In dilute steam "
     "too: pressures are good to 1e-3 only, and a few in water above 221 bar are not found at all. "
     "Use "
     "a pair with the pressure in it, or `vekrts_`."},
    {"tu",
     "As `vekrth_`, with the threshold 250 kJ/kg: water to 60 °C is refused. Its boundary line has "
     "other digits: some near-critical steam counts as steam."},
    {"ts",
     "Water below 10 °C, where entropy hardly depends on pressure or rises with it, is partly "
     "placed in the wet region."},
    {"sx",
     "**Fails on real states, mostly with code 7 after the warning VEKRSX**: below 12 °C about "
     "half "
     "of all, and between qualities 0.4 and 0.6 its iteration often wanders off or "
     "stops at once, at 0.01 °C. Messages that a point is not in the wet region "
     "come from trial temperatures and mean nothing. Check the entropy of the state returned "
     "against the one asked for, or find the saturation temperature from `vekrtx_` with a root "
     "finder of your own."},
    {"hs",
     "Places nearly everything, but where subregions meet, in water colder than 10 °C and near "
     "800 °C, where its upper start temperature ends, a few states are wrong by far more than the "
     "tolerance, some with a solver's warning: check the state returned."},
    {"us",
     "**Misplaces nearly everything but steam of high entropy, mostly without any sign**: its "
     "residual mixes wet states by the temperature instead of the quality, so the solver sees a "
     "function that is not the internal energy, and everything below 250 kJ/kg is refused. Even "
     "wet "
     "states placed in the right region come with a wrong quality. Do not use it below 6.5 "
     "kJ/(kg K); find the state with `vekrhs_` or `vekrpu_` and a root finder of your own."},
    {"vh",
     "Water below 10 °C: two states share a volume, and the solver does not converge on half of "
     "them. In warmer water at low pressure the volume hardly tells the pressure, which a few "
     "states "
     "lose altogether. Elsewhere flags come from trial pressures and the result is good."},
    {"vs", "As `vekrvh_`."},
    {"vu",
     "As `vekrvh_`; and **no wet state above 350 °C comes out right**: its residual returns a "
     "volume there instead of an energy. Use `vekrvh_` or `vekrvs_`."},
    {"vx",
     "**Volumes below 0.00317 m³/kg are mostly placed nowhere or at a wrong temperature**, "
     "because the volume of dense wet states falls with temperature before it rises, and two "
     "temperatures share a volume and quality. Use `vekrpx_` or `vekrtx_` with a root finder."},
};

constexpr const char* introduction = R"(# Accuracy of the classic module

Generated by `script/accuracy`. For each finder and each part of the range, {} states spread
evenly over that part were computed forwards with the equations themselves (from pressure and
temperature, volume and temperature, or temperature and quality), given to the finder as its pair
with the tolerance 1e-8, and compared with what it left.

- **placed**: share that came back with the right region code.
- **median**, **largest**: error of the recovered pair, among those placed: relative for pressure
  and volume, absolute for quality, relative to absolute zero for temperature.
  "-" means that none was placed, "inf" that a value that is not a number was left.
- **flag**: share with the error flag raised, by a range report or a warning.
- **warned**: share with a solver's warning, that is without convergence.
- **evaluations**: mean number of evaluations of the equations and of the saturation line.

What is poor here is how the module is defined, not a fault of this build: hosts depend on it. The
engine (`vek/steam.hpp`, see [engine.md](engine.md)) places all of these states.

**The flag says little.** Many finders begin from values just outside the range of the equations
(0.0088 m³/kg, 0.0045 bar), so range reports are routine and leave the flag at 2 on good results. `vek`
clears the flag once the state is placed, so its callers do not see them; direct callers of the
finders do. After 32000 reports in one process a report no longer raises the flag at all: a
long-running host that calls finders directly should compare the properties returned with the pair
it gave instead of trusting the flag.
)";

std::string error(double e) { return e == e ? fmt::format("{:.0e}", e) : "-"; }

void print_row(const Band& band, const Result& r) {
  fmt::print("| {} | {:.1f} % | {} | {} | {:.1f} % | {:.1f} % | {:.0f} |\n", band.name,
             100 * r.placed_right, error(r.median_error), error(r.largest_error), 100 * r.flagged,
             100 * r.unconverged, r.evaluations);
}

void print_csv(const Finder& finder, const Band& band, const Result& r) {
  if (depends_on_last_bits(finder, band, r)) {
    return;
  }
  fmt::print("{};{};{};{:.3e};{:.3e};{};{};{}\n", finder.name, band.name, r.placed_right,
             r.median_error, r.largest_error, r.flagged, r.unconverged, r.evaluations);
}

void print_head(const Finder& finder) {
  fmt::print("\n## vekr{}_\n\n", finder.name);
  if (const std::string remark = remarks.at(finder.name); !remark.empty()) {
    fmt::print("{}\n\n", remark);
  }
  fmt::print("| states | placed | median | largest | flag | warned | evaluations |\n");
  fmt::print("|---|---|---|---|---|---|---|\n");
}

void write(const Finder& finder, int count, bool as_csv) {
  if (!as_csv) {
    print_head(finder);
  }
  for (const Band& band : survey::bands()) {
    if (finder.applies_to(band)) {
      const Result result = survey::place_all(finder, band, count);
      as_csv ? print_csv(finder, band, result) : print_row(band, result);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool as_csv = argc == 2 && std::string(argv[1]) == "--csv";
  if (argc > 1 && !as_csv) {
    fmt::print(stderr, "accuracy: the only argument is --csv\n");
    return 2;
  }
  const int count = as_csv ? 200 : 2000;
  if (!as_csv) {
    fmt::print(introduction, count);
  }
  for (const Finder& finder : survey::finders()) {
    write(finder, count, as_csv);
  }
}
