// Vector arithmetic kernels for the SSE levels, one template per algorithm.
//
// Included by each SIMD level's translation unit inside that level's
// namespace, after the intrinsics headers; everything here also has
// internal linkage (unnamed namespace), so each level gets its own copy
// built with its own instruction set and none can leak into another.  What
// the level may use is read from the compiler's own macros: __SSE2__
// enables the integer kernels, __SSE4_1__ the signed 32x32->64 multiply.
//
// Each kernel works one 128-bit vector a block through forEachBlock
// (core/simd_blocks.h), which takes the last, partial block through the
// stack.  The checks at the entry are the members' own (arith_exports.h).
//
// The scaled kernels reproduce the plain rule exactly:
//   r = (s + 2^(sf-1) - 1 + ((s >> sf) & 1)) >> sf, then saturate.
#ifndef VEK_SIGNAL_ARITH_SIMD_H
#define VEK_SIGNAL_ARITH_SIMD_H

#include "core/simd_blocks.h"
#include "core/simd_vocabulary.h"

namespace {

// ---- float members ----------------------------------------------------------

struct Add {
    static __m128 f(__m128 a, __m128 b) { return _mm_add_ps(a, b); }
#ifdef __SSE2__
    static __m128i i16(__m128i a, __m128i b) { return _mm_add_epi32(a, b); }
    static __m128i sat16(__m128i a, __m128i b) { return _mm_adds_epi16(a, b); }
#endif
};
struct Sub {  // src2 - src1
    static __m128 f(__m128 a, __m128 b) { return _mm_sub_ps(b, a); }
#ifdef __SSE2__
    static __m128i i16(__m128i a, __m128i b) { return _mm_sub_epi32(b, a); }
    static __m128i sat16(__m128i a, __m128i b) { return _mm_subs_epi16(b, a); }
#endif
};
struct SubC {  // src - value
    static __m128 f(__m128 a, __m128 v) { return _mm_sub_ps(a, v); }
#ifdef __SSE2__
    static __m128i i16(__m128i a, __m128i v) { return _mm_sub_epi32(a, v); }
    static __m128i sat16(__m128i a, __m128i v) { return _mm_subs_epi16(a, v); }
#endif
};
struct Mul {
    static __m128 f(__m128 a, __m128 b) { return _mm_mul_ps(a, b); }
};

template <class Op>
void float2(const Vek32f* a, const Vek32f* b, Vek32f* d, int len) {
    forEachBlock<4>(
        len, [](Vek32f* out, const Vek32f* x, const Vek32f* y) { store(out, Op::f(load128f(x), load128f(y))); }, d, a,
        b);
}

template <class Op>
void floatConst(const Vek32f* a, Vek32f v, Vek32f* d, int len) {
    const __m128 vv = broadcast128(v);
    forEachBlock<4>(
        len, [vv](Vek32f* out, const Vek32f* x) { store(out, Op::f(load128f(x), vv)); }, d, a);
}

#ifdef __SSE2__
// ---- shared integer helpers -----------------------------------------------

// Saturated value of the sign of x for 16- or 32-bit lanes: max for x >= 0,
// min for x < 0 (x is never 0 where this is used).
inline __m128i signSat16(__m128i x) { return _mm_xor_si128(_mm_srai_epi16(x, 15), _mm_set1_epi16(0x7FFF)); }
inline __m128i signSat32(__m128i x) { return _mm_xor_si128(_mm_srai_epi32(x, 31), _mm_set1_epi32(0x7FFFFFFF)); }

// sat(c * 2^k) for lanes c already saturated: shift, shift back, and keep
// the shifted value only where nothing was lost.  Shift counts of 16 (32)
// and more clear the lane, so they saturate every non-zero c as required.
inline __m128i shiftLeftSat16(__m128i c, __m128i k) {
    const __m128i shifted = _mm_sll_epi16(c, k);
    return select(_mm_cmpeq_epi16(_mm_sra_epi16(shifted, k), c), shifted, signSat16(c));
}
inline __m128i shiftLeftSat32(__m128i c, __m128i k) {
    const __m128i shifted = _mm_sll_epi32(c, k);
    return select(_mm_cmpeq_epi32(_mm_sra_epi32(shifted, k), c), shifted, signSat32(c));
}

// ---- 16-bit members -----------------------------------------------------------
// The exact result of 8 elements is formed in two vectors of 32-bit lanes.

struct Exact16 {
    __m128i lo, hi;
};
inline __m128i widenLo16(__m128i x) { return _mm_srai_epi32(_mm_unpacklo_epi16(x, x), 16); }
inline __m128i widenHi16(__m128i x) { return _mm_srai_epi32(_mm_unpackhi_epi16(x, x), 16); }

template <class Op>
struct Widen16 {
    static Exact16 exact(__m128i a, __m128i b) {
        return {Op::i16(widenLo16(a), widenLo16(b)), Op::i16(widenHi16(a), widenHi16(b))};
    }
    static __m128i unscaled(__m128i a, __m128i b) { return Op::sat16(a, b); }
};
template <>
struct Widen16<Mul> {
    static Exact16 exact(__m128i a, __m128i b) {
        const __m128i lo = _mm_mullo_epi16(a, b), hi = _mm_mulhi_epi16(a, b);
        return {_mm_unpacklo_epi16(lo, hi), _mm_unpackhi_epi16(lo, hi)};
    }
    static __m128i unscaled(__m128i a, __m128i b) {
        const Exact16 e = exact(a, b);
        return _mm_packs_epi32(e.lo, e.hi);
    }
};

// Ties-to-even shift right of 32-bit lanes by sf (1..16); the exact 16-bit
// results are below 2^31 in magnitude, so the sum cannot overflow.
inline __m128i roundShift32(__m128i s, __m128i sf, __m128i bias) {
    const __m128i odd = _mm_and_si128(_mm_sra_epi32(s, sf), _mm_set1_epi32(1));
    return _mm_sra_epi32(_mm_add_epi32(_mm_add_epi32(s, bias), odd), sf);
}

// Picks the kernel for the scale factor once and hands it to run(), which
// applies it to the vectors (from two arrays, or an array and a constant).
template <class Op, class Run>
void scaled16Kernel(int sf, Run run) {
    using W = Widen16<Op>;
    if (sf == 0) {
        run([](__m128i a, __m128i b) { return W::unscaled(a, b); });
    } else if (sf > 16) {
        run([](__m128i, __m128i) { return _mm_setzero_si128(); });
    } else if (sf > 0) {
        const __m128i count = _mm_cvtsi32_si128(sf), bias = _mm_set1_epi32((1 << (sf - 1)) - 1);
        run([=](__m128i a, __m128i b) {
            const Exact16 e = W::exact(a, b);
            return _mm_packs_epi32(roundShift32(e.lo, count, bias), roundShift32(e.hi, count, bias));
        });
    } else {
        const __m128i count = _mm_cvtsi32_si128(-sf);
        run([=](__m128i a, __m128i b) { return shiftLeftSat16(W::unscaled(a, b), count); });
    }
}

// ---- 32-bit sums and differences ------------------------------------------
// The exact 33-bit result s is carried as s = 2h + l, h in 32 bits and l
// the low bit, so every step stays in 32-bit lanes.

template <class Op>
struct Halves32;
template <>
struct Halves32<Add> {  // a + b
    static __m128i half(__m128i a, __m128i b) {
        const __m128i carry = _mm_and_si128(_mm_and_si128(a, b), _mm_set1_epi32(1));
        return _mm_add_epi32(_mm_add_epi32(_mm_srai_epi32(a, 1), _mm_srai_epi32(b, 1)), carry);
    }
    static __m128i saturated(__m128i a, __m128i b) {
        const __m128i r = _mm_add_epi32(a, b);
        const __m128i overflow = _mm_srai_epi32(_mm_andnot_si128(_mm_xor_si128(a, b), _mm_xor_si128(a, r)), 31);
        return select(overflow, signSat32(a), r);
    }
};
template <>
struct Halves32<SubC> {  // a - b
    static __m128i half(__m128i a, __m128i b) {
        const __m128i borrow = _mm_and_si128(_mm_andnot_si128(a, b), _mm_set1_epi32(1));
        return _mm_sub_epi32(_mm_sub_epi32(_mm_srai_epi32(a, 1), _mm_srai_epi32(b, 1)), borrow);
    }
    static __m128i saturated(__m128i a, __m128i b) {
        const __m128i r = _mm_sub_epi32(a, b);
        const __m128i overflow = _mm_srai_epi32(_mm_and_si128(_mm_xor_si128(a, b), _mm_xor_si128(a, r)), 31);
        return select(overflow, signSat32(a), r);
    }
};

// round(s / 2^sf) for s = 2h + l and sf in 1..32, from
//   q = h >> (sf-1), m = h mod 2^(sf-1), t = q & 1,
//   r = q + ((m + ((l + 2^(sf-1) - 1 + t) >> 1)) >> (sf-1)),
// where the last term is 0 or 1; q + 1 wraps only at sf = 1, h = 2^31-1,
// which saturates.
struct HalfRound {
    __m128i shift, low;  // sf - 1, and 2^(sf-1) - 1: both the mask of m and the bias
    explicit HalfRound(int sf)
        : shift(_mm_cvtsi32_si128(sf - 1)), low(_mm_set1_epi32(static_cast<int>((uint32_t(1) << (sf - 1)) - 1))) {}
    __m128i operator()(__m128i h, __m128i l) const {
        const __m128i one = _mm_set1_epi32(1);
        const __m128i q = _mm_sra_epi32(h, shift);
        const __m128i m = _mm_and_si128(h, low);
        const __m128i c = _mm_add_epi32(_mm_add_epi32(l, low), _mm_and_si128(q, one));
        const __m128i carry = _mm_srl_epi32(_mm_add_epi32(m, _mm_srli_epi32(c, 1)), shift);
        const __m128i r = _mm_add_epi32(q, carry);
        return _mm_add_epi32(r, _mm_cmpgt_epi32(q, r));  // INT32_MIN back to INT32_MAX
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
    static __m128i wrapped(__m128i a, __m128i b) { return _mm_add_epi32(a, b); }
    static __m128i combine(__m128i a, __m128i b) { return _mm_add_epi32(a, b); }
    static __m128i shiftLow(__m128i v, __m128i count) { return _mm_srl_epi32(v, count); }  // v >= 0
};
template <>
struct SplitRound<SubC> {
    static __m128i wrapped(__m128i a, __m128i b) { return _mm_sub_epi32(a, b); }
    static __m128i combine(__m128i a, __m128i b) { return _mm_sub_epi32(a, b); }
    static __m128i shiftLow(__m128i v, __m128i count) { return _mm_sra_epi32(v, count); }
};

template <class Op>
struct Operands32 {  // Sub is SubC with its operands swapped
    static __m128i first(__m128i a, __m128i) { return a; }
    static __m128i second(__m128i, __m128i b) { return b; }
};
template <>
struct Operands32<Sub> {
    static __m128i first(__m128i, __m128i b) { return b; }
    static __m128i second(__m128i a, __m128i) { return a; }
};

template <class Op, class Run>
void scaled32AddKernel(int sf, Run run) {
    using X = Operands32<Op>;
    using Base = std::conditional_t<std::is_same_v<Op, Add>, Add, SubC>;
    using H = Halves32<Base>;
    using S = SplitRound<Base>;
    if (sf == 0) {
        run([](__m128i a, __m128i b) { return H::saturated(X::first(a, b), X::second(a, b)); });
    } else if (sf > 32) {
        run([](__m128i, __m128i) { return _mm_setzero_si128(); });
    } else if (sf >= 2 && sf <= 30) {
        const __m128i count = _mm_cvtsi32_si128(sf), mask = _mm_set1_epi32((1 << sf) - 1);
        const __m128i bias = _mm_set1_epi32((1 << (sf - 1)) - 1), one = _mm_set1_epi32(1);
        run([=](__m128i a, __m128i b) {
            const __m128i x = X::first(a, b), y = X::second(a, b);
            const __m128i t = _mm_and_si128(_mm_srl_epi32(S::wrapped(x, y), count), one);
            const __m128i high = S::combine(_mm_sra_epi32(x, count), _mm_sra_epi32(y, count));
            const __m128i low = S::combine(_mm_and_si128(x, mask), _mm_and_si128(y, mask));
            return _mm_add_epi32(high, S::shiftLow(_mm_add_epi32(_mm_add_epi32(low, bias), t), count));
        });
    } else if (sf > 0) {  // 1, 31 and 32: through the halves, with saturation
        const HalfRound round(sf);
        run([=](__m128i a, __m128i b) {
            const __m128i x = X::first(a, b), y = X::second(a, b);
            const __m128i l = _mm_and_si128(_mm_xor_si128(x, y), _mm_set1_epi32(1));
            return round(H::half(x, y), l);
        });
    } else {
        const __m128i count = _mm_cvtsi32_si128(-sf);
        run([=](__m128i a, __m128i b) { return shiftLeftSat32(H::saturated(X::first(a, b), X::second(a, b)), count); });
    }
}

// ---- 32-bit products ----------------------------------------------------------
// The 64-bit products of the even and odd lanes, two per vector.

struct Products64 {
    __m128i even, odd;
};
inline Products64 products64(__m128i a, __m128i b) {
    const __m128i aOdd = _mm_srli_epi64(a, 32), bOdd = _mm_srli_epi64(b, 32);
#    ifdef __SSE4_1__
    return {_mm_mul_epi32(a, b), _mm_mul_epi32(aOdd, bOdd)};
#    else
    // Unsigned products, then the signed correction of the high halves:
    // hi(a*b) = hi(ua*ub) - (a < 0 ? b : 0) - (b < 0 ? a : 0).
    const __m128i fix = _mm_add_epi32(_mm_and_si128(_mm_srai_epi32(a, 31), b), _mm_and_si128(_mm_srai_epi32(b, 31), a));
    const __m128i hiMask = _mm_set_epi32(-1, 0, -1, 0);
    const __m128i even = _mm_sub_epi32(_mm_mul_epu32(a, b), _mm_slli_epi64(fix, 32));
    const __m128i odd = _mm_sub_epi32(_mm_mul_epu32(aOdd, bOdd), _mm_and_si128(fix, hiMask));
    return {even, odd};
#    endif
}

// Four results from the 64-bit lanes of the even and odd products.  The low
// dwords of y hold the results' low 32 bits; the high dwords of g hold the
// bits above them, sign-extended, so a result fits when they equal the sign
// of its low part.
inline __m128i saturateTo32(__m128i yEven, __m128i yOdd, __m128i gEven, __m128i gOdd) {
#    ifdef __SSE4_1__
    // Blends and shifts: no shuffle-port traffic.
    const __m128i lo = _mm_blend_epi16(yEven, _mm_slli_epi64(yOdd, 32), 0xCC);
    const __m128i hi = _mm_blend_epi16(_mm_srli_epi64(gEven, 32), gOdd, 0xCC);
    const __m128i fits = _mm_cmpeq_epi32(hi, _mm_srai_epi32(lo, 31));
    return select(fits, lo, signSat32(hi));
#    else
    // Gathered as elements 0, 2, 1, 3 and put back in order at the end.
    const __m128i lo = _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(yEven), _mm_castsi128_ps(yOdd), 0x88));
    const __m128i hi = _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(gEven), _mm_castsi128_ps(gOdd), 0xDD));
    const __m128i fits = _mm_cmpeq_epi32(hi, _mm_srai_epi32(lo, 31));
    return _mm_shuffle_epi32(select(fits, lo, signSat32(hi)), 0xD8);
#    endif
}
inline __m128i saturate64(__m128i even, __m128i odd) { return saturateTo32(even, odd, even, odd); }

// Ties-to-even shift of the 64-bit products by sf in 1..32, saturated to
// 32 bits.  |p| < 2^62, so adding the bias cannot overflow.  A logical
// shift gives the right low 32 bits (sf <= 32); the bits above them, for
// the saturation test, come from an arithmetic shift of the high dword.
struct RoundShift64 {
    __m128i count, countHigh, bias;
    explicit RoundShift64(int sf)
        : count(_mm_cvtsi32_si128(sf)),
          countHigh(_mm_cvtsi32_si128(sf - 1)),
          bias(_mm_set1_epi64x((int64_t(1) << (sf - 1)) - 1)) {}
    __m128i rounded(__m128i p) const {
        const __m128i odd = _mm_and_si128(_mm_srl_epi64(p, count), _mm_set_epi32(0, 1, 0, 1));
        return _mm_add_epi64(_mm_add_epi64(p, bias), odd);
    }
    __m128i operator()(const Products64& p) const {
        const __m128i even = rounded(p.even), odd = rounded(p.odd);
        return saturateTo32(_mm_srl_epi64(even, count), _mm_srl_epi64(odd, count), _mm_sra_epi32(even, countHigh),
                            _mm_sra_epi32(odd, countHigh));
    }
};

// Operands that all fit in 16 bits, as most codec samples held in 32-bit
// arrays do, have products exact in 32 bits (|p| <= 2^30): one pmaddwd of
// the operands' low halves (the high half of one of them cleared) replaces
// the two 64-bit multiplies, and no result of a positive scale needs
// saturating.
inline bool shortOperands(__m128i a, __m128i b) {
    const __m128i half = _mm_set1_epi32(0x8000);  // moves -32768..32767 to 0..65535
    const __m128i t = _mm_or_si128(_mm_add_epi32(a, half), _mm_add_epi32(b, half));
#    ifdef __SSE4_1__
    return _mm_testz_si128(t, _mm_set1_epi32(int(0xFFFF0000u)));
#    else
    return _mm_movemask_epi8(_mm_cmpeq_epi16(_mm_srli_epi32(t, 16), _mm_setzero_si128())) == 0xFFFF;
#    endif
}
inline __m128i shortProducts(__m128i a, __m128i b) {
    return _mm_madd_epi16(a, _mm_and_si128(b, _mm_set1_epi32(0xFFFF)));
}

// Ties-to-even shift by sf in 1..30 of 32-bit products |p| <= 2^30 (the
// sum with the bias stays below 2^31).
struct RoundShift32 {
    __m128i count, bias;
    explicit RoundShift32(int sf) : count(_mm_cvtsi32_si128(sf)), bias(_mm_set1_epi32((1 << (sf - 1)) - 1)) {}
    __m128i operator()(__m128i p) const {
        const __m128i odd = _mm_and_si128(_mm_srl_epi32(p, count), _mm_set1_epi32(1));
        return _mm_sra_epi32(_mm_add_epi32(_mm_add_epi32(p, bias), odd), count);
    }
};

template <class Run>
void scaled32MulKernel(int sf, Run run) {
    if (sf == 0) {
        run([](__m128i a, __m128i b) {
            if (shortOperands(a, b)) return shortProducts(a, b);
            const Products64 p = products64(a, b);
            return saturate64(p.even, p.odd);
        });
    } else if (sf > 32) {
        run([](__m128i, __m128i) { return _mm_setzero_si128(); });
    } else if (sf <= 30 && sf > 0) {
        const RoundShift64 round(sf);
        const RoundShift32 roundShort(sf);
        run([=](__m128i a, __m128i b) {
            return shortOperands(a, b) ? roundShort(shortProducts(a, b)) : round(products64(a, b));
        });
    } else if (sf > 0) {
        const RoundShift64 round(sf);
        run([=](__m128i a, __m128i b) { return round(products64(a, b)); });
    } else {
        const __m128i count = _mm_cvtsi32_si128(-sf);
        run([=](__m128i a, __m128i b) {
            if (shortOperands(a, b)) return shiftLeftSat32(shortProducts(a, b), count);
            const Products64 p = products64(a, b);
            return shiftLeftSat32(saturate64(p.even, p.odd), count);
        });
    }
}

// The members: pick the kernel for the element type and scale factor once,
// then run it over two arrays or an array and a constant.
template <class T, class Op, class Run>
void scaledKernel(int sf, Run run) {
    if constexpr (sizeof(T) == 2)
        scaled16Kernel<Op>(sf, run);
    else if constexpr (std::is_same_v<Op, Mul>)
        scaled32MulKernel(sf, run);
    else
        scaled32AddKernel<Op>(sf, run);
}

template <class T, class Op>
void scaled(const T* a, const T* b, T* d, int len, int sf) {
    scaledKernel<T, Op>(sf, [&](auto k) {
        forEachBlock<16 / sizeof(T)>(
            len, [k](T* out, const T* x, const T* y) { store(out, k(load128i(x), load128i(y))); }, d, a, b);
    });
}

template <class T, class Op>
void scaledConst(const T* a, T v, T* d, int len, int sf) {
    const __m128i vv = broadcast128(v);
    scaledKernel<T, Op>(sf, [&](auto k) {
        forEachBlock<16 / sizeof(T)>(
            len, [k, vv](T* out, const T* x) { store(out, k(load128i(x), vv)); }, d, a);
    });
}
#endif  // __SSE2__

}  // namespace

#endif
