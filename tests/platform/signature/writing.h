#pragma once

#include "platform/signature/strokes.h"

/// A signature as a hand writes it: a curve, a short stroke with pressure, and a dot.
inline Signature aSignature() {
    Signature signature{QSize(4800, 1600), {}};
    Stroke curve;
    for (int i = 0; i <= 40; ++i)
        curve.push_back({400 + i * 90, 800 + (i * 137 % 600) - 300, EvenPressure});
    signature.strokes = {curve, {{4000, 300, 20}, {4200, 500, 255}, {4300, 900, 0}}, {{4700, 1500, EvenPressure}}};
    return signature;
}

/// As many points as a signature may have, as far apart as the largest pad allows, so that its text is the longest.
inline Signature theLargestSignature() {
    Signature signature{QSize(LargestExtent, LargestExtent), {}};
    for (int i = 0; i < MostPoints; ++i) {
        const int place = i % 2 == 0 ? LargestExtent : LargestExtent - 50000;
        signature.strokes.push_back({{place, LargestExtent - place + 10000, i % 2 == 0 ? 255 : 100}});
    }
    return signature;
}
