// The TIFF row exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, a PackBits
// Scan policy (packbits_codec.h) and expands VEK_PACKBITS_EXPORTS(Scan),
// and defines the byte-plane kernels joinPlanes(high, low, dst, n) and
// splitPlanes(src, high, low, n) and expands VEK_TIFF_PLANE_EXPORTS.
#ifndef VEK_JPEG_TIFF_EXPORTS_H
#define VEK_JPEG_TIFF_EXPORTS_H

#define VEK_PACKBITS_EXPORTS(Scan)                                                                                     \
    VekStatus VEK_CALL vekiPackBitsRow_TIFF_8u_C1(const Vek8u* pSrc, int srcLen, Vek8u* pDst, int* pDstCurrPos,        \
                                                  int dstLenBytes) {                                                   \
        return packBitsEncode<Scan>(pSrc, srcLen, pDst, pDstCurrPos, dstLenBytes);                                     \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiUnpackBitsRow_TIFF_8u_C1(const Vek8u* pSrc, int* pSrcCurrPos, int srcLenBytes, Vek8u* pDst, \
                                                    int dstLen) {                                                      \
        return packBitsDecode<Scan>(pSrc, pSrcCurrPos, srcLenBytes, pDst, dstLen);                                     \
    }

#define VEK_TIFF_PLANE_EXPORTS                                                                         \
    VekStatus VEK_CALL vekiJoinRow_TIFF_8u16u_C1(const Vek8u* const pSrc[2], Vek16u* pDst, int len) {  \
        if (const VekStatus s = checkPlanes(pSrc, pDst, len)) return s;                                \
        joinPlanes(pSrc[0], pSrc[1], pDst, size_t(len));                                               \
        return StatusOk;                                                                               \
    }                                                                                                  \
    VekStatus VEK_CALL vekiSplitRow_TIFF_16u8u_C1(const Vek16u* pSrc, Vek8u* const pDst[2], int len) { \
        if (const VekStatus s = checkPlanes(pDst, pSrc, len)) return s;                                \
        splitPlanes(pSrc, pDst[0], pDst[1], size_t(len));                                              \
        return StatusOk;                                                                               \
    }

#endif
