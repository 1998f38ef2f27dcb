// The C runtime's memcpy and memmove beside the byte copy and move over
// 16 MiB and 4 KiB: the bandwidth the library's copies should keep up with.
#include <string.h>

#include <vector>

#include "bench_cases.h"

namespace {

constexpr size_t kLargeBytes = 16 << 20;

struct Large {
    std::vector<unsigned char> from = std::vector<unsigned char>(kLargeBytes, 1),
                               to = std::vector<unsigned char>(kLargeBytes, 2);
    std::vector<unsigned char> area = std::vector<unsigned char>(kLargeBytes + 4096, 3);
};
Large& large() {
    static Large b;
    return b;
}

// Two 4 KiB arrays 1 KiB apart modulo 4 KiB, as the library's case uses.
struct Small {
    std::vector<unsigned char> block = std::vector<unsigned char>(2 * 4096 + 1024, 5);
};
Small& small() {
    static Small b;
    return b;
}

// Allocated and touched at start-up, not in the first timed call.
Large& largeAtStart = large();
Small& smallAtStart = small();

}  // namespace

// The buffers live for the program's lifetime, so the copies cannot be
// dropped as dead stores.
VEK_BENCH_RIVAL(vectorCopySmall, "veksCopy_8u/4096", "memcpy", [] {
    Small& b = small();
    memcpy(b.block.data() + 4096 + 1024, b.block.data(), 4096);
});
VEK_BENCH_RIVAL(vectorCopyLarge, "veksCopy_8u/16MiB", "memcpy", [] {
    Large& b = large();
    memcpy(b.to.data(), b.from.data(), kLargeBytes);
});
VEK_BENCH_RIVAL(vectorMoveLarge, "veksMove_8u/16MiB", "memmove", [] {
    Large& b = large();
    memmove(b.area.data(), b.area.data() + 4096, kLargeBytes);
});
