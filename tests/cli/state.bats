#!/usr/bin/env bats
# vek PAIR A B [LIST]

load helpers

@test "a state in a table, with the digits of printed tables" {
  expect 0 $'water\nenthalpy h 419.74 kJ/kg\nentropy s 1.3062 kJ/(kg K)' '' pt 10 100 h,s
  expect 0 $'steam\nspecific volume v 0.032760 m³/kg*enthalpy h 3374.6*entropy s 6.5994*' '' pt 100 500 v,h,s
  expect 0 '*enthalpy h 419.06 2256.1 2676.0 kJ/kg*surface tension sigma - 0.0* - N/m*' '' tx 100 0.813949
  expect 0 $'supercritical fluid\n*' '' pt 300 500
}

@test "either order, either case, every spelling of a list" {
  expect 0 "$("$VEK" pt 10 100 t,h,s | tr -s " ")" '' tp 100 10 t,h,s
  expect 0 "$("$VEK" pt 10 100 h,s,eta,lambda | tr -s " ")" '' Tp 1e2 10.0 'H.S DV,TC,'
  expect 0 "$("$VEK" pt 10 100 h,s,v | tr -s " ")" '' pt 10 100 h s,v --units bar
}

@test "units on values and on results" {
  expect 0 $'steam\npressure p 100.00 bar\ntemperature t 540.00 °C' '' pt 10MPa 813.15K p,t
  expect 0 $'water\ntemperature t 212.00 °F\nenthalpy h 180.46 Btu/lb\n*eta 0.00018977 lb/(ft s)' '' pt 145psi 212F t,h,eta --units US
  expect 0 $'*\npressure p 1000000 Pa\nentropy s 1306.2 J/(kg K)' '' pt 1000000 373.15 p,s --units SI
  expect 0 $'*\npressure p 8.98675 bar gauge\ntemperature t 373.150 K' '' pt 8.98675 100C p,t --gauge --unit t=K --digits 6
  expect 0 $'*\npressure p 9.9974 barg\n*cp 1.0064 Btu/lbm/F' '' pt 145psig 212F p,cp --ambient 1bar --unit p=barg,cp=Btu/lbm/F
  expect 0 $'*\npressure p 6.8972 bar' '' pt '6 kg/cm2(g)' 300 p
  expect 0 $'*\npressure p 1.0133 bar gauge' '' pt 2.02652bara 300 p --gauge
}

@test "several states: the first and how many, or all" {
  expect 0 $'wet steam\n*Note: 2 states have this pair; the first is that of the lowest pressure*--all*' '' th 20 84
  expect 0 $'wet steam (1 of 2)*water (2 of 2)\npressure p 1.4936 bar' '' th 20 84 p --all
  expect 0 $'*Note: 100 °C saturates at 1.013253 bar; this is the water*vek tx*' '' pt 1.01325262 100
}

@test "what programs read keeps every digit" {
  expect 0 $'state,property,name,unit,value\n1,h,enthalpy,kJ/kg,419.73864203033*' '' pt 10 100 h --format csv
  run -0 bash -c "'$VEK' tx 100 0.5 --format json | python3 -c 'import json, sys
s = json.load(sys.stdin)[0]; h = s[\"properties\"][\"h\"]
print(s[\"title\"], h[\"unit\"], h[\"value\"] - (h[\"saturated_liquid\"] + h[\"saturated_vapour\"]) / 2)'"
  [ "$output" = "wet steam kJ/kg 0.0" ]
}

@test "the classic module, with its diagnostics and flag, and how it differs" {
  expect 0 $'water (classic module)\nenthalpy h 419.74 kJ/kg\nNote: error flag 0: nothing went wrong' '' pt 10 100 h --classic
  expect 0 'supercritical fluid (classic module)*400*' '*OUT OF RANGE IN COMT3,V= 0.0088,T= 400' pt 250 400 t --classic
  expect 0 $'engine and classic module agree to 1e-06\n*' '' ph 100 3000 --compare
  expect 1 $'engine and classic module differ in p, v, h, s*' '' tv 343.31401554870513 138.0136897546333 --compare
  expect 0 $'*agree to the module\'s tolerance, 1e-08 of the given values*' '' ts 50.996237420948063 0.71608623873260469 --compare
  expect 1 $'engine and classic module differ in *h*' '' pt 0.5 81.34526862 --compare
  expect 1 $'the engine finds no state: *2847.4 -*' '' us 1000 2.6 p --compare
  expect 1 '' $'*\nvek: the classic module places no state; error flag 2' tx 380 0.5 --classic
}

@test "no such state: one line, status 1" {
  expect 1 '' 'vek: temperature 900 is outside 0.01 to 800 °C' pt 10 900
  expect 1 '' 'vek: pressure 20000 is outside 0.0886535 to 14503.77 psi' pt 20000 100 --unit p=psi
  expect 1 '' 'vek: pressure is not a number' pt nan 100
  expect 1 '' 'vek: enthalpy -0.5 is outside*' ph 10 -0.5
}

@test "wrong usage: one line that says what is accepted, status 2" {
  expect 2 '' "vek: 'pq' is neither a pair*" pq 1 1
  expect 2 '' 'vek: T is required*' pt 10
  expect 2 '' "vek: pressure: '10,5' has a comma; write a decimal point: 10.5" pt 10,5 100
  expect 2 '' "vek: pressure: '1.000,5' has a comma; write a decimal point: 1000.5" pt 1.000,5 100
  expect 2 '' "vek: pressure: 'xx' is no unit" pt 10xx 100
  expect 2 '' 'vek: --ambient -5bar is no pressure of the surroundings' pt 10 100 --ambient -5bar
  expect 2 '' "vek: pressure: 'degC' is no unit of what has bar" pt 10degC 100
  expect 2 '' "vek: 'zz' is no property*" pt 10 100 h,zz
  expect 2 '' '*--format*xml*table,csv,json*' pt 10 100 --format xml
  [ "${#stderr_lines[@]}" -eq 1 ]
}

@test "output that cannot be written: status 3" {
  run -3 --separate-stderr bash -c "'$VEK' pt 10 100 >/dev/full"
  [ "$stderr" = 'vek: cannot write standard output: No space left on device' ]
  run -3 --separate-stderr bash -c "'$VEK' pt 10 100 >&-"
  [ "$stderr" = 'vek: cannot write standard output: Bad file descriptor' ]
  for arguments in --help 'table saturation' 'chart pv' man 'completion zsh' 'ph 100 3000 --format json'; do
    run -3 bash -c "'$VEK' $arguments >/dev/full"
    [ "$output" = 'vek: cannot write standard output: No space left on device' ]
    run -3 bash -c "'$VEK' $arguments >&-"
    [ "$output" = 'vek: cannot write standard output: Bad file descriptor' ]
  done
}
