#!/usr/bin/env bash
# Builds quorval-batch by g++ and clang++, without and with optimisation, runs every analysis on every
# example set and by every line of tests/data/runs.txt by each of them, twice and in two locales, and
# compares what they write byte by byte.
#   tests/trials/same_digits.sh [BUILD_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/../.."
work=${1:-build/same-digits}
mkdir -p "$work"

build() { # NAME COMPILER LEVEL
  cmake -S . -B "$work/$1" -G Ninja -DCMAKE_CXX_COMPILER="$2" -DCMAKE_BUILD_TYPE=Release \
    "-DCMAKE_CXX_FLAGS_RELEASE=$3" -DQUORVAL_DESKTOP=OFF -DQUORVAL_TESTS=OFF >"$work/$1.log"
  cmake --build "$work/$1" --target quorval-batch >>"$work/$1.log"
}

# What a program writes, of all analyses on all examples and over sets of options, with the boxes and
# exits.
results() { # PROGRAM
  local analysis example
  for analysis in $("$1" list | cut -d' ' -f1); do
    "$1" demo | while read -r example; do
      echo "== $analysis, $example"
      "$1" run "$analysis" --demo "$example" --json - 2>&1 || echo "exit $?"
    done
  done
  tests/trials/run_all.sh "$1"
}

build gcc-O2 g++ -O2
build gcc-O0 g++ -O0
build clang-O2 clang++ "-O2 -w"  # its warnings are not those of the compiler that Quorval is built by
build clang-O0 clang++ "-O0 -w"

german=$(locale -a | grep -im1 '^de_DE.utf' || echo C.UTF-8)
for one in gcc-O2 gcc-O0 clang-O2 clang-O0; do
  results "$work/$one/bin/quorval-batch" >"$work/$one.json"
done
results "$work/gcc-O2/bin/quorval-batch" >"$work/second-run.json"
LC_ALL=$german results "$work/gcc-O2/bin/quorval-batch" >"$work/other-locale.json"

status=0
for other in gcc-O0 clang-O2 clang-O0 second-run other-locale; do
  if cmp "$work/gcc-O2.json" "$work/$other.json"; then
    echo "$other: the same $(wc -c <"$work/$other.json") bytes as gcc-O2"
  else
    status=1
  fi
done
echo "runs: $(grep -c '^== ' "$work/gcc-O2.json"), of them to the end:" \
  "$(grep -c '"status": "done"' "$work/gcc-O2.json"); other locale: $german"
exit $status
