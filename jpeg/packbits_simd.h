// The PackBits Scan policy of the SSE2 level (packbits_codec.h): runs and
// literal stretches are found by comparing 16 bytes with the run byte, or
// with themselves one byte on, and taking the first set bit of the mask;
// the last, partial vector of a scan overlaps the one before it, and a scan
// shorter than a vector goes byte by byte.  Literal data and runs are
// written 16 bytes at a time, the last vector overlapping.  Wider vectors
// gain nothing on packets of at most 128 bytes, most of them short, so the
// higher levels use this one too.
//
// Included inside the level's namespace after <immintrin.h> and
// packbits_codec.h; internal linkage.
#ifndef VEK_JPEG_PACKBITS_SIMD_H
#define VEK_JPEG_PACKBITS_SIMD_H

#include "core/simd_vocabulary.h"

namespace {

inline __m128i bytesAt(const Vek8u* p) { return load128i(p); }
// Bit i set where byte i of a equals byte i of b.
inline unsigned equalBytes(__m128i a, __m128i b) { return unsigned(_mm_movemask_epi8(_mm_cmpeq_epi8(a, b))); }

// Below 16 bytes: scans one byte at a time, copies in 8-byte pieces.
struct SmallScan : ByteScan {
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        if (n >= 8) {  // two 8-byte moves, overlapping
            const __m128i head = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(src));
            const __m128i tail = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(src + n - 8));
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), head);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + n - 8), tail);
        } else {
            for (int k = 0; k < n; ++k) dst[k] = src[k];
        }
    }
    static void fill(Vek8u* dst, Vek8u b, int n) {
        if (n >= 8) {
            const __m128i run = broadcast128(b);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst), run);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(dst + n - 8), run);
        } else {
            for (int k = 0; k < n; ++k) dst[k] = b;
        }
    }
};

// Scans and writes of at least 16 bytes, 16 at a time; shorter ones go to
// SmallScan.
struct VectorScan {
    static constexpr int W = 16;
    static constexpr int kFewSingly = 4;

    static int runLength(const Vek8u* p, Vek8u b, int max) {
        // Most scans in text end at once: look at the first byte alone.
        if (max < W || p[0] != b) return max < W ? SmallScan::runLength(p, b, max) : 0;
        const __m128i run = broadcast128(b);
        for (int m = 0;; m += W) {
            if (m + W > max) m = max - W;  // the last vector overlaps bytes already equal
            if (const unsigned differ = equalBytes(bytesAt(p + m), run) ^ 0xFFFFu) return m + __builtin_ctz(differ);
            if (m + W == max) return max;
        }
    }
    static int literalSpan(const Vek8u* p, int avail, int max) {
        // Places m < limit have a successor in the row; the place avail - 1
        // (if max reaches it) counts, so finding no equal pair gives max.
        const int limit = max < avail - 1 ? max : avail - 1;
        if (limit < W) return SmallScan::literalSpan(p, avail, max);
        for (int k = 0; k < kFewSingly; ++k)  // text has short stretches
            if (p[k] == p[k + 1]) return k;
        for (int k = kFewSingly;; k += W) {
            if (k + W > limit) k = limit - W;
            if (const unsigned equal = equalBytes(bytesAt(p + k), bytesAt(p + k + 1))) return k + __builtin_ctz(equal);
            if (k + W == limit) return max;
        }
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) {
        if (n < W) return SmallScan::copy(dst, src, n);
        for (int k = 0; k + W < n; k += W) store(dst + k, bytesAt(src + k));
        store(dst + n - W, bytesAt(src + n - W));
    }
    static void fill(Vek8u* dst, Vek8u b, int n) {
        if (n < W) return SmallScan::fill(dst, b, n);
        const __m128i run = broadcast128(b);
        for (int k = 0; k + W < n; k += W) store(dst + k, run);
        store(dst + n - W, run);
    }
};

}  // namespace

#endif
