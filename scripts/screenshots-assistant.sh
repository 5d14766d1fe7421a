#!/usr/bin/env bash
# Takes screenshots of the Assistant beside the main window under Xvfb with openbox, in
# English and in German, into docs/screenshots/assistant-{english,german}.png: the whole
# screen after Alt+F2 (the local Assistant) and a step to the page with the check box.
# Each run has its own private home under build/screenshots.
# Usage: scripts/screenshots-assistant.sh [--no-build]
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "${1:-}" != "--no-build" ]; then
  . scripts/build-release.sh
fi
program="$PWD/build/release/program/wavforge"
out="$PWD/docs/screenshots"
mkdir -p "$out"

for language in ${LANGUAGES:-English German}; do
  file="$out/assistant-$(echo "$language" | tr A-Z a-z).png"
  (
    . scripts/private_home.sh "$PWD/build/screenshots/assistant-$language"
    mkdir -p "$XDG_CONFIG_HOME/Larkspur"
    printf '[General]\nLogToFile=0\nLanguage=%s\n\n[Options]\nEncoder=1\nDelTemp=1\n' \
      "$language" >"$XDG_CONFIG_HOME/Larkspur/Larkspur.ini"
    export QT_QPA_PLATFORM=xcb QTWEBENGINE_DISABLE_SANDBOX=1
    xvfb-run -a -s "-screen 0 1280x800x24 -dpi 96" bash -c '
      set -e
      XDG_CONFIG_DIRS=/etc/xdg XDG_DATA_DIRS=/usr/share openbox >"$TMPDIR/openbox.log" 2>&1 &
      sleep 1
      WAVFORGE_STARTUP_PROBE=1 "$0" 2>"$TMPDIR/wavforge.err" &
      pid=$!
      for _ in $(seq 100); do grep -q "window shown" "$TMPDIR/wavforge.err" && break; sleep 0.1; done
      main=$(xdotool search --sync --onlyvisible --pid "$pid" | head -1)
      # The main window on the left, as a user would keep it; the assistant takes the other half.
      xdotool windowmove --sync "$main" 24 40
      xdotool windowactivate --sync "$main" key --clearmodifiers alt+F2
      xdotool search --sync --onlyvisible --name "Assistant|Assistent" >/dev/null
      sleep 2
      import -window root "$1"
      kill "$pid"; wait "$pid" || true
    ' "$program" "$file"
  )
  echo "wrote $file"
done
