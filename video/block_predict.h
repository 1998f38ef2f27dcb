// The half-sample prediction of one pixel, as the plain level of every
// video family computes it.
//
// Mode 0 takes the reference sample, 4 averages it with the one below, 8
// with its horizontal neighbour (Dx bytes on: 1, or 2 in interleaved
// chroma), 12 with all three; roundControl (0 or 1) is subtracted inside
// the average, so 1 rounds halves down.  The reference is read exactly
// where the mode needs it: one row further for modes 4 and 12, one
// neighbour further for 8 and 12.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_VIDEO_BLOCK_PREDICT_H
#define VEK_VIDEO_BLOCK_PREDICT_H

namespace {

template <int Mode, int Dx>
inline int predictSample(const Vek8u* r, ptrdiff_t step, int x, int roundControl) {
    const int a = r[x];
    if constexpr (Mode == 0) {
        return a;
    } else if constexpr (Mode == 4) {
        return (a + r[x + step] + 1 - roundControl) >> 1;
    } else if constexpr (Mode == 8) {
        return (a + r[x + Dx] + 1 - roundControl) >> 1;
    } else {
        return (a + r[x + Dx] + r[x + step] + r[x + step + Dx] + 2 - roundControl) >> 2;
    }
}

// Row y of a block whose first row is at base.
template <class T>
inline T* blockRow(T* base, int stepBytes, int y) {
    return image::rowAt(base, stepBytes, y);
}

inline Vek8u clampToByte(int v) { return static_cast<Vek8u>(v < 0 ? 0 : (v > 255 ? 255 : v)); }

}  // namespace

#endif
