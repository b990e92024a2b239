// Reading a document from disk: only regular files of at most 64 MiB of UTF-8 give text, and
// nothing else is read at all (a FIFO without a writer or /dev/zero would block or never end).
#include "document_reading.h"

#include "csv_table.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLimit = std::uintmax_t{64} << 20; // 64 MiB

std::string hexBytes(const std::string &hex)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += char(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

TEST(DocumentReading, Utf8ValidityFollowsTheWellFormedByteTable)
{
    std::ifstream in(CXF_TEST_DATA_DIR "/reference/utf8-validity.csv");
    std::string line;
    std::getline(in, line);
    int rows = 0;
    while (std::getline(in, line)) {
        const std::vector<std::string> f = splitCsvLine(line);
        ASSERT_EQ(f.size(), 3u) << line;
        EXPECT_EQ(isValidUtf8(hexBytes(f[0])), f[1] == "1") << f[2];
        // The same bytes after valid text and before it.
        EXPECT_EQ(isValidUtf8("ok " + hexBytes(f[0]) + " ok"), f[1] == "1") << f[2];
        ++rows;
    }
    EXPECT_EQ(rows, 27);
}

TEST(DocumentReading, OnlyRegularUtf8FilesUpToTheLimitGiveText)
{
    const fs::path dir =
        fs::temp_directory_path() / ("document-reading-" + std::to_string(getpid()));
    fs::create_directories(dir);
    const auto sparse = [&](const char *name, std::uintmax_t size) {
        std::ofstream(dir / name).close();
        fs::resize_file(dir / name, size); // no disk blocks are used
        return (dir / name).string();
    };
    const std::string fifo = (dir / "fifo").string();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const std::string sample = CXF_SOURCE_DIR "/data/samples/sample-a.cxf";
    const struct {
        std::string path;
        DocumentProblem problem;
    } cases[] = {
        {sample, DocumentProblem::None},
        {sparse("at-limit", kLimit), DocumentProblem::None},
        {sparse("over-limit", kLimit + 1), DocumentProblem::TooLarge},
        {CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf", DocumentProblem::InvalidUtf8},
        {(dir / "missing").string(), DocumentProblem::Open},
        {dir.string(), DocumentProblem::NotRegularFile},
        {fifo, DocumentProblem::NotRegularFile},
        {"/dev/zero", DocumentProblem::NotRegularFile},
    };
    ::alarm(30); // a read that blocks ends the test
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path);
        const DocumentReading reading = readDocument(c.path);
        EXPECT_EQ(reading.problem, c.problem);
        EXPECT_EQ(reading.text.has_value(), c.problem == DocumentProblem::None);
        EXPECT_EQ(readDocumentText(c.path).has_value(), reading.text.has_value());
        if (reading.text) {
            EXPECT_EQ(reading.text->size(), fs::file_size(c.path));
        }
    }
    ::alarm(0);
    std::ifstream in(sample, std::ios::binary);
    EXPECT_EQ(readDocumentText(sample),
              std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()));
    fs::remove_all(dir);
}

} // namespace
