// Block-matching metrics: every export against level 0 in every mode,
// with references that end exactly where the mode stops reading, level 0
// against sums written from the definitions, FFmpeg's pixelutils SAD as a
// real client, the worked cases and the entry checks.
#include <cmath>
#include <cstdlib>

#include "video_blocks.h"

#ifdef VEK_HAVE_LIBAVUTIL
extern "C" {
#    include <libavutil/pixelutils.h>
}
#endif

namespace vektest {
namespace {

using namespace vek;

// Runs call(level, cur, curStep, refF, refFStep, modeF, refB, refBStep,
// modeB, out) on every level and checks level 0's `count` results against
// expected(cur, refF, modeF, refB, modeB).  Modes cover 0, 4, 8, 12 in
// turn (the full-sample metrics read no more than the block: fullSample).
template <class T, class Call, class Expected>
void runMetric(int count, bool fullSample, Call call, Expected expected) {
    for (int round = 0; round < rounds(40); ++round) {
        const int modeF = 4 * (round % 4), modeB = 4 * (rng()() % 4);
        InputBlock<Vek8u> cur = randomPixelBlock(16, 16);
        InputBlock<Vek8u> refF = fullSample ? randomPixelBlock(16, 16) : referenceFor(16, 16, modeF, 1);
        InputBlock<Vek8u> refB = referenceFor(16, 16, modeB, 1);
        GuardedArray<T> out(count);
        const std::vector<T> initial = randomVector<T>(count);
        const std::string what = "mode " + std::to_string(modeF) + " modeB " + std::to_string(modeB);
        compareLevels(
            out, initial, [&](int level) { return call(level, cur, refF, modeF, refB, modeB, out.data()); }, what);
        if (::testing::Test::HasFatalFailure()) return;
        const std::vector<T> want = expected(cur, refF, modeF, refB, modeB);
        for (int i = 0; i < count; ++i) ASSERT_EQ(out[i], want[i]) << "result " << i << "; " << what;
    }
}

using Block = InputBlock<Vek8u>;

// f(x, y) summed over the 16x16 block into entry(x, y) of n sums.
template <class T, class F, class Entry>
std::vector<T> sums(int n, F f, Entry entry) {
    std::vector<T> s(n);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) s[entry(x, y)] = static_cast<T>(s[entry(x, y)] + f(x, y));
    return s;
}
int absDiff(Block& a, Block& b, int x, int y) { return std::abs(a.at(x, y) - b.at(x, y)); }

VEK_DIFF_CASE(vekiSAD16x16_8u32s, [] {
    runMetric<Vek32s>(
        1, false,
        [](int level, Block& c, Block& r, int mode, Block&, int, Vek32s* out) {
            return vekTable_vekiSAD16x16_8u32s[level](c.origin(), c.step(), r.origin(), r.step(), out, mode);
        },
        [](Block& c, Block& r, int mode, Block&, int) {
            return sums<Vek32s>(
                1, [&](int x, int y) { return std::abs(c.at(x, y) - referencePrediction(r, x, y, mode, 0, 1)); },
                [](int, int) { return 0; });
        });
});
VEK_DIFF_CASE(vekiSAD4x4_8u32s, [] {
    runMetric<Vek32s>(
        1, true,
        [](int level, Block& c, Block& r, int mode, Block&, int, Vek32s* out) {
            return vekTable_vekiSAD4x4_8u32s[level](c.origin(), c.step(), r.origin(), r.step(), out, mode);
        },
        [](Block& c, Block& r, int, Block&, int) {
            return sums<Vek32s>(
                1, [&](int x, int y) { return x < 4 && y < 4 ? absDiff(c, r, x, y) : 0; }, [](int, int) { return 0; });
        });
});
VEK_DIFF_CASE(vekiSAD16x16Blocks8x8_8u16u, [] {
    runMetric<Vek16u>(
        4, true,
        [](int level, Block& c, Block& r, int mode, Block&, int, Vek16u* out) {
            return vekTable_vekiSAD16x16Blocks8x8_8u16u[level](c.origin(), c.step(), r.origin(), r.step(), out, mode);
        },
        [](Block& c, Block& r, int, Block&, int) {
            return sums<Vek16u>(
                4, [&](int x, int y) { return absDiff(c, r, x, y); },
                [](int x, int y) { return 2 * (y >= 8) + (x >= 8); });
        });
});
VEK_DIFF_CASE(vekiSAD16x16Blocks4x4_8u16u, [] {
    runMetric<Vek16u>(
        16, true,
        [](int level, Block& c, Block& r, int mode, Block&, int, Vek16u* out) {
            return vekTable_vekiSAD16x16Blocks4x4_8u16u[level](c.origin(), c.step(), r.origin(), r.step(), out, mode);
        },
        [](Block& c, Block& r, int, Block&, int) {
            return sums<Vek16u>(
                16, [&](int x, int y) { return absDiff(c, r, x, y); },
                [](int x, int y) { return 4 * (y / 4) + x / 4; });
        });
});
VEK_DIFF_CASE(vekiSqrDiff16x16_8u32s, [] {
    // Any mode other than 0, 4 and 8 takes the four-pixel average.
    runMetric<Vek32s>(
        1, false,
        [](int level, Block& c, Block& r, int mode, Block&, int, Vek32s* out) {
            const int arg = mode == 12 && rng()() % 2 ? 1 + int(rng()() % 3) * 5 : mode;  // 12, 1, 6 or 11
            return vekTable_vekiSqrDiff16x16_8u32s[level](c.origin(), c.step(), r.origin(), r.step(), arg, out);
        },
        [](Block& c, Block& r, int mode, Block&, int) {
            return sums<Vek32s>(
                1,
                [&](int x, int y) {
                    const int d = referencePrediction(r, x, y, mode, 0, 1) - c.at(x, y);
                    return d * d;
                },
                [](int, int) { return 0; });
        });
});
VEK_DIFF_CASE(vekiSqrDiff16x16B_8u32s, [] {
    runMetric<Vek32s>(
        1, false,
        [](int level, Block& c, Block& f, int modeF, Block& b, int modeB, Vek32s* out) {
            return vekTable_vekiSqrDiff16x16B_8u32s[level](c.origin(), c.step(), f.origin(), f.step(), modeF | 16,
                                                           b.origin(), b.step(), modeB, out);
        },
        [](Block& c, Block& f, int modeF, Block& b, int modeB) {
            return sums<Vek32s>(
                1,
                [&](int x, int y) {
                    const int p = referencePrediction(f, x, y, modeF, 0, 1) + referencePrediction(b, x, y, modeB, 0, 1);
                    const int d = (p + 1) / 2 - c.at(x, y);
                    return d * d;
                },
                [](int, int) { return 0; });
        });
});
VEK_DIFF_CASE(vekiVariance16x16_8u32s, [] {
    runMetric<Vek32s>(
        1, true,
        [](int level, Block& c, Block&, int, Block&, int, Vek32s* out) {
            return vekTable_vekiVariance16x16_8u32s[level](c.origin(), c.step(), out);
        },
        [](Block& c, Block&, int, Block&, int) {
            // Exact sums; the square wraps as a 32-bit two's-complement value.
            int64_t s = 0, q = 0;
            for (int y = 0; y < 16; ++y)
                for (int x = 0; x < 16; ++x) s += c.at(x, y), q += c.at(x, y) * c.at(x, y);
            const int64_t wrapped = static_cast<int32_t>(static_cast<uint32_t>(s * s));
            return std::vector<Vek32s>{static_cast<Vek32s>(q - wrapped / 256)};
        });
});

// ---- worked cases, the real client and the entry checks ------------------------

TEST(VideoMetricsBehaviour, WorkedCases) {
    onEveryLevel([](int level) {
        Vek8u a[17 * 17], b[17 * 17];
        for (int i = 0; i < 17 * 17; ++i) a[i] = static_cast<Vek8u>(i * 7);
        Vek32s r = -1;
        Vek16u quarters[4], blocks[16];
        EXPECT_EQ(vekTable_vekiSAD16x16_8u32s[level](a, 17, a, 17, &r, 0), StatusOk);
        EXPECT_EQ(r, 0);
        EXPECT_EQ(vekTable_vekiSqrDiff16x16_8u32s[level](a, 17, a, 17, 0, &r), StatusOk);
        EXPECT_EQ(r, 0);
        EXPECT_EQ(vekTable_vekiSqrDiff16x16B_8u32s[level](a, 17, a, 17, 0, a, 17, 0, &r), StatusOk);
        EXPECT_EQ(r, 0);
        // Only the bottom-right quarter differs, by 1.
        memcpy(b, a, sizeof b);
        for (int y = 8; y < 16; ++y)
            for (int x = 8; x < 16; ++x) b[y * 17 + x] ^= 1;
        EXPECT_EQ(vekTable_vekiSAD16x16Blocks8x8_8u16u[level](a, 17, b, 17, quarters, 0), StatusOk);
        EXPECT_EQ(std::vector<Vek16u>(quarters, quarters + 4), (std::vector<Vek16u>{0, 0, 0, 64}));
        EXPECT_EQ(vekTable_vekiSAD16x16Blocks4x4_8u16u[level](a, 17, b, 17, blocks, 0), StatusOk);
        EXPECT_EQ(blocks[15] + blocks[10] + blocks[0] + blocks[5], 32);
        // Variances: flat 100 -> 0; half 0, half 2 -> 256; flat 255 wraps.
        memset(a, 100, sizeof a);
        EXPECT_EQ(vekTable_vekiVariance16x16_8u32s[level](a, 16, &r), StatusOk);
        EXPECT_EQ(r, 0);
        for (int i = 0; i < 256; ++i) a[i] = static_cast<Vek8u>(i < 128 ? 0 : 2);
        EXPECT_EQ(vekTable_vekiVariance16x16_8u32s[level](a, 16, &r), StatusOk);
        EXPECT_EQ(r, 256);
        memset(a, 255, sizeof a);
        EXPECT_EQ(vekTable_vekiVariance16x16_8u32s[level](a, 16, &r), StatusOk);
        EXPECT_EQ(r, 16777216);  // 16646400 - (int32)(65280 * 65280) / 256
    });
}

TEST(VideoMetricsEntry, NullPointersAndModesAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek8u a[17 * 17] = {};
        Vek32s r = 7;
        Vek16u s[16] = {7};
        EXPECT_EQ(vekTable_vekiSAD16x16_8u32s[level](nullptr, 17, a, 17, &r, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiSAD16x16_8u32s[level](a, 17, nullptr, 17, &r, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiSAD16x16_8u32s[level](a, 17, a, 17, nullptr, 1), StatusNullPointer);  // pointers first
        for (int mode : {1, 2, 3, 5, 13, 16, -4})
            EXPECT_EQ(vekTable_vekiSAD16x16_8u32s[level](a, 17, a, 17, &r, mode), StatusBadArgument) << mode;
        EXPECT_EQ(vekTable_vekiSAD4x4_8u32s[level](a, 17, a, 17, nullptr, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiSAD16x16Blocks8x8_8u16u[level](a, 17, nullptr, 17, s, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiSAD16x16Blocks4x4_8u16u[level](nullptr, 17, a, 17, s, 0), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiSqrDiff16x16_8u32s[level](a, 17, a, 17, 0, nullptr), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiSqrDiff16x16B_8u32s[level](a, 17, a, 17, 0, nullptr, 17, 0, &r), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiVariance16x16_8u32s[level](nullptr, 16, &r), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiVariance16x16_8u32s[level](a, 16, nullptr), StatusNullPointer);
        EXPECT_EQ(r, 7);
        EXPECT_EQ(s[0], 7);
    });
}

#ifdef VEK_HAVE_LIBAVUTIL
// FFmpeg's public pixelutils SAD gives our SADs of 16x16 blocks and of
// each 8x8 quarter, on random pixels and on a smooth picture whose blocks
// are compared with their neighbours (as a motion search does).
TEST(VideoMetricsClient, FFmpegPixelutilsSadAgrees) {
    const av_pixelutils_sad_fn sad16 = av_pixelutils_get_sad_fn(4, 4, 0, nullptr);
    const av_pixelutils_sad_fn sad8 = av_pixelutils_get_sad_fn(3, 3, 0, nullptr);
    if (!sad16 || !sad8) GTEST_SKIP() << "this FFmpeg was built without pixelutils";
    constexpr int kWidth = 96, kHeight = 64;
    std::vector<Vek8u> picture(kWidth * kHeight);
    for (int round = 0; round < rounds(20); ++round) {
        const bool natural = round % 2;
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                picture[y * kWidth + x] = natural ? static_cast<Vek8u>(128 + 60 * std::sin(x * 0.11 + y * 0.07) +
                                                                       30 * std::cos(x * y * 0.002) + rng()() % 5)
                                                  : static_cast<Vek8u>(rng()());
        const Vek8u* cur = &picture[(rng()() % 40) * kWidth + rng()() % 70];
        const Vek8u* ref = &picture[(rng()() % 40) * kWidth + rng()() % 70];
        onEveryLevel([&](int level) {
            Vek32s sad = -1;
            Vek16u quarters[4];
            ASSERT_EQ(vekTable_vekiSAD16x16_8u32s[level](cur, kWidth, ref, kWidth, &sad, 0), StatusOk);
            EXPECT_EQ(sad, sad16(cur, kWidth, ref, kWidth));
            ASSERT_EQ(vekTable_vekiSAD16x16Blocks8x8_8u16u[level](cur, kWidth, ref, kWidth, quarters, 0), StatusOk);
            for (int q = 0; q < 4; ++q) {
                const int at = (q / 2) * 8 * kWidth + (q % 2) * 8;
                EXPECT_EQ(quarters[q], sad8(cur + at, kWidth, ref + at, kWidth)) << "quarter " << q;
            }
        });
    }
}
#endif

}  // namespace
}  // namespace vektest
