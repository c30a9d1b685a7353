// The drawing screen as a new user reads it: the box at the bottom right and
// the title name what the ring stands on, also while a list is open and after
// it; one ring shows at a time, the panel's in front; the marked button under
// the ring is magenta from the pick on, and a wide ring is never covered by a
// neighbour's; a new drawing shows no name.
#include "archive/ArchivioAzioni.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroMostraLista.h"
#include "support/Copione.h"
#include "support/Sonde.h"

#include <QLabel>
#include <QtTest>

namespace {

QRgb Pixel(QWidget* w, QPoint p) {
    return w->grab().toImage().pixel(p) & 0xFFFFFFu;
}

} // namespace

class ProvaScritteAnelli : public QObject, MondoDisegno {
    Q_OBJECT

    void Apri(int16_t modo) { a = GuidaDisegno::Apri(modo); }
    // Mode 4: arrows to the button, then Enter with the script running in what opens.
    void Scegli(int16_t indice, Copione& c) {
        for (int i = 0; i < 33 && a->Motore.TastoCorrente != indice; ++i)
            QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(a->Motore.TastoCorrente, indice);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }

private slots:
    void init() {
        Prepara();
        LarghezzaAnello = 1;
    }
    void cleanup() {
        LarghezzaAnello = 1;
        Libera();
    }

    void il_tasto_marcato_e_magenta_appena_scelto() {
        Apri(4);
        GuidaDisegno::Premi(a, 103);
        QCOMPARE(PrimitivaAttiva, int16_t(103));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(103));
        const QPoint orlo = a->Corone.value(103)->geometry().topLeft() + QPoint(1, 1);
        QCOMPARE(Pixel(a, orlo), 0xFF00FFu);
    }

    void un_anello_largo_non_e_coperto_dal_vicino_marcato() {
        LarghezzaAnello = 3;
        Apri(4);
        GuidaDisegno::Premi(a, 104);
        QVERIFY(PremiTasto(Qt::Key_Left));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(103));
        // Between the two buttons both rings lie: the ring's green is on top.
        const QRect sinistro = a->Tasti.value(103)->geometry();
        const QRect destro = a->Tasti.value(104)->geometry();
        QVERIFY(a->Corone.value(104)->geometry().left() < sinistro.right());
        const QPoint inMezzo((sinistro.right() + destro.left()) / 2, sinistro.center().y());
        Schermata(a, QStringLiteral("anelli-larghi"));
        QCOMPARE(Pixel(a, inMezzo), 0x00FF00u);
        QVERIFY(a->Corone.value(104)->isVisible());
    }

    void col_pannello_aperto_si_vede_solo_il_suo_anello() {
        Apri(4);
        bool anelloSotto = true;
        bool anelloPannello = false;
        Copione c(*orologio);
        c.Esegui([&] {
            FormScansione* f = FormScansione::InPrimoPiano();
            anelloSotto = a->Corone.value(124)->isVisible();
            anelloPannello = f != a &&
                             f->CoroneAttive().value(f->Motore.TastoCorrente) != nullptr &&
                             f->CoroneAttive().value(f->Motore.TastoCorrente)->isVisible();
            for (int i = 0; i < 40 && f->Motore.TastoCorrente != 140; ++i)
                PremiTasto(Qt::Key_Right);
        });
        c.Tasto(Qt::Key_Return);
        Scegli(124, c);
        QVERIFY(anelloPannello);
        QVERIFY(!anelloSotto);
        // Back on the screen, its ring shows again where it stood.
        QCOMPARE(a->Motore.TastoCorrente, int16_t(124));
        QVERIFY(a->Corone.value(124)->isVisible());
        QCOMPARE(CoroneVisibili(*a), QList<int16_t>{124});
    }

    void con_la_lista_aperta_il_titolo_nomina_la_riga_e_dopo_il_tasto() {
        Apri(4);
        QString titoloRiga, titoloTasto, infoRiga;
        bool anelloSotto = true;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* lista = dynamic_cast<QuadroMostraLista*>(FormScansione::InPrimoPiano());
            if (lista == nullptr) return;
            anelloSotto = a->Corone.value(130)->isVisible();
            titoloRiga = a->windowTitle();
            infoRiga = a->MostraInfo->text();
            for (int i = 0; i < 40 && lista->Motore.TastoCorrente != 122; ++i)
                PremiTasto(Qt::Key_Right);
            titoloTasto = a->windowTitle();
            for (int i = 0; i < 40 && lista->Motore.TastoCorrente != 125; ++i)
                PremiTasto(Qt::Key_Right);
        });
        c.Tasto(Qt::Key_Return);
        Scegli(130, c);
        QVERIFY(!anelloSotto);
        // An empty folder: the first line is empty and says so.
        QVERIFY2(titoloRiga.endsWith(QStringLiteral("COMANDO: « riga vuota »")),
                 qPrintable(titoloRiga));
        QCOMPARE(infoRiga, QStringLiteral("riga vuota"));
        QVERIFY2(titoloTasto.endsWith(QStringLiteral("COMANDO: « Conferma la Scelta »")),
                 qPrintable(titoloTasto));
        // The list gone, the screen names its own button again.
        QCOMPARE(a->MostraInfo->text(), QStringLiteral("Leggi Disegno"));
        QVERIFY(a->windowTitle().endsWith(QStringLiteral("COMANDO: « Leggi Disegno »")));
        QVERIFY(a->Corone.value(130)->isVisible());
    }

    void la_linea_del_tempo_copre_intera_la_colonna_dei_tasti() {
        Apri(4);
        GuidaDisegno::Premi(a, 103);
        GuidaDisegno::Premi(a, 117);
        QList<int16_t> tagliati;
        bool aperto = false;
        Copione c(*orologio);
        c.Esegui([&] {
            FormScansione* f = FormScansione::InPrimoPiano();
            aperto = f != nullptr && f != a;
            if (!aperto) return;
            Schermata(f, QStringLiteral("linea-del-tempo"));
            const QRect pannello = f->frameGeometry();
            for (int16_t i = 101; i <= 133; ++i) {
                const QWidget* t = a->Tasti.value(i);
                const QRect tasto(t->mapToGlobal(QPoint(0, 0)), t->size());
                // Each button is either under the panel whole or out of it whole.
                if (pannello.intersects(tasto) && !pannello.contains(tasto)) tagliati << i;
            }
        });
        c.Tasto(Qt::Key_Return); // the step in view
        c.Tasto(Qt::Key_Return); // "Annulla" of the question: nothing changes
        Scegli(118, c);
        QVERIFY(aperto);
        QVERIFY2(tagliati.isEmpty(), qPrintable(QString::number(tagliati.value(0))));
    }

    void un_nuovo_disegno_non_mostra_il_nome_del_vecchio() {
        Apri(4);
        NomeDisegnoCorrente = QStringLiteral("Casa");
        CodiceDisegnoCorrente = 7;
        StatoDisegno = 1;
        a->ScrittaNomeDisegno->setText(QStringLiteral("« Casa »"));
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // "S I"
        Scegli(119, c);
        QVERIFY(NomeDisegnoCorrente.isEmpty());
        QCOMPARE(a->ScrittaNomeDisegno->text(), QString());
    }
};

QTEST_MAIN(ProvaScritteAnelli)
#include "test_scritte_anelli.moc"
