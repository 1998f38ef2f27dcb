// The data flow of every 8x8 transform of the JPEG DCT family, written once
// over a lane type and shared by every level.
//
// A level instantiates these templates with its own lane type: the plain
// level with one 32-bit integer or one float, the vector levels with eight
// lanes.  The lane type offers +, -, * by a constant, sra<N> and shl<N>
// (arithmetic shifts) and V::splat(k); integer lanes wrap modulo 2^32, so
// a sum that overflows 32 bits gives the same bits at every level.  The
// float flows use only +, - and * (no fused multiply-add), in the order
// written here, so every level rounds every operation alike.
//
// Integer forward DCT (Loeffler-Ligtenberg-Moschytz), one 1-D transform of
// x0..x7 in place, outputs scaled by 2*sqrt(2) per pass:
//   even: e0 = s07 + s34, e3 = s07 - s34, e1 = s16 + s25, e2 = s16 - s25,
//     X0 = e0 + e1 and X4 = e0 - e1 (times 8 in pass 1, (+32) >> 6 in
//     pass 2), z = 17734 (e2 + e3), X2 = z + 25080 e3, X6 = z - 60547 e2;
//   odd: the middle differences d16, d25 times sqrt 2 (46341, then
//     (+2048) >> 12 in both passes), the outer ones d07, d34 times 8;
//     g = 8 d07 + 8 d34, h = 8 d07 - 8 d34, a = g + u, b' = g - u,
//     b = h + v, a'' = v - h; rotation by 3pi/16: z = 3406 (a + b),
//     X1 = z - 1130 b, X7 = z - 5681 a; rotation by pi/16:
//     z = 799 (a'' + b'), X5 = z + 3218 b', X3 = z - 4816 a''.
//   Multiplied outputs round (+2048) >> 12 in pass 1, (+2^20) >> 21 in
//   pass 2.
// The inverse is its transpose, with 15-bit constants; the middle odd
// terms round to 12 fractional bits ((+2048) >> 12) before their product
// by 5793 (sqrt 2).
#ifndef VEK_JPEG_DCT_FLOW_H
#define VEK_JPEG_DCT_FLOW_H

namespace {

// x / 2^N rounded half up: (x + 2^(N-1)) >> N.
template <int N, class V>
inline V descale(V x) {
    return sra<N>(x + V::splat(1 << (N - 1)));
}

// The 32-bit lane as a 16-bit store would leave it: the low 16 bits,
// sign-extended (two's-complement wrap, no saturation).
template <class V>
inline V wrap16(V x) {
    return sra<16>(shl<16>(x));
}

// x * k where Narrow promises that x and k both fit in 16 signed bits: the
// vector levels then form the product with one pmaddwd.
template <bool Narrow, class V>
inline V times(V x, int32_t k) {
    if constexpr (Narrow)
        return mul16(x, k);
    else
        return x * k;
}

// ---- integer forward DCT -------------------------------------------------------

// Narrow: the inputs are 8-bit samples (level-shifted or not), so every
// product whose constant fits in 16 bits has a factor within 16 bits too
// (sums of differences at most 1020, the odd sums such as a + b below
// 10000).
template <bool Pass2, bool Narrow = false, class V>
inline void forward8(V* x) {
    const V s07 = x[0] + x[7], d07 = x[0] - x[7], s16 = x[1] + x[6], d16 = x[1] - x[6];
    const V s25 = x[2] + x[5], d25 = x[2] - x[5], s34 = x[3] + x[4], d34 = x[3] - x[4];
    auto out = [](V sum) { return Pass2 ? descale<21>(sum) : descale<12>(sum); };

    const V e0 = s07 + s34, e3 = s07 - s34, e1 = s16 + s25, e2 = s16 - s25;
    if (Pass2) {
        x[0] = descale<6>(e0 + e1);
        x[4] = descale<6>(e0 - e1);
    } else {
        x[0] = shl<3>(e0 + e1);
        x[4] = shl<3>(e0 - e1);
    }
    const V zEven = times<Narrow>(e2 + e3, 17734);
    x[2] = out(zEven + times<Narrow>(e3, 25080));
    x[6] = out(zEven + e2 * -60547);

    const V u = descale<12>(d16 * 46341), v = descale<12>(d25 * 46341);
    const V g = shl<3>(d07) + shl<3>(d34), h = shl<3>(d07) - shl<3>(d34);
    const V a = g + u, bPrime = g - u, b = h + v, aSecond = v - h;
    const V z3 = times<Narrow>(a + b, 3406);
    x[1] = out(z3 + times<Narrow>(b, -1130));
    x[7] = out(z3 + times<Narrow>(a, -5681));
    const V z1 = times<Narrow>(aSecond + bPrime, 799);
    x[5] = out(z1 + times<Narrow>(bPrime, 3218));
    x[3] = out(z1 + times<Narrow>(aSecond, -4816));
}

// ---- integer inverse DCT -------------------------------------------------------

template <bool Pass2, class V>
inline void inverse8(V* x) {
    auto out = [](V sum) { return Pass2 ? descale<21>(sum) : descale<12>(sum); };

    const V zEven = (x[2] + x[6]) * 17734;
    const V t13 = zEven + x[2] * 25080, t12 = zEven + x[6] * -60547;
    const V e0 = shl<15>(x[0] + x[4]), e1 = shl<15>(x[0] - x[4]);
    const V even07 = e0 + t13, even34 = e0 - t13, even16 = e1 + t12, even25 = e1 - t12;

    const V z3 = (x[1] + x[7]) * 27246;
    const V a = z3 + x[7] * -45451, b = z3 + x[1] * -9041;
    const V z1 = (x[3] + x[5]) * 6393;
    const V bPrime = z1 + x[5] * 25746, aSecond = z1 + x[3] * -38531;
    const V g = a + bPrime, u = a - bPrime, h = b - aSecond, v = b + aSecond;
    const V odd07 = g + h, odd34 = g - h;
    const V odd16 = descale<12>(u) * 5793, odd25 = descale<12>(v) * 5793;

    x[0] = out(even07 + odd07);
    x[7] = out(even07 - odd07);
    x[1] = out(even16 + odd16);
    x[6] = out(even16 - odd16);
    x[2] = out(even25 + odd25);
    x[5] = out(even25 - odd25);
    x[3] = out(even34 + odd34);
    x[4] = out(even34 - odd34);
}

// ---- the reduced inverses ------------------------------------------------------

// Four outputs, each the mean of two neighbouring outputs of inverse8, from
// the eight inputs x0..x7; y[k] receives the mean of outputs 2k and 2k+1.
template <bool Pass2, class V>
inline void inverseTo4(const V* x, V* y) {
    auto out = [](V sum) { return Pass2 ? descale<21>(sum) : descale<12>(sum); };
    const V even = shl<15>(x[0]), rotated = x[2] * 30274 + x[6] * -12540;
    const V even0 = even + rotated, even1 = even - rotated;
    const V odd0 = x[1] * 41991 + x[3] * 14745 + x[5] * -9852 + x[7] * -8352;
    const V odd1 = x[1] * 17393 + x[3] * -35598 + x[5] * 23786 + x[7] * -3460;
    y[0] = out(even0 + odd0);
    y[3] = out(even0 - odd0);
    y[1] = out(even1 + odd1);
    y[2] = out(even1 - odd1);
}

// Two outputs, the means of the first and last four outputs of inverse8.
template <bool Pass2, class V>
inline void inverseTo2(const V* x, V* y) {
    const V odd = x[1] * 59384 + x[3] * -20853 + x[5] * 13932 + x[7] * -11812;
    const V even = shl<16>(x[0]);
    y[0] = Pass2 ? descale<22>(even + odd) : descale<13>(even + odd);
    y[1] = Pass2 ? descale<22>(even - odd) : descale<13>(even - odd);
}

// ---- the single-precision path (12-bit samples) --------------------------------

// Arai-Agui-Nakajima scaled forward DCT of x0..x7 in place: output k is
// the T.81 coefficient times 2 sqrt(2) / a_k, where a_0 = 1 and
// a_k = sqrt(2) cos(k pi / 16); kForwardPostScale undoes it in 2-D.
template <class F>
inline void forwardFloat8(F* x) {
    const F t0 = x[0] + x[7], t7 = x[0] - x[7], t1 = x[1] + x[6], t6 = x[1] - x[6];
    const F t2 = x[2] + x[5], t5 = x[2] - x[5], t3 = x[3] + x[4], t4 = x[3] - x[4];

    const F t10 = t0 + t3, t13 = t0 - t3, t11 = t1 + t2, t12 = t1 - t2;
    x[0] = t10 + t11;
    x[4] = t10 - t11;
    const F z1 = (t12 + t13) * 0.707106781f;
    x[2] = t13 + z1;
    x[6] = t13 - z1;

    const F p10 = t4 + t5, p11 = t5 + t6, p12 = t6 + t7;
    const F z5 = (p10 - p12) * 0.382683433f;
    const F z2 = p10 * 0.541196100f + z5;
    const F z4 = p12 * 1.306562965f + z5;
    const F z3 = p11 * 0.707106781f;
    const F z11 = t7 + z3, z13 = t7 - z3;
    x[5] = z13 + z2;
    x[3] = z13 - z2;
    x[1] = z11 + z4;
    x[7] = z11 - z4;
}

// Arai-Agui-Nakajima scaled inverse DCT of x0..x7 in place; its inputs
// are coefficients times a_u a_v / 8 (kInversePreScale), which makes the
// 2-D result the T.81 inverse DCT.
template <class F>
inline void inverseFloat8(F* x) {
    const F t10 = x[0] + x[4], t11 = x[0] - x[4];
    const F t13 = x[2] + x[6], t12 = (x[2] - x[6]) * 1.414213562f - t13;
    const F e0 = t10 + t13, e3 = t10 - t13, e1 = t11 + t12, e2 = t11 - t12;

    const F z13 = x[5] + x[3], z10 = x[5] - x[3], z11 = x[1] + x[7], z12 = x[1] - x[7];
    const F o7 = z11 + z13;
    const F r11 = (z11 - z13) * 1.414213562f;
    const F z5 = (z10 + z12) * 1.847759065f;
    const F r10 = z5 - z12 * 1.082392200f;
    const F r12 = z5 - z10 * 2.613125930f;
    const F o6 = r12 - o7, o5 = r11 - o6, o4 = r10 - o5;

    x[0] = e0 + o7;
    x[7] = e0 - o7;
    x[1] = e1 + o6;
    x[6] = e1 - o6;
    x[2] = e2 + o5;
    x[5] = e2 - o5;
    x[3] = e3 + o4;
    x[4] = e3 - o4;
}

// clang-format off
// Entry (u, v) is 1 / (8 a_u a_v): the scaled forward outputs times this
// are the T.81 coefficients.
alignas(64) constexpr float kForwardPostScale[64] = {
    0.125f, 0.0901199803f, 0.0956708565f, 0.106303759f, 0.125f, 0.159094825f, 0.230969876f, 0.453063726f,
    0.0901199803f, 0.064972885f, 0.0689748451f, 0.07664074f, 0.0901199803f, 0.114700973f, 0.16652f, 0.326640755f,
    0.0956708565f, 0.0689748451f, 0.0732233077f, 0.0813613757f, 0.0956708565f, 0.121765904f, 0.176776692f, 0.346759975f,
    0.106303759f, 0.07664074f, 0.0813613757f, 0.0904039219f, 0.106303759f, 0.135299027f, 0.196423739f, 0.385299027f,
    0.125f, 0.0901199803f, 0.0956708565f, 0.106303759f, 0.125f, 0.159094825f, 0.230969876f, 0.453063726f,
    0.159094825f, 0.114700973f, 0.121765904f, 0.135299027f, 0.159094825f, 0.202489302f, 0.293968886f, 0.576640725f,
    0.230969876f, 0.16652f, 0.176776692f, 0.196423739f, 0.230969876f, 0.293968886f, 0.426776707f, 0.8371526f,
    0.453063726f, 0.326640755f, 0.346759975f, 0.385299027f, 0.453063726f, 0.576640725f, 0.8371526f, 1.64213395f,
};
// Entry (u, v) is a_u a_v / 8.
alignas(64) constexpr float kInversePreScale[64] = {
    0.125f, 0.173379987f, 0.163320377f, 0.146984443f, 0.125f, 0.0982118696f, 0.0676495135f, 0.0344874226f,
    0.173379987f, 0.240484938f, 0.226531863f, 0.203873292f, 0.173379987f, 0.136223778f, 0.0938325673f, 0.0478354283f,
    0.163320377f, 0.226531863f, 0.213388354f, 0.192044437f, 0.163320377f, 0.128319994f, 0.0883883461f, 0.0450599901f,
    0.146984443f, 0.203873292f, 0.192044437f, 0.172835425f, 0.146984443f, 0.115484938f, 0.0795474127f, 0.0405529179f,
    0.125f, 0.173379987f, 0.163320377f, 0.146984443f, 0.125f, 0.0982118696f, 0.0676495135f, 0.0344874226f,
    0.0982118696f, 0.136223778f, 0.128319994f, 0.115484938f, 0.0982118696f, 0.077164568f, 0.0531518795f, 0.0270965938f,
    0.0676495135f, 0.0938325673f, 0.0883883461f, 0.0795474127f, 0.0676495135f, 0.0531518795f, 0.0366116539f, 0.0186644588f,
    0.0344874226f, 0.0478354283f, 0.0450599901f, 0.0405529179f, 0.0344874226f, 0.0270965938f, 0.0186644588f, 0.00951505825f,
};
// clang-format on

// ---- scalar rules shared by the element-wise stages ------------------------

// p / 32768 rounded to nearest, ties to even, then saturated to 16 bits:
// the quantisation of one coefficient, p = table entry times coefficient.
inline Vek16s quantiseProduct(int32_t p) {
    const int32_t r = (p + 0x3FFF + ((p >> 15) & 1)) >> 15;
    return static_cast<Vek16s>(r < -32768 ? -32768 : (r > 32767 ? 32767 : r));
}

inline Vek16s saturate16(int32_t x) { return static_cast<Vek16s>(x < -32768 ? -32768 : (x > 32767 ? 32767 : x)); }

// The top-left n x n coefficients dequantised (table read as signed,
// products saturated) into block, every other entry 0; returns block.
inline const Vek16s* retainedCorner(const Vek16s* coef, const Vek16u* table, int n, Vek16s* block) {
    memset(block, 0, 64 * sizeof(Vek16s));
    for (int u = 0; u < n; ++u)
        for (int v = 0; v < n; ++v)
            block[8 * u + v] = saturate16(coef[8 * u + v] * static_cast<Vek16s>(table[8 * u + v]));
    return block;
}

}  // namespace

#endif
