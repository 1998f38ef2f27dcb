// Benchmark cases of the JPEG DCT family.
//
// The block cases call an export on one 8x8 block (elements = 64, so the
// time per element times 64 is the time per block); the block data are a
// photograph-like gradient with noise and tables of quality 75, so the
// quantised coefficients are as sparse as a codec's.  "/1920x1080" runs the
// encoder's block function over a whole 1920 x 1080 plane, block by block,
// as a JPEG encoder does.  rivals_jpeg_dct.cpp times libjpeg-turbo's
// integer DCTs beside the blocks.
#include <memory>
#include <vector>

#include "bench_cases.h"
#include "bench_jpeg_dct.h"
#include "core/dispatch.h"

namespace vekbench {

const JpegBenchData& jpegBenchData() {
    static const JpegBenchData data = [] {
        JpegBenchData d;
        uint32_t state = 2026;
        auto noise = [&] {
            state = state * 1664525u + 1013904223u;
            return int(state >> 27);  // 0..31
        };
        d.plane.resize(size_t(kPlaneWidth) * kPlaneHeight);
        for (int y = 0; y < kPlaneHeight; ++y)
            for (int x = 0; x < kPlaneWidth; ++x)
                d.plane[size_t(y) * kPlaneWidth + x] = Vek8u((x / 9 + y / 5 + noise()) & 0xFF);
        for (int i = 0; i < 64; ++i) {
            d.samples[i] = d.plane[size_t(i / 8) * kPlaneWidth + i % 8];
            d.samples12[i] = Vek16u(d.samples[i] * 16 + noise() % 16);
        }
        Vek8u raw[64];
        for (int i = 0; i < 64; ++i) raw[i] = Vek8u(16 + (i * 3) % 80);
        vek::vekTable_vekiQuantFwdRawTableInit_JPEG_8u[0](raw, 75);
        vek::vekTable_vekiQuantFwdTableInit_JPEG_8u16u[0](raw, d.fwdTable);
        vek::vekTable_vekiQuantInvTableInit_JPEG_8u16u[0](raw, d.invTable);
        for (int i = 0; i < 64; ++i) d.fwdFloatTable[i] = 1.0f / d.invTable[i], d.invFloatTable[i] = d.invTable[i];
        vek::vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[0](d.samples, 8, d.coefficients, d.fwdTable);
        for (int i = 0; i < 64; ++i) d.levelShifted[i] = Vek16s(d.samples[i] - 128);
        return d;
    }();
    return data;
}

namespace {

BenchCase blockCase(const char* exportName, double bytes, std::function<void(int)> run) {
    return {std::string(exportName), exportName, 64, bytes, std::move(run)};
}

}  // namespace

VEK_BENCH_FAMILY(jpeg_dct) {
    using namespace vek;
    struct Out {
        alignas(32) Vek16s coef[64];
        alignas(32) Vek8u samples[64];
        alignas(32) Vek16u samples12[64];
    };
    auto out = std::make_shared<Out>();
    const JpegBenchData& d = jpegBenchData();
    cases.push_back(blockCase("vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R", 64 + 128, [out, &d](int l) {
        vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[l](d.samples, 8, out->coef, d.fwdTable);
    }));
    cases.push_back(blockCase("vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R", 128 + 64, [out, &d](int l) {
        vekTable_vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R[l](d.coefficients, out->samples, 8, d.invTable);
    }));
    cases.push_back(blockCase("vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R", 128 + 64, [out, &d](int l) {
        vekTable_vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R[l](d.coefficients, out->samples, 8, d.invTable);
    }));
    cases.push_back(blockCase("vekiDCT8x8Fwd_16s_C1R", 256,
                              [out, &d](int l) { vekTable_vekiDCT8x8Fwd_16s_C1R[l](d.levelShifted, 16, out->coef); }));
    cases.push_back(blockCase("vekiDCT8x8Inv_16s_C1R", 256,
                              [out, &d](int l) { vekTable_vekiDCT8x8Inv_16s_C1R[l](d.coefficients, out->coef, 16); }));
    cases.push_back(blockCase("vekiQuantFwd8x8_JPEG_16s_C1I", 256,
                              [out, &d](int l) { vekTable_vekiQuantFwd8x8_JPEG_16s_C1I[l](out->coef, d.fwdTable); }));
    cases.push_back(blockCase("vekiQuantInv8x8_JPEG_16s_C1I", 256, [out, &d](int l) {
        vekTable_vekiQuantInv8x8_JPEG_16s_C1I[l](out->coef, d.fwdTable);  // saturates after a few calls
    }));
    cases.push_back(blockCase("vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R", 256, [out, &d](int l) {
        vekTable_vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R[l](d.samples12, 16, out->coef, d.fwdFloatTable);
    }));
    cases.push_back(blockCase("vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R", 256, [out, &d](int l) {
        vekTable_vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R[l](d.coefficients, out->samples12, 16, d.invFloatTable);
    }));
    cases.push_back(blockCase("vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R", 128 + 64, [out, &d](int l) {
        vekTable_vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R[l](d.coefficients, out->samples, 8, d.invTable);
    }));
    cases.push_back(blockCase("vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R", 128 + 16, [out, &d](int l) {
        vekTable_vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R[l](d.coefficients, out->samples, 4, d.invTable);
    }));
    cases.push_back(blockCase("vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R", 128 + 4, [out, &d](int l) {
        vekTable_vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R[l](d.coefficients, out->samples, 2, d.invTable);
    }));
    cases.push_back(blockCase("vekiAdd128_JPEG_16s8u_C1R", 128 + 64, [out, &d](int l) {
        vekTable_vekiAdd128_JPEG_16s8u_C1R[l](d.levelShifted, 16, out->samples, 8, {8, 8});
    }));
    cases.push_back(blockCase("vekiSub128_JPEG_8u16s_C1R", 64 + 128, [out, &d](int l) {
        vekTable_vekiSub128_JPEG_8u16s_C1R[l](d.samples, 8, out->coef, 16, {8, 8});
    }));

    // A whole plane through the encoder's block function.
    auto plane = std::make_shared<std::vector<Vek16s>>();
    cases.push_back({"vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R/1920x1080", "vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R",
                     kPlaneWidth * kPlaneHeight, 3.0 * kPlaneWidth * kPlaneHeight, [plane, &d](int l) {
                         if (plane->empty()) plane->resize(size_t(kPlaneWidth) * kPlaneHeight);
                         Vek16s* coef = plane->data();
                         for (int by = 0; by + 8 <= kPlaneHeight; by += 8)
                             for (int bx = 0; bx < kPlaneWidth; bx += 8, coef += 64)
                                 vekTable_vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R[l](
                                     d.plane.data() + size_t(by) * kPlaneWidth + bx, kPlaneWidth, coef, d.fwdTable);
                     }});
}

}  // namespace vekbench
