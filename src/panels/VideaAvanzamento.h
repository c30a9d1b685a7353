#pragma once

#include "model/Superficie.h"

#include <QDialog>
#include <QString>

#include <cstdint>

class QLabel;
class QPushButton;
class VistaSuperficie;

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoVideaAvanzamento {
    // What a long job shows and how it learns that the user wants it stopped.
    int16_t ModoAvanzamento = 0; // 1 text only, any other value a bar in ten steps
    QString TestoAvanzamento;
    int16_t PassiAvanzamento = 0; // 0 starts the bar again
    int16_t AnnullaProcesso = 0;  // 1 once the user asked to stop
    int16_t PassoBarra = 0;
    int16_t PosizioneBarra = 0;
    int16_t AltezzaBarra = 0;
    int16_t LarghezzaBarra = 0;
    int16_t CentroBarra = 0;
    bool operator==(const StatoVideaAvanzamento&) const = default;
};
inline StatoVideaAvanzamento DatiVideaAvanzamento;
// The names the program reads and writes them by.
inline int16_t& ModoAvanzamento = DatiVideaAvanzamento.ModoAvanzamento;
inline QString& TestoAvanzamento = DatiVideaAvanzamento.TestoAvanzamento;
inline int16_t& PassiAvanzamento = DatiVideaAvanzamento.PassiAvanzamento;
inline int16_t& AnnullaProcesso = DatiVideaAvanzamento.AnnullaProcesso;
inline int16_t& PassoBarra = DatiVideaAvanzamento.PassoBarra;
inline int16_t& PosizioneBarra = DatiVideaAvanzamento.PosizioneBarra;
inline int16_t& AltezzaBarra = DatiVideaAvanzamento.AltezzaBarra;
inline int16_t& LarghezzaBarra = DatiVideaAvanzamento.LarghezzaBarra;
inline int16_t& CentroBarra = DatiVideaAvanzamento.CentroBarra;

// The progress of a long job, with the button that asks it to stop. It scans
// nothing: the one button is there for the choice key as well as the pointer.
class VideaAvanzamento : public QDialog {
public:
    explicit VideaAvanzamento(QWidget* genitore = nullptr);
    ~VideaAvanzamento() override;

    QLabel* ScrittaAttendereAvanzamento = nullptr;
    Superficie Barra;
    VistaSuperficie* BoxLineaAvanzamento = nullptr;
    QPushButton* TastoAnnullaProcesso = nullptr;
    QString Percentuale; // the figure printed on the bar

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void reject() override;
};

// The progress form of the job under way, while it is open.
VideaAvanzamento* VideaAvanzamentoAperta();
// One step of the job: the text, or the bar one tenth longer; then the events
// that wait run, so that a stop can come in.
void AvanzamentoProcesso();
