#!/usr/bin/env bash
# Measures which faults the test suite catches. Each fault in scripts/mutants.list is a small,
# exact text replacement in one file under src/: it is applied, the test binaries that can see
# it are rebuilt (non-sanitized Debug in build/mutants) and run, and the file is put back, also
# when the run is interrupted. Prints one line per fault with the tests that failed on it, or
# SURVIVED, then how many were caught and the size of the suite.
#
#   scripts/mutants.sh              every fault (after checking that the suite passes as it is)
#   scripts/mutants.sh ID...        only these faults
#   scripts/mutants.sh --check      only checks that every fault still applies
#   MUTANTS_QUICK=1 scripts/mutants.sh
#                                   the core tests first, the window tests only for a fault
#                                   they have not caught (much faster; names fewer tests)
#   scripts/mutants.sh --report     which tests caught what in the last run: each test's faults,
#                                   the faults only one test catches, the tests that catch none
#
# Each fault rebuilds and runs the suite: run it at low priority (nice -n 15).
set -euo pipefail
shopt -u patsub_replacement 2>/dev/null || true
export LC_ALL=C
cd "$(dirname "$0")/.."

build=${MUTANTS_BUILD_DIR:-build/mutants}
list=${MUTANTS_LIST:-scripts/mutants.list}
test_timeout=${MUTANTS_TEST_TIMEOUT:-120}
qt_shards=${MUTANTS_QT_SHARDS:-3}
quick=${MUTANTS_QUICK:-}
results=$build/mutants-results.tsv
backup=$build/mutant-backup

# --- the list ------------------------------------------------------------------------------
# "@ ID FILE" starts a fault, "- TEXT" is the text to replace, "+ TEXT" what replaces it ("+"
# alone: nothing). The texts are taken exactly, from the character after "- " or "+ ".
ids=() files=() olds=() news=()
while IFS= read -r line || [ -n "$line" ]; do
  case $line in
    '@ '*) read -r _ id file <<<"$line"; ids+=("$id") files+=("$file") olds+=("") news+=("") ;;
    '- '*) olds[-1]=${line:2} ;;
    '+ '*) news[-1]=${line:2} ;;
    '+') news[-1]="" ;;
    '' | '#'*) ;;
    *) echo "mutants: cannot read this line of $list: $line" >&2; exit 2 ;;
  esac
done <"$list"

index_of() {
  local i
  for i in "${!ids[@]}"; do [ "${ids[$i]}" = "$1" ] && { echo "$i"; return; }; done
  echo "mutants: no fault $1 in $list" >&2
  exit 2
}

# --- applying and restoring ------------------------------------------------------------------

# The file's exact bytes (command substitution would drop trailing line ends).
read_file() { local text; text=$(cat "$1"; printf x); printf '%s' "${text%x}"; }

occurrences() { # text needle
  local rest=${1//"$2"/}
  echo $(((${#1} - ${#rest}) / ${#2}))
}

# Puts a mutated file back. Touched afterwards, so the next build recompiles it.
restore() {
  [ -f "$backup/path" ] || return 0
  local path
  path=$(cat "$backup/path")
  cp "$backup/original" "$path"
  touch "$path"
  rm -f "$backup/path" "$backup/original"
}
trap restore EXIT
trap 'restore; exit 130' INT TERM HUP

# Applies fault i; prints why not when its text is not found exactly once.
apply() {
  local i=$1 file=${files[$1]} text count
  [ -f "$file" ] || { echo "NOT APPLIED: no file $file"; return 1; }
  [ -n "${olds[$i]}" ] || { echo "NOT APPLIED: no old text"; return 1; }
  text=$(read_file "$file")
  count=$(occurrences "$text" "${olds[$i]}")
  [ "$count" = 1 ] || { echo "NOT APPLIED: old text found $count times"; return 1; }
  mkdir -p "$backup"
  cp "$file" "$backup/original"
  printf '%s' "$file" >"$backup/path"
  printf '%s' "${text/"${olds[$i]}"/"${news[$i]}"}" >"$file"
}

# --- building and running --------------------------------------------------------------------

# The test binaries that can see a fault in this file: wavforge_qt_tests links the core and
# the Qt front end; wavforge_tests the core and runs wavforge-cli, wavforge-cmd and
# wavforge-encode.
binaries_for() {
  case $1 in
    src/qt/*) echo wavforge_qt_tests ;;
    src/cli/* | src/cmd/* | src/encode_tool/*) echo wavforge_tests ;;
    *) echo wavforge_tests wavforge_qt_tests ;;
  esac
}

configure() {
  [ -f "$build/build.ninja" ] && return
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DWAVFORGE_SANITIZE=OFF \
    -DWAVFORGE_BUILD_BENCH=OFF >"$build.configure.log" 2>&1 ||
    { cat "$build.configure.log" >&2; exit 2; }
}

build_targets() { cmake --build "$build" -j2 --target "$@" >"$build/mutant-build.log" 2>&1; }

# Runs the binaries side by side (most of their time is spent waiting for child processes and
# windows, so two at once take little longer than one); prints the failed tests one per line.
# The window tests wait on the browser engine for most of their time, so they run in shards.
run_tests() {
  local binary shards shard
  for binary in "$@"; do
    shards=1
    [ "$binary" = wavforge_qt_tests ] && shards=$qt_shards
    for ((shard = 0; shard < shards; ++shard)); do
      run_binary "$binary" "$shard" "$shards" >"$build/mutant-$binary-$shard.failed" &
    done
  done
  wait
  for binary in "$@"; do cat "$build/mutant-$binary"-*.failed; done
  rm -f "$build"/mutant-*.failed
}

# One binary's failed tests. A test that crashes the binary or runs out of time is named too
# (with CRASH or TIMEOUT), and the binary runs again without it, so the tests after it are not
# lost.
run_binary() {
  local binary=$1 shard=$2 shards=$3 log status excluded running tries tmp
  {
    log=$build/mutant-$binary-$shard.log
    excluded="" tries=0
    while :; do
      status=0
      # A temporary folder of its own, so what a crashed run leaves is removed with it. The
      # braces keep the shell's own notice of a crash out of the table.
      tmp=$(mktemp -d /tmp/wavforge-mutants-XXXXXX)
      { (cd "$build/tests" && TMPDIR=$tmp GTEST_SHARD_INDEX=$shard GTEST_TOTAL_SHARDS=$shards \
        timeout -k 10 "$test_timeout" "./$binary" ${excluded:+"--gtest_filter=-${excluded#:}"}) \
        >"$log" 2>&1 </dev/null; } 2>/dev/null ||
        status=$?
      rm -rf "$tmp"
      sed -n 's/^\[  FAILED  \] \([^ ,]*\).*/\1/p' "$log" | grep -v '^[0-9]*$' | sort -u || true
      grep -q '^\[==========\] .* ran\.' "$log" && break
      if [ "$status" = 124 ] || [ "$status" = 137 ]; then echo TIMEOUT; else echo CRASH; fi
      running=$(awk '/^\[ RUN      \]/ { run = $4 }
        /^\[       OK \]|^\[  FAILED  \]/ { t = $4; sub(/,$/, "", t); if (t == run) run = "" }
        END { print run }' "$log")
      tries=$((tries + 1))
      [ -n "$running" ] && [ "$tries" -lt 5 ] || { echo "$binary"; break; }
      echo "$running"
      excluded="$excluded:$running"
    done
  }
}

line_count() { cat $(find "$1" -name '*.cpp' -o -name '*.h') | grep -cv '^\s*$'; }

suite_size() {
  local tests src
  tests=$(line_count tests)
  src=$(line_count src)
  echo "tests: $tests non-blank lines against $src in src/ ($((100 * tests / src)) %)"
}

# --- the report of the last run ----------------------------------------------------------------

report() {
  [ -f "$results" ] || { echo "mutants: no results yet in $results" >&2; exit 2; }
  configure
  build_targets wavforge_tests wavforge_qt_tests
  local all
  all=$(for binary in wavforge_tests wavforge_qt_tests; do
    "$build/tests/$binary" --gtest_list_tests |
      awk '/^[^ ]/ { suite = $1 } /^  / { print suite $1 }'
  done)
  all=$all awk -F'\t' '
    $3 != "SURVIVED" && $3 !~ /^(NOT APPLIED|BUILD FAILED)/ {
      n = split($3, tests, " ")
      for (k = 1; k <= n; ++k) caught[tests[k]] = caught[tests[k]] " " $1
      if (n == 1) only[tests[1]] = only[tests[1]] " " $1
    }
    END {
      print "faults caught by one test only:"
      for (t in only) print "  " t ":" only[t]
      print "tests and the faults they catch:"
      for (t in caught) print "  " t ":" caught[t]
      print "tests that catch none:"
      m = split(ENVIRON["all"], names, "\n")
      for (k = 1; k <= m; ++k) if (!(names[k] in caught)) print "  " names[k]
    }' "$results"
}

# --- main --------------------------------------------------------------------------------------

case ${1:-} in
  --report) report; exit ;;
  --check)
    failed=0
    for i in "${!ids[@]}"; do
      if why=$(apply "$i"); then restore; else echo "${ids[$i]} ${files[$i]}: $why"; failed=1; fi
    done
    [ "$failed" = 0 ] && echo "all ${#ids[@]} faults apply"
    exit "$failed"
    ;;
esac

selected=()
if [ $# -eq 0 ]; then
  selected=("${!ids[@]}")
else
  for id in "$@"; do selected+=("$(index_of "$id")"); done
fi

mkdir -p "$build"
restore # what an earlier run killed outright left behind
configure
echo "building the test binaries in $build ..."
build_targets wavforge_tests wavforge_qt_tests || { cat "$build/mutant-build.log" >&2; exit 2; }
baseline=$(run_tests wavforge_tests wavforge_qt_tests)
if [ -n "$baseline" ]; then
  echo "mutants: the suite does not pass as it is; fix that first:" >&2
  echo "$baseline" >&2
  exit 2
fi

[ $# -eq 0 ] && : >"$results"
printf '%-28s %-44s %s\n' fault file "caught by"
caught=0 applied=0 skipped=0
for i in "${selected[@]}"; do
  id=${ids[$i]} file=${files[$i]}
  if ! why=$(apply "$i"); then
    outcome=$why
    skipped=$((skipped + 1))
  else
    read -r -a binaries <<<"$(binaries_for "$file")"
    # Quick: one binary after the other, stopping at the first that catches the fault; the
    # tests named are then only that binary's.
    if [ -n "$quick" ]; then groups=("${binaries[@]}"); else groups=("${binaries[*]}"); fi
    outcome=""
    for group in "${groups[@]}"; do
      read -r -a targets <<<"$group"
      if ! build_targets "${targets[@]}"; then
        outcome="BUILD FAILED (see $build/mutant-build.log)"
        cp "$build/mutant-build.log" "$build/mutant-build-$id.log"
        break
      fi
      outcome=$(run_tests "${targets[@]}" | sort -u | tr '\n' ' ' | sed 's/ $//')
      [ -n "$outcome" ] && break
    done
    if [[ $outcome == "BUILD FAILED"* ]]; then
      skipped=$((skipped + 1))
    else
      applied=$((applied + 1))
      if [ -n "$outcome" ]; then caught=$((caught + 1)); else outcome=SURVIVED; fi
    fi
    restore
  fi
  printf '%-28s %-44s %s\n' "$id" "$file" "$outcome"
  [ $# -eq 0 ] && printf '%s\t%s\t%s\n' "$id" "$file" "$outcome" >>"$results"
done
echo "caught $caught of $applied faults ($((applied - caught)) survived, $skipped not run); $(suite_size)"
