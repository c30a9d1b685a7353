#pragma once

// The conditions of the drawing screen's buttons, read from the data file
// written from the screen's table of buttons, and their test on the state of
// the program at the moment of a press.

#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"

#include <QFile>
#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace CondizioniTasti {

// One test: a name, an operator, a number.
struct Prova {
    QString Nome;
    QString Operatore;
    int64_t Valore = 0;
};

// Clauses of tests: it holds when all the tests of one clause hold. No
// clause: it never holds; one empty clause: it always holds.
struct Condizione {
    QList<QList<Prova>> Clausole;

    bool Vale(const QHash<QString, int64_t>& valori) const {
        for (const QList<Prova>& clausola : Clausole) {
            bool tutte = true;
            for (const Prova& p : clausola) {
                const int64_t v = valori.value(p.Nome);
                const bool esito = p.Operatore == u"="    ? v == p.Valore
                                   : p.Operatore == u"!=" ? v != p.Valore
                                   : p.Operatore == u"<"  ? v < p.Valore
                                                          : v > p.Valore;
                tutte = tutte && esito;
            }
            if (tutte) return true;
        }
        return false;
    }
};

struct Voce {
    int16_t Tasto = 0;
    QString Suggerimento;
    Condizione Agisce;
    Condizione Rifiuta; // a refusal on the command's way
    // Acts when its condition holds and its way does not refuse.
    bool AgisceCon(const QHash<QString, int64_t>& valori) const {
        return Agisce.Vale(valori) && !Rifiuta.Vale(valori);
    }
};

// The names a condition may use, with their values now.
inline QHash<QString, int64_t> ValoriOra() {
    return {
        {QStringLiteral("PrimitivaAttiva"), PrimitivaAttiva},
        {QStringLiteral("ComandoModifica"), ComandoModifica},
        {QStringLiteral("OggettoAttivo"), OggettoAttivo},
        {QStringLiteral("NumeroAzioni"), NumeroAzioni},
        {QStringLiteral("NumeroElementiAttivi"), NumeroElementiAttivi},
        {QStringLiteral("ElementoRiaperto"), ElementoRiaperto},
        {QStringLiteral("TipoElemento"), ElementoInCostruzione.TipoAzione},
        {QStringLiteral("TipoUltimaAzione"),
         NumeroAzioni > 0 ? Azioni[NumeroAzioni].TipoAzione : 0},
        {QStringLiteral("CopieLavoro"), CodiceCopiaLavoro - BaseCopieLavoro},
    };
}

// Reads a condition; what it cannot read goes to `errori`.
inline Condizione LeggiCondizione(const QString& testo, QStringList& errori) {
    Condizione c;
    const QString t = testo.trimmed();
    if (t == u"-") return c;
    if (t == u"sempre") {
        c.Clausole.append(QList<Prova>{});
        return c;
    }
    static const QRegularExpression prova(
        QStringLiteral(R"(^\s*([A-Za-z]+)\s*(!=|=|<|>)\s*(-?\d+)\s*$)"));
    const QStringList nomi = ValoriOra().keys();
    for (const QString& clausola : t.split(u'|')) {
        QList<Prova> prove;
        for (const QString& parte : clausola.split(u'&')) {
            const QRegularExpressionMatch m = prova.match(parte);
            if (!m.hasMatch() || !nomi.contains(m.captured(1))) {
                errori.append(QStringLiteral("not a test: \"%1\"").arg(parte));
                continue;
            }
            prove.append({m.captured(1), m.captured(2), m.captured(3).toLongLong()});
        }
        c.Clausole.append(prove);
    }
    return c;
}

// The lines of the file by button; comments and blank lines are left out.
inline QHash<int16_t, Voce> Leggi(const QString& percorso, QStringList& errori) {
    QHash<int16_t, Voce> voci;
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) {
        errori.append(QStringLiteral("cannot read ") + percorso);
        return voci;
    }
    for (const QString& riga : QString::fromUtf8(f.readAll()).split(u'\n')) {
        if (riga.trimmed().isEmpty() || riga.startsWith(u'#')) continue;
        const QStringList campi = riga.split(u';');
        bool numero = false;
        const int tasto = campi.value(0).toInt(&numero);
        if (campi.size() != 4 || !numero || voci.contains(int16_t(tasto))) {
            errori.append(QStringLiteral("bad line: ") + riga);
            continue;
        }
        Voce v;
        v.Tasto = int16_t(tasto);
        v.Suggerimento = campi[1];
        v.Agisce = LeggiCondizione(campi[2], errori);
        v.Rifiuta = LeggiCondizione(campi[3], errori);
        voci.insert(v.Tasto, v);
    }
    return voci;
}

} // namespace CondizioniTasti
