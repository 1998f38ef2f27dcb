// Benchmark cases of the deflate encoder: whole gzip-less (raw) streams of
// each compression class over a text and a binary corpus, made by the
// shared stream driver on the level measured, and the two Huffman
// block coders alone on pairs prepared once, also through output rooms of
// 1 byte, 31 bytes and 64 KiB.  Throughput is input bytes
// per second.  The rivals (zlib, libdeflate) are in rivals_deflate.cpp.
#include <algorithm>
#include <memory>
#include <string>

#include "bench_cases.h"
#include "core/dispatch.h"
#include "deflate_corpus.h"
#include "deflate_stream/deflate_stream.h"

namespace vekbench {
namespace {

const std::vector<uint8_t>& corpus(bool text) { return corpusHead(text); }

// The pairs class 1 finds in the first `bytes` of a corpus, as one list.
struct PreparedPairs {
    std::vector<Vek16u> pairs;
    size_t rawBytes = 0;
    PreparedPairs(bool text, size_t bytes) {
        const std::vector<uint8_t>& data = corpus(text);
        VekDeflateState* s = nullptr;
        veksEncodeLZ77InitAlloc_8u(VekDeflateDefault, VekDeflateNoChecksum, &s);
        rawBytes = std::min<size_t>(data.size(), bytes);
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
    CoderBench(bool text, size_t bytes) : prepared(text, bytes), out(2 * prepared.rawBytes + 1024) {
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
    static CoderBench textBench(true, 256 << 10), binaryBench(false, 256 << 10);
    return text ? textBench : binaryBench;
}

// One whole block of the first `pairs` pairs of the text corpus (from its
// first MiB), through
// outputs of `room` bytes, each handed back empty as a writer would: the
// total work must not grow as the room shrinks.
void codeThroughRoom(int level, bool dynamic, int pairs, int room) {
    static CoderBench bench(true, 1 << 20);
    const Vek16u* p = bench.prepared.pairs.data();
    int n = std::min(pairs, int(bench.prepared.pairs.size() / 2));
    auto coder = dynamic ? vek::vekTable_veksEncodeLZ77DynamicHuff_8u : vek::vekTable_veksEncodeLZ77FixedHuff_8u;
    Vek8u* dst = bench.out.data();
    int left = room;
    while (coder[level](&p, &n, &dst, &left, VekDeflateNoFlush, bench.state) == StatusDstSize) {
        dst = bench.out.data();
        left = room;
    }
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
    // Output rooms: throughput counts the pair list's bytes read, so rows of
    // one block compare their time per output byte directly.
    for (bool dynamic : {false, true})
        for (int pairs : {1000, 65000})
            for (int room : {1, 31, 64 << 10}) {
                const char* exportName = dynamic ? "veksEncodeLZ77DynamicHuff_8u" : "veksEncodeLZ77FixedHuff_8u";
                cases.push_back(BenchCase{
                    std::string(exportName) + "/pairs:" + std::to_string(pairs) + "/room:" + std::to_string(room),
                    exportName, pairs, 4.0 * pairs,
                    [dynamic, pairs, room](int level) { codeThroughRoom(level, dynamic, pairs, room); }});
            }
}

}  // namespace vekbench
