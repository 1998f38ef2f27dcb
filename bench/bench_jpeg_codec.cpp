// Whole-image cases of the `vek jpeg` codec on the 1920x1080 photograph
// (jpeg_photo.h: 4:2:0, baseline, typical Huffman tables; encoded
// at quality 75, decoded from its file), with a breakdown of where the time goes: colour (per-MCU
// conversion and chroma averaging; upsampling and conversion to RGB),
// transform (forward DCT with quantisation; dequantisation with the inverse
// DCT) and entropy coding (the file written from, or read into,
// coefficients).  A case runs the codec with the dispatch level set to the
// level measured; rivals_jpeg_codec.cpp sets tjCompress2 and tjDecompress2
// beside the whole-image cases.
#include "bench_cases.h"
#include "core/dispatch.h"
#include "examples/jpeg_codec/jpeg_pixels.h"
#include "jpeg_photo.h"

namespace vekbench {
namespace {

struct Codec {
    vekjpeg::Image pixels;              // the photograph decoded
    vekjpeg::CoefficientImage encoded;  // its coefficients as our encoder makes them
    std::vector<uint8_t> file, out;
    vekjpeg::CoefficientImage encodeWork;
    vekjpeg::DecodeWork decodeWork;
    vekjpeg::Image decoded;
    std::vector<Vek16s> scratch = std::vector<Vek16s>(6 * 64);
    std::vector<Vek8u> plane;
    Codec() {
        if (photoFile().empty()) return;
        vekjpeg::decodeJpeg(photoFile().data(), photoFile().size(), 1, pixels);
        vekjpeg::pixelsToCoefficients(pixels, options(), encoded);
        vekjpeg::writeJpeg(encoded, {}, file);
        plane.resize(size_t(encoded.components[0].blocksWide) * 8 * size_t(encoded.components[0].blocksHigh) * 8);
    }
    static vekjpeg::EncodeOptions options() { return vekjpeg::EncodeOptions(); }

    void colourForward() {
        Vek16s* const blocks[3] = {scratch.data(), scratch.data() + 4 * 64, scratch.data() + 5 * 64};
        const int w = pixels.width;
        for (int y = 0; y + 16 <= pixels.height; y += 16)
            for (int x = 0; x + 16 <= w; x += 16)
                vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R(&pixels.pixels[(size_t(y) * size_t(w) + size_t(x)) * 3], w * 3,
                                                    blocks);
    }
    void inverseTransform() {
        const vekjpeg::CoefficientImage& img = photoCoefficients();
        for (const vekjpeg::Component& c : img.components) {
            const int step = c.blocksWide * 8;
            for (int by = 0; by < c.usedHigh; ++by)
                for (int bx = 0; bx < c.usedWide; ++bx)
                    vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R(c.block(bx, by),
                                                            &plane[size_t(by) * 8 * size_t(step) + size_t(bx) * 8],
                                                            step, img.quant[c.quantTable]);
        }
    }
};

Codec& codec() {
    static Codec c;
    return c;
}

// Runs f with the library's dispatch level set to `level`.
template <class F>
void atLevel(int level, F f) {
    const int saved = vek::DispatchLevel;
    vek::DispatchLevel = level;
    f();
    vek::DispatchLevel = saved;
}

}  // namespace

VEK_BENCH_FAMILY(jpegCodec) {
    if (codec().file.empty()) return;
    const int pixels = 1920 * 1080;
    const double raw = pixels * 3.0, coded = double(codec().file.size()), coefficients = pixels * 1.5 * 2;
    auto add = [&](const char* name, double bytes, void (*run)()) {
        cases.push_back(
            {name, "vekiEncodeHuffman8x8_JPEG_16s1u_C1", pixels, bytes, [run](int level) { atLevel(level, run); }});
    };
    add("codec:encode/photo1080p", raw + coded, [] {
        Codec& c = codec();
        vekjpeg::encodeJpeg(c.pixels, Codec::options(), c.out, &c.encodeWork);
    });
    add("codec:encode:colour/photo1080p", raw + coefficients, [] { codec().colourForward(); });
    add("codec:encode:colour+dct/photo1080p", raw + coefficients,
        [] { vekjpeg::pixelsToCoefficients(codec().pixels, Codec::options(), codec().encodeWork); });
    add("codec:encode:entropy/photo1080p", coefficients + coded, [] {
        Codec& c = codec();
        vekjpeg::writeJpeg(c.encoded, {}, c.out);
    });
    add("codec:decode/photo1080p", raw + coded, [] {
        Codec& c = codec();
        vekjpeg::decodeJpeg(photoFile().data(), photoFile().size(), 1, c.decoded, &c.decodeWork);
    });
    add("codec:decode:entropy/photo1080p", coefficients + coded,
        [] { vekjpeg::readJpeg(photoFile().data(), photoFile().size(), codec().decodeWork.coefficients); });
    add("codec:decode:dct/photo1080p", coefficients + pixels * 1.5, [] { codec().inverseTransform(); });
    add("codec:decode:dct+colour/photo1080p", coefficients + raw, [] {
        Codec& c = codec();
        vekjpeg::coefficientsToPixels(photoCoefficients(), 1, c.decoded, &c.decodeWork);
    });
}

}  // namespace vekbench
