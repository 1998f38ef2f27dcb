// Benchmark cases of the deflate encoder: whole gzip-less (raw) streams of
// each compression class over a text and a binary corpus, made by the
// shared stream driver on the level measured, and the two Huffman
// block coders alone on pairs prepared once.  Throughput is input bytes
// per second.  The rivals (zlib, libdeflate) are in rivals_deflate.cpp.
#include <memory>
#include <string>

#include "bench_cases.h"
#include "core/dispatch.h"
#include "deflate_corpus.h"
#include "deflate_stream/deflate_stream.h"

namespace vekbench {
namespace {

const std::vector<uint8_t>& corpus(bool text) { return text ? textCorpus() : binaryCorpus(); }

// The pairs class 1 finds in the first 256 KiB of a corpus, as one list.
struct PreparedPairs {
    std::vector<Vek16u> pairs;
    size_t rawBytes = 0;
    explicit PreparedPairs(bool text) {
        const std::vector<uint8_t>& data = corpus(text);
        VekDeflateState* s = nullptr;
        veksEncodeLZ77InitAlloc_8u(VekDeflateDefault, VekDeflateNoChecksum, &s);
        rawBytes = std::min<size_t>(data.size(), 256 << 10);
        pairs.resize(2 * rawBytes);
        const Vek8u* src = data.data();
        int srcLen = int(rawBytes), room = int(rawBytes);
        Vek16u* p = pairs.data();
        veksEncodeLZ77_8u(&src, &srcLen, &p, &room, VekDeflateNoFlush, s);
        pairs.resize(size_t(p - pairs.data()));
        veksLZ77Free_8u(s);
    }
};

// One coder's state, output and prepared pairs, kept for the program.
struct CoderBench {
    PreparedPairs prepared;
    VekDeflateState* state = nullptr;
    std::vector<Vek8u> out;
    explicit CoderBench(bool text) : prepared(text), out(2 * prepared.rawBytes + 1024) {
        veksEncodeLZ77InitAlloc_8u(VekDeflateDefault, VekDeflateNoChecksum, &state);
    }
    void run(int level, bool dynamic) {
        const Vek16u* p = prepared.pairs.data();
        int n = int(prepared.pairs.size() / 2), room = int(out.size());
        Vek8u* dst = out.data();
        auto coder = dynamic ? vek::vekTable_veksEncodeLZ77DynamicHuff_8u : vek::vekTable_veksEncodeLZ77FixedHuff_8u;
        coder[level](&p, &n, &dst, &room, VekDeflateNoFlush, state);  // more follow, so the state can go on
    }
};
CoderBench& coderBench(bool text) {
    static CoderBench textBench(true), binaryBench(false);
    return text ? textBench : binaryBench;
}

}  // namespace

VEK_BENCH_FAMILY(deflate) {
    for (bool text : {true, false})
        for (int cls : {VekDeflateFast, VekDeflateDefault, VekDeflateBest}) {
            const std::string name =
                std::string("deflate/") + (text ? "text" : "binary") + "/class" + std::to_string(cls);
            cases.push_back(
                BenchCase{name, "veksEncodeLZ77_8u", int(kCorpusBytes), double(kCorpusBytes), [text, cls](int level) {
                              vekdeflate::Options o;
                              o.comprClass = cls;
                              o.level = level;
                              const std::vector<uint8_t>& data = corpus(text);
                              vekdeflate::compressBuffer(data.data(), data.size(), o);
                          }});
        }
    for (bool text : {true, false})
        for (bool dynamic : {false, true}) {
            const char* exportName = dynamic ? "veksEncodeLZ77DynamicHuff_8u" : "veksEncodeLZ77FixedHuff_8u";
            cases.push_back(BenchCase{std::string(exportName) + (text ? "/text" : "/binary"), exportName, 256 << 10,
                                      double(256 << 10),
                                      [text, dynamic](int level) { coderBench(text).run(level, dynamic); }});
        }
}

}  // namespace vekbench
