// Lossless JPEG rows: every level against level 0 on random rows of every
// width and predictor, differences then reconstruction returning the row
// on every level, the predictors on worked samples, and the rules at entry.
#include <algorithm>

#include "harness.h"

namespace vektest {
namespace {

using Samples = std::vector<Vek16s>;
using FirstRowFn = VekStatus(VEK_CALL*)(const Vek16s*, Vek16s*, int, int, int);
using RowFn = VekStatus(VEK_CALL*)(const Vek16s*, const Vek16s*, Vek16s*, int, int);

FirstRowFn diffFirst(int level) { return vek::vekTable_vekiDiffPredFirstRow_JPEG_16s_C1[level]; }
FirstRowFn reconstructFirst(int level) { return vek::vekTable_vekiReconstructPredFirstRow_JPEG_16s_C1[level]; }
RowFn diffRow(int level) { return vek::vekTable_vekiDiffPredRow_JPEG_16s_C1[level]; }
RowFn reconstructRow(int level) { return vek::vekTable_vekiReconstructPredRow_JPEG_16s_C1[level]; }

// Rows of image-like samples (neighbours close, within a precision) or of
// anything at all, where the 16-bit wrap and the signed halving decide.
Samples randomRow(int width) {
    if (rng()() % 2) return randomVector<Vek16s>(width);
    const int bits = 2 + int(rng()() % 15);
    Samples v(width);
    int x = int(rng()() % (1u << bits));
    for (Vek16s& s : v) {
        x = std::clamp(x + int(rng()() % 9) - 4, 0, (1 << bits) - 1);
        s = static_cast<Vek16s>(static_cast<uint16_t>(x));
    }
    return v;
}

// A precision and point transform: mostly valid, sometimes a transform at
// or past the precision (the shift count wraps modulo 32).
std::pair<int, int> randomPrecision() {
    const int precision = 2 + int(rng()() % 15);
    const int transform = rng()() % 4 ? int(rng()() % precision) : int(rng()() % 40);
    return {precision, transform};
}

void diffFirstRow(FirstRowFn (*fn)(int)) {
    for (int round = 0; round < rounds(3); ++round)
        for (int width : testLengths()) {
            const auto [precision, transform] = randomPrecision();
            const InputArray<Vek16s> src = guardedCopy(randomRow(width));
            GuardedArray<Vek16s> dst(width, int(rng()() % 8));
            compareLevels(
                dst, randomVector<Vek16s>(width),
                [&](int level) { return int(fn(level)(src.data(), dst.data(), width, precision, transform)); },
                "width " + std::to_string(width) + " precision " + std::to_string(precision) + " transform " +
                    std::to_string(transform));
        }
}

void diffLaterRow(RowFn (*fn)(int)) {
    for (int round = 0; round < rounds(2); ++round)
        for (int predictor = 1; predictor <= 7; ++predictor)
            for (int width : testLengths()) {
                const InputArray<Vek16s> src = guardedCopy(randomRow(width)), prev = guardedCopy(randomRow(width));
                GuardedArray<Vek16s> dst(width, int(rng()() % 8));
                compareLevels(
                    dst, randomVector<Vek16s>(width),
                    [&](int level) { return int(fn(level)(src.data(), prev.data(), dst.data(), width, predictor)); },
                    "width " + std::to_string(width) + " predictor " + std::to_string(predictor));
            }
}

VEK_DIFF_CASE(vekiDiffPredFirstRow_JPEG_16s_C1, [] { diffFirstRow(diffFirst); });
VEK_DIFF_CASE(vekiReconstructPredFirstRow_JPEG_16s_C1, [] { diffFirstRow(reconstructFirst); });
VEK_DIFF_CASE(vekiDiffPredRow_JPEG_16s_C1, [] { diffLaterRow(diffRow); });
VEK_DIFF_CASE(vekiReconstructPredRow_JPEG_16s_C1, [] { diffLaterRow(reconstructRow); });

// Differences then reconstruction give the row back, for every predictor,
// on every level; so does reconstruction in place over the differences.
TEST(LosslessRows, DifferencesThenReconstructionReturnTheRow) {
    onEveryLevel([](int level) {
        for (int round = 0; round < rounds(4); ++round)
            for (int width : testLengths()) {
                const Samples row = randomRow(width), above = randomRow(width);
                Samples diff(width), back(width);
                const auto [precision, transform] = randomPrecision();
                ASSERT_EQ(diffFirst(level)(row.data(), diff.data(), width, precision, transform), StatusOk);
                ASSERT_EQ(reconstructFirst(level)(diff.data(), diff.data(), width, precision, transform), StatusOk);
                ASSERT_EQ(diff, row) << "first row, width " << width;
                for (int predictor = 1; predictor <= 7; ++predictor) {
                    ASSERT_EQ(diffRow(level)(row.data(), above.data(), diff.data(), width, predictor), StatusOk);
                    ASSERT_EQ(reconstructRow(level)(diff.data(), above.data(), back.data(), width, predictor),
                              StatusOk);
                    ASSERT_EQ(back, row) << "predictor " << predictor << " width " << width;
                    ASSERT_EQ(reconstructRow(level)(diff.data(), above.data(), diff.data(), width, predictor),
                              StatusOk);
                    ASSERT_EQ(diff, row) << "in place, predictor " << predictor << " width " << width;
                }
            }
    });
}

// Predictions worked by hand.  The first case holds 0x8000 above-left,
// read as -32768 (predictors 5 to 7 use the signed samples); the second
// halves negative odd sums, which floor.
TEST(LosslessRows, WorkedSamples) {
    const struct {
        Vek16s a, b, c;
        int prediction[8];                                                      // by predictor 1..7
    } cases[] = {{-6, 7, -32768, {0, -6, 7, -32768, -32767, 16381, 16388, 0}},  // 4 wraps from 32769
                 {-7, 2, 4, {0, -7, 2, 4, -9, -8, -4, -3}}};
    // The first row of 5, 7: 5 less 2^(precision - transform - 1), the count
    // modulo 32 and the power wrapped to 16 bits.
    const struct {
        int precision, transform;
        Vek16s first;
    } firstRows[] = {{8, 0, -123}, {12, 3, -251}, {16, 0, -32763}, {2, 20, -8187}, {8, 8, 5}};
    onEveryLevel([&](int level) {
        for (const auto& c : cases)
            for (int predictor = 1; predictor <= 7; ++predictor) {
                const Vek16s row[2] = {c.a, 1000}, prevRow[2] = {c.c, c.b};
                Vek16s diff[2], back[2];
                ASSERT_EQ(diffRow(level)(row, prevRow, diff, 2, predictor), StatusOk);
                EXPECT_EQ(diff[0], Vek16s(uint16_t(c.a - c.c))) << "predictor " << predictor;
                EXPECT_EQ(diff[1], Vek16s(uint16_t(1000 - c.prediction[predictor]))) << "predictor " << predictor;
                ASSERT_EQ(reconstructRow(level)(diff, prevRow, back, 2, predictor), StatusOk);
                EXPECT_EQ(back[0], c.a);
                EXPECT_EQ(back[1], 1000);
            }
        for (const auto& f : firstRows) {
            const Vek16s row[2] = {5, 7};
            Vek16s diff[2];
            ASSERT_EQ(diffFirst(level)(row, diff, 2, f.precision, f.transform), StatusOk);
            EXPECT_EQ(diff[0], f.first) << "precision " << f.precision << " transform " << f.transform;
            EXPECT_EQ(diff[1], 2);
        }
    });
}

TEST(LosslessRows, RulesAtEntry) {
    onEveryLevel([](int level) {
        const Vek16s src[4] = {1, 2, 3, 4}, prev[4] = {5, 6, 7, 8};
        Vek16s out[4] = {-1, -1, -1, -1};
        for (FirstRowFn fn : {diffFirst(level), reconstructFirst(level)}) {
            EXPECT_EQ(fn(nullptr, out, 4, 8, 0), StatusNullPointer);
            EXPECT_EQ(fn(src, nullptr, 0, 1, -1), StatusNullPointer);  // pointers first
            EXPECT_EQ(fn(src, out, 0, 1, -1), StatusSize);             // then the width
            EXPECT_EQ(fn(src, out, 4, 1, 0), StatusBadArgument);
            EXPECT_EQ(fn(src, out, 4, 17, 0), StatusBadArgument);
            EXPECT_EQ(fn(src, out, 4, 8, -1), StatusBadArgument);
        }
        for (RowFn fn : {diffRow(level), reconstructRow(level)}) {
            EXPECT_EQ(fn(src, nullptr, out, 4, 1), StatusNullPointer);
            EXPECT_EQ(fn(nullptr, prev, out, 0, 0), StatusNullPointer);
            EXPECT_EQ(fn(src, prev, nullptr, 4, 1), StatusNullPointer);
            EXPECT_EQ(fn(src, prev, out, -5, 0), StatusSize);
            EXPECT_EQ(fn(src, prev, out, 4, 0), StatusBadArgument);
            EXPECT_EQ(fn(src, prev, out, 4, 8), StatusBadArgument);
        }
        for (Vek16s v : out) EXPECT_EQ(v, -1);
    });
}

}  // namespace
}  // namespace vektest
