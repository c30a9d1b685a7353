// One movement step of an open element, from the key to the overlay drawn,
// over a canvas of 5,000 actions; one Fissa with its working copy at 5,000
// actions; one step of an object of 1,000 elements. Against the step stands
// the refresh alone that every overlay starts with, and against the Fissa the
// write of the same list without the rest.

#include "DatiBench.h"
#include "Misura.h"

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/CopiaLavoro.h"
#include "archive/Installatore.h"
#include "drawing/MotoreMovimento.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int NumeroDiAzioni = 5000;
constexpr int ElementiOggetto = 1000;

// Lines, arcs, boxes, ellipses and a text now and then, anywhere on the canvas.
RecordAzione ACaso(QRandomGenerator& caso, int i, int32_t lato) {
    auto x = [&] { return int32_t(caso.bounded(LarghezzaQuadroDisegno - lato)); };
    auto y = [&] { return int32_t(caso.bounded(AltezzaQuadroDisegno - lato)); };
    const int32_t tipi[] = {TipiAzione::Linea, TipiAzione::Arco, TipiAzione::Rettangolo,
                            TipiAzione::Ellisse, TipiAzione::Testo};
    RecordAzione a;
    a.TipoAzione = tipi[i % 5];
    a.ColLinea = int32_t(caso.bounded(0x1000000));
    a.ColZona = int32_t(caso.bounded(0x1000000));
    a.SpessLinea = 1 + int32_t(caso.bounded(3));
    a.FlagPienoVuoto = a.TipoAzione == TipiAzione::Rettangolo || a.TipoAzione == TipiAzione::Ellisse
                           ? 1 + int32_t(caso.bounded(2))
                           : 0;
    a.XInizio = x();
    a.YInizio = y();
    a.XFine = a.XInizio + 100 + int32_t(caso.bounded(lato - 100));
    a.YFine = a.YInizio + 100 + int32_t(caso.bounded(lato - 100));
    a.XCentro = float(x() + lato / 2);
    a.YCentro = float(y() + lato / 2);
    a.RaggioOriz = float(50 + caso.bounded(lato / 2 - 50));
    a.RaggioVert = float(50 + caso.bounded(lato / 2 - 50));
    a.RadIniz = float(caso.bounded(6.28));
    a.RadFine = float(caso.bounded(6.28));
    if (a.TipoAzione == TipiAzione::Testo) {
        a.Testo = QStringLiteral("Sole");
        a.NomeFont = QStringLiteral("Times New Roman");
        a.SizeFont = 12;
        a.Corsivo = 2;
        a.Grassetto = 2;
        a.InterlineaTesto = 18;
        a.SpessLinea = 1;
    }
    return a;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    CodiceCartellaAttiva = 1;

    QRandomGenerator caso(2024);
    Azioni = QList<RecordAzione>{RecordAzione{}};
    for (int i = 1; i <= NumeroDiAzioni; ++i)
        Azioni.append(ACaso(caso, i, 2500));
    NumeroAzioni = NumeroDiAzioni;

    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    PrimaAzioneTraccia = 1;
    UltimaAzioneTraccia = int16_t(NumeroAzioni);
    TracciaAzioni(quadro);

    // A new line open, its end walking right and back.
    AzzeraStatoAmbiente();
    ElementoInCostruzione = RecordAzione{};
    ElementoInCostruzione.TipoAzione = TipiAzione::Linea;
    ElementoInCostruzione.XInizio = Predefiniti::XInizio;
    ElementoInCostruzione.YInizio = Predefiniti::YInizio;
    ElementoInCostruzione.XFine = Predefiniti::XFine;
    ElementoInCostruzione.YFine = Predefiniti::YFine;
    ElementoInCostruzione.SpessLinea = 1;
    PrimitivaAttiva = 101;
    ComandoModifica = 106;
    quadro.DrawStyle = 2;
    quadro.DrawWidth = 1;
    const double passo = MedianaMs(201, [&](int i) {
        TastoMovimento = i % 2 == 0 ? TastiFreccia::Destra : TastiFreccia::Sinistra;
        ApplicaTastoMovimento(quadro);
    });
    // The least any overlay costs: one line on the screen layer, wiped again.
    const double minimo = MedianaMs(201, [&](int) {
        quadro.Refresh();
        quadro.Line(Predefiniti::XInizio, Predefiniti::YInizio, Predefiniti::XFine,
                    Predefiniti::YFine, 0);
        quadro.Schermo();
    });
    Stampa("passo_elemento_con_5000_azioni", passo, "ms");
    Stampa("linea_sullo_schermo_e_aggiorna", minimo, "ms");
    Stampa("rapporto_passo_su_linea", passo / minimo, "x");

    // Fissa: the element drawn for good, appended, and the list stored as a copy.
    bool scritto = true;
    const double fissa = MedianaMs(9, [&](int) {
        FissaElemento(quadro);
        AggiungiElementoInCostruzione();
        scritto = RegistraCopiaLavoro() && scritto;
        quadro.Refresh();
    });
    if (!scritto) return 1;
    int32_t copia = BaseCopieLavoro + 1000;
    const double scrittura = MedianaMs(9, [&](int) {
        ++copia;
        QSqlQuery q(Archivio(ArchivioDisegni));
        q.prepare(QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno,"
                                 " CodiceCartella) VALUES (?, ?, 1)"));
        q.addBindValue(copia);
        q.addBindValue(QString::number(copia));
        q.exec();
        CodiceDisegnoDaRegistrare = copia;
        CopiaAzioniInDaRegistrare();
        scritto = RegistraAzioniDisegno() && scritto;
    });
    if (!scritto) return 1;
    Stampa("fissa_con_copia_di_lavoro_5000_azioni", fissa, "ms");
    Stampa("registra_azioni_disegno_5000", scrittura, "ms");
    Stampa("rapporto_fissa_su_registra", fissa / scrittura, "x");

    // An object of 1,000 small elements, moved right and back by 113.
    PrimitivaAttiva = 0;
    ElementiAttivi = QList<RecordAzione>{RecordAzione{}};
    for (int i = 1; i <= ElementiOggetto; ++i) {
        RecordAzione a = ACaso(caso, i, 600);
        // Gathered in the middle, so that no step meets an edge.
        a.XInizio = 4000 + a.XInizio % 6000;
        a.XFine = 4000 + a.XFine % 6000;
        a.YInizio = 3000 + a.YInizio % 4000;
        a.YFine = 3000 + a.YFine % 4000;
        a.XCentro = 4000 + std::fmod(a.XCentro, 6000.0f);
        a.YCentro = 3000 + std::fmod(a.YCentro, 4000.0f);
        ElementiAttivi.append(a);
    }
    NumeroElementiAttivi = ElementiOggetto;
    OggettoAttivo = 1;
    ComandoModifica = 113;
    quadro.DrawStyle = 2;
    quadro.DrawWidth = 1;
    const double oggetto = MedianaMs(21, [&](int i) {
        TastoMovimento = i % 2 == 0 ? TastiFreccia::Destra : TastiFreccia::Sinistra;
        ApplicaTastoMovimento(quadro);
    });
    if (BloccoBordo != 0) return 1;
    const double sovrapposizione = MedianaMs(21, [&](int) { TracciaElementoAttivo(quadro); });
    Stampa("passo_oggetto_di_1000_elementi", oggetto, "ms");
    Stampa("sovrapposizione_oggetto_di_1000_elementi", sovrapposizione, "ms");
    Stampa("rapporto_passo_oggetto_su_sovrapposizione", oggetto / sovrapposizione, "x");
    ChiudiArchivio(ArchivioDisegni);
    return 0;
}
