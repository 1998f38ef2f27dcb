// The benchmark cases, shared by the Google Benchmark program and `vek
// bench`: each case calls one export at one level on data prepared once,
// small enough to stay in cache.
#ifndef VEK_BENCH_CASES_H
#define VEK_BENCH_CASES_H

#include <functional>
#include <string>
#include <vector>

namespace vekbench {

struct BenchCase {
    std::string name;                // export and parameters, e.g. "veksAdd_16s_Sfs/sf:3"
    int elements;                    // elements processed by one call
    std::function<void(int level)> run;  // one call of the export at a level
};

// Every case, in a stable order.  Later families append theirs here.
const std::vector<BenchCase>& benchCases();

}  // namespace vekbench

#endif
