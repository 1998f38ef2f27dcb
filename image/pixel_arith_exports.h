// The per-pixel arithmetic exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the row
// kernels its groups need, then expands those groups:
//   shifts and sign extension:  shiftLeftRow(const Vek32s*, Vek32s*, size_t, Vek32u),
//                               shiftRightRow(T*, size_t, Vek32u) for Vek16s and Vek32s,
//                               signExtendRow(Vek32s*, size_t, int bitSize);
//   the constant products:      the level's own vector members veksMulC_16s_ISfs and
//                               veksMulC_32f_I, applied to each row (or to the whole
//                               region when it is contiguous).
#ifndef VEK_IMAGE_PIXEL_ARITH_EXPORTS_H
#define VEK_IMAGE_PIXEL_ARITH_EXPORTS_H

#define VEK_PIXEL_SHIFT_MEMBERS                                                                                       \
    VekStatus VEK_CALL vekiLShiftC_32s_C1R(const Vek32s* pSrc, int srcStep, Vek32u value, Vek32s* pDst, int dstStep,  \
                                           VekiSize roi) {                                                            \
        return convertRegion(pSrc, srcStep, pDst, dstStep, roi, 1,                                                    \
                             [value](const Vek32s* s, Vek32s* d, size_t n) { shiftLeftRow(s, d, n, value); });        \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiLShiftC_32s_C1IR(Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi) {            \
        return inPlaceRegion(pSrcDst, srcDstStep, roi,                                                                \
                             [value](Vek32s* p, size_t n) { shiftLeftRow(p, p, n, value); });                         \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiRShiftC_16s_C1IR(Vek32u value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi) {            \
        return inPlaceRegion(pSrcDst, srcDstStep, roi, [value](Vek16s* p, size_t n) { shiftRightRow(p, n, value); }); \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiRShiftC_32s_C1IR(Vek32u value, Vek32s* pSrcDst, int srcDstStep, VekiSize roi) {            \
        return inPlaceRegion(pSrcDst, srcDstStep, roi, [value](Vek32s* p, size_t n) { shiftRightRow(p, n, value); }); \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiComplement_32s_C1IR(Vek32s* pSrcDst, int srcDstStep, VekiSize roi, int bitSize) {          \
        const VekStatus status = checkRegion(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roi);                          \
        if (status != StatusOk) return status;                                                                        \
        if (bitSize < 1 || bitSize > 32) return StatusOutOfRange;                                                     \
        return inPlaceRegion(pSrcDst, srcDstStep, roi,                                                                \
                             [bitSize](Vek32s* p, size_t n) { signExtendRow(p, n, bitSize); });                       \
    }

#define VEK_PIXEL_MULC_16S_MEMBER                                                                            \
    VekStatus VEK_CALL vekiMulC_16s_C1IRSfs(Vek16s value, Vek16s* pSrcDst, int srcDstStep, VekiSize roi,     \
                                            int scaleFactor) {                                               \
        return inPlaceRegion(pSrcDst, srcDstStep, roi, [=](Vek16s* p, size_t n) {                            \
            inIntPieces(n, [=](size_t at, int len) { veksMulC_16s_ISfs(value, p + at, len, scaleFactor); }); \
        });                                                                                                  \
    }

#define VEK_PIXEL_MULC_32F_MEMBER                                                                       \
    VekStatus VEK_CALL vekiMulC_32f_C1IR(Vek32f value, Vek32f* pSrcDst, int srcDstStep, VekiSize roi) { \
        return inPlaceRegion(pSrcDst, srcDstStep, roi, [=](Vek32f* p, size_t n) {                       \
            inIntPieces(n, [=](size_t at, int len) { veksMulC_32f_I(value, p + at, len); });            \
        });                                                                                             \
    }

#endif
