// Run-length coding: every level against level 0 over every output room,
// round trips through chunked encoding, the encoder against a reference
// written from the runs of its input, the decoder against one written
// from the item format, the pinned cases of the code, and the rules at
// entry.
#include "harness.h"

namespace vektest {
namespace {

using Bytes = std::vector<uint8_t>;
using RleFn = VekStatus(VEK_CALL*)(const Vek8u**, int*, Vek8u*, int*);

RleFn encoder(int level) { return vek::vekTable_veksEncodeRLE_8u[level]; }
RleFn decoder(int level) { return vek::vekTable_veksDecodeRLE_8u[level]; }

// Random bytes, runs of 1..300 equal bytes (past the 257 split), or words
// of text with the odd doubled letter.
enum class Kind { Random, Runs, Text };
Bytes rleInput(Kind kind, int len) {
    Bytes v;
    Rng& r = rng();
    while (int(v.size()) < len) switch (kind) {
        case Kind::Random: v.push_back(static_cast<uint8_t>(r() % (r() % 2 ? 256 : 3))); break;
        case Kind::Runs: v.insert(v.end(), 1 + (r() % 8 ? r() % 20 : r() % 300), static_cast<uint8_t>(r() % 3)); break;
        case Kind::Text: {
            static const char* const words[] = {"a", "little", "coffee", "off", "three", "see", "bookkeeper", "zzz"};
            for (const char* w = words[r() % 8]; *w; ++w) v.push_back(uint8_t(*w));
            v.push_back(r() % 5 ? ' ' : '\n');
        }
        }
    v.resize(len);
    return v;
}

// One call's visible effect: status, bytes taken, lengths left, bytes out.
struct RleResult {
    int status, taken, srcLenAfter, dstLenAfter;
    Bytes out;
    bool operator==(const RleResult& o) const {
        return status == o.status && taken == o.taken && srcLenAfter == o.srcLenAfter && dstLenAfter == o.dstLenAfter &&
               out == o.out;
    }
};

// Runs fn on `in` (ending at the end of its heap block) with `room` bytes
// of output between guards; checks the guards and that nothing past the
// reported count was written.
RleResult runRle(RleFn fn, const Bytes& in, int room, int offset = 0) {
    InputArray<Vek8u> src(int(in.size()), offset);
    memcpy(src.data(), in.data(), in.size());
    GuardedArray<Vek8u> dst(room);
    const Vek8u* p = src.data();
    int srcLen = int(in.size()), dstLen = room;
    RleResult r;
    r.status = fn(&p, &srcLen, dst.data(), &dstLen);
    r.taken = int(p - src.data());
    r.srcLenAfter = srcLen;
    r.dstLenAfter = dstLen;
    EXPECT_TRUE(dst.guardsIntact());
    const Bytes all = dst.contents();
    for (int i = std::max(dstLen, 0); i < room; ++i) EXPECT_EQ(all[i], kGuard) << "byte " << i << " past the count";
    r.out.assign(all.begin(), all.begin() + std::max(0, std::min(dstLen, room)));
    return r;
}

// The run-length code of a whole input with room to spare, from its runs.
Bytes referenceEncode(const Bytes& in) {
    Bytes out;
    for (size_t i = 0; i < in.size();) {
        size_t run = 1;
        while (i + run < in.size() && in[i + run] == in[i]) ++run;
        const uint8_t b = in[i];
        i += run;
        for (; run >= 2; run -= std::min<size_t>(run, 257)) {
            const size_t piece = std::min<size_t>(run, 257);
            out.insert(out.end(), {b, b, uint8_t(piece - 2)});
        }
        if (run == 1) out.push_back(b);
    }
    return out;
}

// Decodes one whole chunk from the item format: items from the front while
// more than 2 bytes are left, then the rest as plain bytes.
Bytes referenceDecode(const Bytes& chunk) {
    Bytes out;
    size_t i = 0;
    while (chunk.size() - i > 2) {
        if (chunk[i + 1] == chunk[i]) {
            out.insert(out.end(), size_t(chunk[i + 2]) + 2, chunk[i]);
            i += 3;
        } else {
            out.push_back(chunk[i++]);
        }
    }
    out.insert(out.end(), chunk.begin() + i, chunk.end());
    return out;
}

// The coded form of `in` (with room to spare), as the source of decoding.
Bytes encodeWhole(const Bytes& in) { return runRle(encoder(0), in, int(in.size()) * 3 / 2 + 3).out; }

// Every level agrees with level 0 for every room from 1 to a bit more
// than the whole result needs.
void diffRle(RleFn (*fn)(int), bool decode) {
    for (int round = 0; round < rounds(2); ++round)
        for (Kind kind : {Kind::Random, Kind::Runs, Kind::Text})
            for (int len : testLengths()) {
                if (len > 1000) continue;
                Bytes in = rleInput(kind, len);
                if (decode && rng()() % 4) in = encodeWhole(in);  // mostly coded data, sometimes any bytes
                const int offset = int(rng()() % 16), most = int(in.size()) * (decode ? 260 : 2) + 3;
                for (int room = 1; room <= most; room += room < 300 ? 1 : 1 + room / 8) {
                    const RleResult ref = runRle(fn(0), in, room, offset);
                    for (int level : availableLevels()) {
                        if (level == 0) continue;
                        ASSERT_TRUE(runRle(fn(level), in, room, offset) == ref)
                            << "level " << level << " len " << in.size() << " room " << room;
                    }
                }
            }
}

VEK_DIFF_CASE(veksEncodeRLE_8u, [] { diffRle(encoder, false); });
VEK_DIFF_CASE(veksDecodeRLE_8u, [] { diffRle(decoder, true); });

// Encoding with room to spare is the code of the input's runs, and the
// item decoder gives the input back.
TEST(RunLength, WholeInputsMatchTheReferences) {
    for (int level : availableLevels())
        for (Kind kind : {Kind::Random, Kind::Runs, Kind::Text})
            for (int len : testLengths()) {
                const Bytes in = rleInput(kind, len);
                const RleResult enc = runRle(encoder(level), in, len * 3 / 2 + 3);
                ASSERT_EQ(enc.status, StatusOk);
                ASSERT_EQ(enc.taken, len);
                ASSERT_EQ(enc.out, referenceEncode(in)) << "level " << level << " len " << len;
                ASSERT_EQ(referenceDecode(enc.out), in);
                const RleResult dec = runRle(decoder(level), enc.out, len);
                ASSERT_EQ(dec.status, StatusOk);
                ASSERT_EQ(dec.out, in) << "level " << level << " len " << len;
            }
}

// Encoding in chunks of any room, each chunk decoded with exactly its own
// length, gives the input back; each chunk also decodes by the reference.
TEST(RunLength, ChunkedRoundTrips) {
    for (int level : availableLevels())
        for (int round = 0; round < rounds(40); ++round) {
            const Kind kind = Kind(rng()() % 3);
            const Bytes in = rleInput(kind, 1 + int(rng()() % 3000));
            Bytes back;
            const Vek8u* p = in.data();
            int left = int(in.size());
            while (left > 0) {
                const int room = 1 + int(rng()() % (rng()() % 2 ? 8 : 600));
                Bytes chunk(room);
                const Vek8u* before = p;
                int written = room;
                const VekStatus s = encoder(level)(&p, &left, chunk.data(), &written);
                ASSERT_EQ(s, left ? StatusDstSize : StatusOk);
                ASSERT_GT(written, 0);
                chunk.resize(written);
                const Bytes expect(before, p);
                ASSERT_EQ(referenceDecode(chunk), expect) << "level " << level << " room " << room;
                const RleResult dec = runRle(decoder(level), chunk, int(expect.size()));
                ASSERT_EQ(dec.status, StatusOk);
                ASSERT_EQ(dec.out, expect) << "level " << level << " room " << room;
                back.insert(back.end(), expect.begin(), expect.end());
            }
            ASSERT_EQ(back, in);
        }
}

TEST(RunLength, PinnedCases) {
    const auto same = [](int n, uint8_t b) { return Bytes(size_t(n), b); };
    for (int level : availableLevels()) {
        SCOPED_TRACE("level " + std::to_string(level));
        EXPECT_EQ(runRle(encoder(level), {'a', 'a', 'a', 'b'}, 10).out, (Bytes{'a', 'a', 1, 'b'}));
        EXPECT_EQ(runRle(encoder(level), {'a', 'b'}, 10).out, (Bytes{'a', 'b'}));
        EXPECT_EQ(runRle(encoder(level), same(257, 7), 10).out, (Bytes{7, 7, 255}));
        EXPECT_EQ(runRle(encoder(level), same(258, 7), 10).out, (Bytes{7, 7, 255, 7}));
        EXPECT_EQ(runRle(encoder(level), same(2, 7), 10).out, (Bytes{7, 7, 0}));
        EXPECT_EQ(runRle(decoder(level), {7, 7, 0}, 10).out, same(2, 7));
        EXPECT_EQ(runRle(decoder(level), {7, 7, 255, 7}, 300).out, same(258, 7));
        // Chunks of 1 or 2 bytes are plain, even when they look like a run.
        EXPECT_EQ(runRle(decoder(level), {7, 7}, 10).out, (Bytes{7, 7}));
        EXPECT_EQ(runRle(decoder(level), {9}, 10).out, (Bytes{9}));

        // Room 3: one literal item, then 2 source bytes plainly.
        RleResult r = runRle(encoder(level), {'a', 'b', 'b', 'b', 'c'}, 3);
        EXPECT_EQ(r.out, (Bytes{'a', 'b', 'b'}));
        EXPECT_EQ(r.status, StatusDstSize);
        EXPECT_EQ(r.taken, 3);
        EXPECT_EQ(r.srcLenAfter, 2);
        // Room 3 with a run item first: nothing plain after it.
        r = runRle(encoder(level), {'a', 'a', 'a', 'a', 'c'}, 3);
        EXPECT_EQ(r.out, (Bytes{'a', 'a', 2}));
        EXPECT_EQ(r.taken, 4);
        EXPECT_EQ(r.status, StatusDstSize);

        // A run item that does not fit whole stops the decoder at the item.
        r = runRle(decoder(level), {'x', 'a', 'a', 5, 'y', 'z'}, 4);
        EXPECT_EQ(r.out, (Bytes{'x'}));
        EXPECT_EQ(r.status, StatusDstSize);
        EXPECT_EQ(r.taken, 1);
        EXPECT_EQ(r.dstLenAfter, 1);
        r = runRle(decoder(level), {'a', 'a', 5, 'y', 'z'}, 7);  // exactly fits
        EXPECT_EQ(r.out, (Bytes{'a', 'a', 'a', 'a', 'a', 'a', 'a'}));
        EXPECT_EQ(r.taken, 3);
        EXPECT_EQ(r.status, StatusDstSize);
    }
}

TEST(RunLength, RulesAtEntry) {
    for (int level : availableLevels())
        for (RleFn fn : {encoder(level), decoder(level)}) {
            SCOPED_TRACE("level " + std::to_string(level));
            const Vek8u data[4] = {1, 1, 2, 3};
            const Vek8u* p = data;
            const Vek8u* none = nullptr;
            Vek8u out[8];
            memset(out, 0xEE, sizeof out);
            int srcLen = 4, dstLen = 8, zero = 0;
            EXPECT_EQ(fn(nullptr, &srcLen, out, &dstLen), StatusNullPointer);
            EXPECT_EQ(fn(&p, nullptr, out, &dstLen), StatusNullPointer);
            EXPECT_EQ(fn(&p, &srcLen, nullptr, &dstLen), StatusNullPointer);
            EXPECT_EQ(fn(&p, &srcLen, out, nullptr), StatusNullPointer);
            EXPECT_EQ(fn(&none, &zero, out, &zero), StatusNullPointer);  // pointers before sizes
            EXPECT_EQ(fn(&p, &zero, out, &dstLen), StatusSize);
            EXPECT_EQ(fn(&p, &srcLen, out, &zero), StatusSize);
            int negative = -3;
            EXPECT_EQ(fn(&p, &negative, out, &dstLen), StatusSize);
            EXPECT_EQ(p, data);
            EXPECT_EQ(srcLen, 4);
            EXPECT_EQ(dstLen, 8);
            EXPECT_EQ(zero, 0);
            EXPECT_EQ(negative, -3);
            for (Vek8u b : out) EXPECT_EQ(b, 0xEE);
        }
}

}  // namespace
}  // namespace vektest
