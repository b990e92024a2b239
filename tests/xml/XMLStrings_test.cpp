// Trimming, line joining and the lenient number conversions. Expected floats are the
// compiler's own rounding of the decimal literal (a correctly rounded conversion that does not
// go through this code), or limits from <limits>.
#include "XMLStrings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

TEST(TrimWhitespaceAndNewlines, RemovesAsciiAndUnicodeSpaceAtBothEndsOnly)
{
    const struct {
        std::string text, trimmed;
    } cases[] = {
        {" \t51.2\r\n", "51.2"},
        {"\u00a0a b\u3000", "a b"},
        {"\u0085\u1680\u2000\u200a\u2028\u2029\u202f\u205fz\u2009", "z"},
        {"\u200bz", "\u200bz"}, // zero-width space is not white space
        {"   ", ""},
        {"\xc2", "\xc2"},         // a lone lead byte is left alone
        {"\xe2\x80", "\xe2\x80"}, // so is a truncated sequence
    };
    for (const auto &c : cases)
        EXPECT_EQ(trimWhitespaceAndNewlines(c.text), c.trimmed) << c.text;
}

TEST(JoinTrimmedLines, DropsIndentationAndLineBreaks)
{
    EXPECT_EQ(joinTrimmedLines("<a>\n  51.2\n</a>\n"), "<a>51.2</a>");
    EXPECT_EQ(joinTrimmedLines("a\r\n\r\nb"), "ab");
}

TEST(IntValue, ReadsALeadingDecimalInteger)
{
    const struct {
        const char *text;
        int32_t value;
    } cases[] = {
        {" 380nm", 380},
        {"-12.7", -12},
        {"3e2", 3},
        {"x", 0},
        {"2147483648", std::numeric_limits<int32_t>::max()},
        {"-2147483649", std::numeric_limits<int32_t>::min()},
        {"\u00a042", 42},
    };
    for (const auto &c : cases)
        EXPECT_EQ(intValue(c.text), c.value) << c.text;
}

TEST(FloatValue, RoundsTheLeadingDecimalOnceToFloat)
{
    constexpr float inf = std::numeric_limits<float>::infinity();
    const struct {
        const char *text;
        float value;
    } cases[] = {
        {"51.23", 51.23f},
        {" -3.5e2x", -350.0f},
        {".5", 0.5f},
        {"1e", 1.0f},
        {"7E-1", 0.7f},
        {"0x10", 0.0f},
        {"inf", 0.0f},
        {"abc", 0.0f},
        {"3.4028236e38", inf},
        {"-1e39", -inf},
        {"1e99999999999", inf},
        {"1e-40", 1e-40f}, // subnormal
        {"0.00000000000000000000000000000000000000000000000000001e50", 1e-3f},
        {"123456789012345678901234567890", 1.2345679e29f},
        {"0.3000000119209289550781249", 0.3f}, // just below the midpoint to the next float
    };
    for (const auto &c : cases)
        EXPECT_EQ(floatValue(c.text), c.value) << c.text;
    EXPECT_TRUE(std::signbit(floatValue("-0")));
    EXPECT_TRUE(std::signbit(floatValue("-1e-50")));
}

} // namespace
