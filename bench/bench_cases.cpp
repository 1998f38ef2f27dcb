// The registry of benchmark cases.  Families register from their own files
// (bench_<family>.cpp); the list is put together on first use.
#include "bench_cases.h"

#include <algorithm>
#include <cstring>

#include "core/cpu.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

std::vector<FamilyFn>& families() {
    static std::vector<FamilyFn> f;
    return f;
}

// Position of an export in the list, so the table reads in list order
// whatever order the families' files were linked in.
int exportIndex(const char* name) {
    for (int i = 0; i < vek::kExportCount; ++i)
        if (!std::strcmp(vek::kExports[i].name, name)) return i;
    return vek::kExportCount;
}

std::vector<BenchCase> makeCases() {
    std::vector<std::vector<BenchCase>> perFamily;
    for (FamilyFn add : families()) {
        perFamily.emplace_back();
        add(perFamily.back());
    }
    auto firstExport = [](const std::vector<BenchCase>& f) {
        int first = vek::kExportCount;
        for (const BenchCase& c : f) first = std::min(first, exportIndex(c.exportName));
        return first;
    };
    std::stable_sort(perFamily.begin(), perFamily.end(),
                     [&](const auto& a, const auto& b) { return firstExport(a) < firstExport(b); });
    std::vector<BenchCase> all;
    for (auto& f : perFamily)
        for (BenchCase& c : f) all.push_back(std::move(c));
    return all;
}

}  // namespace

FamilyRegistrar::FamilyRegistrar(FamilyFn add) { families().push_back(add); }

std::vector<Rival>& rivals() {
    static std::vector<Rival> r;
    return r;
}

const std::vector<BenchCase>& benchCases() {
    static const std::vector<BenchCase> cases = makeCases();
    return cases;
}

const std::vector<int>& availableLevels() {
    static const std::vector<int> levels = [] {
        int l[vek::kLevelCount];
        return std::vector<int>(l, l + vek::supportedLevels(l));
    }();
    return levels;
}

}  // namespace vekbench
