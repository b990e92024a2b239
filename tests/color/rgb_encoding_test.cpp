// Gamut handling, integer encodings and alpha: the edge cases worked by hand from the
// definitions, round trips through every 8-bit and 16-bit code, and a degenerate sweep.
#include "rgb_encoding.h"

#include "tolerance.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace {

const double nan = std::numeric_limits<double>::quiet_NaN();
const double inf = std::numeric_limits<double>::infinity();

void expectRGBA(const RGBColor &c, double r, double g, double b, double a, double tol)
{
    EXPECT_CLOSE(c.r, r, tol);
    EXPECT_CLOSE(c.g, g, tol);
    EXPECT_CLOSE(c.b, b, tol);
    EXPECT_CLOSE(c.alpha, a, tol);
}

struct GamutCase {
    const char *name;
    RGBColor in, expected;
};

TEST(ClampToBlack, PullsHairsOntoTheCubeAndTurnsFarColoursBlack)
{
    // Outside 0..1, v becomes trunc(v·65535 + 0.5) / 65535: 1.000001 gives trunc(65535.57)
    // = 65535, so 1; 1.01 gives 66190, beyond 1, so black. Truncation toward zero lets
    // negative values down to −1.5 steps come back as 0: −2e-5 gives trunc(−0.81) = 0, while
    // −3e-5 gives trunc(−1.47) = −1, below 0, so black.
    const GamutCase cases[] = {
        {"a hair above 1 becomes exactly 1", {1.000001, 0.5, 0.5, 0.7}, {1, 0.5, 0.5, 0.7}},
        {"1.01 is too far: black, alpha kept", {1.01, 0.5, 0.5, 0.7}, {0, 0, 0, 0.7}},
        {"−2e-5 comes back as 0", {0.3, -2e-5, 0.3, 1}, {0.3, 0, 0.3, 1}},
        {"−3e-5 is too far: black", {0.3, -3e-5, 0.3, 1}, {0, 0, 0, 1}},
        {"channels inside are not quantised",
         {0.123456789, 1.000001, 0.5, 9},
         {0.123456789, 1, 0.5, 9}},
        {"infinity turns black", {inf, 0.5, 0.5, 1}, {0, 0, 0, 1}},
        {"NaN fails both tests and stays", {nan, 0.5, 0.5, 1}, {nan, 0.5, 0.5, 1}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        RGBColor v = c.in;
        rgb_clamp_to_black(&v);
        expectRGBA(v, c.expected.r, c.expected.g, c.expected.b, c.expected.alpha, 0);
    }
}

TEST(GamutFitting, ClampScaleAndSaturate)
{
    RGBColor v{-0.2, 0.5, 1.7, 2};
    rgb_clamp_to_gamut(&v);
    expectRGBA(v, 0, 0.5, 1, 1, 0); // alpha clamped too
    v = {nan, 0.5, 0.5, nan};
    rgb_clamp_to_gamut(&v);
    expectRGBA(v, nan, 0.5, 0.5, nan, 0);

    // m = min(lo, 0), range = max(1, hi) − m, v → (v − m) / range.
    const GamutCase cases[] = {
        {"both sides: m −0.5, range 2", {-0.5, 0.5, 1.5, 3}, {0, 0.5, 1, 3}},
        {"inside: unchanged", {0.2, 0.4, 0.6, 3}, {0.2, 0.4, 0.6, 3}},
        {"above only: m 0, range 2", {0.5, 1, 2, 3}, {0.25, 0.5, 1, 3}},
        {"below only: m −1, range 2", {-1, 0, 0.5, 3}, {0, 0.5, 0.75, 3}},
        {"NaN red hides the others", {nan, -1, 2, 3}, {nan, -1, 2, 3}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        v = c.in;
        rgb_scale_to_gamut(&v);
        expectRGBA(v, c.expected.r, c.expected.g, c.expected.b, c.expected.alpha, kTolUlps);
    }

    v = {0.2, 0.4, 0.6, 3};
    rgb_saturate(&v); // (v − 0.2) / 0.4
    expectRGBA(v, 0, 0.5, 1, 3, kTolUlps);
    v = {0.5, 0.5, 0.5, 1};
    rgb_saturate(&v); // no guard for a grey: 0 / 0, documented
    expectRGBA(v, nan, nan, nan, 1, 0);
}

TEST(IntegerChannels, RoundingEncodersWrapInsteadOfClamping)
{
    struct Case {
        double v;
        int byte, word;
    };
    // trunc(v·255 + 0.5) and trunc(v·65535 + 0.5), kept to 8 and 16 bits.
    const Case cases[] = {
        {0, 0, 0},           {1, 255, 65535}, {0.5, 128, 32768}, // 127.5 + 0.5, 32767.5 + 0.5
        {0.498, 127, 32636}, // 127.49 + 0.5 = 127.99; 32636.43 + 0.5
        {1.5, 127, 32767},   // 383 & 0xFF; 98303 & 0xFFFF
        {-0.5, 129, 32769},  // −127 & 0xFF; −32767 & 0xFFFF
        {nan, 0, 0},         // INT32_MIN keeps no low bits
        {1e12, 0, 0},        // beyond 32 bits: INT32_MIN as well
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.v);
        uint8_t r, g, b, a;
        uint16_t rw, gw, bw;
        rgb_float_to_chars(&r, &g, &b, &a, {c.v, 0, 1, c.v});
        rgb_float_to_shorts(&rw, &gw, &bw, nullptr, {0, c.v, 1, c.v}); // alpha may be null
        EXPECT_TRUE(r == c.byte && a == c.byte && g == 0 && b == 255) << int(r) << " " << int(a);
        EXPECT_TRUE(gw == c.word && rw == 0 && bw == 65535) << gw;
    }
}

TEST(IntegerChannels, DecodersDivideAndEveryCodeComesBack)
{
    RGBColor v, w;
    chars_to_rgb_float(255, 128, 0, 51, &v);
    shorts_to_rgb_float(65535, 32768, 0, 13107, &w);         // 13107 = 65535 / 5
    expectRGBA(v, 1, 0.50196078431372548, 0, 0.2, kTolUlps); // 128 / 255
    expectRGBA(w, 1, 0.50000762951094835, 0, 0.2, kTolUlps); // 32768 / 65535

    for (int k = 0; k <= 65535; ++k) { // each code's value / 255 (65535) rounds back to it
        uint16_t r, g, b, a;
        rgb_float_to_shorts(&r, &g, &b, &a, rgb_float_from_shorts(k, 0, 0, 65535 - k));
        ASSERT_TRUE(r == k && a == 65535 - k) << k;
        uint8_t r8, g8, b8, a8;
        rgb_float_to_chars(&r8, &g8, &b8, &a8,
                           rgb_float_from_chars(k & 255, 0, 0, 255 - (k & 255)));
        ASSERT_TRUE(r8 == (k & 255) && a8 == 255 - (k & 255)) << k;
    }
}

TEST(PackedColour, TruncatingPackerUsesEqualBinsAndUnpackerDividesBy255)
{
    // Unpacking: 0x99 = 153 → 0.6, 0x66 = 102 → 0.4, 0x33 = 51 → 0.2.
    expectRGBA(rgb_float_from_rgb_char(0xFF336699u), 0.6, 0.4, 0.2, 1, kTolUlps);

    // Packing: trunc(v × 255.99999999999997); 0.5 gives 127 here (rgb_float_to_chars: 128).
    EXPECT_EQ(rgb_char_from_rgb_float({0.5, 0.5, 0.5, 1}), 0xFF7F7F7Fu);
    EXPECT_EQ(rgb_char_from_rgb_float({1, 1, 1, 1}), 0xFFFFFFFFu);
    EXPECT_EQ(rgb_char_from_rgb_float({0, 0.25, 0.75, 0}), 0x00BF3F00u); // 63.99…, 191.99…
    EXPECT_EQ(rgb_char_from_rgb_float({1.5, 0, 0, 0}), 0x0000007Fu);     // 383 & 0xFF
    EXPECT_EQ(rgb_char_from_rgb_float({0, 0, 0, 2}), 0xFF000000u);       // 511 << 24 keeps 0xFF
    // The whole interval falls into 256 equally wide bins [j/256, (j+1)/256); an exact bin
    // edge j/256 lands in the bin below, as j·S is a hair under j.
    EXPECT_EQ(rgb_char_from_rgb_float({1.0 / 256, 0, 0, 0}), 0u);
    for (uint32_t j = 0; j < 256; ++j) {
        const double mid = (j + 0.5) / 256;
        ASSERT_EQ(rgb_char_from_rgb_float({mid, mid, mid, mid}), j * 0x01010101u);
        // k/255 × S is k + k/255 − a hair, so every packed byte comes back.
        const uint32_t packed = j | (255 - j) << 8 | (j ^ 0x55) << 16 | ((j * 7) & 0xFF) << 24;
        ASSERT_EQ(rgb_char_from_rgb_float(rgb_float_from_rgb_char(packed)), packed);
    }
}

TEST(Alpha, PremultiplyAndBackWithZeroAlphaLeftAlone)
{
    RGBColor v{0.5, 1, 0.2, 0.5};
    rgb_premultiply_alpha(&v);
    expectRGBA(v, 0.25, 0.5, 0.1, 0.5, kTolUlps);
    rgb_unpremultiply_alpha(&v);
    expectRGBA(v, 0.5, 1, 0.2, 0.5, kTolUlps);
    for (double alpha : {0.0, -1.0, nan}) {
        SCOPED_TRACE(alpha);
        v = {0.3, 0.6, 0.9, alpha};
        rgb_unpremultiply_alpha(&v);
        expectRGBA(v, 0.3, 0.6, 0.9, alpha, 0);
    }
}

TEST(DegenerateInput, EveryFunctionEndsAndClampsStayInRange)
{
    const double values[] = {-1, 0, 1, inf, -inf, nan};
    for (int i = 0; i < 6 * 6 * 6 * 6; ++i) {
        const RGBColor in{values[i % 6], values[i / 6 % 6], values[i / 36 % 6], values[i / 216]};
        const bool anyNaN = std::isnan(in.r) || std::isnan(in.g) || std::isnan(in.b);
        RGBColor black = in, gamut = in, scaled = in, other = in;
        rgb_clamp_to_black(&black);
        rgb_clamp_to_gamut(&gamut);
        rgb_scale_to_gamut(&scaled); // a NaN channel can hide the others from its range test
        for (double c : {black.r, black.g, black.b, gamut.r, gamut.g, gamut.b, gamut.alpha})
            EXPECT_TRUE(std::isnan(c) || (c >= 0 && c <= 1));
        for (double c : {scaled.r, scaled.g, scaled.b})
            EXPECT_TRUE(anyNaN || std::isnan(c) || (c >= 0 && c <= 1));
        rgb_saturate(&other);
        rgb_premultiply_alpha(&other);
        rgb_unpremultiply_alpha(&other);
        uint8_t c8[4];
        uint16_t c16[4];
        rgb_float_to_chars(&c8[0], &c8[1], &c8[2], &c8[3], in);
        rgb_float_to_shorts(&c16[0], &c16[1], &c16[2], &c16[3], in);
        (void)rgb_char_from_rgb_float(in);
    }
}

} // namespace
