// deflate_ratio: compressed sizes, ratios and speeds of the deflate
// encoder's classes beside zlib and libdeflate on the bench corpora, one
// line each.  Each figure is the best of a few runs of the whole corpus.
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "deflate_corpus.h"
#include "deflate_stream/deflate_stream.h"

size_t vekRivalZlibSize(const std::vector<uint8_t>& in, int level);
size_t vekRivalLibdeflateSize(const std::vector<uint8_t>& in, int level);

namespace {

void report(const char* corpus, const std::string& who, size_t inBytes, const std::function<size_t()>& run) {
    double best = 1e9;
    size_t size = 0;
    for (int i = 0; i < 3; ++i) {
        const auto t0 = std::chrono::steady_clock::now();
        size = run();
        best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
    }
    std::printf("%-7s %-16s %10zu %7.3f %9.1f\n", corpus, who.c_str(), size, double(inBytes) / size,
                inBytes / best / 1e6);
}

}  // namespace

int main() {
    std::printf("%-7s %-16s %10s %7s %9s\n", "corpus", "encoder", "bytes", "ratio", "MB/s");
    for (bool text : {true, false}) {
        const std::vector<uint8_t>& data = text ? vekbench::textCorpus() : vekbench::binaryCorpus();
        const char* corpus = text ? "text" : "binary";
        std::printf("%-7s %-16s %10zu\n", corpus, "(input)", data.size());
        const int zlibLevel[3] = {1, 6, 9};  // by class
        for (int cls : {VekDeflateFast, VekDeflateDefault, VekDeflateBest}) {
            vekdeflate::Options o;
            o.comprClass = cls;
            report(corpus, "vek class " + std::to_string(cls), data.size(),
                   [&] { return vekdeflate::compressBuffer(data.data(), data.size(), o).size(); });
            o.choice = vekdeflate::BlockChoice::SkewRule;
            report(corpus, "  (skew rule)", data.size(),
                   [&] { return vekdeflate::compressBuffer(data.data(), data.size(), o).size(); });
            report(corpus, "zlib " + std::to_string(zlibLevel[cls]), data.size(),
                   [&] { return vekRivalZlibSize(data, zlibLevel[cls]); });
        }
        for (int level : {1, 3, 6, 9, 12})
            report(corpus, "libdeflate " + std::to_string(level), data.size(),
                   [&] { return vekRivalLibdeflateSize(data, level); });
    }
    return 0;
}
