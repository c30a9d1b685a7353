#include "drawing/TabellaComandi.h"

#include "drawing/AmbienteDisegno.h"
#include "drawing/ComandiDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "printing/Stampe.h"

namespace {

// The conditions of the buttons, on the three variables that say what is open
// and on the drawing. Each is the whole test of its command.

bool LiberoDaElementi() {
    return ComandoModifica < 1 && PrimitivaAttiva < 1;
}

bool ElementoNuovo() {
    return LiberoDaElementi() && OggettoAttivo != 1;
}

bool LineaAperta() {
    return PrimitivaAttiva == TastoDisegno::PrimitivaLinea;
}

bool ArcoAperto() {
    return PrimitivaAttiva == TastoDisegno::PrimitivaArco;
}

bool ArcoOEllisseAperti() {
    return PrimitivaAttiva == TastoDisegno::PrimitivaArco ||
           PrimitivaAttiva == TastoDisegno::PrimitivaEllisse;
}

bool GrandezzaModificabile() {
    return OggettoAttivo != 0 || PrimitivaAttiva == TastoDisegno::PrimitivaArco ||
           PrimitivaAttiva == TastoDisegno::PrimitivaRettangolo ||
           PrimitivaAttiva == TastoDisegno::PrimitivaEllisse ||
           PrimitivaAttiva == TastoDisegno::SelezionaOggetto;
}

bool ElementoOOggettoAperti() {
    return OggettoAttivo != 0 || PrimitivaAttiva != 0;
}

bool ZonaColorabile() {
    return NumeroAzioni != 0 && LiberoDaElementi();
}

bool DisegnoSenzaOggetto() {
    return NumeroAzioni != 0 && ElementoNuovo();
}

// ComandoModifica is not tested: a fill's shift may be open.
bool UltimaDuplicabile() {
    return NumeroAzioni != 0 && PrimitivaAttiva < 1 && OggettoAttivo != 1 &&
           Azioni[NumeroAzioni].TipoAzione != TipiAzione::Colorazione;
}

bool OggettoInMano() {
    return LiberoDaElementi() && OggettoAttivo != 0;
}

// PrimitivaAttiva and ComandoModifica are not tested: the group may come
// beside an open element.
bool UltimoOggettoDisponibile() {
    return OggettoAttivo != 1 && NumeroElementiAttivi != 0;
}

bool OggettoEliminabile() {
    return NumeroAzioni != 0 && OggettoInMano();
}

// A text taken back into the hands passes where a new one would not.
bool TestoScrivibile() {
    const bool riaperto =
        ElementoRiaperto == 1 && ElementoInCostruzione.TipoAzione == TipiAzione::Testo;
    return riaperto || ElementoNuovo();
}

// VoceComandoDi finds a button by its place.
constexpr bool InOrdine(const TabellaComandiDisegno& tabella) {
    for (size_t i = 0; i < tabella.size(); ++i)
        if (tabella[i].Codice != TastoDisegno::Primo + static_cast<int>(i)) return false;
    return true;
}

} // namespace

// A friend of ComandiDisegno: its routines reach the families of commands.
const TabellaComandiDisegno& TabellaComandi() {
    namespace T = TastoDisegno;
    namespace M = MarcaDisegno;
    using C = ComandiDisegno;
    constexpr auto primitiva = [](C& c, int16_t i) { c.primitive_.ApriPrimitiva(i); };
    constexpr auto modifica = [](C& c, int16_t i) { c.primitive_.ComandoDiModifica(i); };
    static constexpr TabellaComandiDisegno tabella = {{
        {T::PrimitivaLinea, M::PrimitivaLinea, ElementoNuovo, primitiva},
        {T::PrimitivaArco, M::PrimitivaArco, ElementoNuovo, primitiva},
        {T::PrimitivaRettangolo, M::PrimitivaRettangolo, ElementoNuovo, primitiva},
        {T::PrimitivaEllisse, M::PrimitivaEllisse, ElementoNuovo, primitiva},
        {T::ModificaInizioLinea, M::ModificaInizioLinea, LineaAperta, modifica},
        {T::ModificaFineLinea, M::ModificaFineLinea, LineaAperta, modifica},
        {T::ModificaInizioArco, M::ModificaInizioArco, ArcoAperto, modifica},
        {T::ModificaFineArco, M::ModificaFineArco, ArcoAperto, modifica},
        {T::RuotaInteroArco, M::RuotaInteroArco, ArcoAperto, modifica},
        {T::ModificaFormaEllisseArco, M::ModificaFormaEllisseArco, ArcoOEllisseAperti, modifica},
        {T::ModificaGrandezza1, M::ModificaGrandezza1, GrandezzaModificabile, modifica},
        {T::ModificaGrandezza2, M::ModificaGrandezza2, GrandezzaModificabile, modifica},
        {T::MuoveElementoAttivo, M::MuoveElementoAttivo, ElementoOOggettoAperti, modifica},
        {T::ColoraZona, M::ColoraZona, ZonaColorabile,
         [](C& c, int16_t) { c.primitive_.ColoraZona(); }},
        {T::SceltaColoreZona, M::SceltaColoreZona, nullptr,
         [](C& c, int16_t) { c.colori_.SceltaColoreZona(); }},
        {T::SceltaFormePieneVuote, M::SceltaFormePieneVuote, nullptr,
         [](C& c, int16_t) { c.primitive_.SceltaFormePieneVuote(); }},
        {T::Fissa, M::Fissa, ElementoOOggettoAperti, [](C& c, int16_t) { c.primitive_.Fissa(); }},
        // Nothing open: back in the history; else the open thing is dropped.
        {T::AnnullaOperazioni, M::AnnullaOperazioni, nullptr,
         [](C& c, int16_t) {
             if (OggettoAttivo != 1 && LiberoDaElementi())
                 c.storia_.TornaNellaStoria();
             else
                 c.primitive_.Annulla();
         }},
        // OggettoAttivo is not tested: the new drawing drops the group too.
        {T::NuovoDisegno, M::NuovoDisegno, LiberoDaElementi,
         [](C& c, int16_t) { c.file_.NuovoDisegno(); }},
        {T::SelezionaOggetto, M::SelezionaOggetto, DisegnoSenzaOggetto,
         [](C& c, int16_t) { c.oggetti_.SelezionaOggetto(); }},
        {T::ScegliElementoAttivo, M::ScegliElementoAttivo, DisegnoSenzaOggetto,
         [](C& c, int16_t) { c.elementi_.ScegliElemento(); }},
        {T::DuplicaUltimaPrimitiva, M::DuplicaUltimaPrimitiva, UltimaDuplicabile,
         [](C& c, int16_t) { c.primitive_.DuplicaUltima(); }},
        {T::RibaltaOggetto, M::RibaltaOggetto, OggettoInMano,
         [](C& c, int16_t) { c.oggetti_.Ribalta(); }},
        {T::AccessoSettaggi, M::AccessoSettaggi, nullptr,
         [](C& c, int16_t) { c.settaggi_.AccessoSettaggi(); }},
        {T::DisegnaUltimoOggetto, M::DisegnaUltimoOggetto, UltimoOggettoDisponibile,
         [](C& c, int16_t) { c.oggetti_.DisegnaUltimoOggetto(); }},
        {T::SceltaCopiaSposta, M::SceltaCopiaSposta, nullptr,
         [](C& c, int16_t) { c.oggetti_.CopiaOSposta_Click(); }},
        {T::EliminaOggetto, M::EliminaOggetto, OggettoEliminabile,
         [](C& c, int16_t) { c.oggetti_.EliminaOggetto(); }},
        {T::ScritturaTesti, M::ScritturaTesti, TestoScrivibile,
         [](C& c, int16_t) { c.elementi_.ScritturaTesti(); }},
        {T::ImportaImmagine, M::ImportaImmagine, ElementoNuovo,
         [](C& c, int16_t) { c.elementi_.ImportaImmagine(); }},
        {T::LeggiDisegno, M::LeggiDisegno, ElementoNuovo,
         [](C& c, int16_t) { c.file_.LeggiDisegno(); }},
        {T::SalvaDisegno, M::SalvaDisegno, DisegnoSenzaOggetto,
         [](C& c, int16_t) { c.file_.SalvaDisegno(); }},
        {T::StampaDisegno, M::StampaDisegno, nullptr,
         [](C& c, int16_t) {
             ::StampaDisegno(c.a_.Quadro);
             c.a_.Riprendi();
         }},
        {T::ChiudiAmbiente, M::ChiudiAmbiente, nullptr,
         [](C& c, int16_t) { c.file_.ChiudiAmbiente(); }},
    }};
    static_assert(InOrdine(tabella), "one entry per button, in the order of the buttons");
    return tabella;
}

const VoceComando* VoceComandoDi(int16_t indice) {
    if (indice < TastoDisegno::Primo || indice > TastoDisegno::Ultimo) return nullptr;
    return &TabellaComandi()[static_cast<size_t>(indice - TastoDisegno::Primo)];
}
