// Entry checks of the copy family that every level applies identically:
// the mirror's flip and size rules, the channel order of a swap and the
// geometry of a border replication.  Pure scalar code, shared by all levels.
#ifndef VEK_IMAGE_COPY_CHECKS_H
#define VEK_IMAGE_COPY_CHECKS_H

#include <stdint.h>

#include "image/image_common.h"

namespace vek::image {

// After the pointer checks: a region below one pixel, then an unknown flip
// code, then a dimension the flip needs two of.
inline VekStatus checkMirror(VekiSize roi, int flip) {
    if (roiEmpty(roi)) return StatusSize;
    if (flip < 0 || flip > 2) return StatusMirrorFlip;
    if ((flip != 1 && roi.height < 2) || (flip != 0 && roi.width < 2)) return StatusSize;
    return StatusOk;
}

inline bool channelOrderValid(const int order[3]) {
    for (int c = 0; c < 3; ++c)
        if (order[c] < 0 || order[c] > 2) return false;
    return true;
}

// The destination must hold the source at (left, top); borders are not
// negative.  Sums are formed in 64 bits so huge values cannot wrap.
inline VekStatus checkBorder(VekiSize srcRoi, VekiSize dstRoi, int top, int left) {
    if (roiEmpty(srcRoi) || roiEmpty(dstRoi)) return StatusSize;
    if (top < 0 || left < 0) return StatusSize;
    if (int64_t(srcRoi.width) + left > dstRoi.width || int64_t(srcRoi.height) + top > dstRoi.height) return StatusSize;
    return StatusOk;
}

// Bytes of n samples of T, in size_t so that no product overflows an int.
template <class T>
inline size_t sampleBytes(int64_t n) {
    return static_cast<size_t>(n) * sizeof(T);
}

}  // namespace vek::image

#endif
