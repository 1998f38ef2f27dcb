// libFuzzer target: the whole deflate encoder, driven by the stream driver
// with arbitrary input, class, checksum kind, block choice, dictionary,
// slices, call input, pair room and output room, must give on level 0 a
// stream that zlib inflates to the input, followed by the trailer we
// expect, and the same bytes on every other level the processor runs.
//
// Build and run (clang with libFuzzer, ASan and UBSan):
//   tests/fuzz/build-and-run.sh [seconds]      # default 60
// The first bytes of each fuzz input choose the options; the rest is the
// data (part of it becomes the dictionary when one is chosen).
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <zlib.h>

#include "../zlib_client.h"
#include "core/cpu.h"
#include "core/dispatch.h"
#include "deflate_stream/deflate_stream.h"

namespace {

[[noreturn]] void failWith(const char* what) {
    fprintf(stderr, "fuzz_deflate: %s\n", what);
    abort();
}

const std::vector<int>& levelsToCompare() {
    static const std::vector<int> levels = [] {
        int l[vek::kLevelCount];
        return vekdeflate::levelsWithOwnCode(std::vector<int>(l, l + vek::supportedLevels(l)));
    }();
    return levels;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* in, size_t size) {
    if (size < 8) return 0;
    static const int kClasses[] = {VekDeflateFast, VekDeflateDefault, VekDeflateBest};
    static const int kKinds[] = {VekDeflateNoChecksum, VekDeflateAdler32, VekDeflateCrc32};
    vekdeflate::Options o;
    o.container = vekdeflate::Container::LibraryTrailer;
    o.comprClass = kClasses[in[0] % 3];
    o.checksumKind = kKinds[(in[0] >> 2) % 3];
    o.choice = vekdeflate::BlockChoice((in[3] >> 2) % 3);
    const bool withDict = in[0] & 0x40;
    o.callInput = {1 + in[1] * (in[0] & 0x80 ? 1 : 257), 1 + in[2] * 31};
    o.callPairs = {in[3] % 4, 1 + in[4] * (in[4] & 1 ? 1 : 300)};
    o.outputChunk = 1 + in[5] * (in[6] & 1 ? 1 : 97);
    o.sliceBytes = in[6] & 2 ? 1 + size_t(in[6] >> 2) * 1021 : 0;
    in += 8;
    size -= 8;
    size_t dictLen = withDict ? std::min<size_t>(size / 2, size_t(in[-1]) * 160) : 0;
    o.dictionary.assign(in, in + dictLen);
    const std::vector<uint8_t> data(in + dictLen, in + size);

    o.level = 0;
    vekdeflate::Result r;
    const std::vector<Vek8u> s = vekdeflate::compressBuffer(data.data(), data.size(), o, &r);
    if (!r.ok) failWith(r.error.c_str());
    const vektest::Inflated back = vektest::inflateStream(s.data(), s.size(), -15, o.dictionary);
    if (!back.complete) failWith(back.error.c_str());
    if (back.bytes != data) failWith("the stream inflates to other bytes");
    if (std::vector<uint8_t>(s.begin() + back.used, s.end()) != vektest::expectedTrailer(data, dictLen, o.checksumKind))
        failWith("wrong trailer");
    for (int level : levelsToCompare()) {
        o.level = level;
        if (level != 0 && vekdeflate::compressBuffer(data.data(), data.size(), o) != s)
            failWith(("level " + std::to_string(level) + " makes other bytes than level 0").c_str());
    }
    return 0;
}
