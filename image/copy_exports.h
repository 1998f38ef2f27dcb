// The exports of the image copy family, written once for every level.
//
// A level's translation unit includes image/copy_rows.h (and its vector
// kernels) inside its namespace and expands the member groups that
// core/export_list.h assigns to it.
#ifndef VEK_IMAGE_COPY_EXPORTS_H
#define VEK_IMAGE_COPY_EXPORTS_H

#define VEK_IMAGE_COPY(Name, T, C)                                                            \
    VekStatus VEK_CALL Name(const T* pSrc, int srcStep, T* pDst, int dstStep, VekiSize roi) { \
        return copyImage(pSrc, srcStep, pDst, dstStep, roi, C);                               \
    }

#define VEK_IMAGE_SET(Name, T) \
    VekStatus VEK_CALL Name(T value, T* pDst, int dstStep, VekiSize roi) { return setImage(value, pDst, dstStep, roi); }

#define VEK_IMAGE_PLANAR_TO_INTERLEAVED(Name, T)                                                       \
    VekStatus VEK_CALL Name(const T* const pSrc[3], int srcStep, T* pDst, int dstStep, VekiSize roi) { \
        return planarToInterleaved(pSrc, srcStep, pDst, dstStep, roi);                                 \
    }

#define VEK_IMAGE_MIRROR(Name, InPlaceName, T, C)                                                       \
    VekStatus VEK_CALL Name(const T* pSrc, int srcStep, T* pDst, int dstStep, VekiSize roi, int flip) { \
        return mirrorImage<T, C>(pSrc, srcStep, pDst, dstStep, roi, flip);                              \
    }                                                                                                   \
    VekStatus VEK_CALL InPlaceName(T* pSrcDst, int srcDstStep, VekiSize roi, int flip) {                \
        return mirrorImageInPlace<T, C>(pSrcDst, srcDstStep, roi, flip);                                \
    }

// ---- member groups ------------------------------------------------------------

#define VEK_IMAGE_PLAIN_COPY_MEMBERS            \
    VEK_IMAGE_COPY(vekiCopy_8u_C1R, Vek8u, 1)   \
    VEK_IMAGE_COPY(vekiCopy_16s_C1R, Vek16s, 1) \
    VEK_IMAGE_COPY(vekiCopy_32f_C1R, Vek32f, 1) \
    VEK_IMAGE_COPY(vekiCopy_8u_C3R, Vek8u, 3)   \
    VEK_IMAGE_COPY(vekiCopy_8u_C4R, Vek8u, 4)   \
    VEK_IMAGE_SET(vekiSet_8u_C1R, Vek8u)

#define VEK_IMAGE_COPY_AC4_MEMBER                                                                                 \
    VekStatus VEK_CALL vekiCopy_8u_AC4R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi) { \
        return copyImageAC4(pSrc, srcStep, pDst, dstStep, roi);                                                   \
    }

#define VEK_IMAGE_SET_WIDE_MEMBERS                                                            \
    VEK_IMAGE_SET(vekiSet_16s_C1R, Vek16s)                                                    \
    VEK_IMAGE_SET(vekiSet_16u_C1R, Vek16u)                                                    \
    VekStatus VEK_CALL vekiSet_8u_C3CR(Vek8u value, Vek8u* pDst, int dstStep, VekiSize roi) { \
        return setImageEveryThird(value, pDst, dstStep, roi);                                 \
    }

#define VEK_IMAGE_BORDER_MEMBER                                                                                        \
    VekStatus VEK_CALL vekiCopyReplicateBorder_32s_C1R(const Vek32s* pSrc, int srcStep, VekiSize srcRoi, Vek32s* pDst, \
                                                       int dstStep, VekiSize dstRoi, int topBorderHeight,              \
                                                       int leftBorderWidth) {                                          \
        return replicateBorder(pSrc, srcStep, srcRoi, pDst, dstStep, dstRoi, topBorderHeight, leftBorderWidth);        \
    }

#define VEK_IMAGE_PLANAR_32F_MEMBERS                                                                           \
    VEK_IMAGE_PLANAR_TO_INTERLEAVED(vekiCopy_32f_P3C3R, Vek32f)                                                \
    VekStatus VEK_CALL vekiCopy_32f_C3P3R(const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, \
                                          VekiSize roi) {                                                      \
        return interleavedToPlanar(pSrc, srcStep, pDst, dstStep, roi);                                         \
    }

#define VEK_IMAGE_PLANAR_8U_MEMBER  VEK_IMAGE_PLANAR_TO_INTERLEAVED(vekiCopy_8u_P3C3R, Vek8u)
#define VEK_IMAGE_PLANAR_16S_MEMBER VEK_IMAGE_PLANAR_TO_INTERLEAVED(vekiCopy_16s_P3C3R, Vek16s)

#define VEK_IMAGE_SWAP_MEMBERS                                                                                         \
    VekStatus VEK_CALL vekiSwapChannels_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, \
                                               const int dstOrder[3]) {                                                \
        return swapChannelsImage(pSrc, srcStep, pDst, dstStep, roi, dstOrder);                                         \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiSwapChannels_8u_C3IR(Vek8u* pSrcDst, int srcDstStep, VekiSize roi, const int dstOrder[3]) { \
        return swapChannelsImage(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roi, dstOrder);                             \
    }

#define VEK_IMAGE_MIRROR_8U_C1_MEMBERS VEK_IMAGE_MIRROR(vekiMirror_8u_C1R, vekiMirror_8u_C1IR, Vek8u, 1)
#define VEK_IMAGE_MIRROR_8U_C3_MEMBERS VEK_IMAGE_MIRROR(vekiMirror_8u_C3R, vekiMirror_8u_C3IR, Vek8u, 3)
#define VEK_IMAGE_MIRROR_16_C1_MEMBERS                                   \
    VEK_IMAGE_MIRROR(vekiMirror_16u_C1R, vekiMirror_16u_C1IR, Vek16u, 1) \
    VEK_IMAGE_MIRROR(vekiMirror_16s_C1R, vekiMirror_16s_C1IR, Vek16s, 1)
#define VEK_IMAGE_MIRROR_16_C3_MEMBERS                                   \
    VEK_IMAGE_MIRROR(vekiMirror_16u_C3R, vekiMirror_16u_C3IR, Vek16u, 3) \
    VEK_IMAGE_MIRROR(vekiMirror_16s_C3R, vekiMirror_16s_C3IR, Vek16s, 3)
#define VEK_IMAGE_MIRROR_32_C1_MEMBERS                                   \
    VEK_IMAGE_MIRROR(vekiMirror_32s_C1R, vekiMirror_32s_C1IR, Vek32s, 1) \
    VEK_IMAGE_MIRROR(vekiMirror_32f_C1R, vekiMirror_32f_C1IR, Vek32f, 1)
#define VEK_IMAGE_MIRROR_32_C3_MEMBERS                                   \
    VEK_IMAGE_MIRROR(vekiMirror_32s_C3R, vekiMirror_32s_C3IR, Vek32s, 3) \
    VEK_IMAGE_MIRROR(vekiMirror_32f_C3R, vekiMirror_32f_C3IR, Vek32f, 3)

#endif
