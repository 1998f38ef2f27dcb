// Image type conversions: the plain reference.
//
// Widening is exact.  Narrowing saturates to the destination's range; a
// float is first rounded to the nearest integer, ties to even, NaN to 0.
// The float rounding is worked on the bits of the value with integer
// operations only, so it does not depend on the floating-point unit, its
// rounding mode or its precision (x87 on 32-bit targets): every level must
// agree with it bit for bit.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <limits>
#include <type_traits>

#include "core/dispatch.h"
#include "image/convert_exports.h"
#include "image/image_common.h"

namespace vek::plain {
#include "image/pixel_rows.h"

namespace {

// x rounded to the nearest integer (ties to even) and clamped to [lo, hi];
// NaN gives 0.  The bounds lie within +-2^16.
inline int32_t roundFloat(Vek32f x, int32_t lo, int32_t hi) {
    uint32_t bits;
    memcpy(&bits, &x, sizeof bits);
    const uint32_t magnitude = bits & 0x7FFFFFFFu;
    if (magnitude > 0x7F800000u) return 0;  // NaN
    const bool negative = (bits >> 31) != 0;
    const int exponent = static_cast<int>(magnitude >> 23);  // biased by 127
    if (exponent >= 127 + 17) return negative ? lo : hi;     // |x| >= 2^17, infinities too
    if (exponent < 126) return 0;                            // |x| < 0.5 (0 is in every range)
    // |x| = mantissa / 2^shift with the shift in 7..24.
    const uint32_t mantissa = (magnitude & 0x7FFFFFu) | 0x800000u;
    const int shift = 150 - exponent;
    uint32_t q = mantissa >> shift;
    const uint32_t rest = mantissa & ((1u << shift) - 1), half = 1u << (shift - 1);
    q += (rest > half || (rest == half && (q & 1))) ? 1 : 0;
    const int32_t r = negative ? -static_cast<int32_t>(q) : static_cast<int32_t>(q);
    return r < lo ? lo : (r > hi ? hi : r);
}

template <class D, class S>
inline D convertSample(S x) {
    if constexpr (std::is_floating_point_v<D>) {
        return static_cast<D>(x);  // from 8 or 16 bits: exact
    } else {
        constexpr int32_t lo = std::numeric_limits<D>::min(), hi = std::numeric_limits<D>::max();
        if constexpr (std::is_floating_point_v<S>) {
            return static_cast<D>(roundFloat(x, lo, hi));
        } else {
            const int64_t v = x;
            return static_cast<D>(v < lo ? lo : (v > hi ? hi : v));
        }
    }
}

template <class S, class D>
void convertRow(const S* src, D* dst, size_t n) {
    for (size_t i = 0; i < n; ++i) dst[i] = convertSample<D>(src[i]);
}

}  // namespace

VEK_CONVERT_FROM_8U_MEMBERS
VEK_CONVERT_FROM_16U_MEMBERS
VEK_CONVERT_FROM_16S_MEMBERS
VEK_CONVERT_SATURATE_MEMBERS
VEK_CONVERT_16U_TO_8U_MEMBERS
VEK_CONVERT_FROM_32F_MEMBERS

}  // namespace vek::plain
