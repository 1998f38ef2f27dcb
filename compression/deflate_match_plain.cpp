// The deflate encoder's state and match finder: the plain reference.
//
// Every export of the state (size, initialisation, reset, dictionary, the
// pair list) is served by this level alone; the matching call is written
// once in deflate_match.h and compiled here with a byte-by-byte compare.
#include <stdint.h>
#include <string.h>

#include <new>

#include "compression/deflate_hash_tables.h"
#include "compression/deflate_state.h"
#include "compression/deflate_tables.h"
#include "core/dispatch.h"

namespace vek::plain {
namespace {

int matchLength(const Vek8u* candidate, const Vek8u* current, int maxLen) {
    int n = 0;
    while (n < maxLen && candidate[n] == current[n]) ++n;
    return n;
}

// A candidate whose bytes at best and best - 1 differ cannot be longer.
int lengthIfLonger(const Vek8u* candidate, const Vek8u* current, int maxLen, int best) {
    if (candidate[best] != current[best] || candidate[best - 1] != current[best - 1]) return best;
    return matchLength(candidate, current, maxLen);
}

// The running checksum through this level's own implementations.
VekStatus checksumAdler32(const Vek8u* src, int len, Vek32u* sum) { return plain::veksAdler32_8u(src, len, sum); }
VekStatus checksumCrc32(const Vek8u* src, int len, Vek32u* sum) { return plain::veksCRC32_8u(src, len, sum); }

}  // namespace

#include "compression/deflate_match.h"

using deflate::DeflateState;

namespace {

void clearHeads(DeflateState& s) {
    for (int32_t& h : s.head) h = deflate::kNoPosition;
}

// Everything but the class, the checksum kind and the chain table back to
// the start of a stream.
void restart(DeflateState& s) {
    clearHeads(s);
    for (int& w : s.outWords) w = 0;
    s.checksum = 0;
    s.streamPos = 0;
    s.coder = deflate::BlockCoder{};
    s.historyStart = s.history;
    s.historyPos = s.history;
    s.hashTables = deflate::kHashTables;
    s.pairs = s.pairStorage;
    s.pairCount = 0;
    s.pairCapacity = deflate::kPairCapacity;
    s.streamStatus = VekDeflateNotBegun;
    s.lastFlush = VekDeflateNoFlush;
    s.linkedEnd = 0;
    s.countedFrom = s.countedEnd = nullptr;
}

}  // namespace

VekStatus VEK_CALL veksEncodeLZ77GetSize_8u(int* pSize) {
    if (!pSize) return StatusNullPointer;
    *pSize = static_cast<int>(sizeof(DeflateState));
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77Init_8u(int comprClass, int checksumKind, VekDeflateState* pState) {
    if (!pState) return StatusNullPointer;
    if (reinterpret_cast<uintptr_t>(pState) % alignof(DeflateState) != 0) return StatusBadArgument;
    DeflateState& s = *new (pState) DeflateState;
    for (int32_t& c : s.chain) c = deflate::kNoPosition;
    if (comprClass == VekDeflateBest)
        for (deflate::Skips& k : s.skips) k = {deflate::kNoPosition, deflate::kNoPosition};
    restart(s);
    s.checksumKind = checksumKind;
    s.comprClass = comprClass == VekDeflateFast || comprClass == VekDeflateBest ? comprClass : VekDeflateDefault;
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77InitAlloc_8u(int comprClass, int checksumKind, VekDeflateState** ppState) {
    if (!ppState) return StatusNullPointer;
    int size = 0;
    plain::veksEncodeLZ77GetSize_8u(&size);
    Vek8u* block = plain::veksMalloc_8u(size);
    if (!block) return StatusMemoryAllocated;
    VekDeflateState* state = reinterpret_cast<VekDeflateState*>(block);
    plain::veksEncodeLZ77Init_8u(comprClass, checksumKind, state);
    *ppState = state;
    return StatusOk;
}

void VEK_CALL veksLZ77Free_8u(void* pState) { plain::veksFree(pState); }

VekStatus VEK_CALL veksEncodeLZ77Reset_8u(VekDeflateState* pState) {
    if (!pState) return StatusNullPointer;
    restart(*deflate::stateOf(pState));
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77SetDictionary_8u(const Vek8u* pDict, int dictLen, VekDeflateState* pState) {
    if (!pDict || !pState) return StatusNullPointer;
    if (dictLen < 0) return StatusSize;
    if (dictLen < deflate::kMinMatch) return StatusOk;
    DeflateState& s = *deflate::stateOf(pState);
    if (s.streamStatus != VekDeflateNotBegun) return StatusUnknown;

    // A dictionary replaces any one set before: the heads forget it.
    const int count = dictLen < deflate::kWindowSize ? dictLen : deflate::kWindowSize;
    memcpy(s.history, pDict + (dictLen - count), count);
    s.historyPos = s.history + count;
    s.streamPos = count;
    clearHeads(s);
    for (int i = 0; i + 2 < count; ++i) {
        if (s.comprClass == VekDeflateFast)
            s.head[rollingHash(s.history + i)] = i;
        else if (s.comprClass == VekDeflateBest)
            linkPosition<true>(s, i, s.history + i);
        else
            linkPosition<false>(s, i, s.history + i);
    }
    s.linkedEnd = count - 2;
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77_8u(const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen, int flush,
                                     VekDeflateState* pState) {
    return encodeLz77(ppSrc, pSrcLen, ppPairs, pPairsLen, flush, pState);
}

VekStatus VEK_CALL veksEncodeLZ77GetPairs_8u(Vek16u** ppPairs, int* pPairsCount, int* pPairsCapacity,
                                             VekDeflateState* pState) {
    if (!ppPairs || !pPairsCount || !pPairsCapacity || !pState) return StatusNullPointer;
    const DeflateState& s = *deflate::stateOf(pState);
    *ppPairs = reinterpret_cast<Vek16u*>(s.pairs);
    *pPairsCount = s.pairCount;
    *pPairsCapacity = s.pairCapacity;
    return StatusOk;
}

VekStatus VEK_CALL veksEncodeLZ77SetPairs_8u(Vek16u* pPairs, int pairsCount, int pairsCapacity,
                                             VekDeflateState* pState) {
    if (!pPairs || !pState) return StatusNullPointer;
    if (pairsCount < 0 || pairsCapacity < pairsCount) return StatusSize;
    DeflateState& s = *deflate::stateOf(pState);
    s.pairs = reinterpret_cast<deflate::Pair*>(pPairs);
    s.pairCount = pairsCount;
    s.pairCapacity = pairsCapacity;
    return StatusOk;
}

}  // namespace vek::plain
