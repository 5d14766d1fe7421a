#!/usr/bin/env bash
# Encodes the same recordings to MP3 twice over: through `wavforge-cli encode --wait` (the
# program's job: plan, script, wavforge-cmd, wavforge-encode running lame at nice 10 and
# checking its output, the watch that notices the end) and through a plain shell script
# running lame with the same options, tags and output names. Prints the best
# time of each and the job's overhead. Everything happens in build/bench-encode with a
# private home. Expects a release build: scripts/bench.sh makes one first.
#
# Settings through the environment: RECORDINGS (20), SECONDS_EACH (60), RUNS (5).
set -euo pipefail
cd "$(dirname "$0")/.."
recordings=${RECORDINGS:-20}
seconds_each=${SECONDS_EACH:-60}
runs=${RUNS:-5}

cli_folder="$PWD/build/release/program"
cli="$cli_folder/wavforge-cli"
sample="$PWD/build/release/tools/wavforge-sample-wav"
for program in "$cli" "$sample"; do
  [ -x "$program" ] || { echo "bench_encode: $program is missing; run scripts/bench.sh" >&2; exit 1; }
done
. scripts/private_home.sh "$PWD/build/bench-encode"
music="$HOME/Music"
sources="$private_root/recordings"
mkdir -p "$sources" "$XDG_CONFIG_HOME/Larkspur"

# The shipped defaults (MP3 at -V 2, genre subfolders, the log on) except DelTemp: the
# recordings stay for the next run, and both variants do exactly the same work.
cat > "$XDG_CONFIG_HOME/Larkspur/Larkspur.ini" <<'INI'
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
Encoder=1
INI

genres=("Jazz" "Rock" "Folk" "Talk Radio")
files=()
for i in $(seq 1 "$recordings"); do
  file="$sources/$(printf 'take%02d.wav' "$i")"
  "$sample" "$file" --seconds "$seconds_each" --rate 44100 --channels 2 \
    --frequency $((200 + 20 * i)) --genre "${genres[$((i % ${#genres[@]}))]}" \
    --artist "Artist $i" --album "Bench Session" --title "Track $i"
  files+=("$file")
done

# The plain variant runs lame as the job's tool does: same options, same tags, same output
# names (from `tags`), without the tool's checks.
"$cli" encode --dry-run "${files[@]}" | grep -v '^plan: ' > "$private_root/job.bat"
options=$(tr -d '\r' < "$private_root/job.bat" | sed -n 's/.* mp3 lame \(.*\) --ta .*/\1/p' | head -1)
[ -n "$options" ] || { echo "bench_encode: the dry run has no wavforge-encode lame line" >&2; exit 1; }
"$cli" tags "${files[@]}" | awk -F= -v options="$options" '
  function q(s) { gsub(/\047/, "\047\\\047\047", s); return "\047" s "\047" }
  /^File=/ { file = substr($0, 6) } /^Genre=/ { genre = substr($0, 7) }
  /^Artist=/ { artist = substr($0, 8) } /^Album=/ { album = substr($0, 7) }
  /^Title=/ { title = substr($0, 7) }
  /^OutputPath=/ { print "lame " options " --ta " q(artist) " --tt " q(title) \
    " --tl " q(album) " --tg " q(genre) " " q(file) " " q(substr($0, 12) ".mp3") }' \
  > "$private_root/plain.sh"
[ "$(wc -l < "$private_root/plain.sh")" -eq "$recordings" ] ||
  { echo "bench_encode: could not build one lame line per recording" >&2; exit 1; }
"$cli" tags "${files[@]}" | sed -n 's/^OutputPath=//p' | while read -r output; do
  mkdir -p "$(dirname "$output")"
done

clear_outputs() {
  find "$music" -name '*.mp3' -delete
  : > "$XDG_CONFIG_HOME/Larkspur/encode.log"
}
count_outputs() {
  find "$music" -name '*.mp3' -size +0 | wc -l
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
# The job's script run by the interpreter in the foreground: the job without its start and
# without the watch that notices its end. In the program folder, as the job runs it.
run_script() {
  (cd "$cli_folder" && ./wavforge-cmd "$private_root/job.bat" > /dev/null 2>&1)
}
run_plain() {
  sh "$private_root/plain.sh"
}
run_plain_nice10() {
  nice -n 10 sh "$private_root/plain.sh"
}

declare -A all
variants=(run_job run_script run_plain run_plain_nice10)
cat "${files[@]}" > /dev/null  # every variant finds the recordings in the page cache
echo "Encoding $recordings recordings of $seconds_each s (44.1 kHz, 16-bit, stereo) to MP3, $runs runs"
echo "lame line: $(head -1 "$private_root/plain.sh")"
for run in $(seq 1 "$runs"); do
  for variant in "${variants[@]}"; do
    clear_outputs
    load_before=$(load)
    start=$(now)
    "$variant"
    end=$(now)
    made=$(count_outputs)
    [ "$made" -eq "$recordings" ] ||
      { echo "bench_encode: $variant wrote $made of $recordings files" >&2; exit 1; }
    took=$(awk -v a="$start" -v b="$end" 'BEGIN { printf "%.3f", b - a }')
    printf '  run %d  %-17s %7.3f s   (load average before: %s)\n' "$run" "$variant" "$took" "$load_before"
    all[$variant]+="$took"$'\n'
  done
done

declare -A best median
for variant in "${variants[@]}"; do
  sorted=$(printf '%s' "${all[$variant]}" | sort -n)
  best[$variant]=$(head -1 <<< "$sorted")
  median[$variant]=$(awk '{ t[NR] = $1 }
    END { printf "%.3f", NR % 2 ? t[(NR + 1) / 2] : (t[NR / 2] + t[NR / 2 + 1]) / 2 }' <<< "$sorted")
done
# Percent by which the first time exceeds the second.
overhead() {
  awk -v job="$1" -v plain="$2" 'BEGIN { printf "%.1f", 100 * (job - plain) / plain }'
}
report() {  # KIND JOB SCRIPT PLAIN PLAIN_AT_NICE_10
  printf '%-6s of %d: wavforge-cli encode --wait %.3f s; its script alone under wavforge-cmd %.3f s;\n' \
    "$1" "$runs" "$2" "$3"
  printf '              plain lame loop %.3f s; plain loop at nice 10 %.3f s\n' "$4" "$5"
  printf '              overhead of the job %s %% (target at most 3 %%), of the script alone %s %%,\n' \
    "$(overhead "$2" "$4")" "$(overhead "$3" "$4")"
  printf '              of nice 10 on the plain loop %s %%\n' "$(overhead "$5" "$4")"
}
echo
report best "${best[run_job]}" "${best[run_script]}" "${best[run_plain]}" \
  "${best[run_plain_nice10]}"
report median "${median[run_job]}" "${median[run_script]}" "${median[run_plain]}" \
  "${median[run_plain_nice10]}"
echo "wavforge-cli --wait makes the window timer's test every 50 ms, so at most that is lost"
echo "between the end of the job and the end of the command."
