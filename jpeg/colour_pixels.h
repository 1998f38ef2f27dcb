// The per-pixel arithmetic of the JPEG colour family, in scalar integer
// code: the lookup tables of the two fixed conversions, the pixel layouts
// (how the channels of one pixel are read and written) and the scalar
// converters.  The plain level is built from these alone; the vector levels
// use them for the pixels at the end of a row that do not fill a vector.
//
// Forward (R, G, B to Y, Cb, Cr) is three table loads and two additions per
// output; inverse adds the rounded chroma terms to Y and clamps.  Every
// other member of the family reads and writes other layouts but computes
// through these two, so all members agree bit for bit.
#ifndef VEK_JPEG_COLOUR_PIXELS_H
#define VEK_JPEG_COLOUR_PIXELS_H

#include <stdint.h>

#include <array>
#include <type_traits>

#include "vek.h"

namespace vek::jpeg {
namespace {  // internal linkage: every level's file compiles its own copy

using Table = std::array<int32_t, 256>;

template <class F>
constexpr Table makeTable(F f) {
    Table t{};
    for (int c = 0; c < 256; ++c) t[c] = f(c);
    return t;
}

// n / 1000 rounded to the nearest integer, exact halves away from zero.
constexpr int32_t roundThousandths(int32_t n) { return n >= 0 ? (n + 500) / 1000 : -((-n + 500) / 1000); }

// clang-format off
constexpr Table kYR   = makeTable([](int c) { return 19595 * c; });
constexpr Table kYG   = makeTable([](int c) { return 38470 * c; });
constexpr Table kYB   = makeTable([](int c) { return 7471 * c + 32768; });
constexpr Table kCbR  = makeTable([](int c) { return -11059 * c; });
constexpr Table kCbG  = makeTable([](int c) { return -21709 * c; });
constexpr Table kHalf = makeTable([](int c) { return 32768 * c + 8421375; });  // B of Cb, R of Cr
constexpr Table kCrG  = makeTable([](int c) { return -27439 * c; });
constexpr Table kCrB  = makeTable([](int c) { return -5329 * c; });

constexpr Table kR    = makeTable([](int c) { return roundThousandths(1402 * (c - 128)); });
constexpr Table kB    = makeTable([](int c) { return roundThousandths(1772 * (c - 128)); });
constexpr Table kGcb  = makeTable([](int c) { return -22554 * (c - 128) + 32768; });
constexpr Table kGcr  = makeTable([](int c) { return -46802 * (c - 128); });
// clang-format on

static_assert(kR[0] == -179 && kR[255] == 178 && kB[0] == -227 && kB[255] == 225 && kB[3] == -222);
static_assert(kGcb[0] == 2919680 && kGcr[0] == 5990656);

// The block functions of a level without vectors (colour_rows.h and its
// siblings pick theirs by the level's vector type).
struct NoVector {};

inline int clamp255(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }

// One pixel's channels, as plain ints: (R, G, B) or (Y, Cb, Cr), and a
// fourth channel that a conversion passes through (K of CMYK and YCCK).
struct Pixel {
    int a, b, c, k;
};

// ---- the two conversions -----------------------------------------------------

struct Forward {
    static Pixel convert(Pixel p) {
        // The sums are never negative, so >> is a plain division by 65536.
        return {(kYR[p.a] + kYG[p.b] + kYB[p.c]) >> 16, (kCbR[p.a] + kCbG[p.b] + kHalf[p.c]) >> 16,
                (kHalf[p.a] + kCrG[p.b] + kCrB[p.c]) >> 16, p.k};
    }
};

struct Inverse {
    static Pixel convert(Pixel p) {
        const int y = p.a;
        // An arithmetic shift of a negative sum, written as a floor division.
        const int32_t g = kGcb[p.b] + kGcr[p.c];
        const int gTerm = g >= 0 ? g >> 16 : -((-g + 65535) >> 16);
        return {clamp255(y + kR[p.c]), clamp255(y + gTerm), clamp255(y + kB[p.b]), p.k};
    }
};

// ---- pixel layouts ---------------------------------------------------------------
// A layout reads pixel x of one row (given as its plane pointers; an
// interleaved image has one) and writes it.  Samples are 8-bit unless the
// layout says otherwise.

// Three interleaved channels; R, G and B at byte offsets Ro, Go, Bo.
template <int Ro, int Go, int Bo>
struct Interleaved3 {
    using Sample = Vek8u;
    static constexpr int kPlanes = 1, kChannels = 3;
    static Pixel get(const Sample* const* s, int x) {
        const Sample* p = s[0] + 3 * x;
        return {p[Ro], p[Go], p[Bo], 0};
    }
    static void put(Sample* const* d, int x, Pixel v) {
        Sample* p = d[0] + 3 * x;
        p[Ro] = static_cast<Sample>(v.a), p[Go] = static_cast<Sample>(v.b), p[Bo] = static_cast<Sample>(v.c);
    }
};
using RGB = Interleaved3<0, 1, 2>;
using BGR = Interleaved3<2, 1, 0>;

// N planes (1: the first channel alone, e.g. Y; 4: with K).
template <int N>
struct Planar {
    using Sample = Vek8u;
    static constexpr int kPlanes = N, kChannels = 1;
    static Pixel get(const Sample* const* s, int x) {
        return {s[0][x], N > 1 ? s[1][x] : 0, N > 2 ? s[2][x] : 0, N > 3 ? s[3][x] : 0};
    }
    static void put(Sample* const* d, int x, Pixel v) {
        d[0][x] = static_cast<Sample>(v.a);
        if constexpr (N > 1) d[1][x] = static_cast<Sample>(v.b);
        if constexpr (N > 2) d[2][x] = static_cast<Sample>(v.c);
        if constexpr (N > 3) d[3][x] = static_cast<Sample>(v.k);
    }
};

// One 16-bit word a pixel: blue in bits 0-4, green in the GreenBits above
// it, red in the 5 bits above green (555 leaves bit 15 unused: ignored when
// read, 0 when written).  A field widens to 8 bits by repeating its top
// bits below it (31 -> 255); 8 bits narrow by dropping the low bits, so a
// widened value narrows back to itself.
template <int GreenBits>
struct Packed {
    using Sample = Vek16u;
    static constexpr int kPlanes = 1, kChannels = 1;
    static constexpr int kRedShift = 5 + GreenBits;
    static Pixel get(const Sample* const* s, int x) {
        const int w = s[0][x];
        const int r = (w >> kRedShift) & 31, g = (w >> 5) & ((1 << GreenBits) - 1), b = w & 31;
        return {(r << 3) | (r >> 2), (g << (8 - GreenBits)) | (g >> (2 * GreenBits - 8)), (b << 3) | (b >> 2), 0};
    }
    static void put(Sample* const* d, int x, Pixel v) {
        d[0][x] = static_cast<Sample>(((v.a >> 3) << kRedShift) | ((v.b >> (8 - GreenBits)) << 5) | (v.c >> 3));
    }
};
using BGR555 = Packed<5>;
using BGR565 = Packed<6>;

// CMYK, four interleaved channels, read as R = 255 - C, G = 255 - M,
// B = 255 - Y with K passed through (and written the same way back).
struct InvertedCMYK {
    using Sample = Vek8u;
    static constexpr int kPlanes = 1, kChannels = 4;
    static Pixel get(const Sample* const* s, int x) {
        const Sample* p = s[0] + 4 * x;
        return {255 - p[0], 255 - p[1], 255 - p[2], p[3]};
    }
    static void put(Sample* const* d, int x, Pixel v) {
        Sample* p = d[0] + 4 * x;
        p[0] = static_cast<Sample>(255 - v.a), p[1] = static_cast<Sample>(255 - v.b);
        p[2] = static_cast<Sample>(255 - v.c), p[3] = static_cast<Sample>(v.k);
    }
};

// 4:2:2 pixel pairs Y0 Cb Y1 Cr (YUYV order): both pixels of a pair take
// its Cb and Cr.  Read only.
struct YUYV {
    using Sample = Vek8u;
    static constexpr int kPlanes = 1, kChannels = 2;
    static Pixel get(const Sample* const* s, int x) {
        const Sample* pair = s[0] + 4 * (x >> 1);
        return {pair[2 * (x & 1)], pair[1], pair[3], 0};
    }
};

// Bytes of a row of `width` pixels in a layout (a YUYV row holds whole
// pairs).
template <class L>
inline int64_t rowBytes(int width) {
    if constexpr (std::is_same_v<L, YUYV>) return 4 * ((int64_t(width) + 1) / 2);
    return int64_t(width) * L::kChannels * int64_t(sizeof(typename L::Sample));
}

}  // namespace
}  // namespace vek::jpeg

#endif
