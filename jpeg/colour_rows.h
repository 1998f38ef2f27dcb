// The row walk of the JPEG colour conversions, shared by every level.
//
// Included inside a level's namespace after the level's vector kernels
// (colour_simd.h) if it has any; `LevelVector` names the level's vector type
// (NoVector for the plain level).  Each row goes to the level's block
// function, which converts whole blocks of pixels and says how many, and the
// pixels left at the end of the row take the scalar arithmetic of
// colour_pixels.h, which gives the same bits.
#ifndef VEK_JPEG_COLOUR_ROWS_H
#define VEK_JPEG_COLOUR_ROWS_H

namespace {

using namespace vek::jpeg;

template <class In, class Conv, class Out>
inline int convertBlocks(NoVector, const typename In::Sample* const*, typename Out::Sample* const*, int) {
    return 0;
}

template <class In, class Conv, class Out>
void convertRow(const typename In::Sample* const* s, typename Out::Sample* const* d, int width) {
    int x = convertBlocks<In, Conv, Out>(LevelVector(), s, d, width);
    for (; x < width; ++x) Out::put(d, x, Conv::convert(In::get(s, x)));
}

// Every row of the region; the checks have passed.  src and dst hold the
// first row of each plane (one pointer for an interleaved image).
template <class In, class Conv, class Out>
void convertImage(const typename In::Sample* const* src, int srcStep, typename Out::Sample* const* dst, int dstStep,
                  VekiSize roi) {
    const typename In::Sample* s[In::kPlanes];
    typename Out::Sample* d[Out::kPlanes];
    for (int y = 0; y < roi.height; ++y) {
        for (int i = 0; i < In::kPlanes; ++i) s[i] = image::rowAt(src[i], srcStep, y);
        for (int i = 0; i < Out::kPlanes; ++i) d[i] = image::rowAt(dst[i], dstStep, y);
        convertRow<In, Conv, Out>(s, d, roi.width);
    }
}

}  // namespace

#endif
