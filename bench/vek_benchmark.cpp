// Google Benchmark over every case at every level the processor has
// ("<case>/level:N").  After the usual report it prints, per case, the
// speed-up of each level over level 0, all from the same run (with
// --benchmark_repetitions, from each benchmark's best repetition, or its
// median when only aggregates are reported).  On a machine shared with
// other work, --benchmark_repetitions=5 --benchmark_enable_random_interleaving
// spreads each cell's repetitions over the run, so a burst of other load
// rarely spoils all of them.  Other libraries' implementations of a case get
// their own column in that table; they register with VEK_BENCH_RIVAL in
// rivals_<family>.cpp files.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>

#include "bench_cases.h"
#include "core/dispatch.h"

namespace {

using vekbench::BenchCase;
using vekbench::benchCases;

// Rows are the cases, columns the levels followed by the rivals; each cell
// holds the best time of the benchmark registered for it.
class SpeedupTable {
public:
    SpeedupTable() : times_(benchCases().size()) {
        for (int level = 0; level < vek::kLevelCount; ++level) columns_.push_back(vek::levelIsaName(level));
    }

    void addLevel(size_t row, int level) {
        const BenchCase& c = benchCases()[row];
        add(row, level, "level:" + std::to_string(level), [&c, level] { c.run(level); });
    }

    // Another library's implementation of the case named caseName.
    void addRival(const std::string& caseName, const std::string& rival, std::function<void()> call) {
        const auto& cases = benchCases();
        const auto it =
            std::find_if(cases.begin(), cases.end(), [&](const BenchCase& c) { return c.name == caseName; });
        if (it == cases.end()) return (void)std::fprintf(stderr, "no bench case %s\n", caseName.c_str());
        size_t column = std::find(columns_.begin(), columns_.end(), rival) - columns_.begin();
        if (column == columns_.size()) columns_.push_back(rival);
        add(it - cases.begin(), column, rival, std::move(call));
    }

    // Keeps the best time of a benchmark; a fallback (the median when only
    // aggregates are reported) fills only a cell that has none.
    void record(const std::string& benchmark, double time, bool fallback) {
        const auto cell = cellOf_.find(benchmark);
        if (cell == cellOf_.end()) return;
        std::vector<double>& row = times_[cell->second.first];
        if (row.size() <= cell->second.second) row.resize(cell->second.second + 1, 0);
        double& t = row[cell->second.second];
        if (t == 0 || (!fallback && time < t)) t = time;
    }

    void print() const {
        std::printf("\nspeed-up over level 0 (time of level 0 / time of the column; * = level chosen here)\n%-28s",
                    "case");
        for (size_t col = 1; col < columns_.size(); ++col)
            std::printf(" %9s", (columns_[col] + (int(col) == vek::DispatchLevel ? "*" : "")).c_str());
        std::printf("\n");
        for (size_t row = 0; row < times_.size(); ++row) {
            const std::vector<double>& t = times_[row];
            if (t.empty()) continue;  // filtered out
            std::printf("%-28s", benchCases()[row].name.c_str());
            for (size_t col = 1; col < columns_.size(); ++col) {
                if (col < t.size() && t[0] > 0 && t[col] > 0)
                    std::printf("  %8s", ("x" + fixed1(t[0] / t[col])).c_str());
                else
                    std::printf("  %8s", "-");
            }
            std::printf("\n");
        }
    }

private:
    // The call is kept as its own type, so a level's case costs the same
    // one indirect call through BenchCase::run as a rival's call does.
    template <class Call>
    void add(size_t row, size_t column, const std::string& label, Call call) {
        const BenchCase& c = benchCases()[row];
        const std::string name = c.name + "/" + label;
        cellOf_[name] = {row, column};
        benchmark::RegisterBenchmark(name.c_str(), [&c, call](benchmark::State& state) {
            for (auto _ : state) call();
            state.SetItemsProcessed(state.iterations() * c.elements);
            state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * c.bytesPerCall));
        });
    }
    static std::string fixed1(double v) {
        char s[32];
        std::snprintf(s, sizeof s, "%.1f", v);
        return s;
    }

    std::vector<std::string> columns_;
    std::vector<std::vector<double>> times_;                   // [row][column], 0 = not run
    std::map<std::string, std::pair<size_t, size_t>> cellOf_;  // benchmark name -> (row, column)
};

// Reports as usual and hands every measured time to the table.
class TableReporter : public benchmark::ConsoleReporter {
public:
    explicit TableReporter(SpeedupTable& table) : table_(table) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& r : runs) {
            const bool median = r.run_type == Run::RT_Aggregate && r.aggregate_name == "median";
            if ((r.run_type == Run::RT_Iteration && r.iterations > 0) || median)
                table_.record(r.run_name.function_name, r.GetAdjustedRealTime(), median);
        }
        ConsoleReporter::ReportRuns(runs);
    }

private:
    SpeedupTable& table_;
};

}  // namespace

int main(int argc, char** argv) {
    SpeedupTable table;
    for (size_t row = 0; row < benchCases().size(); ++row)
        for (int level : vekbench::availableLevels()) table.addLevel(row, level);
    for (const vekbench::Rival& r : vekbench::rivals()) table.addRival(r.caseName, r.rival, r.call);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    TableReporter reporter(table);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    table.print();
    benchmark::Shutdown();
    return 0;
}
