// The vector kernels of chroma sampling (sample_rows.h has the rules and
// the scalar outputs), written once over the lane words of colour_lanes.h.
// A block is kLanes16<V> outputs (downsampling) or input samples
// (upsampling), worked in 16-bit lanes: the sums of the smooth filter reach
// 4088 and the 2x2 sums 1022, so nothing overflows.  Each function does the
// blocks that lie wholly inside the row, neighbours included, and returns
// the first output it left to the scalar code.
//
// Included inside a level's namespace after colour_lanes.h; internal
// linkage.
#ifndef VEK_JPEG_SAMPLE_SIMD_H
#define VEK_JPEG_SAMPLE_SIMD_H

namespace {

// Pairs of bytes as 16-bit lanes: the even byte plus the odd one.
template <class V>
inline V pairSums(const Vek8u* p) {
    const V w = loadV<V>(p);
    return add16(andV(w, set16<V>(0xFF)), srli16<8>(w));
}

template <class V>
inline int downH2V1Blocks(V, const Vek8u* in, int inWidth, Vek8u* out, int outWidth) {
    constexpr int P = kLanes16<V>;
    const V bias = pair16<V>(0, 1);
    int i = 0;
    for (; i + P <= outWidth && 2 * (i + P) <= inWidth; i += P)
        narrowStore(out + i, srli16<1>(add16(pairSums<V>(in + 2 * i), bias)));
    return i;
}

template <class V>
inline int downH2V2Blocks(V, const Vek8u* in0, const Vek8u* in1, int inWidth, Vek8u* out, int outWidth) {
    constexpr int P = kLanes16<V>;
    const V bias = pair16<V>(1, 2);
    int i = 0;
    for (; i + P <= outWidth && 2 * (i + P) <= inWidth; i += P)
        narrowStore(out + i, srli16<2>(add16(add16(pairSums<V>(in0 + 2 * i), pairSums<V>(in1 + 2 * i)), bias)));
    return i;
}

// Each input sample twice.
template <class V>
inline int upBlocks(V, const Vek8u* in, int inWidth, Vek8u* out, int outWidth) {
    constexpr int P = kLanes16<V>;
    int i = 0;
    for (; i + P <= inWidth && 2 * (i + P) <= outWidth; i += P) {
        const V v = widenLoad<V>(in + i);
        store(out + 2 * i, orV(v, slli16<8>(v)));
    }
    return 2 * i;
}

// Blocks of inputs i .. i + P - 1 with i >= 1 and i + P < inWidth, so both
// neighbours are inside the row; their outputs 2i .. 2i + 2P - 1 lie before
// the last output of an odd width too.
template <class V>
inline int smoothH2V1Blocks(V, const Vek8u* in, int inWidth, Vek8u* out, int outWidth) {
    constexpr int P = kLanes16<V>;
    const V one = set16<V>(1), two = set16<V>(2);
    int i = 1;
    for (; i + P < inWidth && 2 * (i + P) <= outWidth; i += P) {
        const V v = widenLoad<V>(in + i), three = add16(add16(v, v), v);
        const V even = srli16<2>(add16(add16(three, widenLoad<V>(in + i - 1)), one));
        const V odd = srli16<2>(add16(add16(three, widenLoad<V>(in + i + 1)), two));
        store(out + 2 * i, orV(even, slli16<8>(odd)));
    }
    return 2 * i;
}

template <class V>
inline V columnSums(const Vek8u* near, const Vek8u* far) {
    const V v = widenLoad<V>(near);
    return add16(add16(add16(v, v), v), widenLoad<V>(far));
}

template <class V>
inline int smoothH2V2Blocks(V, const Vek8u* near, const Vek8u* far, int inWidth, Vek8u* out, int outWidth) {
    constexpr int P = kLanes16<V>;
    const V eight = set16<V>(8), seven = set16<V>(7);
    int i = 1;
    for (; i + P < inWidth && 2 * (i + P) <= outWidth; i += P) {
        const V sum = columnSums<V>(near + i, far + i), three = add16(add16(sum, sum), sum);
        const V even = srli16<4>(add16(add16(three, columnSums<V>(near + i - 1, far + i - 1)), eight));
        const V odd = srli16<4>(add16(add16(three, columnSums<V>(near + i + 1, far + i + 1)), seven));
        store(out + 2 * i, orV(even, slli16<8>(odd)));
    }
    return 2 * i;
}

}  // namespace

#endif
