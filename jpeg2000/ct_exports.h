// The component transform exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the row
// kernels
//   rctForward<T>(T* p0, T* p1, T* p2, size_t n)   and rctInverse, in place;
//   ictForward<T>, ictInverse<T>                    likewise (T = 16s, 32s, 32f);
//   <kind>FromPixels(const T* pixels, T* p0, T* p1, T* p2, size_t n)
//   <kind>ToPixels(const T* p0, const T* p1, const T* p2, T* pixels, size_t n)
// for the interleaved forms (kind rctForward / rctInverse / ictForward /
// ictInverse, as the members below name them), then expands the groups it
// implements.  The region walk and the checks are shared (ct_walk.h).
#ifndef VEK_JPEG2000_CT_EXPORTS_H
#define VEK_JPEG2000_CT_EXPORTS_H

#define VEK_CT_IN_PLACE(Name, T, kernel)                                                                               \
    VekStatus VEK_CALL Name(T* const pSrcDst[3], int srcDstStep, VekiSize roiSize) {                                   \
        return planesInPlace(pSrcDst, srcDstStep, roiSize, [](T* a, T* b, T* c, size_t n) { kernel<T>(a, b, c, n); }); \
    }
#define VEK_CT_FROM_PIXELS(Name, T, kernel)                                                                \
    VekStatus VEK_CALL Name(const T* pSrc, int srcStep, T* const pDst[3], int dstStep, VekiSize roiSize) { \
        return pixelsToPlanes(pSrc, srcStep, pDst, dstStep, roiSize, kernel<T>);                           \
    }
#define VEK_CT_TO_PIXELS(Name, T, kernel)                                                                  \
    VekStatus VEK_CALL Name(const T* const pSrc[3], int srcStep, T* pDst, int dstStep, VekiSize roiSize) { \
        return planesToPixels(pSrc, srcStep, pDst, dstStep, roiSize, kernel<T>);                           \
    }

// ---- member groups ------------------------------------------------------------

#define VEK_CT_RCT_MEMBERS                                                        \
    VEK_CT_IN_PLACE(vekiRCTFwd_JPEG2K_16s_P3IR, Vek16s, rctForward)               \
    VEK_CT_IN_PLACE(vekiRCTFwd_JPEG2K_32s_P3IR, Vek32s, rctForward)               \
    VEK_CT_FROM_PIXELS(vekiRCTFwd_JPEG2K_32s_C3P3R, Vek32s, rctForwardFromPixels) \
    VEK_CT_IN_PLACE(vekiRCTInv_JPEG2K_16s_P3IR, Vek16s, rctInverse)               \
    VEK_CT_IN_PLACE(vekiRCTInv_JPEG2K_32s_P3IR, Vek32s, rctInverse)               \
    VEK_CT_TO_PIXELS(vekiRCTInv_JPEG2K_32s_P3C3R, Vek32s, rctInverseToPixels)

#define VEK_CT_ICT_16S_MEMBERS                                      \
    VEK_CT_IN_PLACE(vekiICTFwd_JPEG2K_16s_P3IR, Vek16s, ictForward) \
    VEK_CT_IN_PLACE(vekiICTInv_JPEG2K_16s_P3IR, Vek16s, ictInverse)

#define VEK_CT_ICT_32S_MEMBERS                                      \
    VEK_CT_IN_PLACE(vekiICTFwd_JPEG2K_32s_P3IR, Vek32s, ictForward) \
    VEK_CT_IN_PLACE(vekiICTInv_JPEG2K_32s_P3IR, Vek32s, ictInverse)

#define VEK_CT_ICT_32F_MEMBERS                                                    \
    VEK_CT_IN_PLACE(vekiICTFwd_JPEG2K_32f_P3IR, Vek32f, ictForward)               \
    VEK_CT_FROM_PIXELS(vekiICTFwd_JPEG2K_32f_C3P3R, Vek32f, ictForwardFromPixels) \
    VEK_CT_IN_PLACE(vekiICTInv_JPEG2K_32f_P3IR, Vek32f, ictInverse)               \
    VEK_CT_TO_PIXELS(vekiICTInv_JPEG2K_32f_P3C3R, Vek32f, ictInverseToPixels)

#endif
