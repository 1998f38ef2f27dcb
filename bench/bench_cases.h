// The benchmark cases, shared by the Google Benchmark program and `vek
// bench`: each case calls one export at a chosen level on data prepared
// once, mostly small enough to stay in cache.  Needs nothing beyond the
// library, so the tool builds on every target.
//
// Each family keeps its cases in a file of its own (bench_<family>.cpp)
// and registers them with VEK_BENCH_FAMILY; a peer library doing the same
// work as a case registers with VEK_BENCH_RIVAL in a rivals_<family>.cpp
// that only the Google Benchmark program links.
#ifndef VEK_BENCH_CASES_H
#define VEK_BENCH_CASES_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vekbench {

struct BenchCase {
    std::string name;                    // export and parameters, e.g. "veksAdd_16s_Sfs/sf:3"
    const char* exportName;              // the export it calls, as in core/export_list.h
    int elements;                        // elements processed by one call
    double bytesPerCall;                 // bytes read plus bytes written by one call
    std::function<void(int level)> run;  // one call of the export's implementation for a level
};

// Every case: the families in the order of their first export in
// core/export_list.h, each family's cases in the order it added them.
const std::vector<BenchCase>& benchCases();

// ---- registration ------------------------------------------------------------

using FamilyFn = void (*)(std::vector<BenchCase>& cases);
struct FamilyRegistrar {
    explicit FamilyRegistrar(FamilyFn add);
};

// Another library's implementation of the work of the case named caseName,
// shown as a column named rival beside the levels.
struct Rival {
    std::string caseName, rival;
    std::function<void()> call;
};
std::vector<Rival>& rivals();
struct RivalRegistrar {
    RivalRegistrar(std::string caseName, std::string rival, std::function<void()> call) {
        rivals().push_back({std::move(caseName), std::move(rival), std::move(call)});
    }
};

// Levels 0..5 that the running processor can execute, in order.
const std::vector<int>& availableLevels();

}  // namespace vekbench

// VEK_BENCH_FAMILY(name) { cases.push_back(...); }  defines the function
// that appends one family's cases.
#define VEK_BENCH_FAMILY(family)                                                                \
    static void vekBenchFamily_##family(std::vector<vekbench::BenchCase>& cases);               \
    static vekbench::FamilyRegistrar vekBenchFamilyRegistrar_##family(vekBenchFamily_##family); \
    static void vekBenchFamily_##family([[maybe_unused]] std::vector<vekbench::BenchCase>& cases)

// VEK_BENCH_RIVAL(id, "case name", "rival", [] { ... });
#define VEK_BENCH_RIVAL(id, caseName, rival, ...) \
    static vekbench::RivalRegistrar vekBenchRival_##id(caseName, rival, __VA_ARGS__)

#endif
