// The accurate integer inverse DCT of the libjpeg decoders, the plain
// reference: Loeffler-Ligtenberg-Moschytz with 13-bit constants and 2 extra
// bits between the passes, so that a decoder built on it gives libjpeg's
// (and libjpeg-turbo's) samples bit for bit.  Every other level must match
// these results on every input.
//
// Widths: the dequantised coefficients, the sums of two 16-bit values that
// feed a product (in0 +- in4, in7 + in3, in5 + in1) and pass 1's outputs
// are 16 bits, saturated; the products and the sums after them are exact in
// 32 bits (the largest, |tmp11 + tmp2| with the rounding term, stays below
// 2^15 * 64600 < 2^31).  libjpeg's vector decoders keep the same 16-bit
// values; on coefficients a real image gives, nothing saturates.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/dct_checks.h"
#include "jpeg/dct_exports.h"

namespace vek::plain {
namespace {

inline int32_t saturate16(int32_t v) { return v < -32768 ? -32768 : (v > 32767 ? 32767 : v); }

// One 1-D inverse over eight 16-bit values x[0], x[stride], ...; the results,
// descaled by Shift bits with rounding and saturated to 16 bits, replace
// them.  The rotations are written with their factors merged in pairs
// (round(c * 2^13) each), as the vector levels multiply pairs of 16-bit
// values: the integers are those of the textbook flow.
template <int Shift>
void inverseLlm8(int32_t* x, int stride) {
    const int32_t in0 = x[0], in1 = x[stride], in2 = x[2 * stride], in3 = x[3 * stride];
    const int32_t in4 = x[4 * stride], in5 = x[5 * stride], in6 = x[6 * stride], in7 = x[7 * stride];
    // Even part: the rotation of (in2, in6) by 0.541196100, -1.847759065 and
    // 0.765366865, the DC and in4 scaled up by 2^13.
    const int32_t even3 = in2 * 10703 + in6 * 4433;   // 0.541 + 0.765, 0.541
    const int32_t even2 = in2 * 4433 + in6 * -10704;  // 0.541, 0.541 - 1.848
    const int32_t round = 1 << (Shift - 1);
    const int32_t even0 = saturate16(in0 + in4) * 8192 + round;
    const int32_t even1 = saturate16(in0 - in4) * 8192 + round;
    const int32_t tmp10 = even0 + even3, tmp13 = even0 - even3;
    const int32_t tmp11 = even1 + even2, tmp12 = even1 - even2;
    // Odd part: z3 = in7 + in3 and z4 = in5 + in1 rotated together by
    // 1.175875602 less 1.961570560 and 0.390180644, then the pairs (in7, in1)
    // and (in5, in3).
    const int32_t z3 = saturate16(in7 + in3), z4 = saturate16(in5 + in1);
    const int32_t r3 = z3 * -6436 + z4 * 9633;             // 1.176 - 1.962, 1.176
    const int32_t r4 = z3 * 9633 + z4 * 6437;              // 1.176, 1.176 - 0.390
    const int32_t odd0 = in7 * -4927 + in1 * -7373 + r3;   // 0.299 - 0.900, -0.900
    const int32_t odd3 = in7 * -7373 + in1 * 4926 + r4;    // -0.900, 1.501 - 0.900
    const int32_t odd1 = in5 * -4176 + in3 * -20995 + r4;  // 2.053 - 2.563, -2.563
    const int32_t odd2 = in5 * -20995 + in3 * 4177 + r3;   // -2.563, 3.073 - 2.563
    x[0] = saturate16((tmp10 + odd3) >> Shift);
    x[7 * stride] = saturate16((tmp10 - odd3) >> Shift);
    x[stride] = saturate16((tmp11 + odd2) >> Shift);
    x[6 * stride] = saturate16((tmp11 - odd2) >> Shift);
    x[2 * stride] = saturate16((tmp12 + odd1) >> Shift);
    x[5 * stride] = saturate16((tmp12 - odd1) >> Shift);
    x[3 * stride] = saturate16((tmp13 + odd0) >> Shift);
    x[4 * stride] = saturate16((tmp13 - odd0) >> Shift);
}

// Dequantise (saturated), pass 1 down the columns (13 - 2 bits off), pass 2
// along the rows (13 + 2 + 3 bits off), then clamp to -128..127 and add 128.
void inverseLlmBlock(const Vek16s* coef, const Vek16u* table, Vek8u* dst, int dstStep) {
    int32_t block[64];
    for (int i = 0; i < 64; ++i) block[i] = saturate16(coef[i] * static_cast<Vek16s>(table[i]));
    for (int c = 0; c < 8; ++c) inverseLlm8<11>(block + c, 8);
    for (int r = 0; r < 8; ++r) {
        int32_t* x = block + 8 * r;
        inverseLlm8<18>(x, 1);
        Vek8u* row = jpeg::blockRow(dst, dstStep, r);
        for (int k = 0; k < 8; ++k) row[k] = static_cast<Vek8u>((x[k] < -128 ? -128 : (x[k] > 127 ? 127 : x[k])) + 128);
    }
}

}  // namespace

VEK_JPEG_IDCT_LLM_MEMBERS

}  // namespace vek::plain
