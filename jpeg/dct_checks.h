// Entry checks of the JPEG DCT family, shared by every level.  Each export
// calls one of these before it touches memory; the first failing check
// returns at once and nothing is written.
#ifndef VEK_JPEG_DCT_CHECKS_H
#define VEK_JPEG_DCT_CHECKS_H

#include <stddef.h>

#include <type_traits>

#include "vek.h"

namespace vek::jpeg {
namespace {  // internal linkage: every level's file compiles its own copy

// Any of the pointers null.
template <class... Pointers>
inline VekStatus checkPointers(const Pointers*... pointers) {
    return ((pointers == nullptr) || ...) ? StatusNullPointer : StatusOk;
}

// The stepped DCTs: a null source or destination, then a step below 1.
inline VekStatus checkBlockStep(const void* src, const void* dst, int step) {
    if (src == nullptr || dst == nullptr) return StatusNullPointer;
    return step < 1 ? StatusStep : StatusOk;
}

// The stepped fused functions: as above, then a null table.
inline VekStatus checkBlockStepTable(const void* src, const void* dst, int step, const void* table) {
    if (const VekStatus status = checkBlockStep(src, dst, step)) return status;
    return table == nullptr ? StatusNullPointer : StatusOk;
}

// Add128 and Sub128: each image's pointer then its step, the source first,
// then the region.
inline VekStatus checkLevelShift(const void* src, int srcStep, const void* dst, int dstStep, VekiSize roi) {
    if (src == nullptr) return StatusNullPointer;
    if (srcStep < 1) return StatusStep;
    if (dst == nullptr) return StatusNullPointer;
    if (dstStep < 1) return StatusStep;
    return roi.width < 1 || roi.height < 1 ? StatusSize : StatusOk;
}

// Row y of an image with a byte step.
template <class T>
inline T* blockRow(T* base, int stepBytes, int y) {
    using Byte = std::conditional_t<std::is_const_v<T>, const unsigned char, unsigned char>;
    return reinterpret_cast<T*>(reinterpret_cast<Byte*>(base) + static_cast<ptrdiff_t>(stepBytes) * y);
}

}  // namespace
}  // namespace vek::jpeg

#endif
