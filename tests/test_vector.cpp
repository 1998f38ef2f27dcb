// Vector shifts, conversions, copy and thresholds: every level against
// level 0 on random data, level 0 against references written from the
// definitions (integer arithmetic only, so they share nothing with the
// library's floating-point steps), and the rules at each entry on every
// level: check order, nothing written on failure, overlapping moves.
#include <algorithm>
#include <climits>
#include <cmath>

#include "harness.h"

namespace vektest {
namespace {

const int kShifts[] = {INT_MIN, -100, -1, 0, 1, 2, 7, 8, 14, 15, 16, 17, 30, 31, 32, 33, 100, INT_MAX};
const int kScales[] = {INT_MIN, -1000, -201, -200, -181, -180, -150, -128, -127, -126,   -100,
                       -31,     -24,   -1,   0,    1,    2,    23,   31,   100,  126,    127,
                       128,     129,   149,  150,  172,  180,  200,  201,  1000, INT_MAX};

template <class T, size_t N>
T pick(const T (&options)[N]) {
    return options[rng()() % N];
}

std::string describe(int len, int parameter, int offset) {
    return "len " + std::to_string(len) + " parameter " + std::to_string(parameter) + " offset " +
           std::to_string(offset);
}

// Floats for the float-to-integer conversion: the harness's mix (NaNs,
// infinities, subnormals, wide range) plus exact halves, where rounding ties.
Vek32f randomFloat() {
    switch (rng()() % 4) {
    case 0: return static_cast<Vek32f>(std::ldexp(2.0 * static_cast<int>(rng()() % 2001 - 1000) + 1, -1));
    case 1: return static_cast<Vek32f>(std::ldexp(static_cast<double>(rng()() % (1 << 24)), int(rng()() % 80) - 40));
    default: return randomValue<Vek32f>();
    }
}

// Every length, a misaligned source and destination, a parameter (shift,
// scale factor or threshold level) drawn by the case: compares every level
// with level 0.  call(level, src, dst, len, parameter) makes one call.
template <class S, class D, class Param, class Call>
void diffUnary(Param param, Call call, Vek32f (*randomSource)() = nullptr) {
    for (int round = 0; round < rounds(3); ++round)
        for (int len : testLengths()) {
            const int offset = rng()() % 8, parameter = param();
            InputArray<S> src(len, offset);
            for (int i = 0; i < len; ++i) {
                if constexpr (std::is_floating_point_v<S>)
                    src[i] = randomSource ? randomSource() : randomValue<S>();
                else
                    src[i] = randomValue<S>();
            }
            GuardedArray<D> dst(len, (offset + 3) % 8);
            compareLevels(
                dst, randomVector<D>(len),
                [&](int level) { return int(call(level, src.data(), dst.data(), len, parameter)); },
                describe(len, parameter, offset));
        }
}

// In-place members: the guarded array is both source and destination.
template <class T, class Param, class Call>
void diffInPlace(Param param, Call call) {
    for (int round = 0; round < rounds(3); ++round)
        for (int len : testLengths()) {
            const int offset = rng()() % 8, parameter = param();
            GuardedArray<T> data(len, offset);
            compareLevels(
                data, randomVector<T>(len), [&](int level) { return int(call(level, data.data(), len, parameter)); },
                describe(len, parameter, offset));
        }
}

auto anyShift = [] { return pick(kShifts); };
auto anyScale = [] { return pick(kScales); };

#define VEK_SHIFT_DIFF(name, T)                                                         \
    VEK_DIFF_CASE(name, [] {                                                            \
        diffUnary<T, T>(anyShift, [](int level, const T* s, T* d, int len, int shift) { \
            return vek::vekTable_##name[level](s, shift, d, len);                       \
        });                                                                             \
    })
#define VEK_SHIFT_I_DIFF(name, T)                                                                                      \
    VEK_DIFF_CASE(name, [] {                                                                                           \
        diffInPlace<T>(                                                                                                \
            anyShift, [](int level, T* d, int len, int shift) { return vek::vekTable_##name[level](shift, d, len); }); \
    })
VEK_SHIFT_DIFF(veksLShiftC_16s, Vek16s);
VEK_SHIFT_I_DIFF(veksLShiftC_16s_I, Vek16s);
VEK_SHIFT_DIFF(veksLShiftC_32s, Vek32s);
VEK_SHIFT_DIFF(veksRShiftC_16s, Vek16s);
VEK_SHIFT_I_DIFF(veksRShiftC_16s_I, Vek16s);
VEK_SHIFT_DIFF(veksRShiftC_32s, Vek32s);
VEK_SHIFT_I_DIFF(veksRShiftC_32s_I, Vek32s);

auto noParameter = [] { return 0; };
#define VEK_CONVERT_DIFF(name, S, D, param, ...)                               \
    VEK_DIFF_CASE(name, [] {                                                   \
        diffUnary<S, D>(                                                       \
            param,                                                             \
            [](int level, const S* s, D* d, int len, [[maybe_unused]] int p) { \
                return vek::vekTable_##name[level](s, d, len __VA_ARGS__);     \
            },                                                                 \
            randomFloat);                                                      \
    })
VEK_CONVERT_DIFF(veksConvert_16s32s, Vek16s, Vek32s, noParameter);
VEK_CONVERT_DIFF(veksConvert_32s16s, Vek32s, Vek16s, noParameter);
VEK_CONVERT_DIFF(veksConvert_32s32f_Sfs, Vek32s, Vek32f, anyScale, , p);
VEK_CONVERT_DIFF(veksConvert_32f32s_Sfs, Vek32f, Vek32s, anyScale, , p);
VEK_CONVERT_DIFF(veksCopy_8u, Vek8u, Vek8u, noParameter);

VEK_DIFF_CASE(veksThreshold_GT_32s_I, [] {
    diffInPlace<Vek32s>([] { return randomValue<Vek32s>(); },
                        [](int level, Vek32s* d, int len, int limit) {
                            return vek::vekTable_veksThreshold_GT_32s_I[level](d, len, limit);
                        });
});
VEK_DIFF_CASE(veksThreshold_LT_32s_I, [] {
    diffInPlace<Vek32s>([] { return randomValue<Vek32s>(); },
                        [](int level, Vek32s* d, int len, int limit) {
                            return vek::vekTable_veksThreshold_LT_32s_I[level](d, len, limit);
                        });
});

// Moves within one array: the source starts `distance` bytes after the
// destination (negative: before), so every overlap in both directions.
VEK_DIFF_CASE(veksMove_8u, [] {
    for (int round = 0; round < rounds(3); ++round)
        for (int len : testLengths()) {
            const int distance = static_cast<int>(rng()() % 81) - 40;
            const int lead = distance < 0 ? -distance : 0;
            GuardedArray<Vek8u> area(len + (distance < 0 ? -distance : distance), rng()() % 8);
            compareLevels(
                area, randomVector<Vek8u>(area.size()),
                [&](int level) {
                    Vek8u* dst = area.data() + lead;
                    return int(vek::vekTable_veksMove_8u[level](dst + distance, dst, len));
                },
                describe(len, distance, 0));
        }
});

// ---- level 0 against references from the definitions --------------------------

// Left shift: the product by 2^shift modulo 2^bits.  Right shift: floor
// division by 2^shift (the sign for shifts beyond the width).
template <class T>
T referenceShift(T v, int shift, bool left) {
    constexpr int bits = 8 * sizeof(T);
    if (left) {
        if (shift >= bits) return 0;
        const uint64_t modulus = uint64_t(1) << bits;
        const uint64_t r = (static_cast<uint64_t>(static_cast<int64_t>(v)) * (uint64_t(1) << shift)) % modulus;
        return static_cast<T>(static_cast<int64_t>(r >= modulus / 2 ? r - modulus : r));
    }
    const int64_t d = int64_t(1) << (shift >= bits ? bits : shift);
    int64_t q = v / d;
    if (v % d != 0 && v < 0) q -= 1;
    return static_cast<T>(q);
}

TEST(VectorReference, ShiftsAreProductsAndFloorQuotients) {
    for (int shift = 1; shift <= 40; ++shift)
        for (int round = 0; round < rounds(20); ++round) {
            std::vector<Vek16s> a = randomVector<Vek16s>(50), l(50), r(50);
            std::vector<Vek32s> b = randomVector<Vek32s>(50), l32(50), r32(50);
            ASSERT_EQ(vek::vekTable_veksLShiftC_16s[0](a.data(), shift, l.data(), 50), StatusOk);
            ASSERT_EQ(vek::vekTable_veksRShiftC_16s[0](a.data(), shift, r.data(), 50), StatusOk);
            ASSERT_EQ(vek::vekTable_veksLShiftC_32s[0](b.data(), shift, l32.data(), 50), StatusOk);
            ASSERT_EQ(vek::vekTable_veksRShiftC_32s[0](b.data(), shift, r32.data(), 50), StatusOk);
            for (int i = 0; i < 50; ++i) {
                ASSERT_EQ(l[i], referenceShift(a[i], shift, true)) << a[i] << " << " << shift;
                ASSERT_EQ(r[i], referenceShift(a[i], shift, false)) << a[i] << " >> " << shift;
                ASSERT_EQ(l32[i], referenceShift(b[i], shift, true)) << b[i] << " << " << shift;
                ASSERT_EQ(r32[i], referenceShift(b[i], shift, false)) << b[i] << " >> " << shift;
            }
        }
}

// m 2^e rounded to nearest even at bit `drop` of m (m >= 0): integers only.
uint64_t roundAway(uint64_t m, int drop) {
    if (drop <= 0) return m;
    if (drop >= 64) return 0;
    const uint64_t kept = m >> drop, rest = m & ((uint64_t(1) << drop) - 1), half = uint64_t(1) << (drop - 1);
    return kept + ((rest > half || (rest == half && (kept & 1))) ? 1 : 0);
}

// x 2^-sf rounded once to float, found with integers: the significand keeps
// 24 bits, or fewer where the result is subnormal (quantum 2^-149).
Vek32f referenceToFloat(Vek32s x, int sf) {
    if (x == 0) return 0.0f;
    const bool negative = x < 0;
    const uint64_t m = negative ? uint64_t(0) - uint64_t(int64_t(x)) : uint64_t(x);
    int top = 63;
    while (!(m >> top)) --top;
    const int64_t e = -static_cast<int64_t>(sf);  // value = m 2^e, top bit at 2^(top + e)
    if (top + e >= 128) return negative ? -INFINITY : INFINITY;
    if (top + e < -151) return negative ? -0.0f : 0.0f;
    const int64_t quantumExponent = std::max<int64_t>(top + e - 23, -149);
    const int drop = static_cast<int>(quantumExponent - e);  // bits of m below the quantum
    const uint64_t q = drop < 0 ? m << -drop : roundAway(m, drop);
    const double magnitude = std::ldexp(static_cast<double>(q), static_cast<int>(quantumExponent));
    if (magnitude >= 0x1p128) return negative ? -INFINITY : INFINITY;
    return static_cast<Vek32f>(negative ? -magnitude : magnitude);
}

// v 2^-sf rounded to the nearest integer (ties to even), saturated, NaN 0,
// from v's integer significand and exponent.
Vek32s referenceToInt(Vek32f v, int sf) {
    if (v != v) return 0;
    if (std::isinf(v)) return v > 0 ? INT32_MAX : INT32_MIN;
    if (v == 0) return 0;
    int exponent;
    const double fraction = std::frexp(static_cast<double>(v), &exponent);  // |fraction| in [0.5, 1)
    const bool negative = fraction < 0;
    const uint64_t m = static_cast<uint64_t>(std::ldexp(std::fabs(fraction), 24));  // exact: 24 bits
    const int64_t e = static_cast<int64_t>(exponent) - 24 - sf;                     // value = m 2^e
    uint64_t magnitude;
    if (e >= 0)
        magnitude = e > 40 ? UINT64_MAX : m << e;
    else
        magnitude = -e >= 64 ? 0 : roundAway(m, static_cast<int>(-e));
    if (negative) return magnitude >= uint64_t(1) << 31 ? INT32_MIN : -static_cast<Vek32s>(magnitude);
    return magnitude > uint64_t(INT32_MAX) ? INT32_MAX : static_cast<Vek32s>(magnitude);
}

TEST(VectorReference, ScaledConversionsRoundOnceToNearestEven) {
    std::vector<int> scales(std::begin(kScales), std::end(kScales));
    for (int sf = -40; sf <= 40; ++sf) scales.push_back(sf);
    for (int sf : scales)
        for (int round = 0; round < rounds(20); ++round) {
            std::vector<Vek32s> ints = randomVector<Vek32s>(64), back(64);
            std::vector<Vek32f> floats(64), made(64);
            for (auto& f : floats) f = randomFloat();
            ASSERT_EQ(vek::vekTable_veksConvert_32s32f_Sfs[0](ints.data(), made.data(), 64, sf), StatusOk);
            ASSERT_EQ(vek::vekTable_veksConvert_32f32s_Sfs[0](floats.data(), back.data(), 64, sf), StatusOk);
            for (int i = 0; i < 64; ++i) {
                ASSERT_TRUE(sameBits(made[i], referenceToFloat(ints[i], sf)))
                    << ints[i] << " sf " << sf << ": " << made[i];
                ASSERT_EQ(back[i], referenceToInt(floats[i], sf)) << floats[i] << " sf " << sf;
            }
        }
}

TEST(VectorReference, NarrowingSaturatesAndThresholdsClamp) {
    for (int round = 0; round < rounds(50); ++round) {
        std::vector<Vek32s> a = randomVector<Vek32s>(40), gt = a, lt = a;
        std::vector<Vek16s> narrow(40);
        const Vek32s limit = randomValue<Vek32s>();
        ASSERT_EQ(vek::vekTable_veksConvert_32s16s[0](a.data(), narrow.data(), 40), StatusOk);
        ASSERT_EQ(vek::vekTable_veksThreshold_GT_32s_I[0](gt.data(), 40, limit), StatusOk);
        ASSERT_EQ(vek::vekTable_veksThreshold_LT_32s_I[0](lt.data(), 40, limit), StatusOk);
        for (int i = 0; i < 40; ++i) {
            ASSERT_EQ(narrow[i], std::clamp<Vek32s>(a[i], -32768, 32767));
            ASSERT_EQ(gt[i], std::min(a[i], limit));
            ASSERT_EQ(lt[i], std::max(a[i], limit));
        }
    }
}

// ---- the rules at the entry, on every level ----------------------------------------

TEST(VectorEntry, KnownResults) {
    onEveryLevel([](int level) {
        Vek16s s16[3] = {-1, 5, 0x4001}, d16[3] = {};
        ASSERT_EQ(vek::vekTable_veksRShiftC_16s[level](s16, 20, d16, 2), StatusOk);
        EXPECT_EQ(d16[0], -1);
        EXPECT_EQ(d16[1], 0);
        ASSERT_EQ(vek::vekTable_veksLShiftC_16s[level](s16 + 2, 2, d16, 1), StatusOk);
        EXPECT_EQ(d16[0], 0x0004);  // the high bits are lost

        Vek32s s32[6] = {-32768, 40000, -40000, 32767, -32769, 7};
        ASSERT_EQ(vek::vekTable_veksConvert_32s16s[level](s32, d16, 3), StatusOk);
        EXPECT_EQ(d16[0], -32768);
        EXPECT_EQ(d16[1], 32767);
        EXPECT_EQ(d16[2], -32768);

        Vek32s io[3] = {-7, 7, INT32_MIN};
        ASSERT_EQ(vek::vekTable_veksRShiftC_32s_I[level](1000, io, 3), StatusOk);
        EXPECT_EQ(io[0], -1);
        EXPECT_EQ(io[1], 0);
        EXPECT_EQ(io[2], -1);
        Vek16s io16[2] = {-3, 3};
        ASSERT_EQ(vek::vekTable_veksLShiftC_16s_I[level](16, io16, 2), StatusOk);
        EXPECT_EQ(io16[0], 0);
        EXPECT_EQ(io16[1], 0);

        // Float to integer: ties to even, saturation, NaN 0.
        const Vek32f f[] = {2.5f,     3.5f,      -2.5f,         -0.5f,          0.5000001f,    NAN,
                            INFINITY, -INFINITY, 2147483648.0f, -2147483648.0f, 2147483520.0f, 1e-45f};
        const Vek32s want0[] = {2, 4, -2, 0, 1, 0, INT32_MAX, INT32_MIN, INT32_MAX, INT32_MIN, 2147483520, 0};
        Vek32s got[12];
        ASSERT_EQ(vek::vekTable_veksConvert_32f32s_Sfs[level](f, got, 12, 0), StatusOk);
        for (int i = 0; i < 12; ++i) EXPECT_EQ(got[i], want0[i]) << f[i];
        ASSERT_EQ(vek::vekTable_veksConvert_32f32s_Sfs[level](f, got, 12, -200), StatusOk);
        EXPECT_EQ(got[11], INT32_MAX);  // the smallest subnormal times 2^200
        const Vek32f five = 5.0f;
        ASSERT_EQ(vek::vekTable_veksConvert_32f32s_Sfs[level](&five, got, 1, 1), StatusOk);
        EXPECT_EQ(got[0], 2);  // 2.5 to even

        // Integer to float: one rounding, even where the result is subnormal
        // (20971521 2^-172 is 2.5 2^-149 and a little: rounded to float first, then
        // scaled, it would tie and give 2 2^-149).
        const Vek32s ints[] = {16777217, 16777219, 20971521, 3, -1, 1};
        const int scales[] = {0, 0, 172, 150, -128, 150};
        const Vek32f wantF[] = {16777216.0f, 16777220.0f, 3 * 0x1p-149f, 2 * 0x1p-149f, -INFINITY, 0.0f};
        for (int i = 0; i < 6; ++i) {
            Vek32f r = 1;
            ASSERT_EQ(vek::vekTable_veksConvert_32s32f_Sfs[level](&ints[i], &r, 1, scales[i]), StatusOk);
            EXPECT_TRUE(sameBits(r, wantF[i])) << ints[i] << " sf " << scales[i] << ": " << r;
        }
    });
}

// Each member's checks in their order; a failed check writes nothing.
TEST(VectorEntry, ChecksComeInTheirOrderAndWriteNothing) {
    onEveryLevel([](int level) {
        Vek16s s[4] = {1, 2, 3, 4}, d[4] = {9, 9, 9, 9};
        Vek32s s32[4] = {1, 2, 3, 4}, d32[4] = {9, 9, 9, 9};
        const auto untouched = [&] {
            for (int i = 0; i < 4; ++i) EXPECT_TRUE(d[i] == 9 && d32[i] == 9 && s[i] == i + 1 && s32[i] == i + 1);
        };
        for (auto lshift : {vek::vekTable_veksLShiftC_16s[level], vek::vekTable_veksRShiftC_16s[level]}) {
            EXPECT_EQ(lshift(nullptr, 0, d, 4), StatusNullPointer);  // shift 0: the copy's checks
            EXPECT_EQ(lshift(s, 0, nullptr, 4), StatusNullPointer);
            EXPECT_EQ(lshift(s, 0, d, 0), StatusSize);
            EXPECT_EQ(lshift(nullptr, -1, d, 0), StatusNullPointer);
            EXPECT_EQ(lshift(s, -1, d, 0), StatusSize);  // the length before the shift
            EXPECT_EQ(lshift(s, -1, d, 4), StatusShift);
            EXPECT_EQ(lshift(nullptr, 16, d, 4), StatusNullPointer);
            EXPECT_EQ(lshift(s, 16, nullptr, 4), StatusNullPointer);  // from the zero fill
            EXPECT_EQ(lshift(s, 16, d, 0), StatusSize);
            EXPECT_EQ(lshift(s, INT_MIN, d, 4), StatusShift);
        }
        for (auto shift32 : {vek::vekTable_veksLShiftC_32s[level], vek::vekTable_veksRShiftC_32s[level]}) {
            EXPECT_EQ(shift32(nullptr, 0, d32, 4), StatusNullPointer);
            EXPECT_EQ(shift32(s32, 0, d32, -3), StatusSize);
            EXPECT_EQ(shift32(s32, 32, nullptr, 4), StatusNullPointer);
            EXPECT_EQ(shift32(nullptr, 40, d32, 0), StatusNullPointer);
            EXPECT_EQ(shift32(s32, -5, d32, 0), StatusSize);
            EXPECT_EQ(shift32(s32, -5, d32, 4), StatusShift);
        }
        for (auto inPlace : {vek::vekTable_veksLShiftC_16s_I[level], vek::vekTable_veksRShiftC_16s_I[level]}) {
            EXPECT_EQ(inPlace(0, nullptr, 4), StatusNullPointer);
            EXPECT_EQ(inPlace(-1, nullptr, 0), StatusNullPointer);
            EXPECT_EQ(inPlace(-1, d, 0), StatusSize);
            EXPECT_EQ(inPlace(0, d, 0), StatusSize);
            EXPECT_EQ(inPlace(-1, d, 4), StatusShift);
            EXPECT_EQ(inPlace(20, d, 0), StatusSize);
            EXPECT_EQ(inPlace(0, d, 4), StatusOk);  // shift 0 changes nothing
        }
        const auto r32 = vek::vekTable_veksRShiftC_32s_I[level];
        EXPECT_EQ(r32(0, d32, 0), StatusSize);
        EXPECT_EQ(r32(0, d32, 4), StatusOk);
        EXPECT_EQ(r32(-1, d32, 4), StatusShift);
        EXPECT_EQ(r32(1, nullptr, 4), StatusNullPointer);

        EXPECT_EQ(vek::vekTable_veksConvert_16s32s[level](nullptr, d32, 4), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksConvert_16s32s[level](s, nullptr, 0), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksConvert_16s32s[level](s, d32, 0), StatusSize);
        EXPECT_EQ(vek::vekTable_veksConvert_32s16s[level](s32, nullptr, 4), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksConvert_32s16s[level](s32, d, -1), StatusSize);
        Vek32f f[4] = {1, 2, 3, 4};
        EXPECT_EQ(vek::vekTable_veksConvert_32s32f_Sfs[level](s32, nullptr, 4, 0), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksConvert_32s32f_Sfs[level](s32, f, 0, 0), StatusSize);
        EXPECT_EQ(vek::vekTable_veksConvert_32f32s_Sfs[level](nullptr, d32, 0, 0), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksConvert_32f32s_Sfs[level](f, d32, 0, 5), StatusSize);
        EXPECT_EQ(f[0], 1.0f);
        EXPECT_EQ(vek::vekTable_veksThreshold_GT_32s_I[level](nullptr, 0, 0), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_veksThreshold_LT_32s_I[level](d32, 0, 0), StatusSize);

        Vek8u bytes[4] = {9, 9, 9, 9};
        const Vek8u from[4] = {1, 2, 3, 4};
        for (auto copy : {vek::vekTable_veksCopy_8u[level], vek::vekTable_veksMove_8u[level]}) {
            EXPECT_EQ(copy(nullptr, bytes, 4), StatusNullPointer);
            EXPECT_EQ(copy(from, nullptr, 0), StatusNullPointer);
            EXPECT_EQ(copy(from, bytes, 0), StatusSize);
            EXPECT_EQ(copy(from, bytes, INT_MIN), StatusSize);
        }
        for (Vek8u b : bytes) EXPECT_EQ(b, 9);
        untouched();
    });
}

// Overlapping moves in both directions, by one byte and by more than a
// vector, and onto themselves, against a copy taken before the move.
TEST(VectorEntry, MovesAreCorrectWhateverTheOverlap) {
    onEveryLevel([](int level) {
        const int len = 300;
        for (int distance : {1, 2, 15, 16, 17, 37, 100, 299, 300, 301}) {
            for (int direction : {1, -1}) {
                std::vector<Vek8u> area = randomVector<Vek8u>(len + distance + 64);
                const int dstAt = direction > 0 ? 32 : 32 + distance, srcAt = direction > 0 ? 32 + distance : 32;
                std::vector<Vek8u> want = area;
                memcpy(want.data() + dstAt, std::vector<Vek8u>(area.begin() + srcAt, area.begin() + srcAt + len).data(),
                       len);
                ASSERT_EQ(vek::vekTable_veksMove_8u[level](area.data() + srcAt, area.data() + dstAt, len), StatusOk);
                EXPECT_EQ(area, want) << "distance " << distance * direction;
            }
        }
        std::vector<Vek8u> area = randomVector<Vek8u>(64);
        const std::vector<Vek8u> before = area;
        EXPECT_EQ(vek::vekTable_veksMove_8u[level](area.data() + 3, area.data() + 3, 50), StatusOk);
        EXPECT_EQ(area, before);
        Vek8u small[5] = {1, 2, 3, 4, 5};
        ASSERT_EQ(vek::vekTable_veksMove_8u[level](small, small + 1, 4), StatusOk);
        EXPECT_EQ(0, memcmp(small, "\x01\x01\x02\x03\x04", 5));
    });
}

// Shifts may write over their own source.
TEST(VectorEntry, ShiftsInPlaceMatchTheOutOfPlaceResult) {
    onEveryLevel([](int level) {
        for (int shift : {1, 3, 15, 16, 31, 32}) {
            std::vector<Vek32s> a = randomVector<Vek32s>(77), viaCopy(77), inPlace = a;
            ASSERT_EQ(vek::vekTable_veksRShiftC_32s[level](a.data(), shift, viaCopy.data(), 77), StatusOk);
            ASSERT_EQ(vek::vekTable_veksRShiftC_32s_I[level](shift, inPlace.data(), 77), StatusOk);
            EXPECT_EQ(viaCopy, inPlace) << shift;
            std::vector<Vek16s> b = randomVector<Vek16s>(77), viaCopy16(77), same = b;
            ASSERT_EQ(vek::vekTable_veksLShiftC_16s[level](b.data(), shift, viaCopy16.data(), 77), StatusOk);
            ASSERT_EQ(vek::vekTable_veksLShiftC_16s[level](same.data(), shift, same.data(), 77), StatusOk);
            EXPECT_EQ(viaCopy16, same) << shift;
        }
    });
}

}  // namespace
}  // namespace vektest
