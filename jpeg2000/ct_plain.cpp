// Component transforms, the plain reference: one pixel at a time.
//
// The integer forms compute exactly in 64 bits and reduce each result to
// the sample's width (no saturation).  The float ICT computes in double
// with the constants as doubles, in the order of the formulas, and rounds
// each result once to float; on the x87 unit a DoubleRounding scope makes
// those double operations round as SSE2's do.
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include <type_traits>

#include "core/dispatch.h"
#include "core/plain_float.h"
#include "jpeg2000/ct_checks.h"
#include "jpeg2000/ct_exports.h"

namespace vek::plain {
#include "jpeg2000/ct_walk.h"

namespace {

// The low bits of v as T (two's complement wrap-around).
template <class T>
inline T wrapTo(int64_t v) {
    return static_cast<T>(static_cast<std::make_unsigned_t<T>>(static_cast<uint64_t>(v)));
}

// ---- one pixel -----------------------------------------------------------------

template <class T>
inline void rctForwardPixel(T& p0, T& p1, T& p2) {
    const int64_t r = p0, g = p1, b = p2;
    p0 = wrapTo<T>((r + 2 * g + b) >> 2);
    p1 = wrapTo<T>(b - g);
    p2 = wrapTo<T>(r - g);
}
template <class T>
inline void rctInversePixel(T& p0, T& p1, T& p2) {
    const int64_t y = p0, u = p1, v = p2;
    const int64_t g = y - ((u + v) >> 2);
    p0 = wrapTo<T>(v + g);
    p1 = wrapTo<T>(g);
    p2 = wrapTo<T>(u + g);
}

// Q14 sums rounded by adding one half and shifting.
inline int64_t q14(int64_t sum) { return (sum + 8192) >> 14; }

template <class T>
inline void ictForwardPixel(T& p0, T& p1, T& p2) {
    if constexpr (std::is_floating_point_v<T>) {
        const double r = p0, g = p1, b = p2;
        p0 = static_cast<float>(0.299 * r + 0.587 * g + 0.114 * b);
        p1 = static_cast<float>(-0.16875 * r + -0.33126 * g + 0.5 * b);
        p2 = static_cast<float>(0.5 * r + -0.41869 * g + -0.08131 * b);
    } else {
        const int64_t r = p0, g = p1, b = p2;
        p0 = wrapTo<T>(q14(4899 * r + 9617 * g + 1868 * b));
        p1 = wrapTo<T>(q14(-2765 * r - 5427 * g + 8192 * b));
        p2 = wrapTo<T>(q14(8192 * r - 6860 * g - 1332 * b));
    }
}
template <class T>
inline void ictInversePixel(T& p0, T& p1, T& p2) {
    if constexpr (std::is_floating_point_v<T>) {
        const double y = p0, cb = p1, cr = p2;
        p0 = static_cast<float>(y + 1.402 * cr);
        p1 = static_cast<float>(y + -0.34413 * cb + -0.71414 * cr);
        p2 = static_cast<float>(y + 1.772 * cb);
    } else {
        const int64_t y = p0, cb = p1, cr = p2;
        p0 = wrapTo<T>(y + q14(22970 * cr));
        p1 = wrapTo<T>(y + q14(-5638 * cb - 11700 * cr));
        p2 = wrapTo<T>(y + q14(29032 * cb));
    }
}

// ---- rows ----------------------------------------------------------------------

template <class T, class Pixel>
inline void planesRow(T* p0, T* p1, T* p2, size_t n, Pixel pixel) {
    const DoubleRounding rounding;
    for (size_t i = 0; i < n; ++i) pixel(p0[i], p1[i], p2[i]);
}

template <class T>
void rctForward(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, rctForwardPixel<T>);
}
template <class T>
void rctInverse(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, rctInversePixel<T>);
}
template <class T>
void ictForward(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, ictForwardPixel<T>);
}
template <class T>
void ictInverse(T* p0, T* p1, T* p2, size_t n) {
    planesRow(p0, p1, p2, n, ictInversePixel<T>);
}

template <class T, void (*Pixel)(T&, T&, T&)>
void fromPixels(const T* pixels, T* p0, T* p1, T* p2, size_t n) {
    const DoubleRounding rounding;
    for (size_t i = 0; i < n; ++i) {
        T a = pixels[3 * i], b = pixels[3 * i + 1], c = pixels[3 * i + 2];
        Pixel(a, b, c);
        p0[i] = a, p1[i] = b, p2[i] = c;
    }
}
template <class T, void (*Pixel)(T&, T&, T&)>
void toPixels(const T* p0, const T* p1, const T* p2, T* pixels, size_t n) {
    const DoubleRounding rounding;
    for (size_t i = 0; i < n; ++i) {
        T a = p0[i], b = p1[i], c = p2[i];
        Pixel(a, b, c);
        pixels[3 * i] = a, pixels[3 * i + 1] = b, pixels[3 * i + 2] = c;
    }
}
template <class T>
void rctForwardFromPixels(const T* pixels, T* p0, T* p1, T* p2, size_t n) {
    fromPixels<T, rctForwardPixel<T>>(pixels, p0, p1, p2, n);
}
template <class T>
void rctInverseToPixels(const T* p0, const T* p1, const T* p2, T* pixels, size_t n) {
    toPixels<T, rctInversePixel<T>>(p0, p1, p2, pixels, n);
}
template <class T>
void ictForwardFromPixels(const T* pixels, T* p0, T* p1, T* p2, size_t n) {
    fromPixels<T, ictForwardPixel<T>>(pixels, p0, p1, p2, n);
}
template <class T>
void ictInverseToPixels(const T* p0, const T* p1, const T* p2, T* pixels, size_t n) {
    toPixels<T, ictInversePixel<T>>(p0, p1, p2, pixels, n);
}

}  // namespace

VEK_CT_RCT_MEMBERS
VEK_CT_ICT_16S_MEMBERS
VEK_CT_ICT_32S_MEMBERS
VEK_CT_ICT_32F_MEMBERS

}  // namespace vek::plain
