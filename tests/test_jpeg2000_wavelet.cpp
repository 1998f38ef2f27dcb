// JPEG 2000 wavelet transforms: every level against level 0 on random
// bands, phases and layouts, with inputs whose extension begins or ends at
// a no-access page; level 0 against references written from the
// definitions (the 9/7 lifting in double precision, the Q16 arithmetic in
// 64 bits), 5/3 perfect reconstruction, ColLift against the whole-column
// passes, the two-dimensional level against the separable passes, and the
// rules at entry on every level.
#include <cmath>

#include "jpeg2000_lines.h"

namespace vektest {
namespace {

using namespace vek;

template <class Fn>
struct PassTypes;
template <class T>
struct PassTypes<VekStatus(VEK_CALL*)(const T*, int, T*, int, T*, int, VekiSize, Vek32u)> {
    using Sample = T;
};
template <class T>
struct PassTypes<VekStatus(VEK_CALL*)(const T*, int, const T*, int, VekiSize, T*, int, Vek32u)> {
    using Sample = T;
};

// Band sizes around the vector blocks, 1 included.
VekiSize randomBands(bool rows) {
    static const int sizes[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 64, 65};
    const int n = rng()() % 4 ? sizes[rng()() % (sizeof sizes / sizeof *sizes)] : 1 + int(rng()() % 600);
    const int m = 1 + int(rng()() % 4);
    return rows ? VekiSize{n, m} : VekiSize{n % 70 + 1 + int(rng()() % 40), n % 40 + 1};
}

// ---- differential cases -------------------------------------------------------------

// A forward pass: the source holds each line's reach, the bands are two
// guarded images.
template <class Fn>
void diffForward(const Fn* table, bool nineSeven, bool rows) {
    using T = typename PassTypes<Fn>::Sample;
    for (int round = 0; round < rounds(40); ++round) {
        const VekiSize roi = randomBands(rows);
        const bool phase1 = rng()() % 2;
        const Reach r = reachOf(nineSeven, phase1, rows ? roi.width : roi.height);
        const int pad = int(rng()() % 5);
        // Rows: each row holds samples [first, last]; columns: rows first..last.
        const int width = rows ? r.last - r.first + 1 : roi.width, height = rows ? roi.height : r.last - r.first + 1;
        const int step = width + pad;
        EdgeInput<T> src(width, height, step, rng()() % 2);
        const T* origin = rows ? src.data() - r.first : src.data() - ptrdiff_t(r.first) * step;
        GuardedImage<T> low(roi.width, roi.height, outputLayout<T>()), high(roi.width, roi.height, outputLayout<T>());
        compareOutputs<T>(
            {&low, &high},
            [&](int level) {
                return table[level](origin, int(step * sizeof(T)), low.origin(), low.step(), high.origin(), high.step(),
                                    roi, phase1 ? 7u : 0u);
            },
            std::to_string(roi.width) + "x" + std::to_string(roi.height) + " phase " + std::to_string(phase1));
        if (::testing::Test::HasFatalFailure()) return;
    }
}

// An inverse pass: the two bands, each with its reach, in one input whose
// first or last byte touches the no-access page, in either order.
template <class Fn>
void diffInverse(const Fn* table, bool nineSeven, bool rows) {
    using T = typename PassTypes<Fn>::Sample;
    for (int round = 0; round < rounds(40); ++round) {
        const VekiSize roi = randomBands(rows);
        const bool phase1 = rng()() % 2;
        const Reach r = reachOf(nineSeven, phase1, rows ? roi.width : roi.height);
        const int lowN = r.lowLast - r.lowFirst + 1, highN = r.highLast - r.highFirst + 1;
        const int pad = int(rng()() % 5);
        // Rows: each band row holds its reach; columns: band rows reach.
        const int lowW = rows ? lowN : roi.width, highW = rows ? highN : roi.width;
        const int lowH = rows ? roi.height : lowN, highH = rows ? roi.height : highN;
        const int step = (lowW > highW ? lowW : highW) + pad;
        const bool lowFirst = rng()() % 2;
        EdgeInput<T> src(step, lowH + highH, step, rng()() % 2);
        T* lowStart = src.data() + (lowFirst ? 0 : size_t(highH) * step);
        T* highStart = src.data() + (lowFirst ? size_t(lowH) * step : 0);
        const T* low = rows ? lowStart - r.lowFirst : lowStart - ptrdiff_t(r.lowFirst) * step;
        const T* high = rows ? highStart - r.highFirst : highStart - ptrdiff_t(r.highFirst) * step;
        GuardedImage<T> dst(rows ? 2 * roi.width : roi.width, rows ? roi.height : 2 * roi.height, outputLayout<T>());
        compareOutputs<T>(
            {&dst},
            [&](int level) {
                return table[level](low, int(step * sizeof(T)), high, int(step * sizeof(T)), roi, dst.origin(),
                                    dst.step(), phase1 ? 1u : 0u);
            },
            std::to_string(roi.width) + "x" + std::to_string(roi.height) + " phase " + std::to_string(phase1));
        if (::testing::Test::HasFatalFailure()) return;
    }
}

#define VEK_WT_DIFF_PASS(kind, dir, filter, t, nineSeven, rows)    \
    VEK_DIFF_CASE(vekiWT##dir##kind##_##filter##_JPEG2K_##t##_C1R, \
                  [] { diff##dir##ward(vekTable_vekiWT##dir##kind##_##filter##_JPEG2K_##t##_C1R, nineSeven, rows); })
#define diffFwdward diffForward
#define diffInvward diffInverse
VEK_WT_DIFF_PASS(Row, Fwd, B53, 16s, false, true);
VEK_WT_DIFF_PASS(Row, Fwd, B53, 32s, false, true);
VEK_WT_DIFF_PASS(Row, Fwd, D97, 16s, true, true);
VEK_WT_DIFF_PASS(Row, Fwd, D97, 32s, true, true);
VEK_WT_DIFF_PASS(Row, Fwd, D97, 32f, true, true);
VEK_WT_DIFF_PASS(Col, Fwd, B53, 16s, false, false);
VEK_WT_DIFF_PASS(Col, Fwd, B53, 32s, false, false);
VEK_WT_DIFF_PASS(Col, Fwd, D97, 32f, true, false);
VEK_WT_DIFF_PASS(Row, Inv, B53, 16s, false, true);
VEK_WT_DIFF_PASS(Row, Inv, B53, 32s, false, true);
VEK_WT_DIFF_PASS(Row, Inv, D97, 16s, true, true);
VEK_WT_DIFF_PASS(Row, Inv, D97, 32s, true, true);
VEK_WT_DIFF_PASS(Row, Inv, D97, 32f, true, true);
VEK_WT_DIFF_PASS(Col, Inv, B53, 16s, false, false);
VEK_WT_DIFF_PASS(Col, Inv, B53, 32s, false, false);
VEK_WT_DIFF_PASS(Col, Inv, D97, 32f, true, false);

// ColLift: every row its own guarded image (the rows a call only reads
// are inputs whose end touches the page).
template <class T, int Rows, class Call>
void diffColumnLift(unsigned written, Call call) {
    for (int round = 0; round < rounds(60); ++round) {
        const int width = 1 + int(rng()() % (rng()() % 4 ? 70 : 700));
        std::vector<std::unique_ptr<GuardedImage<T>>> images;
        std::vector<GuardedImage<T>*> outs;
        T* row[Rows];
        for (int k = 0; k < Rows; ++k) {
            ImageLayout l;
            l.guardAfter = (written >> k) & 1;
            images.push_back(std::make_unique<GuardedImage<T>>(width, 1, l));
            row[k] = images.back()->origin();
            if (l.guardAfter) outs.push_back(images.back().get());
        }
        compareOutputs<T>(
            outs, [&](int level) { return call(level, row, width); }, "width " + std::to_string(width));
        if (::testing::Test::HasFatalFailure()) return;
    }
}
#define VEK_WT_DIFF_LIFT53(dir, t, T, written)                                                                      \
    VEK_DIFF_CASE(vekiWT##dir##ColLift_B53_JPEG2K_##t##_C1, [] {                                                    \
        diffColumnLift<T, 6>(written, [](int level, T* const* r, int w) {                                           \
            return vekTable_vekiWT##dir##ColLift_B53_JPEG2K_##t##_C1[level](r[0], r[1], r[2], r[3], r[4], r[5], w); \
        });                                                                                                         \
    })
VEK_WT_DIFF_LIFT53(Fwd, 16s, Vek16s, 0x28u);  // low row n and high row n written
VEK_WT_DIFF_LIFT53(Fwd, 32s, Vek32s, 0x28u);
VEK_WT_DIFF_LIFT53(Inv, 16s, Vek16s, 0x30u);  // odd and even rows written
VEK_WT_DIFF_LIFT53(Inv, 32s, Vek32s, 0x30u);
#define VEK_WT_DIFF_LIFT97(dir, t, T, written)                                                                        \
    VEK_DIFF_CASE(vekiWT##dir##ColLift_D97_JPEG2K_##t##_C1, [] {                                                      \
        diffColumnLift<T, 8>(written, [](int level, T* const* r, int w) {                                             \
            return vekTable_vekiWT##dir##ColLift_D97_JPEG2K_##t##_C1[level](r[0], r[1], r[2], r[3], r[4], r[5], r[6], \
                                                                            r[7], w);                                 \
        });                                                                                                           \
    })
VEK_WT_DIFF_LIFT97(Fwd, 16s, Vek16s, 0xF8u);  // r3..r7
VEK_WT_DIFF_LIFT97(Fwd, 32s, Vek32s, 0xF8u);
VEK_WT_DIFF_LIFT97(Fwd, 32f, Vek32f, 0xF8u);
VEK_WT_DIFF_LIFT97(Inv, 16s, Vek16s, 0xF0u);  // q4..q7
VEK_WT_DIFF_LIFT97(Inv, 32s, Vek32s, 0xF0u);
VEK_WT_DIFF_LIFT97(Inv, 32f, Vek32f, 0xF0u);

template <class T>
auto tableFwd() {
    if constexpr (sizeof(T) == 2)
        return vekTable_vekiWTFwd_D97_JPEG2K_16s_C1R;
    else
        return vekTable_vekiWTFwd_D97_JPEG2K_32s_C1R;
}
template <class T>
auto tableInv() {
    if constexpr (sizeof(T) == 2)
        return vekTable_vekiWTInv_D97_JPEG2K_16s_C1R;
    else
        return vekTable_vekiWTInv_D97_JPEG2K_32s_C1R;
}
// The two-dimensional level: random tiles and positions, the buffer exactly
// the documented size (its end at the no-access page).
template <class T>
void diffLevel(bool forward) {
    for (int round = 0; round < rounds(20); ++round) {
        const int w = 1 + int(rng()() % (rng()() % 4 ? 40 : 300)), h = 1 + int(rng()() % 40);
        const VekiRect tile{int(rng()() % 5) - 2, int(rng()() % 5) - 2, w, h};
        const int lw = (w + 1) / 2, hw = w / 2, lh = (h + 1) / 2, hh = h / 2;
        const int bw[4] = {lw, lw, hw, hw}, bh[4] = {lh, hh, lh, hh};
        GuardedArray<Vek8u> buffer(VEK_WT_D97_JPEG2K_BUFFER_SIZE(w, h, int(sizeof(T))));
        std::vector<std::unique_ptr<GuardedImage<T>>> bands;
        T* bandPtr[4];
        int steps[4];
        for (int b = 0; b < 4; ++b) {  // a band of no samples still needs a pointer and a step
            ImageLayout l = outputLayout<T>();
            l.guardAfter = !forward ? false : l.guardAfter;
            bands.push_back(std::make_unique<GuardedImage<T>>(bw[b] ? bw[b] : 1, bh[b] ? bh[b] : 1, l));
            bandPtr[b] = bands.back()->origin(), steps[b] = bands.back()->step();
        }
        const std::string what = std::to_string(w) + "x" + std::to_string(h) + " at " + std::to_string(tile.x) + "," +
                                 std::to_string(tile.y);
        ImageLayout il = outputLayout<T>();
        il.guardAfter = !forward;
        GuardedImage<T> image(w, h, il);
        std::vector<GuardedImage<T>*> outs;
        if (forward)
            for (auto& b : bands) outs.push_back(b.get());
        else
            outs.push_back(&image);
        compareOutputs<T>(
            outs,
            [&](int level) {
                const int status =
                    forward
                        ? int(tableFwd<T>()[level](image.origin(), image.step(), &tile, bandPtr, steps, buffer.data()))
                        : int(tableInv<T>()[level](bandPtr, steps, &tile, image.origin(), image.step(), buffer.data()));
                EXPECT_TRUE(buffer.guardsIntact()) << "level " << level << " wrote outside the buffer";
                return status;
            },
            what);
        if (::testing::Test::HasFatalFailure()) return;
    }
}
VEK_DIFF_CASE(vekiWTFwd_D97_JPEG2K_16s_C1R, [] { diffLevel<Vek16s>(true); });
VEK_DIFF_CASE(vekiWTFwd_D97_JPEG2K_32s_C1R, [] { diffLevel<Vek32s>(true); });
VEK_DIFF_CASE(vekiWTInv_D97_JPEG2K_16s_C1R, [] { diffLevel<Vek16s>(false); });
VEK_DIFF_CASE(vekiWTInv_D97_JPEG2K_32s_C1R, [] { diffLevel<Vek32s>(false); });

// ---- lines through the passes -------------------------------------------------------
// A Row pass on one row, or a Col pass on an image one sample wide whose
// step is one sample: the same line either way.

template <class T, class Fn>
void forwardLine(const Fn* table, bool rows, bool nineSeven, bool phase1, int w, const std::function<T(int)>& x,
                 std::vector<T>& low, std::vector<T>& high) {
    const Reach r = reachOf(nineSeven, phase1, w);
    std::vector<T> in(r.last - r.first + 1);
    for (int p = r.first; p <= r.last; ++p) in[p - r.first] = x(p);
    low.assign(w, T()), high.assign(w, T());
    const int s = sizeof(T), lineStep = rows ? int(in.size()) * s : s, bandStep = rows ? w * s : s;
    ASSERT_EQ(table[0](in.data() - r.first, lineStep, low.data(), bandStep, high.data(), bandStep,
                       rows ? VekiSize{w, 1} : VekiSize{1, w}, phase1),
              StatusOk);
}

template <class T, class Fn>
std::vector<T> inverseLine(const Fn* table, bool rows, bool nineSeven, bool phase1, int w,
                           const std::function<T(int)>& lowAt, const std::function<T(int)>& highAt) {
    const Reach r = reachOf(nineSeven, phase1, w);
    std::vector<T> low(r.lowLast - r.lowFirst + 1), high(r.highLast - r.highFirst + 1), out(2 * w);
    for (int i = r.lowFirst; i <= r.lowLast; ++i) low[i - r.lowFirst] = lowAt(i);
    for (int i = r.highFirst; i <= r.highLast; ++i) high[i - r.highFirst] = highAt(i);
    const int s = sizeof(T);
    EXPECT_EQ(table[0](low.data() - r.lowFirst, rows ? int(low.size()) * s : s, high.data() - r.highFirst,
                       rows ? int(high.size()) * s : s, rows ? VekiSize{w, 1} : VekiSize{1, w}, out.data(),
                       rows ? 2 * w * s : s, phase1),
              StatusOk);
    return out;
}

// The interleaved coefficients of a line of n samples from its bands,
// extended symmetrically: what a caller supplies around the bands.
template <class T>
std::function<T(int)> bandAt(const std::vector<T>& low, const std::vector<T>& high, int n, bool phase1, bool ofLow) {
    return [=, &low, &high](int i) {
        const int q = reflectPosition(ofLow ? lowPosition(i, phase1) : highPosition(i, phase1), n);
        return ((q & 1) != 0) == phase1 ? low[q >> 1] : high[q >> 1];
    };
}

template <class T, class Fwd, class Inv>
void expectReconstruction(const Fwd* fwd, const Inv* inv, bool rows) {
    for (const bool phase1 : {false, true})
        for (int n = 2; n < 42 + rounds(20); ++n) {
            const std::vector<T> x = randomVector<T>(n);
            const int w = (n + 1) / 2;
            std::vector<T> low, high;
            forwardLine<T>(
                fwd, rows, false, phase1, w, [&](int p) { return x[reflectPosition(p, n)]; }, low, high);
            const std::vector<T> out = inverseLine<T>(inv, rows, false, phase1, w, bandAt(low, high, n, phase1, true),
                                                      bandAt(low, high, n, phase1, false));
            for (int p = 0; p < n; ++p)
                ASSERT_EQ(out[p], x[p]) << "length " << n << " phase " << phase1 << " rows " << rows << " at " << p;
        }
}

TEST(Jpeg2000Wavelet, B53ReconstructsLinesOfEveryLengthInBothPhases) {
    expectReconstruction<Vek16s>(vekTable_vekiWTFwdRow_B53_JPEG2K_16s_C1R, vekTable_vekiWTInvRow_B53_JPEG2K_16s_C1R,
                                 true);
    expectReconstruction<Vek32s>(vekTable_vekiWTFwdRow_B53_JPEG2K_32s_C1R, vekTable_vekiWTInvRow_B53_JPEG2K_32s_C1R,
                                 true);
    expectReconstruction<Vek16s>(vekTable_vekiWTFwdCol_B53_JPEG2K_16s_C1R, vekTable_vekiWTInvCol_B53_JPEG2K_16s_C1R,
                                 false);
    expectReconstruction<Vek32s>(vekTable_vekiWTFwdCol_B53_JPEG2K_32s_C1R, vekTable_vekiWTInvCol_B53_JPEG2K_32s_C1R,
                                 false);
}

// ---- the 9/7 lifting written from the definitions -------------------------------------

// A sequence over a window of indices.
template <class V>
struct Seq {
    int lo;
    std::vector<V> v;
    Seq(int first, int last) : lo(first), v(last - first + 1) {}
    V& operator[](int i) { return v.at(i - lo); }
};

// The four lifting steps over indices wide enough for [0, w), each step
// step(i, a, b, c) with b, c the neighbours the phase gives; then the
// outputs.  With `inverse` the steps start on the low sequence.
template <class V, class Step>
void liftReference(bool inverse, bool phase1, int w, Seq<V>& low, Seq<V>& high, Step step) {
    const int readL = phase1 ? -1 : 0, readH = phase1 ? 0 : -1;
    for (int s = 0; s < 4; ++s) {
        const bool onLow = (s % 2 == 1) != inverse;
        const int margin = 3 - s;
        for (int i = -margin; i < w + margin; ++i) {
            if (onLow)
                low[i] = step(s, i, low[i], high[i + readH], high[i + readH + 1]);
            else
                high[i] = step(s, i, high[i], low[i + readL], low[i + readL + 1]);
        }
    }
}

constexpr double kA = -1.5861343, kB = -0.052980117, kG = 0.8829111, kD = 0.44350687, kKd = 1.2301741;

TEST(Jpeg2000Wavelet, D97FloatFollowsTheLiftingInDoublePrecision) {
    for (int round = 0; round < rounds(40); ++round) {
        const int w = rng()() % 4 ? 1 + int(rng()() % 40) : 1;
        const bool phase1 = rng()() % 2, rows = rng()() % 2;
        const int n = 2 * w;
        std::vector<Vek32f> x(n);
        for (auto& v : x) v = std::uniform_real_distribution<float>(-1000.0f, 1000.0f)(rng());
        auto at = [&](int p) { return x[reflectPosition(p, n)]; };
        // The reference lifts the extended line (for w = 1 the direct filters
        // are the same filters, their taps rounded to eight digits).
        Seq<double> low(-8, w + 8), high(-8, w + 8);
        for (int i = -8; i < w + 8; ++i) low[i] = at(lowPosition(i, phase1)), high[i] = at(highPosition(i, phase1));
        liftReference<double>(false, phase1, w, low, high, [](int s, int, double a, double b, double c) {
            const double k[4] = {kA, kB, kG, kD};
            return a + k[s] * (b + c);
        });
        std::vector<double> wantLow(w), wantHigh(w);
        for (int i = 0; i < w; ++i) wantLow[i] = low[i] / kKd, wantHigh[i] = high[i] * kKd;
        std::vector<Vek32f> gotLow, gotHigh;
        forwardLine<Vek32f>(rows ? vekTable_vekiWTFwdRow_D97_JPEG2K_32f_C1R : vekTable_vekiWTFwdCol_D97_JPEG2K_32f_C1R,
                            rows, true, phase1, w, at, gotLow, gotHigh);
        for (int i = 0; i < w; ++i) {
            ASSERT_NEAR(gotLow[i], wantLow[i], 5e-3) << "low " << i << " of " << w << " phase " << phase1;
            ASSERT_NEAR(gotHigh[i], wantHigh[i], 5e-3) << "high " << i << " of " << w << " phase " << phase1;
        }
        // The inverse of the float bands gives the line back.
        const std::vector<Vek32f> back = inverseLine<Vek32f>(
            rows ? vekTable_vekiWTInvRow_D97_JPEG2K_32f_C1R : vekTable_vekiWTInvCol_D97_JPEG2K_32f_C1R, rows, true,
            phase1, w, bandAt(gotLow, gotHigh, n, phase1, true), bandAt(gotLow, gotHigh, n, phase1, false));
        for (int p = 0; p < n; ++p) ASSERT_NEAR(back[p], x[p], 5e-3) << p << " of " << n << " phase " << phase1;
    }
}

// The Q16 arithmetic: each step's result saturated (16 bits) or wrapped
// (32 bits); `saturated` counts the clamps so the test knows it reached them.
template <class T>
struct Q16 {
    int saturated = 0;
    int64_t keep(int64_t v) {
        if (sizeof(T) == 4) return int32_t(uint32_t(uint64_t(v)));
        if (v < -32768 || v > 32767) ++saturated;
        return v < -32768 ? -32768 : (v > 32767 ? 32767 : v);
    }
    static int64_t round(int64_t v) { return (v + 32768) >> 16; }
    // The width-1 filters: 16 bits round the sum once, 32 bits each tap.
    int64_t filter(const int64_t* taps, int count, const std::function<int64_t(int)>& x) {
        int64_t sum = sizeof(T) == 2 ? taps[0] * x(0) : round(taps[0] * x(0));
        for (int d = 1; d < count; ++d)
            sum += sizeof(T) == 2 ? taps[d] * (x(-d) + x(d)) : round(taps[d] * (x(-d) + x(d)));
        return keep(sizeof(T) == 2 ? round(sum) : sum);
    }
};

template <class T, class FwdFn, class InvFn>
void expectQ16Rows(const FwdFn* fwd, const InvFn* inv) {
    Q16<T> q;
    for (int round = 0; round < rounds(60); ++round) {
        const int w = rng()() % 4 ? 1 + int(rng()() % 30) : 1;
        const bool phase1 = rng()() % 2;
        const int n = 2 * w;
        const std::vector<T> x = randomVector<T>(n);  // extremes often: the 16-bit steps saturate
        auto at = [&](int p) { return int64_t(x[reflectPosition(p, n)]); };
        std::vector<int64_t> wantLow(w), wantHigh(w);
        if (w == 1) {
            const int64_t lowTaps[] = {39515, 17489, -5126, -1105, 1753}, highTaps[] = {73078, -38749, -3771, 5982};
            const int c = phase1 ? 1 : 0;
            wantLow[0] = q.filter(lowTaps, 5, [&](int d) { return at(c + d); });
            wantHigh[0] = q.filter(highTaps, 4, [&](int d) { return at(1 - c + d); });
        } else {
            Seq<int64_t> low(-8, w + 8), high(-8, w + 8);
            for (int i = -8; i < w + 8; ++i) low[i] = at(lowPosition(i, phase1)), high[i] = at(highPosition(i, phase1));
            liftReference<int64_t>(false, phase1, w, low, high, [&](int s, int i, int64_t a, int64_t b, int64_t c) {
                const int64_t k[3] = {-103949, -3472, 57862};
                if (s < 3) return q.keep(a + Q16<T>::round(k[s] * (b + c)));
                if (i != w - 1) return q.keep(Q16<T>::round(23627 * (b + c) + 53274 * a));
                return q.keep(Q16<T>::round(53274 * q.keep(a + Q16<T>::round(29066 * (b + c)))));
            });
            for (int i = 0; i < w; ++i) wantLow[i] = low[i], wantHigh[i] = q.keep(Q16<T>::round(80621 * high[i]));
        }
        std::vector<T> gotLow, gotHigh;
        forwardLine<T>(
            fwd, true, true, phase1, w, [&](int p) { return T(at(p)); }, gotLow, gotHigh);
        for (int i = 0; i < w; ++i)
            ASSERT_TRUE(gotLow[i] == wantLow[i] && gotHigh[i] == wantHigh[i])
                << i << " of " << w << " phase " << phase1 << ": " << gotLow[i] << " " << wantLow[i] << ", "
                << gotHigh[i] << " " << wantHigh[i];
        // The inverse of random bands (extended as a caller would).
        const std::vector<T> lowBand = randomVector<T>(w), highBand = randomVector<T>(w);
        const auto lowAt = bandAt(lowBand, highBand, n, phase1, true),
                   highAt = bandAt(lowBand, highBand, n, phase1, false);
        std::vector<int64_t> want(n);
        if (w == 1) {
            const int64_t lowPos[] = {73078, -17489, -3771, 1105}, highPos[] = {39515, 38749, -5126, -5981, 1753};
            auto y = [&](int p) { return int64_t(((p & 1) != 0) == phase1 ? lowAt(p >> 1) : highAt(p >> 1)); };
            for (int p = 0; p < 2; ++p) {
                const bool lowOut = ((p & 1) != 0) == phase1;
                want[p] = q.filter(lowOut ? lowPos : highPos, lowOut ? 4 : 5, [&](int d) { return y(p + d); });
            }
        } else {
            Seq<int64_t> low(-8, w + 8), high(-8, w + 8);
            for (int i = -8; i < w + 8; ++i) low[i] = lowAt(i), high[i] = highAt(i);
            liftReference<int64_t>(true, phase1, w, low, high, [&](int s, int i, int64_t a, int64_t b, int64_t c) {
                if (s == 0 && i == w - 1)
                    return q.keep(q.keep(Q16<T>::round(80621 * a)) + Q16<T>::round(-23627 * (b + c)));
                const int64_t ka[4] = {80621, 53274, 65536, 65536}, kb[4] = {-23627, -57862, 3472, 103949};
                return q.keep(Q16<T>::round(ka[s] * a + kb[s] * (b + c)));
            });
            for (int i = 0; i < w; ++i) want[lowPosition(i, phase1)] = low[i], want[highPosition(i, phase1)] = high[i];
        }
        const std::vector<T> got = inverseLine<T>(inv, true, true, phase1, w, lowAt, highAt);
        for (int p = 0; p < n; ++p) ASSERT_EQ(got[p], want[p]) << "inverse " << p << " of " << n << " phase " << phase1;
    }
    if (sizeof(T) == 2) {
        EXPECT_GT(q.saturated, 0) << "no step saturated";
    }
}

TEST(Jpeg2000Wavelet, D97FixedFollowsTheQ16Arithmetic) {
    expectQ16Rows<Vek16s>(vekTable_vekiWTFwdRow_D97_JPEG2K_16s_C1R, vekTable_vekiWTInvRow_D97_JPEG2K_16s_C1R);
    expectQ16Rows<Vek32s>(vekTable_vekiWTFwdRow_D97_JPEG2K_32s_C1R, vekTable_vekiWTInvRow_D97_JPEG2K_32s_C1R);
}

// ---- ColLift against the whole-column passes ------------------------------------------

// Rows -4 .. 2h + 4 of random samples, `width` wide, and row r of them.
template <class T>
struct Rows {
    int width, first;
    std::vector<T> v;
    Rows(int w, int lo, int hi) : width(w), first(lo), v(size_t(w) * (hi - lo + 1)) {
        for (T& x : v)
            x = sizeof(T) == 4 && std::is_floating_point_v<T> ? T(int(rng()() % 2001) - 1000) : randomValue<T>();
    }
    T* row(int r) { return v.data() + size_t(r - first) * width; }
    int step() const { return width * int(sizeof(T)); }
};

template <class T, class Col, class Lift>
void expectForwardLift53(const Col* col, const Lift* lift) {
    const int w = 1 + int(rng()() % 50), h = 1 + int(rng()() % 12);
    Rows<T> x(w, -4, 2 * h + 4), low(w, 0, h), high(w, 0, h), got(w, -1, 2 * h), zero(w, 0, 0);
    ASSERT_EQ(col[0](x.row(0), x.step(), low.row(0), low.step(), high.row(0), high.step(), {w, h}, 0), StatusOk);
    for (int n = -1; n < h; ++n)  // got: low rows 0.., high rows h + 1 + n; row -1 takes the primer
        lift[0](x.row(2 * n), x.row(2 * n + 1), x.row(2 * n + 2), n < 0 ? got.row(-1) : got.row(n),
                n < 0 ? zero.row(0) : got.row(h + n), got.row(h + 1 + n), w);
    for (int n = 0; n < h; ++n)
        for (int c = 0; c < w; ++c)
            ASSERT_TRUE(got.row(n)[c] == low.row(n)[c] && got.row(h + 1 + n)[c] == high.row(n)[c]) << n << "," << c;
}

template <class T, class Col, class Lift>
void expectInverseLift53(const Col* col, const Lift* lift) {
    const int w = 1 + int(rng()() % 50), h = 1 + int(rng()() % 12);
    Rows<T> low(w, 0, h), high(w, -1, h), want(w, 0, 2 * h - 1), got(w, -2, 2 * h), zero(w, 0, 0);
    ASSERT_EQ(col[0](low.row(0), low.step(), high.row(0), high.step(), {w, h}, want.row(0), want.step(), 0), StatusOk);
    for (int n = 0; n <= h; ++n)  // odd row 2n - 1, even row 2n
        lift[0](low.row(n), high.row(n - 1), high.row(n), n == 0 ? zero.row(0) : got.row(2 * n - 2), got.row(2 * n - 1),
                got.row(2 * n), w);
    for (int r = 0; r < 2 * h; ++r)
        for (int c = 0; c < w; ++c) ASSERT_EQ(got.row(r)[c], want.row(r)[c]) << r << "," << c;
}

TEST(Jpeg2000Wavelet, ColumnLiftRowByRowMatchesTheColumnPasses) {
    for (int round = 0; round < rounds(10); ++round) {
        expectForwardLift53<Vek16s>(vekTable_vekiWTFwdCol_B53_JPEG2K_16s_C1R,
                                    vekTable_vekiWTFwdColLift_B53_JPEG2K_16s_C1);
        expectForwardLift53<Vek32s>(vekTable_vekiWTFwdCol_B53_JPEG2K_32s_C1R,
                                    vekTable_vekiWTFwdColLift_B53_JPEG2K_32s_C1);
        expectInverseLift53<Vek16s>(vekTable_vekiWTInvCol_B53_JPEG2K_16s_C1R,
                                    vekTable_vekiWTInvColLift_B53_JPEG2K_16s_C1);
        expectInverseLift53<Vek32s>(vekTable_vekiWTInvCol_B53_JPEG2K_32s_C1R,
                                    vekTable_vekiWTInvColLift_B53_JPEG2K_32s_C1);
        // 9/7 float: the pipeline, primed two pairs early and drained one late
        // (two rows at least: a band one row high takes the direct filters).
        const int w = 1 + int(rng()() % 40), h = 2 + int(rng()() % 10);
        Rows<Vek32f> x(w, -4, 2 * h + 6), low(w, 0, h), high(w, 0, h);
        ASSERT_EQ(vekTable_vekiWTFwdCol_D97_JPEG2K_32f_C1R[0](x.row(0), x.step(), low.row(0), low.step(), high.row(0),
                                                              high.step(), {w, h}, 0),
                  StatusOk);
        Rows<Vek32f> pool(w, 0, 4);
        Vek32f *r3 = pool.row(0), *r5 = pool.row(1), *r6 = pool.row(2), *r4 = pool.row(3), *r7 = pool.row(4);
        for (int n = -2; n <= h + 1; ++n) {
            vekTable_vekiWTFwdColLift_D97_JPEG2K_32f_C1[0](x.row(2 * n), x.row(2 * n + 1), x.row(2 * n + 2), r3, r4, r5,
                                                           r6, r7, w);
            for (int c = 0; c < w; ++c) {
                if (n - 1 >= 0 && n - 1 < h) {
                    ASSERT_EQ(r3[c], low.row(n - 1)[c]) << "low " << n - 1;
                }
                if (n - 2 >= 0 && n - 2 < h) {
                    ASSERT_EQ(r5[c], high.row(n - 2)[c]) << "high " << n - 2;
                }
            }
            Vek32f *freeA = r3, *freeB = r5;
            r3 = r4, r5 = r6, r6 = r7, r4 = freeA, r7 = freeB;
        }
        // and back: q1 is the high row the new odd row comes from, q2 the next.
        Rows<Vek32f> lowB(w, -2, h + 2), highB(w, -2, h + 2), want(w, 0, 2 * h - 1);
        ASSERT_EQ(vekTable_vekiWTInvCol_D97_JPEG2K_32f_C1R[0](lowB.row(0), lowB.step(), highB.row(0), highB.step(),
                                                              {w, h}, want.row(0), want.step(), 0),
                  StatusOk);
        Vek32f *q3 = pool.row(0), *q4 = pool.row(1), *q5 = pool.row(2), *q6 = pool.row(3), *q7 = pool.row(4);
        for (int n = -1; n <= h + 1; ++n) {
            vekTable_vekiWTInvColLift_D97_JPEG2K_32f_C1[0](lowB.row(n), highB.row(n - 1), highB.row(n), q3, q4, q5, q6,
                                                           q7, w);
            for (int c = 0; c < w; ++c) {
                if (n - 1 >= 0 && n - 1 < h) {
                    ASSERT_EQ(q5[c], want.row(2 * n - 2)[c]) << "even " << 2 * n - 2;
                }
                if (n - 2 >= 0 && n - 2 < h) {
                    ASSERT_EQ(q4[c], want.row(2 * n - 3)[c]) << "odd " << 2 * n - 3;
                }
            }
            Vek32f *freeA = q3, *freeB = q4;
            q3 = q5, q4 = q6, q5 = q7, q6 = freeA, q7 = freeB;
        }
    }
}

// ---- the two-dimensional level against the separable passes ------------------------------

template <class T, class Level, class Row, class InvLevel, class InvRow>
void expectSeparable(const Level* level, const Row* row, const InvLevel* invLevel, const InvRow* invRow) {
    for (int round = 0; round < rounds(12); ++round) {
        const int w = 2 * (1 + int(rng()() % 12)), h = 2 * (1 + int(rng()() % 12));
        const VekiRect tile{int(rng()() % 4), int(rng()() % 4), w, h};
        const bool px = tile.x & 1, py = tile.y & 1;
        std::vector<T> image = randomVector<T>(w * h), rows(w * h);
        std::vector<std::vector<T>> bands(4, std::vector<T>(w * h / 4)), got = bands;
        // rows, then the columns of the result
        for (int y = 0; y < h; ++y) {
            std::vector<T> l, hi;
            forwardLine<T>(
                row, true, true, px, w / 2, [&](int p) { return image[y * w + reflectPosition(p, w)]; }, l, hi);
            std::copy(l.begin(), l.end(), rows.begin() + y * w),
                std::copy(hi.begin(), hi.end(), rows.begin() + y * w + w / 2);
        }
        for (int c = 0; c < w; ++c) {
            std::vector<T> l, hi;
            forwardLine<T>(
                row, true, true, py, h / 2, [&](int p) { return rows[reflectPosition(p, h) * w + c]; }, l, hi);
            for (int i = 0; i < h / 2; ++i)
                bands[c < w / 2 ? 0 : 2][i * (w / 2) + c % (w / 2)] = l[i],
                                                                bands[c < w / 2 ? 1 : 3][i * (w / 2) + c % (w / 2)] =
                                                                    hi[i];
        }
        std::vector<Vek8u> buffer(VEK_WT_D97_JPEG2K_BUFFER_SIZE(w, h, int(sizeof(T))));
        T* out[4] = {got[0].data(), got[1].data(), got[2].data(), got[3].data()};
        const int steps[4] = {int(w / 2 * sizeof(T)), int(w / 2 * sizeof(T)), int(w / 2 * sizeof(T)),
                              int(w / 2 * sizeof(T))};
        ASSERT_EQ(level[0](image.data(), int(w * sizeof(T)), &tile, out, steps, buffer.data()), StatusOk);
        for (int b = 0; b < 4; ++b)
            ASSERT_TRUE(got[b] == bands[b])
                << "band " << b << " " << w << "x" << h << " at " << tile.x << "," << tile.y;
        // the inverse: columns, then rows
        for (auto& b : bands) b = randomVector<T>(w * h / 4);
        std::vector<T> cols(w * h), want(w * h), back(w * h);
        for (int c = 0; c < w; ++c) {
            std::vector<T> l(h / 2), hi(h / 2);
            for (int i = 0; i < h / 2; ++i)
                l[i] = bands[c < w / 2 ? 0 : 2][i * (w / 2) + c % (w / 2)],
                hi[i] = bands[c < w / 2 ? 1 : 3][i * (w / 2) + c % (w / 2)];
            const std::vector<T> line =
                inverseLine<T>(invRow, true, true, py, h / 2, bandAt(l, hi, h, py, true), bandAt(l, hi, h, py, false));
            for (int y = 0; y < h; ++y) cols[y * w + c] = line[y];
        }
        for (int y = 0; y < h; ++y) {
            const std::vector<T> l(cols.begin() + y * w, cols.begin() + y * w + w / 2),
                hi(cols.begin() + y * w + w / 2, cols.begin() + (y + 1) * w);
            const std::vector<T> line =
                inverseLine<T>(invRow, true, true, px, w / 2, bandAt(l, hi, w, px, true), bandAt(l, hi, w, px, false));
            std::copy(line.begin(), line.end(), want.begin() + y * w);
        }
        const T* in[4] = {bands[0].data(), bands[1].data(), bands[2].data(), bands[3].data()};
        ASSERT_EQ(invLevel[0](in, steps, &tile, back.data(), int(w * sizeof(T)), buffer.data()), StatusOk);
        ASSERT_TRUE(back == want) << "inverse " << w << "x" << h << " at " << tile.x << "," << tile.y;
    }
}

TEST(Jpeg2000Wavelet, LevelMatchesTheSeparablePassesAndTakesItsPhaseFromThePosition) {
    expectSeparable<Vek16s>(vekTable_vekiWTFwd_D97_JPEG2K_16s_C1R, vekTable_vekiWTFwdRow_D97_JPEG2K_16s_C1R,
                            vekTable_vekiWTInv_D97_JPEG2K_16s_C1R, vekTable_vekiWTInvRow_D97_JPEG2K_16s_C1R);
    expectSeparable<Vek32s>(vekTable_vekiWTFwd_D97_JPEG2K_32s_C1R, vekTable_vekiWTFwdRow_D97_JPEG2K_32s_C1R,
                            vekTable_vekiWTInv_D97_JPEG2K_32s_C1R, vekTable_vekiWTInvRow_D97_JPEG2K_32s_C1R);
    // An odd extent keeps phase 0 wherever the tile lies.
    const int w = 7, h = 5;
    const std::vector<Vek32s> image = randomVector<Vek32s>(w * h);
    std::vector<Vek32s> at0(w * h), at1(w * h);
    std::vector<Vek8u> buffer(VEK_WT_D97_JPEG2K_BUFFER_SIZE(w, h, 4));
    for (const VekiRect& tile : {VekiRect{0, 0, w, h}, VekiRect{1, 3, w, h}}) {
        std::vector<Vek32s>& out = tile.x == 0 ? at0 : at1;
        Vek32s* bands[4] = {out.data(), out.data() + 12, out.data() + 20, out.data() + 29};
        const int steps[4] = {16, 16, 12, 12};
        ASSERT_EQ(vekTable_vekiWTFwd_D97_JPEG2K_32s_C1R[0](image.data(), w * 4, &tile, bands, steps, buffer.data()),
                  StatusOk);
    }
    EXPECT_TRUE(at0 == at1);
}

// ---- the rules at entry, on every level ----------------------------------------------------

// Pointers, then steps, then sizes (the passes); pointers, then the width
// (ColLift); the level's long list; a failed check writes nothing.
TEST(Jpeg2000Wavelet, ChecksInOrderAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek32f in[64] = {}, lo[8], hi[8];
        for (int i = 0; i < 8; ++i) lo[i] = hi[i] = 7.0f;
        auto fwd = [&](const Vek32f* s, Vek32f* l, int step, VekiSize roi) {
            return vekTable_vekiWTFwdRow_D97_JPEG2K_32f_C1R[level](s, 32, l, step, hi, 16, roi, 0);
        };
        EXPECT_EQ(fwd(nullptr, lo, 0, {0, 0}), StatusNullPointer);
        EXPECT_EQ(fwd(in + 8, nullptr, 16, {2, 2}), StatusNullPointer);
        EXPECT_EQ(fwd(in + 8, lo, 0, {0, 0}), StatusStep);
        EXPECT_EQ(fwd(in + 8, lo, 16, {0, 2}), StatusSize);
        EXPECT_EQ(vekTable_vekiWTInvCol_D97_JPEG2K_32f_C1R[level](in + 8, 16, in + 8, 16, {2, 0}, lo, -16, 0),
                  StatusStep);
        EXPECT_EQ(vekTable_vekiWTInvCol_D97_JPEG2K_32f_C1R[level](in + 8, 16, nullptr, 0, {2, 0}, lo, 16, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiWTFwdColLift_D97_JPEG2K_32f_C1[level](in, in, in, lo, lo, hi, hi, nullptr, 0),
                  StatusNullPointer);
        EXPECT_EQ(vekTable_vekiWTFwdColLift_D97_JPEG2K_32f_C1[level](in, in, in, lo, lo, hi, hi, hi, 0), StatusSize);
        for (int i = 0; i < 8; ++i) ASSERT_TRUE(lo[i] == 7.0f && hi[i] == 7.0f);

        Vek16s image[16] = {}, band[4] = {9, 9, 9, 9};
        Vek16s* bands[4] = {band, band, band, band};
        Vek16s* noBand[4] = {band, band, nullptr, band};
        const int steps[4] = {2, 2, 2, 2}, badSteps[4] = {2, 2, 2, 0};
        const VekiRect tile{0, 0, 2, 2}, empty{0, 0, 2, 0};
        Vek8u buffer[VEK_WT_D97_JPEG2K_BUFFER_SIZE(2, 2, 2)];
        auto level2 = [&](const Vek16s* s, int step, const VekiRect* r, Vek16s* const* b, const int* st, Vek8u* buf) {
            return vekTable_vekiWTFwd_D97_JPEG2K_16s_C1R[level](s, step, r, b, st, buf);
        };
        EXPECT_EQ(level2(image, 0, &tile, noBand, badSteps, nullptr), StatusNullPointer);  // the buffer, first
        EXPECT_EQ(level2(image, 4, nullptr, bands, steps, buffer), StatusNullPointer);
        EXPECT_EQ(level2(image, 0, &empty, noBand, badSteps, buffer), StatusStep);         // the image step
        EXPECT_EQ(level2(image, 4, &empty, noBand, badSteps, buffer), StatusNullPointer);  // then the bands
        EXPECT_EQ(level2(image, 4, &empty, bands, badSteps, buffer), StatusStep);          // their steps
        EXPECT_EQ(level2(image, 4, &empty, bands, steps, buffer), StatusSize);             // the tile last
        const Vek16s* in4[4] = {band, band, band, band};
        EXPECT_EQ(vekTable_vekiWTInv_D97_JPEG2K_16s_C1R[level](in4, badSteps, &tile, image, 4, buffer), StatusStep);
        for (Vek16s v : band) EXPECT_EQ(v, 9);
        for (Vek16s v : image) EXPECT_EQ(v, 0);
    });
}

}  // namespace
}  // namespace vektest
