// The wavelet exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the step
// kernels that wt_lifting.h names, includes wt_lifting.h and wt_passes.h,
// then expands the groups it implements.
#ifndef VEK_JPEG2000_WT_EXPORTS_H
#define VEK_JPEG2000_WT_EXPORTS_H

#define VEK_WT_PASSES(FwdRow, FwdCol, InvRow, InvCol, Forward, Inverse, T) \
    VEK_WT_ROWS(FwdRow, InvRow, Forward, Inverse, T)                       \
    VEK_WT_COLUMNS(FwdCol, InvCol, Forward, Inverse, T)

#define VEK_WT_COLUMNS(FwdCol, InvCol, Forward, Inverse, T)                                                           \
    VekStatus VEK_CALL FwdCol(const T* pSrc, int srcStep, T* pDstLow, int dstLowStep, T* pDstHigh, int dstHighStep,   \
                              VekiSize roiSize, Vek32u phase) {                                                       \
        return forwardColumns<Forward, T>(pSrc, srcStep, pDstLow, dstLowStep, pDstHigh, dstHighStep, roiSize, phase); \
    }                                                                                                                 \
    VekStatus VEK_CALL InvCol(const T* pSrcLow, int srcLowStep, const T* pSrcHigh, int srcHighStep, VekiSize roiSize, \
                              T* pDst, int dstStep, Vek32u phase) {                                                   \
        return inverseColumns<Inverse, T>(pSrcLow, srcLowStep, pSrcHigh, srcHighStep, roiSize, pDst, dstStep, phase); \
    }

#define VEK_WT_ROWS(FwdRow, InvRow, Forward, Inverse, T)                                                              \
    VekStatus VEK_CALL FwdRow(const T* pSrc, int srcStep, T* pDstLow, int dstLowStep, T* pDstHigh, int dstHighStep,   \
                              VekiSize roiSize, Vek32u phase) {                                                       \
        return forwardRows<Forward, T>(pSrc, srcStep, pDstLow, dstLowStep, pDstHigh, dstHighStep, roiSize, phase);    \
    }                                                                                                                 \
    VekStatus VEK_CALL InvRow(const T* pSrcLow, int srcLowStep, const T* pSrcHigh, int srcHighStep, VekiSize roiSize, \
                              T* pDst, int dstStep, Vek32u phase) {                                                   \
        return inverseRows<Inverse, T>(pSrcLow, srcLowStep, pSrcHigh, srcHighStep, roiSize, pDst, dstStep, phase);    \
    }

#define VEK_WT_LIFT_53(FwdLift, InvLift, T)                                                                       \
    VekStatus VEK_CALL FwdLift(const T* pSrc0, const T* pSrc1, const T* pSrc2, T* pDstLow, const T* pSrcHighPrev, \
                               T* pDstHigh, int width) {                                                          \
        return forwardLift53<T>(pSrc0, pSrc1, pSrc2, pDstLow, pSrcHighPrev, pDstHigh, width);                     \
    }                                                                                                             \
    VekStatus VEK_CALL InvLift(const T* pSrcLow, const T* pSrcHighPrev, const T* pSrcHigh, const T* pSrcEvenPrev, \
                               T* pDstOdd, T* pDstEven, int width) {                                              \
        return inverseLift53<T>(pSrcLow, pSrcHighPrev, pSrcHigh, pSrcEvenPrev, pDstOdd, pDstEven, width);         \
    }

#define VEK_WT_LIFT_97(FwdLift, InvLift, Forward, Inverse, T)                                                     \
    VekStatus VEK_CALL FwdLift(const T* pSrc0, const T* pSrc1, const T* pSrc2, T* pSrcDstLow, T* pDstLow,         \
                               T* pSrcDstHighPrev, T* pSrcDstHigh, T* pDstHigh, int width) {                      \
        return forwardLift97<Forward, T>(pSrc0, pSrc1, pSrc2, pSrcDstLow, pDstLow, pSrcDstHighPrev, pSrcDstHigh,  \
                                         pDstHigh, width);                                                        \
    }                                                                                                             \
    VekStatus VEK_CALL InvLift(const T* pSrcLow, const T* pSrcHigh, const T* pSrcHighPrev, const T* pSrcEvenPrev, \
                               T* pSrcDstOdd, T* pSrcDstEven, T* pDstOdd, T* pDstEven, int width) {               \
        return inverseLift97<Inverse, T>(pSrcLow, pSrcHigh, pSrcHighPrev, pSrcEvenPrev, pSrcDstOdd, pSrcDstEven,  \
                                         pDstOdd, pDstEven, width);                                               \
    }

#define VEK_WT_LEVEL(FwdLevel, InvLevel, T)                                                                       \
    VekStatus VEK_CALL FwdLevel(const T* pSrc, int srcStep, const VekiRect* pTileRect, T* const pDst[4],          \
                                const int dstStep[4], Vek8u* pBuffer) {                                           \
        return forwardLevel<T>(pSrc, srcStep, pTileRect, pDst, dstStep, pBuffer);                                 \
    }                                                                                                             \
    VekStatus VEK_CALL InvLevel(const T* const pSrc[4], const int srcStep[4], const VekiRect* pTileRect, T* pDst, \
                                int dstStep, Vek8u* pBuffer) {                                                    \
        return inverseLevel<T>(pSrc, srcStep, pTileRect, pDst, dstStep, pBuffer);                                 \
    }

// ---- member groups ------------------------------------------------------------

#define VEK_WT_B53_MEMBERS                                                                                           \
    VEK_WT_PASSES(vekiWTFwdRow_B53_JPEG2K_16s_C1R, vekiWTFwdCol_B53_JPEG2K_16s_C1R, vekiWTInvRow_B53_JPEG2K_16s_C1R, \
                  vekiWTInvCol_B53_JPEG2K_16s_C1R, Forward53<Vek16s>, Inverse53<Vek16s>, Vek16s)                     \
    VEK_WT_PASSES(vekiWTFwdRow_B53_JPEG2K_32s_C1R, vekiWTFwdCol_B53_JPEG2K_32s_C1R, vekiWTInvRow_B53_JPEG2K_32s_C1R, \
                  vekiWTInvCol_B53_JPEG2K_32s_C1R, Forward53<Vek32s>, Inverse53<Vek32s>, Vek32s)                     \
    VEK_WT_LIFT_53(vekiWTFwdColLift_B53_JPEG2K_16s_C1, vekiWTInvColLift_B53_JPEG2K_16s_C1, Vek16s)                   \
    VEK_WT_LIFT_53(vekiWTFwdColLift_B53_JPEG2K_32s_C1, vekiWTInvColLift_B53_JPEG2K_32s_C1, Vek32s)

#define VEK_WT_D97_32F_MEMBERS                                                                                       \
    VEK_WT_PASSES(vekiWTFwdRow_D97_JPEG2K_32f_C1R, vekiWTFwdCol_D97_JPEG2K_32f_C1R, vekiWTInvRow_D97_JPEG2K_32f_C1R, \
                  vekiWTInvCol_D97_JPEG2K_32f_C1R, Forward97F, Inverse97F, Vek32f)                                   \
    VEK_WT_LIFT_97(vekiWTFwdColLift_D97_JPEG2K_32f_C1, vekiWTInvColLift_D97_JPEG2K_32f_C1, Forward97F, Inverse97F,   \
                   Vek32f)

#define VEK_WT_D97_16S_MEMBERS                                                                                 \
    VEK_WT_ROWS(vekiWTFwdRow_D97_JPEG2K_16s_C1R, vekiWTInvRow_D97_JPEG2K_16s_C1R, Forward97Q<Vek16s>,          \
                Inverse97Q<Vek16s>, Vek16s)                                                                    \
    VEK_WT_LIFT_97(vekiWTFwdColLift_D97_JPEG2K_16s_C1, vekiWTInvColLift_D97_JPEG2K_16s_C1, Forward97Q<Vek16s>, \
                   Inverse97Q<Vek16s>, Vek16s)                                                                 \
    VEK_WT_LEVEL(vekiWTFwd_D97_JPEG2K_16s_C1R, vekiWTInv_D97_JPEG2K_16s_C1R, Vek16s)

#define VEK_WT_D97_32S_MEMBERS                                                                                 \
    VEK_WT_ROWS(vekiWTFwdRow_D97_JPEG2K_32s_C1R, vekiWTInvRow_D97_JPEG2K_32s_C1R, Forward97Q<Vek32s>,          \
                Inverse97Q<Vek32s>, Vek32s)                                                                    \
    VEK_WT_LIFT_97(vekiWTFwdColLift_D97_JPEG2K_32s_C1, vekiWTInvColLift_D97_JPEG2K_32s_C1, Forward97Q<Vek32s>, \
                   Inverse97Q<Vek32s>, Vek32s)                                                                 \
    VEK_WT_LEVEL(vekiWTFwd_D97_JPEG2K_32s_C1R, vekiWTInv_D97_JPEG2K_32s_C1R, Vek32s)

#endif
