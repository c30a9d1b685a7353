// The measure carried from one element of a group to the next gives the very
// figures of the whole measure, taken again at each element as the movement
// of a group defines it; and a step on a group ends as it did when each
// element measured the whole group.

#include "archive/CopiaLavoro.h"
#include "base/Bip.h"
#include "drawing/MotoreMovimento.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/ProvaGlobali.h"

#include <QRandomGenerator>
#include <QtTest>

#include <array>
#include <optional>

namespace {

using namespace TastiFreccia;

struct Figure {
    int32_t XMin, YMin, XMax, YMax, MezzaL, MezzaA;
    bool operator==(const Figure&) const = default;
};

Figure Lette() {
    return {IngombroXMin, IngombroYMin,           IngombroXMax,
            IngombroYMax, MezzaLarghezzaIngombro, MezzaAltezzaIngombro};
}

void Scrivi(const Figure& f) {
    IngombroXMin = f.XMin;
    IngombroYMin = f.YMin;
    IngombroXMax = f.XMax;
    IngombroYMax = f.YMax;
    MezzaLarghezzaIngombro = f.MezzaL;
    MezzaAltezzaIngombro = f.MezzaA;
}

double Tra(QRandomGenerator& caso, double minimo, double massimo) {
    return minimo + caso.bounded(massimo - minimo);
}

// Any element a group may hold, anywhere on the canvas or a little off it,
// with a type now and then that has no extent.
RecordAzione ACaso(QRandomGenerator& caso) {
    RecordAzione a;
    a.TipoAzione = int32_t(caso.bounded(0, 9));
    a.XInizio = caso.bounded(-500, 15000);
    a.YInizio = caso.bounded(-500, 10500);
    a.XFine = caso.bounded(-500, 15000);
    a.YFine = caso.bounded(-500, 10500);
    a.XCentro = float(Tra(caso, -500.0, 15000.0));
    a.YCentro = float(Tra(caso, -500.0, 10500.0));
    a.RaggioOriz = float(Tra(caso, 40.0, 3000.0));
    a.RaggioVert = float(Tra(caso, 40.0, 3000.0));
    a.RadIniz = float(caso.bounded(6.2831853));
    a.RadFine = float(caso.bounded(6.2831853));
    return a;
}

// The change a step could make to one element: any of its geometry.
void Cambia(QRandomGenerator& caso, RecordAzione& a) {
    a.XInizio += caso.bounded(-300, 301);
    a.YInizio += caso.bounded(-300, 301);
    a.XFine += caso.bounded(-300, 301);
    a.YFine += caso.bounded(-300, 301);
    a.XCentro += float(caso.bounded(-300, 301));
    a.YCentro += float(caso.bounded(-300, 301));
    a.RaggioOriz = float(a.RaggioOriz * Tra(caso, 0.5, 1.5));
    a.RaggioVert = float(a.RaggioVert * Tra(caso, 0.5, 1.5));
}

void Gruppo(QRandomGenerator& caso, int numero) {
    ElementiAttivi = QList<RecordAzione>{RecordAzione{}};
    for (int i = 1; i <= numero; ++i)
        ElementiAttivi.append(ACaso(caso));
    NumeroElementiAttivi = int16_t(numero);
}

// The whole measure, and the error it may raise.
std::optional<int> Intera(Figure& f) {
    try {
        CalcolaIngombro();
        f = Lette();
        return std::nullopt;
    } catch (const ErroreZanto& e) {
        f = Lette();
        return e.Numero;
    }
}

std::optional<int> Progressiva(IngombroProgressivo& misura, int16_t indice, Figure& f) {
    try {
        misura.Misura(indice);
        f = Lette();
        return std::nullopt;
    } catch (const ErroreZanto& e) {
        f = Lette();
        return e.Numero;
    }
}

// A step on a group as the key routine takes it when every element measures
// the whole group again: the engine on its own takes that measure.
void PassoConMisuraIntera() {
    const QList<RecordAzione> salvati = ElementiAttivi;
    for (int16_t i = 1; i <= NumeroElementiAttivi; ++i) {
        RecordLavoro = ElementiAttivi[i];
        MotoreMovimento();
        if (BloccoBordo > 0) break;
        ElementiAttivi[i] = RecordLavoro;
    }
    if (BloccoBordo > 0) ElementiAttivi = salvati;
    TastoMovimento = 0;
}

// A fault leaves the group as far as it got, the same for both ways of measuring.
template <typename F> std::optional<int> Esito(F passo) {
    try {
        passo();
        return std::nullopt;
    } catch (const ErroreZanto& e) {
        return e.Numero;
    }
}

struct Stato {
    QList<RecordAzione> Elementi;
    Figure Misura;
    int16_t Blocco;
    int Bip;
    bool operator==(const Stato&) const = default;
};

Stato Adesso() {
    return {ElementiAttivi.mid(1, NumeroElementiAttivi), Lette(), BloccoBordo, ContatoreBip};
}

} // namespace

class TestIngombroProgressivo : public ProvaGlobali {
    Q_OBJECT

private slots:
    void misura_passo_passo_uguale_alla_misura_intera_su_gruppi_a_caso() {
        QRandomGenerator caso(7);
        int confronti = 0;
        for (int prova = 0; prova < 200; ++prova) {
            const int numero = caso.bounded(0, 40);
            Gruppo(caso, numero);
            ModoIngombro = int16_t(caso.bounded(1, 3));
            IngombroProgressivo misura;
            for (int16_t i = 1; i <= NumeroElementiAttivi; ++i) {
                Figure intera{}, progressiva{};
                Scrivi({1, 2, 3, 4, 5, 6});
                QCOMPARE(Intera(intera), std::nullopt);
                Scrivi({1, 2, 3, 4, 5, 6});
                QCOMPARE(Progressiva(misura, i, progressiva), std::nullopt);
                QCOMPARE(progressiva, intera);
                ++confronti;
                // The element takes its step only after its own measure.
                Cambia(caso, ElementiAttivi[i]);
            }
        }
        QVERIFY(confronti > 2000);
    }

    void misura_fuori_ordine_o_con_altro_modo_ricomincia_da_capo() {
        QRandomGenerator caso(11);
        for (int prova = 0; prova < 200; ++prova) {
            Gruppo(caso, caso.bounded(1, 30));
            IngombroProgressivo misura;
            for (int volta = 0; volta < 30; ++volta) {
                ModoIngombro = int16_t(caso.bounded(1, 3));
                // Any index, also back, repeated or past the end, and any element changed.
                const int16_t indice = int16_t(caso.bounded(0, NumeroElementiAttivi + 2));
                Cambia(caso, ElementiAttivi[caso.bounded(1, NumeroElementiAttivi + 1)]);
                Figure intera{}, progressiva{};
                QCOMPARE(Intera(intera), std::nullopt);
                // The progressive measure only promises the same figures when
                // nothing from the index on changed since its previous call.
                IngombroProgressivo nuova;
                QCOMPARE(Progressiva(nuova, indice, progressiva), std::nullopt);
                QCOMPARE(progressiva, intera);
                if (caso.bounded(2) == 0) {
                    // Another number of elements makes it start afresh too.
                    ElementiAttivi.append(ACaso(caso));
                    ++NumeroElementiAttivi;
                }
                QCOMPARE(Intera(intera), std::nullopt);
                QCOMPARE(Progressiva(misura, indice, progressiva), std::nullopt);
                if (indice <= 1 || indice > NumeroElementiAttivi) QCOMPARE(progressiva, intera);
            }
        }
    }

    void estremo_oltre_16_bit_solleva_lo_stesso_errore_allo_stesso_punto() {
        QRandomGenerator caso(3);
        int errori = 0;
        for (int prova = 0; prova < 100; ++prova) {
            Gruppo(caso, caso.bounded(2, 25));
            for (int16_t i = 1; i <= NumeroElementiAttivi; ++i)
                ElementiAttivi[i].TipoAzione = TipiAzione::Linea;
            ModoIngombro = 1;
            // One element takes an end beyond 16 bits: from the start, or as the
            // change of its own step, to be met by the measure of the next.
            const int16_t guasto = int16_t(caso.bounded(1, NumeroElementiAttivi + 1));
            if (caso.bounded(3) == 0) ElementiAttivi[guasto].XFine = 40000;
            IngombroProgressivo misura;
            for (int16_t i = 1; i <= NumeroElementiAttivi; ++i) {
                Figure intera{}, progressiva{};
                Scrivi({1, 2, 3, 4, 5, 6});
                const std::optional<int> errore = Intera(intera);
                Scrivi({1, 2, 3, 4, 5, 6});
                QCOMPARE(Progressiva(misura, i, progressiva), errore);
                QCOMPARE(progressiva, intera);
                if (errore) {
                    QCOMPARE(*errore, 6);
                    ++errori;
                    break;
                }
                Cambia(caso, ElementiAttivi[i]);
                if (i == guasto) ElementiAttivi[i].XInizio = -40000;
            }
        }
        // Only a fault in the last element is never measured again.
        QVERIFY(errori > 70);
    }

    void passo_del_gruppo_uguale_a_quello_con_misura_intera() {
        Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        quadro.DrawStyle = 2;
        quadro.DrawWidth = 1;
        QRandomGenerator caso(2024);
        const std::array<int16_t, 3> comandi{111, 112, 113};
        const std::array<int32_t, 4> passi{15, 50, 150, 300};
        int fermati = 0;
        int mossi = 0;
        for (int prova = 0; prova < 20; ++prova) {
            // A small group near a corner of the canvas, so that many meet an edge.
            QList<RecordAzione> gruppo;
            const int numero = caso.bounded(1, 25);
            const auto vicinoAlBordo = [&](int lato) {
                const int margine = caso.bounded(0, 1500);
                return caso.bounded(2) == 0 ? margine : lato - margine;
            };
            const int cx = vicinoAlBordo(LarghezzaQuadroDisegno);
            const int cy = vicinoAlBordo(AltezzaQuadroDisegno);
            for (int i = 0; i < numero; ++i) {
                RecordAzione a = ACaso(caso);
                // No picture: the overlay would look for its file.
                a.TipoAzione = int32_t(caso.bounded(1, 7));
                a.XInizio = cx + caso.bounded(-800, 801);
                a.XFine = cx + caso.bounded(-800, 801);
                a.YInizio = cy + caso.bounded(-800, 801);
                a.YFine = cy + caso.bounded(-800, 801);
                a.XCentro = float(cx + caso.bounded(-800, 801));
                a.YCentro = float(cy + caso.bounded(-800, 801));
                a.RaggioOriz = float(caso.bounded(40, 600));
                a.RaggioVert = float(caso.bounded(40, 600));
                gruppo.append(a);
            }
            CostruttoriAzioni::MettiAttivi(gruppo);
            OggettoAttivo = 1;
            ModoIngombro = 1;
            CalcolaIngombro();
            RiferimentoXMin = IngombroXMin;
            RiferimentoYMin = IngombroYMin;
            RiferimentoXMax = IngombroXMax;
            RiferimentoYMax = IngombroYMax;
            PassoRidimensioneX = int32_t(Arrotonda((IngombroXMax - IngombroXMin) / 10.0));
            PassoRidimensioneY = int32_t(Arrotonda((IngombroYMax - IngombroYMin) / 10.0));
            BloccoBordo = 0;
            for (int tasto = 0; tasto < 30; ++tasto) {
                ComandoModifica = comandi[size_t(caso.bounded(3))];
                PassoSpostamento = passi[size_t(caso.bounded(4))];
                const int16_t freccia = int16_t(Sinistra + caso.bounded(4));
                const QList<RecordAzione> prima = ElementiAttivi;
                const int16_t bloccoPrima = BloccoBordo;
                const Figure misuraPrima = Lette();
                const int bipPrima = ContatoreBip;

                TastoMovimento = freccia;
                const std::optional<int> errore = Esito(PassoConMisuraIntera);
                const Stato atteso = Adesso();

                ElementiAttivi = prima;
                BloccoBordo = bloccoPrima;
                Scrivi(misuraPrima);
                ContatoreBip = bipPrima;
                TastoMovimento = freccia;
                QCOMPARE(Esito([&] { ApplicaTastoMovimento(quadro); }), errore);
                QCOMPARE(Adesso(), atteso);
                if (errore) continue;
                if (BloccoBordo > 0)
                    ++fermati;
                else if (ElementiAttivi != prima)
                    ++mossi;
            }
        }
        // Every way of ending a step was met.
        QVERIFY(fermati > 20);
        QVERIFY(mossi > 300);
    }

    void gruppo_fermato_al_bordo_torna_intero_come_prima() {
        Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        // Two points on the left and one 1000 twips right of them. The centre,
        // 14090, may take the step; once the first two have moved the measure
        // gives 14115, and the last element is what crosses the bound.
        const RecordAzione punto = CostruttoriAzioni::Linea(13590, 5000, 13590, 5000, 0, 0);
        const RecordAzione ultimo = CostruttoriAzioni::Linea(14590, 5000, 14590, 5000, 0, 0);
        CostruttoriAzioni::MettiAttivi({punto, punto, ultimo});
        OggettoAttivo = 1;
        ComandoModifica = 113;
        PassoSpostamento = 50;
        const QList<RecordAzione> prima = ElementiAttivi;
        int bip = ContatoreBip;
        TastoMovimento = Destra;
        ApplicaTastoMovimento(quadro);
        QCOMPARE(BloccoBordo, Destra);
        QCOMPARE(ContatoreBip, bip + 1);
        QCOMPARE(ElementiAttivi, prima);
        QCOMPARE(IngombroXMin, 13640);
        // A second Right is refused at once, without a measure.
        bip = ContatoreBip;
        IngombroXMin = -1;
        TastoMovimento = Destra;
        ApplicaTastoMovimento(quadro);
        QCOMPARE(ContatoreBip, bip + 1);
        QCOMPARE(IngombroXMin, -1);
        QCOMPARE(ElementiAttivi, prima);
        // Left frees it, and the whole group moves.
        TastoMovimento = Sinistra;
        ApplicaTastoMovimento(quadro);
        QCOMPARE(BloccoBordo, int16_t(0));
        QCOMPARE(ElementiAttivi[1].XInizio, 13540);
        QCOMPARE(ElementiAttivi[2].XFine, 13540);
        QCOMPARE(ElementiAttivi[3].XInizio, 14540);
    }
};

QTEST_MAIN(TestIngombroProgressivo)
#include "test_ingombro_progressivo.moc"
