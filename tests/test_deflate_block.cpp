// The deflate block coders and the trailer: every level against level 0,
// the streams they write inflated by zlib back to exactly the data the
// pairs stand for (for output cut into pieces down to one byte per call),
// code lengths within their limits for the most skewed counts, the skew
// rule of the code choice, and the rules at entry.
#include <algorithm>
#include <memory>

#include "compression/deflate_huffman.h"
#include "compression/deflate_state.h"
#include "compression/deflate_status.h"
#include "harness.h"

#ifdef VEK_HAVE_ZLIB
#    include "zlib_client.h"
#endif

namespace vektest {
namespace {
using vek::deflate::BlockCoder;
using vek::deflate::DeflateState;

enum Coder { kStored = 0, kFixed = 1, kDynamic = 2 };

// A state as initialisation leaves it, for these tests alone: the coders
// need nothing of the match finder.
std::unique_ptr<DeflateState> freshState(int checksumKind = VekDeflateCrc32) {
    auto s = std::make_unique<DeflateState>();
    s->pairs = s->pairStorage;
    s->checksumKind = checksumKind;
    return s;
}
VekDeflateState* opaque(DeflateState* s) { return reinterpret_cast<VekDeflateState*>(s); }

// Random pairs that stand for data appended to `data` (which may already
// hold earlier blocks' data): matches reach back only within it.  Styles:
// 0 random literals, 1 a few literal values, 2 mostly matches, 3 long
// matches at far and near distances.
std::vector<Vek16u> randomPairs(int count, std::vector<uint8_t>& data, int style) {
    std::vector<Vek16u> pairs;
    Rng& r = rng();
    for (int i = 0; i < count; ++i) {
        const bool match = !data.empty() && (style == 2 ? r() % 4 != 0 : style == 3 ? r() % 2 == 0 : r() % 8 == 0);
        if (match) {
            const int maxDistance = int(std::min<size_t>(data.size(), 32768));
            int distance = 1 + int(r() % maxDistance);
            if (style == 3 && r() % 2) distance = r() % 2 ? maxDistance : std::min(maxDistance, 1 + int(r() % 4));
            const int length = style == 3 ? 200 + int(r() % 59) : 3 + int(r() % (r() % 4 ? 20 : 256));
            for (int k = 0; k < length; ++k) data.push_back(data[data.size() - distance]);
            pairs.push_back(Vek16u(length));
            pairs.push_back(Vek16u(distance));
        } else {
            const uint8_t byte = style == 1 ? uint8_t('a' + r() % 3) : uint8_t(r());
            data.push_back(byte);
            pairs.push_back(byte);
            pairs.push_back(0);
        }
    }
    return pairs;
}

// Codes one block through the table entry of `level`, offering at most
// `chunk` bytes of room per call, and appends the bytes to `out`.
VekStatus codeBlock(int level, Coder coder, const Vek16u* pairs, int pairCount, const uint8_t* raw, int rawLen,
                    int flush, DeflateState* s, std::vector<uint8_t>& out, int chunk) {
    // The pairs, the bytes and each call's room end at a no-access page.
    GuardedArray<Vek8u> room(chunk);
    InputArray<Vek16u> pairCopy(2 * pairCount);
    InputArray<Vek8u> rawCopy(rawLen);
    if (pairCount) memcpy(pairCopy.data(), pairs, 4 * size_t(pairCount));
    if (rawLen) memcpy(rawCopy.data(), raw, rawLen);
    const Vek16u* p = pairCopy.data();
    const Vek8u* src = rawCopy.data();
    int left = coder == kStored ? rawLen : pairCount;
    for (int calls = 0; calls < 10000000; ++calls) {
        Vek8u* dst = room.data();
        int dstLen = chunk;
        VekStatus st;
        if (coder == kStored)
            st = vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](&src, &left, &dst, &dstLen, flush, opaque(s));
        else if (coder == kFixed)
            st = vek::vekTable_veksEncodeLZ77FixedHuff_8u[level](&p, &left, &dst, &dstLen, flush, opaque(s));
        else
            st = vek::vekTable_veksEncodeLZ77DynamicHuff_8u[level](&p, &left, &dst, &dstLen, flush, opaque(s));
        if (dst - room.data() != chunk - dstLen) return StatusUnknown;  // pointer and length disagree
        out.insert(out.end(), room.data(), dst);
        if (st != StatusDstSize) return st;
    }
    return StatusUnknown;
}

VekStatus writeTrailer(int level, DeflateState* s, std::vector<uint8_t>& out, int chunk) {
    GuardedArray<Vek8u> room(chunk);
    for (;;) {
        Vek8u* dst = room.data();
        int dstLen = chunk;
        const VekStatus st = vek::vekTable_veksEncodeLZ77Flush_8u[level](&dst, &dstLen, opaque(s));
        out.insert(out.end(), room.data(), dst);
        if (st != StatusDstSize) return st;
    }
}

// A stream of several blocks of random pairs, each written by a coder
// chosen at random (stored blocks carry the bytes their pairs stand for).
struct TestStream {
    std::vector<uint8_t> data;
    std::vector<std::vector<Vek16u>> blocks;
    std::vector<Coder> coders;
    std::vector<size_t> dataEnd;  // data size after each block
};
TestStream randomStream(int blocks, int maxPairs) {
    TestStream t;
    for (int b = 0; b < blocks; ++b) {
        t.blocks.push_back(randomPairs(int(rng()() % (maxPairs + 1)), t.data, int(rng()() % 4)));
        t.dataEnd.push_back(t.data.size());
        const size_t raw = t.dataEnd[b] - (b ? t.dataEnd[b - 1] : 0);
        t.coders.push_back(Coder(rng()() % (raw > 65535 ? 2 : 3) + (raw > 65535)));
    }
    return t;
}
VekStatus writeStream(int level, const TestStream& t, int chunk, std::vector<uint8_t>& out) {
    auto s = freshState();
    size_t begin = 0;
    for (size_t b = 0; b < t.blocks.size(); ++b) {
        const int flush = b + 1 == t.blocks.size() ? VekDeflateLastBlock : VekDeflateNoFlush;
        const size_t rawLen = t.dataEnd[b] - begin;
        if (t.coders[b] == kStored && rawLen > 65535) return StatusSize;
        const VekStatus st = codeBlock(level, t.coders[b], t.blocks[b].data(), int(t.blocks[b].size() / 2),
                                       t.data.data() + begin, int(rawLen), flush, s.get(), out, chunk);
        if (st != StatusOk) return st;
        begin = t.dataEnd[b];
    }
    int status = -1;
    vek::vekTable_veksEncodeLZ77GetStatus_8u[level](&status, opaque(s.get()));
    return status == VekDeflateComplete ? StatusOk : StatusUnknown;
}

#ifdef VEK_HAVE_ZLIB
// Raw inflate; true when the stream ends exactly at the end of `in`.
bool inflateRaw(const std::vector<uint8_t>& in, std::vector<uint8_t>& out, size_t expected) {
    const Inflated r = inflateStream(in.data(), in.size(), -15);
    out = r.bytes;
    const bool whole = r.complete && r.used == in.size();
    if (!whole)
        ADD_FAILURE() << "inflate: " << r.error << ", " << in.size() - r.used << " of " << in.size() << " bytes left, "
                      << out.size() << " of " << expected << " out";
    return whole;
}
#endif

// ---- every level against level 0 --------------------------------------------

// One random stream written by each level through outputs of a random
// size; the bytes and the status must agree.
void diffCoders(Coder only) {
    for (int round = 0; round < rounds(20); ++round) {
        TestStream t = randomStream(1 + int(rng()() % 3), 300);
        std::fill(t.coders.begin(), t.coders.end(), only);
        const int chunk = 1 + int(rng()() % 50);
        GuardedArray<Vek8u> out(1 << 17);
        compareLevels(
            out, std::vector<Vek8u>(out.size(), 0),
            [&](int level) {
                std::vector<uint8_t> bytes;
                const VekStatus st = writeStream(level, t, chunk, bytes);
                std::copy(bytes.begin(), bytes.begin() + std::min<size_t>(bytes.size(), out.size()), out.data());
                return int(st);
            },
            "chunk " + std::to_string(chunk));
    }
}
VEK_DIFF_CASE(veksEncodeLZ77FixedHuff_8u, [] { diffCoders(kFixed); });
VEK_DIFF_CASE(veksEncodeLZ77DynamicHuff_8u, [] { diffCoders(kDynamic); });
VEK_DIFF_CASE(veksEncodeLZ77StoredBlock_8u, [] { diffCoders(kStored); });

VEK_DIFF_CASE(veksEncodeLZ77SelectHuffMode_8u, [] {
    for (int round = 0; round < rounds(200); ++round) {
        std::vector<uint8_t> data;
        const InputArray<Vek16u> pairs = guardedCopy(randomPairs(int(rng()() % 400), data, int(rng()() % 4)));
        GuardedArray<int> mode(1);
        compareLevels(
            mode, {-1},
            [&](int level) {
                auto s = freshState();
                vek::vekTable_veksEncodeLZ77SetStatus_8u[level](VekDeflateCoding, opaque(s.get()));
                return int(vek::vekTable_veksEncodeLZ77SelectHuffMode_8u[level](pairs.data(), int(pairs.size() / 2),
                                                                                mode.data(), opaque(s.get())));
            },
            "pairs " + std::to_string(pairs.size() / 2));
    }
});

VEK_DIFF_CASE(veksEncodeLZ77Flush_8u, [] {
    for (int round = 0; round < rounds(50); ++round) {
        const int kind = int(rng()() % 4), chunk = 1 + int(rng()() % 9);
        const Vek32u sum = rng()();
        const int pos = int(rng()() >> 1);
        GuardedArray<Vek8u> out(16);
        compareLevels(
            out, std::vector<Vek8u>(16, 0),
            [&](int level) {
                auto s = freshState(kind);
                s->checksum = sum;
                s->streamPos = pos;
                s->streamStatus = VekDeflateComplete;
                std::vector<uint8_t> bytes;
                const VekStatus st = writeTrailer(level, s.get(), bytes, chunk);
                std::copy(bytes.begin(), bytes.begin() + std::min<size_t>(bytes.size(), 16), out.data());
                return int(st);
            },
            "kind " + std::to_string(kind));
    }
});

VEK_DIFF_CASE(veksEncodeLZ77GetStatus_8u, [] {
    for (int status : std::initializer_list<int>{VekDeflateNotBegun, VekDeflateMatching, VekDeflateCoding,
                                                 VekDeflateComplete, -7, 12345}) {
        GuardedArray<int> got(1);
        compareLevels(
            got, {-1},
            [&](int level) {
                auto s = freshState();
                s->streamStatus = status;
                return int(vek::vekTable_veksEncodeLZ77GetStatus_8u[level](got.data(), opaque(s.get())));
            },
            "status " + std::to_string(status));
    }
});

VEK_DIFF_CASE(veksEncodeLZ77SetStatus_8u, [] {
    for (int status : std::initializer_list<int>{VekDeflateNotBegun, VekDeflateMatching, VekDeflateCoding,
                                                 VekDeflateComplete, 5, -1}) {
        GuardedArray<int> fields(5);
        compareLevels(
            fields, std::vector<int>(5, 0),
            [&](int level) {
                auto s = freshState();
                s->pairCount = 1234;
                s->pairCapacity = 5000;
                s->pairs = s->pairStorage + 10;
                const int st = vek::vekTable_veksEncodeLZ77SetStatus_8u[level](status, opaque(s.get()));
                const int got[5] = {s->streamStatus, s->pairCount, s->pairCapacity, int(s->pairs - s->pairStorage),
                                    s->coder.subStatus};
                std::copy(got, got + 5, fields.data());
                return st;
            },
            "status " + std::to_string(status));
    }
});

// ---- streams inflated by zlib ---------------------------------------------------

#ifdef VEK_HAVE_ZLIB
TEST(DeflateBlock, StreamsInflateToTheirDataHoweverTheOutputIsCut) {
    for (int level : availableLevels())
        for (int round = 0; round < rounds(30); ++round) {
            const TestStream t = randomStream(1 + int(rng()() % 4), round % 5 == 0 ? 3000 : 200);
            std::vector<uint8_t> whole;
            ASSERT_EQ(writeStream(level, t, 1 << 20, whole), StatusOk);
            std::vector<uint8_t> inflated;
            ASSERT_TRUE(inflateRaw(whole, inflated, t.data.size())) << "level " << level << " round " << round;
            ASSERT_TRUE(inflated == t.data) << "level " << level << " round " << round;
            for (int chunk : {1, 2, 3, 5, 7, 8, 13, 64, 1000}) {
                std::vector<uint8_t> cut;
                ASSERT_EQ(writeStream(level, t, chunk, cut), StatusOk);
                ASSERT_TRUE(cut == whole) << "level " << level << " round " << round << " chunk " << chunk;
            }
        }
}

TEST(DeflateBlock, EmptyAndSingleSymbolBlocksAreValid) {
    for (int level : availableLevels())
        for (Coder coder : {kStored, kFixed, kDynamic}) {
            // An empty last block, a block of one literal, one of one match.
            for (const std::vector<Vek16u>& pairs :
                 {std::vector<Vek16u>{}, std::vector<Vek16u>{'x', 0}, std::vector<Vek16u>{'x', 0, 258, 1}}) {
                std::vector<uint8_t> data;
                for (size_t i = 0; i < pairs.size(); i += 2)
                    for (int k = 0; k < (pairs[i + 1] ? pairs[i] : 1); ++k) data.push_back('x');
                auto s = freshState();
                std::vector<uint8_t> out;
                const Vek16u none[2] = {};
                data.reserve(1);  // a valid pointer even when empty
                ASSERT_EQ(codeBlock(level, coder, pairs.empty() ? none : pairs.data(), int(pairs.size() / 2),
                                    data.data(), int(data.size()), VekDeflateLastBlock, s.get(), out, 1),
                          StatusOk);
                std::vector<uint8_t> inflated;
                ASSERT_TRUE(inflateRaw(out, inflated, data.size())) << "coder " << coder << " pairs " << pairs.size();
                EXPECT_TRUE(inflated == data);
            }
        }
}
#endif

// ---- code lengths ------------------------------------------------------------------

// The cost of an optimal prefix code: the sum of the weights of the merged
// nodes, by repeatedly merging the two lightest.
uint64_t optimalCost(std::vector<uint64_t> w) {
    std::sort(w.begin(), w.end(), std::greater<uint64_t>());
    uint64_t cost = 0;
    while (w.size() > 1) {
        const uint64_t merged = w[w.size() - 1] + w[w.size() - 2];
        w.resize(w.size() - 2);
        w.insert(std::upper_bound(w.begin(), w.end(), merged, std::greater<uint64_t>()), merged);
        cost += merged;
    }
    return cost;
}

TEST(DeflateBlock, CodeLengthsAreCompleteWithinTheirLimitAndOptimalBelowIt) {
    for (int round = 0; round < rounds(300); ++round) {
        const int n = round % 3 == 0 ? 19 : round % 3 == 1 ? 30 : 286;
        const int limit = n == 19 ? 7 : 15;
        std::vector<Vek32u> counts(n, 0);
        const int style = round % 4;
        Vek32u a = 1, b = 1;  // Fibonacci counts: the deepest possible trees
        for (int s = 0; s < n; ++s) {
            if (style == 0)
                counts[s] = rng()() % 3 ? 0 : rng()() % 1000;
            else if (style == 1)
                counts[s] = (rng()() % 2) ? a : 0,
                std::tie(a, b) = std::make_pair(b, std::min<Vek32u>(a + b, 1u << 24));
            else if (style == 2)
                counts[s] = s < 2 + int(rng()() % 3) ? 1 + rng()() % 5 : 0;
            else
                counts[s] = 1u << (rng()() % 20);
        }
        std::vector<Vek8u> lengths(n);
        vek::plain::deflate::buildCodeLengths(counts.data(), n, limit, lengths.data());
        double kraft = 0;
        int codes = 0, longest = 0;
        uint64_t cost = 0;
        std::vector<uint64_t> used;
        for (int s = 0; s < n; ++s) {
            if (counts[s]) {
                ASSERT_GT(lengths[s], 0) << "a counted symbol has no code";
                used.push_back(counts[s]);
            }
            if (!lengths[s]) continue;
            ++codes;
            longest = std::max<int>(longest, lengths[s]);
            kraft += std::ldexp(1.0, -lengths[s]);
            cost += uint64_t(counts[s]) * lengths[s];
        }
        ASSERT_LE(longest, limit);
        ASSERT_GE(codes, 2);
        ASSERT_EQ(kraft, 1.0) << "incomplete or over-full code, round " << round;
        if (used.size() >= 2 && longest < limit) {
            EXPECT_EQ(cost, optimalCost(used)) << "round " << round;
        }
    }
}

#ifdef VEK_HAVE_ZLIB
TEST(DeflateBlock, SkewedCountsStayWithinFifteenBits) {
    // Literal counts 1, 1, 2, 3, 5, ... (26 symbols): an unlimited code
    // would be 25 bits deep.
    std::vector<int> symbols;
    Vek32u a = 1, b = 1;
    for (int sym = 0; sym < 26; ++sym) {
        symbols.insert(symbols.end(), a, sym);
        std::tie(a, b) = std::make_pair(b, a + b);
    }
    std::shuffle(symbols.begin(), symbols.end(), rng());
    std::vector<Vek16u> pairs;
    std::vector<uint8_t> data;
    for (int sym : symbols) pairs.push_back(Vek16u(sym)), pairs.push_back(0), data.push_back(uint8_t(sym));
    for (int level : availableLevels()) {
        auto s = freshState();
        std::vector<uint8_t> out;
        ASSERT_EQ(codeBlock(level, kDynamic, pairs.data(), int(pairs.size() / 2), nullptr, 0, VekDeflateLastBlock,
                            s.get(), out, 4096),
                  StatusOk);
        const BlockCoder& c = s->coder;
        EXPECT_LE(*std::max_element(c.litLenBits, c.litLenBits + 286), 15);
        EXPECT_LE(*std::max_element(c.codeLengthBits, c.codeLengthBits + 19), 7);
        std::vector<uint8_t> inflated;
        ASSERT_TRUE(inflateRaw(out, inflated, data.size()));
        EXPECT_TRUE(inflated == data);
    }
}
#endif

// ---- the choice of codes -----------------------------------------------------------

int selectMode(int level, DeflateState* s, const std::vector<Vek16u>& pairs, bool newBlock) {
    if (newBlock) vek::vekTable_veksEncodeLZ77SetStatus_8u[level](VekDeflateCoding, opaque(s));
    int mode = -1;
    const InputArray<Vek16u> in = guardedCopy(pairs);
    EXPECT_EQ(vek::vekTable_veksEncodeLZ77SelectHuffMode_8u[level](in.data(), int(pairs.size() / 2), &mode, opaque(s)),
              StatusOk);
    return mode;
}
std::vector<Vek16u> literals(const std::string& text) {
    std::vector<Vek16u> pairs;
    for (unsigned char ch : text) pairs.push_back(ch), pairs.push_back(0);
    return pairs;
}

TEST(DeflateBlock, SelectHuffModeFollowsTheSkewOfFirstAppearances) {
    for (int level : availableLevels()) {
        auto s = freshState();
        EXPECT_EQ(selectMode(level, s.get(), literals("bcdaaaaaaaaaa"), true), 1);  // W 46, m 3: 10 - 1 >= 3
        EXPECT_EQ(selectMode(level, s.get(), literals("aaaaaaaaaabcd"), true), 0);  // m 1: 10 - 10 < 3
        EXPECT_EQ(selectMode(level, s.get(), literals("qqqqqq"), true), 0);
        EXPECT_EQ(selectMode(level, s.get(), {}, true), 0);  // no pairs: fixed, no division
        // Without a new block the previous decision stands, whatever the pairs.
        EXPECT_EQ(selectMode(level, s.get(), literals("bcdaaaaaaaaaa"), true), 1);
        EXPECT_EQ(selectMode(level, s.get(), literals("aaaaaaaaaabcd"), false), 1);
        EXPECT_EQ(selectMode(level, s.get(), literals("aaaaaaaaaabcd"), true), 0);
        EXPECT_EQ(selectMode(level, s.get(), literals("bcdaaaaaaaaaa"), false), 0);
        // A match counts as its length symbol: three distinct lengths, then
        // one length ten times, as the literals above.
        std::vector<Vek16u> matches = literals("x");
        for (int len : {3, 4, 5}) matches.insert(matches.end(), {Vek16u(len), 1});
        for (int k = 0; k < 10; ++k) matches.insert(matches.end(), {Vek16u(258), 1});
        EXPECT_EQ(selectMode(level, s.get(), matches, true), 1);
        EXPECT_EQ(s->coder.litLen[285].count, 10u);
        EXPECT_EQ(s->coder.dist[0].count, 13u);
        EXPECT_EQ(s->coder.litLen[256].count, 1u);
    }
}

// ---- stored blocks and the trailer --------------------------------------------------

TEST(DeflateBlock, StoredBlockLimitsAndResumption) {
    std::vector<uint8_t> data(65536);
    for (auto& b : data) b = uint8_t(rng()());
    for (int level : availableLevels()) {
        auto s = freshState();
        std::vector<uint8_t> out;
        EXPECT_EQ(codeBlock(level, kStored, nullptr, 0, data.data(), 65536, VekDeflateLastBlock, s.get(), out, 100000),
                  StatusSize);
        EXPECT_TRUE(out.empty());
        std::vector<uint8_t> whole, cut;
        ASSERT_EQ(
            codeBlock(level, kStored, nullptr, 0, data.data(), 65535, VekDeflateLastBlock, s.get(), whole, 100000),
            StatusOk);
        ASSERT_EQ(whole.size(), 65535u + 5);
        EXPECT_EQ(whole[0], 1);  // BFINAL, type 00, padding
        EXPECT_EQ(whole[1] | whole[2] << 8, 65535);
        EXPECT_EQ(whole[3] | whole[4] << 8, 0);
        auto t = freshState();
        ASSERT_EQ(codeBlock(level, kStored, nullptr, 0, data.data(), 65535, VekDeflateLastBlock, t.get(), cut, 1),
                  StatusOk);
        EXPECT_TRUE(cut == whole);
        // After bits of a fixed block: the header goes on in the same byte
        // and the padding takes the count to a byte boundary.
        auto u = freshState();
        std::vector<uint8_t> mixed;
        const std::vector<Vek16u> one = literals("x");
        ASSERT_EQ(codeBlock(level, kFixed, one.data(), 1, nullptr, 0, VekDeflateNoFlush, u.get(), mixed, 1), StatusOk);
        ASSERT_EQ(codeBlock(level, kStored, nullptr, 0, data.data(), 3, VekDeflateLastBlock, u.get(), mixed, 1),
                  StatusOk);
        EXPECT_EQ(mixed.size(), 2u + 1 + 4 + 3);  // 3 + 8 + 7 + 3 bits, then LEN/NLEN and the data
    }
}

TEST(DeflateBlock, TrailerBytesAndResumption) {
    for (int level : availableLevels())
        for (int kind : std::initializer_list<int>{VekDeflateNoChecksum, VekDeflateAdler32, VekDeflateCrc32, 7}) {
            auto s = freshState(kind);
            s->checksum = 0x11223344;
            s->streamPos = 0x55667788;
            std::vector<uint8_t> out;
            Vek8u room[16];
            Vek8u* dst = room;
            int len = 16;
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77Flush_8u[level](&dst, &len, opaque(s.get())), StatusUnknown);
            EXPECT_EQ(len, 16);  // no last block yet: nothing written
            s->streamStatus = VekDeflateComplete;
            const VekStatus st = writeTrailer(level, s.get(), out, 1);
            if (kind == 7) {
                EXPECT_EQ(st, StatusUnknown);
                EXPECT_TRUE(out.empty());
                continue;
            }
            ASSERT_EQ(st, StatusOk);
            const std::vector<uint8_t> expected =
                kind == VekDeflateAdler32 ? std::vector<uint8_t>{0x11, 0x22, 0x33, 0x44}
                                          : std::vector<uint8_t>{0x44, 0x33, 0x22, 0x11, 0x88, 0x77, 0x66, 0x55};
            EXPECT_TRUE(out == expected) << "kind " << kind;
            EXPECT_EQ(s->coder.subStatus, vek::deflate::kNothingPending);
            out.clear();  // and again, afresh
            ASSERT_EQ(writeTrailer(level, s.get(), out, 3), StatusOk);
            EXPECT_TRUE(out == expected);
        }
}

// ---- rules at entry -------------------------------------------------------------------

// A call that resumes a block with the rest of the same list checks nothing
// again; given another list, it checks the pairs it can reach first.
TEST(DeflateBlock, AResumedBlockChecksAnotherList) {
    for (int level : availableLevels())
        for (auto huff :
             {vek::vekTable_veksEncodeLZ77FixedHuff_8u[level], vek::vekTable_veksEncodeLZ77DynamicHuff_8u[level]}) {
            auto s = freshState();
            const std::vector<Vek16u> list = literals("abcabcabcabcabcabcabcabcabcabc");
            const Vek16u* pairs = list.data();
            int n = int(list.size() / 2), room = 1;
            Vek8u out[8];
            Vek8u* dst = out;
            ASSERT_EQ(huff(&pairs, &n, &dst, &room, VekDeflateNoFlush, opaque(s.get())), StatusDstSize);
            std::vector<Vek16u> other(pairs, list.data() + list.size());
            other[0] = 'z';  // no code in the dynamic block
            if (huff == vek::vekTable_veksEncodeLZ77FixedHuff_8u[level]) other[0] = 300;
            const Vek16u* o = other.data();
            int on = n;
            dst = out, room = 1;
            EXPECT_EQ(huff(&o, &on, &dst, &room, VekDeflateNoFlush, opaque(s.get())), StatusBadArgument);
            EXPECT_EQ(o, other.data());
            EXPECT_EQ(room, 1);
            VekStatus st;
            do {
                dst = out, room = 1;
            } while ((st = huff(&pairs, &n, &dst, &room, VekDeflateNoFlush, opaque(s.get()))) == StatusDstSize);
            EXPECT_EQ(st, StatusOk);
            EXPECT_EQ(n, 0);
        }
}

TEST(DeflateBlock, ChecksInOrderAndNothingWrittenOnFailure) {
    for (int level : availableLevels()) {
        auto s = freshState();
        VekDeflateState* st = opaque(s.get());
        const std::vector<Vek16u> good = literals("abc");
        const Vek16u* pairs = good.data();
        const Vek8u* src = reinterpret_cast<const Vek8u*>("abc");
        Vek8u room[64];
        memset(room, 0xEE, sizeof room);
        Vek8u* dst = room;
        Vek8u* nullDst = nullptr;
        const Vek16u* nullPairs = nullptr;
        int pairsLen = 3, dstLen = 64, bad = -1, zero = 0;
        for (auto huff :
             {vek::vekTable_veksEncodeLZ77FixedHuff_8u[level], vek::vekTable_veksEncodeLZ77DynamicHuff_8u[level]}) {
            EXPECT_EQ(huff(nullptr, &pairsLen, &dst, &dstLen, VekDeflateNoFlush, st), StatusNullPointer);
            EXPECT_EQ(huff(&nullPairs, &pairsLen, &dst, &dstLen, VekDeflateNoFlush, st), StatusNullPointer);
            EXPECT_EQ(huff(&pairs, &pairsLen, &nullDst, &dstLen, VekDeflateNoFlush, st), StatusNullPointer);
            EXPECT_EQ(huff(&pairs, &pairsLen, &dst, &dstLen, 0, nullptr), StatusNullPointer);
            EXPECT_EQ(huff(&pairs, &bad, &dst, &zero, VekDeflateNoFlush, st),
                      StatusSize);  // sizes before the empty output
            EXPECT_EQ(huff(&pairs, &pairsLen, &dst, &bad, VekDeflateNoFlush, st), StatusSize);
            EXPECT_EQ(huff(&pairs, &pairsLen, &dst, &zero, VekDeflateNoFlush, st), StatusDstSize);
            EXPECT_EQ(s->coder.subStatus, vek::deflate::kStopped);
            for (const std::vector<Vek16u>& wrong : {std::vector<Vek16u>{'a', 0, 256, 0}, std::vector<Vek16u>{2, 1},
                                                     std::vector<Vek16u>{259, 1}, std::vector<Vek16u>{3, 32769}}) {
                const Vek16u* w = wrong.data();
                int n = int(wrong.size() / 2);
                EXPECT_EQ(huff(&w, &n, &dst, &dstLen, VekDeflateNoFlush, st), StatusBadArgument);
                EXPECT_EQ(w, wrong.data());
            }
            EXPECT_EQ(dst, room);
            EXPECT_EQ(dstLen, 64);
        }
        int srcLen = 3, big = 65536;
        EXPECT_EQ(
            vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](nullptr, &srcLen, &dst, &dstLen, VekDeflateNoFlush, st),
            StatusNullPointer);
        EXPECT_EQ(
            vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](&src, &srcLen, &dst, nullptr, VekDeflateNoFlush, st),
            StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](&src, &big, &dst, &zero, VekDeflateNoFlush, st),
                  StatusDstSize);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](&src, &big, &dst, &dstLen, VekDeflateNoFlush, st),
                  StatusSize);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](&src, &bad, &dst, &dstLen, VekDeflateNoFlush, st),
                  StatusSize);
        int mode = 9;
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77SelectHuffMode_8u[level](nullptr, 1, &mode, st), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77SelectHuffMode_8u[level](pairs, 1, nullptr, st), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77SelectHuffMode_8u[level](pairs, -1, &mode, st), StatusSize);
        EXPECT_EQ(mode, 9);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Flush_8u[level](&nullDst, &dstLen, st), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Flush_8u[level](&dst, &bad, st), StatusSize);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetStatus_8u[level](nullptr, st), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetStatus_8u[level](&mode, nullptr), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77SetStatus_8u[level](VekDeflateMatching, nullptr), StatusNullPointer);
        EXPECT_EQ(dst, room);
        EXPECT_EQ(dstLen, 64);
        for (Vek8u b : room) ASSERT_EQ(b, 0xEE);

        // A block left open by a full output belongs to its coder.
        int one = 1;
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77FixedHuff_8u[level](&pairs, &pairsLen, &dst, &one, VekDeflateNoFlush, st),
                  StatusDstSize);
        EXPECT_EQ(
            vek::vekTable_veksEncodeLZ77DynamicHuff_8u[level](&pairs, &pairsLen, &dst, &dstLen, VekDeflateNoFlush, st),
            StatusContextMismatch);
        EXPECT_EQ(
            vek::vekTable_veksEncodeLZ77StoredBlock_8u[level](&src, &srcLen, &dst, &dstLen, VekDeflateNoFlush, st),
            StatusContextMismatch);
    }
}

TEST(DeflateBlock, StatusWordsAndThePairList) {
    for (int level : availableLevels()) {
        auto s = freshState();
        VekDeflateState* st = opaque(s.get());
        int status = -1;
        ASSERT_EQ(vek::vekTable_veksEncodeLZ77GetStatus_8u[level](&status, st), StatusOk);
        EXPECT_EQ(status, VekDeflateNotBegun);
        s->pairCount = 700;
        ASSERT_EQ(vek::vekTable_veksEncodeLZ77SetStatus_8u[level](VekDeflateCoding, st), StatusOk);
        EXPECT_EQ(s->pairCapacity, 700);
        EXPECT_EQ(s->pairCount, 0);
        EXPECT_EQ(s->coder.subStatus, vek::deflate::kNewBlock);
        ASSERT_EQ(vek::vekTable_veksEncodeLZ77SetStatus_8u[level](VekDeflateMatching, st), StatusOk);
        EXPECT_EQ(s->pairCapacity, 65280);
        EXPECT_EQ(s->pairCount, 0);
        EXPECT_EQ(s->pairs, s->pairStorage);
        vek::vekTable_veksEncodeLZ77GetStatus_8u[level](&status, st);
        EXPECT_EQ(status, VekDeflateMatching);
        // Only a complete last block makes the stream complete.
        const std::vector<Vek16u> pairs = literals("hello");
        std::vector<uint8_t> out;
        ASSERT_EQ(codeBlock(level, kDynamic, pairs.data(), 5, nullptr, 0, VekDeflateNoFlush, s.get(), out, 64),
                  StatusOk);
        vek::vekTable_veksEncodeLZ77GetStatus_8u[level](&status, st);
        EXPECT_EQ(status, VekDeflateMatching);
        ASSERT_EQ(codeBlock(level, kFixed, pairs.data(), 5, nullptr, 0, VekDeflateLastBlock, s.get(), out, 1),
                  StatusOk);
        vek::vekTable_veksEncodeLZ77GetStatus_8u[level](&status, st);
        EXPECT_EQ(status, VekDeflateComplete);
        EXPECT_EQ(s->coder.bitCount, 0);  // the trailer starts on a byte
    }
}

}  // namespace
}  // namespace vektest
