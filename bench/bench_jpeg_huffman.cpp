// Benchmark cases of the JPEG Huffman coders: the 32400 luminance blocks of
// the 1920x1080 photograph (jpeg_photo.h) encoded, counted and decoded as
// one baseline scan with the typical tables, and as a progressive AC first
// scan of the whole band.  The decoding cases are the entropy decoding of a
// whole grey image; rivals_jpeg_huffman.cpp sets libjpeg-turbo beside them.
#include <memory>

#include "bench_cases.h"
#include "core/dispatch.h"
#include "examples/jpeg_codec/jpeg_tables.h"
#include "jpeg_photo.h"

namespace vekbench {
namespace {

template <class T>
struct Owned {
    explicit Owned(VekStatus(VEK_CALL* getSize)(int*)) {
        int size = 0;
        getSize(&size);
        memory.assign((size_t(size) + 7) / 8, 0);
    }
    T* get() { return reinterpret_cast<T*>(memory.data()); }
    std::vector<Vek64u> memory;
};

// The luminance blocks in coding order, their scans and the tables.
struct Scans {
    std::vector<Vek16s> blocks, decoded;
    int count = 0;
    std::vector<uint8_t> baseline, acFirst, out;
    Owned<VekEncodeHuffmanSpec> encDc{vekiEncodeHuffmanSpecGetSize_JPEG_8u},
        encAc{vekiEncodeHuffmanSpecGetSize_JPEG_8u}, encAll{vekiEncodeHuffmanSpecGetSize_JPEG_8u};
    Owned<VekDecodeHuffmanSpec> decDc{vekiDecodeHuffmanSpecGetSize_JPEG_8u},
        decAc{vekiDecodeHuffmanSpecGetSize_JPEG_8u}, decAll{vekiDecodeHuffmanSpecGetSize_JPEG_8u};
    Owned<VekEncodeHuffmanState> encState{vekiEncodeHuffmanStateGetSize_JPEG_8u};
    Owned<VekDecodeHuffmanState> decState{vekiDecodeHuffmanStateGetSize_JPEG_8u};

    Scans() {
        const vekjpeg::CoefficientImage& grey = greyCoefficients();
        if (grey.components.empty()) return;
        const vekjpeg::Component& y = grey.components[0];
        for (int by = 0; by < y.usedHigh; ++by)
            for (int bx = 0; bx < y.usedWide; ++bx) blocks.insert(blocks.end(), y.block(bx, by), y.block(bx, by) + 64);
        count = int(blocks.size() / 64);
        decoded.resize(blocks.size());
        using namespace vekjpeg;
        vekiEncodeHuffmanSpecInit_JPEG_8u(kLuminanceDc.bits, kLuminanceDc.values, encDc.get());
        vekiEncodeHuffmanSpecInit_JPEG_8u(kLuminanceAc.bits, kLuminanceAc.values, encAc.get());
        vekiDecodeHuffmanSpecInit_JPEG_8u(kLuminanceDc.bits, kLuminanceDc.values, decDc.get());
        vekiDecodeHuffmanSpecInit_JPEG_8u(kLuminanceAc.bits, kLuminanceAc.values, decAc.get());
        // A table with a code for every symbol serves the progressive scan.
        int counts[256];
        for (int& c : counts) c = 1;
        HuffmanTable all{};
        vekiEncodeHuffmanRawTableInit_JPEG_8u(counts, all.bits, all.values);
        vekiEncodeHuffmanSpecInit_JPEG_8u(all.bits, all.values, encAll.get());
        vekiDecodeHuffmanSpecInit_JPEG_8u(all.bits, all.values, decAll.get());
        out.resize(blocks.size() * 4 + 4096);
        baseline.assign(out.begin(), out.begin() + encode(0, false));
        acFirst.assign(out.begin(), out.begin() + encode(0, true));
    }

    int encode(int level, bool progressive) {
        vekiEncodeHuffmanStateInit_JPEG_8u(encState.get());
        int pos = 0;
        Vek16s lastDc = 0;
        const int room = int(out.size());
        for (int i = 0; i <= count; ++i) {
            const Vek16s* b = i < count ? &blocks[size_t(i) * 64] : nullptr;
            if (progressive)
                vek::vekTable_vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1[level](
                    b, out.data(), room, &pos, 1, 63, 0, encAll.get(), encState.get(), i == count);
            else
                vek::vekTable_vekiEncodeHuffman8x8_JPEG_16s1u_C1[level](b, out.data(), room, &pos, &lastDc, encDc.get(),
                                                                        encAc.get(), encState.get(), i == count);
        }
        return pos;
    }
    void decode(int level, bool progressive) {
        vekiDecodeHuffmanStateInit_JPEG_8u(decState.get());
        const std::vector<uint8_t>& s = progressive ? acFirst : baseline;
        int pos = 0, marker = 0;
        Vek16s lastDc = 0;
        for (int i = 0; i < count; ++i)
            if (progressive)
                vek::vekTable_vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1[level](s.data(), int(s.size()), &pos,
                                                                                &decoded[size_t(i) * 64], &marker, 1,
                                                                                63, 0, decAll.get(), decState.get());
            else
                vek::vekTable_vekiDecodeHuffman8x8_JPEG_1u16s_C1[level](s.data(), int(s.size()), &pos,
                                                                        &decoded[size_t(i) * 64], &lastDc, &marker,
                                                                        decDc.get(), decAc.get(), decState.get());
    }
    void countSymbols(int level) {
        int dc[256] = {}, ac[256] = {};
        Vek16s lastDc = 0;
        for (int i = 0; i < count; ++i)
            vek::vekTable_vekiGetHuffmanStatistics8x8_JPEG_16s_C1[level](&blocks[size_t(i) * 64], dc, ac, &lastDc);
    }
};

Scans& photoScans() {
    static Scans s;
    return s;
}

}  // namespace

VEK_BENCH_FAMILY(jpegHuffman) {
    if (greyCoefficients().components.empty()) return;
    const int blocks = photoScans().count;
    const double coded = double(photoScans().baseline.size()), codedAc = double(photoScans().acFirst.size());
    const double raw = blocks * 128.0;
    cases.push_back({"vekiEncodeHuffman8x8_JPEG_16s1u_C1/photo1080p", "vekiEncodeHuffman8x8_JPEG_16s1u_C1", blocks,
                     raw + coded, [](int level) { photoScans().encode(level, false); }});
    cases.push_back({"vekiDecodeHuffman8x8_JPEG_1u16s_C1/photo1080p", "vekiDecodeHuffman8x8_JPEG_1u16s_C1", blocks,
                     raw + coded, [](int level) { photoScans().decode(level, false); }});
    cases.push_back({"vekiGetHuffmanStatistics8x8_JPEG_16s_C1/photo1080p", "vekiGetHuffmanStatistics8x8_JPEG_16s_C1",
                     blocks, raw, [](int level) { photoScans().countSymbols(level); }});
    cases.push_back({"vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1/photo1080p",
                     "vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1", blocks, raw + codedAc,
                     [](int level) { photoScans().encode(level, true); }});
    cases.push_back({"vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1/photo1080p",
                     "vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1", blocks, raw + codedAc,
                     [](int level) { photoScans().decode(level, true); }});
}

}  // namespace vekbench
