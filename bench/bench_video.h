// What the video cases and their rivals share: two frames of a smooth
// synthetic picture (the second moved by a few pixels), cache-resident,
// and the blocks the cases compare.
#ifndef VEK_BENCH_VIDEO_H
#define VEK_BENCH_VIDEO_H

#include <cmath>
#include <vector>

namespace vekbench {

struct VideoFrames {
    static constexpr int kSide = 64;
    std::vector<unsigned char> cur = std::vector<unsigned char>(kSide * kSide),
                               ref = std::vector<unsigned char>(kSide * kSide);
    VideoFrames() {
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x) {
                cur[y * kSide + x] = picture(x, y);
                ref[y * kSide + x] = picture(x + 3, y - 2);
            }
    }
    static unsigned char picture(int x, int y) {
        return static_cast<unsigned char>(128 + 80 * std::sin(x * 0.13 + y * 0.05) + 40 * std::cos(y * 0.21));
    }
    // The current block at (16, 16) and the reference block it is compared with.
    const unsigned char* curBlock() const { return &cur[16 * kSide + 16]; }
    const unsigned char* refBlock() const { return &ref[18 * kSide + 13]; }
};

inline const VideoFrames& videoFrames() {
    static const VideoFrames frames;
    return frames;
}

}  // namespace vekbench

#endif
