// vek: the command-line face of the library.
//   vek info              what the library sees on this machine
//   vek bench [--quick] [FILTER]
//                         throughput of every benchmark case on every level
//                         the processor has, and the speed-up over level 0
//   vek exports           the implementation serving each level of each export
// Later families add their subcommands to the table in main().
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "bench/bench_cases.h"
#include "core/cpu.h"
#include "core/dispatch.h"
#include "vek.h"

namespace {

int info(const std::vector<std::string>&) {
    const Vek32u type = vekGetCpuType();
    const VekLibraryVersion* v = veksGetLibVersion();
    std::printf("processor type   %u (%s)\n", type, vek::cpuTypeDescription(type));
    std::printf("code-path level  %d (%s)\n", v->level, v->targetIsa);
    std::printf("library          %s %s, built %s\n", v->name, v->version, v->buildDate);
    int cache = 0, mhz = 0;
    if (vekGetMaxCacheSizeB(&cache) == StatusOk) std::printf("largest cache    %d KiB\n", cache / 1024);
    else std::printf("largest cache    unknown\n");
    if (vekGetCpuFreqMhz(&mhz) == StatusOk) std::printf("clock            about %d MHz\n", mhz);
    return 0;
}

// Seconds per call: calls repeated for at least `window` seconds, the best
// of `repeats` such windows.
double secondsPerCall(const vekbench::BenchCase& c, int level, double window, int repeats) {
    using clock = std::chrono::steady_clock;
    c.run(level);  // warm the caches
    double best = 1e30;
    for (int r = 0; r < repeats; ++r) {
        long calls = 0;
        const auto start = clock::now();
        double elapsed = 0;
        do {
            for (int i = 0; i < 16; ++i) c.run(level);
            calls += 16;
            elapsed = std::chrono::duration<double>(clock::now() - start).count();
        } while (elapsed < window);
        if (elapsed / calls < best) best = elapsed / calls;
    }
    return best;
}

int bench(const std::vector<std::string>& args) {
    bool quick = false;
    std::string filter;
    for (const std::string& a : args) {
        if (a == "--quick") quick = true;
        else filter = a;
    }
    const double window = quick ? 0.003 : 0.02;
    const int repeats = quick ? 1 : 3;
    std::printf("Melem/s per level (speed-up over level 0); '-' where the processor lacks the level\n");
    std::printf("%-30s", "case");
    for (int level = 0; level < vek::kLevelCount; ++level) std::printf("%16s", vek::levelIsaName(level));
    std::printf("\n");
    for (const vekbench::BenchCase& c : vekbench::benchCases()) {
        if (!filter.empty() && c.name.find(filter) == std::string::npos) continue;
        std::printf("%-30s", c.name.c_str());
        double base = 0;
        for (int level = 0; level < vek::kLevelCount; ++level) {
            if (!vek::processorSupportsLevel(level)) {
                std::printf("%16s", "-");
                continue;
            }
            const double t = secondsPerCall(c, level, window, repeats);
            if (level == 0) base = t;
            char cell[32];
            if (level == 0) std::snprintf(cell, sizeof cell, "%.0f", c.elements / t / 1e6);
            else std::snprintf(cell, sizeof cell, "%.0f (x%.1f)", c.elements / t / 1e6, base / t);
            std::printf("%16s", cell);
        }
        std::printf("\n");
        std::fflush(stdout);
    }
    return 0;
}

int exports(const std::vector<std::string>&) {
    std::printf("%-22s", "export");
    for (int level = 0; level < vek::kLevelCount; ++level) std::printf("%8s", vek::levelIsaName(level));
    std::printf("\n");
    for (int i = 0; i < vek::kExportCount; ++i) {
        std::printf("%-22s", vek::kExports[i].name);
        for (const char* impl : vek::kExports[i].levelImpl) std::printf("%8s", impl);
        std::printf("\n");
    }
    return 0;
}

struct Command {
    const char* name;
    int (*run)(const std::vector<std::string>& args);
    const char* help;
};

const Command kCommands[] = {
    {"info", info, "processor type, chosen code-path level, version, cache size"},
    {"bench", bench, "[--quick] [FILTER]  throughput per level and speed-up over level 0"},
    {"exports", exports, "the implementation serving each level of every export"},
};

int usage(FILE* out) {
    std::fprintf(out, "usage: vek COMMAND [ARGS]\n");
    for (const Command& c : kCommands) std::fprintf(out, "  vek %-8s %s\n", c.name, c.help);
    return out == stdout ? 0 : 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2 || !std::strcmp(argv[1], "help") || !std::strcmp(argv[1], "--help")) return usage(stdout);
    const std::vector<std::string> args(argv + 2, argv + argc);
    for (const Command& c : kCommands)
        if (!std::strcmp(argv[1], c.name)) return c.run(args);
    std::fprintf(stderr, "vek: unknown command '%s'\n", argv[1]);
    return usage(stderr);
}
