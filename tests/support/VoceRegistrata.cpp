#include "support/VoceRegistrata.h"

#include "base/Orologio.h"

#include <memory>

VoceRegistrata::~VoceRegistrata() {
    for (int id : inViaggio_)
        OrologioCorrente().Annulla(id);
    if (sveglia_ != 0) OrologioCorrente().Annulla(sveglia_);
}

void VoceRegistrata::Consegna(std::function<void()> azione) {
    auto id = std::make_shared<int>(0);
    *id = OrologioCorrente().Programma(Ritardo, [this, id, azione = std::move(azione)] {
        inViaggio_.removeOne(*id);
        azione();
    });
    inViaggio_.append(*id);
}

void VoceRegistrata::Parla(const QString& testo, int numero) {
    Detti.append({testo, OrologioCorrente().Adesso()});
    Consegna([this, testo, numero] {
        if (Superato(numero)) return; // a newer one was asked meanwhile
        inCorso_ = numero;
        sveglia_ = OrologioCorrente().Programma(testo.size() * MsPerLettera, [this, numero] {
            sveglia_ = 0;
            Finita(numero);
        });
    });
}

void VoceRegistrata::Ferma(int finoA) {
    Consegna([this, finoA] {
        if (sveglia_ != 0 && inCorso_ <= finoA) {
            OrologioCorrente().Annulla(sveglia_);
            sveglia_ = 0;
            Tagli.append(OrologioCorrente().Adesso());
        }
        Finita(finoA);
    });
}

void VoceRegistrata::Finita(int numero) {
    Concludi(numero);
    FineVoce();
}

QStringList VoceRegistrata::Testi() const {
    QStringList testi;
    for (const Detto& d : Detti)
        testi << d.Testo;
    return testi;
}
