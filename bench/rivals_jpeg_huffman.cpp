// libjpeg-turbo beside the JPEG Huffman cases: the entropy decoding of the
// whole grey photograph (jpeg_read_coefficients: headers and Huffman
// decoding, no transform) and its entropy encoding with the typical tables
// (jpeg_write_coefficients).
#include <stdio.h>
#include <stdlib.h>

#include <jpeglib.h>

#include "bench_cases.h"
#include "jpeg_photo.h"

namespace vekbench {
namespace {

struct Coefficients {
    jpeg_decompress_struct d;
    jpeg_error_mgr err;
    jvirt_barray_ptr* arrays = nullptr;
    void read() {
        const std::vector<uint8_t>& file = greyFile();
        jpeg_mem_src(&d, file.data(), static_cast<unsigned long>(file.size()));
        jpeg_read_header(&d, TRUE);
        arrays = jpeg_read_coefficients(&d);
    }
    Coefficients() {
        d.err = jpeg_std_error(&err);
        jpeg_create_decompress(&d);
    }
    ~Coefficients() { jpeg_destroy_decompress(&d); }
};

VEK_BENCH_RIVAL(libjpegEntropyDecode, "vekiDecodeHuffman8x8_JPEG_1u16s_C1/photo1080p", "libjpeg-turbo", [] {
    Coefficients c;
    c.read();
    jpeg_finish_decompress(&c.d);
});

VEK_BENCH_RIVAL(libjpegEntropyEncode, "vekiEncodeHuffman8x8_JPEG_16s1u_C1/photo1080p", "libjpeg-turbo", [] {
    static Coefficients* source = [] {
        Coefficients* c = new Coefficients;
        c->read();
        return c;
    }();
    static std::vector<unsigned char> out(greyFile().size() * 2 + 65536);
    jpeg_compress_struct w;
    jpeg_error_mgr err;
    w.err = jpeg_std_error(&err);
    jpeg_create_compress(&w);
    jpeg_copy_critical_parameters(&source->d, &w);
    unsigned char* mem = out.data();
    unsigned long size = out.size();
    jpeg_mem_dest(&w, &mem, &size);
    jpeg_write_coefficients(&w, source->arrays);
    jpeg_finish_compress(&w);
    jpeg_destroy_compress(&w);
});

}  // namespace
}  // namespace vekbench
