# shellcheck shell=bash
# Sourced by the scripts that need the optimised build: sets the machine up and builds the
# release preset from the repository root.
./scripts/setup.sh
cmake --preset release >/dev/null
cmake --build --preset release
