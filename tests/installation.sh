#!/usr/bin/env bash
# Installs a build into a folder of its own, runs the programs from there and checks what comes with
# them.  A checking tool that is not on this machine is named and left out.
#   tests/installation.sh BUILD
set -euo pipefail
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

fail() {
  echo "FAIL: $*" >&2
  exit 1
}
# Runs a checking tool where it is there.
check() {
  if command -v "$1" >/dev/null; then
    "$@" || fail "$*"
  else
    echo "$1 is not there; left out"
  fi
}

cmake --install "$build" --prefix "$prefix" >/dev/null
batch=$prefix/bin/quorval-batch
share=$prefix/share

# The data are those of the installation, not of the build.
sed -i 's/1.00211681802045/1.10211681802045/' "$share/quorval/verification/results.csv"
"$batch" verify >"$prefix/report" && fail "a falsified result passed"
grep -q '^[1-9].* FAIL\.$' "$prefix/report" || fail "no verdict"

# Each manual page tells every option of its program.
for command in '' list describe run data convert demo verify; do
  for option in $("$batch" $command --help | grep -o '^ *--[a-z-]*'); do
    gunzip -c "$share/man/man1/quorval-batch.1.gz" | tr -d '\\' | grep -q -- "$option" ||
      fail "quorval-batch.1 does not tell $option of $command"
  done
done
for page in "$share"/man/man1/*; do
  warnings=$(LC_ALL=C.UTF-8 check man --warnings -l -Tutf8 "$page" 2>&1 >/dev/null)
  [ -z "$warnings" ] || fail "$page: $warnings"
done

# What bash offers behind a line; its last word is the one being typed.
complete_line() {
  COMP_WORDS=("$batch" "$@")
  COMP_CWORD=$#
  compopt() { :; }
  _quorval_batch
  echo "${COMPREPLY[*]}"
}
source "$share/bash-completion/completions/quorval-batch"
expect() {
  local wanted=$1 offered
  shift
  offered=$(complete_line "$@")
  [ "$offered" = "$wanted" ] || fail "completion of \"$*\": \"$offered\", not \"$wanted\""
}
expect 'describe data demo' d
expect 'deming' run dem
expect 'xc1= xc2=' run ols --set xc
expect 'single duplicate' run ols --set mode =
expect 'duplicate' run ols --set mode = d
expect 'on off' run ols --set show-bands =
expect "'Polynomial regression'" run polynomial --demo Poly
expect '--report' verify --rep
expect 'svg' run ols --plots p --plot-format s

[ -e "$prefix/bin/quorval" ] || exit 0

for file in contents.md tutorial.md; do
  [ -s "$share/quorval/DOCQUORVAL.hlp/$file" ] || fail "no $file"
done
[ "$share/quorval/Tutorial.hlp" -ef "$share/quorval/DOCQUORVAL.hlp/tutorial.md" ] || fail "no tutorial"
check desktop-file-validate "$share/applications/quorval.desktop"
check appstreamcli validate --no-net "$share/metainfo/org.quorval.Quorval.metainfo.xml"

# A project is known by its bytes, whatever its name.
if command -v update-mime-database gio >/dev/null; then
  XDG_DATA_HOME=$share update-mime-database "$share/mime"
  "$batch" convert --demo "XY Regression Single" "$prefix/project.qvl"
  cp "$prefix/project.qvl" "$prefix/nameless"
  for project in project.qvl nameless; do
    XDG_DATA_HOME=$share gio info -a standard::content-type "$prefix/$project" |
      grep -q application/x-quorval || fail "$project has another MIME type"
  done
fi
