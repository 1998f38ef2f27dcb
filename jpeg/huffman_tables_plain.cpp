// JPEG Huffman tables and coder states, shared by every level: encoder and
// decoder tables from a DHT segment's BITS/HUFFVAL, the bit-writer and
// bit-reader states, and optimal length-limited tables from symbol counts
// (T.81 Annex K.2).  Table building runs once per table; nothing here
// gains from SIMD.
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/huffman_state.h"

namespace vek::plain {

namespace {

using jpeg::DecodeSpec;
using jpeg::DecodeState;
using jpeg::EncodeSpec;
using jpeg::EncodeState;
using jpeg::kLookaheadBits;
using jpeg::kMaxCodeLength;

// The canonical codes of a table (T.81 C.2): code[i] and length[i] of the
// i-th value.  Fails when the counts exceed 256 values, or a length's
// codes do not fit in its bits without using the all-ones code.
bool canonicalCodes(const Vek8u* bits, Vek16u* code, Vek8u* length, int* count) {
    int n = 0;
    for (int l = 1; l <= kMaxCodeLength; ++l) n += bits[l - 1];
    if (n > 256) return false;
    unsigned next = 0;
    int i = 0;
    for (int l = 1; l <= kMaxCodeLength; ++l) {
        for (int j = 0; j < bits[l - 1]; ++j, ++i) {
            code[i] = static_cast<Vek16u>(next++);
            length[i] = static_cast<Vek8u>(l);
        }
        if (next >= (1u << l)) return false;
        next <<= 1;
    }
    *count = n;
    return true;
}

template <class T>
bool misaligned(const void* p) {
    return reinterpret_cast<uintptr_t>(p) % alignof(T) != 0;
}

// Longest length a symbol may get before K.3 limits it to 16: 257 leaves.
constexpr int kMaxTreeDepth = 257;

}  // namespace

VekStatus VEK_CALL vekiEncodeHuffmanSpecGetSize_JPEG_8u(int* pSize) {
    if (!pSize) return StatusNullPointer;
    *pSize = static_cast<int>(sizeof(EncodeSpec));
    return StatusOk;
}

VekStatus VEK_CALL vekiEncodeHuffmanSpecInit_JPEG_8u(const Vek8u* pListBits, const Vek8u* pListVals,
                                                     VekEncodeHuffmanSpec* pEncHuffSpec) {
    if (!pListBits || !pListVals || !pEncHuffSpec) return StatusNullPointer;
    if (misaligned<EncodeSpec>(pEncHuffSpec)) return StatusBadArgument;
    Vek16u code[256];
    Vek8u length[256];
    int n = 0;
    if (!canonicalCodes(pListBits, code, length, &n)) return StatusJpegHuffmanTable;
    EncodeSpec built;
    memset(&built, 0, sizeof built);
    for (int i = 0; i < n; ++i) {
        const Vek8u symbol = pListVals[i];
        if (built.codeLength[symbol]) return StatusJpegHuffmanTable;  // one symbol, two codes
        built.codeLength[symbol] = Vek32u(code[i]) << 5 | length[i];
    }
    *jpeg::specOf(pEncHuffSpec) = built;
    return StatusOk;
}

VekStatus VEK_CALL vekiDecodeHuffmanSpecGetSize_JPEG_8u(int* pSize) {
    if (!pSize) return StatusNullPointer;
    *pSize = static_cast<int>(sizeof(DecodeSpec));
    return StatusOk;
}

VekStatus VEK_CALL vekiDecodeHuffmanSpecInit_JPEG_8u(const Vek8u* pListBits, const Vek8u* pListVals,
                                                     VekDecodeHuffmanSpec* pDecHuffSpec) {
    if (!pListBits || !pListVals || !pDecHuffSpec) return StatusNullPointer;
    if (misaligned<DecodeSpec>(pDecHuffSpec)) return StatusBadArgument;
    Vek16u code[256];
    Vek8u length[256];
    int n = 0;
    if (!canonicalCodes(pListBits, code, length, &n)) return StatusJpegHuffmanTable;
    DecodeSpec built;
    memset(&built, 0, sizeof built);
    memcpy(built.values, pListVals, static_cast<size_t>(n));
    // Codes up to the look-ahead length fill every table entry they begin.
    for (int i = 0; i < n && length[i] <= kLookaheadBits; ++i) {
        const int spread = kLookaheadBits - length[i];
        for (int e = code[i] << spread; e < (code[i] + 1) << spread; ++e)
            built.fast[e] = static_cast<Vek16u>(length[i] << 8 | pListVals[i]);
    }
    // Run/size codes whose value bits fit in the look-ahead too.
    for (int e = 0; e < (1 << kLookaheadBits); ++e) {
        const int length = built.fast[e] >> 8, symbol = built.fast[e] & 0xFF;
        const int run = symbol >> 4, size = symbol & 15;
        if (length && symbol == 0) {  // end of block (a DC table: a difference of 0)
            built.fastValue[e] = jpeg::kFastEndOfBlock | length;
            continue;
        }
        if (!length || !size || length + size > kLookaheadBits) continue;
        const int bits = (e >> (kLookaheadBits - length - size)) & ((1 << size) - 1);
        const int value = bits < (1 << (size - 1)) ? bits - (1 << size) + 1 : bits;
        built.fastValue[e] =
            static_cast<int32_t>(static_cast<Vek32u>(value) << 16 | Vek32u(run) << 8 | Vek32u(length + size));
    }
    // Canonical bounds of every length, left-aligned to 16 bits.
    unsigned first = 0;
    int valueIndex = 0;
    for (int l = 1; l <= kMaxCodeLength; ++l) {
        const int count = pListBits[l - 1];
        built.offset[l] = valueIndex - static_cast<int>(first);
        first += static_cast<unsigned>(count);
        valueIndex += count;
        built.limit[l] = first << (kMaxCodeLength - l);
        first <<= 1;
    }
    built.limit[kMaxCodeLength + 1] = ~Vek32u(0);  // ends the search: no code
    *jpeg::specOf(pDecHuffSpec) = built;
    return StatusOk;
}

VekStatus VEK_CALL vekiEncodeHuffmanStateGetSize_JPEG_8u(int* pSize) {
    if (!pSize) return StatusNullPointer;
    *pSize = static_cast<int>(sizeof(EncodeState));
    return StatusOk;
}

VekStatus VEK_CALL vekiEncodeHuffmanStateInit_JPEG_8u(VekEncodeHuffmanState* pEncHuffState) {
    if (!pEncHuffState) return StatusNullPointer;
    if (misaligned<EncodeState>(pEncHuffState)) return StatusBadArgument;
    EncodeState& s = *jpeg::stateOf(pEncHuffState);
    s.bits = 0;
    s.count = 0;
    s.eobRun = 0;
    s.correctionCount = 0;
    return StatusOk;
}

VekStatus VEK_CALL vekiDecodeHuffmanStateGetSize_JPEG_8u(int* pSize) {
    if (!pSize) return StatusNullPointer;
    *pSize = static_cast<int>(sizeof(DecodeState));
    return StatusOk;
}

VekStatus VEK_CALL vekiDecodeHuffmanStateInit_JPEG_8u(VekDecodeHuffmanState* pDecHuffState) {
    if (!pDecHuffState) return StatusNullPointer;
    if (misaligned<DecodeState>(pDecHuffState)) return StatusBadArgument;
    DecodeState& s = *jpeg::stateOf(pDecHuffState);
    s.bits = 0;
    s.count = 0;
    s.eobRun = 0;
    return StatusOk;
}

// T.81 K.2: code lengths by repeatedly joining the two least frequent
// entries (ties: the larger symbol; symbol 256 is the reserved code point
// of count 1, so that no real code is all ones), lengths above 16 moved up
// by K.3, the reserved code removed, values ordered by length then symbol.
VekStatus VEK_CALL vekiEncodeHuffmanRawTableInit_JPEG_8u(const int pStatistics[256], Vek8u* pListBits,
                                                         Vek8u* pListVals) {
    if (!pStatistics || !pListBits || !pListVals) return StatusNullPointer;
    for (int i = 0; i < 256; ++i)
        if (pStatistics[i] < 0) return StatusBadArgument;
    Vek64u freq[257];
    int codeSize[257], others[257];
    for (int i = 0; i < 256; ++i) freq[i] = static_cast<Vek64u>(pStatistics[i]);
    freq[256] = 1;
    for (int i = 0; i < 257; ++i) {
        codeSize[i] = 0;
        others[i] = -1;
    }
    for (;;) {
        int c1 = -1, c2 = -1;
        Vek64u v1 = ~Vek64u(0), v2 = ~Vek64u(0);
        for (int i = 0; i < 257; ++i)
            if (freq[i] && freq[i] <= v1) {
                v1 = freq[i];
                c1 = i;
            }
        for (int i = 0; i < 257; ++i)
            if (freq[i] && freq[i] <= v2 && i != c1) {
                v2 = freq[i];
                c2 = i;
            }
        if (c2 < 0) break;
        freq[c1] += freq[c2];
        freq[c2] = 0;
        for (++codeSize[c1]; others[c1] >= 0; ++codeSize[c1]) c1 = others[c1];
        others[c1] = c2;
        for (++codeSize[c2]; others[c2] >= 0; ++codeSize[c2]) c2 = others[c2];
    }
    int bits[kMaxTreeDepth + 1] = {};
    for (int i = 0; i < 257; ++i)
        if (codeSize[i]) ++bits[codeSize[i]];
    // K.3: a pair at the longest length becomes one code a level up and
    // splits a shorter code into two.
    for (int i = kMaxTreeDepth; i > kMaxCodeLength; --i)
        while (bits[i] > 0) {
            int j = i - 2;
            while (bits[j] == 0) --j;
            bits[i] -= 2;
            bits[i - 1] += 1;
            bits[j + 1] += 2;
            bits[j] -= 1;
        }
    int longest = kMaxCodeLength;
    while (longest > 0 && bits[longest] == 0) --longest;
    if (longest > 0) --bits[longest];  // the reserved code point
    Vek8u listBits[kMaxCodeLength], listVals[256] = {};
    for (int l = 1; l <= kMaxCodeLength; ++l) listBits[l - 1] = static_cast<Vek8u>(bits[l]);
    int p = 0;
    for (int size = 1; size <= kMaxTreeDepth; ++size)
        for (int s = 0; s < 256; ++s)
            if (codeSize[s] == size) listVals[p++] = static_cast<Vek8u>(s);
    memcpy(pListBits, listBits, sizeof listBits);
    memcpy(pListVals, listVals, sizeof listVals);
    return StatusOk;
}

}  // namespace vek::plain
