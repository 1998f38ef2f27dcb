// The JPEG Huffman decoders of one 8x8 block, written once for every
// level: baseline, and the four progressive scans of T.81 Annex G.
//
// Each call works on copies: the state's bits, the input position and the
// block (in natural order) are written back only when the whole block has
// decoded from bits the input really holds.  A code absent from the table
// (StatusIllegalCode, also for a refinement code of another size than 1),
// a run past the band or a size category above 15
// (StatusJpegCoefficientRange), or bits needed past a marker or the end
// of the input (StatusDataUnderRun) leave everything as it was.  So the
// decoder reads only src[*pos .. srcLen) and writes only the 64
// coefficients of the block, whatever the input.
//
// Included inside a level's namespace, after huffman_bits.h and
// huffman_checks.h; internal linkage.
#ifndef VEK_JPEG_HUFFMAN_DECODE_H
#define VEK_JPEG_HUFFMAN_DECODE_H

namespace {

using vek::jpeg::DecodeState;
using vek::jpeg::kMaxDecodedSize;
using vek::jpeg::kZigzagToNatural;

// Sums that wrap to 16 bits, as the coefficient type does.
inline Vek16s wrap16(unsigned v) { return static_cast<Vek16s>(static_cast<Vek16u>(v)); }
inline unsigned shiftedUp(int v, int al) { return static_cast<unsigned>(v) << al; }

// One call's reader and result, committed on success.
class DecodeCall {
public:
    DecodeCall(const Vek8u* src, int srcLen, int* pos, DecodeState& st)
        : reader(st.bits, st.count, src, *pos, srcLen), pos_(pos), st_(st) {}

    // The status of the decoding, after the scan's own errors.
    VekStatus finish(VekStatus status, int* marker) {
        if (status == StatusOk && reader.underrun()) status = StatusDataUnderRun;
        if (status != StatusOk) return status;
        st_.bits = reader.bits();
        st_.count = reader.count();
        *pos_ = reader.position();
        if (reader.marker()) *marker = reader.marker();
        return StatusOk;
    }

    // The next symbol of table t, the buffer refilled first where it runs
    // short of the longest code and value (16 + 15 bits).
    int symbol(const DecodeSpec& t) {
        if (reader.count() < 32) reader.refill();
        return reader.symbol(t);
    }

    BitReader reader;

private:
    int* pos_;
    DecodeState& st_;
};

// The DC difference coded at the reader; false, with `status` set, when
// the code is absent from the table or its size category out of range.
// Short codes with short values take one look-up.
inline bool dcDifference(DecodeCall& call, const DecodeSpec& dc, int& diff, VekStatus& status) {
    if (call.reader.count() < 32) call.reader.refill();
    const int32_t fast = dc.fastValue[call.reader.peek(vek::jpeg::kLookaheadBits)];
    if (fast && !(fast & 0xF00)) {  // a symbol of 0..15: a size category
        call.reader.skip(fast & 31);
        diff = fast >> 16;
        return true;
    }
    const int size = call.reader.symbol(dc);
    if (size < 0) {
        status = StatusIllegalCode;
        return false;
    }
    if (size > kMaxDecodedSize) {
        status = StatusJpegCoefficientRange;
        return false;
    }
    diff = call.reader.value(size);
    return true;
}

// Baseline block: the decoded coefficients are listed (natural position,
// value) and written to the block only when the whole block has decoded,
// so that a failing call leaves it untouched without a staging copy.
template <class Policy>
VekStatus decodeBaseline(const Vek8u* src, int srcLen, int* pos, Vek16s* dst, Vek16s* lastDc, int* marker,
                         const VekDecodeHuffmanSpec* dcTable, const VekDecodeHuffmanSpec* acTable,
                         VekDecodeHuffmanState* state) {
    if (const VekStatus s = checkDecode(src, srcLen, pos, dst, lastDc, marker, dcTable, acTable, state)) return s;
    DecodeState& st = *vek::jpeg::stateOf(state);
    const DecodeSpec& ac = *vek::jpeg::specOf(acTable);
    DecodeCall call(src, srcLen, pos, st);
    Vek16s values[64];
    Vek8u where[64];
    int count = 0;
    VekStatus status = StatusOk;
    int diff = 0;
    if (dcDifference(call, *vek::jpeg::specOf(dcTable), diff, status)) {
        for (int k = 1; k < 64; ++k) {
            call.reader.refillQuick();
            // Short codes with short values: one look-up gives both.
            const int32_t fast = ac.fastValue[call.reader.peek(vek::jpeg::kLookaheadBits)];
            if (fast) {
                call.reader.skip(fast & 31);
                if (fast & vek::jpeg::kFastEndOfBlock) break;
                k += (fast >> 8) & 15;
                if (k > 63) {
                    status = StatusJpegCoefficientRange;
                    break;
                }
                where[count] = kZigzagToNatural[k];
                values[count++] = static_cast<Vek16s>(fast >> 16);
                continue;
            }
            const int rs = call.reader.symbol(ac);
            if (rs < 0) {
                status = StatusIllegalCode;
                break;
            }
            const int run = rs >> 4, s = rs & 15;
            if (s == 0) {
                if (run != 15) break;  // end of block
                k += 15;               // sixteen zeros
                if (k > 63) status = StatusJpegCoefficientRange;
                if (k >= 63) break;
                continue;
            }
            k += run;
            if (k > 63) {
                status = StatusJpegCoefficientRange;
                break;
            }
            where[count] = kZigzagToNatural[k];
            values[count++] = static_cast<Vek16s>(call.reader.value(s));
        }
    }
    status = call.finish(status, marker);
    if (status != StatusOk) return status;
    const Vek16s dcValue = wrap16(static_cast<unsigned>(*lastDc) + static_cast<unsigned>(diff));
    Policy::clear(dst);
    dst[0] = dcValue;
    for (int i = 0; i < count; ++i) dst[where[i]] = values[i];
    *lastDc = dcValue;
    return StatusOk;
}

inline VekStatus decodeDcFirst(const Vek8u* src, int srcLen, int* pos, Vek16s* dst, Vek16s* lastDc, int* marker, int al,
                               const VekDecodeHuffmanSpec* dcTable, VekDecodeHuffmanState* state) {
    if (const VekStatus s = checkDecode(src, srcLen, pos, dst, lastDc, marker, dcTable, state)) return s;
    if (const VekStatus s = checkPoint(al)) return s;
    DecodeCall call(src, srcLen, pos, *vek::jpeg::stateOf(state));
    VekStatus status = StatusOk;
    Vek16s dcValue = *lastDc;
    const int size = call.symbol(*vek::jpeg::specOf(dcTable));
    if (size < 0)
        status = StatusIllegalCode;
    else if (size > kMaxDecodedSize)
        status = StatusJpegCoefficientRange;
    else
        dcValue = wrap16(static_cast<unsigned>(dcValue) + static_cast<unsigned>(call.reader.value(size)));
    status = call.finish(status, marker);
    if (status != StatusOk) return status;
    *lastDc = dcValue;
    dst[0] = wrap16(shiftedUp(dcValue, al));
    return StatusOk;
}

inline VekStatus decodeDcRefine(const Vek8u* src, int srcLen, int* pos, Vek16s* dst, int* marker, int al,
                                VekDecodeHuffmanState* state) {
    if (const VekStatus s = checkDecode(src, srcLen, pos, dst, marker, state)) return s;
    if (const VekStatus s = checkPoint(al)) return s;
    DecodeCall call(src, srcLen, pos, *vek::jpeg::stateOf(state));
    call.reader.refill();
    const unsigned bit = call.reader.take(1);
    const VekStatus status = call.finish(StatusOk, marker);
    if (status != StatusOk) return status;
    if (bit) dst[0] = wrap16(static_cast<Vek16u>(dst[0]) | (1u << al));
    return StatusOk;
}

template <class Policy>
VekStatus decodeAcFirst(const Vek8u* src, int srcLen, int* pos, Vek16s* dst, int* marker, int ss, int se, int al,
                        const VekDecodeHuffmanSpec* acTable, VekDecodeHuffmanState* state) {
    if (const VekStatus s = checkDecode(src, srcLen, pos, dst, marker, acTable, state)) return s;
    if (const VekStatus s = checkBand(ss, se, al)) return s;
    DecodeState& st = *vek::jpeg::stateOf(state);
    if (st.eobRun > 0) {  // the block lies in an end-of-band run: nothing to read
        --st.eobRun;
        return StatusOk;
    }
    const DecodeSpec& ac = *vek::jpeg::specOf(acTable);
    DecodeCall call(src, srcLen, pos, st);
    alignas(64) Vek16s block[64];
    Policy::copy(block, dst);
    VekStatus status = StatusOk;
    int eobRun = 0;
    for (int k = ss; k <= se; ++k) {
        const int rs = call.symbol(ac);
        if (rs < 0) {
            status = StatusIllegalCode;
            break;
        }
        const int run = rs >> 4, s = rs & 15;
        if (s == 0) {
            if (run == 15) {  // sixteen zeros
                k += 15;
                continue;
            }
            eobRun = (1 << run) - 1 + static_cast<int>(call.reader.take(run));  // this block is the run's first
            break;
        }
        k += run;
        if (k > se) {
            status = StatusJpegCoefficientRange;
            break;
        }
        block[kZigzagToNatural[k]] = wrap16(shiftedUp(call.reader.value(s), al));
    }
    status = call.finish(status, marker);
    if (status != StatusOk) return status;
    Policy::copy(dst, block);
    st.eobRun = eobRun;
    return StatusOk;
}

// AC refinement (T.81 G.1.2.3): each coefficient already nonzero takes a
// correction bit; one zero coefficient per run/1 code becomes +-2^al.
template <class Policy>
VekStatus decodeAcRefine(const Vek8u* src, int srcLen, int* pos, Vek16s* dst, int* marker, int ss, int se, int al,
                         const VekDecodeHuffmanSpec* acTable, VekDecodeHuffmanState* state) {
    if (const VekStatus s = checkDecode(src, srcLen, pos, dst, marker, acTable, state)) return s;
    if (const VekStatus s = checkBand(ss, se, al)) return s;
    DecodeState& st = *vek::jpeg::stateOf(state);
    const DecodeSpec& ac = *vek::jpeg::specOf(acTable);
    DecodeCall call(src, srcLen, pos, st);
    alignas(64) Vek16s block[64];
    Policy::copy(block, dst);
    const unsigned plusOne = 1u << al, minusOne = 0u - plusOne;
    // A correction bit for a nonzero coefficient: the bit adds 2^al away
    // from zero unless the coefficient has it already.
    auto correct = [&](int natural) {
        const unsigned c = static_cast<Vek16u>(block[natural]);
        if (call.reader.take(1) && !(c & plusOne))
            block[natural] = wrap16(c + (block[natural] >= 0 ? plusOne : minusOne));
    };
    VekStatus status = StatusOk;
    int eobRun = st.eobRun;
    int k = ss;
    if (eobRun == 0) {
        for (; k <= se; ++k) {
            const int rs = call.symbol(ac);
            if (rs < 0) {
                status = StatusIllegalCode;
                break;
            }
            int run = rs >> 4;
            const int s = rs & 15;
            unsigned value = 0;
            if (s != 0) {
                if (s != 1) {  // refinement codes carry one bit of value
                    status = StatusIllegalCode;
                    break;
                }
                value = call.reader.take(1) ? plusOne : minusOne;
            } else if (run != 15) {
                eobRun = (1 << run) + static_cast<int>(call.reader.take(run));
                break;
            }
            // Past `run` zero coefficients (correcting the nonzero ones on
            // the way) to the one that takes the new value.
            for (; k <= se; ++k) {
                const int natural = kZigzagToNatural[k];
                if (block[natural] != 0) {
                    if (call.reader.count() < 32) call.reader.refill();
                    correct(natural);
                } else if (--run < 0) {
                    break;
                }
            }
            if (value) {
                if (k > se) {
                    status = StatusJpegCoefficientRange;
                    break;
                }
                block[kZigzagToNatural[k]] = wrap16(value);
            }
        }
    }
    if (status == StatusOk && eobRun > 0) {
        // In an end-of-band run: only correction bits, for the rest of the band.
        for (; k <= se; ++k) {
            const int natural = kZigzagToNatural[k];
            if (block[natural] != 0) {
                if (call.reader.count() < 32) call.reader.refill();
                correct(natural);
            }
        }
        --eobRun;
    }
    status = call.finish(status, marker);
    if (status != StatusOk) return status;
    Policy::copy(dst, block);
    st.eobRun = eobRun;
    return StatusOk;
}

}  // namespace

// The exports of every level, over the level's Policy (clear and copy of
// a 64-coefficient block).
#define VEK_JPEG_HUFFMAN_DECODE_EXPORTS(Policy)                                                                    \
    VekStatus VEK_CALL vekiDecodeHuffman8x8_JPEG_1u16s_C1(                                                         \
        const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, Vek16s* pLastDC, int* pMarker,         \
        const VekDecodeHuffmanSpec* pDcTable, const VekDecodeHuffmanSpec* pAcTable,                                \
        VekDecodeHuffmanState* pDecHuffState) {                                                                    \
        return decodeBaseline<Policy>(pSrc, srcLenBytes, pSrcCurrPos, pDst, pLastDC, pMarker, pDcTable, pAcTable,  \
                                      pDecHuffState);                                                              \
    }                                                                                                              \
    VekStatus VEK_CALL vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1(                                                 \
        const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, Vek16s* pLastDC, int* pMarker, int Al, \
        const VekDecodeHuffmanSpec* pDcTable, VekDecodeHuffmanState* pDecHuffState) {                              \
        return decodeDcFirst(pSrc, srcLenBytes, pSrcCurrPos, pDst, pLastDC, pMarker, Al, pDcTable, pDecHuffState); \
    }                                                                                                              \
    VekStatus VEK_CALL vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1(const Vek8u* pSrc, int srcLenBytes,             \
                                                                   int* pSrcCurrPos, Vek16s* pDst, int* pMarker,   \
                                                                   int Al, VekDecodeHuffmanState* pDecHuffState) { \
        return decodeDcRefine(pSrc, srcLenBytes, pSrcCurrPos, pDst, pMarker, Al, pDecHuffState);                   \
    }                                                                                                              \
    VekStatus VEK_CALL vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1(                                                 \
        const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, int* pMarker, int Ss, int Se, int Al,  \
        const VekDecodeHuffmanSpec* pAcTable, VekDecodeHuffmanState* pDecHuffState) {                              \
        return decodeAcFirst<Policy>(pSrc, srcLenBytes, pSrcCurrPos, pDst, pMarker, Ss, Se, Al, pAcTable,          \
                                     pDecHuffState);                                                               \
    }                                                                                                              \
    VekStatus VEK_CALL vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1(                                                \
        const Vek8u* pSrc, int srcLenBytes, int* pSrcCurrPos, Vek16s* pDst, int* pMarker, int Ss, int Se, int Al,  \
        const VekDecodeHuffmanSpec* pAcTable, VekDecodeHuffmanState* pDecHuffState) {                              \
        return decodeAcRefine<Policy>(pSrc, srcLenBytes, pSrcCurrPos, pDst, pMarker, Ss, Se, Al, pAcTable,         \
                                      pDecHuffState);                                                              \
    }

#endif
