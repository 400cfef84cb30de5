#!/usr/bin/env bats
# The command in its first form: vek PAIR A B [LIST].

bats_require_minimum_version 1.5.0

# expect STATUS STDOUT STDERR ARGUMENT...: both texts are patterns; blanks in a row count as one.
expect() {
  local wanted=$1 out=$2 err=$3
  shift 3
  run --separate-stderr "$VEK" "$@"
  output=$(tr -s ' ' <<<"$output")
  echo "vek $*: status $status, stdout '$output', stderr '$stderr'"
  [[ $status -eq $wanted && $output == $out && $stderr == $err ]]
}

@test "prints the listed properties with names, values and units" {
  expect 0 $'H enthalpy 419.738642 kJ/kg\nS entropy 1.306163754 kJ/(kg K)' '' pt 10 100 H,S
  expect 0 $'T temperature 179.8844333 °C\nX quality 0.5' '' px 10 0.5 T,X
  expect 0 'P pressure 1.01325262 bar' '' tx 100 0.5 P
  expect 0 'H enthalpy 419.738642 kJ/kg' '' pt 1e1 1e2 'H,'
  expect 0 $'T*\nX*\nH*' '' tx 100 0.5 'T X.H'
}

@test "prints everything without a list" {
  expect 0 '*internal energy 418.6954061 kJ/kg*density 958.5559121 kg/m³*region 1 water*' '' pt 10 100
}

@test "says which value is missing and why, with status 1" {
  expect 1 'CP isobaric heat capacity -' $'*** VEKFTN-ERROR: CP, DV, TC cannot be calculated In wet region ***\nvek: CP (isobaric heat capacity) has no value in this region\nvek: error flag 2: a diagnostic was written' tx 100 0.5 CP
  expect 1 $'T*\nDV dynamic viscosity -' '*vek: DV (dynamic viscosity) has no value in this region' pt 250 400 T,DV
  expect 1 '' $'*** VEKFTN-ERROR: illegal region calculated: IREG = 7 ***\nvek: tx 380 0.5: no state can be placed' tx 380 0.5
}

@test "shows the diagnostics of a clean request too" {
  expect 0 'T temperature 400 °C' '** VEK-ERROR: 1  OUT OF RANGE IN COMT3,V= 0.0088,T= 400' pt 250 400 T
  expect 0 'X quality 1' '*on the saturation line*' pt 1.01325262 100 X
}

@test "refuses wrong usage with status 2 and says what is accepted" {
  expect 2 '' 'PAIR is required*'
  expect 2 '' 'PAIR: pq not in {pt,*' pq 1 1
  expect 2 '' 'B is required*' pt 10
  expect 2 '' '*B = x*' pt 10 x
  expect 2 '' "LIST: 'U' is not a property; accepted are P, T, V, H, S, X, CP, DV, TC,*" pt 10 100 H,U
  expect 2 '' "LIST: '' is not a property*" pt 10 100 H,,S
  expect 2 '' '*not expected: S*' pt 10 100 H S
  expect 2 '' 'vek: temperature -5 is out of range; accepted is 0.01 to 800 °C' tx -5 0.5
  expect 2 '' 'vek: pressure nan is out of range*' pt nan 100
}

@test "tells its version and its usage" {
  expect 0 'vek [0-9]*.[0-9]*.[0-9]*' '' --version
  expect 0 '*PAIR*LIST*Exit status*Examples*' '' --help
}
