// FFmpeg's public pixelutils SAD beside the library's: the 16x16 SAD at
// full sample, and four 8x8 SADs beside the four quarters of
// vekiSAD16x16Blocks8x8_8u16u, on the blocks the cases compare.
extern "C" {
#include <libavutil/pixelutils.h>
}

#include "bench_cases.h"
#include "bench_video.h"

namespace {

av_pixelutils_sad_fn sadFn(int bits) {
    static const av_pixelutils_sad_fn fns[2] = {av_pixelutils_get_sad_fn(3, 3, 0, nullptr),
                                                av_pixelutils_get_sad_fn(4, 4, 0, nullptr)};
    return fns[bits - 3];
}
volatile int sink;

}  // namespace

VEK_BENCH_RIVAL(ffmpegSad16, "vekiSAD16x16_8u32s/mode:0", "FFmpeg", [] {
    const vekbench::VideoFrames& f = vekbench::videoFrames();
    if (sadFn(4)) sink = sadFn(4)(f.curBlock(), f.kSide, f.refBlock(), f.kSide);
});
VEK_BENCH_RIVAL(ffmpegSad8, "vekiSAD16x16Blocks8x8_8u16u", "FFmpeg", [] {
    const vekbench::VideoFrames& f = vekbench::videoFrames();
    const av_pixelutils_sad_fn sad8 = sadFn(3);
    if (!sad8) return;
    const int s = f.kSide;
    sink = sad8(f.curBlock(), s, f.refBlock(), s) + sad8(f.curBlock() + 8, s, f.refBlock() + 8, s) +
           sad8(f.curBlock() + 8 * s, s, f.refBlock() + 8 * s, s) +
           sad8(f.curBlock() + 8 * s + 8, s, f.refBlock() + 8 * s + 8, s);
});
