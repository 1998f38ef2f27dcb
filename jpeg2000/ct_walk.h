// The region walk of the component transforms, shared by every level: the
// checks (ct_checks.h), then the level's row kernel on each row.  A region
// whose rows follow each other without a gap goes to the kernel as one row.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_JPEG2000_CT_WALK_H
#define VEK_JPEG2000_CT_WALK_H

namespace {

// Whether rows of `samples` elements of T lie `step` bytes apart without a
// gap (worked in 64 bits: a wide row of a 32-bit target may overflow).
template <class T>
inline bool rowsTouch(int step, int64_t samples) {
    return int64_t(step) == samples * int64_t(sizeof(T));
}

template <class T, class Row>
VekStatus planesInPlace(T* const planes[3], int step, VekiSize roi, Row row) {
    if (const VekStatus status = jpeg2000::checkPlanesInPlace(planes, step, roi)) return status;
    T* p0 = planes[0];
    T* p1 = planes[1];
    T* p2 = planes[2];
    if (rowsTouch<T>(step, roi.width)) return row(p0, p1, p2, size_t(roi.width) * size_t(roi.height)), StatusOk;
    for (int y = 0; y < roi.height; ++y)
        row(image::rowAt(p0, step, y), image::rowAt(p1, step, y), image::rowAt(p2, step, y), size_t(roi.width));
    return StatusOk;
}

template <class T, class Row>
VekStatus pixelsToPlanes(const T* pixels, int srcStep, T* const planes[3], int dstStep, VekiSize roi, Row row) {
    if (const VekStatus status = jpeg2000::checkPlanesAndPixels(planes, pixels, srcStep, dstStep, roi)) return status;
    if (rowsTouch<T>(srcStep, 3 * int64_t(roi.width)) && rowsTouch<T>(dstStep, roi.width))
        return row(pixels, planes[0], planes[1], planes[2], size_t(roi.width) * size_t(roi.height)), StatusOk;
    for (int y = 0; y < roi.height; ++y)
        row(image::rowAt(pixels, srcStep, y), image::rowAt(planes[0], dstStep, y), image::rowAt(planes[1], dstStep, y),
            image::rowAt(planes[2], dstStep, y), size_t(roi.width));
    return StatusOk;
}

template <class T, class Row>
VekStatus planesToPixels(const T* const planes[3], int srcStep, T* pixels, int dstStep, VekiSize roi, Row row) {
    if (const VekStatus status = jpeg2000::checkPlanesAndPixels(planes, pixels, srcStep, dstStep, roi)) return status;
    if (rowsTouch<T>(srcStep, roi.width) && rowsTouch<T>(dstStep, 3 * int64_t(roi.width)))
        return row(planes[0], planes[1], planes[2], pixels, size_t(roi.width) * size_t(roi.height)), StatusOk;
    for (int y = 0; y < roi.height; ++y)
        row(image::rowAt(planes[0], srcStep, y), image::rowAt(planes[1], srcStep, y),
            image::rowAt(planes[2], srcStep, y), image::rowAt(pixels, dstStep, y), size_t(roi.width));
    return StatusOk;
}

}  // namespace

#endif
