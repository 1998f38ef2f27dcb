// Checksums, ssse3 level: Adler-32 weighting each chunk with pmaddubsw
// (adler32_simd.h), and CRC-32 over 64 lanes with pshufb lookups.
// The SSE4.1 level adds nothing and uses both.
//
// CRC-32 in lanes: 64 equal, adjacent pieces of the buffer are checksummed
// at once, in four sets of sixteen; piece l of a set lives in byte l of
// four vectors that hold the bytes 0..3 of its register (byte planes).  One byte step of the register,
//   c = (c >> 8) ^ K0[(c ^ byte) & 0xFF],
// is then a renaming of the planes plus K0 of the low plane, and since K0
// is linear, K0[x] = K0[x & 0x0F] ^ K0[x & 0xF0]: two 16-entry lookups per
// plane, which pshufb does for all sixteen pieces at once.  The input is
// read sixteen bytes of each piece at a time and transposed so that one
// vector holds the same byte of every piece.  The piece registers are
// joined with the zero-byte advance tables, as the scalar streams are.
// Four sets keep enough independent work in flight to cover the latency of
// each step's chain (measured: one set reaches 3.6 GB/s, two 5.4, four
// 6.2, eight 5.7, where spills start to cost).
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/checksum_exports.h"
#include "compression/crc32_shift_tables.h"
#include "core/dispatch.h"

namespace vek::ssse3 {
#include "core/simd_vocabulary.h"
#include "compression/adler32_simd.h"
#include "compression/crc32_streams.h"

namespace {

constexpr int kLanes = 16;

// Byte k of K0[n] and of K0[n << 4] for the nibbles n, one row per plane.
struct NibbleTables {
    alignas(16) uint8_t low[4][16];
    alignas(16) uint8_t high[4][16];
};
constexpr NibbleTables makeNibbleTables() {
    NibbleTables t{};
    for (int k = 0; k < 4; ++k)
        for (int n = 0; n < 16; ++n) {
            t.low[k][n] = static_cast<uint8_t>(crc32::kCrc32Table[0][n] >> (8 * k));
            t.high[k][n] = static_cast<uint8_t>(crc32::kCrc32Table[0][n << 4] >> (8 * k));
        }
    return t;
}
constexpr NibbleTables kNibbles = makeNibbleTables();

// rows[l] = bytes 0..15 of piece l; afterwards column j (byte j of every
// piece, piece l in byte l) is in columns[j].  Four rounds of the same
// interleave give the transpose with the columns in bit-reversed order.
inline void transpose16(__m128i rows[16], __m128i columns[16]) {
    __m128i t[16];
    for (int i = 0; i < 8; ++i) {
        t[i] = _mm_unpacklo_epi8(rows[2 * i], rows[2 * i + 1]);
        t[i + 8] = _mm_unpackhi_epi8(rows[2 * i], rows[2 * i + 1]);
    }
    for (int i = 0; i < 8; ++i) {
        rows[i] = _mm_unpacklo_epi16(t[2 * i], t[2 * i + 1]);
        rows[i + 8] = _mm_unpackhi_epi16(t[2 * i], t[2 * i + 1]);
    }
    for (int i = 0; i < 8; ++i) {
        t[i] = _mm_unpacklo_epi32(rows[2 * i], rows[2 * i + 1]);
        t[i + 8] = _mm_unpackhi_epi32(rows[2 * i], rows[2 * i + 1]);
    }
    static constexpr int kBitReversed[16] = {0, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 15};
    for (int i = 0; i < 8; ++i) {
        columns[kBitReversed[i]] = _mm_unpacklo_epi64(t[2 * i], t[2 * i + 1]);
        columns[kBitReversed[i + 8]] = _mm_unpackhi_epi64(t[2 * i], t[2 * i + 1]);
    }
}

// The sixteen lookup rows in registers, and one byte step of sixteen
// piece registers held as four byte planes.
struct NibbleRows {
    __m128i nibble = _mm_set1_epi8(0x0F);
    __m128i low[4] = {load128i(kNibbles.low[0]), load128i(kNibbles.low[1]), load128i(kNibbles.low[2]),
                      load128i(kNibbles.low[3])};
    __m128i high[4] = {load128i(kNibbles.high[0]), load128i(kNibbles.high[1]), load128i(kNibbles.high[2]),
                       load128i(kNibbles.high[3])};
};
struct Planes {
    __m128i byte[4];
};
inline void crcStep(Planes& s, __m128i column, const NibbleRows& t) {
    const __m128i x = _mm_xor_si128(s.byte[0], column);
    const __m128i lo = _mm_and_si128(x, t.nibble), hi = _mm_and_si128(_mm_srli_epi16(x, 4), t.nibble);
    // The high-nibble lookup comes last: its index takes longest.
    s.byte[0] =
        _mm_xor_si128(_mm_xor_si128(s.byte[1], _mm_shuffle_epi8(t.low[0], lo)), _mm_shuffle_epi8(t.high[0], hi));
    s.byte[1] =
        _mm_xor_si128(_mm_xor_si128(s.byte[2], _mm_shuffle_epi8(t.low[1], lo)), _mm_shuffle_epi8(t.high[1], hi));
    s.byte[2] =
        _mm_xor_si128(_mm_xor_si128(s.byte[3], _mm_shuffle_epi8(t.low[2], lo)), _mm_shuffle_epi8(t.high[2], hi));
    s.byte[3] = _mm_xor_si128(_mm_shuffle_epi8(t.low[3], lo), _mm_shuffle_epi8(t.high[3], hi));
}

// Groups of kSets * 16 pieces of kPieceBytes (a multiple of 16) while
// whole groups fit.  The sets are independent chains that the processor
// runs side by side.
template <size_t kPieceBytes, int kSets>
inline uint32_t crcLaneGroups(uint32_t c, const Vek8u*& p, size_t& len) {
    constexpr int kPieces = kSets * kLanes;
    constexpr size_t groupBytes = kPieces * kPieceBytes;
    const NibbleRows rows;
    for (; len >= groupBytes; len -= groupBytes, p += groupBytes) {
        Planes set[kSets] = {};
        // Piece 0 continues from c, the others start from zero.
        for (int k = 0; k < 4; ++k) set[0].byte[k] = _mm_cvtsi32_si128(int((c >> (8 * k)) & 0xFF));
        for (size_t i = 0; i < kPieceBytes; i += 16) {
            __m128i columns[kSets][16];
            for (int s = 0; s < kSets; ++s) {
                __m128i pieceRows[16];
                for (int l = 0; l < kLanes; ++l) pieceRows[l] = load128i(p + (s * kLanes + l) * kPieceBytes + i);
                transpose16(pieceRows, columns[s]);
            }
            for (int j = 0; j < 16; ++j)
                for (int s = 0; s < kSets; ++s) crcStep(set[s], columns[s][j], rows);
        }
        alignas(16) uint8_t planes[kSets][4][16];
        for (int s = 0; s < kSets; ++s)
            for (int k = 0; k < 4; ++k) storeAligned(planes[s][k], set[s].byte[k]);
        c = 0;
        for (int piece = 0; piece < kPieces; ++piece) {
            const uint8_t(&b)[4][16] = planes[piece / kLanes];
            const int l = piece % kLanes;
            const uint32_t r =
                uint32_t(b[0][l]) | uint32_t(b[1][l]) << 8 | uint32_t(b[2][l]) << 16 | uint32_t(b[3][l]) << 24;
            c = (piece ? crc32::advance(crc32::kAdvance<kPieceBytes>, c) : 0) ^ r;
        }
    }
    return c;
}

inline uint32_t crcUpdate(uint32_t c, const Vek8u* p, size_t len) {
    c = crcLaneGroups<256, 4>(c, p, len);  // 16 KiB groups, then 1 KiB groups
    c = crcLaneGroups<16, 4>(c, p, len);
    return crcStreamsUpdate(c, p, len);
}

}  // namespace

VEK_ADLER32_EXPORT
VEK_CRC32_EXPORT
}  // namespace vek::ssse3
