#pragma once

#include "input/FormScansione.h"

#include <QString>

#include <cstdint>

class QTextEdit;

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoQuadroMessaggi {
    // The call of the message panel: set the three inputs, open it, read the result.
    QString TestoQuadroMessaggi;
    int16_t TipoQuadroMessaggi = 0;             // button set 1..4
    int16_t TastoPredefinitoQuadroMessaggi = 0; // which answer holds the ring first
    int16_t EsitoQuadroMessaggi = 0;            // 1 yes/OK, 2 NO, 3 Annulla
    bool operator==(const StatoQuadroMessaggi&) const = default;
};
inline StatoQuadroMessaggi DatiQuadroMessaggi;
// The names the program reads and writes them by.
inline QString& TestoQuadroMessaggi = DatiQuadroMessaggi.TestoQuadroMessaggi;
inline int16_t& TipoQuadroMessaggi = DatiQuadroMessaggi.TipoQuadroMessaggi;
inline int16_t& TastoPredefinitoQuadroMessaggi = DatiQuadroMessaggi.TastoPredefinitoQuadroMessaggi;
inline int16_t& EsitoQuadroMessaggi = DatiQuadroMessaggi.EsitoQuadroMessaggi;

// The one modal message and question box: it scans like every other panel.
class QuadroMessaggi : public FormScansione {
public:
    explicit QuadroMessaggi(QWidget* genitore = nullptr);

    void AttivaQuadroMessaggi();

    void AggiornaCorone() override;
    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    void PrimaAttivazione() override;

    void AvanzaTastoVisibile();
    void ArretraTastoVisibile();

    QTextEdit* ImmiTestoMessaggio = nullptr;

private:
    bool Visibile(int16_t indice) const;
};

// What a button that is there for later versions says when it is chosen. The
// project has no assistance service to name, so the message does not send the
// user to one.
inline const QString TestoTastoNonOperativo =
    QStringLiteral("ATTENZIONE!\rIl presente Tasto NON è attualmente operativo!\r"
                   "E' stato inserito per compatibilità con future\r"
                   "versioni del Programma ZANTO.\r"
                   "Premere «OK» per proseguire!");

// Opens the panel with the globals as they stand, waits for the answer and
// returns EsitoQuadroMessaggi.
int16_t MostraQuadroMessaggi();
// Sets the three inputs, then as MostraQuadroMessaggi.
int16_t Messaggio(const QString& testo, int16_t tipo, int16_t predefinito);
// How wide a window must be for `titolo` to show whole in its title bar.
int LarghezzaPerTitolo(const QString& titolo);
// Lines joined by a carriage return alone, as every message is built.
QString Righe(const QStringList& righe);
