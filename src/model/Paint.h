#pragma once

#include <QImage>

#include <cstdint>
#include <memory>
#include <vector>

class Superficie;

// Replaces the 4-connected region of colour `daSostituire` that holds (x, y)
// with `riempimento`, on the bitmap's own scan lines. Nothing changes when the
// point lies outside, has another colour, or the two colours are the same.
// Returns whether anything was filled.
bool RiempiZona(QImage& bitmap, int x, int y, QRgb daSostituire, QRgb riempimento);

// One span of pixels a fill has just painted, row and both ends included.
struct TrattoRiempito {
    int Y;
    int Sinistra;
    int Destra;
};

// Flood fill for a surface whose coordinates are not pixels.
class Paint {
public:
    // Setting the device works out the scale and the factors from its scale.
    void ImpostaDevice(Superficie& superficie);
    Superficie* Device() const { return device_; }

    float ScaleLeft = 0;
    float ScaleTop = 0;
    float FattoreX = 0; // pixels per scale unit
    float FattoreY = 0;

    // Fills, with the surface's FillColor, the region of the colour found at
    // (X, Y), given in the surface's scale.
    void Flood(float& X, float& Y);

private:
    long PuntoX(float X) const;
    long PuntoY(float Y) const;

    Superficie* device_ = nullptr;
};

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoPaint {
    // When set, every fill adds the spans it paints here: the vector copy of a
    // drawing gives each fill exactly the pixels the canvas gave it.
    std::vector<TrattoRiempito>* TrattiRiempiti = nullptr;
    // The program's one Paint, made on first use and kept.
    std::unique_ptr<Paint> OggettoPaint;
    bool operator==(const StatoPaint&) const = default;
};
inline StatoPaint DatiPaint;
// The names the program reads and writes them by.
inline std::vector<TrattoRiempito>*& TrattiRiempiti = DatiPaint.TrattiRiempiti;
inline std::unique_ptr<Paint>& OggettoPaint = DatiPaint.OggettoPaint;
Paint& UsaOggettoPaint();
