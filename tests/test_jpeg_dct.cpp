// JPEG DCT, quantisation and level shift: every level against level 0 on
// random blocks (full 16-bit range, JPEG-like sparse coefficients, random
// tables and steps), level 0 against double-precision references (the
// forward accuracy bounds, the IEEE 1180-1990 procedure for the inverse,
// the float path, the scaled-down inverses), worked examples, and the
// entry checks on every level.
#include <algorithm>
#include <cfenv>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

#include "image_harness.h"
#include "libjpeg_client.h"

namespace vektest {
namespace {

using vek::vekTable_vekiAdd128_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCT8x8Fwd_16s_C1R;
using vek::vekTable_vekiDCT8x8Fwd_8u16s_C1R;
using vek::vekTable_vekiDCT8x8Inv_16s8u_C1R;
using vek::vekTable_vekiDCT8x8Inv_16s_C1R;
using vek::vekTable_vekiDCT8x8InvLSClip_16s8u_C1R;
using vek::vekTable_vekiDCTQuantFwd8x8_JPEG_16s_C1;
using vek::vekTable_vekiDCTQuantFwd8x8_JPEG_16s_C1I;
using vek::vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R;
using vek::vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R;
using vek::vekTable_vekiDCTQuantInv8x8_JPEG_16s_C1;
using vek::vekTable_vekiDCTQuantInv8x8_JPEG_16s_C1I;
using vek::vekTable_vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R;
using vek::vekTable_vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R;
using vek::vekTable_vekiQuantFwd8x8_JPEG_16s_C1I;
using vek::vekTable_vekiQuantFwdRawTableInit_JPEG_8u;
using vek::vekTable_vekiQuantFwdTableInit_JPEG_8u16u;
using vek::vekTable_vekiQuantInv8x8_JPEG_16s_C1I;
using vek::vekTable_vekiQuantInvTableInit_JPEG_8u16u;
using vek::vekTable_vekiSub128_JPEG_8u16s_C1R;

// ---- random blocks and tables ------------------------------------------------

// Coefficients: anything 16 bits hold, or a sparse JPEG-like block (a few
// low-frequency values of a few hundred, zeros elsewhere), or 12-bit values.
std::vector<Vek16s> randomCoefficients() {
    std::vector<Vek16s> c(64, 0);
    switch (rng()() % 3) {
    case 0: fillRandom(c.data(), 64); break;
    case 1:
        for (int i = 0; i < 64; ++i)
            if (rng()() % (1 + i / 4) == 0) c[i] = static_cast<Vek16s>(int(rng()() % 1025) - 512);
        break;
    default:
        for (Vek16s& x : c) x = static_cast<Vek16s>(int(rng()() % 4096) - 2048);
    }
    return c;
}
// Forward tables from real quality factors, or any 16-bit values.
std::vector<Vek16u> randomTable() {
    std::vector<Vek16u> t(64);
    if (rng()() % 2) {
        fillRandom(t.data(), 64);
    } else {
        const int q = 1 + rng()() % 255;
        for (Vek16u& x : t) x = static_cast<Vek16u>(rng()() % 2 ? 32768 / q : 1 + rng()() % q);
    }
    return t;
}
std::vector<Vek32f> randomFloatTable() {
    std::vector<Vek32f> t(64);
    for (Vek32f& x : t) x = rng()() % 8 ? 1.0f / float(1 + rng()() % 64) : randomValue<Vek32f>();
    return t;
}
template <class T>
std::vector<T> guardedCopyOf(const std::vector<T>& v, InputArray<T>& a) {
    memcpy(a.data(), v.data(), v.size() * sizeof(T));
    return v;
}
// An 8 x 8 sample image ending at the no-access page, with random padding:
// random samples, 12-bit ones for the float path, or (for the integer
// forms) only the extremes of the type, where the bounds the vector levels
// rely on are tightest and 16-bit inputs wrap.
template <class T>
GuardedImage<T> sampleBlock(bool twelveBit = false) {
    ImageLayout layout = randomLayout<T>();
    layout.bottomUp = false;
    layout.guardAfter = false;
    GuardedImage<T> image(8, 8, layout);
    if (twelveBit && rng()() % 2) image.fill([](int, int) { return static_cast<T>(rng()() % 4096); });
    if (!twelveBit && rng()() % 4 == 0)
        image.fill(
            [](int, int) { return rng()() % 2 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min(); });
    return image;
}
template <class T>
GuardedImage<T> outputBlock(int side = 8) {
    ImageLayout layout = randomLayout<T>();
    layout.bottomUp = false;
    return GuardedImage<T>(side, side, layout);
}

// ---- the differential cases --------------------------------------------------------

// A stepped source image to a contiguous block: call(level, src, step, dst).
template <class S, class Call>
void diffImageToBlock(Call call, bool twelveBit = false) {
    for (int round = 0; round < rounds(50); ++round) {
        GuardedImage<S> src = sampleBlock<S>(twelveBit);
        GuardedArray<Vek16s> dst(64);
        compareLevels(
            dst, std::vector<Vek16s>(64, 7), [&](int l) { return int(call(l, src.origin(), src.step(), dst.data())); },
            src.layout().describe());
        if (::testing::Test::HasFatalFailure()) return;
    }
}
// A contiguous block to a stepped image of `side` rows: call(level, src, dst, step).
template <class D, class Call>
void diffBlockToImage(Call call, int side = 8) {
    for (int round = 0; round < rounds(50); ++round) {
        InputArray<Vek16s> src(64);
        guardedCopyOf(randomCoefficients(), src);
        GuardedImage<D> dst = outputBlock<D>(side);
        compareImageLevels(
            dst, [&](int l) { return int(call(l, src.data(), dst.origin(), dst.step())); }, dst.layout().describe());
        if (::testing::Test::HasFatalFailure()) return;
    }
}
// A contiguous block to a contiguous block: call(level, src, dst) with dst
// starting as `initial` (the in-place forms take dst only).
template <class Call>
void diffBlockToBlock(Call call) {
    for (int round = 0; round < rounds(50); ++round) {
        InputArray<Vek16s> src(64);
        const std::vector<Vek16s> initial = guardedCopyOf(randomCoefficients(), src);
        GuardedArray<Vek16s> dst(64);
        compareLevels(
            dst, initial, [&](int l) { return int(call(l, src.data(), dst.data())); }, "block");
        if (::testing::Test::HasFatalFailure()) return;
    }
}
template <class T>
const T* guardedTable(InputArray<T>& a, const std::vector<T>& v) {
    memcpy(a.data(), v.data(), 64 * sizeof(T));
    return a.data();
}

// The case of an export, run with four random tables (unused by the
// transforms without one).
#define VEK_TABLE_CASE(Name, TableType, makeTable, ...)            \
    VEK_DIFF_CASE(Name, [] {                                       \
        for (int t = 0; t < 4; ++t) {                              \
            InputArray<TableType> q(64);                           \
            const TableType* table = guardedTable(q, makeTable()); \
            auto f = vek::vekTable_##Name;                         \
            (void)table;                                           \
            __VA_ARGS__;                                           \
        }                                                          \
    })

VEK_TABLE_CASE(vekiDCT8x8Fwd_16s_C1R, Vek16u, randomTable,
               diffImageToBlock<Vek16s>([&](int l, auto s, int st, auto d) { return f[l](s, st, d); }));
VEK_TABLE_CASE(vekiDCT8x8Fwd_8u16s_C1R, Vek16u, randomTable,
               diffImageToBlock<Vek8u>([&](int l, auto s, int st, auto d) { return f[l](s, st, d); }));
VEK_TABLE_CASE(vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R, Vek16u, randomTable,
               diffImageToBlock<Vek8u>([&](int l, auto s, int st, auto d) { return f[l](s, st, d, table); }));
VEK_TABLE_CASE(vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R, Vek32f, randomFloatTable,
               diffImageToBlock<Vek16u>([&](int l, auto s, int st, auto d) { return f[l](s, st, d, table); }, true));
VEK_TABLE_CASE(vekiDCT8x8Inv_16s_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek16s>([&](int l, auto s, auto d, int st) { return f[l](s, d, st); }));
VEK_TABLE_CASE(vekiDCT8x8Inv_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st); }));
VEK_TABLE_CASE(vekiDCT8x8InvLSClip_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) {
                   return f[l](s, d, st, table[0], Vek8u(table[1]), Vek8u(table[2]));
               }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R, Vek32f, randomFloatTable,
               diffBlockToImage<Vek16u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }, 2));
VEK_TABLE_CASE(vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R, Vek16u, randomTable,
               diffBlockToImage<Vek8u>([&](int l, auto s, auto d, int st) { return f[l](s, d, st, table); }, 4));
VEK_TABLE_CASE(vekiDCTQuantFwd8x8_JPEG_16s_C1, Vek16u, randomTable,
               diffBlockToBlock([&](int l, auto s, auto d) { return f[l](s, d, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8_JPEG_16s_C1, Vek16u, randomTable,
               diffBlockToBlock([&](int l, auto s, auto d) { return f[l](s, d, table); }));
VEK_TABLE_CASE(vekiDCTQuantFwd8x8_JPEG_16s_C1I, Vek16u, randomTable,
               diffBlockToBlock([&](int l, auto, auto d) { return f[l](d, table); }));
VEK_TABLE_CASE(vekiDCTQuantInv8x8_JPEG_16s_C1I, Vek16u, randomTable,
               diffBlockToBlock([&](int l, auto, auto d) { return f[l](d, table); }));
VEK_TABLE_CASE(vekiQuantFwd8x8_JPEG_16s_C1I, Vek16u, randomTable,
               diffBlockToBlock([&](int l, auto, auto d) { return f[l](d, table); }));
VEK_TABLE_CASE(vekiQuantInv8x8_JPEG_16s_C1I, Vek16u, randomTable,
               diffBlockToBlock([&](int l, auto, auto d) { return f[l](d, table); }));

// The table builders: a raw table in, 64 entries out.
template <class Fn>
void diffRawTable(const Fn* f) {
    for (int round = 0; round < rounds(100); ++round) {
        InputArray<Vek8u> raw(64);
        fillRandom(raw.data(), 64);
        GuardedArray<Vek16u> out(64);
        compareLevels(
            out, std::vector<Vek16u>(64, 7), [&](int l) { return int(f[l](raw.data(), out.data())); }, "");
    }
}
VEK_DIFF_CASE(vekiQuantFwdTableInit_JPEG_8u16u, [] { diffRawTable(vekTable_vekiQuantFwdTableInit_JPEG_8u16u); });
VEK_DIFF_CASE(vekiQuantInvTableInit_JPEG_8u16u, [] { diffRawTable(vekTable_vekiQuantInvTableInit_JPEG_8u16u); });
VEK_DIFF_CASE(vekiQuantFwdRawTableInit_JPEG_8u, [] {
    for (int quality : {-1, 0, 1, 2, 25, 49, 50, 51, 75, 99, 100, 101, 150, 1 << 30, 0x7FFFFFFF}) {
        GuardedArray<Vek8u> table(64);
        compareLevels(
            table, randomVector<Vek8u>(64),
            [&](int l) { return int(vekTable_vekiQuantFwdRawTableInit_JPEG_8u[l](table.data(), quality)); },
            "quality " + std::to_string(quality));
    }
});

// Level shifts over random regions.
template <class S, class D, class Fn>
void diffLevelShift(const Fn* table) {
    for (int round = 0; round < rounds(100); ++round) {
        const int width = 1 + rng()() % 70, height = 1 + rng()() % 4;
        ImageLayout in = randomLayout<S>(), out = randomLayout<D>();
        in.guardAfter = false;
        GuardedImage<S> src(width, height, in);
        GuardedImage<D> dst(width, height, out);
        compareImageLevels(
            dst,
            [&](int l) {
                return int(table[l](src.origin(), src.step(), dst.origin(), dst.step(), {width, height}));
            },
            in.describe() + "; " + out.describe());
    }
}
VEK_DIFF_CASE(vekiAdd128_JPEG_16s8u_C1R, [] { diffLevelShift<Vek16s, Vek8u>(vekTable_vekiAdd128_JPEG_16s8u_C1R); });
VEK_DIFF_CASE(vekiSub128_JPEG_8u16s_C1R, [] { diffLevelShift<Vek8u, Vek16s>(vekTable_vekiSub128_JPEG_8u16s_C1R); });

// ---- references in double precision ----------------------------------------------

constexpr double kPi = 3.14159265358979323846;

// basis[u][x] = C(u)/2 cos((2x+1) u pi / 16): the T.81 DCT is basis f basis^T.
struct Basis {
    double m[8][8];
    Basis() {
        for (int u = 0; u < 8; ++u)
            for (int x = 0; x < 8; ++x)
                m[u][x] = (u ? 0.5 : 0.5 / std::sqrt(2.0)) * std::cos((2 * x + 1) * u * kPi / 16);
    }
};
const Basis kBasis;

// The T.81 forward (inverse) DCT of a block, separable in double precision.
std::vector<double> referenceDct(const std::vector<double>& in, bool inverse) {
    std::vector<double> t(64, 0.0), out(64, 0.0);
    auto b = [&](int i, int j) { return inverse ? kBasis.m[j][i] : kBasis.m[i][j]; };
    for (int r = 0; r < 8; ++r)
        for (int k = 0; k < 8; ++k)
            for (int j = 0; j < 8; ++j) t[8 * r + k] += b(k, j) * in[8 * r + j];
    for (int c = 0; c < 8; ++c)
        for (int k = 0; k < 8; ++k)
            for (int j = 0; j < 8; ++j) out[8 * k + c] += b(k, j) * t[8 * j + c];
    return out;
}

// The pseudo-random numbers of the IEEE 1180-1990 procedure, in [-low, high].
struct Ieee1180Random {
    uint32_t x = 1;
    int next(int low, int high) {
        x = x * 1103515245u + 12345u;
        const double u = static_cast<double>(x & 0x7FFFFFFEu) / 0x7FFFFFFF * (low + high + 1);
        return static_cast<int>(u) - low;
    }
};

double roundHalfUp(double x) { return std::floor(x + 0.5 + 1e-9); }  // the tolerance absorbs cosine rounding

// Error statistics over many blocks: peak, per-position mean square and mean,
// overall mean square and mean.
struct ErrorStats {
    double peak = 0, sq[64] = {}, sum[64] = {};
    int blocks = 0;
    void add(const std::vector<double>& err) {
        ++blocks;
        for (int i = 0; i < 64; ++i) {
            peak = std::max(peak, std::fabs(err[i]));
            sq[i] += err[i] * err[i];
            sum[i] += err[i];
        }
    }
    double worstMse() const { return *std::max_element(sq, sq + 64) / blocks; }
    double worstMean() const {
        double w = 0;
        for (double s : sum) w = std::max(w, std::fabs(s) / blocks);
        return w;
    }
    double overallMse() const { return std::accumulate(sq, sq + 64, 0.0) / (64.0 * blocks); }
    double overallMean() const { return std::fabs(std::accumulate(sum, sum + 64, 0.0)) / (64.0 * blocks); }
};

// Over random 8-bit samples (4000 blocks in the light profile, enough for
// the bounds to hold with margin).
TEST(JpegDct, ForwardStaysWithinItsAccuracyBounds) {
    std::vector<ErrorStats> stats(vek::kLevelCount);
    Vek16u ones[64];
    for (Vek16u& q : ones) q = 32768;  // quantisation by 1 changes nothing
    for (int n = 0; n < (lightProfile() ? 4000 : 10000); ++n) {
        Vek8u samples[64];
        std::vector<double> shifted(64);
        for (int i = 0; i < 64; ++i) shifted[i] = (samples[i] = Vek8u(rng()())) - 128.0;
        const std::vector<double> want = referenceDct(shifted, false);
        for (int level : availableLevels()) {
            Vek16s got[64];
            ASSERT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[level](samples, 8, got, ones), StatusOk);
            std::vector<double> err(64);
            for (int i = 0; i < 64; ++i) err[i] = got[i] - roundHalfUp(want[i]);
            stats[level].add(err);
        }
    }
    for (int level : availableLevels()) {
        EXPECT_LE(stats[level].peak, 1.0) << "level " << level;
        EXPECT_LE(stats[level].worstMse(), 0.03) << "level " << level;
        EXPECT_LE(stats[level].overallMean(), 0.005) << "level " << level;
    }
}

// IEEE 1180-1990: random blocks in [-L, H], their reference DCT rounded and
// clipped to 12 bits, inverted by the reference and by the library; each
// range with both signs.
TEST(JpegDct, InverseMeetsIeee1180) {
    struct Range {
        int low, high;
    };
    for (const Range range : {Range{256, 255}, Range{5, 5}, Range{300, 300}}) {
        for (int sign : {1, -1}) {
            Ieee1180Random random;
            ErrorStats stats;
            for (int n = 0; n < rounds(10000); ++n) {
                std::vector<double> block(64);
                for (double& x : block) x = sign * random.next(range.low, range.high);
                std::vector<double> coef = referenceDct(block, false);
                Vek16s in[64], out[64];
                for (int i = 0; i < 64; ++i)
                    coef[i] = in[i] = Vek16s(std::min(2047.0, std::max(-2048.0, std::nearbyint(coef[i]))));
                const std::vector<double> want = referenceDct(coef, true);
                ASSERT_EQ(vekTable_vekiDCT8x8Inv_16s_C1R[0](in, out, 16), StatusOk);
                std::vector<double> err(64);
                for (int i = 0; i < 64; ++i)
                    err[i] = std::min(255, std::max(-256, int(out[i]))) -
                             std::min(255.0, std::max(-256.0, std::nearbyint(want[i])));
                stats.add(err);
            }
            const std::string what = "range " + std::to_string(range.low) + " sign " + std::to_string(sign);
            EXPECT_LE(stats.peak, 1.0) << what;
            EXPECT_LE(stats.worstMse(), 0.06) << what;
            EXPECT_LE(stats.overallMse(), 0.02) << what;
            EXPECT_LE(stats.worstMean(), 0.015) << what;
            EXPECT_LE(stats.overallMean(), 0.0015) << what;
        }
    }
    Vek16s zero[64] = {}, out[64];
    ASSERT_EQ(vekTable_vekiDCT8x8Inv_16s_C1R[0](zero, out, 16), StatusOk);
    for (Vek16s x : out) EXPECT_EQ(x, 0);
}

// An encoder's block through a decoder's with unit tables comes back within 1.
TEST(JpegDct, ForwardThenInverseReturnsTheSamples) {
    Vek16u fwd[64], inv[64];
    for (int i = 0; i < 64; ++i) fwd[i] = 32768, inv[i] = 1;
    onEveryLevel([&](int level) {
        for (int n = 0; n < rounds(500); ++n) {
            Vek8u samples[64], back[64];
            Vek16s coef[64];
            for (Vek8u& s : samples) s = Vek8u(rng()());
            ASSERT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[level](samples, 8, coef, fwd), StatusOk);
            ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R[level](coef, back, 8, inv), StatusOk);
            for (int i = 0; i < 64; ++i) ASSERT_LE(std::abs(back[i] - samples[i]), 1) << "sample " << i;
        }
    });
}

// The 12-bit path against the reference: within one of the exact result.
TEST(JpegDct, FloatPathFollowsTheReference) {
    float ones[64];
    for (float& q : ones) q = 1.0f;
    onEveryLevel([&](int level) {
        for (int n = 0; n < rounds(300); ++n) {
            Vek16u samples[64], back[64];
            Vek16s coef[64];
            std::vector<double> shifted(64);
            for (int i = 0; i < 64; ++i) shifted[i] = (samples[i] = Vek16u(rng()() % 4096)) - 2048.0;
            ASSERT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R[level](samples, 16, coef, ones), StatusOk);
            const std::vector<double> want = referenceDct(shifted, false);
            for (int i = 0; i < 64; ++i) ASSERT_LE(std::fabs(coef[i] - want[i]), 0.5 + 1e-3) << "coefficient " << i;
            ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R[level](coef, back, 16, ones), StatusOk);
            std::vector<double> c(coef, coef + 64);
            const std::vector<double> spatial = referenceDct(c, true);
            for (int i = 0; i < 64; ++i)
                ASSERT_LE(std::fabs(back[i] - std::min(4095.0, std::max(0.0, spatial[i] + 2048))), 0.5 + 1e-3) << i;
        }
    });
}

// Under each rounding mode of the caller (x87 and SSE alike) the float path
// gives level 0's bits at every level: the arithmetic follows the mode the
// same way everywhere, and the final rounding to nearest ignores it.
TEST(JpegDct, FloatPathAgreesUnderTheCallersRoundingMode) {
    const int saved = fegetround();
    for (int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        for (int n = 0; n < rounds(20); ++n) {
            const std::vector<Vek32f> table = randomFloatTable();
            Vek16u samples[64];
            Vek16s coef[64], want[64], got[64];
            for (int i = 0; i < 64; ++i) {
                samples[i] = Vek16u(rng()() % 4096);
                coef[i] = Vek16s(int(rng()() % 201) - 100);
            }
            Vek16u wantBack[64], gotBack[64];
            ASSERT_EQ(fesetround(mode), 0);
            vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R[0](samples, 16, want, table.data());
            vekTable_vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R[0](coef, wantBack, 16, table.data());
            fesetround(saved);
            onEveryLevel([&](int level) {
                ASSERT_EQ(fesetround(mode), 0);
                vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R[level](samples, 16, got, table.data());
                vekTable_vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R[level](coef, gotBack, 16, table.data());
                fesetround(saved);
                ASSERT_TRUE(std::equal(want, want + 64, got)) << "forward, mode " << mode;
                ASSERT_TRUE(std::equal(wantBack, wantBack + 64, gotBack)) << "inverse, mode " << mode;
            });
        }
    }
}

// The libjpeg-compatible inverse on random samples' rounded coefficients:
// within 1 of the exact inverse, unbiased.
TEST(JpegDct, LlmInverseFollowsTheExactInverse) {
    Vek16u ones[64];
    for (Vek16u& q : ones) q = 1;
    ErrorStats stats;
    for (int n = 0; n < rounds(3000); ++n) {
        std::vector<double> shifted(64);
        for (double& x : shifted) x = int(rng()() % 256) - 128;
        std::vector<double> coef = referenceDct(shifted, false);
        Vek16s in[64];
        for (int i = 0; i < 64; ++i) coef[i] = in[i] = Vek16s(std::nearbyint(coef[i]));
        const std::vector<double> want = referenceDct(coef, true);
        Vek8u out[64];
        ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R[0](in, out, 8, ones), StatusOk);
        std::vector<double> err(64);
        for (int i = 0; i < 64; ++i) err[i] = out[i] - std::min(255.0, std::max(0.0, std::nearbyint(want[i]) + 128));
        stats.add(err);
    }
    EXPECT_LE(stats.peak, 1.0);
    EXPECT_LE(stats.worstMse(), 0.06);
    EXPECT_LE(stats.overallMean(), 0.0015);
}

// Extreme blocks (every value -32768 or 32767, so sums peak and passes
// saturate) give level 0's samples at every level.
TEST(JpegDct, LlmInverseAgreesOnExtremeBlocks) {
    Vek16u ones[64];
    for (Vek16u& q : ones) q = 1;
    for (int n = 0; n < rounds(200); ++n) {
        Vek16s in[64];
        for (Vek16s& x : in) x = rng()() % 2 ? 32767 : -32768;
        Vek8u want[64];
        ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R[0](in, want, 8, ones), StatusOk);
        onEveryLevel([&](int level) {
            Vek8u got[64];
            ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R[level](in, got, 8, ones), StatusOk);
            ASSERT_EQ(0, memcmp(got, want, 64));
        });
    }
}

#ifdef VEK_HAVE_LIBJPEG
// Grey files of libjpeg-turbo (the photograph and noise, which fills every
// coefficient, at qualities from 10 to 100), decoded by it and by the
// inverse from their coefficients: the same samples at every level.
TEST(JpegDct, LlmInverseGivesLibjpegTurbosSamples) {
    Pixels noise;
    noise.width = noise.height = 128;
    noise.channels = 1;
    noise.data.resize(128 * 128);
    for (unsigned char& x : noise.data) x = static_cast<unsigned char>(rng()());
    for (const Pixels& image : {libjpegDecode(naturalJpeg(), 1), noise})
        for (int quality : {10, 50, 90, 100}) {
            LibjpegSettings settings;
            settings.quality = quality;
            settings.sampling = "gray";
            const std::vector<unsigned char> file = libjpegEncode(image, settings);
            const std::vector<short> coef = libjpegCoefficients(file);
            const std::vector<unsigned short> table = libjpegQuantTable(file, 0);
            const Pixels want = libjpegDecode(file, 1);
            std::vector<Vek8u> got(want.data.size());
            onEveryLevel([&](int level) {
                for (int by = 0; by < image.height / 8; ++by)
                    for (int bx = 0; bx < image.width / 8; ++bx)
                        ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R[level](
                                      &coef[size_t(by * image.width / 8 + bx) * 64],
                                      &got[size_t(by) * 8 * image.width + 8 * bx], image.width, table.data()),
                                  StatusOk);
                ASSERT_TRUE(got == want.data) << "quality " << quality << " width " << image.width;
            });
        }
}
#endif

// Scaled-down decoding gives the means of the groups of the exact inverse,
// within one; the 2x2 and 4x4 full blocks equal the full inverse of the
// block cut to those coefficients.
TEST(JpegDct, ReducedInversesFollowTheFullInverse) {
    Vek16u inv[64];
    for (int i = 0; i < 64; ++i) inv[i] = Vek16u(1 + rng()() % 4);
    onEveryLevel([&](int level) {
        for (int n = 0; n < rounds(300); ++n) {
            std::vector<Vek16s> coef(64);
            for (Vek16s& c : coef) c = Vek16s(int(rng()() % 101) - 50);
            coef[0] = Vek16s(int(rng()() % 401) - 200);
            std::vector<double> deq(64);
            for (int i = 0; i < 64; ++i) deq[i] = coef[i] * inv[i];
            const std::vector<double> spatial = referenceDct(deq, true);
            for (int factor : {2, 4}) {
                const int side = 8 / factor;
                Vek8u out[16];
                auto f = factor == 2 ? vekTable_vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R
                                     : vekTable_vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R;
                ASSERT_EQ(f[level](coef.data(), out, side, inv), StatusOk);
                for (int y = 0; y < side; ++y)
                    for (int x = 0; x < side; ++x) {
                        double mean = 0;
                        for (int i = 0; i < factor; ++i)
                            for (int j = 0; j < factor; ++j) mean += spatial[8 * (factor * y + i) + factor * x + j];
                        mean = std::min(255.0, std::max(0.0, mean / (factor * factor) + 128));
                        ASSERT_LE(std::fabs(out[side * y + x] - mean), 1.0) << "factor " << factor;
                    }
            }
            for (int kept : {2, 4}) {
                std::vector<Vek16s> cut(64, 0);
                for (int u = 0; u < kept; ++u)
                    for (int v = 0; v < kept; ++v) cut[8 * u + v] = coef[8 * u + v];
                Vek8u full[64], reduced[64];
                ASSERT_EQ(vekTable_vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R[level](cut.data(), full, 8, inv), StatusOk);
                auto f = kept == 2 ? vekTable_vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R
                                   : vekTable_vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R;
                ASSERT_EQ(f[level](coef.data(), reduced, 8, inv), StatusOk);
                ASSERT_EQ(0, memcmp(full, reduced, 64)) << kept << " x " << kept;
            }
        }
    });
}

// ---- worked examples --------------------------------------------------------------

TEST(JpegDct, WorkedExamples) {
    onEveryLevel([](int level) {
        // A flat block of s: DC 8 s, no AC.
        for (int s : {0, 1, 77, 200, 255}) {
            Vek8u flat[64];
            Vek16s coef[64];
            memset(flat, s, sizeof flat);
            ASSERT_EQ(vekTable_vekiDCT8x8Fwd_8u16s_C1R[level](flat, 8, coef), StatusOk);
            EXPECT_EQ(coef[0], 8 * s);
            for (int i = 1; i < 64; ++i) EXPECT_EQ(coef[i], 0) << i;
        }
        // Quality scaling.
        Vek8u raw[64];
        auto scaled = [&](int quality, Vek8u entry) {
            memset(raw, entry, 64);
            const VekStatus status = vekTable_vekiQuantFwdRawTableInit_JPEG_8u[level](raw, quality);
            return status == StatusOk ? int(raw[63]) : status;
        };
        EXPECT_EQ(scaled(1, 16), 255);  // scale 5000
        EXPECT_EQ(scaled(1, 0), 1);
        EXPECT_EQ(scaled(0, 16), StatusBadArgument);
        EXPECT_EQ(scaled(150, 200), 1);
        EXPECT_EQ(scaled(0x7FFFFFFF, 255), 1);
        EXPECT_EQ(scaled(100, 255), 1);
        EXPECT_EQ(scaled(50, 99), 99);
        EXPECT_EQ(scaled(50, 0), 1);
        EXPECT_EQ(scaled(75, 16), 8);  // scale 50: (16 * 50 + 50) / 100
        EXPECT_EQ(scaled(10, 3), 15);  // scale 500
        // Reciprocal tables: natural order, 1 -> 32768, 255 -> 129, 0 -> 65535.
        Vek8u zigzag[64];
        Vek16u table[64];
        for (int i = 0; i < 64; ++i) zigzag[i] = Vek8u(i == 2 ? 0 : (i == 1 ? 255 : 1));
        EXPECT_EQ(vekTable_vekiQuantFwdTableInit_JPEG_8u16u[level](zigzag, table), StatusDivisorZero);
        EXPECT_EQ(table[0], 32768);
        EXPECT_EQ(table[1], 129);    // zig-zag position 1
        EXPECT_EQ(table[8], 65535);  // zig-zag position 2 is natural index 8
        EXPECT_EQ(table[63], 32768);
        for (int i = 0; i < 64; ++i) zigzag[i] = Vek8u(i);
        EXPECT_EQ(vekTable_vekiQuantInvTableInit_JPEG_8u16u[level](zigzag, table), StatusOk);
        EXPECT_EQ(table[8], 2);
        EXPECT_EQ(table[9], 4);
        EXPECT_EQ(table[57], 36);
        // Quantising 3 and 5 by 2: 1.5 and 2.5 go to even; then saturation.
        Vek16s block[64] = {3, 5, -3, -5, 7, 32767, -32768, 32767};
        Vek16u recip[64];
        for (Vek16u& r : recip) r = 16384;
        recip[5] = 65535;
        recip[6] = 65535;
        recip[7] = 32768;
        EXPECT_EQ(vekTable_vekiQuantFwd8x8_JPEG_16s_C1I[level](block, recip), StatusOk);
        const Vek16s want[8] = {2, 2, -2, -2, 4, 32767, -32768, 32767};
        for (int i = 0; i < 8; ++i) EXPECT_EQ(block[i], want[i]) << i;
        // Dequantising saturates and reads the table as signed.
        Vek16s deq[64] = {300, -300, 2, 7};
        Vek16u q[64] = {200, 200, 0xFFFF, 0x8000};
        EXPECT_EQ(vekTable_vekiQuantInv8x8_JPEG_16s_C1I[level](deq, q), StatusOk);
        EXPECT_EQ(deq[0], 32767);
        EXPECT_EQ(deq[1], -32768);
        EXPECT_EQ(deq[2], -2);
        EXPECT_EQ(deq[3], -32768);
        // DC only: -1 >> 3 floors to -1, giving 127.
        Vek16s dc[64] = {-1};
        Vek16u one[64] = {1};
        Vek8u out[64];
        EXPECT_EQ(vekTable_vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R[level](dc, out, 8, one), StatusOk);
        for (Vek8u v : out) EXPECT_EQ(v, 127);
        // Scaled-down DC only: floor((D + 4) / 8) + 128.
        for (int d : {-4, -5, 3, 4, 12, 100}) {
            dc[0] = Vek16s(d);
            EXPECT_EQ(vekTable_vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R[level](dc, out, 2, one), StatusOk);
            const int v = int(std::floor((d + 4) / 8.0)) + 128;
            for (int i = 0; i < 4; ++i) EXPECT_EQ(out[i], v) << "D " << d;
        }
        // Clip bounds in the wrong order: below clipMin gives clipMin, else
        // above clipMax gives clipMax.
        Vek16s flat[64] = {8 * 100};  // DC 800: every result 100
        EXPECT_EQ(vekTable_vekiDCT8x8InvLSClip_16s8u_C1R[level](flat, out, 8, 0, 150, 50), StatusOk);
        EXPECT_EQ(out[0], 150);
        EXPECT_EQ(vekTable_vekiDCT8x8InvLSClip_16s8u_C1R[level](flat, out, 8, 0, 20, 50), StatusOk);
        EXPECT_EQ(out[0], 50);
        EXPECT_EQ(vekTable_vekiDCT8x8InvLSClip_16s8u_C1R[level](flat, out, 8, -30, 20, 90), StatusOk);
        EXPECT_EQ(out[63], 70);
        // Level shifts.
        Vek16s wide[4] = {-129, -128, 127, 128};
        EXPECT_EQ(vekTable_vekiAdd128_JPEG_16s8u_C1R[level](wide, 8, out, 4, {4, 1}), StatusOk);
        EXPECT_EQ(std::vector<int>(out, out + 4), (std::vector<int>{0, 0, 255, 255}));
        EXPECT_EQ(vekTable_vekiSub128_JPEG_8u16s_C1R[level](out, 4, wide, 8, {4, 1}), StatusOk);
        EXPECT_EQ(std::vector<int>(wide, wide + 4), (std::vector<int>{-128, -128, 127, 127}));
    });
}

// ---- the rules at entry ----------------------------------------------------------

TEST(JpegDct, ChecksInTheirOrderAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek16s coef[64] = {}, dst16[64];
        Vek8u samples[64] = {}, dst8[64];
        Vek16u q[64] = {}, dst16u[64];
        Vek32f fq[64] = {};
        memset(dst8, 0xA5, sizeof dst8);
        memset(dst16, 0xA5, sizeof dst16);
        memset(dst16u, 0xA5, sizeof dst16u);
        constexpr int N = StatusNullPointer, S = StatusStep, Z = StatusSize;
        EXPECT_EQ(vekTable_vekiDCT8x8Fwd_16s_C1R[level](nullptr, 0, dst16), N);
        EXPECT_EQ(vekTable_vekiDCT8x8Fwd_8u16s_C1R[level](samples, 0, dst16), S);
        EXPECT_EQ(vekTable_vekiDCT8x8Inv_16s_C1R[level](coef, nullptr, 16), N);
        EXPECT_EQ(vekTable_vekiDCT8x8Inv_16s8u_C1R[level](coef, dst8, -8), S);
        EXPECT_EQ(vekTable_vekiDCT8x8InvLSClip_16s8u_C1R[level](coef, dst8, 0, 0, 0, 255), S);
        // Stepped fused functions: pointers, then the step, then the table.
        EXPECT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[level](samples, 0, dst16, nullptr), S);
        EXPECT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[level](samples, 8, dst16, nullptr), N);
        EXPECT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R[level](nullptr, 0, dst16, fq), N);
        EXPECT_EQ(vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R[level](q, 0, dst16, nullptr), S);
        EXPECT_EQ(vekTable_vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R[level](coef, dst16u, 16, nullptr), N);
        for (auto f :
             {vekTable_vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R, vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R,
              vekTable_vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R, vekTable_vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R,
              vekTable_vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R, vekTable_vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R,
              vekTable_vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R}) {
            EXPECT_EQ(f[level](nullptr, dst8, 0, nullptr), N);
            EXPECT_EQ(f[level](coef, dst8, 0, nullptr), S);
            EXPECT_EQ(f[level](coef, dst8, 8, nullptr), N);
        }
        // Without a step: any pointer.
        EXPECT_EQ(vekTable_vekiDCTQuantFwd8x8_JPEG_16s_C1[level](coef, dst16, nullptr), N);
        EXPECT_EQ(vekTable_vekiDCTQuantInv8x8_JPEG_16s_C1[level](nullptr, dst16, q), N);
        EXPECT_EQ(vekTable_vekiDCTQuantFwd8x8_JPEG_16s_C1I[level](dst16, nullptr), N);
        EXPECT_EQ(vekTable_vekiDCTQuantInv8x8_JPEG_16s_C1I[level](nullptr, q), N);
        EXPECT_EQ(vekTable_vekiQuantFwd8x8_JPEG_16s_C1I[level](dst16, nullptr), N);
        EXPECT_EQ(vekTable_vekiQuantInv8x8_JPEG_16s_C1I[level](nullptr, q), N);
        EXPECT_EQ(vekTable_vekiQuantFwdRawTableInit_JPEG_8u[level](nullptr, 0), N);
        EXPECT_EQ(vekTable_vekiQuantFwdTableInit_JPEG_8u16u[level](samples, nullptr), N);
        EXPECT_EQ(vekTable_vekiQuantInvTableInit_JPEG_8u16u[level](nullptr, dst16u), N);
        // Level shifts: source pointer, source step, destination pointer,
        // destination step, then the region.
        for (int i = 0; i < 2; ++i) {
            auto call = [&](const void* s, int ss, void* d, int ds, VekiSize roi) {
                return i ? vekTable_vekiAdd128_JPEG_16s8u_C1R[level](static_cast<const Vek16s*>(s), ss,
                                                                     static_cast<Vek8u*>(d), ds, roi)
                         : vekTable_vekiSub128_JPEG_8u16s_C1R[level](static_cast<const Vek8u*>(s), ss,
                                                                     static_cast<Vek16s*>(d), ds, roi);
            };
            void* dst = i ? static_cast<void*>(dst8) : static_cast<void*>(dst16);
            EXPECT_EQ(call(nullptr, 0, nullptr, 0, {0, 0}), N);
            EXPECT_EQ(call(coef, 0, nullptr, 0, {0, 0}), S);
            EXPECT_EQ(call(coef, 16, nullptr, 0, {0, 0}), N);
            EXPECT_EQ(call(coef, 16, dst, 0, {0, 0}), S);
            EXPECT_EQ(call(coef, 16, dst, 16, {8, 0}), Z);
            EXPECT_EQ(call(coef, 16, dst, 16, {0, 8}), Z);
        }
        for (int i = 0; i < 64; ++i) ASSERT_EQ(dst8[i], 0xA5);
        for (int i = 0; i < 64; ++i) ASSERT_EQ(Vek16u(dst16[i]), 0xA5A5);
        for (int i = 0; i < 64; ++i) ASSERT_EQ(dst16u[i], 0xA5A5);
    });
}

}  // namespace
}  // namespace vektest
