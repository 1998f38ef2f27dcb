// The MPEG-2 quantisation exports, written once for every level.
//
// Included inside a level's namespace after the level has defined its
// kernels over one 8x8 block of coefficients (raster order, in place):
//   quantFloat(block, first, scale, reciprocals) -> count
//       q = trunc((c * scale) * reciprocal) clamped to -2047..2047 for
//       coefficients first..63, in single precision; NaN gives 0
//   quantFlat(block, reciprocal) -> count
//       q = (c * reciprocal) / 65536, truncating, clamped to -2047..2047
//   dequantNonIntra(block, qp, weights or null) -> parity of the sum
//       v = ((2c + sign c) * qp * W) / 32, or (qp * (2c + sign c)) / 2
//       without weights, clamped to -2048..2047
//   dequantIntra(block, qp, weights) -> parity of the sum
//       v = (c * qp * W * 2) / 32 for coefficients 1..63, clamped; the DC
//       coefficient is kept and counts in the sum
// Products are formed in 32-bit two's-complement arithmetic (exact for
// every value MPEG-2 allows) and divisions truncate toward zero.  The
// shared code here derives the scale, applies the early return of the
// flat forward path and the mismatch control.
#ifndef VEK_VIDEO_QUANT_EXPORTS_H
#define VEK_VIDEO_QUANT_EXPORTS_H

namespace {

// Single-precision 16 / QP, rounded the same way at every level.
inline float quantScale(int qp) { return divF(16.0f, roundToFloat(static_cast<float>(qp))); }

// Mismatch control: an even sum toggles the last coefficient's lowest bit.
inline void controlMismatch(Vek16s* block, int sumParity) {
    if (sumParity == 0) block[63] = static_cast<Vek16s>(block[63] ^ 1);
}

}  // namespace

#define VEK_QUANT_FORWARD_MEMBERS                                                                                  \
    VekStatus VEK_CALL vekiQuant_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek32f* pQPMatrix, Vek32s* pCount) { \
        if (const VekStatus status = checkForwardQuant(pSrcDst, pCount, QP)) return status;                        \
        *pCount = 0;                                                                                               \
        if (pQPMatrix) {                                                                                           \
            *pCount = quantFloat(pSrcDst, 0, quantScale(QP), pQPMatrix);                                           \
        } else if (QP > 1) {                                                                                       \
            *pCount = quantFlat(pSrcDst, (65536 + QP / 2) / QP);                                                   \
        }                                                                                                          \
        return StatusOk;                                                                                           \
    }                                                                                                              \
    VekStatus VEK_CALL vekiQuantIntra_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek32f* pQPMatrix,              \
                                                    Vek32s* pCount) {                                              \
        if (const VekStatus status = checkForwardQuant(pSrcDst, pCount, QP)) return status;                        \
        *pCount = quantFloat(pSrcDst, 1, quantScale(QP), pQPMatrix ? pQPMatrix : kDefaultIntraReciprocals);        \
        return StatusOk;                                                                                           \
    }

#define VEK_QUANT_INVERSE_MEMBERS                                                                          \
    VekStatus VEK_CALL vekiQuantInv_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek16s* pQPMatrix) {      \
        if (const VekStatus status = checkPointers(pSrcDst)) return status;                                \
        controlMismatch(pSrcDst, dequantNonIntra(pSrcDst, QP, pQPMatrix));                                 \
        return StatusOk;                                                                                   \
    }                                                                                                      \
    VekStatus VEK_CALL vekiQuantInvIntra_MPEG2_16s_C1I(Vek16s* pSrcDst, int QP, const Vek16s* pQPMatrix) { \
        if (const VekStatus status = checkPointers(pSrcDst, pQPMatrix)) return status;                     \
        controlMismatch(pSrcDst, dequantIntra(pSrcDst, QP, pQPMatrix));                                    \
        return StatusOk;                                                                                   \
    }

#endif
