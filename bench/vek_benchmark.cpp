// Google Benchmark over every case and every level the processor has, with
// a table of speed-ups over level 0 at the end, all from the same run.
// Rivals from other libraries (zlib, libdeflate, ...) register beside the
// level benchmarks as "<case>/<rival>" and appear in the same table.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

#include "bench_cases.h"
#include "core/cpu.h"
#include "core/dispatch.h"

namespace {

// Collects the measured time per case and level while reporting as usual.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs) {
            if (r.run_type != Run::RT_Iteration || r.iterations == 0) continue;
            const std::string name = r.benchmark_name();
            const size_t slash = name.rfind("/level:");
            if (slash == std::string::npos) continue;
            times_[name.substr(0, slash)][std::stoi(name.substr(slash + 7))] = r.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void printRatios() const {
        std::printf("\nspeed-up over level 0 (same run)\n%-32s", "case");
        for (int level = 1; level < vek::kLevelCount; ++level) std::printf("%9s", vek::levelIsaName(level));
        std::printf("\n");
        for (const auto& [name, byLevel] : times_) {
            std::printf("%-32s", name.c_str());
            const auto base = byLevel.find(0);
            for (int level = 1; level < vek::kLevelCount; ++level) {
                const auto t = byLevel.find(level);
                if (base == byLevel.end() || t == byLevel.end()) std::printf("%9s", "-");
                else std::printf("%8.1fx", base->second / t->second);
            }
            std::printf("\n");
        }
    }

private:
    std::map<std::string, std::map<int, double>> times_;
};

}  // namespace

int main(int argc, char** argv) {
    for (const vekbench::BenchCase& c : vekbench::benchCases()) {
        for (int level = 0; level < vek::kLevelCount; ++level) {
            if (!vek::processorSupportsLevel(level)) continue;
            benchmark::RegisterBenchmark((c.name + "/level:" + std::to_string(level)).c_str(),
                                         [&c, level](benchmark::State& state) {
                                             for (auto _ : state) c.run(level);
                                             state.SetItemsProcessed(state.iterations() * c.elements);
                                         });
        }
    }
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    benchmark::Shutdown();
    return 0;
}
