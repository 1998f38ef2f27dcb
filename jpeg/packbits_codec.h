// PackBits coding of one row, written once for every level.
//
// A packet is a control byte n and its data: n = 0..127 is followed by
// n + 1 literal bytes, n = -127..-1 by one byte repeated 1 - n times, and
// n = -128 is nothing.
//
// The encoder takes the row from its start: a run of 2 to 128 equal bytes
// is a replicate packet; other bytes gather into a literal packet until two
// equal neighbours start a run, the row ends or 128 bytes are gathered.  A
// run of exactly 2 between literals costs a packet for nothing, so when the
// packet before last is a literal of fewer than 126 bytes and the last is
// such a run, the literal that follows is folded into the earlier one
// together with the run's two bytes (the fold limit counts bytes: the
// literal's length plus 2 below 128; the merged packet then gathers up to
// 128 bytes in all).  Packets are written whole: each is checked against
// the room before any byte of it is written, a fold included (which
// rewrites the earlier control byte and the run only once the new bytes
// fit), so a full output leaves a valid stream of whole packets.
//
// The decoder reads packets until the row is full; a packet that would pass
// the end of the source or of the row is not decoded at all.
//
// The loops are templates over a Scan policy that each level supplies:
//   runLength(p, b, max):     how many of p[0..max) equal b before the
//                             first that does not;
//   literalSpan(p, avail, max): the k <= max leading places m with m + 1 ==
//                             avail or p[m] != p[m + 1] (reads p[0..min(max,
//                             avail - 1)]; max <= avail);
//   copy(dst, src, n), fill(dst, b, n): write exactly dst[0..n).
//
// Included inside a level's namespace after <string.h> and tiff_checks.h;
// internal linkage.
#ifndef VEK_JPEG_PACKBITS_CODEC_H
#define VEK_JPEG_PACKBITS_CODEC_H

namespace {

constexpr int kPackBitsLongest = 128;  // bytes in one packet's run or literal

// The Scan policy a byte at a time: the plain level's, and the vector
// levels' for scans shorter than a vector.
struct ByteScan {
    static int runLength(const Vek8u* p, Vek8u b, int max) {
        int m = 0;
        while (m < max && p[m] == b) ++m;
        return m;
    }
    static int literalSpan(const Vek8u* p, int avail, int max) {
        int k = 0;
        while (k < max && (k + 1 == avail || p[k] != p[k + 1])) ++k;
        return k;
    }
    static void copy(Vek8u* dst, const Vek8u* src, int n) { memcpy(dst, src, size_t(n)); }
    static void fill(Vek8u* dst, Vek8u b, int n) { memset(dst, b, size_t(n)); }
};

inline int packBitsMin(int a, int b) { return a < b ? a : b; }

template <class Scan>
VekStatus packBitsEncode(const Vek8u* src, int srcLen, Vek8u* dst, int* pDstCurrPos, int dstLenBytes) {
    if (const VekStatus s = checkPackBits(src, srcLen, dst, pDstCurrPos, dstLenBytes)) return s;
    int out = *pDstCurrPos;
    if (out < 0 || out > dstLenBytes) return StatusDataUnderRun;  // no place to append at

    // The last two packets written, for the fold.
    struct Packet {
        int start, length;  // output offset of the control byte; bytes of the row it stands for
        bool literal;
    };
    Packet last{0, 0, false}, beforeLast{0, 0, false};
    int i = 0;
    while (i < srcLen) {
        const int run = 1 + Scan::runLength(src + i + 1, src[i], packBitsMin(kPackBitsLongest, srcLen - i) - 1);
        if (run >= 2) {
            if (dstLenBytes - out < 2) break;
            dst[out] = static_cast<Vek8u>(1 - run);
            dst[out + 1] = src[i];
            beforeLast = last;
            last = {out, run, false};
            out += 2;
            i += run;
            continue;
        }
        const bool fold = !last.literal && last.length == 2 && beforeLast.literal && beforeLast.length + 2 < 128;
        Packet literal = fold ? Packet{beforeLast.start, beforeLast.length + 2, true} : Packet{out, 0, true};
        const int k =
            Scan::literalSpan(src + i, srcLen - i, packBitsMin(kPackBitsLongest - literal.length, srcLen - i));
        const int start = fold ? out : out + 1;
        if (dstLenBytes - start < k) break;
        if (fold) dst[last.start] = dst[last.start + 1];  // the run's control byte becomes its first byte
        Scan::copy(dst + start, src + i, k);
        literal.length += k;
        dst[literal.start] = static_cast<Vek8u>(literal.length - 1);
        // After a fold the packet before the merged literal is not needed:
        // a fold looks back only past a run of two.
        beforeLast = fold ? Packet{0, 0, false} : last;
        last = literal;
        out = start + k;
        i += k;
    }
    *pDstCurrPos = out;
    return i == srcLen ? StatusOk : StatusDataUnderRun;
}

template <class Scan>
VekStatus packBitsDecode(const Vek8u* src, int* pSrcCurrPos, int srcLenBytes, Vek8u* dst, int dstLen) {
    if (const VekStatus s = checkUnpackBits(src, pSrcCurrPos, srcLenBytes, dst, dstLen)) return s;
    int in = *pSrcCurrPos, out = 0;
    if (in < 0) return StatusDataUnderRun;  // no place to read from
    while (out < dstLen) {
        if (in >= srcLenBytes) break;
        const int n = static_cast<Vek8s>(src[in]);
        if (n == -128) {
            ++in;
        } else if (n < 0) {
            const int count = 1 - n;
            if (srcLenBytes - in < 2 || dstLen - out < count) break;
            Scan::fill(dst + out, src[in + 1], count);
            out += count;
            in += 2;
        } else {
            const int count = n + 1;
            if (srcLenBytes - in - 1 < count || dstLen - out < count) break;
            Scan::copy(dst + out, src + in + 1, count);
            out += count;
            in += 1 + count;
        }
    }
    *pSrcCurrPos = in;
    return out == dstLen ? StatusOk : StatusDataUnderRun;
}

}  // namespace

#endif
