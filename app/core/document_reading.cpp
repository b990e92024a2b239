#include "document_reading.h"

#include "HugePages.h"
#include "cxf_import.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

DocumentReading failed(DocumentProblem problem, int error = 0)
{
    DocumentReading reading;
    reading.problem = problem;
    reading.error = error;
    return reading;
}

class Descriptor
{
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    int get() const { return m_fd; }

private:
    int m_fd;
};

} // namespace

std::string DocumentReading::description() const
{
    switch (problem) {
    case DocumentProblem::None:
        return {};
    case DocumentProblem::Open:
        return std::string("cannot open the file: ") + std::strerror(error);
    case DocumentProblem::NotRegularFile:
        return "not a regular file";
    case DocumentProblem::TooLarge:
        return "the file is larger than the limit of " + std::to_string(kMaxCxFDocumentBytes) +
               " bytes";
    case DocumentProblem::Read:
        return std::string("cannot read the file: ") + std::strerror(error);
    case DocumentProblem::InvalidUtf8:
        return "the file is not UTF-8 text";
    }
    return {};
}

DocumentText::DocumentText(DocumentText &&other) noexcept
    : bytes_(std::exchange(other.bytes_, nullptr)), size_(std::exchange(other.size_, 0)),
      capacity_(std::exchange(other.capacity_, 0)), huge_(std::exchange(other.huge_, false))
{
}

DocumentText &DocumentText::operator=(DocumentText &&other) noexcept
{
    if (this != &other) {
        DocumentText gone(std::move(*this));
        bytes_ = std::exchange(other.bytes_, nullptr);
        size_ = std::exchange(other.size_, 0);
        capacity_ = std::exchange(other.capacity_, 0);
        huge_ = std::exchange(other.huge_, false);
    }
    return *this;
}

DocumentText::~DocumentText()
{
    if (huge_)
        giveBackHugeBlock(bytes_, capacity_);
    else
        delete[] bytes_;
}

void DocumentText::reserve(std::size_t capacity)
{
    DocumentText larger;
    larger.huge_ = capacity >= kHugePageBytes;
    larger.bytes_ = larger.huge_ ? static_cast<char *>(takeHugeBlock(capacity))
                                 : new char[std::max<std::size_t>(capacity, 1)];
    larger.capacity_ = capacity;
    if (size_ > 0)
        std::memcpy(larger.bytes_, bytes_, size_);
    larger.size_ = size_;
    *this = std::move(larger);
}

DocumentReading readDocument(const std::string &path)
{
    // Non-blocking, so that opening a FIFO without a writer returns at once; the descriptor is
    // then looked at before a byte is read.
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (fd.get() < 0)
        return failed(DocumentProblem::Open, errno);
    struct stat info {
    };
    if (::fstat(fd.get(), &info) != 0)
        return failed(DocumentProblem::Read, errno);
    if (!S_ISREG(info.st_mode))
        return failed(DocumentProblem::NotRegularFile);
    if (info.st_size < 0 || std::uintmax_t(info.st_size) > kMaxCxFDocumentBytes)
        return failed(DocumentProblem::TooLarge);

    // The size is a hint only: the file may grow or shrink while it is read. The buffer has one
    // byte more than the file, so that the end of the file is seen without another buffer, and
    // grows only for a file that grew meanwhile.
    DocumentText text;
    text.reserve(std::size_t(info.st_size) + 1);
    for (;;) {
        if (text.size_ == text.capacity_) {
            if (text.size_ > kMaxCxFDocumentBytes)
                return failed(DocumentProblem::TooLarge);
            text.reserve(std::min(2 * text.capacity_, kMaxCxFDocumentBytes + 1));
        }
        const ssize_t n = ::read(fd.get(), text.bytes_ + text.size_, text.capacity_ - text.size_);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return failed(DocumentProblem::Read, errno);
        if (n == 0)
            break;
        text.size_ += std::size_t(n);
    }
    if (!isValidUtf8(text))
        return failed(DocumentProblem::InvalidUtf8);
    DocumentReading reading;
    reading.text = std::move(text);
    return reading;
}

std::optional<DocumentText> readDocumentText(const std::string &path)
{
    return readDocument(path).text;
}

std::size_t utf8SequenceLength(std::string_view text, std::size_t i)
{
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[i + k]); };
    const unsigned char lead = byte(0);
    std::size_t length = 0;
    unsigned char low = 0x80, high = 0xbf; // range of the second byte
    if (lead < 0x80)
        return 1;
    if (lead >= 0xc2 && lead <= 0xdf) {
        length = 2;
    } else if (lead >= 0xe0 && lead <= 0xef) {
        length = 3;
        low = lead == 0xe0 ? 0xa0 : 0x80;  // no overlong forms
        high = lead == 0xed ? 0x9f : 0xbf; // no surrogates
    } else if (lead >= 0xf0 && lead <= 0xf4) {
        length = 4;
        low = lead == 0xf0 ? 0x90 : 0x80;
        high = lead == 0xf4 ? 0x8f : 0xbf; // nothing past U+10FFFF
    } else {
        return 0;
    }
    if (i + length > text.size() || byte(1) < low || byte(1) > high)
        return 0;
    for (std::size_t k = 2; k < length; ++k)
        if (byte(k) < 0x80 || byte(k) > 0xbf)
            return 0;
    return length;
}

bool isValidUtf8(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        // Runs of ASCII (no byte with its high bit set) go 32, then eight bytes at a time.
        constexpr uint64_t kHighBits = 0x8080808080808080u;
        uint64_t words[4];
        while (i + sizeof words <= text.size() &&
               (std::memcpy(words, text.data() + i, sizeof words),
                ((words[0] | words[1] | words[2] | words[3]) & kHighBits) == 0))
            i += sizeof words;
        uint64_t word;
        while (i + sizeof word <= text.size() &&
               (std::memcpy(&word, text.data() + i, sizeof word), (word & kHighBits) == 0))
            i += sizeof word;
        if (i == text.size())
            break;
        const std::size_t length = utf8SequenceLength(text, i);
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}
