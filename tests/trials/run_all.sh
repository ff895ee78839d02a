#!/usr/bin/env bash
# Runs every line of tests/data/runs.txt by a program and prints the JSON, the boxes and the exits.
#   tests/trials/run_all.sh PROGRAM
set -euo pipefail
runs=$(dirname "$0")/../data/runs.txt

grep -v '^#' "$runs" | while IFS=';' read -r analysis example settings; do
  echo "== $analysis;$example;$settings"
  arguments=()
  for setting in $settings; do
    case $setting in
    --*) arguments+=("$setting") ;;
    *) arguments+=(--set "$setting") ;;
    esac
  done
  "$1" run "$analysis" --demo "${example# }" "${arguments[@]}" --json - 2>&1 || echo "exit $?"
done
