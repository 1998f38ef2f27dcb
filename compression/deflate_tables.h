// Constant tables of the deflate format (RFC 1951): the length and distance
// codes with their bases and extra bits, and the fixed Huffman code.
//
// Built at compile time from the bases, so they are read-only data shared
// by every level; nothing here is computed when the library runs.
#ifndef VEK_COMPRESSION_DEFLATE_TABLES_H
#define VEK_COMPRESSION_DEFLATE_TABLES_H

#include <stdint.h>

namespace vek::deflate {

constexpr int kLengthCodes = 29, kDistanceCodes = 30;
constexpr int kEndOfBlock = 256, kFirstLengthSymbol = 257;
constexpr int kCodeLengthSymbols = 19;
constexpr int kMaxCodeBits = 15, kMaxCodeLengthBits = 7;

constexpr uint16_t kLengthBase[kLengthCodes] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                                31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr uint8_t kLengthExtra[kLengthCodes] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr uint16_t kDistanceBase[kDistanceCodes] = {1,    2,    3,    4,    5,    7,    9,    13,    17,    25,
                                                    33,   49,   65,   97,   129,  193,  257,  385,   513,   769,
                                                    1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr uint8_t kDistanceExtra[kDistanceCodes] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                                    6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

// The order in which the code-length code's lengths are sent.
constexpr uint8_t kCodeLengthOrder[kCodeLengthSymbols] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                          11, 4,  12, 3, 13, 2, 14, 1, 15};

struct CodeTables {
    uint8_t lengthCode[256];        // by match length - 3
    uint8_t distanceCode[512];      // by distance - 1 below 256, else 256 + ((distance - 1) >> 7)
    uint16_t fixedLitLenCode[288];  // fixed codes, bit-reversed for least-significant-first output
    uint8_t fixedLitLenBits[288];
    uint16_t fixedDistanceCode[kDistanceCodes];
    // For counting: the literal/length symbol of a pair by value + 512 for a
    // match, and its distance code by countSlot(distance) (30: a literal).
    uint16_t pairSymbol[1024];
    uint8_t distanceSlot[513];
};

constexpr int codeOfLength(int length) {
    int code = 0;
    while (code + 1 < kLengthCodes && kLengthBase[code + 1] <= length) ++code;
    return code;
}
constexpr int codeOfDistance(int distance) {
    int code = 0;
    while (code + 1 < kDistanceCodes && kDistanceBase[code + 1] <= distance) ++code;
    return code;
}
constexpr uint32_t reverseBits(uint32_t code, int bits) {
    uint32_t r = 0;
    for (int i = 0; i < bits; ++i) r |= ((code >> i) & 1u) << (bits - 1 - i);
    return r;
}

constexpr CodeTables makeCodeTables() {
    CodeTables t{};
    for (int i = 0; i < 256; ++i) t.lengthCode[i] = static_cast<uint8_t>(codeOfLength(i + 3));
    for (int i = 0; i < 256; ++i) t.distanceCode[i] = static_cast<uint8_t>(codeOfDistance(i + 1));
    for (int i = 0; i < 256; ++i) t.distanceCode[256 + i] = static_cast<uint8_t>(codeOfDistance((i << 7) + 1));
    // RFC 1951 3.2.6: 0-143 eight bits from 00110000, 144-255 nine bits from
    // 110010000, 256-279 seven bits from 0, 280-287 eight bits from 11000000.
    for (int s = 0; s < 288; ++s) {
        int bits = 8;
        uint32_t code = 0x30 + s;
        if (s >= 144 && s < 256)
            bits = 9, code = 0x190 + (s - 144);
        else if (s >= 256 && s < 280)
            bits = 7, code = s - 256;
        else if (s >= 280)
            code = 0xC0 + (s - 280);
        t.fixedLitLenCode[s] = static_cast<uint16_t>(reverseBits(code, bits));
        t.fixedLitLenBits[s] = static_cast<uint8_t>(bits);
    }
    for (int d = 0; d < kDistanceCodes; ++d) t.fixedDistanceCode[d] = static_cast<uint16_t>(reverseBits(d, 5));
    for (int v = 0; v < 512; ++v) t.pairSymbol[v] = static_cast<uint16_t>(v < 256 ? v : 0);
    for (int v = 0; v < 512; ++v)
        t.pairSymbol[512 + v] =
            static_cast<uint16_t>(v >= 3 && v <= 258 ? kFirstLengthSymbol + codeOfLength(v) : kFirstLengthSymbol);
    for (int i = 0; i < 512; ++i) t.distanceSlot[i] = t.distanceCode[i];
    t.distanceSlot[512] = kDistanceCodes;
    return t;
}

inline constexpr CodeTables kCodeTables = makeCodeTables();

inline int lengthCodeOf(int length) { return kCodeTables.lengthCode[length - 3]; }
inline int distanceCodeOf(int distance) {
    const int d = distance - 1;
    return d < 256 ? kCodeTables.distanceCode[d] : kCodeTables.distanceCode[256 + (d >> 7)];
}

// Counts the literal/length symbols and the distance codes of valid pairs
// (literals and matches both), adding to litLen[286] and dist[31]: a
// literal adds to the spare dist[30].  One table look-up each, by indexes
// that compilers compute free of branches: literals and matches alternate
// at random.
// Four pairs in a row count into four copies of the tables, so a run of
// literals (each adding to dist[30]) or of one symbol does not wait on its
// own last increment; the copies are named apart so that their addresses
// are constant offsets.
inline void countPairSymbols(const uint16_t* pairs, int count, uint32_t* litLen, uint32_t* dist) {
    constexpr int kCopies = 4, kLitLen = 286, kDist = kDistanceCodes + 1;
    uint32_t lit[kCopies][kLitLen] = {}, dis[kCopies][kDist] = {};
    const auto countOne = [](const uint16_t* pair, uint32_t* lit, uint32_t* dis) {
        const unsigned value = pair[0], distance = pair[1];
        const unsigned d = distance - 1, far = 256 + (d >> 7);  // a literal's d is past every distance
        const unsigned slot = d < 256 ? d : far < 512 ? far : 512;
        ++lit[kCodeTables.pairSymbol[(value & 511) | unsigned(distance != 0) << 9]];
        ++dis[kCodeTables.distanceSlot[slot]];
    };
    int i = 0;
    for (; i + kCopies <= count; i += kCopies, pairs += 2 * kCopies) {
        countOne(pairs, lit[0], dis[0]);
        countOne(pairs + 2, lit[1], dis[1]);
        countOne(pairs + 4, lit[2], dis[2]);
        countOne(pairs + 6, lit[3], dis[3]);
    }
    for (; i < count; ++i, pairs += 2) countOne(pairs, lit[0], dis[0]);
    for (int s = 0; s < kLitLen; ++s) litLen[s] += lit[0][s] + lit[1][s] + lit[2][s] + lit[3][s];
    for (int s = 0; s < kDist; ++s) dist[s] += dis[0][s] + dis[1][s] + dis[2][s] + dis[3][s];
}

}  // namespace vek::deflate

#endif
