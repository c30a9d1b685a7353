#!/bin/bash
# The real program on a bare X server with no window manager, worked by keys sent
# as a keyboard sends them, to whatever window holds the X focus: after every
# list, question and form that closes, the focus must be back on the program's
# front window, and the next keys must act there.
# Usage: prova-fuoco-xvfb.sh ZANTO ZANTO-INSTALLA
set -u
zanto=$1
installa=$2
lavoro=$(mktemp -d)
server=
programma=
trap '[[ -n $programma ]] && kill $programma 2>/dev/null; [[ -n $server ]] && kill $server 2>/dev/null; wait 2>/dev/null; rm -rf "$lavoro"' EXIT

# A display of its own: the server picks a free number and tells it when ready.
# Taken only once a client gets through: a number another server is just
# taking or leaving (a test beside this one) is given up for a new server.
mkfifo "$lavoro/pronto"
for prova in 1 2 3; do
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$lavoro/pronto" 2>"$lavoro/xvfb.log" &
  server=$!
  if ! read -r -t 30 numero <"$lavoro/pronto"; then
    echo "Xvfb non parte"; cat "$lavoro/xvfb.log"; exit 1
  fi
  export DISPLAY=:$numero
  if xdotool getdisplaygeometry >/dev/null 2>&1; then break; fi
  echo "il server :$numero non risponde, se ne avvia un altro"
  kill $server 2>/dev/null
  wait $server 2>/dev/null
  server=
  ((prova < 3)) || { cat "$lavoro/xvfb.log"; exit 1; }
done
export XDG_DATA_HOME=$lavoro/dati XDG_RUNTIME_DIR=$lavoro/run
mkdir -p "$XDG_DATA_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"
unset QT_QPA_PLATFORM
"$installa" >"$lavoro/installa.log" 2>&1 || { cat "$lavoro/installa.log"; exit 1; }
"$zanto" >"$lavoro/zanto.log" 2>&1 &
programma=$!

MENU="Programma «ZANTO»"
errori=0

# The name of the window that holds the X focus ("" for the desktop).
fuoco() { xdotool getwindowfocus getwindowname 2>/dev/null; }

# Waits, at most 20 s, until the focus is on a window whose name holds $2
# (the whole name with $1 = esatto).
aspetta() {
  local modo=$1 atteso=$2 passo=$3 nome fine=$((SECONDS + 20))
  while ((SECONDS < fine)); do
    nome=$(fuoco)
    if [[ $modo == esatto && $nome == "$atteso" ]] || [[ $modo == contiene && $nome == *"$atteso"* ]]; then
      echo "ok: $passo (fuoco su «$nome»)"
      return 0
    fi
    kill -0 $programma 2>/dev/null || break
  done
  echo "ERRORE: $passo: il fuoco è su «$(fuoco)», non su «$atteso»"
  errori=$((errori + 1))
  return 1
}

tasti() { xdotool key --delay 60 "$@"; }

# Should the program never show its menu, what it and the server said is the clue.
aspetta esatto "$MENU" "il menu all'avvio" || {
  cat "$lavoro/zanto.log" "$lavoro/xvfb.log"
  exit 1
}
tasti F12 # mode 4: arrows and Enter, no ring walking on the clock
tasti Right Return
aspetta contiene "Scelta Cartella" "la lista delle cartelle"
tasti Up Up Return # "Indietro": the list closes
aspetta esatto "$MENU" "il menu dopo la lista"
tasti Right Right Return # the keys act on the menu again: "Configurazioni"
aspetta contiene "CONFIGURAZIONI GENERALI" "le configurazioni aperte dal menu"
tasti Return # its "Chiudi", reached by the switch
aspetta esatto "$MENU" "il menu dopo le configurazioni"
tasti Right Right Return # "Informazioni"
aspetta contiene "Informazioni Programma" "le informazioni"
tasti Return
aspetta esatto "$MENU" "il menu dopo le informazioni"
tasti Return # "Disegno"
aspetta contiene "COMANDO" "l'ambiente di disegno"
# The ring stands on 119 when the screen opens; fourteen steps to 133.
tasti Right Right Right Right Right Right Right Right Right Right Right Right Right Right Return
aspetta contiene "INFORMAZIONI  E  SCELTE" "la domanda dell'uscita"
tasti Return # "Annulla"
aspetta contiene "COMANDO" "l'ambiente dopo la domanda"
tasti Return # 133 again, then "OK"
aspetta contiene "INFORMAZIONI  E  SCELTE" "la domanda, di nuovo"
tasti Left Return
aspetta esatto "$MENU" "il menu dopo il disegno"
tasti Left Return # "Esci"
fine=$((SECONDS + 20))
while kill -0 $programma 2>/dev/null && ((SECONDS < fine)); do :; done
if kill -0 $programma 2>/dev/null; then
  echo "ERRORE: «Esci» non ha chiuso il programma"
  errori=$((errori + 1))
else
  wait $programma
  esito=$?
  programma=
  [[ $esito -eq 0 ]] || { echo "ERRORE: il programma è uscito con $esito"; errori=$((errori + 1)); }
fi
((errori == 0)) || cat "$lavoro/zanto.log"
exit $((errori > 0))
