#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

// Runs `corpo` `volte` times and gives the median time of one run in milliseconds.
template <typename F> double MedianaMs(int volte, F corpo) {
    std::vector<double> tempi;
    tempi.reserve(volte);
    for (int i = 0; i < volte; ++i) {
        QElapsedTimer orologio;
        orologio.start();
        corpo(i);
        tempi.push_back(double(orologio.nsecsElapsed()) / 1e6);
    }
    std::sort(tempi.begin(), tempi.end());
    return tempi[tempi.size() / 2];
}

inline void Stampa(const char* nome, double valore, const char* unita) {
    std::printf("%s: %.3f %s\n", nome, valore, unita);
}
