// zlib and libdeflate doing the work of the checksum cases.
#include <libdeflate.h>
#include <zlib.h>

#include "bench_cases.h"
#include "checksum_data.h"

namespace vekbench {
namespace {

volatile unsigned long sink;

VEK_BENCH_RIVAL(zlibCrc, "veksCRC32_8u/64KiB", "zlib",
                [] { sink = crc32(sink, randomBytes().data(), kChecksumBytes); });
VEK_BENCH_RIVAL(zlibAdler, "veksAdler32_8u/64KiB", "zlib",
                [] { sink = adler32(1, randomBytes().data(), kChecksumBytes); });
VEK_BENCH_RIVAL(deflateCrc, "veksCRC32_8u/64KiB", "libdeflate",
                [] { sink = libdeflate_crc32(uint32_t(sink), randomBytes().data(), kChecksumBytes); });
VEK_BENCH_RIVAL(deflateAdler, "veksAdler32_8u/64KiB", "libdeflate",
                [] { sink = libdeflate_adler32(1, randomBytes().data(), kChecksumBytes); });

}  // namespace
}  // namespace vekbench
