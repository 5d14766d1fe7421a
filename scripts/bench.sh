#!/usr/bin/env bash
# Builds the release preset and runs every benchmark: wavforge_bench (a job over 10,000
# recordings against plain reading, one tick of the job watch) and scripts/bench_encode.sh
# (real MP3 and Ogg encoding through the program, against its serial job and against
# `xargs -P<cores>` running the encoders alone). Neither touches your home.
# Arguments go to wavforge_bench, e.g. --benchmark_filter=JobWatch or --recordings=1000.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/build-release.sh

echo
echo "Machine: $(nproc) CPUs,$(grep -m1 '^model name' /proc/cpuinfo | cut -d: -f2-)," \
  "load average $(cut -d' ' -f1-3 /proc/loadavg)"
echo
echo "== build/release/bench/wavforge_bench $*"
# The watch tick includes the display's windows: without a display, on a private Xvfb.
if [ -z "${DISPLAY:-}" ] && command -v xvfb-run >/dev/null; then
  xvfb-run -a build/release/bench/wavforge_bench "$@"
else
  build/release/bench/wavforge_bench "$@"
fi
echo
echo "== scripts/bench_encode.sh"
./scripts/bench_encode.sh
