// CRC-32 by carry-less multiplication, for the levels with PCLMULQDQ (128
// bits) and VPCLMULQDQ (256 and 512 bits).
//
// The reflected CRC is the remainder of the message polynomial times x^32
// modulo G.  A 128-bit lane of message bits (the first byte's low bit the
// highest power) is split into its two 64-bit halves H and L, worth
// H x^64 + L.  Moving the lane d bits further on multiplies it by x^d;
// modulo G that is H (x^(64+d) mod G) + L (x^d mod G), two carry-less
// products of a half with a 32-bit constant, which fit in 128 bits and are
// XORed into the lane found d bits on.  In the reflected order the product
// of a 64-bit half and a 32-bit constant lands 33 places low, so the
// constants are x^(d+31) and x^(d-33) modulo G.  Several lanes (and
// several vectors of lanes) are folded side by side to cover the
// multiplier's latency, then folded into one lane, and the CRC of that
// last lane's 16 bytes, from a zero register, is the CRC of everything
// before it: the running register was XORed into the first 4 bytes, which
// is what starting from it means.  Bytes after the last whole lane go
// through the scalar code.
//
// Included inside a level's namespace after <immintrin.h>, <string.h>,
// crc32_tables.h and crc32_streams.h; everything has internal linkage.
#ifndef VEK_COMPRESSION_CRC32_FOLD_SIMD_H
#define VEK_COMPRESSION_CRC32_FOLD_SIMD_H

namespace {

// x^e modulo G in the reflected order: bit 31 - i holds the coefficient of x^i.
constexpr uint64_t crcPowerOfX(int e) {
    uint32_t v = 0x80000000u;  // x^0
    for (int i = 0; i < e; ++i) v = (v & 1) ? (v >> 1) ^ 0xEDB88320u : v >> 1;
    return v;
}

// The multipliers that move a lane `bits` on: the low half (H) times
// x^(bits+31), the high half (L) times x^(bits-33).
template <int kBits>
inline __m128i foldConstants() {
    constexpr uint64_t forLow = crcPowerOfX(kBits + 31), forHigh = crcPowerOfX(kBits - 33);
    return _mm_set_epi64x(static_cast<long long>(forHigh), static_cast<long long>(forLow));
}

inline __m128i fold(__m128i lane, __m128i k, __m128i next) {
    return _mm_xor_si128(_mm_xor_si128(_mm_clmulepi64_si128(lane, k, 0x00), _mm_clmulepi64_si128(lane, k, 0x11)), next);
}

#ifdef __VPCLMULQDQ__
inline __m256i fold(__m256i lanes, __m256i k, __m256i next) {
    return _mm256_ternarylogic_epi64(_mm256_clmulepi64_epi128(lanes, k, 0x00), _mm256_clmulepi64_epi128(lanes, k, 0x11),
                                     next, 0x96);
}
inline __m512i fold(__m512i lanes, __m512i k, __m512i next) {
    return _mm512_ternarylogic_epi64(_mm512_clmulepi64_epi128(lanes, k, 0x00), _mm512_clmulepi64_epi128(lanes, k, 0x11),
                                     next, 0x96);
}
#endif

// One vector width: loads, the register put into the first lane, the
// multipliers in every lane, and the fold of a whole vector to one lane.
struct Lanes128 {
    using V = __m128i;
    static constexpr size_t kBytes = 16;
    static V load(const Vek8u* p) { return load128i(p); }
    static V withRegister(V v, uint32_t c) { return _mm_xor_si128(v, _mm_cvtsi32_si128(static_cast<int>(c))); }
    template <int kBits>
    static V constants() {
        return foldConstants<kBits>();
    }
    static __m128i toOneLane(V v) { return v; }
};
#ifdef __VPCLMULQDQ__
struct Lanes512 {
    using V = __m512i;
    static constexpr size_t kBytes = 64;
    static V load(const Vek8u* p) { return load512i(p); }
    static V withRegister(V v, uint32_t c) {
        return _mm512_xor_si512(v, _mm512_zextsi128_si512(_mm_cvtsi32_si128(static_cast<int>(c))));
    }
    template <int kBits>
    static V constants() {
        constexpr long long forLow = static_cast<long long>(crcPowerOfX(kBits + 31));
        constexpr long long forHigh = static_cast<long long>(crcPowerOfX(kBits - 33));
        return _mm512_set_epi64(forHigh, forLow, forHigh, forLow, forHigh, forLow, forHigh, forLow);
    }
    // (Through memory: GCC 12 warns of an uninitialised register inside
    // the lane-extracting intrinsics.)
    static __m128i toOneLane(V v) {
        alignas(64) Vek8u lanes[64];
        storeAligned(lanes, v);
        const __m128i l0 = loadAligned128i(lanes), l1 = loadAligned128i(lanes + 16);
        const __m128i l2 = loadAligned128i(lanes + 32), l3 = loadAligned128i(lanes + 48);
        __m128i x = fold(l0, foldConstants<384>(), l3);
        x = _mm_xor_si128(x, fold(l1, foldConstants<256>(), _mm_setzero_si128()));
        return _mm_xor_si128(x, fold(l2, foldConstants<128>(), _mm_setzero_si128()));
    }
};
#endif

// The raw register after the bytes p[0..len), with kVectors vectors of
// lanes in flight; inputs too short to fill them all go to the scalar code.
template <class L, int kVectors>
inline uint32_t crcFold(uint32_t c, const Vek8u* p, size_t len) {
    using V = typename L::V;
    constexpr size_t stride = kVectors * L::kBytes;
    if (len < stride) return crcStreamsUpdate(c, p, len);
    V acc[kVectors];
    for (int i = 0; i < kVectors; ++i) acc[i] = L::load(p + i * L::kBytes);
    acc[0] = L::withRegister(acc[0], c);
    p += stride;
    len -= stride;
    const V kStride = L::template constants<int(8 * stride)>();
    for (; len >= stride; p += stride, len -= stride)
        for (int i = 0; i < kVectors; ++i) acc[i] = fold(acc[i], kStride, L::load(p + i * L::kBytes));
    const V kVector = L::template constants<int(8 * L::kBytes)>();
    V v = acc[0];
    for (int i = 1; i < kVectors; ++i) v = fold(v, kVector, acc[i]);
    for (; len >= L::kBytes; p += L::kBytes, len -= L::kBytes) v = fold(v, kVector, L::load(p));
    __m128i lane = L::toOneLane(v);
    const __m128i kLane = foldConstants<128>();
    for (; len >= 16; p += 16, len -= 16) lane = fold(lane, kLane, load128i(p));
    alignas(16) Vek8u last[16];
    storeAligned(last, lane);
    c = crcSlice8(crcSlice8(0, last), last + 8);
    for (; len >= 8; len -= 8, p += 8) c = crcSlice8(c, p);
    for (; len; --len) c = crcByte(c, *p++);
    return c;
}

}  // namespace

#endif
