// HSB, HSL and HCL: hsb_hsl_hcl.csv (worked by hand) and round trips over grids.
#include "hsb_hsl_hcl.h"

#include "csv_table.h"

namespace {

// The inverse conversions take fmod(H, 2) in single precision: H (below 6) narrowed to a float
// is off by at most 2⁻²², so a channel moves by at most C · 2.4e-7. HCL back to RGB can scale
// that error by up to the ratio of the largest to the smallest luma weight, about 10.
constexpr double kTolFloatRemainder = 2.5e-7;
constexpr double kTolHCLRoundTrip = 10 * kTolFloatRemainder;

RGBColor rgba(const Values &v)
{
    return {v[0], v[1], v[2], v[3]};
}

Values values(RGBColor c)
{
    return {c.r, c.g, c.b, c.alpha};
}

TEST(HSBHSLHCL, ReferenceValues)
{
    expectReferenceTable(
        "hsb_hsl_hcl.csv",
        {
            {"hsb_from_rgb",
             [](const Values &v) {
                 const HSBColor c = hsb_from_rgb(rgba(v));
                 return Values{c.hue, c.saturation, c.brightness, c.alpha};
             }},
            {"hsl_from_rgb",
             [](const Values &v) {
                 const HSLColor c = hsl_from_rgb(rgba(v));
                 return Values{c.hue, c.saturation, c.lightness, c.alpha};
             }},
            {"hcl_from_rgb",
             [](const Values &v) {
                 const HCLColor c = hcl_from_rgb(rgba(v));
                 return Values{c.hue, c.chroma, c.saturation, c.luma, c.alpha};
             }},
            REFERENCE_FN(rgb_from_hsb, values(rgb_from_hsb({v[0], v[1], v[2], v[3]}))),
            REFERENCE_FN(rgb_from_hsl, values(rgb_from_hsl({v[0], v[1], v[2], v[3]}))),
            REFERENCE_FN(rgb_from_hcl, values(rgb_from_hcl({v[0], v[1], v[2], v[3], v[4]}))),
            {"hcl_blend",
             [](const Values &v) {
                 const HCLColor c = hcl_blend(int(v[0]), {v[1], v[2], v[3], v[4], v[5]},
                                              {v[6], v[7], v[8], v[9], v[10]}, v[11]);
                 return Values{c.hue, c.chroma, c.luma, c.alpha};
             }},
        });
}

void expectRGB(RGBColor c, RGBColor expected, double tol)
{
    EXPECT_CLOSE(c.r, expected.r, tol);
    EXPECT_CLOSE(c.g, expected.g, tol);
    EXPECT_CLOSE(c.b, expected.b, tol);
    EXPECT_EQ(c.alpha, expected.alpha);
}

TEST(HSBHSLHCL, RGBThroughEachModelAndBack)
{
    // HSB on eighths (exact in single precision; other values move HSB's hue), HSL and HCL on
    // tenths.
    for (int i = 0; i < 729; ++i) {
        const RGBColor rgb{i % 9 / 8.0, i / 9 % 9 / 8.0, i / 81 / 8.0, 0.5};
        expectRGB(rgb_from_hsb(hsb_from_rgb(rgb)), rgb, kTolFloatRemainder);
    }
    for (int i = 0; i < 1331; ++i) {
        const RGBColor rgb{i % 11 / 10.0, i / 11 % 11 / 10.0, i / 121 / 10.0, 0.5};
        SCOPED_TRACE(testing::Message() << rgb.r << " " << rgb.g << " " << rgb.b);
        expectRGB(rgb_from_hsl(hsl_from_rgb(rgb)), rgb, kTolFloatRemainder);
        expectRGB(rgb_from_hcl(hcl_from_rgb(rgb)), rgb, kTolHCLRoundTrip);
    }
}

} // namespace
