// The benchmark cases, shared by the Google Benchmark program and `vek
// bench`: each case calls one export at a chosen level on data prepared
// once, small enough to stay in cache.  Needs nothing beyond the library, so
// the tool builds on every target.
#ifndef VEK_BENCH_CASES_H
#define VEK_BENCH_CASES_H

#include <functional>
#include <string>
#include <vector>

namespace vekbench {

struct BenchCase {
    std::string name;                    // export and parameters, e.g. "veksAdd_16s_Sfs/sf:3"
    const char* exportName;              // the export it calls, as in core/export_list.h
    int elements;                        // elements processed by one call
    double bytesPerCall;                 // bytes read plus bytes written by one call
    std::function<void(int level)> run;  // one call of the export's implementation for a level
};

// Every case, in a stable order.  Later families append theirs in
// bench_cases.cpp.
const std::vector<BenchCase>& benchCases();

// Levels 0..5 that the running processor can execute, in order.
const std::vector<int>& availableLevels();

}  // namespace vekbench

#endif
