#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

// The time of one run of `corpo`, in milliseconds.
template <typename F> double DurataMs(F corpo) {
    QElapsedTimer orologio;
    orologio.start();
    corpo();
    return double(orologio.nsecsElapsed()) / 1e6;
}

inline double Mediana(std::vector<double> tempi) {
    std::sort(tempi.begin(), tempi.end());
    return tempi[tempi.size() / 2];
}

// Runs `corpo` `volte` times and gives the median time of one run in milliseconds.
template <typename F> double MedianaMs(int volte, F corpo) {
    std::vector<double> tempi;
    tempi.reserve(volte);
    for (int i = 0; i < volte; ++i)
        tempi.push_back(DurataMs([&] { corpo(i); }));
    return Mediana(std::move(tempi));
}

inline void Stampa(const char* nome, double valore, const char* unita) {
    std::printf("%s: %.3f %s\n", nome, valore, unita);
}
