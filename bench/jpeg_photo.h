// A 1920x1080 photograph for the JPEG benchmarks, made from the natural
// test image (tests/data/grace_hopper.jpg, 512x600, 4:2:0) by repeating
// its MCUs at the coefficient level: a baseline 4:2:0 file with the
// typical tables, its coefficients, and its luminance blocks alone as a
// grey file.  Empty when the source tree's image is not there.
#ifndef VEK_BENCH_JPEG_PHOTO_H
#define VEK_BENCH_JPEG_PHOTO_H

#include <stdint.h>

#include <vector>

#include "examples/jpeg_codec/jpeg_coefficients.h"

namespace vekbench {

const vekjpeg::CoefficientImage& photoCoefficients();  // 1920x1080, 4:2:0
const std::vector<uint8_t>& photoFile();               // the same, written baseline
const vekjpeg::CoefficientImage& greyCoefficients();   // its luminance alone
const std::vector<uint8_t>& greyFile();

}  // namespace vekbench

#endif
