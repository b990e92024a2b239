#include "difference.h"

#include "fast_hypot.h"
#include "math_constants.h"

#include <cmath>

namespace {

double square(double v)
{
    return v * v;
}

double chroma(LabColor lab)
{
    return fast_hypot(lab.a, lab.b);
}

double radians_of(double degrees)
{
    return degrees / kDegreesPerRadian;
}

// CMC weights [Clarke1984]: SL, SC and F are cmc_detail's (difference.h);
//   T  = 0.56 + |0.2 cos(h1 + 168°)| for 164° ≤ h1 ≤ 345° (both ends inclusive),
//        0.36 + |0.4 cos(h1 + 35°)|  otherwise
//   SH = SC (F T + 1 − F)
// h1 in degrees, wrapped into [0, 360) with the floor passed through a 32-bit integer.
double cmc_T(double h1_degrees)
{
    const double h1 = h1_degrees - int32_from_double(std::floor(h1_degrees / 360.0)) * 360.0;
    if (164 <= h1 && h1 <= 345)
        return 0.56 + std::fabs(0.2 * std::cos(radians_of(h1 + 168)));
    return 0.36 + std::fabs(0.4 * std::cos(radians_of(h1 + 35)));
}

// 25⁷, the constant of the chroma factors in CIEDE2000.
constexpr double k25To7 = 6103515625.0;

double seventh_power(double v)
{
    return v * v * v * v * v * v * v;
}

// CIEDE2000 hue in degrees in [0, 360); atan2(0, 0) = 0 gives achromatic colours hue 0.
double hue_degrees(double b, double a_prime)
{
    const double h = std::atan2(b, a_prime) * kDegreesPerRadian;
    return h < 0 ? h + 360 : h;
}

} // namespace

// CIE 1976 [CIE015-2004, 8.2.1]: ΔE*ab = √(ΔL*² + Δa*² + Δb*²), ΔH*ab = √(ΔE² − ΔL² − ΔC²).
double delta_E_Lab_CIE1976(LabColor lab1, LabColor lab2)
{
    return std::sqrt(square(lab2.L - lab1.L) + square(lab2.a - lab1.a) + square(lab2.b - lab1.b));
}

double delta_L_Lab_CIE1976(LabColor lab1, LabColor lab2)
{
    return lab2.L - lab1.L;
}

double delta_C_Lab_CIE1976(LabColor lab1, LabColor lab2)
{
    return chroma(lab2) - chroma(lab1);
}

double delta_H_Lab_CIE1976(LabColor lab1, LabColor lab2)
{
    const double da = lab2.a - lab1.a, db = lab2.b - lab1.b;
    const double dC = chroma(lab2) - chroma(lab1);
    return std::sqrt(da * da + db * db - dC * dC);
}

// CIE 1994 [CIE116-1995]:
//   ΔE94 = √((ΔL / kL SL)² + (ΔC / kC SC)² + (ΔH / kH SH)²), SL = 1, kC = kH = 1,
//   SC = 1 + K1 C1, SH = 1 + K2 C1, ΔH² = Δa² + Δb² − ΔC² clamped at 0.
double delta_E_Lab_CIE1994(bool textiles, LabColor lab1, LabColor lab2)
{
    const double C1 = chroma(lab1), C2 = chroma(lab2);
    const double dL = lab1.L - lab2.L, dC = C1 - C2;
    const double da = lab1.a - lab2.a, db = lab1.b - lab2.b;
    const double kL = textiles ? 2.0 : 1.0;
    const double K1 = textiles ? 0.048 : 0.045;
    const double K2 = textiles ? 0.014 : 0.015;
    const double dH2 = da * da + db * db - dC * dC;
    const double dH = dH2 > 0 ? std::sqrt(dH2) : 0;
    const double SC = 1 + K1 * C1;
    const double SH = 1 + K2 * C1;
    return std::sqrt(square(dL / kL) + square(dC / SC) + square(dH / SH));
}

namespace {

// The hue part of CIEDE2000: the mean hue Hm in degrees with its cosine and sine, and the
// weighted hue difference ΔH' = 2 √(C1' C2') sin(Δh' / 2).
struct MeanHue {
    double Hm, cos_Hm, sin_Hm, dHp;
};

// From the hue angles, as the formula reads: h' = atan2(b, a') in degrees in [0, 360); the
// mean adds 360 when |h1' − h2'| > 180 and never subtracts it, so Hm may lie in (360, 450):
// the cosines of T do not mind, and only the rotation term RT sees the larger angle.
MeanHue mean_hue_from_angles(double a1p, double b1, double C1p, double a2p, double b2, double C2p)
{
    const double h1p = hue_degrees(b1, a1p), h2p = hue_degrees(b2, a2p);
    const double S = h1p + h2p;
    const double Hm = std::fabs(h1p - h2p) > 180 ? (S + 360) / 2 : S / 2;
    double dhp = h2p - h1p;
    if (std::fabs(dhp) > 180)
        dhp += h1p >= h2p ? 360 : -360;
    const double hm = radians_of(Hm);
    return {Hm, std::cos(hm), std::sin(hm),
            2 * std::sqrt(C1p * C2p) * std::sin(radians_of(dhp / 2))};
}

// The same from the two chroma vectors, with one arctangent instead of two and no sines:
// for hues less than half a turn apart (the arc between them shorter than 180°) the mean hue
// is the direction of the bisector u1 + u2 of the unit hue vectors, and, with
// P = C1' C2', cross = a1' b2 − b1 a2' = P sin Δh', dot = a1' a2' + b1 b2 = P cos Δh',
//   2 √P sin(Δh'/2) = 2 √P sin Δh' / (2 cos(Δh'/2)) = cross / √((P + dot) / 2),
// as cos(Δh'/2) = √((1 + cos Δh') / 2). Hm is then the bisector's angle in [0, 360), plus 360
// exactly when the angles' rule adds it with a sum of 360 or more: the arc crosses hue 0
// (one b negative, the other not, and the bisector on the positive a side) and the bisector
// lies in the first quadrant. Zero chroma and nearly opposite hues (within 2.6° of 180°,
// where the bisector is ill-defined and the angles' rule flips) take the angles.
bool mean_hue_from_vectors(double a1p, double b1, double C1p, double a2p, double b2, double C2p,
                           MeanHue &out)
{
    const double P = C1p * C2p;
    const double dot = a1p * a2p + b1 * b2;
    if (!(P > 0 && P + dot > 1e-3 * P))
        return false;
    // u1 + u2 scaled by P, which leaves its direction alone
    const double wa = a1p * C2p + a2p * C1p, wb = b1 * C2p + b2 * C1p;
    double Hm = std::atan2(wb, wa) * kDegreesPerRadian;
    if (Hm < 0)
        Hm += 360;
    if ((b1 < 0) != (b2 < 0) && wa > 0 && Hm < 180)
        Hm += 360;
    const double inverse_w = 1 / std::sqrt(wa * wa + wb * wb);
    out = {Hm, wa * inverse_w, wb * inverse_w, (a1p * b2 - b1 * a2p) / std::sqrt((P + dot) / 2)};
    return true;
}

} // namespace

// CIEDE2000 [Sharma2005, eqs. 1–22], the hue part as above.
double delta_E_Lab_CIE2000(LabColor lab1, LabColor lab2)
{
    // C1 and C2 serve only the chroma factor, where the last place of hypot's correction
    // does not show: the plain square root does.
    const double C1 = std::sqrt(square(lab1.a) + square(lab1.b));
    const double C2 = std::sqrt(square(lab2.a) + square(lab2.b));
    const double Cm7 = seventh_power((C1 + C2) / 2);
    const double G = 1 + 0.5 * (1 - std::sqrt(Cm7 / (Cm7 + k25To7)));
    const double a1p = lab1.a * G, a2p = lab2.a * G;
    const auto [C1p, C2p] = fast_hypot_pair(a1p, lab1.b, a2p, lab2.b);
    MeanHue hue;
    if (!mean_hue_from_vectors(a1p, lab1.b, C1p, a2p, lab2.b, C2p, hue))
        hue = mean_hue_from_angles(a1p, lab1.b, C1p, a2p, lab2.b, C2p);

    // T from the cosine and sine of Hm: the multiple angles by cos 2x = 2 cos²x − 1,
    // sin 2x = 2 sin x cos x, cos 3x = cos x (2 cos 2x − 1), sin 3x = sin x (2 cos 2x + 1),
    // cos 4x = 2 cos²2x − 1, sin 4x = 2 sin 2x cos 2x; the shifts by
    // cos(x ± δ) = cos x cos δ ∓ sin x sin δ.
    const double c1 = hue.cos_Hm, s1 = hue.sin_Hm;
    const double c2 = 2 * c1 * c1 - 1, s2 = 2 * s1 * c1;
    const double c3 = c1 * (2 * c2 - 1), s3 = s1 * (2 * c2 + 1);
    const double c4 = 2 * c2 * c2 - 1, s4 = 2 * s2 * c2;
    constexpr double cos30 = 0.8660254037844387, sin30 = 0.49999999999999994;
    constexpr double cos6 = 0.9945218953682733, sin6 = 0.10452846326765347;
    constexpr double cos63 = 0.4539904997395468, sin63 = 0.8910065241883678;
    const double T = 1 - 0.17 * (c1 * cos30 + s1 * sin30) + 0.24 * c2 +
                     0.32 * (c3 * cos6 - s3 * sin6) - 0.20 * (c4 * cos63 + s4 * sin63);

    const double Cmp = (C1p + C2p) / 2;
    const double Cmp7 = seventh_power(Cmp);
    const double RC = std::sqrt(Cmp7 / (Cmp7 + k25To7));
    // 1/25 = 0.04 and π/180 as factors: the results move in the last place at most
    const double dTheta = 30 * std::exp(-square((hue.Hm - 275) * 0.04));
    const double RT = -2 * RC * std::sin(2 * dTheta * (kPi / 180));

    const double Lm50 = (lab1.L + lab2.L) / 2 - 50;
    const double SL = 1 + 0.015 * Lm50 * Lm50 / std::sqrt(20 + Lm50 * Lm50);
    const double SC = 1 + 0.045 * Cmp;
    const double SH = 1 + 0.015 * Cmp * T;

    const double dL = (lab2.L - lab1.L) / SL;
    const double dC = (C2p - C1p) / SC;
    const double dH = hue.dHp / SH;
    return std::sqrt(dL * dL + dC * dC + dH * dH + RT * dC * dH);
}

// CMC l:c from CIELAB [Clarke1984]: √((ΔL / l SL)² + (ΔC / c SC)² + (Δa² + Δb² − ΔC²) / SH²),
// the hue radicand unclamped.
double delta_E_Lab_CMC(LabColor lab1, LabColor lab2, double l, double c)
{
    const double C1 = chroma(lab1), C2 = chroma(lab2);
    const double SL = cmc_detail::SL(lab1.L);
    const double SC = cmc_detail::SC(C1);
    const double T = C1 < 1e-6 ? cmc_T(0) : cmc_T(std::atan2(lab1.b, lab1.a) * kDegreesPerRadian);
    const double F = cmc_detail::F(C1);
    const double SH = SC * (F * T + 1 - F);
    const double dL = lab2.L - lab1.L, dC = C2 - C1;
    const double da = lab2.a - lab1.a, db = lab2.b - lab1.b;
    return std::sqrt(square(dL / (l * SL)) + square(dC / (c * SC)) +
                     (da * da + db * db - dC * dC) / (SH * SH));
}

double deltaE_Luv(LuvColor luv1, LuvColor luv2)
{
    return std::sqrt(square(luv2.L - luv1.L) + square(luv2.u - luv1.u) + square(luv2.v - luv1.v));
}

double deltaE_uv(LuvColor luv1, LuvColor luv2)
{
    return fast_hypot(luv2.u - luv1.u, luv2.v - luv1.v);
}
