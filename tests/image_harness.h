// Guarded images for the tests of the image families.
//
// A GuardedImage holds `height` rows of `rowSamples` samples laid out as a
// caller's image would be: rows a step apart with padding bytes between
// them, optionally bottom-up (negative step) or all on one row (zero step),
// with the first row off the 16-byte alignment.  Everything that is not a
// sample of a row (guard zones around the image and the padding between
// rows) holds a guard byte, so a write outside the region shows.  The block
// ends at a no-access page (guarded_memory.h); an input image ends there
// with its last row in memory (no guard zone after it), so a read past that
// row faults on every target; its alignment then follows from its size.
// compareImageLevels runs an export at level 0 and at every other level on
// the same image and compares every byte of the block, guards and padding
// included.
#ifndef VEK_TESTS_IMAGE_HARNESS_H
#define VEK_TESTS_IMAGE_HARNESS_H

#include <string>
#include <vector>

#include "harness.h"

namespace vektest {

struct ImageLayout {
    int paddingBytes = 0;    // between the end of one row and the start of the next
    bool bottomUp = false;   // negative step: row 0 is the last in memory
    bool zeroStep = false;   // every row is the same memory
    int misalignBytes = 0;   // first row in memory this far past a 16-byte boundary
    bool guardAfter = true;  // false: the last row in memory ends at the page (alignment as it falls)

    std::string describe() const {
        return "padding " + std::to_string(paddingBytes) + (bottomUp ? " bottom-up" : "") +
               (zeroStep ? " zero step" : "") + " misalign " + std::to_string(misalignBytes);
    }
};

// A random layout whose padding and misalignment are whole samples of T.
template <class T>
ImageLayout randomLayout(bool allowZeroStep = false) {
    Rng& r = rng();
    ImageLayout l;
    l.paddingBytes = r() % 3 == 0 ? 0 : static_cast<int>(sizeof(T) * (1 + r() % 24));
    l.bottomUp = r() % 4 == 0;
    l.zeroStep = allowZeroStep && r() % 16 == 0;
    l.misalignBytes = static_cast<int>(sizeof(T) * (r() % (16 / sizeof(T))));
    return l;
}

template <class T>
class GuardedImage {
public:
    static constexpr size_t kGuardZone = 64;
    static constexpr unsigned char kGuardByte = 0xA5;

    GuardedImage(int rowSamples, int height, ImageLayout layout = {})
        : rowSamples_(rowSamples),
          height_(height),
          layout_(layout),
          absStep_(sizeof(T) * rowSamples + layout.paddingBytes),
          memoryRows_(layout.zeroStep ? 1 : height),
          size_(blockBytes(absStep_ * (memoryRows_ - 1) + sizeof(T) * rowSamples, layout)),
          block_(size_) {
        layout_.misalignBytes = static_cast<int>(reinterpret_cast<uintptr_t>(block_.data() + kGuardZone) % 16);
        isSample_.assign(size_, false);
        for (int m = 0; m < memoryRows_; ++m)
            for (size_t b = 0; b < sizeof(T) * rowSamples; ++b) isSample_[kGuardZone + m * absStep_ + b] = true;
        fill([](int, int) { return randomValue<T>(); });
    }

    int rowSamples() const { return rowSamples_; }
    int height() const { return height_; }
    const ImageLayout& layout() const { return layout_; }

    // The image as a function sees it: its first row and its step.
    T* origin() { return row(0); }
    int step() const {
        if (layout_.zeroStep) return 0;
        return static_cast<int>(layout_.bottomUp ? -static_cast<ptrdiff_t>(absStep_) : absStep_);
    }
    T* row(int y) {
        const int m = layout_.zeroStep ? 0 : (layout_.bottomUp ? height_ - 1 - y : y);
        return reinterpret_cast<T*>(block_.data() + kGuardZone + m * absStep_);
    }
    T& at(int sample, int y) { return row(y)[sample]; }

    // Samples from value(sample, row); guards everywhere else.
    template <class F>
    void fill(F value) {
        memset(block_.data(), kGuardByte, size_);
        for (int y = 0; y < height_; ++y)
            for (int i = 0; i < rowSamples_; ++i) row(y)[i] = value(i, y);
    }

    bool guardsIntact() const {
        for (size_t i = 0; i < size_; ++i)
            if (!isSample_[i] && block_.data()[i] != kGuardByte) return false;
        return true;
    }
    std::vector<unsigned char> raw() const { return std::vector<unsigned char>(block_.data(), block_.data() + size_); }
    void setRaw(const std::vector<unsigned char>& v) { memcpy(block_.data(), v.data(), size_); }

    // The samples, row by row.
    std::vector<T> samples() {
        std::vector<T> v;
        for (int y = 0; y < height_; ++y) v.insert(v.end(), row(y), row(y) + rowSamples_);
        return v;
    }

private:
    // The guard zone, the rows, and after an output's rows a guard zone and
    // the slack before the page that puts the first row at its misalignment.
    static size_t blockBytes(size_t span, const ImageLayout& l) {
        const size_t tail = l.guardAfter ? kGuardZone + (16 - (span + l.misalignBytes) % 16) % 16 : 0;
        return kGuardZone + span + tail;
    }

    int rowSamples_, height_;
    ImageLayout layout_;
    size_t absStep_;
    int memoryRows_;
    size_t size_;
    GuardedBlock block_;
    std::vector<bool> isSample_;
};

// Runs call(level) at level 0 and every other available level, the output
// image restored before each run, and checks that level 0 wrote only samples
// and that every level leaves the same status and the same bytes.
template <class T, class Call>
void compareImageLevels(GuardedImage<T>& out, Call call, const std::string& what) {
    const std::vector<unsigned char> initial = out.raw();
    const int refStatus = call(0);
    ASSERT_TRUE(out.guardsIntact()) << "level 0 wrote outside the region; " << what;
    const std::vector<unsigned char> ref = out.raw();
    for (int level : availableLevels()) {
        if (level == 0) continue;
        out.setRaw(initial);
        const int status = call(level);
        ASSERT_EQ(status, refStatus) << "level " << level << "; " << what;
        const std::vector<unsigned char> got = out.raw();
        for (size_t i = 0; i < got.size(); ++i)
            ASSERT_EQ(+got[i], +ref[i]) << "level " << level << " byte " << i << " of the block; " << what;
    }
}

// Calls that must fail: each level returns `expected` and leaves the image
// exactly as it was.
template <class T, class Call>
void expectRejectedOnEveryLevel(GuardedImage<T>& image, int expected, const std::string& what, Call call) {
    const std::vector<unsigned char> initial = image.raw();
    for (int level : availableLevels()) {
        EXPECT_EQ(call(level), expected) << "level " << level << "; " << what;
        EXPECT_TRUE(image.raw() == initial) << "level " << level << " wrote on failure; " << what;
        image.setRaw(initial);
    }
}

}  // namespace vektest

#endif
