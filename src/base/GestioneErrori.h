#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <initializer_list>

// A fault of the archive, of a file or of a surface, with the program's number.
struct ErroreZanto {
    int Numero = 0;
    QString Descrizione;
};

// Thrown to end the program while it is starting; the start routine catches it.
struct FineProgramma {
    int Codice = 0;
};

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoGestioneErrori {
    int16_t SezioneCorrente = 0;  // location mark of the running step
    int16_t EsitoErrore = 0;      // 1 retry, 2 next step, 3 leave
    int16_t RecordAssente = 0;    // a read found no row
    int16_t ScritturaFallita = 0; // the start-up write test failed
    bool operator==(const StatoGestioneErrori&) const = default;
};
inline StatoGestioneErrori DatiGestioneErrori;
// The names the program reads and writes them by.
inline int16_t& SezioneCorrente = DatiGestioneErrori.SezioneCorrente;
inline int16_t& EsitoErrore = DatiGestioneErrori.EsitoErrore;
inline int16_t& RecordAssente = DatiGestioneErrori.RecordAssente;
inline int16_t& ScritturaFallita = DatiGestioneErrori.ScritturaFallita;

enum class IconaScatola { Critica, Esclamazione };

// The platform's own message box: used only by the error routine and the two
// fatal boxes of the start. Tests replace it to read what it would show.
using FunzioneScatola =
    std::function<void(IconaScatola icona, const QString& titolo, const QString& testo)>;
void ScatolaDiSistema(IconaScatola icona, const QString& titolo, const QString& testo);
inline FunzioneScatola MostraScatolaPiattaforma = ScatolaDiSistema;

// The text the error box shows for number N at mark S with description D.
QString TestoErrore(int numero, int sezione, const QString& descrizione);

// Decides from the number and SezioneCorrente what happens and sets EsitoErrore.
void GestioneErrori(const ErroreZanto& errore);

// One numbered step of a routine with an error trap.
struct Passo {
    int16_t Sezione;
    std::function<void()> Corpo;
};

// Runs the steps in order. On a fault it calls GestioneErrori and then retries
// the step (1), goes on with the next (2) or leaves (3). Leaving during start-up
// ends the program (throws FineProgramma). Returns false when it left early.
bool EseguiPassi(std::initializer_list<Passo> passi);

// The guard of an event boundary (a key, a click, a tick of the ring, the event
// loop itself): any fault goes to the error routine with the current mark and
// never reaches Qt. The end of the program during start passes through.
// Returns false when the body failed.
bool EseguiProtetto(const std::function<void()>& corpo);
