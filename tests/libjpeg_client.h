// libjpeg-turbo as the tests' independent JPEG client: the natural test
// image decoded to pixels, files compressed from pixels with chosen
// settings, the quantised coefficients of a file as libjpeg reads them,
// and coefficients written back with libjpeg's optimal tables.
#ifndef VEK_TESTS_LIBJPEG_CLIENT_H
#define VEK_TESTS_LIBJPEG_CLIENT_H

#ifdef VEK_HAVE_LIBJPEG
#    include <setjmp.h>
#    include <stdio.h>
#    include <stdlib.h>

#    include <jpeglib.h>
#    ifdef VEK_HAVE_TURBOJPEG
#        include <turbojpeg.h>
#    endif

#    include <fstream>
#    include <iterator>
#    include <string>
#    include <vector>

namespace vektest {

// Pixels: width x height x channels bytes, rows packed.
struct Pixels {
    int width = 0, height = 0, channels = 0;
    std::vector<unsigned char> data;
};

inline std::vector<unsigned char> readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::vector<unsigned char>(std::istreambuf_iterator<char>(in), {});
}

// The natural test image (a photograph of 512x600 pixels, see
// tests/data/README.md).
inline const std::vector<unsigned char>& naturalJpeg() {
    static const std::vector<unsigned char> file = readFile(VEK_TEST_DATA_DIR "/grace_hopper.jpg");
    return file;
}

// A libjpeg decompressor over a file in memory, its header read; destroyed
// with the reader.
struct LibjpegReader {
    jpeg_decompress_struct d;
    jpeg_error_mgr err;
    explicit LibjpegReader(const std::vector<unsigned char>& file) {
        d.err = jpeg_std_error(&err);
        jpeg_create_decompress(&d);
        jpeg_mem_src(&d, file.data(), static_cast<unsigned long>(file.size()));
        jpeg_read_header(&d, TRUE);
    }
    ~LibjpegReader() { jpeg_destroy_decompress(&d); }
    LibjpegReader(const LibjpegReader&) = delete;
    LibjpegReader& operator=(const LibjpegReader&) = delete;
};

inline Pixels libjpegDecode(const std::vector<unsigned char>& file, int channels) {
    LibjpegReader reader(file);
    jpeg_decompress_struct& d = reader.d;
    d.out_color_space = channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_start_decompress(&d);
    Pixels p;
    p.width = int(d.output_width);
    p.height = int(d.output_height);
    p.channels = channels;
    p.data.resize(size_t(p.width) * p.height * channels);
    while (d.output_scanline < d.output_height) {
        JSAMPROW row = &p.data[size_t(d.output_scanline) * p.width * channels];
        jpeg_read_scanlines(&d, &row, 1);
    }
    jpeg_finish_decompress(&d);
    return p;
}

// Sampling: "444", "422", "420" or "gray" (then the pixels must be gray).
struct LibjpegSettings {
    int quality = 75;
    std::string sampling = "420";
    bool progressive = false, optimize = false;
    int restartInterval = 0;
};

inline std::vector<unsigned char> libjpegEncode(const Pixels& p, const LibjpegSettings& s) {
    jpeg_compress_struct c;
    jpeg_error_mgr err;
    c.err = jpeg_std_error(&err);
    jpeg_create_compress(&c);
    unsigned char* mem = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&c, &mem, &size);
    c.image_width = JDIMENSION(p.width);
    c.image_height = JDIMENSION(p.height);
    c.input_components = p.channels;
    c.in_color_space = p.channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&c);
    jpeg_set_quality(&c, s.quality, TRUE);
    if (p.channels == 3) {
        c.comp_info[0].h_samp_factor = s.sampling == "444" ? 1 : 2;
        c.comp_info[0].v_samp_factor = s.sampling == "420" ? 2 : 1;
    }
    c.optimize_coding = s.optimize ? TRUE : FALSE;
    c.restart_interval = static_cast<unsigned>(s.restartInterval);
    c.dct_method = JDCT_ISLOW;
    if (s.progressive) jpeg_simple_progression(&c);
    jpeg_start_compress(&c, TRUE);
    while (c.next_scanline < c.image_height) {
        JSAMPROW row = const_cast<unsigned char*>(&p.data[size_t(c.next_scanline) * p.width * p.channels]);
        jpeg_write_scanlines(&c, &row, 1);
    }
    jpeg_finish_compress(&c);
    std::vector<unsigned char> out(mem, mem + size);
    free(mem);
    jpeg_destroy_compress(&c);
    return out;
}

// The coefficients of every block of every component inside the image,
// component after component, row after row, as libjpeg reads them.
inline std::vector<short> libjpegCoefficients(const std::vector<unsigned char>& file) {
    LibjpegReader reader(file);
    jpeg_decompress_struct& d = reader.d;
    jvirt_barray_ptr* arrays = jpeg_read_coefficients(&d);
    std::vector<short> out;
    for (int ci = 0; ci < d.num_components; ++ci) {
        const jpeg_component_info& comp = d.comp_info[ci];
        for (JDIMENSION by = 0; by < comp.height_in_blocks; ++by) {
            JBLOCKARRAY row =
                (*d.mem->access_virt_barray)(reinterpret_cast<j_common_ptr>(&d), arrays[ci], by, 1, FALSE);
            for (JDIMENSION bx = 0; bx < comp.width_in_blocks; ++bx)
                out.insert(out.end(), row[0][bx], row[0][bx] + DCTSIZE2);
        }
    }
    jpeg_finish_decompress(&d);
    return out;
}

// Quantisation table `index` of a file, in natural order.
inline std::vector<unsigned short> libjpegQuantTable(const std::vector<unsigned char>& file, int index) {
    LibjpegReader reader(file);
    jpeg_decompress_struct& d = reader.d;
    const JQUANT_TBL* table = d.quant_tbl_ptrs[index];
    std::vector<unsigned short> out(table->quantval, table->quantval + DCTSIZE2);
    return out;
}

// The same coefficients, rewritten by libjpeg with its optimal tables.
inline std::vector<unsigned char> libjpegOptimise(const std::vector<unsigned char>& file) {
    LibjpegReader reader(file);
    jpeg_decompress_struct& d = reader.d;
    jpeg_compress_struct c;
    jpeg_error_mgr cerr;
    c.err = jpeg_std_error(&cerr);
    jpeg_create_compress(&c);
    jvirt_barray_ptr* arrays = jpeg_read_coefficients(&d);
    jpeg_copy_critical_parameters(&d, &c);
    c.optimize_coding = TRUE;
    unsigned char* mem = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&c, &mem, &size);
    jpeg_write_coefficients(&c, arrays);
    jpeg_finish_compress(&c);
    std::vector<unsigned char> out(mem, mem + size);
    free(mem);
    jpeg_destroy_compress(&c);
    jpeg_finish_decompress(&d);
    return out;
}

#    ifdef VEK_HAVE_TURBOJPEG
// TurboJPEG's one-call API with the accurate DCT (and, decoding, the
// smooth upsampling that is its default): pixels decoded at a scale of
// 1/denominator, and pixels compressed with sampling "444", "422", "420" or
// "gray".
inline Pixels turboDecode(const std::vector<unsigned char>& file, int channels, int denominator) {
    tjhandle h = tjInitDecompress();
    int width = 0, height = 0, sampling = 0, colourspace = 0;
    tjDecompressHeader3(h, file.data(), static_cast<unsigned long>(file.size()), &width, &height, &sampling,
                        &colourspace);
    Pixels p;
    p.width = (width + denominator - 1) / denominator;
    p.height = (height + denominator - 1) / denominator;
    p.channels = channels;
    p.data.resize(size_t(p.width) * p.height * channels);
    tjDecompress2(h, file.data(), static_cast<unsigned long>(file.size()), p.data.data(), p.width, 0, p.height,
                  channels == 1 ? TJPF_GRAY : TJPF_RGB, TJFLAG_ACCURATEDCT);
    tjDestroy(h);
    return p;
}

inline std::vector<unsigned char> turboEncode(const Pixels& p, int quality, const std::string& sampling) {
    tjhandle h = tjInitCompress();
    unsigned char* mem = nullptr;
    unsigned long size = 0;
    const int subsampling = sampling == "444"   ? TJSAMP_444
                            : sampling == "422" ? TJSAMP_422
                            : sampling == "420" ? TJSAMP_420
                                                : TJSAMP_GRAY;
    tjCompress2(h, p.data.data(), p.width, 0, p.height, p.channels == 1 ? TJPF_GRAY : TJPF_RGB, &mem, &size,
                subsampling, quality, TJFLAG_ACCURATEDCT);
    std::vector<unsigned char> out(mem, mem + size);
    tjFree(mem);
    tjDestroy(h);
    return out;
}
#    endif

}  // namespace vektest

#endif
#endif
