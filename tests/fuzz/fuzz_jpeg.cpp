// libFuzzer target: the JPEG decoder, whole files and bare entropy-coded
// data.  Any input, read as a file by the `vek jpeg` codec's reader, must
// give coefficients or a message, within 64 MiB of coefficients, and
// coefficients read give pixels at one of the four scales; read as
// the entropy-coded segment of one scan (the first bytes choose the scan
// kind, its band and whether a table comes from the input), every block
// call must write only its 64 coefficients, and a call that fails must
// leave the block, the position and the state as they were.  ASan sees
// every read past the input, which libFuzzer hands over in a block of its
// exact size.
//
// Build and run (clang with libFuzzer, ASan and UBSan):
//   FUZZ_TARGET=fuzz_jpeg tests/fuzz/build-and-run.sh [seconds]
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "examples/jpeg_codec/jpeg_coefficients.h"
#include "examples/jpeg_codec/jpeg_pixels.h"
#include "examples/jpeg_codec/jpeg_tables.h"
#include "vek.h"

namespace {

[[noreturn]] void failWith(const char* what) {
    fprintf(stderr, "fuzz_jpeg: %s\n", what);
    abort();
}

template <class T>
struct Block8 {  // aligned caller-owned memory for a table or state
    explicit Block8(VekStatus(VEK_CALL* getSize)(int*)) {
        int size = 0;
        getSize(&size);
        memory.assign((size_t(size) + 7) / 8, 0);
    }
    T* get() { return reinterpret_cast<T*>(memory.data()); }
    std::vector<Vek64u> memory;
};

void fuzzScan(const uint8_t* data, size_t size) {
    if (size < 4) return;
    const int kind = data[0] % 5, ss = 1 + data[1] % 63, al = data[2] % 14;
    const int se = ss + data[3] % (64 - ss);
    data += 4;
    size -= 4;
    Block8<VekDecodeHuffmanSpec> dc(vekiDecodeHuffmanSpecGetSize_JPEG_8u), ac(vekiDecodeHuffmanSpecGetSize_JPEG_8u);
    vekiDecodeHuffmanSpecInit_JPEG_8u(vekjpeg::kLuminanceDc.bits, vekjpeg::kLuminanceDc.values, dc.get());
    vekiDecodeHuffmanSpecInit_JPEG_8u(vekjpeg::kLuminanceAc.bits, vekjpeg::kLuminanceAc.values, ac.get());
    // An odd kind byte takes the AC table from the input: 16 counts, values.
    if (data[-4] & 0x80 && size >= 16) {
        int count = 0;
        for (int i = 0; i < 16; ++i) count += data[i];
        if (size >= size_t(16 + count) && count <= 256) {
            vekiDecodeHuffmanSpecInit_JPEG_8u(data, data + 16, ac.get());
            data += 16 + count;
            size -= size_t(16 + count);
        }
    }
    if (size == 0) return;
    Block8<VekDecodeHuffmanState> state(vekiDecodeHuffmanStateGetSize_JPEG_8u);
    vekiDecodeHuffmanStateInit_JPEG_8u(state.get());
    Vek16s guarded[64 + 16];
    Vek16s* block = guarded + 8;
    for (Vek16s& v : guarded) v = 0x5A5A;
    Vek16s lastDc = 0;
    int pos = 0, marker = 0;
    const int len = int(size);
    for (int calls = 0; calls < 4096; ++calls) {
        Vek16s before[64];
        memcpy(before, block, sizeof before);
        const int posBefore = pos;
        const std::vector<Vek64u> stateBefore = state.memory;
        VekStatus s = StatusOk;
        switch (kind) {
        case 0:
            s = vekiDecodeHuffman8x8_JPEG_1u16s_C1(data, len, &pos, block, &lastDc, &marker, dc.get(), ac.get(),
                                                   state.get());
            break;
        case 1:
            s = vekiDecodeHuffman8x8_DCFirst_JPEG_1u16s_C1(data, len, &pos, block, &lastDc, &marker, al, dc.get(),
                                                           state.get());
            break;
        case 2:
            s = vekiDecodeHuffman8x8_DCRefine_JPEG_1u16s_C1(data, len, &pos, block, &marker, al, state.get());
            break;
        case 3:
            s = vekiDecodeHuffman8x8_ACFirst_JPEG_1u16s_C1(data, len, &pos, block, &marker, ss, se, al, ac.get(),
                                                           state.get());
            break;
        default:
            s = vekiDecodeHuffman8x8_ACRefine_JPEG_1u16s_C1(data, len, &pos, block, &marker, ss, se, al, ac.get(),
                                                            state.get());
        }
        for (int i = 0; i < 8; ++i)
            if (guarded[i] != 0x5A5A || guarded[72 + i] != 0x5A5A) failWith("a decoder wrote outside its block");
        if (pos < 0 || pos > len) failWith("the position left the input");
        if (s != StatusOk) {
            if (memcmp(before, block, sizeof before) || pos != posBefore || stateBefore != state.memory)
                failWith("a failing call changed its block, position or state");
            // Go on past the trouble, as a tolerant caller would.
            if (pos >= len) break;
            ++pos;
            vekiDecodeHuffmanStateInit_JPEG_8u(state.get());
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    vekjpeg::CoefficientImage img;
    if (vekjpeg::readJpeg(data, size, img, size_t(64) << 20).empty() && long(img.width) * img.height <= (1 << 22)) {
        vekjpeg::Image pixels;
        vekjpeg::coefficientsToPixels(img, 1 << (size % 4), pixels);
    }
    fuzzScan(data, size);
    return 0;
}
