#include "panels/Elaborazioni.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "panels/EtichettaLista.h"
#include "start/Avvio.h"
#include "start/Bip.h"
#include "start/GestioneErrori.h"
#include "start/MenuGenerale.h"
#include "start/Numeri.h"
#include "start/Utilita.h"
#include "start/VideaAvanzamento.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPushButton>

#include <memory>

namespace {

void Aggiungi(const QString& etichetta) {
    VociLista.append(etichetta);
    NumeroVoci = Intero16(static_cast<int64_t>(NumeroVoci) + 1);
}

void DaRighe(const QList<RigaArchivio>& righe, FormatoEtichetta formato) {
    for (const RigaArchivio& riga : righe)
        Aggiungi(ComponiEtichetta(riga.Nome, riga.Codice, formato));
}

// Under the list's own trap: a fault leaves the list empty, after the box.
void ElementiConTrappola(int16_t sezione, const std::function<QList<RigaArchivio>()>& leggi) {
    SvuotaLista();
    QList<RigaArchivio> righe;
    EseguiPassi({{sezione, [&] { righe = leggi(); }}});
    if (righe.isEmpty()) {
        Bip();
        return;
    }
    DaRighe(righe, FormatoEtichetta::Elemento);
}

void File(int16_t sezione, const QStringList& estensioni) {
    SvuotaLista();
    CartellaRicerca = RadiceDati + QDir::separator() + NomiArchivi::SottocartellaFile;
    EstensioniRicerca = estensioni;
    RicercaSottocartelle = 0;
    SezioneCorrente = sezione;
    RicercaFile();
    for (int16_t i = 1; i <= NumeroFile; ++i)
        Aggiungi(ComponiEtichetta(QFileInfo(ElencoFile.at(i)).fileName(), i,
                                  FormatoEtichetta::Cartella));
}

} // namespace

void SvuotaLista() {
    VociLista = QStringList{QString()};
    NumeroVoci = 0;
}

void RiempiListaDisegni() {
    ElementiConTrappola(2300, [] { return DisegniDellaCartella(CodiceCartellaAttiva); });
}

void RiempiListaOggetti() {
    ElementiConTrappola(2900, [] { return OggettiDellaCartella(CodiceCartellaObjAttiva); });
}

void RiempiListaCartelle() {
    SvuotaLista();
    DaRighe(CartelleInOrdineDiNome(), FormatoEtichetta::Cartella);
}

void RiempiListaCartelleObj() {
    SvuotaLista();
    DaRighe(CartelleObjInOrdineDiNome(), FormatoEtichetta::Cartella);
}

void RiempiListaImmagini() {
    // The search may take a while on a full folder: say so meanwhile.
    auto avanzamento = std::make_unique<VideaAvanzamento>();
    ModoAvanzamento = 1;
    TestoAvanzamento = QStringLiteral("ATTENDERE! Ricerca Files in corso!");
    avanzamento->TastoAnnullaProcesso->hide();
    avanzamento->show();
    PassiAvanzamento = 0;
    AvanzamentoProcesso();
    File(3000, {QStringLiteral(".jpg"), QStringLiteral(".bmp")});
    avanzamento->hide();
}

void RiempiListaTesti() {
    File(3200, {QStringLiteral(".rtf")});
}

void RiempiListaFont() {
    SvuotaLista();
    QStringList nomi;
    for (const QString& nome : QFontDatabase::families())
        if (!nome.isEmpty() && nome.at(0).unicode() >= 'A' && nome.at(0).unicode() <= 'Z')
            nomi.append(nome);
    nomi.sort();
    nomi.removeDuplicates();
    for (int i = 0; i < nomi.size(); ++i)
        Aggiungi(ComponiEtichetta(nomi.at(i), i + 1, FormatoEtichetta::Font));
}

void RiempiListaDimensioni() {
    SvuotaLista();
    for (int i = 1; i <= 20; ++i)
        Aggiungi(ComponiEtichetta(QString(), 6 + 2 * i, FormatoEtichetta::Numero));
}
