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
