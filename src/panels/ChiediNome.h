#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>

// The name a save asks for on the keyboard, shared by the save of a drawing
// and the save of an object: the keyboard, the cleaning of the name, the
// check, the overwrite question.

// What the check of a typed name says of it.
enum class GiudizioNome {
    Libero,    // taken as it is
    Esistente, // a save would overwrite what it names: the user is asked
    Occupato,  // another's, not to be overwritten: refused, the keyboard again
    Fallito,   // the check itself failed and the error routine has spoken
};

struct RichiestaNome {
    int16_t Limite = 0;
    QString Cosa; // in the keyboard's title
    // The mark set before each opening of the keyboard.
    int16_t Sezione = 0;
    // The name the keyboard opens on the first time; none, an empty keyboard.
    std::optional<QString> Proposto;
    std::function<GiudizioNome(const QString& nome)> Giudica;
    // The lines of the overwrite question (OK / Annulla) and of the refusal.
    QStringList DomandaSovrascrittura;
    QStringList RifiutoOccupato;
    // Annulla on the question: back to the keyboard on the same name, or the
    // save left.
    bool AnnullaRiapreTastiera = false;
};

enum class EsitoNome {
    Lasciato, // the keyboard closed without a name, or the overwrite refused
    Fallito,  // the check failed
    Nuovo,
    Sovrascrivi,
};

struct NomeChiesto {
    EsitoNome Esito = EsitoNome::Lasciato;
    QString Nome;
};

// Asks until a name is given and judged. An empty name sounds a refusal and
// opens an empty keyboard again.
NomeChiesto ChiediNome(const RichiestaNome& richiesta);
