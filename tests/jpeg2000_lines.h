// Lines, bands and images for the wavelet tests: the symmetric extension a
// caller gives a line and its bands, inputs that end (or begin) at a
// no-access page, and the differential run over several output images.
#ifndef VEK_TESTS_JPEG2000_LINES_H
#define VEK_TESTS_JPEG2000_LINES_H

#include <functional>
#include <string>
#include <vector>

#include "image_harness.h"

namespace vektest {

// Position p of a line of n samples extended symmetrically about its first
// and last samples.
inline int reflectPosition(int p, int n) {
    if (n == 1) return 0;
    const int period = 2 * (n - 1);
    int m = p % period;
    if (m < 0) m += period;
    return m < n ? m : period - m;
}

// The positions of the low and high band's coefficient i.
inline int lowPosition(int i, bool phase1) { return 2 * i + (phase1 ? 1 : 0); }
inline int highPosition(int i, bool phase1) { return 2 * i + (phase1 ? 0 : 1); }

// The indices a pass reads beyond a line or its bands: for a forward pass
// the samples [first, last] around 2w samples, for an inverse the low and
// high coefficients [lowFirst, lowLast], [highFirst, highLast] around w.
struct Reach {
    int first, last;
    int lowFirst, lowLast, highFirst, highLast;
};
inline Reach reachOf(bool nineSeven, bool phase1, int w) {
    const int p = phase1 ? 1 : 0;
    if (nineSeven) return {-4 + p, 2 * w + 2 + p, -1 - p, w + 1 - p, -2, w + 1};
    return {-2 + p, 2 * w + p, -p, w - p, -1, w};
}

// An input image of `height` rows of `width` samples, `step` elements
// apart, whose first sample begins (front) or whose last sample ends (back)
// at a no-access page, so a read before or after it faults natively.
template <class T>
class EdgeInput {
public:
    EdgeInput(int width, int height, int step, bool front)
        : span_(size_t(step) * (height - 1) + width), block_(blockBytes(span_ * sizeof(T), front)) {
        data_ = reinterpret_cast<T*>(block_.data() + (front ? 0 : block_.size() - span_ * sizeof(T)));
        if (front) poisonForSanitizer(data_ + span_, block_.size() - span_ * sizeof(T));
        for (size_t i = 0; i < span_; ++i) data_[i] = randomValue<T>();
    }
    T* data() { return data_; }

private:
    static size_t blockBytes(size_t bytes, bool front) { return front ? (bytes + 4095) / 4096 * 4096 : bytes; }
    size_t span_;
    GuardedBlock block_;
    T* data_;
};

// Runs call(level) at level 0 and every other level, every output image
// restored before each run, and checks that level 0 wrote only samples and
// that every level leaves the same status and bytes.
template <class T, class Call>
void compareOutputs(std::vector<GuardedImage<T>*> outs, Call call, const std::string& what) {
    std::vector<std::vector<unsigned char>> initial, ref;
    for (auto* o : outs) initial.push_back(o->raw());
    const int refStatus = call(0);
    for (auto* o : outs) {
        ASSERT_TRUE(o->guardsIntact()) << "level 0 wrote outside its output; " << what;
        ref.push_back(o->raw());
    }
    for (int level : levelsToCompare()) {
        if (level == 0) continue;
        for (size_t k = 0; k < outs.size(); ++k) outs[k]->setRaw(initial[k]);
        ASSERT_EQ(call(level), refStatus) << "level " << level << "; " << what;
        for (size_t k = 0; k < outs.size(); ++k) {
            const std::vector<unsigned char> got = outs[k]->raw();
            for (size_t i = 0; i < got.size(); ++i)
                ASSERT_EQ(+got[i], +ref[k][i]) << "level " << level << " output " << k << " byte " << i << "; " << what;
        }
    }
}

// A top-down layout for an output (the passes take positive steps only).
template <class T>
ImageLayout outputLayout() {
    ImageLayout l = randomLayout<T>();
    l.bottomUp = false;
    return l;
}

}  // namespace vektest

#endif
