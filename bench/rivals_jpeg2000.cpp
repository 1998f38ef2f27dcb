// OpenJPEG beside the two-dimensional 9/7 level, for scale: its whole
// lossless encode (reversible 5/3, one decomposition level, entropy coding
// included) of one 12-bit component of the same 1024 x 1024 tile, into
// memory.  It does far more than one level of a transform; the column says
// what share of an encoder's time the level is.
#include <openjpeg.h>
#include <string.h>

#include <memory>
#include <string>
#include <vector>

#include "bench_cases.h"
#include "bench_jpeg2000.h"

namespace {

OPJ_SIZE_T discardBytes(void*, OPJ_SIZE_T n, void*) { return n; }
OPJ_OFF_T skipBytes(OPJ_OFF_T n, void*) { return n; }
OPJ_BOOL seekBytes(OPJ_OFF_T, void*) { return OPJ_TRUE; }

std::function<void()> openjpegEncode() {
    constexpr int n = vekbench::kLevelSide;
    auto samples = std::make_shared<std::vector<int>>(size_t(n) * n);
    uint32_t state = 2026;
    for (int& x : *samples) state = state * 1664525u + 1013904223u, x = int((state >> 8) & 0xFFF);
    return [samples] {
        opj_image_cmptparm_t parm = {};
        parm.dx = parm.dy = 1, parm.w = n, parm.h = n, parm.prec = 12;
        opj_image_t* image = opj_image_create(1, &parm, OPJ_CLRSPC_GRAY);
        image->x1 = n, image->y1 = n;
        memcpy(image->comps[0].data, samples->data(), samples->size() * sizeof(int));
        opj_cparameters_t p;
        opj_set_default_encoder_parameters(&p);
        p.tcp_numlayers = 1, p.tcp_rates[0] = 0, p.cp_disto_alloc = 1, p.irreversible = 0, p.numresolution = 2;
        opj_codec_t* codec = opj_create_compress(OPJ_CODEC_J2K);
        opj_stream_t* out = opj_stream_create(1 << 20, OPJ_FALSE);
        opj_stream_set_write_function(out, discardBytes);
        opj_stream_set_skip_function(out, skipBytes);
        opj_stream_set_seek_function(out, seekBytes);
        if (opj_setup_encoder(codec, &p, image) && opj_start_compress(codec, image, out) && opj_encode(codec, out))
            opj_end_compress(codec, out);
        opj_stream_destroy(out), opj_destroy_codec(codec), opj_image_destroy(image);
    };
}

const std::string kCase =
    "vekiWTFwd_D97_JPEG2K_16s_C1R/" + std::to_string(vekbench::kLevelSide) + "x" + std::to_string(vekbench::kLevelSide);

}  // namespace

VEK_BENCH_RIVAL(openjpegLossless, kCase, "OpenJPEG", openjpegEncode());
