#pragma once
// Blends between two LCh colours (CIELAB or CIELUV alike; h in radians).

#include "color_types.h"

// LCh_blend modes, by number; any value other than 0 and 1 blends along the shorter hue arc.
enum LChBlendMode : int {
    kLChBlendThroughNeutral = 0,
    kLChBlendCartesian = 1,
    kLChBlendShorterHueArc = 2,
};

// Blend of colour 1 (t = 0) towards colour 2 (t = 1); t is not clamped. L and alpha are
// always linear: L1 + (L2 − L1) t. Chroma and hue by mode:
//   1 (Cartesian): a, b of each colour, blended linearly; C = hypot(a, b), h = fast_atan2(b, a).
//   0 (through the neutral axis): S = C1 + C2; while t < C1/S chroma falls as C1 − S t on h1,
//     from t = C1/S on (that point included) it rises as C2 − (1 − t) S on h2.
//   other (shorter hue arc): copies of h1, h2 wrapped into [0, 2π), d = h2 − h1 brought into
//     (−π, π], h = h1 + d t from the unwrapped h1 (so it may leave [0, 2π));
//     C = C1 + (C2 − C1) t.
// Non-finite hues give NaN hues (no endless wrapping).
// Example: mode 2 from (50, 20, 350°) to (70, 40, 10°) at t = 0.5 gives (60, 30, 360°),
// with the hue in radians.
LChColor LCh_blend(int mode, LChColor lch1, LChColor lch2, double t);
