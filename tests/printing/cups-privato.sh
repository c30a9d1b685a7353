#!/usr/bin/env bash
# A print service of the tests' own: a CUPS scheduler on a socket in a folder
# of the build, with two queues driven by real PDF printer descriptions (Letter
# by default, with hardware margins, as most printers have) whose backend
# writes each job it gets into that folder as a PDF. No system printer or
# setting is touched.
#   cups-privato.sh avvia FOLDER   starts it (returns when it is listening)
#   cups-privato.sh ferma FOLDER   stops it
set -euo pipefail
azione="$1"
R="$(mkdir -p "$2" && cd "$2" && pwd)"

ferma() {
  if [[ -f "$R/cupsd.pid" ]]; then
    kill "$(cat "$R/cupsd.pid")" 2>/dev/null || true
    rm -f "$R/cupsd.pid"
  fi
  if [[ -f "$R/lavoro" ]]; then
    rm -rf "$(cat "$R/lavoro")"
    rm -f "$R/lavoro"
  fi
}

case "$azione" in
ferma)
  ferma
  exit 0
  ;;
avvia) ;;
*)
  echo "uso: $0 avvia|ferma CARTELLA" >&2
  exit 2
  ;;
esac

ferma
cupsd_bin="$(command -v cupsd || echo /usr/sbin/cupsd)"
[[ -x "$cupsd_bin" ]] || { echo "cupsd mancante: installare cups-daemon" >&2; exit 1; }
command -v lpadmin >/dev/null || { echo "lpadmin mancante: installare cups-client" >&2; exit 1; }
ppd=/usr/share/ppd/cupsfilters
for f in Generic-PDF_Printer-PDF.ppd Fuji_Xerox-DocuPrint_CM305_df-PDF.ppd; do
  [[ -f "$ppd/$f" ]] || { echo "$ppd/$f mancante: installare cups-filters" >&2; exit 1; }
done

rm -rf "$R/etc" "$R/spool" "$R/cache" "$R/state" "$R/tmp" "$R/log" "$R/bin" "$R/uscita"
# The filters run as the scheduler's unprivileged user, who must reach the
# programs, the printer descriptions and the job files: those live in a folder
# of their own that anyone may enter, since the build folder may stand under
# one that only its owner may (a fresh clone in a private temporary folder).
# The socket, the log and the pages stay here.
L="$(mktemp -d "${TMPDIR:-/tmp}/zanto-cups.XXXXXX")"
chmod 755 "$L"
printf '%s\n' "$L" >"$R/lavoro"
mkdir -p "$L"/{etc/ppd,spool,cache,state,tmp,bin/backend} "$R"/{log,uscita}
# The backend runs as the scheduler's own user, not as us.
chmod 777 "$L/tmp" "$R/uscita"

# The system's filters and helpers, and our one backend.
for d in filter daemon notifier cgi-bin monitor driver; do
  [[ -e "/usr/lib/cups/$d" ]] && ln -s "/usr/lib/cups/$d" "$L/bin/$d"
done
cat >"$L/bin/backend/zantopdf" <<'BACKEND'
#!/bin/sh
# Without arguments a backend tells what devices it serves.
if [ $# -eq 0 ]; then
  echo 'file zantopdf "ZANTO" "PDF di prova di ZANTO"'
  exit 0
fi
dest="${DEVICE_URI#zantopdf:}"
tmp="$dest/.lavoro-$1"
if [ $# -ge 6 ]; then cat "$6" >"$tmp.pjl"; else cat >"$tmp.pjl"; fi || exit 1
# The driver wraps the PDF in the printer's job language: the file keeps the
# PDF from its header on.
inizio="$(grep -abo -m1 '%PDF-' "$tmp.pjl" | head -n1 | cut -d: -f1)"
[ -n "$inizio" ] || exit 1
tail -c "+$((inizio + 1))" "$tmp.pjl" >"$tmp" || exit 1
rm -f "$tmp.pjl"
# The job's name as the service got it, beside the page.
printf '%s' "$3" >"$dest/lavoro-$1.titolo"
chmod 644 "$dest/lavoro-$1.titolo"
# Whole or not at all: whoever waits for the file never reads half a job.
chmod 644 "$tmp"
mv "$tmp" "$dest/lavoro-$1.pdf"
BACKEND
# Not world-executable: the scheduler runs it as its own user (root when it
# is root), who can reach the build folder whatever the folders above allow.
chmod 700 "$L/bin/backend/zantopdf"

cat >"$L/etc/cupsd.conf" <<CONF
Listen $R/cups.sock
LogLevel info
Browsing No
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Location /admin>
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
CONF
cat >"$L/etc/cups-files.conf" <<CONF
ServerRoot $L/etc
ServerBin $L/bin
RequestRoot $L/spool
CacheDir $L/cache
StateDir $L/state
TempDir $L/tmp
AccessLog $R/log/access_log
ErrorLog $R/log/error_log
PageLog $R/log/page_log
CONF

# Without -f cupsd returns once it listens.
"$cupsd_bin" -c "$L/etc/cupsd.conf" -s "$L/etc/cups-files.conf"
pgrep -f -n "cupsd -C $L/etc/cupsd.conf" >"$R/cupsd.pid" ||
  pgrep -f -n "cupsd -c $L/etc/cupsd.conf" >"$R/cupsd.pid"

export CUPS_SERVER="$R/cups.sock"
# lpadmin warns that printer drivers are deprecated; they are what most printers still have.
lpadmin -p ZantoProva -v "zantopdf:$R/uscita" -D "ZANTO PDF di prova" \
  -P "$ppd/Generic-PDF_Printer-PDF.ppd" -o printer-error-policy=abort-job -E 2>/dev/null
lpadmin -p ZantoSeconda -v "zantopdf:$R/uscita" -D "ZANTO seconda stampante" \
  -P "$ppd/Fuji_Xerox-DocuPrint_CM305_df-PDF.ppd" -o printer-error-policy=abort-job -E 2>/dev/null
lpstat -v
