// What every level of the wavelet family shares: the kinds of lifting step
// the kernels implement, the filter constants, the exact scalar arithmetic
// of one coefficient, and the direct filters of a band one coefficient wide.
//
// A lifting step updates one sequence (low or high) at index i from itself
// (a) and two neighbours of the other sequence (b, c):
//   5/3:         a - floor((b + c) / 2), a + floor((b + c + 2) / 4), and the
//                inverse's a - floor((b + c + 2) / 4), a + floor((b + c) / 2);
//   9/7 float:   a + k2 (b + c), k1 a + k2 (b + c), (a + k2 (b + c)) k1, k1 a;
//   9/7 Q16:     (CA a + CB (b + c) + 32768) >> 16 with 64-bit products.
// Sums and products are exact; each result is reduced to the sample type:
// 16-bit 9/7 results saturate, everything else wraps around.
#ifndef VEK_JPEG2000_WT_STEPS_H
#define VEK_JPEG2000_WT_STEPS_H

#include <stddef.h>
#include <stdint.h>

#include <type_traits>

#include "core/plain_float.h"
#include "vek.h"

namespace vek::jpeg2000 {

// The 5/3 steps.
enum Step53 { kSubHalf, kAddQuarter, kSubQuarter, kAddHalf };
// The float 9/7 steps.
enum StepF { kAdd, kScaled, kAddThenScale, kScale };

// The float lifting constants.
constexpr float kAlpha = -1.5861343f, kBeta = -0.052980117f, kGamma = 0.8829111f, kDelta = 0.44350687f;
constexpr float kK = 1.2301741f, kInvK = 0.8128931f, kDeltaOverK = 0.36052364f;

// The Q16 constants, rounded as the fixed-point transform defines them.
constexpr int32_t kAlphaQ = -103949, kBetaQ = -3472, kGammaQ = 57862, kDeltaQ = 29066;
constexpr int32_t kKQ = 80621, kInvKQ = 53274, kDeltaOverKQ = 23627, kOneQ = 65536;

// A symmetric filter: tap[0] on the centre, tap[d] on the two samples d
// away (count taps).
template <class Tap>
struct Taps {
    int count;
    Tap tap[5];
};
// Analysis (forward) for a low and a high output, and synthesis (inverse,
// from the interleaved coefficients) for an output at a low position and
// at a high position.
constexpr Taps<float> kForwardLowF = {5, {0.602949f, 0.26686412f, -0.078223266f, -0.01686412f, 0.026748758f}};
constexpr Taps<float> kForwardHighF = {4, {1.115087f, -0.59127176f, -0.057543527f, 0.091271766f, 0}};
constexpr Taps<float> kInverseLowF = {4, {1.115087f, -0.26686412f, -0.057543527f, 0.01686412f, 0}};
constexpr Taps<float> kInverseHighF = {5, {0.602949f, 0.59127176f, -0.078223266f, -0.091271766f, 0.026748758f}};
constexpr Taps<int32_t> kForwardLowQ = {5, {39515, 17489, -5126, -1105, 1753}};
constexpr Taps<int32_t> kForwardHighQ = {4, {73078, -38749, -3771, 5982, 0}};
constexpr Taps<int32_t> kInverseLowQ = {4, {73078, -17489, -3771, 1105, 0}};
constexpr Taps<int32_t> kInverseHighQ = {5, {39515, 38749, -5126, -5981, 1753}};

namespace {  // internal linkage: every level's file compiles its own copy

// The low bits of v as T (two's complement wrap-around).
template <class T>
inline T wrapTo(int64_t v) {
    return static_cast<T>(static_cast<std::make_unsigned_t<T>>(static_cast<uint64_t>(v)));
}
inline Vek16s saturate16(int64_t v) { return static_cast<Vek16s>(v < -32768 ? -32768 : (v > 32767 ? 32767 : v)); }
// A Q16 result as the type keeps it: 16 bits saturate, 32 bits wrap.
template <class T>
inline T fixedResult(int64_t v) {
    if constexpr (sizeof(T) == 2)
        return saturate16(v);
    else
        return wrapTo<T>(v);
}
inline int64_t roundQ16(int64_t sum) { return (sum + 32768) >> 16; }

// One coefficient of each step kind.
template <class T, int Op>
inline T step53(T a, T b, T c) {
    const int64_t sum = int64_t(b) + c;
    switch (Op) {
    case kSubHalf: return wrapTo<T>(a - (sum >> 1));
    case kAddQuarter: return wrapTo<T>(a + ((sum + 2) >> 2));
    case kSubQuarter: return wrapTo<T>(a - ((sum + 2) >> 2));
    default: return wrapTo<T>(a + (sum >> 1));
    }
}
template <class T, int32_t CA, int32_t CB>
inline T stepQ(T a, T b, T c) {
    const int64_t cb = CB == 0 ? 0 : int64_t(CB) * (int64_t(b) + c);
    return fixedResult<T>(roundQ16(int64_t(CA) * a + cb));
}
template <int Kind>
inline float stepF(float a, float b, float c, float k1, float k2) {
    switch (Kind) {
    case kAdd: return addF(a, mulF(k2, addF(b, c)));
    case kScaled: return addF(mulF(k1, a), mulF(k2, addF(b, c)));
    case kAddThenScale: return mulF(addF(a, mulF(k2, addF(b, c))), k1);
    default: return mulF(k1, a);
    }
}

// A symmetric filter at one position; x(d) is the sample d away.  Float:
// the centre product, then each pair's sum times its tap added in turn.
// 16-bit: the products summed exactly, rounded once, saturated.  32-bit:
// each tap's product rounded on its own, the rounded terms summed, wrapped.
template <class Fetch>
inline float symmetricFilter(const Taps<float>& t, Fetch x) {
    float acc = mulF(t.tap[0], x(0));
    for (int d = 1; d < t.count; ++d) acc = addF(acc, mulF(t.tap[d], addF(x(-d), x(d))));
    return acc;
}
template <class T, class Fetch>
inline T symmetricFilter(const Taps<int32_t>& t, Fetch x) {
    if constexpr (sizeof(T) == 2) {
        int64_t sum = int64_t(t.tap[0]) * x(0);
        for (int d = 1; d < t.count; ++d) sum += int64_t(t.tap[d]) * (int64_t(x(-d)) + x(d));
        return saturate16(roundQ16(sum));
    } else {
        int64_t sum = roundQ16(int64_t(t.tap[0]) * x(0));
        for (int d = 1; d < t.count; ++d) sum += roundQ16(int64_t(t.tap[d]) * (int64_t(x(-d)) + x(d)));
        return wrapTo<T>(sum);
    }
}
template <class T, class Fetch>
inline T symmetricFilterOf(bool inverse, bool lowOutput, Fetch x) {
    if constexpr (std::is_floating_point_v<T>)
        return symmetricFilter(
            inverse ? (lowOutput ? kInverseLowF : kInverseHighF) : (lowOutput ? kForwardLowF : kForwardHighF), x);
    else
        return symmetricFilter<T>(
            inverse ? (lowOutput ? kInverseLowQ : kInverseHighQ) : (lowOutput ? kForwardLowQ : kForwardHighQ), x);
}

}  // namespace
}  // namespace vek::jpeg2000

#endif
