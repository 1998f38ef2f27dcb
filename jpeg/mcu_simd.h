// The vector kernels of the per-MCU conversions (mcu_rows.h has the rules),
// on 128-bit vectors: an MCU row is 8 or 16 pixels, one or two 8-pixel
// pieces of colour_simd.h, and its 16-bit samples are the blocks' rows.
// Chroma pairs are summed with pmaddwd by ones and packed back in order.
//
// Included inside a level's namespace after colour_simd.h; internal
// linkage.  The vector argument only selects these overloads.
#ifndef VEK_JPEG_MCU_SIMD_H
#define VEK_JPEG_MCU_SIMD_H

// Lanes<__m128i> drops the vector type's alignment attribute from the
// template argument, which is harmless for a type passed by value.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"

namespace {

// The sums of neighbouring pairs of two vectors of 16-bit lanes, in order.
inline __m128i pairSums16(__m128i lo, __m128i hi) {
    const __m128i ones = _mm_set1_epi16(1);
    return _mm_packs_epi32(_mm_madd_epi16(lo, ones), _mm_madd_epi16(hi, ones));
}

template <class L, int H, int Vs, class V>
inline bool forwardMcuBlocks(V, const Vek8u* src, int step, Vek16s* const* dst) {
    const __m128i centre = _mm_set1_epi16(128);
    __m128i upperCb = _mm_setzero_si128(), upperCr = _mm_setzero_si128();  // the even row of a 2 x 2 group
    for (int r = 0; r < 8 * Vs; ++r) {
        const Vek8u* row = image::rowAt(src, step, r);
        Lanes<__m128i> ycc[H];
        for (int h = 0; h < H; ++h) {
            ycc[h] = convertLanes(Forward{}, readPiece(L{}, row + 24 * h));
            store(dst[0] + 64 * ((r / 8) * H + h) + 8 * (r % 8), _mm_sub_epi16(ycc[h].a, centre));
        }
        if constexpr (H == 1) {
            store(dst[1] + 8 * r, _mm_sub_epi16(ycc[0].b, centre));
            store(dst[2] + 8 * r, _mm_sub_epi16(ycc[0].c, centre));
        } else {
            const __m128i cb = pairSums16(ycc[0].b, ycc[1].b), cr = pairSums16(ycc[0].c, ycc[1].c);
            if constexpr (Vs == 1) {
                const __m128i bias = pair16<__m128i>(0, 1);
                store(dst[1] + 8 * r, _mm_sub_epi16(_mm_srli_epi16(_mm_add_epi16(cb, bias), 1), centre));
                store(dst[2] + 8 * r, _mm_sub_epi16(_mm_srli_epi16(_mm_add_epi16(cr, bias), 1), centre));
            } else if (r % 2 == 0) {
                upperCb = cb, upperCr = cr;
            } else {
                const __m128i bias = pair16<__m128i>(1, 2);
                const __m128i sumCb = _mm_add_epi16(_mm_add_epi16(upperCb, cb), bias);
                const __m128i sumCr = _mm_add_epi16(_mm_add_epi16(upperCr, cr), bias);
                store(dst[1] + 8 * (r / 2), _mm_sub_epi16(_mm_srli_epi16(sumCb, 2), centre));
                store(dst[2] + 8 * (r / 2), _mm_sub_epi16(_mm_srli_epi16(sumCr, 2), centre));
            }
        }
    }
    return true;
}

// Eight level-shifted samples as 0..255.
inline __m128i unshift8(const Vek16s* p) { return clampTo255(_mm_adds_epi16(load128i(p), _mm_set1_epi16(128))); }

template <class L, int H, int Vs, class V>
inline bool inverseMcuBlocks(V, const Vek16s* const* src, Vek8u* dst, int step) {
    for (int r = 0; r < 8 * Vs; ++r) {
        Vek8u* row = image::rowAt(dst, step, r);
        const __m128i cb = unshift8(src[1] + 8 * (r / Vs)), cr = unshift8(src[2] + 8 * (r / Vs));
        for (int h = 0; h < H; ++h) {
            const __m128i y = unshift8(src[0] + 64 * ((r / 8) * H + h) + 8 * (r % 8));
            Lanes<__m128i> p{y, cb, cr, _mm_setzero_si128()};
            if constexpr (H == 2) {
                p.b = h == 0 ? _mm_unpacklo_epi16(cb, cb) : _mm_unpackhi_epi16(cb, cb);
                p.c = h == 0 ? _mm_unpacklo_epi16(cr, cr) : _mm_unpackhi_epi16(cr, cr);
            }
            writePiece(L{}, row + 24 * h, convertLanes(Inverse{}, p));
        }
    }
    return true;
}

template <class V>
inline bool split422Blocks(V, const Vek8u* src, int step, Vek16s* const* dst) {
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
