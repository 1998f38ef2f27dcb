// The entry checks of the wavelet family, one function each for every
// level, in the order the family defines:
//   Row and Col passes: a null image or band pointer (StatusNullPointer),
//     a step below 1 (StatusStep), a band size below 1 (StatusSize);
//   ColLift: a null row (StatusNullPointer), a width below 1 (StatusSize);
//   the two-dimensional level: the image, the band-pointer array, the step
//     array, the rectangle or the buffer null (StatusNullPointer); the image
//     step below 1 (StatusStep); a band pointer null (StatusNullPointer); a
//     band step below 1 (StatusStep); the tile narrower or lower than 1
//     (StatusSize).
// Nothing is written before they pass.
#ifndef VEK_JPEG2000_WT_CHECKS_H
#define VEK_JPEG2000_WT_CHECKS_H

#include "image/image_common.h"

namespace vek::jpeg2000 {
namespace {  // internal linkage: every level's file compiles its own copy

template <class A, class B, class C>
inline VekStatus checkPass(const A* image, const B* band0, const C* band1, int step0, int step1, int step2,
                           VekiSize roi) {
    if (image == nullptr || band0 == nullptr || band1 == nullptr) return StatusNullPointer;
    if (step0 < 1 || step1 < 1 || step2 < 1) return StatusStep;
    return image::roiEmpty(roi) ? StatusSize : StatusOk;
}

template <class... Rows>
inline VekStatus checkColumnLift(int width, const Rows*... rows) {
    if (((rows == nullptr) || ...)) return StatusNullPointer;
    return width < 1 ? StatusSize : StatusOk;
}

template <class Image, class Band>
inline VekStatus checkLevel(const Image* image, int imageStep, const VekiRect* tile, Band* const bands[4],
                            const int bandSteps[4], const Vek8u* buffer) {
    if (image == nullptr || bands == nullptr || bandSteps == nullptr || tile == nullptr || buffer == nullptr)
        return StatusNullPointer;
    if (imageStep < 1) return StatusStep;
    for (int b = 0; b < 4; ++b)
        if (bands[b] == nullptr) return StatusNullPointer;
    for (int b = 0; b < 4; ++b)
        if (bandSteps[b] < 1) return StatusStep;
    return tile->width < 1 || tile->height < 1 ? StatusSize : StatusOk;
}

}  // namespace
}  // namespace vek::jpeg2000

#endif
