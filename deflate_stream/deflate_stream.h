// Whole deflate streams through the library's deflate API: the one driver
// that `vek gzip`, the benchmarks, the whole-stream tests and the fuzz
// target share.
//
// Input comes in slices: read through a callback into a buffer of
// `sliceBytes`, or taken in place from the caller's buffer.  Within a
// slice, encoding calls (veksEncodeLZ77_8u) take input and pair room into
// the state's own pair list, and the pairs become a block whenever the list
// is full and at the end of every slice, so a block's bytes are still at
// hand when it is best stored.  Each block is written with fixed codes,
// dynamic codes or stored, as `choice` says, through an output buffer of
// `outputChunk` bytes that goes to the write callback whenever a coder
// fills it.  Memory stays constant whatever the input's size.
//
// The options a tool never changes are there for the tests and the fuzz
// target: a preset dictionary, how the input is cut into encoding calls,
// how many pairs each call may write, and which code-path level runs the
// whole stream (through the library's internal tables, so that every
// level's stream can be compared with level 0's byte for byte).
#ifndef VEK_DEFLATE_STREAM_DEFLATE_STREAM_H
#define VEK_DEFLATE_STREAM_DEFLATE_STREAM_H

#include <stddef.h>
#include <stdint.h>

#include <functional>
#include <string>
#include <vector>

#include "vek.h"

namespace vekdeflate {

enum class Container {
    Raw,             // RFC 1951 blocks only
    LibraryTrailer,  // the blocks, then the trailer veksEncodeLZ77Flush_8u writes for `checksumKind`
    Zlib,            // RFC 1950: header, blocks, Adler-32 (the true one, from 1) big-endian
    Gzip,            // RFC 1952: a minimal header, blocks, the library's CRC-32 and the whole input's size
};

enum class BlockChoice {
    Smallest,      // fixed, dynamic or stored, by an estimate of their sizes
    SkewRule,      // fixed or dynamic as veksEncodeLZ77SelectHuffMode_8u says; stored when that is smaller
    SkewRuleOnly,  // fixed or dynamic as veksEncodeLZ77SelectHuffMode_8u says, never stored
};

constexpr int kInputSlice = 1 << 18;
constexpr int kLevelChosenAtLoad = -1;  // Options::level: the public entries

struct Options {
    int comprClass = VekDeflateDefault;
    Container container = Container::Raw;
    int checksumKind = VekDeflateNoChecksum;  // LibraryTrailer: the kind given to Init (any value)
    BlockChoice choice = BlockChoice::Smallest;
    // kLevelChosenAtLoad, or a code-path level below vek::kLevelCount that
    // the processor can run, whose implementations then make the stream.
    int level = kLevelChosenAtLoad;
    std::vector<Vek8u> dictionary;  // history before the input (Raw and LibraryTrailer only)
    // Input bytes per slice; a block never spans two.  compressBuffer takes
    // 0 as one slice of the whole buffer.
    size_t sliceBytes = kInputSlice;
    std::vector<int> callInput;  // input offered per encoding call, in turn (each >= 1); none: the rest of the slice
    std::vector<int> callPairs;  // pair room per encoding call, in turn (one > 0 at least); none: all the list has
    int outputChunk = 1 << 16;   // output room per coder call, 1 or more
    uint64_t historyCut = uint64_t(1) << 30;  // input bytes between history cuts; 0: none
};

// Reads up to `room` bytes into `buf`: the count read, 0 at the end of the
// input, negative on a read error.
using ReadFn = std::function<long(Vek8u* buf, int room)>;
// Writes `len` bytes; false on a write error.
using WriteFn = std::function<bool(const Vek8u* data, int len)>;

struct Result {
    bool ok = false;
    std::string error;  // what failed, when !ok ("read error", "write error" or the library's complaint)
    uint64_t bytesIn = 0, bytesOut = 0;
};

Result compressStream(const Options& options, const ReadFn& read, const WriteFn& write);

// compressStream of input that is in memory already (a mapped file), taken
// in place: the same slices, so the same bytes, without a copy.
Result compressInPlace(const Vek8u* data, size_t len, const Options& options, const WriteFn& write);

// The whole stream of one buffer.
std::vector<Vek8u> compressBuffer(const Vek8u* data, size_t len, const Options& options, Result* result = nullptr);

// The levels of `levels` whose implementations of the entries a stream
// calls are not all those of a level before them in the list.  The
// library's code never goes through a dispatched entry itself, so a level
// left out makes exactly the stream of the level whose code it shares.
std::vector<int> levelsWithOwnCode(const std::vector<int>& levels);

}  // namespace vekdeflate

#endif
