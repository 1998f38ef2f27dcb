// What the JPEG 2000 cases and their rival share: the side of the tile of
// the two-dimensional level.
#ifndef VEK_BENCH_JPEG2000_H
#define VEK_BENCH_JPEG2000_H

namespace vekbench {

constexpr int kLevelSide = 1024;

}  // namespace vekbench

#endif
