#!/usr/bin/env bash
# Makes three short sample recordings, two with RIFF INFO tags and one named "Artist - Title",
# encodes them to MP3 with wavforge-cli and shows what came out. Everything happens in
# build/demo with a private home; the user's own home is not touched.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/build-release.sh

cli="$PWD/build/release/program/wavforge-cli"
sample="$PWD/build/release/tools/wavforge-sample-wav"
. scripts/private_home.sh "$PWD/build/demo"
recordings="$private_root/recordings"
mkdir -p "$recordings"

echo
echo "== Demo folder: $private_root"
echo "   It has its own HOME, XDG folders and TMPDIR; your home (${real_home:-unset}) is not touched."

echo
echo "== Making three sample recordings in $recordings"
"$sample" "$recordings/take1.wav" --seconds 4 --frequency 440 \
  --genre "Jazz" --artist "Nina Blue" --album "Night Drive" --title "Slow Lights"
"$sample" "$recordings/take2.wav" --seconds 3 --frequency 554.37 \
  --genre "Talk Radio" --artist "Radio Nord" --album "Morning Show" --title "News at Nine"
"$sample" "$recordings/Mara Lind - Morning Song.wav" --seconds 5 --frequency 659.25
files=("$recordings/take1.wav" "$recordings/take2.wav" "$recordings/Mara Lind - Morning Song.wav")
ls -l "${files[@]}"

echo
echo "== What wavforge-cli reads from them (tags, else the file name) and where each goes"
"$cli" tags "${files[@]}" | grep -E '^(File|InfoRead|Genre|Artist|Album|Title|OutputPath)=' |
  awk '/^File=/ { print "  " $0; next } { print "    " $0 }'

echo
echo "== Encoding to MP3: wavforge-cli encode --wait"
if ! "$cli" encode --wait "${files[@]}"; then
  echo "demo: the encode failed; the tools' log is $XDG_CONFIG_HOME/Larkspur/encode.log" >&2
  exit 1
fi
echo "The default settings delete each recording once it is encoded (DelTemp=1):"
echo "  files left in $recordings: $(find "$recordings" -type f | wc -l)"

echo
echo "== Files produced in $HOME/Music"
mapfile -t outputs < <(find "$HOME/Music" -type f | sort)
if [ ${#outputs[@]} -ne ${#files[@]} ]; then
  echo "demo: expected ${#files[@]} files, found ${#outputs[@]}" >&2
  exit 1
fi
for output in "${outputs[@]}"; do
  echo "  ${output#"$HOME/Music/"}  ($(stat -c %s "$output") bytes)"
  ffprobe -v error -show_entries stream=codec_name,sample_rate,channels,bit_rate \
    -show_entries format=duration:format_tags=artist,title,album,genre \
    -of default=noprint_wrappers=1 "$output" | sed 's/^/      /'
done

echo
echo "== The program's event log"
cat "$XDG_CONFIG_HOME"/Larkspur/[0-9]*.log | tr -d '\r' | sed 's/^/  /'
