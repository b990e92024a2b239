#pragma once
// Colour-difference formulas: CIE 1976, CIE 1994, CIEDE2000, CMC l:c, CIELUV and u'v'.
//
// The first record is the reference ("standard"), the second the sample; signed differences
// are sample minus reference. CIE 1994 and CMC weight by the reference alone, so they are not
// symmetric. Nothing reports: a negative hue radicand gives NaN (CIE 1994 alone clamps it),
// a zero l or c gives an infinite or NaN term. References: [CIE015-2004], [CIE116-1995],
// [Sharma2005], [Clarke1984] (docs/references.md).

#include "color_types.h"
#include "fast_hypot.h"
#include "math_constants.h"

#include <cmath>
#include <cstdint>
#include <utility>

double delta_E_Lab_CIE1976(LabColor lab1, LabColor lab2); // √(dL² + da² + db²)
double delta_L_Lab_CIE1976(LabColor lab1, LabColor lab2); // L2 − L1
double delta_C_Lab_CIE1976(LabColor lab1, LabColor lab2); // C2 − C1
// √(da² + db² − dC²), radicand not clamped.
double delta_H_Lab_CIE1976(LabColor lab1, LabColor lab2);

// CIE 1994: textiles (kL 2, K1 0.048, K2 0.014) when the flag is set, else graphic arts
// (kL 1, K1 0.045, K2 0.015). SC = 1 + K1·C1 and SH = 1 + K2·C1 from the reference.
double delta_E_Lab_CIE1994(bool textiles, LabColor lab1, LabColor lab2);

// CIEDE2000 with kL = kC = kH = 1. Example (Sharma 2005, pair 1):
// (50, 2.6772, −79.7751) to (50, 0, −82.7485) gives 2.0425.
double delta_E_Lab_CIE2000(LabColor lab1, LabColor lab2);

// CMC l:c from CIELAB with the exact arctangent; a reference chroma below 1e-6 counts as hue 0.
double delta_E_Lab_CMC(LabColor lab1, LabColor lab2, double l, double c);

// CMC l:c from LCh records (h in radians), split into its weighted terms.
// The CMC terms from LCh records are defined below, inline, so that a caller converting with
// LCHab_from_Lab (hue.h) gets the conversion and the terms in one piece of straight code.
inline double delta_L_LCh_CMC(LChColor lch1, LChColor lch2, double l); // (L2 − L1) / (l·SL)
inline double delta_C_LCh_CMC(LChColor lch1, LChColor lch2, double c); // (C2 − C1) / (c·SC)
inline double delta_H_LCh_CMC(LChColor lch1, LChColor lch2); // dH / SH, radicand unclamped
inline double delta_E_LCh_CMC(LChColor lch1, LChColor lch2, double l, double c);

double deltaE_Luv(LuvColor luv1, LuvColor luv2); // √(dL² + du² + dv²)
double deltaE_uv(LuvColor luv1, LuvColor luv2);  // hypot(du, dv); L ignored

// --- CMC l:c from LCh records ---------------------------------------------------------------

namespace cmc_detail {

// SL = 0.511 for L1 < 16, else 0.040975 L1 / (1 + 0.01765 L1) (L1 = 16 takes the formula).
inline double SL(double L1)
{
    return L1 < 16 ? 0.511 : 0.040975 * L1 / (1 + 0.01765 * L1);
}

// SC = 0.0638 C1 / (1 + 0.0131 C1) + 0.638.
inline double SC(double C1)
{
    return 0.0638 * C1 / (1 + 0.0131 * C1) + 0.638;
}

// F = √(C1⁴ / (C1⁴ + 1900)).
inline double F(double C1)
{
    const double C1_4 = C1 * C1 * C1 * C1;
    return std::sqrt(C1_4 / (C1_4 + 1900));
}

// {n1 / d1, n2 / d2} through one vector division where the target has one: lane by lane the
// same IEEE quotients, with half the work for the divider.
inline std::pair<double, double> divide_pair(double n1, double d1, double n2, double d2)
{
    using Pair = double __attribute__((vector_size(16)));
    const Pair q = Pair{n1, n2} / Pair{d1, d2};
    return {q[0], q[1]};
}

// int32_from_double(std::floor(v)) without the library floor: truncation, one down for
// negative fractions; out of range and NaN give INT32_MIN as there.
inline int32_t floor_int32(double v)
{
    if (!(v >= -2147483648.0 && v < 2147483648.0))
        return INT32_MIN;
    const auto t = static_cast<int32_t>(v);
    return static_cast<double>(t) > v ? t - 1 : t;
}

// Whether the hue h (radians) lies in the 164°..345° band, both ends inclusive, with h in
// degrees as 180 h / π wrapped into [0, 360) (the floor through a 32-bit integer).
inline bool in_T_band(double h)
{
    // For the hues LCHab_from_Lab gives (|h| ≤ π and a little) the floor is −1 or 0, so the
    // wrapped angle is d + 360 or d, and the band is d ≥ 164 or −196 ≤ d ≤ −15. The product
    // below is within a few units in the last place of 180 h / π; away from those three edges
    // it decides the same way, without the two divisions (and without branches: which side of
    // the band a colour lies on is a coin toss).
    if (std::fabs(h) < 4) {
        const double d = h * (180.0 / kPi);
        constexpr double kMargin = 1e-9;
        if (std::fabs(d - 164) > kMargin && std::fabs(d + 15) > kMargin &&
            std::fabs(d + 196) > kMargin)
            return (d >= 164) | ((d >= -196) & (d <= -15));
    }
    const double degrees = 180.0 * h / kPi;
    const double wrapped = degrees - floor_int32(degrees / 360.0) * 360.0;
    return 164 <= wrapped && wrapped <= 345;
}

// T of the hue h (radians) with cos h and sin h at hand: 0.56 + |0.2 cos(h + 168°)| in the
// band, else 0.36 + |0.4 cos(h + 35°)|. The cosine of the wrapped angle plus 168° or 35° is the
// cosine of h plus that angle, formed from the cosine and sine of h:
// cos(h + δ) = cos h cos δ − sin h sin δ. The constants come by index, not by branch.
inline double T(double h, double cos_h, double sin_h)
{
    struct Weights {
        double base, factor, cos_delta, sin_delta;
    };
    static constexpr Weights kWeights[2] = {
        {0.36, 0.4, 0.8191520442889918, 0.573576436351046},    // δ = 35°
        {0.56, 0.2, -0.9781476007338057, 0.20791169081775931}, // δ = 168°
    };
    const Weights &w = kWeights[in_T_band(h)];
    return w.base + std::fabs(w.factor * (cos_h * w.cos_delta - sin_h * w.sin_delta));
}

// The hue term: a and b rebuilt from C and h, ΔC recomputed from them; no low-chroma guard.
// SC1 is SC(C1), passed in so that ΔE computes it once.
inline double hue_term(LChColor lch1, LChColor lch2, double SC1)
{
    const double cos1 = std::cos(lch1.h), sin1 = std::sin(lch1.h);
    const double cos2 = std::cos(lch2.h), sin2 = std::sin(lch2.h);
    const double F1 = F(lch1.C);
    const double T1 = T(lch1.h, cos1, sin1);
    const double a1 = lch1.C * cos1, b1 = lch1.C * sin1;
    const double a2 = lch2.C * cos2, b2 = lch2.C * sin2;
    const auto [C2_rebuilt, C1_rebuilt] = fast_hypot_pair(a2, b2, a1, b1);
    const double dC = C2_rebuilt - C1_rebuilt;
    const double da = a2 - a1, db = b2 - b1;
    return std::sqrt(da * da + db * db - dC * dC) / (SC1 * (T1 * F1 + 1 - F1));
}

} // namespace cmc_detail

inline double delta_L_LCh_CMC(LChColor lch1, LChColor lch2, double l)
{
    return (lch2.L - lch1.L) / (l * cmc_detail::SL(lch1.L));
}

inline double delta_C_LCh_CMC(LChColor lch1, LChColor lch2, double c)
{
    return (lch2.C - lch1.C) / (c * cmc_detail::SC(lch1.C));
}

inline double delta_H_LCh_CMC(LChColor lch1, LChColor lch2)
{
    return cmc_detail::hue_term(lch1, lch2, cmc_detail::SC(lch1.C));
}

inline double delta_E_LCh_CMC(LChColor lch1, LChColor lch2, double l, double c)
{
    // SL(L1) and SC(C1), then the lightness and chroma terms, two quotients at a time
    const double L1 = lch1.L, C1 = lch1.C;
    const auto [SL_quotient, SC_quotient] =
        cmc_detail::divide_pair(0.040975 * L1, 1 + 0.01765 * L1, 0.0638 * C1, 1 + 0.0131 * C1);
    const double SL1 = L1 < 16 ? 0.511 : SL_quotient;
    const double SC1 = SC_quotient + 0.638;
    const auto [dL, dC] = cmc_detail::divide_pair(lch2.L - L1, l * SL1, lch2.C - C1, c * SC1);
    const double dH = cmc_detail::hue_term(lch1, lch2, SC1);
    return std::sqrt(dL * dL + dC * dC + dH * dH);
}
