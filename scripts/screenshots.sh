#!/usr/bin/env bash
# Takes screenshots of the main window under Xvfb, at 96 and at 120 dots per inch, in English
# and in German, into docs/screenshots/. Each run has its own private home under
# build/screenshots; the user's own settings are not touched.
# Usage: scripts/screenshots.sh [--no-build]
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "${1:-}" != "--no-build" ]; then
  . scripts/build-release.sh
fi
program="$PWD/build/release/program/wavforge"
out="$PWD/docs/screenshots"
mkdir -p "$out"

# One screenshot: a fresh X server, a window manager for the title bar, the program, then
# the window as the screen shows it, frame included.
shoot() {  # language dpi file
  local language=$1 dpi=$2 file=$3
  (
    . scripts/private_home.sh "$PWD/build/screenshots/$language-$dpi"
    mkdir -p "$XDG_CONFIG_HOME/Larkspur"
    printf '[General]\nLogToFile=0\nLanguage=%s\n\n[Options]\nEncoder=1\nDelTemp=1\n' \
      "$language" >"$XDG_CONFIG_HOME/Larkspur/Larkspur.ini"
    export QT_FONT_DPI="$dpi" QT_QPA_PLATFORM=xcb
    xvfb-run -a -s "-screen 0 800x560x24 -dpi $dpi" bash -c '
      set -e
      XDG_CONFIG_DIRS=/etc/xdg XDG_DATA_DIRS=/usr/share openbox >"$TMPDIR/openbox.log" 2>&1 &
      sleep 1
      WAVFORGE_STARTUP_PROBE=1 "$0" 2>"$TMPDIR/wavforge.err" &
      pid=$!
      for _ in $(seq 100); do grep -q "window shown" "$TMPDIR/wavforge.err" && break; sleep 0.1; done
      sleep 0.5
      # The program window is the one of its windows that is mapped; openbox puts a frame
      # with the title bar around it.
      id=""
      for candidate in $(xdotool search --pid "$pid"); do
        if xwininfo -id "$candidate" | grep -q "Map State: IsViewable"; then id=$candidate; break; fi
      done
      [ -n "$id" ] || { echo "screenshots.sh: no window" >&2; exit 1; }
      frame=$(xwininfo -id "$id" -children | sed -n "s/^ *Parent window id: \(0x[0-9a-f]*\).*/\1/p")
      import -window "${frame:-$id}" "$1"
      kill "$pid"; wait "$pid" || true
      cat "$TMPDIR/wavforge.err" >&2
    ' "$program" "$file"
  )
  echo "wrote $file"
}

for language in ${LANGUAGES:-English German}; do
  for dpi in ${DPIS:-96 120}; do
    shoot "$language" "$dpi" "$out/main-window-$(echo "$language" | tr A-Z a-z)-$dpi.png"
  done
done
