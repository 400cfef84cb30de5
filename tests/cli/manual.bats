#!/usr/bin/env bats
# Help, manual page and completion.

load helpers

commands() { "$VEK" complete -- '' | cut -f1; }

# options COMMAND...: as its help has them.
options() { "$VEK" "$@" --help | grep -Eo -- '--[a-z]+' | sort -u; }

@test "help, manual page and completion know the same commands and options" {
  "$VEK" man | sed 's/\\-/-/g' >"$BATS_TEST_TMPDIR/page"
  [ "$(commands | wc -l)" -ge 22 ]
  for command in $(commands) 'table saturation' 'table water-steam'; do
    grep -Eq "^(\\\\fB|.SS vek )$command(\\\\fR)?$" "$BATS_TEST_TMPDIR/page"
    for option in $(options $command); do
      grep -Eq "^.fB(-[a-z],)?$option" "$BATS_TEST_TMPDIR/page"
    done
    [ "$command" = table ] || diff <(options $command) <("$VEK" complete -- $command -- | cut -f1 | sort)
  done
}

@test "help stays within 80 columns, the manual page is sound" {
  for command in '' $(commands) 'table saturation' 'table water-steam'; do
    run -0 "$VEK" $command --help
    [ "$(LC_ALL=C.UTF-8 wc -L <<<"$output")" -le 80 ]
  done
  if command -v groff; then
    [ "$("$VEK" man | groff -man -Tutf8 -k -ww -rLL=80n 2>&1 >/dev/null)" = "" ]
  fi
  expect 0 'vek [0-9]*.[0-9]*.[0-9]*' '' --version
  expect 0 '*Usage: vek ph P H \[LIST\]*pressure, 0.006112444 to 1000 bar*enthalpy*' '' ph --help
}

@test "the examples of the manual page run" {
  cd "$BATS_TEST_TMPDIR"
  printf 'p,h\n100,3000\n' >plant.csv
  "$VEK" --help | sed -n '/^Examples:/,$s/^  \(vek .*[^ ]\)   *[^ ].*$/\1/p' >examples
  while read -r vek arguments; do
    echo "\$ vek $arguments"
    "$VEK" $arguments 2>&1 | head -9
    [ "$arguments" = "${arguments%-o out.csv}" ] || sed -E 's/([.][0-9]{6})[0-9]+/\1/g' out.csv
  done <examples >printed
  diff "$BATS_TEST_DIRNAME/examples.txt" printed
}

@test "shells complete words" {
  eval "$("$VEK" completion bash)"
  complete_in_bash() { COMP_WORDS=("$VEK" "$@") COMP_CWORD=$#; _vek; echo "${COMPREPLY[*]}"; }
  [ "$(complete_in_bash pt --form)" = --format ]
  [ "$(complete_in_bash pt 1 100 --format '')" = 'table csv json' ]
  [ "$(complete_in_bash PT 1 100 h,sig)" = h,sigma ]
  [ "$(complete_in_bash table s)" = saturation ]
  if command -v zsh; then "$VEK" completion zsh | zsh -n; fi
  if command -v fish; then
    PATH="$(dirname "$VEK"):$PATH" fish -c "vek completion fish | source; complete -C 'vek table s'" | grep ^saturation
  fi
}

@test "colour on a terminal only, and not with NO_COLOR" {
  in_terminal() { script -qec "'$VEK' pt 10 100 h" /dev/null; }
  [[ $(TERM=xterm in_terminal) == *$'\033[1m'* ]]
  [[ $(TERM=xterm NO_COLOR=1 in_terminal) != *$'\033'* ]]
  [[ $("$VEK" pt 10 100 h) != *$'\033'* ]]
}
