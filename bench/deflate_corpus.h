// Benchmark corpora for the deflate encoder, assembled at run time from
// files that Debian packages ship: text (the common licences, then package
// copyright files) and binary (shared libraries), each cut at kCorpusBytes.
// Files are taken in name order, so a machine always builds the same
// corpus.  Where the files are missing (a foreign system), a generated
// stand-in of the same size keeps the cases running.
#ifndef VEK_BENCH_DEFLATE_CORPUS_H
#define VEK_BENCH_DEFLATE_CORPUS_H

#include <stddef.h>
#include <stdint.h>

#include <vector>

namespace vekbench {

constexpr size_t kCorpusBytes = 2u << 20;

const std::vector<uint8_t>& textCorpus();
const std::vector<uint8_t>& binaryCorpus();

}  // namespace vekbench

#endif
