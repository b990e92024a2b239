#pragma once
// The comparison the application shows: CMC (2:1) differences from a reference sample to a
// sample, stored as 32-bit floats, and the colouring rules that read those floats. Shared by
// the window and the command-line tool, so both decide the same way.

#include "color_types.h"

// CMC lightness and chroma weights of the comparison: l = 2, c = 1.
inline constexpr double kCmcLightnessWeight = 2.0;
inline constexpr double kCmcChromaWeight = 1.0;

// The five stored results. delta_H is the CMC hue term (it only decides highlighting);
// delta_H_deg is the hue angle difference in degrees, the value shown as delta H.
struct CmcDifferences {
    float delta_E = 0;
    float delta_L = 0;
    float delta_C = 0;
    float delta_H = 0;
    float delta_H_deg = 0;
};

// Both samples go through LCHab_from_Lab; the reference is always the first argument of the
// difference functions, so swapping the samples changes the values.
CmcDifferences computeCmcDifferences(LabColor reference, LabColor sample);

enum class Verdict {
    Neutral,  // delta E exactly 0: identical samples show no verdict colour, on purpose
    Match,    // tolerance ≥ |delta E| (equal counts as a match)
    Mismatch, // anything else, NaN included
};

Verdict verdictFor(float delta_E, float tolerance);

// Which component fields reach the largest magnitude of |delta_L|, |delta_C|, |delta_H|
// (a NaN term is passed over). Ties mark every field that reaches it; all zero marks none.
struct Highlight {
    bool lightness = false;
    bool chroma = false;
    bool hue = false;
};

Highlight highlightFor(const CmcDifferences &differences);

// Which named hue the sample's hue turned towards, seen from the reference: the axis of a*/b*
// (+a* red, +b* yellow, −a* green, −b* blue) that lies ahead of the middle of the turn, in its
// direction. A turn of 0 (or NaN) is None.
// Example: reference hue 30°, turn +10° (middle 35°, counter-clockwise) is Yellower; −10° is
// Redder; 80° turned +20° passes yellow (middle 90°) and is Greener.
enum class HueTurn { None, Redder, Yellower, Greener, Bluer };

HueTurn hueTurnFor(double referenceHueDegrees, double turnDegrees);
// The same from the samples, with the turn as stored (delta_H_deg).
HueTurn hueTurnFor(LabColor reference, float delta_H_deg);
