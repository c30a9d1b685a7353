#pragma once

#include "input/FormScansione.h"
#include "support/Copione.h"
#include "support/Sonde.h"

#include <QCoreApplication>
#include <QRect>

#include <cstdlib>
#include <functional>

// What the panel tests share: the front panel, and a run of a script inside
// a panel that the opener shows with exec().

template <class Quadro> Quadro* PannelloDavanti() {
    return dynamic_cast<Quadro*>(FormScansione::InPrimoPiano());
}

// Runs `apri` with the script inside the panel it opens. A script that leaves
// the panel open closes it, so that a failing test ends; returns false then.
inline bool EseguiNelPannello(Copione& c, const std::function<void()>& apri) {
    bool rimastoAperto = false;
    c.Esegui([&rimastoAperto] {
        if (FormScansione* f = FormScansione::InPrimoPiano()) {
            rimastoAperto = true;
            f->done(-1);
        }
    });
    c.Avvia();
    apri();
    for (int giro = 0; giro < 100 && !c.Finito(); ++giro)
        QCoreApplication::processEvents();
    return !rimastoAperto;
}

// The visible state of a scanning panel at one moment.
struct VistaPannello {
    int16_t Corrente = 0;
    int16_t Marcato = 0;
    int16_t Predefinito = 0;
    QList<int16_t> Visibili;
    QMap<int16_t, uint32_t> Colori; // of the visible rings
};

inline VistaPannello OsservaPannello() {
    VistaPannello v;
    const FormScansione* f = FormScansione::InPrimoPiano();
    if (f == nullptr) return v;
    v.Corrente = f->Motore.TastoCorrente;
    v.Marcato = f->TastoMarcato;
    v.Predefinito = TastoPredefinito(*f);
    v.Visibili = CoroneVisibili(*f);
    for (int16_t i : std::as_const(v.Visibili))
        v.Colori.insert(i, ColoreCorona(*f, i));
    return v;
}

inline constexpr uint32_t Verde = 0x00FF00;
inline constexpr uint32_t Blu = 0x0000FF;
inline constexpr uint32_t Magenta = 0xFF00FF;

// The place of a character's key among the letter keys, from 0 for 101.
inline int PostoTasto(QChar ch) {
    static const QString tasti = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ@€«»!?'");
    if (ch == QChar(u'.')) return 45;
    if (ch == QChar(u'/')) return 63;
    if (ch == QChar(u'À')) return 40;
    if (ch == QChar(u' ')) return 34;
    if (ch == QChar(u'\r')) return 35;
    if (ch == QChar(u'%')) return 37;
    if (ch.isDigit()) return ch == QChar(u'0') ? 59 : 50 + ch.digitValue() - 1;
    return tasti.indexOf(ch);
}
inline constexpr int PostoFn = 65;

// Writes `testo` on the on-screen keyboard with the arrows of mode 4, from the
// key under the ring (101 when it opens), then Fn and confirm.
inline void ScriviConLeFrecce(Copione& c, const QString& testo) {
    int posto = 0;
    auto vai = [&](int arrivo) {
        const int righe = arrivo / 10 - posto / 10;
        const int colonne = arrivo % 10 - posto % 10;
        for (int i = 0; i < std::abs(righe); ++i)
            c.Tasto(righe > 0 ? Qt::Key_Down : Qt::Key_Up);
        for (int i = 0; i < std::abs(colonne); ++i)
            c.Tasto(colonne > 0 ? Qt::Key_Right : Qt::Key_Left);
        posto = arrivo;
    };
    for (const QChar ch : testo) {
        vai(PostoTasto(ch));
        c.Tasto(Qt::Key_Return);
    }
    vai(PostoFn);
    c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
}

// The same as a one-switch user writes it in mode 1: from 101, the dwells to
// each key, the ring staying on the key picked; then Fn and confirm.
inline void ScriviInModo1(Copione& c, const QString& testo, int64_t sosta) {
    int posto = 0;
    auto vai = [&](int arrivo) {
        c.Attendi((arrivo - posto + 70) % 70 * sosta).Tasto(Qt::Key_Return);
        posto = arrivo;
    };
    for (const QChar ch : testo)
        vai(PostoTasto(ch));
    vai(PostoFn);
    c.Tasto(Qt::Key_Return); // the ring starts on confirm
}
