// The entry checks of the JPEG Huffman coders, one set for every level, in
// the order vek.h states: required pointers (StatusNullPointer), the
// buffer length (StatusSize), the position inside it (StatusOutOfBuffer),
// then the scan parameters (StatusBadArgument).
//
// Included inside a level's namespace; internal linkage.
#ifndef VEK_JPEG_HUFFMAN_CHECKS_H
#define VEK_JPEG_HUFFMAN_CHECKS_H

namespace {

constexpr int kMaxPointTransform = 13;

template <class... Pointers>
inline bool anyNull(const Pointers*... pointers) {
    return ((pointers == nullptr) || ...);
}

// A buffer of `length` bytes and the caller's position in it.
inline VekStatus checkBuffer(int length, const int* position) {
    if (length < 1) return StatusSize;
    if (*position < 0 || *position > length) return StatusOutOfBuffer;
    return StatusOk;
}

// The point transform of a DC scan.
inline VekStatus checkPoint(int al) { return al < 0 || al > kMaxPointTransform ? StatusBadArgument : StatusOk; }

// The spectral band and point transform of an AC scan.
inline VekStatus checkBand(int ss, int se, int al) {
    if (ss < 1 || se > 63 || ss > se) return StatusBadArgument;
    return checkPoint(al);
}

// An encoding call: the block and the DC predictor are not read on a flush
// call, so they may be null there.
template <class... Pointers>
inline VekStatus checkEncode(int flush, const void* src, const void* lastDc, Vek8u* dst, int dstLen, const int* pos,
                             const Pointers*... others) {
    if ((!flush && (!src || !lastDc)) || !dst || !pos || anyNull(others...)) return StatusNullPointer;
    return checkBuffer(dstLen, pos);
}

template <class... Pointers>
inline VekStatus checkDecode(const Vek8u* src, int srcLen, const int* pos, const Pointers*... others) {
    if (!src || !pos || anyNull(others...)) return StatusNullPointer;
    return checkBuffer(srcLen, pos);
}

}  // namespace

#endif
