// Every colour function over the degenerate inputs {−1, 0, 1, ±inf, NaN}: each must end and give
// the NaN, infinity or in-range results the behaviour calls for, never crash or hang.
#include "adaptation.h"
#include "chromaticity.h"
#include "difference.h"
#include "hsb_hsl_hcl.h"
#include "hue.h"
#include "lab_colorspaces.h"
#include "lab_luv.h"
#include "lch_blend.h"
#include "lch_rgb.h"
#include "matrix3x3.h"
#include "rgb_colorspaces.h"
#include "rgb_encoding.h"
#include "rgb_transfer.h"

#include "tolerance.h"

#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr std::array<double, 6> kDegenerateValues = {
    -1, 0, 1, kInf, -kInf, std::numeric_limits<double>::quiet_NaN()};

// Calls f with every combination of N degenerate values (6^N calls).
template <std::size_t N, typename F> void forEachDegenerate(F f)
{
    std::array<double, N> v{};
    std::size_t total = 1;
    for (std::size_t i = 0; i < N; ++i)
        total *= 6;
    for (std::size_t k = 0; k < total; ++k) {
        for (std::size_t i = 0, rest = k; i < N; ++i, rest /= 6)
            v[i] = kDegenerateValues[rest % 6];
        f(v);
    }
}

bool inUnitRange(double c)
{
    return c >= 0 && c <= 1;
}

TEST(DegenerateInputs, EveryFunctionEnds)
{
    const LabColor good{50, 10, 10, 1};
    forEachDegenerate<4>([&](const std::array<double, 4> &d) {
        const RGBColor rgb{d[0], d[1], d[2], d[3]};
        const LabColor lab{d[0], d[1], d[2], 1};
        const bool anyNaN = std::isnan(d[0]) || std::isnan(d[1]) || std::isnan(d[2]);
        // Differences: a non-finite sample gives a non-finite delta E.
        if (!std::isfinite(d[0]) && !std::isfinite(d[1]) && !std::isfinite(d[2])) {
            EXPECT_FALSE(std::isfinite(delta_E_Lab_CIE2000(good, lab)));
            EXPECT_FALSE(std::isfinite(delta_E_Lab_CMC(good, lab, 2, 1)));
            EXPECT_FALSE(
                std::isfinite(delta_E_LCh_CMC(LCHab_from_Lab(good), LCHab_from_Lab(lab), 2, 1)));
        }
        (void)delta_E_Lab_CIE1994(true, lab, good);
        // Gamut handling: clamps stay in range; a NaN channel may hide the others from scaling.
        RGBColor black = rgb, gamut = rgb, scaled = rgb, other = rgb;
        rgb_clamp_to_black(&black);
        rgb_clamp_to_gamut(&gamut);
        rgb_scale_to_gamut(&scaled);
        for (double c : {black.r, black.g, black.b, gamut.r, gamut.g, gamut.b, gamut.alpha})
            EXPECT_TRUE(std::isnan(c) || inUnitRange(c));
        for (double c : {scaled.r, scaled.g, scaled.b})
            EXPECT_TRUE(anyNaN || std::isnan(c) || inUnitRange(c));
        for (void (*f)(RGBColor *) : {rgb_saturate, rgb_premultiply_alpha, rgb_unpremultiply_alpha,
                                      rgb_sRGB_to_linear, rgb_linear_to_Rec709})
            f(&other);
        rgb_display_gamma_to_linear(&other, d[3]);
        (void)rgb_char_from_rgb_float(rgb);
        // Models copy alpha whatever the channels.
        EXPECT_EQ(hsb_from_rgb({d[0], d[1], d[2], 0.5}).alpha, 0.5);
        EXPECT_EQ(rgb_from_hsl({d[0], d[1], d[2], 0.5}).alpha, 0.5);
        EXPECT_EQ(rgb_from_hcl({d[0], d[1], 0, d[2], 0.5}).alpha, 0.5);
        for (int mode : {0, 1, 2}) {
            (void)hcl_blend(mode, {d[0], d[1], 0, d[2], 1}, {d[2], d[0], 0, d[1], 0}, d[3]);
            const LChColor c = LCh_blend(mode, {50, 10, d[0], 1}, {50, d[0], d[1], 1}, d[3]);
            if (mode == 2 && !std::isfinite(d[0])) {
                EXPECT_TRUE(std::isnan(c.h));
            }
        }
        // Conversions and the colour-managed swatch colour.
        (void)Lab_from_XYZ(XYZ_from_Lab(lab));
        (void)XYZ_from_Luv_Bruce(Luv_from_LSHuv(LSHuv_from_Luv({d[0], d[1], d[2], 1})));
        double m[9] = {d[0], 0, 0, 0, d[1], 0, 0, 0, d[2]}, inverse[9];
        (void)invert_3x3_matrix(inverse, m);
        (void)rgb_from_LCHuv_using_matrix(m, LChab_from_rgb_using_matrix(m, rgb));
        const XYZTriple odd = {d[0], d[1], d[2]}, D50 = {0.9642, 1, 0.8249};
        XYZTriple out{};
        EXPECT_EQ(adapt_XYZ_to_XYZ(&D50, &odd, &out, &odd, unsigned(d[3] == 1) * 2), 0);
        (void)CCT_from_xy(kCCTMethodRobertson, d[0], d[1]);
        (void)sRGB8_from_D50_Lab(lab);
    });
}

} // namespace
