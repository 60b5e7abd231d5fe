# Sourced by ./run: shows how far a build is.

# show_progress LOG: reads what ninja writes, keeps it in LOG, and shows how many steps are done: on a terminal in one
# line that changes, elsewhere in a line for every quarter.
show_progress() {
  local line quarter=0
  while IFS= read -r line; do
    printf '%s\n' "$line" >>"$1"
    [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
    local done=${BASH_REMATCH[1]} all=${BASH_REMATCH[2]}
    if [ -t 1 ]; then
      printf '\r\033[KBuilding: %d of %d' "$done" "$all"
    elif [ $((4 * done / all)) -gt "$quarter" ]; then
      quarter=$((4 * done / all))
      echo "Building: $done of $all"
    fi
  done
  if [ -t 1 ]; then printf '\r\033[K'; fi
}
