#include "app/AnelloConfigurazioni.h"

#include "base/Configurazione.h"
#include "base/Misure.h"

namespace {
// How far the ring stands outside "Chiudi", before it is made wider.
constexpr int Margine = 90;
} // namespace

AnelloConfigurazioni::AnelloConfigurazioni(QWidget* modulo, const QRect& tasto,
                                           std::function<void()> chiudi,
                                           std::function<bool(int)> diretto)
    : FormScansione(1, 1, modulo), chiudi_(std::move(chiudi)), diretto_(std::move(diretto)) {
    setObjectName(QStringLiteral("AnelloConfigurazioni"));
    // A part of the form, not a window of its own.
    setWindowFlags(Qt::Widget);
    const int m = Margine * std::clamp<int>(LarghezzaAnello, 1, 3);
    setGeometry(RettangoloTwips(tasto.x() - m, tasto.y() - m, tasto.width() + 2 * m,
                                tasto.height() + 2 * m));
    CreaTasti({{1, m, m, tasto.width(), tasto.height(), QStringLiteral("Chiudi"),
                QStringLiteral("Tornare al Menu Generale")}},
              Margine);
    TastoChiudi()->setFont(Carattere(QStringLiteral("Arial"), 12, true));
    Motore.TastoCorrente = 1;
}

bool AnelloConfigurazioni::TastoDelAnello(int codice) {
    if (ModalitàFunzionamento == 4) return codice == CodiciTasto::Invio;
    return MotoreScansione::TastoDiScelta(codice) || MotoreScansione::TastoDiScansione(codice);
}

void AnelloConfigurazioni::ClickTasto(int16_t indice) {
    if (indice != 1 || !chiudi_) return;
    chiudi_();
    // Still here: the question kept the form.
    if (isVisible()) Riprendi();
}

void AnelloConfigurazioni::RoutineTastoGiu(int codice, int modificatori) {
    // F4 to F12 keep their meaning on the form wherever the focus stands.
    if (codice >= CodiciTasto::F4 && codice <= CodiciTasto::F12 && diretto_ &&
        diretto_(Qt::Key_F1 + (codice - 112)))
        return;
    Motore.RoutineTasti(codice, modificatori);
}

void AnelloConfigurazioni::PrimaAttivazione() {
    FormScansione::PrimaAttivazione();
    // A ring that does not walk still shows where the choice falls.
    if (ModalitàFunzionamento != 1 && ModalitàFunzionamento != 2) AggiornaCorone();
}

void AnelloConfigurazioni::Riprendi() {
    // As after any command: walking in modes 1 and 2, still and shown otherwise.
    DopoErrore();
}
