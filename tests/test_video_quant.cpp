// MPEG-2 quantisation: every level against level 0 on random blocks,
// scales and matrices; level 0's forward path against the same arithmetic
// in double precision rounded to float after each operation, its inverse
// against the reconstruction of ISO/IEC 13818-2 section 7.4 (inverse
// quantisation arithmetic, saturation, mismatch control); the worked
// cases and the entry checks.
#include <cmath>

#include "core/plain_float.h"
#include "harness.h"

namespace vektest {
namespace {

using namespace vek;

// The default intra matrix of ISO/IEC 13818-2, raster order.
const int kDefaultIntra[64] = {8,  16, 19, 22, 26, 27, 29, 34, 16, 16, 22, 24, 27, 29, 34, 37, 19, 22, 26, 27, 29, 34,
                               34, 38, 22, 22, 26, 27, 29, 34, 37, 40, 22, 26, 27, 29, 32, 35, 40, 48, 26, 27, 29, 32,
                               35, 40, 48, 58, 26, 27, 29, 34, 38, 46, 56, 69, 27, 29, 35, 38, 46, 56, 69, 83};

// Coefficients as a codec has them (within +-2048) or anything at all.
std::vector<Vek16s> randomBlock() {
    std::vector<Vek16s> v(64);
    const bool wild = rng()() % 4 == 0;
    for (Vek16s& c : v)
        c = wild ? randomValue<Vek16s>()
                 : static_cast<Vek16s>(rng()() % 3 ? 0 : static_cast<int>(rng()() % 4097) - 2048);
    return v;
}
int randomScale() {
    static const int odd[] = {0, 1, -1, -7, 2, 3, 1000, 65536, 123456789, -2147483647 - 1};
    return rng()() % 6 ? 1 + static_cast<int>(rng()() % 112) : odd[rng()() % 10];
}

// The block in elements 0..63 and the count in the Vek32s after them, so
// one guarded array holds every output.
struct QuantOutputs {
    GuardedArray<Vek16s> memory{66};
    Vek16s* block() { return memory.data(); }
    Vek32s* count() { return reinterpret_cast<Vek32s*>(memory.data() + 64); }
};
std::vector<Vek16s> withCount(std::vector<Vek16s> block) {
    block.push_back(0x5A5A);
    block.push_back(0x5A5A);
    return block;
}

// ---- references -----------------------------------------------------------------

// Single-precision operations through double: one rounding to float each
// (a store, so that x87 keeps no excess precision).
float mulRounded(float a, float b) { return roundToFloat(static_cast<float>(static_cast<double>(a) * b)); }
Vek16s referenceForward(Vek16s c, int qp, float reciprocal) {
    const float scale =
        roundToFloat(static_cast<float>(16.0 / static_cast<double>(roundToFloat(static_cast<float>(qp)))));
    const double q = std::trunc(mulRounded(mulRounded(static_cast<float>(c), scale), reciprocal));
    if (std::isnan(q)) return 0;
    return static_cast<Vek16s>(q < -2047 ? -2047 : (q > 2047 ? 2047 : q));
}
Vek16s referenceFlat(Vek16s c, int qp) {
    const int64_t r = (65536 + qp / 2) / qp, q = c * r / 65536;
    return static_cast<Vek16s>(q < -2047 ? -2047 : (q > 2047 ? 2047 : q));
}

// ISO/IEC 13818-2, 7.4.2.3: F'' = ((2 QF + k) W quantiser_scale) / 32, k = 0
// intra, Sign(QF) otherwise; the intra DC is kept here.  7.4.3: saturation
// to -2048..2047.  7.4.4: an even sum of F' toggles the LSB of F'[7][7].
std::vector<Vek16s> referenceInverse(const std::vector<Vek16s>& qf, int qp, const int* w, bool intra) {
    std::vector<Vek16s> f(64);
    int64_t sum = 0;
    for (int i = 0; i < 64; ++i) {
        if (intra && i == 0) {
            f[0] = qf[0];
        } else {
            const int64_t k = intra ? 0 : (qf[i] > 0) - (qf[i] < 0);
            const int64_t v = (2 * qf[i] + k) * w[i] * qp / 32;
            f[i] = static_cast<Vek16s>(v > 2047 ? 2047 : (v < -2048 ? -2048 : v));
        }
        sum += f[i];
    }
    if (sum % 2 == 0) f[63] = static_cast<Vek16s>(f[63] % 2 ? f[63] - 1 : f[63] + 1);
    return f;
}

// ---- the differential cases --------------------------------------------------------

// Reciprocals of random weights, or now and then anything (NaN, infinities).
std::vector<Vek32f> randomReciprocals() {
    std::vector<Vek32f> m(64);
    const bool wild = rng()() % 5 == 0;
    for (Vek32f& x : m) x = wild && rng()() % 4 == 0 ? randomValue<Vek32f>() : 1.0f / (1 + rng()() % 255);
    return m;
}

template <class Fn>
void runForward(const Fn* table, bool intra) {
    for (int round = 0; round < rounds(200); ++round) {
        const std::vector<Vek16s> block = randomBlock();
        const int qp = randomScale();
        const int matrixKind = rng()() % 3;  // none, random, the default intra weights
        std::vector<Vek32f> reciprocals = randomReciprocals();
        if (matrixKind == 2)
            for (int i = 0; i < 64; ++i) reciprocals[i] = 1.0f / kDefaultIntra[i];
        InputArray<Vek32f> matrix = guardedCopy(reciprocals);
        QuantOutputs out;
        const std::string what = "QP " + std::to_string(qp) + " matrix kind " + std::to_string(matrixKind);
        compareLevels(
            out.memory, withCount(block),
            [&](int level) { return table[level](out.block(), qp, matrixKind ? matrix.data() : nullptr, out.count()); },
            what);
        if (::testing::Test::HasFatalFailure() || qp == 0) return;
        // The default intra matrix stands in for a null matrix of the intra form.
        const bool flat = matrixKind == 0 && !intra;
        if (intra && matrixKind == 0)
            for (int i = 0; i < 64; ++i) reciprocals[i] = 1.0f / kDefaultIntra[i];
        int count = 0;
        for (int i = 0; i < 64; ++i) {
            Vek16s want = block[i];
            if (!(intra && i == 0) && !(flat && qp <= 1)) {
                want = flat ? referenceFlat(block[i], qp) : referenceForward(block[i], qp, reciprocals[i]);
                count += want != 0;
            }
            ASSERT_EQ(out.block()[i], want) << "coefficient " << i << " of " << block[i] << "; " << what;
        }
        EXPECT_EQ(*out.count(), count) << what;
    }
}

template <class Fn>
void runInverse(const Fn* table, bool intra) {
    for (int round = 0; round < rounds(200); ++round) {
        const std::vector<Vek16s> block = randomBlock();
        const int qp = randomScale();
        const bool weighted = intra || rng()() % 3;
        std::vector<Vek16s> weights(64);
        for (Vek16s& w : weights) w = rng()() % 8 ? static_cast<Vek16s>(1 + rng()() % 255) : randomValue<Vek16s>();
        InputArray<Vek16s> matrix = guardedCopy(weights);
        GuardedArray<Vek16s> out(64);
        const std::string what = "QP " + std::to_string(qp) + (weighted ? " weighted" : " flat");
        compareLevels(
            out, block, [&](int level) { return table[level](out.data(), qp, weighted ? matrix.data() : nullptr); },
            what);
        if (::testing::Test::HasFatalFailure()) return;
        // Against the standard within the values MPEG-2 allows.
        const bool codecRange =
            qp >= 1 && qp <= 112 &&
            std::all_of(block.begin(), block.end(), [](Vek16s c) { return c >= -2048 && c <= 2047; }) &&
            std::all_of(weights.begin(), weights.end(), [](Vek16s w) { return w >= 1 && w <= 255; });
        if (!codecRange) continue;
        std::vector<int> w(64, 16);
        if (weighted) w.assign(weights.begin(), weights.end());
        EXPECT_EQ(out.contents(), referenceInverse(block, qp, w.data(), intra)) << what;
    }
}

VEK_DIFF_CASE(vekiQuant_MPEG2_16s_C1I, [] { runForward(vekTable_vekiQuant_MPEG2_16s_C1I, false); });
VEK_DIFF_CASE(vekiQuantIntra_MPEG2_16s_C1I, [] { runForward(vekTable_vekiQuantIntra_MPEG2_16s_C1I, true); });
VEK_DIFF_CASE(vekiQuantInv_MPEG2_16s_C1I, [] { runInverse(vekTable_vekiQuantInv_MPEG2_16s_C1I, false); });
VEK_DIFF_CASE(vekiQuantInvIntra_MPEG2_16s_C1I, [] { runInverse(vekTable_vekiQuantInvIntra_MPEG2_16s_C1I, true); });

// ---- worked cases and entry checks, on every level ------------------------------

TEST(VideoQuantBehaviour, WorkedCases) {
    onEveryLevel([](int level) {
        Vek16s b[64] = {1};
        // One coefficient of 1 at QP 4: 6, an even sum, so coefficient 63 becomes 1.
        EXPECT_EQ(vekTable_vekiQuantInv_MPEG2_16s_C1I[level](b, 4, nullptr), StatusOk);
        EXPECT_EQ(b[0], 6);
        EXPECT_EQ(b[63], 1);
        // At QP 2: 3, an odd sum, and coefficient 63 stays 0.
        memset(b, 0, sizeof b);
        b[0] = 1;
        EXPECT_EQ(vekTable_vekiQuantInv_MPEG2_16s_C1I[level](b, 2, nullptr), StatusOk);
        EXPECT_EQ(b[0], 3);
        EXPECT_EQ(b[63], 0);
        // An inverse result of -3000 saturates to -2048; a forward one to -2047.
        Vek16s w[64];
        for (Vek16s& x : w) x = 16;
        memset(b, 0, sizeof b);
        b[5] = -1500;
        EXPECT_EQ(vekTable_vekiQuantInvIntra_MPEG2_16s_C1I[level](b, 1, w), StatusOk);
        EXPECT_EQ(b[5], -1500);  // (-1500 * 1 * 16 * 2) / 32
        b[5] = -3000;
        EXPECT_EQ(vekTable_vekiQuantInvIntra_MPEG2_16s_C1I[level](b, 1, w), StatusOk);
        EXPECT_EQ(b[5], -2048);
        Vek32s count = -1;
        memset(b, 0, sizeof b);
        b[1] = -3000;
        Vek32f ones[64];
        for (Vek32f& x : ones) x = 1.0f / 16;
        EXPECT_EQ(vekTable_vekiQuant_MPEG2_16s_C1I[level](b, 1, ones, &count), StatusOk);
        EXPECT_EQ(b[1], -2047);
        EXPECT_EQ(count, 1);
        // QP 1 without a matrix: the block is left as it is, the count is 0.
        b[1] = 1234;
        EXPECT_EQ(vekTable_vekiQuant_MPEG2_16s_C1I[level](b, 1, nullptr, &count), StatusOk);
        EXPECT_EQ(b[1], 1234);
        EXPECT_EQ(count, 0);
        // The intra form keeps and does not count the DC; a null matrix is the default one.
        b[0] = 1000, b[1] = 160, b[63] = 830;
        EXPECT_EQ(vekTable_vekiQuantIntra_MPEG2_16s_C1I[level](b, 16, nullptr, &count), StatusOk);
        EXPECT_EQ(b[0], 1000);
        EXPECT_EQ(b[1], 10);   // 160 / 16
        EXPECT_EQ(b[63], 10);  // 830 / 83
        EXPECT_EQ(count, 2);
    });
}

TEST(VideoQuantEntry, PointersThenScaleAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek16s b[64], w[64] = {};
        for (int i = 0; i < 64; ++i) b[i] = static_cast<Vek16s>(i);
        Vek32s count = 7;
        EXPECT_EQ(vekTable_vekiQuant_MPEG2_16s_C1I[level](nullptr, 0, nullptr, &count), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiQuant_MPEG2_16s_C1I[level](b, 0, nullptr, nullptr), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiQuantIntra_MPEG2_16s_C1I[level](nullptr, 4, nullptr, &count), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiQuant_MPEG2_16s_C1I[level](b, 0, nullptr, &count), StatusDivideByZero);
        EXPECT_EQ(vekTable_vekiQuantIntra_MPEG2_16s_C1I[level](b, 0, nullptr, &count), StatusDivideByZero);
        EXPECT_EQ(count, 7);
        EXPECT_EQ(vekTable_vekiQuantInv_MPEG2_16s_C1I[level](nullptr, 4, w), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiQuantInvIntra_MPEG2_16s_C1I[level](nullptr, 4, w), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiQuantInvIntra_MPEG2_16s_C1I[level](b, 4, nullptr), StatusNullPointer);
        for (int i = 0; i < 64; ++i) ASSERT_EQ(b[i], i);
    });
}

}  // namespace
}  // namespace vektest
