#!/usr/bin/env bats
# vek batch PAIR [FILE]

load helpers

setup() { mkdir "$BATS_TEST_TMPDIR/here"; cd "$BATS_TEST_TMPDIR/here"; }

@test "appends to rows, and carries everything else byte for byte" {
  printf '\xEF\xBB\xBF# measured\r\ntag,p [psi],"t_K",note\r\nA,145,373.15,"x, ""y""\n second"\r\n\r\nC,14.5psi,212F,5" pipe\r\n#\nD, 20 ,400,' >in.csv
  run -0 --separate-stderr "$VEK" batch pt in.csv --list h,x --digits 6
  [ "$stderr" = 'vek: 3 rows, 0 failed' ]
  printf '\xEF\xBB\xBF# measured\r\ntag,p [psi],"t_K",note,h [kJ/kg],x,status\r\nA,145,373.15,"x, ""y""\n second",419.738,,ok\r\n\r\nC,14.5psi,212F,5" pipe,2676.18,,ok\r\n#\nD, 20 ,400,,2726.49,,ok' >wanted.csv
  "$VEK" batch pt in.csv --list h,x --digits 6 2>/dev/null | diff wanted.csv -
}

@test "a row that fails says why, the others go on, status 1" {
  printf 'h,p,x\n-5,10,1\n3000,100,2\n,100,3\nabc,100,4\n3000,100\n"1,5",100,5\n3000,2000,6\n' >in.csv
  run -1 --separate-stderr "$VEK" batch ph in.csv --list t --digits 5
  echo "$output"
  [ "$stderr" = 'vek: 7 rows, 6 failed; the first in line 2: enthalpy -5 is outside 0.0006113 to 4158.746 kJ/kg' ]
  [ "$output" = 'h,p,x,t [°C],status
-5,10,1,,enthalpy -5 is outside 0.0006113 to 4158.746 kJ/kg
3000,100,2,369.64,ok
,100,3,,enthalpy is missing
abc,100,4,,enthalpy: '\''abc'\'' is not a number
3000,100,,,2 fields instead of 3
"1,5",100,5,,"enthalpy: '\''1,5'\'' has a comma; write a decimal point: 1.5"
3000,2000,6,,pressure 2000 is outside 0.006112444 to 1000 bar' ]
}

@test "finds columns by name, number or place" {
  wanted=$(printf '3000;100;369.638;ok')
  [ "$(printf 'h;p\n3000;100\n' | "$VEK" batch ph --list t --delimiter semicolon --digits 6 2>&- | tail -1)" = "$wanted" ]
  [ "$(printf '3000;100\n' | "$VEK" batch hp --list t --delimiter semicolon --digits 6 2>&-)" = "$wanted" ]
  [ "$(printf 'a;b\n3000;100\n' | "$VEK" batch ph --first b --second 1 --list t --delimiter semicolon --digits 6 2>&- | tail -1)" = "$wanted" ]
  wanted=$'h;p [barg];t [°C]\n3000,5;99;369,78'
  [ "$(printf 'h;p [barg]\n3000,5;99\n' | "$VEK" batch ph --list t --delimiter semicolon --decimal comma --digits 6 --ambient 1bar 2>&- | cut -d';' -f1-3)" = "$wanted" ]
  expect 2 '' 'vek: no column p in the header: a, b; name it by --first or --second' batch ph <<<$'a,b\n1,2'
  expect 2 '' "vek: column p \[apples\]: 'apples' is no unit of pressure" batch ph <<<$'p [apples],h\n1,2'
}

@test "the same bytes on any number of threads, the same bits as single states" {
  awk 'BEGIN {
    srand(7)
    for (i = 0; i < 40000; ++i) {
      p = exp(rand() * 12 - 5.09)
      print p "," rand() * 790 + 1 >"pt"
      print p "," rand() * 3500 >"ph"
      print rand() * 374 "," int(rand() * 12) / 11 >"tx"
    }
  }'
  numbers='{ for (i = 1; i < NF; ++i) printf "%s,", $i == "" ? "" : sprintf("%.17g", $i); print "" }'
  for pair in pt ph tx; do
    "$VEK" batch $pair $pair --list h,s,v,w,dt --digits 17 --threads 1 2>&- >one || [ $? -eq 1 ]
    "$VEK" batch $pair $pair --list h,s,v,w,dt --digits 17 --threads 5 2>&- | cmp - one
    head -700 $pair | while IFS=, read -r a b; do
      echo "given,,,,$a,$b"
      "$VEK" $pair "$a" "$b" h,s,v,w,dt --digits 17 --format csv 2>&- || echo none
    done |
      awk -F, '/^given/ { printf "%s%s,%s,", (NR > 1 ? "\n" : ""), $5, $6 }
        /^none/ { printf ",,,,," }
        /^[0-9]/ { printf "%s,", $5 }
        END { print "" }' |
      awk -F, "$numbers" >singles
    head -700 one | awk -F, "$numbers" | cmp - singles
  done
}

@test "a quoted field that never ends costs its own row only" {
  { printf 'p,t\n1,100\n"10,100\n'; yes 1,100 | head -400000; } >in.csv
  run -1 --separate-stderr bash -c "set -o pipefail; '$VEK' batch pt in.csv --list h | grep -c ok"
  echo "$stderr"
  [ "$output" = 400001 ]
  [ "$stderr" = 'vek: 400002 rows, 1 failed; the first in line 3: 1 fields instead of 2' ]
}

@test "files that cannot be used: one line, status 3, and none left behind" {
  expect 3 '' 'vek: cannot read nowhere.csv: No such file or directory' batch pt nowhere.csv
  expect 3 '' 'vek: cannot read .: Is a directory' batch pt .
  yes 1,100 | head -100000 >in.csv
  expect 3 '' 'vek: cannot write no/out.csv: No such file or directory' batch pt in.csv -o no/out.csv
  expect 3 '' 'vek: cannot write /dev/full: No space left on device' batch pt in.csv -o /dev/full
  run bash -c "set -o pipefail; '$VEK' batch pt in.csv | head -1"
  [ "$status" -eq 141 ]
  expect 3 '' 'vek: cannot read /proc/self/mem: *' batch pt /proc/self/mem
  run -3 bash -c "'$VEK' batch pt <&-"
  [ "$output" = 'vek: cannot read standard input: Bad file descriptor' ]
  [ "$(ls)" = in.csv ]
}

@test "an interrupted run leaves what was there, unless it is to go on" {
  echo old >out.csv
  for signal in INT TERM HUP; do
    env --default-signal=INT,HUP "$VEK" batch pt -o out.csv < <(yes 1,100) &
    until compgen -G 'out.csv.*' >found; do sleep 0.05; done
    kill -s $signal $!
    status=0
    wait $! || status=$?
    [ $status -eq $((128 + $(kill -l $signal))) ]
    [ "$(ls)$(cat out.csv)" = $'found\nout.csvold' ]
  done
  nohup "$VEK" batch pt --list h --digits 5 -o out.csv < <(echo 1,100; sleep 0.5) &
  until compgen -G 'out.csv.*' >found; do sleep 0.05; done
  kill -HUP $!
  wait $!
  [ "$(cat out.csv)" = 1,100,2676.2,ok ]
}
