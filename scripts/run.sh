#!/usr/bin/env bash
# Sets up the machine, builds the program and starts the desktop program wavforge. Arguments
# are the recordings to select, as on its command line. Without a display it runs under
# xvfb-run, where nothing can be seen; close it with Ctrl+C.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/build-release.sh
program=build/release/program/wavforge
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "run.sh: no display; starting wavforge under xvfb-run" >&2
  exec xvfb-run -a "$program" "$@"
fi
exec "$program" "$@"
