// The benchmarks' 1920x1080 photograph (see jpeg_photo.h).
#include "jpeg_photo.h"

#include <string.h>

#include <fstream>
#include <iterator>

namespace vekbench {
namespace {

vekjpeg::CoefficientImage tiled(const vekjpeg::CoefficientImage& src, int width, int height, bool grey) {
    vekjpeg::CoefficientImage img;
    img.width = width;
    img.height = height;
    memcpy(img.quant, src.quant, sizeof img.quant);
    for (size_t c = 0; c < (grey ? 1 : src.components.size()); ++c) {
        vekjpeg::Component comp;
        comp.id = src.components[c].id;
        comp.h = grey ? 1 : src.components[c].h;
        comp.v = grey ? 1 : src.components[c].v;
        comp.quantTable = src.components[c].quantTable;
        img.components.push_back(comp);
    }
    vekjpeg::layOut(img, size_t(1) << 30);
    for (size_t c = 0; c < img.components.size(); ++c) {
        vekjpeg::Component& to = img.components[c];
        const vekjpeg::Component& from = src.components[c];
        for (int by = 0; by < to.blocksHigh; ++by)
            for (int bx = 0; bx < to.blocksWide; ++bx)
                memcpy(to.block(bx, by), from.block(bx % from.usedWide, by % from.usedHigh), 64 * sizeof(Vek16s));
    }
    return img;
}

struct Photo {
    vekjpeg::CoefficientImage colour, grey;
    std::vector<uint8_t> colourFile, greyFile;
    Photo() {
        std::ifstream in(VEK_BENCH_PHOTO, std::ios::binary);
        const std::vector<uint8_t> file((std::istreambuf_iterator<char>(in)), {});
        vekjpeg::CoefficientImage src;
        if (file.empty() || !vekjpeg::readJpeg(file.data(), file.size(), src).empty()) return;
        colour = tiled(src, 1920, 1080, false);
        grey = tiled(src, 1920, 1080, true);
        vekjpeg::writeJpeg(colour, {}, colourFile);
        vekjpeg::writeJpeg(grey, {}, greyFile);
    }
};
const Photo& photo() {
    static const Photo p;
    return p;
}

}  // namespace

const vekjpeg::CoefficientImage& photoCoefficients() { return photo().colour; }
const std::vector<uint8_t>& photoFile() { return photo().colourFile; }
const vekjpeg::CoefficientImage& greyCoefficients() { return photo().grey; }
const std::vector<uint8_t>& greyFile() { return photo().greyFile; }

}  // namespace vekbench
