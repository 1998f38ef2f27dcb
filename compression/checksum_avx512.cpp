// Checksums, avx512 level: Adler-32 a 64-byte chunk per vector
// (adler32_simd.h), and CRC-32 by folding four 512-bit vectors of lanes
// with VPCLMULQDQ (crc32_fold_simd.h); inputs too short for them fold
// 128-bit lanes.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/checksum_exports.h"
#include "compression/crc32_shift_tables.h"
#include "core/dispatch.h"

namespace vek::avx512 {
#include "core/simd_vocabulary.h"
#include "compression/adler32_simd.h"
#include "compression/crc32_streams.h"
#include "compression/crc32_fold_simd.h"

namespace {

inline uint32_t crcUpdate(uint32_t c, const Vek8u* p, size_t len) {
    return len >= 256 ? crcFold<Lanes512, 4>(c, p, len) : crcFold<Lanes128, 1>(c, p, len);
}

}  // namespace

VEK_ADLER32_EXPORT
VEK_CRC32_EXPORT
}  // namespace vek::avx512
