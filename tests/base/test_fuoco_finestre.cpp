// Which window gets the keys back when another goes: the open modal panel, or
// else the window shown last that is still on the screen; tooltips never.
#include "base/FuocoFinestre.h"

#include <QApplication>
#include <QDialog>
#include <QWidget>
#include <QtTest>

class ProvaFuocoFinestre : public QObject {
    Q_OBJECT

    FuocoFinestre* fuoco = nullptr;

    static void Eventi() {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

private slots:
    void init() {
        fuoco = new FuocoFinestre(qApp);
        qApp->installEventFilter(fuoco);
    }
    void cleanup() {
        qApp->removeEventFilter(fuoco);
        delete fuoco;
        fuoco = nullptr;
    }

    void chiusa_una_finestra_il_fuoco_torna_a_quella_mostrata_prima() {
        QWidget menu;
        menu.setWindowTitle(QStringLiteral("menu"));
        menu.show();
        menu.activateWindow();
        Eventi();
        QDialog pannello;
        pannello.show();
        pannello.activateWindow();
        Eventi();
        QCOMPARE(fuoco->Davanti(), &pannello);
        QCOMPARE(QApplication::activeWindow(), &pannello);
        pannello.hide();
        Eventi();
        QCOMPARE(fuoco->Davanti(), &menu);
        QCOMPARE(QApplication::activeWindow(), &menu);
    }

    void un_pannello_modale_resta_davanti_a_chi_e_stato_mostrato_dopo() {
        QWidget schermo;
        schermo.show();
        QDialog modale;
        modale.setModal(true);
        modale.show();
        QWidget avanzamento;
        avanzamento.show();
        Eventi();
        QCOMPARE(fuoco->Davanti(), &modale);
        avanzamento.hide();
        Eventi();
        QCOMPARE(QApplication::activeWindow(), &modale);
        modale.hide();
        Eventi();
        QCOMPARE(fuoco->Davanti(), &schermo);
        QCOMPARE(QApplication::activeWindow(), &schermo);
    }

    void una_finestra_distrutta_o_un_suggerimento_non_contano() {
        QWidget menu;
        menu.show();
        {
            QWidget effimera;
            effimera.show();
            Eventi();
        }
        QWidget suggerimento(nullptr, Qt::ToolTip);
        suggerimento.show();
        Eventi();
        QCOMPARE(fuoco->Davanti(), &menu);
        suggerimento.hide();
        Eventi();
        QCOMPARE(fuoco->Davanti(), &menu);
    }
};

QTEST_MAIN(ProvaFuocoFinestre)
#include "test_fuoco_finestre.moc"
