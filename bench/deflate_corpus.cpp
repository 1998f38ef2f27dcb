// Benchmark corpora for the deflate encoder (see deflate_corpus.h).
#include "deflate_corpus.h"

#include <ctype.h>
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

// The newest vim runtime's doc/*.txt, in name order.
std::vector<fs::path> vimDocs() {
    std::vector<fs::path> runtimes;
    std::error_code ec;
    for (fs::directory_iterator it("/usr/share/vim", ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() > 3 && name.compare(0, 3, "vim") == 0 && isdigit(static_cast<unsigned char>(name[3])) &&
            fs::is_directory(it->path() / "doc", ec))
            runtimes.push_back(it->path() / "doc");
    }
    if (runtimes.empty()) return {};
    std::sort(runtimes.begin(), runtimes.end());
    return filesIn(runtimes.back(), [](const fs::path& p) { return p.extension() == ".txt"; });
}

std::vector<uint8_t> wholeFiles(const std::vector<fs::path>& files) {
    std::vector<uint8_t> v;
    for (const fs::path& f : files) {
        std::ifstream in(f, std::ios::binary);
        v.insert(v.end(), std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return v;
}

// The licences and copyright files of the first 2 MiB of the old corpus,
// where vim's runtime is missing.
std::vector<uint8_t> licenceText() {
    std::vector<uint8_t> v;
    for (const fs::path& f : filesIn("/usr/share/common-licenses", [](const fs::path&) { return true; }))
        if (v.size() < kCorpusBytes) append(v, f, kCorpusBytes);
    std::vector<fs::path> dirs;
    std::error_code ec;
    for (fs::directory_iterator it("/usr/share/doc", ec), end; !ec && it != end; it.increment(ec))
        dirs.push_back(it->path());
    std::sort(dirs.begin(), dirs.end());
    for (const fs::path& dir : dirs)
        if (v.size() < kCorpusBytes && fs::is_regular_file(dir / "copyright", ec))
            append(v, dir / "copyright", 1 << 20);
    return v;
}

struct Corpus {
    std::vector<uint8_t> bytes;
    std::string source;
};

const Corpus& corpus(bool text) {
    static const Corpus textCorpus = [] {
        const std::vector<fs::path> docs = vimDocs();
        Corpus c{wholeFiles(docs), docs.empty() ? "" : docs.front().parent_path().string() + "/*.txt"};
        if (c.bytes.size() >= kCorpusBytes) return c;
        c = {licenceText(), "licences and copyright files (vim-runtime is not installed)"};
        if (c.bytes.size() >= kCorpusBytes) return c;
        return Corpus{standIn(true), "generated words (vim-runtime is not installed)"};
    }();
    static const Corpus binaryCorpus = [] {
        std::error_code ec;
        std::vector<fs::path> files;
        for (const char* f : {"/usr/bin/cmake", "/usr/lib/x86_64-linux-gnu/libstdc++.so.6"})
            if (fs::is_regular_file(f, ec)) files.push_back(fs::canonical(f, ec));
        Corpus c{wholeFiles(files), "/usr/bin/cmake + libstdc++.so.6"};
        if (files.size() == 2 && c.bytes.size() >= kCorpusBytes) return c;
        return Corpus{standIn(false), "generated records (cmake or libstdc++ is missing)"};
    }();
    return text ? textCorpus : binaryCorpus;
}

}  // namespace

const std::vector<uint8_t>& textCorpus() { return corpus(true).bytes; }
const std::vector<uint8_t>& binaryCorpus() { return corpus(false).bytes; }
const std::string& corpusSource(bool text) { return corpus(text).source; }

const std::vector<uint8_t>& corpusHead(bool text) {
    static const auto head = [](bool t) {
        const std::vector<uint8_t>& all = corpus(t).bytes;
        return std::vector<uint8_t>(all.begin(), all.begin() + std::ptrdiff_t(std::min(all.size(), kCorpusBytes)));
    };
    static const std::vector<uint8_t> textHead = head(true), binaryHead = head(false);
    return text ? textHead : binaryHead;
}

}  // namespace vekbench
