#!/usr/bin/python3
# Reads the program's accessibility tree and its focus events through AT-SPI, as
# a screen reader does: the main menu's buttons are there, the invisible widget
# that holds the keys and the rings are not, and each step of the ring is told
# as a new focused button, in the ring's order.
import sys

import pyatspi
from gi.repository import GLib

ATTESI = ["Cartelle", "Informazioni", "Configurazioni"]
LIMITE_MS = 20000


def applicazione():
    desk = pyatspi.Registry.getDesktop(0)
    for i in range(desk.childCount):
        app = desk.getChildAtIndex(i)
        if app is not None and app.name == "zanto":
            return app
    return None


def tutti(o, profondita=0):
    if o is None or profondita > 6:
        return
    yield o
    for i in range(o.childCount):
        yield from tutti(o.getChildAtIndex(i), profondita + 1)


def main():
    errori = []
    app = None
    fine = GLib.get_monotonic_time() + LIMITE_MS * 1000
    contesto = GLib.MainContext.default()
    while app is None and GLib.get_monotonic_time() < fine:
        app = applicazione()
        contesto.iteration(False)
    if app is None:
        print("il programma non compare nell'albero AT-SPI")
        return 1

    nomi = []
    focalizzati = []

    def evento(e):
        if e.detail1 == 1 and e.source is not None:
            try:
                focalizzati.append(e.source.name)
            except Exception:
                pass
            if all(n in focalizzati for n in ATTESI):
                pyatspi.Registry.stop()

    pyatspi.Registry.registerEventListener(evento, "object:state-changed:focused")
    GLib.timeout_add(LIMITE_MS, pyatspi.Registry.stop)

    for o in tutti(app):
        nomi.append((o.getRoleName(), o.name))
    pulsanti = [n for r, n in nomi if r == "push button"]
    print("pulsanti:", pulsanti)
    for atteso in ["Disegno", "Cartelle", "Informazioni", "Configurazioni", "Esci"]:
        if atteso not in pulsanti:
            errori.append("manca il pulsante " + atteso)
    if any(n == "FocusFix" for _, n in nomi):
        errori.append("FocusFix compare nell'albero")
    if any(r == "filler" for r, _ in nomi):
        errori.append("un oggetto senza ruolo (filler) compare nell'albero")
    if any(r == "label" and not n for r, n in nomi):
        errori.append("gli anelli compaiono nell'albero come etichette vuote")

    pyatspi.Registry.start()
    print("fuoco:", focalizzati)
    passi = [n for n in focalizzati if n in ATTESI]
    ordinati = []
    for n in passi:
        if not ordinati or ordinati[-1] != n:
            ordinati.append(n)
    if ordinati[:3] != ATTESI:
        errori.append("il fuoco non segue l'anello: %s" % focalizzati)
    for e in errori:
        print("ERRORE:", e)
    return 1 if errori else 0


if __name__ == "__main__":
    sys.exit(main())
