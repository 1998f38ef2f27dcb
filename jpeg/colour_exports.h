// The exports of the JPEG colour family, written once for every level.
//
// A level's translation unit includes, inside its own namespace, its vector
// kernels (if any), colour_rows.h, sample_rows.h and mcu_rows.h, then
// expands the member groups that core/export_list.h assigns to it.  Every
// member runs the family's checks (colour_checks.h) before anything else.
#ifndef VEK_JPEG_COLOUR_EXPORTS_H
#define VEK_JPEG_COLOUR_EXPORTS_H

#include "jpeg/colour_checks.h"

// ---- conversions over a region, by the shapes of their arguments -------------------
// An interleaved (or packed) image to N planes.
#define VEK_JPEG_TO_PLANES(Name, In, Conv, Out, S, N)                                                       \
    VekStatus VEK_CALL Name(const S* pSrc, int srcStep, Vek8u* const pDst[N], int dstStep, VekiSize roi) {  \
        const VekStatus status = jpeg::checkConversion(srcStep, dstStep, roi, pSrc, jpeg::planes<N>(pDst)); \
        if (status == StatusOk) convertImage<In, Conv, Out>(&pSrc, srcStep, pDst, dstStep, roi);            \
        return status;                                                                                      \
    }
// N planes to an interleaved (or packed, or one-plane) image.
#define VEK_JPEG_FROM_PLANES(Name, In, Conv, Out, D, N)                                                     \
    VekStatus VEK_CALL Name(const Vek8u* const pSrc[N], int srcStep, D* pDst, int dstStep, VekiSize roi) {  \
        const VekStatus status = jpeg::checkConversion(srcStep, dstStep, roi, jpeg::planes<N>(pSrc), pDst); \
        if (status == StatusOk) convertImage<In, Conv, Out>(pSrc, srcStep, &pDst, dstStep, roi);            \
        return status;                                                                                      \
    }
#define VEK_JPEG_PLANES_TO_PLANES(Name, Conv)                                                           \
    VekStatus VEK_CALL Name(const Vek8u* const pSrc[3], int srcStep, Vek8u* const pDst[3], int dstStep, \
                            VekiSize roi) {                                                             \
        const VekStatus status =                                                                        \
            jpeg::checkConversion(srcStep, dstStep, roi, jpeg::planes<3>(pSrc), jpeg::planes<3>(pDst)); \
        if (status == StatusOk)                                                                         \
            convertImage<jpeg::Planar<3>, Conv, jpeg::Planar<3>>(pSrc, srcStep, pDst, dstStep, roi);    \
        return status;                                                                                  \
    }
#define VEK_JPEG_INTERLEAVED(Name, In, Conv, Out)                                                     \
    VekStatus VEK_CALL Name(const Vek8u* pSrc, int srcStep, Vek8u* pDst, int dstStep, VekiSize roi) { \
        const VekStatus status = jpeg::checkConversion(srcStep, dstStep, roi, pSrc, pDst);            \
        if (status == StatusOk) convertImage<In, Conv, Out>(&pSrc, srcStep, &pDst, dstStep, roi);     \
        return status;                                                                                \
    }

// ---- sampling ----------------------------------------------------------------------
// Down: srcRoi is the full-resolution region; up: dstRoi is.
#define VEK_JPEG_SAMPLE(Name, Image, HalveRows, Down)                                                                  \
    VekStatus VEK_CALL Name(const Vek8u* pSrc, int srcStep, VekiSize srcRoi, Vek8u* pDst, int dstStep,                 \
                            VekiSize dstRoi) {                                                                         \
        const VekStatus status = jpeg::checkSampling(srcStep, dstStep, Down ? srcRoi : dstRoi, Down ? dstRoi : srcRoi, \
                                                     HalveRows, pSrc, pDst);                                           \
        if (status == StatusOk) Image(pSrc, srcStep, srcRoi, pDst, dstStep, dstRoi);                                   \
        return status;                                                                                                 \
    }

// ---- one MCU ------------------------------------------------------------------------
#define VEK_JPEG_MCU_FORWARD(Name, L, H, Vs)                                              \
    VekStatus VEK_CALL Name(const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]) {   \
        const VekStatus status = jpeg::checkMcu(srcStep, pSrc, jpeg::planes<3>(pDstMCU)); \
        if (status == StatusOk) forwardMcu<L, H, Vs>(pSrc, srcStep, pDstMCU);             \
        return status;                                                                    \
    }
#define VEK_JPEG_MCU_INVERSE(Name, L, H, Vs)                                              \
    VekStatus VEK_CALL Name(const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep) {   \
        const VekStatus status = jpeg::checkMcu(dstStep, jpeg::planes<3>(pSrcMCU), pDst); \
        if (status == StatusOk) inverseMcu<L, H, Vs>(pSrcMCU, pDst, dstStep);             \
        return status;                                                                    \
    }

// ---- member groups ---------------------------------------------------------------------

// The members that read or write three interleaved channels.
#define VEK_JPEG_COLOUR_INTERLEAVED_MEMBERS                                                                 \
    VEK_JPEG_TO_PLANES(vekiRGBToYCbCr_JPEG_8u_C3P3R, jpeg::RGB, jpeg::Forward, jpeg::Planar<3>, Vek8u, 3)   \
    VEK_JPEG_TO_PLANES(vekiBGRToYCbCr_JPEG_8u_C3P3R, jpeg::BGR, jpeg::Forward, jpeg::Planar<3>, Vek8u, 3)   \
    VEK_JPEG_FROM_PLANES(vekiYCbCrToRGB_JPEG_8u_P3C3R, jpeg::Planar<3>, jpeg::Inverse, jpeg::RGB, Vek8u, 3) \
    VEK_JPEG_FROM_PLANES(vekiYCbCrToBGR_JPEG_8u_P3C3R, jpeg::Planar<3>, jpeg::Inverse, jpeg::BGR, Vek8u, 3) \
    VEK_JPEG_INTERLEAVED(vekiRGBToY_JPEG_8u_C3C1R, jpeg::RGB, jpeg::Forward, jpeg::Planar<1>)               \
    VEK_JPEG_INTERLEAVED(vekiBGRToY_JPEG_8u_C3C1R, jpeg::BGR, jpeg::Forward, jpeg::Planar<1>)               \
    VEK_JPEG_INTERLEAVED(vekiYCbCr422ToRGB_JPEG_8u_C2C3R, jpeg::YUYV, jpeg::Inverse, jpeg::RGB)

// Planes, packed pixels and four channels.
#define VEK_JPEG_COLOUR_OTHER_MEMBERS                                                                                 \
    VEK_JPEG_PLANES_TO_PLANES(vekiRGBToYCbCr_JPEG_8u_P3R, jpeg::Forward)                                              \
    VEK_JPEG_PLANES_TO_PLANES(vekiYCbCrToRGB_JPEG_8u_P3R, jpeg::Inverse)                                              \
    VEK_JPEG_FROM_PLANES(vekiRGBToY_JPEG_8u_P3C1R, jpeg::Planar<3>, jpeg::Forward, jpeg::Planar<1>, Vek8u, 3)         \
    VEK_JPEG_TO_PLANES(vekiBGR555ToYCbCr_JPEG_16u8u_C3P3R, jpeg::BGR555, jpeg::Forward, jpeg::Planar<3>, Vek16u, 3)   \
    VEK_JPEG_TO_PLANES(vekiBGR565ToYCbCr_JPEG_16u8u_C3P3R, jpeg::BGR565, jpeg::Forward, jpeg::Planar<3>, Vek16u, 3)   \
    VEK_JPEG_FROM_PLANES(vekiYCbCrToBGR555_JPEG_8u16u_P3C3R, jpeg::Planar<3>, jpeg::Inverse, jpeg::BGR555, Vek16u, 3) \
    VEK_JPEG_FROM_PLANES(vekiYCbCrToBGR565_JPEG_8u16u_P3C3R, jpeg::Planar<3>, jpeg::Inverse, jpeg::BGR565, Vek16u, 3) \
    VEK_JPEG_TO_PLANES(vekiCMYKToYCCK_JPEG_8u_C4P4R, jpeg::InvertedCMYK, jpeg::Forward, jpeg::Planar<4>, Vek8u, 4)    \
    VEK_JPEG_FROM_PLANES(vekiYCCKToCMYK_JPEG_8u_P4C4R, jpeg::Planar<4>, jpeg::Inverse, jpeg::InvertedCMYK, Vek8u, 4)

#define VEK_JPEG_SAMPLE_MEMBERS                                                                                        \
    VEK_JPEG_SAMPLE(vekiSampleDownH2V1_JPEG_8u_C1R, downH2V1Image, false, true)                                        \
    VEK_JPEG_SAMPLE(vekiSampleDownH2V2_JPEG_8u_C1R, downH2V2Image, true, true)                                         \
    VEK_JPEG_SAMPLE(vekiSampleUpH2V1_JPEG_8u_C1R, upImage<0>, false, false)                                            \
    VEK_JPEG_SAMPLE(vekiSampleUpH2V2_JPEG_8u_C1R, upImage<1>, true, false)                                             \
    VEK_JPEG_SAMPLE(vekiSampleUpH2V1Smooth_JPEG_8u_C1R, smoothH2V1Image, false, false)                                 \
    VEK_JPEG_SAMPLE(vekiSampleUpH2V2Smooth_JPEG_8u_C1R, smoothH2V2Image, true, false)                                  \
    VekStatus VEK_CALL vekiSampleUpRowH2V2Smooth_JPEG_8u_C1(const Vek8u* pSrcNear, const Vek8u* pSrcFar, int srcWidth, \
                                                            Vek8u* pDst, int dstWidth) {                               \
        if (!pSrcNear || !pSrcFar || !pDst) return StatusNullPointer;                                                  \
        if (srcWidth < 1 || dstWidth < 1 || srcWidth != dstWidth / 2 + dstWidth % 2) return StatusSize;                \
        smoothH2V2Row(pSrcNear, pSrcFar, srcWidth, pDst, dstWidth);                                                    \
        return StatusOk;                                                                                               \
    }

// The MCU conversions of interleaved RGB.
#define VEK_JPEG_MCU_MEMBERS                                                   \
    VEK_JPEG_MCU_FORWARD(vekiRGBToYCbCr444LS_MCU_8u16s_C3P3R, jpeg::RGB, 1, 1) \
    VEK_JPEG_MCU_FORWARD(vekiRGBToYCbCr422LS_MCU_8u16s_C3P3R, jpeg::RGB, 2, 1) \
    VEK_JPEG_MCU_FORWARD(vekiRGBToYCbCr411LS_MCU_8u16s_C3P3R, jpeg::RGB, 2, 2) \
    VEK_JPEG_MCU_INVERSE(vekiYCbCr444ToRGBLS_MCU_16s8u_P3C3R, jpeg::RGB, 1, 1) \
    VEK_JPEG_MCU_INVERSE(vekiYCbCr422ToRGBLS_MCU_16s8u_P3C3R, jpeg::RGB, 2, 1) \
    VEK_JPEG_MCU_INVERSE(vekiYCbCr411ToRGBLS_MCU_16s8u_P3C3R, jpeg::RGB, 2, 2)

// YUYV pixel pairs to and from the blocks of one 4:2:2 MCU (the split has
// wider kernels than the join, so a level may take one alone).
#define VEK_JPEG_MCU422_MEMBERS VEK_JPEG_SPLIT422_MEMBER VEK_JPEG_JOIN422_MEMBER
#define VEK_JPEG_SPLIT422_MEMBER                                                                                  \
    VekStatus VEK_CALL vekiSplit422LS_MCU_8u16s_C2P3R(const Vek8u* pSrc, int srcStep, Vek16s* const pDstMCU[3]) { \
        const VekStatus status = jpeg::checkMcu(srcStep, pSrc, jpeg::planes<3>(pDstMCU));                         \
        if (status == StatusOk) split422(pSrc, srcStep, pDstMCU);                                                 \
        return status;                                                                                            \
    }
#define VEK_JPEG_JOIN422_MEMBER                                                                                  \
    VekStatus VEK_CALL vekiJoin422LS_MCU_16s8u_P3C2R(const Vek16s* const pSrcMCU[3], Vek8u* pDst, int dstStep) { \
        const VekStatus status = jpeg::checkMcu(dstStep, jpeg::planes<3>(pSrcMCU), pDst);                        \
        if (status == StatusOk) join422(pSrcMCU, pDst, dstStep);                                                 \
        return status;                                                                                           \
    }

#endif
