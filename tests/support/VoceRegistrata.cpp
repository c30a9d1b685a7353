#include "support/VoceRegistrata.h"

#include "input/Orologio.h"

VoceRegistrata::~VoceRegistrata() {
    Ferma();
}

void VoceRegistrata::Ferma() {
    if (sveglia_ == 0) return;
    OrologioCorrente().Annulla(sveglia_);
    sveglia_ = 0;
    Tagli.append(OrologioCorrente().Adesso());
}

void VoceRegistrata::Di(const QString& testo) {
    Ferma();
    Detti.append({testo, OrologioCorrente().Adesso()});
    sveglia_ = OrologioCorrente().Programma(testo.size() * MsPerLettera, [this] {
        sveglia_ = 0;
        FineVoce();
    });
}

void VoceRegistrata::Taci() {
    if (sveglia_ == 0) return;
    Ferma();
    FineVoce();
}

QStringList VoceRegistrata::Testi() const {
    QStringList testi;
    for (const Detto& d : Detti)
        testi << d.Testo;
    return testi;
}
