// Time from process start to the main window's first paint, as the application itself
// reports it through its launch probe (offscreen, with a private settings folder).
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

double launchOnce()
{
    const std::string command =
        "env CXF_LAUNCH_PROBE=1 QT_QPA_PLATFORM=offscreen "
        "XDG_CONFIG_HOME=$(mktemp -d) " CXF_COMPARE_EXECUTABLE " 2>/dev/null";
    FILE *out = popen(command.c_str(), "r");
    if (!out)
        return -1;
    double ms = -1;
    char line[512];
    while (std::fgets(line, sizeof line, out))
        std::sscanf(line, "startup-ms: %lf", &ms);
    pclose(out);
    return ms;
}

void StartupToFirstPaint(benchmark::State &state)
{
    for (auto _ : state) {
        const double ms = launchOnce();
        if (ms < 0) {
            state.SkipWithError("the application did not report its start-up");
            return;
        }
        state.SetIterationTime(ms / 1000.0);
    }
}

} // namespace

BENCHMARK(StartupToFirstPaint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

BENCHMARK_MAIN();
