// The entry checks of the TIFF row functions, one function per export for
// every level.  Pointers first (StatusNullPointer), then lengths: below 1
// is StatusSize for PackBits and, deliberately, StatusStep for the byte
// planes.  The plane functions also refuse a null plane pointer inside the
// array.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_JPEG_TIFF_CHECKS_H
#define VEK_JPEG_TIFF_CHECKS_H

namespace {

inline VekStatus checkPackBits(const Vek8u* src, int srcLen, const Vek8u* dst, const int* pDstCurrPos,
                               int dstLenBytes) {
    if (!src || !pDstCurrPos || !dst) return StatusNullPointer;
    if (srcLen < 1 || dstLenBytes < 1) return StatusSize;
    return StatusOk;
}

inline VekStatus checkUnpackBits(const Vek8u* src, const int* pSrcCurrPos, int srcLenBytes, const Vek8u* dst,
                                 int dstLen) {
    if (!src || !pSrcCurrPos || !dst) return StatusNullPointer;
    if (srcLenBytes < 1 || dstLen < 1) return StatusSize;
    return StatusOk;
}

template <class Plane, class Row>
inline VekStatus checkPlanes(const Plane* const* planes, const Row* row, int len) {
    if (!planes || !planes[0] || !planes[1] || !row) return StatusNullPointer;
    if (len < 1) return StatusStep;
    return StatusOk;
}

}  // namespace

#endif
