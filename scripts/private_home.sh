# shellcheck shell=bash
# Sourced by the demo and benchmark scripts: points HOME, the XDG folders and TMPDIR into the
# folder given as $1 (made fresh), so nothing they run reads or writes the user's own home.
# Sets private_root and real_home.
# shellcheck disable=SC2034  # for the messages of the caller
real_home="${HOME:-}"
private_root="${1:?private_home.sh needs a folder}"
case "$private_root" in /*/build/*) ;; *) echo "private_home.sh: $private_root is not under build/" >&2; exit 1 ;; esac
rm -rf "$private_root"
mkdir -p "$private_root"/{home/.config,home/Music,tmp,usr-share,etc-xdg,run}
chmod 700 "$private_root/run"
export HOME="$private_root/home"
export XDG_CONFIG_HOME="$HOME/.config"
export XDG_DATA_HOME="$HOME/.local/share"
export XDG_CACHE_HOME="$HOME/.cache"
export XDG_STATE_HOME="$HOME/.local/state"
export XDG_DATA_DIRS="$private_root/usr-share"
export XDG_CONFIG_DIRS="$private_root/etc-xdg"
export XDG_RUNTIME_DIR="$private_root/run"
export TMPDIR="$private_root/tmp"
unset TEMP TMP USERPROFILE XDG_MUSIC_DIR XDG_DESKTOP_DIR XDG_DOCUMENTS_DIR XDG_PICTURES_DIR \
  XDG_VIDEOS_DIR
