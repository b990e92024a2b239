#pragma once
// A plain expat parse with callbacks that build nothing: the yardstick the reader and
// cxf-delta are held to. Counts elements and bytes of text so that the work cannot be dropped.
#include <expat.h>

#include <cstddef>

struct RawExpatCounts {
    long elements = 0;
    long characters = 0;
    bool wellFormed = false;
};

namespace raw_expat_detail {

inline void XMLCALL onStart(void *data, const XML_Char *, const XML_Char **)
{
    ++static_cast<RawExpatCounts *>(data)->elements;
}

inline void XMLCALL onEnd(void *, const XML_Char *) {}

inline void XMLCALL onCharacters(void *data, const XML_Char *, int length)
{
    static_cast<RawExpatCounts *>(data)->characters += length;
}

} // namespace raw_expat_detail

// One XML_Parse over the whole text.
inline RawExpatCounts rawExpatParse(const char *text, std::size_t size)
{
    RawExpatCounts counts;
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &counts);
    XML_SetElementHandler(parser, raw_expat_detail::onStart, raw_expat_detail::onEnd);
    XML_SetCharacterDataHandler(parser, raw_expat_detail::onCharacters);
    counts.wellFormed = XML_Parse(parser, text, static_cast<int>(size), XML_TRUE) == XML_STATUS_OK;
    XML_ParserFree(parser);
    return counts;
}
