// Pixels to coefficients and back (see jpeg_pixels.h).  The encoder walks
// the image MCU by MCU: the per-MCU function converts, averages the chroma
// and level-shifts straight from the image (from a small padded copy at the
// right and bottom edges), and each block goes through the forward DCT
// with quantisation into the coefficient image; with the typical Huffman
// tables each MCU row is made just before the entropy coder takes it.
// The decoder puts every component through the inverse DCT into a plane at
// its decoded size and converts each band of output rows as soon as the
// planes hold what it needs: chroma upsampled into band buffers, the band
// converted to RGB.  For a baseline file this runs MCU row by MCU row
// while the scan is decoded, on coefficients still in the cache.
#include "examples/jpeg_codec/jpeg_pixels.h"

#include <string.h>

#include <algorithm>
#include <memory>

#include "examples/jpeg_codec/jpeg_tables.h"

namespace vekjpeg {
namespace {

// ---- encoding ---------------------------------------------------------------------

// The encoder's transform is the library's single-precision one (the
// 12-bit entry, fed samples offset by 1920 so that its - 2048 gives the
// usual - 128): it quantises the unrounded coefficients, where the integer
// transform rounds them first and the quantiser rounds again.  The double
// rounding costs up to 0.25 dB and 1% of file size against libjpeg-turbo's
// integer encoder; the single-precision path matches it in PSNR and is
// smaller, at the same speed (SSE2 and up).
constexpr Vek16u kSampleOffset = 2048;

// The quality-scaled forward (encoder: 1 / q in natural order) and inverse
// (file) tables: 0 for luminance, 1 for chrominance.
void scaledTables(int quality, Vek32f forward[2][64], Vek16u (&file)[4][64]) {
    for (int t = 0; t < 2; ++t) {
        Vek8u raw[64];
        memcpy(raw, t ? kChrominanceQuant : kLuminanceQuant, 64);
        vekiQuantFwdRawTableInit_JPEG_8u(raw, quality);
        vekiQuantInvTableInit_JPEG_8u16u(raw, file[t]);
        for (int i = 0; i < 64; ++i) forward[t][i] = 1.0f / float(file[t][i]);
    }
}

// An 8 x 8 block of 8-bit samples, or of level-shifted ones (-128..127),
// as the single-precision transform takes them.
void widen(const uint8_t* src, int step, Vek16u* dst) {
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) dst[8 * y + x] = static_cast<Vek16u>(src[y * step + x] + kSampleOffset - 128);
}
void widen(const Vek16s* src, Vek16u* dst) {
    for (int i = 0; i < 64; ++i) dst[i] = static_cast<Vek16u>(src[i] + kSampleOffset);
}

// A w x h window at (x, y) copied into dst (packed rows), the last column
// and row of the image repeated beyond its edges, as encoders pad.  Each
// row's part inside the image is one copy, not one per pixel: the MCU row
// along the bottom of a 1080-line image is all padded windows.
void padWindow(const uint8_t* pixels, int width, int height, int channels, int x, int y, int w, int h, uint8_t* dst) {
    const int inside = std::min(w, width - x) * channels, rowBytes = w * channels;
    for (int r = 0; r < h; ++r) {
        const uint8_t* row = pixels + size_t(std::min(y + r, height - 1)) * size_t(width) * size_t(channels);
        uint8_t* out = dst + r * rowBytes;
        memcpy(out, row + x * channels, size_t(inside));
        for (int b = inside; b < rowBytes; ++b) out[b] = out[b - channels];
    }
}

// How far ahead along each of an MCU's pixel rows the colour walk asks
// for the cache line: the walk reads 16 rows at once, more streams than
// the hardware prefetcher follows, and the photograph is far larger than
// the cache.
constexpr size_t kPrefetchAhead = 384;

// A block of the MCU padding beyond the component's samples: no AC and the
// DC of the block coded before it, so that it costs almost nothing.
void dummyBlock(Component& c, int bx, int by, int mcuX) {
    Vek16s* b = c.block(bx, by);
    const Vek16s dc = by >= c.usedHigh ? c.block(mcuX + c.h - 1, by - 1)[0] : c.block(bx - 1, by)[0];
    memset(b, 0, 64 * sizeof(Vek16s));
    b[0] = dc;
}

// Pixels to coefficients, MCU row by MCU row: start() checks the image and
// lays out the coefficient image, rows() fills MCU rows.
class BlockMaker {
public:
    std::string start(const Image& image, const EncodeOptions& options, CoefficientImage& img) {
        resetKeepingMemory(img);
        if (image.width < 1 || image.height < 1 || image.width > 65535 || image.height > 65535)
            return "image size " + std::to_string(image.width) + "x" + std::to_string(image.height) +
                   " out of JPEG's range 1..65535";
        if (image.channels != 1 && image.channels != 3) return "only grey and RGB images can be encoded";
        if (image.pixels.size() != size_t(image.width) * size_t(image.height) * size_t(image.channels))
            return "pixel data of the wrong size";
        if (options.quality < 1 || options.quality > 100) return "quality out of range 1..100";
        image_ = &image;
        img_ = &img;
        sampling_ = image.channels == 1 ? Sampling::Grey : options.sampling;
        img.width = image.width;
        img.height = image.height;
        img.progressive = options.progressive;
        img.restartInterval = options.restartInterval;
        if (sampling_ == Sampling::Grey) {
            img.components.resize(1);
            img.components[0].id = 1;
            img.components[0].quantTable = 0;
        } else {
            img.components.resize(3);
            for (int i = 0; i < 3; ++i) {
                img.components[size_t(i)].id = i + 1;
                img.components[size_t(i)].quantTable = i ? 1 : 0;
            }
            img.components[0].h = sampling_ == Sampling::S444 ? 1 : 2;
            img.components[0].v = sampling_ == Sampling::S420 ? 2 : 1;
        }
        // rows() writes every block, padding included: nothing to zero first.
        if (std::string e = layOut(img, size_t(1) << 31, false); !e.empty()) return e;
        scaledTables(options.quality, forward_, img.quant);
        if (sampling_ == Sampling::Grey && image.channels == 3)
            luma_.resize(size_t(image.width) * size_t(image.height));
        return "";
    }

    void rows(int from, int to) {
        if (sampling_ == Sampling::Grey)
            greyRows(from, to);
        else
            colourRows(from, to);
    }

private:
    void greyRows(int from, int to) {
        const int w = image_->width, h = image_->height;
        const uint8_t* plane = image_->pixels.data();
        if (image_->channels == 3) {  // the rows' luminance first
            const int y0 = 8 * from, y1 = std::min(8 * to, h);
            vekiRGBToY_JPEG_8u_C3C1R(plane + size_t(y0) * size_t(w) * 3, w * 3, &luma_[size_t(y0) * size_t(w)], w,
                                     {w, y1 - y0});
            plane = luma_.data();
        }
        Component& c = img_->components[0];
        uint8_t pad[64];
        alignas(32) Vek16u samples[64];
        for (int by = from; by < std::min(to, c.usedHigh); ++by)
            for (int bx = 0; bx < c.usedWide; ++bx) {
                if (8 * bx + 8 <= w && 8 * by + 8 <= h) {
                    widen(plane + size_t(8 * by) * size_t(w) + size_t(8 * bx), w, samples);
                } else {
                    padWindow(plane, w, h, 1, 8 * bx, 8 * by, 8, 8, pad);
                    widen(pad, 8, samples);
                }
                vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R(samples, 16, c.block(bx, by), forward_[0]);
            }
    }

    void colourRows(int from, int to) {
        using McuFn = VekStatus(VEK_CALL*)(const Vek8u*, int, Vek16s* const[3]);
        const McuFn toBlocks = sampling_ == Sampling::S444   ? vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R
                               : sampling_ == Sampling::S422 ? vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R
                                                             : vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R;
        CoefficientImage& img = *img_;
        Component& y = img.components[0];
        const int mw = 8 * y.h, mh = 8 * y.v, w = image_->width, h = image_->height;
        const uint8_t* pixels = image_->pixels.data();
        // On cache lines: at AVX-512 the per-MCU function stores whole
        // 512-bit vectors, and one that straddles two lines is a split store.
        alignas(64) Vek16s luma[4 * 64], cb[64], cr[64];
        alignas(32) Vek16u samples[64];
        const auto transform = [&samples](const Vek16s* block, Vek16s* dst, const Vek32f* table) {
            widen(block, samples);
            vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R(samples, 16, dst, table);
        };
        Vek16s* const blocks[3] = {luma, cb, cr};
        uint8_t pad[16 * 16 * 3];
        for (int my = from; my < std::min(to, img.mcusHigh); ++my)
            for (int mx = 0; mx < img.mcusWide; ++mx) {
                const int x0 = mx * mw, y0 = my * mh;
                if (x0 + mw <= w && y0 + mh <= h) {
                    const uint8_t* at = pixels + (size_t(y0) * size_t(w) + size_t(x0)) * 3;
                    for (int r = 0; r < mh; ++r) __builtin_prefetch(at + size_t(r) * size_t(w) * 3 + kPrefetchAhead);
                    toBlocks(at, w * 3, blocks);
                } else {
                    padWindow(pixels, w, h, 3, x0, y0, mw, mh, pad);
                    toBlocks(pad, mw * 3, blocks);
                }
                for (int i = 0; i < y.h * y.v; ++i) {
                    const int bx = mx * y.h + i % y.h, by = my * y.v + i / y.h;
                    if (bx < y.usedWide && by < y.usedHigh)
                        transform(luma + 64 * i, y.block(bx, by), forward_[0]);
                    else
                        dummyBlock(y, bx, by, mx * y.h);
                }
                transform(cb, img.components[1].block(mx, my), forward_[1]);
                transform(cr, img.components[2].block(mx, my), forward_[1]);
            }
    }

    const Image* image_ = nullptr;
    CoefficientImage* img_ = nullptr;
    Sampling sampling_ = Sampling::S420;
    Vek32f forward_[2][64] = {};
    std::vector<uint8_t> luma_;
};

// ---- decoding ---------------------------------------------------------------------

// One component at its decoded size: `scaled` samples a block side (8, 4,
// 2 or 1), `wide` x `high` samples inside the image, stretched by hf x vf
// to the output; `blockRows` rows of blocks decoded so far.
struct Plane {
    int scaled = 8, hf = 1, vf = 1, wide = 0, high = 0, blockRows = 0;
    uint8_t* samples = nullptr;  // the decoded blocks, `step` bytes a row
    // Output rows [0, n) can be made from the first `available` rows when
    // this returns n or more.
    int outputRows(int available, bool smooth) const {
        if (vf == 1) return available;
        if (vf == 2 && hf == 2 && smooth && wide > 2) return std::max(0, 2 * available - 2);  // needs the row below
        return available * vf;
    }
};

void inverseBlocks(const Component& c, const Vek16u* quant, const Plane& p, int step, int fromRow, int toRow) {
    Vek8u dcOnly[64];
    for (int by = fromRow; by < toRow; ++by) {
        uint8_t* row = p.samples + size_t(by) * size_t(p.scaled) * size_t(step);
        for (int bx = 0; bx < c.usedWide; ++bx) {
            const Vek16s* b = c.block(bx, by);
            uint8_t* dst = row + bx * p.scaled;
            switch (p.scaled) {
            case 8: vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R(b, dst, step, quant); break;
            case 4: vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R(b, dst, step, quant); break;
            case 2: vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R(b, dst, step, quant); break;
            default:
                vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R(b, dcOnly, 8, quant);
                *dst = dcOnly[0];
                break;
            }
        }
    }
}

// Output rows [r0, r0 + rows) of a stretched plane into band (same step).
// The smooth filter when the output is scaled by more than 1/8 and the
// plane is wider than 2 samples, as libjpeg-turbo's decoder does.
void stretchBand(const Plane& p, int step, int outWide, int r0, int rows, bool smooth, uint8_t* band) {
    const uint8_t* src = p.samples;
    smooth = smooth && p.wide > 2;
    if (p.hf == 2 && p.vf == 1) {
        const VekiSize from = {p.wide, rows}, to = {outWide, rows};
        if (smooth)
            vekiSampleUpH2V1Smooth_JPEG_8u_C1R(src + size_t(r0) * size_t(step), step, from, band, step, to);
        else
            vekiSampleUpH2V1_JPEG_8u_C1R(src + size_t(r0) * size_t(step), step, from, band, step, to);
    } else if (p.hf == 2 && p.vf == 2 && smooth) {
        for (int r = r0; r < r0 + rows; ++r) {
            const int near = r / 2, far = r % 2 ? std::min(near + 1, p.high - 1) : std::max(near - 1, 0);
            vekiSampleUpRowH2V2Smooth_JPEG_8u_C1(src + size_t(near) * size_t(step), src + size_t(far) * size_t(step),
                                                 p.wide, band + size_t(r - r0) * size_t(step), outWide);
        }
    } else if (p.hf == 2 && p.vf == 2 && r0 % 2 == 0) {
        vekiSampleUpH2V2_JPEG_8u_C1R(src + size_t(r0 / 2) * size_t(step), step, {p.wide, (rows + 1) / 2}, band, step,
                                     {outWide, rows});
    } else {  // other factors: samples repeated
        for (int r = 0; r < rows; ++r) {
            const uint8_t* in = src + size_t((r0 + r) / p.vf) * size_t(step);
            uint8_t* out = band + size_t(r) * size_t(step);
            for (int x = 0; x < outWide; ++x) out[x] = in[x / p.hf];
        }
    }
}

// Coefficients to pixels as they become final, MCU row after MCU row:
// the inverse DCT of each new row of blocks into the component planes,
// then every output row those planes can make, stretched and converted to
// RGB in bands.
class PixelWriter {
public:
    PixelWriter(const CoefficientImage& img, Image& image, DecodeWork& work) : img_(img), image_(image), work_(work) {}

    std::string start(int denominator) {
        if (denominator != 1 && denominator != 2 && denominator != 4 && denominator != 8)
            return "scale 1/" + std::to_string(denominator) + " is not supported (1/1, 1/2, 1/4 or 1/8)";
        count_ = img_.components.size();
        if (count_ != 1 && count_ != 3) return std::to_string(count_) + " components: only 1 or 3 are supported";
        s_ = 8 / denominator;
        const long width = img_.width, height = img_.height;
        outWide_ = int((width * s_ + 7) / 8);
        outHigh_ = int((height * s_ + 7) / 8);
        // Each component's block size: a subsampled component is decoded
        // larger, up to 8, so that it needs less stretching (libjpeg-turbo
        // does the same, so scaled decodes agree with it).
        const int maxH = count_ == 1 ? img_.components[0].h : img_.maxH;
        const int maxV = count_ == 1 ? img_.components[0].v : img_.maxV;
        step_ = outWide_;
        for (size_t i = 0; i < count_; ++i) {
            const Component& c = img_.components[i];
            Plane& p = planes_[i];
            p.scaled = s_;
            while (p.scaled < 8 && (maxH * s_) % (c.h * p.scaled * 2) == 0 && (maxV * s_) % (c.v * p.scaled * 2) == 0)
                p.scaled *= 2;
            if ((maxH * s_) % (c.h * p.scaled) || (maxV * s_) % (c.v * p.scaled))
                return "sampling factors that are not a whole multiple of each other are not supported";
            p.hf = maxH * s_ / (c.h * p.scaled);
            p.vf = maxV * s_ / (c.v * p.scaled);
            p.wide = int((width * c.h * p.scaled + maxH * 8 - 1) / (maxH * 8));
            p.high = int((height * c.v * p.scaled + maxV * 8 - 1) / (maxV * 8));
            step_ = std::max(step_, c.usedWide * p.scaled);
        }
        step_ = (step_ + 31) & ~31;
        for (size_t i = 0; i < count_; ++i) {
            work_.planes[i].resize(size_t(img_.components[i].usedHigh) * size_t(planes_[i].scaled) * size_t(step_));
            planes_[i].samples = work_.planes[i].data();
            if (count_ == 3 && (planes_[i].hf != 1 || planes_[i].vf != 1))
                work_.bands[i].resize(size_t(kBand) * size_t(step_));
        }
        image_.width = outWide_;
        image_.height = outHigh_;
        image_.channels = int(count_);
        image_.pixels.resize(size_t(outWide_) * size_t(outHigh_) * count_);
        return "";
    }

    // The blocks of the first mcuRows MCU rows are final.
    void advance(int mcuRows) {
        int ready = outHigh_;
        for (size_t i = 0; i < count_; ++i) {
            const Component& c = img_.components[i];
            Plane& p = planes_[i];
            const int rows = std::min(c.usedHigh, mcuRows * c.v);
            if (rows > p.blockRows) {
                inverseBlocks(c, img_.quant[c.quantTable & 3], p, step_, p.blockRows, rows);
                p.blockRows = rows;
            }
            if (p.blockRows < c.usedHigh) ready = std::min(ready, p.outputRows(p.blockRows * p.scaled, s_ > 1));
        }
        if (ready > converted_) convert(converted_, ready);
        converted_ = std::max(converted_, ready);
    }

private:
    static constexpr int kBand = 16;

    void convert(int from, int to) {
        if (count_ == 1) {
            for (int r = from; r < to; ++r)
                memcpy(&image_.pixels[size_t(r) * size_t(outWide_)], planes_[0].samples + size_t(r) * size_t(step_),
                       size_t(outWide_));
            return;
        }
        for (int r0 = from; r0 < to; r0 += kBand) {
            const int rows = std::min(kBand, to - r0);
            const Vek8u* src[3];
            for (size_t i = 0; i < 3; ++i) {
                const Plane& p = planes_[i];
                if (p.hf != 1 || p.vf != 1) {
                    stretchBand(p, step_, outWide_, r0, rows, s_ > 1, work_.bands[i].data());
                    src[i] = work_.bands[i].data();
                } else {
                    src[i] = p.samples + size_t(r0) * size_t(step_);
                }
            }
            vekiYCbCrToRGB_JPEG_8u_P3C3R(src, step_, &image_.pixels[size_t(r0) * size_t(outWide_) * 3], outWide_ * 3,
                                         {outWide_, rows});
        }
    }

    const CoefficientImage& img_;
    Image& image_;
    DecodeWork& work_;
    Plane planes_[3];
    size_t count_ = 0;
    int s_ = 8, step_ = 0, outWide_ = 0, outHigh_ = 0, converted_ = 0;
};

}  // namespace

std::string pixelsToCoefficients(const Image& image, const EncodeOptions& options, CoefficientImage& img) {
    BlockMaker maker;
    if (std::string e = maker.start(image, options, img); !e.empty()) return e;
    maker.rows(0, img.mcusHigh);
    return "";
}

std::string encodeJpeg(const Image& image, const EncodeOptions& options, std::vector<uint8_t>& out,
                       CoefficientImage* work) {
    CoefficientImage own;
    CoefficientImage& img = work ? *work : own;
    BlockMaker maker;
    if (std::string e = maker.start(image, options, img); !e.empty()) return e;
    const WriteOptions write{options.optimize, options.progressive, options.restartInterval};
    if (options.optimize || options.progressive) {  // every coefficient is needed before the first scan
        maker.rows(0, img.mcusHigh);
        return writeJpeg(img, write, out);
    }
    // Each MCU row made just before it is coded, while its blocks are in the cache.
    return writeJpeg(img, write, out, [&maker](int mcuRow) { maker.rows(mcuRow, mcuRow + 1); });
}

std::string coefficientsToPixels(const CoefficientImage& img, int denominator, Image& image, DecodeWork* work) {
    DecodeWork own;
    PixelWriter writer(img, image, work ? *work : own);
    if (std::string e = writer.start(denominator); !e.empty()) return e;
    writer.advance(img.mcusHigh);
    return "";
}

std::string decodeJpeg(const uint8_t* data, size_t size, int denominator, Image& image, DecodeWork* work,
                       size_t maxBytes) {
    DecodeWork own;
    DecodeWork& memory = work ? *work : own;
    // Baseline files: pixels made MCU row by MCU row as the scan decodes.
    std::unique_ptr<PixelWriter> writer;
    std::string error;
    auto start = [&] {
        writer = std::make_unique<PixelWriter>(memory.coefficients, image, memory);
        error = writer->start(denominator);
    };
    auto rows = [&](int mcuRows) {
        if (!writer) start();
        if (error.empty()) writer->advance(mcuRows);
    };
    if (std::string e = readJpeg(data, size, memory.coefficients, maxBytes, rows); !e.empty()) return e;
    if (!writer) start();
    if (error.empty()) writer->advance(memory.coefficients.mcusHigh);
    return error;
}

}  // namespace vekjpeg
