// The wavelet exports' work, written once for every level: the checks
// (wt_checks.h), then the lifting walks of wt_lifting.h over each row, down
// the columns in strips, pair of rows by pair of rows (ColLift), or over a
// whole tile (the two-dimensional level).  A 9/7 band one coefficient wide
// takes the direct filters instead of the lifting.
//
// Included inside a level's namespace after wt_lifting.h; internal linkage.
#ifndef VEK_JPEG2000_WT_PASSES_H
#define VEK_JPEG2000_WT_PASSES_H

namespace {

using image::rowAt;

template <class P>
constexpr bool isNineSeven = P::kSteps == 4;

// The sample of the interleaved coefficients at position q, from the two
// bands (index 0 of each at low and high).
template <class T>
inline T interleavedAt(const T* low, const T* high, bool phase1, ptrdiff_t q) {
    const ptrdiff_t lowParity = phase1 ? 1 : 0;
    return ((q - lowParity) & 1) == 0 ? low[(q - lowParity) >> 1] : high[(q - (1 - lowParity)) >> 1];
}

// ---- rows -----------------------------------------------------------------------------

template <class P, class T>
VekStatus forwardRows(const T* src, int srcStep, T* low, int lowStep, T* high, int highStep, VekiSize roi,
                      Vek32u phase) {
    if (const VekStatus status = jpeg2000::checkPass(src, low, high, srcStep, lowStep, highStep, roi)) return status;
    const bool phase1 = phase != 0;
    for (int y = 0; y < roi.height; ++y) {
        const T* x = rowAt(src, srcStep, y);
        T* l = rowAt(low, lowStep, y);
        T* h = rowAt(high, highStep, y);
        if (isNineSeven<P> && roi.width == 1) {
            directForward<T>(
                phase1, [x](int p) { return x[p]; }, *l, *h);
        } else {
            SampleSource<T> source{x, 0, phase1};
            BandSink<T> sink{l, h};
            liftLine<P, T>(roi.width, roi.width, phase1, source, sink);
        }
    }
    return StatusOk;
}

template <class P, class T>
VekStatus inverseRows(const T* low, int lowStep, const T* high, int highStep, VekiSize roi, T* dst, int dstStep,
                      Vek32u phase) {
    if (const VekStatus status = jpeg2000::checkPass(dst, low, high, lowStep, highStep, dstStep, roi)) return status;
    const bool phase1 = phase != 0;
    for (int y = 0; y < roi.height; ++y) {
        const T* l = rowAt(low, lowStep, y);
        const T* h = rowAt(high, highStep, y);
        T* x = rowAt(dst, dstStep, y);
        if (isNineSeven<P> && roi.width == 1) {
            directInverse<T>(
                phase1, [&](int q) { return interleavedAt(l, h, phase1, q); }, x[0], x[1]);
        } else {
            BandSource<T> source{l, h, 0, phase1};
            SampleSink<T> sink{x, 0, phase1};
            liftLine<P, T>(roi.width, roi.width, phase1, source, sink);
        }
    }
    return StatusOk;
}

// ---- columns ----------------------------------------------------------------------------

// Columns are worked in strips narrow enough for the scratch rows to live
// on the stack.
template <class T>
constexpr int kStripColumns = 2048 / int(sizeof(T));

// The rows of a vertical pass: stage-0 rows of each sequence from two
// images (row i of each; `interleaved` when both come from one image of
// samples, low i at row 2i + phase), stored rows likewise; every pointer
// moved to the strip's first column.
template <class T>
struct PassRows {
    const T* in0;
    int inStep0;
    const T* in1;
    int inStep1;
    T* out0;
    int outStep0;
    T* out1;
    int outStep1;
    bool samplesIn;  // forward: the input is one image of samples
    bool phase1;
    size_t column;

    int lowRow(int i) const { return 2 * i + (phase1 ? 1 : 0); }
    int highRow(int i) const { return 2 * i + (phase1 ? 0 : 1); }
    const T* stage0Low(int i) const {
        return (samplesIn ? rowAt(in0, inStep0, lowRow(i)) : rowAt(in0, inStep0, i)) + column;
    }
    const T* stage0High(int i) const {
        return (samplesIn ? rowAt(in0, inStep0, highRow(i)) : rowAt(in1, inStep1, i)) + column;
    }
    T* storeLow(int i) const {
        return (samplesIn ? rowAt(out0, outStep0, i) : rowAt(out0, outStep0, lowRow(i))) + column;
    }
    T* storeHigh(int i) const {
        return (samplesIn ? rowAt(out1, outStep1, i) : rowAt(out0, outStep0, highRow(i))) + column;
    }
};

template <class P, class T>
void liftStrips(PassRows<T> rows, int count, size_t width) {
    T scratchRows[kScratchRows][kStripColumns<T>];
    T* scratch[kScratchRows];
    for (int k = 0; k < kScratchRows; ++k) scratch[k] = scratchRows[k];
    for (size_t c = 0; c < width; c += kStripColumns<T>) {
        rows.column = c;
        const size_t n = width - c < size_t(kStripColumns<T>) ? width - c : size_t(kStripColumns<T>);
        liftColumns<P, T>(count, count, rows.phase1, n, rows, scratch);
    }
}

template <class P, class T>
VekStatus forwardColumns(const T* src, int srcStep, T* low, int lowStep, T* high, int highStep, VekiSize roi,
                         Vek32u phase) {
    if (const VekStatus status = jpeg2000::checkPass(src, low, high, srcStep, lowStep, highStep, roi)) return status;
    const bool phase1 = phase != 0;
    if (isNineSeven<P> && roi.height == 1) {
        for (int c = 0; c < roi.width; ++c)
            directForward<T>(
                phase1, [&](int p) { return rowAt(src, srcStep, p)[c]; }, low[c], high[c]);
        return StatusOk;
    }
    liftStrips<P, T>({src, srcStep, nullptr, 0, low, lowStep, high, highStep, true, phase1, 0}, roi.height,
                     size_t(roi.width));
    return StatusOk;
}

template <class P, class T>
VekStatus inverseColumns(const T* low, int lowStep, const T* high, int highStep, VekiSize roi, T* dst, int dstStep,
                         Vek32u phase) {
    if (const VekStatus status = jpeg2000::checkPass(dst, low, high, lowStep, highStep, dstStep, roi)) return status;
    const bool phase1 = phase != 0;
    if (isNineSeven<P> && roi.height == 1) {
        for (int c = 0; c < roi.width; ++c)
            directInverse<T>(
                phase1,
                [&](int q) {
                    const ptrdiff_t lowParity = phase1 ? 1 : 0;
                    return ((q - lowParity) & 1) == 0 ? rowAt(low, lowStep, (q - lowParity) >> 1)[c]
                                                      : rowAt(high, highStep, (q - 1 + lowParity) >> 1)[c];
                },
                rowAt(dst, dstStep, 0)[c], rowAt(dst, dstStep, 1)[c]);
        return StatusOk;
    }
    liftStrips<P, T>({low, lowStep, high, highStep, dst, dstStep, nullptr, 0, false, phase1, 0}, roi.height,
                     size_t(roi.width));
    return StatusOk;
}

// ---- ColLift: one pair of rows ------------------------------------------------------------

template <class T>
VekStatus forwardLift53(const T* x0, const T* x1, const T* x2, T* low, const T* highPrev, T* high, int width) {
    if (const VekStatus status = jpeg2000::checkColumnLift(width, x0, x1, x2, low, highPrev, high)) return status;
    const size_t n = size_t(width);
    lift53<T, kSubHalf>(high, x1, x0, x2, n);
    lift53<T, kAddQuarter>(low, x0, highPrev, high, n);
    return StatusOk;
}

template <class T>
VekStatus inverseLift53(const T* low, const T* highPrev, const T* high, const T* evenPrev, T* odd, T* even, int width) {
    if (const VekStatus status = jpeg2000::checkColumnLift(width, low, highPrev, high, evenPrev, odd, even))
        return status;
    const size_t n = size_t(width);
    lift53<T, kSubQuarter>(even, low, highPrev, high, n);
    lift53<T, kAddHalf>(odd, highPrev, evenPrev, even, n);
    return StatusOk;
}

// The 9/7 pipeline stage: r0..r2 source rows 2n..2n+2; r3 the previous low
// (finished and scaled here), r4 the new low; r5 the previous high
// (scaled here), r6 the high before it (updated), r7 the new high.  Each
// step rounds on its own (no folding).
template <class P, class T>
VekStatus forwardLift97(const T* r0, const T* r1, const T* r2, T* r3, T* r4, T* r5, T* r6, T* r7, int width) {
    if (const VekStatus status = jpeg2000::checkColumnLift(width, r0, r1, r2, r3, r4, r5, r6, r7)) return status;
    const size_t n = size_t(width);
    P::step(0, r7, r1, r0, r2, n);
    P::step(1, r4, r0, r6, r7, n);
    P::step(2, r6, r6, r3, r4, n);
    if constexpr (std::is_floating_point_v<T>)
        P::step(3, r3, r3, r5, r6, n);  // delta, then 1/K
    else
        P::lastLow(r3, r3, r5, r6, n);  // delta, then 1/K, each rounded
    P::scaleHigh(r5, n);
    return StatusOk;
}

// q0 the low row n, q1 and q2 the high rows n and n-1, q3 the even row
// before, q4 and q5 the odd and even rows in progress (finished here), q6
// and q7 the new odd and even rows.
template <class P, class T>
VekStatus inverseLift97(const T* q0, const T* q1, const T* q2, const T* q3, T* q4, T* q5, T* q6, T* q7, int width) {
    if (const VekStatus status = jpeg2000::checkColumnLift(width, q0, q1, q2, q3, q4, q5, q6, q7)) return status;
    const size_t n = size_t(width);
    P::step(0, q7, q0, q1, q2, n);
    P::step(1, q6, q1, q5, q7, n);
    P::step(2, q5, q5, q4, q6, n);
    P::step(3, q4, q4, q3, q5, n);
    return StatusOk;
}

// ---- the two-dimensional 9/7 level ------------------------------------------------------------

// The work buffer: the tile's h rows at `pitch` bytes (the sample rows
// rounded up to 32 bytes), then kScratchRows rows for the vertical lifting.
template <class T>
struct WorkRows {
    Vek8u* base;
    size_t pitch;
    T* row(ptrdiff_t y) const { return reinterpret_cast<T*>(base + size_t(y) * pitch); }
};

// Each direction's phase is the parity of the tile's coordinate when the
// tile's extent is even; an odd extent keeps phase 0 (its band sizes are
// those of an even coordinate).
inline bool tilePhase(int coordinate, int extent) { return (extent & 1) == 0 && (coordinate & 1) != 0; }

// The rows of the vertical pass over the work buffer's columns
// [column, column + width): forward from the (reflected) work rows into two
// bands, inverse from two bands (reflected through the interleaved
// positions) into the work rows.
template <class T>
struct LevelRows {
    WorkRows<T> work;
    int height;  // of the tile
    const T* bandLow;
    int bandLowStep;
    const T* bandHigh;
    int bandHighStep;
    T* outLow;
    int outLowStep;
    T* outHigh;
    int outHighStep;
    bool forward, phase1;
    size_t column;

    int lowPosition(int i) const { return 2 * i + (phase1 ? 1 : 0); }
    int highPosition(int i) const { return 2 * i + (phase1 ? 0 : 1); }
    // The band index of the coefficient at a position, reflected into the tile.
    int reflectedIndex(int position, int parity) const { return int((reflect(position, height) - parity) >> 1); }
    const T* stage0Low(int i) const {
        if (forward) return work.row(reflect(lowPosition(i), height)) + column;
        return rowAt(bandLow, bandLowStep, reflectedIndex(lowPosition(i), phase1 ? 1 : 0));
    }
    const T* stage0High(int i) const {
        if (forward) return work.row(reflect(highPosition(i), height)) + column;
        return rowAt(bandHigh, bandHighStep, reflectedIndex(highPosition(i), phase1 ? 0 : 1));
    }
    T* storeLow(int i) const { return forward ? rowAt(outLow, outLowStep, i) : work.row(lowPosition(i)) + column; }
    T* storeHigh(int i) const { return forward ? rowAt(outHigh, outHighStep, i) : work.row(highPosition(i)) + column; }
};

template <class T>
VekStatus forwardLevel(const T* src, int srcStep, const VekiRect* tile, T* const bands[4], const int steps[4],
                       Vek8u* buffer) {
    if (const VekStatus status = jpeg2000::checkLevel(src, srcStep, tile, bands, steps, buffer)) return status;
    using P = Forward97Q<T>;
    const int w = tile->width, h = tile->height;
    const bool phaseX = tilePhase(tile->x, w), phaseY = tilePhase(tile->y, h);
    const int lowW = (w + 1) / 2, lowH = (h + 1) / 2, highH = h / 2;
    const WorkRows<T> work{buffer, (size_t(w) * sizeof(T) + 31) & ~size_t(31)};
    // Rows: each tile row to the work row, low coefficients then high ones.
    for (int y = 0; y < h; ++y) {
        const T* x = rowAt(src, srcStep, y);
        T* out = work.row(y);
        if (w == 1) {
            out[0] = x[0];
        } else if (w == 2) {
            directForward<T>(
                phaseX, [&](int p) { return x[reflect(p, 2)]; }, out[0], out[1]);
        } else {
            SampleSource<T> source{x, w, phaseX};
            BandSink<T> sink{out, out + lowW};
            liftLine<P, T>(lowW, w / 2, phaseX, source, sink);
        }
    }
    // Columns: the low part into bands 0 and 1, the high part into 2 and 3.
    for (int part = 0; part < 2; ++part) {
        const size_t column = part == 0 ? 0 : size_t(lowW), width = part == 0 ? size_t(lowW) : size_t(w / 2);
        T* bandLow = bands[2 * part];
        T* bandHigh = bands[2 * part + 1];
        const int lowStep = steps[2 * part], highStep = steps[2 * part + 1];
        if (width == 0) continue;
        if (h == 1) {
            memcpy(bandLow, work.row(0) + column, width * sizeof(T));
        } else if (h == 2) {
            for (size_t c = 0; c < width; ++c)
                directForward<T>(
                    phaseY, [&](int p) { return work.row(reflect(p, 2))[column + c]; }, bandLow[c], bandHigh[c]);
        } else {
            LevelRows<T> rows{work,    h,        nullptr,  0,    nullptr, 0,     bandLow,
                              lowStep, bandHigh, highStep, true, phaseY,  column};
            T* scratch[kScratchRows];
            for (int k = 0; k < kScratchRows; ++k) scratch[k] = work.row(h + k) + column;
            liftColumns<P, T>(lowH, highH, phaseY, width, rows, scratch);
        }
    }
    return StatusOk;
}

template <class T>
VekStatus inverseLevel(const T* const bands[4], const int steps[4], const VekiRect* tile, T* dst, int dstStep,
                       Vek8u* buffer) {
    if (const VekStatus status = jpeg2000::checkLevel(dst, dstStep, tile, bands, steps, buffer)) return status;
    using P = Inverse97Q<T>;
    const int w = tile->width, h = tile->height;
    const bool phaseX = tilePhase(tile->x, w), phaseY = tilePhase(tile->y, h);
    const int lowW = (w + 1) / 2, lowH = (h + 1) / 2, highH = h / 2;
    const WorkRows<T> work{buffer, (size_t(w) * sizeof(T) + 31) & ~size_t(31)};
    // Columns first: bands 0 and 1 into the work rows' low part, 2 and 3
    // into the high part.
    for (int part = 0; part < 2; ++part) {
        const size_t column = part == 0 ? 0 : size_t(lowW), width = part == 0 ? size_t(lowW) : size_t(w / 2);
        const T* bandLow = bands[2 * part];
        const T* bandHigh = bands[2 * part + 1];
        const int lowStep = steps[2 * part], highStep = steps[2 * part + 1];
        if (width == 0) continue;
        if (h == 1) {
            memcpy(work.row(0) + column, bandLow, width * sizeof(T));
        } else if (h == 2) {
            for (size_t c = 0; c < width; ++c)
                directInverse<T>(
                    phaseY, [&](int q) { return interleavedAt(bandLow + c, bandHigh + c, phaseY, reflect(q, 2)); },
                    work.row(0)[column + c], work.row(1)[column + c]);
        } else {
            LevelRows<T> rows{work, h,       bandLow, lowStep, bandHigh, highStep, nullptr,
                              0,    nullptr, 0,       false,   phaseY,   column};
            T* scratch[kScratchRows];
            for (int k = 0; k < kScratchRows; ++k) scratch[k] = work.row(h + k) + column;
            liftColumns<P, T>(lowH, highH, phaseY, width, rows, scratch);
        }
    }
    // Then each work row back into a tile row.
    for (int y = 0; y < h; ++y) {
        const T* in = work.row(y);
        T* x = rowAt(dst, dstStep, y);
        if (w == 1) {
            x[0] = in[0];
        } else if (w == 2) {
            directInverse<T>(
                phaseX, [&](int q) { return interleavedAt(in, in + 1, phaseX, reflect(q, 2)); }, x[0], x[1]);
        } else {
            BandSource<T> source{in, in + lowW, w, phaseX};
            SampleSink<T> sink{x, w, phaseX};
            liftLine<P, T>(lowW, w / 2, phaseX, source, sink);
        }
    }
    return StatusOk;
}

}  // namespace

#endif
