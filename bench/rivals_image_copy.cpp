// Rivals of the image copy family: the C library's memcpy on the same
// contiguous 4096 x 4096 image the copy case moves.
#include <string.h>

#include <vector>

#include "bench_cases.h"

namespace {

std::vector<unsigned char>& bigSource() {
    static std::vector<unsigned char> v(4096 * 4096, 3);
    return v;
}
std::vector<unsigned char>& bigDestination() {
    static std::vector<unsigned char> v(4096 * 4096);
    return v;
}

}  // namespace

VEK_BENCH_RIVAL(memcpyImage, "vekiCopy_8u_C1R/4096x4096", "memcpy",
                [] { memcpy(bigDestination().data(), bigSource().data(), bigSource().size()); });
