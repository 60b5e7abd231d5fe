# Sourced by ./test: runs suites, one after the other or side by side, counts their tests, and says how long each took.

passed=0 failed=0 judged=() queued=()
logs=build/logs
lanes=${KORVINEL_JOBS:-$(nproc)}

count() { passed=$((passed + $1)); failed=$((failed + $2)); }

# logged NAME COMMAND...: runs it and keeps its output in NAME.log, its exit code in NAME.status and its seconds (by the
# clock, of the processor for itself and for the system) in NAME.seconds
logged() {
  local name=$1 TIMEFORMAT='%R %U %S'; shift
  { time "$@" >"$logs/$name.log" 2>&1; echo $? >"$logs/$name.status"; } 2>"$logs/$name.seconds"
}

# judge NAME: counts the tests of a logged program, from GoogleTest's summary or a line "N passed, N failed"
judge() {
  local name=$1 log=$logs/$1.log good bad
  judged+=("$name")
  good=$(sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?.*/\1/p; s/^([0-9]+) passed, [0-9]+ failed.*/\1/p' "$log" | tail -n 1)
  bad=$(sed -nE 's/^\[  FAILED  \] ([0-9]+) tests?, listed below.*/\1/p; s/^[0-9]+ passed, ([0-9]+) failed.*/\1/p' "$log" | tail -n 1)
  good=${good:-0} bad=${bad:-0}
  # A program that dies or runs no test has failed, whatever it printed.
  if [ "$bad" -eq 0 ] && { [ "$(cat "$logs/$name.status")" -ne 0 ] || [ "$good" -eq 0 ]; }; then bad=1; fi
  count "$good" "$bad"
  if [ "$bad" -eq 0 ]; then echo "ok      $name: $good tests"
  else echo "FAILED  $name: $bad of $((good + bad)) (see $log)"; grep -E -A 12 'Failure|ERROR|Error|FAILED' "$log" | head -n 80; fi
}

# judge_whole NAME: counts the whole logged command as one test
judge_whole() {
  judged+=("$1")
  if [ "$(cat "$logs/$1.status")" -eq 0 ]; then count 1 0; echo "ok      $1"
  else count 0 1; echo "FAILED  $1 (see $logs/$1.log)"; tail -n 40 "$logs/$1.log"; fi
}

suite() { logged "$@"; judge "$1"; }
one_check() { logged "$@"; judge_whole "$1"; }

# later NAME COMMAND..., later_whole NAME COMMAND...: the same in the next side_by_side
later() { queue judge "$@"; }
later_whole() { queue judge_whole "$@"; }
queue() {
  local kind=$1 name=$2; shift 2
  queued+=("$kind $name")
  printf '%q ' "$@" >"$logs/$name.command"
}

# seconds_of NAME: by the clock and of the processor, in its last run
seconds_of() {
  [ -s "$logs/$1.seconds" ] || { echo 9999 0; return; }
  tail -n 1 "$logs/$1.seconds" | awk '{ printf "%.1f %.1f\n", $1, $2 + $3 }'
}

# longest_first: the queued names, by their seconds in the last run; the new ones first
longest_first() {
  local entry
  for entry in "${queued[@]}"; do echo "${entry#* } $(seconds_of "${entry#* }")"; done | sort -s -k 2,2gr | cut -d ' ' -f 1
}

# side_by_side: runs what is queued, as many at once as there are processor cores, and judges it in the order of the queue.
# Nothing that measures time belongs here.
side_by_side() {
  local entry
  longest_first | xargs -P "$lanes" -I @ bash -c '. scripts/suites.sh; eval "logged @ $(cat "$logs/@.command")"'
  for entry in "${queued[@]}"; do ${entry% *} "${entry#* }"; done
  queued=()
}

# print_seconds: how long each suite took, the longest first; what is not the processor's is waiting
print_seconds() {
  local name
  printf '%-28s %9s %10s\n' suite seconds processor
  for name in "${judged[@]}"; do printf '%-28s %9s %10s\n' "$name" $(seconds_of "$name"); done | sort -s -k 2,2gr
  printf '%-28s %9d\n' 'together, by the clock' "$SECONDS"
}

finish() {
  [ ${#judged[@]} -eq 0 ] || print_seconds
  echo "$passed passed, $failed failed"
  [ "$failed" -eq 0 ]
  exit
}
