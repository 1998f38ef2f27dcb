// The conversion exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the row
// kernel template convertRow<S, D>(const S* src, D* dst, size_t n), then
// expands the groups it implements.  The three-channel forms are the
// one-channel ones over three times as many samples per row.
#ifndef VEK_IMAGE_CONVERT_EXPORTS_H
#define VEK_IMAGE_CONVERT_EXPORTS_H

#define VEK_CONVERT_LAYOUT(Name, S, D, channels)                                              \
    VekStatus VEK_CALL Name(const S* pSrc, int srcStep, D* pDst, int dstStep, VekiSize roi) { \
        return convertRegion(pSrc, srcStep, pDst, dstStep, roi, channels,                     \
                             [](const S* s, D* d, size_t n) { convertRow<S, D>(s, d, n); });  \
    }
#define VEK_CONVERT(NameC1, NameC3, S, D) \
    VEK_CONVERT_LAYOUT(NameC1, S, D, 1)   \
    VEK_CONVERT_LAYOUT(NameC3, S, D, 3)

// Widening, exact.
#define VEK_CONVERT_FROM_8U_MEMBERS                                          \
    VEK_CONVERT(vekiConvert_8u16u_C1R, vekiConvert_8u16u_C3R, Vek8u, Vek16u) \
    VEK_CONVERT(vekiConvert_8u16s_C1R, vekiConvert_8u16s_C3R, Vek8u, Vek16s) \
    VEK_CONVERT(vekiConvert_8u32s_C1R, vekiConvert_8u32s_C3R, Vek8u, Vek32s) \
    VEK_CONVERT(vekiConvert_8u32f_C1R, vekiConvert_8u32f_C3R, Vek8u, Vek32f)
#define VEK_CONVERT_FROM_16U_MEMBERS                                            \
    VEK_CONVERT(vekiConvert_16u32s_C1R, vekiConvert_16u32s_C3R, Vek16u, Vek32s) \
    VEK_CONVERT(vekiConvert_16u32f_C1R, vekiConvert_16u32f_C3R, Vek16u, Vek32f)
#define VEK_CONVERT_FROM_16S_MEMBERS                                            \
    VEK_CONVERT(vekiConvert_16s32s_C1R, vekiConvert_16s32s_C3R, Vek16s, Vek32s) \
    VEK_CONVERT(vekiConvert_16s32f_C1R, vekiConvert_16s32f_C3R, Vek16s, Vek32f)

// Narrowing: integers saturate; floats round to nearest, ties to even,
// then saturate.
#define VEK_CONVERT_SATURATE_MEMBERS                                         \
    VEK_CONVERT(vekiConvert_32s8u_C1R, vekiConvert_32s8u_C3R, Vek32s, Vek8u) \
    VEK_CONVERT(vekiConvert_16s8u_C1R, vekiConvert_16s8u_C3R, Vek16s, Vek8u)
#define VEK_CONVERT_16U_TO_8U_MEMBERS VEK_CONVERT(vekiConvert_16u8u_C1R, vekiConvert_16u8u_C3R, Vek16u, Vek8u)
#define VEK_CONVERT_FROM_32F_MEMBERS                                            \
    VEK_CONVERT(vekiConvert_32f8u_C1R, vekiConvert_32f8u_C3R, Vek32f, Vek8u)    \
    VEK_CONVERT(vekiConvert_32f16s_C1R, vekiConvert_32f16s_C3R, Vek32f, Vek16s) \
    VEK_CONVERT(vekiConvert_32f16u_C1R, vekiConvert_32f16u_C3R, Vek32f, Vek16u)

#endif
