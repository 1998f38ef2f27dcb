// `vek gzip` and `vek zlib` (see vek_compress.h).
//
//   vek gzip [-0|-1|-2] [-f] [FILE]     vek zlib [-0|-1|-2] [-f] [FILE]
//
// -0, -1, -2 pick the compression class (fast, default, best; default 1).
// With FILE the output is FILE.gz or FILE.zz beside it and FILE is kept; an
// existing output is replaced only with -f.  The output is written under a
// temporary name (the output name + ".part") and renamed when complete, so
// a failed run leaves no partial file.  Without FILE (or with "-") stdin is
// compressed to stdout in constant memory.  A progress line goes to stderr
// when it is a terminal and the input passes 16 MiB.  Exit status 0 on
// success, 1 on a read, write or encoder error (with a message), 2 on a
// usage error.
#include "tools/vek_compress.h"

#include <errno.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>

#ifdef _WIN32
#    include <fcntl.h>
#    include <io.h>
#    define isatty _isatty
#    define fileno _fileno
#else
#    include <unistd.h>
#endif

#include "deflate_stream/deflate_stream.h"

namespace {

constexpr unsigned long long kProgressFrom = 16ull << 20;

int compressCommand(const char* name, vekdeflate::Container container, const char* suffix,
                    const std::vector<std::string>& args) {
    vekdeflate::Options options;
    options.container = container;
    bool force = false;
    std::string path;
    for (const std::string& a : args) {
        if (a == "-0" || a == "-1" || a == "-2")
            options.comprClass = a[1] - '0';
        else if (a == "-f")
            force = true;
        else if (a.size() > 1 && a[0] == '-') {
            fprintf(stderr, "vek %s: unknown option %s\nusage: vek %s " VEK_COMPRESS_HELP "\n", name, a.c_str(), name);
            return 2;
        } else if (!path.empty()) {
            fprintf(stderr, "vek %s: one FILE at most\n", name);
            return 2;
        } else {
            path = a;
        }
    }
    const bool pipe = path.empty() || path == "-";
    std::string outPath, partPath;
    FILE* in = stdin;
    FILE* out = stdout;
    if (pipe) {
#ifdef _WIN32
        _setmode(_fileno(stdin), _O_BINARY);
        _setmode(_fileno(stdout), _O_BINARY);
#endif
        if (isatty(fileno(stdout))) {
            fprintf(stderr, "vek %s: compressed data not written to a terminal\n", name);
            return 1;
        }
    } else {
        in = fopen(path.c_str(), "rb");
        if (!in) {
            fprintf(stderr, "vek %s: cannot open %s: %s\n", name, path.c_str(), strerror(errno));
            return 1;
        }
        outPath = path + suffix;
        partPath = outPath + ".part";
        struct stat st;
        if (!force && stat(outPath.c_str(), &st) == 0) {
            fprintf(stderr, "vek %s: %s exists (use -f to replace it)\n", name, outPath.c_str());
            fclose(in);
            return 1;
        }
        out = fopen(partPath.c_str(), "wb");
        if (!out) {
            fprintf(stderr, "vek %s: cannot create %s: %s\n", name, partPath.c_str(), strerror(errno));
            fclose(in);
            return 1;
        }
    }

    const bool progress = isatty(fileno(stderr));
    unsigned long long taken = 0, shown = 0;
    int readErrno = 0, writeErrno = 0;
    const vekdeflate::Result r = vekdeflate::compressStream(
        options,
        [&](Vek8u* buf, int room) -> long {
            const size_t n = fread(buf, 1, size_t(room), in);
            if (n == 0 && ferror(in)) {
                readErrno = errno;
                return -1;
            }
            taken += n;
            if (progress && taken >= kProgressFrom && taken - shown >= (4u << 20)) {
                fprintf(stderr, "\rvek %s: %llu MiB", name, taken >> 20);
                shown = taken;
            }
            return long(n);
        },
        [&](const Vek8u* data, int len) {
            if (fwrite(data, 1, size_t(len), out) == size_t(len)) return true;
            writeErrno = errno;
            return false;
        });
    if (progress && shown) fprintf(stderr, "\n");
    bool ok = r.ok;
    std::string why = r.error;
    if (ok && fflush(out) != 0) ok = false, why = "write error", writeErrno = errno;
    if (!pipe) {
        fclose(in);
        if (fclose(out) != 0 && ok) ok = false, why = "write error", writeErrno = errno;
    }
    const std::string where = why == "read error" ? (pipe ? "stdin" : path) : (pipe ? "stdout" : partPath);
    if (!ok) {
        const int e = why == "read error" ? readErrno : writeErrno;
        fprintf(stderr, "vek %s: %s on %s%s%s\n", name, why.c_str(), where.c_str(), e ? ": " : "",
                e ? strerror(e) : "");
        if (!pipe) remove(partPath.c_str());
        return 1;
    }
    if (!pipe) {
        remove(outPath.c_str());  // rename does not replace on every system
        if (rename(partPath.c_str(), outPath.c_str()) != 0) {
            fprintf(stderr, "vek %s: cannot rename %s to %s: %s\n", name, partPath.c_str(), outPath.c_str(),
                    strerror(errno));
            remove(partPath.c_str());
            return 1;
        }
    }
    return 0;
}

}  // namespace

int gzipCommand(const std::vector<std::string>& args) {
    return compressCommand("gzip", vekdeflate::Container::Gzip, ".gz", args);
}
int zlibCommand(const std::vector<std::string>& args) {
    return compressCommand("zlib", vekdeflate::Container::Zlib, ".zz", args);
}
