#include "verdicts.hpp"

#include <algorithm>
#include <array>

namespace {

constexpr std::array verdicts{
    Verdict{
        "pt", "good, but beside the saturation line", "`vekrpx_`, `vekrtx_` for saturated states",
        "Near the boundary line between subregions 2 and 3 it takes some near-critical steam for "
        "steam: by its own digits the line lies some 0.7 bar too high. The properties there differ "
        "by no more than the two equations do. A few states within a hair of the saturation line "
        "above 372 °C come back with the volume of the other side. On the saturation line, within "
        "the tolerance, it answers with a wet code and leaves the pressure where the quality "
        "belongs: `vek` then takes a pressure of 1 bar or more for saturated steam, a lower one "
        "for the quality. Ask for saturated states with `vekrpx_` or `vekrtx_`."},
    Verdict{"px", "exact", "", ""},
    Verdict{"tx", "exact", "", ""},
    Verdict{"pv", "good, but in water to 10 °C", "`vekrph_`, `vekrps_`",
            "Water below 10 °C has two temperatures for one volume around its density maximum; the "
            "finder returns one of them. Use `vekrph_` or `vekrps_` there."},
    Verdict{"ph", "good", "", ""},
    Verdict{"ps", "good", "", ""},
    Verdict{"pu", "good", "", ""},
    Verdict{
        "tv", "good, but for the pressure of steam below 0.0611 bar",
        "`vekrpt_`, with the pressure of an ideal gas",
        "Steam below 0.0611 bar: its lower start pressure is ten times too high, so the solver "
        "does not enclose the root, and the pressure it returns is often wrong. Treat such steam "
        "as an ideal gas for the pressure, p = 0.00461526 (t + 273.15) / v, and use `vekrpt_`."},
    Verdict{
        "th", "**refuses what has at most 1400 kJ/kg to 350 °C**",
        "`vekrts_`, or a pair with the pressure",
        "**Refuses every state up to 350 °C whose enthalpy is at most 1400 kJ/kg**: most "
        "compressed water and much wet steam, with code 7 and its message. In water enthalpy "
        "hardly depends on pressure, so what is placed in subregion 1 has a pressure of few "
        "digits. In dilute steam too: pressures are good to 1e-3 only, and a few in water above "
        "221 bar are not found at all. Use a pair with the pressure in it, or `vekrts_`."},
    Verdict{"tu", "**refuses what has at most 250 kJ/kg to 350 °C**",
            "`vekrts_`, or a pair with the pressure",
            "As `vekrth_`, with the threshold 250 kJ/kg: water to 60 °C is refused. Its boundary "
            "line has other digits: some near-critical steam counts as steam."},
    Verdict{"ts", "good, but in water to 10 °C", "a pair with the pressure",
            "Water below 10 °C, where entropy hardly depends on pressure or rises with it, is "
            "partly placed in the wet region."},
    Verdict{"sx", "**refuses real states**, half of them below 12 °C",
            "`vekrtx_` and a root finder of your own",
            "**Fails on real states, mostly with code 7 after the warning VEKRSX**: below 12 °C "
            "about half of all, and between qualities 0.4 and 0.6 its iteration often wanders off "
            "or stops at once, at 0.01 °C. Messages that a point is not in the wet region come "
            "from trial temperatures and mean nothing. Check the entropy of the state returned "
            "against the one asked for, or find the saturation temperature from `vekrtx_` with a "
            "root finder of your own."},
    Verdict{"hs", "good for nearly all: check the state returned", "`vekrps_` and a root finder",
            "Places nearly everything, but where subregions meet, in water colder than 10 °C and "
            "near 800 °C, where its upper start temperature ends, a few states are wrong by far "
            "more than the tolerance, some with a solver's warning: check the state returned."},
    Verdict{
        "us", "**wrong, mostly without a sign**, but in steam of high entropy",
        "`vekrhs_`, `vekrpu_` and a root finder",
        "**Misplaces nearly everything but steam of high entropy, mostly without any sign**: its "
        "residual mixes wet states by the temperature instead of the quality, so the solver sees a "
        "function that is not the internal energy, and everything below 250 kJ/kg is refused. Even "
        "wet states placed in the right region come with a wrong quality. Do not use it below 6.5 "
        "kJ/(kg K); find the state with `vekrhs_` or `vekrpu_` and a root finder of your own."},
    Verdict{"vh", "good, but in water to 10 °C", "a pair with the pressure",
            "Water below 10 °C: two states share a volume, and the solver does not converge on "
            "half of them. In warmer water at low pressure the volume hardly tells the pressure, "
            "which a few states lose altogether. Elsewhere flags come from trial pressures and the "
            "result is good."},
    Verdict{"vs", "good, but in water to 10 °C", "a pair with the pressure", "As `vekrvh_`."},
    Verdict{"vu", "**no wet state above 350 °C**; poor in water to 10 °C", "`vekrvh_`, `vekrvs_`",
            "As `vekrvh_`; and **no wet state above 350 °C comes out right**: its residual returns "
            "a volume there instead of an energy. Use `vekrvh_` or `vekrvs_`."},
    Verdict{
        "vx", "**hardly any state below 0.00317 m³/kg**", "`vekrpx_`, `vekrtx_` and a root finder",
        "**Volumes below 0.00317 m³/kg are mostly placed nowhere or at a wrong temperature**, "
        "because the volume of dense wet states falls with temperature before it rises, and two "
        "temperatures share a volume and quality. Use `vekrpx_` or `vekrtx_` with a root finder."},
};

}  // namespace

const Verdict& verdict_on(std::string_view pair) {
  return *std::find_if(verdicts.begin(), verdicts.end(),
                       [&](const Verdict& v) { return v.pair == pair; });
}
