// The whole-stream deflate driver (see deflate_stream.h).
#include "tools/deflate_stream.h"

#include <math.h>
#include <string.h>

#include <algorithm>
#include <memory>

#include "compression/deflate_tables.h"

namespace vekdeflate {
namespace {
using namespace vek::deflate;

// Matches never reach back across a history cut, so the ratio hardly
// notices one per gigabyte, and the state's position counter stays far
// from its limit of 2^31 bytes between cuts.
constexpr uint64_t kCutInterval = uint64_t(1) << 30;
constexpr int kStoredMax = 65535;
constexpr int kLitLenCount = 286, kDistCount = 30;  // literal/length and distance symbols

// Estimated bits of the pairs under each block type.  Fixed is exact;
// dynamic is the entropy of the symbol counts plus a header guess, which
// is a little below what the real code costs.
struct SizeEstimate {
    double fixedBits = 0, dynamicBits = 0, storedBits = 0;
};

double entropyBits(const uint32_t* counts, int n) {
    uint64_t total = 0;
    int used = 0;
    for (int i = 0; i < n; ++i) total += counts[i], used += counts[i] != 0;
    double bits = 0;
    for (int i = 0; i < n; ++i)
        if (counts[i]) bits += counts[i] * std::max(1.0, log2(double(total) / counts[i]));
    return bits + 4.0 * used;  // about what sending a code length costs
}

SizeEstimate estimate(const Vek16u* pairs, int count, size_t rawLen) {
    uint32_t litLen[kLitLenCount] = {}, dist[kDistCount + 1] = {};
    countPairSymbols(pairs, count, litLen, dist);
    uint64_t extraBits = 0;  // from the counts: no work per pair
    for (int c = 0; c < kLengthCodes; ++c) extraBits += uint64_t(litLen[kFirstLengthSymbol + c]) * kLengthExtra[c];
    for (int c = 0; c < kDistCount; ++c) extraBits += uint64_t(dist[c]) * kDistanceExtra[c];
    litLen[kEndOfBlock] = 1;
    SizeEstimate e;
    for (int s = 0; s < kLitLenCount; ++s)
        e.fixedBits += double(litLen[s]) * (s < 144 ? 8 : s < 256 ? 9 : s < 280 ? 7 : 8);
    for (int d = 0; d < kDistCount; ++d) e.fixedBits += 5.0 * dist[d];
    e.fixedBits += double(extraBits) + 3;
    e.dynamicBits = entropyBits(litLen, kLitLenCount) + entropyBits(dist, kDistCount) + double(extraBits) + 3 + 14 + 57;
    const size_t blocks = std::max<size_t>(1, (rawLen + kStoredMax - 1) / kStoredMax);
    e.storedBits = 8.0 * (rawLen + 5 * blocks) + 7;
    return e;
}

class Encoder {
public:
    Encoder(const Options& o, const WriteFn& write)
        : options_(o),
          write_(write),
          out_(size_t(std::max(1, o.outputChunk))),
          dst_(out_.data()),
          room_(int(out_.size())) {}
    ~Encoder() {
        if (state_) veksLZ77Free_8u(state_);
    }

    // The input a slice at a time: where its bytes are and how many (at
    // most kInputSlice; negative on a read error), and whether it is the last.
    using SliceFn = std::function<long(const Vek8u** data, bool* last)>;

    Result run(const SliceFn& nextSlice) {
        const int kind = options_.container == Container::Gzip ? 2 : 0;  // zlib's Adler-32 is ours
        if (veksEncodeLZ77InitAlloc_8u(options_.comprClass, kind, &state_) != StatusOk)
            return fail("cannot allocate the encoder state");
        writeHeader();
        Vek32u adler = 1;
        for (bool end = false; !end && result_.error.empty();) {
            const Vek8u* data = nullptr;
            const long n = nextSlice(&data, &end);
            if (n < 0) return fail("read error");
            if (n > 0 && options_.container == Container::Zlib) veksAdler32_8u(data, int(n), &adler);
            if (!encodeSlice(data, int(n), end)) break;
        }
        if (!result_.error.empty()) return result_;
        if (options_.container == Container::Gzip) {
            writeTrailer();
        } else if (options_.container == Container::Zlib) {
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
    void fail(const char* call, VekStatus st) { fail(std::string(call) + ": " + vekGetStatusString(st)); }

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
        if (options_.container == Container::Gzip) {
            const Vek8u xfl = options_.comprClass == 2 ? 2 : options_.comprClass == 0 ? 4 : 0;
            const Vek8u header[10] = {0x1F, 0x8B, 8, 0, 0, 0, 0, 0, xfl, 255};  // no name, no time, OS unknown
            push(header, 10);
        } else if (options_.container == Container::Zlib) {
            const unsigned cmf = 0x78;  // deflate, 32 KiB window
            const unsigned level = options_.comprClass == 0 ? 1 : options_.comprClass == 2 ? 3 : 2;
            unsigned flg = level << 6;
            flg += 31 - (cmf * 256 + flg) % 31;
            const Vek8u header[2] = {Vek8u(cmf), Vek8u(flg)};
            push(header, 2);
        }
    }

    // Matches one slice into the pair list, coding a block whenever the
    // list fills and at the end of the slice (the stream's last block when
    // `end`).  Blocks never span slices, so their bytes stay at hand for
    // stored blocks.
    bool encodeSlice(const Vek8u* data, int len, bool end) {
        const Vek8u* src = data;
        const Vek8u* blockStart = data;
        int left = len;
        while (left > 0) {
            Vek16u* pairs;
            int count, capacity;
            veksEncodeLZ77GetPairs_8u(&pairs, &count, &capacity, state_);
            Vek16u* next = pairs + 2 * count;
            int room = capacity - count;
            int flush = 0;
            if (sinceCut_ >= kCutInterval) flush = 2, sinceCut_ = 0;
            const Vek8u* before = src;
            const VekStatus st = veksEncodeLZ77_8u(&src, &left, &next, &room, flush, state_);
            if (st < 0) return fail("veksEncodeLZ77_8u", st), false;
            sinceCut_ += uint64_t(src - before);
            veksEncodeLZ77SetPairs_8u(pairs, int(next - pairs) / 2, capacity, state_);
            if (room == 0 && left > 0) {
                if (!codeBlock(blockStart, size_t(src - blockStart), false)) return false;
                blockStart = src;
            }
        }
        result_.bytesIn += uint64_t(len);
        return codeBlock(blockStart, size_t(src - blockStart), end);
    }

    bool codeBlock(const Vek8u* raw, size_t rawLen, bool last) {
        Vek16u* pairs;
        int count, capacity;
        veksEncodeLZ77GetPairs_8u(&pairs, &count, &capacity, state_);
        if (count == 0 && !last) return true;
        veksEncodeLZ77SetStatus_8u(2, state_);
        const SizeEstimate e = estimate(pairs, count, rawLen);
        int type;  // 0 stored, 1 fixed, 2 dynamic
        if (options_.choice == BlockChoice::Library) {
            int mode = 0;
            veksEncodeLZ77SelectHuffMode_8u(pairs, count, &mode, state_);
            type = mode ? 2 : 1;
            if (e.storedBits < (mode ? e.dynamicBits : e.fixedBits)) type = 0;
        } else {
            type = e.dynamicBits < e.fixedBits ? 2 : 1;
            if (e.storedBits < std::min(e.fixedBits, e.dynamicBits)) type = 0;
        }
        const int flush = last ? 3 : 0;
        VekStatus st = StatusDstSize;
        if (type == 0) {
            // As many stored blocks as 65535 bytes need; only the last may be final.
            const Vek8u* src = raw;
            size_t left = rawLen;
            do {
                int part = int(std::min<size_t>(left, kStoredMax));
                const int partFlush = size_t(part) == left ? flush : 0;
                left -= size_t(part);
                while ((st = veksEncodeLZ77StoredBlock_8u(&src, &part, &dst_, &room_, partFlush, state_)) ==
                       StatusDstSize)
                    if (!drainOutput()) return false;
            } while (st == StatusOk && left > 0);
        } else {
            const Vek16u* p = pairs;
            int n = count;
            auto coder = type == 1 ? veksEncodeLZ77FixedHuff_8u : veksEncodeLZ77DynamicHuff_8u;
            while ((st = coder(&p, &n, &dst_, &room_, flush, state_)) == StatusDstSize)
                if (!drainOutput()) return false;
        }
        if (st != StatusOk) return fail("block coder", st), false;
        if (!last) veksEncodeLZ77SetStatus_8u(1, state_);
        return drainOutput();
    }

    void writeTrailer() {
        Vek8u trailer[8];
        Vek8u* dst = trailer;
        int room = 8;
        const VekStatus st = veksEncodeLZ77Flush_8u(&dst, &room, state_);
        if (st != StatusOk) return fail("veksEncodeLZ77Flush_8u", st);
        // ISIZE is the whole input modulo 2^32; the state counts only since
        // the last history cut.
        const uint32_t size = uint32_t(result_.bytesIn);
        for (int i = 0; i < 4; ++i) trailer[4 + i] = Vek8u(size >> (8 * i));
        push(trailer, size_t(dst - trailer));
    }

    Options options_;
    const WriteFn& write_;
    std::vector<Vek8u> out_;
    Vek8u* dst_ = nullptr;
    int room_ = 0;
    VekDeflateState* state_ = nullptr;
    uint64_t sinceCut_ = 0;
    Result result_;
};

}  // namespace

Result compressStream(const Options& options, const ReadFn& read, const WriteFn& write) {
    std::vector<Vek8u> slice(kInputSlice);
    Encoder encoder(options, write);
    return encoder.run([&](const Vek8u** data, bool* last) {
        int filled = 0;
        *last = false;
        while (filled < kInputSlice && !*last) {
            const long n = read(slice.data() + filled, kInputSlice - filled);
            if (n < 0) return n;
            *last = n == 0;
            filled += int(n);
        }
        *data = slice.data();
        return long(filled);
    });
}

std::vector<Vek8u> compressBuffer(const Vek8u* data, size_t len, const Options& options, Result* result) {
    // Slices of the caller's buffer itself, no copy; the output grows once
    // or twice at most.
    std::vector<Vek8u> out;
    out.reserve(len / 2 + 1024);
    size_t taken = 0;
    const WriteFn write = [&](const Vek8u* bytes, int n) {
        out.insert(out.end(), bytes, bytes + n);
        return true;
    };
    Encoder encoder(options, write);
    const Result r = encoder.run([&](const Vek8u** slice, bool* last) {
        const size_t n = std::min(len - taken, size_t(kInputSlice));
        *slice = data + taken;
        taken += n;
        *last = taken == len;
        return long(n);
    });
    if (result) *result = r;
    return out;
}

}  // namespace vekdeflate
