// Benchmark cases of the checksums and the run-length code: CRC-32 and
// Adler-32 over 64 KiB of random bytes (cache-resident) and over 16 MiB
// (from memory), run-length
// encoding and decoding of 64 KiB of text-like and of run-heavy data.
#include <memory>

#include "bench_cases.h"
#include "checksum_data.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

template <class Fn>
BenchCase checksumCase(const char* exportName, const Fn* table, int bytes) {
    const std::string size = bytes == kChecksumBytes ? "/64KiB" : "/16MiB";
    return {exportName + size, exportName, bytes, double(bytes), [table, bytes](int level) {
                static Vek32u value = 1;
                table[level](randomBytes(bytes).data(), bytes, &value);
            }};
}

// Run-length coding of 64 KiB in one call: encoding into room to spare,
// decoding the coded form back.  bytesPerCall counts the uncoded side.
struct RleInput {
    const std::vector<uint8_t>* plain;
    std::vector<uint8_t> coded, out;
};

RleInput& rleInput(const std::vector<uint8_t>& plain) {
    static std::vector<std::unique_ptr<RleInput>> inputs;
    for (auto& in : inputs)
        if (in->plain == &plain) return *in;
    auto in = std::make_unique<RleInput>();
    in->plain = &plain;
    in->out.resize(plain.size() * 3 / 2 + 16);
    const Vek8u* src = plain.data();
    int srcLen = int(plain.size()), dstLen = int(in->out.size());
    vek::vekTable_veksEncodeRLE_8u[0](&src, &srcLen, in->out.data(), &dstLen);
    in->coded.assign(in->out.begin(), in->out.begin() + dstLen);
    inputs.push_back(std::move(in));
    return *inputs.back();
}

BenchCase rleCase(const std::string& data, const std::vector<uint8_t>& (*bytes)(), bool decode) {
    const char* exportName = decode ? "veksDecodeRLE_8u" : "veksEncodeRLE_8u";
    return {std::string(exportName) + "/" + data, exportName, kChecksumBytes, double(kChecksumBytes),
            [bytes, decode](int level) {
                RleInput& in = rleInput(bytes());
                const std::vector<uint8_t>& src = decode ? in.coded : *in.plain;
                const Vek8u* p = src.data();
                int srcLen = int(src.size()), dstLen = int(in.out.size());
                (decode ? vek::vekTable_veksDecodeRLE_8u : vek::vekTable_veksEncodeRLE_8u)[level](
                    &p, &srcLen, in.out.data(), &dstLen);
            }};
}

}  // namespace

VEK_BENCH_FAMILY(checksum) {
    for (int bytes : {kChecksumBytes, kLargeChecksumBytes}) {
        cases.push_back(checksumCase("veksCRC32_8u", vek::vekTable_veksCRC32_8u, bytes));
        cases.push_back(checksumCase("veksAdler32_8u", vek::vekTable_veksAdler32_8u, bytes));
    }
    for (bool decode : {false, true}) {
        cases.push_back(rleCase("text", textBytes, decode));
        cases.push_back(rleCase("runs", runBytes, decode));
    }
}

}  // namespace vekbench
