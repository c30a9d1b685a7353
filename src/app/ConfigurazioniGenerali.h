#pragma once

#include <QWidget>

#include <cstdint>

class AnelloConfigurazioni;
class QGroupBox;
class PaginaSensori;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The five scanning settings, seen and changed by whoever sets the program up
// for its user: with the mouse, or with the direct keys, which store at once.
// It does not scan; but reached by the switch, its "Chiudi" gets a ring of its
// own. It replaces the main menu and brings it back on "Chiudi".
class ConfigurazioniGenerali : public QWidget {
public:
    ConfigurazioniGenerali();

    void AttivaConfigurazioniGenerali();

    // Working copies: they become the settings only at Registra.
    int16_t Modo = 1;
    int16_t Scelta = 1;
    int16_t Scansione = 2;
    int16_t Inversione = 1;
    int16_t Anello = 1;
    int16_t Contrasto = 0;
    int16_t ModificheEffettuate = 0;
    int16_t RegistrazioneSilenziosa = 0;

    QRadioButton* OpzioneModalitàFunzionamento[4] = {};
    QRadioButton* OpzioneTastiSceltaScansione[2] = {};
    QRadioButton* OpzioneInversioneScan[2] = {};
    // The ring as users who see little need it.
    QGroupBox* QuadroAccessibilità = nullptr;
    QRadioButton* OpzioneLarghezzaAnello[3] = {};
    QRadioButton* OpzioneContrasto[2] = {};
    QGroupBox* QuadroTastiSceltaScansione = nullptr;
    QGroupBox* QuadroModalitàInversioneScansione = nullptr;
    QGroupBox* QuadroTempoLatenzaScans = nullptr;
    QLineEdit* ImmiTempoLatenzaScans = nullptr;
    QPushButton* TastoRegistraConfigurazioniGenerali = nullptr;
    QPushButton* TastoChiudiConfigurazioniGenerali = nullptr;
    // The printer list, which the menu has no button for.
    QPushButton* TastoStampante = nullptr;
    QLabel* ScrittaStampante = nullptr;
    // The second page, for switches and the voice, and the button that turns to it and back.
    PaginaSensori* Sensori = nullptr;
    QPushButton* TastoSensori = nullptr;
    // The ring on "Chiudi" when the form was opened by a key of the switch;
    // "Chiudi" is then its button.
    AnelloConfigurazioni* AnelloChiudi = nullptr;

    void ClickModo(int16_t indice);
    void ClickTasti(int16_t indice);
    void ClickInversione(int16_t indice);
    void ClickAnello(int16_t larghezza);
    void ClickContrasto(int16_t contrasto);
    void Registra();
    void Chiudi();
    void Stampante();
    void CambiaPagina();
    // Gives "Chiudi" its ring, before the form is shown.
    void MettiAnello();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void keyReleaseEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;

private:
    // The parts of the form, built in this order.
    void CostruisciModi();
    void CostruisciTastiEInversione();
    void CostruisciLatenza();
    void CostruisciAccessibilità();
    void CostruisciStampante();
    void CostruisciSensori();
    void CostruisciTastiModulo();
    void MostraQuadri();
    void Colora();
    void MostraStampante();
    void ScriviStampante();
    bool TastoDiretto(int tasto);
    bool FiltroLatenza(QKeyEvent* evento);
    bool AlAnello(QEvent* evento);
};

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoConfigurazioniGenerali {
    // 1 while the form fills its controls, whose change routines then do nothing.
    int16_t CaricamentoConfigurazioni = 0;
    bool operator==(const StatoConfigurazioniGenerali&) const = default;
};
inline StatoConfigurazioniGenerali DatiConfigurazioniGenerali;
// The names the program reads and writes them by.
inline int16_t& CaricamentoConfigurazioni = DatiConfigurazioniGenerali.CaricamentoConfigurazioni;

// The form while it is open, or nullptr.
ConfigurazioniGenerali* ConfigurazioniAperte();
// Loads the form, fills it and shows it in the middle of the screen; with
// `conAnello` (opened by the switch) its "Chiudi" scans.
ConfigurazioniGenerali* CaricaConfigurazioniGenerali(bool conAnello = false);
// At the very end, outside any event of its own.
void DistruggiConfigurazioniGenerali();
