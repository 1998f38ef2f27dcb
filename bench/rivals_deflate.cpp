// zlib and libdeflate beside the deflate encoder's classes: zlib level 1
// against class 0, 6 against class 1, 9 against class 2, and the libdeflate
// levels whose ratio on these corpora is nearest (1, 6 and 9 as well).  All
// write raw deflate of the whole corpus from one buffer, as the cases do.
#include <libdeflate.h>
#include <zlib.h>

#include <string>

#include "bench_cases.h"
#include "deflate_corpus.h"
#include "vek.h"

namespace {

const std::vector<uint8_t>& corpusOf(bool text) { return vekbench::corpusHead(text); }

size_t zlibRaw(const std::vector<uint8_t>& in, std::vector<uint8_t>& out, int level) {
    z_stream z{};
    deflateInit2(&z, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
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

size_t libdeflateRaw(const std::vector<uint8_t>& in, std::vector<uint8_t>& out, int level) {
    libdeflate_compressor* c = libdeflate_alloc_compressor(level);
    out.resize(libdeflate_deflate_compress_bound(c, in.size()));
    const size_t n = libdeflate_deflate_compress(c, in.data(), in.size(), out.data(), out.size());
    libdeflate_free_compressor(c);
    return n;
}

struct RivalsRegistrar {
    RivalsRegistrar() {
        static const int zlibLevel[3] = {1, 6, 9}, libdeflateLevel[3] = {1, 6, 9};
        for (bool text : {true, false})
            for (int cls : {VekDeflateFast, VekDeflateDefault, VekDeflateBest}) {
                const std::string name =
                    std::string("deflate/") + (text ? "text" : "binary") + "/class" + std::to_string(cls);
                const int zl = zlibLevel[cls], ld = libdeflateLevel[cls];
                vekbench::RivalRegistrar(name, "zlib", [text, zl] {
                    static std::vector<uint8_t> out;
                    zlibRaw(corpusOf(text), out, zl);
                });
                vekbench::RivalRegistrar(name, "libdeflate", [text, ld] {
                    static std::vector<uint8_t> out;
                    libdeflateRaw(corpusOf(text), out, ld);
                });
            }
    }
} rivalsRegistrar;

}  // namespace
