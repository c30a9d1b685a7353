#pragma once

#include "input/MotoreScansione.h"
#include "input/TastoZanto.h"

#include <QDialog>
#include <QLabel>
#include <QMap>

#include <functional>
#include <limits>
#include <optional>

// The colours of the rings: green where the ring stands, blue on the marked
// button, magenta when the ring stands on the marked button, red on an edit
// command at work.
namespace ColoriCorona {
constexpr uint32_t Verde = 0x00FF00;
constexpr uint32_t Blu = 0x0000FF;
constexpr uint32_t Magenta = 0xFF00FF;
constexpr uint32_t Rosso = 0xFF0000;
constexpr uint32_t Giallo = 0xFFFF00; // the green ring's colour in high contrast
} // namespace ColoriCorona

// What every scanning screen has in common: the engine, FocusFix, the key
// filter, the buttons with their rings built from a table in twips, and the
// first activation. Qt's own keyboard habits (Escape closes, Enter fires the
// default button, buttons take the focus) are switched off here.
// The drawing screen tells its user what the ring stands on, also while one of
// its panels is open: it sets this, and the panels that work on it call it.
inline std::function<void(const QString& suggerimento)> AvvisoComandoAmbiente;

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoFormScansione {
    // When the last choice was made, on the program's clock: presses that follow
    // it within TempoIgnoraDopoScelta come from a tremor, not from the user's will.
    int64_t IstanteUltimaScelta = std::numeric_limits<int64_t>::min() / 2;
    bool operator==(const StatoFormScansione&) const = default;
};
inline StatoFormScansione DatiFormScansione;
// The names the program reads and writes them by.
inline int64_t& IstanteUltimaScelta = DatiFormScansione.IstanteUltimaScelta;

// Set while a long job lets waiting events run: no key or click may then start
// a routine of a screen again; the keys go to the job's own form, here.
inline std::function<void(QKeyEvent*)> TastiDelLavoro;

class FormScansione : public QDialog {
public:
    struct DefinizioneTasto {
        int16_t Indice;
        int Sinistra, Alto, Larghezza, Altezza; // twips
        QString Didascalia;
        QString Suggerimento;
    };

    FormScansione(int16_t primo, int16_t ultimo, QWidget* genitore = nullptr);
    ~FormScansione() override;

    MotoreScansione Motore;
    QWidget* FocusFix = nullptr;
    QMap<int16_t, TastoZanto*> Tasti;
    QMap<int16_t, QLabel*> Corone;
    int16_t TastoMarcato = 0; // 0: no marked button
    // Does this screen report its ring through AvvisoComandoAmbiente?
    bool InformaAmbiente = false;
    // True while a key routine runs: a choice by the switch, not by the mouse.
    bool SceltaDaTasto = false;

    // The front scanning form: the one that gets the keys.
    static FormScansione* InPrimoPiano();

    // Rings stand `margine` twips outside their buttons. A form with more than
    // one set of keys makes each set with its number; set 0 is Tasti and Corone.
    void CreaTasti(const QList<DefinizioneTasto>& tabella, int margine, int insieme = 0);
    QMap<int16_t, TastoZanto*>& TastiDi(int insieme);
    QMap<int16_t, QLabel*>& CoroneDi(int insieme);
    // The buttons and rings of the live set.
    QMap<int16_t, TastoZanto*>& TastiAttivi() { return TastiDi(Motore.InsiemeAttivo()); }
    QMap<int16_t, QLabel*>& CoroneAttive() { return CoroneDi(Motore.InsiemeAttivo()); }
    // Makes another set live: the old set's ring goes, and no key of it keeps
    // the default flag.
    void AttivaInsieme(int insieme);
    void ImpostaColoreCorona(int16_t indice, uint32_t rgb);
    // While a screen stands above this one, its ring is not shown here (the mark
    // stays); it comes back, and the screen names its button again, when the
    // screen above has gone.
    void CopriAnello();
    void ScopriAnello();
    // Like a form's default button, the flag stands on one button at most.
    void ImpostaPredefinito(int16_t indice);

    // The redraw of the common pattern; screens may replace it.
    virtual void AggiornaCorone();
    // The click routine of the button array.
    virtual void ClickTasto(int16_t indice) = 0;
    // The key-down routine; by default the common one of the engine.
    virtual void RoutineTastoGiu(int codice, int modificatori);
    // The code of a key for the key-down routine, 0 for a key it never sees;
    // by default the keys of the common pattern.
    virtual int CodiceDi(const QKeyEvent* evento) const;
    // The key-press routine, after the key-down one: the character a key
    // types. By default it is swallowed, so that no key reaches a control.
    virtual void RoutineCarattere(int tastoQt, const QString& testo);
    // First activation: focus on FocusFix and, in modes 1 and 2, the ring starts.
    virtual void PrimaAttivazione();
    // Does a held key's auto-repeat reach the key routine? By default never.
    virtual bool TastoRipetuto(int codice) const;
    // Does this screen set the default flag in mode 3 as well as in mode 4?
    virtual bool PredefinitoInModo3() const { return true; }
    // What the voice says when the ring arrives on `indice`: the caption, or the
    // tooltip where there is none, or the accessible name.
    virtual QString NomeParlato(int16_t indice) const;
    // Tells where the ring stands, when this screen is in front and the ring has
    // moved since it was last told: to assistive technology as the focused item,
    // and aloud if spoken scanning is on.
    void AnnunciaAnello();
    // Is `oggetto` one of this screen's rings?
    bool EAnello(const QObject* oggetto) const;

    // A screen whose keys rest on a control of its own (the drawing canvas)
    // gives it here in place of the invisible FocusFix.
    void UsaComeFocus(QWidget* controllo);

    // Runs a key or click routine inside the guard: a fault reaches the error
    // routine, and the screen then goes on as after a command (DopoErrore).
    void Protetto(const std::function<void()>& corpo);
    // What the screen does after a fault in its routines: by default, in modes
    // 1 and 2 the ring walks again, so that nobody is left with a still ring.
    virtual void DopoErrore();

    // Places this panel at a point given in twips from the client corner of
    // the screen it opens above, wherever on the display that screen stands.
    void PosizionaSopra(int sinistraTwips, int altoTwips);
    // Where this form's outer corner stands, in twips from the same corner that
    // PosizionaSopra measures from for a panel opened above this form.
    QPoint PostoInTwips() const;

    // Makes the first activation happen now if it has not yet (the platform may
    // never report one without a window manager).
    void Attiva();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void hideEvent(QHideEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void reject() override;

private:
    struct TastoInAttesa {
        int Codice;
        int Modificatori;
        int TastoQt;
        QString Testo;
        int Sveglia;
    };

    bool GestisciTasto(QKeyEvent* evento);
    bool RilascioTasto(QKeyEvent* evento);
    void EseguiTasto(int codice, int modificatori, int tastoQt, const QString& testo);
    void Accetta();
    void AnnullaTastoInAttesa();
    void Filtra(QObject* radice);

    std::optional<TastoInAttesa> inAttesa_;
    bool anelloCoperto_ = false;

    QMap<int, QMap<int16_t, TastoZanto*>> tastiAltri_;
    QMap<int, QMap<int16_t, QLabel*>> coroneAltre_;
};
