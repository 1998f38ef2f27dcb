// The whole-stream deflate driver (see deflate_stream.h).
#include "deflate_stream/deflate_stream.h"

#include <limits.h>
#include <string.h>

#include <algorithm>

#include "compression/deflate_state.h"
#include "compression/deflate_tables.h"
#include "core/dispatch.h"

namespace vekdeflate {
namespace {
using namespace vek::deflate;

constexpr int kStoredMax = 65535;
constexpr int kLitLenCount = 286, kDistCount = 30;  // literal/length and distance symbols

// The library entries a stream needs, as members of the same names: the
// public entries, or one level's column of the internal tables.
// clang-format off
#define VEK_STREAM_ENTRIES(X)                                                                              \
    X(veksEncodeLZ77InitAlloc_8u) X(veksLZ77Free_8u) X(veksEncodeLZ77SetDictionary_8u) X(veksEncodeLZ77_8u) \
    X(veksEncodeLZ77GetPairs_8u) X(veksEncodeLZ77SetPairs_8u) X(veksEncodeLZ77SetStatus_8u)                \
    X(veksEncodeLZ77SelectHuffMode_8u) X(veksEncodeLZ77FixedHuff_8u) X(veksEncodeLZ77DynamicHuff_8u)       \
    X(veksEncodeLZ77StoredBlock_8u) X(veksEncodeLZ77Flush_8u) X(veksAdler32_8u)
// clang-format on
struct Entries {
#define VEK_STREAM_MEMBER(name) vek::fn::name name;
    VEK_STREAM_ENTRIES(VEK_STREAM_MEMBER)
#undef VEK_STREAM_MEMBER
};
Entries entriesOf(int level) {
    Entries e;
#define VEK_STREAM_PICK(name) e.name = level == kLevelChosenAtLoad ? &::name : vek::vekTable_##name[level];
    VEK_STREAM_ENTRIES(VEK_STREAM_PICK)
#undef VEK_STREAM_PICK
    return e;
}

// Estimated bits of the pairs under each block type, in 1/65536 bits.
// Fixed and stored are exact; dynamic is the entropy of the symbol counts
// plus a header guess, which is a little below what the real code costs.
// All integer, so every platform chooses the same blocks (x87 and SSE
// doubles could round a close call differently).
constexpr int kFractionBits = 16;
constexpr uint64_t kOneBit = uint64_t(1) << kFractionBits;

struct SizeEstimate {
    uint64_t fixedBits = 0, dynamicBits = 0, storedBits = 0;
};

// log2(n) for n >= 1 in 1/65536 units, rounded down: the integer part from
// the highest set bit, each fraction bit from squaring the mantissa.
uint64_t log2Fixed(uint32_t n) {
    int whole = 31;
    while (!(n >> whole)) --whole;
    uint64_t m = uint64_t(n) << (31 - whole);  // the mantissa in [1, 2), 31 fraction bits
    uint32_t fraction = 0;
    for (int bit = kFractionBits - 1; bit >= 0; --bit) {
        m = (m * m) >> 31;
        if (m >> 32) {
            m >>= 1;
            fraction |= 1u << bit;
        }
    }
    return uint64_t(whole) << kFractionBits | fraction;
}

uint64_t entropyBits(const uint32_t* counts, int n) {
    uint32_t total = 0;
    int used = 0;
    for (int i = 0; i < n; ++i) total += counts[i], used += counts[i] != 0;
    const uint64_t log2Total = total ? log2Fixed(total) : 0;
    uint64_t bits = 0;
    for (int i = 0; i < n; ++i)
        if (counts[i]) bits += counts[i] * std::max(kOneBit, log2Total - log2Fixed(counts[i]));
    return bits + 4 * kOneBit * uint64_t(used);  // about what sending a code length costs
}

// The symbol counts of a block's pairs: litLen[256] (end of block) is 1;
// dist[30] is room for the literals countPairSymbols adds there.
struct BlockCounts {
    uint32_t litLen[kLitLenCount] = {}, dist[kDistCount + 1] = {};
};

SizeEstimate estimate(const BlockCounts& counts, size_t rawLen) {
    const uint32_t* litLen = counts.litLen;
    const uint32_t* dist = counts.dist;
    uint64_t extraBits = 0;  // from the counts: no work per pair
    for (int c = 0; c < kLengthCodes; ++c) extraBits += uint64_t(litLen[kFirstLengthSymbol + c]) * kLengthExtra[c];
    for (int c = 0; c < kDistCount; ++c) extraBits += uint64_t(dist[c]) * kDistanceExtra[c];
    uint64_t fixedBits = extraBits + 3;
    for (int s = 0; s < kLitLenCount; ++s)
        fixedBits += uint64_t(litLen[s]) * (s < 144 ? 8 : s < 256 ? 9 : s < 280 ? 7 : 8);
    for (int d = 0; d < kDistCount; ++d) fixedBits += 5 * uint64_t(dist[d]);
    SizeEstimate e;
    e.fixedBits = fixedBits * kOneBit;
    e.dynamicBits =
        entropyBits(litLen, kLitLenCount) + entropyBits(dist, kDistCount) + (extraBits + 3 + 14 + 57) * kOneBit;
    const size_t blocks = std::max<size_t>(1, (rawLen + kStoredMax - 1) / kStoredMax);
    e.storedBits = (8 * uint64_t(rawLen + 5 * blocks) + 7) * kOneBit;
    return e;
}

enum class BlockType { Stored, Fixed, Dynamic };

class Encoder {
public:
    Encoder(const Options& o, const WriteFn& write)
        : options_(o),
          write_(write),
          out_(size_t(std::max(1, o.outputChunk))),
          dst_(out_.data()),
          room_(int(out_.size())) {}
    ~Encoder() {
        if (state_) lib_.veksLZ77Free_8u(state_);
    }

    // The input a slice at a time: where its bytes are and how many
    // (negative on a read error), and whether it is the last.
    using SliceFn = std::function<long long(const Vek8u** data, bool* last)>;

    Result run(const SliceFn& nextSlice) {
        if (!optionsValid()) return result_;
        lib_ = entriesOf(options_.level);
        const Container container = options_.container;
        // zlib's Adler-32 (from 1) is computed here; the library's starts from 0.
        const int kind = container == Container::Gzip             ? VekDeflateCrc32
                         : container == Container::LibraryTrailer ? options_.checksumKind
                                                                  : VekDeflateNoChecksum;
        VekStatus st = lib_.veksEncodeLZ77InitAlloc_8u(options_.comprClass, kind, &state_);
        if (st != StatusOk) return fail("veksEncodeLZ77InitAlloc_8u", st);
        const std::vector<Vek8u>& dict = options_.dictionary;
        if (!dict.empty() && (st = lib_.veksEncodeLZ77SetDictionary_8u(dict.data(), int(dict.size()), state_)))
            return fail("veksEncodeLZ77SetDictionary_8u", st);
        writeHeader();
        Vek32u adler = 1;
        for (bool end = false; !end && result_.error.empty();) {
            const Vek8u* data = nullptr;
            const long long n = nextSlice(&data, &end);
            if (n < 0) return fail("read error");
            if (n > 0 && container == Container::Zlib) addToAdler32(data, size_t(n), adler);
            if (!encodeSlice(data, size_t(n), end)) break;
        }
        if (!result_.error.empty()) return result_;
        if (container == Container::Gzip || container == Container::LibraryTrailer) {
            writeTrailer();
        } else if (container == Container::Zlib) {
            const Vek8u tail[4] = {Vek8u(adler >> 24), Vek8u(adler >> 16), Vek8u(adler >> 8), Vek8u(adler)};
            push(tail, 4);
        }
        if (result_.error.empty()) result_.ok = true;
        return result_;
    }

private:
    Result fail(const std::string& what) {
        if (result_.error.empty()) result_.error = what;
        result_.ok = false;
        return result_;
    }
    Result fail(const char* call, VekStatus st) { return fail(std::string(call) + ": " + vekGetStatusString(st)); }

    bool optionsValid() {
        if (options_.level != kLevelChosenAtLoad && (options_.level < 0 || options_.level >= vek::kLevelCount))
            return fail("no code-path level " + std::to_string(options_.level)), false;
        if (!options_.dictionary.empty() && options_.container != Container::Raw &&
            options_.container != Container::LibraryTrailer)
            return fail("a preset dictionary needs the raw container"), false;
        for (int n : options_.callInput)
            if (n < 1) return fail("every encoding call needs input"), false;
        const std::vector<int>& pairs = options_.callPairs;
        if (!pairs.empty() && std::none_of(pairs.begin(), pairs.end(), [](int n) { return n > 0; }))
            return fail("no encoding call has room for pairs"), false;
        return true;
    }

    void addToAdler32(const Vek8u* data, size_t len, Vek32u& adler) {
        for (size_t done = 0; done < len;) {
            const int n = int(std::min<size_t>(len - done, INT_MAX));
            lib_.veksAdler32_8u(data + done, n, &adler);
            done += size_t(n);
        }
    }

    bool push(const Vek8u* data, size_t len) {
        if (!result_.error.empty()) return false;
        if (len && !write_(data, int(len))) {
            fail("write error");
            return false;
        }
        result_.bytesOut += len;
        return true;
    }
    // Hands the output buffer's bytes to the writer and offers it again.
    bool drainOutput() {
        const bool ok = push(out_.data(), size_t(dst_ - out_.data()));
        dst_ = out_.data();
        room_ = int(out_.size());
        return ok;
    }

    void writeHeader() {
        const int cls = options_.comprClass;
        if (options_.container == Container::Gzip) {
            const Vek8u xfl = cls == VekDeflateBest ? 2 : cls == VekDeflateFast ? 4 : 0;
            const Vek8u header[10] = {0x1F, 0x8B, 8, 0, 0, 0, 0, 0, xfl, 255};  // no name, no time, OS unknown
            push(header, 10);
        } else if (options_.container == Container::Zlib) {
            const unsigned cmf = 0x78;  // deflate, 32 KiB window
            const unsigned flevel = cls == VekDeflateFast ? 1 : cls == VekDeflateBest ? 3 : 2;
            unsigned flg = flevel << 6;
            flg += 31 - (cmf * 256 + flg) % 31;
            const Vek8u header[2] = {Vek8u(cmf), Vek8u(flg)};
            push(header, 2);
        }
    }

    // The next encoding call's input (at most `left`) and pair room (at
    // most `listRoom`), from the options' turns.
    int nextCallInput(size_t left) {
        if (callInputLeft_ == 0)
            callInputLeft_ =
                options_.callInput.empty() ? INT_MAX : options_.callInput[callInputTurn_++ % options_.callInput.size()];
        return int(std::min<size_t>(left, size_t(callInputLeft_)));
    }
    int nextCallPairs(int listRoom) {
        if (options_.callPairs.empty()) return listRoom;
        return std::min(listRoom, std::max(0, options_.callPairs[callPairsTurn_++ % options_.callPairs.size()]));
    }

    // Matches one slice into the pair list, coding a block whenever the
    // list fills and at the end of the slice (the stream's last block when
    // `end`).
    bool encodeSlice(const Vek8u* data, size_t len, bool end) {
        const Vek8u* src = data;
        const Vek8u* blockStart = data;
        size_t left = len;
        while (left > 0) {
            Vek16u* pairs;
            int count, capacity;
            lib_.veksEncodeLZ77GetPairs_8u(&pairs, &count, &capacity, state_);
            Vek16u* next = pairs + 2 * count;
            int room = nextCallPairs(capacity - count);
            int offer = nextCallInput(left);
            int flush = VekDeflateNoFlush;
            if (options_.historyCut && sinceCut_ >= options_.historyCut) flush = VekDeflateHistoryCut, sinceCut_ = 0;
            const Vek8u* before = src;
            const VekStatus st = lib_.veksEncodeLZ77_8u(&src, &offer, &next, &room, flush, state_);
            if (st < 0) return fail("veksEncodeLZ77_8u", st), false;
            const size_t consumed = size_t(src - before);
            left -= consumed;
            callInputLeft_ -= int(consumed);
            sinceCut_ += consumed;
            count = int(next - pairs) / 2;
            lib_.veksEncodeLZ77SetPairs_8u(pairs, count, capacity, state_);
            if (count == capacity && left > 0) {
                if (!codeBlock(blockStart, size_t(src - blockStart), false)) return false;
                blockStart = src;
            }
        }
        result_.bytesIn += uint64_t(len);
        return codeBlock(blockStart, size_t(src - blockStart), end);
    }

    // The counts come from the match finder, which made them as it wrote
    // the pairs, or else from a count here; a dynamic block's coder gets
    // them too, so it does not count again.
    BlockType chooseBlock(const Vek16u* pairs, int count, size_t rawLen) {
        BlockCounts counts;
        const auto counted = [&] {
            if (const vek::deflate::DeflateState* s = emittedCounts(state_, pairs, count)) {
                std::copy(s->emittedLitLen, s->emittedLitLen + kLitLenCount, counts.litLen);
                std::copy(s->emittedDist, s->emittedDist + kDistCount, counts.dist);
            } else {
                countPairSymbols(pairs, count, counts.litLen, counts.dist);
            }
            counts.litLen[kEndOfBlock] = 1;
            return estimate(counts, rawLen);
        };
        BlockType type;
        if (options_.choice != BlockChoice::Smallest) {
            int mode = VekDeflateFixedCodes;
            const VekStatus st = lib_.veksEncodeLZ77SelectHuffMode_8u(pairs, count, &mode, state_);
            if (st != StatusOk) fail("veksEncodeLZ77SelectHuffMode_8u", st);
            const bool dynamic = mode == VekDeflateDynamicCodes;
            if (options_.choice == BlockChoice::SkewRuleOnly) return dynamic ? BlockType::Dynamic : BlockType::Fixed;
            const SizeEstimate e = counted();
            type = e.storedBits < (dynamic ? e.dynamicBits : e.fixedBits) ? BlockType::Stored
                   : dynamic                                              ? BlockType::Dynamic
                                                                          : BlockType::Fixed;
        } else {
            const SizeEstimate e = counted();
            type = e.storedBits < std::min(e.fixedBits, e.dynamicBits) ? BlockType::Stored
                   : e.dynamicBits < e.fixedBits                       ? BlockType::Dynamic
                                                                       : BlockType::Fixed;
        }
        if (type == BlockType::Dynamic) giveBlockCounts(state_, pairs, count, counts.litLen, counts.dist);
        return type;
    }

    // The pairs held (standing for the `rawLen` bytes at `raw`) as one
    // block, or as stored blocks of at most 65535 bytes.
    bool codeBlock(const Vek8u* raw, size_t rawLen, bool last) {
        Vek16u* pairs;
        int count, capacity;
        lib_.veksEncodeLZ77GetPairs_8u(&pairs, &count, &capacity, state_);
        if (count == 0 && !last) return true;
        lib_.veksEncodeLZ77SetStatus_8u(VekDeflateCoding, state_);
        const BlockType type = chooseBlock(pairs, count, rawLen);
        if (!result_.error.empty()) return false;
        const int flush = last ? VekDeflateLastBlock : VekDeflateNoFlush;
        VekStatus st = StatusDstSize;
        if (type == BlockType::Stored) {
            static const Vek8u kNoBytes[1] = {};  // an empty buffer may come as null
            const Vek8u* src = raw ? raw : kNoBytes;
            size_t left = rawLen;
            do {  // only the last part may be final
                int part = int(std::min<size_t>(left, kStoredMax));
                const int partFlush = size_t(part) == left ? flush : VekDeflateNoFlush;
                left -= size_t(part);
                while ((st = lib_.veksEncodeLZ77StoredBlock_8u(&src, &part, &dst_, &room_, partFlush, state_)) ==
                       StatusDstSize)
                    if (!drainOutput()) return false;
            } while (st == StatusOk && left > 0);
        } else {
            const Vek16u* p = pairs;
            int n = count;
            auto coder = type == BlockType::Fixed ? lib_.veksEncodeLZ77FixedHuff_8u : lib_.veksEncodeLZ77DynamicHuff_8u;
            while ((st = coder(&p, &n, &dst_, &room_, flush, state_)) == StatusDstSize)
                if (!drainOutput()) return false;
        }
        if (st != StatusOk) return fail("block coder", st), false;
        if (!last) lib_.veksEncodeLZ77SetStatus_8u(VekDeflateMatching, state_);
        return drainOutput();
    }

    // The library's trailer, taken through outputs of at most outputChunk
    // bytes; gzip's ISIZE is the whole input modulo 2^32, where the state
    // counts only since the last history cut and counts the dictionary.
    void writeTrailer() {
        Vek8u trailer[8];
        Vek8u* dst = trailer;
        VekStatus st;
        do {
            int room = std::min(int(trailer + 8 - dst), int(out_.size()));
            st = lib_.veksEncodeLZ77Flush_8u(&dst, &room, state_);
        } while (st == StatusDstSize && dst < trailer + 8);
        if (st != StatusOk) return void(fail("veksEncodeLZ77Flush_8u", st));
        if (options_.container == Container::Gzip)
            for (int i = 0; i < 4; ++i) trailer[4 + i] = Vek8u(uint32_t(result_.bytesIn) >> (8 * i));
        push(trailer, size_t(dst - trailer));
    }

    Options options_;
    const WriteFn& write_;
    Entries lib_{};
    std::vector<Vek8u> out_;
    Vek8u* dst_ = nullptr;
    int room_ = 0;
    VekDeflateState* state_ = nullptr;
    uint64_t sinceCut_ = 0;
    int callInputLeft_ = 0;  // of the current entry of callInput
    size_t callInputTurn_ = 0, callPairsTurn_ = 0;
    Result result_;
};

}  // namespace

Result compressStream(const Options& options, const ReadFn& read, const WriteFn& write) {
    const int sliceBytes = options.sliceBytes ? int(std::min<size_t>(options.sliceBytes, INT_MAX)) : kInputSlice;
    std::vector<Vek8u> slice(static_cast<size_t>(sliceBytes));
    Encoder encoder(options, write);
    return encoder.run([&](const Vek8u** data, bool* last) {
        int filled = 0;
        *last = false;
        while (filled < sliceBytes && !*last) {
            const long n = read(slice.data() + filled, sliceBytes - filled);
            if (n < 0) return (long long)n;
            *last = n == 0;
            filled += int(n);
        }
        *data = slice.data();
        return (long long)filled;
    });
}

Result compressInPlace(const Vek8u* data, size_t len, const Options& options, const WriteFn& write) {
    // A slice shorter than a full one is the last, as a reader's first short
    // read ends compressStream's input (an empty one when the length is a
    // multiple of the slice).
    const size_t sliceBytes = options.sliceBytes ? std::min<size_t>(options.sliceBytes, INT_MAX) : kInputSlice;
    size_t taken = 0;
    Encoder encoder(options, write);
    return encoder.run([&](const Vek8u** slice, bool* last) {
        const size_t n = std::min(len - taken, sliceBytes);
        *slice = data + taken;
        taken += n;
        *last = n < sliceBytes;
        return (long long)n;
    });
}

std::vector<Vek8u> compressBuffer(const Vek8u* data, size_t len, const Options& options, Result* result) {
    // Slices of the caller's buffer itself, no copy; the output grows once
    // or twice at most.
    std::vector<Vek8u> out;
    out.reserve(len / 2 + 1024);
    const size_t sliceBytes = options.sliceBytes ? options.sliceBytes : std::max<size_t>(len, 1);
    size_t taken = 0;
    const WriteFn write = [&](const Vek8u* bytes, int n) {
        out.insert(out.end(), bytes, bytes + n);
        return true;
    };
    Encoder encoder(options, write);
    const Result r = encoder.run([&](const Vek8u** slice, bool* last) {
        const size_t n = std::min(len - taken, sliceBytes);
        *slice = data + taken;
        taken += n;
        *last = taken == len;
        return (long long)n;
    });
    if (result) *result = r;
    return out;
}

std::vector<int> levelsWithOwnCode(const std::vector<int>& levels) {
    std::vector<int> kept;
    for (int level : levels) {
        const Entries e = entriesOf(level);
        const bool shared = std::any_of(kept.begin(), kept.end(), [&](int earlier) {
            const Entries k = entriesOf(earlier);
            bool same = true;
#define VEK_STREAM_SAME(name) same = same && k.name == e.name;
            VEK_STREAM_ENTRIES(VEK_STREAM_SAME)
#undef VEK_STREAM_SAME
            return same;
        });
        if (!shared) kept.push_back(level);
    }
    return kept;
}

}  // namespace vekdeflate
