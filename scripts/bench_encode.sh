#!/usr/bin/env bash
# Encodes the same recordings to MP3 and to Ogg Vorbis three ways, in one run: through
# `wavforge-cli encode --wait` (the program's job: plan, script, wavforge-cmd, wavforge-encode
# running the encoders side by side, one per core, checking each output, and the watch that
# notices the end), through the same job with one encoder at a time (Encoders=1, the serial
# job), and through `xargs -P<cores>` running lame or oggenc with the same options, tags and
# output names. Prints each time and a table of best and median. Everything happens in
# build/bench-encode with a private home. Expects a release build: scripts/bench.sh makes one.
#
# Settings through the environment: RECORDINGS (20), SECONDS_EACH (60), RUNS (3),
# FORMATS ("mp3 ogg").
set -euo pipefail
cd "$(dirname "$0")/.."
recordings=${RECORDINGS:-20}
seconds_each=${SECONDS_EACH:-60}
runs=${RUNS:-3}
formats=${FORMATS:-mp3 ogg}
cores=$(nproc)

cli_folder="$PWD/build/release/program"
cli="$cli_folder/wavforge-cli"
sample="$PWD/build/release/tools/wavforge-sample-wav"
for program in "$cli" "$sample"; do
  [ -x "$program" ] || { echo "bench_encode: $program is missing; run scripts/bench.sh" >&2; exit 1; }
done
. scripts/private_home.sh "$PWD/build/bench-encode"
music="$HOME/Music"
sources="$private_root/recordings"
settings="$XDG_CONFIG_HOME/Larkspur/Larkspur.ini"
mkdir -p "$sources" "$XDG_CONFIG_HOME/Larkspur"

# The shipped defaults (MP3 at -V 2, Ogg at -q 5, genre subfolders, the log on) except DelTemp:
# the recordings stay for the next run, and every variant does exactly the same work.
write_settings() {  # ENCODER [EXTRA LINE]
  cat > "$settings" <<INI
[General]
LogToFile=1
Language=English
[Options]
TempPath=%Temp%
MusicPath=%MyMusic%
LogFilePath=%AppData%/Larkspur
UseMusicSubfolder=1
MusicFolderTemplate=%Genre%
MusicFileTemplate2=%Artist% - %Title%
Normalize=0
DelTemp=0
MP3Quality=5
OggVorbisQuality=5
Encoder=$1
${2:-}
INI
}

genres=("Jazz" "Rock" "Folk" "Talk Radio")
files=()
for i in $(seq 1 "$recordings"); do
  file="$sources/$(printf 'take%02d.wav' "$i")"
  "$sample" "$file" --seconds "$seconds_each" --rate 44100 --channels 2 \
    --frequency $((200 + 20 * i)) --genre "${genres[$((i % ${#genres[@]}))]}" \
    --artist "Artist $i" --album "Bench Session" --title "Track $i"
  files+=("$file")
done

# One encoder command per recording with the job's options (from its dry run), tags and output
# names (from `tags`), without the tool's checks.
plain_commands() {  # FORMAT
  local format=$1 options
  "$cli" encode --dry-run "${files[@]}" | grep -v '^plan: ' > "$private_root/job.bat"
  case $format in
    mp3) options=$(tr -d '\r' < "$private_root/job.bat" | sed -n 's/.* mp3 lame \(.*\) --ta .*/\1/p' | head -1) ;;
    ogg) options=$(tr -d '\r' < "$private_root/job.bat" | sed -n 's/.* ogg oggenc \(.*\) -a .*/\1/p' | head -1) ;;
  esac
  [ -n "$options" ] || { echo "bench_encode: the dry run has no wavforge-encode $format line" >&2; exit 1; }
  "$cli" tags "${files[@]}" | awk -F= -v options="$options" -v format="$format" '
    function q(s) { gsub(/\047/, "\047\\\047\047", s); return "\047" s "\047" }
    /^File=/ { file = substr($0, 6) } /^Genre=/ { genre = substr($0, 7) }
    /^Artist=/ { artist = substr($0, 8) } /^Album=/ { album = substr($0, 7) }
    /^Title=/ { title = substr($0, 7) }
    /^OutputPath=/ {
      out = substr($0, 12) "." format
      if (format == "mp3")
        print "lame " options " --ta " q(artist) " --tt " q(title) " --tl " q(album) \
          " --tg " q(genre) " " q(file) " " q(out)
      else
        print "oggenc " options " -a " q(artist) " -t " q(title) " -l " q(album) \
          " -G " q(genre) " -o " q(out) " " q(file) }' > "$private_root/plain.sh"
  [ "$(wc -l < "$private_root/plain.sh")" -eq "$recordings" ] ||
    { echo "bench_encode: could not build one $format line per recording" >&2; exit 1; }
}

clear_outputs() {
  find "$music" -type f -delete
  : > "$XDG_CONFIG_HOME/Larkspur/encode.log"
}
count_outputs() {  # FORMAT
  find "$music" -name "*.$1" -size +0 | wc -l
}
now() {
  date +%s.%N
}
load() {
  cut -d' ' -f1 /proc/loadavg
}

run_job() {
  "$cli" encode --wait "${files[@]}" > "$private_root/job.log"
}
run_serial_job() {
  "$cli" encode --wait "${files[@]}" > "$private_root/job.log"
}
run_xargs() {
  tr '\n' '\0' < "$private_root/plain.sh" | xargs -0 -n1 -P"$cores" sh -c
}

declare -A all encoder
encoder[mp3]=1
encoder[ogg]=2
variants=(run_job run_serial_job run_xargs)
cat "${files[@]}" > /dev/null  # every variant finds the recordings in the page cache
echo "Encoding $recordings recordings of $seconds_each s (44.1 kHz, 16-bit, stereo), $runs runs," \
  "$cores cores"
for format in $formats; do
  write_settings "${encoder[$format]}"
  plain_commands "$format"
  find "$music" -mindepth 1 -type d -empty -delete
  "$cli" tags "${files[@]}" | sed -n 's/^OutputPath=//p' | while read -r output; do
    mkdir -p "$(dirname "$output")"
  done
  echo "$format line: $(head -1 "$private_root/plain.sh")"
  for run in $(seq 1 "$runs"); do
    for variant in "${variants[@]}"; do
      if [ "$variant" = run_serial_job ]; then
        write_settings "${encoder[$format]}" "Encoders=1"
      else
        write_settings "${encoder[$format]}"
      fi
      clear_outputs
      load_before=$(load)
      start=$(now)
      "$variant"
      end=$(now)
      made=$(count_outputs "$format")
      [ "$made" -eq "$recordings" ] ||
        { echo "bench_encode: $variant wrote $made of $recordings $format files" >&2; exit 1; }
      took=$(awk -v a="$start" -v b="$end" 'BEGIN { printf "%.3f", b - a }')
      printf '  %s run %d  %-15s %7.3f s   (load average before: %s)\n' "$format" "$run" \
        "$variant" "$took" "$load_before"
      all[$format.$variant]+="$took"$'\n'
    done
  done
done

declare -A best median
for key in "${!all[@]}"; do
  sorted=$(printf '%s' "${all[$key]}" | sort -n)
  best[$key]=$(head -1 <<< "$sorted")
  median[$key]=$(awk '{ t[NR] = $1 }
    END { printf "%.3f", NR % 2 ? t[(NR + 1) / 2] : (t[NR / 2] + t[NR / 2 + 1]) / 2 }' <<< "$sorted")
done
ratio() {
  awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'
}
echo
echo "| format, of $runs runs | job (\`encode --wait\`) | serial job (\`Encoders=1\`) | \`xargs -P$cores\` | job / serial (≤ 0.55) | job / xargs (≤ 1.05) |"
echo "|---|---|---|---|---|---|"
for format in $formats; do
  for kind in best median; do
    declare -n figures=$kind
    job=${figures[$format.run_job]}
    serial=${figures[$format.run_serial_job]}
    xargs_time=${figures[$format.run_xargs]}
    printf '| %s, %s | %.3f s | %.3f s | %.3f s | %s | %s |\n' "$format" "$kind" "$job" "$serial" \
      "$xargs_time" "$(ratio "$job" "$serial")" "$(ratio "$job" "$xargs_time")"
    unset -n figures
  done
done
