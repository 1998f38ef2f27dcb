// The differential harness shared by every family's tests.
//
// Each export of the list registers one differential case (VEK_DIFF_CASE).
// A case draws random inputs and hands them to compareLevels(), which runs
// level 0 and then every other level the processor supports on the same
// inputs and checks that statuses, outputs and the guard bytes around the
// outputs are identical.  Inputs end exactly at the end of their heap block,
// so a read past them trips AddressSanitizer.
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

namespace vektest {

// The tables (vekTable_<export>) and level helpers live in namespace vek.
using namespace vek;

// VEK_TEST_PROFILE=light (used under emulation) runs fewer random rounds;
// the exports, levels and sizes covered stay the same.
bool lightProfile();
int rounds(int full);  // full, or about a tenth of it in the light profile

// Levels whose instruction set the running processor has.
const std::vector<int>& availableLevels();

// Lengths worth trying: every length up to two vectors and a bit, vector
// multiples plus and minus one, and a few large ones.
const std::vector<int>& testLengths();

using Rng = std::mt19937;
Rng& rng();

// A typed array whose last element is the last byte of its heap block.
// `offset` shifts the start by that many elements (misalignment).
template <class T>
class InputArray {
public:
    InputArray(int count, int offset = 0)
        : block_(new unsigned char[sizeof(T) * (count + offset)]),
          data_(reinterpret_cast<T*>(block_.get()) + offset),
          count_(count) {}
    T* data() { return data_; }
    const T* data() const { return data_; }
    int size() const { return count_; }
    T& operator[](int i) { return data_[i]; }

private:
    std::unique_ptr<unsigned char[]> block_;
    T* data_;
    int count_;
};

// An output array with guard bytes before and after it.
constexpr int kGuardBytes = 64;
constexpr unsigned char kGuard = 0xA5;

template <class T>
class GuardedArray {
public:
    explicit GuardedArray(int count, int offsetElements = 0)
        : bytes_(kGuardBytes * 2 + sizeof(T) * (count + offsetElements)),
          block_(bytes_, kGuard),
          count_(count),
          offset_(offsetElements) {}
    T* data() { return reinterpret_cast<T*>(block_.data() + kGuardBytes) + offset_; }
    int size() const { return count_; }
    T& operator[](int i) { return data()[i]; }
    // Fills the elements (not the guards) from a reference copy.
    void fill(const std::vector<T>& v) { memcpy(data(), v.data(), sizeof(T) * count_); }
    std::vector<T> contents() { return std::vector<T>(data(), data() + count_); }
    bool guardsIntact() const;
    const std::vector<unsigned char>& raw() const { return block_; }

private:
    size_t bytes_;
    std::vector<unsigned char> block_;
    int count_, offset_;
};

template <class T>
bool GuardedArray<T>::guardsIntact() const {
    const size_t dataBegin = kGuardBytes + sizeof(T) * offset_;
    const size_t dataEnd = dataBegin + sizeof(T) * count_;
    for (size_t i = 0; i < block_.size(); ++i)
        if ((i < kGuardBytes || i >= dataEnd) && block_[i] != kGuard) return false;
    return true;
}

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
    for (int level : availableLevels()) {
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
