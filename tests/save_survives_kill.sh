#!/bin/sh
# Kills the program while it saves a large project over an older one, again and again, and checks
# that the file is each time the old or the new project, whole.
#
#     tests/save_survives_kill.sh build/release/bin/quorval-batch [ROUNDS, 50 when none are given]
set -eu
program=$1
rounds=${2:-50}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Two projects of 9999 rows and 100 columns.
for name in old new; do
  awk -v name=$name 'BEGIN {
    for (row = 0; row < 10000; row++) {
      line = name "," row
      for (column = 3; column <= 100; column++) line = line "," row * column / 1000
      print line
    }
  }' > "$work/$name.csv"
  "$program" convert "$work/$name.csv" "$work/$name.qvl"
  "$program" convert "$work/$name.qvl" "$work/$name.whole.csv"
done

milliseconds() { date +%s%3N; }
start=$(milliseconds)
"$program" convert "$work/new.qvl" "$work/timed.qvl"
length=$(($(milliseconds) - start))

old=0 new=0
round=0
while [ $round -lt "$rounds" ]; do
  round=$((round + 1))
  cp "$work/old.qvl" "$work/project.qvl"
  "$program" convert "$work/new.qvl" "$work/project.qvl" &
  saving=$!
  delay=$(awk -v seed=$round -v length_of=$length 'BEGIN {
    srand(seed); printf "%.3f", (0.3 + rand()) * length_of / 1000 }')
  sleep "$delay"
  kill -KILL $saving 2>/dev/null || true
  wait $saving 2>/dev/null || true
  "$program" convert "$work/project.qvl" "$work/found.csv"
  if cmp -s "$work/found.csv" "$work/old.whole.csv"; then
    old=$((old + 1))
  elif cmp -s "$work/found.csv" "$work/new.whole.csv"; then
    new=$((new + 1))
  else
    echo "round $round, killed after $delay s: neither the old nor the new project" >&2
    exit 1
  fi
done
"$program" convert "$work/new.qvl" "$work/project.qvl"
left=$(find "$work" -name '.*.new-*' | wc -l)
echo "$rounds kills: $old times the old project, $new times the new one; $left files left behind"
[ "$left" -eq 0 ]
