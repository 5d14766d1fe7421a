#!/usr/bin/env bash
# Draws the desktop program's pictures with ImageMagick into src/qt/pictures/, and its
# application icon for the desktop's menus into packaging/icons/hicolor/. The files are
# committed; run this again after changing a drawing.
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

# The application icon: the window icon's tile and wave with a margin, as the desktop's icon
# themes draw theirs. One outline for the scalable SVG and every fixed size; the wave is at
# least two pixels wide, so it still shows at 16 and 22.
icons=packaging/icons/hicolor
icon_outline() {  # size: prints "rounded-rectangle-numbers|wave-points" scaled to it
  awk -v s="$1" 'BEGIN {
    k = s / 256; n = 64
    printf "%.2f %.2f %.2f %.2f %.2f|", 8 * k, 8 * k, 248 * k, 248 * k, 48 * k
    for (i = 0; i <= n; i++)
      printf "%s%.2f,%.2f", (i ? " " : ""), (46 + 164 * i / n) * k, (128 - 72 * sin(6.28318 * i / n)) * k
  }'
}
mkdir -p "$icons/scalable/apps"
IFS='|' read -r box wave <<<"$(icon_outline 256)"
read -r x0 y0 x1 y1 radius <<<"$box"
cat >"$icons/scalable/apps/wavforge.svg" <<SVG
<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256" viewBox="0 0 256 256">
  <rect x="$x0" y="$y0" width="$(awk -v a="$x0" -v b="$x1" 'BEGIN { print b - a }')" \
height="$(awk -v a="$y0" -v b="$y1" 'BEGIN { print b - a }')" rx="$radius" fill="$blue"/>
  <polyline points="$wave" fill="none" stroke="white" stroke-width="22" \
stroke-linecap="round" stroke-linejoin="round"/>
</svg>
SVG
for size in 16 22 24 32 48 64 128 256; do
  IFS='|' read -r box wave <<<"$(icon_outline "$size")"
  read -r x0 y0 x1 y1 radius <<<"$box"
  mkdir -p "$icons/${size}x${size}/apps"
  convert -size "${size}x${size}" xc:none -fill "$blue" \
    -draw "roundrectangle $x0,$y0 $x1,$y1 $radius,$radius" -fill none -stroke white \
    -strokewidth "$(awk -v s="$size" 'BEGIN { w = s * 22 / 256; printf "%.2f", w < 2 ? 2 : w }')" \
    -draw "stroke-linecap round stroke-linejoin round polyline $wave" \
    -strip -define png:exclude-chunks=date,time "PNG32:$icons/${size}x${size}/apps/wavforge.png"
done
