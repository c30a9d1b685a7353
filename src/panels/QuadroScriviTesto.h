#pragma once

#include "input/FormScansione.h"
#include "model/StatoAmbiente.h"
#include "text/TestoConCursore.h"

#include <QStringList>

#include <cstdint>

class QFrame;
class QPlainTextEdit;

// What this unit keeps while the program runs: one structure, reset whole.
// Each opening of the keyboard sets it and gives back, as it closes, what the
// keyboard below it (if any) had.
struct StatoScriviTesto {
    // The call of the keyboard: set the limit and the lines (NumeroRigheScritte and
    // RigheScritte, which the drawing screen's text shares: model/StatoAmbiente.h),
    // open it, read the lines back.
    int16_t LunghezzaMassimaTesto = 0; // above 0: longest text; 0: no limit
    bool operator==(const StatoScriviTesto&) const = default;
};
inline StatoScriviTesto DatiScriviTesto;
// The names the program reads and writes them by.
inline int16_t& LunghezzaMassimaTesto = DatiScriviTesto.LunghezzaMassimaTesto;

// The on-screen keyboard: the only way a switch user writes a text. Two sets
// of keys on one engine, the 70 letter keys (set 0) and the 12 function keys
// (set 1); one is scanned at a time and each keeps its own ring.
class QuadroScriviTesto : public FormScansione {
public:
    explicit QuadroScriviTesto(QWidget* genitore = nullptr);

    void AttivaQuadroScriviTesto();

    void AggiornaCorone() override;
    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    int CodiceDi(const QKeyEvent* evento) const override;
    void RoutineCarattere(int tastoQt, const QString& testo) override;
    void PrimaAttivazione() override;
    QString NomeParlato(int16_t indice) const override;

    // The two paint routines, one for each set.
    void DipingiTastiScriviTesto();
    void DipingiTastiFunzTesto();

    // 1 = the letter keys are scanned, 2 = the function keys.
    int16_t TastieraAttiva() const { return static_cast<int16_t>(Motore.InsiemeAttivo() + 1); }
    int16_t TastoFunzioneCorrente() const { return Motore.TastoCorrenteDi(1); }
    int16_t MaiuscoleMinuscole = 1; // 1 upper case, 2 lower case

    QMap<int16_t, TastoZanto*>& TastoScriviTesto() { return Tasti; }
    QMap<int16_t, QLabel*>& CoronaTastoScriviTesto() { return Corone; }
    QMap<int16_t, TastoZanto*>& TastoFunzTesto() { return TastiDi(1); }
    QMap<int16_t, QLabel*>& CoronaTastoFunzTesto() { return CoroneDi(1); }
    QFrame* QuadroTastiFunzioneTesto = nullptr;
    QPlainTextEdit* ImmiTesto = nullptr;
    // The two pictures of key 108: 101 in lower case, 102 in upper case.
    QMap<int16_t, QLabel*> IconaSwap;

    // The text with its "_" cursor, as the panel holds it.
    const TestoConCursore& Testo() const { return testo_; }

private:
    void ClickLettera(int16_t indice);
    void ClickFunzione(int16_t indice);
    void Riprendi();
    void Mostra();
    void MostraMaiuscole();
    bool OltreIlLimite() const;
    // Whether `aggiunta` would take the text beyond what a text may hold
    // (LimitiTesto): then the user has been told and the ring goes on.
    bool OltreIlMassimo(const QString& aggiunta);
    void Conferma();
    void ImportaTesto();
    void Chiudi();

    TestoConCursore testo_;
    // The ring stopped on line 1 by "up": a second refusal there lets it go.
    bool fermoInAlto_ = false;
};

// The caller's side: sets the limit, opens the keyboard on RigheScritte as
// they stand and returns NumeroRigheScritte. `cosa` names in the title what is
// asked for ("Nome del Disegno"); without it the title is "Scrittura Testi".
int16_t ScriviTesto(int16_t limite, const QString& cosa = {});
