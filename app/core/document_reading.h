#pragma once
// Reading a colour document from disk: the one way the window's swatches, the command line of
// both programs and cxf-delta turn a file into text. The text is the file's bytes when they
// are valid UTF-8; anything else (a missing or unreadable file, a FIFO, a device, a directory,
// a file over kMaxCxFDocumentBytes, bytes that are not UTF-8) gives no text, which the import
// refuses as invalid XML data. Plain C++ and POSIX.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

struct DocumentReading;

// Why a document gave no text; Read is a system error, with its errno in DocumentReading.
enum class DocumentProblem {
    None,
    Open,           // could not be opened (errno)
    NotRegularFile, // a directory, FIFO, socket or device: never read
    TooLarge,       // over kMaxCxFDocumentBytes, by its size or by what could be read
    Read,           // a read failed (errno)
    InvalidUtf8,    // the bytes are not UTF-8
};

// A document's bytes in a buffer of their own. A large one is whole huge pages, kept for the
// next document when it goes (HugePages.h): reading tens of megabytes into fresh memory costs
// a page fault every 4 KiB otherwise. Reads as a std::string_view.
class DocumentText
{
public:
    DocumentText() noexcept = default;
    DocumentText(DocumentText &&other) noexcept;
    DocumentText &operator=(DocumentText &&other) noexcept;
    ~DocumentText();

    const char *data() const noexcept { return bytes_ ? bytes_ : ""; }
    std::size_t size() const noexcept { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    std::string_view view() const noexcept { return {data(), size_}; }
    operator std::string_view() const noexcept { return view(); }

private:
    friend DocumentReading readDocument(const std::string &path);
    // Room for capacity bytes, the first size_ of them kept. Throws std::bad_alloc.
    void reserve(std::size_t capacity);

    char *bytes_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
    bool huge_ = false; // from takeHugeBlock
};

struct DocumentReading {
    std::optional<DocumentText> text; // the document, valid UTF-8; absent on any problem
    DocumentProblem problem = DocumentProblem::None;
    int error = 0; // errno for Open and Read

    // One line saying what went wrong, for tools ("" when there is text).
    std::string description() const;
};

// Reads the file at path without ever blocking: opened non-blocking, looked at (fstat) before
// anything is read, and read only when it is a regular file of at most kMaxCxFDocumentBytes;
// reading stops one byte past the limit in case the file grows meanwhile.
DocumentReading readDocument(const std::string &path);

// readDocument's text alone.
std::optional<DocumentText> readDocumentText(const std::string &path);

// True when text is well-formed UTF-8: no stray continuation bytes, overlong forms, surrogates
// or values past U+10FFFF. For data that arrives without a file (a drag, the clipboard).
bool isValidUtf8(std::string_view text);

// Length of the well-formed UTF-8 sequence that starts at text[i] (i < text.size()), or 0.
std::size_t utf8SequenceLength(std::string_view text, std::size_t i);
