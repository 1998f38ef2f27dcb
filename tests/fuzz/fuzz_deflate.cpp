// libFuzzer target: the whole deflate encoder, driven through the public
// API with arbitrary input, class, checksum kind, dictionary, call chunking,
// pair room and output room, must give a stream that zlib inflates to the
// input, followed by the trailer we expect.
//
// Build and run (clang with libFuzzer, ASan and UBSan):
//   tests/fuzz/build-and-run.sh [seconds]      # default 60
// The first bytes of each fuzz input choose the knobs; the rest is the data
// (part of it becomes the dictionary when one is chosen).
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <zlib.h>

#include "../deflate_stream_driver.h"

namespace {

[[noreturn]] void failWith(const char* what) {
    fprintf(stderr, "fuzz_deflate: %s\n", what);
    abort();
}

std::vector<uint8_t> inflateRaw(const std::vector<uint8_t>& stream, const std::vector<uint8_t>& dict, size_t& used) {
    z_stream z{};
    if (inflateInit2(&z, -15) != Z_OK) failWith("inflateInit2");
    if (!dict.empty() && inflateSetDictionary(&z, dict.data(), uInt(dict.size())) != Z_OK) failWith("dictionary");
    std::vector<uint8_t> out, buf(1 << 16);
    z.next_in = const_cast<Bytef*>(stream.data());
    z.avail_in = uInt(stream.size());
    int r;
    do {
        z.next_out = buf.data();
        z.avail_out = uInt(buf.size());
        r = inflate(&z, Z_NO_FLUSH);
        out.insert(out.end(), buf.data(), z.next_out);
    } while (r == Z_OK);
    if (r != Z_STREAM_END) failWith(z.msg ? z.msg : "inflate did not reach the end");
    used = z.total_in;
    inflateEnd(&z);
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* in, size_t size) {
    if (size < 8) return 0;
    vekstream::Knobs k;
    k.comprClass = in[0] % 3;
    k.checksumKind = (in[0] >> 2) % 3;
    const bool withDict = in[0] & 0x40;
    k.chunks = {1 + in[1] * (in[0] & 0x80 ? 1 : 257), 1 + in[2] * 31};
    k.pairRoom = {in[3] % 4, 1 + in[4] * (in[4] & 1 ? 1 : 300)};
    k.outputRoom = 1 + in[5] * (in[6] & 1 ? 1 : 97);
    in += 8;
    size -= 8;
    size_t dictLen = withDict ? std::min<size_t>(size / 2, size_t(in[-1]) * 160) : 0;
    k.dict.assign(in, in + dictLen);
    const std::vector<uint8_t> data(in + dictLen, in + size);

    const vekstream::Stream s = vekstream::compress(data.data(), data.size(), k);
    if (!s.error.empty()) failWith(s.error.c_str());
    size_t used = 0;
    if (inflateRaw(s.bytes, k.dict, used) != data) failWith("the stream inflates to other bytes");

    const uLong kept = dictLen < 3 ? 0 : std::min<size_t>(dictLen, 32768);
    std::vector<uint8_t> expected;
    if (k.checksumKind == 1) {
        const uLong a = data.empty() ? 0 : adler32(0, data.data(), uInt(data.size()));
        expected = {uint8_t(a >> 24), uint8_t(a >> 16), uint8_t(a >> 8), uint8_t(a)};
    } else {
        const uLong c = k.checksumKind == 2 && !data.empty() ? crc32(0, data.data(), uInt(data.size())) : 0;
        for (uLong v : {c, uLong(kept + data.size())})
            for (int i = 0; i < 4; ++i) expected.push_back(uint8_t(v >> (8 * i)));
    }
    if (std::vector<uint8_t>(s.bytes.begin() + used, s.bytes.end()) != expected) failWith("wrong trailer");
    return 0;
}
