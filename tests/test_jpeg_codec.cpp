// The `vek jpeg` codec against libjpeg-turbo: the coefficients it reads
// from libjpeg's files (every sampling, baseline and progressive, with and
// without restart intervals) are libjpeg's; the files it writes from them
// give libjpeg the same coefficients back, and with optimal tables are no
// larger than libjpeg's own; damaged and unsupported files are refused
// with a message.
#include <algorithm>

#include "examples/jpeg_codec/jpeg_coefficients.h"
#include "harness.h"
#include "libjpeg_client.h"

namespace vektest {
namespace {

#ifdef VEK_HAVE_LIBJPEG
using vekjpeg::CoefficientImage;

// Our blocks in libjpeg's order: the blocks inside each component.
std::vector<short> blocksInside(const CoefficientImage& img) {
    std::vector<short> out;
    for (const vekjpeg::Component& c : img.components)
        for (int by = 0; by < c.usedHigh; ++by)
            for (int bx = 0; bx < c.usedWide; ++bx) out.insert(out.end(), c.block(bx, by), c.block(bx, by) + 64);
    return out;
}

struct Source {
    std::string sampling;
    bool progressive;
    int restart;
};

std::vector<unsigned char> libjpegFile(const Source& s) {
    static const Pixels rgb = libjpegDecode(naturalJpeg(), 3), gray = libjpegDecode(naturalJpeg(), 1);
    LibjpegSettings settings;
    settings.sampling = s.sampling;
    settings.progressive = s.progressive;
    settings.restartInterval = s.restart;
    return libjpegEncode(s.sampling == "gray" ? gray : rgb, settings);
}

const std::vector<Source>& sources() {
    static const std::vector<Source> all = [] {
        std::vector<Source> v;
        for (const char* sampling : {"444", "422", "420", "gray"})
            for (bool progressive : {false, true}) v.push_back({sampling, progressive, progressive ? 0 : 7});
        return v;
    }();
    return all;
}

TEST(JpegCodec, ReadsLibjpegCoefficientsAndWritesFilesLibjpegReadsBack) {
    for (const Source& s : sources()) {
        SCOPED_TRACE(s.sampling + (s.progressive ? " progressive" : " baseline"));
        const std::vector<unsigned char> file = libjpegFile(s);
        CoefficientImage img;
        ASSERT_EQ(vekjpeg::readJpeg(file.data(), file.size(), img), "");
        const std::vector<short> ref = libjpegCoefficients(file);
        ASSERT_TRUE(blocksInside(img) == ref);
        for (const vekjpeg::WriteOptions& o :
             {vekjpeg::WriteOptions{false, false, 0}, vekjpeg::WriteOptions{true, false, 5},
              vekjpeg::WriteOptions{true, true, 0}, vekjpeg::WriteOptions{true, true, 3}}) {
            std::vector<uint8_t> ours;
            ASSERT_EQ(vekjpeg::writeJpeg(img, o, ours), "");
            ASSERT_TRUE(libjpegCoefficients(std::vector<unsigned char>(ours.begin(), ours.end())) == ref)
                << "optimize " << o.optimize << " progressive " << o.progressive << " restart " << o.restartInterval;
            CoefficientImage again;
            ASSERT_EQ(vekjpeg::readJpeg(ours.data(), ours.size(), again), "");
            EXPECT_TRUE(blocksInside(again) == ref);
        }
        // Optimal tables: no larger than libjpeg's for the same coefficients.
        std::vector<uint8_t> optimal;
        ASSERT_EQ(vekjpeg::writeJpeg(img, {true, false, 0}, optimal), "");
        EXPECT_LE(optimal.size(), libjpegOptimise(file).size());
    }
}

// Cut or damaged files give a message, never a crash or a read past the
// data (the input ends at a no-access page); unsupported kinds say so.
TEST(JpegCodec, RefusesDamagedAndUnsupportedFiles) {
    const std::vector<unsigned char> file = libjpegFile({"420", true, 0});
    auto read = [](const std::vector<unsigned char>& bytes) {
        InputArray<Vek8u> in(int(bytes.size()));
        if (!bytes.empty()) memcpy(in.data(), bytes.data(), bytes.size());
        CoefficientImage img;
        return vekjpeg::readJpeg(in.data(), bytes.size(), img, size_t(64) << 20);
    };
    for (size_t cut = 0; cut < file.size(); cut += 1 + cut / 3)
        EXPECT_NE(read(std::vector<unsigned char>(file.begin(), file.begin() + cut)), "") << "cut at " << cut;
    for (int round = 0; round < rounds(100); ++round) {
        std::vector<unsigned char> damaged = file;
        for (int i = 0; i < 4; ++i) damaged[rng()() % damaged.size()] = uint8_t(rng()());
        read(damaged);  // either way, within bounds
    }
    const std::vector<unsigned char> baseline = libjpegFile({"444", false, 0});
    static const unsigned char sofMarker[] = {0xFF, 0xC0};
    const size_t sof =
        size_t(std::search(baseline.begin(), baseline.end(), sofMarker, sofMarker + 2) - baseline.begin());
    ASSERT_LT(sof, baseline.size());
    std::vector<unsigned char> arithmetic = baseline, twelve = baseline, huge = baseline;
    arithmetic[sof + 1] = 0xC9;
    twelve[sof + 4] = 12;
    huge[sof + 5] = huge[sof + 6] = huge[sof + 7] = huge[sof + 8] = 0xFF;  // 65535 x 65535
    EXPECT_EQ(read(arithmetic), "arithmetic-coded JPEG is not supported");
    EXPECT_EQ(read(twelve), "12-bit JPEG is not supported");
    EXPECT_NE(read(huge).find("image too large"), std::string::npos);
}
#endif

}  // namespace
}  // namespace vektest
