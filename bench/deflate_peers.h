// One-shot compression by the peers the deflate benchmarks compare with:
// zlib and libdeflate, each writing raw deflate (as the library's encoder
// does) or a gzip file (as `vek gzip` does) of one whole buffer.
#ifndef VEK_BENCH_DEFLATE_PEERS_H
#define VEK_BENCH_DEFLATE_PEERS_H

#include <libdeflate.h>
#include <stddef.h>
#include <stdint.h>
#include <zlib.h>

#include <vector>

namespace vekbench {

enum class PeerContainer { Raw, Gzip };

inline size_t zlibCompress(const std::vector<uint8_t>& in, std::vector<uint8_t>& out, int level,
                           PeerContainer container) {
    z_stream z{};
    const int windowBits = container == PeerContainer::Gzip ? 31 : -15;  // 31 = 15 plus the gzip header
    deflateInit2(&z, level, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
    out.resize(deflateBound(&z, uLong(in.size())));
    z.next_in = const_cast<Bytef*>(in.data());
    z.avail_in = uInt(in.size());
    z.next_out = out.data();
    z.avail_out = uInt(out.size());
    deflate(&z, Z_FINISH);
    const size_t n = z.total_out;
    deflateEnd(&z);
    return n;
}

inline size_t libdeflateCompress(const std::vector<uint8_t>& in, std::vector<uint8_t>& out, int level,
                                 PeerContainer container) {
    libdeflate_compressor* c = libdeflate_alloc_compressor(level);
    size_t n;
    if (container == PeerContainer::Gzip) {
        out.resize(libdeflate_gzip_compress_bound(c, in.size()));
        n = libdeflate_gzip_compress(c, in.data(), in.size(), out.data(), out.size());
    } else {
        out.resize(libdeflate_deflate_compress_bound(c, in.size()));
        n = libdeflate_deflate_compress(c, in.data(), in.size(), out.data(), out.size());
    }
    libdeflate_free_compressor(c);
    return n;
}

}  // namespace vekbench

#endif
