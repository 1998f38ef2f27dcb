// The accurate integer inverse DCT of the libjpeg decoders, the plain
// reference: Loeffler-Ligtenberg-Moschytz with 13-bit constants and 2 extra
// bits between the passes, so that a decoder built on it gives libjpeg's
// (and libjpeg-turbo's) samples bit for bit.  Every other level must match
// these results on every input.
//
// Widths: the dequantised coefficients and each pass's results are 16 bits,
// saturated; between them every product and sum is exact in 32 bits (no
// value of the flow below, in any order, reaches 2^31 from 16-bit inputs:
// the largest, pass 2's y1 and y6 with the rounding term, stay below
// 2^15 * 61240).  On the coefficients a real image gives nothing saturates,
// and libjpeg's scalar code (32-bit sums) and vector code (16-bit sums of
// inputs) give these results.
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
// them.  The factors are round(c * 2^13).
template <int Shift>
void inverseLlm8(int32_t* x, int stride) {
    const int32_t in0 = x[0], in1 = x[stride], in2 = x[2 * stride], in3 = x[3 * stride];
    const int32_t in4 = x[4 * stride], in5 = x[5 * stride], in6 = x[6 * stride], in7 = x[7 * stride];
    // Even part: (in2, in6) rotated, in0 +- in4 scaled up by 2^13.
    const int32_t z1 = (in2 + in6) * 4433;    // 0.541196100
    const int32_t even2 = z1 + in6 * -15137;  // -1.847759065
    const int32_t even3 = z1 + in2 * 6270;    // 0.765366865
    const int32_t round = 1 << (Shift - 1);
    const int32_t even0 = (in0 + in4) * 8192 + round, even1 = (in0 - in4) * 8192 + round;
    const int32_t tmp10 = even0 + even3, tmp13 = even0 - even3;
    const int32_t tmp11 = even1 + even2, tmp12 = even1 - even2;
    // Odd part: in7, in5, in3, in1 through the four-way butterfly.
    const int32_t z5 = (in7 + in3 + in5 + in1) * 9633;  // 1.175875602
    const int32_t s1 = (in7 + in1) * -7373;             // -0.899976223
    const int32_t s2 = (in5 + in3) * -20995;            // -2.562915447
    const int32_t s3 = (in7 + in3) * -16069 + z5;       // -1.961570560
    const int32_t s4 = (in5 + in1) * -3196 + z5;        // -0.390180644
    const int32_t odd0 = in7 * 2446 + (s1 + s3);        // 0.298631336
    const int32_t odd1 = in5 * 16819 + (s2 + s4);       // 2.053119869
    const int32_t odd2 = in3 * 25172 + (s2 + s3);       // 3.072711026
    const int32_t odd3 = in1 * 12299 + (s1 + s4);       // 1.501321110
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
