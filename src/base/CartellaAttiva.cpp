#include "base/CartellaAttiva.h"

QString FormaCartella(const QString& nome, int32_t codice) {
    return nome + QStringLiteral("   [ ") + QStringLiteral("%1").arg(codice, 4, 10, QChar(u'0')) +
           QStringLiteral(" ] ");
}
