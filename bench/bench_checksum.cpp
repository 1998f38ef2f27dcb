// Benchmark cases of the checksums and the run-length code: CRC-32 and
// Adler-32 over 64 KiB of random bytes (cache-resident), run-length
// encoding and decoding of 64 KiB of text-like and of run-heavy data.
#include "bench_cases.h"
#include "checksum_data.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

template <class Fn>
BenchCase checksumCase(const char* name, const char* exportName, const Fn* table) {
    return {name, exportName, kChecksumBytes, double(kChecksumBytes), [table](int level) {
                static Vek32u value = 1;
                table[level](randomBytes().data(), kChecksumBytes, &value);
            }};
}

}  // namespace

VEK_BENCH_FAMILY(checksum) {
    cases.push_back(checksumCase("veksCRC32_8u/64KiB", "veksCRC32_8u", vek::vekTable_veksCRC32_8u));
    cases.push_back(checksumCase("veksAdler32_8u/64KiB", "veksAdler32_8u", vek::vekTable_veksAdler32_8u));
}

}  // namespace vekbench
