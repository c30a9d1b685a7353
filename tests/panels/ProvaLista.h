#pragma once

#include "panels/ProvaPannello.h"
#include "panels/QuadroMostraLista.h"
#include "support/Copione.h"

// The list panel in front, if any.
inline QuadroMostraLista* Lista() {
    return PannelloDavanti<QuadroMostraLista>();
}

// ScegliDaLista with the script run inside it; a script that leaves the list
// open goes back from it at the end.
inline bool ApriLista(Copione& c) {
    c.Esegui([] {
        if (QuadroMostraLista* l = Lista()) l->ClickTasto(125);
    });
    return EseguiNelPannello(c, [] { ScegliDaLista(); });
}
