#include "XMLStrings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool isAsciiWhitespace(unsigned char c)
{
    return c == ' ' || (c >= 0x09 && c <= 0x0d);
}

// Length of the UTF-8 white-space character that starts at s[i], or 0.
size_t whitespaceLengthAt(std::string_view s, size_t i)
{
    const auto byte = [&](size_t k) { return static_cast<unsigned char>(s[i + k]); };
    const size_t left = s.size() - i;
    if (isAsciiWhitespace(byte(0)))
        return 1;
    if (left >= 2 && byte(0) == 0xc2 && (byte(1) == 0x85 || byte(1) == 0xa0))
        return 2; // U+0085, U+00A0
    if (left < 3)
        return 0;
    const unsigned char b0 = byte(0), b1 = byte(1), b2 = byte(2);
    if (b0 == 0xe1 && b1 == 0x9a && b2 == 0x80)
        return 3; // U+1680
    if (b0 == 0xe2 && b1 == 0x80 &&
        ((b2 >= 0x80 && b2 <= 0x8a) || b2 == 0xa8 || b2 == 0xa9 || b2 == 0xaf))
        return 3; // U+2000..U+200A, U+2028, U+2029, U+202F
    if (b0 == 0xe2 && b1 == 0x81 && b2 == 0x9f)
        return 3; // U+205F
    if (b0 == 0xe3 && b1 == 0x80 && b2 == 0x80)
        return 3; // U+3000
    return 0;
}

// Length of the white-space character that ends just before s[end], or 0.
size_t whitespaceLengthBefore(std::string_view s, size_t end)
{
    for (size_t length = 1; length <= 3 && length <= end; ++length) {
        if (whitespaceLengthAt(s.substr(0, end), end - length) == length)
            return length;
    }
    return 0;
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Position just after the leading white space of text.
size_t skipWhitespace(std::string_view text)
{
    size_t i = 0;
    while (i < text.size() && isAsciiWhitespace(static_cast<unsigned char>(text[i])))
        ++i;
    if (i == text.size() || static_cast<unsigned char>(text[i]) < 0x80)
        return i; // a byte below 0x80 is white space only as ASCII white space
    while (i < text.size()) {
        const size_t length = whitespaceLengthAt(text, i);
        if (length == 0)
            break;
        i += length;
    }
    return i;
}

} // namespace

std::string_view trimWhitespaceAndNewlines(std::string_view text)
{
    // A byte below 0x80 is white space only as ASCII white space; the longer characters are
    // looked at only where a byte from 0x80 on is met.
    const auto ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    text.remove_prefix(skipWhitespace(text));
    size_t end = text.size();
    while (end > 0) {
        const char last = text[end - 1];
        const size_t length = ascii(last)
                                  ? size_t{isAsciiWhitespace(static_cast<unsigned char>(last))}
                                  : whitespaceLengthBefore(text, end);
        if (length == 0)
            break;
        end -= length;
    }
    return text.substr(0, end);
}

std::string joinTrimmedLines(std::string_view text)
{
    std::string joined;
    joined.reserve(text.size());
    forEachTrimmedLine(text, [&joined](std::string_view line) { joined += line; });
    return joined;
}

int32_t intValue(std::string_view text)
{
    size_t i = skipWhitespace(text);
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    // Accumulate as a negative number so that INT32_MIN itself fits.
    constexpr int64_t kMin = std::numeric_limits<int32_t>::min();
    int64_t value = 0;
    bool overflow = false;
    for (; i < text.size() && isDigit(text[i]); ++i) {
        if (!overflow) {
            value = value * 10 - (text[i] - '0');
            overflow = value < kMin;
        }
    }
    if (overflow)
        return negative ? std::numeric_limits<int32_t>::min() : std::numeric_limits<int32_t>::max();
    if (!negative)
        return value < -std::numeric_limits<int32_t>::max() ? std::numeric_limits<int32_t>::max()
                                                            : static_cast<int32_t>(-value);
    return static_cast<int32_t>(value);
}

float floatValue(std::string_view text)
{
    size_t i = skipWhitespace(text);
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    const size_t start = i;

    // Mantissa: digits, an optional point, digits; at least one digit in all.
    size_t digits = 0;
    size_t firstNonZero = std::string_view::npos; // index into text
    size_t point = std::string_view::npos;
    for (; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            ++digits;
            if (text[i] != '0' && firstNonZero == std::string_view::npos)
                firstNonZero = i;
        } else if (text[i] == '.' && point == std::string_view::npos) {
            point = i;
        } else {
            break;
        }
    }
    if (digits == 0)
        return 0.0f;
    if (point == std::string_view::npos)
        point = i;
    const size_t mantissaEnd = i;

    // Exponent, only when at least one digit follows the e.
    long exponent = 0;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        size_t j = i + 1;
        bool negativeExponent = false;
        if (j < text.size() && (text[j] == '+' || text[j] == '-'))
            negativeExponent = text[j++] == '-';
        if (j < text.size() && isDigit(text[j])) {
            for (; j < text.size() && isDigit(text[j]); ++j)
                exponent = std::min(exponent * 10 + (text[j] - '0'), 100000L);
            if (negativeExponent)
                exponent = -exponent;
            i = j;
        }
    }

    const float sign = negative ? -1.0f : 1.0f;
    if (firstNonZero == std::string_view::npos)
        return sign * 0.0f;

    // A mantissa of at most 2^24 and a power of ten up to 10^10 are both exact floats, so one
    // float multiplication or division rounds the decimal once, as from_chars does.
    if (digits <= 19) {
        uint64_t mantissa = 0;
        for (size_t k = start; k < mantissaEnd; ++k)
            if (text[k] != '.')
                mantissa = mantissa * 10 + static_cast<uint64_t>(text[k] - '0');
        const long scale =
            exponent - static_cast<long>(mantissaEnd - point - (point < mantissaEnd));
        constexpr float kPowersOfTen[] = {1e0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f,
                                          1e6f, 1e7f, 1e8f, 1e9f, 1e10f};
        if (mantissa <= (uint64_t{1} << 24) && scale >= -10 && scale <= 10) {
            const auto m = static_cast<float>(mantissa);
            return sign * (scale < 0 ? m / kPowersOfTen[-scale] : m * kPowersOfTen[scale]);
        }
    }

    float magnitude = 0;
    const auto result = std::from_chars(text.data() + start, text.data() + i, magnitude,
                                        std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range) {
        // Beyond the float range: the decimal exponent of the first significant digit tells
        // an overflow from an underflow.
        const long leading = firstNonZero < point ? static_cast<long>(point - firstNonZero) - 1
                                                  : -static_cast<long>(firstNonZero - point);
        magnitude = leading + exponent >= 0 ? std::numeric_limits<float>::infinity() : 0.0f;
    }
    return sign * magnitude;
}
