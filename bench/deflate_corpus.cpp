// Benchmark corpora for the deflate encoder (see deflate_corpus.h).
#include "deflate_corpus.h"

#include <string.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace vekbench {
namespace {
namespace fs = std::filesystem;

// Regular files (not links) of `dir` whose names pass `keep`, in name order.
template <class Keep>
std::vector<fs::path> filesIn(const fs::path& dir, Keep keep) {
    std::vector<fs::path> files;
    std::error_code ec;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec))
        if (it->is_regular_file(ec) && !it->is_symlink(ec) && keep(it->path())) files.push_back(it->path());
    std::sort(files.begin(), files.end());
    return files;
}

void append(std::vector<uint8_t>& corpus, const fs::path& file, size_t most) {
    std::ifstream in(file, std::ios::binary);
    std::vector<char> bytes(most);
    in.read(bytes.data(), std::streamsize(most));
    const size_t got = std::min(size_t(in.gcount()), kCorpusBytes - corpus.size());
    corpus.insert(corpus.end(), bytes.begin(), bytes.begin() + std::streamoff(got));
}

// Words and numbers drawn from a skewed vocabulary, or bytes of a few
// repeating records: stand-ins that compress roughly like the real thing.
std::vector<uint8_t> standIn(bool text) {
    std::mt19937 rng(7);
    std::vector<uint8_t> v;
    while (v.size() < kCorpusBytes) {
        if (text) {
            static const char* const words[] = {"the",  "of",           "software", "license",  "and", "to",  "any",
                                                "copy", "distribution", "without",  "warranty", "you", "may", "terms"};
            const char* w = words[std::min<unsigned>(rng() % 20, 13)];
            v.insert(v.end(), w, w + strlen(w));
            v.push_back(rng() % 12 ? ' ' : '\n');
        } else {
            const uint32_t record[4] = {uint32_t(rng() % 64), uint32_t(0x8B480000u | (rng() % 16)), 0, uint32_t(rng())};
            const uint8_t* p = reinterpret_cast<const uint8_t*>(record);
            v.insert(v.end(), p, p + sizeof record);
        }
    }
    v.resize(kCorpusBytes);
    return v;
}

}  // namespace

const std::vector<uint8_t>& textCorpus() {
    static const std::vector<uint8_t> corpus = [] {
        std::vector<uint8_t> v;
        for (const fs::path& f : filesIn("/usr/share/common-licenses", [](const fs::path&) { return true; }))
            if (v.size() < kCorpusBytes) append(v, f, kCorpusBytes);
        std::vector<fs::path> copyrights;
        std::error_code ec;
        for (const fs::path& dir : [&] {
                 std::vector<fs::path> dirs;
                 for (fs::directory_iterator it("/usr/share/doc", ec), end; !ec && it != end; it.increment(ec))
                     dirs.push_back(it->path());
                 std::sort(dirs.begin(), dirs.end());
                 return dirs;
             }())
            if (v.size() < kCorpusBytes && fs::is_regular_file(dir / "copyright", ec))
                append(v, dir / "copyright", 1 << 20);
        return v.size() == kCorpusBytes ? v : standIn(true);
    }();
    return corpus;
}

const std::vector<uint8_t>& binaryCorpus() {
    static const std::vector<uint8_t> corpus = [] {
        std::vector<uint8_t> v;
        for (const fs::path& f : filesIn("/usr/lib/x86_64-linux-gnu", [](const fs::path& p) {
                 return p.filename().string().find(".so.") != std::string::npos;
             }))
            if (v.size() < kCorpusBytes) append(v, f, 256 << 10);  // a slice of each of several libraries
        return v.size() == kCorpusBytes ? v : standIn(false);
    }();
    return corpus;
}

}  // namespace vekbench
