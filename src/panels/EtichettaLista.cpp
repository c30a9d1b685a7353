#include "panels/EtichettaLista.h"

#include <algorithm>

QString ComponiEtichetta(const QString& nome, int64_t numero, FormatoEtichetta formato) {
    const QString cifre = QStringLiteral("%1").arg(numero, 4, 10, QLatin1Char('0'));
    switch (formato) {
    case FormatoEtichetta::Numero:
        return QString::number(numero);
    case FormatoEtichetta::Font:
        return nome + QStringLiteral(" [ ") + cifre + QStringLiteral(" ]");
    case FormatoEtichetta::Elemento:
    case FormatoEtichetta::Cartella:
        break;
    }
    const qsizetype bianchi =
        std::max<qsizetype>(0, LarghezzaNomeEtichetta - nome.trimmed().size());
    const QString apertura =
        formato == FormatoEtichetta::Elemento ? QStringLiteral(" [ ") : QStringLiteral("[ ");
    return nome + QString(bianchi, QLatin1Char(' ')) + apertura + cifre + QStringLiteral(" ]");
}

int64_t EtichettaLetta::Valore() const {
    if (Numero.isEmpty()) return -1;
    bool ok = false;
    const qlonglong valore = Numero.toLongLong(&ok);
    return ok && valore >= 0 ? valore : -1;
}

EtichettaLetta LeggiEtichetta(const QString& etichetta) {
    const qsizetype chiusa = etichetta.lastIndexOf(QStringLiteral(" ]"));
    const qsizetype aperta = chiusa < 0 ? -1 : etichetta.lastIndexOf(QStringLiteral("[ "), chiusa);
    if (aperta < 0 || chiusa < aperta + 2) return {etichetta.trimmed(), QString()};
    return {etichetta.left(aperta).trimmed(), etichetta.mid(aperta + 2, chiusa - aperta - 2)};
}
