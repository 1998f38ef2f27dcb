// vek: the command-line face of the library.
//   vek info              what the library sees on this machine
//   vek bench [--quick] [FILTER]
//                         throughput of every benchmark case on every level
//                         the processor has, and the speed-up over level 0
//   vek exports           the implementation serving each level of each export
//   vek gzip, vek zlib    files and pipes compressed by the deflate encoder,
//                         with gzip's options (vek_compress.cpp)
//   vek motion            motion search and compensation over two synthetic
//                         frames (vek_motion.cpp)
// A command is one line in kCommands.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench/bench_cases.h"
#include "core/cpu.h"
#include "core/dispatch.h"
#include "tools/vek_compress.h"
#include "tools/vek_motion.h"
#include "vek.h"

namespace {

int info(const std::vector<std::string>&) {
    const Vek32u type = vekGetCpuType();
    const VekLibraryVersion* v = veksGetLibVersion();
    std::printf("processor type   %u (%s)\n", type, vek::cpuTypeDescription(type));
    const int tableLevel = vek::levelForCpuType(type);
    int selectionResult;
    const int supported = vek::chooseLevel(vek::readCpuid(), nullptr, &selectionResult);
    const char* cap = std::getenv("VEK_MAX_LEVEL");
    std::printf("table level      %d (%s)\n", tableLevel, vek::levelIsaName(tableLevel));
    std::printf("code-path level  %d (%s)", vek::DispatchLevel, vek::levelIsaName(vek::DispatchLevel));
    if (vek::DispatchLevel != supported)
        std::printf(", capped by VEK_MAX_LEVEL=%s (the processor supports %d)", cap ? cap : "", supported);
    std::printf("\n");
    std::printf("library          %s %s, built %s\n", v->name, v->version, v->buildDate);
    int cache = 0, mhz = 0;
    if (vekGetMaxCacheSizeB(&cache) == StatusOk)
        std::printf("largest cache    %d bytes (%d KiB)\n", cache, cache / 1024);
    else
        std::printf("largest cache    unknown\n");
    if (vekGetCpuFreqMhz(&mhz) == StatusOk)
        std::printf("clock            about %d MHz\n", mhz);
    else
        std::printf("clock            unknown\n");
    return 0;
}

// Seconds per call: calls repeated for at least `window` seconds.
double secondsPerCall(const vekbench::BenchCase& c, int level, double window) {
    using clock = std::chrono::steady_clock;
    long calls = 0;
    double elapsed = 0;
    const auto start = clock::now();
    do {
        for (int i = 0; i < 16; ++i) c.run(level);
        calls += 16;
        elapsed = std::chrono::duration<double>(clock::now() - start).count();
    } while (elapsed < window);
    return elapsed / calls;
}

int bench(const std::vector<std::string>& args) {
    bool quick = false;
    std::string filter;
    for (const std::string& a : args) {
        if (a == "--quick")
            quick = true;
        else if (a.rfind("--", 0) != 0)
            filter = a;
        else {
            std::fprintf(stderr, "vek bench: unknown option %s\n", a.c_str());
            return 2;
        }
    }
    const double window = quick ? 0.003 : 0.02;
    const int repeats = quick ? 1 : 3;
    std::printf(
        "M elements/s per level (speed-up over level 0); '-' where the processor lacks the level;\n"
        "* marks the level chosen on this processor\n%-28s",
        "case");
    for (int level = 0; level < vek::kLevelCount; ++level)
        std::printf("%16s", (std::string(vek::levelIsaName(level)) + (level == vek::DispatchLevel ? "*" : "")).c_str());
    std::printf("\n");
    for (const vekbench::BenchCase& c : vekbench::benchCases()) {
        if (!filter.empty() && c.name.find(filter) == std::string::npos) continue;
        // Best of the repeats, the levels taking turns so that a burst of
        // other load on the machine does not fall on one level only.
        double best[vek::kLevelCount] = {};
        for (int level : vekbench::availableLevels()) c.run(level);  // warm the caches
        for (int r = 0; r < repeats; ++r)
            for (int level : vekbench::availableLevels()) {
                const double t = secondsPerCall(c, level, window);
                if (best[level] == 0 || t < best[level]) best[level] = t;
            }
        std::printf("%-28s", c.name.c_str());
        for (int level = 0; level < vek::kLevelCount; ++level) {
            char cell[32] = "-";
            const double rate = best[level] > 0 ? c.elements / best[level] / 1e6 : 0;
            if (level == 0)
                std::snprintf(cell, sizeof cell, "%.0f", rate);
            else if (rate > 0)
                std::snprintf(cell, sizeof cell, "%.0f x%.1f", rate, best[0] / best[level]);
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
    {"info", info, "processor type, chosen code-path level, version, cache size, clock"},
    {"bench", bench, "[--quick] [FILTER]  throughput per level and speed-up over level 0"},
    {"exports", exports, "the implementation serving each level of every export"},
    {"gzip", gzipCommand, VEK_GZIP_SUMMARY},
    {"zlib", zlibCommand, VEK_ZLIB_SUMMARY},
    {"motion", motionCommand, VEK_MOTION_SUMMARY},
};

int usage(FILE* out) {
    std::fprintf(out, "usage: vek COMMAND [ARGS]\n");
    for (const Command& c : kCommands) std::fprintf(out, "  vek %-8s %s\n", c.name, c.help);
    std::fprintf(out, "%s", kCompressOptionsHelp);
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
