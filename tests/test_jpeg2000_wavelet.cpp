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

}  // namespace
}  // namespace vektest
