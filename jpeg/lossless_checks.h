// The entry checks of the lossless JPEG row functions, one function per
// kind of row for every level.
//
// First rows: a null row gives StatusNullPointer, then a width below 1
// StatusSize, then a precision outside 2..16 or a negative point transform
// StatusBadArgument.  Later rows: the same with a predictor outside 1..7
// for the last check.  A point transform at or above the precision is not
// an error: the shift of the first prediction is taken modulo 32.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_JPEG_LOSSLESS_CHECKS_H
#define VEK_JPEG_LOSSLESS_CHECKS_H

namespace {

inline VekStatus checkFirstRow(const Vek16s* src, const Vek16s* dst, int width, int precision, int pointTransform) {
    if (!src || !dst) return StatusNullPointer;
    if (width < 1) return StatusSize;
    if (precision < 2 || precision > 16 || pointTransform < 0) return StatusBadArgument;
    return StatusOk;
}

inline VekStatus checkRow(const Vek16s* src, const Vek16s* prevRow, const Vek16s* dst, int width, int predictor) {
    if (!src || !prevRow || !dst) return StatusNullPointer;
    if (width < 1) return StatusSize;
    if (predictor < 1 || predictor > 7) return StatusBadArgument;
    return StatusOk;
}

}  // namespace

#endif
