// Vector arithmetic kernels for the SIMD levels, one template per algorithm,
// written on the lane words of core/simd_lanes.h so that each level runs
// them on its widest vector (128 bits up to SSE4.1, 256 with AVX2, 512
// with AVX-512).
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after the intrinsics headers; everything here also has
// internal linkage (unnamed namespace), so each level gets its own copy
// built with its own instruction set and none can leak into another.  What
// the level may use is read from the compiler's own macros: __SSE2__
// enables the integer kernels, __SSE4_1__ the signed 32x32->64 multiply.
//
// Each kernel works one vector a block through forEachBlock
// (core/simd_blocks.h), which takes the last, partial block through the
// stack.  The checks at the entry are the members' own (arith_exports.h).
//
// The scaled kernels reproduce the plain rule exactly:
//   r = (s + 2^(sf-1) - 1 + ((s >> sf) & 1)) >> sf, then saturate.
#ifndef VEK_SIGNAL_ARITH_SIMD_H
#define VEK_SIGNAL_ARITH_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"
#include "core/simd_lanes.h"

namespace {

// ---- float members ----------------------------------------------------------

struct Add {
    template <class F>
    static F f(F a, F b) {
        return addF(a, b);
    }
#ifdef __SSE2__
    template <class V>
    static V i16(V a, V b) {
        return add32(a, b);
    }
    template <class V>
    static V sat16(V a, V b) {
        return adds16(a, b);
    }
#endif
};
struct Sub {  // src2 - src1
    template <class F>
    static F f(F a, F b) {
        return subF(b, a);
    }
#ifdef __SSE2__
    template <class V>
    static V i16(V a, V b) {
        return sub32(b, a);
    }
    template <class V>
    static V sat16(V a, V b) {
        return subs16(b, a);
    }
#endif
};
struct SubC {  // src - value
    template <class F>
    static F f(F a, F v) {
        return subF(a, v);
    }
#ifdef __SSE2__
    template <class V>
    static V i16(V a, V v) {
        return sub32(a, v);
    }
    template <class V>
    static V sat16(V a, V v) {
        return subs16(a, v);
    }
#endif
};
struct Mul {
    template <class F>
    static F f(F a, F b) {
        return mulF(a, b);
    }
};

template <class Op>
void float2(const Vek32f* a, const Vek32f* b, Vek32f* d, int len) {
    forEachBlock<sizeof(WideF) / 4>(
        len,
        [](Vek32f* out, const Vek32f* x, const Vek32f* y) { store(out, Op::f(loadAs<WideF>(x), loadAs<WideF>(y))); }, d,
        a, b);
}

template <class Op>
void floatConst(const Vek32f* a, Vek32f v, Vek32f* d, int len) {
    const WideF vv = splat<WideF>(v);
    forEachBlock<sizeof(WideF) / 4>(
        len, [vv](Vek32f* out, const Vek32f* x) { store(out, Op::f(loadAs<WideF>(x), vv)); }, d, a);
}

#ifdef __SSE2__
// ---- shared integer helpers -----------------------------------------------

// Saturated value of the sign of x for 16- or 32-bit lanes: max for x >= 0,
// min for x < 0 (x is never 0 where this is used).
template <class V>
V signSat16(V x) {
    return xorBits(srai16(x, 15), splat<V>(Vek16s(0x7FFF)));
}
template <class V>
V signSat32(V x) {
    return xorBits(srai32(x, 31), splat<V>(Vek32s(0x7FFFFFFF)));
}

// sat(c * 2^k) for lanes c already saturated: shift, shift back, and keep
// the shifted value only where nothing was lost.  Shift counts of 16 (32)
// and more clear the lane, so they saturate every non-zero c as required.
template <class V>
V shiftLeftSat16(V c, __m128i k) {
    const V shifted = sll16(c, k);
    return select(cmpeq16(sra16(shifted, k), c), shifted, signSat16(c));
}
template <class V>
V shiftLeftSat32(V c, __m128i k) {
    const V shifted = sll32(c, k);
    return select(cmpeq32(sra32(shifted, k), c), shifted, signSat32(c));
}

// ---- 16-bit members -----------------------------------------------------------
// The exact result of a vector of elements is formed in two vectors of
// 32-bit lanes: the unpacks and the final pack both work inside 128-bit
// lanes, so the elements come back in order at every width.

template <class V>
struct Exact16 {
    V lo, hi;
};
template <class V>
V widenLo16(V x) {
    return srai32(unpacklo16(x, x), 16);
}
template <class V>
V widenHi16(V x) {
    return srai32(unpackhi16(x, x), 16);
}

template <class Op>
struct Widen16 {
    template <class V>
    static Exact16<V> exact(V a, V b) {
        return {Op::i16(widenLo16(a), widenLo16(b)), Op::i16(widenHi16(a), widenHi16(b))};
    }
    template <class V>
    static V unscaled(V a, V b) {
        return Op::sat16(a, b);
    }
};
template <>
struct Widen16<Mul> {
    template <class V>
    static Exact16<V> exact(V a, V b) {
        const V lo = mullo16(a, b), hi = mulhi16(a, b);
        return {unpacklo16(lo, hi), unpackhi16(lo, hi)};
    }
    template <class V>
    static V unscaled(V a, V b) {
        const Exact16<V> e = exact(a, b);
        return packs32(e.lo, e.hi);
    }
};

// Ties-to-even shift right of 32-bit lanes by sf (1..16); the exact 16-bit
// results are below 2^31 in magnitude, so the sum cannot overflow.
template <class V>
V roundShift32(V s, __m128i sf, V bias) {
    const V odd = andBits(sra32(s, sf), splat<V>(Vek32s(1)));
    return sra32(add32(add32(s, bias), odd), sf);
}

// Picks the kernel for the scale factor once and hands it to run(), which
// applies it to the vectors (from two arrays, or an array and a constant).
template <class V, class Op, class Run>
void scaled16Kernel(int sf, Run run) {
    using W = Widen16<Op>;
    if (sf == 0) {
        run([](V a, V b) { return W::unscaled(a, b); });
    } else if (sf > 16) {
        run([](V, V) { return zero<V>(); });
    } else if (sf > 0) {
        const __m128i count = _mm_cvtsi32_si128(sf);
        const V bias = splat<V>(Vek32s((1 << (sf - 1)) - 1));
        run([=](V a, V b) {
            const Exact16<V> e = W::exact(a, b);
            return packs32(roundShift32(e.lo, count, bias), roundShift32(e.hi, count, bias));
        });
    } else {
        const __m128i count = _mm_cvtsi32_si128(-sf);
        run([=](V a, V b) { return shiftLeftSat16(W::unscaled(a, b), count); });
    }
}

// ---- 32-bit sums and differences ------------------------------------------
// The exact 33-bit result s is carried as s = 2h + l, h in 32 bits and l
// the low bit, so every step stays in 32-bit lanes.

template <class Op>
struct Halves32;
template <>
struct Halves32<Add> {  // a + b
    template <class V>
    static V half(V a, V b) {
        const V carry = andBits(andBits(a, b), splat<V>(Vek32s(1)));
        return add32(add32(srai32(a, 1), srai32(b, 1)), carry);
    }
    template <class V>
    static V saturated(V a, V b) {
        const V r = add32(a, b);
        const V overflow = andNotBits(xorBits(a, b), xorBits(a, r));  // in the sign bit
        return select(cmpgt32(zero<V>(), overflow), signSat32(a), r);
    }
};
template <>
struct Halves32<SubC> {  // a - b
    template <class V>
    static V half(V a, V b) {
        const V borrow = andBits(andNotBits(a, b), splat<V>(Vek32s(1)));
        return sub32(sub32(srai32(a, 1), srai32(b, 1)), borrow);
    }
    template <class V>
    static V saturated(V a, V b) {
        const V r = sub32(a, b);
        const V overflow = andBits(xorBits(a, b), xorBits(a, r));  // in the sign bit
        return select(cmpgt32(zero<V>(), overflow), signSat32(a), r);
    }
};

// round(s / 2^sf) for s = 2h + l and sf in 1..32, from
//   q = h >> (sf-1), m = h mod 2^(sf-1), t = q & 1,
//   r = q + ((m + ((l + 2^(sf-1) - 1 + t) >> 1)) >> (sf-1)),
// where the last term is 0 or 1; q + 1 wraps only at sf = 1, h = 2^31-1,
// which saturates.
template <class V>
struct HalfRound {
    __m128i shift;  // sf - 1
    V low;          // 2^(sf-1) - 1: both the mask of m and the bias
    explicit HalfRound(int sf)
        : shift(_mm_cvtsi32_si128(sf - 1)), low(splat<V>(static_cast<Vek32u>((uint32_t(1) << (sf - 1)) - 1))) {}
    V operator()(V h, V l) const {
        const V one = splat<V>(Vek32s(1));
        const V q = sra32(h, shift);
        const V m = andBits(h, low);
        const V c = add32(add32(l, low), andBits(q, one));
        const V carry = srl32(add32(m, srli32(c, 1)), shift);
        const V r = add32(q, carry);
        return select(cmpgt32(q, r), sub32(r, one), r);  // INT32_MIN back to INT32_MAX
    }
};

// For 2 <= sf <= 30 the shift splits over the operands: with x = X 2^sf + x_lo,
//   r = (A +- B) + ((a_lo +- b_lo + 2^(sf-1) - 1 + t) >> sf),
// where t, bit sf of the exact result, is bit sf of the wrapped 32-bit
// result.  The low sum stays below 2^32 (sum) or 2^31 in magnitude
// (difference), and r needs no saturation.
template <class Op>
struct SplitRound;
template <>
struct SplitRound<Add> {
    template <class V>
    static V combine(V a, V b) {
        return add32(a, b);
    }
    template <class V>
    static V shiftLow(V v, __m128i count) {  // v >= 0
        return srl32(v, count);
    }
};
template <>
struct SplitRound<SubC> {
    template <class V>
    static V combine(V a, V b) {
        return sub32(a, b);
    }
    template <class V>
    static V shiftLow(V v, __m128i count) {
        return sra32(v, count);
    }
};

template <class Op>
struct Operands32 {  // Sub is SubC with its operands swapped
    template <class V>
    static V first(V a, V) {
        return a;
    }
    template <class V>
    static V second(V, V b) {
        return b;
    }
};
template <>
struct Operands32<Sub> {
    template <class V>
    static V first(V, V b) {
        return b;
    }
    template <class V>
    static V second(V a, V) {
        return a;
    }
};

template <class V, class Op, class Run>
void scaled32AddKernel(int sf, Run run) {
    using X = Operands32<Op>;
    using Base = std::conditional_t<std::is_same_v<Op, Add>, Add, SubC>;
    using H = Halves32<Base>;
    using S = SplitRound<Base>;
    if (sf == 0) {
        run([](V a, V b) { return H::saturated(X::first(a, b), X::second(a, b)); });
    } else if (sf > 32) {
        run([](V, V) { return zero<V>(); });
    } else if (sf >= 2 && sf <= 30) {
        const __m128i count = _mm_cvtsi32_si128(sf);
        const V mask = splat<V>(Vek32s((1 << sf) - 1));
        const V bias = splat<V>(Vek32s((1 << (sf - 1)) - 1)), one = splat<V>(Vek32s(1));
        run([=](V a, V b) {
            const V x = X::first(a, b), y = X::second(a, b);
            const V t = andBits(srl32(S::combine(x, y), count), one);
            const V high = S::combine(sra32(x, count), sra32(y, count));
            const V low = S::combine(andBits(x, mask), andBits(y, mask));
            return add32(high, S::shiftLow(add32(add32(low, bias), t), count));
        });
    } else if (sf > 0) {  // 1, 31 and 32: through the halves, with saturation
        const HalfRound<V> round(sf);
        run([=](V a, V b) {
            const V x = X::first(a, b), y = X::second(a, b);
            const V l = andBits(xorBits(x, y), splat<V>(Vek32s(1)));
            return round(H::half(x, y), l);
        });
    } else {
        const __m128i count = _mm_cvtsi32_si128(-sf);
        run([=](V a, V b) { return shiftLeftSat32(H::saturated(X::first(a, b), X::second(a, b)), count); });
    }
}

// ---- 32-bit products ----------------------------------------------------------
// The 64-bit products of the even and odd lanes, one per 64-bit lane.

template <class V>
struct Products64 {
    V even, odd;
};
template <class V>
Products64<V> products64(V a, V b) {
    const V aOdd = srli64(a, 32), bOdd = srli64(b, 32);
#    ifdef __SSE4_1__
    return {mulEven32s(a, b), mulEven32s(aOdd, bOdd)};
#    else
    // Unsigned products, then the signed correction of the high halves:
    // hi(a*b) = hi(ua*ub) - (a < 0 ? b : 0) - (b < 0 ? a : 0).
    const V fix = add32(andBits(srai32(a, 31), b), andBits(srai32(b, 31), a));
    const V hiMask = _mm_set_epi32(-1, 0, -1, 0);
    const V even = sub32(mulEven32u(a, b), slli64(fix, 32));
    const V odd = sub32(mulEven32u(aOdd, bOdd), andBits(fix, hiMask));
    return {even, odd};
#    endif
}

// The results from the 64-bit lanes of the even and odd products.  The low
// dwords of y hold the results' low 32 bits; the high dwords of g hold the
// bits above them, sign-extended, so a result fits when they equal the sign
// of its low part.
template <class V>
V saturateTo32(V yEven, V yOdd, V gEven, V gOdd) {
#    ifdef __SSE4_1__
    // Blends and shifts: no shuffle-port traffic.
    const V lo = blendOdd32(yEven, slli64(yOdd, 32));
    const V hi = blendOdd32(srli64(gEven, 32), gOdd);
    const auto fits = cmpeq32(hi, srai32(lo, 31));
    return select(fits, lo, signSat32(hi));
#    else
    // Gathered as elements 0, 2, 1, 3 and put back in order at the end.
    const V lo = _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(yEven), _mm_castsi128_ps(yOdd), 0x88));
    const V hi = _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(gEven), _mm_castsi128_ps(gOdd), 0xDD));
    const V fits = cmpeq32(hi, srai32(lo, 31));
    return _mm_shuffle_epi32(select(fits, lo, signSat32(hi)), 0xD8);
#    endif
}
template <class V>
V saturate64(V even, V odd) {
    return saturateTo32(even, odd, even, odd);
}

// Ties-to-even shift of the 64-bit products by sf in 1..32, saturated to
// 32 bits.  |p| < 2^62, so adding the bias cannot overflow.  A logical
// shift gives the right low 32 bits (sf <= 32); the bits above them, for
// the saturation test, come from an arithmetic shift of the high dword.
template <class V>
struct RoundShift64 {
    __m128i count, countHigh;
    V bias;
    explicit RoundShift64(int sf)
        : count(_mm_cvtsi32_si128(sf)),
          countHigh(_mm_cvtsi32_si128(sf - 1)),
          bias(splat64<V>((int64_t(1) << (sf - 1)) - 1)) {}
    V rounded(V p) const {
        const V odd = andBits(srl64(p, count), splat64<V>(1));
        return add64(add64(p, bias), odd);
    }
    V operator()(const Products64<V>& p) const {
        const V even = rounded(p.even), odd = rounded(p.odd);
        return saturateTo32(srl64(even, count), srl64(odd, count), sra32(even, countHigh), sra32(odd, countHigh));
    }
};

// Operands that all fit in 16 bits, as most codec samples held in 32-bit
// arrays do, have products exact in 32 bits (|p| <= 2^30): one pmaddwd of
// the operands' low halves (the high half of one of them cleared) replaces
// the two 64-bit multiplies, and no result of a positive scale needs
// saturating.
template <class V>
bool shortOperands(V a, V b) {
    const V half = splat<V>(Vek32s(0x8000));  // moves -32768..32767 to 0..65535
    const V t = orBits(add32(a, half), add32(b, half));
    return testAllZero(t, splat<V>(Vek32u(0xFFFF0000u)));
}
template <class V>
V shortProducts(V a, V b) {
    return madd16(a, andBits(b, splat<V>(Vek32s(0xFFFF))));
}

// Ties-to-even shift by sf in 1..30 of 32-bit products |p| <= 2^30 (the
// sum with the bias stays below 2^31).
template <class V>
struct RoundShift32 {
    __m128i count;
    V bias;
    explicit RoundShift32(int sf) : count(_mm_cvtsi32_si128(sf)), bias(splat<V>(Vek32s((1 << (sf - 1)) - 1))) {}
    V operator()(V p) const {
        const V odd = andBits(srl32(p, count), splat<V>(Vek32s(1)));
        return sra32(add32(add32(p, bias), odd), count);
    }
};

template <class V, class Run>
void scaled32MulKernel(int sf, Run run) {
    if (sf == 0) {
        run([](V a, V b) {
            if (shortOperands(a, b)) return shortProducts(a, b);
            const Products64<V> p = products64(a, b);
            return saturate64(p.even, p.odd);
        });
    } else if (sf > 32) {
        run([](V, V) { return zero<V>(); });
    } else if (sf <= 30 && sf > 0) {
        const RoundShift64<V> round(sf);
        const RoundShift32<V> roundShort(sf);
        run([=](V a, V b) { return shortOperands(a, b) ? roundShort(shortProducts(a, b)) : round(products64(a, b)); });
    } else if (sf > 0) {
        const RoundShift64<V> round(sf);
        run([=](V a, V b) { return round(products64(a, b)); });
    } else {
        const __m128i count = _mm_cvtsi32_si128(-sf);
        run([=](V a, V b) {
            if (shortOperands(a, b)) return shiftLeftSat32(shortProducts(a, b), count);
            const Products64<V> p = products64(a, b);
            return shiftLeftSat32(saturate64(p.even, p.odd), count);
        });
    }
}

// The members: pick the kernel for the element type and scale factor once,
// then run it over two arrays or an array and a constant.
template <class T, class Op, class Run>
void scaledKernel(int sf, Run run) {
    if constexpr (sizeof(T) == 2)
        scaled16Kernel<WideI, Op>(sf, run);
    else if constexpr (std::is_same_v<Op, Mul>)
        scaled32MulKernel<WideI>(sf, run);
    else
        scaled32AddKernel<WideI, Op>(sf, run);
}

template <class T, class Op>
void scaled(const T* a, const T* b, T* d, int len, int sf) {
    scaledKernel<T, Op>(sf, [&](auto k) {
        forEachBlock<sizeof(WideI) / sizeof(T)>(
            len, [k](T* out, const T* x, const T* y) { store(out, k(loadAs<WideI>(x), loadAs<WideI>(y))); }, d, a, b);
    });
}

template <class T, class Op>
void scaledConst(const T* a, T v, T* d, int len, int sf) {
    const WideI vv = splat<WideI>(v);
    scaledKernel<T, Op>(sf, [&](auto k) {
        forEachBlock<sizeof(WideI) / sizeof(T)>(
            len, [k, vv](T* out, const T* x) { store(out, k(loadAs<WideI>(x), vv)); }, d, a);
    });
}
#endif  // __SSE2__

}  // namespace

#endif
