#!/usr/bin/env bash
# Starts the program: makes the data folder on first use, refuses politely without a display.
set -euo pipefail
build=${1:-build}
if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
  echo "ZANTO: nessuno schermo disponibile (DISPLAY non impostato): impossibile avviare il programma." >&2
  exit 2
fi
radice="${XDG_DATA_HOME:-$HOME/.local/share}/zanto"
if [[ ! -d "$radice" ]]; then
  "$build/src/zanto-installa"
fi
exec "$build/src/zanto"
