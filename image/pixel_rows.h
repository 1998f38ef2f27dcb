// The entry checks and the row walk shared by the conversions and the
// per-pixel arithmetic, at every level.
//
// Included inside a level's namespace, so the row kernels it is handed are
// that level's own.  Every export of the family checks, in this order: a
// null pointer (StatusNullPointer), a width or height below 1 (StatusSize),
// a step below 1 (StatusStep); the caller checks any further parameter
// after these.  A region whose rows follow each other without a gap in
// every image goes to the kernel as one long row.
#ifndef VEK_IMAGE_PIXEL_ROWS_H
#define VEK_IMAGE_PIXEL_ROWS_H

namespace {

// Whether a step equals the length of a row of `samples` elements of size
// `bytes` (worked in 64 bits: a wide row of a 32-bit target may overflow).
inline bool stepIsRow(int step, size_t samples, size_t bytes) {
    return static_cast<uint64_t>(step) == static_cast<uint64_t>(samples) * bytes;
}

// The checks of an image with a separate source and destination.
template <class S, class D>
VekStatus checkRegion(const S* src, int srcStep, const D* dst, int dstStep, VekiSize roi) {
    if (const VekStatus status = image::checkPointersAndRoi(roi, src, dst)) return status;
    if (srcStep < 1 || dstStep < 1) return StatusStep;
    return StatusOk;
}

// row(srcRow, dstRow, n) over every row of `channels` samples per pixel,
// or once over the whole region when it is contiguous in both images.
// The checks must have passed.
template <class S, class D, class Row>
void walkRegion(const S* src, int srcStep, D* dst, int dstStep, VekiSize roi, int channels, Row row) {
    const size_t samples = static_cast<size_t>(roi.width) * channels;
    if (stepIsRow(srcStep, samples, sizeof(S)) && stepIsRow(dstStep, samples, sizeof(D)))
        return row(src, dst, samples * roi.height);
    for (int y = 0; y < roi.height; ++y) row(image::rowAt(src, srcStep, y), image::rowAt(dst, dstStep, y), samples);
}

template <class S, class D, class Row>
VekStatus convertRegion(const S* src, int srcStep, D* dst, int dstStep, VekiSize roi, int channels, Row row) {
    const VekStatus status = checkRegion(src, srcStep, dst, dstStep, roi);
    if (status == StatusOk) walkRegion(src, srcStep, dst, dstStep, roi, channels, row);
    return status;
}

// The in-place forms: one image is both source and destination.
template <class T, class Row>
VekStatus inPlaceRegion(T* srcDst, int step, VekiSize roi, Row row) {
    const VekStatus status = checkRegion(srcDst, step, srcDst, step, roi);
    if (status == StatusOk)
        walkRegion(static_cast<const T*>(srcDst), step, srcDst, step, roi, 1,
                   [&](const T*, T* p, size_t n) { row(p, n); });
    return status;
}

// Hands a kernel that takes an int length a row of any length, in pieces.
template <class Piece>
void inIntPieces(size_t n, Piece piece) {
    constexpr size_t kMax = size_t(1) << 30;
    for (size_t done = 0; done < n; done += kMax) piece(done, static_cast<int>(n - done < kMax ? n - done : kMax));
}

}  // namespace

#endif
