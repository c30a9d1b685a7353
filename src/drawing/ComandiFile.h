#pragma once

#include "model/RecordAzione.h"
#include "panels/ChiediNome.h"

#include <QList>
#include <QString>

class AmbienteDisegno;

// The commands that keep, open or leave a drawing.
class ComandiFile {
public:
    explicit ComandiFile(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void NuovoDisegno();
    void LeggiDisegno();
    void SalvaDisegno();
    void ChiudiAmbiente();

private:
    // Is the name taken by another drawing of the active folder, as the user
    // reads names (case and accents do not count)?
    static bool NomeGiaUsato(const QString& nome);
    // How the save asks for the drawing's name.
    static RichiestaNome RichiestaNomeDisegno();
    void MostraNome();
    // The actions as last read or saved, and whether the canvas has moved on.
    void Registrate();
    bool Modificato() const;

    AmbienteDisegno& a_;
    QList<RecordAzione> registrate_;
};
