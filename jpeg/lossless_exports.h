// The lossless JPEG row exports, written once for every level.
//
// A level's translation unit defines, inside its own namespace, the row
// kernels diffRest<P>(src, prev, dst, n) and reconstructRest<P>(src, prev,
// dst, n) for predictors P = 1..7 over samples 1..n-1, then expands
// VEK_LOSSLESS_EXPORTS.  The first sample is done here, once: it predicts
// from the sample above in a later row and from 2^(precision -
// pointTransform - 1) in the first row, whose other samples use predictor 1
// (prev is null there).
#ifndef VEK_JPEG_LOSSLESS_EXPORTS_H
#define VEK_JPEG_LOSSLESS_EXPORTS_H

namespace {

// The first row's first prediction; the shift count is taken modulo 32 and
// the power wraps to 16 bits (so counts 16..31 give 0, 15 gives -32768).
inline int firstRowPrediction(int precision, int pointTransform) {
    const unsigned shift = static_cast<unsigned>(precision - pointTransform - 1) & 31u;
    return wrap16(static_cast<int>((1u << shift) & 0xFFFFu));
}

// f(std::integral_constant<int, P>()) for the predictor P in 1..7.
template <class F>
void withPredictor(int predictor, F f) {
    switch (predictor) {
    case 1: return f(std::integral_constant<int, 1>());
    case 2: return f(std::integral_constant<int, 2>());
    case 3: return f(std::integral_constant<int, 3>());
    case 4: return f(std::integral_constant<int, 4>());
    case 5: return f(std::integral_constant<int, 5>());
    case 6: return f(std::integral_constant<int, 6>());
    default: return f(std::integral_constant<int, 7>());
    }
}

}  // namespace

#define VEK_LOSSLESS_EXPORTS                                                                                          \
    VekStatus VEK_CALL vekiDiffPredFirstRow_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst, int width, int precision,   \
                                                        int pointTransform) {                                         \
        if (const VekStatus s = checkFirstRow(pSrc, pDst, width, precision, pointTransform)) return s;                \
        pDst[0] = wrap16(pSrc[0] - firstRowPrediction(precision, pointTransform));                                    \
        diffRest<1>(pSrc, nullptr, pDst, size_t(width));                                                              \
        return StatusOk;                                                                                              \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiReconstructPredFirstRow_JPEG_16s_C1(const Vek16s* pSrc, Vek16s* pDst, int width,           \
                                                               int precision, int pointTransform) {                   \
        if (const VekStatus s = checkFirstRow(pSrc, pDst, width, precision, pointTransform)) return s;                \
        pDst[0] = wrap16(pSrc[0] + firstRowPrediction(precision, pointTransform));                                    \
        reconstructRest<1>(pSrc, nullptr, pDst, size_t(width));                                                       \
        return StatusOk;                                                                                              \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiDiffPredRow_JPEG_16s_C1(const Vek16s* pSrc, const Vek16s* pPrevRow, Vek16s* pDst,          \
                                                   int width, int predictor) {                                        \
        if (const VekStatus s = checkRow(pSrc, pPrevRow, pDst, width, predictor)) return s;                           \
        pDst[0] = wrap16(pSrc[0] - pPrevRow[0]);                                                                      \
        withPredictor(predictor, [&](auto p) { diffRest<decltype(p)::value>(pSrc, pPrevRow, pDst, size_t(width)); }); \
        return StatusOk;                                                                                              \
    }                                                                                                                 \
    VekStatus VEK_CALL vekiReconstructPredRow_JPEG_16s_C1(const Vek16s* pSrc, const Vek16s* pPrevRow, Vek16s* pDst,   \
                                                          int width, int predictor) {                                 \
        if (const VekStatus s = checkRow(pSrc, pPrevRow, pDst, width, predictor)) return s;                           \
        pDst[0] = wrap16(pSrc[0] + pPrevRow[0]);                                                                      \
        withPredictor(predictor,                                                                                      \
                      [&](auto p) { reconstructRest<decltype(p)::value>(pSrc, pPrevRow, pDst, size_t(width)); });     \
        return StatusOk;                                                                                              \
    }

#endif
