// Whole deflate streams through the library's public deflate API: the
// one loop that the vek tool, the benchmarks, the whole-stream tests and
// the fuzz target share.
//
// Input is pulled through a read callback in slices of kInputSlice bytes;
// each slice goes to the match finder (veksEncodeLZ77_8u) into the state's
// own pair list, and the pairs become a block whenever the list is full and
// at the end of every slice.  Each block is written with fixed codes,
// dynamic codes or stored, whichever is estimated smallest (or, on request,
// as veksEncodeLZ77SelectHuffMode_8u decides), through an output buffer of
// `outputChunk` bytes that is pushed to the write callback whenever a coder
// fills it.  Memory stays constant whatever the input's size.
#ifndef VEK_TOOLS_DEFLATE_STREAM_H
#define VEK_TOOLS_DEFLATE_STREAM_H

#include <stddef.h>
#include <stdint.h>

#include <functional>
#include <string>
#include <vector>

#include "vek.h"

namespace vekdeflate {

enum class Container {
    Raw,   // RFC 1951 blocks only
    Zlib,  // RFC 1950: header, blocks, Adler-32 (the true one, from 1) big-endian
    Gzip,  // RFC 1952: a minimal header, blocks, the library's CRC-32 and size trailer
};

enum class BlockChoice {
    Smallest,  // fixed, dynamic or stored, by an estimate of their sizes
    Library,   // fixed or dynamic as veksEncodeLZ77SelectHuffMode_8u says; stored when that is smaller
};

struct Options {
    int comprClass = 1;  // 0 fast, 1 default, 2 best
    Container container = Container::Raw;
    BlockChoice choice = BlockChoice::Smallest;
    int outputChunk = 1 << 16;  // output room per coder call, 1 or more
};

constexpr int kInputSlice = 1 << 18;

// Reads up to `room` bytes into `buf`: the count read, 0 at the end of the
// input, negative on a read error.
using ReadFn = std::function<long(Vek8u* buf, int room)>;
// Writes `len` bytes; false on a write error.
using WriteFn = std::function<bool(const Vek8u* data, int len)>;

struct Result {
    bool ok = false;
    std::string error;  // what failed, when !ok
    uint64_t bytesIn = 0, bytesOut = 0;
};

Result compressStream(const Options& options, const ReadFn& read, const WriteFn& write);

// The whole stream of one buffer.
std::vector<Vek8u> compressBuffer(const Vek8u* data, size_t len, const Options& options, Result* result = nullptr);

}  // namespace vekdeflate

#endif
