// zlib and libdeflate beside the deflate encoder's classes: zlib level 1
// against class 0, 6 against class 1, 9 against class 2, and the libdeflate
// levels whose ratio on these corpora is nearest (1, 6 and 9 as well).  All
// write raw deflate of the whole corpus from one buffer, as the cases do.
#include <string>

#include "bench_cases.h"
#include "deflate_corpus.h"
#include "deflate_peers.h"
#include "vek.h"

namespace {

const std::vector<uint8_t>& corpusOf(bool text) { return vekbench::corpusHead(text); }

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
                    vekbench::zlibCompress(corpusOf(text), out, zl, vekbench::PeerContainer::Raw);
                });
                vekbench::RivalRegistrar(name, "libdeflate", [text, ld] {
                    static std::vector<uint8_t> out;
                    vekbench::libdeflateCompress(corpusOf(text), out, ld, vekbench::PeerContainer::Raw);
                });
            }
    }
} rivalsRegistrar;

}  // namespace
