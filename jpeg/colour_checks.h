// The entry checks of the JPEG colour family, one function per kind of
// member, shared by every level.  The family checks steps before sizes:
//   1. any required pointer null, plane pointers included (plane 0, then 1,
//      then 2, then 3): StatusNullPointer;
//   2. any step below 1: StatusStep;
//   3. a width or height below 1: StatusSize, then (the sampling members)
//      a source and destination size that do not fit each other: StatusSize.
// A member that fails a check writes nothing.
#ifndef VEK_JPEG_COLOUR_CHECKS_H
#define VEK_JPEG_COLOUR_CHECKS_H

#include "vek.h"

namespace vek::jpeg {
namespace {

template <class P>
inline bool anyNull(const P* p) {
    return p == nullptr;
}
// A plane-pointer array: the array, then each of its planes.
template <class T, int N>
struct PlaneArray {
    T* const* planes;
};
template <class T, int N>
inline bool anyNull(PlaneArray<T, N> a) {
    if (a.planes == nullptr) return true;
    for (int i = 0; i < N; ++i)
        if (a.planes[i] == nullptr) return true;
    return false;
}
template <int N, class T>
inline PlaneArray<T, N> planes(T* const* p) {
    return {p};
}

template <class... Pointers>
inline VekStatus checkPointersAndSteps(int srcStep, int dstStep, Pointers... pointers) {
    if ((anyNull(pointers) || ...)) return StatusNullPointer;
    if (srcStep < 1 || dstStep < 1) return StatusStep;
    return StatusOk;
}

// The conversions over a region.
template <class... Pointers>
inline VekStatus checkConversion(int srcStep, int dstStep, VekiSize roi, Pointers... pointers) {
    if (const VekStatus status = checkPointersAndSteps(srcStep, dstStep, pointers...)) return status;
    return roi.width < 1 || roi.height < 1 ? StatusSize : StatusOk;
}

// The sampling members: `full` is the full-resolution region, `half` the
// subsampled one; half.width must be full.width / 2 rounded up, and so must
// half.height when the rows are halved too (otherwise the heights agree).
template <class... Pointers>
inline VekStatus checkSampling(int srcStep, int dstStep, VekiSize full, VekiSize half, bool halveRows,
                               Pointers... pointers) {
    if (const VekStatus status = checkPointersAndSteps(srcStep, dstStep, pointers...)) return status;
    if (full.width < 1 || full.height < 1 || half.width < 1 || half.height < 1) return StatusSize;
    const bool fits = half.width == full.width / 2 + full.width % 2 &&
                      half.height == (halveRows ? full.height / 2 + full.height % 2 : full.height);
    return fits ? StatusOk : StatusSize;
}

// One MCU: pointers, then the step of the interleaved image.
template <class... Pointers>
inline VekStatus checkMcu(int step, Pointers... pointers) {
    return checkPointersAndSteps(step, step, pointers...);
}

}  // namespace
}  // namespace vek::jpeg

#endif
