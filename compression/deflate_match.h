// The deflate match finder: one call of veksEncodeLZ77_8u, written once
// for every level.
//
// Include INSIDE a level namespace, after <string.h>, deflate_state.h,
// deflate_tables.h and deflate_hash_tables.h outside it, and after defining in the namespace
//   int matchLength(const Vek8u* candidate, const Vek8u* current, int maxLen);
// which counts the leading equal bytes of the two strings, at most maxLen,
// and
//   int lengthIfLonger(const Vek8u* candidate, const Vek8u* current, int maxLen, int best);
// which does the same when the count may exceed best (best < maxLen) and
// may otherwise return any value up to best: a level skips the compare of
// a candidate that cannot win where that is cheaper.  The level also
// defines
//   VekStatus checksumAdler32(const Vek8u* src, int len, Vek32u* sum);
//   VekStatus checksumCrc32(const Vek8u* src, int len, Vek32u* sum);
// which call the checksum implementations that serve the same level in the
// export list (never the dispatched entries: a level's code must run that
// level's kernels whatever level the library chose at load).  Everything
// else is the same on every level, so all levels find the same pairs; a
// level differs only in how fast it compares.
//
// Positions count input bytes on the stream-position scale: bytes below
// the call's first position live in the history buffer, the others in the
// caller's input.  Before matching, the first new bytes are copied behind
// the history, so a candidate in the history reads on into the new input
// as one contiguous string of up to 258 bytes.
//
// Candidates are taken only from position 0 (1 in the calls around a
// history cut) up to the current position minus one, and at most 32767
// bytes back: so every candidate lies in bytes this state holds, even when
// a hash-table entry was left by an earlier stretch of the stream.

namespace {

using deflate::DeflateState;
using deflate::kHashTables;

constexpr int kMaxDistance = deflate::kWindowSize - 1;  // farthest a candidate may lie back

// The fast class's rolling hash h = ((h << 5) ^ byte) & 0x7FFF after the
// three bytes from b on, and the other classes' table hash.
inline int rollingHash(const Vek8u* b) { return ((b[0] << 10) ^ (b[1] << 5) ^ b[2]) & 0x7FFF; }
// Whether the strings at a and b start with the same three bytes: one
// 4-byte compare, where both have a fourth byte to read.  It settles
// most candidates of the fast class sooner than a full compare would.
inline bool firstThreeEqual(const Vek8u* a, const Vek8u* b) {
    uint32_t x, y;
    memcpy(&x, a, 4);
    memcpy(&y, b, 4);
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return ((x ^ y) >> 8) == 0;
#else
    return ((x ^ y) << 8) == 0;
#endif
}
// Asks for the cache line at p ahead of a store there (a hint only).
inline void prefetchForWrite(const void* p) {
#if defined(__GNUC__)
    __builtin_prefetch(p, 1);
#else
    (void)p;
#endif
}
// The length of the match at a and b (at most maxLen, which is 8 or more),
// or 0 when it is shorter than three bytes: the first eight bytes in one
// 64-bit compare, which settles most matches of the fast class (short
// ones) with one load on each side and no vector work.
inline int lengthFromFirstWord(const Vek8u* a, const Vek8u* b, int maxLen) {
    uint64_t x, y;
    memcpy(&x, a, 8);
    memcpy(&y, b, 8);
    const uint64_t differ = x ^ y;
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    if (differ >> 40) return 0;
    if (differ) return __builtin_clzll(differ) >> 3;
#else
    if (differ & 0xFFFFFF) return 0;
#    if defined(__x86_64__)
    if (differ) return __builtin_ctzll(differ) >> 3;
#    else
    // In two halves: MinGW's 64-bit helper (__ctzdi2) is written with
    // tzcnt, an instruction beyond level 0.
    if (const uint32_t low = uint32_t(differ)) return __builtin_ctz(low) >> 3;
    if (const uint32_t high = uint32_t(differ >> 32)) return 4 + (__builtin_ctz(high) >> 3);
#    endif
#endif
    return 8 + matchLength(a + 8, b + 8, maxLen - 8);
}
// `a` when `first`, else `b`, in arithmetic: a compiler turns a plain
// choice of store address back into a branch.
template <class T>
inline T* chooseWithoutBranch(bool first, T* a, T* b) {
    const uintptr_t mask = uintptr_t(0) - uintptr_t(first);
    return reinterpret_cast<T*>((reinterpret_cast<uintptr_t>(a) & mask) | (reinterpret_cast<uintptr_t>(b) & ~mask));
}
inline int tableHash(const Vek8u* b) { return kHashTables[0][b[0]] ^ kHashTables[1][b[1]] ^ kHashTables[2][b[2]]; }

// Notes in the skip table, for position q whose chain entry is `previous`,
// the entries two and four steps back as the chain and the table now hold
// them.
inline void noteSkips(DeflateState& s, int q, int32_t previous) {
    const int32_t twoBack = s.chain[previous & 0x7FFF];
    s.skips[q & 0x7FFF] = {twoBack, s.skips[twoBack & 0x7FFF].twoBack};
}

// Puts position q, whose bytes start at b, at the head of its chain; with
// kSkips (the best class) also notes its skips.
template <bool kSkips>
inline void linkPosition(DeflateState& s, int q, const Vek8u* b) {
    const int h = tableHash(b);
    const int32_t previous = s.head[h];
    s.chain[q & 0x7FFF] = previous;
    if (kSkips) noteSkips(s, q, previous);
    s.head[h] = q;
}

// The entry a chain walk goes on with: `skipped`, taken from the skip
// table, unless the chain's own entry `actual` differs.  Written so that
// the walk's next load waits on the skip table's load alone: the compiler
// is kept from giving `actual` for `skipped` where the two are equal (the
// first empty asm hides that equality) and from turning the check into a
// conditional move (a volatile asm keeps it a predicted branch).
inline int32_t checkedSkip(int32_t skipped, int32_t actual) {
#if defined(__GNUC__)
    int32_t hidden = skipped;
    __asm__("" : "+r"(hidden));
    if (__builtin_expect(actual != hidden, 0)) {
        __asm__ volatile("" : "+r"(actual));
        return actual;
    }
    return skipped;
#else
    return actual;
#endif
}

class MatchFinder {
public:
    MatchFinder(DeflateState& s, const Vek8u* src, int base, int histFill, int end, Vek16u* pairs, int pairSpace,
                int lowestPosition)
        : s_(s),
          src_(src),
          base_(base),
          histFill_(histFill),
          end_(end),
          pairs_(pairs),
          pairSpace_(pairSpace),
          lowest_(lowestPosition),
          historyFromInput_(reinterpret_cast<uintptr_t>(s.history + histFill) - reinterpret_cast<uintptr_t>(src)) {}

    // Matches from `base` on; returns the first position not consumed.
    int run(int comprClass) {
        int p = base_;
        if (comprClass == VekDeflateFast)
            p = runFast(p);
        else if (comprClass == VekDeflateBest)
            p = runLazy(p);
        else
            p = runGreedy(p);
        // The last bytes of the call, and whatever matching did not reach.
        for (; p < end_ && pairSpace_ > 0; ++p) emitLiteral(p);
        return p;
    }
    int pairsWritten() const { return pairCount_; }

private:
    // Bytes from position q on; in the history they run on into the input.
    const Vek8u* at(int q) const { return q < base_ ? s_.history + (histFill_ - (base_ - q)) : src_ + (q - base_); }
    int oldestCandidate(int p) const { return p - kMaxDistance > lowest_ ? p - kMaxDistance : lowest_; }

    // Enters q into the chains once: a position looked at ahead (lazy
    // matching) or again after a call stopped on a full pair list keeps its
    // first entry, so the chains never loop back onto themselves.
    template <bool kSkips>
    void link(int q) {
        if (q < s_.linkedEnd) return;
        linkPosition<kSkips>(s_, q, at(q));
        s_.linkedEnd = q + 1;
    }
    // link(q) for q from `from` to `to` - 1, in order: the inner positions
    // of a match, with the state's words read and written once.
    template <bool kSkips>
    void linkRange(int from, int to) {
        int q = from > s_.linkedEnd ? from : s_.linkedEnd;
        if (q >= to) return;
        int32_t* const heads = s_.head;
        int32_t* const chain = s_.chain;
        for (const Vek8u* b = at(q); q < to; ++q, ++b) {
            const int h = tableHash(b);
            const int32_t previous = heads[h];
            chain[q & 0x7FFF] = previous;
            if (kSkips) noteSkips(s_, q, previous);
            heads[h] = q;
        }
        s_.linkedEnd = to;
    }

    // Each pair is counted as it is written (see DeflateState::countedFrom):
    // the loops wait on loads, so the counting comes almost free.
    void emit(int value, int distance) {
        pairs_[2 * pairCount_] = static_cast<Vek16u>(value);
        pairs_[2 * pairCount_ + 1] = static_cast<Vek16u>(distance);
        ++pairCount_;
        --pairSpace_;
    }
    void emitMatch(int length, int distance) {
        emit(length, distance);
        ++s_.emittedLitLen[deflate::kFirstLengthSymbol + deflate::lengthCodeOf(length)];
        ++s_.emittedDist[deflate::distanceCodeOf(distance)];
    }
    void emitLiteral(int p) {
        const int value = src_[p - base_];
        emit(value, 0);
        ++s_.emittedLitLen[value];
    }

    struct Match {
        int length = 0, distance = 0;
    };

    // One chain walk: the candidates from `c` on, nearest first, up to
    // `limit` of them; `n` looked at so far.  A longer match replaces the
    // best, an equal one does not (the nearer wins ties).
    struct Walk {
        const Vek8u* cur;
        int p, oldest, maxLen, limit, c;
        int n, bestLen;
        Match best;
        bool live() const { return maxLen >= deflate::kMinMatch && n < limit && c >= oldest && c < p; }
    };
    Walk walkFrom(int p, int start, int maxLen, int limit) const {
        return Walk{src_ + (p - base_), p, oldestCandidate(p), maxLen, limit, start, 0, deflate::kMinMatch - 1, {}};
    }
    // Looks at the walk's current candidate and moves on; false once the
    // walk is over.
    bool step(Walk& w) const {
        const int len = lengthIfLonger(at(w.c), w.cur, w.maxLen, w.bestLen);
        if (len > w.bestLen) {
            w.bestLen = len;
            w.best = {len, w.p - w.c};
            if (len >= w.maxLen) return false;
        }
        ++w.n;
        w.c = s_.chain[w.c & 0x7FFF];
        return w.live();
    }
    // The best class walks its chains in two parts.  The scan moves a walk
    // on past every candidate that cannot beat its best: one that differs
    // from the current bytes in the two bytes that end the best length,
    // where a longer match must agree.  On text that turns away all but a
    // few percent of the candidates, and the scan works on the few words it
    // needs in locals, so its loop stays short; the candidate it stops at
    // goes to step, which measures it as before.  The candidates, the count
    // and the result are those of a walk by step alone.
    //
    // The scan follows the skip table: with a candidate's chain entry come
    // the candidates two and four steps on, so a walk waits on one load per
    // four candidates instead of four (the ones between hang off these and
    // are fetched alongside).  The chain's own entries are loaded too and
    // only compared: a skip entry that no longer agrees with them (its slot
    // reused, a history cut, positions never linked) gives way to the
    // chain's, so the walk visits exactly the chain's candidates.  (Eight
    // steps measured no faster.)
    struct Scan {
        int c, left;            // the next candidate, and how many the walk may still look at
        unsigned oldest, span;  // c is in reach while c - oldest < span (unsigned)
        uintptr_t ending;       // where the two bytes to test lie: ending + (q - base) in the input
        uint16_t want;          // the current bytes there
    };
    Scan scanOf(const Walk& w) const {
        uint16_t want;
        memcpy(&want, w.cur + w.bestLen - 1, 2);
        return Scan{w.c,
                    w.limit - w.n,
                    unsigned(w.oldest),
                    unsigned(w.p - w.oldest),
                    reinterpret_cast<uintptr_t>(src_) + uintptr_t(w.bestLen - 1),
                    want};
    }
    static void putBack(Walk& w, const Scan& scan) {
        w.c = scan.c;
        w.n = w.limit - scan.left;
    }
    static bool inReach(const Scan& scan, int c) { return unsigned(c) - scan.oldest < scan.span; }
    // Whether candidate c may beat the best: its two bytes that end the best length agree.
    bool mayBeLonger(const Scan& scan, int c) const {
        const uintptr_t offset = uintptr_t(intptr_t(c) - intptr_t(base_));
        const uintptr_t inHistory = c < base_ ? historyFromInput_ : 0;
        uint16_t got;
        memcpy(&got, reinterpret_cast<const Vek8u*>(scan.ending + offset + inHistory), 2);
        return got == scan.want;
    }
    // Moves the scan on to the next candidate `c`; false when the walk
    // stops there: at its end, or at a candidate that may be longer.
    bool goesOnTo(Scan& scan, int32_t c) const {
        scan.c = c;
        return --scan.left != 0 && inReach(scan, c) && !mayBeLonger(scan, c);
    }
    // Moves the scan past up to four candidates; false when it stops.
    bool skipFour(Scan& scan) const {
        const int c = scan.c;
        const int32_t first = s_.chain[c & 0x7FFF];
        const deflate::Skips skips = s_.skips[c & 0x7FFF];
        if (mayBeLonger(scan, c) || !goesOnTo(scan, first)) return false;
        const int32_t second = checkedSkip(skips.twoBack, s_.chain[first & 0x7FFF]);
        if (!goesOnTo(scan, second)) return false;
        const int32_t third = s_.chain[second & 0x7FFF];
        if (!goesOnTo(scan, third)) return false;
        scan.c = checkedSkip(skips.fourBack, s_.chain[third & 0x7FFF]);
        return --scan.left != 0 && inReach(scan, scan.c);
    }
    // Walks w and v in step while both go on (onW and onV say whether they
    // do, before and after): a chain walk waits on its loads, and two in
    // step overlap theirs.
    void walkInStep(Walk& w, bool& onW, Walk& v, bool& onV) const {
        while (onW && onV) {
            Scan a = scanOf(w), b = scanOf(v);
            while (skipFour(a) && skipFour(b)) {}
            putBack(w, a);
            putBack(v, b);
            onW = w.live() && step(w);
            onV = v.live() && step(v);
        }
    }
    void walkToEnd(Walk& w, bool& on) const {
        while (on) {
            Scan a = scanOf(w);
            while (skipFour(a)) {}
            putBack(w, a);
            on = w.live() && step(w);
        }
    }
    // The best match at the already linked position p.
    Match search(int p, int maxLen, int limit) const {
        Walk w = walkFrom(p, s_.chain[p & 0x7FFF], maxLen, limit);
        for (bool on = w.live(); on;) on = step(w);
        return w.best;
    }
    // The walk of q as its search would begin it now: from its chain once
    // q is linked, else from its hash's head.
    Walk walkOf(int q, int limit) const {
        const int start = q < s_.linkedEnd ? s_.chain[q & 0x7FFF] : s_.head[tableHash(at(q))];
        return walkFrom(q, start, maxLength(q, 3), limit);
    }
    // The best matches at the linked position p and at q = p + 1, which is
    // linked only after both walks: a chain walk is a run of dependent
    // loads, and two in step overlap theirs.  Until q is linked its chain
    // starts at its hash's head; the one slot its link writes belongs to the
    // position 32768 below q, which the walk of p may still read as it was.
    void searchWithNext(int p, Match& atP, Match& atQ, int limit) {
        const int q = p + 1;
        const int startQ = q < s_.linkedEnd ? s_.chain[q & 0x7FFF] : s_.head[tableHash(at(q))];
        Walk a = walkFrom(p, s_.chain[p & 0x7FFF], maxLength(p, 3), limit);
        Walk b = walkFrom(q, startQ, maxLength(q, 3), limit);
        bool onA = a.live(), onB = b.live();
        walkInStep(a, onA, b, onB);
        walkToEnd(a, onA);
        walkToEnd(b, onB);
        link<true>(q);
        atP = a.best;
        atQ = b.best;
    }

    int maxLength(int p, int tail) const {
        const int room = end_ - p - tail;
        return room < deflate::kMaxMatch ? room : deflate::kMaxMatch;
    }

    // Fast: one candidate, the last position with the same rolling hash.
    // Both strings have a fourth byte to read: the candidate lies before
    // the current position, and the current one has the call's last two
    // bytes beyond its longest match.  Positions from base_ on are in the
    // input, so the current bytes are addressed there directly.  The loop
    // works on local copies of the finder's fields: its stores to the head
    // table (ints) could otherwise alias them and force a reload after
    // every store.
    //
    // The hash rolls on from position to position, unmasked (the bits
    // above the 15 the table takes never reach them), and the bucket of
    // the next position is fetched before the current candidate is
    // judged: when the literal-or-match branch goes the unexpected way, the
    // next head is already on its way from the cache.
    //
    // Once a position lies a whole window beyond the call's first one,
    // every candidate in reach lies in the input: the loop runs in two
    // parts, the second with no choice of buffer per candidate.
    int runFast(int p) {
        if (p >= end_ - 2) return p;
        FastCursor f{pairs_ + 2 * pairCount_, pairSpace_, uint32_t(rollingHash(src_ + (p - base_)))};
        const int inputOnlyFrom =
            base_ + kMaxDistance < lowest_ + kMaxDistance ? lowest_ + kMaxDistance : base_ + kMaxDistance;
        p = runFastPart<false>(p, inputOnlyFrom, f);
        p = runFastPart<true>(p, end_, f);
        pairCount_ += pairSpace_ - f.space;
        pairSpace_ = f.space;
        return p;
    }
    struct FastCursor {
        Vek16u* out;
        int space;
        uint32_t hash;  // of the current position, unmasked
    };
    // runFast over the positions below `stop` (and end_ - 2).  kInputOnly:
    // every position is at least kMaxDistance beyond the call's first and
    // the lowest allowed, so a candidate in reach lies in the input.
    template <bool kInputOnly>
    int runFastPart(int p, int stop, FastCursor& f) {
        const int end = end_, base = base_, lowest = lowest_;
        if (stop > end - 2) stop = end - 2;
        const Vek8u* const src = src_;
        const Vek8u* const history = s_.history + histFill_;  // position q < base at history[q - base]
        int32_t* const heads = s_.head;
        Vek16u* out = f.out;
        int space = f.space;
        uint32_t hash = f.hash;
        Vek32u* const litLenCounts = s_.emittedLitLen;
        Vek32u* const distCounts = s_.emittedDist;
        for (; p < stop && space > 0; --space, out += 2) {
            const int room = end - p - 2, maxLen = room < deflate::kMaxMatch ? room : deflate::kMaxMatch;
            const Vek8u* cur = src + (p - base);
            const int c = heads[hash & 0x7FFF];
            heads[hash & 0x7FFF] = p;
            // The hash of p + 1, where that position still has three bytes.
            const uint32_t nextHash = room > 1 ? hash << 5 ^ cur[3] : 0;
            prefetchForWrite(heads + (nextHash & 0x7FFF));
            bool inReach;
            if (kInputOnly) {  // oldest is p - kMaxDistance
                inReach = unsigned(p) - 1u - unsigned(c) < unsigned(kMaxDistance);
            } else {
                const int oldest = p - kMaxDistance > lowest ? p - kMaxDistance : lowest;
                inReach = c >= oldest && c < p;
            }
            int len = 0;
            if (maxLen >= deflate::kMinMatch && inReach) {
                const Vek8u* candidate = !kInputOnly && c < base ? history + (c - base) : src + (c - base);
                if (maxLen >= 8)
                    len = lengthFromFirstWord(candidate, cur, maxLen);
                else if (firstThreeEqual(candidate, cur))
                    len = deflate::kMinMatch + matchLength(candidate + deflate::kMinMatch, cur + deflate::kMinMatch,
                                                           maxLen - deflate::kMinMatch);
            }
            if (len >= deflate::kMinMatch) {
                out[0] = static_cast<Vek16u>(len);
                out[1] = static_cast<Vek16u>(p - c);
                ++litLenCounts[deflate::kFirstLengthSymbol + deflate::lengthCodeOf(len)];
                ++distCounts[deflate::distanceCodeOf(p - c)];
                enterInnerPositions(heads, p, len, cur, end - p, nextHash);
                p += len;
                // The next position's hash straight from its bytes: its
                // head load need not wait for the inner positions.
                if (p < end - 2) hash = uint32_t(rollingHash(cur + len));
            } else {
                out[0] = *cur;
                out[1] = 0;
                ++litLenCounts[*cur];
                hash = nextHash;
                ++p;
            }
        }
        f.out = out;
        f.space = space;
        f.hash = hash;
        return p;
    }

    // Enters the inner positions p + 1 .. p + len - 1 of a fast-class match
    // into the head table, in order; `hash` is that of p + 1 (unmasked) and
    // `bytes` the count readable from `cur` on.  Short matches are the
    // common case, and a loop whose count changes from match to match
    // costs a mispredicted branch at its end; so the first six positions
    // go in as six stores whatever the length, those beyond the match into
    // a slot nobody reads (six measured faster than four or eight).
    static void enterInnerPositions(int32_t* heads, int p, int len, const Vek8u* cur, int bytes, uint32_t hash) {
        constexpr int kUnrolled = 6;
        int q = 1;
        if (bytes > kUnrolled + 2) {  // the hashes of p + 1 .. p + 6 read up to cur[8]
            int32_t unused;
            for (; q <= kUnrolled; ++q) {
                int32_t* slot = chooseWithoutBranch(q < len, heads + (hash & 0x7FFF), &unused);
                *slot = p + q;
                if (q < kUnrolled) hash = hash << 5 ^ cur[q + 3];
            }
            if (len <= kUnrolled + 1) return;
            hash = hash << 5 ^ cur[kUnrolled + 3];
        }
        for (; q < len - 1; ++q) {  // the hash rolls on by the byte that enters it
            heads[hash & 0x7FFF] = p + q;
            hash = hash << 5 ^ cur[q + 3];
        }
        heads[hash & 0x7FFF] = p + len - 1;
    }

    // Default: greedy, the longest of up to 16 candidates.
    int runGreedy(int p) {
        for (; p < end_ - 2 && pairSpace_ > 0;) {
            link<false>(p);
            const Match m = search(p, maxLength(p, 2), 16);
            if (m.length >= deflate::kMinMatch) {
                emitMatch(m.length, m.distance);
                for (int q = p + 1; q < p + m.length; ++q) link<false>(q);
                p += m.length;
            } else {
                emitLiteral(p++);
            }
        }
        return p;
    }

    // Best: lazy, up to 512 candidates; a match waits for the next position
    // unless that one offers a longer match.  A 3-byte match farther than
    // 4096 bytes back costs more bits than three literals and is dropped.
    // After a match the searches at the new position and the one after it
    // go together.  After a literal the search of the position after next
    // goes along with the one needed, for as long as that one lasts: it is
    // the next step's search whenever the step emits a literal again, and
    // goes on from where it stopped; when the step emits a match it is
    // dropped, having cost little, since a chain walk waits on its loads and
    // two overlap theirs.
    int runLazy(int p) {
        bool carried = false;  // cur is the match at p, found by the step before
        Match cur, next;
        Walk ahead{};  // while carried: the walk of p + 1, begun during the step before
        bool haveAhead = false, aheadOn = false;
        for (; p < end_ - 3 && pairSpace_ > 0;) {
            if (carried) {
                link<true>(p + 1);
                Walk w = haveAhead ? ahead : walkOf(p + 1, 512);
                bool on = haveAhead ? aheadOn : w.live();
                haveAhead = p + 1 < end_ - 3 && pairSpace_ > 1;  // p + 2 is searched if this step emits a literal
                if (haveAhead) {
                    ahead = walkOf(p + 2, 512);
                    aheadOn = ahead.live();
                    walkInStep(w, on, ahead, aheadOn);
                }
                walkToEnd(w, on);
                next = w.best;
            } else {
                link<true>(p);
                searchWithNext(p, cur, next, 512);
            }
            const bool worthIt =
                cur.length > deflate::kMinMatch || (cur.length == deflate::kMinMatch && cur.distance <= 4096);
            if (worthIt && cur.length >= next.length) {
                emitMatch(cur.length, cur.distance);
                linkRange<true>(p + 2, p + cur.length);
                p += cur.length;
                carried = false;
                haveAhead = false;
            } else {
                emitLiteral(p++);
                cur = next;
                carried = true;
            }
        }
        return p;
    }

    DeflateState& s_;
    const Vek8u* src_;
    int base_, histFill_, end_;
    Vek16u* pairs_;
    int pairSpace_, pairCount_ = 0;
    int lowest_;
    uintptr_t historyFromInput_;  // added to an input address, the same offset in the history
};

// Keeps the consumed bytes as history: the newest 32768 positions at least,
// or everything since the stream (or the last cut) began.
void keepHistory(DeflateState& s, const Vek8u* consumed, int n) {
    int fill = static_cast<int>(s.historyPos - s.history);
    if (n >= deflate::kWindowSize) {
        memcpy(s.history, consumed + n - deflate::kWindowSize, deflate::kWindowSize);
        fill = deflate::kWindowSize;
    } else {
        if (fill + n > deflate::kHistoryLimit) {
            const int keep = deflate::kWindowSize - n;
            memmove(s.history, s.history + fill - keep, keep);
            fill = keep;
        }
        memcpy(s.history + fill, consumed, n);
        fill += n;
    }
    s.historyPos = s.history + fill;
}

// Drops the history: positions start again from 0 in the next call.
void cutHistory(DeflateState& s) {
    s.historyPos = s.history;
    s.streamPos = 0;
    s.linkedEnd = 0;
}

// The stream position is a signed 32-bit count: a stream takes at most this
// many bytes between Init, Reset or a history cut.
constexpr int kMaxStreamPosition = 0x7FFFFFFF - deflate::kHistorySize;

VekStatus encodeLz77(const Vek8u** ppSrc, int* pSrcLen, Vek16u** ppPairs, int* pPairsLen, int flush,
                     VekDeflateState* pState) {
    if (!ppSrc || !pSrcLen || !ppPairs || !pPairsLen || !*ppPairs || !pState) return StatusNullPointer;
    const int srcLen = *pSrcLen, pairSpace = *pPairsLen;
    if (pairSpace < 0 || srcLen < 0) return StatusSize;
    if (pairSpace == 0) return StatusDstSize;
    DeflateState& s = *deflate::stateOf(pState);
    if (srcLen == 0) {
        // An empty history-cut call still cuts the history.
        if (flush == VekDeflateHistoryCut) {
            cutHistory(s);
            s.lastFlush = flush;
            if (s.streamStatus == VekDeflateNotBegun) s.streamStatus = VekDeflateMatching;
        }
        return StatusOk;
    }
    const Vek8u* src = *ppSrc;
    if (!src) return StatusNullPointer;

    // The history-cut call and the one after it see no history and start
    // their positions from 0, so no match reaches back across the cut.
    const bool cut = flush == VekDeflateHistoryCut || s.lastFlush == VekDeflateHistoryCut;
    if (srcLen > kMaxStreamPosition - (cut ? 0 : s.streamPos)) return StatusSize;
    if (cut) cutHistory(s);
    const int base = s.streamPos;
    const int histFill = static_cast<int>(s.historyPos - s.history);
    memcpy(s.history + histFill, src, srcLen < deflate::kMaxMatch ? srcLen : deflate::kMaxMatch);

    if (s.countedEnd != *ppPairs) {  // a new list: its counts start from 0
        memset(s.emittedLitLen, 0, sizeof s.emittedLitLen);
        memset(s.emittedDist, 0, sizeof s.emittedDist);
        s.countedFrom = *ppPairs;
    }
    int lowest = cut ? 1 : 0;
    if (base - histFill > lowest) lowest = base - histFill;
    MatchFinder finder(s, src, base, histFill, base + srcLen, *ppPairs, pairSpace, lowest);
    const int consumed = finder.run(s.comprClass) - base;

    if (cut)
        cutHistory(s);
    else {
        keepHistory(s, src, consumed);
        s.streamPos = base + consumed;
    }
    VekStatus status = StatusOk;
    if (consumed > 0 && s.checksumKind == VekDeflateAdler32) status = checksumAdler32(src, consumed, &s.checksum);
    if (consumed > 0 && s.checksumKind == VekDeflateCrc32) status = checksumCrc32(src, consumed, &s.checksum);
    s.lastFlush = flush;
    if (s.streamStatus == VekDeflateNotBegun) s.streamStatus = VekDeflateMatching;  // no dictionary any more

    *ppSrc = src + consumed;
    *pSrcLen = srcLen - consumed;
    *ppPairs += 2 * finder.pairsWritten();
    s.countedEnd = *ppPairs;
    *pPairsLen = pairSpace - finder.pairsWritten();
    return consumed < srcLen ? StatusDstSize : status;
}

}  // namespace
