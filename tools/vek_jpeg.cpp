// `vek jpeg` (see vek_jpeg.h): binary PPM (P6) and PGM (P5) files of 8-bit
// samples to JFIF files and back, through the codec of examples/jpeg_codec.
//
//   vek jpeg encode [-q QUALITY] [-s 444|422|420|gray] [--optimize]
//                   [--progressive] [--restart MCUS] IN.ppm|IN.pgm OUT.jpg
//   vek jpeg decode [--scale 1/2|1/4|1/8] IN.jpg OUT.ppm
//
// A grey input, or -s gray, gives a one-component file; a one-component
// file decodes to a PGM (P5) whatever OUT is called, a three-component one
// to a PPM (P6).  The output is written whole after a successful run, under
// a temporary name renamed at the end, so a failure leaves no file.
// Exit status: 0 on success, 1 on bad or unsupported input (a message
// says why), 2 on a usage error.
#include "tools/vek_jpeg.h"

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "examples/jpeg_codec/jpeg_pixels.h"

namespace {

constexpr size_t kMaxFileBytes = size_t(1) << 30;

int usage() {
    fprintf(stderr,
            "usage: vek jpeg encode [-q QUALITY] [-s 444|422|420|gray] [--optimize] [--progressive]\n"
            "                       [--restart MCUS] IN.ppm|IN.pgm OUT.jpg\n"
            "       vek jpeg decode [--scale 1/2|1/4|1/8] IN.jpg OUT.ppm\n");
    return 2;
}

int fail(const std::string& path, const std::string& message) {
    fprintf(stderr, "vek jpeg: %s: %s\n", path.c_str(), message.c_str());
    return 1;
}

bool readFile(const std::string& path, std::vector<uint8_t>& data, std::string& error) {
    FILE* f = fopen(path.c_str(), "rb");
    if (!f) {
        error = strerror(errno);
        return false;
    }
    data.clear();
    uint8_t chunk[1 << 16];
    size_t n;
    while ((n = fread(chunk, 1, sizeof chunk, f)) > 0 && data.size() <= kMaxFileBytes)
        data.insert(data.end(), chunk, chunk + n);
    const bool bad = ferror(f) != 0;
    fclose(f);
    if (bad) error = "read error";
    if (data.size() > kMaxFileBytes) error = "file too large";
    return error.empty();
}

// The whole output under OUT.part, then renamed to OUT.
bool writeFile(const std::string& path, const std::vector<uint8_t>& header, const std::vector<uint8_t>& body,
               std::string& error) {
    const std::string partPath = path + ".part";
    FILE* f = fopen(partPath.c_str(), "wb");
    if (!f) {
        error = strerror(errno);
        return false;
    }
    bool ok = true;
    for (const std::vector<uint8_t>* part : {&header, &body})
        if (!part->empty()) ok = fwrite(part->data(), 1, part->size(), f) == part->size() && ok;
    ok = fclose(f) == 0 && ok;
    remove(path.c_str());  // rename does not replace on every system
    if (!ok || rename(partPath.c_str(), path.c_str()) != 0) {
        error = ok ? "cannot rename the finished output" : "write error";
        remove(partPath.c_str());
        return false;
    }
    return true;
}

// Binary PNM (P5, P6) with a maximum value of 255.
std::string parsePnm(const std::vector<uint8_t>& d, vekjpeg::Image& image) {
    if (d.size() < 2 || d[0] != 'P' || (d[1] != '5' && d[1] != '6')) return "not a binary PPM (P6) or PGM (P5) file";
    size_t pos = 2;
    long fields[3];
    for (long& field : fields) {
        for (;;) {
            while (pos < d.size() && strchr(" \t\r\n", d[pos])) ++pos;
            if (pos < d.size() && d[pos] == '#')
                while (pos < d.size() && d[pos] != '\n') ++pos;
            else
                break;
        }
        if (pos >= d.size() || d[pos] < '0' || d[pos] > '9') return "bad PNM header";
        field = 0;
        while (pos < d.size() && d[pos] >= '0' && d[pos] <= '9' && field < 1000000)
            field = field * 10 + (d[pos++] - '0');
    }
    if (pos >= d.size() || !strchr(" \t\r\n", d[pos])) return "bad PNM header";
    ++pos;
    if (fields[2] != 255) return "only 8-bit PNM files (maximum value 255) are supported";
    if (fields[0] < 1 || fields[1] < 1 || fields[0] > 65535 || fields[1] > 65535)
        return "image size out of JPEG's range 1..65535";
    image.width = int(fields[0]);
    image.height = int(fields[1]);
    image.channels = d[1] == '6' ? 3 : 1;
    const size_t bytes = size_t(image.width) * size_t(image.height) * size_t(image.channels);
    if (d.size() - pos < bytes) return "truncated PNM file";
    image.pixels.assign(d.begin() + long(pos), d.begin() + long(pos + bytes));
    return "";
}

// An option's whole-number value within low..high, or a message.
bool number(const std::string& text, long low, long high, const char* what, int& value) {
    char* end = nullptr;
    const long n = strtol(text.c_str(), &end, 10);
    if (text.empty() || *end || n < low || n > high) {
        fprintf(stderr, "vek jpeg: %s must be %ld..%ld\n", what, low, high);
        return false;
    }
    value = int(n);
    return true;
}

int encode(const std::vector<std::string>& args) {
    vekjpeg::EncodeOptions options;
    std::vector<std::string> files;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        const bool hasValue = i + 1 < args.size();
        if (a == "--optimize") {
            options.optimize = true;
        } else if (a == "--progressive") {
            options.progressive = true;
        } else if (a == "-q" && hasValue) {
            if (!number(args[++i], 1, 100, "quality", options.quality)) return 2;
        } else if (a == "--restart" && hasValue) {
            if (!number(args[++i], 0, 65535, "the restart interval (MCUs)", options.restartInterval)) return 2;
        } else if (a == "-s" && hasValue) {
            const std::string& s = args[++i];
            if (s == "444")
                options.sampling = vekjpeg::Sampling::S444;
            else if (s == "422")
                options.sampling = vekjpeg::Sampling::S422;
            else if (s == "420")
                options.sampling = vekjpeg::Sampling::S420;
            else if (s == "gray" || s == "grey")
                options.sampling = vekjpeg::Sampling::Grey;
            else
                return usage();
        } else if (a.size() > 1 && a[0] == '-') {
            return usage();
        } else {
            files.push_back(a);
        }
    }
    if (files.size() != 2) return usage();
    std::vector<uint8_t> input, output;
    std::string error;
    if (!readFile(files[0], input, error)) return fail(files[0], error);
    vekjpeg::Image image;
    if ((error = parsePnm(input, image)).empty()) error = vekjpeg::encodeJpeg(image, options, output);
    if (!error.empty()) return fail(files[0], error);
    if (!writeFile(files[1], {}, output, error)) return fail(files[1], error);
    return 0;
}

int decode(const std::vector<std::string>& args) {
    int denominator = 1;
    std::vector<std::string> files;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--scale" && i + 1 < args.size()) {
            const std::string& s = args[++i];
            if (s == "1/1" || s == "1")
                denominator = 1;
            else if (s == "1/2")
                denominator = 2;
            else if (s == "1/4")
                denominator = 4;
            else if (s == "1/8")
                denominator = 8;
            else
                return usage();
        } else if (a.size() > 1 && a[0] == '-') {
            return usage();
        } else {
            files.push_back(a);
        }
    }
    if (files.size() != 2) return usage();
    std::vector<uint8_t> input;
    std::string error;
    if (!readFile(files[0], input, error)) return fail(files[0], error);
    vekjpeg::Image image;
    error = vekjpeg::decodeJpeg(input.data(), input.size(), denominator, image);
    if (!error.empty()) return fail(files[0], error);
    const std::string header = std::string(image.channels == 1 ? "P5\n" : "P6\n") + std::to_string(image.width) + " " +
                               std::to_string(image.height) + "\n255\n";
    if (!writeFile(files[1], std::vector<uint8_t>(header.begin(), header.end()), image.pixels, error))
        return fail(files[1], error);
    return 0;
}

}  // namespace

int jpegCommand(const std::vector<std::string>& args) {
    if (args.empty()) return usage();
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    if (args[0] == "encode") return encode(rest);
    if (args[0] == "decode") return decode(rest);
    return usage();
}
