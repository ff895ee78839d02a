#!/bin/sh
# Runs each fuzzer for a while, from files that are in order and from one seed, so that a finding
# comes back.
#
#     fuzz/run.sh build/fuzz/bin build/release/bin/quorval-batch [SECONDS each, 30 when none given]
set -eu
fuzzers=$1
program=$2
seconds=${3:-30}
here=$(cd "$(dirname "$0")" && pwd)
# libgsf leaks some bytes of a damaged container.
export ASAN_OPTIONS=detect_leaks=0
for format in qvl xls xlsx ods csv; do
  corpus=$(mktemp -d)
  cp "$here"/../tests/data/written_by_*."$format" "$corpus" 2>/dev/null || true
  if [ $format != ods ]; then
    "$program" convert --demo "Control Chart Example" "$corpus/example.$format"
  fi
  "$fuzzers/fuzz_$format" "$corpus" -seed=1 -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -max_len=200000 -print_final_stats=0 -verbosity=0
  rm -rf "$corpus"
  echo "$format: no finding in $seconds s"
done
