// Checksums, avx2 level: Adler-32 in 64-byte chunks weighted with
// vpmaddubsw (adler32_simd.h), and CRC-32 by folding 128-bit lanes with
// PCLMULQDQ, eight in flight (crc32_fold_simd.h).
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/checksum_exports.h"
#include "compression/crc32_shift_tables.h"
#include "core/dispatch.h"

namespace vek::avx2 {
#include "core/simd_vocabulary.h"
#include "compression/adler32_simd.h"
#include "compression/crc32_streams.h"
#include "compression/crc32_fold_simd.h"

namespace {

inline uint32_t crcUpdate(uint32_t c, const Vek8u* p, size_t len) {
    return len >= 128 ? crcFold<Lanes128, 8>(c, p, len) : crcFold<Lanes128, 1>(c, p, len);
}

}  // namespace

VEK_ADLER32_EXPORT
VEK_CRC32_EXPORT
}  // namespace vek::avx2
