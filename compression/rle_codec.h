// The run-length byte code, written once for every level.
//
// Items: a literal b (the next byte differs), or a run b b n standing for
// n + 2 copies of b (n 0..255, so runs of 2..257; longer runs are split
// and a one-byte remainder is a literal).  The last 2 bytes of a coded
// chunk are plain bytes: the encoder writes plainly once only 2 bytes of
// room are left, and the decoder copies the last 2 source bytes as they
// are.  So a chunk decodes only with exactly the length it was coded to.
//
// The loops are templates over a Scan policy that each level supplies:
//   literalSpan(p, max): the k <= max leading places m with p[m] != p[m+1]
//                        (reads p[0..max]);
//   runLength(p, b, max): how many of p[0..max) equal b before the first
//                        that does not;
//   copy(dst, src, n), fill(dst, b, n): write exactly dst[0..n).
// Every level writes the same bytes, and only the bytes it reports.
//
// Included inside a level's namespace; everything has internal linkage.
#ifndef VEK_COMPRESSION_RLE_CODEC_H
#define VEK_COMPRESSION_RLE_CODEC_H

namespace {

constexpr int kRleLongestRun = 257;  // b b 255

inline int rleMin(int a, int b) { return a < b ? a : b; }

inline VekStatus rleCheck(const Vek8u* const* ppSrc, const int* pSrcLen, const Vek8u* dst, const int* pDstLen) {
    if (!ppSrc || !dst || !pSrcLen || !pDstLen || !*ppSrc) return StatusNullPointer;
    if (*pSrcLen < 1 || *pDstLen < 1) return StatusSize;
    return StatusOk;
}

inline VekStatus rleFinish(const Vek8u** ppSrc, int* pSrcLen, int* pDstLen, int taken, int written) {
    *ppSrc += taken;
    *pSrcLen -= taken;
    *pDstLen = written;
    return *pSrcLen == 0 ? StatusOk : StatusDstSize;
}

template <class Scan>
VekStatus rleEncode(const Vek8u** ppSrc, int* pSrcLen, Vek8u* dst, int* pDstLen) {
    if (const VekStatus s = rleCheck(ppSrc, pSrcLen, dst, pDstLen)) return s;
    const Vek8u* src = *ppSrc;
    const int len = *pSrcLen, room = *pDstLen;
    int i = 0, o = 0;
    // Items while more than 2 bytes of room are left; each fits, being at
    // most 3 bytes.
    while (o < room - 2) {
        // A stretch of literals: bytes whose next byte differs.
        const int k = Scan::literalSpan(src + i, rleMin(len - 1 - i, room - 2 - o));
        Scan::copy(dst + o, src + i, k);
        i += k;
        o += k;
        if (o >= room - 2) break;
        // src[i] starts a run, or is the last byte.
        const Vek8u b = src[i++];
        dst[o++] = b;
        const int r = Scan::runLength(src + i, b, rleMin(kRleLongestRun - 1, len - i));
        if (r > 0) {
            i += r;
            dst[o++] = b;
            dst[o++] = static_cast<Vek8u>(r - 1);
        }
        if (i == len) break;
    }
    // The last 2 bytes of room take source bytes plainly.
    for (; i < len && o < room; ++i, ++o) dst[o] = src[i];
    return rleFinish(ppSrc, pSrcLen, pDstLen, i, o);
}

template <class Scan>
VekStatus rleDecode(const Vek8u** ppSrc, int* pSrcLen, Vek8u* dst, int* pDstLen) {
    if (const VekStatus s = rleCheck(ppSrc, pSrcLen, dst, pDstLen)) return s;
    const Vek8u* src = *ppSrc;
    const int len = *pSrcLen, room = *pDstLen;
    int i = 0, o = 0;
    while (i < len - 2 && o < room) {
        const int k = Scan::literalSpan(src + i, rleMin(len - 2 - i, room - o));
        Scan::copy(dst + o, src + i, k);
        i += k;
        o += k;
        if (i >= len - 2 || o >= room) break;
        // A run item b b n: written whole or not at all.
        const int count = src[i + 2] + 2;
        if (room - o < count) break;
        Scan::fill(dst + o, src[i], count);
        o += count;
        i += 3;
    }
    // The last 2 source bytes are plain, unless a run that did not fit
    // stopped the loop before them.
    if (i >= len - 2)
        for (; i < len && o < room; ++i, ++o) dst[o] = src[i];
    return rleFinish(ppSrc, pSrcLen, pDstLen, i, o);
}

}  // namespace

#define VEK_RLE_EXPORTS(Scan)                                                                           \
    VekStatus VEK_CALL veksEncodeRLE_8u(const Vek8u** ppSrc, int* pSrcLen, Vek8u* pDst, int* pDstLen) { \
        return rleEncode<Scan>(ppSrc, pSrcLen, pDst, pDstLen);                                          \
    }                                                                                                   \
    VekStatus VEK_CALL veksDecodeRLE_8u(const Vek8u** ppSrc, int* pSrcLen, Vek8u* pDst, int* pDstLen) { \
        return rleDecode<Scan>(ppSrc, pSrcLen, pDst, pDstLen);                                          \
    }

#endif
