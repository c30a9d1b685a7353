#pragma once

// What the tests of the keyboard share: the keyboard in front, its text and
// ring, keys typed with their character, and the ways of each mode to take
// the ring to a key and pick it.
#include "base/Configurazione.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroScriviTesto.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QtTest>

#include <initializer_list>
#include <memory>

inline QuadroScriviTesto* Quadro() {
    return PannelloDavanti<QuadroScriviTesto>();
}

inline QString TestoOra() {
    QuadroScriviTesto* q = Quadro();
    return q == nullptr ? QStringLiteral("?") : q->Testo().Testo();
}

inline const QString Lettere = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
inline const QString Nome = QStringLiteral("PRECIPITEVOLISSIMEVOLMENTEZANTODISEGNARE");
inline const QString Cr = QStringLiteral("\r");

// Where the ring stands, -1 with no keyboard in front.
inline int16_t AnelloOra() {
    QuadroScriviTesto* q = Quadro();
    return q == nullptr ? int16_t(-1) : q->Motore.TastoCorrente;
}

inline int16_t TastoDi(QChar lettera) {
    return static_cast<int16_t>(101 + Lettere.indexOf(lettera));
}

// The rings of one set that show.
inline QList<int16_t> Visibili(QuadroScriviTesto* q, int insieme) {
    QList<int16_t> v;
    if (q == nullptr) return v;
    const QMap<int16_t, QLabel*>& corone = q->CoroneDi(insieme);
    for (auto it = corone.cbegin(); it != corone.cend(); ++it)
        if (it.value()->isVisible()) v.append(it.key());
    return v;
}

inline int16_t PredefinitoDi(QuadroScriviTesto* q, int insieme) {
    const QMap<int16_t, TastoZanto*>& tasti = q->TastiDi(insieme);
    for (auto it = tasti.cbegin(); it != tasti.cend(); ++it)
        if (it.value()->Predefinito) return it.key();
    return 0;
}

// A key typed on the physical keyboard: the key with the character it gives.
inline void Digita(Copione& c, int tasto, const QString& testo,
                   Qt::KeyboardModifiers modificatori = Qt::NoModifier) {
    c.Esegui([=] {
        FormScansione* f = FormScansione::InPrimoPiano();
        if (f == nullptr) return;
        QWidget* bersaglio = f->focusWidget() != nullptr ? f->focusWidget() : f->FocusFix;
        QKeyEvent giu(QEvent::KeyPress, tasto, modificatori, testo);
        QCoreApplication::sendEvent(bersaglio, &giu);
        QKeyEvent su(QEvent::KeyRelease, tasto, modificatori, testo);
        if (FormScansione::InPrimoPiano() == f) QCoreApplication::sendEvent(bersaglio, &su);
    });
}

// Mode 3: the scan key until the ring reaches `a`, then the choice.
inline void Scegli3(Copione& c, int16_t& da, int16_t a, int tutti) {
    for (int i = 0; i < (a - da + tutti) % tutti; ++i)
        c.Tasto(Qt::Key_Space);
    c.Tasto(Qt::Key_Return);
    da = a;
}

// Mode 4: the fewest arrows of the grid from `da` to `a`, then Enter.
inline int Scegli4(Copione& c, int16_t& da, int16_t a, int colonne, int tutti) {
    const int righe = tutti / colonne;
    const int r0 = (da - 101) / colonne, c0 = (da - 101) % colonne;
    const int r1 = (a - 101) / colonne, c1 = (a - 101) % colonne;
    const int giu = (r1 - r0 + righe) % righe;
    const int destra = (c1 - c0 + colonne) % colonne;
    int frecce = 0;
    auto premi = [&](Qt::Key tasto, int volte) {
        for (int i = 0; i < volte; ++i)
            c.Tasto(tasto);
        frecce += volte;
    };
    if (giu <= righe - giu)
        premi(Qt::Key_Down, giu);
    else
        premi(Qt::Key_Up, righe - giu);
    if (destra <= colonne - destra)
        premi(Qt::Key_Right, destra);
    else
        premi(Qt::Key_Left, colonne - destra);
    c.Tasto(Qt::Key_Return);
    da = a;
    return frecce;
}

inline void Riapri(const QStringList& righe) {
    RigheScritte = QStringList{QString()} + righe;
    NumeroRigheScritte = static_cast<int16_t>(righe.size());
}

// The world of one keyboard test: a data folder, the virtual clock and the
// keys as the installer sets them; the keyboard opened with a script inside.
struct MondoTastiera {
    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

    void Prepara(bool installa = false) {
        amb = std::make_unique<AmbienteProva>(installa);
        if (installa) amb->ApriArchivi();
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
        TastoScelta = 1;
        TastoScansione = 2;
    }
    void Libera() {
        orologio.reset();
        amb.reset();
    }
    bool Apri(Copione& c, int16_t limite = 0) {
        return EseguiNelPannello(c, [=] { ScriviTesto(limite); });
    }
};

// The rows of a test that runs in some working modes.
inline void RigheDeiModi(std::initializer_list<int> modi) {
    QTest::addColumn<int>("modo");
    for (int modo : modi)
        QTest::newRow(qPrintable(QStringLiteral("modo %1").arg(modo))) << modo;
}
