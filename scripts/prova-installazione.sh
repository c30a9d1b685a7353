#!/usr/bin/env bash
# Installs the package into a clean Debian 12 root, as a user would with apt, and
# starts ZANTO from its menu entry under Xvfb: the data folder must be made and
# the window must show. Not part of `make test`: it needs root, debootstrap and
# the Debian mirror, and takes minutes.
#
#   make prova-installazione
#   sudo scripts/prova-installazione.sh build/zanto_0.1.0_amd64.deb
#
# The first run keeps a bare bookworm root in $ZANTO_RADICE_BASE and later runs
# copy it, so each run installs into a root that has never seen the package.
set -euo pipefail
deb=$(readlink -f "${1:?uso: prova-installazione.sh zanto_VERSIONE_ARCH.deb}")
base=${ZANTO_RADICE_BASE:-/var/tmp/zanto-bookworm}
specchio=${ZANTO_SPECCHIO:-http://deb.debian.org/debian}
uscita=${ZANTO_USCITA:-$(dirname "$deb")/prova-installazione}
id=io.github.zanto.zanto

[[ $(id -u) -eq 0 ]] || { echo "serve root: chroot e mount" >&2; exit 2; }
bash "$(dirname "$0")/installa-dipendenze.sh" "$(dirname "$0")/pacchetti-installazione.txt"

if [[ ! -x "$base/usr/bin/apt-get" ]]; then
  rm -rf "$base"
  debootstrap --variant=minbase bookworm "$base" "$specchio"
fi

radice=$(mktemp -d /var/tmp/zanto-radice.XXXXXX)
montati=()
xvfb=
zanto=
pulisci() {
  [[ -n "$zanto" ]] && kill "$zanto" 2>/dev/null
  [[ -n "$xvfb" ]] && kill "$xvfb" 2>/dev/null
  for ((i = ${#montati[@]} - 1; i >= 0; i--)); do umount "${montati[i]}" || umount -l "${montati[i]}"; done
  rm -rf "$radice"
}
trap pulisci EXIT

cp -a "$base/." "$radice/"
for cartella in /proc /dev /tmp/.X11-unix; do
  mkdir -p "$radice$cartella"
done
mount -t proc proc "$radice/proc" && montati+=("$radice/proc")
mount --bind /dev "$radice/dev" && montati+=("$radice/dev")
cp /etc/resolv.conf "$radice/etc/resolv.conf"

# As a user would: apt-get with the file, and nothing but its Depends.
cp "$deb" "$radice/tmp/"
chroot "$radice" apt-get update -qq
chroot "$radice" env DEBIAN_FRONTEND=noninteractive \
  apt-get install -y -qq --no-install-recommends "/tmp/$(basename "$deb")"
chroot "$radice" useradd -m prova

# The display lives outside the root; its socket is shown inside.
mkdir -p /tmp/.X11-unix
mount --bind /tmp/.X11-unix "$radice/tmp/.X11-unix" && montati+=("$radice/tmp/.X11-unix")
fifo="$radice/tmp/schermo"
mkfifo "$fifo"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -dpi 96 -nolisten tcp 3>"$fifo" 2>/dev/null &
xvfb=$!
read -r numero <"$fifo"
export DISPLAY=":$numero"

# The command of the menu entry, without its field codes.
comando=$(sed -n 's/^Exec=//p' "$radice/usr/share/applications/$id.desktop" | sed 's/ *%[fFuUdDnNickvm]//g')
echo "voce di menu: Exec=$comando"
dati="$radice/home/prova/.local/share/zanto"
[[ ! -e "$dati" ]] || { echo "ERRORE: la cartella dei dati c'è già" >&2; exit 1; }
chroot --userspec=prova:prova "$radice" env -i HOME=/home/prova USER=prova LANG=C.UTF-8 \
  PATH=/usr/local/bin:/usr/bin:/bin DISPLAY="$DISPLAY" sh -c "exec $comando" &
zanto=$!

# The launcher runs the installer before the program, so once the window shows
# the data folder is complete.
finestra=$(timeout 120 xdotool search --sync --onlyvisible --name 'ZANTO' | head -n 1) || {
  echo "ERRORE: nessuna finestra ZANTO in 120 s" >&2
  exit 1
}
echo "finestra: $(xdotool getwindowname "$finestra")"
for f in Programma/Configurazione.zdb Archivi/Disegni.zdb Archivi/Oggetti.zdb; do
  [[ -s "$dati/$f" ]] || { echo "ERRORE: manca $f nella cartella dei dati" >&2; exit 1; }
done
echo "cartella dei dati: $(cd "$dati" && find . -mindepth 1 -maxdepth 2 | sort | tr '\n' ' ')"
kill -0 "$zanto" || { echo "ERRORE: il programma è uscito" >&2; exit 1; }
mkdir -p "$uscita"
import -window root "$uscita/schermo.png"
echo "installazione provata: $(basename "$deb"); schermata in $uscita/schermo.png"
