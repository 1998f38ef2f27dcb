// Vector shifts, conversions, copy and thresholds: the plain reference.
//
// Every other level is compared with this code bit for bit.  The scaled
// conversions form the exact value of each element in double precision
// (every value they meet is a 24- or 31-bit integer times a power of two
// that double holds exactly), then round it once: to float by the
// conversion, to an integer by an explicit ties-to-even step.  On 32-bit
// x86 this code runs on the x87 unit, whose wider registers change nothing
// here since every intermediate is exact.
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::plain {
namespace {

template <class T>
void shiftLeftKernel(const T* src, T* dst, int len, int shift) {
    using U = std::make_unsigned_t<T>;
    for (int i = 0; i < len; ++i) dst[i] = static_cast<T>(static_cast<U>(static_cast<U>(src[i]) << shift));
}

template <class T>
void shiftRightKernel(const T* src, T* dst, int len, int shift) {
    for (int i = 0; i < len; ++i) dst[i] = static_cast<T>(src[i] >> shift);
}

void widenKernel(const Vek16s* src, Vek32s* dst, int len) {
    for (int i = 0; i < len; ++i) dst[i] = src[i];
}

void narrowKernel(const Vek32s* src, Vek16s* dst, int len) {
    for (int i = 0; i < len; ++i) {
        const Vek32s v = src[i];
        dst[i] = static_cast<Vek16s>(v > 32767 ? 32767 : (v < -32768 ? -32768 : v));
    }
}

// Beyond +-200 the scale factor changes no result: |x| < 2^31 times 2^-200
// is below the smallest float, and any non-zero float times 2^200 is
// beyond the range of both float and int32.  Within it, 2^-sf and every
// product below are exact in double.
constexpr int kScaleLimit = 200;
double powerOfTwo(int scaleFactor) {
    const int sf = scaleFactor < -kScaleLimit ? -kScaleLimit : (scaleFactor > kScaleLimit ? kScaleLimit : scaleFactor);
    // Built from its exponent bits (always a normal double here), which
    // keeps the library free of the maths library.
    const uint64_t bits = uint64_t(1023 - sf) << 52;
    double p;
    memcpy(&p, &bits, sizeof p);
    return p;
}

void toFloatKernel(const Vek32s* src, Vek32f* dst, int len, int scaleFactor) {
    const double scale = powerOfTwo(scaleFactor);
    for (int i = 0; i < len; ++i) dst[i] = static_cast<Vek32f>(static_cast<double>(src[i]) * scale);
}

// x rounded to the nearest integer, ties to even, saturated; NaN gives 0.
// Truncation and the fraction it leaves are exact, so the result does not
// depend on the rounding mode.
Vek32s roundToInt32(double x) {
    if (x != x) return 0;
    if (x >= 2147483647.5) return INT32_MAX;
    if (x <= -2147483648.5) return INT32_MIN;  // also a tie that goes to the even INT32_MIN
    const Vek32s t = static_cast<Vek32s>(x);   // toward zero
    const double fraction = x - t;
    if (fraction > 0.5 || (fraction == 0.5 && (t & 1))) return t + 1;
    if (fraction < -0.5 || (fraction == -0.5 && (t & 1))) return t - 1;
    return t;
}

void toIntKernel(const Vek32f* src, Vek32s* dst, int len, int scaleFactor) {
    const double scale = powerOfTwo(scaleFactor);
    for (int i = 0; i < len; ++i) dst[i] = roundToInt32(static_cast<double>(src[i]) * scale);
}

struct Above {
    static bool beyond(Vek32s v, Vek32s level) { return v > level; }
};
struct Below {
    static bool beyond(Vek32s v, Vek32s level) { return v < level; }
};
template <class Side>
void thresholdKernel(Vek32s* srcDst, int len, Vek32s level) {
    for (int i = 0; i < len; ++i)
        if (Side::beyond(srcDst[i], level)) srcDst[i] = level;
}

#include "signal/vector_exports.h"
}  // namespace

VEK_VECTOR_SHIFT_MEMBERS
VEK_VECTOR_INT_CONVERT_MEMBERS
VEK_VECTOR_TO_FLOAT_MEMBER
VEK_VECTOR_TO_INT_MEMBER
VEK_VECTOR_COPY_MEMBERS
VEK_VECTOR_THRESHOLD_MEMBERS

}  // namespace vek::plain
