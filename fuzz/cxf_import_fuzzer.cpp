// libFuzzer target over the XML reader and the CxF import. Each input goes through
// dictionaryForXMLData and dictionaryForXMLString, a few dotted paths, a copy and a comparison
// of the tree, and importCxFDocument. Any crash, sanitizer report, leak or hang is a bug: the
// reader and the import must turn every input into a tree, an error or a refusal.
#include "XMLReader.h"
#include "XMLReaderNavigation.h"
#include "cxf_import.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void check(bool condition)
{
    if (!condition)
        std::abort();
}

void exerciseTree(const XMLNode &tree)
{
    const XMLNode copy = tree;
    check(copy == tree);
    for (const char *path :
         {"CxF:CxF.CxF:Palette.CxF:ColorSet.CxF:Color.last",
          "CxF:CxF.CxF:Palette.CxF:ColorSet.CxF:Color.0.ColorName", "a.b.1", "a.b.x", "a..b", ""})
        retrieveForPath(tree, path);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);

    XMLError error;
    if (const auto tree = XMLReader::dictionaryForXMLData(bytes, &error))
        exerciseTree(*tree);
    else
        check(!error.message.empty());

    if (const auto tree = XMLReader::dictionaryForXMLString(bytes, nullptr))
        exerciseTree(*tree);

    const CxFImportOutcome outcome = importCxFDocument(bytes);
    if (outcome.accepted()) {
        check(outcome.lab.alpha == 1.0);
        check(outcome.logLine.empty() && !outcome.beep && !outcome.alert);
    } else {
        check(!refusalMessage(outcome).empty());
    }
    return 0;
}
