#!/usr/bin/env bats
# vek chart DIAGRAM [-o FILE] [--mark STATE] [--path FILE]

load helpers

@test "pictures by the end of the name, SVG in a pipe" {
  cd "$BATS_TEST_TMPDIR"
  for diagram in hs ts ph pv; do
    expect 0 '' '' chart "$diagram" -o "$diagram.svg"
    grep -q 'saturation</tspan>' "$diagram.svg"
    xmllint --noout "$diagram.svg" || [ $? -eq 127 ]
  done
  expect 0 '' '' chart HS -o a.png
  expect 0 '' '' chart ph -o a.pdf
  [ "$(head -c 4 a.png | tail -c 3)" = PNG ]
  [ "$(head -c 4 a.pdf)" = %PDF ]
  diff <("$VEK" chart pv) pv.svg
}

@test "the cycle of the examples, and a mark where it should be" {
  cd "$BATS_TEST_TMPDIR"
  expect 0 '' '' chart ts --path "$BATS_TEST_DIRNAME/../../examples/rankine.csv" --mark "pt:40,540=it's" -o a.svg
  grep -q 'live steam' a.svg
  grep -q "it's" a.svg
  # s 7.2055 of 0 to 10 and 540 of 0 to 800 °C, on the frame of 1000 by 707
  grep -q "translate(730\.5[0-9],213\.9[0-9])" a.svg
}

@test "failures leave no file" {
  cd "$BATS_TEST_TMPDIR"
  expect 2 '' "vek: a.gif: the name of a chart ends in .svg, .png, .pdf" chart hs -o a.gif
  expect 2 '' "vek: --mark ph100: write it as ph:100,3000" chart hs --mark ph100 -o a.svg
  expect 2 '' "vek: --mark pq:1,2: 'pq' is no pair of properties" chart hs --mark pq:1,2 -o a.svg
  expect 1 '' "vek: temperature 900 is outside 0.01 to 800 °C" chart hs --mark pt:1,900 -o a.svg
  expect 3 '' "vek: cannot read none.csv*" chart hs --path none.csv -o a.svg
  run bash -c "'$VEK' chart hs 2>&1 >/dev/full"
  [[ $status -eq 3 && $output == "vek: cannot write standard output: No space left on device" ]]
  run env PATH=/nowhere "$VEK" chart hs -o a.svg
  [[ $status -eq 3 && $output == "vek: charts are drawn by gnuplot, which is not installed;"* ]]
  ! compgen -G "a.*"
}
