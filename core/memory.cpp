// Aligned allocation.  A request of n bytes takes n + 32 + sizeof(void*)
// bytes from the C heap; the block handed out starts at the first multiple
// of 32 that leaves room for one pointer before it, and that pointer holds
// the raw address for the free functions.  On 32-bit targets this is the
// classic layout: n + 36 bytes, block = (raw + 35) rounded down to 32.
#include <stdint.h>
#include <stdlib.h>

#include "dispatch.h"

namespace {

constexpr uintptr_t kAlign = 32;
constexpr size_t kOverhead = kAlign + sizeof(void*);

void* alignedAlloc(size_t bytes) {
    if (bytes > SIZE_MAX - kOverhead) return nullptr;
    void* raw = malloc(bytes + kOverhead);
    if (!raw) return nullptr;
    const uintptr_t start = (reinterpret_cast<uintptr_t>(raw) + kOverhead - 1) & ~(kAlign - 1);
    reinterpret_cast<void**>(start)[-1] = raw;
    return reinterpret_cast<void*>(start);
}

void alignedFree(void* ptr) {
    if (ptr) free(static_cast<void**>(ptr)[-1]);
}

// Image buffer: rows of width x bytesPerPixel rounded up to 32 bytes.
void* imageAlloc(int width, int height, int bytesPerPixel, int* pStepBytes) {
    if (!pStepBytes) return nullptr;
    *pStepBytes = 0;
    if (width < 1 || height < 1) return nullptr;
    const int64_t step = (static_cast<int64_t>(width) * bytesPerPixel + 31) & ~int64_t(31);
    const int64_t total = step * height;
    if (step > INT32_MAX || total > INT32_MAX) return nullptr;
    *pStepBytes = static_cast<int>(step);
    return alignedAlloc(static_cast<size_t>(total));
}

}  // namespace

extern "C" VEK_API void* VEK_CALL vekMalloc(int length) {
    return length < 1 ? nullptr : alignedAlloc(static_cast<size_t>(length));
}

extern "C" VEK_API void VEK_CALL vekFree(void* ptr) { alignedFree(ptr); }

extern "C" VEK_API void* VEK_CALL vekAlignPtr(void* ptr, int alignBytes) {
    const uintptr_t p = reinterpret_cast<uintptr_t>(ptr);
    return reinterpret_cast<void*>(p + ((0 - p) & (static_cast<uintptr_t>(alignBytes) - 1)));
}

extern "C" VEK_API VekStatus VEK_CALL vekGetNumThreads(int* pNumThreads) {
    *pNumThreads = 1;
    return StatusNoOperation;
}

extern "C" VEK_API VekStatus VEK_CALL vekSetNumThreads(int) { return StatusNoOperation; }

// The dispatched allocators: one implementation serves every level.
namespace vek::plain {

Vek8u* VEK_CALL veksMalloc_8u(int length) { return static_cast<Vek8u*>(vekMalloc(length)); }
void VEK_CALL veksFree(void* ptr) { alignedFree(ptr); }
void VEK_CALL vekiFree(void* ptr) { alignedFree(ptr); }

#define VEK_IMAGE_ALLOC(name, type, bytesPerPixel)                                                   \
    type* VEK_CALL name(int widthPixels, int heightPixels, int* pStepBytes) {                        \
        return static_cast<type*>(imageAlloc(widthPixels, heightPixels, bytesPerPixel, pStepBytes)); \
    }
VEK_IMAGE_ALLOC(vekiMalloc_8u_C1, Vek8u, 1)
VEK_IMAGE_ALLOC(vekiMalloc_8u_C3, Vek8u, 3)
VEK_IMAGE_ALLOC(vekiMalloc_16s_C1, Vek16s, 2)
VEK_IMAGE_ALLOC(vekiMalloc_16s_C3, Vek16s, 6)
VEK_IMAGE_ALLOC(vekiMalloc_16u_C1, Vek16u, 2)
VEK_IMAGE_ALLOC(vekiMalloc_16u_C3, Vek16u, 6)
VEK_IMAGE_ALLOC(vekiMalloc_32s_C1, Vek32s, 4)
VEK_IMAGE_ALLOC(vekiMalloc_32s_C3, Vek32s, 12)
VEK_IMAGE_ALLOC(vekiMalloc_32f_C1, Vek32f, 4)
VEK_IMAGE_ALLOC(vekiMalloc_32f_C3, Vek32f, 12)
#undef VEK_IMAGE_ALLOC

}  // namespace vek::plain
