#!/usr/bin/env bash
# Writes small WAV files with INFO tags into the folder given, as seeds for riff_reader_fuzz.
set -euo pipefail
out="$1"
mkdir -p "$out"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

le32() {
  printf "$(printf '\\x%02x\\x%02x\\x%02x\\x%02x' $(($1 & 255)) $((($1 >> 8) & 255)) \
    $((($1 >> 16) & 255)) $((($1 >> 24) & 255)))"
}
# chunk ID COMMAND...: the output of COMMAND as the data of a chunk, padded to an even size.
chunk() {
  local id=$1 file
  shift
  file=$(mktemp -p "$scratch")
  "$@" >"$file"
  local size
  size=$(stat -c %s "$file")
  printf '%s' "$id"
  le32 "$size"
  cat "$file"
  if ((size % 2)); then printf '\0'; fi
}
text() { printf '%s\0' "$1"; }
fmt() { printf '\x01\x00\x02\x00'; le32 44100; le32 176400; printf '\x04\x00\x10\x00'; }
audio() { printf '\x01\x02\x03\x04\x05\x06\x07\x08'; }
info() {
  printf 'INFO'
  chunk IGNR text "Jazz FM"
  chunk IART text "Anna"
  chunk IALB text "Caf$(printf '\xe9')"
  chunk INAM text "Song"
}
odd_info() {
  printf 'INFO'
  chunk ICMT printf 'odd'
  chunk INAM text "Song"
  chunk IALB printf ''
  chunk IART text "Ann"
  chunk IGNR text "Rock"
}
tags_after_data() { printf 'WAVE'; chunk 'fmt ' fmt; chunk data audio; chunk LIST info; }
tags_before_data() { printf 'WAVE'; chunk 'fmt ' fmt; chunk LIST info; chunk data audio; }
odd_sizes() { printf 'WAVE'; chunk 'fmt ' fmt; chunk data printf '\x01\x02\x03'; chunk LIST odd_info; }
other_list() {
  printf 'WAVE'
  chunk LIST printf 'adtl'
  chunk data audio
  chunk LIST info
}

chunk RIFF tags_after_data >"$out/tags_after_data.wav"
chunk RIFF tags_before_data >"$out/tags_before_data.wav"
chunk RIFF odd_sizes >"$out/odd_sizes.wav"
chunk RIFF other_list >"$out/other_list.wav"
{ printf 'RIFF'; le32 4294967295; printf 'WAVE'; chunk data audio; printf 'LIST'; le32 4294967295
  info; } >"$out/streaming_sizes.wav"
