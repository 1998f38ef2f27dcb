// TIFF rows: PackBits coding on every level against level 0 over every
// output room and start, round trips through a decoder written here from
// the packet format, the fold of short runs checked on the packets, the
// worked cases, and the byte planes against their definition.
#include <algorithm>

#include "harness.h"

namespace vektest {
namespace {

using Bytes = std::vector<uint8_t>;
using PackFn = VekStatus(VEK_CALL*)(const Vek8u*, int, Vek8u*, int*, int);
using UnpackFn = VekStatus(VEK_CALL*)(const Vek8u*, int*, int, Vek8u*, int);

PackFn packer(int level) { return vek::vekTable_vekiPackBitsRow_TIFF_8u_C1[level]; }
UnpackFn unpacker(int level) { return vek::vekTable_vekiUnpackBitsRow_TIFF_8u_C1[level]; }

// Random bytes, runs of 1..300 equal bytes, or text with doubled letters.
enum class Kind { Random, Runs, Text };
Bytes rowOf(Kind kind, int len) {
    Bytes v;
    Rng& r = rng();
    while (int(v.size()) < len) switch (kind) {
        case Kind::Random: v.push_back(uint8_t(r() % (r() % 2 ? 256 : 3))); break;
        case Kind::Runs: v.insert(v.end(), 1 + (r() % 8 ? r() % 6 : r() % 300), uint8_t(r() % 3)); break;
        case Kind::Text: {
            static const char* const words[] = {"a", "little", "coffee", "off", "three", "see", "bookkeeper", "zz"};
            for (const char* w = words[r() % 8]; *w; ++w) v.push_back(uint8_t(*w));
            v.push_back(' ');
        }
        }
    v.resize(len);
    return v;
}

// One call's visible effect: status, position after, the whole buffer.
struct Result {
    int status, position;
    Bytes buffer;
    bool operator==(const Result& o) const {
        return status == o.status && position == o.position && buffer == o.buffer;
    }
};

// Packs `row` into a buffer of `room` bytes (its first `start` bytes and
// everything past what is written keep their filler), between guards.
Result pack(int level, const Bytes& row, int room, int start, int offset = 0) {
    const InputArray<Vek8u> src = guardedCopy(row);
    GuardedArray<Vek8u> dst(room, offset);
    int position = start;
    Result r;
    r.status = packer(level)(src.data(), int(row.size()), dst.data(), &position, room);
    r.position = position;
    EXPECT_TRUE(dst.guardsIntact());
    r.buffer = dst.contents();
    return r;
}
Bytes packWhole(int level, const Bytes& row) {
    Result r = pack(level, row, int(row.size()) * 2 + 2, 0);
    EXPECT_EQ(r.status, StatusOk);
    r.buffer.resize(size_t(r.position));
    return r.buffer;
}

Result unpack(int level, const Bytes& coded, int start, int dstLen) {
    const InputArray<Vek8u> src = guardedCopy(coded);
    GuardedArray<Vek8u> dst(dstLen);
    int position = start;
    Result r;
    r.status = unpacker(level)(src.data(), &position, int(coded.size()), dst.data(), dstLen);
    r.position = position;
    EXPECT_TRUE(dst.guardsIntact());
    r.buffer = dst.contents();
    return r;
}

// The packets of a stream, as the format defines them: a length (negative
// for a run) and the bytes it stands for.
struct Packet {
    int length;  // literal bytes, or minus the run's length
    Bytes bytes;
};
std::vector<Packet> parse(const Bytes& s) {
    std::vector<Packet> packets;
    for (size_t i = 0; i < s.size();) {
        const int n = int8_t(s[i++]);
        if (n == -128) continue;
        if (n < 0) {
            packets.push_back({n - 1, Bytes(size_t(1 - n), s.at(i++))});
        } else {
            EXPECT_LE(i + n + 1, s.size()) << "a literal packet runs past the stream";
            packets.push_back({n + 1, Bytes(s.begin() + i, s.begin() + std::min(s.size(), i + n + 1))});
            i += size_t(n) + 1;
        }
    }
    return packets;
}
Bytes decode(const Bytes& s) {
    Bytes out;
    for (const Packet& p : parse(s)) out.insert(out.end(), p.bytes.begin(), p.bytes.end());
    return out;
}

VEK_DIFF_CASE(vekiPackBitsRow_TIFF_8u_C1, [] {
    for (int round = 0; round < rounds(2); ++round)
        for (Kind kind : {Kind::Random, Kind::Runs, Kind::Text})
            for (int len : testLengths()) {
                if (len > 1000) continue;
                const Bytes row = rowOf(kind, len);
                const int whole = int(packWhole(0, row).size()), start = rng()() % 3 ? 0 : int(rng()() % 20);
                const int offset = int(rng()() % 16);
                for (int room = 1; room <= whole + start + 2; room += room < 200 ? 1 : 1 + room / 16) {
                    const Result ref = pack(0, row, room, start, offset);
                    for (int level : levelsToCompare()) {
                        if (level == 0) continue;
                        ASSERT_TRUE(pack(level, row, room, start, offset) == ref)
                            << "level " << level << " len " << len << " room " << room << " start " << start;
                    }
                }
            }
});

VEK_DIFF_CASE(vekiUnpackBitsRow_TIFF_8u_C1, [] {
    for (int round = 0; round < rounds(2); ++round)
        for (Kind kind : {Kind::Random, Kind::Runs, Kind::Text})
            for (int len : testLengths()) {
                if (len > 1000) continue;
                const Bytes row = rowOf(kind, len);
                const Bytes coded = rng()() % 4 ? packWhole(0, row) : rowOf(Kind::Random, len);  // or any bytes
                for (int dstLen = 1; dstLen <= len + 130; dstLen += dstLen < 150 ? 1 : 1 + dstLen / 16) {
                    const int start = rng()() % 4 ? 0 : int(rng()() % (coded.size() + 2));
                    const Result ref = unpack(0, coded, start, dstLen);
                    for (int level : levelsToCompare()) {
                        if (level == 0) continue;
                        ASSERT_TRUE(unpack(level, coded, start, dstLen) == ref)
                            << "level " << level << " len " << len << " dstLen " << dstLen;
                    }
                }
            }
});

// Whole rows decode to themselves through the format's decoder and the
// library's; the packets are as short as the rules make them: runs are
// whole up to 128, literals are split only at 128, and no run of two
// stands between two literals that the fold could have joined.
TEST(PackBits, RoundTripsAndPacketRules) {
    onEveryLevel([](int level) {
        for (int round = 0; round < rounds(20); ++round)
            for (Kind kind : {Kind::Random, Kind::Runs, Kind::Text}) {
                const Bytes row = rowOf(kind, 1 + int(rng()() % 2000));
                const Bytes coded = packWhole(level, row);
                ASSERT_EQ(decode(coded), row);
                const Result back = unpack(level, coded, 0, int(row.size()));
                ASSERT_EQ(back.status, StatusOk);
                ASSERT_EQ(back.position, int(coded.size()));
                ASSERT_EQ(back.buffer, row);
                const std::vector<Packet> p = parse(coded);
                for (size_t i = 0; i + 1 < p.size(); ++i) {
                    const bool shortRun = p[i].length < 0 && p[i].length > -128;
                    ASSERT_FALSE(shortRun && p[i].bytes[0] == p[i + 1].bytes[0]) << "a run cut short at packet " << i;
                    ASSERT_FALSE(p[i].length > 0 && p[i + 1].length > 0 && p[i].length < 128)
                        << "a literal cut short at packet " << i;
                    ASSERT_FALSE(i + 2 < p.size() && p[i].length > 0 && p[i].length + 2 < 128 &&
                                 p[i + 1].length == -2 && p[i + 2].length > 0)
                        << "an unfolded run of two at packet " << i + 1;
                }
            }
    });
}

TEST(PackBits, WorkedCases) {
    const auto bytes = [](const char* s) { return Bytes(s, s + strlen(s)); };
    onEveryLevel([&](int level) {
        EXPECT_EQ(packWhole(level, Bytes(300, 'x')), (Bytes{0x81, 'x', 0x81, 'x', 0xD5, 'x'}));  // -127, -127, -43
        EXPECT_EQ(packWhole(level, bytes("ABBCD")), (Bytes{4, 'A', 'B', 'B', 'C', 'D'}));
        EXPECT_EQ(packWhole(level, bytes("ABBCDDEF")), (Bytes{7, 'A', 'B', 'B', 'C', 'D', 'D', 'E', 'F'}));
        EXPECT_EQ(packWhole(level, bytes("ABB")), (Bytes{0, 'A', 0xFF, 'B'}));                // no literal follows
        EXPECT_EQ(packWhole(level, bytes("ABBCCC")), (Bytes{0, 'A', 0xFF, 'B', 0xFE, 'C'}));  // a run follows
        // The fold limit: a literal of 125 takes the run and the rest up to
        // 128; one of 126 does not.
        for (int lead : {125, 126}) {
            Bytes row;
            for (int i = 0; i < lead; ++i) row.push_back(uint8_t(i % 2 ? 'a' : 'b'));
            for (const char* tail = "ZZxyz"; *tail; ++tail) row.push_back(uint8_t(*tail));
            const std::vector<Packet> p = parse(packWhole(level, row));
            const std::vector<int> expect = lead == 125 ? std::vector<int>{128, 2} : std::vector<int>{126, -2, 3};
            ASSERT_EQ(p.size(), expect.size()) << lead;
            for (size_t i = 0; i < p.size(); ++i) EXPECT_EQ(p[i].length, expect[i]) << lead;
        }

        // Room: the buffer length counts from pDst; a packet that fits
        // exactly is written, one byte short stops at the last whole packet
        // (a literal is never cut).
        const Bytes row = bytes("xxxxabc");  // packets -3 'x' (2 bytes), 2 'a' 'b' 'c' (4 bytes)
        Result r = pack(level, row, 3 + 6, 3);
        EXPECT_EQ(r.status, StatusOk);
        EXPECT_EQ(r.position, 9);
        EXPECT_EQ(Bytes(r.buffer.begin() + 3, r.buffer.end()), (Bytes{0xFD, 'x', 2, 'a', 'b', 'c'}));
        r = pack(level, row, 3 + 5, 3);
        EXPECT_EQ(r.status, StatusDataUnderRun);
        EXPECT_EQ(r.position, 5);
        EXPECT_EQ(r.buffer[5], kGuard);
        r = pack(level, row, 8, 9);  // starts past the end
        EXPECT_EQ(r.status, StatusDataUnderRun);
        EXPECT_EQ(r.position, 9);
        // A full output in the middle of a fold leaves the packets unfolded.
        r = pack(level, bytes("ABBCD"), 5, 0);
        EXPECT_EQ(r.status, StatusDataUnderRun);
        EXPECT_EQ(r.position, 4);
        EXPECT_EQ(Bytes(r.buffer.begin(), r.buffer.begin() + 4), (Bytes{0, 'A', 0xFF, 'B'}));

        // Decoding: -128 consumes a byte and produces nothing, but not
        // after the row is full; a packet that does not fit is not decoded.
        r = unpack(level, {0x80, 0xFE, 'q', 0x80}, 0, 3);
        EXPECT_EQ(r.status, StatusOk);
        EXPECT_EQ(r.position, 3);
        EXPECT_EQ(r.buffer, bytes("qqq"));
        r = unpack(level, {0x00, 'a', 0xFC, 'q'}, 0, 4);  // the run of 5 passes the row
        EXPECT_EQ(r.status, StatusDataUnderRun);
        EXPECT_EQ(r.position, 2);
        EXPECT_EQ(r.buffer[0], 'a');
        EXPECT_EQ(r.buffer[1], kGuard);
        r = unpack(level, {0x00, 'a', 0x03, 'b', 'c'}, 0, 10);  // the literal passes the source
        EXPECT_EQ(r.status, StatusDataUnderRun);
        EXPECT_EQ(r.position, 2);
        r = unpack(level, {0x00, 'a', 0x80}, 0, 10);  // the source ends
        EXPECT_EQ(r.status, StatusDataUnderRun);
        EXPECT_EQ(r.position, 3);
        r = unpack(level, {0xFF, 'a', 0x01, 'b', 'c'}, 2, 2);  // from a position
        EXPECT_EQ(r.status, StatusOk);
        EXPECT_EQ(r.position, 5);
        EXPECT_EQ(r.buffer, bytes("bc"));
    });
}

TEST(PackBits, RulesAtEntry) {
    onEveryLevel([](int level) {
        const Vek8u src[4] = {1, 1, 2, 3};
        Vek8u out[8];
        memset(out, 0xEE, sizeof out);
        int position = 0;
        EXPECT_EQ(packer(level)(nullptr, 4, out, &position, 8), StatusNullPointer);
        EXPECT_EQ(packer(level)(src, 0, out, nullptr, 8), StatusNullPointer);
        EXPECT_EQ(packer(level)(src, 4, nullptr, &position, 0), StatusNullPointer);
        EXPECT_EQ(packer(level)(src, 0, out, &position, 8), StatusSize);
        EXPECT_EQ(packer(level)(src, 4, out, &position, 0), StatusSize);
        position = -1;
        EXPECT_EQ(packer(level)(src, 4, out, &position, 8), StatusDataUnderRun);
        EXPECT_EQ(position, -1);
        position = 0;
        EXPECT_EQ(unpacker(level)(nullptr, &position, 4, out, 8), StatusNullPointer);
        EXPECT_EQ(unpacker(level)(src, nullptr, 0, out, 8), StatusNullPointer);
        EXPECT_EQ(unpacker(level)(src, &position, 4, nullptr, 0), StatusNullPointer);
        EXPECT_EQ(unpacker(level)(src, &position, 0, out, 8), StatusSize);
        EXPECT_EQ(unpacker(level)(src, &position, 4, out, -1), StatusSize);
        position = -2;
        EXPECT_EQ(unpacker(level)(src, &position, 4, out, 8), StatusDataUnderRun);
        EXPECT_EQ(position, -2);
        for (Vek8u b : out) EXPECT_EQ(b, 0xEE);
    });
}

// ---- byte planes -------------------------------------------------------------

VEK_DIFF_CASE(vekiJoinRow_TIFF_8u16u_C1, [] {
    for (int round = 0; round < rounds(3); ++round)
        for (int len : testLengths()) {
            const InputArray<Vek8u> high = guardedCopy(randomVector<Vek8u>(len)),
                                    low = guardedCopy(randomVector<Vek8u>(len));
            const Vek8u* const planes[2] = {high.data(), low.data()};
            GuardedArray<Vek16u> dst(len, int(rng()() % 8));
            compareLevels(
                dst, randomVector<Vek16u>(len),
                [&](int level) { return int(vek::vekTable_vekiJoinRow_TIFF_8u16u_C1[level](planes, dst.data(), len)); },
                "len " + std::to_string(len));
        }
});

// The two planes are compared as one guarded array, high plane first.
VEK_DIFF_CASE(vekiSplitRow_TIFF_16u8u_C1, [] {
    for (int round = 0; round < rounds(3); ++round)
        for (int len : testLengths()) {
            const InputArray<Vek16u> src = guardedCopy(randomVector<Vek16u>(len));
            GuardedArray<Vek8u> planes(2 * len);
            Vek8u* const pointers[2] = {planes.data(), planes.data() + len};
            compareLevels(
                planes, randomVector<Vek8u>(2 * len),
                [&](int level) {
                    return int(vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](src.data(), pointers, len));
                },
                "len " + std::to_string(len));
        }
});

// Plane 0 is the high byte: in memory, byte 2i + 1 of the row.  Split then
// join gives the row back.
TEST(TiffPlanes, BytesInMemoryAndRoundTrip) {
    onEveryLevel([](int level) {
        for (int len : testLengths()) {
            const std::vector<Vek16u> row = randomVector<Vek16u>(len);
            Bytes high(len), low(len);
            Vek8u* const planes[2] = {high.data(), low.data()};
            ASSERT_EQ(vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](row.data(), planes, len), StatusOk);
            const uint8_t* bytes = reinterpret_cast<const uint8_t*>(row.data());
            for (int i = 0; i < len; ++i) {
                ASSERT_EQ(high[i], bytes[2 * i + 1]);
                ASSERT_EQ(low[i], bytes[2 * i]);
            }
            std::vector<Vek16u> back(len);
            const Vek8u* const in[2] = {high.data(), low.data()};
            ASSERT_EQ(vek::vekTable_vekiJoinRow_TIFF_8u16u_C1[level](in, back.data(), len), StatusOk);
            ASSERT_EQ(back, row);
        }
        Vek16u sample = 7;
        Vek8u byte = 9, *none = nullptr, *planes[2] = {&byte, &byte}, *holed[2] = {&byte, none};
        const Vek8u* const in[2] = {&byte, &byte};
        const Vek8u* const inHoled[2] = {none, &byte};
        EXPECT_EQ(vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](nullptr, planes, 1), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](&sample, nullptr, 0), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](&sample, holed, 1), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiSplitRow_TIFF_16u8u_C1[level](&sample, planes, 0), StatusStep);
        EXPECT_EQ(vek::vekTable_vekiJoinRow_TIFF_8u16u_C1[level](in, nullptr, 1), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiJoinRow_TIFF_8u16u_C1[level](inHoled, &sample, 1), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiJoinRow_TIFF_8u16u_C1[level](in, &sample, -1), StatusStep);
        EXPECT_EQ(sample, 7);
        EXPECT_EQ(byte, 9);
    });
}

}  // namespace
}  // namespace vektest
