#include "support/OrologioVirtuale.h"

#include <algorithm>

OrologioVirtuale::OrologioVirtuale() {
    ImpostaOrologio(this);
}

OrologioVirtuale::~OrologioVirtuale() {
    ImpostaOrologio(nullptr);
}

int OrologioVirtuale::Programma(int64_t ms, std::function<void()> azione) {
    const int id = ++ultimo_;
    sveglie_.push_back({id, adesso_ + std::max<int64_t>(0, ms), std::move(azione)});
    return id;
}

void OrologioVirtuale::Annulla(int id) {
    std::erase_if(sveglie_, [id](const Sveglia& s) { return s.id == id; });
}

void OrologioVirtuale::Avanza(int64_t ms) {
    const int64_t meta = adesso_ + ms;
    for (;;) {
        auto prima = std::min_element(
            sveglie_.begin(), sveglie_.end(), [](const Sveglia& a, const Sveglia& b) {
                return a.quando != b.quando ? a.quando < b.quando : a.id < b.id;
            });
        if (prima == sveglie_.end() || prima->quando > meta) break;
        adesso_ = std::max(adesso_, prima->quando);
        std::function<void()> azione = std::move(prima->azione);
        sveglie_.erase(prima);
        azione(); // may open a modal panel and advance the clock from inside it
    }
    adesso_ = std::max(adesso_, meta);
}
