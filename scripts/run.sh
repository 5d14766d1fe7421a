#!/usr/bin/env bash
# Sets up the machine, builds the program and runs it. Extra arguments go to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release
if [ $# -eq 0 ]; then set -- settings; fi
exec build/release/program/wavforge-cli "$@"
