#pragma once

#include <cmath>
#include <cstdint>

// Whole-number arithmetic as the program does it: 16-bit values are checked,
// rounding is to the nearest with halves to even.

// Throws ErroreZanto 6 "Overflow" when the value does not fit in 16 bits.
int16_t Intero16(double x);
int16_t Intero16(int64_t x);
inline int16_t Intero16(int x) {
    return Intero16(static_cast<int64_t>(x));
}

// Throws ErroreZanto 6 when the value does not fit in 32 bits.
int32_t Intero32(double x);

// Nearest whole number, halves to even.
inline long Arrotonda(double x) {
    return std::lrint(x);
}
