// `vek gzip` and `vek zlib`: files and pipes compressed by the library's
// deflate encoder into the gzip (RFC 1952) or zlib (RFC 1950) container,
// with gzip's command line.
#ifndef VEK_TOOLS_VEK_COMPRESS_H
#define VEK_TOOLS_VEK_COMPRESS_H

#include <string>
#include <vector>

int gzipCommand(const std::vector<std::string>& args);
int zlibCommand(const std::vector<std::string>& args);

// One line each for `vek --help`, and the options both commands take.
#define VEK_GZIP_SUMMARY "[OPTION]... [FILE]...  FILE to FILE.gz (RFC 1952); no FILE, or -: stdin to stdout"
#define VEK_ZLIB_SUMMARY "[OPTION]... [FILE]...  the same, to FILE.zz in the zlib container (RFC 1950)"
extern const char* const kCompressOptionsHelp;

#endif
