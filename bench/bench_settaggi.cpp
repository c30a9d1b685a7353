// Two commands of the settings panel. An object of 1,000 actions of every type
// saved (replacing its old self, as a save under a taken name does) and read
// back, against the same 1,000 actions written and read as a drawing's rows.
// A new background under a drawing of 5,000 actions, against the plain replay
// of the same drawing on the old one.

#include "DatiBench.h"
#include "DisegnoProva.h"
#include "Misura.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QApplication>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <vector>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    ApriArchivio(ArchivioOggetti, PercorsoArchivioOggetti());
    const QString figura = FiguraDiProva(cartella);
    if (figura.isEmpty()) return 1;
    const QList<RecordAzione> disegno = Disegno(figura);

    constexpr int Oggetto = 1000;
    ElementiAttivi = disegno.mid(0, Oggetto + 1);
    NumeroElementiAttivi = Oggetto;
    CodiceCartellaObjAttiva = 1;
    NomeOggettoDaRegistrare = QStringLiteral("Casa");
    QList<RecordAzione> comeDisegno = ElementiAttivi;
    int32_t vecchio = 0;
    int32_t copia = BaseCopieLavoro;
    bool riuscito = true;
    std::vector<double> oggetti, righe;
    for (int i = 0; i < 15; ++i) {
        oggetti.push_back(DurataMs([&] {
            riuscito = RegistraOggetto(vecchio) && riuscito;
            vecchio = CodiceOggettoDaRegistrare;
            CodiceOggettoDaCaricare = vecchio;
            CaricaAzioniOggetto();
        }));
        ++copia;
        QSqlQuery q(Archivio(ArchivioDisegni));
        q.prepare(QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno,"
                                 " CodiceCartella) VALUES (?, ?, 1)"));
        q.addBindValue(copia);
        q.addBindValue(QString::number(copia));
        q.exec();
        righe.push_back(DurataMs([&] {
            CodiceDisegnoDaRegistrare = copia;
            AzioniDaRegistrare = comeDisegno;
            NumeroAzioniDaRegistrare = Oggetto;
            riuscito = RegistraAzioniDisegno() && riuscito;
            CodiceDisegnoDaCaricare = copia;
            CaricaAzioniDisegno();
        }));
    }
    // The object came back whole, under the one code it keeps reusing.
    if (!riuscito || vecchio != 1 || NumeroAzioniOggetto != Oggetto) return 1;
    for (int i = 1; i <= Oggetto; ++i)
        if (AzioniOggetto[i] != ElementiAttivi[i]) return 1;

    Azioni = disegno;
    NumeroAzioni = NumeroDiAzioni;
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    tela.ImpostaBackColor(Predefiniti::ColoreSfondo);
    std::vector<double> sfondi, tracce;
    const int32_t colori[] = {0x00FFFF, 0xFFFFFF};
    for (int i = 0; i < 10; ++i) {
        sfondi.push_back(DurataMs([&] { ApplicaSfondo(tela, colori[i % 2]); }));
        tracce.push_back(DurataMs([&] { RitracciaTutto(tela); }));
    }
    if (tela.BackColor() != colori[1]) return 1;

    const double oggetto = Mediana(oggetti);
    const double riga = Mediana(righe);
    const double sfondo = Mediana(sfondi);
    const double traccia = Mediana(tracce);
    Stampa("salva_e_rileggi_oggetto_1000_azioni", oggetto, "ms");
    Stampa("salva_e_rileggi_disegno_1000_azioni", riga, "ms");
    Stampa("rapporto_oggetto_su_disegno", oggetto / riga, "x");
    Stampa("nuovo_sfondo_5000_azioni", sfondo, "ms");
    Stampa("ritraccia_5000_azioni", traccia, "ms");
    Stampa("rapporto_sfondo_su_ritraccia", sfondo / traccia, "x");
    std::printf("targets: each under 100 ms\n");
    ChiudiArchivio(ArchivioOggetti);
    ChiudiArchivio(ArchivioDisegni);
    return 0;
}
