// JPEG quantisation tables: quality scaling of a raw (DQT) table and the
// forward (reciprocal) and inverse tables in natural order.  Sixty-four
// entries once per image: every level shares this plain code.
#include <stdint.h>

#include "core/dispatch.h"
#include "jpeg/dct_checks.h"

namespace vek::plain {
namespace {

// Entry i is the position in the zig-zag sequence of natural index i.
// clang-format off
constexpr uint8_t kZigzagPosition[64] = {
     0,  1,  5,  6, 14, 15, 27, 28,
     2,  4,  7, 13, 16, 26, 29, 42,
     3,  8, 12, 17, 25, 30, 41, 43,
     9, 11, 18, 24, 31, 40, 44, 53,
    10, 19, 23, 32, 39, 45, 52, 54,
    20, 22, 33, 38, 46, 51, 55, 60,
    21, 34, 37, 47, 50, 56, 59, 61,
    35, 36, 48, 49, 57, 58, 62, 63,
};
// clang-format on

// 32768 / q rounded to nearest, halves to even, from the 16.16 quotient
// Q = floor(2^31 / q): (Q + 32767 + 2 b) >> 16 with b the lowest bit of
// the integer part, so an odd integer part with a fraction of exactly
// 32767/65536 rounds up as well.  q = 0 gives 65535.
inline Vek16u reciprocal(uint32_t q) {
    if (q == 0) return 65535;
    const uint32_t quotient = 0x80000000u / q;
    const uint32_t oddInteger = (quotient >> 16) & 1;
    return static_cast<Vek16u>((quotient + 32767 + 2 * oddInteger) >> 16);
}

}  // namespace

// The scale is worked in 64 bits, so any int quality follows the rule
// literally: above 100 the scale is negative and every entry becomes 1.
VekStatus VEK_CALL vekiQuantFwdRawTableInit_JPEG_8u(Vek8u* pQuantRawTable, int quality) {
    if (const VekStatus status = jpeg::checkPointers(pQuantRawTable)) return status;
    if (quality < 1) return StatusBadArgument;
    const int64_t scale = quality < 50 ? 5000 / quality : 200 - 2 * int64_t(quality);
    for (int i = 0; i < 64; ++i) {
        const int64_t t = (pQuantRawTable[i] * scale + 50) / 100;
        pQuantRawTable[i] = static_cast<Vek8u>(t < 1 ? 1 : (t > 255 ? 255 : t));
    }
    return StatusOk;
}

VekStatus VEK_CALL vekiQuantFwdTableInit_JPEG_8u16u(const Vek8u* pQuantRawTable, Vek16u* pQuantFwdTable) {
    if (const VekStatus status = jpeg::checkPointers(pQuantRawTable, pQuantFwdTable)) return status;
    bool zeroDivisor = false;
    for (int i = 0; i < 64; ++i) {
        const Vek8u q = pQuantRawTable[kZigzagPosition[i]];
        zeroDivisor = zeroDivisor || q == 0;
        pQuantFwdTable[i] = reciprocal(q);
    }
    return zeroDivisor ? StatusDivisorZero : StatusOk;
}

VekStatus VEK_CALL vekiQuantInvTableInit_JPEG_8u16u(const Vek8u* pQuantRawTable, Vek16u* pQuantInvTable) {
    if (const VekStatus status = jpeg::checkPointers(pQuantRawTable, pQuantInvTable)) return status;
    for (int i = 0; i < 64; ++i) pQuantInvTable[i] = pQuantRawTable[kZigzagPosition[i]];
    return StatusOk;
}

}  // namespace vek::plain
