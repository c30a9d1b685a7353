#pragma once

#include <QDialog>

class QFrame;
class QLabel;
class QListWidget;
class QPushButton;

// The system's printers, for whoever sets the program up: one of them becomes
// the program's printer and is kept in the configuration archive. It does not
// scan: the mouse, the arrows, Enter and Esc drive it.
class SceltaStampanti : public QDialog {
public:
    SceltaStampanti();

    void AttivaSceltaStampanti();

    QListWidget* ListaStampanti = nullptr;
    QLabel* ScrittaStampanteAttiva = nullptr;
    QPushButton* TastoSceltaStampante[3] = {nullptr, nullptr, nullptr}; // 101..103
    QFrame* CoronaTastoSelectAzione[3] = {nullptr, nullptr, nullptr};
    // Raised by "Annulla"; nothing reads it.
    bool Annullata = false;

    void Conferma();
    void Annulla();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    // Ready for "Scegli", which does not call it.
    void SelezionaPrima();
    void RiempiLista();
    bool attivando_ = false;
};

// Opens the list over `sopra` and waits until it closes; the form is unloaded
// then. True when a printer name was confirmed.
bool ApriSceltaStampanti(QWidget* sopra);
