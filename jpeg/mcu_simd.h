// The vector kernels of the per-MCU conversions (mcu_rows.h has the rules):
// an MCU row is 8 or 16 pixels, one or two 8-pixel pieces of colour_simd.h,
// and its 16-bit samples are the blocks' rows.  The YUYV split and join work
// a row at a time in 128-bit vectors at every level.
//
// Included inside a level's namespace after colour_simd.h; internal
// linkage.  The vector argument selects these overloads and the width.
#ifndef VEK_JPEG_MCU_SIMD_H
#define VEK_JPEG_MCU_SIMD_H

// Lanes<__m128i> drops the vector type's alignment attribute from the
// template argument, which is harmless for a type passed by value.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"

namespace {

// A vector V holds P = kPieces<V> rows of 8 pixels (one 128-bit lane a
// row), so P consecutive rows of a block are one vector of its samples.
// Horizontal chroma pairs are summed with pmaddwd by ones and packed back
// within each lane: the left and the right half of a 16-pixel row give
// that row's 8 chroma sums.  2 x 2 groups add each lane to its neighbour
// (rows 2j and 2j + 1) and keep the even lanes.

template <class V>
inline V pairSums16(V left, V right) {
    const V ones = set16<V>(1);
    return packs32(madd(left, ones), madd(right, ones));
}

// Rows r .. r + P - 1 of the MCU image, 8 pixels from byte column `offset`.
template <class V, class L>
inline Lanes<V> readRows(L layout, const Vek8u* src, int step, int r, int offset) {
    const Vek8u* at[kPieces<V>];
    for (int i = 0; i < kPieces<V>; ++i) at[i] = image::rowAt(src, step, r + i) + offset;
    return readPieces<V>(layout, at);
}
template <class V, class L>
inline void writeRows(L layout, Vek8u* dst, int step, int r, int offset, Lanes<V> v) {
    Vek8u* at[kPieces<V>];
    for (int i = 0; i < kPieces<V>; ++i) at[i] = image::rowAt(dst, step, r + i) + offset;
    writePieces<V>(layout, at, v);
}

template <class V>
inline void storeShifted(Vek16s* p, V v) {
    store(p, sub16(v, set16<V>(128)));
}

template <class L, int H, int Vs, class V>
inline bool forwardMcuBlocks(V, const Vek8u* src, int step, Vek16s* const* dst) {
    constexpr int P = kPieces<V>;
    V upperCb = V(), upperCr = V();  // 411: the sums of the rows before
    for (int r = 0; r < 8 * Vs; r += P) {
        Lanes<V> ycc[H];
        for (int h = 0; h < H; ++h) {
            ycc[h] = convertLanes(Forward{}, readRows<V>(L{}, src, step, r, 24 * h));
            storeShifted(dst[0] + 64 * ((r / 8) * H + h) + 8 * (r % 8), ycc[h].a);
        }
        if constexpr (H == 1) {
            storeShifted(dst[1] + 8 * r, ycc[0].b);
            storeShifted(dst[2] + 8 * r, ycc[0].c);
        } else {
            V cb = pairSums16(ycc[0].b, ycc[1].b), cr = pairSums16(ycc[0].c, ycc[1].c);
            if constexpr (Vs == 1) {
                const V bias = pair16<V>(0, 1);
                storeShifted(dst[1] + 8 * r, srli16<1>(add16(cb, bias)));
                storeShifted(dst[2] + 8 * r, srli16<1>(add16(cr, bias)));
            } else {
                const V bias = pair16<V>(1, 2);
                if constexpr (P == 1) {  // a row at a time: keep the even row
                    if (r % 2 == 0) {
                        upperCb = cb, upperCr = cr;
                        continue;
                    }
                    cb = add16(upperCb, cb), cr = add16(upperCr, cr);
                } else {  // P rows at a time: P / 2 chroma rows in the even lanes; two vectors make P
                    cb = add16(cb, swapLanePairs(cb)), cr = add16(cr, swapLanePairs(cr));
                    if ((r / P) % 2 == 0) {
                        upperCb = cb, upperCr = cr;
                        continue;
                    }
                    cb = evenLanes(upperCb, cb), cr = evenLanes(upperCr, cr);
                }
                const int chromaRow = (r + P) / 2 - P;  // the first of the P chroma rows just made
                storeShifted(dst[1] + 8 * chromaRow, srli16<2>(add16(cb, bias)));
                storeShifted(dst[2] + 8 * chromaRow, srli16<2>(add16(cr, bias)));
            }
        }
    }
    return true;
}

// P x 8 level-shifted samples as 0..255.
template <class V>
inline V unshift(const Vek16s* p) {
    return clampTo255(adds16(loadV<V>(p), set16<V>(128)));
}
// The chroma of luma rows r .. r + P - 1 of a 411 MCU: chroma rows r / 2 ...,
// each for two luma rows.
template <class V>
inline V chromaOfRowPairs(const Vek16s* p) {
    if constexpr (kPieces<V> == 1) {
        return unshift<V>(p);
    } else {
        __m128i rows[kPieces<V>];
        for (int i = 0; i < kPieces<V>; ++i) rows[i] = load128i(p + 8 * (i / 2));
        return clampTo255(adds16(fromPieces<V>(rows), set16<V>(128)));
    }
}

template <class L, int H, int Vs, class V>
inline bool inverseMcuBlocks(V, const Vek16s* const* src, Vek8u* dst, int step) {
    constexpr int P = kPieces<V>;
    for (int r = 0; r < 8 * Vs; r += P) {
        V cb, cr;
        if constexpr (Vs == 2 && P > 1) {
            cb = chromaOfRowPairs<V>(src[1] + 8 * (r / 2)), cr = chromaOfRowPairs<V>(src[2] + 8 * (r / 2));
        } else {
            cb = unshift<V>(src[1] + 8 * (r / Vs)), cr = unshift<V>(src[2] + 8 * (r / Vs));
        }
        for (int h = 0; h < H; ++h) {
            const V y = unshift<V>(src[0] + 64 * ((r / 8) * H + h) + 8 * (r % 8));
            Lanes<V> p{y, cb, cr, V()};
            if constexpr (H == 2) {
                p.b = h == 0 ? unpacklo16(cb, cb) : unpackhi16(cb, cb);
                p.c = h == 0 ? unpacklo16(cr, cr) : unpackhi16(cr, cr);
            }
            writeRows<V>(L{}, dst, step, r, 24 * h, convertLanes(Inverse{}, p));
        }
    }
    return true;
}

// Eight level-shifted samples as 0..255.
inline __m128i unshift8(const Vek16s* p) { return unshift<__m128i>(p); }

template <class V>
inline bool split422Blocks(V, const Vek8u* src, int step, Vek16s* const* dst) {
#ifdef __AVX2__
    // Two rows a step, a whole row (16 pixels) a vector: the luma halves of
    // rows r and r + 1 meet by a lane exchange, and the chroma, packed from
    // both rows at once, comes back into row order by one qword permute.
    if constexpr (sizeof(V) >= 32) {
        const __m256i centre = _mm256_set1_epi16(128), low = _mm256_set1_epi16(0xFF), low32 = _mm256_set1_epi32(0xFFFF);
        for (int r = 0; r < 8; r += 2) {
            const __m256i a = load256i(image::rowAt(src, step, r)), b = load256i(image::rowAt(src, step, r + 1));
            const __m256i ya = _mm256_and_si256(a, low), yb = _mm256_and_si256(b, low);
            store(dst[0] + 8 * r, _mm256_sub_epi16(_mm256_permute2x128_si256(ya, yb, 0x20), centre));
            store(dst[0] + 64 + 8 * r, _mm256_sub_epi16(_mm256_permute2x128_si256(ya, yb, 0x31), centre));
            const __m256i ca = _mm256_srli_epi16(a, 8), cb = _mm256_srli_epi16(b, 8);  // Cb Cr Cb Cr ...
            const __m256i blue = _mm256_packs_epi32(_mm256_and_si256(ca, low32), _mm256_and_si256(cb, low32));
            const __m256i red = _mm256_packs_epi32(_mm256_srli_epi32(ca, 16), _mm256_srli_epi32(cb, 16));
            store(dst[1] + 8 * r, _mm256_sub_epi16(_mm256_permute4x64_epi64(blue, 0xD8), centre));
            store(dst[2] + 8 * r, _mm256_sub_epi16(_mm256_permute4x64_epi64(red, 0xD8), centre));
        }
        return true;
    }
#endif
    const __m128i centre = _mm_set1_epi16(128), low = _mm_set1_epi16(0xFF), low32 = _mm_set1_epi32(0xFFFF);
    for (int r = 0; r < 8; ++r) {
        const Vek8u* row = image::rowAt(src, step, r);
        const __m128i v0 = load128i(row), v1 = load128i(row + 16);
        store(dst[0] + 8 * r, _mm_sub_epi16(_mm_and_si128(v0, low), centre));
        store(dst[0] + 64 + 8 * r, _mm_sub_epi16(_mm_and_si128(v1, low), centre));
        const __m128i c0 = _mm_srli_epi16(v0, 8), c1 = _mm_srli_epi16(v1, 8);  // Cb Cr Cb Cr ...
        const __m128i cb = _mm_packs_epi32(_mm_and_si128(c0, low32), _mm_and_si128(c1, low32));
        const __m128i cr = _mm_packs_epi32(_mm_srli_epi32(c0, 16), _mm_srli_epi32(c1, 16));
        store(dst[1] + 8 * r, _mm_sub_epi16(cb, centre));
        store(dst[2] + 8 * r, _mm_sub_epi16(cr, centre));
    }
    return true;
}

template <class V>
inline bool join422Blocks(V, const Vek16s* const* src, Vek8u* dst, int step) {
    for (int r = 0; r < 8; ++r) {
        Vek8u* row = image::rowAt(dst, step, r);
        const __m128i cb = unshift8(src[1] + 8 * r), cr = unshift8(src[2] + 8 * r);
        const __m128i y0 = unshift8(src[0] + 8 * r), y1 = unshift8(src[0] + 64 + 8 * r);
        store(row, _mm_or_si128(y0, _mm_slli_epi16(_mm_unpacklo_epi16(cb, cr), 8)));
        store(row + 16, _mm_or_si128(y1, _mm_slli_epi16(_mm_unpackhi_epi16(cb, cr), 8)));
    }
    return true;
}

}  // namespace

#pragma GCC diagnostic pop

#endif
