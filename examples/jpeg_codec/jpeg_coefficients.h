// The coefficient side of the `vek jpeg` codec, built on nothing but the
// library's Huffman primitives: a JPEG file read into quantised DCT
// coefficients (markers, tables, baseline and progressive scans, restart
// intervals), and coefficients written as a JFIF file (typical or optimal
// tables, baseline or the usual progressive script).  The pixel side
// (jpeg_pixels.h) turns coefficients into samples and back.
//
// Every failure is a message; nothing here throws or aborts, whatever the
// input.
#ifndef VEK_EXAMPLES_JPEG_COEFFICIENTS_H
#define VEK_EXAMPLES_JPEG_COEFFICIENTS_H

#include <stddef.h>
#include <stdint.h>

#include <functional>
#include <string>
#include <vector>

#include "vek.h"

namespace vekjpeg {

// One component's blocks, whole MCUs of them, row by row; each block is 64
// coefficients in natural order.
struct Component {
    int id = 0, h = 1, v = 1, quantTable = 0;
    int blocksWide = 0, blocksHigh = 0;  // stored: whole MCUs
    int usedWide = 0, usedHigh = 0;      // covering the component's samples
    std::vector<Vek16s> coefficients;
    Vek16s* block(int bx, int by) { return &coefficients[(size_t(by) * size_t(blocksWide) + size_t(bx)) * 64]; }
    const Vek16s* block(int bx, int by) const {
        return &coefficients[(size_t(by) * size_t(blocksWide) + size_t(bx)) * 64];
    }
};

struct CoefficientImage {
    int width = 0, height = 0;
    bool progressive = false;
    int restartInterval = 0;   // MCUs per interval, 0: none
    Vek16u quant[4][64] = {};  // natural order
    std::vector<Component> components;
    int maxH = 1, maxV = 1, mcusWide = 0, mcusHigh = 0;
};

// Block counts from width, height and each component's sampling factors;
// zeroed coefficients (in the memory the components already hold, when
// it is large enough), or, with zero false, coefficients left as that
// memory held them, for a caller that writes every block.  Fails (a
// message) when the coefficients would take more than maxBytes.
std::string layOut(CoefficientImage& img, size_t maxBytes, bool zero = true);
// Every field back to its default, but the components keep their
// coefficient memory for the next image (a decoder or encoder that works
// image after image then allocates, and faults in, nothing new).
void resetKeepingMemory(CoefficientImage& img);

// Reads a whole file.  Accepts 8-bit baseline, extended-sequential and
// progressive Huffman-coded files of 1 or 3 components; refuses the rest
// with a message saying what is unsupported.  The memory img holds is
// reused.
// rowsDone(n), when given, is called whenever a sequential scan of every
// component has completed the blocks of the first n MCU rows, so that a
// decoder can turn them into pixels while they are in the cache.
using RowsDone = std::function<void(int mcuRows)>;
std::string readJpeg(const uint8_t* data, size_t size, CoefficientImage& img, size_t maxBytes = size_t(1) << 30,
                     const RowsDone& rowsDone = nullptr);

struct WriteOptions {
    bool optimize = false;     // optimal Huffman tables (always, when progressive)
    bool progressive = false;  // the usual successive approximation script
    int restartInterval = 0;   // MCUs per restart interval, 0: none
};
// Writes a JFIF file: component 0 uses quantisation table 0 and the
// luminance Huffman tables, the others table 1 and the chrominance ones.
// beforeRow(n), when given, is called before the blocks of MCU row n are
// coded by a sequential scan of every component, so that the caller can
// make the row's coefficients just in time (not with optimize: the
// counting pass needs them all first).
using RowNeeded = std::function<void(int mcuRow)>;
std::string writeJpeg(const CoefficientImage& img, const WriteOptions& options, std::vector<uint8_t>& out,
                      const RowNeeded& beforeRow = nullptr);

}  // namespace vekjpeg

#endif
