#pragma once

#include "input/FormScansione.h"
#include "model/Superficie.h"

#include <QString>

#include <memory>

class ComandiDisegno;
class QEventLoop;
class QLabel;
class VistaSuperficie;

// The screen on which all drawing takes place: the canvas, the row and the
// column of 33 command buttons, and the strip of labels. The commands live in
// ComandiDisegno; this form holds the layout, the opening, the title, the key
// routine and the walk of a movement.
class AmbienteDisegno : public FormScansione {
public:
    AmbienteDisegno();
    ~AmbienteDisegno() override;

    void AttivaAmbienteDisegno();

    void AggiornaCorone() override;
    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    void PrimaAttivazione() override;
    void DopoErrore() override;
    bool TastoRipetuto(int codice) const override;

    // Resume: the ring walks again in modes 1 and 2. Refuse: a beep, then resume.
    void Riprendi();
    void Rifiuta();

    // The direction panel and, in modes 1 and 2, the walk of the element.
    void ApriSceltaDirezione();
    void CicloMovimento();

    // Clears the canvas and replays the whole drawing.
    void RidisegnoCompleto();
    // A new, empty drawing without a name, as "Nuovo Disegno" and step 0 of
    // the history leave it; the name shown stays until another is written.
    void DisegnoVuoto();
    // The crosshair of a fill follows ElementoInCostruzione's point.
    void PosizionaMirino();
    void MostraColori();
    // A two-way button shows its new way at once: `nome` is a picture of the screen.
    void CambiaIcona(int16_t indice, const QString& nome);
    // The settings panel; the title is built again after it, as the active
    // folder may have changed.
    void ApriSettaggi();
    // Writes the title and MostraInfo for the button under the ring.
    void ScriviComando(const QString& suggerimento);

    Superficie Quadro; // the canvas: 14144 by 10000 twips
    VistaSuperficie* QuadroDisegno = nullptr;
    QLabel* CorniceDx = nullptr;
    QLabel* DivisorePrimitive = nullptr;
    QLabel* MostraColoreLinea[2] = {nullptr, nullptr};
    QLabel* MostraColoreZona[2] = {nullptr, nullptr};
    QLabel* ScrittaNomeDisegno = nullptr;
    QLabel* MostraInfo = nullptr;
    QLabel* IconaMirino = nullptr;
    // Hidden: it loads a picture and takes its natural size, which is how a
    // command learns that size.
    QLabel* QuadroImmagine = nullptr;
    // The centre of the canvas in pixels, from the form's client corner.
    int16_t CentroSchermoX = 0;
    int16_t CentroSchermoY = 0;
    QString TitoloAmbiente;

    std::unique_ptr<ComandiDisegno> Comandi;

private:
    void CostruisciControlli();
    void ComponiTitolo(const QString& inizio);
    void AttendiPasso();
    void FermaCammino();

    QEventLoop* attesaMovimento_ = nullptr;
};

// The one drawing screen of the program, while it is open.
AmbienteDisegno* AmbienteDisegnoAperto();
// Loads a new screen, prepares it and shows it.
AmbienteDisegno* CaricaAmbienteDisegno();
// Back to the main menu; the screen is unloaded once its own events allow.
void ChiudiAmbienteDisegno();
// What shows the main menu again: the menu, a layer above, registers it.
inline void (*RitornoAlMenu)() = nullptr;
// At the very end, outside any event of its own.
void DistruggiAmbienteDisegno();

// The tooltip of each of the 33 buttons, by its command (CodiciComando.h).
QString SuggerimentoTastoDisegno(int16_t indice);
