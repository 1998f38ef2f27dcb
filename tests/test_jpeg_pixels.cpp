// The `vek jpeg` codec's pixels against libjpeg-turbo (TurboJPEG, accurate
// DCT) on the natural test image: our files, decoded by libjpeg-turbo, are
// as faithful as its own at the same quality and sampling (PSNR within
// 0.3 dB) and no more than 3% larger (with optimal tables no larger; at
// quality 100 ours are 3 to 6% smaller); our decoder
// gives libjpeg-turbo's pixels within 2 (today exactly) on its files of
// every sampling, baseline and progressive, odd sizes included, and its
// scaled pixels within 4, but for rare samples one further off.
#include <math.h>

#include "examples/jpeg_codec/jpeg_pixels.h"
#include "harness.h"
#include "libjpeg_client.h"

namespace vektest {
namespace {

#ifdef VEK_HAVE_TURBOJPEG
const char* const kSamplings[] = {"444", "422", "420", "gray"};

vekjpeg::Image asImage(const Pixels& p) {
    vekjpeg::Image image;
    image.width = p.width;
    image.height = p.height;
    image.channels = p.channels;
    image.pixels = p.data;
    return image;
}

const Pixels& source(bool grey) {
    static const Pixels rgb = libjpegDecode(naturalJpeg(), 3), luma = libjpegDecode(naturalJpeg(), 1);
    return grey ? luma : rgb;
}

// A window of odd size, so that the last MCU row and column are partial.
Pixels crop(const Pixels& p, int width, int height) {
    Pixels out = p;
    out.width = width;
    out.height = height;
    out.data.clear();
    for (int y = 0; y < height; ++y) {
        const auto row = p.data.begin() + long(y) * p.width * p.channels;
        out.data.insert(out.data.end(), row, row + long(width) * p.channels);
    }
    return out;
}

double psnr(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b) {
    double sum = 0;
    for (size_t i = 0; i < a.size(); ++i) sum += double(a[i] - b[i]) * double(a[i] - b[i]);
    return 10 * log10(255.0 * 255.0 * double(a.size()) / (sum > 0 ? sum : 1e-9));
}

int maxDifference(const std::vector<unsigned char>& a, const std::vector<uint8_t>& b) {
    int most = 0;
    for (size_t i = 0; i < a.size(); ++i) most = std::max(most, abs(int(a[i]) - int(b[i])));
    return most;
}

size_t countBeyond(const std::vector<unsigned char>& a, const std::vector<uint8_t>& b, int bound) {
    size_t count = 0;
    for (size_t i = 0; i < a.size(); ++i) count += abs(int(a[i]) - int(b[i])) > bound;
    return count;
}

vekjpeg::Sampling samplingOf(const std::string& s) {
    return s == "444"   ? vekjpeg::Sampling::S444
           : s == "422" ? vekjpeg::Sampling::S422
           : s == "420" ? vekjpeg::Sampling::S420
                        : vekjpeg::Sampling::Grey;
}

TEST(JpegCodecPixels, EncodesAsFaithfullyAndAsSmallAsLibjpegTurbo) {
    vekjpeg::CoefficientImage work;  // reused from encode to encode
    for (const std::string sampling : kSamplings) {
        const bool grey = sampling == "gray";
        const Pixels& src = source(grey);
        for (int quality : {50, 75, 90, 100}) {
            SCOPED_TRACE(sampling + " quality " + std::to_string(quality));
            vekjpeg::EncodeOptions options;
            options.quality = quality;
            options.sampling = samplingOf(sampling);
            std::vector<uint8_t> ours, optimised, progressive;
            ASSERT_EQ(vekjpeg::encodeJpeg(asImage(src), options, ours, &work), "");
            const std::vector<unsigned char> theirs = turboEncode(src, quality, sampling);
            const std::vector<unsigned char> ourFile(ours.begin(), ours.end());
            const Pixels ourPixels = turboDecode(ourFile, src.channels, 1);
            EXPECT_GE(psnr(ourPixels.data, src.data), psnr(turboDecode(theirs, src.channels, 1).data, src.data) - 0.3);
            EXPECT_LE(double(ours.size()), 1.03 * double(theirs.size()))
                << ours.size() << " bytes, libjpeg-turbo " << theirs.size();
            options.optimize = true;
            ASSERT_EQ(vekjpeg::encodeJpeg(asImage(src), options, optimised, &work), "");
            LibjpegSettings settings;
            settings.quality = quality;
            settings.sampling = sampling;
            settings.optimize = true;
            EXPECT_LE(optimised.size(), libjpegEncode(src, settings).size());
            // Progressive: the same coefficients, so the same pixels.
            options.progressive = true;
            ASSERT_EQ(vekjpeg::encodeJpeg(asImage(src), options, progressive, &work), "");
            const Pixels progressivePixels =
                turboDecode(std::vector<unsigned char>(progressive.begin(), progressive.end()), src.channels, 1);
            EXPECT_TRUE(progressivePixels.data == ourPixels.data);
        }
    }
}

TEST(JpegCodecPixels, DecodesLikeLibjpegTurboAtEveryScale) {
    // One decoder's memory and one output image for all: each decode
    // reuses what the one before left, of another size and sampling.
    vekjpeg::DecodeWork work;
    vekjpeg::Image ours;
    for (const std::string sampling : kSamplings)
        for (bool progressive : {false, true})
            for (bool odd : {false, true}) {
                SCOPED_TRACE(sampling + (progressive ? " progressive" : " baseline") + (odd ? " odd size" : ""));
                const bool grey = sampling == "gray";
                const Pixels src = odd ? crop(source(grey), 301, 199) : source(grey);
                LibjpegSettings settings;
                settings.sampling = sampling;
                settings.progressive = progressive;
                settings.restartInterval = odd ? 3 : 0;
                const std::vector<unsigned char> file = libjpegEncode(src, settings);
                for (int denominator : {1, 2, 4, 8}) {
                    ASSERT_EQ(vekjpeg::decodeJpeg(file.data(), file.size(), denominator, ours, &work), "");
                    const Pixels theirs = turboDecode(file, src.channels, denominator);
                    ASSERT_EQ(ours.width, theirs.width);
                    ASSERT_EQ(ours.height, theirs.height);
                    ASSERT_EQ(ours.channels, theirs.channels);
                    // Full scale: libjpeg's inverse DCT, upsampling and
                    // conversion, so today the same pixels; 2 is the promise.
                    // Scaled: our reduced inverses are not libjpeg's (1 to 3
                    // off today); within 4 but for rare samples one further.
                    if (denominator == 1) {
                        EXPECT_LE(maxDifference(theirs.data, ours.pixels), 2);
                        continue;
                    }
                    EXPECT_LE(maxDifference(theirs.data, ours.pixels), 5) << "scale 1/" << denominator;
                    EXPECT_LE(countBeyond(theirs.data, ours.pixels, 4), ours.pixels.size() / 10000)
                        << "scale 1/" << denominator;
                }
            }
}
#endif

}  // namespace
}  // namespace vektest
