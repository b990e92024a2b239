// The fast paths against the formulas written out plainly over the benchmarks' random inputs:
// within 1e-12 relative, and the 32-bit CMC values the application stores identical.
#include "constant_division.h"
#include "difference.h"
#include "fast_cbrt.h"
#include "hue.h"
#include "lab_luv.h"
#include "rounded_cube.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kRelative = 1e-12;

bool agrees(double fast, double reference)
{
    if (std::isnan(fast) || std::isnan(reference))
        return std::isnan(fast) && std::isnan(reference);
    return std::fabs(fast - reference) <= kRelative * std::fabs(reference);
}

double rad(double degrees)
{
    return degrees / (180.0 / kPi);
}

// The CMC hue weight with the cosine of the wrapped angle, as the formula reads.
double referenceT(double h)
{
    const double degrees = 180.0 * h / kPi;
    const double v = std::floor(degrees / 360.0);
    const int32_t k = v >= -2147483648.0 && v < 2147483648.0 ? static_cast<int32_t>(v) : INT32_MIN;
    const double w = degrees - k * 360.0;
    if (164 <= w && w <= 345)
        return 0.56 + std::fabs(0.2 * std::cos(rad(w + 168)));
    return 0.36 + std::fabs(0.4 * std::cos(rad(w + 35)));
}

double referenceHue(LChColor c1, LChColor c2)
{
    const double C4 = c1.C * c1.C * c1.C * c1.C;
    const double F = std::sqrt(C4 / (C4 + 1900));
    const double a1 = c1.C * std::cos(c1.h), b1 = c1.C * std::sin(c1.h);
    const double a2 = c2.C * std::cos(c2.h), b2 = c2.C * std::sin(c2.h);
    const double dC = std::hypot(a2, b2) - std::hypot(a1, b1);
    const double SC = 0.0638 * c1.C / (1 + 0.0131 * c1.C) + 0.638;
    return std::sqrt((a2 - a1) * (a2 - a1) + (b2 - b1) * (b2 - b1) - dC * dC) /
           (SC * (referenceT(c1.h) * F + 1 - F));
}

double seventh(double v)
{
    return v * v * v * v * v * v * v;
}

double referenceCIE2000(LabColor l1, LabColor l2)
{
    const double Cm = (std::hypot(l1.a, l1.b) + std::hypot(l2.a, l2.b)) / 2;
    const double G = 1 + 0.5 * (1 - std::sqrt(seventh(Cm) / (seventh(Cm) + 6103515625.0)));
    const double a1 = l1.a * G, a2 = l2.a * G;
    const double C1 = std::hypot(a1, l1.b), C2 = std::hypot(a2, l2.b);
    double h1 = std::atan2(l1.b, a1) * (180 / kPi), h2 = std::atan2(l2.b, a2) * (180 / kPi);
    h1 += h1 < 0 ? 360 : 0;
    h2 += h2 < 0 ? 360 : 0;
    const double Hm = std::fabs(h1 - h2) > 180 ? (h1 + h2 + 360) / 2 : (h1 + h2) / 2;
    const double T = 1 - 0.17 * std::cos(rad(Hm - 30)) + 0.24 * std::cos(rad(2 * Hm)) +
                     0.32 * std::cos(rad(3 * Hm + 6)) - 0.20 * std::cos(rad(4 * Hm - 63));
    double dh = h2 - h1;
    if (std::fabs(dh) > 180)
        dh += h1 >= h2 ? 360 : -360;
    const double dH = 2 * std::sqrt(C1 * C2) * std::sin(rad(dh / 2));
    const double Cp = (C1 + C2) / 2;
    const double x = (Hm - 275) / 25;
    const double RT = -2 * std::sqrt(seventh(Cp) / (seventh(Cp) + 6103515625.0)) *
                      std::sin(rad(2 * (30 * std::exp(-(x * x)))));
    const double Lm = (l1.L + l2.L) / 2 - 50;
    const double dL = (l2.L - l1.L) / (1 + 0.015 * Lm * Lm / std::sqrt(20 + Lm * Lm));
    const double dC = (C2 - C1) / (1 + 0.045 * Cp), dHs = dH / (1 + 0.015 * Cp * T);
    return std::sqrt(dL * dL + dC * dC + dHs * dHs + RT * dC * dHs);
}

TEST(FastPathAgreement, DifferencesOverTheBenchmarkPairs)
{
    std::mt19937_64 rng(42); // difference_bench's pairs
    std::uniform_real_distribution<double> L(0, 100), ab(-100, 100), near(-5, 5);
    long cmc = 0, stored = 0, ciede = 0;
    for (int i = 0; i < 1'000'000; ++i) {
        const LabColor a{L(rng), ab(rng), ab(rng), 1};
        const LabColor b{a.L + near(rng), a.a + near(rng), a.b + near(rng), 1};
        const LChColor c1 = LCHab_from_Lab(a), c2 = LCHab_from_Lab(b);
        const double dH = delta_H_LCh_CMC(c1, c2), hue = referenceHue(c1, c2);
        const double dL =
            (c2.L - c1.L) / (2 * (c1.L < 16 ? 0.511 : 0.040975 * c1.L / (1 + 0.01765 * c1.L)));
        const double dC = (c2.C - c1.C) / (0.0638 * c1.C / (1 + 0.0131 * c1.C) + 0.638);
        const double dE = std::sqrt(dL * dL + dC * dC + hue * hue);
        cmc += !agrees(dH, hue) || !agrees(delta_E_LCh_CMC(c1, c2, 2, 1), dE);
        stored += static_cast<float>(dH) != static_cast<float>(hue) ||
                  static_cast<float>(delta_E_LCh_CMC(c1, c2, 2, 1)) != static_cast<float>(dE) ||
                  static_cast<float>(delta_L_LCh_CMC(c1, c2, 2)) != static_cast<float>(dL) ||
                  static_cast<float>(delta_C_LCh_CMC(c1, c2, 1)) != static_cast<float>(dC);
        ciede += !agrees(delta_E_Lab_CIE2000(a, b), referenceCIE2000(a, b));
    }
    EXPECT_EQ(cmc, 0);
    EXPECT_EQ(stored, 0);
    EXPECT_EQ(ciede, 0);
}

// conversion_bench's colours against the formulas written out with the library's cbrt, pow and
// division, bit for bit but for pow's cube; so too the cube roots, the quotients and the two
// ways of forming a cube.
TEST(FastPathAgreement, CIELABOverTheBenchmarkColours)
{
    constexpr double kEpsilon = 0.008856451679035631, kKappa = 903.2962962962963;
    constexpr double kXn = 0.9504285453771807, kZn = 1.0889003707981277;
    const auto f = [](double t) { return t > kEpsilon ? std::cbrt(t) : (kKappa * t + 16) / 116; };
    const auto f_inverse = [](double g) {
        return g * g * g > kEpsilon ? g * g * g : (116 * g - 16) / kKappa;
    };
    constexpr ConstantDivisor by116{116}, by500{500}, by200{200}, byKappa{kKappa};
    std::mt19937_64 random(20240601);
    std::uniform_real_distribution<double> unit(0, 1.1), lightness(0, 100), ab(-128, 128);
    long roots = 0, quotients = 0, cubes = 0, lab = 0, xyz = 0;
    for (int i = 0; i < (1 << 20); ++i) {
        const XYZColor c{unit(random), unit(random), unit(random), 1};
        const LabColor l{lightness(random), ab(random), ab(random), 1};
        for (const double t : {c.X / kXn, c.Y, c.Z / kZn})
            roots += fast_cbrt(t) != std::cbrt(t);
        const double fy = (l.L + 16) / 116, fx = l.a / 500 + fy;
        quotients += fma_divided(l.L + 16, by116) != fy || fma_divided(l.a, by500) != l.a / 500 ||
                     fma_divided(l.b, by200) != l.b / 200 ||
                     fma_divided(l.L, byKappa) != l.L / kKappa ||
                     fma_divided(116 * fx - 16, byKappa) != (116 * fx - 16) / kKappa;
        cubes += rounded_cube<true>(fy) != rounded_cube<false>(fy);
        const LabColor ours = Lab_from_XYZ(c);
        const double gx = f(c.X / kXn), gy = f(c.Y), gz = f(c.Z / kZn);
        lab += ours.L != 116 * gy - 16 || ours.a != 500 * (gx - gy) || ours.b != 200 * (gy - gz);
        const XYZColor back = XYZ_from_Lab(l);
        xyz += back.X != f_inverse(fx) * kXn || back.Z != f_inverse(fy - l.b / 200) * kZn ||
               !agrees(back.Y, l.L > 8 ? std::pow(fy, 3) : l.L / kKappa); // pow may misround
    }
    EXPECT_EQ(roots, 0);
    EXPECT_EQ(quotients, 0);
    EXPECT_EQ(cubes, 0);
    EXPECT_EQ(lab, 0);
    EXPECT_EQ(xyz, 0);
}

} // namespace
