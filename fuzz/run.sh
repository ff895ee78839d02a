#!/bin/sh
# Runs fuzzers for a while, from files that are in order and from one seed, so that a finding comes
# back.  A finding is also what takes too long or too much memory: no input below 10 MB may take more
# than 2 s or 600 MB, and the sanitizers make that six times the time and once more the memory.
#
#     fuzz/run.sh build/fuzz/bin build/release/bin/quorval-batch [SECONDS each, 30 when none given]
#                 [FUZZER ...]
set -eu
fuzzers=$1
program=$2
seconds=${3:-30}
shift $(($# < 3 ? $# : 3))
here=$(cd "$(dirname "$0")" && pwd)

# The files of one format, as a fuzzer of bytes or of XML takes them.
seed() {
  cp "$here"/../tests/data/written_by_*."$1" "$corpus" 2>/dev/null || true
  if [ "$1" != ods ]; then
    "$program" convert --demo "Control Chart Example" "$corpus/example.$1"
  fi
  if [ "$1" != "$2" ]; then
    for workbook in "$corpus"/*; do
      python3 "$here/seed_of_xml.py" "$workbook" > "$workbook.xml"
      rm "$workbook"
    done
  fi
}

for fuzzer in ${*:-qvl xls xlsx ods csv xlsx_xml ods_xml}; do
  corpus=$(mktemp -d)
  seed "${fuzzer%_xml}" "$fuzzer"
  dictionary=
  if [ "${fuzzer%_xml}" != "$fuzzer" ]; then dictionary=-dict=$here/xml.dict; fi
  "$fuzzers/fuzz_$fuzzer" "$corpus" -seed=1 -max_total_time="$seconds" -timeout=12 -rss_limit_mb=1200 \
    -max_len=200000 -print_final_stats=0 -verbosity=0 $dictionary
  rm -rf "$corpus"
  echo "$fuzzer: no finding in $seconds s"
done
