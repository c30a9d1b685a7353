#include "model/Paint.h"

#include "base/Numeri.h"
#include "model/Superficie.h"

#include <algorithm>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// Scanning a row four pixels at a time where the processor allows it: the fill
// spends nearly all its time looking for the ends of runs.

// The first index in [da, fine) whose pixel is (or, with `uguale` false, is
// not) `v`; `fine` when there is none.
template <bool uguale> int CercaAvanti(const QRgb* riga, int da, int fine, QRgb v) {
    int i = da;
#if defined(__SSE2__)
    const __m128i vv = _mm_set1_epi32(static_cast<int>(v));
    for (; i + 4 <= fine; i += 4) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(riga + i));
        const int pari = _mm_movemask_ps(_mm_castsi128_ps(_mm_cmpeq_epi32(x, vv)));
        const int trovati = uguale ? pari : (~pari & 0xF);
        if (trovati != 0) return i + __builtin_ctz(static_cast<unsigned>(trovati));
    }
#endif
    for (; i < fine; ++i)
        if ((riga[i] == v) == uguale) return i;
    return fine;
}

// The last index at or below `da` whose pixel is not `v`; -1 when there is none.
int CercaIndietroDiverso(const QRgb* riga, int da, QRgb v) {
    int i = da;
#if defined(__SSE2__)
    const __m128i vv = _mm_set1_epi32(static_cast<int>(v));
    for (; i - 3 >= 0; i -= 4) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(riga + i - 3));
        const int diversi = ~_mm_movemask_ps(_mm_castsi128_ps(_mm_cmpeq_epi32(x, vv))) & 0xF;
        if (diversi != 0) return i - 3 + (31 - __builtin_clz(static_cast<unsigned>(diversi)));
    }
#endif
    for (; i >= 0; --i)
        if (riga[i] != v) return i;
    return -1;
}

// Spans instead of pixels: a whole-canvas region would be far too deep for
// recursion. Each entry is a span just filled and the row it still has to look
// at. A new span looks on in the same direction over its whole width, and back
// only where it reaches past its parent: under the parent everything is
// already filled, so no row is scanned twice over.
struct Tratto {
    int Y;        // the row to scan
    int Sinistra; // the filled span next to it, on row Y - Verso
    int Destra;
    int Verso;
};

} // namespace

bool RiempiZona(QImage& bitmap, int x, int y, QRgb daSostituire, QRgb riempimento) {
    if (bitmap.depth() != 32) return false;
    const int larghezza = bitmap.width();
    const int altezza = bitmap.height();
    if (x < 0 || y < 0 || x >= larghezza || y >= altezza) return false;
    if (bitmap.format() == QImage::Format_RGB32) {
        // Opaque pixels always carry 0xFF in the top byte.
        daSostituire |= 0xFF000000u;
        riempimento |= 0xFF000000u;
    }
    if (daSostituire == riempimento) return false;

    const qsizetype passoRiga = bitmap.bytesPerLine();
    uchar* const base = bitmap.bits();
    auto riga = [&](int r) { return reinterpret_cast<QRgb*>(base + passoRiga * r); };
    if (riga(y)[x] != daSostituire) return false;

    // Our own lists of spans (see Tratto). Entries go round by round, the spans
    // found in one round looked at in the next: depth first, a lattice of
    // one-pixel spans would leave an entry per span waiting all the way down
    // the canvas, megabytes of entries that the first span below has made useless.
    std::vector<Tratto> giro;
    std::vector<Tratto> prossimi;
    giro.reserve(256);
    prossimi.reserve(256);
    {
        QRgb* const r = riga(y);
        const int sinistra = CercaIndietroDiverso(r, x, daSostituire) + 1;
        const int destra = CercaAvanti<false>(r, x, larghezza, daSostituire) - 1;
        std::fill(r + sinistra, r + destra + 1, riempimento);
        if (TrattiRiempiti) TrattiRiempiti->push_back({y, sinistra, destra});
        giro.push_back({y + 1, sinistra, destra, 1});
        giro.push_back({y - 1, sinistra, destra, -1});
    }
    for (;;) {
        if (giro.empty()) {
            if (prossimi.empty()) break;
            giro.swap(prossimi);
        }
        const Tratto t = giro.back();
        giro.pop_back();
        if (t.Y < 0 || t.Y >= altezza) continue;
        QRgb* const r = riga(t.Y);
        int i = t.Sinistra;
        while (i <= t.Destra) {
            if (r[i] != daSostituire) {
                i = CercaAvanti<true>(r, i + 1, t.Destra + 1, daSostituire);
                if (i > t.Destra) break;
            }
            // Only a run that touches the parent's left end can reach further left.
            int sinistra = i;
            if (i == t.Sinistra && i > 0 && r[i - 1] == daSostituire)
                sinistra = CercaIndietroDiverso(r, i - 1, daSostituire) + 1;
            int destra = i;
            if (i + 1 < larghezza && r[i + 1] == daSostituire)
                destra = CercaAvanti<false>(r, i + 1, larghezza, daSostituire) - 1;
            std::fill(r + sinistra, r + destra + 1, riempimento);
            if (TrattiRiempiti) TrattiRiempiti->push_back({t.Y, sinistra, destra});
            prossimi.push_back({t.Y + t.Verso, sinistra, destra, t.Verso});
            // The parent's row ends one pixel past the parent on either side.
            if (sinistra < t.Sinistra - 1)
                prossimi.push_back({t.Y - t.Verso, sinistra, t.Sinistra - 2, -t.Verso});
            if (destra > t.Destra + 1)
                prossimi.push_back({t.Y - t.Verso, t.Destra + 2, destra, -t.Verso});
            i = destra + 2;
        }
    }
    return true;
}

void Paint::ImpostaDevice(Superficie& superficie) {
    device_ = &superficie;
    const int16_t modo = superficie.ScaleMode();
    ScaleLeft = superficie.ScaleLeft();
    ScaleTop = superficie.ScaleTop();
    const float destra = superficie.ScaleWidth() + ScaleLeft;
    const float basso = superficie.ScaleHeight() + ScaleTop;
    superficie.ImpostaScaleMode(ScalaPixel);
    const float larghezzaPixel = superficie.ScaleWidth();
    const float altezzaPixel = superficie.ScaleHeight();
    if (modo != ScalaUtente)
        superficie.ImpostaScaleMode(modo);
    else
        superficie.Scale(ScaleLeft, ScaleTop, destra, basso);
    FattoreX = larghezzaPixel / (destra - ScaleLeft);
    FattoreY = altezzaPixel / (basso - ScaleTop);
}

long Paint::PuntoX(float X) const {
    return Arrotonda((X - ScaleLeft) * FattoreX);
}

long Paint::PuntoY(float Y) const {
    return Arrotonda((Y - ScaleTop) * FattoreY);
}

void Paint::Flood(float& X, float& Y) {
    if (device_ == nullptr) return;
    QImage& strato = device_->StratoAttivo();
    const long px = PuntoX(X);
    const long py = PuntoY(Y);
    const int32_t colore = device_->Point(X, Y);
    // Outside the surface there is no colour to replace.
    if (colore == -1) return;
    // A transparent brush paints nothing.
    if (device_->FillStyle == 1) return;
    const auto rgb = [](int32_t bgr) {
        const auto v = static_cast<uint32_t>(bgr);
        return qRgb(int(v & 0xFF), int((v >> 8) & 0xFF), int((v >> 16) & 0xFF));
    };
    if (px < 0 || py < 0 || px >= strato.width() || py >= strato.height()) return;
    if (RiempiZona(strato, int(px), int(py), rgb(colore), rgb(device_->FillColor)) &&
        !device_->AutoRedraw && device_->AvvisoSchermo)
        device_->AvvisoSchermo();
}

Paint& UsaOggettoPaint() {
    if (!OggettoPaint) OggettoPaint = std::make_unique<Paint>();
    return *OggettoPaint;
}
