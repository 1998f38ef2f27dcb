// The pixel side of the `vek jpeg` codec: pixels turned into quantised DCT
// coefficients (colour conversion and chroma averaging by the per-MCU
// functions, the forward DCT with quantisation by quality-scaled standard
// tables) and coefficients turned back into pixels (dequantisation with the
// full inverse DCT of libjpeg's decoders or a reduced one, smooth chroma
// upsampling, conversion to RGB), all by the library's exports.  With jpeg_coefficients.h this is a
// whole JPEG encoder and decoder.
//
// Every failure is a message; nothing here throws or aborts, whatever the
// input.
#ifndef VEK_EXAMPLES_JPEG_PIXELS_H
#define VEK_EXAMPLES_JPEG_PIXELS_H

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "examples/jpeg_codec/jpeg_coefficients.h"

namespace vekjpeg {

// 8-bit pixels, rows packed: 1 channel (grey) or 3 (R, G, B).
struct Image {
    int width = 0, height = 0, channels = 0;
    std::vector<uint8_t> pixels;
};

enum class Sampling { S444, S422, S420, Grey };

struct EncodeOptions {
    int quality = 75;                    // 1..100, scaling the tables of T.81 Annex K
    Sampling sampling = Sampling::S420;  // a grey image is always written grey
    bool optimize = false;
    bool progressive = false;
    int restartInterval = 0;
};

// Pixels to coefficients and quantisation tables (no entropy coding).
std::string pixelsToCoefficients(const Image& image, const EncodeOptions& options, CoefficientImage& img);
// Pixels to a JFIF file.  A caller that encodes image after image passes
// the same `work` each time, so that the coefficient memory is reused.
std::string encodeJpeg(const Image& image, const EncodeOptions& options, std::vector<uint8_t>& out,
                       CoefficientImage* work = nullptr);

// What a decoder keeps from one image to the next: the coefficients, the
// decoded planes and the band buffers.  Reusing it (and the output Image)
// saves allocating and faulting in some 10 MiB per 1080p image.
struct DecodeWork {
    CoefficientImage coefficients;
    std::vector<uint8_t> planes[3], bands[3];
};

// Coefficients to pixels, scaled by 8 / denominator (1, 2, 4 or 8): the
// size becomes ceil(width / denominator) x ceil(height / denominator).  A
// file of one component gives grey pixels, one of three RGB (the three
// components taken as Y, Cb, Cr).  The memory `image` holds is reused.
std::string coefficientsToPixels(const CoefficientImage& img, int denominator, Image& image,
                                 DecodeWork* work = nullptr);
// A JPEG file to pixels; maxBytes bounds the memory of the coefficients.
std::string decodeJpeg(const uint8_t* data, size_t size, int denominator, Image& image, DecodeWork* work = nullptr,
                       size_t maxBytes = size_t(1) << 30);

}  // namespace vekjpeg

#endif
