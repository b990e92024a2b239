// cxf-delta against a raw expat program, whole processes: a generated project of 10,000 patches
// with 36 points (29.8 MiB) is compared with a one-patch sample by cxf-delta, and read by
// raw_expat_read (one read, one XML_Parse, callbacks that build nothing). The two programs are
// started alternately, many times; each run's wall time is taken around fork and wait4, its CPU
// time and peak resident set from wait4's rusage. Prints the median of each and the ratios
// cxf-delta / raw expat.
//
//   tool_bench [runs [patches]]   (default 21 runs of each, 10000 patches)
#include "cxf_project.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Run {
    double wallMs = 0;
    double cpuMs = 0;
    double peakMiB = 0;
    int status = -1;
};

double milliseconds(const timeval &t)
{
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
}

// Runs argv with stdout and stderr on /dev/null and the given config folder.
Run runOnce(const std::vector<std::string> &argv)
{
    std::vector<char *> args;
    for (const std::string &a : argv)
        args.push_back(const_cast<char *>(a.c_str()));
    args.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, 1);
        dup2(null, 2);
        execv(args[0], args.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid)
        std::abort();
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    Run run;
    run.wallMs = wall.count();
    run.cpuMs = milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
    run.peakMiB = static_cast<double>(usage.ru_maxrss) / 1024;
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

struct Medians {
    double wallMs, cpuMs, peakMiB;
};

Medians mediansOf(const std::vector<Run> &runs)
{
    std::vector<double> wall, cpu, peak;
    for (const Run &r : runs) {
        wall.push_back(r.wallMs);
        cpu.push_back(r.cpuMs);
        peak.push_back(r.peakMiB);
    }
    return {median(wall), median(cpu), median(peak)};
}

} // namespace

int main(int argc, char **argv)
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 21;
    const int patches = argc > 2 ? std::max(1, std::atoi(argv[2])) : 10000;

    char folder[] = "/tmp/tool_bench.XXXXXX";
    if (!mkdtemp(folder))
        return 1;
    const std::string dir = folder;
    const std::string project = dir + "/project.cxf";
    {
        const std::string text = generateProject(patches, 36);
        std::ofstream(project, std::ios::binary) << text;
        std::printf("document: %d patches x 36 points, %zu bytes (%.1f MiB)\n", patches,
                    text.size(), static_cast<double>(text.size()) / (1 << 20));
    }
    // The tool reads the tolerance from the application's settings file, as it would for a user
    // who set it once.
    const std::string config = dir + "/config";
    mkdir(config.c_str(), 0700);
    mkdir((config + "/cxf-compare").c_str(), 0700);
    std::ofstream(config + "/cxf-compare/cxf-compare.conf")
        << "[General]\ndelta_E_CMC_tolerance=2.5\n";
    setenv("XDG_CONFIG_HOME", config.c_str(), 1);

    const std::vector<std::string> raw = {RAW_EXPAT_READ_EXECUTABLE, project};
    const std::vector<std::string> tool = {CXF_DELTA_EXECUTABLE, project,
                                           CXF_SOURCE_DIR "/data/samples/sample-a.cxf"};
    // One of each first, unmeasured: the file and both programs in the page cache.
    if (runOnce(raw).status != 0 || runOnce(tool).status > 1) {
        std::fprintf(stderr, "a program failed on the document\n");
        return 1;
    }
    std::vector<Run> rawRuns, toolRuns;
    for (int i = 0; i < runs; ++i) {
        rawRuns.push_back(runOnce(raw));
        toolRuns.push_back(runOnce(tool));
    }
    const Medians r = mediansOf(rawRuns);
    const Medians t = mediansOf(toolRuns);
    std::printf("%d runs of each, interleaved; medians\n", runs);
    std::printf("%-16s %10s %10s %10s\n", "", "wall", "CPU", "peak RSS");
    std::printf("%-16s %7.1f ms %7.1f ms %6.1f MiB\n", "raw expat", r.wallMs, r.cpuMs, r.peakMiB);
    std::printf("%-16s %7.1f ms %7.1f ms %6.1f MiB\n", "cxf-delta", t.wallMs, t.cpuMs, t.peakMiB);
    std::printf("%-16s %9.2f x %8.2f x %9.2f x   (goals: wall <= 1.5 x, peak <= 1.5 x)\n",
                "cxf-delta / raw", t.wallMs / r.wallMs, t.cpuMs / r.cpuMs, t.peakMiB / r.peakMiB);
    unlink(project.c_str());
    unlink((config + "/cxf-compare/cxf-compare.conf").c_str());
    rmdir((config + "/cxf-compare").c_str());
    rmdir(config.c_str());
    rmdir(folder);
    return 0;
}
