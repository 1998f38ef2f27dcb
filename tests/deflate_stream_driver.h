// A deflate stream made through the public API with every knob a test or
// the fuzz target wants to turn: the dictionary, how the input is cut into
// encoding calls, how many pairs each call may write and how much output
// room each coder call gets.  It returns the raw blocks followed by the
// trailer exactly as veksEncodeLZ77Flush_8u writes it, or an error text.
#ifndef VEK_TESTS_DEFLATE_STREAM_DRIVER_H
#define VEK_TESTS_DEFLATE_STREAM_DRIVER_H

#include <stdint.h>

#include <algorithm>
#include <string>
#include <vector>

#include "vek.h"

namespace vekstream {

struct Knobs {
    int comprClass = 1, checksumKind = 1;
    std::vector<uint8_t> dict;
    std::vector<int> chunks{1 << 20};  // input bytes per encoding call, taken in turn
    std::vector<int> pairRoom{65280};  // pairs each encoding call may write, in turn
    int outputRoom = 1 << 16;          // output bytes per coder call (1 or more)
};

struct Stream {
    std::vector<uint8_t> bytes;  // blocks, then the trailer
    std::string error;
};

inline Stream compress(const uint8_t* data, size_t size, const Knobs& k) {
    Stream out;
    auto fail = [&](const char* what, int status) {
        out.error = std::string(what) + " returned " + std::to_string(status);
        return out;
    };
    VekDeflateState* st = nullptr;
    if (int r = veksEncodeLZ77InitAlloc_8u(k.comprClass, k.checksumKind, &st)) return fail("InitAlloc", r);
    struct Release {
        VekDeflateState* st;
        ~Release() { veksLZ77Free_8u(st); }
    } release{st};
    if (!k.dict.empty())
        if (int r = veksEncodeLZ77SetDictionary_8u(k.dict.data(), int(k.dict.size()), st))
            return fail("SetDictionary", r);

    std::vector<uint8_t> room(std::max(1, k.outputRoom));
    // Runs a coder until it has written everything, room by room.
    auto drain = [&](auto coder) {
        int status;
        do {
            Vek8u* dst = room.data();
            int left = int(room.size());
            status = coder(&dst, &left);
            out.bytes.insert(out.bytes.end(), room.data(), dst);
        } while (status == StatusDstSize);
        return status;
    };
    // The pairs held become one block: fixed or dynamic as the library decides.
    auto codeBlock = [&](int flush) {
        Vek16u* list;
        int count, capacity, mode = 0;
        veksEncodeLZ77GetPairs_8u(&list, &count, &capacity, st);
        veksEncodeLZ77SetStatus_8u(2, st);
        if (int r = veksEncodeLZ77SelectHuffMode_8u(list, count, &mode, st)) return r;
        const Vek16u* pairs = list;
        int left = count;
        const int status = drain([&](Vek8u** dst, int* room) {
            return mode ? veksEncodeLZ77DynamicHuff_8u(&pairs, &left, dst, room, flush, st)
                        : veksEncodeLZ77FixedHuff_8u(&pairs, &left, dst, room, flush, st);
        });
        if (flush != 3) veksEncodeLZ77SetStatus_8u(1, st);  // the last block leaves status 3 for Flush
        return status;
    };

    size_t pos = 0, turn = 0, pairTurn = 0;
    for (;;) {
        const int chunk = int(std::min<size_t>(std::max(0, k.chunks[turn++ % k.chunks.size()]), size - pos));
        const bool last = pos + chunk == size;
        const Vek8u* src = data + pos;
        int left = chunk;
        do {
            Vek16u* list;
            int count, capacity;
            veksEncodeLZ77GetPairs_8u(&list, &count, &capacity, st);
            Vek16u* pairs = list + 2 * count;
            int space = std::min(capacity - count, std::max(0, k.pairRoom[pairTurn++ % k.pairRoom.size()]));
            const int status = veksEncodeLZ77_8u(&src, &left, &pairs, &space, last ? 3 : 0, st);
            if (status != StatusOk && status != StatusDstSize) return fail("EncodeLZ77", status);
            count = int(pairs - list) / 2;
            veksEncodeLZ77SetPairs_8u(list, count, capacity, st);
            if (count == capacity || (last && left == 0))
                if (int r = codeBlock(last && left == 0 ? 3 : 0)) return fail("block coder", r);
        } while (left > 0);
        pos += chunk;
        if (last) break;
    }
    if (int r = drain([&](Vek8u** dst, int* room) { return veksEncodeLZ77Flush_8u(dst, room, st); }))
        return fail("Flush", r);
    return out;
}

}  // namespace vekstream

#endif
