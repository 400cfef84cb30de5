#!/usr/bin/env bats
# The command in its first form: vek PAIR A B [LIST].

bats_require_minimum_version 1.5.0

@test "prints the listed properties with names and units" {
  run --separate-stderr "$VEK" pt 10 100 H,S
  [ "$status" -eq 0 ]
  [ "${lines[0]}" = "H   enthalpy                        419.738642 kJ/kg" ]
  [ "${lines[1]}" = "S   entropy                        1.306163754 kJ/(kg K)" ]
  [ -z "$stderr" ]
}
