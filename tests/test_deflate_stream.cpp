// Whole deflate streams, made by the stream driver that the tool uses:
// every stream, whatever its class, container, block choice, dictionary,
// input and cutting, must inflate with zlib (the independent client) to
// exactly its input and end in the trailer we expect, and every level must
// make the same bytes as level 0.
//
// The library's Adler-32 trailer is seeded with 0, which zlib's own check
// rejects, so LibraryTrailer streams are inflated raw and the trailer is
// compared by itself; those of the CRC-32 kind also go through zlib's gzip
// reader behind a minimal RFC 1952 header, which checks CRC-32 and size.
#ifdef VEK_HAVE_ZLIB
#    include <zlib.h>

#    include "deflate_stream/deflate_stream.h"
#    include "harness.h"
#    include "zlib_client.h"

namespace vektest {
namespace {
using vekdeflate::BlockChoice;
using vekdeflate::Container;

std::vector<uint8_t> streamData(int kind, size_t n) {
    std::vector<uint8_t> v(n);
    Rng& r = rng();
    static const char text[] = "the quick brown fox jumps over the lazy dog; pack my box with five dozen jugs\n";
    for (size_t i = 0; i < n;) {
        if (kind == 0) {  // text-like: phrases at random offsets with typos
            const size_t start = r() % 40, len = std::min<size_t>(n - i, 5 + r() % 30);
            for (size_t j = 0; j < len; ++j)
                v[i++] = r() % 50 ? uint8_t(text[(start + j) % (sizeof text - 1)]) : uint8_t(r());
        } else if (kind == 1) {
            v[i++] = uint8_t(r());
        } else {  // runs of few values
            const uint8_t b = uint8_t(r() % 3);
            for (size_t len = 1 + r() % 600; len && i < n; --len) v[i++] = b;
        }
    }
    return v;
}

// zlib takes the stream as the container says, to exactly the data.
void expectInflates(const std::vector<Vek8u>& s, const std::vector<uint8_t>& data, const vekdeflate::Options& o,
                    const std::string& what) {
    const int windowBits = o.container == Container::Gzip ? 31 : o.container == Container::Zlib ? 15 : -15;
    const Inflated back = inflateStream(s.data(), s.size(), windowBits, o.dictionary);
    ASSERT_TRUE(back.complete) << what << ": " << back.error;
    ASSERT_TRUE(back.bytes == data) << what << ": inflates to " << back.bytes.size() << " other bytes";
    if (o.container != Container::LibraryTrailer) {
        ASSERT_EQ(back.used, s.size()) << what << ": bytes after the stream";
        return;
    }
    const std::vector<uint8_t> trailer(s.begin() + back.used, s.end());
    ASSERT_EQ(trailer, expectedTrailer(data, o.dictionary.size(), o.checksumKind)) << what;
    if (o.checksumKind == VekDeflateCrc32 && o.dictionary.size() < 3) {
        std::vector<uint8_t> gz{0x1F, 0x8B, 8, 0, 0, 0, 0, 0, 0, 0xFF};
        gz.insert(gz.end(), s.begin(), s.end());
        const Inflated viaGzip = inflateStream(gz.data(), gz.size(), 31);
        ASSERT_TRUE(viaGzip.complete && viaGzip.bytes == data) << what << ": zlib's gzip reader: " << viaGzip.error;
    }
}

// Level 0's stream inflates; every other level's is the same bytes.
void checkStream(const std::vector<uint8_t>& data, vekdeflate::Options o, const std::string& what) {
    o.level = 0;
    vekdeflate::Result r;
    const std::vector<Vek8u> reference = vekdeflate::compressBuffer(data.data(), data.size(), o, &r);
    ASSERT_TRUE(r.ok) << what << ": " << r.error;
    ASSERT_EQ(r.bytesOut, reference.size()) << what;
    expectInflates(reference, data, o, what);
    for (int level : vekdeflate::levelsWithOwnCode(availableLevels())) {
        if (level == 0) continue;
        o.level = level;
        ASSERT_TRUE(vekdeflate::compressBuffer(data.data(), data.size(), o) == reference)
            << what << ", level " << level;
    }
}

std::string describe(const vekdeflate::Options& o, size_t n, int dataKind) {
    auto list = [](const std::vector<int>& v) { return v.empty() ? std::string("-") : std::to_string(v[0]) + "..."; };
    return "class " + std::to_string(o.comprClass) + ", container " + std::to_string(int(o.container)) + " kind " +
           std::to_string(o.checksumKind) + ", choice " + std::to_string(int(o.choice)) + ", " + std::to_string(n) +
           " bytes of data kind " + std::to_string(dataKind) + ", dict " + std::to_string(o.dictionary.size()) +
           ", slices " + std::to_string(o.sliceBytes) + ", call input " + list(o.callInput) + ", call pairs " +
           list(o.callPairs) + ", output chunk " + std::to_string(o.outputChunk) + ", cut every " +
           std::to_string(o.historyCut);
}

const int kClasses[] = {VekDeflateFast, VekDeflateDefault, VekDeflateBest};

// Each class and container, one call per slice, on sizes around the pair
// list's capacity and the slice.
TEST(DeflateStream, WholeInputsInEveryContainer) {
    struct Form {
        Container container;
        int kind;
        BlockChoice choice;
    };
    const Form forms[] = {{Container::LibraryTrailer, VekDeflateAdler32, BlockChoice::SkewRuleOnly},
                          {Container::LibraryTrailer, VekDeflateCrc32, BlockChoice::SkewRuleOnly},
                          {Container::Gzip, VekDeflateCrc32, BlockChoice::Smallest},
                          {Container::Zlib, VekDeflateNoChecksum, BlockChoice::SkewRule}};
    for (int comprClass : kClasses)
        for (const Form& f : forms)
            for (int dataKind : {0, 1, 2})
                for (size_t n : {size_t(0), size_t(1), size_t(2), size_t(3), size_t(4), size_t(259), size_t(70000),
                                 lightProfile() ? size_t(300000) : size_t(dataKind ? 600000 : 1200000)}) {
                    vekdeflate::Options o;
                    o.comprClass = comprClass;
                    o.container = f.container;
                    o.checksumKind = f.kind;
                    o.choice = f.choice;
                    if (f.container == Container::LibraryTrailer) o.sliceBytes = 0;  // blocks span the input
                    const std::vector<uint8_t> data = streamData(dataKind, n);
                    checkStream(data, o, describe(o, n, dataKind));
                }
}

TEST(DeflateStream, ManySmallCallsAndTinyOutputs) {
    for (int round = 0; round < rounds(60); ++round) {
        Rng& r = rng();
        vekdeflate::Options o;
        o.comprClass = kClasses[round % 3];
        o.container = Container(r() % 4);
        o.checksumKind = int(r() % 3);
        o.choice = BlockChoice(r() % 3);
        o.sliceBytes = r() % 3 ? 0 : 1 + r() % 100000;
        o.callInput = {1 + int(r() % 5), 1 + int(r() % 3000), 1 + int(r() % 70000)};
        o.callPairs = {int(r() % 3), 1 + int(r() % 10), 1 + int(r() % 70000)};
        o.outputChunk = r() % 2 ? 1 + int(r() % 4) : 1 + int(r() % 5000);
        // The library's own trailer counts from the last cut; the containers count the whole input.
        if (o.container != Container::LibraryTrailer && r() % 4 == 0) o.historyCut = 1 + r() % 50000;
        const int dataKind = int(r() % 3);
        const size_t n = r() % (round % 10 == 0 ? 400000 : 20000);
        checkStream(streamData(dataKind, n), o, describe(o, n, dataKind));
    }
}

TEST(DeflateStream, Dictionaries) {
    for (int round = 0; round < rounds(30); ++round) {
        Rng& r = rng();
        vekdeflate::Options o;
        o.comprClass = kClasses[round % 3];
        o.container = Container::LibraryTrailer;
        o.checksumKind = round % 2 ? VekDeflateAdler32 : VekDeflateCrc32;
        o.choice = BlockChoice(r() % 3);
        static const size_t dictLengths[] = {0, 1, 2, 3, 100, 32768, 40000};
        const size_t dictLen = dictLengths[r() % 7];
        const int dataKind = int(r() % 3);
        const std::vector<uint8_t> both = streamData(dataKind, dictLen + 5000);
        o.dictionary.assign(both.begin(), both.begin() + dictLen);
        const std::vector<uint8_t> data(both.begin() + dictLen, both.end());
        if (r() % 2) o.callInput = {1 + int(r() % 700)};
        checkStream(data, o, describe(o, data.size(), dataKind));
    }
}

// What the driver refuses, it refuses with a reason and no output.
TEST(DeflateStream, DriverRefusesOptionsItCannotHonour) {
    const std::vector<uint8_t> data = streamData(0, 1000);
    auto refused = [&](const vekdeflate::Options& o) {
        vekdeflate::Result r;
        const std::vector<Vek8u> s = vekdeflate::compressBuffer(data.data(), data.size(), o, &r);
        return !r.ok && !r.error.empty() && s.empty();
    };
    vekdeflate::Options o;
    o.level = 99;
    EXPECT_TRUE(refused(o));
    o = {};
    o.container = Container::Gzip;
    o.dictionary = {1, 2, 3};
    EXPECT_TRUE(refused(o));
    o = {};
    o.callPairs = {0, 0};
    EXPECT_TRUE(refused(o));
    o = {};
    o.callInput = {5, 0};
    EXPECT_TRUE(refused(o));
}

}  // namespace
}  // namespace vektest
#endif
