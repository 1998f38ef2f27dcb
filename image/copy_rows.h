// Row loops and image loops of the copy family, written once for every
// level.
//
// Included inside each level's namespace (plain, sse, ...), before the
// level's own vector kernels; everything has internal linkage, so each level
// gets its own copy compiled with its own instruction set.
//
// A row operation is split in two: a vector kernel that does as many pixels
// as it can and says how many (the templates Vec... below, which do nothing
// unless a level specialises them), and the scalar loop that finishes the
// row.  The plain level specialises nothing and so runs the scalar loops
// alone; they are its reference code.  The image loops (row addressing,
// entry checks, contiguous regions as one row) are shared by all levels, so
// every level visits rows in the same order: with a zero or negative step,
// or in place, each level then gives the same result.
#ifndef VEK_IMAGE_COPY_ROWS_H
#define VEK_IMAGE_COPY_ROWS_H

namespace {

using vek::image::checkBorder;
using vek::image::checkMirror;
using vek::image::checkPointersAndRoi;
using vek::image::checkSwap;
using vek::image::rowAt;
using vek::image::sampleBytes;

// ---- vector kernels: none unless the level provides them ---------------------
// Each works on whole pixels from the start of the row and returns the number
// of pixels it did (0 here); the scalar code does the rest.

// d[0..n) = v, for samples of S bytes.
template <int S>
struct VecFill {
    template <class T>
    static int run(T*, int, T) {
        return 0;
    }
};
// Every third byte of 3n - 2 bytes from d.
template <class T>
struct VecFillEveryThird {
    static int run(T*, int, T) { return 0; }
};
// Channels 0..2 of n four-channel pixels.
template <class T>
struct VecCopyAC4 {
    static int run(const T*, T*, int) { return 0; }
};
// d = s with channels reordered; s may equal d.  A Plan, made once per
// image from the order, holds what the kernel derives from it.
template <class T>
struct VecSwap3 {
    struct Plan {
        explicit Plan(const int*) {}
    };
    static int run(const Plan&, const T*, T*, int) { return 0; }
};
// Three planes of S-byte samples into one three-channel row; with stream,
// the level may bypass the cache for the stores.
template <int S>
struct VecInterleave3 {
    template <class T>
    static int run(const T*, const T*, const T*, T*, int, bool) {
        return 0;
    }
};
// One three-channel row into three planes.
template <int S>
struct VecDeinterleave3 {
    template <class T>
    static int run(const T*, T*, T*, T*, int) {
        return 0;
    }
};
// Out of place only: the first pixels of d = the last ones of s reversed,
// in a way that needs no block of whole vectors; returns how many it wrote
// (all of them, if it finishes the row itself).  kPixels 0: none.
template <int S, int C>
struct RevOverlap {
    static constexpr int kPixels = 0;
    template <class T>
    static int run(const T*, T*, int) {
        return 0;
    }
};
// A block of kPixels pixels of C channels of S-byte samples, loaded and
// stored back with its pixels in reverse order.  kPixels 0: no vector code.
template <int S, int C>
struct RevBlock {
    static constexpr int kPixels = 0;
    struct Block {};
    static Block load(const void*) { return {}; }
    static void storeReversed(void*, const Block&) {}
};

// ---- rows -----------------------------------------------------------------------

template <class T>
void fillRow(T* d, int n, T v) {
    for (int x = VecFill<sizeof(T)>::run(d, n, v); x < n; ++x) d[x] = v;
}

template <class T>
void fillEveryThirdRow(T* d, int n, T v) {
    for (int x = VecFillEveryThird<T>::run(d, n, v); x < n; ++x) d[3 * x] = v;
}

template <class T>
void copyAC4Row(const T* s, T* d, int n) {
    for (int x = VecCopyAC4<T>::run(s, d, n); x < n; ++x) {
        d[4 * x] = s[4 * x];
        d[4 * x + 1] = s[4 * x + 1];
        d[4 * x + 2] = s[4 * x + 2];
    }
}

// All three source samples are read before the pixel is written, so s may
// equal d.
template <class T>
void swapChannelsRow(const T* s, T* d, int n, const int order[3], const typename VecSwap3<T>::Plan& plan) {
    for (int x = VecSwap3<T>::run(plan, s, d, n); x < n; ++x) {
        const T a = s[3 * x + order[0]], b = s[3 * x + order[1]], c = s[3 * x + order[2]];
        d[3 * x] = a;
        d[3 * x + 1] = b;
        d[3 * x + 2] = c;
    }
}

template <class T>
void interleaveRow(const T* a, const T* b, const T* c, T* d, int n, bool stream) {
    for (int x = VecInterleave3<sizeof(T)>::run(a, b, c, d, n, stream); x < n; ++x) {
        d[3 * x] = a[x];
        d[3 * x + 1] = b[x];
        d[3 * x + 2] = c[x];
    }
}

template <class T>
void deinterleaveRow(const T* s, T* a, T* b, T* c, int n) {
    for (int x = VecDeinterleave3<sizeof(T)>::run(s, a, b, c, n); x < n; ++x) {
        a[x] = s[3 * x];
        b[x] = s[3 * x + 1];
        c[x] = s[3 * x + 2];
    }
}

// d = the n pixels of s in reverse order (s and d distinct).
template <class T, int C>
void reverseRow(const T* s, T* d, int n) {
    using R = RevBlock<sizeof(T), C>;
    int x = 0;
    if constexpr (RevOverlap<sizeof(T), C>::kPixels > 0)
        x = RevOverlap<sizeof(T), C>::run(s, d, n);
    else if constexpr (R::kPixels > 0)
        for (; x + R::kPixels <= n; x += R::kPixels) R::storeReversed(d + x * C, R::load(s + (n - x - R::kPixels) * C));
    for (const T* from = s + (n - x - 1) * C; x < n; ++x, from -= C)
        for (int c = 0; c < C; ++c) d[x * C + c] = from[c];
}

// a = b reversed and b = a reversed, for two distinct runs of n pixels.
template <class T, int C>
void exchangeReversed(T* a, T* b, int n) {
    using R = RevBlock<sizeof(T), C>;
    int x = 0;
    if constexpr (R::kPixels > 0) {
        for (; x + R::kPixels <= n; x += R::kPixels) {
            T* far = b + (n - x - R::kPixels) * C;
            const auto fromA = R::load(a + x * C), fromB = R::load(far);
            R::storeReversed(a + x * C, fromB);
            R::storeReversed(far, fromA);
        }
    }
    for (; x < n; ++x) {
        T* far = b + (n - 1 - x) * C;
        for (int c = 0; c < C; ++c) {
            const T t = a[x * C + c];
            a[x * C + c] = far[c];
            far[c] = t;
        }
    }
}

// Reverses a row in place: its two halves trade places reversed; the middle
// pixel of an odd row stays.
template <class T, int C>
void reverseRowInPlace(T* p, int n) {
    exchangeReversed<T, C>(p, p + (n - n / 2) * C, n / 2);
}

// Swaps two rows of the same length through a small stack buffer.
inline void exchangeRows(void* a, void* b, size_t bytes) {
    unsigned char* x = static_cast<unsigned char*>(a);
    unsigned char* y = static_cast<unsigned char*>(b);
    unsigned char buffer[512];
    while (bytes > 0) {
        const size_t n = bytes < sizeof buffer ? bytes : sizeof buffer;
        memcpy(buffer, x, n);
        memcpy(x, y, n);
        memcpy(y, buffer, n);
        x += n, y += n, bytes -= n;
    }
}

// ---- images -----------------------------------------------------------------------

// Row by row, or as one block when both images are contiguous.
template <class T>
VekStatus copyImage(const T* s, int ss, T* d, int ds, VekiSize roi, int channels) {
    if (const VekStatus st = checkPointersAndRoi(roi, s, d)) return st;
    const size_t rowBytes = sampleBytes<T>(int64_t(roi.width) * channels);
    if (static_cast<size_t>(ss) == rowBytes && ss == ds) {
        memcpy(d, s, rowBytes * static_cast<size_t>(roi.height));
        return StatusOk;
    }
    for (int y = 0; y < roi.height; ++y) memcpy(rowAt(d, ds, y), rowAt(s, ss, y), rowBytes);
    return StatusOk;
}

template <class T>
VekStatus copyImageAC4(const T* s, int ss, T* d, int ds, VekiSize roi) {
    if (const VekStatus st = checkPointersAndRoi(roi, s, d)) return st;
    for (int y = 0; y < roi.height; ++y) copyAC4Row(rowAt(s, ss, y), rowAt(d, ds, y), roi.width);
    return StatusOk;
}

template <class T>
VekStatus setImage(T v, T* d, int ds, VekiSize roi) {
    if (const VekStatus st = checkPointersAndRoi(roi, d)) return st;
    for (int y = 0; y < roi.height; ++y) {
        if constexpr (sizeof(T) == 1)
            memset(rowAt(d, ds, y), v, static_cast<size_t>(roi.width));
        else
            fillRow(rowAt(d, ds, y), roi.width, v);
    }
    return StatusOk;
}

template <class T>
VekStatus setImageEveryThird(T v, T* d, int ds, VekiSize roi) {
    if (const VekStatus st = checkPointersAndRoi(roi, d)) return st;
    for (int y = 0; y < roi.height; ++y) fillEveryThirdRow(rowAt(d, ds, y), roi.width, v);
    return StatusOk;
}

// Outputs above this many bytes go past the cache (non-temporal stores,
// where the level has them): they would only evict the caller's data.
constexpr uint64_t kStreamingBytes = 0x200000;

template <class T>
VekStatus planarToInterleaved(const T* const planes[3], int ss, T* d, int ds, VekiSize roi) {
    if (!planes) return StatusNullPointer;
    if (const VekStatus st = checkPointersAndRoi(roi, planes[0], planes[1], planes[2], d)) return st;
    const bool stream = 3 * sampleBytes<T>(int64_t(roi.width) * roi.height) > kStreamingBytes;
    int width = roi.width, height = roi.height;
    const int64_t pixels = int64_t(width) * height;
    if (static_cast<size_t>(ss) == sampleBytes<T>(width) && int64_t(ds) == 3 * int64_t(ss) && pixels <= INT32_MAX)
        width = static_cast<int>(pixels), height = 1;  // contiguous: one long row
    for (int y = 0; y < height; ++y)
        interleaveRow(rowAt(planes[0], ss, y), rowAt(planes[1], ss, y), rowAt(planes[2], ss, y), rowAt(d, ds, y), width,
                      stream);
    return StatusOk;
}

template <class T>
VekStatus interleavedToPlanar(const T* s, int ss, T* const planes[3], int ds, VekiSize roi) {
    if (!s || !planes) return StatusNullPointer;
    if (const VekStatus st = checkPointersAndRoi(roi, planes[0], planes[1], planes[2])) return st;
    for (int y = 0; y < roi.height; ++y)
        deinterleaveRow(rowAt(s, ss, y), rowAt(planes[0], ds, y), rowAt(planes[1], ds, y), rowAt(planes[2], ds, y),
                        roi.width);
    return StatusOk;
}

// Source row i goes to destination row i (flip 1) or height - 1 - i.
template <class T, int C>
VekStatus mirrorImage(const T* s, int ss, T* d, int ds, VekiSize roi, int flip) {
    if (const VekStatus st = checkMirror(roi, flip, s, d)) return st;
    for (int y = 0; y < roi.height; ++y) {
        T* to = rowAt(d, ds, flip == 1 ? y : roi.height - 1 - y);
        if (flip == 0)
            memcpy(to, rowAt(s, ss, y), sampleBytes<T>(int64_t(roi.width) * C));
        else
            reverseRow<T, C>(rowAt(s, ss, y), to, roi.width);
    }
    return StatusOk;
}

// Rows y and height - 1 - y trade places (reversed for flip 2); a middle row
// stays (reversed for flip 2).  Rows that are one row (a zero step) are
// treated as a single row.
template <class T, int C>
VekStatus mirrorImageInPlace(T* p, int step, VekiSize roi, int flip) {
    if (const VekStatus st = checkMirror(roi, flip, p)) return st;
    const int w = roi.width, h = roi.height;
    if (flip == 1) {
        for (int y = 0; y < h; ++y) reverseRowInPlace<T, C>(rowAt(p, step, y), w);
        return StatusOk;
    }
    for (int y = 0; y < h / 2; ++y) {
        T *top = rowAt(p, step, y), *bottom = rowAt(p, step, h - 1 - y);
        if (top == bottom) {
            if (flip == 2) reverseRowInPlace<T, C>(top, w);
        } else if (flip == 0) {
            exchangeRows(top, bottom, sampleBytes<T>(int64_t(w) * C));
        } else {
            exchangeReversed<T, C>(top, bottom, w);
        }
    }
    if (flip == 2 && h % 2) reverseRowInPlace<T, C>(rowAt(p, step, h / 2), w);
    return StatusOk;
}

template <class T>
VekStatus swapChannelsImage(const T* s, int ss, T* d, int ds, VekiSize roi, const int order[3]) {
    if (const VekStatus st = checkSwap(roi, order, s, d)) return st;
    const int o[3] = {order[0], order[1], order[2]};  // the caller's array may lie in the image
    const typename VecSwap3<T>::Plan plan(o);
    for (int y = 0; y < roi.height; ++y) swapChannelsRow(rowAt(s, ss, y), rowAt(d, ds, y), roi.width, o, plan);
    return StatusOk;
}

// The source goes to (left, top); each border pixel takes the value of the
// nearest source pixel: rows of the source are extended left and right, and
// the first and last extended rows are repeated above and below.
template <class T>
VekStatus replicateBorder(const T* s, int ss, VekiSize sr, T* d, int ds, VekiSize dr, int top, int left) {
    if (const VekStatus st = checkBorder(s, sr, d, dr, top, left)) return st;
    const int right = dr.width - left - sr.width;
    const size_t rowBytes = sampleBytes<T>(dr.width);
    for (int y = 0; y < sr.height; ++y) {
        const T* from = rowAt(s, ss, y);
        T* to = rowAt(d, ds, top + y);
        fillRow(to, left, from[0]);
        memcpy(to + left, from, sampleBytes<T>(sr.width));
        fillRow(to + left + sr.width, right, from[sr.width - 1]);
    }
    const T* first = rowAt(d, ds, top);
    const T* last = rowAt(d, ds, top + sr.height - 1);
    for (int y = 0; y < dr.height; ++y) {
        if (y >= top && y < top + sr.height) continue;
        T* to = rowAt(d, ds, y);
        const T* from = y < top ? first : last;
        if (to != from) memcpy(to, from, rowBytes);
    }
    return StatusOk;
}

}  // namespace

#endif
