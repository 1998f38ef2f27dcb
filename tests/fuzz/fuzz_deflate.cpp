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
#include "../zlib_client.h"

namespace {

[[noreturn]] void failWith(const char* what) {
    fprintf(stderr, "fuzz_deflate: %s\n", what);
    abort();
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
    const vektest::Inflated back = vektest::inflateStream(s.bytes.data(), s.bytes.size(), -15, k.dict);
    if (!back.complete) failWith(back.error.c_str());
    if (back.bytes != data) failWith("the stream inflates to other bytes");
    if (std::vector<uint8_t>(s.bytes.begin() + back.used, s.bytes.end()) !=
        vektest::expectedTrailer(data, dictLen, k.checksumKind))
        failWith("wrong trailer");
    return 0;
}
