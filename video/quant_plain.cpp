// MPEG-2 quantisation: the plain reference.
//
// The forward float path rounds every operation to single precision
// (core/plain_float.h), so the x87 unit of a 32-bit build gives the bits
// the SSE levels give.  Integer products wrap in 32 bits: they are worked
// on unsigned values.
#include <stddef.h>
#include <stdint.h>

#include <array>
#include <utility>

#include "core/dispatch.h"
#include "core/plain_float.h"

namespace vek::plain {
#include "video/quant_tables.h"
#include "video/video_checks.h"

namespace {

inline Vek16s clampTo(int32_t v, int32_t lo, int32_t hi) {
    return static_cast<Vek16s>(v < lo ? lo : (v > hi ? hi : v));
}

// x truncated toward zero and clamped to -2047..2047; NaN gives 0.
inline Vek16s truncateForward(float x) {
    if (!(x == x)) return 0;
    if (x >= 2047.0f) return 2047;
    if (x <= -2047.0f) return -2047;
    return static_cast<Vek16s>(static_cast<int32_t>(x));
}

int quantFloat(Vek16s* block, int first, float scale, const Vek32f* reciprocals) {
    int count = 0;
    for (int i = first; i < 64; ++i) {
        const Vek16s q = truncateForward(mulF(mulF(static_cast<float>(block[i]), scale), reciprocals[i]));
        block[i] = q;
        count += q != 0;
    }
    return count;
}

int quantFlat(Vek16s* block, int reciprocal) {
    int count = 0;
    for (int i = 0; i < 64; ++i) {
        const Vek16s q = clampTo(block[i] * reciprocal / 65536, -2047, 2047);
        block[i] = q;
        count += q != 0;
    }
    return count;
}

// a * b * c in 32-bit two's complement.
inline int32_t wrappedProduct(int32_t a, int32_t b, int32_t c) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b) * static_cast<uint32_t>(c));
}

int dequantNonIntra(Vek16s* block, int qp, const Vek16s* weights) {
    uint32_t sum = 0;
    for (int i = 0; i < 64; ++i) {
        const int32_t c = block[i];
        const int32_t twice = 2 * c + (c > 0) - (c < 0);  // 0 stays 0
        const int32_t v = weights ? wrappedProduct(twice, qp, weights[i]) / 32 : wrappedProduct(twice, qp, 1) / 2;
        block[i] = clampTo(v, -2048, 2047);
        sum += static_cast<uint32_t>(block[i]);
    }
    return static_cast<int>(sum & 1);
}

int dequantIntra(Vek16s* block, int qp, const Vek16s* weights) {
    uint32_t sum = static_cast<uint32_t>(block[0]);
    for (int i = 1; i < 64; ++i) {
        block[i] = clampTo(wrappedProduct(2 * block[i], qp, weights[i]) / 32, -2048, 2047);
        sum += static_cast<uint32_t>(block[i]);
    }
    return static_cast<int>(sum & 1);
}

}  // namespace

#include "video/quant_exports.h"

VEK_QUANT_FORWARD_MEMBERS
VEK_QUANT_INVERSE_MEMBERS

}  // namespace vek::plain
