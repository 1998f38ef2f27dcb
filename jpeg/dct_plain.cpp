// JPEG DCT, quantisation and level shift: the plain reference.
//
// The transforms run the data flow of dct_flow.h one lane at a time: an
// integer lane is a 32-bit unsigned value (sums wrap modulo 2^32 without
// undefined behaviour; shifts act on its signed reading), a float lane
// rounds every operation to single precision (core/plain_float.h), so the
// x87 unit of i686 gives the bits SSE gives.  Every other level must match
// these results bit for bit.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <initializer_list>
#include <type_traits>

#include "core/dispatch.h"
#include "core/round_float.h"
#include "core/plain_float.h"
#include "jpeg/dct_checks.h"
#include "jpeg/dct_exports.h"

namespace vek::plain {
namespace {

struct Lane {
    uint32_t bits;
    static Lane splat(int32_t k) { return {static_cast<uint32_t>(k)}; }
    int32_t value() const { return static_cast<int32_t>(bits); }
};
inline Lane operator+(Lane a, Lane b) { return {a.bits + b.bits}; }
inline Lane operator-(Lane a, Lane b) { return {a.bits - b.bits}; }
inline Lane operator*(Lane a, int32_t k) { return {a.bits * static_cast<uint32_t>(k)}; }
inline Lane mul16(Lane a, int32_t k) { return a * k; }
template <int N>
inline Lane sra(Lane a) {
    return {static_cast<uint32_t>(a.value() >> N)};
}
template <int N>
inline Lane shl(Lane a) {
    return {a.bits << N};
}

struct FloatLane {
    float f;
};
inline FloatLane operator+(FloatLane a, FloatLane b) { return {addF(a.f, b.f)}; }
inline FloatLane operator-(FloatLane a, FloatLane b) { return {subF(a.f, b.f)}; }
inline FloatLane operator*(FloatLane a, float k) { return {mulF(a.f, k)}; }

}  // namespace

#include "jpeg/dct_flow.h"

namespace {

inline Lane lane(int32_t x) { return Lane::splat(x); }
inline Vek16s stored16(Lane x) { return static_cast<Vek16s>(wrap16(x).value()); }

// Rows of samples (plus shift) to coefficients: pass 1 over the rows, pass
// 2 over the columns, then quantisation when a table is given.  dst may be
// the source block itself (every sample is read before dst is written).
template <class Sample>
void forwardBlock(const Sample* src, int srcStep, int32_t shift, Vek16s* dst, const Vek16u* table) {
    Lane rows[64];
    for (int r = 0; r < 8; ++r) {
        const Sample* row = jpeg::blockRow(src, srcStep, r);
        Lane x[8];
        for (int k = 0; k < 8; ++k) x[k] = lane(row[k] + shift);
        forward8<false>(x);
        for (int k = 0; k < 8; ++k) rows[8 * r + k] = lane(stored16(x[k]));
    }
    for (int c = 0; c < 8; ++c) {
        Lane x[8];
        for (int k = 0; k < 8; ++k) x[k] = rows[8 * k + c];
        forward8<true>(x);
        for (int k = 0; k < 8; ++k) {
            const Vek16s coef = stored16(x[k]);
            dst[8 * k + c] = table ? quantiseProduct(table[8 * k + c] * coef) : coef;
        }
    }
}

// 64 coefficients (dequantised first when a table is given) to 64 results:
// pass 1 over the columns, pass 2 over the rows.  out may be coef.
void inverseBlock(const Vek16s* coef, const Vek16u* table, Vek16s* out) {
    Lane columns[64];
    for (int c = 0; c < 8; ++c) {
        Lane x[8];
        for (int k = 0; k < 8; ++k) {
            const int i = 8 * k + c;
            x[k] = lane(table ? saturate16(coef[i] * static_cast<Vek16s>(table[i])) : coef[i]);
        }
        inverse8<false>(x);
        for (int k = 0; k < 8; ++k) columns[8 * k + c] = lane(stored16(x[k]));
    }
    for (int r = 0; r < 8; ++r) {
        Lane* x = columns + 8 * r;
        inverse8<true>(x);
        for (int k = 0; k < 8; ++k) out[8 * r + k] = stored16(x[k]);
    }
}

void storeBlock16s(const Vek16s* result, Vek16s* dst, int dstStep) {
    for (int r = 0; r < 8; ++r) memcpy(jpeg::blockRow(dst, dstStep, r), result + 8 * r, 8 * sizeof(Vek16s));
}

// v = result + add; below lo gives lo, else above hi gives hi.
void storeBlockClip(const Vek16s* result, Vek8u* dst, int dstStep, int add, int lo, int hi) {
    for (int r = 0; r < 8; ++r) {
        Vek8u* row = jpeg::blockRow(dst, dstStep, r);
        for (int k = 0; k < 8; ++k) {
            const int v = result[8 * r + k] + add;
            row[k] = static_cast<Vek8u>(v < lo ? lo : (v > hi ? hi : v));
        }
    }
}

void quantiseBlock(Vek16s* block, const Vek16u* table) {
    for (int i = 0; i < 64; ++i) block[i] = quantiseProduct(table[i] * block[i]);
}

void dequantiseBlock(const Vek16s* src, Vek16s* dst, const Vek16u* table) {
    for (int i = 0; i < 64; ++i) dst[i] = saturate16(src[i] * static_cast<Vek16s>(table[i]));
}

// 12-bit samples less 2048, scaled DCT over the rows then the columns,
// times the post-scale, times the table, rounded and saturated.
void forwardFloatBlock(const Vek16u* src, int srcStep, Vek16s* dst, const Vek32f* table) {
    FloatLane block[64];
    for (int r = 0; r < 8; ++r) {
        const Vek16u* row = jpeg::blockRow(src, srcStep, r);
        FloatLane* x = block + 8 * r;
        for (int k = 0; k < 8; ++k) x[k] = {subF(static_cast<float>(row[k]), 2048.0f)};
        forwardFloat8(x);
    }
    for (int c = 0; c < 8; ++c) {
        FloatLane x[8];
        for (int k = 0; k < 8; ++k) x[k] = block[8 * k + c];
        forwardFloat8(x);
        for (int k = 0; k < 8; ++k) {
            const int i = 8 * k + c;
            dst[i] = static_cast<Vek16s>(roundFloat(mulF(mulF(x[k].f, kForwardPostScale[i]), table[i]), -32768, 32767));
        }
    }
}

// Coefficients times the table times the pre-scale, scaled inverse DCT
// over the columns then the rows, plus 2048, rounded and clamped to 0..4095.
void inverseFloatBlock(const Vek16s* src, Vek16u* dst, int dstStep, const Vek32f* table) {
    FloatLane block[64];
    for (int c = 0; c < 8; ++c) {
        FloatLane x[8];
        for (int k = 0; k < 8; ++k) {
            const int i = 8 * k + c;
            x[k] = {mulF(mulF(static_cast<float>(src[i]), table[i]), kInversePreScale[i])};
        }
        inverseFloat8(x);
        for (int k = 0; k < 8; ++k) block[8 * k + c] = x[k];
    }
    for (int r = 0; r < 8; ++r) {
        FloatLane* x = block + 8 * r;
        inverseFloat8(x);
        Vek16u* row = jpeg::blockRow(dst, dstStep, r);
        for (int k = 0; k < 8; ++k) row[k] = static_cast<Vek16u>(roundFloat(addF(x[k].f, 2048.0f), 0, 4095));
    }
}

// 4 x 4 means of 2 x 2 groups: pass 1 over the 8 columns, pass 2 over the
// 4 intermediate rows; intermediates are 16-bit like the full inverse's.
void inverseTo4x4(const Vek16s* coef, Vek16s* out) {
    Lane rows[32];
    for (int c = 0; c < 8; ++c) {
        Lane x[8], y[4];
        for (int k = 0; k < 8; ++k) x[k] = lane(coef[8 * k + c]);
        inverseTo4<false>(x, y);
        for (int k = 0; k < 4; ++k) rows[8 * k + c] = lane(stored16(y[k]));
    }
    for (int r = 0; r < 4; ++r) {
        Lane y[4];
        inverseTo4<true>(rows + 8 * r, y);
        for (int k = 0; k < 4; ++k) out[4 * r + k] = stored16(y[k]);
    }
}

// 2 x 2 means of 4 x 4 groups: pass 1 over columns 0, 1, 3, 5 and 7 (the
// ones pass 2 reads), pass 2 over the 2 intermediate rows.
void inverseTo2x2(const Vek16s* coef, Vek16s* out) {
    Lane rows[16] = {};
    for (int c : {0, 1, 3, 5, 7}) {
        Lane x[8], y[2];
        for (int k = 0; k < 8; ++k) x[k] = lane(coef[8 * k + c]);
        inverseTo2<false>(x, y);
        for (int k = 0; k < 2; ++k) rows[8 * k + c] = lane(stored16(y[k]));
    }
    for (int r = 0; r < 2; ++r) {
        Lane y[2];
        inverseTo2<true>(rows + 8 * r, y);
        for (int k = 0; k < 2; ++k) out[2 * r + k] = stored16(y[k]);
    }
}

void add128Row(const Vek16s* src, Vek8u* dst, int n) {
    for (int i = 0; i < n; ++i) {
        const int v = src[i] + 128;
        dst[i] = static_cast<Vek8u>(v < 0 ? 0 : (v > 255 ? 255 : v));
    }
}

void sub128Row(const Vek8u* src, Vek16s* dst, int n) {
    for (int i = 0; i < n; ++i) dst[i] = static_cast<Vek16s>(src[i] - 128);
}

}  // namespace

VEK_JPEG_DCT_INTEGER_MEMBERS
VEK_JPEG_DCT_FLOAT_MEMBERS
VEK_JPEG_DCT_REDUCED_MEMBERS
VEK_JPEG_LEVEL_SHIFT_MEMBERS

// The DC-only inverse: one value for all 64 samples, the product shifted
// without a rounding term (it floors).
VekStatus VEK_CALL vekiDCTQuantInv8x8LS_1x1_JPEG_16s8u_C1R(const Vek16s* pSrc, Vek8u* pDst, int dstStep,
                                                           const Vek16u* pQuantInvTable) {
    if (const VekStatus status = jpeg::checkBlockStepTable(pSrc, pDst, dstStep, pQuantInvTable)) return status;
    const int32_t v = ((pSrc[0] * static_cast<Vek16s>(pQuantInvTable[0])) >> 3) + 128;
    const Vek8u sample = static_cast<Vek8u>(v < 0 ? 0 : (v > 255 ? 255 : v));
    for (int r = 0; r < 8; ++r) memset(jpeg::blockRow(pDst, dstStep, r), sample, 8);
    return StatusOk;
}

}  // namespace vek::plain
