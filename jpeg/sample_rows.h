// Chroma down- and upsampling by two, shared by every level: the scalar
// value of each output sample and the row walk.
//
// Downsampling averages each pair (H2V1) or 2x2 square (H2V2) of samples
// with the alternating bias JPEG encoders use, so that the rounding does not
// drift one way: H2V1 adds 0, 1, 0, 1 ... along the output row before
// halving, H2V2 adds 1, 2, 1, 2 ... before dividing by four.
//
// Upsampling either repeats each sample (plain) or follows the triangle
// filter of JPEG decoders (smooth): each output sample is 3/4 of the nearer
// input sample and 1/4 of the farther one, horizontally
//   out[2i] = (3 in[i] + in[i-1] + 1) >> 2,  out[2i+1] = (3 in[i] + in[i+1] + 2) >> 2
// and for H2V2 first vertically, into column sums cs = 3 near + far, then
//   out[2i] = (3 cs[i] + cs[i-1] + 8) >> 4,  out[2i+1] = (3 cs[i] + cs[i+1] + 7) >> 4.
// The biases alternate between the two outputs of a sample.  As in
// libjpeg-turbo, a subsampled row of one or two samples is repeated (the
// plain upsampling) instead of filtered.
//
// Edges are replicated: a sample outside the image is the nearest edge
// sample (an odd full-resolution width or height pairs the last sample with
// itself; the smooth filter takes an edge sample as its own neighbour).  An
// odd full-resolution size writes the first width (height) outputs of the
// doubled row (column).
//
// Included inside a level's namespace after the level's vector kernels
// (sample_simd.h), if any.  The level's block functions (the NoVector ones
// below for the plain level) do the middle of a row and return where they
// stopped; the scalar code does the rest, with the same arithmetic.
#ifndef VEK_JPEG_SAMPLE_ROWS_H
#define VEK_JPEG_SAMPLE_ROWS_H

namespace {

using namespace vek::jpeg;

inline int lastIndex(int i, int n) { return i < n ? i : n - 1; }
inline int firstIndex(int i) { return i < 0 ? 0 : i; }

// ---- scalar outputs -----------------------------------------------------------------

inline Vek8u downH2V1At(const Vek8u* in, int inWidth, int i) {
    return Vek8u((in[2 * i] + in[lastIndex(2 * i + 1, inWidth)] + (i & 1)) >> 1);
}
inline Vek8u downH2V2At(const Vek8u* in0, const Vek8u* in1, int inWidth, int i) {
    const int j = lastIndex(2 * i + 1, inWidth);
    return Vek8u((in0[2 * i] + in0[j] + in1[2 * i] + in1[j] + 1 + (i & 1)) >> 2);
}
inline Vek8u smoothH2V1At(const Vek8u* in, int inWidth, int x) {
    const int i = x >> 1, neighbour = x & 1 ? lastIndex(i + 1, inWidth) : firstIndex(i - 1);
    return Vek8u((3 * in[i] + in[neighbour] + 1 + (x & 1)) >> 2);
}
inline Vek8u smoothH2V2At(const Vek8u* near, const Vek8u* far, int inWidth, int x) {
    const int i = x >> 1, neighbour = x & 1 ? lastIndex(i + 1, inWidth) : firstIndex(i - 1);
    const int sum = 3 * near[i] + far[i], other = 3 * near[neighbour] + far[neighbour];
    return Vek8u((3 * sum + other + 8 - (x & 1)) >> 4);
}

// ---- the block functions of a level without vectors ----------------------------------
// Each returns the first output it did not write (the smooth ones start at 2).

inline int downH2V1Blocks(NoVector, const Vek8u*, int, Vek8u*, int) { return 0; }
inline int downH2V2Blocks(NoVector, const Vek8u*, const Vek8u*, int, Vek8u*, int) { return 0; }
inline int upBlocks(NoVector, const Vek8u*, int, Vek8u*, int) { return 0; }
inline int smoothH2V1Blocks(NoVector, const Vek8u*, int, Vek8u*, int) { return 2; }
inline int smoothH2V2Blocks(NoVector, const Vek8u*, const Vek8u*, int, Vek8u*, int) { return 2; }

// ---- rows ---------------------------------------------------------------------------

inline void downH2V1Row(const Vek8u* in, int inWidth, Vek8u* out, int outWidth) {
    for (int i = downH2V1Blocks(LevelVector(), in, inWidth, out, outWidth); i < outWidth; ++i)
        out[i] = downH2V1At(in, inWidth, i);
}
inline void downH2V2Row(const Vek8u* in0, const Vek8u* in1, int inWidth, Vek8u* out, int outWidth) {
    for (int i = downH2V2Blocks(LevelVector(), in0, in1, inWidth, out, outWidth); i < outWidth; ++i)
        out[i] = downH2V2At(in0, in1, inWidth, i);
}
inline void upRow(const Vek8u* in, int inWidth, Vek8u* out, int outWidth) {
    for (int x = upBlocks(LevelVector(), in, inWidth, out, outWidth); x < outWidth; ++x) out[x] = in[x >> 1];
}
// The smooth rows write outputs 0 and 1 first, then the blocks, then the
// rest.  A row of one or two samples is repeated instead, as libjpeg-turbo
// does (so a decoder built on these gives its pixels).
inline void smoothH2V1Row(const Vek8u* in, int inWidth, Vek8u* out, int outWidth) {
    if (inWidth <= 2) return upRow(in, inWidth, out, outWidth);
    for (int x = 0; x < 2 && x < outWidth; ++x) out[x] = smoothH2V1At(in, inWidth, x);
    for (int x = smoothH2V1Blocks(LevelVector(), in, inWidth, out, outWidth); x < outWidth; ++x)
        out[x] = smoothH2V1At(in, inWidth, x);
}
inline void smoothH2V2Row(const Vek8u* near, const Vek8u* far, int inWidth, Vek8u* out, int outWidth) {
    if (inWidth <= 2) return upRow(near, inWidth, out, outWidth);
    for (int x = 0; x < 2 && x < outWidth; ++x) out[x] = smoothH2V2At(near, far, inWidth, x);
    for (int x = smoothH2V2Blocks(LevelVector(), near, far, inWidth, out, outWidth); x < outWidth; ++x)
        out[x] = smoothH2V2At(near, far, inWidth, x);
}

// ---- regions (the checks have passed) -------------------------------------------------

inline void downH2V1Image(const Vek8u* src, int srcStep, VekiSize full, Vek8u* dst, int dstStep, VekiSize half) {
    for (int y = 0; y < half.height; ++y)
        downH2V1Row(image::rowAt(src, srcStep, y), full.width, image::rowAt(dst, dstStep, y), half.width);
}
inline void downH2V2Image(const Vek8u* src, int srcStep, VekiSize full, Vek8u* dst, int dstStep, VekiSize half) {
    for (int y = 0; y < half.height; ++y)
        downH2V2Row(image::rowAt(src, srcStep, 2 * y), image::rowAt(src, srcStep, lastIndex(2 * y + 1, full.height)),
                    full.width, image::rowAt(dst, dstStep, y), half.width);
}
// Row y of the output comes from input row y >> RowShift.
template <int RowShift>
void upImage(const Vek8u* src, int srcStep, VekiSize half, Vek8u* dst, int dstStep, VekiSize full) {
    for (int y = 0; y < full.height; ++y)
        upRow(image::rowAt(src, srcStep, y >> RowShift), half.width, image::rowAt(dst, dstStep, y), full.width);
}
inline void smoothH2V1Image(const Vek8u* src, int srcStep, VekiSize half, Vek8u* dst, int dstStep, VekiSize full) {
    for (int y = 0; y < full.height; ++y)
        smoothH2V1Row(image::rowAt(src, srcStep, y), half.width, image::rowAt(dst, dstStep, y), full.width);
}
// Output row 2i takes row i as the nearer and row i - 1 as the farther
// input row; output row 2i + 1 takes row i + 1 as the farther.
inline void smoothH2V2Image(const Vek8u* src, int srcStep, VekiSize half, Vek8u* dst, int dstStep, VekiSize full) {
    for (int y = 0; y < full.height; ++y) {
        const int i = y >> 1, far = y & 1 ? lastIndex(i + 1, half.height) : firstIndex(i - 1);
        smoothH2V2Row(image::rowAt(src, srcStep, i), image::rowAt(src, srcStep, far), half.width,
                      image::rowAt(dst, dstStep, y), full.width);
    }
}

}  // namespace

#endif
