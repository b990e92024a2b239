// Trimming, line joining and the lenient number conversions. Expected floats are the
// compiler's own rounding of the decimal literal, or limits from <limits>.
#include "XMLStrings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

TEST(XMLStrings, TrimRemovesAsciiAndUnicodeSpaceAtBothEndsOnly)
{
    const std::pair<std::string, std::string> cases[] = {
        {" \t51.2\r\n", "51.2"},
        {"\u00a0a b\u3000", "a b"},
        {"\u0085\u1680\u2000\u200a\u2028\u2029\u202f\u205fz\u2009", "z"},
        {"\u200bz", "\u200bz"},     // zero-width space is not white space
        {" \u00a0 b \u2009 ", "b"}, // ASCII and wider spaces mixed
        {"   ", ""},
        {"\xe2\x80", "\xe2\x80"}, // a truncated sequence is left alone
    };
    for (const auto &[text, trimmed] : cases)
        EXPECT_EQ(trimWhitespaceAndNewlines(text), trimmed) << text;
    EXPECT_EQ(joinTrimmedLines("<a>\n  51.2\n</a>\r\n\r\nb"), "<a>51.2</a>b");
}

TEST(XMLStrings, IntValueReadsALeadingDecimalInteger)
{
    const std::pair<const char *, int32_t> cases[] = {
        {" 380nm", 380},
        {"-12.7", -12},
        {"2147483648", std::numeric_limits<int32_t>::max()},
        {"-2147483649", std::numeric_limits<int32_t>::min()},
        {"\u00a042", 42},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(intValue(text), value) << text;
}

TEST(XMLStrings, FloatValueRoundsTheLeadingDecimalOnceToFloat)
{
    constexpr float inf = std::numeric_limits<float>::infinity();
    const std::pair<const char *, float> cases[] = {
        {"51.23", 51.23f},
        {" -3.5e2x", -350.0f},
        {".5", 0.5f},
        {"1e", 1.0f},
        {"inf", 0.0f},
        {"3.4028236e38", inf},
        {"-1e39", -inf},
        {"1e-40", 1e-40f}, // subnormal
        {"0.00000000000000000000000000000000000000000000000000001e50", 1e-3f},
        {"0.3000000119209289550781249", 0.3f}, // just below the midpoint to the next float
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(floatValue(text), value) << text;
    EXPECT_TRUE(std::signbit(floatValue("-0")));
}

// Random decimals of up to 9 digits and exponents up to 12: each must round as the C library's
// correctly rounded strtof does.
TEST(XMLStrings, FloatValueRoundsShortDecimalsAsStrtof)
{
    std::mt19937 random(42);
    for (int n = 0; n < 200000; ++n) {
        std::string text = random() % 2 ? "-" : "";
        const unsigned digits = 1 + random() % 9, point = random() % (digits + 1);
        for (unsigned k = 0; k < digits; ++k) {
            if (k == point)
                text += '.';
            text += static_cast<char>('0' + random() % 10);
        }
        if (random() % 3 == 0)
            text.append("e").append(std::to_string(static_cast<int>(random() % 25) - 12));
        ASSERT_EQ(floatValue(text), std::strtof(text.c_str(), nullptr)) << text;
    }
}

} // namespace
