// Random image layouts for the conversion and per-pixel arithmetic tests.
//
// An image of `height` rows of `samples` elements, `step` bytes apart, is
// held as one flat span from the first sample of the first row to the last
// sample of the last row.  Sources are InputArrays over that span and
// destinations GuardedArrays: both end at a no-access page (past the last
// row, a read faults and a write faults or spoils a guard), and canaries
// before a destination catch writes there.  The padding between
// rows is part of the span and is filled with a marker: the differential
// harness then sees any write to it as a difference from the marker.
#ifndef VEK_TESTS_IMAGE_CONVERT_HARNESS_H
#define VEK_TESTS_IMAGE_CONVERT_HARNESS_H

#include <string>
#include <vector>

#include "harness.h"

namespace vektest {

struct ImageShape {
    int samples = 1;  // per row (pixels times channels)
    int height = 1;
    int padding = 0;  // elements between rows
    int offset = 0;   // elements the first row is moved from the block start (misalignment)

    template <class T>
    int step() const {
        return (samples + padding) * int(sizeof(T));
    }
    template <class T>
    int span() const {
        return (samples + padding) * (height - 1) + samples;
    }
    bool inRow(int i) const { return i % (samples + padding) < samples; }
    std::string describe() const {
        return std::to_string(samples) + " samples x " + std::to_string(height) + " rows, padding " +
               std::to_string(padding) + ", offset " + std::to_string(offset);
    }
};

// Widths around the vector sizes, odd ones and 1; up to 5 rows; a third of
// the layouts contiguous (one long row).
inline int randomWidth() {
    static const int widths[] = {1, 2, 3, 5, 7, 8, 9, 15, 16, 17, 23, 31, 32, 33, 47, 48, 49, 63, 64, 65, 100, 257};
    return rng()() % 3 ? widths[rng()() % (sizeof widths / sizeof *widths)] : 1 + int(rng()() % 300);
}
inline ImageShape randomShape(int width, int channels, bool contiguous) {
    ImageShape s;
    s.samples = width * channels;
    s.height = 1 + rng()() % 5;
    s.padding = contiguous ? 0 : 1 + rng()() % 9;
    s.offset = rng()() % 8;
    return s;
}

// The span's initial contents: `value()` in the rows, the marker between them.
template <class T, class Value>
std::vector<T> imageContents(const ImageShape& s, Value value) {
    std::vector<T> v(s.span<T>());
    for (int i = 0; i < s.span<T>(); ++i) {
        if (s.inRow(i))
            v[i] = value();
        else
            memset(&v[i], kGuard, sizeof(T));
    }
    return v;
}

}  // namespace vektest

#endif
