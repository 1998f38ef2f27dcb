// JPEG Huffman coding, plain level: the encoders and decoders of
// huffman_encode.h and huffman_decode.h over scalar block helpers.
#include <stdint.h>
#include <string.h>

#include "core/dispatch.h"
#include "jpeg/huffman_state.h"

namespace vek::plain {
#include "jpeg/huffman_bits.h"
#include "jpeg/huffman_checks.h"
#include "jpeg/huffman_decode.h"
#include "jpeg/huffman_encode.h"

namespace {
struct ScalarBlock {
    static constexpr bool kSizesByVector = false;
    static void sizesAndBits(const Vek16s*, Vek32s*, Vek16s*) {}
    static void toZigzag(const Vek16s* natural, Vek16s* zz) {
        for (int k = 0; k < 64; ++k) zz[k] = natural[jpeg::kZigzagToNatural[k]];
    }
    static Vek64u bandMask(const Vek16s* zz, int al) {
        Vek64u mask = 0;
        for (int k = 0; k < 64; ++k)
            if (magnitude(zz[k]) >> al) mask |= Vek64u(1) << k;
        return mask;
    }
    static void clear(Vek16s* block) { memset(block, 0, 64 * sizeof(Vek16s)); }
    static void copy(Vek16s* dst, const Vek16s* src) { memcpy(dst, src, 64 * sizeof(Vek16s)); }
};
}  // namespace

VEK_JPEG_HUFFMAN_ENCODE_EXPORTS(ScalarBlock)
VEK_JPEG_HUFFMAN_DECODE_EXPORTS(ScalarBlock)
}  // namespace vek::plain
