// Benchmark cases of the image copy family: a large contiguous copy (beyond
// the caches, compared with memcpy), cache-resident mirrors, channel swaps,
// sets and masked copies, and planar-to-interleaved copies below and above
// the size where the stores bypass the cache.  Images are random bytes, made
// once per case and kept for the program's lifetime.
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench_cases.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

// A source and a destination of `bytesPerRow` x height, rows contiguous.
struct Images {
    int bytesPerRow, height;
    std::vector<unsigned char> src, dst;
    Images(int rowBytes, int rows)
        : bytesPerRow(rowBytes), height(rows), src(size_t(rowBytes) * rows), dst(src.size()) {
        std::mt19937 rng(7);
        for (unsigned char& b : src) b = static_cast<unsigned char>(rng());
    }
    template <class T>
    T* s() {
        return reinterpret_cast<T*>(src.data());
    }
    template <class T>
    T* d() {
        return reinterpret_cast<T*>(dst.data());
    }
};

std::string sizeName(VekiSize roi) { return std::to_string(roi.width) + "x" + std::to_string(roi.height); }

// Out-of-place cases of the (src, srcStep, dst, dstStep, roi, extra...) shape.
template <class T, int C, class Fn, class... Extra>
void addTwoImage(std::vector<BenchCase>& cases, const char* exportName, const Fn* table, VekiSize roi,
                 const std::string& detail, Extra... extra) {
    const int rowBytes = roi.width * C * int(sizeof(T));
    auto m = std::make_shared<Images>(rowBytes, roi.height);
    cases.push_back({std::string(exportName) + "/" + sizeName(roi) + detail, exportName, roi.width * roi.height,
                     2.0 * rowBytes * roi.height, [=](int level) {
                         table[level](m->template s<T>(), rowBytes, m->template d<T>(), rowBytes, roi, extra...);
                     }});
}

// In-place cases of the (srcDst, step, roi, extra...) shape.
template <class T, int C, class Fn, class... Extra>
void addInPlace(std::vector<BenchCase>& cases, const char* exportName, const Fn* table, VekiSize roi,
                const std::string& detail, Extra... extra) {
    const int rowBytes = roi.width * C * int(sizeof(T));
    auto m = std::make_shared<Images>(rowBytes, roi.height);
    cases.push_back({std::string(exportName) + "/" + sizeName(roi) + detail, exportName, roi.width * roi.height,
                     2.0 * rowBytes * roi.height,
                     [=](int level) { table[level](m->template s<T>(), rowBytes, roi, extra...); }});
}

template <class T, class Fn>
void addPlanar(std::vector<BenchCase>& cases, const char* exportName, const Fn* table, VekiSize roi) {
    const int planeBytes = roi.width * int(sizeof(T));
    auto m = std::make_shared<Images>(3 * planeBytes, roi.height);
    cases.push_back({std::string(exportName) + "/" + sizeName(roi), exportName, roi.width * roi.height,
                     2.0 * 3 * planeBytes * roi.height, [=](int level) {
                         const size_t plane = size_t(planeBytes) * roi.height;
                         const T* planes[3] = {m->template s<T>(), reinterpret_cast<const T*>(m->src.data() + plane),
                                               reinterpret_cast<const T*>(m->src.data() + 2 * plane)};
                         table[level](planes, planeBytes, m->template d<T>(), 3 * planeBytes, roi);
                     }});
}

const int kSwapOrder[3] = {2, 1, 0};

}  // namespace

VEK_BENCH_FAMILY(image_copy) {
    using namespace vek;
    const VekiSize big{4096, 4096}, tile{64, 64}, strip{256, 16};
    addTwoImage<Vek8u, 1>(cases, "vekiCopy_8u_C1R", vekTable_vekiCopy_8u_C1R, big, "");
    addTwoImage<Vek8u, 1>(cases, "vekiCopy_8u_C1R", vekTable_vekiCopy_8u_C1R, tile, "");
    addTwoImage<Vek8u, 4>(cases, "vekiCopy_8u_AC4R", vekTable_vekiCopy_8u_AC4R, tile, "");
    for (VekiSize roi : {tile, strip}) {
        addTwoImage<Vek8u, 1>(cases, "vekiMirror_8u_C1R", vekTable_vekiMirror_8u_C1R, roi, "/flip:1", 1);
        addTwoImage<Vek8u, 3>(cases, "vekiMirror_8u_C3R", vekTable_vekiMirror_8u_C3R, roi, "/flip:1", 1);
        addTwoImage<Vek16u, 1>(cases, "vekiMirror_16u_C1R", vekTable_vekiMirror_16u_C1R, roi, "/flip:1", 1);
        addTwoImage<Vek16u, 3>(cases, "vekiMirror_16u_C3R", vekTable_vekiMirror_16u_C3R, roi, "/flip:1", 1);
    }
    // Two 64x64 images of 16-bit three-channel pixels take 48 KiB, as much
    // as a whole first-level data cache of many current cores: half the
    // rows keep source and destination there together.
    const VekiSize halfTile{64, 32};
    addTwoImage<Vek16u, 3>(cases, "vekiMirror_16u_C3R", vekTable_vekiMirror_16u_C3R, halfTile, "/flip:1", 1);
    addTwoImage<Vek32f, 3>(cases, "vekiMirror_32f_C3R", vekTable_vekiMirror_32f_C3R, tile, "/flip:1", 1);
    addInPlace<Vek8u, 1>(cases, "vekiMirror_8u_C1IR", vekTable_vekiMirror_8u_C1IR, tile, "/flip:2", 2);
    addInPlace<Vek8u, 3>(cases, "vekiMirror_8u_C3IR", vekTable_vekiMirror_8u_C3IR, tile, "/flip:1", 1);
    addInPlace<Vek16s, 3>(cases, "vekiMirror_16s_C3IR", vekTable_vekiMirror_16s_C3IR, tile, "/flip:1", 1);
    addTwoImage<Vek8u, 3>(cases, "vekiSwapChannels_8u_C3R", vekTable_vekiSwapChannels_8u_C3R, tile, "", kSwapOrder);
    addInPlace<Vek8u, 3>(cases, "vekiSwapChannels_8u_C3IR", vekTable_vekiSwapChannels_8u_C3IR, tile, "", kSwapOrder);
    addInPlace<Vek8u, 3>(cases, "vekiSwapChannels_8u_C3IR", vekTable_vekiSwapChannels_8u_C3IR, strip, "", kSwapOrder);
    addPlanar<Vek8u>(cases, "vekiCopy_8u_P3C3R", vekTable_vekiCopy_8u_P3C3R, tile);
    addPlanar<Vek8u>(cases, "vekiCopy_8u_P3C3R", vekTable_vekiCopy_8u_P3C3R, VekiSize{2048, 2048});
    addPlanar<Vek16s>(cases, "vekiCopy_16s_P3C3R", vekTable_vekiCopy_16s_P3C3R, tile);
    addPlanar<Vek32f>(cases, "vekiCopy_32f_P3C3R", vekTable_vekiCopy_32f_P3C3R, tile);
    addPlanar<Vek32f>(cases, "vekiCopy_32f_P3C3R", vekTable_vekiCopy_32f_P3C3R, VekiSize{1024, 1024});
    auto set = std::make_shared<Images>(3 * tile.width, tile.height);
    cases.push_back({"vekiSet_16s_C1R/64x64", "vekiSet_16s_C1R", tile.width * tile.height, 2.0 * 64 * 64,
                     [=](int level) { vekTable_vekiSet_16s_C1R[level](-5, set->d<Vek16s>(), 128, tile); }});
    cases.push_back({"vekiSet_8u_C3CR/64x64", "vekiSet_8u_C3CR", tile.width * tile.height, 64.0 * 64,
                     [=](int level) { vekTable_vekiSet_8u_C3CR[level](9, set->d<Vek8u>() + 1, 192, tile); }});
    auto border = std::make_shared<Images>(4 * 80, 80);
    cases.push_back({"vekiCopyReplicateBorder_32s_C1R/64x64+8", "vekiCopyReplicateBorder_32s_C1R", 80 * 80,
                     4.0 * (64 * 64 + 80 * 80), [=](int level) {
                         vekTable_vekiCopyReplicateBorder_32s_C1R[level](
                             border->s<Vek32s>(), 256, tile, border->d<Vek32s>(), 320, VekiSize{80, 80}, 8, 8);
                     }});
}

}  // namespace vekbench
