// OpenJPEG as the client of the reversible path: a 12-bit natural-looking
// RGB image encoded losslessly (reversible 5/3, one decomposition level,
// with and without the component transform) and decoded at reduce = 1,
// which gives the LL band of the encoder's transform put back through the
// inverse RCT and the level shift.  The same image through our level
// shift, forward RCT and 5/3 column and row passes, its LL band through our
// inverse RCT and the level shift, must give the same samples wherever
// OpenJPEG did not clamp them to 0..4095.
#include <openjpeg.h>

#include <cmath>

#include "jpeg2000_lines.h"

namespace vektest {
namespace {

// ---- OpenJPEG in memory ---------------------------------------------------------------

struct Memory {
    std::vector<unsigned char> bytes;
    size_t at = 0;
};
OPJ_SIZE_T writeBytes(void* p, OPJ_SIZE_T n, void* user) {
    auto* m = static_cast<Memory*>(user);
    m->bytes.insert(m->bytes.end(), static_cast<unsigned char*>(p), static_cast<unsigned char*>(p) + n);
    return n;
}
OPJ_SIZE_T readBytes(void* p, OPJ_SIZE_T n, void* user) {
    auto* m = static_cast<Memory*>(user);
    if (m->at >= m->bytes.size()) return OPJ_SIZE_T(-1);
    n = std::min<OPJ_SIZE_T>(n, m->bytes.size() - m->at);
    memcpy(p, m->bytes.data() + m->at, n);
    m->at += n;
    return n;
}
OPJ_OFF_T skipBytes(OPJ_OFF_T n, void* user) {
    static_cast<Memory*>(user)->at += size_t(n);
    return n;
}
OPJ_BOOL seekBytes(OPJ_OFF_T n, void* user) {
    static_cast<Memory*>(user)->at = size_t(n);
    return OPJ_TRUE;
}
opj_stream_t* memoryStream(Memory& m, bool input) {
    opj_stream_t* s = opj_stream_create(1 << 16, input ? OPJ_TRUE : OPJ_FALSE);
    opj_stream_set_user_data(s, &m, nullptr);
    if (input) {
        opj_stream_set_read_function(s, readBytes);
        opj_stream_set_user_data_length(s, m.bytes.size());
    } else {
        opj_stream_set_write_function(s, writeBytes);
    }
    opj_stream_set_skip_function(s, skipBytes);
    opj_stream_set_seek_function(s, seekBytes);
    return s;
}

// Lossless 5/3 with one decomposition level, then the decode at reduce = 1:
// three planes of ceil(w/2) x ceil(h/2).
std::vector<std::vector<int>> openjpegReduced(const std::vector<std::vector<int>>& planes, int w, int h, bool mct) {
    opj_image_cmptparm_t parms[3] = {};
    for (auto& c : parms) c.dx = c.dy = 1, c.w = w, c.h = h, c.prec = 12, c.sgnd = 0;
    opj_image_t* image = opj_image_create(3, parms, OPJ_CLRSPC_SRGB);
    image->x1 = w, image->y1 = h;
    for (int c = 0; c < 3; ++c) std::copy(planes[c].begin(), planes[c].end(), image->comps[c].data);
    opj_cparameters_t enc;
    opj_set_default_encoder_parameters(&enc);
    enc.tcp_numlayers = 1, enc.tcp_rates[0] = 0, enc.cp_disto_alloc = 1;
    enc.irreversible = 0, enc.numresolution = 2, enc.tcp_mct = mct ? 1 : 0;
    Memory code;
    opj_codec_t* encoder = opj_create_compress(OPJ_CODEC_J2K);
    opj_stream_t* out = memoryStream(code, false);
    const bool encoded = opj_setup_encoder(encoder, &enc, image) && opj_start_compress(encoder, image, out) &&
                         opj_encode(encoder, out) && opj_end_compress(encoder, out);
    opj_stream_destroy(out), opj_destroy_codec(encoder), opj_image_destroy(image);
    EXPECT_TRUE(encoded);

    opj_dparameters_t dec;
    opj_set_default_decoder_parameters(&dec);
    dec.cp_reduce = 1;
    opj_codec_t* decoder = opj_create_decompress(OPJ_CODEC_J2K);
    opj_stream_t* in = memoryStream(code, true);
    opj_image_t* reduced = nullptr;
    const bool decoded = opj_setup_decoder(decoder, &dec) && opj_read_header(in, decoder, &reduced) &&
                         opj_decode(decoder, in, reduced) && opj_end_decompress(decoder, in);
    std::vector<std::vector<int>> result(3);
    if (decoded)
        for (int c = 0; c < 3; ++c)
            result[c].assign(reduced->comps[c].data,
                             reduced->comps[c].data + reduced->comps[c].w * reduced->comps[c].h);
    opj_stream_destroy(in), opj_destroy_codec(decoder), opj_image_destroy(reduced);
    EXPECT_TRUE(decoded);
    return result;
}

// ---- ours ----------------------------------------------------------------------------------

// The LL band of one level of the 5/3 transform: columns, then rows, each
// line extended symmetrically as JPEG 2000 prescribes.
std::vector<Vek32s> lowLow(const std::vector<Vek32s>& plane, int w, int h) {
    const int m = 2;  // margin: the 5/3 reads two samples before a line and one after
    const int ew = w + 2 * m, eh = h + 2 * m;
    std::vector<Vek32s> ext(size_t(ew) * eh), colLow(size_t(ew) * (h / 2)), colHigh(colLow.size());
    for (int y = -m; y < h + m; ++y)
        for (int x = -m; x < w + m; ++x)
            ext[size_t(y + m) * ew + x + m] = plane[size_t(reflectPosition(y, h)) * w + reflectPosition(x, w)];
    const VekiSize cols{ew, h / 2};
    EXPECT_EQ(vekiWTFwdCol_B53_JPEG2K_32s_C1R(ext.data() + size_t(m) * ew, ew * 4, colLow.data(), ew * 4,
                                              colHigh.data(), ew * 4, cols, 0),
              StatusOk);
    std::vector<Vek32s> low(size_t(w / 2) * (h / 2)), high(low.size());
    EXPECT_EQ(vekiWTFwdRow_B53_JPEG2K_32s_C1R(colLow.data() + m, ew * 4, low.data(), w / 2 * 4, high.data(), w / 2 * 4,
                                              {w / 2, h / 2}, 0),
              StatusOk);
    return low;
}

// Smooth shapes, edges and a little noise, the channels correlated, in the
// middle of the 12-bit range.
std::vector<std::vector<int>> naturalImage(int w, int h) {
    std::vector<std::vector<int>> planes(3, std::vector<int>(size_t(w) * h));
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const double shade = 900 * std::sin(x * 0.07) * std::cos(y * 0.05) + 300 * ((x / 17 + y / 13) % 2);
            for (int c = 0; c < 3; ++c) {
                const double tint = (c - 1) * 150 * std::sin((x + y) * 0.03 + c);
                planes[c][size_t(y) * w + x] = int(2048 + shade + tint) + int(rng()() % 41) - 20;
            }
        }
    return planes;
}

TEST(Jpeg2000OpenJpeg, ReducedDecodeIsOurLowLowBandThroughTheInverseRct) {
    const int w = 96, h = 80;
    const std::vector<std::vector<int>> image = naturalImage(w, h);
    for (const bool mct : {false, true}) {
        const std::vector<std::vector<int>> theirs = openjpegReduced(image, w, h, mct);
        ASSERT_EQ(theirs[0].size(), size_t(w / 2) * (h / 2));
        std::vector<std::vector<Vek32s>> planes(3), ll(3);
        for (int c = 0; c < 3; ++c)
            for (int v : image[c]) planes[c].push_back(v - 2048);  // the level shift
        Vek32s* p[3] = {planes[0].data(), planes[1].data(), planes[2].data()};
        if (mct) {
            ASSERT_EQ(vekiRCTFwd_JPEG2K_32s_P3IR(p, w * 4, {w, h}), StatusOk);
        }
        for (int c = 0; c < 3; ++c) ll[c] = lowLow(planes[c], w, h);
        Vek32s* q[3] = {ll[0].data(), ll[1].data(), ll[2].data()};
        if (mct) {
            ASSERT_EQ(vekiRCTInv_JPEG2K_32s_P3IR(q, w / 2 * 4, {w / 2, h / 2}), StatusOk);
        }
        int clamped = 0;
        for (int c = 0; c < 3; ++c)
            for (size_t i = 0; i < ll[c].size(); ++i) {
                const int ours = ll[c][i] + 2048, clamp = ours < 0 ? 0 : (ours > 4095 ? 4095 : ours);
                clamped += clamp != ours;
                ASSERT_EQ(theirs[c][i], clamp) << "component " << c << " sample " << i << " mct " << mct;
            }
        EXPECT_LT(clamped, 10);
    }
}

}  // namespace
}  // namespace vektest
