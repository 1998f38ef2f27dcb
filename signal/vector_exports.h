// The exports of the shift, conversion, copy and threshold family, written
// once for every level.
//
// The checks at the entry (their order differs between the members, see
// include/vek.h) are the same on every level; only the loops differ.  A
// level's translation unit defines, in an unnamed namespace inside its own
// namespace, the kernels its members need, then includes this header there
// (after <string.h>) and expands the member groups it implements:
//
//   shiftLeftKernel<T>(src, dst, len, shift)    0 < shift < bits of T
//   shiftRightKernel<T>(src, dst, len, shift)   0 < shift < bits of T
//   widenKernel(src16, dst32, len)              sign extension
//   narrowKernel(src32, dst16, len)             saturation
//   toFloatKernel(src32s, dst32f, len, sf)      any sf
//   toIntKernel(src32f, dst32s, len, sf)        any sf
//   thresholdKernel<Above|Below>(srcDst, len, level)
//
// Every kernel gets len >= 1 and valid pointers; dst may equal src.  The
// helpers below have internal linkage, so each level compiles its own.
#ifndef VEK_SIGNAL_VECTOR_EXPORTS_H
#define VEK_SIGNAL_VECTOR_EXPORTS_H

#include "signal/vector_checks.h"

namespace {

template <class T>
constexpr int kBits = 8 * static_cast<int>(sizeof(T));

// The plain element copy that a shift by 0 becomes, with its own checks.
template <class T>
VekStatus copyElements(const T* src, T* dst, int len) {
    if (const VekStatus status = checkVectors(len, src, dst)) return status;
    if (src != dst) memcpy(dst, src, sizeof(T) * static_cast<size_t>(len));
    return StatusOk;
}

// The zero fill a large left shift becomes, with its own checks.
template <class T>
VekStatus zeroFill(T* dst, int len) {
    if (const VekStatus status = checkVectors(len, dst)) return status;
    memset(dst, 0, sizeof(T) * static_cast<size_t>(len));
    return StatusOk;
}

template <class T>
VekStatus shiftLeftC(const T* src, int shift, T* dst, int len) {
    if (shift == 0) return copyElements(src, dst, len);
    if (shift >= kBits<T>) {
        if (!src) return StatusNullPointer;
        return zeroFill(dst, len);
    }
    if (const VekStatus status = checkVectors(len, src, dst)) return status;
    if (shift < 0) return StatusShift;
    shiftLeftKernel(src, dst, len, shift);
    return StatusOk;
}

template <class T>
VekStatus shiftRightC(const T* src, int shift, T* dst, int len) {
    if (shift == 0) return copyElements(src, dst, len);
    if (const VekStatus status = checkVectors(len, src, dst)) return status;
    if (shift < 0) return StatusShift;
    shiftRightKernel(src, dst, len, shift < kBits<T> ? shift : kBits<T> - 1);
    return StatusOk;
}

template <class T>
VekStatus shiftLeftInPlace(int shift, T* srcDst, int len) {
    if (const VekStatus status = checkVectors(len, srcDst)) return status;
    if (shift < 0) return StatusShift;
    if (shift == 0) return StatusOk;
    if (shift >= kBits<T>) return zeroFill(srcDst, len);
    shiftLeftKernel(srcDst, srcDst, len, shift);
    return StatusOk;
}

template <class T>
VekStatus shiftRightInPlace(int shift, T* srcDst, int len) {
    if (const VekStatus status = checkVectors(len, srcDst)) return status;
    if (shift < 0) return StatusShift;
    if (shift == 0) return StatusOk;
    shiftRightKernel(srcDst, srcDst, len, shift < kBits<T> ? shift : kBits<T> - 1);
    return StatusOk;
}

}  // namespace

#define VEK_VECTOR_SHIFT_MEMBERS                                                               \
    VekStatus VEK_CALL veksLShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len) { \
        return shiftLeftC(pSrc, shift, pDst, len);                                             \
    }                                                                                          \
    VekStatus VEK_CALL veksLShiftC_16s_I(int shift, Vek16s* pSrcDst, int len) {                \
        return shiftLeftInPlace(shift, pSrcDst, len);                                          \
    }                                                                                          \
    VekStatus VEK_CALL veksLShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len) { \
        return shiftLeftC(pSrc, shift, pDst, len);                                             \
    }                                                                                          \
    VekStatus VEK_CALL veksRShiftC_16s(const Vek16s* pSrc, int shift, Vek16s* pDst, int len) { \
        return shiftRightC(pSrc, shift, pDst, len);                                            \
    }                                                                                          \
    VekStatus VEK_CALL veksRShiftC_16s_I(int shift, Vek16s* pSrcDst, int len) {                \
        return shiftRightInPlace(shift, pSrcDst, len);                                         \
    }                                                                                          \
    VekStatus VEK_CALL veksRShiftC_32s(const Vek32s* pSrc, int shift, Vek32s* pDst, int len) { \
        return shiftRightC(pSrc, shift, pDst, len);                                            \
    }                                                                                          \
    VekStatus VEK_CALL veksRShiftC_32s_I(int shift, Vek32s* pSrcDst, int len) {                \
        return shiftRightInPlace(shift, pSrcDst, len);                                         \
    }

#define VEK_VECTOR_INT_CONVERT_MEMBERS                                                 \
    VekStatus VEK_CALL veksConvert_16s32s(const Vek16s* pSrc, Vek32s* pDst, int len) { \
        return checkThenRun([=] { widenKernel(pSrc, pDst, len); }, len, pSrc, pDst);   \
    }                                                                                  \
    VekStatus VEK_CALL veksConvert_32s16s(const Vek32s* pSrc, Vek16s* pDst, int len) { \
        return checkThenRun([=] { narrowKernel(pSrc, pDst, len); }, len, pSrc, pDst);  \
    }

#define VEK_VECTOR_TO_FLOAT_MEMBER                                                                          \
    VekStatus VEK_CALL veksConvert_32s32f_Sfs(const Vek32s* pSrc, Vek32f* pDst, int len, int scaleFactor) { \
        return checkThenRun([=] { toFloatKernel(pSrc, pDst, len, scaleFactor); }, len, pSrc, pDst);         \
    }
#define VEK_VECTOR_TO_INT_MEMBER                                                                            \
    VekStatus VEK_CALL veksConvert_32f32s_Sfs(const Vek32f* pSrc, Vek32s* pDst, int len, int scaleFactor) { \
        return checkThenRun([=] { toIntKernel(pSrc, pDst, len, scaleFactor); }, len, pSrc, pDst);           \
    }

#define VEK_VECTOR_COPY_MEMBERS                                                                                       \
    VekStatus VEK_CALL veksCopy_8u(const Vek8u* pSrc, Vek8u* pDst, int len) { return copyElements(pSrc, pDst, len); } \
    VekStatus VEK_CALL veksMove_8u(const Vek8u* pSrc, Vek8u* pDst, int len) {                                         \
        return checkThenRun(                                                                                          \
            [=] {                                                                                                     \
                if (pSrc != pDst) memmove(pDst, pSrc, static_cast<size_t>(len));                                      \
            },                                                                                                        \
            len, pSrc, pDst);                                                                                         \
    }

#define VEK_VECTOR_THRESHOLD_MEMBERS                                                             \
    VekStatus VEK_CALL veksThreshold_GT_32s_I(Vek32s* pSrcDst, int len, Vek32s level) {          \
        return checkThenRun([=] { thresholdKernel<Above>(pSrcDst, len, level); }, len, pSrcDst); \
    }                                                                                            \
    VekStatus VEK_CALL veksThreshold_LT_32s_I(Vek32s* pSrcDst, int len, Vek32s level) {          \
        return checkThenRun([=] { thresholdKernel<Below>(pSrcDst, len, level); }, len, pSrcDst); \
    }

#endif
