#!/usr/bin/env bash
# Evaluates a turbine test from its readings, heat-rate.csv beside this: heat rate, efficiency of the
# turbine before and behind the extraction, the latter by an energy balance, since a temperature does not
# tell the state of wet exhaust steam. The example 8.5 named there gives the figures of the last column.
set -euo pipefail
cd "$(dirname "$0")"

power=100000 # kW, net: the pumps' is taken off

# point,flow,p,t,p in bar,h,s,status
states=$("${VEK:-vek}" batch pt heat-rate.csv --list p,h,s | grep -v '^#')
# of NAME COLUMN: a value of a point
of() { awk -F, -v name="$1" -v column="$2" '$1 == name { print $column }' <<<"$states"; }

# Where the turbine would end without loss: from each inlet's entropy to each outlet's pressure.
ideal=$(printf '%s\n' "$(of extraction 5),$(of 'live steam' 7)" "$(of hotwell 5),$(of extraction 7)" |
  "${VEK:-vek}" batch ps --list h | cut -d, -f3)
read -r ideal_extraction ideal_exhaust <<<"${ideal//$'\n'/ }"

awk -v power="$power" -v flow="$(of 'live steam' 2)" -v live="$(of 'live steam' 6)" \
  -v extraction="$(of extraction 6)" -v hotwell="$(of hotwell 6)" -v condensate="$(of condensate 6)" \
  -v heater="$(of 'heater outlet' 6)" -v feedwater="$(of feedwater 6)" \
  -v ideal_extraction="$ideal_extraction" -v ideal_exhaust="$ideal_exhaust" '
  function row(name, value, unit, source) { printf "%-34s%10.4f %-7s%9s\n", name, value, unit, source }
  BEGIN {
    rate = flow * 1000 * (live - feedwater) / power
    y = (heater - condensate) / (extraction - condensate)
    pumps = feedwater - heater + (1 - y) * (condensate - hotwell)
    work = power / (flow / 3.6) + pumps
    exhaust = extraction - (work - (live - extraction)) / (1 - y)
    row("heat rate", rate, "kJ/kWh", 9756)
    row("thermal efficiency", 3600 / rate, "", 0.369)
    row("share of steam to the heater", y, "", 0.1966)
    row("work of the turbine", work, "kJ/kg", 984.4)
    row("enthalpy of the exhaust", exhaust, "kJ/kg", 2249.3)
    row("efficiency to the extraction", (live - extraction) / (live - ideal_extraction), "", 0.85)
    row("efficiency to the condenser", (extraction - exhaust) / (extraction - ideal_exhaust), "", 0.85)
  }'
