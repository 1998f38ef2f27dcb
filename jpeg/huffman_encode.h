// The JPEG Huffman encoders and symbol counters of one 8x8 block, written
// once for every level: baseline (DC difference and AC run/size pairs),
// and the four progressive scans of T.81 Annex G (DC first and refine, AC
// first and refine, with end-of-band runs held in the state between
// blocks).
//
// Each scan's rules are written once, over a Sink: the encoder's sink
// puts codes through a BitWriter into a staging buffer, the counter's sink
// lists the symbols.  Either is committed only when the whole call has
// succeeded, so a failing call writes nothing.
//
// A level supplies the Block policy:
//   toZigzag(natural, zz): the 64 coefficients in zig-zag order;
//   bandMask(zz, al):      bit k set where |zz[k]| >> al is not zero
//                          (|-32768| taken as 32768).
// Every level gives the same masks, so the same bits.
//
// Included inside a level's namespace, after huffman_bits.h and
// huffman_checks.h; internal linkage.
#ifndef VEK_JPEG_HUFFMAN_ENCODE_H
#define VEK_JPEG_HUFFMAN_ENCODE_H

namespace {

using vek::jpeg::EncodeState;
using vek::jpeg::kMaxAcSize;
using vek::jpeg::kMaxCorrectionBits;
using vek::jpeg::kMaxDcSize;
using vek::jpeg::kMaxEobRun;

// Bytes one call can write at most: a baseline block takes 1665 bits, a
// refinement block with a full pending run about 2300; stuffing doubles.
constexpr int kStageBytes = 1024;
constexpr int kMaxSymbolsPerCall = 160;

inline unsigned magnitude(int v) { return v < 0 ? 0u - static_cast<unsigned>(v) : static_cast<unsigned>(v); }
// The lowest set bit of a non-zero mask.  32-bit targets take it in two
// halves: MinGW's 64-bit helper (__ctzdi2) is written with tzcnt, an
// instruction beyond level 0.
inline int lowestBit(Vek64u mask) {
#if defined(__x86_64__)
    return __builtin_ctzll(mask);
#else
    const Vek32u low = static_cast<Vek32u>(mask);
    return low ? __builtin_ctz(low) : 32 + __builtin_ctz(static_cast<Vek32u>(mask >> 32));
#endif
}
// Bits first..last (0 <= first <= last <= 63) set.
inline Vek64u bandBits(int first, int last) {
    return (last == 63 ? ~Vek64u(0) : (Vek64u(1) << (last + 1)) - 1) & ~((Vek64u(1) << first) - 1);
}

// Puts codes and value bits into a staging buffer.
class EncodeSink {
public:
    EncodeSink(const EncodeState& s, Vek8u* stage) : writer_(s.bits, s.count, stage), stage_(stage) {}
    // The code of `symbol` followed by the `size` low bits of `bits`.
    bool code(const EncodeSpec* t, int symbol, Vek32u bits = 0, int size = 0) {
        const Vek32u entry = t->codeLength[symbol];
        if (__builtin_expect(!entry, 0)) return false;
        writer_.put(((entry >> 5) << size) | (bits & ((1u << size) - 1)), static_cast<int>(entry & 31) + size);
        return true;
    }
    void bit(int b) { writer_.put(static_cast<Vek32u>(b & 1), 1); }
    void flush() { writer_.flush(); }
    int bytes() const { return static_cast<int>(writer_.out() - stage_); }
    BitWriter writer_;
    Vek8u* stage_;
};

// Lists the symbols that would be coded.
class CountSink {
public:
    bool code(const EncodeSpec*, int symbol, Vek32u = 0, int = 0) {
        symbols_[count_++] = static_cast<Vek8u>(symbol);
        return true;
    }
    void bit(int) {}
    void commit(int* stats) const {
        for (int i = 0; i < count_; ++i) ++stats[symbols_[i]];
    }
    Vek8u symbols_[kMaxSymbolsPerCall];
    int count_ = 0;
};

// The end-of-band run of the progressive AC scans (and, for refinement,
// the correction bits that follow it).  `held` is the run's correction
// bits when encoding (null when counting).
template <class Sink>
bool putEobRun(Sink& sink, const EncodeSpec* t, int& eobRun, int& correctionCount, const Vek8u* held) {
    if (eobRun == 0) return true;
    const int extra = bitLength(static_cast<unsigned>(eobRun)) - 1;
    if (!sink.code(t, extra << 4, static_cast<Vek32u>(eobRun), extra)) return false;
    eobRun = 0;
    if (held)
        for (int i = 0; i < correctionCount; ++i) sink.bit(held[i]);
    correctionCount = 0;
    return true;
}

// Run of zeros then a value: ZRL codes for every 16 zeros, then run/size.
// The sign is taken without branches (it is a coin toss in real data):
// the magnitude is (v ^ s) - s and the value bits v + s, with s = v >> 31,
// which gives the one's complement of the magnitude for a negative v.
template <class Sink>
VekStatus putRunValue(Sink& sink, const EncodeSpec* t, int run, int v) {
    for (; run > 15; run -= 16)
        if (!sink.code(t, 0xF0)) return StatusJpegHuffmanTable;
    const int sign = v >> 31;
    const int size = bitLength(static_cast<unsigned>((v ^ sign) - sign));
    if (size > kMaxAcSize) return StatusJpegCoefficientRange;
    return sink.code(t, (run << 4) | size, static_cast<Vek32u>(v + sign), size) ? StatusOk : StatusJpegHuffmanTable;
}

// The same with the size category and the value bits (v - 1 for a
// negative v) worked out beforehand.
// Runs of 16 and more, and sizes beyond the largest, are rare: the hints
// keep the usual path straight, without a jump out and back per symbol.
template <class Sink>
VekStatus putRunSized(Sink& sink, const EncodeSpec* t, int run, int size, Vek32u bits) {
    for (; __builtin_expect(run > 15, 0); run -= 16)
        if (!sink.code(t, 0xF0)) return StatusJpegHuffmanTable;
    if (__builtin_expect(size > kMaxAcSize, 0)) return StatusJpegCoefficientRange;
    return sink.code(t, (run << 4) | size, bits, size) ? StatusOk : StatusJpegHuffmanTable;
}

// DC difference of baseline and DC first scans.
template <class Sink>
VekStatus putDc(Sink& sink, const EncodeSpec* t, int diff) {
    const int sign = diff >> 31;
    const int size = bitLength(static_cast<unsigned>((diff ^ sign) - sign));
    if (size > kMaxDcSize) return StatusJpegCoefficientRange;
    return sink.code(t, size, static_cast<Vek32u>(diff + sign), size) ? StatusOk : StatusJpegHuffmanTable;
}

template <class Block, class Sink>
VekStatus codeBaseline(Sink& sink, const Vek16s* src, Vek16s lastDc, const EncodeSpec* dc, const EncodeSpec* ac) {
    alignas(64) Vek16s zz[64];
    Block::toZigzag(src, zz);
    if (const VekStatus s = putDc(sink, dc, zz[0] - lastDc)) return s;
    Vek64u mask = Block::bandMask(zz, 0) & ~Vek64u(1);
    int last = 0;
    if constexpr (Block::kSizesByVector) {
        // Sizes and value bits of the whole block by vectors: the loop over
        // the nonzero coefficients only looks them up.
        alignas(64) Vek32s sizes[64];
        alignas(64) Vek16s bits[64];
        Block::sizesAndBits(zz, sizes, bits);
        while (mask) {
            const int k = lowestBit(mask);
            mask &= mask - 1;
            if (const VekStatus s = putRunSized(sink, ac, k - last - 1, sizes[k], static_cast<Vek32u>(bits[k])))
                return s;
            last = k;
        }
    } else {
        while (mask) {
            const int k = lowestBit(mask);
            mask &= mask - 1;
            if (const VekStatus s = putRunValue(sink, ac, k - last - 1, zz[k])) return s;
            last = k;
        }
    }
    if (last != 63 && !sink.code(ac, 0x00)) return StatusJpegHuffmanTable;
    return StatusOk;
}

// AC first scan of band ss..se with point transform al.
template <class Block, class Sink>
VekStatus codeAcFirst(Sink& sink, const Vek16s* src, int ss, int se, int al, const EncodeSpec* ac, int& eobRun) {
    alignas(64) Vek16s zz[64];
    Block::toZigzag(src, zz);
    Vek64u mask = Block::bandMask(zz, al) & bandBits(ss, se);
    int last = ss - 1, noCorrections = 0;
    while (mask) {
        const int k = lowestBit(mask);
        mask &= mask - 1;
        if (!putEobRun(sink, ac, eobRun, noCorrections, nullptr)) return StatusJpegHuffmanTable;
        // The value after the point transform: the magnitude shifted, the
        // sign kept (T.81 G.1.2.2).
        const int z = zz[k], sign = z >> 31;
        const int m = ((z ^ sign) - sign) >> al;
        const int v = (m ^ sign) - sign;
        if (const VekStatus s = putRunValue(sink, ac, k - last - 1, v)) return s;
        last = k;
    }
    if (last < se && ++eobRun == kMaxEobRun && !putEobRun(sink, ac, eobRun, noCorrections, nullptr))
        return StatusJpegHuffmanTable;
    return StatusOk;
}

// AC refinement scan (T.81 G.1.2.3): coefficients that become nonzero at
// this bit are coded as run/1 with their sign; those already nonzero send
// their bit as a correction bit after the next code.  Correction bits of
// blocks in the end-of-band run wait in the state (`held`, `heldCount`)
// and `blockBits` returns those of this block when it joins the run.
template <class Block, class Sink>
VekStatus codeAcRefine(Sink& sink, const Vek16s* src, int ss, int se, int al, const EncodeSpec* ac, int& eobRun,
                       int& heldCount, const Vek8u* held, Vek8u* blockBits, int& blockBitCount) {
    alignas(64) Vek16s zz[64];
    Block::toZigzag(src, zz);
    const Vek64u band = bandBits(ss, se);
    const Vek64u nonzero = Block::bandMask(zz, al) & band;
    const Vek64u above = Block::bandMask(zz, al + 1) & band;  // nonzero before this bit
    const Vek64u newOnes = nonzero & ~above;
    const int eob = newOnes ? 63 - __builtin_clzll(newOnes) : -1;  // last newly nonzero position
    int run = 0, pending = 0;
    Vek8u bits[64];
    for (int k = ss; k <= se; ++k) {
        if (!((nonzero >> k) & 1)) {
            ++run;
            continue;
        }
        while (run > 15 && k <= eob) {
            if (!putEobRun(sink, ac, eobRun, heldCount, held) || !sink.code(ac, 0xF0)) return StatusJpegHuffmanTable;
            run -= 16;
            for (int i = 0; i < pending; ++i) sink.bit(bits[i]);
            pending = 0;
        }
        if ((above >> k) & 1) {
            bits[pending++] = static_cast<Vek8u>((magnitude(zz[k]) >> al) & 1);
            continue;
        }
        if (!putEobRun(sink, ac, eobRun, heldCount, held)) return StatusJpegHuffmanTable;
        if (!sink.code(ac, (run << 4) | 1, zz[k] < 0 ? 0u : 1u, 1)) return StatusJpegHuffmanTable;
        for (int i = 0; i < pending; ++i) sink.bit(bits[i]);
        pending = 0;
        run = 0;
    }
    blockBitCount = 0;
    if (run > 0 || pending > 0) {
        ++eobRun;
        for (int i = 0; i < pending; ++i) blockBits[i] = bits[i];
        blockBitCount = pending;
        if (eobRun == kMaxEobRun || heldCount + pending > kMaxCorrectionBits - 64 + 1) {
            // The run goes out now, this block's bits with it.
            if (held) {
                const int extra = bitLength(static_cast<unsigned>(eobRun)) - 1;
                if (!sink.code(ac, extra << 4, static_cast<Vek32u>(eobRun), extra)) return StatusJpegHuffmanTable;
                for (int i = 0; i < heldCount; ++i) sink.bit(held[i]);
                for (int i = 0; i < pending; ++i) sink.bit(bits[i]);
            } else if (!sink.code(ac, (bitLength(static_cast<unsigned>(eobRun)) - 1) << 4)) {
                return StatusJpegHuffmanTable;
            }
            eobRun = 0;
            heldCount = 0;
            blockBitCount = 0;
        }
    }
    return StatusOk;
}

// ---- encoding calls: stage, then commit ----------------------------------

// n bytes from src to dst.  A block codes to a few bytes: up to 16 they
// go as two fixed-size copies that may overlap, not a call of memcpy.
inline void copyFew(Vek8u* dst, const Vek8u* src, int n) {
    if (n >= 8 && n <= 16) {
        memcpy(dst, src, 8);
        memcpy(dst + n - 8, src + n - 8, 8);
    } else if (n >= 4 && n < 8) {
        memcpy(dst, src, 4);
        memcpy(dst + n - 4, src + n - 4, 4);
    } else {
        memcpy(dst, src, static_cast<size_t>(n));
    }
}

// Copies the staged bytes out and keeps the writer's pending bits.
inline VekStatus commitBytes(EncodeSink& sink, Vek8u* dst, int dstLen, int* pos, EncodeState& st) {
    sink.writer_.settle();
    const int n = sink.bytes();
    if (n > dstLen - *pos) return StatusOutOfBuffer;
    copyFew(dst + *pos, sink.stage_, n);
    *pos += n;
    st.bits = sink.writer_.pendingBits();
    st.count = sink.writer_.count();
    return StatusOk;
}

template <class Block>
VekStatus encodeBaseline(const Vek16s* src, Vek8u* dst, int dstLen, int* pos, Vek16s* lastDc,
                         const VekEncodeHuffmanSpec* dcTable, const VekEncodeHuffmanSpec* acTable,
                         VekEncodeHuffmanState* state, int flush) {
    if (const VekStatus s = checkEncode(flush, src, lastDc, dst, dstLen, pos, dcTable, acTable, state)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    Vek8u stage[kStageBytes];
    EncodeSink sink(st, stage);
    if (flush) {
        sink.flush();
        return commitBytes(sink, dst, dstLen, pos, st);
    }
    const VekStatus s = codeBaseline<Block>(sink, src, *lastDc, vek::jpeg::specOf(dcTable), vek::jpeg::specOf(acTable));
    if (s != StatusOk) return s;
    if (const VekStatus c = commitBytes(sink, dst, dstLen, pos, st)) return c;
    *lastDc = src[0];
    return StatusOk;
}

template <class Block>
VekStatus encodeDcFirst(const Vek16s* src, Vek8u* dst, int dstLen, int* pos, Vek16s* lastDc, int al,
                        const VekEncodeHuffmanSpec* dcTable, VekEncodeHuffmanState* state, int flush) {
    if (const VekStatus s = checkEncode(flush, src, lastDc, dst, dstLen, pos, dcTable, state)) return s;
    if (const VekStatus s = checkPoint(al)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    Vek8u stage[kStageBytes];
    EncodeSink sink(st, stage);
    if (flush) {
        sink.flush();
        return commitBytes(sink, dst, dstLen, pos, st);
    }
    const int shifted = src[0] >> al;
    if (const VekStatus s = putDc(sink, vek::jpeg::specOf(dcTable), shifted - *lastDc)) return s;
    if (const VekStatus c = commitBytes(sink, dst, dstLen, pos, st)) return c;
    *lastDc = static_cast<Vek16s>(shifted);
    return StatusOk;
}

inline VekStatus encodeDcRefine(const Vek16s* src, Vek8u* dst, int dstLen, int* pos, int al,
                                VekEncodeHuffmanState* state, int flush) {
    if (const VekStatus s = checkEncode(flush, src, src, dst, dstLen, pos, state)) return s;
    if (const VekStatus s = checkPoint(al)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    Vek8u stage[kStageBytes];
    EncodeSink sink(st, stage);
    if (flush)
        sink.flush();
    else
        sink.bit((src[0] >> al) & 1);
    return commitBytes(sink, dst, dstLen, pos, st);
}

template <class Block>
VekStatus encodeAcFirst(const Vek16s* src, Vek8u* dst, int dstLen, int* pos, int ss, int se, int al,
                        const VekEncodeHuffmanSpec* acTable, VekEncodeHuffmanState* state, int flush) {
    if (const VekStatus s = checkEncode(flush, src, src, dst, dstLen, pos, acTable, state)) return s;
    if (const VekStatus s = checkBand(ss, se, al)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    const EncodeSpec* ac = vek::jpeg::specOf(acTable);
    Vek8u stage[kStageBytes];
    EncodeSink sink(st, stage);
    int eobRun = st.eobRun, none = 0;
    if (flush) {
        if (!putEobRun(sink, ac, eobRun, none, nullptr)) return StatusJpegHuffmanTable;
        sink.flush();
    } else if (const VekStatus s = codeAcFirst<Block>(sink, src, ss, se, al, ac, eobRun)) {
        return s;
    }
    if (const VekStatus c = commitBytes(sink, dst, dstLen, pos, st)) return c;
    st.eobRun = eobRun;
    return StatusOk;
}

template <class Block>
VekStatus encodeAcRefine(const Vek16s* src, Vek8u* dst, int dstLen, int* pos, int ss, int se, int al,
                         const VekEncodeHuffmanSpec* acTable, VekEncodeHuffmanState* state, int flush) {
    if (const VekStatus s = checkEncode(flush, src, src, dst, dstLen, pos, acTable, state)) return s;
    if (const VekStatus s = checkBand(ss, se, al)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    const EncodeSpec* ac = vek::jpeg::specOf(acTable);
    Vek8u stage[kStageBytes];
    EncodeSink sink(st, stage);
    int eobRun = st.eobRun, held = st.correctionCount, blockBitCount = 0;
    const int heldBefore = held;
    Vek8u blockBits[64];
    if (flush) {
        if (!putEobRun(sink, ac, eobRun, held, st.correction)) return StatusJpegHuffmanTable;
        sink.flush();
    } else if (const VekStatus s = codeAcRefine<Block>(sink, src, ss, se, al, ac, eobRun, held, st.correction,
                                                       blockBits, blockBitCount)) {
        return s;
    }
    if (const VekStatus c = commitBytes(sink, dst, dstLen, pos, st)) return c;
    // The held bits were sent (held == 0) or stay, this block's after them.
    const int start = held == heldBefore ? heldBefore : 0;
    memcpy(st.correction + start, blockBits, static_cast<size_t>(blockBitCount));
    st.correctionCount = start + blockBitCount;
    st.eobRun = eobRun;
    return StatusOk;
}

// ---- counting calls --------------------------------------------------------

inline bool anyNegative(const int* stats) {
    for (int i = 0; i < 256; ++i)
        if (stats[i] < 0) return true;
    return false;
}

template <class Block>
VekStatus countBaseline(const Vek16s* src, int* dcStats, int* acStats, Vek16s* lastDc) {
    if (anyNull(src, dcStats, acStats, lastDc)) return StatusNullPointer;
    CountSink sink;  // reads no table
    if (const VekStatus s = codeBaseline<Block>(sink, src, *lastDc, nullptr, nullptr)) return s;
    ++dcStats[sink.symbols_[0]];
    for (int i = 1; i < sink.count_; ++i) ++acStats[sink.symbols_[i]];
    *lastDc = src[0];
    return StatusOk;
}

inline VekStatus countDcFirst(const Vek16s* src, int* dcStats, Vek16s* lastDc, int al) {
    if (anyNull(src, dcStats, lastDc)) return StatusNullPointer;
    if (const VekStatus s = checkPoint(al)) return s;
    CountSink sink;
    const int shifted = src[0] >> al;
    if (const VekStatus s = putDc(sink, nullptr, shifted - *lastDc)) return s;
    sink.commit(dcStats);
    *lastDc = static_cast<Vek16s>(shifted);
    return StatusOk;
}

template <class Block>
VekStatus countAcFirst(const Vek16s* src, int* acStats, int ss, int se, int al, VekEncodeHuffmanState* state,
                       int flush) {
    if ((!flush && !src) || anyNull(acStats, state)) return StatusNullPointer;
    if (const VekStatus s = checkBand(ss, se, al)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    CountSink sink;
    const EncodeSpec* none = nullptr;
    int eobRun = st.eobRun, zero = 0;
    if (flush)
        putEobRun(sink, none, eobRun, zero, nullptr);
    else if (const VekStatus s = codeAcFirst<Block>(sink, src, ss, se, al, none, eobRun))
        return s;
    sink.commit(acStats);
    st.eobRun = eobRun;
    return StatusOk;
}

template <class Block>
VekStatus countAcRefine(const Vek16s* src, int* acStats, int ss, int se, int al, VekEncodeHuffmanState* state,
                        int flush) {
    if ((!flush && !src) || anyNull(acStats, state)) return StatusNullPointer;
    if (const VekStatus s = checkBand(ss, se, al)) return s;
    EncodeState& st = *vek::jpeg::stateOf(state);
    CountSink sink;
    const EncodeSpec* none = nullptr;
    int eobRun = st.eobRun, held = st.correctionCount, blockBitCount = 0;
    Vek8u blockBits[64];
    if (flush)
        putEobRun(sink, none, eobRun, held, nullptr);
    else if (const VekStatus s =
                 codeAcRefine<Block>(sink, src, ss, se, al, none, eobRun, held, nullptr, blockBits, blockBitCount))
        return s;
    sink.commit(acStats);
    // Only the number of held bits matters when counting.
    st.correctionCount = held + blockBitCount;
    st.eobRun = eobRun;
    return StatusOk;
}

}  // namespace

// The exports of every level, over the level's Block policy.
#define VEK_JPEG_HUFFMAN_ENCODE_EXPORTS(Block)                                                                         \
    VekStatus VEK_CALL vekiEncodeHuffman8x8_JPEG_16s1u_C1(                                                             \
        const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, Vek16s* pLastDC,                           \
        const VekEncodeHuffmanSpec* pDcTable, const VekEncodeHuffmanSpec* pAcTable,                                    \
        VekEncodeHuffmanState* pEncHuffState, int bFlushState) {                                                       \
        return encodeBaseline<Block>(pSrc, pDst, dstLenBytes, pDstCurrPos, pLastDC, pDcTable, pAcTable, pEncHuffState, \
                                     bFlushState);                                                                     \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiEncodeHuffman8x8_DCFirst_JPEG_16s1u_C1(                                                     \
        const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, Vek16s* pLastDC, int Al,                   \
        const VekEncodeHuffmanSpec* pDcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState) {                 \
        return encodeDcFirst<Block>(pSrc, pDst, dstLenBytes, pDstCurrPos, pLastDC, Al, pDcTable, pEncHuffState,        \
                                    bFlushState);                                                                      \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiEncodeHuffman8x8_DCRefine_JPEG_16s1u_C1(                                                    \
        const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, int Al,                                    \
        VekEncodeHuffmanState* pEncHuffState, int bFlushState) {                                                       \
        return encodeDcRefine(pSrc, pDst, dstLenBytes, pDstCurrPos, Al, pEncHuffState, bFlushState);                   \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiEncodeHuffman8x8_ACFirst_JPEG_16s1u_C1(                                                     \
        const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, int Ss, int Se, int Al,                    \
        const VekEncodeHuffmanSpec* pAcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState) {                 \
        return encodeAcFirst<Block>(pSrc, pDst, dstLenBytes, pDstCurrPos, Ss, Se, Al, pAcTable, pEncHuffState,         \
                                    bFlushState);                                                                      \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiEncodeHuffman8x8_ACRefine_JPEG_16s1u_C1(                                                    \
        const Vek16s* pSrc, Vek8u* pDst, int dstLenBytes, int* pDstCurrPos, int Ss, int Se, int Al,                    \
        const VekEncodeHuffmanSpec* pAcTable, VekEncodeHuffmanState* pEncHuffState, int bFlushState) {                 \
        return encodeAcRefine<Block>(pSrc, pDst, dstLenBytes, pDstCurrPos, Ss, Se, Al, pAcTable, pEncHuffState,        \
                                     bFlushState);                                                                     \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_JPEG_16s_C1(const Vek16s* pSrc, int pDcStatistics[256],             \
                                                               int pAcStatistics[256], Vek16s* pLastDC) {              \
        return countBaseline<Block>(pSrc, pDcStatistics, pAcStatistics, pLastDC);                                      \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_DCFirst_JPEG_16s_C1(const Vek16s* pSrc, int pDcStatistics[256],     \
                                                                       Vek16s* pLastDC, int Al) {                      \
        return countDcFirst(pSrc, pDcStatistics, pLastDC, Al);                                                         \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_ACFirst_JPEG_16s_C1(                                                \
        const Vek16s* pSrc, int pAcStatistics[256], int Ss, int Se, int Al, VekEncodeHuffmanState* pEncHuffState,      \
        int bFlushState) {                                                                                             \
        return countAcFirst<Block>(pSrc, pAcStatistics, Ss, Se, Al, pEncHuffState, bFlushState);                       \
    }                                                                                                                  \
    VekStatus VEK_CALL vekiGetHuffmanStatistics8x8_ACRefine_JPEG_16s_C1(                                               \
        const Vek16s* pSrc, int pAcStatistics[256], int Ss, int Se, int Al, VekEncodeHuffmanState* pEncHuffState,      \
        int bFlushState) {                                                                                             \
        return countAcRefine<Block>(pSrc, pAcStatistics, Ss, Se, Al, pEncHuffState, bFlushState);                      \
    }

#endif
