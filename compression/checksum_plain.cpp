// CRC-32 and Adler-32: the plain reference.
//
// CRC-32 is slicing by eight through constant tables once the source is
// 8-byte aligned and at least 15 bytes are given; Adler-32 defers its
// modulo to once per 5552 bytes, the longest run over which the sum B
// cannot overflow 32 bits.  Every other level gives the same values.
#include <stdint.h>
#include <string.h>

#include "compression/checksum_exports.h"
#include "compression/crc32_tables.h"
#include "core/dispatch.h"

namespace vek::plain {
namespace {

constexpr uint32_t kAdlerBase = 65521;
constexpr size_t kAdlerBlock = 5552;

// Remainder modulo 65521 by conditional subtraction of 65521 * 2^k, k from
// 16 down to 0: each step leaves a value below 65521 * 2^k.
inline uint32_t adlerReduce(uint32_t v) {
    for (int k = 16; k >= 0; --k) {
        const uint32_t m = kAdlerBase << k;
        if (v >= m) v -= m;
    }
    return v;
}

inline uint32_t load32le(const Vek8u* p) {
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}

// The Adler-32 value after the bytes p[0..len), from `value` (B << 16 | A).
uint32_t adlerUpdate(uint32_t value, const Vek8u* p, size_t len) {
    uint32_t a = value & 0xFFFF, b = value >> 16;
    while (len > 0) {
        const size_t block = len < kAdlerBlock ? len : kAdlerBlock;
        len -= block;
        size_t n = block;
        for (; n >= 16; n -= 16, p += 16)
            for (int i = 0; i < 16; ++i) {
                a += p[i];
                b += a;
            }
        for (; n > 0; --n) {
            a += *p++;
            b += a;
        }
        a = adlerReduce(a);
        b = adlerReduce(b);
    }
    return (b << 16) | a;
}

// The raw (not inverted) CRC register after the bytes p[0..len).
uint32_t crcUpdate(uint32_t c, const Vek8u* p, size_t len) {
    const auto& K = crc32::kCrc32Table;
    if (len >= 15) {
        for (; reinterpret_cast<uintptr_t>(p) & 7; --len) c = (c >> 8) ^ K[0][(c ^ *p++) & 0xFF];
        for (; len >= 8; len -= 8, p += 8) {
            const uint32_t x = c ^ load32le(p), y = load32le(p + 4);
            c = K[7][x & 0xFF] ^ K[6][(x >> 8) & 0xFF] ^ K[5][(x >> 16) & 0xFF] ^ K[4][x >> 24] ^ K[3][y & 0xFF] ^
                K[2][(y >> 8) & 0xFF] ^ K[1][(y >> 16) & 0xFF] ^ K[0][y >> 24];
        }
    }
    for (; len > 0; --len) c = (c >> 8) ^ K[0][(c ^ *p++) & 0xFF];
    return c;
}

}  // namespace

VEK_ADLER32_EXPORT
VEK_CRC32_EXPORT

}  // namespace vek::plain
