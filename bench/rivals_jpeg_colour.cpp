// libjpeg-turbo's colour converters beside the JPEG colour cases, on the
// same 1920 x 1080 frame: a compressor or decompressor is started on a frame
// of that size and its converter (the module behind cinfo->cconvert, SIMD
// where libjpeg-turbo has it) is called on all rows at once, with nothing
// else of the codec around it.  Upsampling is not timed here: libjpeg-turbo
// only upsamples inside its decoder's row-group machinery.
#include <stdio.h>
#include <stdlib.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

// With JPEG_INTERNALS, jpeglib.h brings in jpegint.h: the converter modules.
#define JPEG_INTERNALS
#include <jpeglib.h>

#include "bench_cases.h"
#include "bench_jpeg_colour.h"

namespace {

using vekbench::kFrameHeight;
using vekbench::kFrameWidth;
constexpr size_t kPixels = size_t(kFrameWidth) * kFrameHeight;
const std::string kFrame = "/" + std::to_string(kFrameWidth) + "x" + std::to_string(kFrameHeight);

// Row pointers to `rows` rows of `rowBytes` from base.
std::vector<JSAMPROW> rowsOf(unsigned char* base, size_t rowBytes, int rows) {
    std::vector<JSAMPROW> r(rows);
    for (int y = 0; y < rows; ++y) r[y] = base + y * rowBytes;
    return r;
}

// A compressor started on the frame, converting `in` pixels of `components`
// channels to the planes of `jpegSpace`; kept for the program's lifetime.
struct Encoder {
    jpeg_compress_struct c;
    jpeg_error_mgr err;
    unsigned char* out = nullptr;
    unsigned long outSize = 0;
    std::vector<unsigned char> src, dst;
    std::vector<JSAMPROW> srcRows, planeRows[4];
    JSAMPARRAY planes[4];
    Encoder(J_COLOR_SPACE in, int components, J_COLOR_SPACE jpegSpace) {
        c.err = jpeg_std_error(&err);
        jpeg_create_compress(&c);
        jpeg_mem_dest(&c, &out, &outSize);
        c.image_width = kFrameWidth, c.image_height = kFrameHeight;
        c.input_components = components, c.in_color_space = in;
        jpeg_set_defaults(&c);
        jpeg_set_colorspace(&c, jpegSpace);
        for (int i = 0; i < c.num_components; ++i) c.comp_info[i].h_samp_factor = c.comp_info[i].v_samp_factor = 1;
        jpeg_start_compress(&c, TRUE);
        src = vekbench::frameBytes(components * kPixels), dst.assign(4 * kPixels, 0);
        srcRows = rowsOf(src.data(), size_t(components) * kFrameWidth, kFrameHeight);
        for (int i = 0; i < c.num_components; ++i) {
            planeRows[i] = rowsOf(dst.data() + i * kPixels, kFrameWidth, kFrameHeight);
            planes[i] = planeRows[i].data();
        }
    }
    void run() { c.cconvert->color_convert(&c, srcRows.data(), planes, 0, kFrameHeight); }
};

// A decompressor started on a frame coded in the colour space the encoder
// gives, converting its planes to `out`.
struct Decoder {
    jpeg_decompress_struct d;
    jpeg_error_mgr err;
    std::vector<unsigned char> jpeg, src, dst;
    std::vector<JSAMPROW> planeRows[4], dstRows;
    JSAMPARRAY planes[4];
    Decoder(J_COLOR_SPACE in, int inComponents, J_COLOR_SPACE jpegSpace, J_COLOR_SPACE out, int outBytes) {
        {
            Encoder e(in, inComponents, jpegSpace);
            const std::vector<JSAMPROW>& rows = e.srcRows;
            jpeg_write_scanlines(&e.c, const_cast<JSAMPARRAY>(rows.data()), kFrameHeight);
            jpeg_finish_compress(&e.c);
            jpeg.assign(e.out, e.out + e.outSize);
            jpeg_destroy_compress(&e.c);
            free(e.out);
        }
        d.err = jpeg_std_error(&err);
        jpeg_create_decompress(&d);
        jpeg_mem_src(&d, jpeg.data(), static_cast<unsigned long>(jpeg.size()));
        jpeg_read_header(&d, TRUE);
        d.out_color_space = out;
        d.dither_mode = JDITHER_NONE;
        jpeg_start_decompress(&d);
        src = vekbench::frameBytes(4 * kPixels), dst.assign(4 * kPixels, 0);
        for (int i = 0; i < d.num_components; ++i) {
            planeRows[i] = rowsOf(src.data() + i * kPixels, kFrameWidth, kFrameHeight);
            planes[i] = planeRows[i].data();
        }
        dstRows = rowsOf(dst.data(), size_t(outBytes) * kFrameWidth, kFrameHeight);
    }
    void run() { d.cconvert->color_convert(&d, planes, 0, dstRows.data(), kFrameHeight); }
};

// Made on first use: each holds a few frames.
template <class Codec, class... Args>
std::function<void()> lazily(Args... args) {
    auto codec = std::make_shared<std::unique_ptr<Codec>>();
    return [=] {
        if (!*codec) *codec = std::make_unique<Codec>(args...);
        (*codec)->run();
    };
}

const char kRival[] = "libjpeg-turbo";

}  // namespace

VEK_BENCH_RIVAL(ljtRgbYcc, "vekiRGBToYCbCr_JPEG_8u_C3P3R" + kFrame, kRival, lazily<Encoder>(JCS_RGB, 3, JCS_YCbCr));
VEK_BENCH_RIVAL(ljtBgrYcc, "vekiBGRToYCbCr_JPEG_8u_C3P3R" + kFrame, kRival, lazily<Encoder>(JCS_EXT_BGR, 3, JCS_YCbCr));
VEK_BENCH_RIVAL(ljtRgbGray, "vekiRGBToY_JPEG_8u_C3C1R" + kFrame, kRival, lazily<Encoder>(JCS_RGB, 3, JCS_GRAYSCALE));
VEK_BENCH_RIVAL(ljtCmykYcck, "vekiCMYKToYCCK_JPEG_8u_C4P4R" + kFrame, kRival, lazily<Encoder>(JCS_CMYK, 4, JCS_YCCK));
VEK_BENCH_RIVAL(ljtYccRgb, "vekiYCbCrToRGB_JPEG_8u_P3C3R" + kFrame, kRival,
                lazily<Decoder>(JCS_RGB, 3, JCS_YCbCr, JCS_RGB, 3));
VEK_BENCH_RIVAL(ljtYccBgr, "vekiYCbCrToBGR_JPEG_8u_P3C3R" + kFrame, kRival,
                lazily<Decoder>(JCS_RGB, 3, JCS_YCbCr, JCS_EXT_BGR, 3));
VEK_BENCH_RIVAL(ljtYcc565, "vekiYCbCrToBGR565_JPEG_8u16u_P3C3R" + kFrame, kRival,
                lazily<Decoder>(JCS_RGB, 3, JCS_YCbCr, JCS_RGB565, 2));
VEK_BENCH_RIVAL(ljtYcckCmyk, "vekiYCCKToCMYK_JPEG_8u_P4C4R" + kFrame, kRival,
                lazily<Decoder>(JCS_CMYK, 4, JCS_YCCK, JCS_CMYK, 4));
