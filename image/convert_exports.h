// The conversion exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the row
// kernel template convertRow<S, D>(const S* src, D* dst, size_t n), then
// expands the groups it implements.  The three-channel forms are the
// one-channel ones over three times as many samples per row.
#ifndef VEK_IMAGE_CONVERT_EXPORTS_H
#define VEK_IMAGE_CONVERT_EXPORTS_H

#define VEK_CONVERT_LAYOUT(S, D, Codes, Layout, channels)                                               \
    VekStatus VEK_CALL vekiConvert_##Codes##_##Layout(const S* pSrc, int srcStep, D* pDst, int dstStep, \
                                                      VekiSize roi) {                                   \
        return convertRegion(pSrc, srcStep, pDst, dstStep, roi, channels,                               \
                             [](const S* s, D* d, size_t n) { convertRow<S, D>(s, d, n); });            \
    }
#define VEK_CONVERT(S, D, Codes)            \
    VEK_CONVERT_LAYOUT(S, D, Codes, C1R, 1) \
    VEK_CONVERT_LAYOUT(S, D, Codes, C3R, 3)

// Widening, exact.
#define VEK_CONVERT_FROM_8U_MEMBERS   \
    VEK_CONVERT(Vek8u, Vek16u, 8u16u) \
    VEK_CONVERT(Vek8u, Vek16s, 8u16s) \
    VEK_CONVERT(Vek8u, Vek32s, 8u32s) \
    VEK_CONVERT(Vek8u, Vek32f, 8u32f)
#define VEK_CONVERT_FROM_16U_MEMBERS    \
    VEK_CONVERT(Vek16u, Vek32s, 16u32s) \
    VEK_CONVERT(Vek16u, Vek32f, 16u32f)
#define VEK_CONVERT_FROM_16S_MEMBERS    \
    VEK_CONVERT(Vek16s, Vek32s, 16s32s) \
    VEK_CONVERT(Vek16s, Vek32f, 16s32f)

// Narrowing: integers saturate; floats round to nearest, ties to even,
// then saturate.
#define VEK_CONVERT_SATURATE_MEMBERS  \
    VEK_CONVERT(Vek32s, Vek8u, 32s8u) \
    VEK_CONVERT(Vek16s, Vek8u, 16s8u)
#define VEK_CONVERT_16U_TO_8U_MEMBERS VEK_CONVERT(Vek16u, Vek8u, 16u8u)
#define VEK_CONVERT_FROM_32F_MEMBERS    \
    VEK_CONVERT(Vek32f, Vek8u, 32f8u)   \
    VEK_CONVERT(Vek32f, Vek16s, 32f16s) \
    VEK_CONVERT(Vek32f, Vek16u, 32f16u)

#endif
