// The deflate match finder: every level against level 0 (pairs, consumed
// counts, statuses and the whole state the calls leave), the pairs against
// the input they must expand to, the pinned behaviours of the three classes,
// and the rules at entry.
#include <set>

#include "compression/deflate_hash_tables.h"
#include "compression/deflate_state.h"
#include "compression/deflate_tables.h"
#include "harness.h"

namespace vektest {
namespace {

using vek::deflate::DeflateState;

const int kClasses[] = {VekDeflateFast, VekDeflateDefault, VekDeflateBest};

// ---- inputs ------------------------------------------------------------------

enum class DataKind { Text, Random, Runs, Mixed };

std::vector<uint8_t> makeData(DataKind kind, int n) {
    static const char* const words[] = {"the ",   "deflate ", "stream ",  "of ", "pairs ", "and ", "literal ",
                                        "match ", "window ",  "history ", "\n",  "0123 ",  "vek "};
    std::vector<uint8_t> v;
    v.reserve(n);
    Rng& r = rng();
    while (int(v.size()) < n) {
        DataKind k = kind == DataKind::Mixed ? DataKind(r() % 3) : kind;
        if (k == DataKind::Text) {
            for (const char* w = words[r() % 13]; *w; ++w) v.push_back(uint8_t(*w));
        } else if (k == DataKind::Random) {
            for (int i = 0; i < 1 + int(r() % 64); ++i) v.push_back(uint8_t(r()));
        } else {
            const uint8_t b = uint8_t(r() % 4), len = uint8_t(1 + r() % 200);
            for (int i = 0; i < len; ++i) v.push_back(b);
        }
    }
    v.resize(n);
    return v;
}

// ---- driving a state through the exports of one level ----------------------

// One stream: an optional dictionary, then the data in chunks, each chunk
// fed with one flush mode in as many calls as the pair capacities need.
// Capacities are taken in turn, one per call.
struct Scenario {
    int comprClass = VekDeflateDefault, checksumKind = VekDeflateAdler32;
    bool allocate = false;  // InitAlloc rather than Init on a caller block
    std::vector<uint8_t> dict;
    std::vector<uint8_t> data;
    std::vector<int> chunks, flushes;
    std::vector<int> capacities{vek::deflate::kPairCapacity};
    bool resetAndRepeat = false;  // after the stream, Reset and feed the same data again in one call
};

struct CallRecord {
    int status, consumed, pairs, flush;
    bool operator==(const CallRecord& o) const {
        return status == o.status && consumed == o.consumed && pairs == o.pairs && flush == o.flush;
    }
};

struct Record {
    int dictStatus = 0;
    std::vector<CallRecord> calls;
    std::vector<Vek16u> pairs;
    std::vector<uint8_t> stateImage;  // the fields a later call or the block coder can see
    bool operator==(const Record& o) const {
        return dictStatus == o.dictStatus && calls == o.calls && pairs == o.pairs && stateImage == o.stateImage;
    }
};

template <class T>
void put(std::vector<uint8_t>& out, const T& v) {
    const uint8_t* p = reinterpret_cast<const uint8_t*>(&v);
    out.insert(out.end(), p, p + sizeof v);
}

std::vector<uint8_t> imageOf(const DeflateState& s) {
    std::vector<uint8_t> out;
    const int fill = int(s.historyPos - s.history);
    for (int v : {int(s.checksum), s.checksumKind, s.comprClass, s.streamPos, fill, s.pairCount, s.pairCapacity,
                  s.streamStatus, s.lastFlush, s.linkedEnd})
        put(out, v);
    out.insert(out.end(), s.history, s.history + fill);
    put(out, s.head);
    put(out, s.chain);
    return out;
}

// A state in a block of its own, made and released through one level.
class StateHolder {
public:
    StateHolder(int level, const Scenario& sc) : level_(level), allocated_(sc.allocate) {
        if (allocated_) {
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77InitAlloc_8u[level](sc.comprClass, sc.checksumKind, &state_),
                      StatusOk);
        } else {
            int size = 0;
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetSize_8u[level](&size), StatusOk);
            block_.reset(new uint64_t[(size + 7) / 8]);
            state_ = reinterpret_cast<VekDeflateState*>(block_.get());
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77Init_8u[level](sc.comprClass, sc.checksumKind, state_), StatusOk);
        }
    }
    ~StateHolder() {
        if (allocated_) vek::vekTable_veksLZ77Free_8u[level_](state_);
    }
    VekDeflateState* get() const { return state_; }
    DeflateState& fields() const { return *vek::deflate::stateOf(state_); }

private:
    int level_;
    bool allocated_;
    std::unique_ptr<uint64_t[]> block_;
    VekDeflateState* state_ = nullptr;
};

// Feeds `data` in the scenario's chunks through the state's own pair list,
// emptying the list after each call as a block coder would.
void feed(int level, VekDeflateState* st, const Scenario& sc, const std::vector<uint8_t>& data,
          const std::vector<int>& chunks, const std::vector<int>& flushes, size_t& capTurn, Record& rec) {
    int offset = 0;
    for (size_t c = 0; c < chunks.size(); ++c) {
        // The chunk ends exactly at the end of a heap block of its own.
        InputArray<Vek8u> chunk(chunks[c]);
        if (chunks[c]) memcpy(chunk.data(), data.data() + offset, chunks[c]);
        offset += chunks[c];
        const Vek8u* src = chunk.data();
        int left = chunks[c];
        do {
            Vek16u* list = nullptr;
            int count = 0, capacity = 0;
            const int cap = sc.capacities[capTurn++ % sc.capacities.size()];
            // Empty the list and give it this call's capacity.
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetPairs_8u[level](&list, &count, &capacity, st), StatusOk);
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77SetPairs_8u[level](list, 0, cap, st), StatusOk);
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetPairs_8u[level](&list, &count, &capacity, st), StatusOk);
            Vek16u* out = list + 2 * count;
            int space = capacity - count;
            const int before = left;
            const int status = vek::vekTable_veksEncodeLZ77_8u[level](&src, &left, &out, &space, flushes[c], st);
            const int written = int(out - list) / 2;
            EXPECT_EQ(written, capacity - space);
            EXPECT_EQ(src, chunk.data() + (chunks[c] - left));
            rec.calls.push_back({status, before - left, written, flushes[c]});
            rec.pairs.insert(rec.pairs.end(), list, list + 2 * written);
            if (status < 0) return;
            if (written == 0) continue;
            // The counts the finder kept of the list are those of its pairs.
            const DeflateState* counted = vek::deflate::emittedCounts(st, list, written);
            ASSERT_NE(counted, nullptr);
            Vek32u litLen[vek::deflate::kLitLenSymbols] = {}, dist[vek::deflate::kDistSymbols + 1] = {};
            vek::deflate::countPairSymbols(list, written, litLen, dist);
            ASSERT_TRUE(std::equal(litLen, litLen + vek::deflate::kLitLenSymbols, counted->emittedLitLen));
            ASSERT_TRUE(std::equal(dist, dist + vek::deflate::kDistSymbols, counted->emittedDist));
        } while (left > 0);
    }
}

Record runScenario(int level, const Scenario& sc) {
    Record rec;
    StateHolder holder(level, sc);
    VekDeflateState* st = holder.get();
    if (!sc.dict.empty())
        rec.dictStatus = vek::vekTable_veksEncodeLZ77SetDictionary_8u[level](sc.dict.data(), int(sc.dict.size()), st);
    size_t capTurn = 0;
    feed(level, st, sc, sc.data, sc.chunks, sc.flushes, capTurn, rec);
    if (sc.resetAndRepeat) {
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Reset_8u[level](st), StatusOk);
        feed(level, st, sc, sc.data, {int(sc.data.size())}, {VekDeflateNoFlush}, capTurn, rec);
    }
    rec.stateImage = imageOf(holder.fields());
    return rec;
}

// Random chunkings, flush modes (a few history cuts) and capacities.
Scenario randomScenario(int maxLen) {
    Rng& r = rng();
    Scenario sc;
    sc.comprClass = int(r() % 4);  // 3 is served as the default class
    sc.checksumKind = int(r() % 4);
    sc.allocate = r() % 2;
    const int n = int(r() % (maxLen + 1));
    sc.data = makeData(DataKind(r() % 4), n);
    if (r() % 4 == 0) sc.dict = makeData(DataKind::Text, int(r() % 40000));
    for (int left = n; left > 0;) {
        const int piece = r() % 3 == 0 ? left : std::min<int>(left, 1 + int(r() % (r() % 2 ? 20 : 70000)));
        sc.chunks.push_back(piece);
        sc.flushes.push_back(r() % 6 == 0   ? VekDeflateHistoryCut
                             : r() % 8 == 0 ? VekDeflateLastBlock
                                            : VekDeflateNoFlush);
        left -= piece;
    }
    if (sc.chunks.empty()) {
        sc.chunks.push_back(0);
        sc.flushes.push_back(VekDeflateNoFlush);
    }
    if (r() % 3 == 0) sc.capacities = {int(r() % 3), 1 + int(r() % 40), 1 + int(r() % 5000)};
    sc.resetAndRepeat = r() % 5 == 0;
    return sc;
}

void diffScenarios(Scenario (*make)(), int count) {
    for (int round = 0; round < rounds(count); ++round) {
        const Scenario sc = make();
        const Record ref = runScenario(0, sc);
        for (int level : availableLevels()) {
            if (level == 0) continue;
            const Record got = runScenario(level, sc);
            ASSERT_TRUE(got == ref) << "level " << level << " differs from level 0; class " << sc.comprClass << ", "
                                    << sc.data.size() << " bytes in " << sc.chunks.size() << " chunks";
        }
    }
}

VEK_DIFF_CASE(veksEncodeLZ77_8u, [] { diffScenarios([] { return randomScenario(200000); }, 40); });
VEK_DIFF_CASE(veksEncodeLZ77SetDictionary_8u, [] {
    diffScenarios(
        [] {
            Scenario sc = randomScenario(5000);
            sc.dict = makeData(DataKind(rng()() % 4), int(rng()() % 50000));
            return sc;
        },
        10);
});
VEK_DIFF_CASE(veksEncodeLZ77Reset_8u, [] {
    diffScenarios(
        [] {
            Scenario sc = randomScenario(50000);
            sc.resetAndRepeat = true;
            return sc;
        },
        10);
});
VEK_DIFF_CASE(veksEncodeLZ77GetPairs_8u, [] {
    diffScenarios(
        [] {
            Scenario sc = randomScenario(3000);
            sc.capacities = {0, 1, 2, 3, 7, 100};
            return sc;
        },
        10);
});
VEK_DIFF_CASE(veksEncodeLZ77SetPairs_8u, [] {
    diffScenarios(
        [] {
            Scenario sc = randomScenario(3000);
            sc.capacities = {int(rng()() % 300), 65280};
            return sc;
        },
        10);
});
VEK_DIFF_CASE(veksEncodeLZ77Init_8u, [] {
    diffScenarios(
        [] {
            Scenario sc = randomScenario(3000);
            sc.allocate = false;
            return sc;
        },
        10);
});
VEK_DIFF_CASE(veksEncodeLZ77InitAlloc_8u, [] {
    diffScenarios(
        [] {
            Scenario sc = randomScenario(3000);
            sc.allocate = true;
            return sc;
        },
        10);
});
VEK_DIFF_CASE(veksLZ77Free_8u, [] {
    for (int level : availableLevels()) {  // releases what InitAlloc made; null is ignored
        VekDeflateState* st = nullptr;
        ASSERT_EQ(vek::vekTable_veksEncodeLZ77InitAlloc_8u[level](VekDeflateBest, VekDeflateCrc32, &st), StatusOk);
        vek::vekTable_veksLZ77Free_8u[level](st);
        vek::vekTable_veksLZ77Free_8u[level](nullptr);
    }
});
VEK_DIFF_CASE(veksEncodeLZ77GetSize_8u, [] {
    int ref = 0;
    ASSERT_EQ(vek::vekTable_veksEncodeLZ77GetSize_8u[0](&ref), StatusOk);
    EXPECT_GE(ref, int(sizeof(DeflateState)));
    for (int level : availableLevels()) {
        int size = -1;
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetSize_8u[level](&size), StatusOk);
        EXPECT_EQ(size, ref);
    }
});

// ---- the pairs expand to the input ----------------------------------------

// Expands the pairs of a scenario run and checks every rule a decoder and
// the block coders rely on: literal bytes, matches of 3..258 bytes reaching
// no farther back than 32767 bytes nor before the last history cut, the
// last 2 (3 under class 2) bytes of each chunk as literals, and the result
// equal to the dictionary's kept bytes followed by the data.
void checkExpansion(const Scenario& sc, const Record& rec) {
    const int dictLen = int(sc.dict.size());
    const int kept = dictLen < 3 ? 0 : std::min(dictLen, 32768);
    std::vector<uint8_t> out(sc.dict.end() - kept, sc.dict.end());
    size_t floor = 0, pairAt = 0;
    int lastFlush = VekDeflateNoFlush;
    const int tail = sc.comprClass == VekDeflateBest ? 3 : 2;
    size_t call = 0;
    for (size_t c = 0; c < sc.chunks.size(); ++c) {
        std::vector<bool> literal;  // of this chunk's bytes, whether each came as a literal
        int done = 0;
        do {
            ASSERT_LT(call, rec.calls.size());
            const CallRecord& cr = rec.calls[call++];
            ASSERT_GE(cr.status, 0);
            if (cr.status == StatusDstSize && cr.consumed == 0 && cr.pairs == 0) continue;  // no room: no call
            const bool standalone = cr.flush == VekDeflateHistoryCut || lastFlush == VekDeflateHistoryCut;
            if (standalone) floor = out.size();
            size_t produced = 0;
            for (int k = 0; k < cr.pairs; ++k, ++pairAt) {
                const int value = rec.pairs[2 * pairAt], distance = rec.pairs[2 * pairAt + 1];
                if (distance == 0) {
                    ASSERT_LT(value, 256);
                    out.push_back(uint8_t(value));
                    literal.push_back(true);
                    ++produced;
                    continue;
                }
                ASSERT_GE(value, 3);
                ASSERT_LE(value, 258);
                ASSERT_LE(distance, 32767);
                ASSERT_LE(size_t(distance), out.size() - floor) << "match reaches before the stream or a cut";
                for (int i = 0; i < value; ++i) {
                    out.push_back(out[out.size() - distance]);
                    literal.push_back(false);
                }
                produced += value;
            }
            ASSERT_EQ(produced, size_t(cr.consumed));
            done += cr.consumed;
            lastFlush = cr.flush;
            if (standalone) floor = out.size();
        } while (done < sc.chunks[c]);
        for (int i = std::max(0, sc.chunks[c] - tail); i < sc.chunks[c]; ++i)
            ASSERT_TRUE(literal[i]) << "byte " << i << " of a " << sc.chunks[c] << "-byte chunk";
    }
    ASSERT_EQ(out.size(), kept + sc.data.size());
    ASSERT_TRUE(std::equal(sc.data.begin(), sc.data.end(), out.begin() + kept)) << "pairs expand to other bytes";
}

// The running checksum of the data, from 0 for both kinds.
Vek32u expectedChecksum(int kind, const std::vector<uint8_t>& data) {
    Vek32u v = 0;
    if (kind == VekDeflateAdler32) vek::vekTable_veksAdler32_8u[0](data.data(), int(data.size()), &v);
    if (kind == VekDeflateCrc32 && !data.empty()) vek::vekTable_veksCRC32_8u[0](data.data(), int(data.size()), &v);
    return v;
}

TEST(DeflateMatch, PairsExpandToTheInput) {
    for (int round = 0; round < rounds(150); ++round) {
        Scenario sc = randomScenario(round % 10 == 0 ? 300000 : 20000);
        sc.resetAndRepeat = false;
        const int level = availableLevels()[round % availableLevels().size()];
        const Record rec = runScenario(level, sc);
        if (sc.dict.size() >= 3) {
            ASSERT_EQ(rec.dictStatus, StatusOk);
        }
        checkExpansion(sc, rec);
        if (HasFatalFailure())
            FAIL() << "round " << round << " level " << level << " class " << sc.comprClass << ", " << sc.data.size()
                   << " bytes, " << sc.chunks.size() << " chunks";
        Vek32u checksum;
        memcpy(&checksum, rec.stateImage.data(), 4);
        ASSERT_EQ(checksum, expectedChecksum(sc.checksumKind, sc.data)) << "kind " << sc.checksumKind;
    }
}

// A call that stops on a full pair list and is called again finds the
// same pairs as one call with room for all.
TEST(DeflateMatch, PairCapacityDoesNotChangeThePairs) {
    for (int comprClass : kClasses)
        for (int cap : {1, 2, 3, 17, 1000}) {
            Scenario whole;
            whole.comprClass = comprClass;
            whole.data = makeData(DataKind::Mixed, 30000);
            whole.chunks = {30000};
            whole.flushes = {VekDeflateNoFlush};
            Scenario limited = whole;
            limited.capacities = {cap, 0};
            const Record a = runScenario(0, whole), b = runScenario(0, limited);
            EXPECT_EQ(a.pairs, b.pairs) << "class " << comprClass << " capacity " << cap;
            EXPECT_EQ(b.calls.back().status, StatusOk);
        }
}

// ---- pinned behaviours -----------------------------------------------------

struct Encoded {
    int status;
    std::vector<Vek16u> pairs;
};

Encoded encodeOnce(int level, VekDeflateState* st, const std::vector<uint8_t>& data, int flush = VekDeflateNoFlush) {
    std::vector<Vek16u> buf(2 * data.size() + 2);
    const InputArray<Vek8u> in = guardedCopy(data);
    const Vek8u* src = in.data();
    int len = int(data.size()), space = int(data.size()) + 1;
    Vek16u* out = buf.data();
    const int status = vek::vekTable_veksEncodeLZ77_8u[level](&src, &len, &out, &space, flush, st);
    buf.resize(out - buf.data());
    return {status, buf};
}

std::vector<Vek16u> literals(std::initializer_list<int> bytes) {
    std::vector<Vek16u> v;
    for (int b : bytes) {
        v.push_back(Vek16u(b));
        v.push_back(0);
    }
    return v;
}

TEST(DeflateMatch, RunOfEqualBytesUnderTheDefaultClass) {
    for (int level : availableLevels()) {
        Scenario sc;
        StateHolder holder(level, sc);
        const Encoded e = encodeOnce(level, holder.get(), std::vector<uint8_t>(300, 'x'));
        EXPECT_EQ(e.status, StatusOk);
        // 1 literal, 258 + 39 by distance 1, and the last two bytes as literals.
        const std::vector<Vek16u> expected{'x', 0, 258, 1, 39, 1, 'x', 0, 'x', 0};
        EXPECT_EQ(e.pairs, expected) << "level " << level;
    }
}

TEST(DeflateMatch, LastBytesOfEveryCallAreLiterals) {
    for (int level : availableLevels())
        for (int comprClass : kClasses) {
            Scenario sc;
            sc.comprClass = comprClass;
            StateHolder holder(level, sc);
            const Encoded first = encodeOnce(level, holder.get(), std::vector<uint8_t>(10, 'a'));
            const Encoded second = encodeOnce(level, holder.get(), std::vector<uint8_t>(10, 'a'));
            const int tail = comprClass == VekDeflateBest ? 3 : 2;
            for (const Encoded* e : {&first, &second}) {
                const size_t n = e->pairs.size() / 2;
                for (size_t k = n - tail; k < n; ++k) EXPECT_EQ(e->pairs[2 * k + 1], 0) << comprClass;
                EXPECT_NE(e->pairs[2 * (n - tail - 1) + 1], 0) << "the bytes before come as a match";
            }
            // The second call reaches back into the first one's bytes.
            EXPECT_EQ(second.pairs.size(), size_t(2 * (1 + tail)));
        }
}

// "abc" twice, `distance` apart, between filler bytes that can never match
// a letter: class 2 keeps the 3-byte match only up to 4096 bytes back.
TEST(DeflateMatch, BestClassDropsFarThreeByteMatches) {
    for (int level : availableLevels())
        for (int distance : {4096, 4097}) {
            std::vector<uint8_t> data{'a', 'b', 'c', 'd'};
            while (int(data.size()) < distance) data.push_back(uint8_t(128 + rng()() % 128));
            data.back() = 200;  // differs from the byte before the first "abc" (none)
            data.insert(data.end(), {'a', 'b', 'c', 'e'});
            for (int i = 0; i < 20; ++i) data.push_back(uint8_t(128 + rng()() % 128));
            Scenario sc;
            sc.comprClass = VekDeflateBest;
            StateHolder holder(level, sc);
            const Encoded e = encodeOnce(level, holder.get(), data);
            // Find the pair that starts at the second "a".
            size_t pos = 0, k = 0;
            for (; pos < size_t(distance); ++k) pos += e.pairs[2 * k + 1] ? e.pairs[2 * k] : 1;
            ASSERT_EQ(pos, size_t(distance));
            if (distance == 4096) {
                EXPECT_EQ(e.pairs[2 * k], 3);
                EXPECT_EQ(e.pairs[2 * k + 1], 4096);
            } else {
                const std::vector<Vek16u> abc(e.pairs.begin() + 2 * k, e.pairs.begin() + 2 * k + 6);
                EXPECT_EQ(abc, literals({'a', 'b', 'c'}));
            }
            // Class 1 takes the match at either distance.
            Scenario greedy;
            StateHolder other(level, greedy);
            const Encoded g = encodeOnce(level, other.get(), data);
            EXPECT_NE(std::find(g.pairs.begin(), g.pairs.end(), Vek16u(distance)), g.pairs.end());
        }
}

// ---- the classes' rules, taken literally ---------------------------------------

// A fresh stream matched in one call straight from the rules: every
// candidate compared in full, every position linked just before its search.
// The library's walks (compare filters, two searches in step) must find the
// same pairs.
std::vector<Vek16u> referencePairs(int comprClass, const std::vector<uint8_t>& d) {
    using vek::deflate::kHashTables;
    const int n = int(d.size());
    std::vector<int32_t> head(32768, -32768), chain(32768, -32768);
    std::vector<Vek16u> out;
    const auto emit = [&](int value, int distance) {
        out.push_back(Vek16u(value));
        out.push_back(Vek16u(distance));
    };
    const auto length = [&](int c, int p, int most) {
        int l = 0;
        while (l < most && d[c + l] == d[p + l]) ++l;
        return l;
    };
    const auto link = [&](int q) {
        const int h = kHashTables[0][d[q]] ^ kHashTables[1][d[q + 1]] ^ kHashTables[2][d[q + 2]];
        chain[q & 0x7FFF] = head[h];
        head[h] = q;
    };
    const auto most = [&](int p, int tail) { return std::min(258, n - p - tail); };
    struct Match {
        int length = 0, distance = 0;
    };
    const auto search = [&](int p, int limit, int tail) {
        Match best;
        const int longest = most(p, tail);
        if (longest < 3) return best;
        int k = 0;
        for (int c = chain[p & 0x7FFF]; k < limit && c >= std::max(0, p - 32767) && c < p; ++k, c = chain[c & 0x7FFF]) {
            const int l = length(c, p, longest);
            if (l > std::max(2, best.length)) {
                best = {l, p - c};
                if (l == longest) break;
            }
        }
        return best;
    };
    int p = 0;
    if (comprClass == VekDeflateFast) {
        const auto roll = [&](int q) { return ((d[q] << 10) ^ (d[q + 1] << 5) ^ d[q + 2]) & 0x7FFF; };
        while (p < n - 2) {
            const int h = roll(p), c = head[h];
            head[h] = p;
            const int longest = most(p, 2);
            const int l = longest >= 3 && c >= std::max(0, p - 32767) && c < p ? length(c, p, longest) : 0;
            if (l < 3) {
                emit(d[p++], 0);
                continue;
            }
            emit(l, p - c);
            for (int q = p + 1; q < p + l; ++q) head[roll(q)] = q;
            p += l;
        }
    } else if (comprClass == VekDeflateDefault) {
        while (p < n - 2) {
            link(p);
            const Match m = search(p, 16, 2);
            if (m.length < 3) {
                emit(d[p++], 0);
                continue;
            }
            emit(m.length, m.distance);
            for (int q = p + 1; q < p + m.length; ++q) link(q);
            p += m.length;
        }
    } else {
        bool carried = false;
        Match cur;
        while (p < n - 3) {
            if (!carried) link(p), cur = search(p, 512, 3);
            link(p + 1);
            const Match next = search(p + 1, 512, 3);
            if ((cur.length > 3 || (cur.length == 3 && cur.distance <= 4096)) && cur.length >= next.length) {
                emit(cur.length, cur.distance);
                for (int q = p + 2; q < p + cur.length; ++q) link(q);
                p += cur.length;
                carried = false;
            } else {
                emit(d[p++], 0);
                cur = next;
                carried = true;
            }
        }
    }
    while (p < n) emit(d[p++], 0);
    return out;
}

// Random bytes repeating with a period near the window (the best candidate
// sits at or just beyond the farthest distance), with a few bytes changed
// so that matches break and restart; and the usual text, runs and mixtures.
TEST(DeflateMatch, ClassesFollowTheirRulesLiterally) {
    std::vector<std::vector<uint8_t>> inputs;
    for (int period : {32766, 32767, 32768}) {
        std::vector<uint8_t> v = makeData(DataKind::Random, period);
        for (int i = period; i < 3 * period / 2 + 4000; ++i)
            v.push_back(rng()() % 97 ? v[i - period] : uint8_t(rng()()));
        inputs.push_back(v);
    }
    for (DataKind kind : {DataKind::Text, DataKind::Runs, DataKind::Mixed}) inputs.push_back(makeData(kind, 40000));
    for (const std::vector<uint8_t>& data : inputs)
        for (int comprClass : kClasses) {
            const std::vector<Vek16u> expected = referencePairs(comprClass, data);
            for (int level : availableLevels()) {
                Scenario sc;
                sc.comprClass = comprClass;
                StateHolder holder(level, sc);
                const Encoded e = encodeOnce(level, holder.get(), data);
                EXPECT_EQ(e.status, StatusOk);
                ASSERT_TRUE(e.pairs == expected)
                    << "class " << comprClass << ", level " << level << ", " << data.size() << " bytes";
            }
        }
}

// The best class's skip table only speeds its walks up: scrambled between
// two calls (entries that look like positions in reach, and others), it
// changes no pair.
TEST(DeflateMatch, BestClassSkipTableChangesNoPair) {
    std::vector<uint8_t> data = makeData(DataKind::Text, 60000), tail = makeData(DataKind::Mixed, 60000);
    data.insert(data.end(), tail.begin(), tail.end());
    const std::vector<uint8_t> first(data.begin(), data.begin() + 70000), second(data.begin() + 70000, data.end());
    Scenario sc;
    sc.comprClass = VekDeflateBest;
    for (int level : availableLevels()) {
        StateHolder plain(level, sc), scrambled(level, sc);
        EXPECT_TRUE(encodeOnce(level, plain.get(), first).pairs == encodeOnce(level, scrambled.get(), first).pairs);
        for (vek::deflate::Skips& entry : scrambled.fields().skips)
            entry = {int32_t(rng()() % 80000) - 5000, int32_t(rng()() % 80000) - 5000};
        EXPECT_TRUE(encodeOnce(level, plain.get(), second).pairs == encodeOnce(level, scrambled.get(), second).pairs)
            << "level " << level;
    }
}

TEST(DeflateMatch, Dictionaries) {
    const std::vector<uint8_t> dict = makeData(DataKind::Random, 40000);
    for (int level : availableLevels()) {
        Scenario sc;
        StateHolder holder(level, sc);
        DeflateState& s = holder.fields();
        const auto setDict = vek::vekTable_veksEncodeLZ77SetDictionary_8u[level];
        // Two bytes: nothing happens.
        EXPECT_EQ(setDict(dict.data(), 2, holder.get()), StatusOk);
        EXPECT_EQ(s.streamPos, 0);
        EXPECT_EQ(s.historyPos, s.history);
        // 40000 bytes: the last 32768 are kept.
        EXPECT_EQ(setDict(dict.data(), 40000, holder.get()), StatusOk);
        EXPECT_EQ(s.streamPos, 32768);
        ASSERT_EQ(s.historyPos - s.history, 32768);
        EXPECT_EQ(memcmp(s.history, dict.data() + 40000 - 32768, 32768), 0);
        // Bytes near the dictionary's end match; its dropped start does not
        // (random data leave room only for short chance matches).
        std::vector<uint8_t> data(dict.end() - 100, dict.end() - 50);
        data.insert(data.end(), dict.begin() + 10, dict.begin() + 60);
        const Encoded e = encodeOnce(level, holder.get(), data);
        ASSERT_GE(e.pairs.size(), 2u);
        EXPECT_EQ(e.pairs[0], 50);
        EXPECT_EQ(e.pairs[1], 100);
        for (size_t k = 1; k < e.pairs.size() / 2; ++k)
            if (e.pairs[2 * k + 1]) {
                EXPECT_LT(e.pairs[2 * k], 8) << k;
            }
        // Once the stream has begun, a dictionary is refused and nothing changes.
        const std::vector<uint8_t> image = imageOf(s);
        EXPECT_EQ(setDict(dict.data(), 100, holder.get()), StatusUnknown);
        EXPECT_TRUE(imageOf(s) == image);
        // Reset makes it possible again.
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Reset_8u[level](holder.get()), StatusOk);
        EXPECT_EQ(setDict(dict.data(), 100, holder.get()), StatusOk);
    }
}

TEST(DeflateMatch, ZeroPairCapacityConsumesNothing) {
    const std::vector<uint8_t> data = makeData(DataKind::Text, 100);
    for (int level : availableLevels()) {
        Scenario sc;
        StateHolder holder(level, sc);
        const std::vector<uint8_t> image = imageOf(holder.fields());
        Vek16u pairs[2];
        const Vek8u* src = data.data();
        Vek16u* out = pairs;
        int len = 100, space = 0;
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77_8u[level](&src, &len, &out, &space, VekDeflateNoFlush, holder.get()),
                  StatusDstSize);
        EXPECT_EQ(src, data.data());
        EXPECT_EQ(len, 100);
        EXPECT_EQ(out, pairs);
        EXPECT_TRUE(imageOf(holder.fields()) == image);
        // Room for one pair: one literal, the rest left.
        space = 1;
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77_8u[level](&src, &len, &out, &space, VekDeflateNoFlush, holder.get()),
                  StatusDstSize);
        EXPECT_EQ(len, 99);
        EXPECT_EQ(out, pairs + 2);
        EXPECT_EQ(space, 0);
    }
}

// A history-cut call and the one after it see no earlier bytes and keep none;
// matching reaches back again from the call after those two.
TEST(DeflateMatch, HistoryCut) {
    // Random bytes in which no three-byte string occurs twice, so any match
    // found reaches into an earlier call.
    std::vector<uint8_t> block;
    std::set<uint32_t> seen;
    std::mt19937 pick(5);
    while (block.size() < 1000) {
        const uint8_t b = static_cast<uint8_t>(pick());
        const size_t n = block.size();
        if (n >= 2 && !seen.insert(uint32_t(block[n - 2]) << 16 | uint32_t(block[n - 1]) << 8 | b).second) continue;
        block.push_back(b);
    }
    for (int level : availableLevels())
        for (int comprClass : kClasses) {
            Scenario sc;
            sc.comprClass = comprClass;
            StateHolder holder(level, sc);
            auto matches = [](const Encoded& e) {
                int n = 0;
                for (size_t k = 0; k < e.pairs.size() / 2; ++k) n += e.pairs[2 * k + 1] != 0;
                return n;
            };
            EXPECT_EQ(matches(encodeOnce(level, holder.get(), block)), 0);
            EXPECT_EQ(matches(encodeOnce(level, holder.get(), block, VekDeflateHistoryCut)), 0)
                << "the cut call sees no history";
            EXPECT_EQ(holder.fields().streamPos, 0);
            EXPECT_EQ(matches(encodeOnce(level, holder.get(), block)), 0) << "nor the call after it";
            EXPECT_EQ(matches(encodeOnce(level, holder.get(), block)), 0) << "which keeps no history either";
            EXPECT_GT(matches(encodeOnce(level, holder.get(), block)), 0) << "the next one reaches back";
            // An empty history-cut call cuts too.
            Vek16u pair[2];
            Vek16u* out = pair;
            const Vek8u* src = nullptr;
            int len = 0, space = 1;
            EXPECT_EQ(
                vek::vekTable_veksEncodeLZ77_8u[level](&src, &len, &out, &space, VekDeflateHistoryCut, holder.get()),
                StatusOk);
            EXPECT_EQ(holder.fields().historyPos, holder.fields().history);
        }
}

// ---- rules at entry ------------------------------------------------------------

TEST(DeflateMatch, RulesAtEntry) {
    const std::vector<uint8_t> data = makeData(DataKind::Text, 50);
    for (int level : availableLevels()) {
        Scenario sc;
        StateHolder holder(level, sc);
        VekDeflateState* st = holder.get();
        const std::vector<uint8_t> image = imageOf(holder.fields());
        Vek16u pairs[200];
        const Vek8u* src = data.data();
        Vek16u* out = pairs;
        Vek16u* nullOut = nullptr;
        int len = 50, space = 100, negative = -1;
        const auto encode = vek::vekTable_veksEncodeLZ77_8u[level];
        EXPECT_EQ(encode(nullptr, &len, &out, &space, VekDeflateNoFlush, st), StatusNullPointer);
        EXPECT_EQ(encode(&src, nullptr, &out, &space, VekDeflateNoFlush, st), StatusNullPointer);
        EXPECT_EQ(encode(&src, &len, nullptr, &space, VekDeflateNoFlush, st), StatusNullPointer);
        EXPECT_EQ(encode(&src, &len, &nullOut, &space, VekDeflateNoFlush, st), StatusNullPointer);
        EXPECT_EQ(encode(&src, &len, &out, nullptr, VekDeflateNoFlush, st), StatusNullPointer);
        EXPECT_EQ(encode(&src, &negative, &out, &space, VekDeflateNoFlush, nullptr), StatusNullPointer);
        EXPECT_EQ(encode(&src, &negative, &out, &space, VekDeflateNoFlush, st), StatusSize);
        EXPECT_EQ(encode(&src, &len, &out, &negative, VekDeflateNoFlush, st), StatusSize);
        int zero = 0, zeroSpace = 0;
        EXPECT_EQ(encode(&src, &zero, &out, &zeroSpace, VekDeflateNoFlush, st), StatusDstSize) << "no room comes first";
        EXPECT_EQ(encode(&src, &zero, &out, &space, VekDeflateNoFlush, st), StatusOk);
        const Vek8u* nullSrc = nullptr;
        EXPECT_EQ(encode(&nullSrc, &len, &out, &space, VekDeflateNoFlush, st), StatusNullPointer);
        EXPECT_EQ(src, data.data());
        EXPECT_EQ(out, pairs);
        EXPECT_EQ(len, 50);
        EXPECT_EQ(space, 100);
        EXPECT_TRUE(imageOf(holder.fields()) == image) << "a failed call changed the state";

        Vek16u* list = nullptr;
        int count = 0, capacity = 0;
        const auto getPairs = vek::vekTable_veksEncodeLZ77GetPairs_8u[level];
        const auto setPairs = vek::vekTable_veksEncodeLZ77SetPairs_8u[level];
        EXPECT_EQ(getPairs(nullptr, &count, &capacity, st), StatusNullPointer);
        EXPECT_EQ(getPairs(&list, nullptr, &capacity, st), StatusNullPointer);
        EXPECT_EQ(getPairs(&list, &count, nullptr, st), StatusNullPointer);
        EXPECT_EQ(getPairs(&list, &count, &capacity, nullptr), StatusNullPointer);
        EXPECT_EQ(getPairs(&list, &count, &capacity, st), StatusOk);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(capacity, 65280);
        EXPECT_EQ(setPairs(nullptr, 0, 10, st), StatusNullPointer);
        EXPECT_EQ(setPairs(pairs, -1, 10, st), StatusSize);
        EXPECT_EQ(setPairs(pairs, 11, 10, st), StatusSize);
        EXPECT_TRUE(imageOf(holder.fields()) == image);
        EXPECT_EQ(setPairs(pairs, 3, 10, st), StatusOk);
        EXPECT_EQ(getPairs(&list, &count, &capacity, st), StatusOk);
        EXPECT_EQ(list, pairs);
        EXPECT_EQ(count, 3);
        EXPECT_EQ(capacity, 10);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Reset_8u[level](st), StatusOk);  // back to the state's own list
        EXPECT_EQ(getPairs(&list, &count, &capacity, st), StatusOk);
        EXPECT_NE(list, pairs);
        EXPECT_EQ(capacity, 65280);

        const auto setDict = vek::vekTable_veksEncodeLZ77SetDictionary_8u[level];
        EXPECT_EQ(setDict(nullptr, -1, st), StatusNullPointer);
        EXPECT_EQ(setDict(data.data(), -1, nullptr), StatusNullPointer);
        EXPECT_EQ(setDict(data.data(), -1, st), StatusSize);

        EXPECT_EQ(vek::vekTable_veksEncodeLZ77GetSize_8u[level](nullptr), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Init_8u[level](VekDeflateDefault, VekDeflateAdler32, nullptr),
                  StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77InitAlloc_8u[level](VekDeflateDefault, VekDeflateAdler32, nullptr),
                  StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Reset_8u[level](nullptr), StatusNullPointer);
        // A block not aligned for a pointer is refused untouched.
        std::vector<uint8_t> block(sizeof(DeflateState) + 8, 0x5A);
        EXPECT_EQ(vek::vekTable_veksEncodeLZ77Init_8u[level](VekDeflateDefault, VekDeflateAdler32,
                                                             reinterpret_cast<VekDeflateState*>(block.data() + 1)),
                  StatusBadArgument);
        EXPECT_EQ(std::count(block.begin(), block.end(), 0x5A), long(block.size()));
    }
}

TEST(DeflateMatch, InitKeepsClassAndKindThroughReset) {
    for (int level : availableLevels())
        for (int comprClass :
             std::initializer_list<int>{-1, VekDeflateFast, VekDeflateDefault, VekDeflateBest, 3, 99}) {
            Scenario sc;
            sc.comprClass = comprClass;
            sc.checksumKind = 7;
            StateHolder holder(level, sc);
            DeflateState& s = holder.fields();
            const int expected =
                comprClass == VekDeflateFast || comprClass == VekDeflateBest ? comprClass : VekDeflateDefault;
            EXPECT_EQ(s.comprClass, expected);
            EXPECT_EQ(s.checksumKind, 7);
            encodeOnce(level, holder.get(), makeData(DataKind::Text, 1000));
            EXPECT_EQ(s.streamStatus, VekDeflateMatching) << "the stream has begun";
            EXPECT_EQ(vek::vekTable_veksEncodeLZ77Reset_8u[level](holder.get()), StatusOk);
            EXPECT_EQ(s.comprClass, expected);
            EXPECT_EQ(s.checksumKind, 7);
            EXPECT_EQ(s.streamPos, 0);
            EXPECT_EQ(s.streamStatus, VekDeflateNotBegun);
            EXPECT_EQ(s.checksum, 0u);
            for (int32_t h : s.head) ASSERT_EQ(h, vek::deflate::kNoPosition);
        }
}

}  // namespace
}  // namespace vektest
