#include "preferences.h"

#include "XMLStrings.h"

#include <charconv>

float floatFromStoredText(std::string_view text)
{
    float value = 0;
    const char *end = text.data() + text.size();
    const auto exact = std::from_chars(text.data(), end, value);
    if (exact.ec == std::errc() && exact.ptr == end)
        return value;
    return floatValue(text); // the same lenient reading as the numbers of a document
}
