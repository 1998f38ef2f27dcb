// Image copies, sets, mirrors, channel swaps and border replication: every
// level against level 0 on random regions and layouts, level 0 against
// per-pixel index formulas, and the rules at entry on every level.
#include "image_harness.h"

namespace vektest {
namespace {

// Widths around the vector blocks (16 to 64 bytes, three vectors) of every
// sample size; an in-place mirror needs two blocks of 64 pixels.
const int kWidths[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  11, 12, 13, 15,  16,  17, 20,
                       23, 24, 25, 31, 32, 33, 47, 48, 49, 63, 64, 65, 100, 128, 129};

// Every width with a random height, then random larger regions.
template <class Body>
void forRegions(Body body) {
    for (int round = 0; round < rounds(4); ++round) {
        for (int w : kWidths) body(VekiSize{w, 1 + static_cast<int>(rng()() % 5)});
        body(VekiSize{1, 1});
        body(VekiSize{1 + static_cast<int>(rng()() % 300), 1 + static_cast<int>(rng()() % 9)});
    }
}

// Images a function reads, in place too: the last row in memory ends at the
// no-access page, so a read past it faults.
template <class T>
ImageLayout inputLayout(bool allowZeroStep = false) {
    ImageLayout l = randomLayout<T>(allowZeroStep);
    l.guardAfter = false;
    return l;
}

std::string describe(VekiSize roi, const ImageLayout& in, const ImageLayout& out) {
    return std::to_string(roi.width) + "x" + std::to_string(roi.height) + " in: " + in.describe() +
           "; out: " + out.describe();
}

// The pixel a mirror takes destination (x, y) from.
int mirroredX(int x, int w, int flip) { return flip == 0 ? x : w - 1 - x; }
int mirroredY(int y, int h, int flip) { return flip == 1 ? y : h - 1 - y; }

// ---- copies ----------------------------------------------------------------------

template <class T, class Fn>
void diffCopy(const Fn* table, int channels) {
    forRegions([&](VekiSize roi) {
        GuardedImage<T> src(roi.width * channels, roi.height, inputLayout<T>());
        GuardedImage<T> dst(roi.width * channels, roi.height, randomLayout<T>(true));
        compareImageLevels(
            dst, [&](int level) { return table[level](src.origin(), src.step(), dst.origin(), dst.step(), roi); },
            describe(roi, src.layout(), dst.layout()));
    });
}
VEK_DIFF_CASE(vekiCopy_8u_C1R, [] { diffCopy<Vek8u>(vek::vekTable_vekiCopy_8u_C1R, 1); });
VEK_DIFF_CASE(vekiCopy_16s_C1R, [] { diffCopy<Vek16s>(vek::vekTable_vekiCopy_16s_C1R, 1); });
VEK_DIFF_CASE(vekiCopy_32f_C1R, [] { diffCopy<Vek32f>(vek::vekTable_vekiCopy_32f_C1R, 1); });
VEK_DIFF_CASE(vekiCopy_8u_C3R, [] { diffCopy<Vek8u>(vek::vekTable_vekiCopy_8u_C3R, 3); });
VEK_DIFF_CASE(vekiCopy_8u_C4R, [] { diffCopy<Vek8u>(vek::vekTable_vekiCopy_8u_C4R, 4); });
VEK_DIFF_CASE(vekiCopy_8u_AC4R, [] { diffCopy<Vek8u>(vek::vekTable_vekiCopy_8u_AC4R, 4); });

template <class T, class Fn>
void diffPlanarToInterleaved(const Fn* table) {
    forRegions([&](VekiSize roi) {
        const ImageLayout in = inputLayout<T>();
        GuardedImage<T> a(roi.width, roi.height, in), b(roi.width, roi.height, in), c(roi.width, roi.height, in);
        const T* planes[3] = {a.origin(), b.origin(), c.origin()};
        GuardedImage<T> dst(3 * roi.width, roi.height, randomLayout<T>(true));
        compareImageLevels(
            dst, [&](int level) { return table[level](planes, a.step(), dst.origin(), dst.step(), roi); },
            describe(roi, a.layout(), dst.layout()));
    });
}
VEK_DIFF_CASE(vekiCopy_8u_P3C3R, [] { diffPlanarToInterleaved<Vek8u>(vek::vekTable_vekiCopy_8u_P3C3R); });
VEK_DIFF_CASE(vekiCopy_16s_P3C3R, [] { diffPlanarToInterleaved<Vek16s>(vek::vekTable_vekiCopy_16s_P3C3R); });
VEK_DIFF_CASE(vekiCopy_32f_P3C3R, [] { diffPlanarToInterleaved<Vek32f>(vek::vekTable_vekiCopy_32f_P3C3R); });

VEK_DIFF_CASE(vekiCopy_32f_C3P3R, [] {
    forRegions([&](VekiSize roi) {
        GuardedImage<Vek32f> src(3 * roi.width, roi.height, inputLayout<Vek32f>());
        // The three planes share one step: one image three times as high.
        const ImageLayout out = randomLayout<Vek32f>();
        GuardedImage<Vek32f> planes(roi.width, 3 * roi.height, out);
        // Plane c is rows c, c + 3, c + 6 ... of it.
        Vek32f* dst[3] = {planes.row(0), planes.row(1), planes.row(2)};
        compareImageLevels(
            planes,
            [&](int level) {
                return vek::vekTable_vekiCopy_32f_C3P3R[level](src.origin(), src.step(), dst, 3 * planes.step(), roi);
            },
            describe(roi, src.layout(), out));
    });
});

// The cache-bypassing path of outputs over 2 MiB, contiguous and padded, in
// one differential round (the regular diff cases cover small images).
template <class T, class Fn>
void diffLargePlanar(const Fn* table) {
    for (const int padding : {0, 4}) {
        const VekiSize roi{static_cast<int>(1024 / sizeof(T)) + padding / 4, 700};
        ImageLayout in;
        in.paddingBytes = padding;
        GuardedImage<T> a(roi.width, roi.height, in), b(roi.width, roi.height, in), c(roi.width, roi.height, in);
        const T* planes[3] = {a.origin(), b.origin(), c.origin()};
        ImageLayout out = in;
        out.paddingBytes = 3 * padding;
        out.misalignBytes = sizeof(T) == 1 ? 5 : sizeof(T);
        GuardedImage<T> dst(3 * roi.width, roi.height, out);
        compareImageLevels(
            dst, [&](int level) { return table[level](planes, a.step(), dst.origin(), dst.step(), roi); },
            "padding " + std::to_string(padding));
        for (int y = 0; y < roi.height; y += 97)
            for (int x = 0; x < roi.width; ++x)
                ASSERT_TRUE(!memcmp(&dst.at(3 * x, y), &a.at(x, y), sizeof(T)) &&
                            !memcmp(&dst.at(3 * x + 1, y), &b.at(x, y), sizeof(T)) &&
                            !memcmp(&dst.at(3 * x + 2, y), &c.at(x, y), sizeof(T)))
                    << x << "," << y;
    }
}
TEST(ImageCopy, LargePlanarToInterleavedMatchesLevelZero) {
    diffLargePlanar<Vek8u>(vek::vekTable_vekiCopy_8u_P3C3R);
    diffLargePlanar<Vek16s>(vek::vekTable_vekiCopy_16s_P3C3R);
    diffLargePlanar<Vek32f>(vek::vekTable_vekiCopy_32f_P3C3R);
}

// ---- sets -------------------------------------------------------------------------

template <class T, class Fn>
void diffSet(const Fn* table) {
    forRegions([&](VekiSize roi) {
        GuardedImage<T> dst(roi.width, roi.height, randomLayout<T>(true));
        const T value = randomValue<T>();
        compareImageLevels(
            dst, [&](int level) { return table[level](value, dst.origin(), dst.step(), roi); },
            describe(roi, {}, dst.layout()));
    });
}
VEK_DIFF_CASE(vekiSet_8u_C1R, [] { diffSet<Vek8u>(vek::vekTable_vekiSet_8u_C1R); });
VEK_DIFF_CASE(vekiSet_16s_C1R, [] { diffSet<Vek16s>(vek::vekTable_vekiSet_16s_C1R); });
VEK_DIFF_CASE(vekiSet_16u_C1R, [] { diffSet<Vek16u>(vek::vekTable_vekiSet_16u_C1R); });
VEK_DIFF_CASE(vekiSet_8u_C3CR, [] {
    forRegions([&](VekiSize roi) {
        // The row holds whole pixels; the bytes of the other channels before
        // and after the ones set are samples that must keep their values.
        GuardedImage<Vek8u> dst(3 * roi.width, roi.height, randomLayout<Vek8u>(true));
        const int channel = rng()() % 3;
        const Vek8u value = randomValue<Vek8u>();
        compareImageLevels(
            dst,
            [&](int level) {
                return vek::vekTable_vekiSet_8u_C3CR[level](value, dst.origin() + channel, dst.step(), roi);
            },
            describe(roi, {}, dst.layout()) + " channel " + std::to_string(channel));
    });
});

// ---- mirrors ------------------------------------------------------------------------

template <class T, int C, class Fn>
void diffMirror(const Fn* table) {
    forRegions([&](VekiSize roi) {
        for (int flip = 0; flip < 3; ++flip) {
            GuardedImage<T> src(roi.width * C, roi.height, inputLayout<T>());
            GuardedImage<T> dst(roi.width * C, roi.height, randomLayout<T>(true));
            compareImageLevels(
                dst,
                [&](int level) { return table[level](src.origin(), src.step(), dst.origin(), dst.step(), roi, flip); },
                describe(roi, src.layout(), dst.layout()) + " flip " + std::to_string(flip));
        }
    });
}
template <class T, int C, class Fn>
void diffMirrorInPlace(const Fn* table) {
    forRegions([&](VekiSize roi) {
        for (int flip = 0; flip < 3; ++flip) {
            GuardedImage<T> image(roi.width * C, roi.height, inputLayout<T>(true));
            compareImageLevels(
                image, [&](int level) { return table[level](image.origin(), image.step(), roi, flip); },
                describe(roi, image.layout(), image.layout()) + " flip " + std::to_string(flip));
        }
    });
}
#define VEK_MIRROR_CASES(Suffix, T, C)                                                                     \
    VEK_DIFF_CASE(vekiMirror_##Suffix##R, [] { diffMirror<T, C>(vek::vekTable_vekiMirror_##Suffix##R); }); \
    VEK_DIFF_CASE(vekiMirror_##Suffix##IR, [] { diffMirrorInPlace<T, C>(vek::vekTable_vekiMirror_##Suffix##IR); });
VEK_MIRROR_CASES(8u_C1, Vek8u, 1)
VEK_MIRROR_CASES(8u_C3, Vek8u, 3)
VEK_MIRROR_CASES(16u_C1, Vek16u, 1)
VEK_MIRROR_CASES(16u_C3, Vek16u, 3)
VEK_MIRROR_CASES(16s_C1, Vek16s, 1)
VEK_MIRROR_CASES(16s_C3, Vek16s, 3)
VEK_MIRROR_CASES(32s_C1, Vek32s, 1)
VEK_MIRROR_CASES(32s_C3, Vek32s, 3)
VEK_MIRROR_CASES(32f_C1, Vek32f, 1)
VEK_MIRROR_CASES(32f_C3, Vek32f, 3)
#undef VEK_MIRROR_CASES

// ---- channel swaps ------------------------------------------------------------------

void randomOrder(int order[3]) {
    for (int c = 0; c < 3; ++c) order[c] = rng()() % 3;  // repeats allowed
}

VEK_DIFF_CASE(vekiSwapChannels_8u_C3R, [] {
    forRegions([&](VekiSize roi) {
        GuardedImage<Vek8u> src(3 * roi.width, roi.height, inputLayout<Vek8u>());
        GuardedImage<Vek8u> dst(3 * roi.width, roi.height, randomLayout<Vek8u>(true));
        int order[3];
        randomOrder(order);
        compareImageLevels(
            dst,
            [&](int level) {
                return vek::vekTable_vekiSwapChannels_8u_C3R[level](src.origin(), src.step(), dst.origin(), dst.step(),
                                                                    roi, order);
            },
            describe(roi, src.layout(), dst.layout()));
    });
});
VEK_DIFF_CASE(vekiSwapChannels_8u_C3IR, [] {
    forRegions([&](VekiSize roi) {
        GuardedImage<Vek8u> image(3 * roi.width, roi.height, inputLayout<Vek8u>(true));
        int order[3];
        randomOrder(order);
        compareImageLevels(
            image,
            [&](int level) {
                return vek::vekTable_vekiSwapChannels_8u_C3IR[level](image.origin(), image.step(), roi, order);
            },
            describe(roi, image.layout(), image.layout()));
    });
});

// ---- border replication ----------------------------------------------------------------

VekiSize randomBorderedSize(VekiSize src, int& top, int& left) {
    top = rng()() % 6, left = rng()() % 20;
    return VekiSize{src.width + left + static_cast<int>(rng()() % 20),
                    src.height + top + static_cast<int>(rng()() % 6)};
}

VEK_DIFF_CASE(vekiCopyReplicateBorder_32s_C1R, [] {
    forRegions([&](VekiSize roi) {
        int top, left;
        const VekiSize dstRoi = randomBorderedSize(roi, top, left);
        GuardedImage<Vek32s> src(roi.width, roi.height, inputLayout<Vek32s>());
        GuardedImage<Vek32s> dst(dstRoi.width, dstRoi.height, randomLayout<Vek32s>());
        compareImageLevels(
            dst,
            [&](int level) {
                return vek::vekTable_vekiCopyReplicateBorder_32s_C1R[level](src.origin(), src.step(), roi, dst.origin(),
                                                                            dst.step(), dstRoi, top, left);
            },
            describe(roi, src.layout(), dst.layout()));
    });
});

// ---- level 0 against the index formulas ------------------------------------------------
// Random regions and layouts (bottom-up, padded, misaligned); every sample of
// the result is checked against where it must come from.

TEST(ImageCopy, PlainCopiesAndSetsFollowTheFormulas) {
    forRegions([&](VekiSize roi) {
        const int w = roi.width, h = roi.height;
        GuardedImage<Vek8u> src(4 * w, h, inputLayout<Vek8u>()), dst(4 * w, h, randomLayout<Vek8u>());
        const std::vector<Vek8u> before = dst.samples();
        ASSERT_EQ(vek::vekTable_vekiCopy_8u_AC4R[0](src.origin(), src.step(), dst.origin(), dst.step(), roi), StatusOk);
        for (int y = 0; y < h; ++y)
            for (int i = 0; i < 4 * w; ++i)
                ASSERT_EQ(dst.at(i, y), i % 4 == 3 ? before[y * 4 * w + i] : src.at(i, y)) << i << "," << y;
        ASSERT_EQ(vek::vekTable_vekiCopy_8u_C4R[0](src.origin(), src.step(), dst.origin(), dst.step(), roi), StatusOk);
        ASSERT_TRUE(dst.samples() == src.samples());
        ASSERT_TRUE(dst.guardsIntact());

        GuardedImage<Vek16s> set(w, h, randomLayout<Vek16s>());
        ASSERT_EQ(vek::vekTable_vekiSet_16s_C1R[0](-1234, set.origin(), set.step(), roi), StatusOk);
        ASSERT_TRUE(set.samples() == std::vector<Vek16s>(w * h, -1234));
        GuardedImage<Vek8u> third(3 * w, h, randomLayout<Vek8u>());
        const std::vector<Vek8u> old = third.samples();
        ASSERT_EQ(vek::vekTable_vekiSet_8u_C3CR[0](7, third.origin() + 1, third.step(), roi), StatusOk);
        for (int y = 0; y < h; ++y)
            for (int i = 0; i < 3 * w; ++i) ASSERT_EQ(third.at(i, y), i % 3 == 1 ? 7 : old[y * 3 * w + i]);
    });
}

TEST(ImageCopy, PlainPlanarCopiesFollowTheFormulas) {
    forRegions([&](VekiSize roi) {
        const int w = roi.width, h = roi.height;
        const ImageLayout in = inputLayout<Vek16s>();
        GuardedImage<Vek16s> a(w, h, in), b(w, h, in), c(w, h, in);
        const Vek16s* planes[3] = {a.origin(), b.origin(), c.origin()};
        GuardedImage<Vek16s> dst(3 * w, h, randomLayout<Vek16s>());
        ASSERT_EQ(vek::vekTable_vekiCopy_16s_P3C3R[0](planes, a.step(), dst.origin(), dst.step(), roi), StatusOk);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                ASSERT_TRUE(dst.at(3 * x, y) == a.at(x, y) && dst.at(3 * x + 1, y) == b.at(x, y) &&
                            dst.at(3 * x + 2, y) == c.at(x, y));

        GuardedImage<Vek32f> inter(3 * w, h, inputLayout<Vek32f>());
        const ImageLayout out = randomLayout<Vek32f>();
        GuardedImage<Vek32f> p0(w, h, out), p1(w, h, out), p2(w, h, out);
        Vek32f* outPlanes[3] = {p0.origin(), p1.origin(), p2.origin()};
        ASSERT_EQ(vek::vekTable_vekiCopy_32f_C3P3R[0](inter.origin(), inter.step(), outPlanes, p0.step(), roi),
                  StatusOk);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int ch = 0; ch < 3; ++ch) {
                    GuardedImage<Vek32f>& p = ch == 0 ? p0 : ch == 1 ? p1 : p2;
                    ASSERT_TRUE(sameBits(p.at(x, y), inter.at(3 * x + ch, y)));
                }
    });
}

template <class T, int C, class Fn, class FnI>
void checkPlainMirror(const Fn* table, const FnI* inPlace) {
    forRegions([&](VekiSize roi) {
        const int w = roi.width, h = roi.height;
        for (int flip = 0; flip < 3; ++flip) {
            if ((flip != 1 && h < 2) || (flip != 0 && w < 2)) continue;
            GuardedImage<T> src(C * w, h, inputLayout<T>()), dst(C * w, h, randomLayout<T>());
            ASSERT_EQ(table[0](src.origin(), src.step(), dst.origin(), dst.step(), roi, flip), StatusOk);
            GuardedImage<T> image(C * w, h, randomLayout<T>());
            const std::vector<T> original = image.samples();
            ASSERT_EQ(inPlace[0](image.origin(), image.step(), roi, flip), StatusOk);
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x)
                    for (int c = 0; c < C; ++c) {
                        const int xs = mirroredX(x, w, flip), ys = mirroredY(y, h, flip);
                        ASSERT_TRUE(sameBits(dst.at(C * x + c, y), src.at(C * xs + c, ys)))
                            << x << "," << y << " flip " << flip;
                        ASSERT_TRUE(sameBits(image.at(C * x + c, y), original[ys * C * w + C * xs + c]))
                            << "in place " << x << "," << y << " flip " << flip;
                    }
            ASSERT_TRUE(dst.guardsIntact() && image.guardsIntact());
        }
    });
}
TEST(ImageCopy, PlainMirrorsFollowTheFormulas) {
    checkPlainMirror<Vek8u, 1>(vek::vekTable_vekiMirror_8u_C1R, vek::vekTable_vekiMirror_8u_C1IR);
    checkPlainMirror<Vek8u, 3>(vek::vekTable_vekiMirror_8u_C3R, vek::vekTable_vekiMirror_8u_C3IR);
    checkPlainMirror<Vek16u, 3>(vek::vekTable_vekiMirror_16u_C3R, vek::vekTable_vekiMirror_16u_C3IR);
    checkPlainMirror<Vek32f, 1>(vek::vekTable_vekiMirror_32f_C1R, vek::vekTable_vekiMirror_32f_C1IR);
    checkPlainMirror<Vek32s, 3>(vek::vekTable_vekiMirror_32s_C3R, vek::vekTable_vekiMirror_32s_C3IR);
}

TEST(ImageCopy, PlainSwapAndBorderFollowTheFormulas) {
    forRegions([&](VekiSize roi) {
        const int w = roi.width, h = roi.height;
        GuardedImage<Vek8u> src(3 * w, h, inputLayout<Vek8u>()), dst(3 * w, h, randomLayout<Vek8u>());
        int order[3];
        randomOrder(order);
        ASSERT_EQ(
            vek::vekTable_vekiSwapChannels_8u_C3R[0](src.origin(), src.step(), dst.origin(), dst.step(), roi, order),
            StatusOk);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int c = 0; c < 3; ++c) ASSERT_EQ(dst.at(3 * x + c, y), src.at(3 * x + order[c], y));
        ASSERT_EQ(vek::vekTable_vekiSwapChannels_8u_C3IR[0](src.origin(), src.step(), roi, order), StatusOk);
        ASSERT_TRUE(src.samples() == dst.samples());

        int top, left;
        const VekiSize outer = randomBorderedSize(roi, top, left);
        GuardedImage<Vek32s> inner(w, h, inputLayout<Vek32s>()),
            bordered(outer.width, outer.height, randomLayout<Vek32s>());
        ASSERT_EQ(vek::vekTable_vekiCopyReplicateBorder_32s_C1R[0](inner.origin(), inner.step(), roi, bordered.origin(),
                                                                   bordered.step(), outer, top, left),
                  StatusOk);
        auto clampTo = [](int v, int hi) { return v < 0 ? 0 : (v > hi ? hi : v); };
        for (int y = 0; y < outer.height; ++y)
            for (int x = 0; x < outer.width; ++x)
                ASSERT_EQ(bordered.at(x, y), inner.at(clampTo(x - left, w - 1), clampTo(y - top, h - 1)))
                    << x << "," << y;
    });
}

// ---- the rules at entry, on every level ------------------------------------------------

TEST(ImageCopy, CopiesAndSetsCheckPointersThenSizes) {
    GuardedImage<Vek8u> src(12, 3), dst(12, 3);
    const VekiSize bad[] = {{0, 3}, {3, 0}, {-1, 3}, {3, -5}};
    const Vek8u* planes[3] = {src.row(0), src.row(1), nullptr};
    for (int level : availableLevels()) {
        auto& copy = vek::vekTable_vekiCopy_8u_C3R[level];
        EXPECT_EQ(copy(nullptr, 12, dst.origin(), 12, VekiSize{0, 0}), StatusNullPointer);
        EXPECT_EQ(copy(src.origin(), 12, nullptr, 12, VekiSize{4, 3}), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiCopy_8u_P3C3R[level](planes, 4, dst.origin(), 12, VekiSize{4, 3}),
                  StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiCopy_8u_P3C3R[level](nullptr, 4, dst.origin(), 12, VekiSize{4, 3}),
                  StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiSet_8u_C3CR[level](1, nullptr, 12, VekiSize{-1, 0}), StatusNullPointer);
        for (VekiSize roi : bad) {
            EXPECT_EQ(copy(src.origin(), 12, dst.origin(), 12, roi), StatusSize);
            EXPECT_EQ(vek::vekTable_vekiCopy_8u_AC4R[level](src.origin(), 12, dst.origin(), 12, roi), StatusSize);
            EXPECT_EQ(vek::vekTable_vekiSet_8u_C1R[level](9, dst.origin(), 12, roi), StatusSize);
            EXPECT_EQ(vek::vekTable_vekiSet_8u_C3CR[level](9, dst.origin(), 12, roi), StatusSize);
        }
        // Steps are not examined: a zero step copies every row onto one.
        EXPECT_EQ(copy(src.origin(), 12, dst.origin(), 0, VekiSize{4, 3}), StatusOk);
        EXPECT_TRUE(memcmp(dst.origin(), src.row(2), 12) == 0);
    }
    EXPECT_TRUE(dst.guardsIntact());
}

TEST(ImageCopy, MirrorChecksFlipAfterPointersAndSizeThenSizePerFlip) {
    GuardedImage<Vek16s> src(6, 4), dst(6, 4);
    const int s = src.step();
    auto mirror = [&](int level, VekiSize roi, int flip) {
        return vek::vekTable_vekiMirror_16s_C3R[level](src.origin(), s, dst.origin(), dst.step(), roi, flip);
    };
    auto inPlace = [&](int level, VekiSize roi, int flip) {
        return vek::vekTable_vekiMirror_16s_C3IR[level](dst.origin(), dst.step(), roi, flip);
    };
    for (int flip : {3, -1, 100}) {
        expectRejectedOnEveryLevel(dst, StatusMirrorFlip, "flip", [&](int l) { return mirror(l, {2, 2}, flip); });
        expectRejectedOnEveryLevel(dst, StatusMirrorFlip, "flip", [&](int l) { return inPlace(l, {2, 2}, flip); });
        expectRejectedOnEveryLevel(dst, StatusSize, "size first", [&](int l) { return mirror(l, {0, 2}, flip); });
        expectRejectedOnEveryLevel(dst, StatusNullPointer, "pointer first", [&](int l) {
            return vek::vekTable_vekiMirror_16s_C3R[l](nullptr, s, dst.origin(), dst.step(), VekiSize{0, 0}, flip);
        });
        expectRejectedOnEveryLevel(dst, StatusNullPointer, "pointer first", [&](int l) {
            return vek::vekTable_vekiMirror_16s_C3IR[l](nullptr, s, VekiSize{2, 2}, flip);
        });
    }
    // One row cannot flip about the horizontal axis, one column not about
    // the vertical one; both need two of each.
    const struct {
        VekiSize roi;
        int flip;
        VekStatus status;
    } rules[] = {
        {{2, 1}, 0, StatusSize}, {{1, 2}, 0, StatusOk},   {{1, 2}, 1, StatusSize}, {{2, 1}, 1, StatusOk},
        {{2, 1}, 2, StatusSize}, {{1, 2}, 2, StatusSize}, {{2, 2}, 2, StatusOk},   {{1, 1}, 0, StatusSize},
    };
    for (const auto& r : rules) {
        const std::string what =
            std::to_string(r.roi.width) + "x" + std::to_string(r.roi.height) + " flip " + std::to_string(r.flip);
        if (r.status != StatusOk) {
            expectRejectedOnEveryLevel(dst, r.status, what, [&](int l) { return mirror(l, r.roi, r.flip); });
            expectRejectedOnEveryLevel(dst, r.status, what, [&](int l) { return inPlace(l, r.roi, r.flip); });
        } else {
            for (int level : availableLevels()) {
                EXPECT_EQ(mirror(level, r.roi, r.flip), StatusOk) << what;
                EXPECT_EQ(inPlace(level, r.roi, r.flip), StatusOk) << what;
            }
        }
    }
}

TEST(ImageCopy, SwapChannelsRejectsAnOrderOutsideTheChannels) {
    GuardedImage<Vek8u> src(9, 2), dst(9, 2);
    const int badOrders[][3] = {{0, 1, 3}, {-1, 1, 2}, {2, 1, 1000}};
    const int good[3] = {2, 1, 0};
    for (const auto& order : badOrders) {
        expectRejectedOnEveryLevel(dst, StatusChannelOrder, "order", [&](int l) {
            return vek::vekTable_vekiSwapChannels_8u_C3R[l](src.origin(), src.step(), dst.origin(), dst.step(),
                                                            VekiSize{3, 2}, order);
        });
        expectRejectedOnEveryLevel(dst, StatusChannelOrder, "order in place", [&](int l) {
            return vek::vekTable_vekiSwapChannels_8u_C3IR[l](dst.origin(), dst.step(), VekiSize{3, 2}, order);
        });
        expectRejectedOnEveryLevel(dst, StatusSize, "size before order", [&](int l) {
            return vek::vekTable_vekiSwapChannels_8u_C3IR[l](dst.origin(), dst.step(), VekiSize{0, 2}, order);
        });
    }
    expectRejectedOnEveryLevel(dst, StatusNullPointer, "null order", [&](int l) {
        return vek::vekTable_vekiSwapChannels_8u_C3R[l](src.origin(), src.step(), dst.origin(), dst.step(),
                                                        VekiSize{3, 2}, nullptr);
    });
    expectRejectedOnEveryLevel(dst, StatusNullPointer, "null image", [&](int l) {
        return vek::vekTable_vekiSwapChannels_8u_C3IR[l](nullptr, dst.step(), VekiSize{0, 2}, good);
    });
}

TEST(ImageCopy, BorderRejectsNegativeBordersAndSmallDestinations) {
    GuardedImage<Vek32s> src(4, 3), dst(10, 8);
    const struct {
        VekiSize srcRoi, dstRoi;
        int top, left;
    } bad[] = {
        {{4, 3}, {10, 8}, -1, 0}, {{4, 3}, {10, 8}, 0, -1}, {{4, 3}, {10, 8}, 6, 0}, {{4, 3}, {10, 8}, 0, 7},
        {{4, 3}, {3, 8}, 0, 0},   {{0, 3}, {10, 8}, 0, 0},  {{4, 3}, {10, 0}, 0, 0}, {{4, 3}, {10, 8}, 1, 2147483647},
    };
    for (const auto& b : bad)
        expectRejectedOnEveryLevel(
            dst, StatusSize, "border " + std::to_string(b.top) + "," + std::to_string(b.left), [&](int l) {
                return vek::vekTable_vekiCopyReplicateBorder_32s_C1R[l](
                    src.origin(), src.step(), b.srcRoi, dst.origin(), dst.step(), b.dstRoi, b.top, b.left);
            });
    expectRejectedOnEveryLevel(dst, StatusNullPointer, "pointer first", [&](int l) {
        return vek::vekTable_vekiCopyReplicateBorder_32s_C1R[l](nullptr, src.step(), VekiSize{0, 0}, dst.origin(),
                                                                dst.step(), VekiSize{10, 8}, -1, 0);
    });
    for (int level : availableLevels())  // exactly fitting: no right or bottom border
        EXPECT_EQ(vek::vekTable_vekiCopyReplicateBorder_32s_C1R[level](src.origin(), src.step(), VekiSize{4, 3},
                                                                       dst.origin(), dst.step(), VekiSize{10, 8}, 5, 6),
                  StatusOk);
}

}  // namespace
}  // namespace vektest
