#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a bounded time.
# Usage: scripts/fuzz.sh [seconds per target, default 60]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
./scripts/setup.sh
cmake -S . -B build/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug \
  -DWAVFORGE_FUZZ=ON -DWAVFORGE_BUILD_TESTS=OFF -DWAVFORGE_BUILD_BENCH=OFF -DWAVFORGE_WERROR=ON \
  >/dev/null
cmake --build build/fuzz
shopt -s nullglob
targets=(build/fuzz/fuzz/*_fuzz)
[ ${#targets[@]} -gt 0 ] || { echo "no fuzz targets" >&2; exit 1; }
for target in "${targets[@]}"; do
  name=$(basename "$target")
  corpus="build/fuzz/corpus/$name"
  mkdir -p "$corpus"
  options=(-max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048)
  [ -f "fuzz/$name.dict" ] && options+=(-dict="fuzz/$name.dict")
  # Seeds are written by a script rather than committed as binary files.
  seeds="build/fuzz/seeds/$name"
  if [ -x "fuzz/${name}_seeds.sh" ]; then
    "fuzz/${name}_seeds.sh" "$seeds"
  fi
  echo "== $name for ${seconds}s"
  "$target" "${options[@]}" "$corpus" $([ -d "$seeds" ] && echo "$seeds")
done
