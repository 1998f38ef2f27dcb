// Huffman code construction for the dynamic deflate block.
//
// Code lengths come from the minimum-redundancy construction of Moffat and
// Katajainen, done in place over the symbols sorted by count; lengths over
// the limit are then cut to it and the code made complete again by
// lengthening the deepest shorter codes, the least frequent symbols taking
// the longest codes.  Limits: 15 bits for the literal/length and distance
// codes, 7 for the code-length code.
#include "compression/deflate_huffman.h"

#include <algorithm>

#include "compression/deflate_tables.h"

namespace vek::plain::deflate {
using namespace vek::deflate;

namespace {

struct Leaf {
    Vek32u key;  // count on input; code length on output
    Vek16u symbol;
};

// Moffat-Katajainen: leaves sorted by ascending count in, code lengths of
// an optimal (unlimited) prefix code out, in the same order.
void minimumRedundancyLengths(Leaf* a, int n) {
    if (n == 1) {
        a[0].key = 1;
        return;
    }
    a[0].key += a[1].key;
    int root = 0, leaf = 2;
    for (int next = 1; next < n - 1; ++next) {
        if (leaf >= n || a[root].key < a[leaf].key) {
            a[next].key = a[root].key;
            a[root++].key = next;
        } else {
            a[next].key = a[leaf++].key;
        }
        if (leaf >= n || (root < next && a[root].key < a[leaf].key)) {
            a[next].key += a[root].key;
            a[root++].key = next;
        } else {
            a[next].key += a[leaf++].key;
        }
    }
    a[n - 2].key = 0;
    for (int next = n - 3; next >= 0; --next) a[next].key = a[a[next].key].key + 1;
    int avail = 1, used = 0, depth = 0, root2 = n - 2, next = n - 1;
    while (avail > 0) {
        while (root2 >= 0 && int(a[root2].key) == depth) {
            ++used;
            --root2;
        }
        while (avail > used) {
            a[next--].key = depth;
            --avail;
        }
        avail = 2 * used;
        ++depth;
        used = 0;
    }
}

}  // namespace

void buildCodeLengths(const Vek32u* counts, int n, int maxBits, Vek8u* lengths) {
    Leaf leaves[kLitLenSymbols] = {};
    int used = 0;
    for (int s = 0; s < n; ++s) {
        lengths[s] = 0;
        if (counts[s]) leaves[used++] = {counts[s], Vek16u(s)};
    }
    // Two codes at least: a lone code of one bit is incomplete, which some
    // inflaters refuse.
    for (int s = 0; used < 2 && s < n; ++s)
        if (!counts[s]) leaves[used++] = {1, Vek16u(s)};
    std::sort(leaves, leaves + used,
              [](const Leaf& x, const Leaf& y) { return x.key != y.key ? x.key < y.key : x.symbol < y.symbol; });
    Vek16u symbols[kLitLenSymbols];
    for (int i = 0; i < used; ++i) symbols[i] = leaves[i].symbol;
    minimumRedundancyLengths(leaves, used);

    // How many codes of each length; the deepest fold onto maxBits.
    int perLength[64] = {};
    for (int i = 0; i < used; ++i) ++perLength[std::min<int>(leaves[i].key, maxBits)];
    // Kraft sum in units of 2^-maxBits; folding only shortened codes, so it
    // can only be too large.  Each step drops one code of maxBits and
    // splits the deepest shorter code into two one bit longer.
    Vek32u total = 0;
    for (int len = 1; len <= maxBits; ++len) total += Vek32u(perLength[len]) << (maxBits - len);
    while (total > (1u << maxBits)) {
        --perLength[maxBits];
        for (int len = maxBits - 1; len > 0; --len)
            if (perLength[len]) {
                --perLength[len];
                perLength[len + 1] += 2;
                break;
            }
        --total;
    }
    // The least frequent symbols (first in the sorted order) take the
    // longest codes.
    int i = 0;
    for (int len = maxBits; len >= 1; --len)
        for (int k = 0; k < perLength[len]; ++k) lengths[symbols[i++]] = Vek8u(len);
}

void buildCanonicalCodes(const Vek8u* lengths, int n, Vek16u* codes) {
    int perLength[16] = {};
    for (int s = 0; s < n; ++s) ++perLength[lengths[s]];
    perLength[0] = 0;
    Vek32u next[16] = {};
    Vek32u code = 0;
    for (int len = 1; len < 16; ++len) {
        code = (code + perLength[len - 1]) << 1;
        next[len] = code;
    }
    for (int s = 0; s < n; ++s) codes[s] = lengths[s] ? Vek16u(reverseBits(next[lengths[s]]++, lengths[s])) : 0;
}

void countSymbols(const Vek16u* pairs, int count, BlockCoder& c, Vek16u* firstSeen, int* distinct) {
    Vek32u litLen[kLitLenSymbols] = {}, dist[kDistSymbols + 1] = {};
    int seen = 0;
    if (firstSeen) {
        for (int i = 0; i < count; ++i, pairs += 2) {
            const int symbol = pairs[1] == 0 ? pairs[0] : kFirstLengthSymbol + lengthCodeOf(pairs[0]);
            if (litLen[symbol]++ == 0) firstSeen[seen++] = Vek16u(symbol);
            if (pairs[1] != 0) ++dist[distanceCodeOf(pairs[1])];
        }
    } else {
        countPairSymbols(pairs, count, litLen, dist);
    }
    litLen[kEndOfBlock] = 1;
    for (int s = 0; s < kLitLenSymbols; ++s) c.litLen[s] = {Vek32u(s), litLen[s]};
    for (int s = 0; s < kDistSymbols; ++s) c.dist[s] = {Vek32u(s), dist[s]};
    if (distinct) *distinct = seen;
}

namespace {

// Run-length codes of the code lengths (RFC 1951 3.2.7): 16 repeats the
// previous length 3..6 times, 17 sends 3..10 zeros, 18 sends 11..138.
void runLengthCode(const Vek8u* lengths, int n, BlockCoder& c) {
    int items = 0;
    auto emit = [&](int symbol, int extra) {
        c.runSymbol[items] = Vek8u(symbol);
        c.runExtra[items++] = Vek8u(extra);
    };
    for (int i = 0; i < n;) {
        const Vek8u v = lengths[i];
        int run = 1;
        while (i + run < n && lengths[i + run] == v) ++run;
        i += run;
        if (v == 0) {
            for (; run >= 11; run -= std::min(run, 138)) emit(18, std::min(run, 138) - 11);
            if (run >= 3) emit(17, run - 3), run = 0;
            for (; run > 0; --run) emit(0, 0);
        } else {
            emit(v, 0);
            for (--run; run >= 3; run -= std::min(run, 6)) emit(16, std::min(run, 6) - 3);
            for (; run > 0; --run) emit(v, 0);
        }
    }
    c.runCount = items;
}

}  // namespace

void buildDynamicCodes(BlockCoder& c) {
    Vek32u counts[kLitLenSymbols];
    for (int s = 0; s < kLitLenSymbols; ++s) counts[s] = c.litLen[s].count;
    buildCodeLengths(counts, kLitLenSymbols, kMaxCodeBits, c.litLenBits);
    for (int s = 0; s < kDistSymbols; ++s) counts[s] = c.dist[s].count;
    buildCodeLengths(counts, kDistSymbols, kMaxCodeBits, c.distBits);
    buildCanonicalCodes(c.litLenBits, kLitLenSymbols, c.litLenCode);
    buildCanonicalCodes(c.distBits, kDistSymbols, c.distCode);

    int litLenSent = kLitLenSymbols, distSent = kDistSymbols;
    while (litLenSent > 257 && !c.litLenBits[litLenSent - 1]) --litLenSent;
    while (distSent > 1 && !c.distBits[distSent - 1]) --distSent;
    c.litLenSent = litLenSent;
    c.distSent = distSent;

    // Both length lists run on as one sequence: a run may cross from one
    // into the other.
    Vek8u all[kLitLenSymbols + kDistSymbols];
    std::copy(c.litLenBits, c.litLenBits + litLenSent, all);
    std::copy(c.distBits, c.distBits + distSent, all + litLenSent);
    runLengthCode(all, litLenSent + distSent, c);

    Vek32u clCounts[kCodeLengthSymbols] = {};
    for (int i = 0; i < c.runCount; ++i) ++clCounts[c.runSymbol[i]];
    buildCodeLengths(clCounts, kCodeLengthSymbols, kMaxCodeLengthBits, c.codeLengthBits);
    buildCanonicalCodes(c.codeLengthBits, kCodeLengthSymbols, c.codeLengthCode);
    int sent = kCodeLengthSymbols;
    while (sent > 4 && !c.codeLengthBits[kCodeLengthOrder[sent - 1]]) --sent;
    c.codeLengthsSent = sent;
}

}  // namespace vek::plain::deflate
