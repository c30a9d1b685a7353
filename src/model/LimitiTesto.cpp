#include "model/LimitiTesto.h"

int32_t RigheDaTracciare(const QString& testo) {
    const qsizetype ritorni = testo.count(QChar(u'\r'));
    const qsizetype dopo = testo.lastIndexOf(QChar(u'\r')) + 1;
    bool soloSpazi = true;
    for (qsizetype i = dopo; i < testo.size() && soloSpazi; ++i)
        soloSpazi = testo.at(i) == QChar(u' ');
    const qsizetype righe = ritorni + (soloSpazi ? 0 : 1);
    return righe > INT32_MAX ? INT32_MAX : static_cast<int32_t>(righe);
}

int32_t RigheSullaTastiera(const QString& testo) {
    const qsizetype righe = testo.count(QChar(u'\r')) + 1;
    return righe > INT32_MAX ? INT32_MAX : static_cast<int32_t>(righe);
}

bool TestoNeiLimiti(const QString& testo) {
    return testo.size() <= MassimoCaratteriTesto && RigheDaTracciare(testo) <= MassimoRigheTesto;
}

bool TestoSullaTastieraNeiLimiti(const QString& testo) {
    return testo.size() <= MassimoCaratteriTesto && RigheSullaTastiera(testo) <= MassimoRigheTesto;
}

QStringList AvvisoTestoTroppoLungo(const QString& primaRiga) {
    return {primaRiga,
            QStringLiteral("Un testo può avere al massimo %1 caratteri").arg(MassimoCaratteriTesto),
            QStringLiteral("e %1 righe.").arg(MassimoRigheTesto),
            QStringLiteral("Premere «OK» per continuare!")};
}
