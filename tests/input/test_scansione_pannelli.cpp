// What the scanning engine gives the panels that are not plain rows: grid
// arrows, more than one set of keys, a ring that holds under a panel, and keys
// kept from controls made after the form was shown.
#include "base/Configurazione.h"
#include "input/FormScansione.h"
#include "support/AmbienteProva.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"

#include <QLineEdit>
#include <QtTest>

#include <memory>

namespace {

// A grid of `righe` rows of `colonne` buttons from 101, and, when asked, a
// second set of function keys from 101 in one row of three.
class FormGriglia : public FormScansione {
public:
    FormGriglia(int16_t righe, int16_t colonne, bool funzioni)
        : FormScansione(101, static_cast<int16_t>(100 + righe * colonne)) {
        QList<DefinizioneTasto> tabella;
        for (int16_t i = 0; i < righe * colonne; ++i)
            tabella.append({static_cast<int16_t>(101 + i), 100 + (i % colonne) * 600,
                            100 + (i / colonne) * 600, 500, 500, QString::number(i + 1),
                            QStringLiteral("Lettera %1").arg(i + 1)});
        CreaTasti(tabella, 40);
        Motore.Colonne = colonne;
        Motore.TastoCorrente = 101;
        if (funzioni) {
            Motore.AggiungiInsieme(101, 103, 0, 101);
            QList<DefinizioneTasto> tasti;
            for (int16_t i = 0; i < 3; ++i)
                tasti.append({static_cast<int16_t>(101 + i), 100 + i * 600, 100 + righe * 600 + 200,
                              500, 500, QStringLiteral("F%1").arg(i),
                              QStringLiteral("Funzione %1").arg(i + 1)});
            CreaTasti(tasti, 40, 1);
        }
        resize(400, 300);
    }
    void ClickTasto(int16_t indice) override {
        Premuti.append({Motore.InsiemeAttivo(), indice});
        if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
    }
    QList<QPair<int, int16_t>> Premuti;
};

// The indices of a set whose ring shows.
QList<int16_t> Visibili(FormScansione& form, int insieme) {
    QList<int16_t> visibili;
    const QMap<int16_t, QLabel*>& corone = form.CoroneDi(insieme);
    for (auto it = corone.cbegin(); it != corone.cend(); ++it)
        if (it.value()->isVisible()) visibili.append(it.key());
    return visibili;
}

void Premi(QWidget* dove, Qt::Key tasto) {
    QTest::keyClick(dove, tasto);
}

} // namespace

class ProvaScansionePannelli : public QObject, MondoProva {
    Q_OBJECT

    std::unique_ptr<FormGriglia> Apri(int16_t modo, int16_t righe, int16_t colonne,
                                      bool funzioni = false) {
        ModalitàFunzionamento = modo;
        auto form = std::make_unique<FormGriglia>(righe, colonne, funzioni);
        form->show();
        form->AggiornaCorone();
        return form;
    }

private slots:
    void init() {
        PreparaSenzaDati();
        TastoScelta = 1;
        TastoScansione = 2;
    }
    void cleanup() { Libera(); }

    void griglia_destra_e_sinistra_girano_nella_riga() {
        auto f = Apri(4, 3, 8);
        f->Motore.TastoCorrente = 108; // last of the first row
        Premi(f->FocusFix, Qt::Key_Right);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(101));
        Premi(f->FocusFix, Qt::Key_Left);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(108));
        f->Motore.TastoCorrente = 117; // first of the last row
        Premi(f->FocusFix, Qt::Key_Left);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(124));
        Premi(f->FocusFix, Qt::Key_Left);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(123));
        QCOMPARE(Visibili(*f, 0), QList<int16_t>{123});
    }

    void griglia_su_e_giu_di_una_riga_con_giro() {
        auto f = Apri(4, 3, 8);
        f->Motore.TastoCorrente = 103;
        Premi(f->FocusFix, Qt::Key_Down);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(111));
        Premi(f->FocusFix, Qt::Key_Down);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(119));
        Premi(f->FocusFix, Qt::Key_Down); // index + 8 - 24
        QCOMPARE(f->Motore.TastoCorrente, int16_t(103));
        Premi(f->FocusFix, Qt::Key_Up); // index - 8 + 24
        QCOMPARE(f->Motore.TastoCorrente, int16_t(119));
        Premi(f->FocusFix, Qt::Key_Up);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(111));
        // Enter fires the button the arrows reached, through the default flag.
        Premi(f->FocusFix, Qt::Key_Return);
        QCOMPARE(f->Premuti, (QList<QPair<int, int16_t>>{{0, 111}}));
    }

    void griglia_nei_modi_a_scansione_il_passo_resta_lineare() {
        auto f = Apri(3, 2, 5);
        f->Motore.TastoCorrente = 105;
        Premi(f->FocusFix, Qt::Key_Space); // the scan key of mode 3
        QCOMPARE(f->Motore.TastoCorrente, int16_t(106));
        f->Motore.TastoCorrente = 110;
        Premi(f->FocusFix, Qt::Key_Space);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(101));
    }

    void due_insiemi_solo_quello_vivo_si_muove_e_si_dipinge() {
        auto f = Apri(4, 2, 10, true);
        Premi(f->FocusFix, Qt::Key_Down);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(111));
        f->AttivaInsieme(1);
        // The letters keep their place; their ring goes while the other set is live.
        QCOMPARE(f->Motore.TastoCorrenteDi(0), int16_t(111));
        QCOMPARE(Visibili(*f, 0), QList<int16_t>{});
        QCOMPARE(Visibili(*f, 1), QList<int16_t>{101});
        QCOMPARE(f->Motore.Primo, int16_t(101));
        QCOMPARE(f->Motore.Ultimo, int16_t(103));
        Premi(f->FocusFix, Qt::Key_Left); // a plain row: wraps over the whole set
        QCOMPARE(f->Motore.TastoCorrente, int16_t(103));
        Premi(f->FocusFix, Qt::Key_Return);
        QCOMPARE(f->Premuti, (QList<QPair<int, int16_t>>{{1, 103}}));
        QVERIFY(!f->TastiDi(0).value(111)->Predefinito);
        f->AttivaInsieme(0);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(111));
        QCOMPARE(f->Motore.Ultimo, int16_t(120));
        QCOMPARE(Visibili(*f, 0), QList<int16_t>{111});
        QCOMPARE(Visibili(*f, 1), QList<int16_t>{});
    }

    void due_insiemi_nel_modo_1_l_anello_gira_solo_nel_vivo() {
        auto f = Apri(1, 1, 4, true);
        f->AttivaInsieme(1);
        orologio->Avanza(1000);
        QCOMPARE(f->Motore.TastoCorrente, int16_t(102));
        orologio->Avanza(2000); // 103, then back to the first of this set
        QCOMPARE(f->Motore.TastoCorrente, int16_t(101));
        QCOMPARE(f->Motore.TastoCorrenteDi(0), int16_t(101));
        Premi(f->FocusFix, Qt::Key_Return);
        QCOMPARE(f->Premuti, (QList<QPair<int, int16_t>>{{1, 101}}));
    }

    void un_clic_su_un_tasto_dell_altro_insieme_lo_rende_vivo() {
        auto f = Apri(4, 1, 4, true);
        f->TastiDi(1).value(102)->click();
        QCOMPARE(f->Motore.InsiemeAttivo(), 1);
        QCOMPARE(f->Premuti, (QList<QPair<int, int16_t>>{{1, 102}}));
    }

    void sotto_un_pannello_l_anello_sta_fermo_poi_riparte_con_una_sosta_intera() {
        auto sotto = Apri(1, 1, 5);
        orologio->Avanza(1000);
        QCOMPARE(sotto->Motore.TastoCorrente, int16_t(102));
        orologio->Avanza(400);
        auto sopra = std::make_unique<FormGriglia>(1, 3, false);
        sopra->show();
        QVERIFY(sotto->Motore.Sospeso());
        orologio->Avanza(5000);
        QCOMPARE(sotto->Motore.TastoCorrente, int16_t(102));
        // Only the panel's own ring shows and walks meanwhile.
        QCOMPARE(Visibili(*sotto, 0), QList<int16_t>{});
        QCOMPARE(sopra->Motore.TastoCorrente, int16_t(103));
        sopra->hide();
        QVERIFY(!sotto->Motore.Sospeso());
        QCOMPARE(Visibili(*sotto, 0), QList<int16_t>{102});
        orologio->Avanza(999);
        QCOMPARE(sotto->Motore.TastoCorrente, int16_t(102));
        orologio->Avanza(1);
        QCOMPARE(sotto->Motore.TastoCorrente, int16_t(103));
    }

    void una_ripartenza_sotto_un_pannello_aspetta_che_il_pannello_vada() {
        auto sotto = Apri(1, 1, 5);
        auto sopra = std::make_unique<FormGriglia>(1, 3, false);
        sopra->show();
        sotto->Motore.AvviaScansione();
        orologio->Avanza(3000);
        QCOMPARE(sotto->Motore.TastoCorrente, int16_t(101));
        sopra->hide();
        sopra.reset();
        orologio->Avanza(1000);
        QCOMPARE(sotto->Motore.TastoCorrente, int16_t(102));
        QCOMPARE(orologio->InAttesa(), 1);
    }

    void un_controllo_fatto_dopo_non_prende_tasti() {
        auto f = Apri(4, 1, 5);
        auto* campo = new QLineEdit(f.get());
        auto* riquadro = new QWidget(f.get());
        auto* interno = new QLineEdit(riquadro);
        campo->show();
        riquadro->show();
        campo->setFocus();
        QTest::keyClicks(campo, QStringLiteral("ab"));
        Premi(campo, Qt::Key_Right);
        QCOMPARE(campo->text(), QString());
        QCOMPARE(f->Motore.TastoCorrente, int16_t(102));
        interno->setFocus();
        Premi(interno, Qt::Key_Right);
        QTest::keyClick(interno, Qt::Key_X);
        QCOMPARE(interno->text(), QString());
        QCOMPARE(f->Motore.TastoCorrente, int16_t(103));
    }
};

QTEST_MAIN(ProvaScansionePannelli)
#include "test_scansione_pannelli.moc"
