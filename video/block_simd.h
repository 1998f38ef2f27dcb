// Rows of small blocks in vectors, and the half-sample predictions on
// them, for the SIMD levels of the video families.
//
// A block of W-byte rows is worked a group of rows at a time: as many rows
// as fill a vector of VW bytes (16, 32 or 64), packed one after the other,
// so a 4x4 block is one 16-byte vector and a 16x16 block four 64-byte
// ones.  Rows are read and written with loads and stores of exactly their
// width (2, 4, 8 or 16 bytes and whole multiples of 16), so nothing past a
// block's last needed byte is touched.  Rows of 16-bit samples are rows of
// 2W bytes and go through the same gathers.
//
// The predictions are exact in bytes: pavgb gives (a + b + 1) >> 1, and
//   half, rounding control rc:  pavgb(a, b) - ((a ^ b) & rc)
//   four samples:               w = pavgb(pavgb(a, b), pavgb(c, d)) less 1 where
//       rc = 0: ((a ^ b) | (c ^ d)) & (u ^ v) & 1, rc = 1: ((u ^ v) | ((a ^ b) & (c ^ d))) & 1
// with u = pavgb(a, b), v = pavgb(c, d): pavgb(u, v) rounds up twice, and
// these bits say when the exact (a + b + c + d + 2 - rc) >> 2 is one less.
//
// Every helper is forced inline (gnu::always_inline): a kernel is fast
// only as one function, and with hundreds of kernels using each helper
// GCC's own limits would leave them called out of line.
//
// Included inside a level's namespace after <immintrin.h>, <string.h> and
// core/simd_vocabulary.h; internal linkage.  The level sets kMaxVector to
// the widest vector it may use.
#ifndef VEK_VIDEO_BLOCK_SIMD_H
#define VEK_VIDEO_BLOCK_SIMD_H

namespace {

constexpr int minOf(int a, int b) { return a < b ? a : b; }
constexpr int maxOf(int a, int b) { return a > b ? a : b; }

// ---- rows of fewer than 16 bytes in one 16-byte vector -------------------------

template <int R>
[[gnu::always_inline]] inline __m128i loadRow(const Vek8u* p) {
    if constexpr (R == 2) {
        uint16_t v;
        memcpy(&v, p, 2);
        return _mm_cvtsi32_si128(v);
    } else if constexpr (R == 4) {
        int32_t v;
        memcpy(&v, p, 4);
        return _mm_cvtsi32_si128(v);
    } else {
        return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
    }
}
template <int R>
[[gnu::always_inline]] inline void storeRow(Vek8u* p, __m128i v) {
    if constexpr (R == 2) {
        const uint16_t x = static_cast<uint16_t>(_mm_cvtsi128_si32(v));
        memcpy(p, &x, 2);
    } else if constexpr (R == 4) {
        const int32_t x = _mm_cvtsi128_si32(v);
        memcpy(p, &x, 4);
    } else {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v);
    }
}

// Whether a row of R bytes goes in or out of a vector in one instruction
// (pinsrw, pextrw and pinsrd, pextrd need SSE4.1 but pinsrw).
template <int R>
constexpr bool insertsRow() {
#if defined(__SSE4_1__)
    return R == 2 || R == 4;
#else
    return R == 2;
#endif
}
template <int R>
constexpr bool extractsRow() {
#if defined(__SSE4_1__)
    return R == 2 || R == 4;
#else
    return false;
#endif
}

// v with row Row of R bytes read from p.
template <int R, int Row>
[[gnu::always_inline]] inline __m128i insertRow(__m128i v, const Vek8u* p) {
    if constexpr (R == 2) {
        uint16_t x;
        memcpy(&x, p, 2);
        return _mm_insert_epi16(v, x, Row);
    } else {
        int32_t x;
        memcpy(&x, p, 4);
        return _mm_insert_epi32(v, x, Row);
    }
}
// Row Row of R bytes of v written to p.
template <int R, int Row>
[[gnu::always_inline]] inline void extractRow(Vek8u* p, __m128i v) {
    if constexpr (R == 2) {
        const uint16_t x = static_cast<uint16_t>(_mm_extract_epi16(v, Row));
        memcpy(p, &x, 2);
    } else {
        const int32_t x = _mm_extract_epi32(v, Row);
        memcpy(p, &x, 4);
    }
}

// Rows of R bytes, packed from byte 0; the rest is zero.  One instruction
// a row where the row can be inserted (or is the high half, movhps), else
// a tree of unpacks.
template <int R, int Rows>
[[gnu::always_inline]] inline __m128i loadRows(const Vek8u* p, ptrdiff_t step) {
    if constexpr (Rows == 1) {
        return loadRow<R>(p);
    } else if constexpr (insertsRow<R>()) {
        return insertRow<R, Rows - 1>(loadRows<R, Rows - 1>(p, step), p + (Rows - 1) * step);
    } else if constexpr (R == 8) {
        return _mm_castpd_si128(
            _mm_loadh_pd(_mm_castsi128_pd(loadRow<8>(p)), reinterpret_cast<const double*>(p + step)));
    } else {
        constexpr int half = Rows / 2, bytes = half * R;
        const __m128i lo = loadRows<R, half>(p, step), hi = loadRows<R, half>(p + half * step, step);
        if constexpr (bytes == 2) return _mm_unpacklo_epi16(lo, hi);
        if constexpr (bytes == 4) return _mm_unpacklo_epi32(lo, hi);
        if constexpr (bytes == 8) return _mm_unpacklo_epi64(lo, hi);
    }
}
template <int R, int Rows>
[[gnu::always_inline]] inline void storeRows(Vek8u* p, ptrdiff_t step, __m128i v) {
    if constexpr (Rows == 1) {
        storeRow<R>(p, v);
    } else if constexpr (extractsRow<R>()) {
        storeRows<R, Rows - 1>(p, step, v);
        extractRow<R, Rows - 1>(p + (Rows - 1) * step, v);
    } else if constexpr (R == 8) {
        storeRow<8>(p, v);
        // movhps; the builtin behind _mm_storeh_pi stores to any address.
        _mm_storeh_pi(reinterpret_cast<__m64*>(p + step), _mm_castsi128_ps(v));
    } else {
        constexpr int half = Rows / 2;
        storeRows<R, half>(p, step, v);
        storeRows<R, half>(p + half * step, step, _mm_srli_si128(v, half * R));
    }
}

// ---- a stream of rows in vectors --------------------------------------------------
// The rows of R bytes, row i at base + i * step, read as one stream of
// bytes; Start and Count (compile-time) select the stream bytes a vector
// holds, Start a multiple of 16 and of R or R a multiple of 16.

template <int R, int Start, int Count>
[[gnu::always_inline]] inline __m128i piece128(const Vek8u* base, ptrdiff_t step) {
    if constexpr (R >= 16)
        return load128i(base + (Start / R) * step + Start % R);
    else
        return loadRows<R, Count / R>(base + (Start / R) * step, step);
}
template <int R, int Start, int Count>
[[gnu::always_inline]] inline void storePiece128(Vek8u* base, ptrdiff_t step, __m128i v) {
    if constexpr (R >= 16)
        store(base + (Start / R) * step + Start % R, v);
    else
        storeRows<R, Count / R>(base + (Start / R) * step, step, v);
}

template <int VW>
struct Lanes;

template <>
struct Lanes<16> {
    using V = __m128i;
    template <int R, int Start, int Count>
    [[gnu::always_inline]] static V gather(const Vek8u* base, ptrdiff_t step) {
        return piece128<R, Start, minOf(16, Count)>(base, step);
    }
    template <int R, int Start, int Count>
    [[gnu::always_inline]] static void scatter(Vek8u* base, ptrdiff_t step, V v) {
        storePiece128<R, Start, minOf(16, Count)>(base, step, v);
    }
    // The rows one further down than those of a (the stream from base):
    // a shifted by a row, and the one new row read.
    template <int R, int Count>
    [[gnu::always_inline]] static V below(V a, const Vek8u* base, ptrdiff_t step) {
        if constexpr (R >= 16) {
            return gather<R, 0, Count>(base + step, step);
        } else {
            const __m128i next = loadRow<R>(base + (Count / R) * step);
#if defined(__SSSE3__)
            if constexpr (Count == 16) return _mm_alignr_epi8(next, a, R);
#endif
            return _mm_or_si128(_mm_srli_si128(a, R), _mm_slli_si128(next, Count - R));
        }
    }
    [[gnu::always_inline]] static V zero() { return _mm_setzero_si128(); }
    [[gnu::always_inline]] static V bytes(int x) { return _mm_set1_epi8(static_cast<char>(x)); }
    [[gnu::always_inline]] static V words(int x) { return _mm_set1_epi16(static_cast<short>(x)); }
    [[gnu::always_inline]] static V quads(long long x) { return _mm_set1_epi64x(x); }
    [[gnu::always_inline]] static V avg(V a, V b) { return _mm_avg_epu8(a, b); }
    [[gnu::always_inline]] static V bitAnd(V a, V b) { return _mm_and_si128(a, b); }
    [[gnu::always_inline]] static V bitOr(V a, V b) { return _mm_or_si128(a, b); }
    [[gnu::always_inline]] static V bitXor(V a, V b) { return _mm_xor_si128(a, b); }
    [[gnu::always_inline]] static V sub8(V a, V b) { return _mm_sub_epi8(a, b); }
    [[gnu::always_inline]] static V add16(V a, V b) { return _mm_add_epi16(a, b); }
    [[gnu::always_inline]] static V adds16(V a, V b) { return _mm_adds_epi16(a, b); }
    [[gnu::always_inline]] static V sub16(V a, V b) { return _mm_sub_epi16(a, b); }
    [[gnu::always_inline]] static V add32(V a, V b) { return _mm_add_epi32(a, b); }
    [[gnu::always_inline]] static V madd16(V a, V b) { return _mm_madd_epi16(a, b); }
    [[gnu::always_inline]] static V sad(V a, V b) { return _mm_sad_epu8(a, b); }
    // Bytes 0..7 and 8..15 widened to 16 bits.
    [[gnu::always_inline]] static V widenLo(V v) {
#if defined(__SSE4_1__)
        return _mm_cvtepu8_epi16(v);
#else
        return _mm_unpacklo_epi8(v, _mm_setzero_si128());
#endif
    }
    [[gnu::always_inline]] static V widenHi(V v) { return _mm_unpackhi_epi8(v, _mm_setzero_si128()); }
    // 16-bit lanes of lo then hi, saturated to 0..255, in order.
    [[gnu::always_inline]] static V packUnsigned(V lo, V hi) { return _mm_packus_epi16(lo, hi); }
    [[gnu::always_inline]] static uint32_t sum32(V v) {
        v = _mm_add_epi32(v, _mm_shuffle_epi32(v, 0x4E));
        v = _mm_add_epi32(v, _mm_shuffle_epi32(v, 0xB1));
        return static_cast<uint32_t>(_mm_cvtsi128_si32(v));
    }
    // The sum of the 64-bit lanes of psadbw results (each below 2^32).
    [[gnu::always_inline]] static uint32_t sum64(V v) {
        return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_add_epi32(v, _mm_srli_si128(v, 8))));
    }
};

#if defined(__AVX2__)
template <>
struct Lanes<32> {
    using V = __m256i;
    template <int R, int Start, int Count>
    [[gnu::always_inline]] static V gather(const Vek8u* base, ptrdiff_t step) {
        if constexpr (R >= 32 && Count >= 32) return load256i(base + (Start / R) * step + Start % R);
        const __m128i lo = piece128<R, Start, minOf(16, Count)>(base, step);
        if constexpr (Count <= 16)
            return _mm256_zextsi128_si256(lo);
        else
            return _mm256_inserti128_si256(_mm256_castsi128_si256(lo),
                                           (piece128<R, Start + 16, minOf(16, Count - 16)>(base, step)), 1);
    }
    template <int R, int Start, int Count>
    [[gnu::always_inline]] static void scatter(Vek8u* base, ptrdiff_t step, V v) {
        if constexpr (R >= 32 && Count >= 32) return store(base + (Start / R) * step + Start % R, v);
        storePiece128<R, Start, minOf(16, Count)>(base, step, _mm256_castsi256_si128(v));
        if constexpr (Count > 16)
            storePiece128<R, Start + 16, minOf(16, Count - 16)>(base, step, _mm256_extracti128_si256(v, 1));
    }
    // Across the halves: each takes its next row from the half above.
    template <int R, int Count>
    [[gnu::always_inline]] static V below(V a, const Vek8u* base, ptrdiff_t step) {
        if constexpr (R >= 16) {
            return gather<R, 0, Count>(base + step, step);
        } else if constexpr (Count <= 16) {
            return _mm256_zextsi128_si256(Lanes<16>::below<R, Count>(_mm256_castsi256_si128(a), base, step));
        } else {
            const __m256i next = _mm256_zextsi128_si256(loadRow<R>(base + (Count / R) * step));
            return _mm256_alignr_epi8(_mm256_permute2x128_si256(a, next, 0x21), a, R);
        }
    }
    [[gnu::always_inline]] static V zero() { return _mm256_setzero_si256(); }
    [[gnu::always_inline]] static V bytes(int x) { return _mm256_set1_epi8(static_cast<char>(x)); }
    [[gnu::always_inline]] static V words(int x) { return _mm256_set1_epi16(static_cast<short>(x)); }
    [[gnu::always_inline]] static V quads(long long x) { return _mm256_set1_epi64x(x); }
    [[gnu::always_inline]] static V avg(V a, V b) { return _mm256_avg_epu8(a, b); }
    [[gnu::always_inline]] static V bitAnd(V a, V b) { return _mm256_and_si256(a, b); }
    [[gnu::always_inline]] static V bitOr(V a, V b) { return _mm256_or_si256(a, b); }
    [[gnu::always_inline]] static V bitXor(V a, V b) { return _mm256_xor_si256(a, b); }
    [[gnu::always_inline]] static V sub8(V a, V b) { return _mm256_sub_epi8(a, b); }
    [[gnu::always_inline]] static V add16(V a, V b) { return _mm256_add_epi16(a, b); }
    [[gnu::always_inline]] static V adds16(V a, V b) { return _mm256_adds_epi16(a, b); }
    [[gnu::always_inline]] static V sub16(V a, V b) { return _mm256_sub_epi16(a, b); }
    [[gnu::always_inline]] static V add32(V a, V b) { return _mm256_add_epi32(a, b); }
    [[gnu::always_inline]] static V madd16(V a, V b) { return _mm256_madd_epi16(a, b); }
    [[gnu::always_inline]] static V sad(V a, V b) { return _mm256_sad_epu8(a, b); }
    [[gnu::always_inline]] static V widenLo(V v) { return _mm256_cvtepu8_epi16(_mm256_castsi256_si128(v)); }
    [[gnu::always_inline]] static V widenHi(V v) { return _mm256_cvtepu8_epi16(_mm256_extracti128_si256(v, 1)); }
    // packus works within 128-bit lanes; the permute puts the quarters in order.
    [[gnu::always_inline]] static V packUnsigned(V lo, V hi) {
        return _mm256_permute4x64_epi64(_mm256_packus_epi16(lo, hi), 0xD8);
    }
    [[gnu::always_inline]] static uint32_t sum32(V v) {
        return Lanes<16>::sum32(_mm_add_epi32(_mm256_castsi256_si128(v), _mm256_extracti128_si256(v, 1)));
    }
    [[gnu::always_inline]] static uint32_t sum64(V v) {
        return Lanes<16>::sum64(_mm_add_epi32(_mm256_castsi256_si128(v), _mm256_extracti128_si256(v, 1)));
    }
};
#endif

#if defined(__AVX512BW__)
template <>
struct Lanes<64> {
    using V = __m512i;
    template <int R, int Start, int Count>
    [[gnu::always_inline]] static V gather(const Vek8u* base, ptrdiff_t step) {
        const __m256i lo = Lanes<32>::gather<R, Start, minOf(32, Count)>(base, step);
        if constexpr (Count <= 32)
            return _mm512_zextsi256_si512(lo);
        else
            return _mm512_inserti64x4(_mm512_castsi256_si512(lo),
                                      (Lanes<32>::gather<R, Start + 32, minOf(32, Count - 32)>(base, step)), 1);
    }
    template <int R, int Start, int Count>
    [[gnu::always_inline]] static void scatter(Vek8u* base, ptrdiff_t step, V v) {
        Lanes<32>::scatter<R, Start, minOf(32, Count)>(base, step, _mm512_castsi512_si256(v));
        if constexpr (Count > 32)
            Lanes<32>::scatter<R, Start + 32, minOf(32, Count - 32)>(base, step, _mm512_extracti64x4_epi64(v, 1));
    }
    // Rows of 8 bytes shift by a quadword across the whole vector (valignq).
    template <int R, int Count>
    [[gnu::always_inline]] static V below(V a, const Vek8u* base, ptrdiff_t step) {
        if constexpr (R == 8 && Count == 64) {
            return _mm512_alignr_epi64(_mm512_zextsi128_si512(loadRow<8>(base + 8 * step)), a, 1);
        } else if constexpr (R < 16 && Count <= 32) {
            return _mm512_zextsi256_si512(Lanes<32>::below<R, Count>(_mm512_castsi512_si256(a), base, step));
        } else {
            return gather<R, 0, Count>(base + step, step);
        }
    }
    [[gnu::always_inline]] static V zero() { return _mm512_setzero_si512(); }
    [[gnu::always_inline]] static V bytes(int x) { return _mm512_set1_epi8(static_cast<char>(x)); }
    [[gnu::always_inline]] static V words(int x) { return _mm512_set1_epi16(static_cast<short>(x)); }
    [[gnu::always_inline]] static V quads(long long x) { return _mm512_set1_epi64(x); }
    [[gnu::always_inline]] static V avg(V a, V b) { return _mm512_avg_epu8(a, b); }
    [[gnu::always_inline]] static V bitAnd(V a, V b) { return _mm512_and_si512(a, b); }
    [[gnu::always_inline]] static V bitOr(V a, V b) { return _mm512_or_si512(a, b); }
    [[gnu::always_inline]] static V bitXor(V a, V b) { return _mm512_xor_si512(a, b); }
    [[gnu::always_inline]] static V sub8(V a, V b) { return _mm512_sub_epi8(a, b); }
    [[gnu::always_inline]] static V add16(V a, V b) { return _mm512_add_epi16(a, b); }
    [[gnu::always_inline]] static V adds16(V a, V b) { return _mm512_adds_epi16(a, b); }
    [[gnu::always_inline]] static V sub16(V a, V b) { return _mm512_sub_epi16(a, b); }
    [[gnu::always_inline]] static V add32(V a, V b) { return _mm512_add_epi32(a, b); }
    [[gnu::always_inline]] static V madd16(V a, V b) { return _mm512_madd_epi16(a, b); }
    [[gnu::always_inline]] static V sad(V a, V b) { return _mm512_sad_epu8(a, b); }
    [[gnu::always_inline]] static V widenLo(V v) { return _mm512_cvtepu8_epi16(_mm512_castsi512_si256(v)); }
    [[gnu::always_inline]] static V widenHi(V v) { return _mm512_cvtepu8_epi16(_mm512_extracti64x4_epi64(v, 1)); }
    [[gnu::always_inline]] static V packUnsigned(V lo, V hi) {
        return _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), _mm512_packus_epi16(lo, hi));
    }
    [[gnu::always_inline]] static uint32_t sum32(V v) {
        return Lanes<32>::sum32(_mm256_add_epi32(_mm512_castsi512_si256(v), _mm512_extracti64x4_epi64(v, 1)));
    }
    [[gnu::always_inline]] static uint32_t sum64(V v) {
        return Lanes<32>::sum64(_mm256_add_epi32(_mm512_castsi512_si256(v), _mm512_extracti64x4_epi64(v, 1)));
    }
};
#endif

// ---- block geometry ------------------------------------------------------------------

// The vector a W x H block is worked in at this level, and the rows of a group.
template <int W, int H>
constexpr int vectorFor() {
    return minOf(kMaxVector, maxOf(16, W * H));
}
template <int W, int H>
constexpr int groupRows() {
    return minOf(H, vectorFor<W, H>() / W);
}

// ---- predictions ---------------------------------------------------------------------

// The rounding control of a prediction: 0 or 1 known when the kernel is
// built (the one-reference and two-reference tables have an entry for
// each), or kRoundingInVector: the value given in every byte of rc.
constexpr int kRoundingInVector = -1;

// The prediction of a group of Rows rows of W samples by Mode, in bytes.
// A known rounding control drops the operations it makes void: 0 leaves a
// half-sample average the plain pavgb, 1 folds the two corrections of the
// four-sample average into one ((u ^ v) & 1 covers the case the first
// term corrects).
template <class L, int W, int Rows, int Dx, int Mode, int RC>
[[gnu::always_inline]] inline typename L::V predictRows(const Vek8u* r, ptrdiff_t step, typename L::V rc) {
    constexpr int n = W * Rows;
    const typename L::V a = L::template gather<W, 0, n>(r, step);
    if constexpr (Mode == 0) {
        return a;
    } else if constexpr (Mode == 4 || Mode == 8) {
        typename L::V b;
        if constexpr (Mode == 4)
            b = L::template below<W, n>(a, r, step);
        else
            b = L::template gather<W, 0, n>(r + Dx, step);
        if constexpr (RC == 0) return L::avg(a, b);
        const typename L::V ones = RC == 1 ? L::bytes(1) : rc;
        return L::sub8(L::avg(a, b), L::bitAnd(L::bitXor(a, b), ones));
    } else {
        const typename L::V b = L::template gather<W, 0, n>(r + Dx, step);
        const typename L::V c = L::template below<W, n>(a, r, step);
        const typename L::V d = L::template below<W, n>(b, r + Dx, step);
        const typename L::V u = L::avg(a, b), v = L::avg(c, d), ab = L::bitXor(a, b), cd = L::bitXor(c, d);
        const typename L::V uv = L::bitXor(u, v);
        if constexpr (RC == 1) return L::sub8(L::avg(u, v), L::bitAnd(L::bitOr(uv, L::bitAnd(ab, cd)), L::bytes(1)));
        const typename L::V roundsDown = L::bitAnd(L::bitAnd(L::bitOr(ab, cd), uv), L::bytes(1));
        if constexpr (RC == 0) return L::sub8(L::avg(u, v), roundsDown);
        const typename L::V halvesDown = L::bitAnd(rc, L::bitOr(uv, L::bitAnd(ab, cd)));
        return L::sub8(L::avg(u, v), L::bitOr(roundsDown, halvesDown));
    }
}

}  // namespace

#endif
