#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a bounded time.
# Usage: scripts/fuzz.sh [seconds per target, default 60]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
./scripts/setup.sh
cmake -S . -B build/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug \
  -DWAVFORGE_FUZZ=ON -DWAVFORGE_BUILD_TESTS=OFF >/dev/null
cmake --build build/fuzz
shopt -s nullglob
targets=(build/fuzz/fuzz/*_fuzz)
[ ${#targets[@]} -gt 0 ] || { echo "no fuzz targets" >&2; exit 1; }
for target in "${targets[@]}"; do
  name=$(basename "$target")
  corpus="build/fuzz/corpus/$name"
  mkdir -p "$corpus"
  seeds="fuzz/seeds/$name"
  echo "== $name for ${seconds}s"
  "$target" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 "$corpus" \
    $( [ -d "$seeds" ] && echo "$seeds" )
done
