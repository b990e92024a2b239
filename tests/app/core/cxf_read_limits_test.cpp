// The read budgets, entity expansion and running out of memory: refusals, never an abort.
#include "XMLReader.h"
#include "cxf_import.h"

#include <gtest/gtest.h>

#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string repeated(const std::string &unit, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += unit;
    return text;
}

// A document of `count` distinct element names, or one element with `count` attributes.
std::string numbered(std::size_t count, bool attributes)
{
    std::string text = "<r";
    for (std::size_t i = 1; i < count; ++i) { // the document element is a name too
        const std::string n = std::to_string(i);
        text += attributes ? " a" + n + "=\"\"" : "><n" + n + ">1</n" + n;
    }
    return text + (attributes ? " a0=\"\"/>" : "></r>");
}

TEST(CxFReadLimits, EachBudgetRefusesJustPastItsLimit)
{
    struct Case {
        std::string within, past, detail;
    };
    const Case cases[] = {
        {repeated("<e>", 64) + repeated("</e>", 64), repeated("<e>", 65) + repeated("</e>", 65),
         "more than 64 levels of nested elements"},
        {"<r>" + repeated("<x a=\"\"/>", 1048575) + "</r>",
         "<r>" + repeated("<x a=\"\"/>", 1048576) + "</r>", "more than 1048576 elements"},
        {numbered(64, true), numbered(65, true), "more than 64 attributes on one element"},
        {"<r>" + repeated("<x a=\"\" b=\"\"/>", 524287) + "</r>",
         "<r>" + repeated("<x a=\"\" b=\"\"/>", 524289) + "</r>", "more than 1048576 attributes"},
        {numbered(4096, false), numbered(4097, false), "more than 4096 distinct names"},
        {"<r>" + std::string(16 << 20, 'x') + "</r>",
         "<r>" + std::string((16 << 20) + 1, 'x') + "</r>", "more than 16777216 bytes of text"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.detail);
        const CxFImportOutcome within = importCxFDocument(c.within);
        EXPECT_EQ(within.status, CxFImportStatus::NoCxFKey) << within.detail; // read, then no CxF
        const CxFImportOutcome past = importCxFDocument(c.past);
        EXPECT_EQ(past.status, CxFImportStatus::InvalidXMLData);
        EXPECT_EQ(past.logLine, kLogInvalidXMLData);
        EXPECT_TRUE(past.beep);
        EXPECT_EQ(past.detail.rfind(c.detail, 0), 0u) << past.detail;
    }
}

TEST(CxFReadLimits, EntityExpansionIsBoundedToFourTimesTheDocument)
{
    // Past the 1 MiB threshold, expansions of up to three times the document (four with it) are
    // read, more are refused; expat's own default would allow a hundred times.
    const auto document = [](std::size_t entityBytes) {
        return "<!DOCTYPE r [<!ENTITY e \"" + std::string(entityBytes, 'x') + "\">]><r>" +
               repeated("<t>&e;</t>", 300000) + "</r>";
    };
    XMLError error;
    EXPECT_TRUE(XMLReader::dictionaryForXMLData(document(24), &error)) << error.description();
    EXPECT_FALSE(XMLReader::dictionaryForXMLData(document(40), &error));
    EXPECT_NE(error.message.find("amplification"), std::string::npos) << error.message;
}

TEST(CxFReadLimits, RunningOutOfMemoryIsARefusal)
{
    const std::string document = "<r>" + repeated("<x a=\"1\"/>", 2000000) + "</r>";
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // The address space so far plus 16 MiB: far less than the tree needs.
        long pages = 0;
        if (FILE *statm = std::fopen("/proc/self/statm", "r")) {
            if (std::fscanf(statm, "%ld", &pages) != 1)
                pages = 0;
            std::fclose(statm);
        }
        const rlim_t limit = static_cast<rlim_t>(pages) * 4096 + (16u << 20);
        const rlimit rl{limit, limit};
        if (pages == 0 || setrlimit(RLIMIT_AS, &rl) != 0)
            _exit(3);
        const CxFImportOutcome outcome = importCxFDocument(document);
        _exit(outcome.status == CxFImportStatus::InvalidXMLData &&
                      outcome.detail.find("out of memory") != std::string::npos
                  ? 0
                  : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "the import aborted";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
