// Vector arithmetic with integer scaling: the plain reference.
//
// Every other level is compared with this code bit for bit.  The exact
// result of each element is formed in a type wide enough to hold it (32
// bits for 16-bit data, 64 bits for 32-bit data), then scaled by
// 2^-scaleFactor with rounding to nearest, ties to even, and saturated.
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"

namespace vek::plain {
namespace {

inline int32_t clampTo(int64_t v, int64_t lo, int64_t hi) {
    return static_cast<int32_t>(v < lo ? lo : (v > hi ? hi : v));
}

// Exact result s (|s| < 2^62 + 2^32) scaled and saturated to [lo, hi].
// maxScale is 16 for 16-bit results and 32 for 32-bit results.
inline int32_t scaleExact(int64_t s, int scaleFactor, int64_t lo, int64_t hi, int maxScale) {
    if (scaleFactor == 0) return clampTo(s, lo, hi);
    if (scaleFactor > 0) {
        if (scaleFactor > maxScale) return 0;
        // Ties to even: add half minus one, plus one more when the kept
        // part is odd, then shift (arithmetically) away the fraction.
        const int64_t half = (int64_t(1) << (scaleFactor - 1)) - 1;
        return clampTo((s + half + ((s >> scaleFactor) & 1)) >> scaleFactor, lo, hi);
    }
    // Negative scale: multiply by 2^k.  A value already outside the range
    // saturates whatever k is; a value inside it cannot overflow 64 bits.
    const int k = -scaleFactor;
    const int32_t c = clampTo(s, lo, hi);
    if (c == 0) return 0;
    if (k >= maxScale) return c > 0 ? static_cast<int32_t>(hi) : static_cast<int32_t>(lo);
    return clampTo(static_cast<int64_t>(c) * (int64_t(1) << k), lo, hi);
}

inline Vek16s scale16(int32_t s, int sf) { return static_cast<Vek16s>(scaleExact(s, sf, -32768, 32767, 16)); }
inline Vek32s scale32(int64_t s, int sf) { return scaleExact(s, sf, INT32_MIN, INT32_MAX, 32); }

// The element operations.  Sub takes (src1, src2) and gives src2 - src1.
struct Add {
    template <class W>
    static W op(W a, W b) {
        return a + b;
    }
};
struct Sub {
    template <class W>
    static W op(W a, W b) {
        return b - a;
    }
};
struct Mul {
    template <class W>
    static W op(W a, W b) {
        return a * b;
    }
};

// The exact result of an element: 32 bits hold it for 16-bit data, 64 bits
// for 32-bit data (the full product included).
template <class T>
using Exact = std::conditional_t<sizeof(T) == 2, int32_t, int64_t>;

template <class T>
T scaleTo(Exact<T> s, int sf) {
    if constexpr (sizeof(T) == 2)
        return scale16(s, sf);
    else
        return scale32(s, sf);
}

template <class T, class Op>
void scaled(const T* a, const T* b, T* d, int len, int sf) {
    for (int i = 0; i < len; ++i) d[i] = scaleTo<T>(Op::op(Exact<T>(a[i]), Exact<T>(b[i])), sf);
}

template <class T, class Op>
void scaledConst(const T* a, T v, T* d, int len, int sf) {
    for (int i = 0; i < len; ++i) d[i] = scaleTo<T>(Op::op(Exact<T>(a[i]), Exact<T>(v)), sf);
}

template <class Op>
void float2(const Vek32f* a, const Vek32f* b, Vek32f* d, int len) {
    for (int i = 0; i < len; ++i) d[i] = Op::op(a[i], b[i]);
}

template <class Op>
void floatConst(const Vek32f* a, Vek32f v, Vek32f* d, int len) {
    for (int i = 0; i < len; ++i) d[i] = Op::op(a[i], v);
}

// SubC computes src - value, the reverse of Sub's operand order.
struct SubC {
    template <class W>
    static W op(W a, W v) {
        return a - v;
    }
};

#include "signal/arith_exports.h"
}  // namespace

VEK_ARITH_16S_MEMBERS
VEK_ARITH_32S_ADD_MEMBERS
VEK_ARITH_32S_MUL_MEMBERS
VEK_ARITH_FLOAT_MEMBERS

}  // namespace vek::plain
