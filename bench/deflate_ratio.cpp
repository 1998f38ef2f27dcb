// deflate_ratio: the compression family beside zlib and libdeflate, in one
// process, side by side:
//   - whole gzip streams of the two corpora (deflate_corpus.h), a fresh
//     state (compressor) per stream: the size, the ratio and the speed of
//     each class and of the peer levels it is weighed against (class 0
//     against libdeflate 1, class 1 against libdeflate 6, class 2 against
//     zlib 9, which it should pass by half as much again);
//   - CRC-32 and Adler-32 over 64 KiB and 16 MiB against libdeflate's and
//     zlib's;
//   - the two Huffman block coders through output rooms of 1 byte, 31 bytes
//     and 64 KiB (blocks of the first 1,000 and 65,000 pairs class 1 finds in
//     the text corpus): the time per output byte and per call, against the
//     targets (a 31-byte room within 2x the 64 KiB room's time per byte; a
//     1-byte room's time per call within 2x between the two blocks).
// --only streams|checksums|rooms runs one part.
// Each figure is the best of a few runs (--runs N, 5 by default), timed by
// the thread's processor time: on a shared machine the least disturbed.  The vek
// figures are those of the level chosen at load (VEK_MAX_LEVEL caps it).
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "deflate_corpus.h"
#include "deflate_peers.h"
#include "deflate_stream/deflate_stream.h"

namespace {

int gRuns = 5;
constexpr vekbench::PeerContainer Gzip = vekbench::PeerContainer::Gzip;

double threadSeconds() {
    timespec t;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + 1e-9 * double(t.tv_nsec);
}

double bestSeconds(const std::function<void()>& run) {
    double best = 1e30;
    for (int i = 0; i < gRuns; ++i) {
        const double t0 = threadSeconds();
        run();
        best = std::min(best, threadSeconds() - t0);
    }
    return best;
}

struct Row {
    double seconds;
    size_t size;
};

Row measure(const std::function<size_t()>& run) {
    size_t size = 0;
    const double s = bestSeconds([&] { size = run(); });
    return {s, size};
}

void printRow(const char* corpus, const std::string& who, size_t inBytes, const Row& r, const char* verdict = "") {
    printf("%-7s %-14s %10zu %7.3f %9.1f  %s\n", corpus, who.c_str(), r.size, double(inBytes) / double(r.size),
           double(inBytes) / r.seconds / 1e6, verdict);
}

void streams() {
    printf("%-7s %-14s %10s %7s %9s\n", "corpus", "gzip stream", "bytes", "ratio", "MB/s");
    for (bool text : {true, false}) {
        const std::vector<uint8_t>& data = text ? vekbench::textCorpus() : vekbench::binaryCorpus();
        const char* corpus = text ? "text" : "binary";
        printf("%-7s %-14s %10zu          %s\n", corpus, "(input)", data.size(), vekbench::corpusSource(text).c_str());
        std::vector<uint8_t> out;
        for (int cls : {VekDeflateFast, VekDeflateDefault, VekDeflateBest}) {
            vekdeflate::Options o;
            o.comprClass = cls;
            o.container = vekdeflate::Container::Gzip;
            const Row vek = measure([&] { return vekdeflate::compressBuffer(data.data(), data.size(), o).size(); });
            const bool againstZlib = cls == VekDeflateBest;
            const int peerLevel = cls == VekDeflateFast ? 1 : cls == VekDeflateDefault ? 6 : 9;
            const Row peer = measure([&] {
                return againstZlib ? vekbench::zlibCompress(data, out, peerLevel, Gzip)
                                   : vekbench::libdeflateCompress(data, out, peerLevel, Gzip);
            });
            const double need = againstZlib ? 1.5 : 1.0, got = peer.seconds / vek.seconds;
            char verdict[64];
            snprintf(verdict, sizeof verdict, "x%.2f the peer's speed (target x%.1f)%s", got, need,
                     got >= need ? "" : "  BELOW");
            printRow(corpus, "vek class " + std::to_string(cls), data.size(), vek, verdict);
            printRow(corpus, std::string(againstZlib ? "zlib " : "libdeflate ") + std::to_string(peerLevel),
                     data.size(), peer);
        }
        for (int level : {1, 6, 9})
            printRow(corpus, "zlib " + std::to_string(level), data.size(),
                     measure([&] { return vekbench::zlibCompress(data, out, level, Gzip); }));
        for (int level : {1, 6, 9, 12})
            printRow(corpus, "libdeflate " + std::to_string(level), data.size(),
                     measure([&] { return vekbench::libdeflateCompress(data, out, level, Gzip); }));
    }
}

void checksums() {
    printf("\n%-22s %10s %10s %10s\n", "checksum GB/s", "vek", "libdeflate", "zlib");
    std::vector<uint8_t> data(16 << 20);
    std::mt19937 rng(7);
    for (auto& b : data) b = static_cast<uint8_t>(rng());
    volatile uint32_t sink = 0;
    for (size_t bytes : {size_t(64) << 10, size_t(16) << 20}) {
        // Enough calls per run to time the small size.
        const int calls = bytes < (1u << 20) ? 256 : 4;
        const auto rate = [&](const std::function<uint32_t()>& one) {
            return double(bytes) * calls / bestSeconds([&] {
                       for (int i = 0; i < calls; ++i) sink = one();
                   }) /
                   1e9;
        };
        const int len = int(bytes);
        const double vekCrc = rate([&] {
            Vek32u v = 0;
            veksCRC32_8u(data.data(), len, &v);
            return v;
        });
        const double vekAdler = rate([&] {
            Vek32u v = 1;
            veksAdler32_8u(data.data(), len, &v);
            return v;
        });
        const double ldCrc = rate([&] { return libdeflate_crc32(0, data.data(), bytes); });
        const double ldAdler = rate([&] { return libdeflate_adler32(1, data.data(), bytes); });
        const double zCrc = rate([&] { return uint32_t(crc32(0, data.data(), uInt(bytes))); });
        const double zAdler = rate([&] { return uint32_t(adler32(1, data.data(), uInt(bytes))); });
        const std::string size = bytes < (1u << 20) ? "64 KiB" : "16 MiB";
        printf("%-22s %10.1f %10.1f %10.1f%s\n", ("CRC-32 " + size).c_str(), vekCrc, ldCrc, zCrc,
               vekCrc >= ldCrc ? "" : "  BELOW");
        printf("%-22s %10.1f %10.1f %10.1f%s\n", ("Adler-32 " + size).c_str(), vekAdler, ldAdler, zAdler,
               vekAdler >= ldAdler ? "" : "  BELOW");
    }
}

// The first `count` pairs class 1 finds in the text corpus.
std::vector<Vek16u> textPairs(int count) {
    const std::vector<uint8_t>& data = vekbench::textCorpus();
    std::vector<Vek16u> pairs(2 * size_t(count));
    VekDeflateState* s = nullptr;
    veksEncodeLZ77InitAlloc_8u(VekDeflateDefault, VekDeflateNoChecksum, &s);
    const Vek8u* src = data.data();
    int srcLen = int(data.size()), room = count;
    Vek16u* p = pairs.data();
    veksEncodeLZ77_8u(&src, &srcLen, &p, &room, VekDeflateNoFlush, s);
    veksLZ77Free_8u(s);
    pairs.resize(size_t(p - pairs.data()));
    return pairs;
}

void rooms() {
    printf("\n%-34s %8s %8s %12s %10s\n", "block coder, output room", "calls", "bytes", "ns/out byte", "ns/call");
    VekDeflateState* state = nullptr;
    veksEncodeLZ77InitAlloc_8u(VekDeflateDefault, VekDeflateNoChecksum, &state);
    std::vector<Vek8u> out(1 << 20);
    for (bool dynamic : {false, true}) {
        double perCallOfRoom1[2] = {}, perByteOf64K = 0;
        for (int block = 0; block < 2; ++block) {
            const int pairCount = block ? 65000 : 1000;
            const std::vector<Vek16u> pairs = textPairs(pairCount);
            for (int room : {64 << 10, 31, 1}) {
                long calls = 0, bytes = 0;
                // One whole block through outputs of `room` bytes, each handed
                // back empty as a writer would.
                const auto codeBlock = [&] {
                    const Vek16u* p = pairs.data();
                    int n = int(pairs.size() / 2), left = room;
                    Vek8u* dst = out.data();
                    calls = 1, bytes = 0;
                    const auto coder = dynamic ? veksEncodeLZ77DynamicHuff_8u : veksEncodeLZ77FixedHuff_8u;
                    while (coder(&p, &n, &dst, &left, VekDeflateNoFlush, state) == StatusDstSize) {
                        bytes += room - left, ++calls;
                        dst = out.data(), left = room;
                    }
                    bytes += room - left;
                };
                const int repeat = room == 1 && pairCount > 1000 ? 1 : 20;
                const double s = bestSeconds([&] {
                                     for (int i = 0; i < repeat; ++i) codeBlock();
                                 }) /
                                 repeat;
                const double perByte = s / double(bytes) * 1e9, perCall = s / double(calls) * 1e9;
                std::string verdict;
                if (room == 64 << 10) perByteOf64K = perByte;
                if (room == 31)
                    verdict = perByte <= 2 * perByteOf64K ? "within 2x the 64 KiB room's"
                                                          : "BELOW: over 2x the 64 KiB room's";
                if (room == 1) perCallOfRoom1[block] = perCall;
                if (room == 1 && block == 1) {
                    const double r = perCallOfRoom1[1] / perCallOfRoom1[0];
                    char text[80];
                    snprintf(text, sizeof text, "x%.2f the 1,000-pair block's per call%s", r,
                             r <= 2 && r >= 0.5 ? "" : "  BELOW");
                    verdict = text;
                }
                char name[64];
                snprintf(name, sizeof name, "%s %5d pairs, %5d B", dynamic ? "dynamic" : "fixed  ",
                         int(pairs.size() / 2), room);
                printf("%-34s %8ld %8ld %12.2f %10.1f  %s\n", name, calls, bytes, perByte, perCall, verdict.c_str());
            }
        }
    }
    veksLZ77Free_8u(state);
}

}  // namespace

int main(int argc, char** argv) {
    std::string only;
    for (int i = 1; i < argc; ++i) {
        if (!strcmp(argv[i], "--runs") && i + 1 < argc) {
            gRuns = std::max(1, atoi(argv[++i]));
        } else if (!strcmp(argv[i], "--only") && i + 1 < argc) {
            only = argv[++i];
        } else {
            fprintf(stderr, "usage: deflate_ratio [--runs N] [--only streams|checksums|rooms]\n");
            return 2;
        }
    }
    if (only.empty() || only == "streams") streams();
    if (only.empty() || only == "checksums") checksums();
    if (only.empty() || only == "rooms") rooms();
    return 0;
}
