#pragma once

#include "base/GestioneErrori.h"
#include "support/VoceRegistrata.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// Puts every global of the program back to its starting value.
void RipristinaGlobali();
// The switch timings and the voice as the program starts with them: all off.
void RipristinaTempiEVoce();

// One test's world: a temporary data folder (XDG_DATA_HOME points at it),
// clean globals, and the platform's boxes recorded instead of shown.
class AmbienteProva {
public:
    struct Scatola {
        IconaScatola Icona;
        QString Titolo;
        QString Testo;
    };

    // With `installa`, the data folder is made by the installer.
    explicit AmbienteProva(bool installa = true);
    ~AmbienteProva();
    AmbienteProva(const AmbienteProva&) = delete;
    AmbienteProva& operator=(const AmbienteProva&) = delete;

    QString Radice() const; // RadiceDati of this test
    void ApriArchivi();     // opens the three archives as the start routine does
    void ChiudiArchivi();

    QList<Scatola> Scatole; // every platform box, in order
    // What the program would have spoken: no test reaches the system's voice.
    VoceRegistrata Parole;

private:
    QTemporaryDir cartella_;
};
