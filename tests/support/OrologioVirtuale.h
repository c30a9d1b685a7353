#pragma once

#include "base/Orologio.h"

#include <vector>

// A clock that stands still until a test advances it. Advancing calls every
// due action in order of time, setting the time to each one's moment first.
class OrologioVirtuale final : public Orologio {
public:
    OrologioVirtuale();
    ~OrologioVirtuale() override;

    int64_t Adesso() const override { return adesso_; }
    int Programma(int64_t ms, std::function<void()> azione) override;
    void Annulla(int id) override;

    void Avanza(int64_t ms);
    int InAttesa() const { return static_cast<int>(sveglie_.size()); }

private:
    struct Sveglia {
        int id;
        int64_t quando;
        std::function<void()> azione;
    };
    int64_t adesso_ = 0;
    int ultimo_ = 0;
    std::vector<Sveglia> sveglie_;
};
