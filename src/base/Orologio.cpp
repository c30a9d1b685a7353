#include "base/Orologio.h"

#include <QElapsedTimer>
#include <QTimer>

#include <map>
#include <memory>

namespace {

class OrologioReale final : public Orologio {
public:
    OrologioReale() { avvio_.start(); }

    int64_t Adesso() const override { return avvio_.elapsed(); }

    int Programma(int64_t ms, std::function<void()> azione) override {
        const int id = ++ultimo_;
        const int64_t scadenza = avvio_.nsecsElapsed() + std::max<int64_t>(0, ms) * 1000000;
        auto timer = std::make_unique<QTimer>();
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        QTimer* t = timer.get();
        QObject::connect(t, &QTimer::timeout, t,
                         [this, id, scadenza, azione = std::move(azione)]() {
                             auto it = timer_.find(id);
                             if (it == timer_.end()) return;
                             // Timers count whole milliseconds and tend to come late by one: wait
                             // for the last part on the event loop itself.
                             if (avvio_.nsecsElapsed() < scadenza) {
                                 it->second->start(0);
                                 return;
                             }
                             // The timer goes before the call: the call may schedule or cancel
                             // others.
                             std::unique_ptr<QTimer> fine = std::move(it->second);
                             timer_.erase(it);
                             fine.release()->deleteLater();
                             azione();
                         });
        t->start(static_cast<int>(std::max<int64_t>(0, ms - 1)));
        timer_.emplace(id, std::move(timer));
        return id;
    }

    void Annulla(int id) override {
        auto it = timer_.find(id);
        if (it == timer_.end()) return;
        it->second->stop();
        it->second.release()->deleteLater();
        timer_.erase(it);
    }

private:
    QElapsedTimer avvio_;
    int ultimo_ = 0;
    std::map<int, std::unique_ptr<QTimer>> timer_;
};

Orologio* attuale = nullptr;

} // namespace

Orologio& OrologioCorrente() {
    if (attuale != nullptr) return *attuale;
    static OrologioReale reale;
    return reale;
}

void ImpostaOrologio(Orologio* orologio) {
    attuale = orologio;
}
