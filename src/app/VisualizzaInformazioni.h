#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QTextEdit;

// What the program is and how it is used: four lines, the information text
// of the program folder, and "Chiudi". It replaces the main menu and brings it
// back when it closes. It does not scan: Enter or the mode's choice key leaves,
// every other key beeps, so that a single switch gets out whichever key it is.
class VisualizzaInformazioni : public QWidget {
public:
    VisualizzaInformazioni();

    void AttivaVisualizzaInformazioni();

    QLabel* ScrittaInformazioni[4] = {nullptr, nullptr, nullptr, nullptr};
    QTextEdit* CasellaInformazioni = nullptr;
    QPushButton* TastoRitornoMenùGenerale = nullptr;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    void Chiudi();
    void Tasto(QKeyEvent* evento);
};

// The form while it is open, or nullptr.
VisualizzaInformazioni* InformazioniAperte();
// Loads the form, fills it and shows it in the middle of the screen.
VisualizzaInformazioni* CaricaVisualizzaInformazioni();
// At the very end, outside any event of its own.
void DistruggiVisualizzaInformazioni();
