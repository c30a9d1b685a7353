#include "model/RecordAzione.h"

namespace {

void Aggiungi(const RecordAzione& elemento) {
    ++NumeroAzioni;
    Azioni.resize(qsizetype(NumeroAzioni) + 1);
    Azioni[NumeroAzioni] = elemento;
}

// A selection box lives only while it is placed: it never enters the drawing.
bool EntraNelDisegno(const RecordAzione& a) {
    return a.TipoAzione != TipiAzione::RettangoloSelezione;
}

} // namespace

void AggiungiElementoInCostruzione() {
    if (EntraNelDisegno(ElementoInCostruzione)) Aggiungi(ElementoInCostruzione);
}

void SostituisciElementoInModifica() {
    if (IndiceElementoInModifica == 0 || !EntraNelDisegno(ElementoInCostruzione)) return;
    Azioni[IndiceElementoInModifica] = ElementoInCostruzione;
    IndiceElementoInModifica = 0;
}

void AggiungiElementiAttivi() {
    for (int32_t i = 1; i <= NumeroElementiAttivi; ++i)
        Aggiungi(ElementiAttivi[i]);
}

void CopiaLista(const QList<RecordAzione>& origine, int32_t numero,
                QList<RecordAzione>& destinazione) {
    if (&origine == &destinazione) return;
    destinazione.resize(qsizetype(numero) + 1);
    for (int32_t i = 1; i <= numero; ++i)
        destinazione[i] = origine[i];
}

void CopiaAzioniInDaRegistrare() {
    NumeroAzioniDaRegistrare = NumeroAzioni;
    CopiaLista(Azioni, NumeroAzioni, AzioniDaRegistrare);
}

void CopiaElementiAttiviInDaRegistrare() {
    NumeroAzioniOggettoDaRegistrare = NumeroElementiAttivi;
    CopiaLista(ElementiAttivi, NumeroElementiAttivi, AzioniOggettoDaRegistrare);
}

void CopiaAzioniUndoInAzioni() {
    NumeroAzioni = NumeroAzioniUndo;
    CopiaLista(AzioniUndo, NumeroAzioniUndo, Azioni);
}

void SvuotaAzioni() {
    NumeroAzioni = 0;
    Azioni.resize(1);
}

void AzzeraNumeroAzioni() {
    NumeroAzioni = 0;
}

void RiscriviInizioAzioni(const QList<RecordAzione>& tenute, int32_t numero) {
    if (Azioni.size() < qsizetype(numero) + 1) Azioni.resize(qsizetype(numero) + 1);
    for (int32_t i = 1; i <= numero; ++i)
        Azioni[i] = tenute[i];
    NumeroAzioni = numero;
}

void ColorazioniInTondini() {
    for (int32_t i = 1; i <= NumeroAzioni; ++i)
        if (Azioni[i].TipoAzione == TipiAzione::Colorazione) Azioni[i].FlagPienoVuoto = FlagVuoto;
}

void TondiniInColorazioni() {
    for (int32_t i = 1; i <= NumeroAzioni; ++i)
        if (Azioni[i].TipoAzione == TipiAzione::Colorazione) Azioni[i].FlagPienoVuoto = FlagPieno;
}

void EliminaAzione(int32_t indice) {
    if (indice < 1 || indice > NumeroAzioni) return;
    for (int32_t i = indice; i < NumeroAzioni; ++i)
        Azioni[i] = Azioni[i + 1];
    --NumeroAzioni;
    Azioni.resize(qsizetype(NumeroAzioni) + 1);
}
