// zlib as the independent client of the deflate encoder: inflating what the
// library wrote, and the trailer it must have written.  Free of the test
// framework, so the whole-stream tests, the block-coder tests and the fuzz
// target share it.
#ifndef VEK_TESTS_ZLIB_CLIENT_H
#define VEK_TESTS_ZLIB_CLIENT_H

#include <stdint.h>
#include <zlib.h>

#include <algorithm>
#include <string>
#include <vector>

#include "vek.h"

namespace vektest {

struct Inflated {
    std::vector<uint8_t> bytes;
    size_t used = 0;        // stream bytes the blocks (and any wrapper) took
    bool complete = false;  // zlib reached the end of the stream
    std::string error;      // why not, when not complete
};

// windowBits as inflateInit2 takes them: -15 for raw blocks, 31 for gzip.
inline Inflated inflateStream(const uint8_t* data, size_t size, int windowBits, const std::vector<uint8_t>& dict = {}) {
    Inflated result;
    z_stream z{};
    if (inflateInit2(&z, windowBits) != Z_OK) return result.error = "inflateInit2 failed", result;
    if (!dict.empty() && inflateSetDictionary(&z, dict.data(), uInt(dict.size())) != Z_OK) {
        inflateEnd(&z);
        return result.error = "inflateSetDictionary failed", result;
    }
    std::vector<uint8_t> buf(1 << 16);
    z.next_in = const_cast<Bytef*>(data);
    z.avail_in = uInt(size);
    int r;
    do {
        z.next_out = buf.data();
        z.avail_out = uInt(buf.size());
        r = inflate(&z, Z_NO_FLUSH);
        result.bytes.insert(result.bytes.end(), buf.data(), z.next_out);
    } while (r == Z_OK);
    result.complete = r == Z_STREAM_END;
    if (!result.complete)
        result.error = "inflate returned " + std::to_string(r) + (z.msg ? std::string(": ") + z.msg : "");
    result.used = z.total_in;
    inflateEnd(&z);
    return result;
}

// The trailer veksEncodeLZ77Flush_8u writes after `data` was encoded behind
// a dictionary of dictLen bytes: Adler-32 seeded with 0 (deliberately: the
// library's running checksum starts from 0 for both kinds), most
// significant byte first, for VekDeflateAdler32; otherwise the CRC-32 (0
// without a checksum) and the stream position, least significant first.
inline std::vector<uint8_t> expectedTrailer(const std::vector<uint8_t>& data, size_t dictLen, int checksumKind) {
    const uLong kept = dictLen < 3 ? 0 : std::min<size_t>(dictLen, 32768);
    if (checksumKind == VekDeflateAdler32) {
        const uLong a = data.empty() ? 0 : adler32(0, data.data(), uInt(data.size()));
        return {uint8_t(a >> 24), uint8_t(a >> 16), uint8_t(a >> 8), uint8_t(a)};
    }
    const uLong check = checksumKind == VekDeflateCrc32 && !data.empty() ? crc32(0, data.data(), uInt(data.size())) : 0;
    std::vector<uint8_t> t;
    for (uLong v : {check, uLong(kept + data.size())})
        for (int i = 0; i < 4; ++i) t.push_back(uint8_t(v >> (8 * i)));
    return t;
}

}  // namespace vektest

#endif
