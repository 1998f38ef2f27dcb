// The differential harness shared by every family's tests.
//
// Each export of the list registers one differential case (VEK_DIFF_CASE).
// A case draws random inputs and hands them to compareLevels(), which runs
// level 0 and then every other level the processor supports on the same
// inputs and checks that statuses, outputs and the guard bytes around the
// outputs are identical.
//
// Inputs and outputs end at a no-access page (guarded_memory.h), so a read
// or write past them faults on every target, under qemu-i386 and Wine too;
// canary bytes before outputs catch writes there.
//
// Random inputs are reproducible: before each test the generator is
// reseeded from the base seed (VEK_TEST_SEED, a number; a fixed default
// when unset) and the test's full name, so a rerun of one test with
// --gtest_filter draws what it drew in the full run.  The program prints the
// base seed, and every failure prints the command that reruns it.
#ifndef VEK_TESTS_HARNESS_H
#define VEK_TESTS_HARNESS_H

#include <gtest/gtest.h>
#include <stdint.h>
#include <string.h>

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/cpu.h"
#include "core/dispatch.h"
#include "guarded_memory.h"

namespace vektest {

// VEK_TEST_PROFILE=light (used under emulation) runs fewer random rounds;
// the exports, levels and sizes covered stay the same.
bool lightProfile();
int rounds(int full);  // full, or about a tenth of it in the light profile

// Levels whose instruction set the running processor has.
const std::vector<int>& availableLevels();

// The levels a differential case compares: inside the case of an export,
// the available levels less those whose implementation of that export is
// the very code of a lower level (the same code gives the same bytes);
// elsewhere, every available level.
const std::vector<int>& levelsToCompare();

// Lengths worth trying: every length up to two vectors and a bit, vector
// multiples plus and minus one, and a few large ones.
const std::vector<int>& testLengths();

// The generator every random input comes from; reseed() starts a test's
// sequence (the test program does so before each test).
using Rng = std::mt19937;
Rng& rng();
uint64_t baseSeed();  // VEK_TEST_SEED, or the fixed default
void reseed(const std::string& testName);

// A typed input array whose last element is the last byte before a
// no-access page.  `offset` (misalignment) leaves that many elements of
// slack between the last element and the page, poisoned for the sanitizer;
// with offset 0 a read of one byte too many faults on every target.
template <class T>
class InputArray {
public:
    InputArray(int count, int offset = 0)
        : block_(sizeof(T) * (count + offset)), data_(reinterpret_cast<T*>(block_.data())), count_(count) {
        poisonForSanitizer(data_ + count, sizeof(T) * offset);
    }
    T* data() { return data_; }
    const T* data() const { return data_; }
    int size() const { return count_; }
    T& operator[](int i) { return data_[i]; }

private:
    GuardedBlock block_;
    T* data_;
    int count_;
};

// A copy of `v` (which may be empty) that ends at a no-access page.
template <class T>
InputArray<T> guardedCopy(const std::vector<T>& v) {
    InputArray<T> copy(static_cast<int>(v.size()));
    if (!v.empty()) memcpy(copy.data(), v.data(), sizeof(T) * v.size());
    return copy;
}

// An output array with canary bytes before it, ending at a no-access page
// like InputArray; its `offsetElements` of slack before the page hold
// canary bytes too.
constexpr int kGuardBytes = 64;
constexpr unsigned char kGuard = 0xA5;

template <class T>
class GuardedArray {
public:
    explicit GuardedArray(int count, int offsetElements = 0)
        : block_(kGuardBytes + sizeof(T) * (count + offsetElements)), count_(count) {
        memset(block_.data(), kGuard, block_.size());
    }
    T* data() { return reinterpret_cast<T*>(block_.data() + kGuardBytes); }
    int size() const { return count_; }
    T& operator[](int i) { return data()[i]; }
    // Fills the elements (not the guards) from a reference copy.
    void fill(const std::vector<T>& v) { memcpy(data(), v.data(), sizeof(T) * count_); }
    std::vector<T> contents() { return std::vector<T>(data(), data() + count_); }
    bool guardsIntact() const {
        const unsigned char* p = block_.data();
        for (size_t i = 0; i < block_.size(); ++i)
            if ((i < kGuardBytes || i >= kGuardBytes + sizeof(T) * count_) && p[i] != kGuard) return false;
        return true;
    }

private:
    GuardedBlock block_;
    int count_;
};

// Bitwise equality, except that any two NaNs of a float type compare equal
// (which input's payload a NaN carries is not fixed across levels).
template <class T>
bool sameBits(T a, T b) {
    if constexpr (std::is_floating_point_v<T>) {
        if (a != a && b != b) return true;
    }
    return memcmp(&a, &b, sizeof(T)) == 0;
}

// Runs call(level) for level 0 and every other available level, with the
// output reset to `initial` before each run, and checks that status, output
// and guards agree with level 0's.  `what` describes the inputs on failure.
template <class T, class Call>
void compareLevels(GuardedArray<T>& out, const std::vector<T>& initial, Call call, const std::string& what) {
    out.fill(initial);
    const int refStatus = call(0);
    ASSERT_TRUE(out.guardsIntact()) << "level 0 wrote outside its output; " << what;
    const std::vector<T> ref = out.contents();
    for (int level : levelsToCompare()) {
        if (level == 0) continue;
        out.fill(initial);
        const int status = call(level);
        ASSERT_EQ(status, refStatus) << "level " << level << "; " << what;
        ASSERT_TRUE(out.guardsIntact()) << "level " << level << " wrote outside its output; " << what;
        const std::vector<T> got = out.contents();
        for (int i = 0; i < out.size(); ++i)
            ASSERT_TRUE(sameBits(got[i], ref[i])) << "level " << level << " element " << i << ": " << +got[i]
                                                  << " vs level 0 " << +ref[i] << "; " << what;
    }
}

// Runs f(level) on every available level, naming the level on failure.
template <class F>
void onEveryLevel(F f) {
    for (int level : availableLevels()) {
        SCOPED_TRACE("level " + std::to_string(level));
        f(level);
    }
}

// Random values: mostly uniform over the type, with a good share of the
// extremes and of small values, where saturation and rounding happen.
template <class T>
T randomValue() {
    Rng& r = rng();
    if constexpr (std::is_floating_point_v<T>) {
        switch (r() % 8) {
        case 0: {  // any bit pattern: NaNs, infinities, subnormals
            uint32_t bits = r();
            T v;
            memcpy(&v, &bits, sizeof v);
            return v;
        }
        case 1: return static_cast<T>(static_cast<int>(r() % 33) - 16);
        default: return std::uniform_real_distribution<T>(-1e6f, 1e6f)(r);
        }
    } else {
        const T lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
        switch (r() % 8) {
        case 0: return lo;
        case 1: return hi;
        case 2: return static_cast<T>(static_cast<int>(r() % 17) - 8);
        case 3: return static_cast<T>(r() % 2 ? lo + static_cast<T>(r() % 4) : hi - static_cast<T>(r() % 4));
        default: return static_cast<T>(std::uniform_int_distribution<int64_t>(lo, hi)(r));
        }
    }
}

template <class T>
void fillRandom(T* p, int n) {
    for (int i = 0; i < n; ++i) p[i] = randomValue<T>();
}
template <class T>
std::vector<T> randomVector(int n) {
    std::vector<T> v(n);
    fillRandom(v.data(), n);
    return v;
}

// ---- the registry of differential cases ----------------------------------

struct DiffCase {
    const char* exportName;
    std::function<void()> run;
};
std::vector<DiffCase>& diffCases();
struct DiffCaseRegistrar {
    DiffCaseRegistrar(const char* name, std::function<void()> run) { diffCases().push_back({name, std::move(run)}); }
};

}  // namespace vektest

// Registers the differential case of one export; the body runs as a test.
#define VEK_DIFF_CASE(exportName, ...) \
    static vektest::DiffCaseRegistrar vekDiffCase_##exportName(#exportName, __VA_ARGS__)

#endif
