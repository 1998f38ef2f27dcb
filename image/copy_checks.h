// Entry checks of the copy family that every level applies identically:
// the mirror's flip and size rules, the channel order of a swap and the
// geometry of a border replication, each after the pointer checks.  Pure
// scalar code, shared by all levels.
#ifndef VEK_IMAGE_COPY_CHECKS_H
#define VEK_IMAGE_COPY_CHECKS_H

#include <stdint.h>

#include "image/image_common.h"

namespace vek::image {
namespace {  // internal linkage: every level's file compiles its own copy

// A null image, a region below one pixel, then an unknown flip code, then a
// dimension the flip needs two of.
template <class... Images>
inline VekStatus checkMirror(VekiSize roi, int flip, const Images*... images) {
    if (const VekStatus status = checkPointersAndRoi(roi, images...)) return status;
    if (flip < 0 || flip > 2) return StatusMirrorFlip;
    if ((flip != 1 && roi.height < 2) || (flip != 0 && roi.width < 2)) return StatusSize;
    return StatusOk;
}

// A null image or order, a region below one pixel, then an order value
// outside 0..2.
template <class T>
inline VekStatus checkSwap(VekiSize roi, const int order[3], const T* src, const T* dst) {
    if (const VekStatus status = checkPointersAndRoi(roi, src, dst, order)) return status;
    for (int c = 0; c < 3; ++c)
        if (order[c] < 0 || order[c] > 2) return StatusChannelOrder;
    return StatusOk;
}

// A null image, then the sizes: the destination must hold the source at
// (left, top); borders are not negative.  Sums are formed in 64 bits so
// huge values cannot wrap.
template <class T>
inline VekStatus checkBorder(const T* src, VekiSize srcRoi, const T* dst, VekiSize dstRoi, int top, int left) {
    if (const VekStatus status = checkPointersAndRoi(srcRoi, src, dst)) return status;
    if (roiEmpty(dstRoi)) return StatusSize;
    if (top < 0 || left < 0) return StatusSize;
    if (int64_t(srcRoi.width) + left > dstRoi.width || int64_t(srcRoi.height) + top > dstRoi.height) return StatusSize;
    return StatusOk;
}

// Bytes of n samples of T, in size_t so that no product overflows an int.
template <class T>
inline size_t sampleBytes(int64_t n) {
    return static_cast<size_t>(n) * sizeof(T);
}

}  // namespace
}  // namespace vek::image

#endif
