// The block loop that every element-wise SIMD kernel runs on.
//
// A kernel turns one block of N elements of each source into N elements of
// the destination; forEachBlock hands it the whole blocks straight from the
// caller's arrays and the last, partial block through zero-padded copies on
// the stack.  So no access passes the end of an array, and every element
// takes the same instructions (the same result) wherever it lies.  N is a
// parameter, so a wider level passes its own block.
//
// Included inside a level's namespace, after <stddef.h> and <string.h>;
// everything has internal linkage, so the kernels inlined into it stay in
// the level that built them.
#ifndef VEK_CORE_SIMD_BLOCKS_H
#define VEK_CORE_SIMD_BLOCKS_H

namespace {

// f(copies...): each source's first n elements (n < N) copied to a zeroed
// stack block of N elements, in the order of the sources.
template <size_t N, class F>
inline void withBlockCopies(size_t, F&& f) {
    f();
}
template <size_t N, class F, class S, class... Rest>
inline void withBlockCopies(size_t n, F&& f, const S* src, const Rest*... rest) {
    S block[N] = {};
    memcpy(block, src, n * sizeof(S));
    withBlockCopies<N>(
        n, [&](const auto*... more) { f(static_cast<const S*>(block), more...); }, rest...);
}

// kernel(out, in...) over len elements: out addresses N elements of D, each
// in N elements of its source.  The destination may be the very array of a
// source when the kernel reads its block before writing it.  The main loop
// runs Unroll blocks a turn (fewer loop branches), then single blocks.
template <size_t N, size_t Unroll = 1, class D, class Kernel, class... S>
inline void forEachBlock(size_t len, Kernel kernel, D* dst, const S*... src) {
    size_t i = 0;
    if constexpr (Unroll > 1)
        for (; i + Unroll * N <= len; i += Unroll * N)
            for (size_t u = 0; u < Unroll; ++u) kernel(dst + i + u * N, (src + i + u * N)...);
    for (; i + N <= len; i += N) kernel(dst + i, (src + i)...);
    if (i < len) {
        const size_t rest = len - i;
        D out[N];
        withBlockCopies<N>(
            rest, [&](const S*... in) { kernel(static_cast<D*>(out), in...); }, (src + i)...);
        memcpy(dst + i, out, rest * sizeof(D));
    }
}

}  // namespace

#endif
