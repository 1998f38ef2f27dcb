// Benchmark cases of the lossless JPEG and TIFF row family: every
// predictor's differences and reconstruction over a 1920x1080 16-bit image
// of 12-bit samples (row by row, each row predicted from the one above),
// the byte planes of the same image, and PackBits coding of text-like and
// run-heavy data in rows of 2048 bytes.  bytesPerCall counts the samples
// read and written.
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench_cases.h"
#include "checksum_data.h"
#include "core/dispatch.h"

namespace vekbench {
namespace {

constexpr int kWidth = 1920, kHeight = 1080;

// A smooth image (a random walk along each row, close to the row above)
// and room for its differences or reconstruction.
struct Image {
    std::vector<Vek16s> samples, out;
    Image() : samples(size_t(kWidth) * kHeight), out(samples.size()) {
        std::mt19937 rng(5);
        for (size_t i = 0; i < samples.size(); ++i) {
            const int left = i % kWidth ? samples[i - 1] : 2048, above = i >= kWidth ? samples[i - kWidth] : left;
            samples[i] = Vek16s(std::min(4095, std::max(0, (left + above) / 2 + int(rng() % 17) - 8)));
        }
    }
};
Image& image() {
    static Image m;
    return m;
}

using RowFn = VekStatus(VEK_CALL*)(const Vek16s*, const Vek16s*, Vek16s*, int, int);

void addRows(std::vector<BenchCase>& cases, const char* exportName, const RowFn* table) {
    for (int predictor = 1; predictor <= 7; ++predictor)
        cases.push_back({std::string(exportName) + "/1920x1080/p" + std::to_string(predictor), exportName,
                         kWidth * kHeight, 4.0 * kWidth * kHeight, [table, predictor](int level) {
                             Image& m = image();
                             for (int y = 1; y < kHeight; ++y) {
                                 const size_t row = size_t(y) * kWidth;
                                 table[level](m.samples.data() + row, m.samples.data() + row - kWidth,
                                              m.out.data() + row, kWidth, predictor);
                             }
                         }});
}

// PackBits of 64 KiB in rows of 2048 bytes: encoding into one buffer with
// room to spare, decoding that stream back row by row.
struct Packed {
    const std::vector<uint8_t>* plain;
    std::vector<uint8_t> coded, out;
};
constexpr int kPackRow = 2048;

Packed& packed(const std::vector<uint8_t>& plain) {
    static std::vector<std::unique_ptr<Packed>> all;
    for (auto& p : all)
        if (p->plain == &plain) return *p;
    auto p = std::make_unique<Packed>();
    p->plain = &plain;
    p->out.resize(plain.size() * 2);
    int position = 0;
    for (size_t row = 0; row < plain.size(); row += kPackRow)
        vek::vekTable_vekiPackBitsRow_TIFF_8u_C1[0](plain.data() + row, kPackRow, p->out.data(), &position,
                                                    int(p->out.size()));
    p->coded.assign(p->out.begin(), p->out.begin() + position);
    all.push_back(std::move(p));
    return *all.back();
}

BenchCase packBitsCase(const std::string& data, const std::vector<uint8_t>& (*bytes)(), bool decode) {
    const char* exportName = decode ? "vekiUnpackBitsRow_TIFF_8u_C1" : "vekiPackBitsRow_TIFF_8u_C1";
    return {std::string(exportName) + "/" + data, exportName, kChecksumBytes, double(kChecksumBytes),
            [bytes, decode](int level) {
                Packed& p = packed(bytes());
                int position = 0;
                for (size_t row = 0; row < p.plain->size(); row += kPackRow) {
                    if (decode)
                        vek::vekTable_vekiUnpackBitsRow_TIFF_8u_C1[level](
                            p.coded.data(), &position, int(p.coded.size()), p.out.data() + row, kPackRow);
                    else
                        vek::vekTable_vekiPackBitsRow_TIFF_8u_C1[level](p.plain->data() + row, kPackRow, p.out.data(),
                                                                        &position, int(p.out.size()));
                }
            }};
}

}  // namespace

VEK_BENCH_FAMILY(jpegLossless) {
    addRows(cases, "vekiDiffPredRow_JPEG_16s_C1", vek::vekTable_vekiDiffPredRow_JPEG_16s_C1);
    addRows(cases, "vekiReconstructPredRow_JPEG_16s_C1", vek::vekTable_vekiReconstructPredRow_JPEG_16s_C1);
    for (bool reconstruct : {false, true}) {
        const char* exportName =
            reconstruct ? "vekiReconstructPredFirstRow_JPEG_16s_C1" : "vekiDiffPredFirstRow_JPEG_16s_C1";
        const auto* table = reconstruct ? vek::vekTable_vekiReconstructPredFirstRow_JPEG_16s_C1
                                        : vek::vekTable_vekiDiffPredFirstRow_JPEG_16s_C1;
        cases.push_back({std::string(exportName) + "/1920", exportName, kWidth, 4.0 * kWidth, [table](int level) {
                             table[level](image().samples.data(), image().out.data(), kWidth, 12, 0);
                         }});
    }
    // The byte planes of the whole image, 1920 samples a row.
    cases.push_back({"vekiSplitRow_TIFF_16u8u_C1/1920x1080", "vekiSplitRow_TIFF_16u8u_C1", kWidth * kHeight,
                     4.0 * kWidth * kHeight, [](int level) {
                         Image& m = image();
                         Vek8u* bytes = reinterpret_cast<Vek8u*>(m.out.data());
                         for (int y = 0; y < kHeight; ++y) {
                             const size_t row = size_t(y) * kWidth;
                             Vek8u* const planes[2] = {bytes + 2 * row, bytes + 2 * row + kWidth};
                             vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](
                                 reinterpret_cast<const Vek16u*>(m.samples.data()) + row, planes, kWidth);
                         }
                     }});
    cases.push_back({"vekiJoinRow_TIFF_8u16u_C1/1920x1080", "vekiJoinRow_TIFF_8u16u_C1", kWidth * kHeight,
                     4.0 * kWidth * kHeight, [](int level) {
                         Image& m = image();
                         const Vek8u* bytes = reinterpret_cast<const Vek8u*>(m.samples.data());
                         for (int y = 0; y < kHeight; ++y) {
                             const size_t row = size_t(y) * kWidth;
                             const Vek8u* const planes[2] = {bytes + 2 * row, bytes + 2 * row + kWidth};
                             vek::vekTable_vekiJoinRow_TIFF_8u16u_C1[level](
                                 planes, reinterpret_cast<Vek16u*>(m.out.data()) + row, kWidth);
                         }
                     }});
    for (bool decode : {false, true}) {
        cases.push_back(packBitsCase("text", textBytes, decode));
        cases.push_back(packBitsCase("runs", runBytes, decode));
    }
}

}  // namespace vekbench
