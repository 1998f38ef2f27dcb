// The deflate encoder's state: one block the caller owns (the public
// header's opaque VekDeflateState points at this struct), shared by the match finder
// (deflate_match_*.cpp) and the block coders (deflate_block_*.cpp).
//
// The match finder turns input into a list of pairs held inside the state
// and keeps the history window, the hash chains and the running checksum;
// the block coders write those pairs as RFC 1951 blocks through a bit
// buffer that survives between calls, so every coder can stop on a full
// output buffer and go on in the next call.
#ifndef VEK_COMPRESSION_DEFLATE_STATE_H
#define VEK_COMPRESSION_DEFLATE_STATE_H

#include <stdint.h>

#include "compression/deflate_status.h"
#include "vek.h"

namespace vek::deflate {

constexpr int kWindowSize = 32768;    // farthest match distance + 1
constexpr int kHistorySize = 65536;   // history buffer bytes
constexpr int kHistoryLimit = 65278;  // fill beyond which the newest window moves to the front
constexpr int kMinMatch = 3, kMaxMatch = 258;
constexpr int kHashSize = 32768;         // head entries (15-bit hash)
constexpr int kPairCapacity = 65280;     // pairs the state holds
constexpr int32_t kNoPosition = -32768;  // empty head or chain entry
constexpr int kLitLenSymbols = 286, kDistSymbols = 30;

// Classes, checksum kinds, flush values and the stream status are named in
// vek.h (VekDeflate...); the block coders' own words in deflate_status.h.

// A literal (distance 0, value = the byte) or a match (value = length
// 3..258, distance 1..32768).  Callers see pairs as two Vek16u.
struct Pair {
    Vek16u value;
    Vek16u distance;
};
static_assert(sizeof(Pair) == 4, "a pair is two 16-bit words");

// The best class's skip entries of a position (DeflateState::skips).
struct Skips {
    int32_t twoBack, fourBack;
};

// {symbol, frequency} entries of the block coders' frequency tables.
struct SymbolCount {
    Vek32u symbol;
    Vek32u count;
};

// What the block coders keep between calls.  A coder stops when the output
// is full and the next call goes on from here: the pending bits, how far
// the open block has got (its header step, or the stored block's
// sub-state and byte count) and the codes of the open dynamic block.
struct BlockCoder {
    Vek64u bitBuffer = 0;  // pending bits, least significant first (up to 63)
    int bitCount = 0;
    int subStatus = 0;      // kNewBlock, kStopped or kNothingPending (deflate_status.h)
    int storedState = 0;    // StoredPhase: how far the stored block has got
    int storedDone = 0;     // bytes written of the stored block's current part (LEN/NLEN or data)
    int storedLength = 0;   // LEN of the open stored block
    Vek8u trailer[8] = {};  // the trailer being written
    int trailerDone = 0;    // its bytes already written
    int trailerLength = 0;  // 4 or 8 while a trailer is being written, else 0
    int huffMode = 0;       // the last decision of SelectHuffMode: 0 fixed, 1 dynamic
    int blockPhase = 0;     // BlockPhase of the open Huffman block
    int blockType = 0;      // of the open Huffman block: kFixedBlock or kDynamicBlock
    int blockFinal = 0;     // the open block is the stream's last
    int headerStep = 0;     // header items of the open block already put in
    SymbolCount litLen[kLitLenSymbols] = {};
    SymbolCount dist[kDistSymbols] = {};
    Vek16u litLenCode[kLitLenSymbols] = {};  // codes of the current dynamic block (bit-reversed)
    Vek8u litLenBits[kLitLenSymbols] = {};
    Vek16u distCode[kDistSymbols] = {};
    Vek8u distBits[kDistSymbols] = {};
    // The open Huffman block's items, made once when the block opens, so a
    // call that resumes it costs only what it writes, and a pair takes one
    // load per part: every literal's code (low 16 bits) and its bit count
    // (above); every match length's symbol and extra bits as one item (low
    // 24 bits) and their bit count (top 8); and per distance code, the code
    // minus the base distance shifted past it (low 32 bits, so that adding
    // the distance so shifted gives code and extra bits), that shift (bits
    // 32-39) and the item's bit count (bits 40-47).
    Vek32u literalItem[256] = {};
    Vek32u lengthItem[kMaxMatch + 1 - kMinMatch] = {};
    Vek64u distanceItem[kDistSymbols] = {};
    int shortestCode = 1;  // bits of the open block's shortest literal/length code
    // The addresses of the pairs checked since the block opened: a call
    // that goes on with the same list checks only pairs beyond them.
    uintptr_t checkedFrom = 0, checkedTo = 0;
    // The dynamic block's header: the counts sent, the code-length code and
    // the run-length coded code lengths (symbol 0..18 and its extra bits).
    int litLenSent = 0, distSent = 0, codeLengthsSent = 0;
    Vek16u codeLengthCode[19] = {};
    Vek8u codeLengthBits[19] = {};
    int runCount = 0;
    Vek8u runSymbol[kLitLenSymbols + kDistSymbols] = {};
    Vek8u runExtra[kLitLenSymbols + kDistSymbols] = {};
    // The block whose counts giveBlockCounts put in litLen / dist: a dynamic
    // coder that opens a block of exactly these pairs codes with them
    // instead of counting again.  Every status change and every block
    // opened drops them.
    const Vek16u* countedPairs = nullptr;
    int countedCount = -1;
};

struct DeflateState {
    int outWords[3] = {};  // output position and remaining length of the block coder and flush
    Vek32u checksum = 0;   // running checksum of the input, from 0 for both kinds
    int checksumKind = 0;  // VekDeflateAdler32, VekDeflateCrc32, other: none
    int comprClass = VekDeflateDefault;
    int streamPos = 0;  // input bytes taken since init, reset or the last history cut
    BlockCoder coder;

    Vek8u* historyStart = nullptr;              // == history
    Vek8u* historyPos = nullptr;                // end of the bytes held (the history fill)
    const Vek16u (*hashTables)[256] = nullptr;  // H0, H1, H2
    int32_t chain[kWindowSize];                 // previous position with the same hash, by position & 0x7FFF
    int32_t head[kHashSize];                    // latest position with a hash

    Pair* pairs = nullptr;  // the pair list: where it starts, how many it holds,
    int pairCount = 0;      // and room for how many
    int pairCapacity = kPairCapacity;

    int streamStatus = 0;  // VekDeflateNotBegun ...: read and written by Get/SetStatus and the coders
    int lastFlush = 0;     // flush mode of the previous encoding call
    int linkedEnd = 0;     // positions below it are already in the hash tables
    // The symbol counts of the pairs the match finder wrote from
    // countedFrom to countedEnd, call after call (a call that writes
    // anywhere else starts them again), which the whole-stream driver takes
    // (emittedCounts) instead of counting its blocks again.  Literals take
    // no distance slot: in a run of them that one increment would wait on
    // the last.
    const Vek16u* countedFrom = nullptr;
    const Vek16u* countedEnd = nullptr;
    Vek32u emittedLitLen[kLitLenSymbols];
    Vek32u emittedDist[kDistSymbols];

    Vek8u history[kHistorySize];
    Pair pairStorage[kPairCapacity];

    // The best class's skip table, private and after every field above: by
    // position & 0x7FFF, the chain entries two and four steps back as they
    // stood when the position was linked.  A chain walk follows it to cut
    // its run of dependent loads by four, and checks every entry it takes
    // against the chain (deflate_match.h), so a stale one costs time, never
    // a different candidate.  Filled by Init for the best class only; the
    // other classes never touch it.
    Skips skips[kWindowSize];
};

inline DeflateState* stateOf(VekDeflateState* p) { return reinterpret_cast<DeflateState*>(p); }
inline const DeflateState* stateOf(const VekDeflateState* p) { return reinterpret_cast<const DeflateState*>(p); }

// The counts of the `count` pairs at `pairs` when the match finder wrote
// exactly those (see countedFrom), else null; the end of block is not
// counted.
inline const DeflateState* emittedCounts(const VekDeflateState* p, const Vek16u* pairs, int count) {
    const DeflateState* s = stateOf(p);
    return s->countedFrom == pairs && s->countedEnd == pairs + 2 * count ? s : nullptr;
}

// For the whole-stream driver, which counts a block's symbols anyway to
// choose its type: after veksEncodeLZ77SetStatus_8u(VekDeflateCoding), hands
// those counts (litLen[286] and dist[30] as countPairSymbols adds them up)
// to the dynamic coder of the block of the `count` pairs at `pairs`.  They
// must be the counts of those pairs: the coder builds its codes from them.
inline void giveBlockCounts(VekDeflateState* p, const Vek16u* pairs, int count, const uint32_t* litLen,
                            const uint32_t* dist) {
    BlockCoder& c = stateOf(p)->coder;
    for (int s = 0; s < kLitLenSymbols; ++s) c.litLen[s] = {Vek32u(s), litLen[s]};
    c.litLen[256].count = 1;  // the end-of-block code, once
    for (int s = 0; s < kDistSymbols; ++s) c.dist[s] = {Vek32u(s), dist[s]};
    c.countedPairs = pairs;
    c.countedCount = count;
}

}  // namespace vek::deflate

#endif
