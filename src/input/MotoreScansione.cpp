#include "input/MotoreScansione.h"

#include "archive/RigaConfigurazione.h"
#include "base/GestioneErrori.h"
#include "base/Orologio.h"
#include "input/Voce.h"

#include <QKeyEvent>

#include <algorithm>
#include <set>

namespace {
std::set<MotoreScansione*>& Motori() {
    static std::set<MotoreScansione*> motori;
    return motori;
}
} // namespace

int CodiceTasto(const QKeyEvent* e) {
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return CodiciTasto::Invio;
    case Qt::Key_Space:
        return CodiciTasto::Spazio;
    case Qt::Key_Left:
        return CodiciTasto::Sinistra;
    case Qt::Key_Up:
        return CodiciTasto::Su;
    case Qt::Key_Right:
        return CodiciTasto::Destra;
    case Qt::Key_Down:
        return CodiciTasto::Giu;
    default:
        break;
    }
    if (e->key() >= Qt::Key_F1 && e->key() <= Qt::Key_F12) return 112 + (e->key() - Qt::Key_F1);
    return 0;
}

int MaschereModificatori(const QKeyEvent* e) {
    int m = 0;
    if (e->modifiers() & Qt::ShiftModifier) m |= 1;
    if (e->modifiers() & Qt::ControlModifier) m |= 2;
    if (e->modifiers() & Qt::AltModifier) m |= 4;
    return m;
}

MotoreScansione::MotoreScansione(int16_t primo, int16_t ultimo) : Primo(primo), Ultimo(ultimo) {
    PassoCiclo = [this](int16_t passo) {
        TastoCorrente = static_cast<int16_t>(TastoCorrente + passo);
        if (passo < 0 && TastoCorrente < Primo)
            TastoCorrente = Ultimo;
        else if (TastoCorrente > Ultimo)
            TastoCorrente = Primo;
    };
    Avanti = [this] {
        TastoCorrente = static_cast<int16_t>(TastoCorrente + 1);
        if (TastoCorrente > Ultimo) TastoCorrente = Primo;
    };
    Indietro = [this] {
        TastoCorrente = static_cast<int16_t>(TastoCorrente - 1);
        if (TastoCorrente < Primo) TastoCorrente = Ultimo;
    };
    PassiPerGiro = [this] { return Ultimo - Primo + 1; };
    insiemi_.push_back({primo, ultimo, 0, 0});
    Motori().insert(this);
    AvvisaLatenzaCambiata = &MotoreScansione::LatenzaCambiata;
}

MotoreScansione::~MotoreScansione() {
    if (sveglia_ != 0) OrologioCorrente().Annulla(sveglia_);
    Motori().erase(this);
}

int MotoreScansione::AggiungiInsieme(int16_t primo, int16_t ultimo, int16_t colonne,
                                     int16_t corrente) {
    insiemi_.push_back({primo, ultimo, colonne, corrente});
    return static_cast<int>(insiemi_.size()) - 1;
}

void MotoreScansione::AttivaInsieme(int insieme) {
    if (insieme < 0 || insieme >= NumeroInsiemi() || insieme == attivo_) return;
    insiemi_[attivo_] = {Primo, Ultimo, Colonne, TastoCorrente};
    attivo_ = insieme;
    const Insieme& nuovo = insiemi_[attivo_];
    Primo = nuovo.Primo;
    Ultimo = nuovo.Ultimo;
    Colonne = nuovo.Colonne;
    TastoCorrente = nuovo.TastoCorrente;
}

int16_t MotoreScansione::TastoCorrenteDi(int insieme) const {
    if (insieme == attivo_) return TastoCorrente;
    if (insieme < 0 || insieme >= NumeroInsiemi()) return 0;
    return insiemi_[insieme].TastoCorrente;
}

void MotoreScansione::Sospendi() {
    if (sospeso_) return;
    sospeso_ = true;
    trattenuto_ = false;
    if (sveglia_ != 0) {
        OrologioCorrente().Annulla(sveglia_);
        sveglia_ = 0;
    }
}

void MotoreScansione::RiprendiDopoPannello() {
    if (!sospeso_) return;
    sospeso_ = false;
    if (ScansioneAttiva != 1 || sveglia_ != 0 || riposo_) return;
    passiSenzaTasti_ = 0;
    if (AggiornaCorone) AggiornaCorone();
    Attendi(PrimaAttesa);
}

void MotoreScansione::Trattieni() {
    if (trattenuto_) return;
    trattenuto_ = true;
    inizioTrattenuta_ = OrologioCorrente().Adesso();
    attesaInterrotta_ = sveglia_ != 0;
    if (sveglia_ != 0) {
        OrologioCorrente().Annulla(sveglia_);
        sveglia_ = 0;
    }
}

void MotoreScansione::Lascia() {
    if (!trattenuto_) return;
    trattenuto_ = false;
    if (!attesaInterrotta_ || ScansioneAttiva != 1 || sospeso_ || sveglia_ != 0) return;
    // The time held does not count on the dwell.
    inizioAttesa_ += OrologioCorrente().Adesso() - inizioTrattenuta_;
    Programma(std::max<int64_t>(0, Durata() - (OrologioCorrente().Adesso() - inizioAttesa_)));
}

bool MotoreScansione::TastoDiScelta(int codice) {
    return (codice == CodiciTasto::Spazio && TastoScelta == 2) ||
           (codice == CodiciTasto::Invio && TastoScelta == 1);
}

bool MotoreScansione::TastoDiScansione(int codice) {
    return (codice == CodiciTasto::Spazio && TastoScansione == 2) ||
           (codice == CodiciTasto::Invio && TastoScansione == 1);
}

void MotoreScansione::AvviaScansione() {
    AvviaScansioneConSosta(PrimaAttesa);
}

void MotoreScansione::AvviaScansioneConSosta(int dwell) {
    if (VersoInversione == 0) {
        VersoInversione = 1;
        PassoScansione = 1;
    }
    ScansioneAttiva = 1;
    riposo_ = false;
    trattenuto_ = false;
    passiSenzaTasti_ = 0;
    // A restart while the ring walks begins a new dwell, as a nested loop would.
    if (sveglia_ != 0) {
        OrologioCorrente().Annulla(sveglia_);
        sveglia_ = 0;
    }
    if (AggiornaCorone) AggiornaCorone();
    // Under a panel the ring waits for the panel to go.
    if (!sospeso_) Attendi(std::max<int>(PrimaAttesa, dwell));
}

void MotoreScansione::FermaScansione() {
    ScansioneAttiva = 0;
    riposo_ = false;
    trattenuto_ = false;
    if (sveglia_ != 0) {
        OrologioCorrente().Annulla(sveglia_);
        sveglia_ = 0;
    }
}

void MotoreScansione::Attendi(int fattore) {
    inizioAttesa_ = OrologioCorrente().Adesso();
    fattore_ = std::clamp(fattore, 1, 3);
    inizioVoce_ = -1;
    Programma(Durata());
}

int64_t MotoreScansione::Durata() const {
    return int64_t(TempoLatenzaScansione) * fattore_;
}

void MotoreScansione::Programma(int64_t ms) {
    sveglia_ = OrologioCorrente().Programma(ms, [this] { Scatto(); });
}

void MotoreScansione::Scatto() {
    sveglia_ = 0;
    if (ScansioneAttiva != 1) return;
    const int64_t adesso = OrologioCorrente().Adesso();
    // The setting is read afresh: a change counts on the dwell in progress.
    const int64_t passato = adesso - inizioAttesa_;
    if (passato < Durata()) {
        Programma(Durata() - passato);
        return;
    }
    // The ring may wait for the name to be spoken out, never for ever.
    if (AttendiVoce == 1 && ScansioneParlata == 1 && VoceCorrente().StaParlando()) {
        if (inizioVoce_ < 0) inizioVoce_ = adesso;
        if (adesso - inizioVoce_ < LimiteAttesaVoce) {
            Programma(LimiteAttesaVoce - (adesso - inizioVoce_));
            return;
        }
    }
    if (Stanco()) {
        riposo_ = true;
        return;
    }
    // A tick comes from the event loop: a fault ends in the error routine, and
    // the ring goes on walking all the same.
    EseguiProtetto([this] {
        PassoCiclo(PassoScansione);
        if (ScansioneAttiva != 1) return;
        if (AggiornaCorone) AggiornaCorone();
    });
    if (ScansioneAttiva != 1 || sveglia_ != 0) return;
    Attendi(1);
}

bool MotoreScansione::Stanco() {
    // A ring held still by a pause of mode 2 walks no round.
    if (PassoScansione != 0) ++passiSenzaTasti_;
    if (GiriPrimaDelRiposo <= 0) return false;
    const int giro = std::max(1, PassiPerGiro ? PassiPerGiro() : 1);
    return passiSenzaTasti_ > GiriPrimaDelRiposo * giro;
}

void MotoreScansione::LatenzaCambiata() {
    for (MotoreScansione* m : Motori()) {
        if (m->sveglia_ == 0 || m->inizioVoce_ >= 0) continue;
        OrologioCorrente().Annulla(m->sveglia_);
        const int64_t passato = OrologioCorrente().Adesso() - m->inizioAttesa_;
        m->Programma(std::max<int64_t>(0, m->Durata() - passato));
    }
}

void MotoreScansione::VoceFinita() {
    for (MotoreScansione* m : Motori()) {
        if (m->sveglia_ == 0 || m->inizioVoce_ < 0) continue;
        OrologioCorrente().Annulla(m->sveglia_);
        m->Programma(0);
    }
}

void MotoreScansione::Inverti() {
    if (TipoInversioneScansione == 1) {
        PassoScansione = PassoScansione == 1 ? -1 : 1;
        return;
    }
    if (TipoInversioneScansione != 2) return;
    if (VersoInversione == 1)
        ++PassoScansione;
    else if (VersoInversione == 2)
        --PassoScansione;
    if (PassoScansione < -1) {
        PassoScansione = 0;
        VersoInversione = 1;
    } else if (PassoScansione > 1) {
        PassoScansione = 0;
        VersoInversione = 2;
    }
}

MotoreScansione::Esito MotoreScansione::RoutineTasti(int codice, int modificatori) {
    ShiftPremuto = (modificatori & 1) ? -1 : 0;
    CtrlPremuto = (modificatori & 2) ? -1 : 0;
    AltPremuto = (modificatori & 4) ? -1 : 0;
    const int16_t modo = ModalitàFunzionamento;
    const bool scelta = TastoDiScelta(codice);
    const bool scansione = TastoDiScansione(codice);
    passiSenzaTasti_ = 0;
    // A resting ring is only woken: nobody was watching where it stood.
    if (riposo_ && (modo == 1 || modo == 2) && (scelta || scansione)) {
        AvviaScansione();
        return Esito::Risveglio;
    }
    if ((modo == 1 || modo == 2) && scelta) {
        FermaScansione();
        if (Click) Click(TastoCorrente);
        return Esito::Scelta;
    }
    if (modo == 2 && scansione) {
        Inverti();
        return Esito::Inversione;
    }
    if (modo == 3 && scelta) {
        if (Click) Click(TastoCorrente);
        return Esito::Scelta;
    }
    if (modo == 3 && scansione) {
        Avanti();
        if (AggiornaCorone) AggiornaCorone();
        return Esito::Passo;
    }
    if (modo == 4 && Colonne > 0 && PassoGriglia(codice)) {
        if (AggiornaCorone) AggiornaCorone();
        return Esito::Passo;
    }
    if (modo == 4) {
        if (codice == CodiciTasto::Destra || codice == CodiciTasto::Giu) {
            Avanti();
            if (AggiornaCorone) AggiornaCorone();
            return Esito::Passo;
        }
        if (codice == CodiciTasto::Sinistra || codice == CodiciTasto::Su) {
            Indietro();
            if (AggiornaCorone) AggiornaCorone();
            return Esito::Passo;
        }
    }
    return Esito::Ignorato;
}

bool MotoreScansione::PassoGriglia(int codice) {
    const int tutti = Ultimo - Primo + 1;
    const int posto = TastoCorrente - Primo;
    const int inizioRiga = posto - posto % Colonne;
    const int fineRiga = std::min(inizioRiga + Colonne, tutti) - 1;
    int nuovo = posto;
    switch (codice) {
    case CodiciTasto::Destra:
        nuovo = posto == fineRiga ? inizioRiga : posto + 1;
        break;
    case CodiciTasto::Sinistra:
        nuovo = posto == inizioRiga ? fineRiga : posto - 1;
        break;
    case CodiciTasto::Giu:
        nuovo = posto + Colonne;
        if (nuovo >= tutti) nuovo = nuovo - tutti;
        break;
    case CodiciTasto::Su:
        nuovo = posto - Colonne;
        if (nuovo < 0) nuovo = nuovo + tutti;
        break;
    default:
        return false;
    }
    TastoCorrente = static_cast<int16_t>(Primo + nuovo);
    return true;
}

bool MotoreScansione::TastoDiretto(int codice) {
    using namespace CodiciTasto;
    if (codice != F4 && codice != F5 && codice != F6 && codice != F7 && codice != F8 &&
        codice != F9 && codice != F11 && codice != F12)
        return false;
    if (codice == F6) {
        // Mode 1 has no key to turn the ring: whatever a pause or an inversion
        // of mode 2 left, it walks forward again.
        ModalitàFunzionamento = 1;
        PassoScansione = 1;
        VersoInversione = 1;
    }
    if (codice == F7) ModalitàFunzionamento = 2;
    if (codice == F11) ModalitàFunzionamento = 3;
    if (codice == F12) ModalitàFunzionamento = 4;
    if (ModalitàFunzionamento == 2 || ModalitàFunzionamento == 3) {
        if (codice == F4) {
            TastoScelta = 1;
            TastoScansione = 2;
        } else if (codice == F5) {
            TastoScelta = 2;
            TastoScansione = 1;
        }
    }
    if (ModalitàFunzionamento == 2) {
        if (codice == F8) TipoInversioneScansione = 1;
        if (codice == F9) TipoInversioneScansione = 2;
    }
    EseguiPassi({{2450, [] { RegistraConfigurazione(); }}});
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2)
        AvviaScansione();
    else
        FermaScansione();
    return true;
}
