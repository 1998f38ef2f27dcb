// Whole deflate streams against zlib, the independent client: every stream
// made here, whatever its class, wrapper, dictionary, input and cutting,
// must inflate to exactly its input and end in the trailer we expect.
//
// The Adler-32 trailer of checksum kind 1 is seeded with 0, which zlib's
// own check rejects, so those streams are inflated raw and the trailer is
// compared by itself; kind-2 streams also go through zlib's gzip reader
// behind a minimal RFC 1952 header, which checks CRC-32 and size itself.
#ifdef VEK_HAVE_ZLIB
#    include <zlib.h>

#    include "deflate_stream_driver.h"
#    include "harness.h"
#    include "zlib_client.h"

namespace vektest {
namespace {

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

// Makes the stream, inflates it and checks the trailer.
void roundTrip(const std::vector<uint8_t>& data, const vekstream::Knobs& k, const std::string& what) {
    const vekstream::Stream s = vekstream::compress(data.data(), data.size(), k);
    ASSERT_EQ(s.error, "") << what;
    const Inflated back = inflateStream(s.bytes.data(), s.bytes.size(), -15, k.dict);
    ASSERT_TRUE(back.complete) << what << ": " << back.error;
    ASSERT_TRUE(back.bytes == data) << what << ": inflates to " << back.bytes.size() << " other bytes";
    const std::vector<uint8_t> trailer(s.bytes.begin() + back.used, s.bytes.end());
    ASSERT_EQ(trailer, expectedTrailer(data, k.dict.size(), k.checksumKind)) << what;
    if (k.checksumKind == 2 && k.dict.size() < 3) {
        // zlib's gzip reader checks the CRC-32 and size itself, behind a minimal header.
        std::vector<uint8_t> gz{0x1F, 0x8B, 8, 0, 0, 0, 0, 0, 0, 0xFF};
        gz.insert(gz.end(), s.bytes.begin(), s.bytes.end());
        const Inflated viaGzip = inflateStream(gz.data(), gz.size(), 31);
        ASSERT_TRUE(viaGzip.complete && viaGzip.bytes == data) << what << ": zlib's gzip reader: " << viaGzip.error;
    }
}

std::string describe(const vekstream::Knobs& k, size_t n, int kind) {
    return "class " + std::to_string(k.comprClass) + " kind " + std::to_string(k.checksumKind) + ", " +
           std::to_string(n) + " bytes of data kind " + std::to_string(kind) + ", dict " +
           std::to_string(k.dict.size()) + ", first chunk " + std::to_string(k.chunks[0]) + ", pair room " +
           std::to_string(k.pairRoom[0]) + ", output room " + std::to_string(k.outputRoom);
}

TEST(DeflateStream, OneCallInflatesWithZlib) {
    for (int comprClass : {0, 1, 2})
        for (int kind : {1, 2})
            for (int dataKind : {0, 1, 2})
                for (size_t n : {size_t(0), size_t(1), size_t(2), size_t(3), size_t(4), size_t(259), size_t(70000),
                                 lightProfile() ? size_t(300000) : size_t(dataKind ? 1 : 3) << 20}) {
                    vekstream::Knobs k;
                    k.comprClass = comprClass;
                    k.checksumKind = kind;
                    const std::vector<uint8_t> data = streamData(dataKind, n);
                    roundTrip(data, k, describe(k, n, dataKind));
                }
}

TEST(DeflateStream, ManySmallCallsAndTinyOutputs) {
    for (int round = 0; round < rounds(60); ++round) {
        Rng& r = rng();
        vekstream::Knobs k;
        k.comprClass = round % 3;
        k.checksumKind = int(r() % 3);
        k.chunks = {1 + int(r() % 5), 1 + int(r() % 3000), 1 + int(r() % 70000)};
        k.pairRoom = {int(r() % 3), 1 + int(r() % 10), 1 + int(r() % 70000)};
        k.outputRoom = r() % 2 ? 1 + int(r() % 4) : 1 + int(r() % 5000);
        const int dataKind = int(r() % 3);
        const size_t n = r() % (round % 10 == 0 ? 400000 : 20000);
        roundTrip(streamData(dataKind, n), k, describe(k, n, dataKind));
    }
}

TEST(DeflateStream, Dictionaries) {
    for (int round = 0; round < rounds(30); ++round) {
        Rng& r = rng();
        vekstream::Knobs k;
        k.comprClass = round % 3;
        k.checksumKind = 1 + round % 2;
        static const size_t dictLengths[] = {0, 1, 2, 3, 100, 32768, 40000};
        const size_t dictLen = dictLengths[r() % 7];
        const int dataKind = int(r() % 3);
        const std::vector<uint8_t> both = streamData(dataKind, dictLen + 5000);
        k.dict.assign(both.begin(), both.begin() + dictLen);
        const std::vector<uint8_t> data(both.begin() + dictLen, both.end());
        if (r() % 2) k.chunks = {1 + int(r() % 700)};
        roundTrip(data, k, describe(k, data.size(), dataKind));
    }
}

}  // namespace
}  // namespace vektest
#endif
