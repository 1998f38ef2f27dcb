// `vek motion`: how the video primitives fit together in an encoder and a
// decoder, on two frames of a synthetic clip.
//
// The clip is a smooth textured picture (made deterministically, with a
// little fixed noise) whose background moves by (1.5, 0.5) pixels from
// the first frame to the second while a square object moves by (-2.5, 1).
// For every 16x16 macroblock of the second frame, a full search over
// whole-sample displacements within +-range finds the reference block of
// the first frame with the least vekiSAD16x16_8u32s; the eight half-sample
// positions around it are then tried with the SAD's half-sample modes.
// The prediction is built with vekiMC16x16_8u_C1 (no residual), and its
// PSNR against the real second frame is reported beside those of no motion
// and of whole-sample motion only.  Last, the encoder's residual
// (vekiGetDiff16x16_8u16s_C1) added back by the decoder (vekiMC16x16_8u_C1)
// must give the second frame exactly.
//
// Exit status: 0 when half samples predict at least as well as whole
// samples, which beat no motion, and the reconstruction is exact; 1
// otherwise; 2 on a usage error.
#include "tools/vek_motion.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include "vek.h"

namespace {

constexpr int kWidth = 176, kHeight = 144;  // QCIF: 11 x 9 macroblocks
constexpr int kBlock = 16;

using Frame = std::vector<Vek8u>;

// The continuous picture, and the clip's two frames sampled from it.
double texture(double x, double y) {
    return 128 + 50 * std::sin(0.19 * x + 0.05 * y) + 40 * std::cos(0.07 * x - 0.23 * y) +
           25 * std::sin(0.5 * x) * std::sin(0.43 * y);
}
bool inObject(double x, double y) { return x >= 60 && x < 110 && y >= 40 && y < 90; }
double object(double x, double y) { return 60 + 40 * std::sin(0.6 * x + 0.3 * y); }

Frame makeFrame(int index) {
    std::mt19937 noise(1234 + index);
    Frame f(kWidth * kHeight);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            // Frame 1 shows the picture moved by (1.5, 0.5), its object by (-2.5, 1).
            const double bx = x - 1.5 * index, by = y - 0.5 * index;
            const double ox = x + 2.5 * index, oy = y - 1.0 * index;
            const double v = inObject(ox, oy) ? object(ox, oy) : texture(bx, by);
            const double noisy = v + static_cast<int>(noise() % 5) - 2;
            f[y * kWidth + x] = static_cast<Vek8u>(noisy < 0 ? 0 : (noisy > 255 ? 255 : std::lround(noisy)));
        }
    return f;
}

double psnr(const Frame& a, const Frame& b) {
    double squares = 0;
    for (size_t i = 0; i < a.size(); ++i) squares += (a[i] - b[i]) * (a[i] - b[i]);
    return squares == 0 ? INFINITY : 10 * std::log10(255.0 * 255.0 * a.size() / squares);
}

// A displacement in half samples and what the primitives need for it: the
// reference block's whole-sample corner and the half-sample mode.
struct Motion {
    int x2 = 0, y2 = 0;
    int baseX(int bx) const { return bx + (x2 >> 1); }  // >> rounds toward minus infinity
    int baseY(int by) const { return by + (y2 >> 1); }
    int mode() const { return (x2 & 1 ? 8 : 0) | (y2 & 1 ? 4 : 0); }
    // The block and the extra column and row its mode reads stay in the frame.
    bool fits(int bx, int by) const {
        return baseX(bx) >= 0 && baseY(by) >= 0 && baseX(bx) + kBlock + (x2 & 1) <= kWidth &&
               baseY(by) + kBlock + (y2 & 1) <= kHeight;
    }
};

Vek32s sad(const Frame& cur, const Frame& ref, int bx, int by, Motion m) {
    Vek32s s = 0;
    vekiSAD16x16_8u32s(&cur[by * kWidth + bx], kWidth, &ref[m.baseY(by) * kWidth + m.baseX(bx)], kWidth, &s, m.mode());
    return s;
}

// The best whole-sample motion within +-range, then the best of the
// half-sample positions around it (ties keep the earlier candidate).
Motion search(const Frame& cur, const Frame& ref, int bx, int by, int range, bool halfSamples) {
    Motion best;
    Vek32s bestSad = sad(cur, ref, bx, by, best);
    for (int dy = -range; dy <= range; ++dy)
        for (int dx = -range; dx <= range; ++dx) {
            const Motion m{2 * dx, 2 * dy};
            if (!m.fits(bx, by)) continue;
            const Vek32s s = sad(cur, ref, bx, by, m);
            if (s < bestSad) bestSad = s, best = m;
        }
    if (!halfSamples) return best;
    const Motion centre = best;
    for (int hy = -1; hy <= 1; ++hy)
        for (int hx = -1; hx <= 1; ++hx) {
            const Motion m{centre.x2 + hx, centre.y2 + hy};
            if ((hx == 0 && hy == 0) || !m.fits(bx, by)) continue;
            const Vek32s s = sad(cur, ref, bx, by, m);
            if (s < bestSad) bestSad = s, best = m;
        }
    return best;
}

// The motion-compensated prediction of every macroblock; modeCount counts
// the half-sample modes chosen.
Frame predict(const Frame& cur, const Frame& ref, int range, bool halfSamples, int modeCount[4]) {
    Frame prediction(cur.size());
    const Vek16s noResidual[kBlock * kBlock] = {};
    for (int by = 0; by < kHeight; by += kBlock)
        for (int bx = 0; bx < kWidth; bx += kBlock) {
            const Motion m = search(cur, ref, bx, by, range, halfSamples);
            vekiMC16x16_8u_C1(&ref[m.baseY(by) * kWidth + m.baseX(bx)], kWidth, noResidual, 2 * kBlock,
                              &prediction[by * kWidth + bx], kWidth, m.mode(), 0);
            if (modeCount) ++modeCount[m.mode() / 4];
        }
    return prediction;
}

// Encoder: residual = current - prediction; decoder: prediction + residual.
bool reconstructsExactly(const Frame& cur, const Frame& ref, int range) {
    Frame decoded(cur.size());
    Vek16s residual[kBlock * kBlock];
    for (int by = 0; by < kHeight; by += kBlock)
        for (int bx = 0; bx < kWidth; bx += kBlock) {
            const Motion m = search(cur, ref, bx, by, range, true);
            const Vek8u* r = &ref[m.baseY(by) * kWidth + m.baseX(bx)];
            vekiGetDiff16x16_8u16s_C1(&cur[by * kWidth + bx], kWidth, r, kWidth, residual, 2 * kBlock, nullptr, 0,
                                      m.mode(), 0);
            vekiMC16x16_8u_C1(r, kWidth, residual, 2 * kBlock, &decoded[by * kWidth + bx], kWidth, m.mode(), 0);
        }
    return decoded == cur;
}

}  // namespace

int motionCommand(const std::vector<std::string>& args) {
    int range = 7;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--range" && i + 1 < args.size() && std::atoi(args[i + 1].c_str()) > 0) {
            range = std::atoi(args[++i].c_str());
        } else {
            std::fprintf(stderr, "usage: vek motion %s\n", VEK_MOTION_SUMMARY);
            return 2;
        }
    }
    const Frame ref = makeFrame(0), cur = makeFrame(1);
    int modes[4] = {};
    const double still = psnr(ref, cur);
    const double whole = psnr(predict(cur, ref, range, false, nullptr), cur);
    const double half = psnr(predict(cur, ref, range, true, modes), cur);
    const bool exact = reconstructsExactly(cur, ref, range);
    std::printf("vek motion: %dx%d, %d macroblocks, full search within +-%d, then half samples\n", kWidth, kHeight,
                (kWidth / kBlock) * (kHeight / kBlock), range);
    std::printf("  no motion        PSNR %6.2f dB\n", still);
    std::printf("  whole samples    PSNR %6.2f dB\n", whole);
    std::printf("  half samples     PSNR %6.2f dB  (modes 0/4/8/12: %d/%d/%d/%d macroblocks)\n", half, modes[0],
                modes[1], modes[2], modes[3]);
    std::printf("  residual from vekiGetDiff16x16 + vekiMC16x16: %s\n", exact ? "the frame exactly" : "NOT the frame");
    return half >= whole && whole > still && exact ? 0 : 1;
}
