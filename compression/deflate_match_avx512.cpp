// The deflate match finder, avx512 level: match lengths 32 bytes at a time, with the avx512 checksums (AVX-512 Adler-32, VPCLMULQDQ CRC-32).
//
// The matching call is the one of deflate_match.h, so the pairs are the
// plain level's; only the compares and the checksums differ.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/deflate_hash_tables.h"
#include "compression/deflate_state.h"
#include "compression/deflate_tables.h"
#include "core/dispatch.h"

namespace vek::avx512 {
#include "core/simd_vocabulary.h"
#include "compression/deflate_compare_simd.h"

namespace {

// The running checksum through the implementations the export list gives
// this level.
VekStatus checksumAdler32(const Vek8u* src, int len, Vek32u* sum) { return avx512::veksAdler32_8u(src, len, sum); }
VekStatus checksumCrc32(const Vek8u* src, int len, Vek32u* sum) { return avx512::veksCRC32_8u(src, len, sum); }

}  // namespace

#include "compression/deflate_match.h"

VekStatus VEK_CALL veksEncodeLZ77_8u(const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen, int flush,
                                     VekDeflateState* pState) {
    return encodeLz77(ppSrc, pSrcLen, ppPairs, pPairsLen, flush, pState);
}

}  // namespace vek::avx512
