// Only regular files of at most 64 MiB of UTF-8 give text, and nothing else is read at all (a
// FIFO without a writer or /dev/zero would block or never end).
#include "document_reading.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(DocumentReading, Utf8ValidityFollowsTheWellFormedByteTable)
{
    std::ifstream in(CXF_TEST_DATA_DIR "/reference/utf8-validity.csv");
    std::string line, bytes;
    int rows = 0;
    for (std::getline(in, line); std::getline(in, line); ++rows) {
        bytes = "ok ";
        for (std::size_t i = 0; line[i] != ','; i += 2)
            bytes += char(std::stoi(line.substr(i, 2), nullptr, 16));
        EXPECT_EQ(isValidUtf8(bytes), line[line.find(',') + 1] == '1') << line;
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
    ASSERT_EQ(::mkfifo((dir / "fifo").c_str(), 0600), 0);
    const std::pair<std::string, DocumentProblem> cases[] = {
        {CXF_SOURCE_DIR "/data/samples/sample-a.cxf", DocumentProblem::None},
        {sparse("at-limit", 64 << 20), DocumentProblem::None},
        {sparse("over-limit", (64 << 20) + 1), DocumentProblem::TooLarge},
        {CXF_TEST_DATA_DIR "/cxf/invalid-utf8.cxf", DocumentProblem::InvalidUtf8},
        {(dir / "missing").string(), DocumentProblem::Open},
        {dir.string(), DocumentProblem::NotRegularFile},
        {(dir / "fifo").string(), DocumentProblem::NotRegularFile},
        {"/dev/zero", DocumentProblem::NotRegularFile},
    };
    ::alarm(30); // a read that blocks ends the test
    for (const auto &[path, problem] : cases) {
        const DocumentReading reading = readDocument(path);
        EXPECT_EQ(reading.problem, problem) << path;
        EXPECT_EQ(reading.text ? reading.text->size() : 0,
                  problem == DocumentProblem::None ? fs::file_size(path) : 0)
            << path;
    }
    ::alarm(0);
    fs::remove_all(dir);
}
