// `vek gzip` and `vek zlib` (see vek_compress.h).
//
//   vek gzip [OPTION]... [FILE]...      vek zlib [OPTION]... [FILE]...
//
// The options are gzip's everyday ones (kCompressOptionsHelp lists them),
// alone or together (-9ck).  gzip's levels map onto the encoder's three
// classes: -1 to -3 the fast class, -4 to -6 the default one (gzip's
// default is -6), -7 to -9 the best one.  -0 is refused: gzip has no level
// 0, and the encoder has no stored-only mode that would honour it.
//
// Each FILE becomes FILE.gz (FILE.zz) beside it, written under a temporary
// name (the output name + ".part") and renamed when complete, so a failed
// run leaves no partial file; then FILE is removed unless -k (a FILE that
// is not a regular file is never removed).  The output takes FILE's
// permission bits and times.  With -c every FILE goes to stdout instead,
// one gzip member after another, and is kept; zlib streams do not
// concatenate, so `vek zlib` writes one stream to stdout at most.  No FILE,
// or "-", compresses stdin to stdout in constant memory.  A progress line
// goes to stderr when it is a terminal and an input passes 16 MiB.
//
// Exit status: 0 when every input was compressed; 1 when one was not (a
// message says why; the other inputs are still done), and on -d; 2 on a
// usage error, before anything is read or written.
#include "tools/vek_compress.h"

#include <errno.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>

#include <algorithm>
#include <iterator>

#ifdef _WIN32
#    include <fcntl.h>
#    include <io.h>
#    define isatty _isatty
#    define fileno _fileno
#else
#    include <sys/mman.h>
#    include <unistd.h>
#endif

#include "deflate_stream/deflate_stream.h"

const char* const kCompressOptionsHelp =
    "gzip and zlib options (as gzip takes them):\n"
    "  -1 .. -9   level: -1 to -3 the fast class, -4 to -6 the default class\n"
    "             (-6 when none is given), -7 to -9 the best class;\n"
    "             --fast is -1, --best is -9; -0 is refused\n"
    "  --class N  the class itself: 0 fast, 1 default, 2 best\n"
    "  -c         write to stdout and keep FILE (--stdout)\n"
    "  -k         keep FILE (--keep); without -k or -c, FILE is removed\n"
    "  -f         replace an existing output, write to a terminal, and\n"
    "             compress a FILE that already has the suffix (--force)\n"
    "  -v         print the space saved per input to stderr (--verbose)\n"
    "  -d         refused: decompression is not supported yet\n";

namespace {

constexpr unsigned long long kProgressFrom = 16ull << 20;

struct Format {
    const char* name;  // the command
    vekdeflate::Container container;
    const char* suffix;
    const char* summary;
    bool concatenates;  // streams one after another decompress as one
};
const Format kGzip{"gzip", vekdeflate::Container::Gzip, ".gz", VEK_GZIP_SUMMARY, true};
const Format kZlib{"zlib", vekdeflate::Container::Zlib, ".zz", VEK_ZLIB_SUMMARY, false};

struct Settings {
    int comprClass = VekDeflateDefault;
    bool toStdout = false, keep = false, force = false, verbose = false, decompress = false, help = false;
    std::vector<std::string> inputs;  // "-" is stdin
};

int classOfLevel(int level) { return level <= 3 ? VekDeflateFast : level <= 6 ? VekDeflateDefault : VekDeflateBest; }

// gzip's switches: the letter, the long names, what they turn on.
struct Switch {
    char letter;
    const char *name, *alias;
    bool Settings::*flag;
};
const Switch kSwitches[] = {
    {'c', "stdout", "to-stdout", &Settings::toStdout},
    {'k', "keep", nullptr, &Settings::keep},
    {'f', "force", nullptr, &Settings::force},
    {'v', "verbose", nullptr, &Settings::verbose},
    {'d', "decompress", "uncompress", &Settings::decompress},
    {'h', "help", nullptr, &Settings::help},
};

// Reads gzip's options and the inputs ("--" ends the options); an error
// text, or "" when all is well.
std::string parse(const std::vector<std::string>& args, Settings& s) {
    static const int kClassByDigit[] = {VekDeflateFast, VekDeflateDefault, VekDeflateBest};
    bool optionsDone = false;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (optionsDone || a.size() < 2 || a[0] != '-') {
            s.inputs.push_back(a);
        } else if (a == "--") {
            optionsDone = true;
        } else if (a[1] == '-') {
            const size_t eq = a.find('=');
            const std::string name = a.substr(2, eq == std::string::npos ? std::string::npos : eq - 2);
            if (name == "class") {
                std::string value;
                if (eq != std::string::npos)
                    value = a.substr(eq + 1);
                else if (i + 1 < args.size())
                    value = args[++i];
                if (value.size() != 1 || value[0] < '0' || value[0] > '2') return "--class takes 0, 1 or 2";
                s.comprClass = kClassByDigit[value[0] - '0'];
            } else if (eq == std::string::npos && (name == "fast" || name == "best")) {
                s.comprClass = classOfLevel(name == "fast" ? 1 : 9);
            } else {
                const Switch* sw = std::find_if(std::begin(kSwitches), std::end(kSwitches), [&](const Switch& w) {
                    return eq == std::string::npos && (name == w.name || (w.alias && name == w.alias));
                });
                if (sw == std::end(kSwitches)) return "unknown option " + a;
                s.*sw->flag = true;
            }
        } else {
            for (size_t k = 1; k < a.size(); ++k) {
                const char c = a[k];
                const Switch* sw = std::find_if(std::begin(kSwitches), std::end(kSwitches),
                                                [c](const Switch& w) { return w.letter == c; });
                if (c >= '1' && c <= '9')
                    s.comprClass = classOfLevel(c - '0');
                else if (c == '0')
                    return "-0 is not a level: use -1 (fastest) to -9 (best), or --class";
                else if (sw != std::end(kSwitches))
                    s.*sw->flag = true;
                else
                    return std::string("unknown option -") + c;
            }
        }
    }
    return "";
}

// A whole regular file read from its start, mapped: it is compressed in
// place, with no copy through read() on the way.  Empty (no mapping) for a
// pipe, a terminal, an empty file, a file already read from, one that
// cannot be mapped, and on Windows; those are read.
class MappedInput {
public:
    explicit MappedInput(FILE* in) {
#ifndef _WIN32
        const int fd = fileno(in);
        struct stat st;
        if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) || st.st_size <= 0 || lseek(fd, 0, SEEK_CUR) != 0 ||
            static_cast<unsigned long long>(st.st_size) > SIZE_MAX)
            return;
        void* p = mmap(nullptr, size_t(st.st_size), PROT_READ, MAP_PRIVATE, fd, 0);
        if (p == MAP_FAILED) return;
        madvise(p, size_t(st.st_size), MADV_SEQUENTIAL);
        data_ = static_cast<const Vek8u*>(p);
        size_ = size_t(st.st_size);
#else
        (void)in;
#endif
    }
    ~MappedInput() {
#ifndef _WIN32
        if (data_) munmap(const_cast<Vek8u*>(data_), size_);
#endif
    }
    MappedInput(const MappedInput&) = delete;
    MappedInput& operator=(const MappedInput&) = delete;
    const Vek8u* data() const { return data_; }
    size_t size() const { return size_; }

private:
    const Vek8u* data_ = nullptr;
    size_t size_ = 0;
};

// Compresses `in` to `out`; on failure says what went wrong where.
bool compressTo(const Format& f, int comprClass, FILE* in, const std::string& inName, FILE* out,
                const std::string& outName, vekdeflate::Result& r) {
    vekdeflate::Options options;
    options.container = f.container;
    options.comprClass = comprClass;
    options.outputChunk = 1 << 18;  // large writes; the bytes do not depend on it
    const bool progress = isatty(fileno(stderr));
    unsigned long long taken = 0, shown = 0;
    int readErrno = 0, writeErrno = 0;
    const vekdeflate::WriteFn write = [&](const Vek8u* data, int len) {
        if (fwrite(data, 1, size_t(len), out) == size_t(len)) return true;
        writeErrno = errno;
        return false;
    };
    const vekdeflate::ReadFn read = [&](Vek8u* buf, int room) -> long {
        const size_t n = fread(buf, 1, size_t(room), in);
        if (n == 0 && ferror(in)) {
            readErrno = errno;
            return -1;
        }
        taken += n;
        if (progress && taken >= kProgressFrom && taken - shown >= (4u << 20)) {
            fprintf(stderr, "\rvek %s: %s: %llu MiB", f.name, inName.c_str(), taken >> 20);
            shown = taken;
        }
        return long(n);
    };
    // A large file shows its progress as it is read.
    const MappedInput mapped(in);
    if (mapped.data() && !(progress && mapped.size() >= kProgressFrom))
        r = vekdeflate::compressInPlace(mapped.data(), mapped.size(), options, write);
    else
        r = vekdeflate::compressStream(options, read, write);
    if (progress && shown) fprintf(stderr, "\n");
    if (r.ok && fflush(out) != 0) r.ok = false, r.error = "write error", writeErrno = errno;
    if (r.ok) return true;
    const bool reading = r.error == "read error";
    const int e = reading ? readErrno : writeErrno;
    fprintf(stderr, "vek %s: %s on %s%s%s\n", f.name, r.error.c_str(), (reading ? inName : outName).c_str(),
            e ? ": " : "", e ? strerror(e) : "");
    return false;
}

// gzip -v's line: the space saved, and the file made.
void reportSaving(const std::string& inName, const vekdeflate::Result& r, const std::string& created) {
    const double saved = r.bytesIn ? 100.0 * (double(r.bytesIn) - double(r.bytesOut)) / double(r.bytesIn) : 0.0;
    fprintf(stderr, "%s:\t%5.1f%%%s%s\n", inName.c_str(), saved, created.empty() ? "" : " -- created ",
            created.c_str());
}

bool compressToStdout(const Format& f, const Settings& s, const std::string& path) {
    const bool isStdin = path == "-";
    const std::string inName = isStdin ? "stdin" : path;
    FILE* in = isStdin ? stdin : fopen(path.c_str(), "rb");
    if (!in) {
        fprintf(stderr, "vek %s: cannot open %s: %s\n", f.name, path.c_str(), strerror(errno));
        return false;
    }
#ifdef _WIN32
    if (isStdin) _setmode(_fileno(stdin), _O_BINARY);
#endif
    vekdeflate::Result r;
    const bool ok = compressTo(f, s.comprClass, in, inName, stdout, "stdout", r);
    if (!isStdin) fclose(in);
    if (ok && s.verbose) reportSaving(inName, r, "");
    return ok;
}

bool endsWith(const std::string& s, const std::string& tail) {
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

// FILE to FILE.gz through FILE.gz.part, then FILE removed unless kept.
bool compressToFile(const Format& f, const Settings& s, const std::string& path) {
    if (!s.force && endsWith(path, f.suffix)) {
        fprintf(stderr, "vek %s: %s already has the %s suffix -- unchanged\n", f.name, path.c_str(), f.suffix);
        return false;
    }
    FILE* in = fopen(path.c_str(), "rb");
    if (!in) {
        fprintf(stderr, "vek %s: cannot open %s: %s\n", f.name, path.c_str(), strerror(errno));
        return false;
    }
    struct stat inStat = {};
    fstat(fileno(in), &inStat);
    const std::string outPath = path + f.suffix, partPath = outPath + ".part";
    struct stat outStat;
    if (!s.force && stat(outPath.c_str(), &outStat) == 0) {
        fprintf(stderr, "vek %s: %s already exists (use -f to replace it)\n", f.name, outPath.c_str());
        fclose(in);
        return false;
    }
    FILE* out = fopen(partPath.c_str(), "wb");
    if (!out) {
        fprintf(stderr, "vek %s: cannot create %s: %s\n", f.name, partPath.c_str(), strerror(errno));
        fclose(in);
        return false;
    }
#ifndef _WIN32
    fchmod(fileno(out), inStat.st_mode & 0777);  // before any byte: a private FILE stays private
#endif
    vekdeflate::Result r;
    bool ok = compressTo(f, s.comprClass, in, path, out, partPath, r);
    fclose(in);
#ifndef _WIN32
    if (ok) {
        const struct timespec times[2] = {inStat.st_atim, inStat.st_mtim};
        futimens(fileno(out), times);
    }
#endif
    if (fclose(out) != 0 && ok) {
        fprintf(stderr, "vek %s: write error on %s: %s\n", f.name, partPath.c_str(), strerror(errno));
        ok = false;
    }
    if (!ok) {
        remove(partPath.c_str());
        return false;
    }
    remove(outPath.c_str());  // rename does not replace on every system
    if (rename(partPath.c_str(), outPath.c_str()) != 0) {
        fprintf(stderr, "vek %s: cannot rename %s to %s: %s\n", f.name, partPath.c_str(), outPath.c_str(),
                strerror(errno));
        remove(partPath.c_str());
        return false;
    }
    if (!s.keep && S_ISREG(inStat.st_mode) && remove(path.c_str()) != 0) {
        fprintf(stderr, "vek %s: cannot remove %s: %s\n", f.name, path.c_str(), strerror(errno));
        return false;
    }
    if (s.verbose) reportSaving(path, r, outPath);
    return true;
}

int compressCommand(const Format& f, const std::vector<std::string>& args) {
    Settings s;
    const std::string error = parse(args, s);
    if (!error.empty()) {
        fprintf(stderr, "vek %s: %s\nusage: vek %s %s\n%s", f.name, error.c_str(), f.name, f.summary,
                kCompressOptionsHelp);
        return 2;
    }
    if (s.help) {
        printf("usage: vek %s %s\n%s", f.name, f.summary, kCompressOptionsHelp);
        return 0;
    }
    if (s.decompress) {
        fprintf(stderr, "vek %s: decompression is not supported yet\n", f.name);
        return 1;
    }
    if (s.inputs.empty()) s.inputs.push_back("-");
    const auto toStdout = [&](const std::string& input) { return s.toStdout || input == "-"; };
    const long streamsToStdout = std::count_if(s.inputs.begin(), s.inputs.end(), toStdout);
    if (streamsToStdout > 1 && !f.concatenates) {
        fprintf(stderr, "vek %s: one input at most to stdout: zlib streams do not concatenate\n", f.name);
        return 2;
    }
    if (streamsToStdout > 0) {
#ifdef _WIN32
        _setmode(_fileno(stdout), _O_BINARY);
#endif
        if (!s.force && isatty(fileno(stdout))) {
            fprintf(stderr, "vek %s: compressed data not written to a terminal (use -f to force)\n", f.name);
            return 1;
        }
    }
    int status = 0;
    for (const std::string& input : s.inputs)
        if (!(toStdout(input) ? compressToStdout(f, s, input) : compressToFile(f, s, input))) status = 1;
    return status;
}

}  // namespace

int gzipCommand(const std::vector<std::string>& args) { return compressCommand(kGzip, args); }
int zlibCommand(const std::vector<std::string>& args) { return compressCommand(kZlib, args); }
