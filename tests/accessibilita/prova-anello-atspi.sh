#!/bin/bash
# The program under a display without a screen, on a D-Bus session and an
# accessibility bus of its own, read by an AT-SPI client.
# Usage: prova-anello-atspi.sh ZANTO ZANTO-INSTALLA
set -u
zanto=$1
installa=$2
qui=$(cd "$(dirname "$0")" && pwd)
if [[ -z "${DISPLAY:-}" || -z "${DBUS_SESSION_BUS_ADDRESS:-}" ]]; then
  exec xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- "$0" "$@"
fi
lavoro=$(mktemp -d)
trap 'kill $programma $bus 2>/dev/null; wait 2>/dev/null; rm -rf "$lavoro"' EXIT
export XDG_DATA_HOME=$lavoro/dati XDG_RUNTIME_DIR=$lavoro/run
mkdir -p "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1 NO_AT_BRIDGE=0
unset QT_QPA_PLATFORM
/usr/libexec/at-spi-bus-launcher --launch-immediately &
bus=$!
"$installa" > "$lavoro/installa.log" 2>&1 || { cat "$lavoro/installa.log"; exit 1; }
# Mode 1 and a one-second dwell, as the installer leaves them: the ring walks by itself.
"$zanto" > "$lavoro/zanto.log" 2>&1 &
programma=$!
/usr/bin/python3 "$qui/anello-atspi.py"
esito=$?
[[ $esito -eq 0 ]] || cat "$lavoro/zanto.log"
exit $esito
