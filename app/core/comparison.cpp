#include "comparison.h"

#include "difference.h"
#include "hue.h"

#include "math_constants.h"

#include <cmath>

CmcDifferences computeCmcDifferences(LabColor reference, LabColor sample)
{
    const LChColor lch_1 = LCHab_from_Lab(reference);
    const LChColor lch_2 = LCHab_from_Lab(sample);
    CmcDifferences d;
    d.delta_E =
        static_cast<float>(delta_E_LCh_CMC(lch_1, lch_2, kCmcLightnessWeight, kCmcChromaWeight));
    d.delta_L = static_cast<float>(delta_L_LCh_CMC(lch_1, lch_2, kCmcLightnessWeight));
    d.delta_C = static_cast<float>(delta_C_LCh_CMC(lch_1, lch_2, kCmcChromaWeight));
    d.delta_H = static_cast<float>(delta_H_LCh_CMC(lch_1, lch_2));
    d.delta_H_deg =
        static_cast<float>(degrees_from_radians(angular_distance(lch_1.h, lch_2.h, kTwoPi)));
    return d;
}

Verdict verdictFor(float delta_E, float tolerance)
{
    if (delta_E == 0)
        return Verdict::Neutral;
    return tolerance >= std::fabs(delta_E) ? Verdict::Match : Verdict::Mismatch;
}

Highlight highlightFor(const CmcDifferences &d)
{
    const float L = std::fabs(d.delta_L), C = std::fabs(d.delta_C), H = std::fabs(d.delta_H);
    const float m = std::fmax(L, std::fmax(C, H));
    if (!(m > 0))
        return {};
    return {L == m, C == m, H == m};
}

HueTurn hueTurnFor(double referenceHueDegrees, double turnDegrees)
{
    if (!(turnDegrees != 0) || std::isnan(turnDegrees) || std::isnan(referenceHueDegrees))
        return HueTurn::None;
    const double middle = (referenceHueDegrees + turnDegrees / 2) / 90;
    // The next axis strictly ahead: an axis under the middle itself is passed already.
    const double axis = turnDegrees > 0 ? std::floor(middle) + 1 : std::ceil(middle) - 1;
    constexpr HueTurn named[] = {HueTurn::Redder, HueTurn::Yellower, HueTurn::Greener,
                                 HueTurn::Bluer};
    const long quadrant = std::lround(std::fmod(std::fmod(axis, 4) + 4, 4));
    return named[quadrant];
}

HueTurn hueTurnFor(LabColor reference, float delta_H_deg)
{
    return hueTurnFor(degrees_from_radians(LCHab_from_Lab(reference).h), double(delta_H_deg));
}
