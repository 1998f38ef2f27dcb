// The deflate encoder's second stage: pair lists written as RFC 1951
// blocks (fixed codes, dynamic codes or stored), the choice between fixed
// and dynamic codes, the zlib/gzip trailer and the stream status.
//
// The Huffman coders are written once in deflate_block_coder.h; the AVX2
// and AVX-512 levels compile their own (deflate_block_avx2.cpp, ...).  The
// rest is the plain level's for every level: the stored block and the
// trailer are byte copies, the status words and the choice of codes need
// no vector instructions.
#include <string.h>

#include "compression/deflate_huffman.h"
#include "compression/deflate_status.h"
#include "compression/deflate_tables.h"
#include "core/dispatch.h"

namespace vek::plain {
#include "compression/deflate_block_coder.h"

VekStatus VEK_CALL veksEncodeLZ77GetStatus_8u(int* pStatus, VekDeflateState* pState) {
    if (!pStatus || !pState) return StatusNullPointer;
    *pStatus = stateOf(pState)->streamStatus;
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77SetStatus_8u(int status, VekDeflateState* pState) {
    if (!pState) return StatusNullPointer;
    DeflateState& s = *stateOf(pState);
    s.streamStatus = status;
    s.coder.countedPairs = nullptr;
    if (status == VekDeflateMatching) {  // an empty list in the state's own storage
        s.pairs = s.pairStorage;
        s.pairCount = 0;
        s.pairCapacity = kPairCapacity;
    } else if (status == VekDeflateCoding) {  // the pairs held become the block to code
        s.pairCapacity = s.pairCount;
        s.pairCount = 0;
        s.coder.subStatus = kNewBlock;
    }
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77SelectHuffMode_8u(const Vek16u* pPairs, int pairsCount, int* pHuffMode,
                                                   VekDeflateState* pState) {
    if (!pPairs || !pHuffMode || !pState) return StatusNullPointer;
    if (pairsCount < 0) return StatusSize;
    BlockCoder& c = stateOf(pState)->coder;
    if (c.subStatus != kNewBlock) {
        *pHuffMode = c.huffMode;
        return StatusOk;
    }
    if (!pairsValid(pPairs, pairsCount)) return StatusBadArgument;
    Vek16u firstSeen[kLitLenSymbols];
    int distinct = 0;
    countSymbols(pPairs, pairsCount, c, firstSeen, &distinct);
    c.countedPairs = nullptr;  // the tables hold these pairs' counts now

    // The skew test: the largest count against the count of the symbol at
    // the count-weighted mean rank of first appearance.
    int mode = VekDeflateFixedCodes;
    if (pairsCount > 0) {
        Vek32u maxCount = 0;
        Vek64u weighted = 0;
        for (int k = 1; k <= distinct; ++k) {
            const Vek32u count = c.litLen[firstSeen[k - 1]].count;
            if (count > maxCount) maxCount = count;
            weighted += Vek64u(k) * count;
        }
        const int meanRank = int(weighted / Vek64u(pairsCount));
        const int64_t skew = int64_t(maxCount) - int64_t(c.litLen[firstSeen[meanRank - 1]].count);
        mode = skew >= (pairsCount >> 2) ? VekDeflateDynamicCodes : VekDeflateFixedCodes;
    }
    c.huffMode = mode;
    c.subStatus = kNothingPending;  // one decision per block opened
    *pHuffMode = mode;
    return StatusOk;
}

VEK_HUFFMAN_BLOCK_EXPORTS

VekStatus VEK_CALL veksEncodeLZ77StoredBlock_8u(const Vek8u** ppSrc, int* pSrcLen, Vek8u** ppDst, int* pDstLen,
                                                int flush, VekDeflateState* pState) {
    if (!ppSrc || !*ppSrc || !pSrcLen || !ppDst || !*ppDst || !pDstLen || !pState) return StatusNullPointer;
    DeflateState& s = *stateOf(pState);
    BlockCoder& c = s.coder;
    if (*pDstLen == 0) return stopped(c);
    if (*pDstLen < 0 || *pSrcLen < 0 || *pSrcLen > 65535) return StatusSize;
    if (c.blockPhase != kNoBlock) return StatusContextMismatch;
    if (c.storedState == kStoredData && *pSrcLen < c.storedLength - c.storedDone) return StatusSize;

    BitOutput out = openOutput(*ppDst, *pDstLen, c);
    if (c.storedState == kStoredHeader) {  // the 3 header bits, then on to the byte boundary
        out.drainBytes();
        if (out.count < 8) {
            c.blockFinal = flush == VekDeflateLastBlock;
            c.storedLength = *pSrcLen;
            out.put(Vek32u(c.blockFinal), 3);
            out.count = (out.count + 7) & ~7;
            c.storedState = kStoredAlign;
        }
    }
    if (c.storedState == kStoredAlign) {
        out.drainBytes();
        if (out.count == 0) c.storedState = kStoredLength, c.storedDone = 0;
    }
    if (c.storedState == kStoredLength) {  // LEN and NLEN, least significant byte first
        const Vek32u lenNlen = Vek32u(c.storedLength) | Vek32u(~c.storedLength & 0xFFFF) << 16;
        for (; c.storedDone < 4 && out.room > 0; ++c.storedDone, --out.room)
            *out.dst++ = Vek8u(lenNlen >> (8 * c.storedDone));
        if (c.storedDone == 4) c.storedState = kStoredData, c.storedDone = 0;
    }
    VekStatus status = StatusDstSize;
    if (c.storedState == kStoredData) {
        int n = c.storedLength - c.storedDone;
        if (n > out.room) n = out.room;
        if (n > 0) memcpy(out.dst, *ppSrc, size_t(n));
        out.dst += n;
        out.room -= n;
        *ppSrc += n;
        *pSrcLen -= n;
        c.storedDone += n;
        if (c.storedDone == c.storedLength) {
            c.storedState = kStoredHeader;
            c.storedDone = 0;
            status = blockDone(s);
        }
    }
    keepOutput(out, ppDst, pDstLen, c);
    return status == StatusOk ? status : stopped(c);
}

VekStatus VEK_CALL veksEncodeLZ77Flush_8u(Vek8u** ppDst, int* pDstLen, VekDeflateState* pState) {
    if (!ppDst || !*ppDst || !pDstLen || !pState) return StatusNullPointer;
    if (*pDstLen < 0) return StatusSize;
    DeflateState& s = *stateOf(pState);
    BlockCoder& c = s.coder;
    if (s.streamStatus != VekDeflateComplete) return StatusUnknown;
    const int kind = s.checksumKind;
    if (kind != VekDeflateNoChecksum && kind != VekDeflateAdler32 && kind != VekDeflateCrc32) return StatusUnknown;
    if (c.subStatus != kStopped || c.trailerLength == 0) {  // a fresh trailer
        const Vek32u sum = s.checksum, size = Vek32u(s.streamPos);
        if (kind == VekDeflateAdler32) {
            for (int i = 0; i < 4; ++i) c.trailer[i] = Vek8u(sum >> (24 - 8 * i));
            c.trailerLength = 4;
        } else {
            for (int i = 0; i < 4; ++i) c.trailer[i] = Vek8u(sum >> (8 * i));
            for (int i = 0; i < 4; ++i) c.trailer[4 + i] = Vek8u(size >> (8 * i));
            c.trailerLength = 8;
        }
        c.trailerDone = 0;
    }
    Vek8u* dst = *ppDst;
    int room = *pDstLen;
    for (; c.trailerDone < c.trailerLength && room > 0; --room) *dst++ = c.trailer[c.trailerDone++];
    *ppDst = dst;
    *pDstLen = room;
    if (c.trailerDone < c.trailerLength) return stopped(c);
    c.trailerLength = 0;
    c.subStatus = kNothingPending;
    return StatusOk;
}

}  // namespace vek::plain
