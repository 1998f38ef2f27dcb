// JPEG 2000 component transforms: every level against level 0 on random
// regions and layouts (in place, interleaved to planar and back), level 0
// against the formulas worked exactly in 64 bits or in double precision,
// the round trip of the RCT, and the rules at entry on every level.
#include <cmath>

#include "image_harness.h"

namespace vektest {
namespace {

// Regions around the vector blocks, up to 5 rows; layouts top-down (the
// functions take positive steps only), a third of them without padding so
// that the planes are one long row.
template <class Body>
void forRegions(Body body) {
    static const int widths[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100};
    for (int round = 0; round < rounds(40); ++round) {
        const int w = rng()() % 4 ? widths[rng()() % (sizeof widths / sizeof *widths)] : 1 + int(rng()() % 300);
        body(VekiSize{w, 1 + int(rng()() % 5)});
    }
}
template <class T>
ImageLayout planeLayout(bool input) {
    ImageLayout l = randomLayout<T>();
    l.bottomUp = false;
    if (rng()() % 3 == 0) l.paddingBytes = 0;
    l.guardAfter = !input;
    return l;
}
std::string describe(VekiSize roi, const ImageLayout& l) {
    return std::to_string(roi.width) + "x" + std::to_string(roi.height) + " " + l.describe();
}

// The three planes as three bands of rows of one image: plane c is rows
// c * height ... of it, all with its step.
template <class T>
struct PlaneImage {
    GuardedImage<T> image;
    T* planes[3];
    PlaneImage(VekiSize roi, bool input) : image(roi.width, 3 * roi.height, planeLayout<T>(input)) {
        for (int c = 0; c < 3; ++c) planes[c] = image.row(c * roi.height);
    }
    T& at(int c, int x, int y) { return image.row(c * (image.height() / 3) + y)[x]; }
};

// ---- references -------------------------------------------------------------------

template <class T>
T wrap(int64_t v) {
    return static_cast<T>(static_cast<std::make_unsigned_t<T>>(static_cast<uint64_t>(v)));
}
int64_t q14(int64_t v) { return (v + 8192) >> 14; }

// Pixel transforms: in (p0, p1, p2) out.
template <class T>
void rctForward(T p[3]) {
    const int64_t r = p[0], g = p[1], b = p[2];
    p[0] = wrap<T>((r + 2 * g + b) >> 2), p[1] = wrap<T>(b - g), p[2] = wrap<T>(r - g);
}
template <class T>
void rctInverse(T p[3]) {
    const int64_t y = p[0], u = p[1], v = p[2], g = y - ((u + v) >> 2);
    p[0] = wrap<T>(v + g), p[1] = wrap<T>(g), p[2] = wrap<T>(u + g);
}
template <class T>
void ictForward(T p[3]) {
    if constexpr (std::is_floating_point_v<T>) {
        const double r = p[0], g = p[1], b = p[2];
        p[0] = float(0.299 * r + 0.587 * g + 0.114 * b);
        p[1] = float(-0.16875 * r - 0.33126 * g + 0.5 * b);
        p[2] = float(0.5 * r - 0.41869 * g - 0.08131 * b);
    } else {
        const int64_t r = p[0], g = p[1], b = p[2];
        p[0] = wrap<T>(q14(4899 * r + 9617 * g + 1868 * b));
        p[1] = wrap<T>(q14(-2765 * r - 5427 * g + 8192 * b));
        p[2] = wrap<T>(q14(8192 * r - 6860 * g - 1332 * b));
    }
}
template <class T>
void ictInverse(T p[3]) {
    if constexpr (std::is_floating_point_v<T>) {
        const double y = p[0], cb = p[1], cr = p[2];
        p[0] = float(y + 1.402 * cr), p[1] = float(y - 0.34413 * cb - 0.71414 * cr), p[2] = float(y + 1.772 * cb);
    } else {
        const int64_t y = p[0], cb = p[1], cr = p[2];
        p[0] = wrap<T>(y + q14(22970 * cr)), p[1] = wrap<T>(y + q14(-5638 * cb - 11700 * cr));
        p[2] = wrap<T>(y + q14(29032 * cb));
    }
}

// Level 0 against the reference: integers exactly; floats within one unit
// in the last place (the test program may round double on the x87 unit).
template <class T>
void expectSample(T got, T want, const std::string& what) {
    if constexpr (std::is_floating_point_v<T>) {
        const bool close = std::isnan(want) ? std::isnan(got) : got == want || std::nextafter(got, want) == want;
        ASSERT_TRUE(close) << got << " vs " << want << "; " << what;
    } else {
        ASSERT_EQ(got, want) << what;
    }
}

// Samples whose sums cover the extremes and moderate values alike.
template <class T>
T componentSample() {
    if constexpr (std::is_floating_point_v<T>)
        return rng()() % 4 ? std::uniform_real_distribution<float>(-5000.0f, 5000.0f)(rng()) : randomValue<T>();
    else
        return randomValue<T>();
}

// ---- the differential runners, with level 0 checked against the reference ----------

template <class T, class Fn>
void diffInPlace(const Fn* table, void (*reference)(T*)) {
    forRegions([&](VekiSize roi) {
        PlaneImage<T> img(roi, false);
        img.image.fill([](int, int) { return componentSample<T>(); });
        const std::vector<T> before = img.image.samples();  // plane c, row y: row c * height + y
        auto was = [&](int c, int x, int y) { return before[(size_t(c) * roi.height + y) * roi.width + x]; };
        const std::string what = describe(roi, img.image.layout());
        compareImageLevels(
            img.image, [&](int level) { return table[level](img.planes, img.image.step(), roi); }, what);
        for (int y = 0; y < roi.height; ++y)
            for (int x = 0; x < roi.width; ++x) {
                T p[3] = {was(0, x, y), was(1, x, y), was(2, x, y)};
                reference(p);
                for (int c = 0; c < 3; ++c) expectSample(img.at(c, x, y), p[c], what);
            }
    });
}

template <class T, class Fn>
void diffFromPixels(const Fn* table, void (*reference)(T*)) {
    forRegions([&](VekiSize roi) {
        GuardedImage<T> src(3 * roi.width, roi.height, planeLayout<T>(true));
        src.fill([](int, int) { return componentSample<T>(); });
        PlaneImage<T> dst(roi, false);
        const std::string what = describe(roi, src.layout()) + "; planes " + dst.image.layout().describe();
        compareImageLevels(
            dst.image,
            [&](int level) { return table[level](src.origin(), src.step(), dst.planes, dst.image.step(), roi); }, what);
        for (int y = 0; y < roi.height; ++y)
            for (int x = 0; x < roi.width; ++x) {
                T p[3] = {src.at(3 * x, y), src.at(3 * x + 1, y), src.at(3 * x + 2, y)};
                reference(p);
                for (int c = 0; c < 3; ++c) expectSample(dst.at(c, x, y), p[c], what);
            }
    });
}

template <class T, class Fn>
void diffToPixels(const Fn* table, void (*reference)(T*)) {
    forRegions([&](VekiSize roi) {
        PlaneImage<T> src(roi, true);
        src.image.fill([](int, int) { return componentSample<T>(); });
        GuardedImage<T> dst(3 * roi.width, roi.height, planeLayout<T>(false));
        const T* planes[3] = {src.planes[0], src.planes[1], src.planes[2]};
        const std::string what = describe(roi, src.image.layout()) + "; pixels " + dst.layout().describe();
        compareImageLevels(
            dst, [&](int level) { return table[level](planes, src.image.step(), dst.origin(), dst.step(), roi); },
            what);
        for (int y = 0; y < roi.height; ++y)
            for (int x = 0; x < roi.width; ++x) {
                T p[3] = {src.at(0, x, y), src.at(1, x, y), src.at(2, x, y)};
                reference(p);
                for (int c = 0; c < 3; ++c) expectSample(dst.at(3 * x + c, y), p[c], what);
            }
    });
}

using vek::vekTable_vekiICTFwd_JPEG2K_16s_P3IR, vek::vekTable_vekiICTFwd_JPEG2K_32s_P3IR;
using vek::vekTable_vekiICTFwd_JPEG2K_32f_P3IR, vek::vekTable_vekiICTFwd_JPEG2K_32f_C3P3R;
using vek::vekTable_vekiICTInv_JPEG2K_16s_P3IR, vek::vekTable_vekiICTInv_JPEG2K_32s_P3IR;
using vek::vekTable_vekiICTInv_JPEG2K_32f_P3IR, vek::vekTable_vekiICTInv_JPEG2K_32f_P3C3R;
using vek::vekTable_vekiRCTFwd_JPEG2K_16s_P3IR, vek::vekTable_vekiRCTFwd_JPEG2K_32s_P3IR;
using vek::vekTable_vekiRCTFwd_JPEG2K_32s_C3P3R, vek::vekTable_vekiRCTInv_JPEG2K_16s_P3IR;
using vek::vekTable_vekiRCTInv_JPEG2K_32s_P3IR, vek::vekTable_vekiRCTInv_JPEG2K_32s_P3C3R;

#define VEK_CT_DIFF(runner, name, T, reference) VEK_DIFF_CASE(name, [] { runner<T>(vekTable_##name, reference<T>); })
VEK_CT_DIFF(diffInPlace, vekiRCTFwd_JPEG2K_16s_P3IR, Vek16s, rctForward);
VEK_CT_DIFF(diffInPlace, vekiRCTFwd_JPEG2K_32s_P3IR, Vek32s, rctForward);
VEK_CT_DIFF(diffFromPixels, vekiRCTFwd_JPEG2K_32s_C3P3R, Vek32s, rctForward);
VEK_CT_DIFF(diffInPlace, vekiRCTInv_JPEG2K_16s_P3IR, Vek16s, rctInverse);
VEK_CT_DIFF(diffInPlace, vekiRCTInv_JPEG2K_32s_P3IR, Vek32s, rctInverse);
VEK_CT_DIFF(diffToPixels, vekiRCTInv_JPEG2K_32s_P3C3R, Vek32s, rctInverse);
VEK_CT_DIFF(diffInPlace, vekiICTFwd_JPEG2K_16s_P3IR, Vek16s, ictForward);
VEK_CT_DIFF(diffInPlace, vekiICTFwd_JPEG2K_32s_P3IR, Vek32s, ictForward);
VEK_CT_DIFF(diffInPlace, vekiICTFwd_JPEG2K_32f_P3IR, Vek32f, ictForward);
VEK_CT_DIFF(diffFromPixels, vekiICTFwd_JPEG2K_32f_C3P3R, Vek32f, ictForward);
VEK_CT_DIFF(diffInPlace, vekiICTInv_JPEG2K_16s_P3IR, Vek16s, ictInverse);
VEK_CT_DIFF(diffInPlace, vekiICTInv_JPEG2K_32s_P3IR, Vek32s, ictInverse);
VEK_CT_DIFF(diffInPlace, vekiICTInv_JPEG2K_32f_P3IR, Vek32f, ictInverse);
VEK_CT_DIFF(diffToPixels, vekiICTInv_JPEG2K_32f_P3C3R, Vek32f, ictInverse);

// ---- behaviour ------------------------------------------------------------------------

// Forward then inverse gives every triple back whose intermediates fit the
// type (negative samples included); a grey pixel has no chroma.
TEST(Jpeg2000Components, RctRoundTripsAndGreyHasNoChroma) {
    onEveryLevel([](int level) {
        for (int round = 0; round < rounds(200); ++round) {
            Vek16s p[3];
            for (Vek16s& v : p) v = Vek16s(int(rng()() % 32768) - 16384);  // U and V then fit
            const Vek16s in[3] = {p[0], p[1], p[2]};
            Vek16s* planes[3] = {&p[0], &p[1], &p[2]};
            ASSERT_EQ(vekTable_vekiRCTFwd_JPEG2K_16s_P3IR[level](planes, 2, {1, 1}), StatusOk);
            ASSERT_EQ(vekTable_vekiRCTInv_JPEG2K_16s_P3IR[level](planes, 2, {1, 1}), StatusOk);
            ASSERT_TRUE(p[0] == in[0] && p[1] == in[1] && p[2] == in[2]) << in[0] << " " << in[1] << " " << in[2];
        }
        Vek32s grey[3] = {-77, -77, -77};
        Vek32s* planes[3] = {&grey[0], &grey[1], &grey[2]};
        ASSERT_EQ(vekTable_vekiRCTFwd_JPEG2K_32s_P3IR[level](planes, 4, {1, 1}), StatusOk);
        EXPECT_TRUE(grey[0] == -77 && grey[1] == 0 && grey[2] == 0);
        // The 16-bit ICT wraps: Cb of (-32768, -32768, 32767) is 32768.
        Vek16s extreme[3] = {-32768, -32768, 32767};
        Vek16s* e[3] = {&extreme[0], &extreme[1], &extreme[2]};
        ASSERT_EQ(vekTable_vekiICTFwd_JPEG2K_16s_P3IR[level](e, 2, {1, 1}), StatusOk);
        EXPECT_EQ(extreme[1], -32768);
    });
}

// Pointers (the array, each plane, the interleaved image), then steps, then
// sizes; a failed check writes nothing.
TEST(Jpeg2000Components, PointersThenStepsThenSizesAndNothingWritten) {
    onEveryLevel([](int level) {
        Vek32s a[4] = {1, 2, 3, 4}, b[4] = {5, 6, 7, 8}, c[4] = {9, 10, 11, 12}, px[12] = {};
        Vek32s* planes[3] = {a, b, c};
        Vek32s* noPlane1[3] = {a, nullptr, c};
        const Vek32s* in[3] = {a, b, c};
        const Vek32s* noPlane2[3] = {a, b, nullptr};
        auto inPlace = [&](Vek32s* const* p, int step, VekiSize roi) {
            return vekTable_vekiRCTFwd_JPEG2K_32s_P3IR[level](p, step, roi);
        };
        EXPECT_EQ(inPlace(nullptr, 0, {0, 0}), StatusNullPointer);
        EXPECT_EQ(inPlace(noPlane1, 0, {0, 0}), StatusNullPointer);
        EXPECT_EQ(inPlace(planes, 0, {0, 0}), StatusStep);
        EXPECT_EQ(inPlace(planes, 8, {0, 2}), StatusSize);
        EXPECT_EQ(inPlace(planes, 8, {2, -1}), StatusSize);
        auto fromPixels = [&](const Vek32s* s, int ss, Vek32s* const* d, int ds, VekiSize roi) {
            return vekTable_vekiRCTFwd_JPEG2K_32s_C3P3R[level](s, ss, d, ds, roi);
        };
        EXPECT_EQ(fromPixels(nullptr, 24, planes, 8, {2, 2}), StatusNullPointer);
        EXPECT_EQ(fromPixels(px, 24, noPlane1, 8, {2, 2}), StatusNullPointer);
        EXPECT_EQ(fromPixels(px, 0, planes, 0, {0, 0}), StatusStep);
        EXPECT_EQ(fromPixels(px, 24, planes, -8, {0, 0}), StatusStep);
        EXPECT_EQ(fromPixels(px, 24, planes, 8, {2, 0}), StatusSize);
        auto toPixels = [&](const Vek32s* const* s, int ss, Vek32s* d, int ds, VekiSize roi) {
            return vekTable_vekiRCTInv_JPEG2K_32s_P3C3R[level](s, ss, d, ds, roi);
        };
        EXPECT_EQ(toPixels(noPlane2, 8, px, 24, {2, 2}), StatusNullPointer);
        EXPECT_EQ(toPixels(in, 8, nullptr, 24, {2, 2}), StatusNullPointer);
        EXPECT_EQ(toPixels(in, 0, px, 0, {0, 0}), StatusStep);
        EXPECT_EQ(toPixels(in, 8, px, 24, {0, 2}), StatusSize);
        for (int i = 0; i < 4; ++i) EXPECT_TRUE(a[i] == i + 1 && b[i] == i + 5 && c[i] == i + 9);
        for (Vek32s v : px) EXPECT_EQ(v, 0);
    });
}

}  // namespace
}  // namespace vektest
