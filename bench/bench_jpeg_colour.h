// What the JPEG colour cases and their rivals share: the frame size (a
// 1920 x 1080 image, beyond the first caches like a real frame) and the
// pseudo-random samples both sides convert.
#ifndef VEK_BENCH_JPEG_COLOUR_H
#define VEK_BENCH_JPEG_COLOUR_H

#include <stdint.h>

#include <vector>

namespace vekbench {

constexpr int kFrameWidth = 1920, kFrameHeight = 1080;

// n bytes from a cheap generator, the same on every call.
inline std::vector<unsigned char> frameBytes(size_t n) {
    std::vector<unsigned char> v(n);
    uint32_t state = 2024;
    for (unsigned char& b : v) {
        state = state * 1664525u + 1013904223u;
        b = static_cast<unsigned char>(state >> 24);
    }
    return v;
}

}  // namespace vekbench

#endif
