// Benchmark corpora for the deflate encoder, assembled at run time from
// files that Debian packages ship: text (vim-runtime's doc/*.txt
// concatenated in name order, about 9.5 MB) and binary (the cmake
// executable followed by libstdc++.so.6, about 11 MB).  Where they are
// missing (another system), the text falls back to the common licences
// and package copyright files, and both to generated stand-ins of
// kCorpusBytes; corpusSource says which.  The benchmark cases take the
// first kCorpusBytes; deflate_ratio takes the whole corpora.
#ifndef VEK_BENCH_DEFLATE_CORPUS_H
#define VEK_BENCH_DEFLATE_CORPUS_H

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

namespace vekbench {

constexpr size_t kCorpusBytes = 2u << 20;

const std::vector<uint8_t>& textCorpus();
const std::vector<uint8_t>& binaryCorpus();
const std::string& corpusSource(bool text);
// The first kCorpusBytes of the text or the binary corpus.
const std::vector<uint8_t>& corpusHead(bool text);

}  // namespace vekbench

#endif
