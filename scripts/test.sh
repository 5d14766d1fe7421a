#!/usr/bin/env bash
# Sets up the machine, builds the sanitizer configuration and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
cmake --preset test
cmake --build --preset test
ctest --preset test -j"$(nproc)"
