// The entry checks of the component transforms, one function for every
// level: a null plane array, any of its three planes (plane 0, 1, 2) or the
// interleaved image null gives StatusNullPointer; then a step below 1
// (the source's first) StatusStep; then a region below one pixel
// StatusSize.  Nothing is written before they pass.
#ifndef VEK_JPEG2000_CT_CHECKS_H
#define VEK_JPEG2000_CT_CHECKS_H

#include "image/image_common.h"

namespace vek::jpeg2000 {
namespace {  // internal linkage: every level's file compiles its own copy

template <class Plane>
inline bool planesNull(const Plane* const planes[3]) {
    return planes == nullptr || planes[0] == nullptr || planes[1] == nullptr || planes[2] == nullptr;
}

// Three planes in place.
template <class T>
inline VekStatus checkPlanesInPlace(T* const planes[3], int step, VekiSize roi) {
    if (planesNull(planes)) return StatusNullPointer;
    if (step < 1) return StatusStep;
    return image::roiEmpty(roi) ? StatusSize : StatusOk;
}

// Planes and an interleaved image, one the source and the other the
// destination; srcStep is checked first.
template <class Plane, class T>
inline VekStatus checkPlanesAndPixels(const Plane* const planes[3], const T* pixels, int srcStep, int dstStep,
                                      VekiSize roi) {
    if (planesNull(planes) || pixels == nullptr) return StatusNullPointer;
    if (srcStep < 1 || dstStep < 1) return StatusStep;
    return image::roiEmpty(roi) ? StatusSize : StatusOk;
}

}  // namespace
}  // namespace vek::jpeg2000

#endif
