#!/usr/bin/env bash
# Measures the assistant window under Xvfb with openbox: the time from pressing Alt+F1 in the
# main window until the assistant shows the local help of the main window (its caption is the
# page's title, which the window takes once the page has loaded its head), first when the
# browser engine has not started yet, then again with the window open, then after closing and
# reopening it; and the resident memory of the program and of the engine's processes with the
# assistant open. Runs RUNS times (default 5) in a private home under build/measure-assistant.
# Usage: scripts/measure-assistant.sh [--no-build]
set -euo pipefail
cd "$(dirname "$0")/.."
if [ "${1:-}" != "--no-build" ]; then
  . scripts/build-release.sh
fi
program="$PWD/build/release/program/wavforge"
. scripts/private_home.sh "$PWD/build/measure-assistant"
mkdir -p "$XDG_CONFIG_HOME/Larkspur"
printf '[General]\nLogToFile=0\nLanguage=English\n' >"$XDG_CONFIG_HOME/Larkspur/Larkspur.ini"
export RUNS="${RUNS:-5}" QT_QPA_PLATFORM=xcb QTWEBENGINE_DISABLE_SANDBOX=1

xvfb-run -a -s "-screen 0 1280x800x24" bash -c '
  set -e
  XDG_CONFIG_DIRS=/etc/xdg XDG_DATA_DIRS=/usr/share openbox >"$TMPDIR/openbox.log" 2>&1 &
  sleep 1
  title="wavforge Help – The main window"
  # Milliseconds from pressing the keys until a visible window carries the title.
  press() {  # window keys (the window has the focus already)
    local start end
    start=$(date +%s%N)
    xdotool key --clearmodifiers "$2"
    until xdotool search --onlyvisible --name "^$title\$" >/dev/null 2>&1; do sleep 0.005; done
    end=$(date +%s%N)
    echo $(( (end - start) / 1000000 ))
  }
  for run in $(seq "$RUNS"); do
    "$0" 2>/dev/null &
    pid=$!
    main=$(xdotool search --sync --onlyvisible --pid "$pid" | head -1)
    xdotool windowactivate --sync "$main"
    first=$(press "$main" alt+F1)
    sleep 1
    # Memory with the assistant open: the program, and the engine processes it started.
    rss=$(awk "/^VmRSS:/ { print \$2 }" "/proc/$pid/status")
    engine=0
    for child in $(pgrep -f QtWebEngineProcess); do
      engine=$(( engine + $(awk "/^Pss:/ { print \$2 }" "/proc/$child/smaps_rollup") ))
    done
    assistant=$(xdotool search --onlyvisible --name "^$title\$" | head -1)
    # Away to another page and back with the window open.
    xdotool windowactivate --sync "$main" key --clearmodifiers alt+F2
    xdotool search --sync --onlyvisible --name "Assistant" >/dev/null
    xdotool windowactivate --sync "$main"
    again=$(press "$main" alt+F1)
    # Closed, then opened anew: a fresh window on the running engine.
    xdotool windowactivate --sync "$assistant" key Escape
    while xdotool search --onlyvisible --name "^$title\$" >/dev/null 2>&1; do sleep 0.01; done
    xdotool windowactivate --sync "$main"
    reopened=$(press "$main" alt+F1)
    echo "$first $again $reopened $rss $engine"
    kill "$pid"; wait "$pid" 2>/dev/null || true
  done
' "$program" | awk '
  { n++; for (i = 1; i <= 5; i++) v[i, n] = $i }
  function med(col,   i, j, t, a) {
    for (i = 1; i <= n; i++) a[i] = v[col, i]
    for (i = 1; i <= n; i++) for (j = i + 1; j <= n; j++) if (a[j] < a[i]) { t = a[i]; a[i] = a[j]; a[j] = t }
    return a[int((n + 1) / 2)] " (min " a[1] ", max " a[n] ")"
  }
  END {
    if (n == 0) { print "measure-assistant.sh: no run finished" > "/dev/stderr"; exit 1 }
    printf "runs: %d\n", n
    printf "first Alt+F1 until the page is shown: median %s ms\n", med(1)
    printf "Alt+F1 with the window open: median %s ms\n", med(2)
    printf "Alt+F1 after closing the window: median %s ms\n", med(3)
    printf "resident memory of wavforge with the assistant open: median %s KiB\n", med(4)
    printf "proportional memory of the engine processes: median %s KiB\n", med(5)
  }'
