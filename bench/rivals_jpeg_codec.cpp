// libjpeg-turbo beside the codec's whole-image cases (bench_jpeg_codec.cpp):
// tjCompress2 of the same RGB pixels at quality 75, 4:2:0, and
// tjDecompress2 of the same file to RGB, into buffers kept from call to
// call as ours are, both with the accurate integer
// DCT (the one our transforms match), smooth upsampling when decoding.
#include <turbojpeg.h>

#include "bench_cases.h"
#include "examples/jpeg_codec/jpeg_pixels.h"
#include "jpeg_photo.h"

namespace vekbench {
namespace {

struct Turbo {
    vekjpeg::Image pixels;
    std::vector<unsigned char> decoded, compressed;
    tjhandle compressor = tjInitCompress(), decompressor = tjInitDecompress();
    Turbo() {
        vekjpeg::decodeJpeg(photoFile().data(), photoFile().size(), 1, pixels);
        decoded.resize(pixels.pixels.size());
        compressed.resize(tjBufSize(pixels.width, pixels.height, TJSAMP_420));
    }
};
Turbo& turbo() {
    static Turbo t;
    return t;
}

VEK_BENCH_RIVAL(tjCompress2, "codec:encode/photo1080p", "libjpeg-turbo", [] {
    Turbo& t = turbo();
    unsigned char* mem = t.compressed.data();
    unsigned long size = static_cast<unsigned long>(t.compressed.size());
    tjCompress2(t.compressor, t.pixels.pixels.data(), t.pixels.width, 0, t.pixels.height, TJPF_RGB, &mem, &size,
                TJSAMP_420, 75, TJFLAG_ACCURATEDCT | TJFLAG_NOREALLOC);
});

VEK_BENCH_RIVAL(tjDecompress2, "codec:decode/photo1080p", "libjpeg-turbo", [] {
    Turbo& t = turbo();
    const std::vector<uint8_t>& file = photoFile();
    tjDecompress2(t.decompressor, file.data(), static_cast<unsigned long>(file.size()), t.decoded.data(),
                  t.pixels.width, 0, t.pixels.height, TJPF_RGB, TJFLAG_ACCURATEDCT);
});

}  // namespace
}  // namespace vekbench
