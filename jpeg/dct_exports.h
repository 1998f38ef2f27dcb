// The exports of the JPEG DCT family, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the block
// kernels these call, then expands the groups it implements:
//   forwardBlock(src, srcStep, shift, dst, fwdTable)  samples (plus shift)
//       to 64 coefficients in dst, quantised when fwdTable is not null;
//   inverseBlock(coef, invTable, out)  64 coefficients, dequantised when
//       invTable is not null, to 64 16-bit results (out may be coef);
//   storeBlock16s(res, dst, dstStep), storeBlockClip(res, dst, dstStep,
//       add, lo, hi)  the output stages;
//   quantiseBlock(block, fwdTable), dequantiseBlock(src, dst, invTable);
//   forwardFloatBlock(src, srcStep, dst, table), inverseFloatBlock(src,
//       dst, dstStep, table)  the single-precision path;
//   inverseTo4x4(coef, out), inverseTo2x2(coef, out)  the scaled-down
//       inverses of dequantised coefficients;
//   add128Row(src, dst, n), sub128Row(src, dst, n)  the level shifts.
// The entry checks are jpeg/dct_checks.h's, the same at every level.
#ifndef VEK_JPEG_DCT_EXPORTS_H
#define VEK_JPEG_DCT_EXPORTS_H

// ---- the forward integer DCTs, plain and fused (the AVX-512 level's members) ---
#define VEK_JPEG_DCT_FORWARD_MEMBERS                                                                                \
    VekStatus VEK_CALL vekiDCT8x8Fwd_16s_C1R(const Vek16s* pSrc, int srcStep, Vek16s* pDst) {                       \
        if (const VekStatus status = jpeg::checkBlockStep(pSrc, pDst, srcStep)) return status;                      \
        forwardBlock(pSrc, srcStep, 0, pDst, nullptr);                                                              \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCT8x8Fwd_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst) {                      \
        if (const VekStatus status = jpeg::checkBlockStep(pSrc, pDst, srcStep)) return status;                      \
        forwardBlock(pSrc, srcStep, 0, pDst, nullptr);                                                              \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantFwd8x8_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst,                             \
                                                      const Vek16u* pQuantFwdTable) {                               \
        if (const VekStatus status = jpeg::checkPointers(pSrc, pDst, pQuantFwdTable)) return status;                \
        forwardBlock(pSrc, 16, 0, pDst, pQuantFwdTable);                                                            \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantFwd8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantFwdTable) {             \
        if (const VekStatus status = jpeg::checkPointers(pSrcDst, pQuantFwdTable)) return status;                   \
        forwardBlock(static_cast<const Vek16s*>(pSrcDst), 16, 0, pSrcDst, pQuantFwdTable);                          \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantFwd8x8LS_JPEG_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst,            \
                                                           const Vek16u* pQuantFwdTable) {                          \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, srcStep, pQuantFwdTable)) return status; \
        forwardBlock(pSrc, srcStep, -128, pDst, pQuantFwdTable);                                                    \
        return StatusOk;                                                                                            \
    }

// ---- the integer DCTs, quantisation and the fused functions -----------------
#define VEK_JPEG_DCT_INTEGER_MEMBERS                                                                                \
    VEK_JPEG_DCT_FORWARD_MEMBERS                                                                                    \
    VekStatus VEK_CALL vekiDCT8x8Inv_16s_C1R(const Vek16s* pSrc, Vek16s* pDst, int dstStep) {                       \
        if (const VekStatus status = jpeg::checkBlockStep(pSrc, pDst, dstStep)) return status;                      \
        alignas(32) Vek16s result[64];                                                                              \
        inverseBlock(pSrc, nullptr, result);                                                                        \
        storeBlock16s(result, pDst, dstStep);                                                                       \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCT8x8Inv_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep) {                      \
        if (const VekStatus status = jpeg::checkBlockStep(pSrc, pDst, dstStep)) return status;                      \
        alignas(32) Vek16s result[64];                                                                              \
        inverseBlock(pSrc, nullptr, result);                                                                        \
        storeBlockClip(result, pDst, dstStep, 0, 0, 255);                                                           \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCT8x8InvLSClip_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep, Vek16s addValue, \
                                                     Vek8u clipMin, Vek8u clipMax) {                                \
        if (const VekStatus status = jpeg::checkBlockStep(pSrc, pDst, dstStep)) return status;                      \
        alignas(32) Vek16s result[64];                                                                              \
        inverseBlock(pSrc, nullptr, result);                                                                        \
        storeBlockClip(result, pDst, dstStep, addValue, clipMin, clipMax);                                          \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiQuantFwd8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantFwdTable) {                \
        if (const VekStatus status = jpeg::checkPointers(pQuantFwdTable, pSrcDst)) return status;                   \
        quantiseBlock(pSrcDst, pQuantFwdTable);                                                                     \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiQuantInv8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantInvTable) {                \
        if (const VekStatus status = jpeg::checkPointers(pQuantInvTable, pSrcDst)) return status;                   \
        dequantiseBlock(pSrcDst, pSrcDst, pQuantInvTable);                                                          \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst,                             \
                                                      const Vek16u* pQuantInvTable) {                               \
        if (const VekStatus status = jpeg::checkPointers(pSrc, pDst, pQuantInvTable)) return status;                \
        inverseBlock(pSrc, pQuantInvTable, pDst);                                                                   \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8_JPEG_16s_C1I(Vek16s* pSrcDst, const Vek16u* pQuantInvTable) {             \
        if (const VekStatus status = jpeg::checkPointers(pSrcDst, pQuantInvTable)) return status;                   \
        inverseBlock(pSrcDst, pQuantInvTable, pSrcDst);                                                             \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,            \
                                                           const Vek16u* pQuantInvTable) {                          \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        alignas(32) Vek16s result[64];                                                                              \
        inverseBlock(pSrc, pQuantInvTable, result);                                                                 \
        storeBlockClip(result, pDst, dstStep, 128, 0, 255);                                                         \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8LS_2x2_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,        \
                                                               const Vek16u* pQuantInvTable) {                      \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        alignas(32) Vek16s result[64];                                                                              \
        inverseBlock(retainedCorner(pSrc, pQuantInvTable, 2, result), nullptr, result);                             \
        storeBlockClip(result, pDst, dstStep, 128, 0, 255);                                                         \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8LS_4x4_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,        \
                                                               const Vek16u* pQuantInvTable) {                      \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        alignas(32) Vek16s result[64];                                                                              \
        inverseBlock(retainedCorner(pSrc, pQuantInvTable, 4, result), nullptr, result);                             \
        storeBlockClip(result, pDst, dstStep, 128, 0, 255);                                                         \
        return StatusOk;                                                                                            \
    }

// ---- the accurate integer inverse of the libjpeg decoders ----------------------
// inverseLlmBlock(coef, invTable, dst, dstStep): dequantise, the inverse,
// +128 and the clamp, straight to the samples.
#define VEK_JPEG_IDCT_LLM_MEMBERS                                                                                   \
    VekStatus VEK_CALL vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,        \
                                                               const Vek16u* pQuantInvTable) {                      \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        inverseLlmBlock(pSrc, pQuantInvTable, pDst, dstStep);                                                       \
        return StatusOk;                                                                                            \
    }

// ---- the single-precision path for 12-bit samples ------------------------------
// (the forward one alone is the AVX-512 level's member)
#define VEK_JPEG_DCT_FORWARD_FLOAT_MEMBER                                                                           \
    VekStatus VEK_CALL vekiDCTQuantFwd8x8LS_JPEG_16u16s_C1R(const Vek16u* pSrc, int srcStep, Vek16s* pDst,          \
                                                            const Vek32f* pQuantFwdTable) {                         \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, srcStep, pQuantFwdTable)) return status; \
        forwardFloatBlock(pSrc, srcStep, pDst, pQuantFwdTable);                                                     \
        return StatusOk;                                                                                            \
    }
#define VEK_JPEG_DCT_FLOAT_MEMBERS                                                                                  \
    VEK_JPEG_DCT_FORWARD_FLOAT_MEMBER                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8LS_JPEG_16s16u_C1R(const Vek16s* pSrc, Vek16u* pDst, int dstStep,          \
                                                            const Vek32f* pQuantInvTable) {                         \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        inverseFloatBlock(pSrc, pDst, dstStep, pQuantInvTable);                                                     \
        return StatusOk;                                                                                            \
    }

// ---- the scaled-down inverses ------------------------------------------------
#define VEK_JPEG_DCT_REDUCED_MEMBERS                                                                                \
    VekStatus VEK_CALL vekiDCTQuantInv8x8To2x2LS_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,       \
                                                                const Vek16u* pQuantInvTable) {                     \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        alignas(32) Vek16s coef[64];                                                                                \
        Vek16s result[4];                                                                                           \
        dequantiseBlock(pSrc, coef, pQuantInvTable);                                                                \
        inverseTo2x2(coef, result);                                                                                 \
        for (int y = 0; y < 2; ++y) add128Row(result + 2 * y, jpeg::blockRow(pDst, dstStep, y), 2);                 \
        return StatusOk;                                                                                            \
    }                                                                                                               \
    VekStatus VEK_CALL vekiDCTQuantInv8x8To4x4LS_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,       \
                                                                const Vek16u* pQuantInvTable) {                     \
        if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status; \
        alignas(32) Vek16s coef[64];                                                                                \
        alignas(32) Vek16s result[16];                                                                              \
        dequantiseBlock(pSrc, coef, pQuantInvTable);                                                                \
        inverseTo4x4(coef, result);                                                                                 \
        for (int y = 0; y < 4; ++y) add128Row(result + 4 * y, jpeg::blockRow(pDst, dstStep, y), 4);                 \
        return StatusOk;                                                                                            \
    }

// ---- the level shifts over a region ------------------------------------------
#define VEK_JPEG_LEVEL_SHIFT_MEMBERS                                                                              \
    VekStatus VEK_CALL vekiAdd128_JPEG_16s8u_C1R(const Vek16s* pSrc, int srcStep, Vek8u* pDst, int dstStep,       \
                                                 VekiSize roiSize) {                                              \
        if (const VekStatus status = jpeg::checkLevelShift(pSrc, srcStep, pDst, dstStep, roiSize)) return status; \
        for (int y = 0; y < roiSize.height; ++y)                                                                  \
            add128Row(jpeg::blockRow(pSrc, srcStep, y), jpeg::blockRow(pDst, dstStep, y), roiSize.width);         \
        return StatusOk;                                                                                          \
    }                                                                                                             \
    VekStatus VEK_CALL vekiSub128_JPEG_8u16s_C1R(const Vek8u* pSrc, int srcStep, Vek16s* pDst, int dstStep,       \
                                                 VekiSize roiSize) {                                              \
        if (const VekStatus status = jpeg::checkLevelShift(pSrc, srcStep, pDst, dstStep, roiSize)) return status; \
        for (int y = 0; y < roiSize.height; ++y)                                                                  \
            sub128Row(jpeg::blockRow(pSrc, srcStep, y), jpeg::blockRow(pDst, dstStep, y), roiSize.width);         \
        return StatusOk;                                                                                          \
    }

#endif
