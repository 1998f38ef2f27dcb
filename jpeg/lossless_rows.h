// The lossless JPEG predictors one sample at a time, and the row loops
// built on them: the whole of the plain level, and the serial
// reconstructions of predictors 6 and 7 at the vector levels (each sample
// there needs the halved sum of its reconstructed left neighbour, which no
// vector can give ahead of time).
//
// Samples are sign-extended 16-bit values; the predictions are worked in
// 32-bit int as T.81 writes them (>> an arithmetic shift of the 32-bit
// sum), and every difference and reconstruction wraps to 16 bits.
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_JPEG_LOSSLESS_ROWS_H
#define VEK_JPEG_LOSSLESS_ROWS_H

namespace {

// The low 16 bits of x as a signed sample (conversions to a narrower
// type are modular with GCC, not undefined).
inline Vek16s wrap16(int x) { return static_cast<Vek16s>(static_cast<uint16_t>(x)); }

// The prediction from the left (a), above (b) and above-left (c) samples.
template <int Predictor>
inline int predictSample(int a, int b, int c) {
    if constexpr (Predictor == 1) return a;
    if constexpr (Predictor == 2) return b;
    if constexpr (Predictor == 3) return c;
    if constexpr (Predictor == 4) return a + b - c;
    if constexpr (Predictor == 5) return a + ((b - c) >> 1);
    if constexpr (Predictor == 6) return b + ((a - c) >> 1);
    if constexpr (Predictor == 7) return (a + b) >> 1;
}

// Samples 1..n-1 of a row: the first is the caller's (it predicts from
// above or from the first-row constant).  prev is read only by predictors
// 2 to 7 and may be null for predictor 1.
template <int Predictor>
void diffRestScalar(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {
    for (size_t i = 1; i < n; ++i) {
        const int b = Predictor == 1 ? 0 : prev[i], c = Predictor == 1 ? 0 : prev[i - 1];
        dst[i] = wrap16(src[i] - predictSample<Predictor>(src[i - 1], b, c));
    }
}

// The inverse over samples 1..n-1; dst[0] is already reconstructed.  The
// left neighbour is the reconstructed dst[i - 1], so dst may be src.
template <int Predictor>
void reconstructRestScalar(const Vek16s* src, const Vek16s* prev, Vek16s* dst, size_t n) {
    for (size_t i = 1; i < n; ++i) {
        const int b = Predictor == 1 ? 0 : prev[i], c = Predictor == 1 ? 0 : prev[i - 1];
        dst[i] = wrap16(src[i] + predictSample<Predictor>(dst[i - 1], b, c));
    }
}

}  // namespace

#endif
