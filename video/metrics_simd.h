// Block-matching metrics for the SIMD levels, over a 16x16 macroblock
// worked a group of rows at a time in vectors of kMaxVector bytes
// (block_simd.h): psadbw sums eight absolute differences into each 64-bit
// lane, pmaddwd squares 16-bit differences and adds them in pairs.
//
// Included inside a level's namespace after block_simd.h; internal linkage.
#ifndef VEK_VIDEO_METRICS_SIMD_H
#define VEK_VIDEO_METRICS_SIMD_H

namespace {

using Macro = Lanes<kMaxVector>;
using MacroV = Macro::V;
constexpr int kMacroRows = kMaxVector / 16;  // rows of the macroblock in a vector

inline MacroV macroRows(const Vek8u* p, int step, int y) {
    return Macro::gather<16, 0, kMaxVector>(blockRow(p, step, y), step);
}

// The 64-bit lanes of v: those of even index summed, and those of odd index.
inline void evenOddLaneSums(MacroV v, uint32_t* even, uint32_t* odd) {
    alignas(64) uint64_t lanes[kMaxVector / 8];
    storeAligned(lanes, v);
    *even = *odd = 0;
    for (int j = 0; j < kMaxVector / 8; ++j) *(j % 2 ? odd : even) += static_cast<uint32_t>(lanes[j]);
}

// At the full-sample position a row is one load of each block and one
// psadbw: 16-byte vectors at every level (wider ones would spend a shuffle
// on each pair of rows), in two running sums.  psadbw leaves the SAD of a
// row's left 8 bytes in the low 64-bit lane and of its right 8 in the high
// one, so eight rows summed are two 8x8 quarters (each below 2^14).
inline __m128i eightRowSads(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep) {
    __m128i even = _mm_setzero_si128(), odd = _mm_setzero_si128();
    for (int y = 0; y < 8; y += 2) {
        even =
            _mm_add_epi32(even, _mm_sad_epu8(load128i(blockRow(cur, curStep, y)), load128i(blockRow(ref, refStep, y))));
        odd = _mm_add_epi32(
            odd, _mm_sad_epu8(load128i(blockRow(cur, curStep, y + 1)), load128i(blockRow(ref, refStep, y + 1))));
    }
    return _mm_add_epi32(even, odd);
}
inline Vek32s fullSampleSad(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep) {
    const __m128i top = eightRowSads(cur, curStep, ref, refStep);
    const __m128i bottom = eightRowSads(blockRow(cur, curStep, 8), curStep, blockRow(ref, refStep, 8), refStep);
    return static_cast<Vek32s>(Lanes<16>::sum64(_mm_add_epi32(top, bottom)));
}

// The half-sample SADs stay functions of their own, jumped to: the
// frame their wide vectors need is then not set up for the full-sample
// SAD, which the export inlines.
template <int Mode>
[[gnu::noinline]] VekStatus halfSampleSad(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek32s* sad) {
    MacroV sum = Macro::zero();
    for (int y = 0; y < 16; y += kMacroRows) {
        const MacroV p =
            predictRows<Macro, 16, kMacroRows, 1, Mode, 0>(blockRow(ref, refStep, y), refStep, Macro::zero());
        sum = Macro::add32(sum, Macro::sad(macroRows(cur, curStep, y), p));
    }
    *sad = static_cast<Vek32s>(Macro::sum64(sum));
    return StatusOk;
}

template <int Mode>
inline VekStatus sadBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek32s* sad) {
    if constexpr (Mode == 0) {
        *sad = fullSampleSad(cur, curStep, ref, refStep);
        return StatusOk;
    } else {
        return halfSampleSad<Mode>(cur, curStep, ref, refStep, sad);
    }
}

inline Vek32s sad4x4(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep) {
    return static_cast<Vek32s>(
        Lanes<16>::sum64(_mm_sad_epu8(loadRows<4, 4>(cur, curStep), loadRows<4, 4>(ref, refStep))));
}

// The quarters read as 16 bits.
void sadQuarters(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16u* out) {
    const __m128i top = eightRowSads(cur, curStep, ref, refStep);
    const __m128i bottom = eightRowSads(blockRow(cur, curStep, 8), curStep, blockRow(ref, refStep, 8), refStep);
    out[0] = static_cast<Vek16u>(_mm_cvtsi128_si32(top));
    out[1] = static_cast<Vek16u>(_mm_extract_epi16(top, 4));
    out[2] = static_cast<Vek16u>(_mm_cvtsi128_si32(bottom));
    out[3] = static_cast<Vek16u>(_mm_extract_epi16(bottom, 4));
}

// The first four bytes of each 8 go to one psadbw, the last four to
// another, so each lane holds one 4x4 block's row.
void sadBlocks4x4(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep, Vek16u* out) {
    const MacroV firstFour = Macro::quads(0xFFFFFFFFll);
    for (int band = 0; band < 4; ++band) {
        MacroV first = Macro::zero(), last = Macro::zero();
        for (int y = 4 * band; y < 4 * band + 4; y += kMacroRows) {
            const MacroV c = macroRows(cur, curStep, y), r = macroRows(ref, refStep, y);
            first = Macro::add32(first, Macro::sad(Macro::bitAnd(c, firstFour), Macro::bitAnd(r, firstFour)));
            last = Macro::add32(last, Macro::sad(Macro::bitXor(c, Macro::bitAnd(c, firstFour)),
                                                 Macro::bitXor(r, Macro::bitAnd(r, firstFour))));
        }
        uint32_t b0, b2, b1, b3;
        evenOddLaneSums(first, &b0, &b2);
        evenOddLaneSums(last, &b1, &b3);
        out[4 * band] = static_cast<Vek16u>(b0);
        out[4 * band + 1] = static_cast<Vek16u>(b1);
        out[4 * band + 2] = static_cast<Vek16u>(b2);
        out[4 * band + 3] = static_cast<Vek16u>(b3);
    }
}

// Sum of (p - c)^2 over the lanes of a group, added to sum.
inline MacroV addSquares(MacroV sum, MacroV p, MacroV c) {
    const MacroV lo = Macro::sub16(Macro::widenLo(p), Macro::widenLo(c));
    const MacroV hi = Macro::sub16(Macro::widenHi(p), Macro::widenHi(c));
    return Macro::add32(sum, Macro::add32(Macro::madd16(lo, lo), Macro::madd16(hi, hi)));
}

template <int Mode>
Vek32s sqrDiffBlock(const Vek8u* cur, int curStep, const Vek8u* ref, int refStep) {
    MacroV sum = Macro::zero();
    for (int y = 0; y < 16; y += kMacroRows) {
        const MacroV p =
            predictRows<Macro, 16, kMacroRows, 1, Mode, 0>(blockRow(ref, refStep, y), refStep, Macro::zero());
        sum = addSquares(sum, p, macroRows(cur, curStep, y));
    }
    return static_cast<Vek32s>(Macro::sum32(sum));
}

template <int ModeF, int ModeB>
Vek32s sqrDiffBlockB(const Vek8u* cur, int curStep, const Vek8u* refF, int refFStep, const Vek8u* refB, int refBStep) {
    MacroV sum = Macro::zero();
    for (int y = 0; y < 16; y += kMacroRows) {
        const MacroV pf =
            predictRows<Macro, 16, kMacroRows, 1, ModeF, 0>(blockRow(refF, refFStep, y), refFStep, Macro::zero());
        const MacroV pb =
            predictRows<Macro, 16, kMacroRows, 1, ModeB, 0>(blockRow(refB, refBStep, y), refBStep, Macro::zero());
        sum = addSquares(sum, Macro::avg(pf, pb), macroRows(cur, curStep, y));
    }
    return static_cast<Vek32s>(Macro::sum32(sum));
}

void blockSums(const Vek8u* cur, int curStep, uint32_t* sum, uint32_t* sumOfSquares) {
    MacroV s = Macro::zero(), q = Macro::zero();
    for (int y = 0; y < 16; y += kMacroRows) {
        const MacroV c = macroRows(cur, curStep, y);
        const MacroV lo = Macro::widenLo(c), hi = Macro::widenHi(c);
        s = Macro::add32(s, Macro::sad(c, Macro::zero()));
        q = Macro::add32(q, Macro::add32(Macro::madd16(lo, lo), Macro::madd16(hi, hi)));
    }
    *sum = Macro::sum64(s);
    *sumOfSquares = Macro::sum32(q);
}

}  // namespace

#endif
