// The JPEG Huffman coder's caller-owned blocks: the encoder and decoder
// tables built from a DHT segment's BITS/HUFFVAL, and the bit-writer and
// bit-reader states (the public header's opaque Vek...Huffman... types
// point at these structs).  Shared by the table builders
// (huffman_tables_plain.cpp) and the block coders of every level.
#ifndef VEK_JPEG_HUFFMAN_STATE_H
#define VEK_JPEG_HUFFMAN_STATE_H

#include <stdint.h>

#include "vek.h"

namespace vek::jpeg {

// Longest code, and the bits the decoder resolves with one table look-up.
constexpr int kMaxCodeLength = 16;
constexpr int kLookaheadBits = 11;

// Largest size categories an 8-bit coder writes: 11 bits of DC difference,
// 10 bits of AC value (after the point transform).
constexpr int kMaxDcSize = 11, kMaxAcSize = 10;
// Sizes the decoder accepts: every category a 16-bit coefficient can take.
constexpr int kMaxDecodedSize = 15;

// Longest end-of-band run, and how many correction bits a successive
// approximation encoder holds back for a pending run before it sends it.
constexpr int kMaxEobRun = 0x7FFF;
constexpr int kMaxCorrectionBits = 1000;

// Natural (row-major) index of each zig-zag position.
// clang-format off
constexpr Vek8u kZigzagToNatural[64] = {
     0,  1,  8, 16,  9,  2,  3, 10, 17, 24, 32, 25, 18, 11,  4,  5,
    12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13,  6,  7, 14, 21, 28,
    35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
    58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};
// clang-format on

// Encoder table: the code of each symbol, right-aligned, shifted left by 5
// and or-ed with its length (0: the table has no code for the symbol).
struct EncodeSpec {
    Vek32u codeLength[256];
};

// Flags the end-of-block entries of DecodeSpec::fastValue.
constexpr int32_t kFastEndOfBlock = 0x20;

// Decoder table.  `fast` resolves every code of up to kLookaheadBits bits
// from the next kLookaheadBits bits of the stream: length << 8 | symbol,
// or 0 for a longer (or absent) code.  Longer codes go through the
// canonical bounds of T.81 F.16: a 16-bit window w holds a code of length
// l when w < limit[l], and its symbol is values[(w >> (16 - l)) + offset[l]].
//
// `fastValue` serves AC tables: where a run/size code and its value bits
// together take at most kLookaheadBits bits, the entry holds the value
// (bits 16..31, signed), the run (bits 8..11) and the bits to consume
// (bits 0..4); the code of symbol 0 (end of block) holds
// kFastEndOfBlock and its length; 0 elsewhere.  Read for a DC table, the
// same entries give the difference of every size category up to 15 (the
// run 0, symbol 0 a difference of 0).
struct DecodeSpec {
    Vek16u fast[1 << kLookaheadBits];
    int32_t fastValue[1 << kLookaheadBits];
    Vek32u limit[kMaxCodeLength + 2];  // left-aligned first code of the next length; limit[17] ends the search
    int32_t offset[kMaxCodeLength + 1];
    Vek8u values[256];
};

// Bit writer: `bits` holds `count` pending bits (count < 32 between calls),
// right-aligned, not yet written as bytes.  The progressive AC encoders
// keep the end-of-band run here, and the successive approximation encoder
// the correction bits that belong to it (one bit per byte).
struct EncodeState {
    Vek64u bits;
    int count;
    int eobRun;
    int correctionCount;
    Vek8u correction[kMaxCorrectionBits];
};

// Bit reader: `bits` holds `count` bits of the stream, left-aligned (the
// next bit is bit 63), the rest zero.  The progressive AC decoders keep the
// end-of-band run still to apply here.
struct DecodeState {
    Vek64u bits;
    int count;
    int eobRun;
};

inline EncodeSpec* specOf(VekEncodeHuffmanSpec* p) { return reinterpret_cast<EncodeSpec*>(p); }
inline const EncodeSpec* specOf(const VekEncodeHuffmanSpec* p) { return reinterpret_cast<const EncodeSpec*>(p); }
inline DecodeSpec* specOf(VekDecodeHuffmanSpec* p) { return reinterpret_cast<DecodeSpec*>(p); }
inline const DecodeSpec* specOf(const VekDecodeHuffmanSpec* p) { return reinterpret_cast<const DecodeSpec*>(p); }
inline EncodeState* stateOf(VekEncodeHuffmanState* p) { return reinterpret_cast<EncodeState*>(p); }
inline DecodeState* stateOf(VekDecodeHuffmanState* p) { return reinterpret_cast<DecodeState*>(p); }

}  // namespace vek::jpeg

#endif
