// What the JPEG DCT cases and their rivals share: one block of samples,
// its coefficients and tables, and a 1920 x 1080 plane.
#ifndef VEK_BENCH_JPEG_DCT_H
#define VEK_BENCH_JPEG_DCT_H

#include <vector>

#include "vek.h"

namespace vekbench {

constexpr int kPlaneWidth = 1920, kPlaneHeight = 1080;

struct JpegBenchData {
    std::vector<Vek8u> plane;  // kPlaneWidth x kPlaneHeight samples
    Vek8u samples[64];         // a block of the plane, step 8
    Vek16u samples12[64];      // 12-bit samples, step 16
    Vek16s levelShifted[64];   // samples - 128
    Vek16s coefficients[64];   // samples quantised by fwdTable
    Vek16u fwdTable[64], invTable[64];
    Vek32f fwdFloatTable[64], invFloatTable[64];
};
const JpegBenchData& jpegBenchData();

}  // namespace vekbench

#endif
