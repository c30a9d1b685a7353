#!/usr/bin/env bash
# Builds the Debian package and checks what it carries, what it depends on, and
# that the installed menu entry, metainfo, launcher and installer are sound.
set -euo pipefail
sorgente=$1 costruzione=$2 generatore=$3 compilatore=$4

errori=0
sbaglio() {
  echo "ERRORE: $*" >&2
  errori=$((errori + 1))
}

# A plain build type (no optimisation, no debug information) and precompiled Qt
# headers: the quickest to compile, and the contents of the package are the same.
cmake -S "$sorgente" -B "$costruzione" -G "$generatore" -DCMAKE_CXX_COMPILER="$compilatore" \
  -DCMAKE_BUILD_TYPE= -DZANTO_TESTS=OFF -DZANTO_SANITIZE=OFF -DZANTO_PCH=ON >/dev/null
registro="$costruzione/pacchetto.log"
cmake --build "$costruzione" --target package >"$registro" 2>&1 || {
  cat "$registro" >&2
  exit 1
}

versione=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$costruzione/CMakeCache.txt")
deb="$costruzione/zanto_${versione}_$(dpkg --print-architecture).deb"
[[ -f "$deb" ]] || { echo "ERRORE: manca $deb" >&2; exit 1; }
echo "pacchetto: $(basename "$deb")"

id=io.github.zanto.zanto
attesi=(
  ./usr/bin/zanto
  ./usr/bin/zanto-installa
  ./usr/libexec/zanto/zanto
  "./usr/share/applications/$id.desktop"
  "./usr/share/metainfo/$id.metainfo.xml"
  ./usr/share/icons/hicolor/scalable/apps/zanto.svg
  ./usr/share/icons/hicolor/256x256/apps/zanto.png
)
elenco=$(dpkg-deb -c "$deb" | awk '{print $6}')
for f in "${attesi[@]}"; do
  grep -qxF "$f" <<<"$elenco" || sbaglio "il pacchetto non contiene $f"
done
fuori=$(grep -v '^\./usr/' <<<"$elenco" | grep -vx '\./' || true)
[[ -z "$fuori" ]] || sbaglio "file fuori da /usr: $fuori"

for campo in Maintainer Section Homepage Description; do
  [[ -n "$(dpkg-deb -f "$deb" "$campo")" ]] || sbaglio "campo $campo vuoto"
done
dipende=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $dipende"
for p in libqt6core6 libqt6gui6 libqt6widgets6 libqt6sql6 libqt6sql6-sqlite libqt6printsupport6 \
  libqt6svg6 libqt6texttospeech6 libsqlite3-0 fonts-liberation2 fonts-dejavu-core; do
  grep -Eq "(^|, )$p( |,|$)" <<<"$dipende" || sbaglio "Depends non nomina $p"
done
if grep -Eq -- '-dev( |,|$)' <<<"$dipende"; then sbaglio "Depends nomina un pacchetto -dev"; fi
consiglia=$(dpkg-deb -f "$deb" Recommends)
echo "Recommends: $consiglia"
for p in qt6-speech-speechd-plugin speech-dispatcher-espeak-ng; do
  grep -Eq "(^|, )$p( |,|$)" <<<"$consiglia" || sbaglio "Recommends non nomina $p"
done

radice="$costruzione/installato"
rm -rf "$radice"
dpkg-deb -x "$deb" "$radice"

desktop-file-validate "$radice/usr/share/applications/$id.desktop" || sbaglio "voce di menu non valida"
appstreamcli validate --no-net --pedantic "$radice/usr/share/metainfo/$id.metainfo.xml" ||
  sbaglio "metainfo non valido"
# The tree as a whole: the metainfo's launchable finds its menu entry, and that its icon.
appstreamcli validate-tree --no-net "$radice" || sbaglio "albero AppStream non valido"

rilascio=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$radice/usr/share/metainfo/$id.metainfo.xml" |
  head -n 1)
[[ "$rilascio" == "$versione" ]] || sbaglio "ultimo rilascio nel metainfo $rilascio, pacchetto $versione"

file "$radice/usr/share/icons/hicolor/256x256/apps/zanto.png" | grep -q 'PNG image data, 256 x 256' ||
  sbaglio "l'icona PNG non è di 256 x 256"
for b in usr/libexec/zanto/zanto usr/bin/zanto-installa; do
  file "$radice/$b" | grep -q 'ELF.*, stripped' || sbaglio "$b non è un eseguibile ridotto"
done

# The launcher finds its program and installer from where it stands: without a
# display it gets as far as saying so, which it does only after finding both.
set +e
messaggio=$(env -u DISPLAY -u WAYLAND_DISPLAY "$radice/usr/bin/zanto" 2>&1)
esito=$?
set -e
[[ $esito -eq 2 && "$messaggio" == *"nessuno schermo"* ]] ||
  sbaglio "il lanciatore esce con $esito: $messaggio"

# The installer from the package makes a whole data folder.
dati="$costruzione/dati"
rm -rf "$dati"
mkdir -p "$dati"
XDG_DATA_HOME="$dati" "$radice/usr/bin/zanto-installa" >/dev/null || sbaglio "zanto-installa fallisce"
for f in Programma/Configurazione.zdb Archivi/Disegni.zdb Archivi/Oggetti.zdb; do
  [[ -s "$dati/zanto/$f" ]] || sbaglio "zanto-installa non crea $f"
done
for d in Disegni File; do
  [[ -d "$dati/zanto/$d" ]] || sbaglio "zanto-installa non crea $d/"
done

[[ $errori -eq 0 ]] || { echo "$errori controlli falliti" >&2; exit 1; }
echo "pacchetto controllato: contenuto, Depends, voce di menu, metainfo, icona, lanciatore, installatore"
