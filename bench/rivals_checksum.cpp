// zlib and libdeflate doing the work of the checksum cases.
#include <libdeflate.h>
#include <zlib.h>

#include "bench_cases.h"
#include "checksum_data.h"

#include <string>

namespace vekbench {
namespace {

volatile unsigned long sink;

struct Registrar {
    Registrar() {
        for (int bytes : {kChecksumBytes, kLargeChecksumBytes}) {
            const std::string size = bytes == kChecksumBytes ? "/64KiB" : "/16MiB";
            RivalRegistrar("veksCRC32_8u" + size, "zlib",
                           [bytes] { sink = crc32(sink, randomBytes(bytes).data(), uInt(bytes)); });
            RivalRegistrar("veksAdler32_8u" + size, "zlib",
                           [bytes] { sink = adler32(1, randomBytes(bytes).data(), uInt(bytes)); });
            RivalRegistrar("veksCRC32_8u" + size, "libdeflate", [bytes] {
                sink = libdeflate_crc32(uint32_t(sink), randomBytes(bytes).data(), size_t(bytes));
            });
            RivalRegistrar("veksAdler32_8u" + size, "libdeflate",
                           [bytes] { sink = libdeflate_adler32(1, randomBytes(bytes).data(), size_t(bytes)); });
        }
    }
} registrar;

}  // namespace
}  // namespace vekbench
