// The bandwidth yardstick of the large image conversions: memcpy moving the
// same traffic (bytes read plus bytes written) as the conversion, so the
// two columns of bytes per second compare directly.
#include <string.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench_cases.h"
#include "bench_image_convert.h"

namespace {

// A memcpy of half the conversion's traffic: it reads and writes that much.
std::function<void()> memcpyOfTraffic(size_t sourceBytes, size_t destinationBytes) {
    const size_t n = (sourceBytes + destinationBytes) / 2;
    auto buffers = std::make_shared<std::vector<char>>();
    return [=] {
        if (buffers->empty()) buffers->assign(2 * n, 1);
        memcpy(buffers->data() + n, buffers->data(), n);
    };
}

constexpr size_t kSamples = size_t(vekbench::kLargeSide) * vekbench::kLargeSide;
const std::string kSize = "/" + std::to_string(vekbench::kLargeSide) + "x" + std::to_string(vekbench::kLargeSide);

}  // namespace

VEK_BENCH_RIVAL(memcpy8u16u, "vekiConvert_8u16u_C1R" + kSize, "memcpy", memcpyOfTraffic(kSamples, 2 * kSamples));
VEK_BENCH_RIVAL(memcpy8u32f, "vekiConvert_8u32f_C1R" + kSize, "memcpy", memcpyOfTraffic(kSamples, 4 * kSamples));
VEK_BENCH_RIVAL(memcpy16s32s, "vekiConvert_16s32s_C1R" + kSize, "memcpy", memcpyOfTraffic(2 * kSamples, 4 * kSamples));
VEK_BENCH_RIVAL(memcpy32f8u, "vekiConvert_32f8u_C1R" + kSize, "memcpy", memcpyOfTraffic(4 * kSamples, kSamples));
