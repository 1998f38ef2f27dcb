// libjpeg-turbo's integer DCTs beside the block cases.  Its shared library
// exports the portable C jpeg_fdct_islow and jpeg_idct_islow (its own SIMD
// versions are internal), so these columns are libjpeg-turbo's C code.
// The inverse needs a decompressor's range-limit table and a multiplier
// table; both are set up here as jdmaster.c and jddctmgr.c would.
#include <stdio.h>
#include <string.h>

#include <vector>

#include "bench_cases.h"
#include "bench_jpeg_dct.h"

extern "C" {
#include <jpeglib.h>
// Not in the public headers: the integer DCT entry points (jdct.h).  With
// libjpeg-turbo's SIMD build a DCTELEM and an ISLOW multiplier are shorts.
typedef short DCTELEM;
void jpeg_fdct_islow(DCTELEM* data);
void jpeg_idct_islow(j_decompress_ptr cinfo, jpeg_component_info* compptr, JCOEFPTR coef_block, JSAMPARRAY output_buf,
                     JDIMENSION output_col);
}

namespace vekbench {
namespace {

struct Idct {
    jpeg_decompress_struct cinfo;
    jpeg_component_info component;
    std::vector<JSAMPLE> range;
    short multipliers[64];
    JSAMPLE out[64];
    JSAMPROW rows[8];
    Idct() : range(5 * 256 + 128) {
        memset(&cinfo, 0, sizeof cinfo);
        memset(&component, 0, sizeof component);
        JSAMPLE* table = range.data() + 256;  // as prepare_range_limit_table does
        cinfo.sample_range_limit = table;
        for (int i = 0; i < 256; ++i) table[i] = JSAMPLE(i);
        table += 128;
        for (int i = 128; i < 512; ++i) table[i] = 255;
        memset(table + 512, 0, 384);
        memcpy(table + 1024 - 128, cinfo.sample_range_limit, 128);
        for (int i = 0; i < 64; ++i) multipliers[i] = short(jpegBenchData().invTable[i]);
        component.dct_table = multipliers;
        for (int r = 0; r < 8; ++r) rows[r] = out + 8 * r;
    }
    void run() { jpeg_idct_islow(&cinfo, &component, const_cast<JCOEFPTR>(jpegBenchData().coefficients), rows, 0); }
};

VEK_BENCH_RIVAL(fdctIslow, "vekiDCT8x8Fwd_16s_C1R", "libjpeg-turbo C", [] {
    DCTELEM block[64];
    memcpy(block, jpegBenchData().levelShifted, sizeof block);
    jpeg_fdct_islow(block);
});
VEK_BENCH_RIVAL(idctIslow, "vekiDCTQuantInv8x8LS_JPEG_16s8u_C1R", "libjpeg-turbo C", [] {
    static Idct idct;
    idct.run();
});
VEK_BENCH_RIVAL(idctIslowLlm, "vekiDCTQuantInv8x8LS_LLM_JPEG_16s8u_C1R", "libjpeg-turbo C", [] {
    static Idct idct;
    idct.run();
});

}  // namespace
}  // namespace vekbench
