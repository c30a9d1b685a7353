#include "base/Numeri.h"

#include "base/GestioneErrori.h"

#include <limits>

namespace {
[[noreturn]] void Overflow() {
    throw ErroreZanto{6, QStringLiteral("Overflow")};
}
} // namespace

int16_t Intero16(double x) {
    if (!std::isfinite(x)) Overflow();
    const double r = std::nearbyint(x);
    if (r < std::numeric_limits<int16_t>::min() || r > std::numeric_limits<int16_t>::max())
        Overflow();
    return static_cast<int16_t>(r);
}

int16_t Intero16(int64_t x) {
    if (x < std::numeric_limits<int16_t>::min() || x > std::numeric_limits<int16_t>::max())
        Overflow();
    return static_cast<int16_t>(x);
}

int32_t Intero32(double x) {
    if (!std::isfinite(x)) Overflow();
    const double r = std::nearbyint(x);
    if (r < std::numeric_limits<int32_t>::min() || r > std::numeric_limits<int32_t>::max())
        Overflow();
    return static_cast<int32_t>(r);
}
