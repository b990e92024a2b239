// The yardstick for cxf-delta: a plain expat program that reads a whole file and parses it with
// callbacks that build nothing. The file is read with one read() into a buffer sized from
// fstat and handed to XML_Parse in one call, as a straightforward expat program does.
//
//   raw_expat_read FILE   (exit status 0 when the document is well formed)
#include "raw_expat.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: raw_expat_read FILE\n", stderr);
        return 64;
    }
    const int fd = open(argv[1], O_RDONLY | O_CLOEXEC);
    struct stat info {
    };
    if (fd < 0 || fstat(fd, &info) != 0)
        return 2;
    const auto size = static_cast<std::size_t>(info.st_size);
    char *text = static_cast<char *>(std::malloc(size ? size : 1));
    std::size_t got = 0;
    while (text && got < size) {
        const ssize_t n = read(fd, text + got, size - got);
        if (n <= 0)
            return 2;
        got += static_cast<std::size_t>(n);
    }
    close(fd);
    const RawExpatCounts counts = rawExpatParse(text, got);
    std::free(text);
    std::printf("%ld elements, %ld bytes of text\n", counts.elements, counts.characters);
    return counts.wellFormed ? 0 : 1;
}
