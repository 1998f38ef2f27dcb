// Per-pixel arithmetic on images: the plain reference.
//
// Shifts by a count at or beyond the sample width give what shifting one
// bit at a time would: 0 to the left, the sign fill to the right.  Left
// shifts work on the unsigned pattern, so the bits shifted out are simply
// lost.  The constant products reuse the vector arithmetic of this level.
#include <stddef.h>
#include <stdint.h>

#include "core/dispatch.h"
#include "image/image_common.h"
#include "image/pixel_arith_exports.h"

namespace vek::plain {
#include "image/pixel_rows.h"

namespace {

void shiftLeftRow(const Vek32s* src, Vek32s* dst, size_t n, Vek32u count) {
    for (size_t i = 0; i < n; ++i)
        dst[i] = count >= 32 ? 0 : static_cast<Vek32s>(static_cast<uint32_t>(src[i]) << count);
}

template <class T>
void shiftRightRow(T* p, size_t n, Vek32u count) {
    const int bits = 8 * sizeof(T);
    const int c = count >= static_cast<Vek32u>(bits) ? bits - 1 : static_cast<int>(count);
    for (size_t i = 0; i < n; ++i) p[i] = static_cast<T>(p[i] >> c);
}

// The low bitSize bits of each sample, read as a two's-complement number.
void signExtendRow(Vek32s* p, size_t n, int bitSize) {
    const int unused = 32 - bitSize;
    for (size_t i = 0; i < n; ++i) p[i] = static_cast<Vek32s>(static_cast<uint32_t>(p[i]) << unused) >> unused;
}

}  // namespace

VEK_PIXEL_SHIFT_MEMBERS
VEK_PIXEL_MULC_16S_MEMBER
VEK_PIXEL_MULC_32F_MEMBER

}  // namespace vek::plain
