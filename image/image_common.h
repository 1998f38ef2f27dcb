// What every image function shares: addressing a row of a region of
// interest through a signed byte step, and the common entry checks.
//
// Steps are distances in bytes between row starts and may be zero or
// negative (bottom-up images) where a function accepts that, so row
// addresses are formed in pointer-sized arithmetic from byte pointers.
#ifndef VEK_IMAGE_IMAGE_COMMON_H
#define VEK_IMAGE_IMAGE_COMMON_H

#include <stddef.h>

#include <type_traits>

#include "vek.h"

namespace vek::image {
namespace {  // internal linkage: every level's file compiles its own copy

// Row y of an image whose first row starts at base.
template <class T>
inline T* rowAt(T* base, int stepBytes, int y) {
    using Byte = std::conditional_t<std::is_const_v<T>, const unsigned char, unsigned char>;
    return reinterpret_cast<T*>(reinterpret_cast<Byte*>(base) + static_cast<ptrdiff_t>(stepBytes) * y);
}

inline bool roiEmpty(VekiSize roi) { return roi.width < 1 || roi.height < 1; }

// The checks every image function starts with: any required pointer null
// gives StatusNullPointer, then a region below one pixel StatusSize.
template <class... Pointers>
inline VekStatus checkPointersAndRoi(VekiSize roi, const Pointers*... pointers) {
    if (((pointers == nullptr) || ...)) return StatusNullPointer;
    return roiEmpty(roi) ? StatusSize : StatusOk;
}

// Rows are contiguous when each step equals its row length in bytes, so
// the region can be worked as one long row of width * height samples.
inline bool contiguous(int srcStep, int srcRowBytes, int dstStep, int dstRowBytes) {
    return srcStep == srcRowBytes && dstStep == dstRowBytes;
}

}  // namespace
}  // namespace vek::image

#endif
