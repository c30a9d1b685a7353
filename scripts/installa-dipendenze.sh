#!/usr/bin/env bash
# Installs the Debian packages listed in pacchetti-debian.txt, or in the list
# given as the argument, that are missing.
# Idempotent: with everything present it only checks and returns.
set -euo pipefail
lista="${1:-$(dirname "$0")/pacchetti-debian.txt}"
mancanti=()
while read -r p; do
  [[ -z "$p" || "$p" == \#* ]] && continue
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    mancanti+=("$p")
  fi
done <"$lista"
[[ ${#mancanti[@]} -eq 0 ]] && exit 0
echo "Installo: ${mancanti[*]}"
sudo_cmd=()
[[ $(id -u) -ne 0 ]] && sudo_cmd=(sudo)
"${sudo_cmd[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${mancanti[@]}"
