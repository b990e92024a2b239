// Weights, transfer curves, lightness, gamut and encodings: rgb_transfer.csv and round trips.
#include "rgb_encoding.h"
#include "rgb_transfer.h"

#include "csv_table.h"

namespace {

RGBColor rgba(const Values &v)
{
    return {v[0], v[1], v[2], v[3]};
}

Values values(RGBColor c)
{
    return {c.r, c.g, c.b, c.alpha};
}

// A curve applied through its RGB form to (v, v, v, 0.25): the value and the alpha.
Values curve(void (*rgbCurve)(RGBColor *), double v)
{
    RGBColor c{v, v, v, 0.25};
    rgbCurve(&c);
    return {c.b, c.alpha};
}

auto curveFn(void (*rgbCurve)(RGBColor *))
{
    return [rgbCurve](const Values &v) { return curve(rgbCurve, v[0]); };
}

// The Rec. 709 curves through their RGB form and their one-value form.
auto rec709Fn(void (*rgbCurve)(RGBColor *), void (*single)(double *))
{
    return [=](const Values &v) {
        double w = v[0];
        single(&w);
        return Values{curve(rgbCurve, v[0])[0], w, curve(rgbCurve, v[0])[1]};
    };
}

auto inPlaceFn(void (*f)(RGBColor *))
{
    return [f](const Values &v) {
        RGBColor c = rgba(v);
        f(&c);
        return values(c);
    };
}

// The integer encoders on (r, g, b, alpha): the four codes.
template <typename Int>
Values codes(void (*encode)(Int *, Int *, Int *, Int *, RGBColor), const Values &v)
{
    Int c[4];
    encode(&c[0], &c[1], &c[2], &c[3], rgba(v));
    return {double(c[0]), double(c[1]), double(c[2]), double(c[3])};
}

TEST(RGBTransfer, ReferenceValues)
{
    expectReferenceTable(
        "rgb_transfer.csv",
        {
            REFERENCE_FN(luminance_from_linear_NTSC, luminance_from_linear_NTSC(v[0], v[1], v[2])),
            REFERENCE_FN(luma_from_gamma_NTSC, luma_from_gamma_NTSC(v[0], v[1], v[2])),
            REFERENCE_FN(luma_from_gamma_SMPTE_240M, luma_from_gamma_SMPTE_240M(v[0], v[1], v[2])),
            REFERENCE_FN(luminance_from_linear_sRGB, luminance_from_linear_sRGB(v[0], v[1], v[2])),
            REFERENCE_FN(luma_from_gamma_sRGB, luma_from_gamma_sRGB(v[0], v[1], v[2])),
            {"sRGB_decoded", curveFn(rgb_sRGB_to_linear)},
            {"sRGB_encoded", curveFn(rgb_linear_to_sRGB)},
            {"Rec709_decoded", rec709Fn(rgb_Rec709_to_linear, E709_to_linear)},
            {"Rec709_encoded", rec709Fn(rgb_linear_to_Rec709, linear_to_E709)},
            REFERENCE_FN(lightness_from_luminance, lightness_from_luminance(v[0], v[1])),
            REFERENCE_FN(luminance_from_lightness, luminance_from_lightness(v[0])),
            {"rgb_clamp_to_black", inPlaceFn(rgb_clamp_to_black)},
            {"rgb_clamp_to_gamut", inPlaceFn(rgb_clamp_to_gamut)},
            {"rgb_scale_to_gamut", inPlaceFn(rgb_scale_to_gamut)},
            {"rgb_saturate", inPlaceFn(rgb_saturate)},
            {"rgb_premultiply_alpha", inPlaceFn(rgb_premultiply_alpha)},
            {"rgb_unpremultiply_alpha", inPlaceFn(rgb_unpremultiply_alpha)},
            REFERENCE_FN(rgb_float_to_chars, codes(rgb_float_to_chars, v)),
            REFERENCE_FN(rgb_float_to_shorts, codes(rgb_float_to_shorts, v)),
            REFERENCE_FN(rgb_float_from_chars,
                         values(rgb_float_from_chars(int(v[0]), int(v[1]), int(v[2]), int(v[3])))),
            REFERENCE_FN(rgb_float_from_shorts,
                         values(rgb_float_from_shorts(int(v[0]), int(v[1]), int(v[2]), int(v[3])))),
            REFERENCE_FN(rgb_float_from_rgb_char, values(rgb_float_from_rgb_char(uint32_t(v[0])))),
            REFERENCE_FN(rgb_char_from_rgb_float, double(rgb_char_from_rgb_float(rgba(v)))),
        });
}

double sRGB_decoded(double v)
{
    return curve(rgb_sRGB_to_linear, v)[0];
}

TEST(RGBTransfer, CurvesRoundTripOutsideTheBreakPointGaps)
{
    // Encoded values in (0.040449936, 0.04045] (sRGB) and [0.081, 0.0812479) (Rec. 709) decode
    // to the other side of the encoder's break point and come back off by up to 3e-8 and
    // 2.5e-4; elsewhere a round trip is exact to rounding. Lightness: above the break the cubic
    // inverts the cube root.
    for (int i = 0; i <= 2000; ++i) {
        const double v = i / 2000.0;
        SCOPED_TRACE(v);
        if (!(v > 0.040449936 && v <= 0.04045)) {
            EXPECT_CLOSE(curve(rgb_linear_to_sRGB, sRGB_decoded(v))[0], v, kTolRoundTrip);
        }
        double w = v;
        E709_to_linear(&w);
        linear_to_E709(&w);
        if (!(v >= 0.081 && v < 0.0812480)) {
            EXPECT_CLOSE(w, v, kTolRoundTrip);
        }
        if (v >= 0.09) {
            EXPECT_CLOSE(lightness_from_luminance(luminance_from_lightness(v), 1), v,
                         kTolRoundTrip);
        }
    }
}

TEST(RGBEncoding, EveryIntegerCodeComesBackAndPackedBinsAreEquallyWide)
{
    for (int k = 0; k <= 65535; ++k) {
        uint16_t r, g, b, a;
        rgb_float_to_shorts(&r, &g, &b, &a, rgb_float_from_shorts(k, 0, 0, 65535 - k));
        ASSERT_TRUE(r == k && a == 65535 - k) << k;
    }
    // The packer puts [j/256, (j+1)/256) into byte j, and every packed byte comes back.
    for (uint32_t j = 0; j < 256; ++j) {
        const double mid = (j + 0.5) / 256;
        ASSERT_EQ(rgb_char_from_rgb_float({mid, mid, mid, mid}), j * 0x01010101u);
        const uint32_t packed = j | (255 - j) << 8 | (j ^ 0x55) << 16 | ((j * 7) & 0xFF) << 24;
        ASSERT_EQ(rgb_char_from_rgb_float(rgb_float_from_rgb_char(packed)), packed);
        uint8_t r8, g8, b8, a8;
        rgb_float_to_chars(&r8, &g8, &b8, &a8, rgb_float_from_chars(int(j), 0, 0, int(255 - j)));
        ASSERT_TRUE(r8 == j && a8 == 255 - j) << j;
    }
}

} // namespace
