// A float rounded to an integer on its bits: to nearest, ties to even,
// then clamped; NaN gives 0.  Integer operations only, so neither the
// caller's rounding mode nor x87 precision can change the result: the
// plain level's reference rounding, and the vector levels' fallback when
// MXCSR does not round to nearest.
#ifndef VEK_CORE_ROUND_FLOAT_H
#define VEK_CORE_ROUND_FLOAT_H

#include <stdint.h>
#include <string.h>

namespace vek {
namespace {  // internal linkage: every level's file compiles its own copy

// x rounded to the nearest integer (ties to even) and clamped to [lo, hi];
// NaN gives 0.  The bounds lie within +-2^16 and lo <= 0 <= hi.
inline int32_t roundFloat(float x, int32_t lo, int32_t hi) {
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

}  // namespace
}  // namespace vek

#endif
