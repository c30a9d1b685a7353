#pragma once

#include <QWidget>

#include <cstdint>
#include <functional>

class QLabel;
class QRadioButton;
class QSpinBox;

// The configuration form's second page: the timings for real switches, the
// spoken scanning and where the ring starts again after a choice. It holds working copies; the form
// stores them at Registra together with the five settings.
class PaginaSensori : public QWidget {
public:
    explicit PaginaSensori(QWidget* genitore);
    ~PaginaSensori() override;

    // Working copies, read from the globals by Carica and given back by Applica.
    int32_t Accettazione = 0;
    int32_t Ignora = 0;
    int16_t Attesa = 1;
    int16_t Giri = 0;
    int16_t Parlata = 0;
    int16_t AttendiFine = 0;
    int16_t Ripresa = 0;

    QSpinBox* ImmiAccettazione = nullptr;
    QSpinBox* ImmiIgnora = nullptr;
    QRadioButton* OpzionePrimaAttesa[3] = {};
    QSpinBox* ImmiGiri = nullptr;
    QRadioButton* OpzioneVoce[2] = {};
    QRadioButton* OpzioneAttendiVoce[2] = {};
    QRadioButton* OpzioneRipresa[2] = {};
    QLabel* ScrittaServizioVoce = nullptr;

    // Called on every change made by the user.
    std::function<void()> Modificato;

    void Carica();
    void Applica() const;
    // Tells whether the system has a speech service; looks again while it searches.
    void MostraServizio();

private:
    void Colora();
    void Cambia(const std::function<void()>& cambio);

    bool caricamento_ = false;
    int sveglia_ = 0;
};
