// JPEG Huffman coding: every level against level 0 on whole scans of
// random blocks (and on damaged streams for the decoders), round trips of
// every scan kind through encoder and decoder with restart markers, the
// decoder's marker and failure rules, the optimal tables against
// libjpeg-turbo's own generator, and the rules at entry.
#include <algorithm>

#include "examples/jpeg_codec/jpeg_tables.h"
#include "harness.h"
#include "jpeg/huffman_state.h"
#ifdef VEK_HAVE_LIBJPEG
#    include <stdio.h>

#    include <jpeglib.h>
extern "C" void jpeg_gen_optimal_table(j_compress_ptr cinfo, JHUFF_TBL* htbl, long freq[]);
#endif

namespace vektest {
namespace {

using vek::jpeg::DecodeSpec;
using vek::jpeg::DecodeState;
using vek::jpeg::EncodeSpec;
using vek::jpeg::EncodeState;
using vekjpeg::HuffmanTable;
using Bytes = std::vector<uint8_t>;
using Block = std::array<Vek16s, 64>;

// ---- tables, states, blocks --------------------------------------------------

struct Tables {
    EncodeSpec encDc, encAc;
    DecodeSpec decDc, decAc;
};
VekEncodeHuffmanSpec* enc(EncodeSpec& s) { return reinterpret_cast<VekEncodeHuffmanSpec*>(&s); }
VekDecodeHuffmanSpec* dec(DecodeSpec& s) { return reinterpret_cast<VekDecodeHuffmanSpec*>(&s); }

Tables makeTables(const HuffmanTable& dc, const HuffmanTable& ac) {
    Tables t;
    EXPECT_EQ(vekiEncodeHuffmanSpecInit_JPEG_8u(dc.bits, dc.values, enc(t.encDc)), StatusOk);
    EXPECT_EQ(vekiEncodeHuffmanSpecInit_JPEG_8u(ac.bits, ac.values, enc(t.encAc)), StatusOk);
    EXPECT_EQ(vekiDecodeHuffmanSpecInit_JPEG_8u(dc.bits, dc.values, dec(t.decDc)), StatusOk);
    EXPECT_EQ(vekiDecodeHuffmanSpecInit_JPEG_8u(ac.bits, ac.values, dec(t.decAc)), StatusOk);
    return t;
}
const Tables& standardTables() {
    static const Tables t = makeTables(vekjpeg::kLuminanceDc, vekjpeg::kLuminanceAc);
    return t;
}
// Tables with a code for every symbol (AC: every run/size of 8 bits), from
// counts of all ones through the optimal table builder.
const Tables& fullTables() {
    static const Tables t = [] {
        int counts[256];
        std::fill(counts, counts + 256, 1);
        HuffmanTable all{};
        EXPECT_EQ(vekiEncodeHuffmanRawTableInit_JPEG_8u(counts, all.bits, all.values), StatusOk);
        return makeTables(all, all);
    }();
    return t;
}

// States zeroed first, so that levels compare byte for byte.
struct EncState {
    EncodeState s;
    EncState() {
        memset(&s, 0, sizeof s);
        vekiEncodeHuffmanStateInit_JPEG_8u(ptr());
    }
    VekEncodeHuffmanState* ptr() { return reinterpret_cast<VekEncodeHuffmanState*>(&s); }
};
struct DecState {
    DecodeState s;
    DecState() {
        memset(&s, 0, sizeof s);
        vekiDecodeHuffmanStateInit_JPEG_8u(ptr());
    }
    VekDecodeHuffmanState* ptr() { return reinterpret_cast<VekDecodeHuffmanState*>(&s); }
};

// Quantised DCT blocks as photographs give them: DC anywhere in the 8-bit
// range,
// AC mostly zero and shrinking with frequency; a few blocks with values
// past what a code can carry.
Block randomBlock(bool wild = false) {
    Rng& r = rng();
    Block b{};
    b[0] = static_cast<Vek16s>(static_cast<int>(r() % 2047) - 1023);
    const int density = int(r() % 64);
    for (int k = 1; k < 64; ++k) {
        const int natural = vek::jpeg::kZigzagToNatural[k];
        if (int(r() % 64) >= density) continue;
        const int scale = 1 + 600 / (k + 1);
        b[natural] = static_cast<Vek16s>(static_cast<int>(r() % (2 * scale + 1)) - scale);
    }
    if (wild && r() % 16 == 0) b[r() % 64] = randomValue<Vek16s>();
    return b;
}
std::vector<Block> randomBlocks(int n, bool wild = false) {
    std::vector<Block> v;
    for (int i = 0; i < n; ++i) v.push_back(randomBlock(wild));
    return v;
}

// ---- scans -------------------------------------------------------------------

// One scan of a progressive (or baseline) script.
enum class Kind { Baseline, DcFirst, DcRefine, AcFirst, AcRefine };
struct Scan {
    Kind kind;
    int ss, se, al;
};
// A complete successive approximation script over both DC and AC.
const std::vector<Scan>& progressiveScript() {
    static const std::vector<Scan> s = {{Kind::DcFirst, 0, 0, 1},  {Kind::AcFirst, 1, 5, 2},
                                        {Kind::AcFirst, 6, 63, 2}, {Kind::AcRefine, 1, 63, 1},
                                        {Kind::DcRefine, 0, 0, 0}, {Kind::AcRefine, 1, 63, 0}};
    return s;
}

struct Encoded {
    std::vector<int> statuses;
    Bytes bytes;
};

// Encodes `blocks` as one scan with level `level`, a restart marker every
// `restart` blocks (0: none); every call's status is recorded, and a block
// that fails is skipped as a caller would.
Encoded encodeScan(int level, const std::vector<Block>& blocks, const Scan& scan, const Tables& t, int restart,
                   int room = 1 << 20) {
    Encoded out;
    out.bytes.resize(room);
    EncState st;
    int pos = 0;
    Vek16s lastDc = 0;
    auto call = [&](const Vek16s* src, int flush) {
        VekStatus s = StatusOk;
        EncodeSpec &dc = const_cast<EncodeSpec&>(t.encDc), &ac = const_cast<EncodeSpec&>(t.encAc);
        Vek8u* d = out.bytes.data();
        switch (scan.kind) {
        case Kind::Baseline:
            s = vek::vekTable_vekiEncodeHuffman8x8_JPEG_16s1u_C1[level](src, d, room, &pos, &lastDc, enc(dc), enc(ac),
                                                                        st.ptr(), flush);
            break;
        case Kind::DcFirst:
            s = vek::vekTable_vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1[level](src, d, room, &pos, &lastDc, scan.al,
                                                                                enc(dc), st.ptr(), flush);
            break;
        case Kind::DcRefine:
            s = vek::vekTable_vekiEncodeHuffman8x8_DCRefine_JPEG_16s1u_C1[level](src, d, room, &pos, scan.al, st.ptr(),
                                                                                 flush);
            break;
        case Kind::AcFirst:
            s = vek::vekTable_vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1[level](src, d, room, &pos, scan.ss, scan.se,
                                                                                scan.al, enc(ac), st.ptr(), flush);
            break;
        case Kind::AcRefine:
            s = vek::vekTable_vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1[level](src, d, room, &pos, scan.ss, scan.se,
                                                                                 scan.al, enc(ac), st.ptr(), flush);
            break;
        }
        out.statuses.push_back(s);
    };
    for (size_t i = 0; i < blocks.size(); ++i) {
        if (restart && i && i % restart == 0) {
            call(nullptr, 1);
            if (pos + 2 > room) break;
            out.bytes[pos++] = 0xFF;
            out.bytes[pos++] = static_cast<uint8_t>(0xD0 + (i / restart - 1) % 8);
            lastDc = 0;
        }
        call(blocks[i].data(), 0);
    }
    call(nullptr, 1);
    out.bytes.resize(pos);
    out.bytes.insert(out.bytes.end(), {0xFF, 0xD9});
    return out;
}

struct Decoded {
    std::vector<int> statuses;
    std::vector<Block> blocks;
    int markers = 0;
};

// Decodes one scan into `blocks` (the coefficients so far) with level
// `level`, restarting where the encoder did; stops at the first error.
// The input ends at a no-access page.
void decodeScan(int level, const Bytes& stream, const Scan& scan, const Tables& t, int restart, Decoded& d) {
    InputArray<Vek8u> in(int(stream.size()));
    memcpy(in.data(), stream.data(), stream.size());
    DecState st;
    int pos = 0, marker = 0;
    Vek16s lastDc = 0;
    DecodeSpec &dc = const_cast<DecodeSpec&>(t.decDc), &ac = const_cast<DecodeSpec&>(t.decAc);
    const int len = int(stream.size());
    for (size_t i = 0; i < d.blocks.size(); ++i) {
        if (restart && i && i % restart == 0) {
            while (pos + 1 < len && !(in[pos] == 0xFF && in[pos + 1] >= 0xD0 && in[pos + 1] <= 0xD7)) ++pos;
            pos += 2;
            vekiDecodeHuffmanStateInit_JPEG_8u(st.ptr());
            lastDc = 0;
            marker = 0;
        }
        if (pos > len) break;
        Vek16s* blk = d.blocks[i].data();
        VekStatus s = StatusOk;
        switch (scan.kind) {
        case Kind::Baseline:
            s = vek::vekTable_vekiDecodeHuffman8x8_JPEG_1u16s_C1[level](in.data(), len, &pos, blk, &lastDc, &marker,
                                                                        dec(dc), dec(ac), st.ptr());
            break;
        case Kind::DcFirst:
            s = vek::vekTable_vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1[level](in.data(), len, &pos, blk, &lastDc,
                                                                                &marker, scan.al, dec(dc), st.ptr());
            break;
        case Kind::DcRefine:
            s = vek::vekTable_vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1[level](in.data(), len, &pos, blk, &marker,
                                                                                 scan.al, st.ptr());
            break;
        case Kind::AcFirst:
            s = vek::vekTable_vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1[level](
                in.data(), len, &pos, blk, &marker, scan.ss, scan.se, scan.al, dec(ac), st.ptr());
            break;
        case Kind::AcRefine:
            s = vek::vekTable_vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1[level](
                in.data(), len, &pos, blk, &marker, scan.ss, scan.se, scan.al, dec(ac), st.ptr());
            break;
        }
        d.statuses.push_back(s);
        d.markers += marker != 0;
        if (s != StatusOk) break;
    }
}

std::vector<Block> decodeAll(int level, const std::vector<Encoded>& scans, const std::vector<Scan>& script,
                             const Tables& t, int restart, size_t count) {
    Decoded d;
    d.blocks.assign(count, Block{});
    for (size_t i = 0; i < script.size(); ++i) decodeScan(level, scans[i].bytes, script[i], t, restart, d);
    return d.blocks;
}

// ---- round trips ---------------------------------------------------------------

TEST(JpegHuffman, EveryScanKindRoundTripsWithRestarts) {
    onEveryLevel([](int level) {
        for (int round = 0; round < rounds(6); ++round) {
            const std::vector<Block> blocks = randomBlocks(1 + int(rng()() % 300));
            const int restart = round % 2 ? 1 + int(rng()() % 20) : 0;
            for (const auto& script : {std::vector<Scan>{{Kind::Baseline, 0, 63, 0}}, progressiveScript()}) {
                // The typical tables have no codes for end-of-band runs.
                const Tables& t = round % 3 && script.size() == 1 ? standardTables() : fullTables();
                std::vector<Encoded> scans;
                for (const Scan& s : script) {
                    scans.push_back(encodeScan(level, blocks, s, t, restart));
                    for (int st : scans.back().statuses) ASSERT_EQ(st, StatusOk);
                }
                ASSERT_TRUE(decodeAll(level, scans, script, t, restart, blocks.size()) == blocks)
                    << "restart " << restart << ", " << script.size() << " scans";
            }
        }
    });
}

// Optimal tables from the counters code every counted block, shorter than
// a table with a code for every symbol.
TEST(JpegHuffman, CountedTablesCodeTheirBlocks) {
    const std::vector<Block> blocks = randomBlocks(400);
    for (const auto& script : {std::vector<Scan>{{Kind::Baseline, 0, 63, 0}}, progressiveScript()}) {
        size_t optimal = 0, typical = 0;
        std::vector<Encoded> scans;
        std::vector<Tables> tables;
        for (const Scan& s : script) {
            int dcCounts[256] = {}, acCounts[256] = {};
            EncState st;
            Vek16s lastDc = 0;
            for (const Block& b : blocks) switch (s.kind) {
                case Kind::Baseline:
                    vekiGetHuffmanStatistics8x8_JPEG_16s_C1(b.data(), dcCounts, acCounts, &lastDc);
                    break;
                case Kind::DcFirst:
                    vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1(b.data(), dcCounts, &lastDc, s.al);
                    break;
                case Kind::DcRefine: break;
                case Kind::AcFirst:
                    vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1(b.data(), acCounts, s.ss, s.se, s.al, st.ptr(), 0);
                    break;
                case Kind::AcRefine:
                    vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1(b.data(), acCounts, s.ss, s.se, s.al, st.ptr(), 0);
                    break;
                }
            if (s.kind == Kind::AcFirst)
                vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1(nullptr, acCounts, s.ss, s.se, s.al, st.ptr(), 1);
            if (s.kind == Kind::AcRefine)
                vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1(nullptr, acCounts, s.ss, s.se, s.al, st.ptr(), 1);
            HuffmanTable dc{}, ac{};
            ASSERT_EQ(vekiEncodeHuffmanRawTableInit_JPEG_8u(dcCounts, dc.bits, dc.values), StatusOk);
            ASSERT_EQ(vekiEncodeHuffmanRawTableInit_JPEG_8u(acCounts, ac.bits, ac.values), StatusOk);
            tables.push_back(makeTables(dc, ac));
            scans.push_back(encodeScan(0, blocks, s, tables.back(), 0));
            for (int st : scans.back().statuses) ASSERT_EQ(st, StatusOk);
            optimal += scans.back().bytes.size();
            typical += encodeScan(0, blocks, s, fullTables(), 0).bytes.size();
        }
        EXPECT_LE(optimal, typical);
        Decoded d;
        d.blocks.assign(blocks.size(), Block{});
        for (size_t i = 0; i < script.size(); ++i) decodeScan(0, scans[i].bytes, script[i], tables[i], 0, d);
        EXPECT_TRUE(d.blocks == blocks);
    }
}

// ---- the decoder's stream rules ---------------------------------------------

TEST(JpegHuffman, DecoderStopsAtMarkersAndEndsWithoutChange) {
    const Block b = randomBlock();
    Encoded e = encodeScan(0, {b}, {Kind::Baseline, 0, 63, 0}, standardTables(), 0);  // ends FF D9
    Tables& t = const_cast<Tables&>(standardTables());
    onEveryLevel([&](int level) {
        auto decode = [&](const Bytes& s, int& pos, Block& out, Vek16s& lastDc, int& marker, DecState& st) {
            InputArray<Vek8u> in(int(s.size()));
            memcpy(in.data(), s.data(), s.size());
            return vek::vekTable_vekiDecodeHuffman8x8_JPEG_1u16s_C1[level](
                in.data(), int(s.size()), &pos, out.data(), &lastDc, &marker, dec(t.decDc), dec(t.decAc), st.ptr());
        };
        DecState st;
        Block out{};
        int pos = 0, marker = 0;
        Vek16s lastDc = 0;
        ASSERT_EQ(decode(e.bytes, pos, out, lastDc, marker, st), StatusOk);
        EXPECT_TRUE(out == b);
        EXPECT_EQ(marker, 0xD9);
        EXPECT_EQ(pos, int(e.bytes.size()) - 2);  // resting on the marker
        // A second block needs bits past the marker: nothing changes.
        const DecodeState before = st.s;
        Block again = out;
        EXPECT_EQ(decode(e.bytes, pos, again, lastDc, marker, st), StatusDataUnderRun);
        EXPECT_TRUE(again == out);
        EXPECT_EQ(pos, int(e.bytes.size()) - 2);
        EXPECT_EQ(memcmp(&before, &st.s, sizeof before), 0);
        // Cut short, the block fails; with the whole stream the same call works.
        for (size_t cut = 1; cut + 2 < e.bytes.size(); cut += 1 + cut / 4) {
            DecState fresh;
            Block part{};
            int p = 0, m = 0;
            Vek16s dc = 0;
            const Bytes head(e.bytes.begin(), e.bytes.begin() + cut);
            ASSERT_EQ(decode(head, p, part, dc, m, fresh), StatusDataUnderRun) << "cut " << cut;
            EXPECT_EQ(p, 0);
            EXPECT_EQ(dc, 0);
            ASSERT_EQ(decode(e.bytes, p, part, dc, m, fresh), StatusOk);
            EXPECT_TRUE(part == b);
        }
    });
}

// Damaged streams: each level gives level 0's statuses and blocks, and the
// decoders stay inside their input and block (guards and no-access pages).
void diffDecoder(Kind kind) {
    for (int round = 0; round < rounds(40); ++round) {
        const std::vector<Block> blocks = randomBlocks(1 + int(rng()() % 40));
        Scan scan{kind, 0, 63, 0};
        if (kind == Kind::Baseline) scan = {kind, 0, 63, 0};
        for (const Scan& s : progressiveScript())
            if (s.kind == kind) scan = s;
        const Tables& t = round % 2 && kind == Kind::Baseline ? standardTables() : fullTables();
        Bytes stream = encodeScan(0, blocks, scan, t, round % 3 ? 0 : 7).bytes;
        const int damage = int(rng()() % 4);
        for (int i = 0; i < damage * 3 && !stream.empty(); ++i) stream[rng()() % stream.size()] = uint8_t(rng()());
        if (damage == 3) stream.resize(rng()() % (stream.size() + 1));
        if (stream.empty()) stream.push_back(0xFF);
        Decoded ref;
        ref.blocks = blocks;
        decodeScan(0, stream, scan, t, round % 3 ? 0 : 7, ref);
        for (int level : levelsToCompare()) {
            Decoded d;
            d.blocks = blocks;
            decodeScan(level, stream, scan, t, round % 3 ? 0 : 7, d);
            ASSERT_EQ(d.statuses, ref.statuses) << "level " << level;
            ASSERT_TRUE(d.blocks == ref.blocks) << "level " << level;
        }
    }
}

// Encoders: every level writes level 0's bytes and statuses, blocks out of
// range included, into outputs of every size.
void diffEncoder(Kind kind) {
    for (int round = 0; round < rounds(30); ++round) {
        const std::vector<Block> blocks = randomBlocks(1 + int(rng()() % 60), true);
        Scan scan{kind, 0, 63, 0};
        for (const Scan& s : progressiveScript())
            if (s.kind == kind && (kind != Kind::AcFirst || rng()() % 2)) scan = s;
        const Tables& t =
            round % 2 && kind != Kind::AcFirst && kind != Kind::AcRefine ? standardTables() : fullTables();
        const int room = round % 4 ? 1 << 16 : 1 + int(rng()() % 600);
        const Encoded ref = encodeScan(0, blocks, scan, t, round % 3 ? 0 : 5, room);
        for (int level : levelsToCompare()) {
            const Encoded e = encodeScan(level, blocks, scan, t, round % 3 ? 0 : 5, room);
            ASSERT_EQ(e.statuses, ref.statuses) << "level " << level;
            ASSERT_EQ(e.bytes, ref.bytes) << "level " << level;
        }
    }
}

// Counters: every level counts what level 0 counts, states included.
template <class Count>
void diffCounter(Count count) {
    for (int round = 0; round < rounds(30); ++round) {
        const std::vector<Block> blocks = randomBlocks(1 + int(rng()() % 60), true);
        auto run = [&](int level) {
            std::vector<int> out(512, 0);
            EncState st;
            Vek16s lastDc = 0;
            for (const Block& b : blocks) out.push_back(count(level, b.data(), out.data(), &lastDc, st.ptr(), 0));
            out.push_back(count(level, nullptr, out.data(), &lastDc, st.ptr(), 1));
            out.push_back(lastDc);
            return out;
        };
        const std::vector<int> ref = run(0);
        for (int level : levelsToCompare()) ASSERT_EQ(run(level), ref) << "level " << level;
    }
}

}  // namespace

VEK_DIFF_CASE(vekiEncodeHuffman8x8_JPEG_16s1u_C1, [] { diffEncoder(Kind::Baseline); });
VEK_DIFF_CASE(vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1, [] { diffEncoder(Kind::DcFirst); });
VEK_DIFF_CASE(vekiEncodeHuffman8x8_DCRefine_JPEG_16s1u_C1, [] { diffEncoder(Kind::DcRefine); });
VEK_DIFF_CASE(vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1, [] { diffEncoder(Kind::AcFirst); });
VEK_DIFF_CASE(vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1, [] { diffEncoder(Kind::AcRefine); });
VEK_DIFF_CASE(vekiDecodeHuffman8x8_JPEG_1u16s_C1, [] { diffDecoder(Kind::Baseline); });
VEK_DIFF_CASE(vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1, [] { diffDecoder(Kind::DcFirst); });
VEK_DIFF_CASE(vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1, [] { diffDecoder(Kind::DcRefine); });
VEK_DIFF_CASE(vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1, [] { diffDecoder(Kind::AcFirst); });
VEK_DIFF_CASE(vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1, [] { diffDecoder(Kind::AcRefine); });
VEK_DIFF_CASE(vekiGetHuffmanStatistics8x8_JPEG_16s_C1, [] {
    diffCounter([](int level, const Vek16s* b, int* counts, Vek16s* lastDc, VekEncodeHuffmanState*, int flush) {
        return flush ? 0
                     : vek::vekTable_vekiGetHuffmanStatistics8x8_JPEG_16s_C1[level](b, counts, counts + 256, lastDc);
    });
});
VEK_DIFF_CASE(vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1, [] {
    diffCounter([](int level, const Vek16s* b, int* counts, Vek16s* lastDc, VekEncodeHuffmanState*, int flush) {
        return flush ? 0 : vek::vekTable_vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1[level](b, counts, lastDc, 1);
    });
});
VEK_DIFF_CASE(vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1, [] {
    diffCounter([](int level, const Vek16s* b, int* counts, Vek16s*, VekEncodeHuffmanState* st, int flush) {
        return vek::vekTable_vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1[level](b, counts, 1, 63, 1, st, flush);
    });
});
VEK_DIFF_CASE(vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1, [] {
    diffCounter([](int level, const Vek16s* b, int* counts, Vek16s*, VekEncodeHuffmanState* st, int flush) {
        return vek::vekTable_vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1[level](b, counts, 3, 50, 2, st, flush);
    });
});

// The table and state builders share one implementation on every level;
// their cases check that level 0 gives what the others give.
template <class Fn>
void sameOnEveryLevel(Fn run) {
    const Bytes ref = run(0);
    for (int level : levelsToCompare()) ASSERT_EQ(run(level), ref) << "level " << level;
}
#define VEK_SIZE_CASE(name)                                                                         \
    VEK_DIFF_CASE(name, [] {                                                                        \
        sameOnEveryLevel([](int level) {                                                            \
            int size = 0;                                                                           \
            EXPECT_EQ(vek::vekTable_##name[level](&size), StatusOk);                                \
            EXPECT_GT(size, 0);                                                                     \
            return Bytes(reinterpret_cast<uint8_t*>(&size), reinterpret_cast<uint8_t*>(&size + 1)); \
        });                                                                                         \
    })
VEK_SIZE_CASE(vekiEncodeHuffmanSpecGetSize_JPEG_8u);
VEK_SIZE_CASE(vekiDecodeHuffmanSpecGetSize_JPEG_8u);
VEK_SIZE_CASE(vekiEncodeHuffmanStateGetSize_JPEG_8u);
VEK_SIZE_CASE(vekiDecodeHuffmanStateGetSize_JPEG_8u);
VEK_DIFF_CASE(vekiEncodeHuffmanStateInit_JPEG_8u, [] {
    sameOnEveryLevel([](int level) {
        EncodeState s;
        memset(&s, 0x5A, sizeof s);
        EXPECT_EQ(vek::vekTable_vekiEncodeHuffmanStateInit_JPEG_8u[level](reinterpret_cast<VekEncodeHuffmanState*>(&s)),
                  StatusOk);
        return Bytes(reinterpret_cast<uint8_t*>(&s), reinterpret_cast<uint8_t*>(&s + 1));
    });
});
VEK_DIFF_CASE(vekiDecodeHuffmanStateInit_JPEG_8u, [] {
    sameOnEveryLevel([](int level) {
        DecodeState s;
        memset(&s, 0x5A, sizeof s);
        EXPECT_EQ(vek::vekTable_vekiDecodeHuffmanStateInit_JPEG_8u[level](reinterpret_cast<VekDecodeHuffmanState*>(&s)),
                  StatusOk);
        return Bytes(reinterpret_cast<uint8_t*>(&s), reinterpret_cast<uint8_t*>(&s + 1));
    });
});

namespace {
// Random tables, valid or not: counts of random lengths, random symbols.
HuffmanTable randomTable() {
    HuffmanTable t{};
    Rng& r = rng();
    int left = int(r() % 300);
    for (int l = 0; l < 16 && left > 0; ++l) {
        t.bits[l] = static_cast<uint8_t>(std::min<int>(left, int(r() % (4u << (l / 2)))));
        left -= t.bits[l];
    }
    for (uint8_t& v : t.values) v = static_cast<uint8_t>(r());
    return t;
}
}  // namespace

VEK_DIFF_CASE(vekiEncodeHuffmanSpecInit_JPEG_8u, [] {
    for (int round = 0; round < rounds(50); ++round) {
        const HuffmanTable t = randomTable();
        sameOnEveryLevel([&](int level) {
            EncodeSpec s;
            memset(&s, 0x5A, sizeof s);
            const VekStatus status = vek::vekTable_vekiEncodeHuffmanSpecInit_JPEG_8u[level](
                t.bits, t.values, reinterpret_cast<VekEncodeHuffmanSpec*>(&s));
            Bytes out(reinterpret_cast<uint8_t*>(&s), reinterpret_cast<uint8_t*>(&s + 1));
            out.push_back(uint8_t(status));
            return out;
        });
    }
});
VEK_DIFF_CASE(vekiDecodeHuffmanSpecInit_JPEG_8u, [] {
    for (int round = 0; round < rounds(50); ++round) {
        const HuffmanTable t = randomTable();
        sameOnEveryLevel([&](int level) {
            DecodeSpec s;
            memset(&s, 0x5A, sizeof s);
            const VekStatus status = vek::vekTable_vekiDecodeHuffmanSpecInit_JPEG_8u[level](
                t.bits, t.values, reinterpret_cast<VekDecodeHuffmanSpec*>(&s));
            Bytes out(reinterpret_cast<uint8_t*>(&s), reinterpret_cast<uint8_t*>(&s + 1));
            out.push_back(uint8_t(status));
            return out;
        });
    }
});
VEK_DIFF_CASE(vekiEncodeHuffmanRawTableInit_JPEG_8u, [] {
    for (int round = 0; round < rounds(30); ++round) {
        int counts[256];
        for (int& c : counts) c = rng()() % 3 ? 0 : int(rng()() % (1u << (rng()() % 31)));
        sameOnEveryLevel([&](int level) {
            GuardedArray<Vek8u> out(16 + 256);
            out.fill(Bytes(16 + 256, 0x5A));
            EXPECT_EQ(vek::vekTable_vekiEncodeHuffmanRawTableInit_JPEG_8u[level](counts, out.data(), out.data() + 16),
                      StatusOk);
            EXPECT_TRUE(out.guardsIntact());
            return out.contents();
        });
    }
});

namespace {

// Properties of the optimal table: lengths at most 16, no all-ones code
// (Kraft sum below 1), a code for every counted symbol and none other, and
// the very table libjpeg-turbo's generator makes (which takes counts whose
// sum stays below 10^9).
TEST(JpegHuffman, OptimalTablesAreLimitedCompleteAndMatchLibjpeg) {
    for (int round = 0; round < rounds(200); ++round) {
        int counts[256] = {};
        const int used = 1 + int(rng()() % 256);
        for (int i = 0; i < used; ++i)
            counts[rng()() % 256] = round % 4 == 0 ? 1 << (rng()() % 21) : 1 + int(rng()() % 1000);
        HuffmanTable t{};
        ASSERT_EQ(vekiEncodeHuffmanRawTableInit_JPEG_8u(counts, t.bits, t.values), StatusOk);
        double kraft = 0;
        for (int l = 1; l <= 16; ++l) kraft += t.bits[l - 1] / double(1 << l);
        EXPECT_LT(kraft, 1.0);
        std::vector<int> listed(t.values, t.values + t.count()), counted;
        for (int s = 0; s < 256; ++s)
            if (counts[s]) counted.push_back(s);
        std::sort(listed.begin(), listed.end());
        ASSERT_EQ(listed, counted);
        EncodeSpec coder;
        EXPECT_EQ(vekiEncodeHuffmanSpecInit_JPEG_8u(t.bits, t.values, enc(coder)), StatusOk);
#ifdef VEK_HAVE_LIBJPEG
        jpeg_compress_struct cinfo;
        jpeg_error_mgr err;
        cinfo.err = jpeg_std_error(&err);
        jpeg_create_compress(&cinfo);
        JHUFF_TBL ref{};
        long freq[257] = {};
        for (int s = 0; s < 256; ++s) freq[s] = counts[s];
        jpeg_gen_optimal_table(&cinfo, &ref, freq);
        jpeg_destroy_compress(&cinfo);
        ASSERT_EQ(Bytes(ref.bits + 1, ref.bits + 17), Bytes(t.bits, t.bits + 16));
        ASSERT_EQ(Bytes(ref.huffval, ref.huffval + t.count()), Bytes(t.values, t.values + t.count()));
#endif
    }
}

TEST(JpegHuffman, RejectsInvalidTablesAndArguments) {
    EncodeSpec es;
    DecodeSpec ds;
    HuffmanTable t{};
    t.bits[0] = 2;  // both 1-bit codes: the second is all ones
    EXPECT_EQ(vekiEncodeHuffmanSpecInit_JPEG_8u(t.bits, t.values, enc(es)), StatusJpegHuffmanTable);
    EXPECT_EQ(vekiDecodeHuffmanSpecInit_JPEG_8u(t.bits, t.values, dec(ds)), StatusJpegHuffmanTable);
    HuffmanTable many{};
    for (int l = 8; l < 16; ++l) many.bits[l] = 40;  // 320 codes
    EXPECT_EQ(vekiDecodeHuffmanSpecInit_JPEG_8u(many.bits, many.values, dec(ds)), StatusJpegHuffmanTable);
    HuffmanTable twice{};
    twice.bits[1] = 2;  // symbol 0 twice
    EXPECT_EQ(vekiEncodeHuffmanSpecInit_JPEG_8u(twice.bits, twice.values, enc(es)), StatusJpegHuffmanTable);
    EXPECT_EQ(vekiDecodeHuffmanSpecInit_JPEG_8u(twice.bits, twice.values, dec(ds)), StatusOk);
    EXPECT_EQ(vekiEncodeHuffmanSpecInit_JPEG_8u(nullptr, t.values, enc(es)), StatusNullPointer);
    EXPECT_EQ(vekiDecodeHuffmanSpecGetSize_JPEG_8u(nullptr), StatusNullPointer);
    int counts[256] = {};
    counts[7] = -1;
    EXPECT_EQ(vekiEncodeHuffmanRawTableInit_JPEG_8u(counts, t.bits, t.values), StatusBadArgument);

    Tables& tab = const_cast<Tables&>(standardTables());
    EncState es2;
    DecState ds2;
    Block b{};
    Vek8u out[64];
    int pos = 0, marker = 0;
    Vek16s lastDc = 0;
    EXPECT_EQ(vekiEncodeHuffman8x8_JPEG_16s1u_C1(nullptr, out, 64, &pos, &lastDc, enc(tab.encDc), enc(tab.encAc),
                                                 es2.ptr(), 0),
              StatusNullPointer);
    EXPECT_EQ(vekiEncodeHuffman8x8_JPEG_16s1u_C1(b.data(), out, 0, &pos, &lastDc, enc(tab.encDc), enc(tab.encAc),
                                                 es2.ptr(), 0),
              StatusSize);
    pos = 65;
    EXPECT_EQ(vekiEncodeHuffman8x8_JPEG_16s1u_C1(b.data(), out, 64, &pos, &lastDc, enc(tab.encDc), enc(tab.encAc),
                                                 es2.ptr(), 0),
              StatusOutOfBuffer);
    pos = 0;
    EXPECT_EQ(
        vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1(b.data(), out, 64, &pos, 0, 63, 0, enc(tab.encAc), es2.ptr(), 0),
        StatusBadArgument);
    EXPECT_EQ(
        vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1(b.data(), out, 64, &pos, 5, 4, 0, enc(tab.encAc), es2.ptr(), 0),
        StatusBadArgument);
    EXPECT_EQ(
        vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1(b.data(), out, 64, &pos, &lastDc, 14, enc(tab.encDc), es2.ptr(), 0),
        StatusBadArgument);
    b[1] = 1024;  // 11 bits of AC: beyond the 8-bit limit
    EXPECT_EQ(vekiEncodeHuffman8x8_JPEG_16s1u_C1(b.data(), out, 64, &pos, &lastDc, enc(tab.encDc), enc(tab.encAc),
                                                 es2.ptr(), 0),
              StatusJpegCoefficientRange);
    EXPECT_EQ(pos, 0);
    b[1] = 0;
    b[0] = 2048;
    EXPECT_EQ(vekiEncodeHuffman8x8_JPEG_16s1u_C1(b.data(), out, 64, &pos, &lastDc, enc(tab.encDc), enc(tab.encAc),
                                                 es2.ptr(), 0),
              StatusJpegCoefficientRange);
    EXPECT_EQ(vekiDecodeHuffman8x8_JPEG_1u16s_C1(out, 0, &pos, b.data(), &lastDc, &marker, dec(tab.decDc),
                                                 dec(tab.decAc), ds2.ptr()),
              StatusSize);
    EXPECT_EQ(vekiDecodeHuffman8x8_JPEG_1u16s_C1(out, 64, &pos, b.data(), &lastDc, nullptr, dec(tab.decDc),
                                                 dec(tab.decAc), ds2.ptr()),
              StatusNullPointer);
    // All ones is no code of the typical tables.
    Vek8u ones[8] = {0xFF, 0x00, 0xFF, 0x00, 0xFF, 0x00, 0xFF, 0x00};
    EXPECT_EQ(vekiDecodeHuffman8x8_JPEG_1u16s_C1(ones, 8, &pos, b.data(), &lastDc, &marker, dec(tab.decDc),
                                                 dec(tab.decAc), ds2.ptr()),
              StatusIllegalCode);
}

}  // namespace
}  // namespace vektest
