#pragma once
// Runs a measurement in a forked child and brings its result back through a pipe, so that the
// memory one measurement takes cannot disturb the next one's figures.
#include <cstdlib>
#include <optional>
#include <sys/wait.h>
#include <type_traits>
#include <unistd.h>

// work() runs in the child; its result (trivially copyable) comes back, or nothing when the
// child died before sending it.
template <typename Work> auto resultInChild(Work work) -> std::optional<decltype(work())>
{
    using Result = decltype(work());
    static_assert(std::is_trivially_copyable_v<Result>);
    int channel[2];
    if (pipe(channel) != 0)
        std::abort();
    const pid_t pid = fork();
    if (pid == 0) {
        close(channel[0]);
        const Result result = work();
        _exit(write(channel[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(channel[1]);
    Result result;
    const bool received = read(channel[0], &result, sizeof result) == sizeof result;
    close(channel[0]);
    waitpid(pid, nullptr, 0);
    return received ? std::optional<Result>(result) : std::nullopt;
}
