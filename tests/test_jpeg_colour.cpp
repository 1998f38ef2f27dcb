// The JPEG colour family: every level against level 0 on random regions and
// layouts (guarded images, rows ending at a no-access page), the fixed pair
// exhaustively against its formulas on every level, every other member
// against the fixed pair or a reference of its rule, and the rules at entry.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "image_harness.h"

#ifdef VEK_HAVE_LIBJPEG
#    include <stdio.h>
#    include <stdlib.h>

#    include <jpeglib.h>
#endif

namespace vektest {
namespace {

using vek::DispatchLevel;

// ---- layouts and regions ------------------------------------------------------------

// The family rejects steps below 1, so its images run top-down with a
// positive step.
template <class T>
ImageLayout outputLayout() {
    ImageLayout l = randomLayout<T>();
    l.bottomUp = false;
    return l;
}
template <class T>
ImageLayout inputLayout() {
    ImageLayout l = outputLayout<T>();
    l.guardAfter = false;
    return l;
}

// Widths around the blocks of 8, 16 and 32 pixels (and their doubles for
// the samplers), then random ones; heights 1 to 5.
template <class Body>
void forRegions(Body body) {
    static const int widths[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 18, 31, 32, 33, 34, 63, 64, 65, 66, 67, 97, 130};
    for (int round = 0; round < rounds(3); ++round) {
        for (int w : widths) body(VekiSize{w, 1 + int(rng()() % 5)});
        body(VekiSize{1 + int(rng()() % 300), 1 + int(rng()() % 6)});
    }
}

std::string describe(VekiSize roi, const ImageLayout& in, const ImageLayout& out) {
    return std::to_string(roi.width) + "x" + std::to_string(roi.height) + " in: " + in.describe() +
           "; out: " + out.describe();
}

// Planes stacked as rows of one image (plane c is rows c, c + n, ...), so
// one guarded image holds every output plane and the planes share a step.
struct StackedPlanes {
    GuardedImage<Vek8u> image;
    std::vector<Vek8u*> planes;
    StackedPlanes(int width, int height, int n, ImageLayout layout) : image(width, n * height, layout), planes(n) {
        for (int c = 0; c < n; ++c) planes[c] = image.row(c);
    }
    int step() const { return int(planes.size()) * image.step(); }
    Vek8u at(int c, int x, int y) { return image.at(x, int(planes.size()) * y + c); }
};

// N source planes of one layout.
struct SourcePlanes {
    std::vector<GuardedImage<Vek8u>> images;
    std::vector<const Vek8u*> planes;
    SourcePlanes(VekiSize roi, int n, ImageLayout layout) {
        for (int c = 0; c < n; ++c) images.emplace_back(roi.width, roi.height, layout);
        for (auto& i : images) planes.push_back(i.origin());
    }
    int step() const { return images[0].step(); }
    Vek8u at(int c, int x, int y) { return images[c].at(x, y); }
};

// ---- the differential cases -------------------------------------------------------------

// Every call of a differential case must succeed (a rejected call would
// compare equal on every level and prove nothing).
int expectOk(int status) {
    EXPECT_EQ(status, StatusOk);
    return status;
}

// Interleaved (samplesPerPixel of S a pixel) or packed source to N planes.
template <class S, int N, class Fn>
void diffToPlanes(const Fn* table, int samplesPerPixel) {
    forRegions([&](VekiSize roi) {
        GuardedImage<S> src(roi.width * samplesPerPixel, roi.height, inputLayout<S>());
        StackedPlanes dst(roi.width, roi.height, N, outputLayout<Vek8u>());
        compareImageLevels(
            dst.image,
            [&](int level) {
                return expectOk(table[level](src.origin(), src.step(), dst.planes.data(), dst.step(), roi));
            },
            describe(roi, src.layout(), dst.image.layout()));
    });
}
template <class D, int N, class Fn>
void diffFromPlanes(const Fn* table, int samplesPerPixel) {
    forRegions([&](VekiSize roi) {
        SourcePlanes src(roi, N, inputLayout<Vek8u>());
        GuardedImage<D> dst(roi.width * samplesPerPixel, roi.height, outputLayout<D>());
        compareImageLevels(
            dst,
            [&](int level) {
                return expectOk(table[level](src.planes.data(), src.step(), dst.origin(), dst.step(), roi));
            },
            describe(roi, src.images[0].layout(), dst.layout()));
    });
}
template <class Fn>
void diffPlanesToPlanes(const Fn* table) {
    forRegions([&](VekiSize roi) {
        SourcePlanes src(roi, 3, inputLayout<Vek8u>());
        StackedPlanes dst(roi.width, roi.height, 3, outputLayout<Vek8u>());
        compareImageLevels(
            dst.image,
            [&](int level) {
                return expectOk(table[level](src.planes.data(), src.step(), dst.planes.data(), dst.step(), roi));
            },
            describe(roi, src.images[0].layout(), dst.image.layout()));
    });
}
// Interleaved to interleaved; a YUYV row holds whole pixel pairs.
template <class Fn>
void diffInterleaved(const Fn* table, int srcChannels, int dstChannels) {
    forRegions([&](VekiSize roi) {
        const int srcSamples = srcChannels == 2 ? 4 * ((roi.width + 1) / 2) : srcChannels * roi.width;
        GuardedImage<Vek8u> src(srcSamples, roi.height, inputLayout<Vek8u>());
        GuardedImage<Vek8u> dst(dstChannels * roi.width, roi.height, outputLayout<Vek8u>());
        compareImageLevels(
            dst,
            [&](int level) { return expectOk(table[level](src.origin(), src.step(), dst.origin(), dst.step(), roi)); },
            describe(roi, src.layout(), dst.layout()));
    });
}

using namespace vek;
VEK_DIFF_CASE(vekiRGBToYCbCr_JPEG_8u_C3P3R, [] { diffToPlanes<Vek8u, 3>(vekTable_vekiRGBToYCbCr_JPEG_8u_C3P3R, 3); });
VEK_DIFF_CASE(vekiBGRToYCbCr_JPEG_8u_C3P3R, [] { diffToPlanes<Vek8u, 3>(vekTable_vekiBGRToYCbCr_JPEG_8u_C3P3R, 3); });
VEK_DIFF_CASE(vekiYCbCrToRGB_JPEG_8u_P3C3R, [] { diffFromPlanes<Vek8u, 3>(vekTable_vekiYCbCrToRGB_JPEG_8u_P3C3R, 3); });
VEK_DIFF_CASE(vekiYCbCrToBGR_JPEG_8u_P3C3R, [] { diffFromPlanes<Vek8u, 3>(vekTable_vekiYCbCrToBGR_JPEG_8u_P3C3R, 3); });
VEK_DIFF_CASE(vekiRGBToY_JPEG_8u_C3C1R, [] { diffInterleaved(vekTable_vekiRGBToY_JPEG_8u_C3C1R, 3, 1); });
VEK_DIFF_CASE(vekiBGRToY_JPEG_8u_C3C1R, [] { diffInterleaved(vekTable_vekiBGRToY_JPEG_8u_C3C1R, 3, 1); });
VEK_DIFF_CASE(vekiYCbCr422ToRGB_JPEG_8u_C2C3R, [] { diffInterleaved(vekTable_vekiYCbCr422ToRGB_JPEG_8u_C2C3R, 2, 3); });
VEK_DIFF_CASE(vekiRGBToYCbCr_JPEG_8u_P3R, [] { diffPlanesToPlanes(vekTable_vekiRGBToYCbCr_JPEG_8u_P3R); });
VEK_DIFF_CASE(vekiYCbCrToRGB_JPEG_8u_P3R, [] { diffPlanesToPlanes(vekTable_vekiYCbCrToRGB_JPEG_8u_P3R); });
VEK_DIFF_CASE(vekiRGBToY_JPEG_8u_P3C1R, [] { diffFromPlanes<Vek8u, 3>(vekTable_vekiRGBToY_JPEG_8u_P3C1R, 1); });
VEK_DIFF_CASE(vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R,
              [] { diffToPlanes<Vek16u, 3>(vekTable_vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R, 1); });
VEK_DIFF_CASE(vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R,
              [] { diffToPlanes<Vek16u, 3>(vekTable_vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R, 1); });
VEK_DIFF_CASE(vekiYCbCrToBGR555_JPEG_8u16u_P3C3R,
              [] { diffFromPlanes<Vek16u, 3>(vekTable_vekiYCbCrToBGR555_JPEG_8u16u_P3C3R, 1); });
VEK_DIFF_CASE(vekiYCbCrToBGR565_JPEG_8u16u_P3C3R,
              [] { diffFromPlanes<Vek16u, 3>(vekTable_vekiYCbCrToBGR565_JPEG_8u16u_P3C3R, 1); });
VEK_DIFF_CASE(vekiCMYKToYCCK_JPEG_8u_C4P4R, [] { diffToPlanes<Vek8u, 4>(vekTable_vekiCMYKToYCCK_JPEG_8u_C4P4R, 4); });
VEK_DIFF_CASE(vekiYCCKToCMYK_JPEG_8u_P4C4R, [] { diffFromPlanes<Vek8u, 4>(vekTable_vekiYCCKToCMYK_JPEG_8u_P4C4R, 4); });

// The samplers: full is the full-resolution region; halveRows for H2V2.
template <class Fn>
void diffSampling(const Fn* table, bool down, bool halveRows) {
    forRegions([&](VekiSize full) {
        full.width *= 1 + int(rng()() % 2);  // reach the wider blocks of the full-resolution rows too
        const VekiSize half{(full.width + 1) / 2, halveRows ? (full.height + 1) / 2 : full.height};
        const VekiSize in = down ? full : half, out = down ? half : full;
        GuardedImage<Vek8u> src(in.width, in.height, inputLayout<Vek8u>());
        GuardedImage<Vek8u> dst(out.width, out.height, outputLayout<Vek8u>());
        compareImageLevels(
            dst,
            [&](int level) {
                return expectOk(table[level](src.origin(), src.step(), in, dst.origin(), dst.step(), out));
            },
            describe(full, src.layout(), dst.layout()));
    });
}
VEK_DIFF_CASE(vekiSampleDownH2V1_JPEG_8u_C1R,
              [] { diffSampling(vekTable_vekiSampleDownH2V1_JPEG_8u_C1R, true, false); });
VEK_DIFF_CASE(vekiSampleDownH2V2_JPEG_8u_C1R,
              [] { diffSampling(vekTable_vekiSampleDownH2V2_JPEG_8u_C1R, true, true); });
VEK_DIFF_CASE(vekiSampleUpH2V1_JPEG_8u_C1R, [] { diffSampling(vekTable_vekiSampleUpH2V1_JPEG_8u_C1R, false, false); });
VEK_DIFF_CASE(vekiSampleUpH2V2_JPEG_8u_C1R, [] { diffSampling(vekTable_vekiSampleUpH2V2_JPEG_8u_C1R, false, true); });
VEK_DIFF_CASE(vekiSampleUpH2V1Smooth_JPEG_8u_C1R,
              [] { diffSampling(vekTable_vekiSampleUpH2V1Smooth_JPEG_8u_C1R, false, false); });
VEK_DIFF_CASE(vekiSampleUpH2V2Smooth_JPEG_8u_C1R,
              [] { diffSampling(vekTable_vekiSampleUpH2V2Smooth_JPEG_8u_C1R, false, true); });
VEK_DIFF_CASE(vekiSampleUpRowH2V2Smooth_JPEG_8u_C1, [] {
    forRegions([&](VekiSize roi) {
        const int outWidth = roi.width * (1 + int(rng()() % 2)), inWidth = (outWidth + 1) / 2;
        const InputArray<Vek8u> near = guardedCopy(randomVector<Vek8u>(inWidth));
        const InputArray<Vek8u> far = guardedCopy(randomVector<Vek8u>(inWidth));
        GuardedImage<Vek8u> dst(outWidth, 1, outputLayout<Vek8u>());
        compareImageLevels(
            dst,
            [&](int level) {
                return expectOk(vekTable_vekiSampleUpRowH2V2Smooth_JPEG_8u_C1[level](near.data(), far.data(), inWidth,
                                                                                     dst.origin(), outWidth));
            },
            "width " + std::to_string(outWidth));
    });
});

// One MCU of H x Vs luma blocks.
template <class Fn>
void diffMcuForward(const Fn* table, int h, int v, int channels = 3) {
    for (int round = 0; round < rounds(40); ++round) {
        GuardedImage<Vek8u> src(channels * 8 * h, 8 * v, inputLayout<Vek8u>());
        GuardedImage<Vek16s> blocks(64 * h * v, 3, outputLayout<Vek16s>());
        Vek16s* dst[3] = {blocks.row(0), blocks.row(1), blocks.row(2)};
        compareImageLevels(
            blocks, [&](int level) { return expectOk(table[level](src.origin(), src.step(), dst)); },
            src.layout().describe());
    }
}
template <class Fn>
void diffMcuInverse(const Fn* table, int h, int v, int channels = 3) {
    for (int round = 0; round < rounds(40); ++round) {
        const InputArray<Vek16s> luma = guardedCopy(randomVector<Vek16s>(64 * h * v));
        const InputArray<Vek16s> cb = guardedCopy(randomVector<Vek16s>(64)), cr = guardedCopy(randomVector<Vek16s>(64));
        const Vek16s* src[3] = {luma.data(), cb.data(), cr.data()};
        GuardedImage<Vek8u> dst(channels * 8 * h, 8 * v, outputLayout<Vek8u>());
        compareImageLevels(
            dst, [&](int level) { return expectOk(table[level](src, dst.origin(), dst.step())); },
            dst.layout().describe());
    }
}
VEK_DIFF_CASE(vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R,
              [] { diffMcuForward(vekTable_vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R, 1, 1); });
VEK_DIFF_CASE(vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R,
              [] { diffMcuForward(vekTable_vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R, 2, 1); });
VEK_DIFF_CASE(vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R,
              [] { diffMcuForward(vekTable_vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R, 2, 2); });
VEK_DIFF_CASE(vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R,
              [] { diffMcuInverse(vekTable_vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R, 1, 1); });
VEK_DIFF_CASE(vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R,
              [] { diffMcuInverse(vekTable_vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R, 2, 1); });
VEK_DIFF_CASE(vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R,
              [] { diffMcuInverse(vekTable_vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R, 2, 2); });
VEK_DIFF_CASE(vekiSplit422LS_MCU_8u16s_C2P3R, [] { diffMcuForward(vekTable_vekiSplit422LS_MCU_8u16s_C2P3R, 2, 1, 2); });
VEK_DIFF_CASE(vekiJoin422LS_MCU_16s8u_P3C2R, [] { diffMcuInverse(vekTable_vekiJoin422LS_MCU_16s8u_P3C2R, 2, 1, 2); });

// ---- the fixed pair, exhaustively ---------------------------------------------------------

// Every (R, G, B) triple, and every (Y, Cb, Cr) triple, as one 4096 x 4096
// image: pixel i is triple i times an odd number, modulo 2^24 (a bijection,
// so every triple once).  Under emulation or in the light profile the first
// 16 rows: 65536 triples spread over the whole cube.
constexpr int kSide = 4096;
#ifdef VEK_TESTS_NATIVE
constexpr bool kNative = true;
#else
constexpr bool kNative = false;
#endif
int exhaustiveRows() { return kNative && !lightProfile() ? kSide : 16; }
int tripleOf(int x, int row) { return int((uint32_t(row * kSide + x) * 2654435761u) & 0xFFFFFFu); }

int forwardFormula(int channel, int r, int g, int b) {
    const int64_t sums[3] = {19595 * r + 38470 * g + 7471 * b + 32768, -11059 * r - 21709 * g + 32768 * b + 8421375,
                             32768 * r + 8421375 - 27439 * g - 5329 * b};
    return int(sums[channel] >> 16);
}
// 1.402 (Cr - 128) and 1.772 (Cb - 128) rounded half away from zero (std::round
// does that, and n / 1000.0 is a half exactly when it should be).
int clampTo8(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }
int inverseFormula(int channel, int y, int cb, int cr) {
    switch (channel) {
    case 0: return clampTo8(y + int(std::round(1402.0 * (cr - 128) / 1000.0)));
    case 1: return clampTo8(y + int(std::floor((-22554.0 * (cb - 128) + 32768 - 46802.0 * (cr - 128)) / 65536.0)));
    default: return clampTo8(y + int(std::round(1772.0 * (cb - 128) / 1000.0)));
    }
}

TEST(JpegColour, FixedPairMatchesItsFormulasOnEveryTripleAndLevel) {
    const int rows = exhaustiveRows();
    const VekiSize roi{kSide, rows};
    std::vector<Vek8u> pixels(size_t(3) * kSide * rows), planes(pixels.size());
    for (int row = 0; row < rows; ++row)
        for (int x = 0; x < kSide; ++x)
            for (int c = 0; c < 3; ++c)
                pixels[(size_t(row) * kSide + x) * 3 + c] = Vek8u(tripleOf(x, row) >> (16 - 8 * c));
    const size_t plane = size_t(kSide) * rows;
    Vek8u* out[3] = {planes.data(), planes.data() + plane, planes.data() + 2 * plane};
    const Vek8u* in[3] = {out[0], out[1], out[2]};
    std::vector<Vek8u> back(pixels.size());
    onEveryLevel([&](int level) {
        ASSERT_EQ(vekTable_vekiRGBToYCbCr_JPEG_8u_C3P3R[level](pixels.data(), 3 * kSide, out, kSide, roi), StatusOk);
        for (size_t i = 0; i < plane; ++i) {
            const Vek8u* p = &pixels[3 * i];
            for (int c = 0; c < 3; ++c)
                if (out[c][i] != forwardFormula(c, p[0], p[1], p[2]))
                    FAIL() << "RGB " << +p[0] << "," << +p[1] << "," << +p[2] << " channel " << c << ": " << +out[c][i];
        }
        // The same image read as Y, Cb, Cr triples.
        ASSERT_EQ(vekTable_vekiYCbCrToRGB_JPEG_8u_P3C3R[level](in, kSide, back.data(), 3 * kSide, roi), StatusOk);
        for (size_t i = 0; i < plane; ++i)
            for (int c = 0; c < 3; ++c)
                if (back[3 * i + c] != inverseFormula(c, in[0][i], in[1][i], in[2][i]))
                    FAIL() << "YCbCr " << +in[0][i] << "," << +in[1][i] << "," << +in[2][i] << " channel " << c << ": "
                           << +back[3 * i + c];
    });
}

TEST(JpegColour, FixedPairWorkedExamples) {
    const Vek8u rgb[12] = {255, 255, 255, 0, 0, 0, 0, 0, 255, 255, 0, 0};
    Vek8u y[4], cb[4], cr[4], *planes[3] = {y, cb, cr};
    ASSERT_EQ(vekiRGBToYCbCr_JPEG_8u_C3P3R(rgb, 12, planes, 4, {4, 1}), StatusOk);
    EXPECT_EQ(std::vector<int>({y[0], cb[0], cr[0], y[1], cb[1], cr[1], cb[2]}),
              std::vector<int>({255, 128, 128, 0, 128, 128, 255}));
    const Vek8u zero[1] = {0};
    const Vek8u* black[3] = {zero, zero, zero};
    Vek8u out[3];
    ASSERT_EQ(vekiYCbCrToRGB_JPEG_8u_P3C3R(black, 1, out, 3, {1, 1}), StatusOk);
    EXPECT_EQ(std::vector<int>({out[0], out[1], out[2]}), std::vector<int>({0, 135, 0}));
}

// ---- every other member against the fixed pair -----------------------------------------

constexpr int kW = 53, kH = 3;  // odd, past two blocks of every level
const VekiSize kRoi{kW, kH};

// The fixed pair on flat arrays (level 0).
std::vector<Vek8u> fixedForward(const std::vector<Vek8u>& rgb) {
    std::vector<Vek8u> planes(rgb.size());
    const size_t n = rgb.size() / 3;
    Vek8u* out[3] = {planes.data(), planes.data() + n, planes.data() + 2 * n};
    EXPECT_EQ(vekTable_vekiRGBToYCbCr_JPEG_8u_C3P3R[0](rgb.data(), 3 * kW, out, kW, kRoi), StatusOk);
    return planes;
}
std::vector<Vek8u> fixedInverse(const std::vector<Vek8u>& planes) {
    std::vector<Vek8u> rgb(planes.size());
    const size_t n = planes.size() / 3;
    const Vek8u* in[3] = {planes.data(), planes.data() + n, planes.data() + 2 * n};
    EXPECT_EQ(vekTable_vekiYCbCrToRGB_JPEG_8u_P3C3R[0](in, kW, rgb.data(), 3 * kW, kRoi), StatusOk);
    return rgb;
}
// Interleaved to planar and back, and a channel swap.
std::vector<Vek8u> toPlanes(const std::vector<Vek8u>& v, int channels) {
    std::vector<Vek8u> p(v.size());
    const size_t n = v.size() / channels;
    for (size_t i = 0; i < n; ++i)
        for (int c = 0; c < channels; ++c) p[c * n + i] = v[channels * i + c];
    return p;
}
std::vector<Vek8u> swapRB(std::vector<Vek8u> v) {
    for (size_t i = 0; i < v.size(); i += 3) std::swap(v[i], v[i + 2]);
    return v;
}

TEST(JpegColour, OrderAndLayoutMembersAgreeWithTheFixedPair) {
    const std::vector<Vek8u> rgb = randomVector<Vek8u>(3 * kW * kH);
    const std::vector<Vek8u> ycc = fixedForward(rgb), rgbPlanes = toPlanes(rgb, 3);
    const size_t n = size_t(kW) * kH;
    std::vector<Vek8u> planes(3 * n), y(n), interleaved(3 * n);
    Vek8u* out[3] = {planes.data(), planes.data() + n, planes.data() + 2 * n};
    const Vek8u* in[3] = {rgbPlanes.data(), rgbPlanes.data() + n, rgbPlanes.data() + 2 * n};
    const std::vector<Vek8u> bgr = swapRB(rgb), lumaOnly(ycc.begin(), ycc.begin() + n);

    ASSERT_EQ(vekTable_vekiBGRToYCbCr_JPEG_8u_C3P3R[0](bgr.data(), 3 * kW, out, kW, kRoi), StatusOk);
    EXPECT_EQ(planes, ycc);
    ASSERT_EQ(vekTable_vekiRGBToYCbCr_JPEG_8u_P3R[0](in, kW, out, kW, kRoi), StatusOk);
    EXPECT_EQ(planes, ycc);
    ASSERT_EQ(vekTable_vekiRGBToY_JPEG_8u_P3C1R[0](in, kW, y.data(), kW, kRoi), StatusOk);
    EXPECT_EQ(y, lumaOnly);
    ASSERT_EQ(vekTable_vekiRGBToY_JPEG_8u_C3C1R[0](rgb.data(), 3 * kW, y.data(), kW, kRoi), StatusOk);
    EXPECT_EQ(y, lumaOnly);
    ASSERT_EQ(vekTable_vekiBGRToY_JPEG_8u_C3C1R[0](bgr.data(), 3 * kW, y.data(), kW, kRoi), StatusOk);
    EXPECT_EQ(y, lumaOnly);

    // The inverse members, on the random pixels read as Y, Cb, Cr planes.
    const std::vector<Vek8u> back = fixedInverse(rgbPlanes);
    ASSERT_EQ(vekTable_vekiYCbCrToBGR_JPEG_8u_P3C3R[0](in, kW, interleaved.data(), 3 * kW, kRoi), StatusOk);
    EXPECT_EQ(interleaved, swapRB(back));
    ASSERT_EQ(vekTable_vekiYCbCrToRGB_JPEG_8u_P3R[0](in, kW, out, kW, kRoi), StatusOk);
    EXPECT_EQ(planes, toPlanes(back, 3));
}

// Packed pixels: fields widened by repeating their top bits, then the fixed
// pair; back: the fixed inverse, then the top bits of each channel.
template <int GreenBits>
void checkPacked(const vek::fn::vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R* forward,
                 const vek::fn::vekiYCbCrToBGR555_JPEG_8u16u_P3C3R* inverse) {
    const size_t n = size_t(kW) * kH;
    const std::vector<Vek16u> words = randomVector<Vek16u>(int(n));
    std::vector<Vek8u> rgb(3 * n);
    auto widen = [](int v, int bits) { return (v << (8 - bits)) | (v >> (2 * bits - 8)); };
    for (size_t i = 0; i < n; ++i) {
        rgb[3 * i] = Vek8u(widen((words[i] >> (5 + GreenBits)) & 31, 5));
        rgb[3 * i + 1] = Vek8u(widen((words[i] >> 5) & ((1 << GreenBits) - 1), GreenBits));
        rgb[3 * i + 2] = Vek8u(widen(words[i] & 31, 5));
    }
    std::vector<Vek8u> planes(3 * n);
    Vek8u* out[3] = {planes.data(), planes.data() + n, planes.data() + 2 * n};
    ASSERT_EQ(forward[0](words.data(), 2 * kW, out, kW, kRoi), StatusOk);
    EXPECT_EQ(planes, fixedForward(rgb));

    const std::vector<Vek8u> ycc = randomVector<Vek8u>(int(3 * n)), back = fixedInverse(ycc);
    const Vek8u* in[3] = {ycc.data(), ycc.data() + n, ycc.data() + 2 * n};
    std::vector<Vek16u> packed(n);
    ASSERT_EQ(inverse[0](in, kW, packed.data(), 2 * kW, kRoi), StatusOk);
    for (size_t i = 0; i < n; ++i)
        ASSERT_EQ(packed[i], ((back[3 * i] >> 3) << (5 + GreenBits)) | ((back[3 * i + 1] >> (8 - GreenBits)) << 5) |
                                 (back[3 * i + 2] >> 3))
            << i;
}
TEST(JpegColour, PackedPixelsWidenThenConvertAndNarrowAfter) {
    checkPacked<5>(vekTable_vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R, vekTable_vekiYCbCrToBGR555_JPEG_8u16u_P3C3R);
    checkPacked<6>(vekTable_vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R, vekTable_vekiYCbCrToBGR565_JPEG_8u16u_P3C3R);
}

// CMYK: C, M, Y inverted through the fixed pair, K passed through.
TEST(JpegColour, CmykInvertsThroughTheFixedPairAndPassesK) {
    const size_t n = size_t(kW) * kH;
    const std::vector<Vek8u> cmyk = randomVector<Vek8u>(int(4 * n));
    std::vector<Vek8u> rgb(3 * n), k(n);
    for (size_t i = 0; i < n; ++i) {
        for (int c = 0; c < 3; ++c) rgb[3 * i + c] = Vek8u(255 - cmyk[4 * i + c]);
        k[i] = cmyk[4 * i + 3];
    }
    std::vector<Vek8u> planes(4 * n);
    Vek8u* out[4] = {planes.data(), planes.data() + n, planes.data() + 2 * n, planes.data() + 3 * n};
    ASSERT_EQ(vekTable_vekiCMYKToYCCK_JPEG_8u_C4P4R[0](cmyk.data(), 4 * kW, out, kW, kRoi), StatusOk);
    std::vector<Vek8u> want = fixedForward(rgb);
    want.insert(want.end(), k.begin(), k.end());
    EXPECT_EQ(planes, want);

    // Back: the YCCK planes just made give the CMYK image again, up to the
    // conversion's rounding (and K exactly).
    const Vek8u* in[4] = {out[0], out[1], out[2], out[3]};
    std::vector<Vek8u> again(4 * n);
    ASSERT_EQ(vekTable_vekiYCCKToCMYK_JPEG_8u_P4C4R[0](in, kW, again.data(), 4 * kW, kRoi), StatusOk);
    const std::vector<Vek8u> rgbBack = fixedInverse(std::vector<Vek8u>(planes.begin(), planes.begin() + 3 * n));
    for (size_t i = 0; i < n; ++i) {
        for (int c = 0; c < 3; ++c) ASSERT_EQ(again[4 * i + c], 255 - rgbBack[3 * i + c]) << i;
        ASSERT_EQ(again[4 * i + 3], k[i]) << i;
    }
}

// YUYV: both pixels of a pair take its chroma; an odd width reads the whole
// last pair.
TEST(JpegColour, YuyvPairsShareTheirChroma) {
    const int pairs = (kW + 1) / 2;
    const std::vector<Vek8u> yuyv = randomVector<Vek8u>(4 * pairs * kH);
    std::vector<Vek8u> planes(3 * size_t(kW) * kH);
    const size_t n = size_t(kW) * kH;
    for (int row = 0; row < kH; ++row)
        for (int x = 0; x < kW; ++x) {
            const Vek8u* pair = &yuyv[size_t(row) * 4 * pairs + 4 * (x / 2)];
            const size_t i = size_t(row) * kW + x;
            planes[i] = pair[2 * (x % 2)], planes[n + i] = pair[1], planes[2 * n + i] = pair[3];
        }
    std::vector<Vek8u> rgb(3 * n);
    ASSERT_EQ(vekTable_vekiYCbCr422ToRGB_JPEG_8u_C2C3R[0](yuyv.data(), 4 * pairs, rgb.data(), 3 * kW, kRoi), StatusOk);
    EXPECT_EQ(rgb, fixedInverse(planes));
}

// ---- chroma sampling ------------------------------------------------------------------------

// The sampling rules on one plane of w x h, edges replicated.
struct Plane {
    int w, h;
    std::vector<Vek8u> v;
    int at(int x, int y) const {
        return v[size_t(std::min(std::max(y, 0), h - 1)) * w + std::min(std::max(x, 0), w - 1)];
    }
};
Plane downReference(const Plane& in, bool halveRows) {
    Plane out{(in.w + 1) / 2, halveRows ? (in.h + 1) / 2 : in.h, {}};
    for (int y = 0; y < out.h; ++y)
        for (int x = 0; x < out.w; ++x) {
            const int sum = halveRows ? in.at(2 * x, 2 * y) + in.at(2 * x + 1, 2 * y) + in.at(2 * x, 2 * y + 1) +
                                            in.at(2 * x + 1, 2 * y + 1) + 1 + x % 2
                                      : in.at(2 * x, y) + in.at(2 * x + 1, y) + x % 2;
            out.v.push_back(Vek8u(sum >> (halveRows ? 2 : 1)));
        }
    return out;
}
// 3/4 of the nearer sample and 1/4 of the farther in each direction; the
// rounding bias alternates between the two outputs of a sample.  Rows of
// one or two samples are repeated.
Plane smoothReference(const Plane& in, int w, int h, bool halveRows) {
    Plane out{w, h, {}};
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            if (in.w <= 2) {
                out.v.push_back(Vek8u(in.at(x / 2, halveRows ? y / 2 : y)));
                continue;
            }
            const int i = x / 2, dx = x % 2 ? 1 : -1;
            if (!halveRows) {
                out.v.push_back(Vek8u((3 * in.at(i, y) + in.at(i + dx, y) + 1 + x % 2) / 4));
            } else {
                const int j = y / 2, dy = y % 2 ? 1 : -1;
                auto column = [&](int c) { return 3 * in.at(c, j) + in.at(c, j + dy); };
                out.v.push_back(Vek8u((3 * column(i) + column(i + dx) + 8 - x % 2) / 16));
            }
        }
    return out;
}

TEST(JpegColour, SamplingFollowsItsRulesAtEveryEdge) {
    for (const VekiSize full : {VekiSize{1, 1}, VekiSize{2, 3}, VekiSize{5, 4}, VekiSize{67, 9}, VekiSize{130, 2}}) {
        for (const bool halveRows : {false, true}) {
            SCOPED_TRACE(std::to_string(full.width) + "x" + std::to_string(full.height) +
                         (halveRows ? " H2V2" : " H2V1"));
            const VekiSize half{(full.width + 1) / 2, halveRows ? (full.height + 1) / 2 : full.height};
            const Plane big{full.width, full.height, randomVector<Vek8u>(full.width * full.height)};
            const Plane small{half.width, half.height, randomVector<Vek8u>(half.width * half.height)};
            std::vector<Vek8u> down(small.v.size()), up(big.v.size());
            const auto downFn =
                halveRows ? vekTable_vekiSampleDownH2V2_JPEG_8u_C1R : vekTable_vekiSampleDownH2V1_JPEG_8u_C1R;
            ASSERT_EQ(downFn[0](big.v.data(), full.width, full, down.data(), half.width, half), StatusOk);
            EXPECT_EQ(down, downReference(big, halveRows).v);
            const auto smoothFn =
                halveRows ? vekTable_vekiSampleUpH2V2Smooth_JPEG_8u_C1R : vekTable_vekiSampleUpH2V1Smooth_JPEG_8u_C1R;
            ASSERT_EQ(smoothFn[0](small.v.data(), half.width, half, up.data(), full.width, full), StatusOk);
            EXPECT_EQ(up, smoothReference(small, full.width, full.height, halveRows).v);
            const auto plainFn =
                halveRows ? vekTable_vekiSampleUpH2V2_JPEG_8u_C1R : vekTable_vekiSampleUpH2V1_JPEG_8u_C1R;
            ASSERT_EQ(plainFn[0](small.v.data(), half.width, half, up.data(), full.width, full), StatusOk);
            for (int y = 0; y < full.height; ++y)
                for (int x = 0; x < full.width; ++x)
                    ASSERT_EQ(up[size_t(y) * full.width + x], small.at(x / 2, halveRows ? y / 2 : y)) << x << "," << y;
            // The row form gives the region's rows.
            if (halveRows) {
                ASSERT_EQ(smoothFn[0](small.v.data(), half.width, half, up.data(), full.width, full), StatusOk);
                std::vector<Vek8u> row(full.width);
                for (int y = 0; y < full.height; ++y) {
                    const int j = y / 2, far = std::min(std::max(y % 2 ? j + 1 : j - 1, 0), half.height - 1);
                    ASSERT_EQ(vekTable_vekiSampleUpRowH2V2Smooth_JPEG_8u_C1[0](&small.v[size_t(j) * half.width],
                                                                               &small.v[size_t(far) * half.width],
                                                                               half.width, row.data(), full.width),
                              StatusOk);
                    ASSERT_TRUE(std::equal(row.begin(), row.end(), up.begin() + size_t(y) * full.width)) << y;
                }
            }
        }
    }
}

// ---- one MCU -----------------------------------------------------------------------------------

struct McuShape {
    int h, v;
    vek::fn::vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R forward;
    vek::fn::vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R inverse;
};
const McuShape kMcus[] = {
    {1, 1, vekTable_vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R[0], vekTable_vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R[0]},
    {2, 1, vekTable_vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R[0], vekTable_vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R[0]},
    {2, 2, vekTable_vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R[0], vekTable_vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R[0]}};

// Sample (x, y) of an MCU's luma blocks, in scan order.
int lumaIndex(const McuShape& m, int x, int y) { return 64 * ((y / 8) * m.h + x / 8) + 8 * (y % 8) + x % 8; }

// Forward: the planes of the fixed pair, chroma through the downsampler,
// less 128.  Inverse: plus 128, clamped, chroma repeated, the fixed inverse.
TEST(JpegColour, McuConversionsComposeTheFixedPairAndTheSamplers) {
    for (const McuShape& m : kMcus) {
        SCOPED_TRACE(std::to_string(m.h) + "x" + std::to_string(m.v));
        const int w = 8 * m.h, h = 8 * m.v, n = w * h;
        const std::vector<Vek8u> rgb = randomVector<Vek8u>(3 * n);
        std::vector<Vek8u> planes(3 * n);
        Vek8u* out[3] = {planes.data(), planes.data() + n, planes.data() + 2 * n};
        ASSERT_EQ(vekTable_vekiRGBToYCbCr_JPEG_8u_C3P3R[0](rgb.data(), 3 * w, out, w, {w, h}), StatusOk);
        std::vector<Vek16s> luma(n), cb(64), cr(64);
        Vek16s* blocks[3] = {luma.data(), cb.data(), cr.data()};
        ASSERT_EQ(m.forward(rgb.data(), 3 * w, blocks), StatusOk);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) ASSERT_EQ(luma[lumaIndex(m, x, y)], planes[y * w + x] - 128) << x << "," << y;
        for (int c = 1; c < 3; ++c) {
            Plane chroma{w, h, std::vector<Vek8u>(out[c], out[c] + n)};
            if (m.h == 2) chroma = downReference(chroma, m.v == 2);
            for (int i = 0; i < 64; ++i) ASSERT_EQ(blocks[c][i], chroma.v[i] - 128) << "plane " << c << " sample " << i;
        }

        // Inverse, from random blocks that clamp at both ends.
        for (auto* b : blocks) fillRandom(b, b == luma.data() ? n : 64);
        std::vector<Vek8u> back(3 * n), ycc(3 * n);
        auto unshift = [](int v) { return Vek8u(std::min(std::max(v + 128, 0), 255)); };
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const int i = y * w + x, chroma = 8 * (y / m.v) + x / m.h;
                ycc[i] = unshift(luma[lumaIndex(m, x, y)]), ycc[n + i] = unshift(cb[chroma]);
                ycc[2 * n + i] = unshift(cr[chroma]);
            }
        const Vek8u* in[3] = {ycc.data(), ycc.data() + n, ycc.data() + 2 * n};
        std::vector<Vek8u> want(3 * n);
        ASSERT_EQ(vekTable_vekiYCbCrToRGB_JPEG_8u_P3C3R[0](in, w, want.data(), 3 * w, {w, h}), StatusOk);
        const Vek16s* src[3] = {luma.data(), cb.data(), cr.data()};
        ASSERT_EQ(m.inverse(src, back.data(), 3 * w), StatusOk);
        EXPECT_EQ(back, want);
    }
}

// Forward then inverse gives the pixels back, up to the rounding of 8-bit
// Y, Cb, Cr (and of the chroma mean where the pixels of a group differ; here
// each group has one colour and only luma varies).
TEST(JpegColour, McuRoundTripIsCloseToTheSource) {
    for (const McuShape& m : kMcus) {
        const int w = 8 * m.h, h = 8 * m.v;
        std::vector<Vek8u> rgb(3 * w * h), back(rgb.size());
        const std::vector<Vek8u> colours = randomVector<Vek8u>(3 * 64);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int c = 0; c < 3; ++c) rgb[3 * (y * w + x) + c] = colours[3 * (8 * (y / m.v) + x / m.h) + c];
        std::vector<Vek16s> luma(64 * m.h * m.v), cb(64), cr(64);
        Vek16s* blocks[3] = {luma.data(), cb.data(), cr.data()};
        ASSERT_EQ(m.forward(rgb.data(), 3 * w, blocks), StatusOk);
        const Vek16s* src[3] = {luma.data(), cb.data(), cr.data()};
        ASSERT_EQ(m.inverse(src, back.data(), 3 * w), StatusOk);
        for (size_t i = 0; i < rgb.size(); ++i) ASSERT_LE(std::abs(back[i] - rgb[i]), 3) << i;
    }
    // YUYV: split and join give the pixels back exactly.
    const std::vector<Vek8u> yuyv = randomVector<Vek8u>(32 * 8);
    std::vector<Vek16s> luma(128), cb(64), cr(64);
    Vek16s* blocks[3] = {luma.data(), cb.data(), cr.data()};
    ASSERT_EQ(vekTable_vekiSplit422LS_MCU_8u16s_C2P3R[0](yuyv.data(), 32, blocks), StatusOk);
    EXPECT_EQ(luma[64 + 8 * 3 + 1], yuyv[32 * 3 + 2 * 9] - 128);  // pixel (9, 3): right block
    EXPECT_EQ(cr[8 * 5 + 2], yuyv[32 * 5 + 4 * 2 + 3] - 128);
    std::vector<Vek8u> back(yuyv.size());
    const Vek16s* src[3] = {luma.data(), cb.data(), cr.data()};
    ASSERT_EQ(vekTable_vekiJoin422LS_MCU_16s8u_P3C2R[0](src, back.data(), 32), StatusOk);
    EXPECT_EQ(back, yuyv);
}

// ---- libjpeg-turbo, the client of the decoder side ------------------------------------------
#ifdef VEK_HAVE_LIBJPEG

// A JPEG of the image with luma sampled hSamp x vSamp times the chroma.
std::vector<unsigned char> compressJpeg(const std::vector<Vek8u>& rgb, int w, int h, int hSamp, int vSamp) {
    jpeg_compress_struct c;
    jpeg_error_mgr err;
    c.err = jpeg_std_error(&err);
    jpeg_create_compress(&c);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&c, &buffer, &size);
    c.image_width = JDIMENSION(w), c.image_height = JDIMENSION(h), c.input_components = 3, c.in_color_space = JCS_RGB;
    jpeg_set_defaults(&c);
    jpeg_set_quality(&c, 90, TRUE);
    c.comp_info[0].h_samp_factor = hSamp, c.comp_info[0].v_samp_factor = vSamp;
    jpeg_start_compress(&c, TRUE);
    while (c.next_scanline < c.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(&rgb[size_t(c.next_scanline) * 3 * w]);
        jpeg_write_scanlines(&c, &row, 1);
    }
    jpeg_finish_compress(&c);
    jpeg_destroy_compress(&c);
    std::vector<unsigned char> jpeg(buffer, buffer + size);
    free(buffer);
    return jpeg;
}

struct Decoded {
    std::vector<Vek8u> rgb;                  // libjpeg-turbo's pixels, smooth upsampling
    std::vector<std::vector<Vek8u>> planes;  // its Y, Cb, Cr before upsampling
    std::vector<VekiSize> sizes;             // of each plane
    std::vector<int> steps;
};
Decoded decompressJpeg(const std::vector<unsigned char>& jpeg) {
    Decoded out;
    jpeg_decompress_struct d;
    jpeg_error_mgr err;
    d.err = jpeg_std_error(&err);
    for (const bool raw : {false, true}) {
        jpeg_create_decompress(&d);
        jpeg_mem_src(&d, jpeg.data(), static_cast<unsigned long>(jpeg.size()));
        jpeg_read_header(&d, TRUE);
        d.raw_data_out = raw ? TRUE : FALSE;
        d.out_color_space = raw ? JCS_YCbCr : JCS_RGB;
        d.do_fancy_upsampling = TRUE;
        jpeg_start_decompress(&d);
        if (!raw) {
            out.rgb.resize(size_t(3) * d.output_width * d.output_height);
            while (d.output_scanline < d.output_height) {
                JSAMPROW row = &out.rgb[size_t(d.output_scanline) * 3 * d.output_width];
                jpeg_read_scanlines(&d, &row, 1);
            }
        } else {
            const int rowsPerCall = d.max_v_samp_factor * DCTSIZE;
            for (int c = 0; c < 3; ++c) {
                const jpeg_component_info& info = d.comp_info[c];
                out.steps.push_back(int(info.width_in_blocks) * DCTSIZE);
                out.sizes.push_back({int(info.downsampled_width), int(info.downsampled_height)});
                const int rows = int((info.downsampled_height + info.v_samp_factor * DCTSIZE - 1) /
                                     (info.v_samp_factor * DCTSIZE) * info.v_samp_factor * DCTSIZE);
                out.planes.emplace_back(size_t(out.steps[c]) * (rows + rowsPerCall));
            }
            while (d.output_scanline < d.output_height) {
                std::vector<JSAMPROW> rows[3];
                for (int c = 0; c < 3; ++c) {
                    const int v = d.comp_info[c].v_samp_factor * DCTSIZE;
                    const int first = int(d.output_scanline) / d.max_v_samp_factor * d.comp_info[c].v_samp_factor;
                    for (int r = 0; r < v; ++r) rows[c].push_back(&out.planes[c][size_t(first + r) * out.steps[c]]);
                }
                JSAMPARRAY image[3] = {rows[0].data(), rows[1].data(), rows[2].data()};
                jpeg_read_raw_data(&d, image, JDIMENSION(rowsPerCall));
            }
        }
        jpeg_finish_decompress(&d);
        jpeg_destroy_decompress(&d);
    }
    return out;
}

// libjpeg-turbo's planes, upsampled by the smooth filter and converted by
// the fixed inverse, give libjpeg-turbo's own pixels exactly: its "fancy"
// upsampling and its tables are the family's.
TEST(JpegColour, SmoothUpsamplingAndInverseReproduceLibjpegTurbo) {
    const VekiSize sizes[] = {{37, 29}, {64, 48}, {3, 5}, {5, 3}, {6, 6}, {17, 1}, {1, 17}, {130, 35}};
    for (const VekiSize size : sizes)
        for (const int vSamp : {1, 2}) {
            SCOPED_TRACE(std::to_string(size.width) + "x" + std::to_string(size.height) + " v" + std::to_string(vSamp));
            // A smooth image with noise: chroma that varies, but not only noise.
            std::vector<Vek8u> rgb(size_t(3) * size.width * size.height);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x)
                    for (int c = 0; c < 3; ++c)
                        rgb[3 * (size_t(y) * size.width + x) + c] =
                            Vek8u((x * (3 + c) + y * (7 - 2 * c)) * 4 + rng()() % 24);
            const Decoded d = decompressJpeg(compressJpeg(rgb, size.width, size.height, 2, vSamp));
            const int n = size.width * size.height;
            std::vector<Vek8u> full(size_t(3) * n);
            for (int y = 0; y < size.height; ++y)
                std::copy_n(&d.planes[0][size_t(y) * d.steps[0]], size.width, &full[size_t(y) * size.width]);
            const auto up = vSamp == 2 ? vekTable_vekiSampleUpH2V2Smooth_JPEG_8u_C1R[0]
                                       : vekTable_vekiSampleUpH2V1Smooth_JPEG_8u_C1R[0];
            for (int c = 1; c < 3; ++c)
                ASSERT_EQ(up(d.planes[c].data(), d.steps[c], d.sizes[c], &full[size_t(c) * n], size.width, size),
                          StatusOk);
            const Vek8u* planes[3] = {full.data(), full.data() + n, full.data() + 2 * n};
            std::vector<Vek8u> ours(full.size());
            ASSERT_EQ(vekTable_vekiYCbCrToRGB_JPEG_8u_P3C3R[0](planes, size.width, ours.data(), 3 * size.width, size),
                      StatusOk);
            for (size_t i = 0; i < ours.size(); ++i)
                ASSERT_EQ(+ours[i], +d.rgb[i]) << "pixel " << i / 3 << " channel " << i % 3;
        }
}

#endif

// ---- the rules at entry, on every level ---------------------------------------------------------
// Pointers (plane pointers included), then steps, then sizes; nothing is
// written on failure.  The buffers hold a 2 x 2 region of any member.

TEST(JpegColourEntry, PointersThenStepsThenSizesAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek8u src[64] = {}, a[64], b[64], c[64], d[64];
        Vek16s block[256];
        auto untouched = [&] {
            for (const Vek8u* p : {a, b, c, d})
                for (int i = 0; i < 64; ++i)
                    if (p[i] != kGuard) return false;
            for (Vek16s v : block)
                if (v != 0x5A5A) return false;
            return true;
        };
        memset(a, kGuard, 64), memset(b, kGuard, 64), memset(c, kGuard, 64), memset(d, kGuard, 64);
        for (Vek16s& v : block) v = 0x5A5A;
        Vek8u* planes[4] = {a, b, c, d};
        Vek8u* withNull[3] = {a, nullptr, c};
        const Vek8u* in[4] = {src, src, src, src};
        const Vek8u* inNull[3] = {src, src, nullptr};
        const VekiSize two{2, 2};

        const auto toPlanes = vekTable_vekiRGBToYCbCr_JPEG_8u_C3P3R[level];
        EXPECT_EQ(toPlanes(nullptr, 6, planes, 2, two), StatusNullPointer);
        EXPECT_EQ(toPlanes(src, 6, nullptr, 2, two), StatusNullPointer);
        EXPECT_EQ(toPlanes(src, 6, withNull, 2, two), StatusNullPointer);
        EXPECT_EQ(toPlanes(src, 0, withNull, 0, {0, 0}), StatusNullPointer);  // pointers first
        EXPECT_EQ(toPlanes(src, 0, planes, 2, {0, 2}), StatusStep);           // steps before sizes
        EXPECT_EQ(toPlanes(src, 6, planes, -2, two), StatusStep);
        EXPECT_EQ(toPlanes(src, 6, planes, 2, {2, 0}), StatusSize);
        const auto fromPlanes = vekTable_vekiYCbCrToRGB_JPEG_8u_P3C3R[level];
        EXPECT_EQ(fromPlanes(inNull, 2, a, 6, two), StatusNullPointer);
        EXPECT_EQ(fromPlanes(nullptr, 2, a, 6, two), StatusNullPointer);
        EXPECT_EQ(fromPlanes(in, 2, nullptr, 6, two), StatusNullPointer);
        EXPECT_EQ(fromPlanes(in, 2, a, 0, {-1, 2}), StatusStep);
        EXPECT_EQ(fromPlanes(in, 2, a, 6, {0, 2}), StatusSize);
        // The other shapes follow the same order.
        EXPECT_EQ(vekTable_vekiYCCKToCMYK_JPEG_8u_P4C4R[level](in, 0, a, 8, two), StatusStep);
        EXPECT_EQ(vekTable_vekiCMYKToYCCK_JPEG_8u_C4P4R[level](src, 8, withNull, 2, two), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiRGBToYCbCr_JPEG_8u_P3R[level](in, 2, planes, 0, {0, 0}), StatusStep);
        EXPECT_EQ(vekTable_vekiRGBToY_JPEG_8u_C3C1R[level](src, 6, a, 2, {2, -3}), StatusSize);
        EXPECT_EQ(vekTable_vekiYCbCr422ToRGB_JPEG_8u_C2C3R[level](src, 4, nullptr, 6, two), StatusNullPointer);

        // Sampling: then the two regions must fit each other.
        const auto down = vekTable_vekiSampleDownH2V2_JPEG_8u_C1R[level];
        EXPECT_EQ(down(nullptr, 4, {4, 4}, a, 2, two), StatusNullPointer);
        EXPECT_EQ(down(src, 4, {0, 4}, a, 0, two), StatusStep);
        EXPECT_EQ(down(src, 4, {0, 4}, a, 2, two), StatusSize);
        EXPECT_EQ(down(src, 4, {4, 4}, a, 2, {2, 1}), StatusSize);
        EXPECT_EQ(down(src, 4, {5, 3}, a, 2, {2, 2}), StatusSize);  // 5 needs 3 columns
        const auto up = vekTable_vekiSampleUpH2V1Smooth_JPEG_8u_C1R[level];
        EXPECT_EQ(up(src, 2, two, a, 4, {3, 1}), StatusSize);  // H2V1 keeps the height
        EXPECT_EQ(up(src, 2, two, a, 4, {5, 2}), StatusSize);
        const auto row = vekTable_vekiSampleUpRowH2V2Smooth_JPEG_8u_C1[level];
        EXPECT_EQ(row(src, nullptr, 2, a, 4), StatusNullPointer);
        EXPECT_EQ(row(src, src, 0, a, 0), StatusSize);
        EXPECT_EQ(row(src, src, 2, a, 5), StatusSize);

        // One MCU: pointers, then the step.
        Vek16s* blocks[3] = {block, block + 128, block + 192};
        Vek16s* blocksNull[3] = {block, nullptr, block + 192};
        const Vek16s* source[3] = {block, block, block};
        EXPECT_EQ(vekTable_vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R[level](src, 48, blocksNull), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R[level](src, 0, blocks), StatusStep);
        EXPECT_EQ(vekTable_vekiSplit422LS_MCU_8u16s_C2P3R[level](nullptr, 32, blocks), StatusNullPointer);
        EXPECT_EQ(vekTable_vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R[level](source, a, -24), StatusStep);
        EXPECT_EQ(vekTable_vekiJoin422LS_MCU_16s8u_P3C2R[level](nullptr, a, 32), StatusNullPointer);
        EXPECT_TRUE(untouched());
    });
}

}  // namespace
}  // namespace vektest
