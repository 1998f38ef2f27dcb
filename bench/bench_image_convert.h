// What the image conversion cases and their rivals share: the side of the
// large, memory-bound images.
#ifndef VEK_BENCH_IMAGE_CONVERT_H
#define VEK_BENCH_IMAGE_CONVERT_H

namespace vekbench {

constexpr int kLargeSide = 4096;

}  // namespace vekbench

#endif
