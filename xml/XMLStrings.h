#pragma once
// Text helpers shared by the XML reader and the code that reads its trees: trimming of white
// space, and the lenient number conversions that the CxF import applies to element texts and
// attribute values. Everything works on UTF-8 bytes and never fails: invalid UTF-8 is left
// alone, and a string that holds no number reads as 0.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// The white space that trimming removes: U+0009 to U+000D, U+0020, U+0085, U+00A0, U+1680,
// U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F and U+3000 (Unicode categories Zs, Zl, Zp,
// and the control characters that break lines).
// Returns text without the white space at both ends. Example: " \t51.2\r" gives "51.2",
// "\u00a0a b\u3000" gives "a b".
std::string_view trimWhitespaceAndNewlines(std::string_view text);

// Splits text at every "\n", trims each piece at both ends and concatenates the pieces with
// nothing between them: indentation and line breaks vanish, and a text that continues over a
// line break is joined without a space. Example: "<a>\n  51.2\n</a>\n" gives "<a>51.2</a>";
// "two\n words" gives "twowords".
std::string joinTrimmedLines(std::string_view text);

// The pieces joinTrimmedLines concatenates, in order: each line (text split at every "\n")
// trimmed at both ends, empty ones included, handed to piece as views into text.
template <typename Piece> void forEachTrimmedLine(std::string_view text, Piece &&piece)
{
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find('\n', start);
        piece(trimWhitespaceAndNewlines(text.substr(start, end - start)));
        if (end == std::string_view::npos)
            return;
        start = end + 1;
    }
}

// The integer at the start of text, as a 32-bit integer: leading white space is skipped, then
// an optional sign and decimal digits are read; anything after them is ignored. No digits
// give 0; a value beyond the 32-bit range gives INT32_MAX or INT32_MIN.
// Examples: " 380nm" gives 380, "-12.7" gives -12, "x" gives 0, "99999999999" gives INT32_MAX.
int32_t intValue(std::string_view text);

// The decimal number at the start of text, rounded once to the nearest 32-bit float: leading
// white space is skipped, then an optional sign, digits with an optional decimal point, and an
// optional exponent (e or E, optional sign, digits) are read; the rest is ignored. Only this
// decimal form is read (no "inf", "nan" or hexadecimal). No digits give 0; a magnitude beyond
// the float range gives ±infinity, one below it ±0.
// Examples: "51.23" gives 51.2299995f (the float nearest 51.23), " -3.5e2x" gives -350,
// ".5" gives 0.5, "1e39" gives +infinity, "abc" gives 0.
float floatValue(std::string_view text);
