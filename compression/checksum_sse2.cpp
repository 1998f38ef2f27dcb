// Checksums, sse2 level: Adler-32 with psadbw and pmaddwd (adler32_simd.h);
// the SSE3 level adds nothing and uses it too.
#include <immintrin.h>
#include <stdint.h>
#include <string.h>

#include "compression/checksum_exports.h"
#include "core/dispatch.h"

namespace vek::sse2 {
#include "compression/adler32_simd.h"

VEK_ADLER32_EXPORT
}  // namespace vek::sse2
