#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <functional>

// The print service is talked to off the screen's thread, over one connection
// that gives up after AttesaServizioStampa: a print server that does not answer
// never stops the ring. Each answer comes back on the screen's thread.

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoServizioStampa {
    // How long one exchange with the print service may take, in milliseconds.
    int AttesaServizioStampa = 15000;
    bool operator==(const StatoServizioStampa&) const = default;
};
inline StatoServizioStampa DatiServizioStampa;
// The names the program reads and writes them by.
inline int& AttesaServizioStampa = DatiServizioStampa.AttesaServizioStampa;

struct RispostaStampanti {
    bool Raggiunto = false; // the service answered
    QStringList Nomi;       // its printers, in its order
    QString Predefinita;    // the system's default printer, or empty
};

// The service's printers; `risposta` runs on the screen's thread.
void ChiediStampanti(std::function<void(const RispostaStampanti&)> risposta);

struct LavoroStampa {
    QString Stampante;    // empty: the system's default, or its first printer
    bool A3 = false;      // the paper asked for: A3 or A4, landscape
    QImage Tela;          // the canvas as it goes on paper
    QString Titolo;       // the title line printed above it
    QString TitoloLavoro; // the job's name for the service, in plain characters
};

struct EsitoStampa {
    enum Tipo { Accettata, Rifiutata, NessunaRisposta, NessunaStampante };
    Tipo Esito = NessunaRisposta;
    QString Stampante; // the printer the page went to or was meant for
    QString Motivo;    // the service's own words when it refused
};

// Makes the page for the printer's paper and printable part and hands it to the
// service; `esito` runs on the screen's thread with the service's answer.
void InviaStampa(LavoroStampa lavoro, std::function<void(const EsitoStampa&)> esito);
