// Benchmark cases of the JPEG colour family, each on one 1920 x 1080 frame:
// every colour conversion, every sampler (the frame is the full-resolution
// side), and the per-MCU conversions walking the frame MCU by MCU into one
// set of blocks, as an encoder or decoder calls them.  A case's elements
// are the frame's pixels, so items per second are pixels per second.
// Sources are pseudo-random bytes made on first use; rivals_jpeg_colour.cpp
// times libjpeg-turbo's converters on the same frame.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "bench_cases.h"
#include "bench_jpeg_colour.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kW = kFrameWidth, kH = kFrameHeight;
constexpr size_t kPixels = size_t(kW) * kH;
const std::string kFrame = "/" + std::to_string(kW) + "x" + std::to_string(kH);

// A source and a destination of four bytes a pixel, made on first use.
struct Buffers {
    std::vector<unsigned char> src, dst;
    void make() {
        if (src.empty()) src = frameBytes(4 * kPixels), dst.assign(4 * kPixels, 0);
    }
};
Buffers& buffers() {
    static Buffers b;
    return b;
}

// `n` planes of `bytes` a sample with `width` samples a row, one after another.
template <class T, int N>
struct Planes {
    T* p[N];
    Planes(unsigned char* base, int width, int rows) {
        for (int i = 0; i < N; ++i) p[i] = reinterpret_cast<T*>(base) + size_t(i) * width * rows;
    }
};

template <class Run>
void add(std::vector<BenchCase>& cases, const char* exportName, double bytesPerPixel, Run run) {
    cases.push_back({exportName + kFrame, exportName, int(kPixels), bytesPerPixel * kPixels, [run](int level) {
                         buffers().make();
                         run(level, buffers().src.data(), buffers().dst.data());
                     }});
}

}  // namespace

VEK_BENCH_FAMILY(jpeg_colour) {
    using namespace vek;
    const VekiSize frame{kW, kH};
    // Interleaved (or packed) to planes: srcBytes a pixel in, N planes out.
#define VEK_TO_PLANES(name, S, bytes, N)                                                                             \
    add(cases, #name, bytes + N, [frame](int level, unsigned char* s, unsigned char* d) {                            \
        vekTable_##name[level](reinterpret_cast<const S*>(s), bytes * kW, Planes<Vek8u, N>(d, kW, kH).p, kW, frame); \
    });
#define VEK_FROM_PLANES(name, D, bytes, N)                                                                           \
    add(cases, #name, N + bytes, [frame](int level, unsigned char* s, unsigned char* d) {                            \
        vekTable_##name[level](Planes<const Vek8u, N>(s, kW, kH).p, kW, reinterpret_cast<D*>(d), bytes * kW, frame); \
    });
    VEK_TO_PLANES(vekiRGBToYCbCr_JPEG_8u_C3P3R, Vek8u, 3, 3)
    VEK_TO_PLANES(vekiBGRToYCbCr_JPEG_8u_C3P3R, Vek8u, 3, 3)
    VEK_FROM_PLANES(vekiYCbCrToRGB_JPEG_8u_P3C3R, Vek8u, 3, 3)
    VEK_FROM_PLANES(vekiYCbCrToBGR_JPEG_8u_P3C3R, Vek8u, 3, 3)
    add(cases, "vekiRGBToY_JPEG_8u_C3C1R", 4, [frame](int level, unsigned char* s, unsigned char* d) {
        vekTable_vekiRGBToY_JPEG_8u_C3C1R[level](s, 3 * kW, d, kW, frame);
    });
    add(cases, "vekiBGRToY_JPEG_8u_C3C1R", 4, [frame](int level, unsigned char* s, unsigned char* d) {
        vekTable_vekiBGRToY_JPEG_8u_C3C1R[level](s, 3 * kW, d, kW, frame);
    });
    add(cases, "vekiYCbCr422ToRGB_JPEG_8u_C2C3R", 5, [frame](int level, unsigned char* s, unsigned char* d) {
        vekTable_vekiYCbCr422ToRGB_JPEG_8u_C2C3R[level](s, 2 * kW, d, 3 * kW, frame);
    });
    add(cases, "vekiRGBToYCbCr_JPEG_8u_P3R", 6, [frame](int level, unsigned char* s, unsigned char* d) {
        vekTable_vekiRGBToYCbCr_JPEG_8u_P3R[level](Planes<const Vek8u, 3>(s, kW, kH).p, kW,
                                                   Planes<Vek8u, 3>(d, kW, kH).p, kW, frame);
    });
    add(cases, "vekiYCbCrToRGB_JPEG_8u_P3R", 6, [frame](int level, unsigned char* s, unsigned char* d) {
        vekTable_vekiYCbCrToRGB_JPEG_8u_P3R[level](Planes<const Vek8u, 3>(s, kW, kH).p, kW,
                                                   Planes<Vek8u, 3>(d, kW, kH).p, kW, frame);
    });
    VEK_FROM_PLANES(vekiRGBToY_JPEG_8u_P3C1R, Vek8u, 1, 3)
    VEK_TO_PLANES(vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R, Vek16u, 2, 3)
    VEK_TO_PLANES(vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R, Vek16u, 2, 3)
    VEK_FROM_PLANES(vekiYCbCrToBGR555_JPEG_8u16u_P3C3R, Vek16u, 2, 3)
    VEK_FROM_PLANES(vekiYCbCrToBGR565_JPEG_8u16u_P3C3R, Vek16u, 2, 3)
    VEK_TO_PLANES(vekiCMYKToYCCK_JPEG_8u_C4P4R, Vek8u, 4, 4)
    VEK_FROM_PLANES(vekiYCCKToCMYK_JPEG_8u_P4C4R, Vek8u, 4, 4)
#undef VEK_TO_PLANES
#undef VEK_FROM_PLANES

    // The samplers: the frame is the full-resolution plane.
    const VekiSize h2v1{kW / 2, kH}, h2v2{kW / 2, kH / 2};
#define VEK_SAMPLE(name, in, out, bytes)                                          \
    add(cases, #name, bytes, [=](int level, unsigned char* s, unsigned char* d) { \
        vekTable_##name[level](s, in.width, in, d, out.width, out);               \
    });
    VEK_SAMPLE(vekiSampleDownH2V1_JPEG_8u_C1R, frame, h2v1, 1.5)
    VEK_SAMPLE(vekiSampleDownH2V2_JPEG_8u_C1R, frame, h2v2, 1.25)
    VEK_SAMPLE(vekiSampleUpH2V1_JPEG_8u_C1R, h2v1, frame, 1.5)
    VEK_SAMPLE(vekiSampleUpH2V2_JPEG_8u_C1R, h2v2, frame, 1.25)
    VEK_SAMPLE(vekiSampleUpH2V1Smooth_JPEG_8u_C1R, h2v1, frame, 1.5)
    VEK_SAMPLE(vekiSampleUpH2V2Smooth_JPEG_8u_C1R, h2v2, frame, 1.25)
#undef VEK_SAMPLE
    add(cases, "vekiSampleUpRowH2V2Smooth_JPEG_8u_C1", 1.5, [](int level, unsigned char* s, unsigned char* d) {
        for (int y = 0; y < kH; ++y) {
            const int near = y / 2, far = y % 2 ? std::min(near + 1, kH / 2 - 1) : std::max(near - 1, 0);
            vekTable_vekiSampleUpRowH2V2Smooth_JPEG_8u_C1[level](s + near * (kW / 2), s + far * (kW / 2), kW / 2,
                                                                 d + size_t(y) * kW, kW);
        }
    });

    // One MCU at a time over the frame; the blocks stay in cache, as they
    // would between a conversion and the DCT.
    static Vek16s blocks[6 * 64];
    static Vek16s* const mcu[3] = {blocks, blocks + 256, blocks + 320};
    static const Vek16s* const mcuIn[3] = {blocks, blocks + 256, blocks + 320};
#define VEK_MCU_FORWARD(name, w, h, bytes)                                                                             \
    add(cases, #name, 3, [](int level, unsigned char* s, unsigned char*) {                                             \
        for (int y = 0; y < kH / h * h; y += h)                                                                        \
            for (int x = 0; x < kW; x += w) vekTable_##name[level](s + (size_t(y) * kW + x) * bytes, bytes * kW, mcu); \
    });
#define VEK_MCU_INVERSE(name, w, h, bytes)                                                   \
    add(cases, #name, 3, [](int level, unsigned char*, unsigned char* d) {                   \
        for (int y = 0; y < kH / h * h; y += h)                                              \
            for (int x = 0; x < kW; x += w)                                                  \
                vekTable_##name[level](mcuIn, d + (size_t(y) * kW + x) * bytes, bytes * kW); \
    });
    VEK_MCU_FORWARD(vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R, 8, 8, 3)
    VEK_MCU_FORWARD(vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R, 16, 8, 3)
    VEK_MCU_FORWARD(vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R, 16, 16, 3)
    VEK_MCU_INVERSE(vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R, 8, 8, 3)
    VEK_MCU_INVERSE(vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R, 16, 8, 3)
    VEK_MCU_INVERSE(vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R, 16, 16, 3)
    VEK_MCU_FORWARD(vekiSplit422LS_MCU_8u16s_C2P3R, 16, 8, 2)
    VEK_MCU_INVERSE(vekiJoin422LS_MCU_16s8u_P3C2R, 16, 8, 2)
#undef VEK_MCU_FORWARD
#undef VEK_MCU_INVERSE
}

}  // namespace vekbench
