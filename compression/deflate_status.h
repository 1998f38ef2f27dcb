// The deflate encoder's status words by name.
//
// The values a caller passes or reads -- compression classes, checksum
// kinds, flush values and the stream status -- are the public enumerators
// of vek.h (VekDeflateFast, VekDeflateCrc32, VekDeflateLastBlock,
// VekDeflateComplete, ...), and the library uses those names too.  This
// header names the values of the words the block coders keep to themselves
// in the state (BlockCoder in deflate_state.h): the block sub-status, how
// far an open block has got, and which kind of block it is.
#ifndef VEK_COMPRESSION_DEFLATE_STATUS_H
#define VEK_COMPRESSION_DEFLATE_STATUS_H

namespace vek::deflate {

// Block sub-status (BlockCoder::subStatus; 0 after initialisation).
constexpr int kNewBlock = 2;        // SetStatus(VekDeflateCoding) opened a block: SelectHuffMode decides afresh
constexpr int kStopped = 3;         // a coder or Flush stopped on a full output and resumes in the next call
constexpr int kNothingPending = 5;  // nothing to resume: the next Flush builds its trailer afresh

// The Huffman block being written (BlockCoder::blockType): its BTYPE.
constexpr int kFixedBlock = 1, kDynamicBlock = 2;

// How far the open Huffman block has got (BlockCoder::blockPhase).
enum BlockPhase : int {
    kNoBlock = 0,  // none open
    kHeader = 1,   // header items going out
    kPairs = 2,    // the pairs going out
    kEndCode = 3,  // the end-of-block code next
    kClosing = 4,  // the last bytes going out
};

// How far the open stored block has got (BlockCoder::storedState).
enum StoredPhase : int {
    kStoredHeader = 0,  // none open, or its 3 header bits not yet in
    kStoredAlign = 1,   // bits up to the byte boundary going out
    kStoredLength = 2,  // LEN and NLEN going out
    kStoredData = 3,    // the bytes going out
};

}  // namespace vek::deflate

#endif
