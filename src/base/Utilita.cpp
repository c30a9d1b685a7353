#include "base/Utilita.h"

#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Numeri.h"

#include <QDir>
#include <QFileInfo>

#include <deque>

void DividiTestoInRighe() {
    NumeroRigheTesto = 0;
    RigheTesto = QStringList{QString()};
    const QChar cr(u'\r');
    qsizetype da = 0;
    for (;;) {
        const qsizetype trovato = TestoDaDividere.indexOf(cr, da);
        if (trovato >= 0) {
            RigheTesto.append(TestoDaDividere.mid(da, trovato - da + 1));
            NumeroRigheTesto = Intero16(static_cast<int64_t>(NumeroRigheTesto) + 1);
            da = trovato + 1;
            continue;
        }
        const QString resto = TestoDaDividere.mid(da);
        if (resto.count(QChar(u' ')) == resto.size()) return; // only blanks
        RigheTesto.append(resto);
        NumeroRigheTesto = Intero16(static_cast<int64_t>(NumeroRigheTesto) + 1);
        return;
    }
}

bool FileEsiste(const QString& percorso) {
    const QFileInfo info(percorso);
    return info.exists() && !info.isDir();
}

bool CartellaEsiste(const QString& percorso) {
    return QFileInfo(percorso).isDir();
}

void RicercaFile() {
    ElencoFile = QStringList{QString()};
    NumeroFile = 0;
    std::deque<QString> daVisitare;
    EseguiPassi({
        {7100,
         [&] {
             if (!CartellaEsiste(CartellaRicerca)) throw ErroreCartellaAssente(CartellaRicerca);
             daVisitare.push_back(CartellaRicerca);
         }},
        {7110,
         [&] {
             while (!daVisitare.empty()) {
                 const QDir cartella(daVisitare.front());
                 daVisitare.pop_front();
                 const QFileInfoList voci = cartella.entryInfoList(
                     QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                     QDir::NoSort);
                 for (const QFileInfo& voce : voci) {
                     if (voce.isDir()) {
                         if (RicercaSottocartelle != 0)
                             daVisitare.push_back(voce.absoluteFilePath());
                         continue;
                     }
                     for (const QString& estensione : EstensioniRicerca) {
                         if (voce.fileName().endsWith(estensione, Qt::CaseInsensitive)) {
                             ElencoFile.append(voce.absoluteFilePath());
                             NumeroFile = Intero16(static_cast<int64_t>(NumeroFile) + 1);
                             break;
                         }
                     }
                 }
             }
         }},
    });
}

QString PulisciTesto(const QString& testo) {
    QString risultato;
    risultato.reserve(testo.size());
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const QChar c = testo.at(i);
        if (i == 0) {
            if (c != u' ') risultato.append(c);
            continue;
        }
        if (c == u' ' && testo.at(i - 1) == u' ') continue;
        risultato.append(c);
    }
    risultato.remove(QChar(u'\n'));
    risultato.remove(QChar(u'\r'));
    // Blanks only: a tab the user typed stays.
    qsizetype inizio = 0;
    qsizetype fine = risultato.size();
    while (inizio < fine && risultato.at(inizio) == u' ')
        ++inizio;
    while (fine > inizio && risultato.at(fine - 1) == u' ')
        --fine;
    return risultato.mid(inizio, fine - inizio);
}

QString TestoNumero(int32_t valore) {
    return (valore < 0 ? QString() : QStringLiteral(" ")) + QString::number(valore) +
           QStringLiteral(" \r\n");
}

QString NomeSicuro(const QString& nome, int64_t codice) {
    // "_" and "~" cannot be written on the keyboard: a name holding them is
    // changed too, so that only a changed name ever carries them.
    static const QString vietati = QStringLiteral("/\\:*?\"<>|_~");
    constexpr qsizetype massimo = 60;
    QString sicuro;
    sicuro.reserve(nome.size());
    for (const QChar c : nome)
        sicuro.append(c.unicode() < 32 || c.unicode() == 127 || vietati.contains(c) ? QChar(u'_')
                                                                                    : c);
    // Hidden files, "." and "..", and ends that some file systems drop.
    if (sicuro.startsWith(QChar(u'.'))) sicuro[0] = QChar(u'_');
    while (!sicuro.isEmpty() && (sicuro.endsWith(QChar(u'.')) || sicuro.endsWith(QChar(u' '))))
        sicuro.chop(1);
    if (sicuro.size() > massimo) sicuro.truncate(massimo);
    if (sicuro == nome && !sicuro.isEmpty()) return sicuro;
    return sicuro + QChar(u'~') + QString::number(codice);
}

QString ChiaveNome(const QString& nome) {
    const QString scomposto = nome.normalized(QString::NormalizationForm_D);
    QString chiave;
    chiave.reserve(scomposto.size());
    for (const QChar c : scomposto)
        if (c.category() != QChar::Mark_NonSpacing) chiave.append(c);
    return chiave.toCaseFolded();
}

bool StessoNome(const QString& a, const QString& b) {
    return ChiaveNome(a) == ChiaveNome(b);
}
