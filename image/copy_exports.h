// The exports of the image copy family, written once for every level.
//
// A level's translation unit includes image/copy_rows.h (and its vector
// kernels) inside its namespace and expands the member groups that
// core/export_list.h assigns to it.
#ifndef VEK_IMAGE_COPY_EXPORTS_H
#define VEK_IMAGE_COPY_EXPORTS_H

#define VEK_IMAGE_COPY(Suffix, T, C)                                                                          \
    VekStatus VEK_CALL vekiCopy_##Suffix##R(const T* pSrc, int srcStep, T* pDst, int dstStep, VekiSize roi) { \
        return copyImage(pSrc, srcStep, pDst, dstStep, roi, C);                                               \
    }

#define VEK_IMAGE_SET(Type, T)                                                             \
    VekStatus VEK_CALL vekiSet_##Type##_C1R(T value, T* pDst, int dstStep, VekiSize roi) { \
        return setImage(value, pDst, dstStep, roi);                                        \
    }

#define VEK_IMAGE_PLANAR_TO_INTERLEAVED(Type, T)                                                          \
    VekStatus VEK_CALL vekiCopy_##Type##_P3C3R(const T* const pSrc[3], int srcStep, T* pDst, int dstStep, \
                                               VekiSize roi) {                                            \
        return planarToInterleaved(pSrc, srcStep, pDst, dstStep, roi);                                    \
    }

#define VEK_IMAGE_MIRROR(Suffix, T, C)                                                                        \
    VekStatus VEK_CALL vekiMirror_##Suffix##R(const T* pSrc, int srcStep, T* pDst, int dstStep, VekiSize roi, \
                                              int flip) {                                                     \
        return mirrorImage<T, C>(pSrc, srcStep, pDst, dstStep, roi, flip);                                    \
    }                                                                                                         \
    VekStatus VEK_CALL vekiMirror_##Suffix##IR(T* pSrcDst, int srcDstStep, VekiSize roi, int flip) {          \
        return mirrorImageInPlace<T, C>(pSrcDst, srcDstStep, roi, flip);                                      \
    }

// ---- member groups ------------------------------------------------------------

#define VEK_IMAGE_PLAIN_COPY_MEMBERS  \
    VEK_IMAGE_COPY(8u_C1, Vek8u, 1)   \
    VEK_IMAGE_COPY(16s_C1, Vek16s, 1) \
    VEK_IMAGE_COPY(32f_C1, Vek32f, 1) \
    VEK_IMAGE_COPY(8u_C3, Vek8u, 3)   \
    VEK_IMAGE_COPY(8u_C4, Vek8u, 4)   \
    VEK_IMAGE_SET(8u, Vek8u)

#define VEK_IMAGE_COPY_AC4_MEMBER                                                                                 \
    VekStatus VEK_CALL vekiCopy_8u_AC4R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi) { \
        return copyImageAC4(pSrc, srcStep, pDst, dstStep, roi);                                                   \
    }

#define VEK_IMAGE_SET_WIDE_MEMBERS                                                            \
    VEK_IMAGE_SET(16s, Vek16s)                                                                \
    VEK_IMAGE_SET(16u, Vek16u)                                                                \
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
    VEK_IMAGE_PLANAR_TO_INTERLEAVED(32f, Vek32f)                                                               \
    VekStatus VEK_CALL vekiCopy_32f_C3P3R(const Vek32f* pSrc, int srcStep, Vek32f* const pDst[3], int dstStep, \
                                          VekiSize roi) {                                                      \
        return interleavedToPlanar(pSrc, srcStep, pDst, dstStep, roi);                                         \
    }

#define VEK_IMAGE_PLANAR_INT_MEMBERS           \
    VEK_IMAGE_PLANAR_TO_INTERLEAVED(8u, Vek8u) \
    VEK_IMAGE_PLANAR_TO_INTERLEAVED(16s, Vek16s)

#define VEK_IMAGE_SWAP_MEMBERS                                                                                         \
    VekStatus VEK_CALL vekiSwapChannels_8u_C3R(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi, \
                                               const int dstOrder[3]) {                                                \
        return swapChannelsImage(pSrc, srcStep, pDst, dstStep, roi, dstOrder);                                         \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiSwapChannels_8u_C3IR(Vek8u* pSrcDst, int srcDstStep, VekiSize roi, const int dstOrder[3]) { \
        return swapChannelsImage(pSrcDst, srcDstStep, pSrcDst, srcDstStep, roi, dstOrder);                             \
    }

#define VEK_IMAGE_MIRROR_8U_C1_MEMBERS VEK_IMAGE_MIRROR(8u_C1, Vek8u, 1)
#define VEK_IMAGE_MIRROR_8U_C3_MEMBERS VEK_IMAGE_MIRROR(8u_C3, Vek8u, 3)
#define VEK_IMAGE_MIRROR_16_C1_MEMBERS  \
    VEK_IMAGE_MIRROR(16u_C1, Vek16u, 1) \
    VEK_IMAGE_MIRROR(16s_C1, Vek16s, 1)
#define VEK_IMAGE_MIRROR_16_C3_MEMBERS  \
    VEK_IMAGE_MIRROR(16u_C3, Vek16u, 3) \
    VEK_IMAGE_MIRROR(16s_C3, Vek16s, 3)
#define VEK_IMAGE_MIRROR_32_MEMBERS     \
    VEK_IMAGE_MIRROR(32s_C1, Vek32s, 1) \
    VEK_IMAGE_MIRROR(32f_C1, Vek32f, 1) \
    VEK_IMAGE_MIRROR(32s_C3, Vek32s, 3) \
    VEK_IMAGE_MIRROR(32f_C3, Vek32f, 3)

#endif
