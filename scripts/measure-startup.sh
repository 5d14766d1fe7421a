#!/usr/bin/env bash
# Measures the desktop program's start under Xvfb: the time from launching it until its
# window has been painted, and its resident memory then and one second later. Runs the
# release build RUNS times (default 10) in a private home under build/measure.
# Usage: scripts/measure-startup.sh [--no-build]
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "${1:-}" != "--no-build" ]; then
  . scripts/build-release.sh
fi
program="$PWD/build/release/program/wavforge"
. scripts/private_home.sh "$PWD/build/measure"
export RUNS="${RUNS:-10}" QT_QPA_PLATFORM=xcb

xvfb-run -a -s "-screen 0 1024x768x24" bash -c '
  set -e
  for run in $(seq "$RUNS"); do
    err="$TMPDIR/run$run.err"
    # The launch moment is taken in this shell, so loading the program counts too.
    WAVFORGE_STARTUP_PROBE=$(date +%s%N) "$0" 2>"$err" &
    pid=$!
    for _ in $(seq 200); do grep -qs "window shown" "$err" && break; sleep 0.05; done
    sleep 1
    later=$(awk "/^VmRSS:/ { printf \"%.1f\", \$2 / 1024 }" "/proc/$pid/status")
    kill "$pid"; wait "$pid" 2>/dev/null || true
    sed -n "s/^wavforge: window shown after \([0-9]*\) ms, resident memory \([0-9.]*\) MiB$/\1 \2 $later/p" "$err"
  done
' "$program" | sort -n | awk '
  { ms[NR] = $1; shown[NR] = $2; later[NR] = $3 }
  END {
    if (NR == 0) { print "measure-startup.sh: no run reported its start" > "/dev/stderr"; exit 1 }
    printf "runs: %d\n", NR
    printf "window shown after: min %d ms, median %d ms, max %d ms\n", ms[1], ms[int((NR + 1) / 2)], ms[NR]
    max_shown = 0; max_later = 0
    for (i = 1; i <= NR; i++) { if (shown[i] > max_shown) max_shown = shown[i]; if (later[i] > max_later) max_later = later[i] }
    printf "resident memory: %.1f MiB when shown, %.1f MiB one second later (largest of the runs)\n", max_shown, max_later
  }'
