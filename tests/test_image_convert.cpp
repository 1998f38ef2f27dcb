// Image type conversions and per-pixel arithmetic: every level against
// level 0 over random layouts (padded and contiguous rows, misaligned
// starts, widths around the vector sizes), level 0 against references
// written from the definitions (double-precision rounding, explicit
// clamps), and the rules at entry on every level.
#include <cfenv>
#include <cmath>
#include <limits>

#include "image_convert_harness.h"

namespace vektest {
namespace {

// ---- samples --------------------------------------------------------------

// Floats where rounding and saturation decide: halfway values in and around
// every destination range, the bounds, specials, and anything at all.
Vek32f floatSample() {
    static const Vek32f specials[] = {NAN,        -NAN,        INFINITY,   -INFINITY, -0.0f,     0.0f,     0.49999997f,
                                      0.5f,       0.50000006f, 1.5f,       2.5f,      -0.5f,     -1.5f,    -2.5f,
                                      254.5f,     255.5f,      255.49998f, 256.0f,    65534.5f,  65535.5f, 65536.0f,
                                      32766.5f,   32767.5f,    -32767.5f,  -32768.5f, -32769.0f, 1e-40f,   -1e-40f,
                                      8388607.5f, 16777216.0f, 3e9f,       -3e9f};
    Rng& r = rng();
    switch (r() % 8) {
    case 0: return specials[r() % (sizeof specials / sizeof *specials)];
    case 1: return static_cast<Vek32f>(static_cast<int>(r() % 300) - 20) + 0.5f;
    case 2: return static_cast<Vek32f>(static_cast<int>(r() % 16) - 8 + (r() % 2 ? 32768 : -32768)) + 0.5f;
    case 3: return static_cast<Vek32f>(static_cast<int>(r() % 16) + 65528) + 0.5f;
    case 4: return std::uniform_real_distribution<Vek32f>(-3.0f, 300.0f)(r);
    case 5: return std::uniform_real_distribution<Vek32f>(-40000.0f, 70000.0f)(r);
    default: return randomValue<Vek32f>();
    }
}
template <class T>
T sample() {
    if constexpr (std::is_floating_point_v<T>)
        return floatSample();
    else
        return randomValue<T>();
}

// ---- references ---------------------------------------------------------------

template <class D, class S>
D referenceConvert(S x) {
    if constexpr (std::is_floating_point_v<D>) {
        return static_cast<D>(static_cast<double>(x));
    } else {
        const double lo = std::numeric_limits<D>::min(), hi = std::numeric_limits<D>::max();
        if (std::isnan(static_cast<double>(x))) return 0;
        const double r = std::nearbyint(static_cast<double>(x));  // the default mode: ties to even
        return static_cast<D>(r < lo ? lo : (r > hi ? hi : r));
    }
}

Vek32s referenceLeftShift(Vek32s x, Vek32u count) {
    if (count >= 32) return 0;
    return static_cast<Vek32s>(static_cast<uint32_t>(static_cast<uint64_t>(static_cast<uint32_t>(x)) << count));
}
template <class T>
T referenceRightShift(T x, Vek32u count) {  // floor division by 2^count
    if (count >= 8 * sizeof(T)) return x < 0 ? -1 : 0;
    return static_cast<T>(std::floor(static_cast<double>(x) / std::ldexp(1.0, static_cast<int>(count))));
}
Vek32s referenceSignExtend(Vek32s x, int bitSize) {
    const int64_t field = static_cast<int64_t>(static_cast<uint32_t>(x)) & ((int64_t(1) << bitSize) - 1);
    return static_cast<Vek32s>(field >= (int64_t(1) << (bitSize - 1)) ? field - (int64_t(1) << bitSize) : field);
}
struct ScaledConstant {
    Vek16s value;
    int scaleFactor;
};
Vek16s referenceMulC(Vek16s x, ScaledConstant c) {
    if (c.scaleFactor > 16) return 0;
    const double r = std::nearbyint(std::ldexp(static_cast<double>(x) * c.value, -c.scaleFactor));
    return static_cast<Vek16s>(r < -32768 ? -32768 : (r > 32767 ? 32767 : r));
}

// ---- the differential runners ---------------------------------------------------
// Each draws random layouts and a parameter, runs every level through
// compareLevels (statuses, outputs, guards, and the padding between rows),
// then checks the result, which is level 0's, against the reference.

// Checks the span of `shape` held by out: samples against expected(i), the
// padding against its initial marker.
template <class T, class Expected>
void checkImage(GuardedArray<T>& out, const std::vector<T>& initial, const ImageShape& shape, Expected expected,
                const std::string& what) {
    const std::vector<T> got = out.contents();
    for (int i = 0; i < shape.span<T>(); ++i) {
        if (!shape.inRow(i)) {
            ASSERT_EQ(0, memcmp(&got[i], &initial[i], sizeof(T))) << "padding written at " << i << "; " << what;
        } else {
            const T want = expected(i);
            ASSERT_TRUE(sameBits(got[i], want))
                << "element " << i << ": " << +got[i] << ", reference " << +want << "; " << what;
        }
    }
}

template <class T>
std::string describeParam(const T& p) {
    if constexpr (std::is_same_v<T, ScaledConstant>)
        return "value " + std::to_string(p.value) + " sf " + std::to_string(p.scaleFactor);
    else if constexpr (std::is_floating_point_v<T>)
        return "value " + std::to_string(p);
    else
        return "parameter " + std::to_string(p);
}

// A source image and a separate destination: call(level, src, srcStep,
// param, dst, dstStep, roi); ref(sourceSample, param).
template <class S, class D, class Draw, class Call, class Ref>
void runTwoImages(int channels, Draw drawParam, Call call, Ref ref) {
    for (int round = 0; round < rounds(60); ++round) {
        const int width = randomWidth();
        const bool contiguous = rng()() % 3 == 0;
        const ImageShape in = randomShape(width, channels, contiguous);
        ImageShape out = randomShape(width, channels, contiguous);
        out.height = in.height;
        const auto param = drawParam();
        const std::vector<S> input = imageContents<S>(in, sample<S>);
        InputArray<S> src(in.span<S>(), in.offset);
        memcpy(src.data(), input.data(), input.size() * sizeof(S));
        GuardedArray<D> dst(out.span<D>(), out.offset);
        const std::vector<D> initial = imageContents<D>(out, sample<D>);
        const VekiSize roi{width, in.height};
        const std::string what =
            "source " + in.describe() + "; destination " + out.describe() + "; " + describeParam(param);
        compareLevels(
            dst, initial,
            [&](int level) {
                return int(call(level, src.data(), in.step<S>(), param, dst.data(), out.step<D>(), roi));
            },
            what);
        if (::testing::Test::HasFatalFailure()) return;
        checkImage(
            dst, initial, out,
            [&](int i) {
                const int row = i / (out.samples + out.padding), k = i % (out.samples + out.padding);
                return ref(input[row * (in.samples + in.padding) + k], param);
            },
            what);
    }
}

// One image in place: call(level, param, image, step, roi).
template <class T, class Draw, class Call, class Ref>
void runInPlace(Draw drawParam, Call call, Ref ref) {
    for (int round = 0; round < rounds(60); ++round) {
        const int width = randomWidth();
        const ImageShape shape = randomShape(width, 1, rng()() % 3 == 0);
        const auto param = drawParam();
        GuardedArray<T> image(shape.span<T>(), shape.offset);
        const std::vector<T> initial = imageContents<T>(shape, sample<T>);
        const VekiSize roi{width, shape.height};
        const std::string what = shape.describe() + "; " + describeParam(param);
        compareLevels(
            image, initial, [&](int level) { return int(call(level, param, image.data(), shape.step<T>(), roi)); },
            what);
        if (::testing::Test::HasFatalFailure()) return;
        checkImage(
            image, initial, shape, [&](int i) { return ref(initial[i], param); }, what);
    }
}

template <class Fn>
struct ConvertTypes;
template <class S, class D>
struct ConvertTypes<VekStatus(VEK_CALL*)(const S*, int, D*, int, VekiSize)> {
    using Source = S;
    using Destination = D;
};

template <class Fn>
void diffConvert(const Fn* table, int channels) {
    using S = typename ConvertTypes<Fn>::Source;
    using D = typename ConvertTypes<Fn>::Destination;
    runTwoImages<S, D>(
        channels, [] { return 0; },
        [table](int level, const S* s, int ss, int, D* d, int ds, VekiSize roi) {
            return table[level](s, ss, d, ds, roi);
        },
        [](S x, int) { return referenceConvert<D>(x); });
}

#define VEK_CONVERT_DIFF(codes)                                                                                \
    VEK_DIFF_CASE(vekiConvert_##codes##_C1R, [] { diffConvert(vek::vekTable_vekiConvert_##codes##_C1R, 1); }); \
    VEK_DIFF_CASE(vekiConvert_##codes##_C3R, [] { diffConvert(vek::vekTable_vekiConvert_##codes##_C3R, 3); })

VEK_CONVERT_DIFF(8u16u);
VEK_CONVERT_DIFF(8u16s);
VEK_CONVERT_DIFF(8u32s);
VEK_CONVERT_DIFF(8u32f);
VEK_CONVERT_DIFF(16u32s);
VEK_CONVERT_DIFF(16u32f);
VEK_CONVERT_DIFF(16s32s);
VEK_CONVERT_DIFF(16s32f);
VEK_CONVERT_DIFF(32s8u);
VEK_CONVERT_DIFF(16s8u);
VEK_CONVERT_DIFF(16u8u);
VEK_CONVERT_DIFF(32f8u);
VEK_CONVERT_DIFF(32f16s);
VEK_CONVERT_DIFF(32f16u);

// Shift counts: small, at and around the widths, and far beyond.
Vek32u shiftCount() {
    static const Vek32u counts[] = {0,  1,  2,  7,  14, 15,   16,          17,          30,
                                    31, 32, 33, 63, 64, 1000, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu};
    return rng()() % 2 ? counts[rng()() % (sizeof counts / sizeof *counts)] : Vek32u(rng()() % 40);
}

VEK_DIFF_CASE(vekiLShiftC_32s_C1R, [] {
    runTwoImages<Vek32s, Vek32s>(
        1, shiftCount,
        [](int level, const Vek32s* s, int ss, Vek32u c, Vek32s* d, int ds, VekiSize roi) {
            return vek::vekTable_vekiLShiftC_32s_C1R[level](s, ss, c, d, ds, roi);
        },
        referenceLeftShift);
});
VEK_DIFF_CASE(vekiLShiftC_32s_C1IR, [] {
    runInPlace<Vek32s>(
        shiftCount,
        [](int level, Vek32u c, Vek32s* p, int step, VekiSize roi) {
            return vek::vekTable_vekiLShiftC_32s_C1IR[level](c, p, step, roi);
        },
        referenceLeftShift);
});
VEK_DIFF_CASE(vekiRShiftC_16s_C1IR, [] {
    runInPlace<Vek16s>(
        shiftCount,
        [](int level, Vek32u c, Vek16s* p, int step, VekiSize roi) {
            return vek::vekTable_vekiRShiftC_16s_C1IR[level](c, p, step, roi);
        },
        referenceRightShift<Vek16s>);
});
VEK_DIFF_CASE(vekiRShiftC_32s_C1IR, [] {
    runInPlace<Vek32s>(
        shiftCount,
        [](int level, Vek32u c, Vek32s* p, int step, VekiSize roi) {
            return vek::vekTable_vekiRShiftC_32s_C1IR[level](c, p, step, roi);
        },
        referenceRightShift<Vek32s>);
});
VEK_DIFF_CASE(vekiMulC_16s_C1IRSfs, [] {
    static const int scales[] = {-20, -16, -15, -3, -1, 0, 1, 2, 3, 8, 15, 16, 17, 31};
    runInPlace<Vek16s>(
        [] {
            return ScaledConstant{randomValue<Vek16s>(), scales[rng()() % (sizeof scales / sizeof *scales)]};
        },
        [](int level, ScaledConstant c, Vek16s* p, int step, VekiSize roi) {
            return vek::vekTable_vekiMulC_16s_C1IRSfs[level](c.value, p, step, roi, c.scaleFactor);
        },
        referenceMulC);
});
VEK_DIFF_CASE(vekiMulC_32f_C1IR, [] {
    runInPlace<Vek32f>(
        floatSample,
        [](int level, Vek32f v, Vek32f* p, int step, VekiSize roi) {
            return vek::vekTable_vekiMulC_32f_C1IR[level](v, p, step, roi);
        },
        [](Vek32f x, Vek32f v) {  // the product rounded once (48 bits fit in a double)
            return static_cast<Vek32f>(static_cast<double>(x) * v);
        });
});
VEK_DIFF_CASE(vekiComplement_32s_C1IR, [] {
    runInPlace<Vek32s>([] { return 1 + int(rng()() % 32); },
                       [](int level, int bits, Vek32s* p, int step, VekiSize roi) {
                           return vek::vekTable_vekiComplement_32s_C1IR[level](p, step, roi, bits);
                       },
                       referenceSignExtend);
});

// ---- the rules at entry, on every level ------------------------------------------

// Pointers, then sizes, then steps; a failed check writes nothing.  The
// region is 2 x 2 in a 4 x 2 buffer, so a step of 0 or -1 would be usable.
template <class Fn>
void checkConvertEntry(const Fn* table, int level) {
    using S = typename ConvertTypes<Fn>::Source;
    using D = typename ConvertTypes<Fn>::Destination;
    S src[24] = {};
    D dst[24];
    memset(dst, kGuard, sizeof dst);
    const int ss = 4 * sizeof(S) * 3, ds = 4 * sizeof(D) * 3;
    auto call = [&](const S* s, int sStep, D* d, int dStep, VekiSize roi) {
        return table[level](s, sStep, d, dStep, roi);
    };
    EXPECT_EQ(call(nullptr, ss, dst, ds, {2, 2}), StatusNullPointer);
    EXPECT_EQ(call(src, ss, nullptr, ds, {2, 2}), StatusNullPointer);
    EXPECT_EQ(call(nullptr, 0, dst, 0, {0, 0}), StatusNullPointer);  // pointers first
    EXPECT_EQ(call(src, ss, dst, ds, {0, 2}), StatusSize);
    EXPECT_EQ(call(src, ss, dst, ds, {2, -1}), StatusSize);
    EXPECT_EQ(call(src, 0, dst, 0, {0, 2}), StatusSize);  // sizes before steps
    EXPECT_EQ(call(src, 0, dst, ds, {2, 2}), StatusStep);
    EXPECT_EQ(call(src, ss, dst, 0, {2, 2}), StatusStep);
    EXPECT_EQ(call(src, -ss, dst, ds, {2, 2}), StatusStep);
    for (size_t i = 0; i < sizeof dst; ++i) ASSERT_EQ(reinterpret_cast<unsigned char*>(dst)[i], kGuard);
    EXPECT_EQ(call(src, ss, dst, ds, {1, 1}), StatusOk);  // 1 x 1 converts one sample
}

template <class T, class Call>
void checkInPlaceEntry(Call call) {
    T image[8];
    memset(image, kGuard, sizeof image);
    const int step = 4 * sizeof(T);
    EXPECT_EQ(call(static_cast<T*>(nullptr), step, VekiSize{2, 2}), StatusNullPointer);
    EXPECT_EQ(call(static_cast<T*>(nullptr), 0, VekiSize{0, 0}), StatusNullPointer);
    EXPECT_EQ(call(image, step, VekiSize{0, 2}), StatusSize);
    EXPECT_EQ(call(image, 0, VekiSize{2, 0}), StatusSize);
    EXPECT_EQ(call(image, 0, VekiSize{2, 2}), StatusStep);
    EXPECT_EQ(call(image, -step, VekiSize{2, 2}), StatusStep);
    for (size_t i = 0; i < sizeof image; ++i) ASSERT_EQ(reinterpret_cast<unsigned char*>(image)[i], kGuard);
}

TEST(ImageConvertEntry, PointersThenSizesThenStepsAndNothingWritten) {
    onEveryLevel([](int level) {
#define VEK_CHECK(codes)                                               \
    checkConvertEntry(vek::vekTable_vekiConvert_##codes##_C1R, level); \
    checkConvertEntry(vek::vekTable_vekiConvert_##codes##_C3R, level)
        VEK_CHECK(8u16u);
        VEK_CHECK(8u16s);
        VEK_CHECK(8u32s);
        VEK_CHECK(8u32f);
        VEK_CHECK(16u32s);
        VEK_CHECK(16u32f);
        VEK_CHECK(16s32s);
        VEK_CHECK(16s32f);
        VEK_CHECK(32s8u);
        VEK_CHECK(16s8u);
        VEK_CHECK(16u8u);
        VEK_CHECK(32f8u);
        VEK_CHECK(32f16s);
        VEK_CHECK(32f16u);
#undef VEK_CHECK
        // The left shift with two images checks like a conversion.
        Vek32s src[8] = {}, dst[8] = {7, 7, 7, 7, 7, 7, 7, 7};
        EXPECT_EQ(vek::vekTable_vekiLShiftC_32s_C1R[level](nullptr, 16, 1, dst, 16, {2, 2}), StatusNullPointer);
        EXPECT_EQ(vek::vekTable_vekiLShiftC_32s_C1R[level](src, 16, 1, dst, 16, {2, 0}), StatusSize);
        EXPECT_EQ(vek::vekTable_vekiLShiftC_32s_C1R[level](src, 16, 1, dst, 0, {2, 2}), StatusStep);
        for (Vek32s v : dst) EXPECT_EQ(v, 7);

        checkInPlaceEntry<Vek32s>(
            [&](Vek32s* p, int s, VekiSize r) { return vek::vekTable_vekiLShiftC_32s_C1IR[level](3, p, s, r); });
        checkInPlaceEntry<Vek16s>(
            [&](Vek16s* p, int s, VekiSize r) { return vek::vekTable_vekiRShiftC_16s_C1IR[level](3, p, s, r); });
        checkInPlaceEntry<Vek32s>(
            [&](Vek32s* p, int s, VekiSize r) { return vek::vekTable_vekiRShiftC_32s_C1IR[level](3, p, s, r); });
        checkInPlaceEntry<Vek16s>(
            [&](Vek16s* p, int s, VekiSize r) { return vek::vekTable_vekiMulC_16s_C1IRSfs[level](3, p, s, r, 1); });
        checkInPlaceEntry<Vek32f>(
            [&](Vek32f* p, int s, VekiSize r) { return vek::vekTable_vekiMulC_32f_C1IR[level](3, p, s, r); });
        checkInPlaceEntry<Vek32s>(
            [&](Vek32s* p, int s, VekiSize r) { return vek::vekTable_vekiComplement_32s_C1IR[level](p, s, r, 8); });
        // The bit size comes last.
        checkInPlaceEntry<Vek32s>(
            [&](Vek32s* p, int s, VekiSize r) { return vek::vekTable_vekiComplement_32s_C1IR[level](p, s, r, 0); });
        Vek32s image[4] = {1, 2, 3, 4};
        EXPECT_EQ(vek::vekTable_vekiComplement_32s_C1IR[level](image, 16, {4, 1}, 0), StatusOutOfRange);
        EXPECT_EQ(vek::vekTable_vekiComplement_32s_C1IR[level](image, 16, {4, 1}, 33), StatusOutOfRange);
        EXPECT_EQ(image[3], 4);
    });
}

// ---- what each member does, on every level ------------------------------------

template <class D, class Fn>
std::vector<D> convertRow(const Fn* table, int level, const std::vector<Vek32f>& in) {
    std::vector<D> out(in.size());
    const int n = static_cast<int>(in.size());
    EXPECT_EQ(table[level](in.data(), n * 4, out.data(), n * int(sizeof(D)), VekiSize{n, 1}), StatusOk);
    return out;
}

TEST(ImageConvertBehaviour, FloatsRoundHalfToEvenSaturateAndNaNIsZero) {
    const std::vector<Vek32f> in = {2.5f,     3.5f,        -0.5f,    0.5f,     1.5f,      254.5f,
                                    255.5f,   0.49999997f, NAN,      INFINITY, -INFINITY, -32768.5f,
                                    32767.5f, 65534.5f,    65535.5f, -1.5f,    1e-40f};
    const std::vector<Vek8u> want8u = {2, 4, 0, 0, 2, 254, 255, 0, 0, 255, 0, 0, 255, 255, 255, 0, 0};
    const std::vector<Vek16s> want16s = {2,     4,      0,      0,     2,     254,   256, 0, 0,
                                         32767, -32768, -32768, 32767, 32767, 32767, -2,  0};
    const std::vector<Vek16u> want16u = {2, 4, 0, 0, 2, 254, 256, 0, 0, 65535, 0, 0, 32768, 65534, 65535, 0, 0};
    onEveryLevel([&](int level) {
        EXPECT_EQ(convertRow<Vek8u>(vek::vekTable_vekiConvert_32f8u_C1R, level, in), want8u);
        EXPECT_EQ(convertRow<Vek16s>(vek::vekTable_vekiConvert_32f16s_C1R, level, in), want16s);
        EXPECT_EQ(convertRow<Vek16u>(vek::vekTable_vekiConvert_32f16u_C1R, level, in), want16u);
    });
}

// The caller's rounding mode (x87 and SSE alike) does not change the result.
TEST(ImageConvertBehaviour, RoundingIgnoresTheCallersRoundingMode) {
    std::vector<Vek32f> in;
    for (int i = -40; i < 600; ++i) in.push_back(i * 0.25f);
    const int saved = fegetround();
    for (int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        onEveryLevel([&](int level) {
            const std::vector<Vek8u> want = convertRow<Vek8u>(vek::vekTable_vekiConvert_32f8u_C1R, 0, in);
            ASSERT_EQ(fesetround(mode), 0);
            const std::vector<Vek8u> got8 = convertRow<Vek8u>(vek::vekTable_vekiConvert_32f8u_C1R, level, in);
            const std::vector<Vek16s> got16 = convertRow<Vek16s>(vek::vekTable_vekiConvert_32f16s_C1R, level, in);
            fesetround(saved);
            EXPECT_EQ(got8, want) << "mode " << mode;
            for (size_t i = 0; i < in.size(); ++i)
                ASSERT_EQ(got16[i], referenceConvert<Vek16s>(in[i])) << in[i] << " mode " << mode;
        });
    }
}

TEST(ImageConvertBehaviour, ShiftsAtAndBeyondTheWidthAndSignExtension) {
    onEveryLevel([](int level) {
        auto left = [&](Vek32s x, Vek32u c) {
            EXPECT_EQ(vek::vekTable_vekiLShiftC_32s_C1IR[level](c, &x, 4, {1, 1}), StatusOk);
            return x;
        };
        EXPECT_EQ(left(0x40000001, 2), 4);  // the high bits are lost
        EXPECT_EQ(left(1, 31), INT32_MIN);
        EXPECT_EQ(left(-1, 32), 0);
        EXPECT_EQ(left(-1, 0xFFFFFFFFu), 0);
        EXPECT_EQ(left(5, 0), 5);
        auto right16 = [&](Vek16s x, Vek32u c) {
            EXPECT_EQ(vek::vekTable_vekiRShiftC_16s_C1IR[level](c, &x, 2, {1, 1}), StatusOk);
            return x;
        };
        EXPECT_EQ(right16(-1, 20), -1);
        EXPECT_EQ(right16(5, 20), 0);
        EXPECT_EQ(right16(-5, 1), -3);  // toward minus infinity
        EXPECT_EQ(right16(-32768, 15), -1);
        auto right32 = [&](Vek32s x, Vek32u c) {
            EXPECT_EQ(vek::vekTable_vekiRShiftC_32s_C1IR[level](c, &x, 4, {1, 1}), StatusOk);
            return x;
        };
        EXPECT_EQ(right32(INT32_MIN, 0x80000000u), -1);
        EXPECT_EQ(right32(INT32_MAX, 32), 0);
        EXPECT_EQ(right32(-7, 2), -2);
        auto complement = [&](Vek32s x, int bits) {
            EXPECT_EQ(vek::vekTable_vekiComplement_32s_C1IR[level](&x, 4, {1, 1}, bits), StatusOk);
            return x;
        };
        EXPECT_EQ(complement(0xFFF, 12), -1);
        EXPECT_EQ(complement(0x800, 12), -2048);
        EXPECT_EQ(complement(0x7FF, 12), 2047);
        EXPECT_EQ(complement(0x12345FFF, 12), -1);  // bits above the field are ignored
        EXPECT_EQ(complement(1, 1), -1);
        EXPECT_EQ(complement(-5, 32), -5);
    });
}

}  // namespace
}  // namespace vektest
