#!/usr/bin/env bash
# Draws the desktop program's pictures with ImageMagick into src/qt/pictures/. The PNG files
# are committed; run this again after changing a drawing.
set -euo pipefail
cd "$(dirname "$0")/.."
out=src/qt/pictures
mkdir -p "$out"

blue='#2b5fa8'
light='#dfe9f7'
bold_font=DejaVu-Sans-Bold

# Status icon before the first timer tick and the window icon: a rounded tile with a sine wave.
tile() {  # size file
  local s=$1 r=$(( $1 / 5 ))
  # One period of a sine as short straight strokes.
  local lines
  lines=$(awk -v s="$s" 'BEGIN {
    x0 = s * 0.16; x1 = s * 0.84; a = s * 0.3; n = 24
    for (i = 0; i < n; i++) {
      xa = x0 + (x1 - x0) * i / n; xb = x0 + (x1 - x0) * (i + 1) / n
      ya = s / 2 - a * sin(6.28318 * i / n); yb = s / 2 - a * sin(6.28318 * (i + 1) / n)
      printf "line %.1f,%.1f %.1f,%.1f ", xa, ya, xb, yb
    } }')
  convert -size "${s}x${s}" xc:none -fill "$blue" -draw "roundrectangle 0,0 $((s - 1)),$((s - 1)) $r,$r" \
    -fill none -stroke white -strokewidth $(( s / 11 )) -draw "stroke-linecap round $lines" \
    -strip -define png:exclude-chunks=date,time "PNG32:$2"
}
tile 32 "$out/status0.png"
tile 64 "$out/window_icon.png"

# Four frames of a job at work: level bars that rise and fall in turn.
heights=("6 14 22 12 18" "12 22 14 20 8" "20 10 18 8 14" "14 18 8 16 22")
for frame in 1 2 3 4; do
  read -r -a h <<<"${heights[$((frame - 1))]}"
  args=()
  for i in 0 1 2 3 4; do
    x=$(( 4 + i * 5 )); top=$(( 27 - h[i] ))
    args+=(-draw "rectangle $x,$top $((x + 3)),27")
  done
  convert -size 32x32 xc:none -fill "$light" -draw "roundrectangle 0,0 31,31 6,6" \
    -fill "$blue" "${args[@]}" -fill none -stroke "$blue" -draw "line 3,29 28,29" \
    -strip -define png:exclude-chunks=date,time "PNG32:$out/status$frame.png"
done

# The logo: the name beside a small wave, 228 x 30.
convert -size 228x30 xc:none -fill "$blue" -draw "roundrectangle 0,3 24,27 5,5" \
  -fill none -stroke white -strokewidth 2 \
  -draw "polyline 3,15 6,9 9,21 12,6 15,24 18,11 21,15" -stroke none \
  -fill "$blue" -font "$bold_font" -pointsize 20 -annotate +32+22 'wavforge' \
  -fill '#7a8ba3' -font DejaVu-Sans -pointsize 11 -annotate +141+21 'offline encoder' \
  -strip -define png:exclude-chunks=date,time "PNG32:$out/logo.png"

# The link pointer: a hand with a pointing finger, hot spot at the finger tip (12, 1).
hand="12,1 15,1 16,3 16,11 18,10 20,10 21,12 23,12 24,14 26,14 27,16 27,24 25,29 15,29 12,26 6,19 6,17 8,16 12,19 12,3"
convert -size 32x32 xc:none -fill white -stroke black -strokewidth 1 -draw "polygon $hand" \
  -draw "line 16,11 16,19" -draw "line 21,12 21,19" -draw "line 24,14 24,19" \
  -strip -define png:exclude-chunks=date,time "PNG32:$out/link_pointer.png"

# The assistant's back and forward buttons, 16 x 16: a blue arrow when the browser can move,
# a grey one when it cannot.
arrow() {  # points colour file
  convert -size 16x16 xc:none -fill "$2" -stroke "$2" -strokewidth 1 -draw "polygon $1" \
    -strip -define png:exclude-chunks=date,time "PNG32:$3"
}
back="2,8 8,2 8,5 14,5 14,11 8,11 8,14"
forward="14,8 8,2 8,5 2,5 2,11 8,11 8,14"
arrow "$back" "$blue" "$out/back.png"
arrow "$back" '#b8bec8' "$out/back_disabled.png"
arrow "$forward" "$blue" "$out/forward.png"
arrow "$forward" '#b8bec8' "$out/forward_disabled.png"
