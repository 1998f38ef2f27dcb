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
#include "core/round_float.h"
#include "image/convert_exports.h"
#include "image/image_common.h"

namespace vek::plain {
#include "image/pixel_rows.h"

namespace {

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
