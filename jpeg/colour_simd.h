// The vector kernels of the JPEG colour conversions, written once over the
// lane words of colour_lanes.h and instantiated by each vector level with
// its widest vector V (kLanes16<V> pixels a block).
//
// A block is read into 16-bit lanes (R, G, B or Y, Cb, Cr, and K), converted
// and written.  The conversions use the same integer sums as the tables of
// colour_pixels.h, split so that every factor fits a signed 16-bit lane:
//   Y  = (19595 R + (22086 + 16384) G + 7471 B + 32768) >> 16
//   Cb = (-11059 R - 21709 G + (16384 + 16384) B + 8421375) >> 16
//   Cr = ((16384 + 16384) R - 27439 G - 5329 B + 8421375) >> 16
// each a sum of two pmaddwd pairs.  The inverse tables round
// 1.402 (Cr - 128) and 1.772 (Cb - 128) to nearest, halves away from zero,
// which for every table entry equals floor((91881 x + 32768) / 65536) and
// floor((116130 x + 32768) / 65536), x = c - 128; with 91881 = 65536 + 26345
// and 116130 = 2 * 65536 - 14942 the rest is a 16-bit product whose high
// half plus the top bit of its low half is floor((f x + 32768) / 65536).
// The green term is one pmaddwd pair, -22554 cb + (65536 - 46802) cr, less
// cr.  The tests compare every level with the tables on all inputs.
//
// Interleaved layouts are read and written in pieces of 8 pixels (128 bits
// of 16-bit lanes): SSSE3 gathers bytes with pshufb; SSE2 spreads three-byte
// pixels into 32-bit lanes with shifts and masks.
//
// Included inside a level's namespace after colour_pixels.h and
// colour_lanes.h; internal linkage.
#ifndef VEK_JPEG_COLOUR_SIMD_H
#define VEK_JPEG_COLOUR_SIMD_H

// Lanes<__m128i> drops the vector type's alignment attribute from the
// template argument, which is harmless for a type passed by value.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"

namespace {

using namespace vek::jpeg;

template <class V>
struct Lanes {
    V a, b, c, k;
};

// ---- the conversions -------------------------------------------------------------

template <class V>
inline V clampTo255(V v) {
    return max16(min16(v, set16<V>(255)), set16<V>(0));
}

template <class V>
inline Lanes<V> convertLanes(Forward, Lanes<V> p) {
    const V rgL = unpacklo16(p.a, p.b), rgH = unpackhi16(p.a, p.b);
    const V gbL = unpacklo16(p.b, p.c), gbH = unpackhi16(p.b, p.c);
    const V rbL = unpacklo16(p.a, p.c), rbH = unpackhi16(p.a, p.c);
    auto sum = [](V x, V fx, V y, V fy, V bias) { return srai32<16>(add32(add32(madd(x, fx), madd(y, fy)), bias)); };
    const V yRG = pair16<V>(19595, 22086), yGB = pair16<V>(16384, 7471);
    const V cbRB = pair16<V>(-11059, 16384), cbGB = pair16<V>(-21709, 16384);
    const V crRG = pair16<V>(16384, -27439), crRB = pair16<V>(16384, -5329);
    const V half = set32<V>(32768), chromaBias = set32<V>(8421375);
    return {packs32(sum(rgL, yRG, gbL, yGB, half), sum(rgH, yRG, gbH, yGB, half)),
            packs32(sum(rbL, cbRB, gbL, cbGB, chromaBias), sum(rbH, cbRB, gbH, cbGB, chromaBias)),
            packs32(sum(rgL, crRG, rbL, crRB, chromaBias), sum(rgH, crRG, rbH, crRB, chromaBias)), p.k};
}

// floor((f x + 32768) / 65536) for 16-bit lanes x.
template <class V>
inline V roundedProduct(V x, int f) {
    const V factor = set16<V>(f);
    return add16(mulhi16(x, factor), srli16<15>(mullo16(x, factor)));
}

template <class V>
inline Lanes<V> convertLanes(Inverse, Lanes<V> p) {
    const V centre = set16<V>(128);
    const V cb = sub16(p.b, centre), cr = sub16(p.c, centre);
    const V rTerm = add16(cr, roundedProduct(cr, 26345));
    const V bTerm = add16(add16(cb, cb), roundedProduct(cb, -14942));
    const V gFactors = pair16<V>(-22554, 18734), half = set32<V>(32768);
    const V gL = srai32<16>(add32(madd(unpacklo16(cb, cr), gFactors), half));
    const V gH = srai32<16>(add32(madd(unpackhi16(cb, cr), gFactors), half));
    const V gTerm = sub16(packs32(gL, gH), cr);
    return {clampTo255(add16(p.a, rTerm)), clampTo255(add16(p.a, gTerm)), clampTo255(add16(p.a, bTerm)), p.k};
}

// ---- 8-pixel pieces of interleaved layouts ------------------------------------------

inline __m128i loadLow64(const void* p) { return _mm_loadl_epi64(static_cast<const __m128i*>(p)); }
inline void storeLow64(void* p, __m128i v) { _mm_storel_epi64(static_cast<__m128i*>(p), v); }
inline __m128i mask32(int32_t x) { return _mm_set1_epi32(x); }

// Byte Offset of each 32-bit lane, as 16-bit lanes (four from each vector).
template <int Offset>
inline __m128i byteOf32(__m128i d0, __m128i d1) {
    const __m128i low = mask32(0xFF);
    return _mm_packs_epi32(_mm_and_si128(_mm_srli_epi32(d0, 8 * Offset), low),
                           _mm_and_si128(_mm_srli_epi32(d1, 8 * Offset), low));
}

// pshufb controls: Gather<Offset, Base> puts byte 3k + Offset of a 24-byte
// group, if it lies in the 16 bytes from Base, in 16-bit lane k.
template <int Offset, int Base>
struct Gather {
    static constexpr std::array<Vek8s, 16> make() {
        std::array<Vek8s, 16> m{};
        for (int k = 0; k < 8; ++k) {
            const int j = 3 * k + Offset - Base;
            m[2 * k] = Vek8s(j >= 0 && j < 16 ? j : -128), m[2 * k + 1] = -128;
        }
        return m;
    }
    static constexpr std::array<Vek8s, 16> bytes = make();
};
// Scatter<Ro, Go, Bo, Base, FromRG>: output bytes Base..Base+15 of a 24-byte
// group of pixels, taken from [R0..R7 G0..G7] (FromRG) or [B0..B7 ...].
template <int Ro, int Go, int Bo, int Base, bool FromRG>
struct Scatter {
    static constexpr std::array<Vek8s, 16> make() {
        std::array<Vek8s, 16> m{};
        for (int i = 0; i < 16; ++i) {
            const int j = Base + i, k = j / 3, offset = j % 3;
            int from = -128;
            if (j < 24) {
                if (FromRG && offset == Ro) from = k;
                if (FromRG && offset == Go) from = 8 + k;
                if (!FromRG && offset == Bo) from = k;
            }
            m[i] = Vek8s(from);
        }
        return m;
    }
    static constexpr std::array<Vek8s, 16> bytes = make();
};
#ifdef __SSSE3__
template <class Control>
inline __m128i shuffleBy(__m128i v) {
    return _mm_shuffle_epi8(v, load128i(Control::bytes.data()));
}
#else
// Bytes 0..11 (four three-byte pixels) spread to four 32-bit lanes.
inline __m128i spread3to4(__m128i v) {
    const __m128i q = _mm_or_si128(_mm_and_si128(v, _mm_set_epi32(0, 0, 0xFFFF, -1)),
                                   _mm_slli_si128(_mm_and_si128(v, _mm_set_epi32(0, -1, int32_t(0xFFFF0000), 0)), 2));
    const __m128i second = _mm_set_epi32(0xFFFF, int32_t(0xFF000000), 0xFFFF, int32_t(0xFF000000));
    return _mm_or_si128(_mm_and_si128(q, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF)),
                        _mm_slli_epi64(_mm_and_si128(q, second), 8));
}
// Four 32-bit lanes of three bytes each packed into bytes 0..11.
inline __m128i pack4to3(__m128i d) {
    const __m128i q = _mm_or_si128(_mm_and_si128(d, _mm_set_epi32(0, 0xFFFFFF, 0, 0xFFFFFF)),
                                   _mm_srli_epi64(_mm_and_si128(d, _mm_set_epi32(0xFFFFFF, 0, 0xFFFFFF, 0)), 8));
    return _mm_or_si128(_mm_move_epi64(q), _mm_slli_si128(_mm_srli_si128(q, 8), 6));
}
#endif

template <int Ro, int Go, int Bo>
inline Lanes<__m128i> readPiece(Interleaved3<Ro, Go, Bo>, const Vek8u* p) {
    const __m128i lo = load128i(p), hi = loadLow64(p + 16);
#ifdef __SSSE3__
    auto channel = [&](auto fromLo, auto fromHi) {
        using Lo = decltype(fromLo);
        using Hi = decltype(fromHi);
        return _mm_or_si128(shuffleBy<Lo>(lo), shuffleBy<Hi>(hi));
    };
    return {channel(Gather<Ro, 0>{}, Gather<Ro, 16>{}), channel(Gather<Go, 0>{}, Gather<Go, 16>{}),
            channel(Gather<Bo, 0>{}, Gather<Bo, 16>{}), __m128i()};
#else
    const __m128i d0 = spread3to4(lo), d1 = spread3to4(_mm_or_si128(_mm_srli_si128(lo, 12), _mm_slli_si128(hi, 4)));
    return {byteOf32<Ro>(d0, d1), byteOf32<Go>(d0, d1), byteOf32<Bo>(d0, d1), __m128i()};
#endif
}

template <int Ro, int Go, int Bo>
inline void writePiece(Interleaved3<Ro, Go, Bo>, Vek8u* p, Lanes<__m128i> v) {
#ifdef __SSSE3__
    const __m128i rg = _mm_packus_epi16(v.a, v.b), bb = _mm_packus_epi16(v.c, v.c);
    store(p, _mm_or_si128(shuffleBy<Scatter<Ro, Go, Bo, 0, true>>(rg), shuffleBy<Scatter<Ro, Go, Bo, 0, false>>(bb)));
    storeLow64(p + 16, _mm_or_si128(shuffleBy<Scatter<Ro, Go, Bo, 16, true>>(rg),
                                    shuffleBy<Scatter<Ro, Go, Bo, 16, false>>(bb)));
#else
    const __m128i ch[3] = {Ro == 0   ? v.a
                           : Go == 0 ? v.b
                                     : v.c,
                           Ro == 1   ? v.a
                           : Go == 1 ? v.b
                                     : v.c,
                           Ro == 2   ? v.a
                           : Go == 2 ? v.b
                                     : v.c};
    const __m128i low = _mm_or_si128(ch[0], _mm_slli_epi16(ch[1], 8));
    const __m128i q0 = pack4to3(_mm_unpacklo_epi16(low, ch[2])), q1 = pack4to3(_mm_unpackhi_epi16(low, ch[2]));
    store(p, _mm_or_si128(q0, _mm_slli_si128(q1, 12)));
    storeLow64(p + 16, _mm_srli_si128(q1, 4));
#endif
}

inline Lanes<__m128i> readPiece(InvertedCMYK, const Vek8u* p) {
    const __m128i d0 = load128i(p), d1 = load128i(p + 16), full = _mm_set1_epi16(255);
    return {_mm_sub_epi16(full, byteOf32<0>(d0, d1)), _mm_sub_epi16(full, byteOf32<1>(d0, d1)),
            _mm_sub_epi16(full, byteOf32<2>(d0, d1)), byteOf32<3>(d0, d1)};
}

inline void writePiece(InvertedCMYK, Vek8u* p, Lanes<__m128i> v) {
    const __m128i full = _mm_set1_epi16(255);
    const __m128i cm = _mm_or_si128(_mm_sub_epi16(full, v.a), _mm_slli_epi16(_mm_sub_epi16(full, v.b), 8));
    const __m128i yk = _mm_or_si128(_mm_sub_epi16(full, v.c), _mm_slli_epi16(v.k, 8));
    store(p, _mm_unpacklo_epi16(cm, yk));
    store(p + 16, _mm_unpackhi_epi16(cm, yk));
}

inline Lanes<__m128i> readPiece(YUYV, const Vek8u* p) {
    const __m128i v = load128i(p), lowBytes = _mm_set1_epi16(0xFF);
    const __m128i chroma = _mm_srli_epi16(v, 8);  // Cb0 Cr0 Cb1 Cr1 ...
    const __m128i cb = _mm_and_si128(chroma, mask32(0xFFFF)), cr = _mm_srli_epi32(chroma, 16);
    return {_mm_and_si128(v, lowBytes), _mm_or_si128(cb, _mm_slli_epi32(cb, 16)),
            _mm_or_si128(cr, _mm_slli_epi32(cr, 16)), __m128i()};
}

// ---- blocks of kLanes16<V> pixels in any layout -------------------------------------

// A vector's pieces from (to) 8-pixel pieces anywhere (at[i]: piece i's
// first pixel).  Three interleaved channels go through whole vectors: the
// 16 bytes and the 8 bytes after them of every piece side by side, one
// pshufb per channel and source, the same controls in every 128-bit lane.
template <class V, int Ro, int Go, int Bo>
inline Lanes<V> readPieces(Interleaved3<Ro, Go, Bo> layout, const Vek8u* const* at) {
    if constexpr (kPieces<V> == 1) {
        return readPiece(layout, at[0]);
    } else {
        __m128i lo[kPieces<V>], hi[kPieces<V>];
        for (int i = 0; i < kPieces<V>; ++i) lo[i] = load128i(at[i]), hi[i] = loadLow64(at[i] + 16);
        const V a = fromPieces<V>(lo), b = fromPieces<V>(hi);
        auto channel = [&](auto fromLo, auto fromHi) {
            return orV(shuffleBytes(a, decltype(fromLo)::bytes.data()),
                       shuffleBytes(b, decltype(fromHi)::bytes.data()));
        };
        return {channel(Gather<Ro, 0>{}, Gather<Ro, 16>{}), channel(Gather<Go, 0>{}, Gather<Go, 16>{}),
                channel(Gather<Bo, 0>{}, Gather<Bo, 16>{}), V()};
    }
}
template <class V, int Ro, int Go, int Bo>
inline void writePieces(Interleaved3<Ro, Go, Bo> layout, Vek8u* const* at, Lanes<V> v) {
    if constexpr (kPieces<V> == 1) {
        writePiece(layout, at[0], v);
    } else {
        const V rg = packus16(v.a, v.b), bb = packus16(v.c, v.c);
        const V first = orV(shuffleBytes(rg, Scatter<Ro, Go, Bo, 0, true>::bytes.data()),
                            shuffleBytes(bb, Scatter<Ro, Go, Bo, 0, false>::bytes.data()));
        const V last = orV(shuffleBytes(rg, Scatter<Ro, Go, Bo, 16, true>::bytes.data()),
                           shuffleBytes(bb, Scatter<Ro, Go, Bo, 16, false>::bytes.data()));
        __m128i q0[kPieces<V>], q1[kPieces<V>];
        toPieces(first, q0), toPieces(last, q1);
        for (int i = 0; i < kPieces<V>; ++i) store(at[i], q0[i]), storeLow64(at[i] + 16, q1[i]);
    }
}
template <class V, class L>
inline Lanes<V> readPieces(L layout, const typename L::Sample* const* at) {
    __m128i q[4][kPieces<V>];
    for (int i = 0; i < kPieces<V>; ++i) {
        const Lanes<__m128i> piece = readPiece(layout, at[i]);
        q[0][i] = piece.a, q[1][i] = piece.b, q[2][i] = piece.c, q[3][i] = piece.k;
    }
    return {fromPieces<V>(q[0]), fromPieces<V>(q[1]), fromPieces<V>(q[2]), fromPieces<V>(q[3])};
}
template <class V, class L>
inline void writePieces(L layout, typename L::Sample* const* at, Lanes<V> v) {
    __m128i q[4][kPieces<V>];
    toPieces(v.a, q[0]), toPieces(v.b, q[1]), toPieces(v.c, q[2]), toPieces(v.k, q[3]);
    for (int i = 0; i < kPieces<V>; ++i) writePiece(layout, at[i], Lanes<__m128i>{q[0][i], q[1][i], q[2][i], q[3][i]});
}

template <class L>
constexpr bool kPieceLayout = !std::is_same_v<typename L::Sample, Vek16u> && L::kPlanes == 1 && L::kChannels > 1;

template <class V, class L>
inline Lanes<V> readBlock(L layout, const typename L::Sample* const* s, int x) {
    if constexpr (kPieceLayout<L>) {
        const typename L::Sample* at[kPieces<V>];
        for (int i = 0; i < kPieces<V>; ++i) at[i] = s[0] + L::kChannels * (x + 8 * i);
        return readPieces<V>(layout, at);
    } else if constexpr (std::is_same_v<typename L::Sample, Vek16u>) {
        const V w = loadV<V>(s[0] + x), five = set16<V>(31);
        constexpr int G = L::kRedShift - 5;
        const V r = andV(srli16<L::kRedShift>(w), five), g = andV(srli16<5>(w), set16<V>((1 << G) - 1));
        const V b = andV(w, five);
        return {orV(slli16<3>(r), srli16<2>(r)), orV(slli16<8 - G>(g), srli16<2 * G - 8>(g)),
                orV(slli16<3>(b), srli16<2>(b)), V()};
    } else {  // planes
        Lanes<V> v{widenLoad<V>(s[0] + x), V(), V(), V()};
        if constexpr (L::kPlanes > 1) v.b = widenLoad<V>(s[1] + x), v.c = widenLoad<V>(s[2] + x);
        if constexpr (L::kPlanes > 3) v.k = widenLoad<V>(s[3] + x);
        return v;
    }
}

template <class V, class L>
inline void writeBlock(L layout, typename L::Sample* const* d, int x, Lanes<V> v) {
    if constexpr (kPieceLayout<L>) {
        typename L::Sample* at[kPieces<V>];
        for (int i = 0; i < kPieces<V>; ++i) at[i] = d[0] + L::kChannels * (x + 8 * i);
        writePieces<V>(layout, at, v);
    } else if constexpr (std::is_same_v<typename L::Sample, Vek16u>) {
        constexpr int G = L::kRedShift - 5;
        const V w = orV(orV(slli16<L::kRedShift>(srli16<3>(v.a)), slli16<5>(srli16<8 - G>(v.b))), srli16<3>(v.c));
        store(d[0] + x, w);
    } else {
        narrowStore(d[0] + x, v.a);
        if constexpr (L::kPlanes > 1) narrowStore(d[1] + x, v.b), narrowStore(d[2] + x, v.c);
        if constexpr (L::kPlanes > 3) narrowStore(d[3] + x, v.k);
    }
}

// Converts the row's whole blocks; returns the pixels done.
template <class In, class Conv, class Out, class V>
inline int convertBlocks(V, const typename In::Sample* const* s, typename Out::Sample* const* d, int width) {
    constexpr int P = kLanes16<V>;
    int x = 0;
    for (; x + P <= width; x += P) writeBlock<V>(Out{}, d, x, convertLanes(Conv{}, readBlock<V>(In{}, s, x)));
    return x;
}

}  // namespace

#pragma GCC diagnostic pop

#endif
