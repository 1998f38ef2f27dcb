// The integer forward DCT of dct_flow.h on 512-bit vectors: two of the
// eight 1-D inputs a register (16 32-bit lanes: two halves of 8 lanes, one
// row or column per lane), so the butterflies and rotations of a pass work
// on both halves at once and the transposes are two rounds of two-source
// lane permutes.
//
// Included by the AVX-512 level's translation unit inside its namespace,
// after <array> and <type_traits>.  Every value is forward8's: its sums
// are formed modulo 2^32 (some in another order, or a rotation's
// z + c b as the two products c1 a + c2 b, which modulo 2^32 is the same
// number) and its shifts and roundings are applied where forward8 applies
// them.  A pair of outputs formed with the same steps but different
// constants takes the constants per half; a pair that needs a sum in one
// half and a difference in the other takes a masked subtraction.
// Registers hold:
//   pass inputs   [x0 | x3], [x7 | x4], [x1 | x2], [x6 | x5] and their
//                 twins [x3 | x0], [x4 | x7], [x2 | x1], [x5 | x6]
//   pass outputs  [X0 | X4], [X2 | X6], [X1 | X7], [X5 | X3]
// The twins let a pass form every pair and its swapped twin side by side
// rather than swap halves on the way (the transposes make both at the same
// depth), which shortens the chain from a block's samples to its
// coefficients.
#ifndef VEK_JPEG_DCT_PAIRS_H
#define VEK_JPEG_DCT_PAIRS_H

namespace {

constexpr __mmask16 kUpperHalf = 0xFF00;

inline __m512i pairOf(int32_t lower, int32_t upper) {
    return _mm512_mask_set1_epi32(_mm512_set1_epi32(lower), kUpperHalf, upper);
}
template <int N>
inline __m512i descalePair(__m512i x) {
    return _mm512_srai_epi32(_mm512_add_epi32(x, _mm512_set1_epi32(1 << (N - 1))), N);
}
// x times a constant per half: one pmaddwd when Narrow promises 16-bit
// factors (as forward8's times), pmulld otherwise.
template <bool Narrow>
inline __m512i timesPair(__m512i x, __m512i constants) {
    if constexpr (Narrow)
        return _mm512_madd_epi16(x, _mm512_and_si512(constants, _mm512_set1_epi32(0xFFFF)));
    else
        return _mm512_mullo_epi32(x, constants);
}
// [x + y | x - y] and [x - y | x + y], from v = [x | y] and w = [y | x].
inline __m512i sumAndDifference(__m512i v, __m512i w) {
    return _mm512_mask_sub_epi32(_mm512_add_epi32(v, w), kUpperHalf, w, v);
}
inline __m512i differenceAndSum(__m512i v, __m512i w) {
    return _mm512_mask_add_epi32(_mm512_sub_epi32(v, w), kUpperHalf, v, w);
}

// One pass of forward8 over the pair registers x and their twins t; the
// four outputs go to x.  The rotations take forward8's sums in their
// four-product form (the same sums modulo 2^32): z + c b = c1 a + c2 b.
template <bool Pass2, bool Narrow>
inline void forwardPairs(__m512i* x, const __m512i* t) {
    auto out = [](__m512i sum) { return Pass2 ? descalePair<21>(sum) : descalePair<12>(sum); };
    // [s07 | s34], [s16 | s25], [d07 | d34], [d16 | d25] and their twins.
    const __m512i sOuter = _mm512_add_epi32(x[0], x[1]), sOuterTwin = _mm512_add_epi32(t[0], t[1]);
    const __m512i sMiddle = _mm512_add_epi32(x[2], x[3]), sMiddleTwin = _mm512_add_epi32(t[2], t[3]);
    const __m512i dOuter = _mm512_sub_epi32(x[0], x[1]), dOuterTwin = _mm512_sub_epi32(t[0], t[1]);
    const __m512i dMiddle = _mm512_sub_epi32(x[2], x[3]), dMiddleTwin = _mm512_sub_epi32(t[2], t[3]);

    // Even half: [e0 | e3], [e3 | e0], [e1 | e2], [e2 | e1] give X0 = e0 + e1,
    // X4 = e0 - e1 and the rotation X2 = 17734 e2 + 42814 e3,
    // X6 = 17734 e3 - 42813 e2.
    const __m512i e03 = sumAndDifference(sOuter, sOuterTwin), e30 = differenceAndSum(sOuter, sOuterTwin);
    const __m512i e12 = sumAndDifference(sMiddle, sMiddleTwin), e21 = differenceAndSum(sMiddle, sMiddleTwin);
    const __m512i sum04 = _mm512_mask_sub_epi32(_mm512_add_epi32(e03, e12), kUpperHalf, e30, e21);
    const __m512i x04 = Pass2 ? descalePair<6>(sum04) : _mm512_slli_epi32(sum04, 3);
    const __m512i e3 = _mm512_mask_blend_epi32(kUpperHalf, e30, e03),
                  e2 = _mm512_mask_blend_epi32(kUpperHalf, e21, e12);
    const __m512i x26 = out(
        _mm512_add_epi32(_mm512_mullo_epi32(e3, pairOf(42814, 17734)), _mm512_mullo_epi32(e2, pairOf(17734, -42813))));

    // Odd half: [u | v] and [v | u] from the middle differences, [g | h]
    // and [h | g] from the outer ones, then [a | b], [b | a], [b' | a''],
    // [a'' | b'] with a = g + u, b = h + v, b' = g - u, a'' = v - h.
    auto middle = [](__m512i d) { return descalePair<12>(_mm512_mullo_epi32(d, _mm512_set1_epi32(46341))); };
    const __m512i uv = middle(dMiddle), vu = middle(dMiddleTwin);
    const __m512i outer = _mm512_slli_epi32(dOuter, 3), outerTwin = _mm512_slli_epi32(dOuterTwin, 3);
    const __m512i gh = sumAndDifference(outer, outerTwin), hg = differenceAndSum(outer, outerTwin);
    const __m512i ab = _mm512_add_epi32(gh, uv), ba = _mm512_add_epi32(hg, vu);
    const __m512i bPrimeASecond = _mm512_mask_sub_epi32(_mm512_sub_epi32(gh, uv), kUpperHalf, uv, gh);
    const __m512i aSecondBPrime = _mm512_mask_sub_epi32(_mm512_sub_epi32(vu, hg), kUpperHalf, hg, vu);
    // X1 = 3406 a + 2276 b, X7 = 3406 b - 2275 a;
    // X5 = 799 a'' + 4017 b', X3 = 799 b' - 4017 a''.
    const __m512i x17 = out(
        _mm512_add_epi32(timesPair<Narrow>(ab, _mm512_set1_epi32(3406)), timesPair<Narrow>(ba, pairOf(2276, -2275))));
    const __m512i x53 = out(_mm512_add_epi32(timesPair<Narrow>(aSecondBPrime, _mm512_set1_epi32(799)),
                                             timesPair<Narrow>(bPrimeASecond, pairOf(4017, -4017))));

    x[0] = x04;
    x[1] = x26;
    x[2] = x17;
    x[3] = x53;
}

// ---- transposes -------------------------------------------------------------------

// Four registers hold eight vectors of eight lanes, vector In[2i + h] in half
// h of register i; element (a, b) is lane b of vector a.  The transpose puts
// element (a, b) at lane a of vector b, vector Out[2o + h] in half h of
// register o, and each output register's twin (its halves swapped).  Round
// one gathers, from registers 0-1 and from 2-3, the elements of output
// registers 0-1 and of 2-3; round two completes each and each twin.
using PermuteIndex = std::array<int32_t, 16>;
struct TransposeIndices {
    PermuteIndex first[2];   // by output pair p: lane 4c + i holds (In[4g + i], Out[4p + c])
    PermuteIndex second[2];  // by output register within the pair
    PermuteIndex twin[2];
};
constexpr TransposeIndices transposeIndices(std::array<int, 8> in, std::array<int, 8> out) {
    TransposeIndices t{};
    for (int p = 0; p < 2; ++p)
        for (int c = 0; c < 4; ++c)
            for (int i = 0; i < 4; ++i) t.first[p][4 * c + i] = (i / 2) * 16 + (i % 2) * 8 + out[4 * p + c];
    for (int q = 0; q < 2; ++q)
        for (int h = 0; h < 2; ++h)
            for (int lane = 0; lane < 8; ++lane) {
                int position = 0;
                while (in[position] != lane) ++position;
                t.second[q][8 * h + lane] = (position / 4) * 16 + (2 * q + h) * 4 + position % 4;
                t.twin[q][8 * h + lane] = (position / 4) * 16 + (2 * q + 1 - h) * 4 + position % 4;
            }
    return t;
}
template <const TransposeIndices& T>
inline void transposePairs(__m512i* x, __m512i* twins) {
    auto index = [](const PermuteIndex& i) { return _mm512_loadu_si512(i.data()); };
    __m512i gathered[2][2];
    for (int p = 0; p < 2; ++p)
        for (int g = 0; g < 2; ++g)
            gathered[p][g] = _mm512_permutex2var_epi32(x[2 * g], index(T.first[p]), x[2 * g + 1]);
    for (int p = 0; p < 2; ++p)
        for (int q = 0; q < 2; ++q) {
            x[2 * p + q] = _mm512_permutex2var_epi32(gathered[p][0], index(T.second[q]), gathered[p][1]);
            twins[2 * p + q] = _mm512_permutex2var_epi32(gathered[p][0], index(T.twin[q]), gathered[p][1]);
        }
}

// Rows in natural order to pass inputs; pass outputs to pass inputs.
alignas(64) constexpr TransposeIndices kRowsToInputs = transposeIndices({0, 1, 2, 3, 4, 5, 6, 7},
                                                                        {0, 3, 7, 4, 1, 2, 6, 5});
alignas(64) constexpr TransposeIndices kOutputsToInputs = transposeIndices({0, 4, 2, 6, 1, 7, 5, 3},
                                                                           {0, 3, 7, 4, 1, 2, 6, 5});

// ---- the block ---------------------------------------------------------------------

// p / 32768 rounded half to even (|p| < 2^30): rounded half up, less one
// where p is an exact tie above an even quotient (p mod 2^16 = 0x4000),
// one step shorter than the reference's (p + 0x3FFF + odd) >> 15.
inline __m512i quantise(__m512i p) {
    const __m512i up = _mm512_srai_epi32(_mm512_add_epi32(p, _mm512_set1_epi32(0x4000)), 15);
    const __mmask16 evenTie =
        _mm512_cmpeq_epi32_mask(_mm512_and_si512(p, _mm512_set1_epi32(0xFFFF)), _mm512_set1_epi32(0x4000));
    return _mm512_mask_sub_epi32(up, evenTie, up, _mm512_set1_epi32(1));
}

// Two rows of samples widened to 32 bits: [row r | row r + 1].
inline __m512i loadRowPair(const Vek8u* p, int step) {
    const __m128i rows = _mm_unpacklo_epi64(
        _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(p))),
        _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(jpeg::blockRow(p, step, 1)))));
    return _mm512_cvtepu8_epi32(rows);
}
inline __m512i loadRowPair(const Vek16s* p, int step) {
    const __m256i rows =
        _mm256_inserti128_si256(_mm256_castsi128_si256(load128i(p)), load128i(jpeg::blockRow(p, step, 1)), 1);
    return _mm512_cvtepi16_epi32(rows);
}

// As dct_simd.h's forwardBlock: the shift reaches only output 0 of pass 1
// (64 * shift, modulo 2^32 as the reference's sum), 8-bit samples keep pass
// 1 narrow and unwrapped, pass 2's outputs always fit in 16 bits.
template <class Sample>
inline void forwardBlock(const Sample* src, int srcStep, int32_t shift, Vek16s* dst, const Vek16u* table) {
    constexpr bool kBytes = std::is_same_v<Sample, Vek8u>;
    __m512i x[4], twins[4];
    for (int i = 0; i < 4; ++i) x[i] = loadRowPair(jpeg::blockRow(src, srcStep, 2 * i), srcStep);
    transposePairs<kRowsToInputs>(x, twins);
    forwardPairs<false, kBytes>(x, twins);
    x[0] = _mm512_add_epi32(x[0], _mm512_maskz_set1_epi32(0x00FF, 64 * shift));
    if (!kBytes)
        for (__m512i& v : x) v = _mm512_srai_epi32(_mm512_slli_epi32(v, 16), 16);
    transposePairs<kOutputsToInputs>(x, twins);
    forwardPairs<true, false>(x, twins);

    // Quantised where they stand, coefficient rows [0 | 4], [2 | 6], [1 | 7],
    // [5 | 3], against table rows paired alike (loads off the critical path).
    if (table) {
        constexpr int kRows[4][2] = {{0, 4}, {2, 6}, {1, 7}, {5, 3}};
        for (int i = 0; i < 4; ++i) {
            const __m256i rows = _mm256_inserti128_si256(_mm256_castsi128_si256(load128i(table + 8 * kRows[i][0])),
                                                         load128i(table + 8 * kRows[i][1]), 1);
            x[i] = quantise(_mm512_mullo_epi32(x[i], _mm512_cvtepu16_epi32(rows)));
        }
    }
    // Packed with saturation: the packs interleave the rows by 64 bits
    // ([0 1 0 1 4 7 4 7], [2 5 2 5 6 3 6 3]), one permute of both restores
    // each half of the block.
    const __m512i packed0417 = _mm512_packs_epi32(x[0], x[2]), packed2653 = _mm512_packs_epi32(x[1], x[3]);
    store(dst, _mm512_permutex2var_epi64(packed0417, _mm512_setr_epi64(0, 2, 1, 3, 8, 10, 13, 15), packed2653));
    store(dst + 32, _mm512_permutex2var_epi64(packed0417, _mm512_setr_epi64(4, 6, 9, 11, 12, 14, 5, 7), packed2653));
}

}  // namespace

#endif
