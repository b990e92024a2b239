// Colour-difference formulas against tests/data/reference/difference.csv ([Sharma2005] Table 1,
// CMC [Clarke1984] worked outside this code base, hand calculation) and LittleCMS's CMC.
#include "difference.h"
#include "hue.h"

#include "csv_table.h"

#include <lcms2.h>

#include <random>

namespace {

constexpr double kPi = 3.141592653589793;

LabColor lab(const Values &v, std::size_t i)
{
    return {v[i], v[i + 1], v[i + 2], 1};
}

LChColor lch(const Values &v, std::size_t i)
{
    return {v[i], v[i + 1], v[i + 2], 1};
}

// The application's path: both samples through LCHab_from_Lab, CMC 2:1.
Values cmcOfLab(const Values &v)
{
    const LChColor r = LCHab_from_Lab(lab(v, 0)), s = LCHab_from_Lab(lab(v, 3));
    return {delta_L_LCh_CMC(r, s, 2), delta_C_LCh_CMC(r, s, 1), delta_H_LCh_CMC(r, s),
            delta_E_LCh_CMC(r, s, 2, 1)};
}

TEST(Difference, ReferenceValues)
{
    expectReferenceTable(
        "difference.csv",
        {
            REFERENCE_FN(delta_E_Lab_CIE1976, delta_E_Lab_CIE1976(lab(v, 0), lab(v, 3))),
            REFERENCE_FN(delta_L_Lab_CIE1976, delta_L_Lab_CIE1976(lab(v, 0), lab(v, 3))),
            REFERENCE_FN(delta_C_Lab_CIE1976, delta_C_Lab_CIE1976(lab(v, 0), lab(v, 3))),
            REFERENCE_FN(delta_H_Lab_CIE1976, delta_H_Lab_CIE1976(lab(v, 0), lab(v, 3))),
            REFERENCE_FN(delta_E_Lab_CIE1994, delta_E_Lab_CIE1994(v[0] == 1, lab(v, 1), lab(v, 4))),
            REFERENCE_FN(delta_E_Lab_CIE2000, delta_E_Lab_CIE2000(lab(v, 0), lab(v, 3))),
            REFERENCE_FN(delta_E_Lab_CMC, delta_E_Lab_CMC(lab(v, 0), lab(v, 3), v[6], v[7])),
            {"CMC_LCh_of_Lab", cmcOfLab},
            REFERENCE_FN(delta_L_LCh_CMC, delta_L_LCh_CMC(lch(v, 0), lch(v, 3), v[6])),
            REFERENCE_FN(delta_H_LCh_CMC_degrees, // hues given in degrees
                         delta_H_LCh_CMC({v[0], v[1], v[2] * kPi / 180, 1},
                                         {v[3], v[4], v[5] * kPi / 180, 1})),
            REFERENCE_FN(deltaE_Luv, deltaE_Luv({v[0], v[1], v[2], 1}, {v[3], v[4], v[5], 1})),
            REFERENCE_FN(deltaE_uv, deltaE_uv({v[0], v[1], v[2], 1}, {v[3], v[4], v[5], 1})),
        });
}

// LittleCMS's cmsCMCdeltaE implements the same equations independently, differing only at edges
// (open hue interval, ΔH² clamped, both L = 0) that random pairs away from those do not reach.
TEST(Difference, CmcAgreesWithLittleCMSOnRandomPairs)
{
    std::mt19937 rng(1984);
    std::uniform_real_distribution<double> L(1, 100), ab(-90, 90), near(-3, 3);
    for (int i = 0; i < 2000; ++i) {
        const LabColor r{L(rng), ab(rng), ab(rng), 1};
        const LabColor s{r.L + near(rng), r.a + near(rng), r.b + near(rng), 1};
        if (std::hypot(r.a, r.b) < 1)
            continue;
        cmsCIELab cr{r.L, r.a, r.b}, cs{s.L, s.a, s.b};
        SCOPED_TRACE(i);
        EXPECT_CLOSE(delta_E_Lab_CMC(r, s, 2, 1), cmsCMCdeltaE(&cr, &cs, 2, 1), 1e-9);
    }
}

} // namespace
