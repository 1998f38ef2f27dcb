// The shared state of the differential harness (profile, levels, lengths,
// the seeded generator) and the tests that walk the export list: every
// export has a differential case, and every case runs.
#include "harness.h"

#include <stdio.h>
#include <stdlib.h>

#include <set>
#include <string>

namespace vektest {

bool lightProfile() {
    static const bool light = [] {
        const char* p = getenv("VEK_TEST_PROFILE");
        return p && std::string(p) == "light";
    }();
    return light;
}

int rounds(int full) { return lightProfile() ? (full + 9) / 10 : full; }

const std::vector<int>& availableLevels() {
    static const std::vector<int> levels = [] {
        int l[vek::kLevelCount];
        return std::vector<int>(l, l + vek::supportedLevels(l));
    }();
    return levels;
}

namespace {
// The export whose differential case is running, and its levels to compare.
const vek::ExportInfo* exportUnderTest = nullptr;
std::vector<int> exportLevels;

struct ExportUnderTest {
    explicit ExportUnderTest(const char* name) {
        for (int i = 0; i < vek::kExportCount; ++i)
            if (std::string(vek::kExports[i].name) == name) exportUnderTest = &vek::kExports[i];
        exportLevels.clear();
        for (int level : availableLevels()) {
            bool shared = false;
            for (int kept : exportLevels)
                shared = shared || (exportUnderTest && exportUnderTest->table[kept] == exportUnderTest->table[level]);
            if (!shared) exportLevels.push_back(level);
        }
    }
    ~ExportUnderTest() { exportUnderTest = nullptr; }
};
}  // namespace

const std::vector<int>& levelsToCompare() { return exportUnderTest ? exportLevels : availableLevels(); }

const std::vector<int>& testLengths() {
    static const std::vector<int> lengths = [] {
        std::vector<int> v;
        for (int n = 1; n <= 40; ++n) v.push_back(n);
        for (int n : {63, 64, 65, 127, 128, 129, 255, 256, 257, 1000, 4099}) v.push_back(n);
        return v;
    }();
    return lengths;
}

Rng& rng() {
    static Rng r;
    return r;
}

uint64_t baseSeed() {
    static const uint64_t seed = [] {
        const char* text = getenv("VEK_TEST_SEED");
        if (!text || !*text) return uint64_t(20261123);
        char* end = nullptr;
        const unsigned long long value = strtoull(text, &end, 0);
        if (*end) {
            fprintf(stderr, "VEK_TEST_SEED must be a number, not \"%s\"\n", text);
            exit(2);
        }
        return uint64_t(value);
    }();
    return seed;
}

// The seed of one test: the base seed and the name's FNV-1a hash, mixed
// (splitmix64's finaliser) so that nearby seeds give unrelated sequences.
void reseed(const std::string& testName) {
    uint64_t h = 0xCBF29CE484222325u;
    for (unsigned char c : testName) h = (h ^ c) * 0x100000001B3u;
    uint64_t z = baseSeed() ^ h;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    z ^= z >> 31;
    std::seed_seq seq{uint32_t(z), uint32_t(z >> 32)};
    rng().seed(seq);
}

std::vector<DiffCase>& diffCases() {
    static std::vector<DiffCase> cases;
    return cases;
}

namespace {

// Every dispatched export must have a differential case, and no case may
// name something that is not an export.
TEST(ExportList, EveryExportHasADifferentialCase) {
    std::set<std::string> cases;
    for (const DiffCase& c : diffCases()) EXPECT_TRUE(cases.insert(c.exportName).second) << c.exportName;
    std::set<std::string> exports;
    for (int i = 0; i < vek::kExportCount; ++i) {
        exports.insert(vek::kExports[i].name);
        EXPECT_TRUE(cases.count(vek::kExports[i].name)) << vek::kExports[i].name << " has no differential case";
    }
    for (const std::string& c : cases) EXPECT_TRUE(exports.count(c)) << c << " is not in the export list";
}

// A level that shares an implementation must point at exactly that code,
// and levels naming different namespaces must have different code.
TEST(ExportList, TablesFollowTheSharingTheListRecords) {
    for (int i = 0; i < vek::kExportCount; ++i) {
        const vek::ExportInfo& e = vek::kExports[i];
        for (int a = 0; a < vek::kLevelCount; ++a) {
            ASSERT_NE(e.table[a], nullptr) << e.name;
            for (int b = 0; b < a; ++b) {
                const bool sameImpl = std::string(e.levelImpl[a]) == e.levelImpl[b];
                EXPECT_EQ(sameImpl, e.table[a] == e.table[b]) << e.name << " levels " << b << " and " << a;
            }
        }
        // A level never uses code written for a higher one.
        for (int level = 0; level < vek::kLevelCount; ++level) {
            int owner = -1;
            for (int k = 0; k < vek::kLevelCount; ++k)
                if (std::string(vek::levelNamespace(k)) == e.levelImpl[level]) owner = k;
            EXPECT_LE(owner, level) << e.name << " level " << level << " uses " << e.levelImpl[level];
            EXPECT_GE(owner, 0) << e.name;
        }
    }
}

class Differential : public ::testing::TestWithParam<int> {};

TEST_P(Differential, AllLevelsMatchLevelZero) {
    const DiffCase& c = diffCases()[GetParam()];
    SCOPED_TRACE(c.exportName);
    const ExportUnderTest scope(c.exportName);
    c.run();
}

INSTANTIATE_TEST_SUITE_P(Exports, Differential, ::testing::Range(0, static_cast<int>(diffCases().size())),
                         [](const ::testing::TestParamInfo<int>& info) {
                             return std::string(diffCases()[info.param].exportName);
                         });

}  // namespace
}  // namespace vektest
