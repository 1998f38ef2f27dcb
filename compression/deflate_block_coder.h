// The Huffman block coders (fixed and dynamic codes), written once for
// every level that serves them: the state's bit buffer, the checks of the
// pairs, the block header and the pairs themselves.
//
// Every coder goes through the state's bit buffer and can stop whenever the
// output is full: an item (a pair, a header entry, the end-of-block code)
// is put in only while at most 15 bits wait, so the buffer never holds more
// than 63, and the state records how far the open block has got.  The next
// call drains the waiting bytes and goes on, so the bytes are the same
// however the output is cut.  The last block's coder (VekDeflateLastBlock)
// pads the bits to a byte boundary and writes them all before it reports
// the block done and sets the stream status to VekDeflateComplete; the
// trailer then starts on a byte.
//
// Included inside a level's namespace after <immintrin.h> (levels with AVX2),
// <string.h>, deflate_huffman.h,
// deflate_status.h and deflate_tables.h; everything but the exports of
// VEK_HUFFMAN_BLOCK_EXPORTS has internal linkage.  A level compiled with
// AVX2 checks the pairs eight at a time (the compiler vectorises the
// branch-free check) and shifts with BMI2.
#ifndef VEK_COMPRESSION_DEFLATE_BLOCK_CODER_H
#define VEK_COMPRESSION_DEFLATE_BLOCK_CODER_H

namespace {
using namespace vek::deflate;
using namespace vek::plain::deflate;

// The bit buffer and the output as one call works on them.
struct BitOutput {
    Vek8u* dst;
    int room;
    Vek64u bits;
    int count;

    void put(Vek64u value, int n) {
        bits |= value << count;
        count += n;
    }
    void drainBytes() {
        for (; count >= 8 && room > 0; --room, count -= 8, bits >>= 8) *dst++ = Vek8u(bits);
    }
    // Drains what it can; true when an item of up to 48 bits may go in.
    bool ready() {
        if (room >= 6) {  // whole words while the output has room for them
            if (count >= 32) store(4);
            if (count >= 16) store(2);
            return true;
        }
        drainBytes();
        return count <= 15;
    }
    void store(int bytes) {
        for (int i = 0; i < bytes; ++i) dst[i] = Vek8u(bits >> (8 * i));
        dst += bytes;
        room -= bytes;
        bits >>= 8 * bytes;
        count -= 8 * bytes;
    }
    // With room for 8 bytes: all 8 of the buffer go out in one store, and
    // the whole ones among them count as written (the rest is rewritten by
    // the next store, or lies past the output this call reports).
    void storeWord() {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
        memcpy(dst, &bits, 8);
#else
        for (int i = 0; i < 8; ++i) dst[i] = Vek8u(bits >> (8 * i));
#endif
        const int whole = count >> 3;
        dst += whole;
        room -= whole;
        bits >>= 8 * whole;
        count &= 7;
    }
};

BitOutput openOutput(Vek8u* dst, int room, const BlockCoder& c) { return {dst, room, c.bitBuffer, c.bitCount}; }
void keepOutput(const BitOutput& out, Vek8u** ppDst, int* pDstLen, BlockCoder& c) {
    *ppDst = out.dst;
    *pDstLen = out.room;
    c.bitBuffer = out.bits;
    c.bitCount = out.count;
}

// No branch per pair: literals and matches alternate at random.  With
// AVX2, eight pairs at a time, each a 32-bit lane (value low, distance
// high).
bool pairsValid(const Vek16u* pairs, int count) {
    unsigned bad = 0;
    int i = 0;
#ifdef __AVX2__
    const __m256i low16 = _mm256_set1_epi32(0xFFFF), maxLiteral = _mm256_set1_epi32(255);
    const __m256i belowMatch = _mm256_set1_epi32(kMinMatch), maxMatch = _mm256_set1_epi32(kMaxMatch);
    const __m256i maxDistance = _mm256_set1_epi32(kWindowSize), zero = _mm256_setzero_si256();
    __m256i badLanes = zero;
    for (; i + 8 <= count; i += 8) {
        const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pairs + 2 * i));
        const __m256i value = _mm256_and_si256(v, low16), distance = _mm256_srli_epi32(v, 16);
        const __m256i badMatch =
            _mm256_or_si256(_mm256_or_si256(_mm256_cmpgt_epi32(belowMatch, value), _mm256_cmpgt_epi32(value, maxMatch)),
                            _mm256_cmpgt_epi32(distance, maxDistance));
        const __m256i badLiteral = _mm256_cmpgt_epi32(value, maxLiteral);
        badLanes =
            _mm256_or_si256(badLanes, _mm256_blendv_epi8(badMatch, badLiteral, _mm256_cmpeq_epi32(distance, zero)));
    }
    bad = unsigned(!_mm256_testz_si256(badLanes, badLanes));
#endif
    for (; i < count; ++i) {
        const unsigned value = pairs[2 * i], distance = pairs[2 * i + 1];
        const unsigned badMatch = (value - kMinMatch > unsigned(kMaxMatch - kMinMatch)) | (distance > kWindowSize);
        bad |= distance == 0 ? value > 255 : badMatch;
    }
    return bad == 0;
}
// How many of `left` pairs a call with `room` output bytes can put in at
// most: it takes at most 8 * room + 63 bits beside those waiting, and a
// pair at least the block's shortest code.  A call that resumes a block
// checks only these, so its work follows what it writes.
int reachablePairs(int left, int room, const BlockCoder& c) {
    const long long most = (8LL * room + 63 - c.bitCount) / c.shortestCode;
    return most < left ? int(most) : left;
}

// Pairs coded into an open dynamic block must have codes in it.
bool pairsCoded(const Vek16u* pairs, int count, const BlockCoder& c) {
    for (int i = 0; i < count; ++i, pairs += 2) {
        if (pairs[1] == 0
                ? !c.litLenBits[pairs[0]]
                : !c.litLenBits[kFirstLengthSymbol + lengthCodeOf(pairs[0])] || !c.distBits[distanceCodeOf(pairs[1])])
            return false;
    }
    return true;
}

// Header item `step` of the open block: bits and count.
struct Item {
    Vek32u bits;
    int count;
};
int headerItems(const BlockCoder& c) { return c.blockType == kFixedBlock ? 1 : 1 + c.codeLengthsSent + c.runCount; }
Item headerItem(const BlockCoder& c, int step) {
    const Vek32u head = Vek32u(c.blockFinal) | Vek32u(c.blockType) << 1;
    if (c.blockType == kFixedBlock) return {head, 3};
    if (step == 0)
        return {
            head | Vek32u(c.litLenSent - 257) << 3 | Vek32u(c.distSent - 1) << 8 | Vek32u(c.codeLengthsSent - 4) << 13,
            17};
    if (step <= c.codeLengthsSent) return {c.codeLengthBits[kCodeLengthOrder[step - 1]], 3};
    const int k = step - 1 - c.codeLengthsSent, symbol = c.runSymbol[k];
    const int extraBits = symbol == 16 ? 2 : symbol == 17 ? 3 : symbol == 18 ? 7 : 0;
    return {c.codeLengthCode[symbol] | Vek32u(c.runExtra[k]) << c.codeLengthBits[symbol],
            c.codeLengthBits[symbol] + extraBits};
}

constexpr Vek8u kFixedDistanceBits[kDistSymbols] = {5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5,
                                                    5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5};

// The items and the shortest literal/length code of the block being
// opened.
void makeItems(BlockCoder& c) {
    const bool fixed = c.blockType == kFixedBlock;
    const Vek16u* litLenCode = fixed ? kCodeTables.fixedLitLenCode : c.litLenCode;
    const Vek8u* litLenBits = fixed ? kCodeTables.fixedLitLenBits : c.litLenBits;
    const Vek16u* distanceCode = fixed ? kCodeTables.fixedDistanceCode : c.distCode;
    const Vek8u* distanceBits = fixed ? kFixedDistanceBits : c.distBits;
    for (int v = 0; v < 256; ++v) c.literalItem[v] = litLenCode[v] | Vek32u(litLenBits[v]) << 16;
    for (int len = kMinMatch; len <= kMaxMatch; ++len) {
        const int code = lengthCodeOf(len), symbol = kFirstLengthSymbol + code;
        const Vek32u bits = litLenCode[symbol] | Vek32u(len - kLengthBase[code]) << litLenBits[symbol];
        c.lengthItem[len - kMinMatch] = bits | Vek32u(litLenBits[symbol] + kLengthExtra[code]) << 24;
    }
    for (int code = 0; code < kDistSymbols; ++code) {
        const Vek32u codeMinusBase = distanceCode[code] - (Vek32u(kDistanceBase[code]) << distanceBits[code]);
        c.distanceItem[code] =
            codeMinusBase | Vek64u(distanceBits[code]) << 32 | Vek64u(distanceBits[code] + kDistanceExtra[code]) << 40;
    }
    int shortest = kMaxCodeBits;
    for (int s = 0; s < kLitLenSymbols; ++s)
        if (litLenBits[s] && litLenBits[s] < shortest) shortest = litLenBits[s];
    c.shortestCode = shortest;
}

VekStatus stopped(BlockCoder& c) {
    c.subStatus = kStopped;
    return StatusDstSize;
}

// Ends a block: sub-status, and the stream status after the last block.
VekStatus blockDone(DeflateState& s) {
    s.coder.subStatus = kNothingPending;
    if (s.coder.blockFinal) s.streamStatus = VekDeflateComplete;
    return StatusOk;
}

VekStatus huffmanBlock(int type, const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst, int* pDstLen, int flush,
                       VekDeflateState* pState) {
    if (!ppPairs || !*ppPairs || !pPairsLen || !ppDst || !*ppDst || !pDstLen || !pState) return StatusNullPointer;
    if (*pDstLen < 0 || *pPairsLen < 0) return StatusSize;
    DeflateState& s = *stateOf(pState);
    BlockCoder& c = s.coder;
    if (*pDstLen == 0) return stopped(c);
    if (c.storedState != kStoredHeader || (c.blockPhase != kNoBlock && c.blockType != type))
        return StatusContextMismatch;
    const Vek16u* pairs = *ppPairs;
    int left = *pPairsLen;
    // The call that opens a block checks all its pairs (it counts them for
    // the dynamic codes anyway).  A call that resumes it checks those it can
    // reach that no earlier call of the block has checked: none, when it
    // passes the rest of the same list.
    const int reach = c.blockPhase == kNoBlock ? left : reachablePairs(left, *pDstLen, c);
    if (c.blockPhase <= kPairs) {
        const uintptr_t from = reinterpret_cast<uintptr_t>(pairs), to = reinterpret_cast<uintptr_t>(pairs + 2 * reach);
        const bool sameList = c.blockPhase != kNoBlock && from >= c.checkedFrom && from <= c.checkedTo;
        const Vek16u* unchecked = sameList && to > c.checkedTo ? reinterpret_cast<const Vek16u*>(c.checkedTo) : pairs;
        const int count = sameList && to <= c.checkedTo ? 0 : int(pairs + 2 * reach - unchecked) / 2;
        if (!pairsValid(unchecked, count)) return StatusBadArgument;
        if (c.blockPhase != kNoBlock && type == kDynamicBlock && !pairsCoded(unchecked, count, c))
            return StatusBadArgument;
        if (!sameList) c.checkedFrom = from;
        if (!sameList || to > c.checkedTo) c.checkedTo = to;
    }

    if (c.blockPhase == kNoBlock) {
        c.blockType = type;
        c.blockFinal = flush == VekDeflateLastBlock;
        c.headerStep = 0;
        c.blockPhase = kHeader;
        if (type == kDynamicBlock) {
            if (c.countedPairs != pairs || c.countedCount != left) countSymbols(pairs, left, c);
            buildDynamicCodes(c);
        }
        c.countedPairs = nullptr;
        makeItems(c);
    }
    BitOutput out = openOutput(*ppDst, *pDstLen, c);
    VekStatus status = StatusDstSize;
    if (c.blockPhase == kHeader) {
        for (const int items = headerItems(c); c.headerStep < items && out.ready(); ++c.headerStep) {
            const Item item = headerItem(c, c.headerStep);
            out.put(item.bits, item.count);
        }
        if (c.headerStep == headerItems(c)) c.blockPhase = kPairs;
    }

    const bool fixed = type == kFixedBlock;
    const Vek16u* litLenCode = fixed ? kCodeTables.fixedLitLenCode : c.litLenCode;
    const Vek8u* litLenBits = fixed ? kCodeTables.fixedLitLenBits : c.litLenBits;
    if (c.blockPhase == kPairs) {
        // Both items are made and one is kept, with no branch: literals and
        // matches alternate at random.  A literal's match item reads table
        // entries in range (length index and distance wrapped) and is dropped.
        const auto putPair = [&](const Vek16u* pair) {
            const unsigned value = pair[0], distance = pair[1];
            const unsigned d = (distance - 1) & 0x7FFF;
            const Vek32u lengthItem = c.lengthItem[(value - kMinMatch) & 0xFF];
            const Vek64u distanceItem = c.distanceItem[kCodeTables.distanceCode[d < 256 ? d : 256 + (d >> 7)]];
            const Vek32u distanceBits = Vek32u(distanceItem) + ((d + 1) << ((distanceItem >> 32) & 0xFF));
            const int lengthCount = int(lengthItem >> 24);
            const Vek64u matchBits = (lengthItem & 0xFFFFFF) | Vek64u(distanceBits) << lengthCount;
            const int matchCount = lengthCount + int(distanceItem >> 40);
            const Vek32u literal = c.literalItem[value & 0xFF];
            const int literalCount = int(literal >> 16);
            const Vek64u isMatch = Vek64u(0) - Vek64u(distance != 0);
            const Vek64u bits = (matchBits & isMatch) | (Vek64u(literal & 0xFFFF) & ~isMatch);
            out.put(bits, literalCount + ((matchCount - literalCount) & int(isMatch)));
        };
        // While 8 bytes of room remain, a pair (at most 48 bits) joins at
        // most 7 waiting bits and one word store passes the whole bytes on.
        const Vek16u* const checkedEnd = pairs + 2 * reach;
        if (out.ready()) out.drainBytes();
        if (out.count < 8)
            for (; pairs < checkedEnd && out.room >= 8; pairs += 2) {
                putPair(pairs);
                out.storeWord();
            }
        for (; pairs < checkedEnd && out.ready(); pairs += 2) putPair(pairs);
        left -= reach - int(checkedEnd - pairs) / 2;
        if (left == 0) c.blockPhase = kEndCode;
    }
    if (c.blockPhase == kEndCode && out.ready()) {
        out.put(litLenCode[kEndOfBlock], litLenBits[kEndOfBlock]);
        if (c.blockFinal) out.count = (out.count + 7) & ~7;  // the last block ends on a byte
        c.blockPhase = kClosing;
    }
    if (c.blockPhase == kClosing) {
        out.drainBytes();
        if (out.count < (c.blockFinal ? 1 : 8)) {
            c.blockPhase = kNoBlock;
            status = blockDone(s);
        }
    }
    keepOutput(out, ppDst, pDstLen, c);
    *ppPairs = pairs;
    *pPairsLen = left;
    return status == StatusOk ? status : stopped(c);
}

}  // namespace

#define VEK_HUFFMAN_BLOCK_EXPORTS                                                                                      \
    VekStatus VEK_CALL veksEncodeLZ77FixedHuff_8u(const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst, int* pDstLen, \
                                                  int flush, VekDeflateState* pState) {                                \
        return huffmanBlock(kFixedBlock, ppPairs, pPairsLen, ppDst, pDstLen, flush, pState);                           \
    }                                                                                                                  \
    VekStatus VEK_CALL veksEncodeLZ77DynamicHuff_8u(const Vek16u** ppPairs, int* pPairsLen, Vek8u** ppDst,             \
                                                    int* pDstLen, int flush, VekDeflateState* pState) {                \
        return huffmanBlock(kDynamicBlock, ppPairs, pPairsLen, ppDst, pDstLen, flush, pState);                         \
    }

#endif
