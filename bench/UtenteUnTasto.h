#pragma once

#include "base/Orologio.h"
#include "input/FormScansione.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QString>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>

// The virtual clock that also tells when its next call falls, so that the
// user waits exactly until something changes on the screen, never longer.
class OrologioAttese final : public Orologio {
public:
    OrologioAttese() { ImpostaOrologio(this); }
    ~OrologioAttese() override { ImpostaOrologio(nullptr); }
    OrologioAttese(const OrologioAttese&) = delete;
    OrologioAttese& operator=(const OrologioAttese&) = delete;

    int64_t Adesso() const override { return interno_.Adesso(); }
    int Programma(int64_t ms, std::function<void()> azione) override {
        auto mio = std::make_shared<int>(0);
        const int id = interno_.Programma(ms, [this, mio, azione = std::move(azione)] {
            quando_.erase(*mio);
            azione();
        });
        *mio = id;
        quando_[id] = interno_.Adesso() + std::max<int64_t>(0, ms);
        return id;
    }
    void Annulla(int id) override {
        quando_.erase(id);
        interno_.Annulla(id);
    }
    void Avanza(int64_t ms) { interno_.Avanza(ms); }
    std::optional<int64_t> ProssimaSveglia() const {
        std::optional<int64_t> prima;
        for (const auto& [id, quando] : quando_)
            if (!prima || quando < *prima) prima = quando;
        return prima;
    }

private:
    OrologioVirtuale interno_;
    std::map<int, int64_t> quando_;
};

// What the user wants at one moment: the switch pressed when `Pronto` holds
// (the ring, or a walking shape, stands where the task needs it), or the end.
struct Bersaglio {
    bool Fine = false;
    std::function<bool()> Pronto;
    // Counted but not sent: for measuring how long a button takes to reach.
    bool SoloRaggiungi = false;
    std::function<void()> AlPremere; // just before the press goes out

    static Bersaglio Quando(std::function<bool()> pronto) {
        Bersaglio b;
        b.Pronto = std::move(pronto);
        return b;
    }
    static Bersaglio Finito() {
        Bersaglio b;
        b.Fine = true;
        return b;
    }
};

// A one-switch user: looks at the screen through `politica`, lets the clock
// run from one change of the screen to the next, and presses the choice key
// `reazione` ms after the moment it wants, if that moment still holds then;
// if it has passed, the user waits for it to come round again.
class UtenteUnTasto {
public:
    using Politica = std::function<Bersaglio()>;

    UtenteUnTasto(OrologioAttese& orologio, int64_t reazione)
        : orologio_(orologio), reazione_(reazione) {}

    int Pressioni = 0;
    int64_t Adesso() const { return orologio_.Adesso(); }

    // Runs until the policy says the end, or `limiteMs` of virtual time pass.
    // Each look is its own turn of the event loop, so the user goes on inside
    // the modal panels a press opens.
    bool Esegui(Politica politica, int64_t limiteMs) {
        politica_ = std::move(politica);
        fine_ = false;
        bloccato_.clear();
        limite_ = orologio_.Adesso() + limiteMs;
        QEventLoop ciclo;
        ciclo_ = &ciclo;
        Prossimo();
        ciclo.exec();
        ciclo_ = nullptr;
        return bloccato_.isEmpty();
    }
    QString Bloccato() const { return bloccato_; }

private:
    void Prossimo() {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [this] { Guarda(); }, Qt::QueuedConnection);
    }
    void Termina(const QString& perche) {
        fine_ = true;
        bloccato_ = perche;
        if (ciclo_ != nullptr) ciclo_->quit();
    }
    void Guarda() {
        if (fine_) return;
        const Bersaglio b = politica_();
        if (b.Fine) return Termina({});
        if (orologio_.Adesso() > limite_) return Termina(QStringLiteral("tempo scaduto"));
        if (b.Pronto && b.Pronto()) {
            if (reazione_ > 0 && !inReazione_) {
                inReazione_ = true;
                orologio_.Avanza(reazione_);
                return Prossimo();
            }
            inReazione_ = false;
            ++Pressioni;
            if (b.AlPremere) b.AlPremere();
            if (b.SoloRaggiungi) return Termina({});
            Prossimo();
            // The next look is queued first: it runs inside a panel the press opens.
            if (!PremiTasto(Qt::Key_Return)) Termina(QStringLiteral("nessun form davanti"));
            return;
        }
        inReazione_ = false;
        const std::optional<int64_t> sveglia = orologio_.ProssimaSveglia();
        if (!sveglia) {
            // Nothing on the clock yet: a panel still opening. Let its events run.
            if (++vuoti_ > 1000) return Termina(QStringLiteral("nulla si muove"));
            return Prossimo();
        }
        vuoti_ = 0;
        orologio_.Avanza(std::max<int64_t>(0, *sveglia - orologio_.Adesso()));
        Prossimo();
    }

    OrologioAttese& orologio_;
    int64_t reazione_;
    Politica politica_;
    QEventLoop* ciclo_ = nullptr;
    bool fine_ = false;
    bool inReazione_ = false;
    int vuoti_ = 0;
    int64_t limite_ = 0;
    QString bloccato_;
};
