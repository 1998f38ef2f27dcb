// Blocks in guarded memory for the video tests.
//
// An input block is the rows a function may read, laid out with padding
// between rows, top-down or bottom-up, in memory whose last byte is the
// last byte before a no-access page: a read one byte past what the block
// needs (one more row, one more column) faults on every target.  An output
// block lives in a GuardedArray whose padding and surroundings hold guard
// bytes, so compareLevels sees any write outside the block.  The random
// layouts and modes of each round are drawn from rng().
#ifndef VEK_TESTS_VIDEO_BLOCKS_H
#define VEK_TESTS_VIDEO_BLOCKS_H

#include <string>
#include <vector>

#include "harness.h"

namespace vektest {

struct BlockLayout {
    int padding = 0;  // samples between the end of a row and the start of the next
    bool bottomUp = false;
    std::string describe() const { return "padding " + std::to_string(padding) + (bottomUp ? " bottom-up" : ""); }
};
inline BlockLayout randomBlockLayout() {
    BlockLayout l;
    l.padding = rng()() % 3 ? static_cast<int>(rng()() % 40) : 0;
    l.bottomUp = rng()() % 4 == 0;
    return l;
}

// The element index of sample (x, y) in a span of rows `width + padding`
// apart, row 0 last in memory when bottom-up.
inline int blockIndex(int x, int y, int width, int rows, const BlockLayout& l) {
    return (l.bottomUp ? rows - 1 - y : y) * (width + l.padding) + x;
}
inline int blockSpan(int width, int rows, const BlockLayout& l) { return (rows - 1) * (width + l.padding) + width; }
template <class T>
int blockStep(int width, const BlockLayout& l) {
    return (l.bottomUp ? -1 : 1) * (width + l.padding) * int(sizeof(T));
}

// Samples from value(x, y); the padding holds guard bytes.
template <class T>
class InputBlock {
public:
    template <class Value>
    InputBlock(int width, int rows, const BlockLayout& layout, Value value)
        : width_(width), rows_(rows), layout_(layout), memory_(blockSpan(width, rows, layout)) {
        memset(memory_.data(), kGuard, sizeof(T) * memory_.size());
        for (int y = 0; y < rows; ++y)
            for (int x = 0; x < width; ++x) at(x, y) = value(x, y);
    }
    T& at(int x, int y) { return memory_[blockIndex(x, y, width_, rows_, layout_)]; }
    const T* origin() { return &at(0, 0); }
    int step() const { return blockStep<T>(width_, layout_); }

private:
    int width_, rows_;
    BlockLayout layout_;
    InputArray<T> memory_;
};

// Random pixels: uniform, or a smooth ramp with noise (where half-sample
// averages and small differences matter), or all one extreme.
inline std::vector<Vek8u> randomPixels(int n) {
    std::vector<Vek8u> v(n);
    const int kind = rng()() % 4, base = rng()() % 256;
    for (int i = 0; i < n; ++i) {
        if (kind == 0)
            v[i] = static_cast<Vek8u>(rng()() % 2 ? 255 : 0);
        else if (kind == 1)
            v[i] = static_cast<Vek8u>((base + i / 3 + rng()() % 3) & 255);
        else
            v[i] = static_cast<Vek8u>(rng()());
    }
    return v;
}

// An input block of random pixels, width x rows.
inline InputBlock<Vek8u> randomPixelBlock(int width, int rows) {
    const std::vector<Vek8u> pixels = randomPixels(width * rows);
    return InputBlock<Vek8u>(width, rows, randomBlockLayout(), [&](int x, int y) { return pixels[y * width + x]; });
}

// An output block of width x rows inside a GuardedArray; the samples start
// random, the padding holds guards.
template <class T>
struct OutputBlock {
    int width, rows;
    BlockLayout layout;
    GuardedArray<T> memory;
    std::vector<T> initial;
    OutputBlock(int w, int h, const BlockLayout& l)
        : width(w), rows(h), layout(l), memory(blockSpan(w, h, l)), initial(memory.size()) {
        memset(initial.data(), kGuard, sizeof(T) * initial.size());
        for (int y = 0; y < rows; ++y)
            for (int x = 0; x < width; ++x) initial[blockIndex(x, y, w, h, l)] = randomValue<T>();
        memory.fill(initial);
    }
    T* origin() { return &memory[blockIndex(0, 0, width, rows, layout)]; }
    int step() const { return blockStep<T>(width, layout); }
    T at(int x, int y) { return memory[blockIndex(x, y, width, rows, layout)]; }
};

// The modes of a round: the four predictions and both rounding controls
// in turn, and now and then bits that must be ignored.
inline int roundMode(int round) {
    const int mode = 4 * (round % 4);
    return rng()() % 4 ? mode : mode | (static_cast<int>(rng()()) & ~12);
}
inline int roundControlOf(int round) { return (round / 4) % 2; }

// The prediction as the rounded mean of its taps (1, 2 or 4 samples of the
// reference, halves up), less the rounding control for 2 and 4 taps.
inline int referencePrediction(InputBlock<Vek8u>& ref, int x, int y, int mode, int rc, int dx) {
    const int hOff = (mode & 8) ? dx : 0, vOff = (mode & 4) ? 1 : 0;
    const int taps = (hOff ? 2 : 1) * (vOff ? 2 : 1);
    int sum = 0;
    for (int v = 0; v <= vOff; v += 1)
        for (int h = 0; h <= hOff; h += dx) sum += ref.at(x + h, y + v);
    return taps == 1 ? sum : (sum + taps / 2 - rc) / taps;
}

// The reference a mode reads: one more column (dx bytes) and one more row
// when the mode needs them.
inline InputBlock<Vek8u> referenceFor(int width, int rows, int mode, int dx) {
    return randomPixelBlock(width + ((mode & 8) ? dx : 0), rows + ((mode & 4) ? 1 : 0));
}

}  // namespace vektest

#endif
