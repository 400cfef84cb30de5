#!/usr/bin/env bats
# vek table saturation|water-steam

load helpers

# printed ROW ARGUMENT...: a table has a row, as far as printed tables have digits.
printed() {
  local row=$1
  shift
  run -0 "$VEK" table "$@"
  echo "$output"
  grep -Eq "^ *${row// / +}" <(tr -s ' ' <<<"$output")
}

@test "saturation, to the digits of printed tables" {
  printed '0.01 0.0061124 0.0010002 206.16 0.0 2501.6 2501.6 0.0000 9.1575$' saturation 0.01:374:5
  printed '5 0.0087' saturation 0.01:374:5
  printed '100 1.0133 0.0010437 1.6730 419.1 2676.0 2256.9 1.3069 7.3554$' saturation
  printed '200 15.549 0.0011565 0.12716 852.4 2790.9 1938.6 2.3307 6.4278$' saturation
  printed '300 85.927 0.0014041 0.021649 1345.1 2751.0 1406.0 3.2552 5.7081$' saturation
  # 14.696 psi: 26.799 ft³/lb, 180.17 and 1150.5 Btu/lb, 0.3121 and 1.7568 Btu/(lb °F)
  printed '14.696 212.00 0.016719 26.799 180.2 1150.5 970.3 0.3121 1.7568$' saturation --by p --units US 14.696
}

@test "water and steam, to the digits of printed tables" {
  printed '200 2.1723 2875.4 7.8349 0.0011480 855.9 2.3176$' water-steam -p 1,100 -t 200
  printed '500 3.5653 3488.1 8.8348 0.032760 3374.6 6.5994$' water-steam -p 1,100 -t 100:500:100
  printed '600 .* 0.018161 3535.5 6.5043$' water-steam -p 10,200 -t 100,600
  printed 'sat.vap. 0.19429 2776.2 6.5828 - - -$' water-steam -p 10,300
}

@test "the same values in every format" {
  [ "$("$VEK" table saturation 100 --format csv | tail -1)" = '100,1.0133,0.0010437,1.6730,419.1,2676.0,2256.9,1.3069,7.3554' ]
  [ "$("$VEK" table water-steam -p 1 -t 100 --format markdown | tail -1)" = '| 1 | 100 | steam | 1.6955 | 2676.2 | 7.3618 |' ]
  cd "$BATS_TEST_TMPDIR"
  "$VEK" table saturation --format pdf -o table.pdf
  python3 - table.pdf <<'PDF'
import re, sys
pdf = open(sys.argv[1], "rb").read()
table = int(re.search(rb"startxref\n(\d+)", pdf)[1])
starts = [int(n) for n in re.findall(rb"^(\d{10}) 00000 n", pdf[table:], re.M)]
assert all(pdf[at:].startswith(b"%d 0 obj" % (i + 1)) for i, at in enumerate(starts)), starts
for length, stream in re.findall(rb"/Length (\d+) >>\nstream\n(.*?)endstream", pdf, re.S):
    assert int(length) == len(stream)
assert b"(2676.0)" in pdf and b"(t in \xb0C" not in pdf and b"\xb0C" in pdf
PDF
}

@test "what makes no table is refused" {
  expect 2 '' "vek: '1:2' is no range FROM:TO:STEP" table saturation 1:2
  expect 2 '' 'vek: 5:1:1 is no range*' table saturation 5:1:1
  expect 2 '' 'vek: 0:800:1e-09 is no range*' table saturation 0:800:1e-9
  expect 1 '' 'vek: temperature 400 is outside 0.01 to 374.15 °C' table saturation 400
  expect 3 '' 'vek: cannot write /dev/full*' table saturation -o /dev/full
}
