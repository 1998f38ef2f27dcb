// CRC-32 over independent streams, for the fast levels.
//
// One slicing-by-eight chain is bound by the latency of its table loads
// and XORs.  Here a group of kStreams equal, adjacent pieces of the buffer
// is checksummed at once, one chain per piece, so the processor overlaps
// them; the registers are then joined with the zero-byte advance tables
// (crc32_shift_tables.h).  What is left after the groups goes through one
// chain.  The result equals the plain level's for every input.
//
// Included inside a level's namespace; everything has internal linkage.
#ifndef VEK_COMPRESSION_CRC32_STREAMS_H
#define VEK_COMPRESSION_CRC32_STREAMS_H

namespace {

constexpr int kCrcStreams = 3;

inline uint32_t crcLoad32(const Vek8u* p) {
    uint32_t v;
    memcpy(&v, p, 4);  // x86 is little-endian
    return v;
}

// Eight bytes through the eight tables (register c, raw, not inverted).
inline uint32_t crcSlice8(uint32_t c, const Vek8u* p) {
    const auto& K = crc32::kCrc32Table;
    const uint32_t x = c ^ crcLoad32(p), y = crcLoad32(p + 4);
    return K[7][x & 0xFF] ^ K[6][(x >> 8) & 0xFF] ^ K[5][(x >> 16) & 0xFF] ^ K[4][x >> 24] ^ K[3][y & 0xFF] ^
           K[2][(y >> 8) & 0xFF] ^ K[1][(y >> 16) & 0xFF] ^ K[0][y >> 24];
}

inline uint32_t crcByte(uint32_t c, Vek8u b) { return (c >> 8) ^ crc32::kCrc32Table[0][(c ^ b) & 0xFF]; }

// Groups of kCrcStreams pieces of kPieceBytes each, while whole groups fit.
template <size_t kPieceBytes>
inline uint32_t crcGroups(uint32_t c, const Vek8u*& p, size_t& len) {
    constexpr size_t pieceBytes = kPieceBytes, groupBytes = kCrcStreams * kPieceBytes;
    for (; len >= groupBytes; len -= groupBytes, p += groupBytes) {
        uint32_t s[kCrcStreams] = {c};
        for (size_t k = 0; k < pieceBytes; k += 8)
            for (int j = 0; j < kCrcStreams; ++j) s[j] = crcSlice8(s[j], p + j * pieceBytes + k);
        c = s[0];
        for (int j = 1; j < kCrcStreams; ++j) c = crc32::advance(crc32::kAdvance<kPieceBytes>, c) ^ s[j];
    }
    return c;
}

// The raw register after the bytes p[0..len).
inline uint32_t crcStreamsUpdate(uint32_t c, const Vek8u* p, size_t len) {
    for (; len && (reinterpret_cast<uintptr_t>(p) & 7); --len) c = crcByte(c, *p++);
    c = crcGroups<4096>(c, p, len);  // the longest pieces that fit, then shorter ones
    c = crcGroups<512>(c, p, len);
    c = crcGroups<64>(c, p, len);
    for (; len >= 8; len -= 8, p += 8) c = crcSlice8(c, p);
    for (; len; --len) c = crcByte(c, *p++);
    return c;
}

}  // namespace

#endif
