// Huffman code construction for the dynamic deflate block (plain level):
// length-limited code lengths from symbol counts, the canonical codes of
// RFC 1951 3.2.2, and the dynamic block's header (the run-length coded
// code lengths and the code-length code that sends them).
#ifndef VEK_COMPRESSION_DEFLATE_HUFFMAN_H
#define VEK_COMPRESSION_DEFLATE_HUFFMAN_H

#include "compression/deflate_state.h"

namespace vek::plain::deflate {

// Code lengths of at most maxBits for the n symbols with counts; symbols
// with count 0 get length 0.  At least two symbols always get a code (the
// lowest-numbered unused ones fill in), and the code is complete, so every
// inflater accepts it.
void buildCodeLengths(const Vek32u* counts, int n, int maxBits, Vek8u* lengths);

// Canonical codes of the given lengths, bit-reversed for output least
// significant bit first.
void buildCanonicalCodes(const Vek8u* lengths, int n, Vek16u* codes);

// Counts the pairs into coder.litLen / coder.dist (end of block counted
// once).  The pairs must be valid.  With firstSeen, also lists the distinct
// literal/length symbols in the order they first appear.
void countSymbols(const Vek16u* pairs, int count, vek::deflate::BlockCoder& coder, Vek16u* firstSeen = nullptr,
                  int* distinct = nullptr);

// From the counts in coder.litLen / coder.dist: the block's codes and its
// header (counts sent, code-length code, run-length coded lengths).
void buildDynamicCodes(vek::deflate::BlockCoder& coder);

}  // namespace vek::plain::deflate

#endif
