// One MCU of interleaved pixels to its level-shifted 16-bit blocks and back,
// shared by every level: the scalar arithmetic and the dispatch to the
// level's block functions.
//
// An MCU of H x V luma blocks (444: 1 x 1, 422: 2 x 1, 411: 2 x 2) covers
// 8H x 8V pixels.  Its luma blocks follow each other in pDst[0] in the order
// of a JPEG scan (left to right, then top to bottom), 64 samples each in
// natural row-major order; Cb and Cr are one block each.  Forward: every
// pixel is converted as by vekiRGBToYCbCr_JPEG_8u_C3P3R, chroma is averaged
// over each 2 x 1 or 2 x 2 group with the alternating bias of the
// downsamplers (sample_rows.h), and 128 is subtracted.  Inverse: 128 is
// added and each sample clamped to 0..255, every pixel takes the chroma of
// its group (repeated, not filtered) and is converted as by
// vekiYCbCrToRGB_JPEG_8u_P3C3R.
//
// Included inside a level's namespace after the level's vector kernels
// (mcu_simd.h), if any; the NoVector functions below say the plain level has
// none.
#ifndef VEK_JPEG_MCU_ROWS_H
#define VEK_JPEG_MCU_ROWS_H

namespace {

using namespace vek::jpeg;

template <class L, int H, int Vs>
inline bool forwardMcuBlocks(NoVector, const Vek8u*, int, Vek16s* const*) {
    return false;
}
template <class L, int H, int Vs>
inline bool inverseMcuBlocks(NoVector, const Vek16s* const*, Vek8u*, int) {
    return false;
}
inline bool split422Blocks(NoVector, const Vek8u*, int, Vek16s* const*) { return false; }
inline bool join422Blocks(NoVector, const Vek16s* const*, Vek8u*, int) { return false; }

// Sample c of row r of an MCU of H x Vs luma blocks: its luma block and
// the sample's index in it.
template <int H>
inline int lumaIndex(int r, int c) {
    return 64 * ((r / 8) * H + c / 8) + 8 * (r % 8) + c % 8;
}
inline Vek16s levelShift(int v) { return Vek16s(v - 128); }
inline int unshift(Vek16s v) { return clamp255(v + 128); }

template <class L, int H, int Vs>
void forwardMcu(const Vek8u* src, int step, Vek16s* const* dst) {
    if (forwardMcuBlocks<L, H, Vs>(LevelVector(), src, step, dst)) return;
    int cb[16][16], cr[16][16];
    for (int r = 0; r < 8 * Vs; ++r) {
        const Vek8u* row = image::rowAt(src, step, r);
        for (int c = 0; c < 8 * H; ++c) {
            const Pixel p = Forward::convert(L::get(&row, c));
            dst[0][lumaIndex<H>(r, c)] = levelShift(p.a);
            cb[r][c] = p.b, cr[r][c] = p.c;
        }
    }
    for (int r = 0; r < 8; ++r)
        for (int c = 0; c < 8; ++c) {
            auto average = [&](int(&plane)[16][16]) {
                if constexpr (H == 1) return plane[r][c];
                const int pair = plane[Vs * r][2 * c] + plane[Vs * r][2 * c + 1];
                if constexpr (Vs == 1) return (pair + (c & 1)) >> 1;
                return (pair + plane[2 * r + 1][2 * c] + plane[2 * r + 1][2 * c + 1] + 1 + (c & 1)) >> 2;
            };
            dst[1][8 * r + c] = levelShift(average(cb));
            dst[2][8 * r + c] = levelShift(average(cr));
        }
}

template <class L, int H, int Vs>
void inverseMcu(const Vek16s* const* src, Vek8u* dst, int step) {
    if (inverseMcuBlocks<L, H, Vs>(LevelVector(), src, dst, step)) return;
    for (int r = 0; r < 8 * Vs; ++r) {
        Vek8u* row = image::rowAt(dst, step, r);
        for (int c = 0; c < 8 * H; ++c) {
            const int chroma = 8 * (r / Vs) + c / H;
            const Pixel p = {unshift(src[0][lumaIndex<H>(r, c)]), unshift(src[1][chroma]), unshift(src[2][chroma]), 0};
            L::put(&row, c, Inverse::convert(p));
        }
    }
}

// YUYV pixel pairs of a 16 x 8 MCU to its two luma blocks and one block of
// each chroma, level-shifted, and back with clamping.  No colour conversion.
inline void split422(const Vek8u* src, int step, Vek16s* const* dst) {
    if (split422Blocks(LevelVector(), src, step, dst)) return;
    for (int r = 0; r < 8; ++r) {
        const Vek8u* row = image::rowAt(src, step, r);
        for (int c = 0; c < 16; ++c) dst[0][lumaIndex<2>(r, c)] = levelShift(row[2 * c]);
        for (int j = 0; j < 8; ++j) {
            dst[1][8 * r + j] = levelShift(row[4 * j + 1]);
            dst[2][8 * r + j] = levelShift(row[4 * j + 3]);
        }
    }
}
inline void join422(const Vek16s* const* src, Vek8u* dst, int step) {
    if (join422Blocks(LevelVector(), src, dst, step)) return;
    for (int r = 0; r < 8; ++r) {
        Vek8u* row = image::rowAt(dst, step, r);
        for (int c = 0; c < 16; ++c) row[2 * c] = Vek8u(unshift(src[0][lumaIndex<2>(r, c)]));
        for (int j = 0; j < 8; ++j) {
            row[4 * j + 1] = Vek8u(unshift(src[1][8 * r + j]));
            row[4 * j + 3] = Vek8u(unshift(src[2][8 * r + j]));
        }
    }
}

}  // namespace

#endif
