// Checksums, sse level: CRC-32 over three interleaved streams (scalar code;
// the streams need no vector instructions, so the SSE2 and SSE3 levels use
// this one too).  Adler-32 gains nothing before SSE2 and stays plain.
#include <stdint.h>
#include <string.h>

#include "compression/checksum_exports.h"
#include "compression/crc32_shift_tables.h"
#include "core/dispatch.h"

namespace vek::sse {
#include "compression/crc32_streams.h"

inline uint32_t crcUpdate(uint32_t c, const Vek8u* p, size_t len) { return crcStreamsUpdate(c, p, len); }

VEK_CRC32_EXPORT
}  // namespace vek::sse
