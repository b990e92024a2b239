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
