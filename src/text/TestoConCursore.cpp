#include "text/TestoConCursore.h"

namespace {

// Blanks only: a line end at either end of the text stays.
QString TogliSpazi(const QString& s) {
    qsizetype inizio = 0;
    qsizetype fine = s.size();
    while (inizio < fine && s.at(inizio) == QChar(u' '))
        ++inizio;
    while (fine > inizio && s.at(fine - 1) == QChar(u' '))
        --fine;
    return s.mid(inizio, fine - inizio);
}

QString SenzaLfIniziale(const QString& riga) {
    if (riga.size() > 1 && riga.at(0) == TestoConCursore::Lf) return riga.mid(1);
    return riga;
}

} // namespace

void TestoConCursore::Imposta(const QString& testo) {
    testo_ = testo;
    if (!testo_.contains(Cursore)) testo_.append(Cursore);
}

QString TestoConCursore::Sinistra() const {
    return testo_.left(testo_.indexOf(Cursore));
}

QString TestoConCursore::Destra() const {
    return testo_.mid(testo_.indexOf(Cursore));
}

QString TestoConCursore::SenzaCursore() const {
    return Sinistra() + Destra().mid(1);
}

void TestoConCursore::Componi(const QString& sinistra, const QString& destra) {
    testo_ = sinistra + destra;
}

void TestoConCursore::Inserisci(const QString& caratteri) {
    Componi(Sinistra() + caratteri, Destra());
}

bool TestoConCursore::CancellaDopo() {
    const QString destra = Destra();
    if (destra.size() <= 1) return false;
    Componi(Sinistra(), Cursore + destra.mid(2));
    return true;
}

bool TestoConCursore::CancellaPrima() {
    QString sinistra = Sinistra();
    if (sinistra.isEmpty()) return false;
    sinistra.chop(1);
    Componi(sinistra, Destra());
    return true;
}

bool TestoConCursore::Indietro() {
    const QString sinistra = Sinistra();
    if (sinistra.isEmpty()) return false;
    Componi(sinistra.left(sinistra.size() - 1), Cursore + sinistra.right(1) + Destra().mid(1));
    return true;
}

bool TestoConCursore::Avanti() {
    const QString destra = Destra();
    if (destra.size() <= 1) return false;
    Componi(Sinistra() + destra.at(1), Cursore + destra.mid(2));
    return true;
}

void TestoConCursore::Inizio() {
    testo_ = Cursore + SenzaCursore();
}

void TestoConCursore::Fine() {
    testo_ = SenzaCursore() + Cursore;
}

void TestoConCursore::Sposta(int32_t posizione) {
    const QString senza = SenzaCursore();
    Componi(senza.left(posizione - 1), Cursore + senza.mid(posizione - 1));
}

void TestoConCursore::Misura() {
    const int32_t p = static_cast<int32_t>(testo_.indexOf(Cursore)) + 1;
    const QString senza = SenzaCursore();
    InizioRighe = {0, 1};
    for (qsizetype i = 0; i < senza.size(); ++i)
        if (senza.at(i) == Cr) InizioRighe.append(static_cast<int32_t>(i + 2));
    NumeroRighe = static_cast<int32_t>(InizioRighe.size() - 1);
    RigaCursore = NumeroRighe;
    for (int32_t k = 1; k < NumeroRighe; ++k) {
        if (InizioRighe.at(k) <= p && p < InizioRighe.at(k + 1)) {
            RigaCursore = k;
            break;
        }
    }
}

TestoConCursore::EsitoRiga TestoConCursore::Su() {
    Misura();
    if (NumeroRighe == 1) return EsitoRiga::SolaRiga;
    if (RigaCursore == 1) return EsitoRiga::Bordo;
    Sposta(InizioRighe.at(RigaCursore - 1));
    return EsitoRiga::Spostato;
}

TestoConCursore::EsitoRiga TestoConCursore::Giu() {
    Misura();
    if (NumeroRighe == 1) return EsitoRiga::SolaRiga;
    if (RigaCursore == NumeroRighe) return EsitoRiga::Bordo;
    Sposta(InizioRighe.at(RigaCursore + 1));
    return EsitoRiga::Spostato;
}

QStringList TestoConCursore::Righe(const QString& senzaCursore) {
    const QString testo = TogliSpazi(senzaCursore);
    QStringList righe{QString()};
    qsizetype inizio = 0;
    for (qsizetype cr = testo.indexOf(Cr); cr >= 0; cr = testo.indexOf(Cr, inizio)) {
        righe.append(SenzaLfIniziale(testo.mid(inizio, cr - inizio + 1)));
        inizio = cr + 1;
    }
    const QString coda = testo.mid(inizio);
    // A CR LF text ends its last line as cleanly as the others.
    if (!TogliSpazi(coda).isEmpty()) righe.append(SenzaLfIniziale(coda));
    return righe;
}

QString TestoConCursore::Unisci(const QStringList& righe, int16_t numero) {
    QString testo;
    for (int16_t i = 1; i <= numero; ++i)
        testo += righe.at(i);
    return testo;
}
