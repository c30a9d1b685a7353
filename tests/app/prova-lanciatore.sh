#!/usr/bin/env bash
# The launcher on a bare X server: where no session folder is given it hands
# the program a private one (owned by the user, mode 0700), so that Qt has no
# reason to warn at every start; a folder given is left as it is.
# Usage: prova-lanciatore.sh packaging/zanto.in
set -euo pipefail
modello=$1
lavoro=$(mktemp -d)
trap 'rm -rf "$lavoro"' EXIT
mkdir -p "$lavoro/dati/zanto" "$lavoro/tmp" "$lavoro/data"
# The program stands in as a script that tells the folder it was given.
cat > "$lavoro/programma" <<'FINE'
#!/bin/sh
printf '%s\n' "${XDG_RUNTIME_DIR:-}"
FINE
chmod +x "$lavoro/programma"
sed -e "s|@ZANTO_PROGRAMMA@|$lavoro/programma|" -e "s|@ZANTO_INSTALLATORE@|/bin/true|" \
  "$modello" > "$lavoro/zanto"
chmod +x "$lavoro/zanto"
avvia() {
  env -u XDG_RUNTIME_DIR DISPLAY=:99 XDG_DATA_HOME="$lavoro/dati" TMPDIR="$lavoro/tmp" "$@" \
    "$lavoro/zanto"
}
passati=0
falliti=0
controlla() {
  if [[ "$2" == "$3" ]]; then
    passati=$((passati + 1))
  else
    falliti=$((falliti + 1))
    echo "FAIL: $1: atteso «$3», avuto «$2»" >&2
  fi
}
atteso="$lavoro/tmp/runtime-$(id -un)"
controlla "senza cartella di sessione" "$(avvia)" "$atteso"
controlla "modo della cartella" "$(stat -c %a "$atteso")" "700"
controlla "padrone della cartella" "$(stat -c %u "$atteso")" "$(id -u)"
chmod 0755 "$atteso"
controlla "una cartella già fatta" "$(avvia)" "$atteso"
controlla "il suo modo ripreso" "$(stat -c %a "$atteso")" "700"
controlla "una cartella data" "$(avvia XDG_RUNTIME_DIR="$lavoro/data")" "$lavoro/data"
echo "$passati passed, $falliti failed"
[[ $falliti -eq 0 ]]
