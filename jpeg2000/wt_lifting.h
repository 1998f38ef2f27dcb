// The lifting schedules of the wavelet family, shared by every level: which
// steps each transform takes, which coefficients each step must produce,
// and the walks over a row (in chunks) and down a column (a pipeline of
// rows), built on the level's step kernels:
//   lift53<T, Op>(out, a, b, c, n)          5/3 steps (wt_steps.h)
//   liftQ<T, CA, CB>(out, a, b, c, n)       Q16 9/7 steps
//   liftF<Kind>(out, a, b, c, n, k1, k2)    float 9/7 steps
//   split<T>(x, pairs, even, odd)           x[2i] to even[i], x[2i+1] to odd[i]
//   merge<T>(even, odd, pairs, x)           the reverse
// each element-wise over n samples (out may be a; b and c never are out).
//
// Sequences and positions.  A line of samples x[p] holds two interleaved
// sequences: the low one L[i] at position 2i + phase and the high one H[i]
// at 2i + 1 - phase.  A step on L at index i reads H[i + readH] and
// H[i + readH + 1]; a step on H reads L[i + readL] and L[i + readL + 1],
// where phase 0 has readH = -1, readL = 0 and phase 1 readH = 0, readL = -1.
// Working back from the outputs wanted, each step's range of indices and the
// samples to load follow (plan()); for the exports these are exactly the
// samples the caller extends the line with, and nothing beyond.
//
// Included inside a level's namespace after its kernels; internal linkage.
#ifndef VEK_JPEG2000_WT_LIFTING_H
#define VEK_JPEG2000_WT_LIFTING_H

namespace {

using jpeg2000::kAdd;
using jpeg2000::kAddHalf;
using jpeg2000::kAddQuarter;
using jpeg2000::kAddThenScale;
using jpeg2000::kScale;
using jpeg2000::kScaled;
using jpeg2000::kSubHalf;
using jpeg2000::kSubQuarter;

// ---- the transforms as step lists ---------------------------------------------------
// Each: kSteps, onLow(s) (the sequence step s updates), step(s, ...);
// kLastLowStep, the step whose result for the line's last low coefficient
// is rounded twice (lastLow(...)), or -1; kScaleHigh and scaleHigh(...),
// the high sequence's final scaling, after its last use.

template <class T>
struct Forward53 {
    static constexpr int kSteps = 2, kLastLowStep = -1;
    static constexpr bool kScaleHigh = false;
    static constexpr bool onLow(int s) { return s == 1; }
    static void step(int s, T* out, const T* a, const T* b, const T* c, size_t n) {
        if (s == 0)
            lift53<T, kSubHalf>(out, a, b, c, n);
        else
            lift53<T, kAddQuarter>(out, a, b, c, n);
    }
    static void lastLow(T*, const T*, const T*, const T*, size_t) {}
    static void scaleHigh(T*, size_t) {}
};

template <class T>
struct Inverse53 {
    static constexpr int kSteps = 2, kLastLowStep = -1;
    static constexpr bool kScaleHigh = false;
    static constexpr bool onLow(int s) { return s == 0; }
    static void step(int s, T* out, const T* a, const T* b, const T* c, size_t n) {
        if (s == 0)
            lift53<T, kSubQuarter>(out, a, b, c, n);
        else
            lift53<T, kAddHalf>(out, a, b, c, n);
    }
    static void lastLow(T*, const T*, const T*, const T*, size_t) {}
    static void scaleHigh(T*, size_t) {}
};

// 9/7 float: alpha, beta, gamma, then delta and 1/K in one step on the low
// sequence; the high sequence times K last.
struct Forward97F {
    using T = Vek32f;
    static constexpr int kSteps = 4, kLastLowStep = -1;
    static constexpr bool kScaleHigh = true;
    static constexpr bool onLow(int s) { return s == 1 || s == 3; }
    static void step(int s, T* out, const T* a, const T* b, const T* c, size_t n) {
        using namespace jpeg2000;
        switch (s) {
        case 0: return liftF<kAdd>(out, a, b, c, n, 1.0f, kAlpha);
        case 1: return liftF<kAdd>(out, a, b, c, n, 1.0f, kBeta);
        case 2: return liftF<kAdd>(out, a, b, c, n, 1.0f, kGamma);
        default: return liftF<kAddThenScale>(out, a, b, c, n, kInvK, kDelta);
        }
    }
    static void lastLow(T*, const T*, const T*, const T*, size_t) {}
    static void scaleHigh(T* h, size_t n) { liftF<kScale>(h, h, h, h, n, jpeg2000::kK, 0.0f); }
};

struct Inverse97F {
    using T = Vek32f;
    static constexpr int kSteps = 4, kLastLowStep = -1;
    static constexpr bool kScaleHigh = false;
    static constexpr bool onLow(int s) { return s == 0 || s == 2; }
    static void step(int s, T* out, const T* a, const T* b, const T* c, size_t n) {
        using namespace jpeg2000;
        switch (s) {
        case 0: return liftF<kScaled>(out, a, b, c, n, kK, -kDeltaOverK);
        case 1: return liftF<kScaled>(out, a, b, c, n, kInvK, -kGamma);
        case 2: return liftF<kAdd>(out, a, b, c, n, 1.0f, -kBeta);
        default: return liftF<kAdd>(out, a, b, c, n, 1.0f, -kAlpha);
        }
    }
    static void lastLow(T*, const T*, const T*, const T*, size_t) {}
    static void scaleHigh(T*, size_t) {}
};

// 9/7 Q16: alpha, beta, gamma; then delta folded with 1/K into one rounding
// for every low coefficient but the line's last, which takes delta and 1/K
// in two roundings; the high sequence times K last.
template <class T>
struct Forward97Q {
    static constexpr int kSteps = 4, kLastLowStep = 3;
    static constexpr bool kScaleHigh = true;
    static constexpr bool onLow(int s) { return s == 1 || s == 3; }
    static void step(int s, T* out, const T* a, const T* b, const T* c, size_t n) {
        using namespace jpeg2000;
        switch (s) {
        case 0: return liftQ<T, kOneQ, kAlphaQ>(out, a, b, c, n);
        case 1: return liftQ<T, kOneQ, kBetaQ>(out, a, b, c, n);
        case 2: return liftQ<T, kOneQ, kGammaQ>(out, a, b, c, n);
        default: return liftQ<T, jpeg2000::kInvKQ, kDeltaOverKQ>(out, a, b, c, n);
        }
    }
    static void lastLow(T* out, const T* a, const T* b, const T* c, size_t n) {
        liftQ<T, jpeg2000::kOneQ, jpeg2000::kDeltaQ>(out, a, b, c, n);
        liftQ<T, jpeg2000::kInvKQ, 0>(out, out, nullptr, nullptr, n);
    }
    static void scaleHigh(T* h, size_t n) { liftQ<T, jpeg2000::kKQ, 0>(h, h, nullptr, nullptr, n); }
};

// The inverse in the reverse order; its first step mirrors the forward's
// last-low rule: K in one rounding, then delta/K in another.
template <class T>
struct Inverse97Q {
    static constexpr int kSteps = 4, kLastLowStep = 0;
    static constexpr bool kScaleHigh = false;
    static constexpr bool onLow(int s) { return s == 0 || s == 2; }
    static void step(int s, T* out, const T* a, const T* b, const T* c, size_t n) {
        using namespace jpeg2000;
        switch (s) {
        case 0: return liftQ<T, kKQ, -kDeltaOverKQ>(out, a, b, c, n);
        case 1: return liftQ<T, kInvKQ, -kGammaQ>(out, a, b, c, n);
        case 2: return liftQ<T, kOneQ, -kBetaQ>(out, a, b, c, n);
        default: return liftQ<T, kOneQ, -kAlphaQ>(out, a, b, c, n);
        }
    }
    static void lastLow(T* out, const T* a, const T* b, const T* c, size_t n) {
        liftQ<T, jpeg2000::kKQ, 0>(out, a, nullptr, nullptr, n);
        liftQ<T, jpeg2000::kOneQ, -jpeg2000::kDeltaOverKQ>(out, out, b, c, n);
    }
    static void scaleHigh(T*, size_t) {}
};

// ---- ranges ------------------------------------------------------------------------

struct Span {
    int lo, hi;  // [lo, hi)
    bool empty() const { return hi <= lo; }
    bool has(int i) const { return lo <= i && i < hi; }
    int size() const { return hi - lo; }
};
inline Span unite(Span a, Span b) {
    if (a.empty()) return b;
    if (b.empty()) return a;
    return {a.lo < b.lo ? a.lo : b.lo, a.hi > b.hi ? a.hi : b.hi};
}

struct Reads {
    int low, high;  // readL, readH above
    explicit Reads(bool phase1) : low(phase1 ? -1 : 0), high(phase1 ? 0 : -1) {}
};

// What each step computes and what must be loaded, for outputs L[outLow]
// and H[outHigh].
struct Plan {
    Span step[4];
    Span loadLow, loadHigh;
};
template <class P>
Plan plan(Span outLow, Span outHigh, Reads reads) {
    Plan p{};
    Span low = outLow, high = outHigh;
    for (int s = P::kSteps - 1; s >= 0; --s) {
        if (P::onLow(s)) {
            p.step[s] = low;
            if (!low.empty()) high = unite(high, {low.lo + reads.high, low.hi + reads.high + 1});
        } else {
            p.step[s] = high;
            if (!high.empty()) low = unite(low, {high.lo + reads.low, high.hi + reads.low + 1});
        }
    }
    p.loadLow = low, p.loadHigh = high;
    return p;
}

// Position p of a line of `extent` samples extended symmetrically about its
// first and last samples; an extent of 0 means the caller's memory holds
// the extension (no reflection).
inline ptrdiff_t reflect(ptrdiff_t p, ptrdiff_t extent) {
    if (extent == 0 || (p >= 0 && p < extent)) return p;
    if (extent == 1) return 0;
    const ptrdiff_t period = 2 * (extent - 1);
    ptrdiff_t m = p % period;
    if (m < 0) m += period;
    return m < extent ? m : period - m;
}

// ---- a row ---------------------------------------------------------------------------

constexpr int kRowChunk = 512;  // coefficients of each sequence per pass
constexpr int kRowSlack = 16;   // room for the indices each pass loads beyond its chunk

// Runs step s of P over the range r of a row held in buffers (index i of
// low at low[i - lowBase], of high likewise), splitting off the last low
// coefficient when s rounds it twice.
template <class P, class T>
void rowStep(int s, Span r, T* low, int lowBase, T* high, int highBase, int lowCount, Reads reads) {
    const bool onLow = P::onLow(s);
    T* seq = onLow ? low : high;
    const T* other = onLow ? high : low;
    const int seqBase = onLow ? lowBase : highBase, otherBase = onLow ? highBase : lowBase;
    const int read = onLow ? reads.high : reads.low;
    auto run = [&](Span part, bool last) {
        if (part.empty()) return;
        T* out = seq + (part.lo - seqBase);
        const T* b = other + (part.lo + read - otherBase);
        if (last)
            P::lastLow(out, out, b, b + 1, size_t(part.size()));
        else
            P::step(s, out, out, b, b + 1, size_t(part.size()));
    };
    if (s == P::kLastLowStep && r.has(lowCount - 1)) {
        run({r.lo, lowCount - 1}, false);
        run({lowCount - 1, lowCount}, true);
        run({lowCount, r.hi}, false);
    } else {
        run(r, false);
    }
}

// One line: lowCount low and highCount high coefficients in phase `phase1`,
// chunk by chunk.  source.load(low, loadLow, high, loadHigh, lowBase,
// highBase) fills the buffers over the spans and says where index 0 would
// be; sink.store(low, high, outLow, outHigh) takes the results (pointers at
// the first output of each).
template <class P, class T, class Source, class Sink>
void liftLine(int lowCount, int highCount, bool phase1, Source& source, Sink& sink) {
    const Reads reads(phase1);
    T low[kRowChunk + kRowSlack], high[kRowChunk + kRowSlack];
    const int count = lowCount > highCount ? lowCount : highCount;
    for (int a = 0; a < count; a += kRowChunk) {
        const int b = count - a > kRowChunk ? a + kRowChunk : count;
        const Span outLow{a, b < lowCount ? b : lowCount}, outHigh{a, b < highCount ? b : highCount};
        const Plan p = plan<P>(outLow, outHigh, reads);
        int lowBase = 0, highBase = 0;
        source.load(low, p.loadLow, high, p.loadHigh, lowBase, highBase);
        for (int s = 0; s < P::kSteps; ++s) rowStep<P>(s, p.step[s], low, lowBase, high, highBase, lowCount, reads);
        if (P::kScaleHigh && !outHigh.empty()) P::scaleHigh(high + (outHigh.lo - highBase), size_t(outHigh.size()));
        sink.store(low + (outLow.lo - lowBase), high + (outHigh.lo - highBase), outLow, outHigh);
    }
}

// The forward's source: the samples of a line (x[0] its first), split by
// parity; positions outside [0, extent) reflected when extent is not 0.
template <class T>
struct SampleSource {
    const T* x;
    ptrdiff_t extent;
    bool phase1;

    void load(T* low, Span loadLow, T* high, Span loadHigh, int& lowBase, int& highBase) {
        // low index i is at 2i + phase, high index i at 2i + 1 - phase
        const int ph = phase1 ? 1 : 0;
        ptrdiff_t first = 2 * ptrdiff_t(loadLow.lo) + ph, last = 2 * ptrdiff_t(loadLow.hi - 1) + ph;
        if (!loadHigh.empty()) {
            const ptrdiff_t hFirst = 2 * ptrdiff_t(loadHigh.lo) + 1 - ph,
                            hLast = 2 * ptrdiff_t(loadHigh.hi - 1) + 1 - ph;
            if (loadLow.empty()) first = hFirst, last = hLast;
            first = hFirst < first ? hFirst : first, last = hLast > last ? hLast : last;
        }
        // Even positions p go to even[p / 2], odd ones to odd[(p - 1) / 2].
        T* even = phase1 ? high : low;
        T* odd = phase1 ? low : high;
        const int evenBase = int(((first + 1) & ~ptrdiff_t(1)) >> 1), oddBase = int((first | 1) >> 1);
        auto put = [&](ptrdiff_t p, T v) {
            if (p & 1)
                odd[(p >> 1) - oddBase] = v;
            else
                even[(p >> 1) - evenBase] = v;
        };
        ptrdiff_t inLo = first, inHi = last;  // the positions read in place
        if (extent != 0) inLo = first > 0 ? first : 0, inHi = last < extent - 1 ? last : extent - 1;
        ptrdiff_t p = first;
        for (; p <= last && p < inLo; ++p) put(p, x[reflect(p, extent)]);
        if (p <= inHi && (p & 1)) put(p, x[p]), ++p;
        const size_t pairs = p <= inHi ? size_t(inHi - p + 1) / 2 : 0;
        if (pairs) split<T>(x + p, pairs, even + ((p >> 1) - evenBase), odd + ((p >> 1) - oddBase));
        for (p += 2 * ptrdiff_t(pairs); p <= last; ++p) put(p, x[reflect(p, extent)]);
        lowBase = phase1 ? oddBase : evenBase;
        highBase = phase1 ? evenBase : oddBase;
    }
};

// The forward's sink: the two bands of the line.
template <class T>
struct BandSink {
    T* low;
    T* high;
    void store(const T* l, const T* h, Span outLow, Span outHigh) {
        if (!outLow.empty()) memcpy(low + outLow.lo, l, sizeof(T) * size_t(outLow.size()));
        if (!outHigh.empty()) memcpy(high + outHigh.lo, h, sizeof(T) * size_t(outHigh.size()));
    }
};

// The inverse's source: the two bands (index 0 of each at low and high),
// their extension reflected through the interleaved positions when extent
// is not 0.
template <class T>
struct BandSource {
    const T* low;
    const T* high;
    ptrdiff_t extent;
    bool phase1;

    void loadBand(T* buf, Span s, const T* band, int count, int position0) {
        for (int i = s.lo; i < s.hi; ++i) {
            if (extent != 0 && (i < 0 || i >= count)) {
                const ptrdiff_t q = reflect(2 * ptrdiff_t(i) + position0, extent);
                buf[i - s.lo] = band[(q - position0) >> 1];
            } else {
                const int end = extent == 0 || s.hi <= count ? s.hi : count;
                memcpy(buf + (i - s.lo), band + i, sizeof(T) * size_t(end - i));
                i = end - 1;
            }
        }
    }
    void load(T* l, Span loadLow, T* h, Span loadHigh, int& lowBase, int& highBase) {
        const int ph = phase1 ? 1 : 0;
        const int lowCount = int((extent + 1 - ph) / 2), highCount = int((extent + ph) / 2);
        loadBand(l, loadLow, low, lowCount, ph);
        loadBand(h, loadHigh, high, highCount, 1 - ph);
        lowBase = loadLow.lo, highBase = loadHigh.lo;
    }
};

// The inverse's sink: the samples of the line, interleaved, `extent` of
// them (0: twice the outputs).
template <class T>
struct SampleSink {
    T* x;
    ptrdiff_t extent;
    bool phase1;
    void store(const T* l, const T* h, Span outLow, Span outHigh) {
        const T* first = phase1 ? h : l;  // what position 2i holds
        const T* second = phase1 ? l : h;
        const ptrdiff_t p0 = 2 * ptrdiff_t(outLow.lo);
        ptrdiff_t p1 = 2 * ptrdiff_t(outLow.hi > outHigh.hi ? outLow.hi : outHigh.hi);
        if (extent != 0 && p1 > extent) p1 = extent;
        const size_t pairs = size_t(p1 - p0) / 2;
        if (pairs) merge<T>(first, second, pairs, x + p0);
        if ((p1 - p0) & 1) x[p1 - 1] = first[pairs];
    }
};

// ---- a column, as a pipeline of rows --------------------------------------------------

constexpr int kScratchRows = 8;  // rows of intermediate coefficients outside the bands

// The rows of a vertical transform come from `rows`: stage0Low(i) and
// stage0High(i), the input rows of each sequence (samples for the forward,
// band rows for the inverse, extension included); storeLow(i) and
// storeHigh(i), where the sequence's in-range rows are transformed and
// left.  scratch[k] are rows for the coefficients outside the bands.
// Every step of P down columns of `width` samples, in an order that keeps
// only a few rows live: at turn k step s works on index k - lag[s], late
// enough that the rows it reads are ready and early enough that no row is
// overwritten before its last reader.
template <class P, class T, class Rows>
void liftColumns(int lowCount, int highCount, bool phase1, size_t width, Rows& rows, T* const* scratch) {
    const Reads reads(phase1);
    const Plan p = plan<P>({0, lowCount}, {0, highCount}, reads);
    int lag[4] = {0, 0, 0, 0};
    for (int s = 1; s < P::kSteps; ++s) {
        const int read = P::onLow(s) ? reads.high : reads.low, readBefore = P::onLow(s - 1) ? reads.high : reads.low;
        const int ready = lag[s - 1] + read + 1, kept = lag[s - 1] - readBefore;
        lag[s] = ready > kept ? ready : kept;
    }
    int lastLowStep = 0;
    for (int s = 0; s < P::kSteps; ++s)
        if (P::onLow(s)) lastLowStep = s;
    const int scaleLag = lag[lastLowStep] - reads.high;

    // Scratch slots: the low sequence's indices below 0, then above its
    // count, then the high sequence's alike.
    int lowMin = 0, lowMax = lowCount, highMin = 0, highMax = highCount;
    for (int s = 0; s < P::kSteps; ++s) {
        if (p.step[s].empty()) continue;
        int& mn = P::onLow(s) ? lowMin : highMin;
        int& mx = P::onLow(s) ? lowMax : highMax;
        mn = p.step[s].lo < mn ? p.step[s].lo : mn;
        mx = p.step[s].hi > mx ? p.step[s].hi : mx;
    }
    const int highSlots0 = (0 - lowMin) + (lowMax - lowCount);
    auto stored = [&](bool low, int i) -> T* {
        if (low) {
            if (i < 0) return scratch[i - lowMin];
            if (i >= lowCount) return scratch[(0 - lowMin) + (i - lowCount)];
            return rows.storeLow(i);
        }
        if (i < 0) return scratch[highSlots0 + (i - highMin)];
        if (i >= highCount) return scratch[highSlots0 + (0 - highMin) + (i - highCount)];
        return rows.storeHigh(i);
    };

    int firstTurn = 0, lastTurn = 0;
    bool any = false;
    for (int s = 0; s < P::kSteps; ++s) {
        if (p.step[s].empty()) continue;
        const int f = p.step[s].lo + lag[s], l = p.step[s].hi - 1 + lag[s];
        firstTurn = !any || f < firstTurn ? f : firstTurn;
        lastTurn = !any || l > lastTurn ? l : lastTurn;
        any = true;
    }
    if (P::kScaleHigh && highCount > 0)
        lastTurn = highCount - 1 + scaleLag > lastTurn ? highCount - 1 + scaleLag : lastTurn;

    for (int k = firstTurn; k <= lastTurn; ++k) {
        bool writtenLow = false, writtenHigh = false;
        for (int s = 0; s < P::kSteps; ++s) {
            const bool onLow = P::onLow(s);
            const int j = k - lag[s];
            if (p.step[s].has(j)) {
                const bool selfWritten = onLow ? writtenLow : writtenHigh;
                const bool otherWritten = onLow ? writtenHigh : writtenLow;
                const int read = onLow ? reads.high : reads.low;
                auto current = [&](bool low, bool written, int i) -> const T* {
                    if (written) return stored(low, i);
                    return low ? rows.stage0Low(i) : rows.stage0High(i);
                };
                T* out = stored(onLow, j);
                const T* a = current(onLow, selfWritten, j);
                const T* b = current(!onLow, otherWritten, j + read);
                const T* c = current(!onLow, otherWritten, j + read + 1);
                if (s == P::kLastLowStep && j == lowCount - 1)
                    P::lastLow(out, a, b, c, width);
                else
                    P::step(s, out, a, b, c, width);
            }
            (onLow ? writtenLow : writtenHigh) = true;
        }
        if (P::kScaleHigh) {
            const int m = k - scaleLag;
            if (m >= 0 && m < highCount) P::scaleHigh(rows.storeHigh(m), width);
        }
    }
}

// ---- a band one coefficient wide ------------------------------------------------------

// The forward direct filters: low at position phase, high at 1 - phase;
// x(p) is the sample at position p.
template <class T, class Fetch>
inline void directForward(bool phase1, Fetch x, T& low, T& high) {
    const int cl = phase1 ? 1 : 0, ch = 1 - cl;
    low = jpeg2000::symmetricFilterOf<T>(false, true, [&](int d) { return x(cl + d); });
    high = jpeg2000::symmetricFilterOf<T>(false, false, [&](int d) { return x(ch + d); });
}
// The inverse: positions 0 and 1 from the interleaved coefficients y(q).
template <class T, class Fetch>
inline void directInverse(bool phase1, Fetch y, T& x0, T& x1) {
    x0 = jpeg2000::symmetricFilterOf<T>(true, !phase1, [&](int d) { return y(d); });
    x1 = jpeg2000::symmetricFilterOf<T>(true, phase1, [&](int d) { return y(1 + d); });
}

}  // namespace

#endif
